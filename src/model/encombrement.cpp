#include "encombrement.h"

#include "formatsdessins.h"
#include "infopersonne.h"
#include "lespolices.h"
#include "unites.h"

#include <QFontMetrics>
#include <QPaintDevice>

#include <array>
#include <cstdlib>

namespace {

constexpr long chiffresDuPlusGrandNumero = 20;
constexpr long ecartSelection = 3;
/// "° ", "+ ", "à " before a text, or the blank between given names and surname.
constexpr long longueurPrefixe = 2;

std::array<const QString *, 7> TextesDessines(const InfoPersonne &info)
{
    return {&info.prenom,    &info.nom,       &info.datenaissance, &info.lieunaissance,
            &info.datedeces, &info.lieudeces, &info.divers};
}

QFontMetrics Mesures(const QFont &police, const QPaintDevice *appareil)
{
    const QFont dessinable = PoliceDessinable(police);
    return appareil ? QFontMetrics(dessinable, appareil) : QFontMetrics(dessinable);
}

/// Last letter of the Latin blocks: up to it no letter is wider than a line is high, and lines break beside letters only.
constexpr char16_t derniereLatine = u'\u024F';

}  // namespace

Encombrement::Encombrement(const QPaintDevice *appareil, float sx, float sy, const FormatsDessins &formats,
                           const LesPolices &polices)
    : largeurCadre(MaxLI(Px(formats.largeurCadre, sx), 1))
    , hauteurCadre(MaxLI(Px(formats.hauteurCadre, sy), 1))
    , tour(ecartSelection + formats.EpaisseurPx(sx) + 1)
    , ecartPhoto(EntierBorne((double(formats.intervCadrePhoto) + formats.epaisseurTraits) * sx, -1'000'000, 1'000'000))
    , basDuNumero(2 * Mesures(polices.policeNumeros, appareil).height())
    , margeTextes(std::abs(Px(formats.margeDansCadre, sx)))
    , largeurTextes(MaxLI(largeurCadre - 2 * Px(formats.margeDansCadre, sx), 1))
    , hauteurLigne(Mesures(polices.policeTextes, appareil).height() + 2)
{
    coteDuNumero = margeTextes + MaxLI(0, (chiffresDuPlusGrandNumero * basDuNumero / 2 - largeurTextes) / 2);
}

Encombrement::Debords Encombrement::DebordsDe(long lignes, long plusLongMot, long largeurLettre) const
{
    return {.bas = basDuNumero + lignes * hauteurLigne,
            .cotes = MaxLI(coteDuNumero, margeTextes + (plusLongMot * largeurLettre - largeurTextes) / 2)};
}

Encombrement::Debords Encombrement::DebordsGrossiers(const InfoPersonne &info) const
{
    // A font for another script may have letters and lines twice as large.
    long lignes = 0;
    long plusLong = 0;
    for (const QString *texte : TextesDessines(info)) {
        const long longueur = texte->size() + longueurPrefixe;
        lignes += 2 * longueur;
        plusLong = MaxLI(plusLong, longueur);
    }
    return DebordsDe(lignes, 2 * plusLong, 2 * hauteurLigne);
}

Encombrement::Debords Encombrement::DebordsFins(const InfoPersonne &info) const
{
    long lignes = 0;
    long plusLongMot = 0;
    for (const QString *texte : TextesDessines(info)) {
        long mot = 0;
        lignes += longueurPrefixe;
        for (const QChar caractere : *texte) {
            if (caractere.unicode() > derniereLatine)
                return DebordsGrossiers(info);
            if (caractere.isLetterOrNumber()) {
                plusLongMot = MaxLI(plusLongMot, ++mot);
            } else {
                // Not every sign lets a line break, so it may also make its word longer: it counts for both.
                ++lignes;
                plusLongMot = MaxLI(plusLongMot, ++mot);
                if (caractere.isSpace() && caractere != QChar::Nbsp)
                    mot = 0;
            }
        }
    }
    return DebordsDe(lignes, plusLongMot + longueurPrefixe, hauteurLigne);
}
