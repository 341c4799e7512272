#pragma once

#include <QByteArrayView>
#include <QFile>

/// Opens \a fichier for reading in \a mode, unless it is a pipe or a device: the first would wait for its writer, the
/// second may never end; or larger than 2 GiB. False with \a cause, in the system's words in French, when it cannot be read.
[[nodiscard]] bool OuvreEnLecture(QFile &fichier, QIODevice::OpenMode mode, QString &cause);

/// Among these bytes there is a stretch of at least 64 MiB without the byte \a marque, which no file that a person could
/// mean has; a stretch of less than 32 MiB never counts. Looks at one place in 32 MiB at best.
[[nodiscard]] bool SansMarqueLongtemps(QByteArrayView octets, char marque);
