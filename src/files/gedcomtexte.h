#pragma once

#include <QByteArray>
#include <QString>

/// The text of a GEDCOM file. A byte order mark decides; zero bytes tell UTF-16 without one; else bytes that are valid
/// UTF-8 are UTF-8; else the CHAR line of the header is believed (ANSEL, ANSI and its kin as Windows-1252, Macintosh, IBM
/// PC as code page 850, or 437 when it says so); else Windows-1252. Linear.
[[nodiscard]] QString TexteGED(const QByteArray &octets);
