#pragma once

#include <QByteArrayView>
#include <QString>

/// Decodes ANSEL, the character set of most older GEDCOM files, with GEDCOM's own additions. Accents, which stand before
/// their letter in ANSEL, are composed with it (NFC); one that has no letter behind it becomes a blank with the accent,
/// and the line break behind it stays. Bytes that mean nothing become U+FFFD, never nothing.
[[nodiscard]] QString DecodeAnsel(QByteArrayView octets);
