#include "encombrement.h"

#include "formatsdessins.h"
#include "lespolices.h"
#include "unites.h"

#include <QFontMetrics>
#include <QPaintDevice>

#include <cstdlib>

namespace {

constexpr long chiffresDuPlusGrandNumero = 20;
constexpr long ecartSelection = 3;

QFontMetrics Mesures(const QFont &police, const QPaintDevice *appareil)
{
    const QFont dessinable = PoliceDessinable(police);
    return appareil ? QFontMetrics(dessinable, appareil) : QFontMetrics(dessinable);
}

}  // namespace

void Coins::Ajoute(long x, long y)
{
    const long cx = Coordonnee(x);
    const long cy = Coordonnee(y);
    if (EstVide()) {
        *this = {.gauche = cx, .droite = cx, .haut = cy, .bas = cy};
        return;
    }
    gauche = MinLI(gauche, cx);
    droite = MaxLI(droite, cx);
    haut = MinLI(haut, cy);
    bas = MaxLI(bas, cy);
}

bool Coins::Contient(long x, long y) const
{
    const long cx = Coordonnee(x);
    const long cy = Coordonnee(y);
    return gauche <= cx && cx <= droite && haut <= cy && cy <= bas;
}

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

bool Encombrement::SontHorsDe(const QRect &zone, const Coins &coins, const MesureTextes &textes, bool avecPhoto) const
{
    if (zone.isNull())
        return false;
    const long cotes =
        tour + MaxLI(coteDuNumero, margeTextes + (textes.plusLongMot * hauteurLigne - largeurTextes) / 2);
    const long photo = avecPhoto ? 2 * largeurCadre + MaxLI(ecartPhoto, 0) + tour : 0;
    const long dessous = MaxLI(hauteurCadre, basDuNumero + textes.lignes * hauteurLigne) + tour;
    return coins.gauche - cotes + MinLI(ecartPhoto, 0) > zone.right()
        || coins.droite + MaxLI(largeurCadre + cotes, photo) < zone.left() || coins.haut - tour > zone.bottom()
        || coins.bas + dessous < zone.top();
}
