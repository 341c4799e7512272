#pragma once

#include <QByteArray>
#include <QByteArrayView>
#include <QString>

#include <optional>

/// The text of a GEDCOM file. A byte order mark decides; zero bytes tell UTF-16 without one; else bytes that are valid
/// UTF-8 are UTF-8; else the CHAR line of the header is believed (ANSEL, ANSI and its kin as Windows-1252, Macintosh, IBM
/// PC as code page 850, or 437 when it says so); else Windows-1252. Linear.
[[nodiscard]] QString TexteGED(const QByteArray &octets);

/// The bytes that are the text, without their byte order mark, when TexteGED takes them for UTF-8 and all are valid. They
/// belong to \a octets. Linear.
[[nodiscard]] std::optional<QByteArrayView> Utf8GED(const QByteArray &octets);
