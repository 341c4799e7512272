#pragma once

#include <QFile>

/// Opens \a fichier for reading in \a mode, unless it is a pipe or a device: the first would wait for its writer, the
/// second may never end. False with \a cause, in the system's words, when it cannot be read.
[[nodiscard]] bool OuvreEnLecture(QFile &fichier, QIODevice::OpenMode mode, QString &cause);
