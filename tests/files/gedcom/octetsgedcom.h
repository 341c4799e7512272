#pragma once

#include <QByteArray>
#include <QString>

#include <stdexcept>

/// The character sets of GEDCOM files.
enum class Jeu { Utf8, Utf16LE, Utf16BE, Ansel, Ansi, Macintosh, Ibmpc };

/// One letter in the sets that are no Unicode.
struct LettreCodee
{
    char16_t lettre;
    const char *ansel;
    const char *ansi;
    const char *macintosh;
    const char *ibmpc;
};

inline constexpr LettreCodee lettresCodees[] = {
    {u'à',
     "\xE1"
     "a",
     "\xE0", "\x88", "\x85"},
    {u'â',
     "\xE3"
     "a",
     "\xE2", "\x89", "\x83"},
    {u'ç',
     "\xF0"
     "c",
     "\xE7", "\x8D", "\x87"},
    {u'é',
     "\xE2"
     "e",
     "\xE9", "\x8E", "\x82"},
    {u'è',
     "\xE1"
     "e",
     "\xE8", "\x8F", "\x8A"},
    {u'ê',
     "\xE3"
     "e",
     "\xEA", "\x90", "\x88"},
    {u'ë',
     "\xE8"
     "e",
     "\xEB", "\x91", "\x89"},
    {u'î',
     "\xE3"
     "i",
     "\xEE", "\x94", "\x8C"},
    {u'ï',
     "\xE8"
     "i",
     "\xEF", "\x95", "\x8B"},
    {u'ô',
     "\xE3"
     "o",
     "\xF4", "\x99", "\x93"},
    {u'ù',
     "\xE1"
     "u",
     "\xF9", "\x9D", "\x97"},
    {u'û',
     "\xE3"
     "u",
     "\xFB", "\x9E", "\x96"},
    {u'ü',
     "\xE8"
     "u",
     "\xFC", "\x9F", "\x81"},
    {u'É',
     "\xE2"
     "E",
     "\xC9", "\x83", "\x90"},
    {u'È',
     "\xE1"
     "E",
     "\xC8", "\xE9", "\xD4"},
    {u'Ç',
     "\xF0"
     "C",
     "\xC7", "\x82", "\x80"},
    {u'Ô',
     "\xE3"
     "O",
     "\xD4", "\xEF", "\xE2"},
    {u'ß', "\xCF", "\xDF", "\xA7", "\xE1"},
    {u'°', "\xC0", "\xB0", "\xA1", "\xF8"},
};

inline QByteArray OctetsDe(QChar caractere, Jeu jeu)
{
    const ushort code = caractere.unicode();
    switch (jeu) {
    case Jeu::Utf8:
        return QString(caractere).toUtf8();
    case Jeu::Utf16LE:
        return QByteArray(1, char(code & 0xFF)) + char(code >> 8);
    case Jeu::Utf16BE:
        return QByteArray(1, char(code >> 8)) + char(code & 0xFF);
    default:
        break;
    }
    if (code < 0x80)
        return {1, char(code)};
    for (const LettreCodee &codee : lettresCodees) {
        if (codee.lettre == code)
            return jeu == Jeu::Ansel    ? codee.ansel
                : jeu == Jeu::Ansi      ? codee.ansi
                : jeu == Jeu::Macintosh ? codee.macintosh
                                        : codee.ibmpc;
    }
    throw std::invalid_argument("no such letter in the table");
}

/// A text of the Basic Multilingual Plane in the bytes of a character set.
inline QByteArray OctetsDe(const QString &texte, Jeu jeu)
{
    QByteArray octets;
    for (const QChar caractere : texte)
        octets += OctetsDe(caractere, jeu);
    return octets;
}
