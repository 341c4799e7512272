#pragma once

#include <QString>
#include <QStringView>

#include <algorithm>
#include <optional>
#include <string_view>

/// One line of a GEDCOM file and its parts, as views. A letter is a UTF-16 unit, or a byte of valid UTF-8: every rule is told
/// in UTF-16 units, and gives the same text in both.

using VueUtf8 = std::string_view;
using VueUtf16 = std::u16string_view;

/// The text of a view.
[[nodiscard]] QString TexteDe(VueUtf8 vue);
[[nodiscard]] inline QString TexteDe(VueUtf16 vue)
{
    return QString(reinterpret_cast<const QChar *>(vue.data()), static_cast<qsizetype>(vue.size()));
}

[[nodiscard]] inline VueUtf16 VueDe(QStringView texte)
{
    return {texte.utf16(), static_cast<std::size_t>(texte.size())};
}

/// A byte that is a letter of its own, and no blank.
[[nodiscard]] constexpr bool EstVisible(char octet)
{
    return static_cast<signed char>(octet) > ' ';
}

/// The same for any letters.
[[nodiscard]] VueUtf8 RogneeLettreALettre(VueUtf8 vue);
[[nodiscard]] std::optional<VueUtf8> SansDebutLettreALettre(VueUtf8 vue, std::size_t nombre);

/// Without the white space around it, as QString::trimmed.
[[nodiscard]] inline VueUtf8 Rognee(VueUtf8 vue)
{
    while (!vue.empty() && vue.front() == ' ')
        vue.remove_prefix(1);
    while (!vue.empty() && (vue.back() == '\r' || vue.back() == ' '))
        vue.remove_suffix(1);
    const bool finie = vue.empty() || (EstVisible(vue.front()) && EstVisible(vue.back()));
    return finie ? vue : RogneeLettreALettre(vue);
}
[[nodiscard]] inline VueUtf16 Rognee(VueUtf16 vue)
{
    return VueDe(QStringView(vue).trimmed());
}

/// Without its first \a nombre UTF-16 units. None when a cut through a letter leaves what UTF-8 cannot say.
[[nodiscard]] inline std::optional<VueUtf8> SansDebut(VueUtf8 vue, std::size_t nombre)
{
    for (std::size_t i = 0; i < nombre; ++i) {
        if (i >= vue.size() || !EstVisible(vue[i]))
            return SansDebutLettreALettre(vue, nombre);
    }
    vue.remove_prefix(nombre);
    return vue;
}
[[nodiscard]] inline std::optional<VueUtf16> SansDebut(VueUtf16 vue, std::size_t nombre)
{
    return vue.substr(std::min(nombre, vue.size()));
}

template <typename Lettre> [[nodiscard]] short PrendNiveauQuelconque(std::basic_string_view<Lettre> &ligne)
{
    const auto blanc = ligne.find(Lettre(' '));
    if (blanc == ligne.npos)
        return 0;
    const short niveau = TexteDe(ligne.substr(0, blanc)).toShort();
    ligne.remove_prefix(blanc + 1);
    return niveau;
}

/// Takes the level number and the blank behind it from the front of \a ligne. 0 when it is no number; a line without any
/// blank is left whole and is of level 0.
template <typename Lettre> [[nodiscard]] inline short PrendNiveau(std::basic_string_view<Lettre> &ligne)
{
    if (ligne.size() > 1 && ligne[0] >= Lettre('0') && ligne[0] <= Lettre('9') && ligne[1] == Lettre(' ')) {
        const auto niveau = static_cast<short>(ligne[0] - Lettre('0'));
        ligne.remove_prefix(2);
        return niveau;
    }
    return PrendNiveauQuelconque(ligne);
}

/// The first identifier with its two at signs; empty when there is none.
template <typename Lettre> [[nodiscard]] std::basic_string_view<Lettre> Adresse(std::basic_string_view<Lettre> texte)
{
    const auto debut = texte.find(Lettre('@'));
    const auto fin = debut == texte.npos ? texte.npos : texte.find(Lettre('@'), debut + 1);
    return fin == texte.npos ? std::basic_string_view<Lettre>() : texte.substr(debut, fin - debut + 1);
}

/// The parts of a name that its slashes change; the others keep what they are.
template <typename Lettre> struct NomCoupe
{
    std::optional<std::basic_string_view<Lettre>> prenom;
    std::optional<std::basic_string_view<Lettre>> nom;
};

/// Splits "prénoms /NOM/". One slash or none gives a surname alone; three or more give nothing.
template <typename Lettre> [[nodiscard]] NomCoupe<Lettre> CoupeNom(std::basic_string_view<Lettre> texte)
{
    const auto un = texte.find(Lettre('/'));
    const auto deux = un == texte.npos ? un : texte.find(Lettre('/'), un + 1);
    if (deux == texte.npos)
        return {{}, texte.substr(0, un)};
    if (texte.find(Lettre('/'), deux + 1) != texte.npos)
        return {};
    return {texte.substr(0, un), texte.substr(un + 1, deux - un - 1)};
}
