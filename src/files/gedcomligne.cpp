#include "gedcomligne.h"

namespace {

constexpr VueUtf8 marque("\xEF\xBB\xBF");

/// Bytes of the letter that begins with \a octet.
std::size_t Longueur(char octet)
{
    const auto premier = static_cast<unsigned char>(octet);
    return premier < 0x80 ? 1 : premier < 0xE0 ? 2 : premier < 0xF0 ? 3 : 4;
}

/// Bytes of the blank in front; 0 when there is none. No blank has four.
std::size_t BlancDevant(VueUtf8 vue)
{
    const auto octet = [vue](std::size_t i) { return static_cast<char32_t>(static_cast<unsigned char>(vue[i])); };
    const std::size_t longueur = Longueur(vue[0]);
    char32_t lettre = octet(0);
    if (longueur == 2)
        lettre = (octet(0) & 0x1FU) << 6 | (octet(1) & 0x3FU);
    else if (longueur == 3)
        lettre = (octet(0) & 0x0FU) << 12 | (octet(1) & 0x3FU) << 6 | (octet(2) & 0x3FU);
    return longueur < 4 && QChar::isSpace(lettre) ? longueur : 0;
}

std::size_t BlancDerriere(VueUtf8 vue)
{
    std::size_t debut = vue.size() - 1;
    while ((static_cast<unsigned char>(vue[debut]) & 0xC0U) == 0x80U)
        --debut;
    return BlancDevant(vue.substr(debut));
}

}  // namespace

QString TexteDe(VueUtf8 vue)
{
    // fromUtf8 drops a mark in front; within a file it is a letter.
    QString marques;
    while (vue.starts_with(marque)) {
        marques += QChar(QChar::ByteOrderMark);
        vue.remove_prefix(marque.size());
    }
    const QString texte = QString::fromUtf8(vue.data(), static_cast<qsizetype>(vue.size()));
    return marques.isEmpty() ? texte : marques + texte;
}

VueUtf8 RogneeLettreALettre(VueUtf8 vue)
{
    while (!vue.empty()) {
        const std::size_t blanc = BlancDevant(vue);
        if (blanc == 0)
            break;
        vue.remove_prefix(blanc);
    }
    while (!vue.empty()) {
        const std::size_t blanc = BlancDerriere(vue);
        if (blanc == 0)
            break;
        vue.remove_suffix(blanc);
    }
    return vue;
}

std::optional<VueUtf8> SansDebutLettreALettre(VueUtf8 vue, std::size_t nombre)
{
    while (nombre > 0 && !vue.empty()) {
        const std::size_t longueur = Longueur(vue[0]);
        const std::size_t unites = longueur == 4 ? 2 : 1;
        if (unites > nombre)
            return {};
        nombre -= unites;
        vue.remove_prefix(longueur);
    }
    return vue;
}
