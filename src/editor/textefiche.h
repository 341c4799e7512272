#pragma once

#include <QByteArray>
#include <QString>

/// The text of an HTML sheet: by its byte order mark or the charset that it declares, else as UTF-8 where its bytes are
/// valid UTF-8, else as ISO 8859-1.
[[nodiscard]] QString TexteFicheHtml(const QByteArray &octets);
/// The text of a plain sheet: as UTF-8 where its bytes are valid UTF-8, else as ISO 8859-1.
[[nodiscard]] QString TexteFicheSimple(const QByteArray &octets);
/// All bytes of the regular file \a nom; a null array, with the system's words in \a cause when one is given, when there
/// is none, it cannot be read or it is larger than 16 MiB.
[[nodiscard]] QByteArray OctetsFiche(const QString &nom, QString *cause = nullptr);
