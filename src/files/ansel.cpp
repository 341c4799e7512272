#include "ansel.h"

#include <array>
#include <utility>

namespace {

constexpr char16_t inconnu = 0xFFFD;

/// Letters and signs from A1 on, in order; 0 means nothing.
constexpr std::array<char16_t, 0xCF - 0xA1 + 1> signes{
    u'Ł',   u'Ø',   u'Đ',   u'Þ', u'Æ',   u'Œ', 0x02B9, u'·',   0x266D, u'®', u'±', u'Ơ', u'Ư', 0x02BC, 0,  // A1-AF
    0x02BB, u'ł',   u'ø',   u'đ', u'þ',   u'æ', u'œ',   0x02BA, u'ı',   u'£', u'ð', 0,    u'ơ', u'ư',   0x25A1,
    0x25A0,  // B0-BF
    u'°',   0x2113, 0x2117, u'©', 0x266F, u'¿', u'¡',   u'ß',   u'€',   0,    0,    0,    0,    u'e',   u'o',
    u'ß'};  // C0-CF

/// Accents from E0 on, in order; 0 means nothing.
constexpr std::array<char16_t, 0xFE - 0xE0 + 1> accents{
    0x0309, 0x0300, 0x0301, 0x0302, 0x0303, 0x0304, 0x0306, 0x0307, 0x0308, 0x030C, 0x030A,  // E0-EA
    0xFE20, 0xFE21, 0x0315, 0x030B, 0x0310, 0x0327, 0x0328, 0x0323, 0x0324, 0x0325, 0x0333,  // EB-F5
    0x0332, 0x0326, 0x031C, 0x032E, 0xFE22, 0xFE23, 0x0338, 0,      0x0313};                 // F6-FE

char16_t Signe(unsigned char octet)
{
    if (octet < 0x80)
        return octet;
    const char16_t signe = octet >= 0xA1 && octet <= 0xCF ? signes.at(octet - 0xA1U) : char16_t(0);
    return signe != 0 ? signe : inconnu;
}

/// The combining accent that \a octet stands for, or 0.
char16_t Accent(unsigned char octet)
{
    return octet >= 0xE0 && octet <= 0xFE ? accents.at(octet - 0xE0U) : char16_t(0);
}

}  // namespace

QString DecodeAnsel(QByteArrayView octets)
{
    // Composing takes time that grows with the square of the accents on one letter; no letter bears that many.
    constexpr qsizetype accentsParLettre = 30;
    QString texte;
    texte.reserve(octets.size());
    QString enAttente;
    for (const char lu : octets) {
        const auto octet = static_cast<unsigned char>(lu);
        if (const char16_t accent = Accent(octet)) {
            enAttente.prepend(QChar(accent));  // the one nearest the letter comes first behind it
            if (enAttente.size() == accentsParLettre)
                texte += u' ' + std::exchange(enAttente, QString());
            continue;
        }
        if (enAttente.isEmpty()) {
            texte += QChar(Signe(octet));
            continue;
        }
        const bool sansLettre = octet < 0x20 || octet == 0x7F;
        texte += QChar(sansLettre ? u' ' : Signe(octet)) + std::exchange(enAttente, QString());
        if (sansLettre)
            texte += QChar(Signe(octet));
    }
    if (!enAttente.isEmpty())
        texte += u' ' + enAttente;
    return texte.normalized(QString::NormalizationForm_C);
}
