#include "encombrement.h"

#include "formatsdessins.h"
#include "lespolices.h"
#include "unites.h"

#include <QFontMetrics>
#include <QPaintDevice>
#include <QPaintEngine>
#include <QPainter>

#include <cstdlib>

namespace {

constexpr long ecartSelection = 3;

long NombreDeChiffres(quint64 numero)
{
    long chiffres = 1;
    while (numero >= 10) {
        numero /= 10;
        ++chiffres;
    }
    return chiffres;
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

Encombrement::Encombrement(const QPainter &peintre, float sx, float sy, const FormatsDessins &formats,
                           const LesPolices &polices, bool arbreOuvert)
    : appareilVu(peintre.paintEngine()->type())
    , pointsParPouceX(peintre.device()->logicalDpiX())
    , pointsParPouceY(peintre.device()->logicalDpiY())
    , finesse(peintre.device()->devicePixelRatioF())
    , texteEntier(arbreOuvert)
    , policeNumeros(PoliceDessinable(polices.policeNumeros))
    , policeTextes(PoliceDessinable(polices.policeTextes))
    , largeurCadre(MaxLI(Px(formats.largeurCadre, sx), 1))
    , hauteurCadre(MaxLI(Px(formats.hauteurCadre, sy), 1))
    , tour(ecartSelection + formats.EpaisseurPx(sx) + 1)
    , ecartPhoto(EntierBorne((double(formats.intervCadrePhoto) + formats.epaisseurTraits) * sx, -1'000'000, 1'000'000))
    , margeTextes(Px(formats.margeDansCadre, sx))
    , largeurTextes(MaxLI(largeurCadre - 2 * margeTextes, 1))
    , hauteurNumero(QFontMetrics(policeNumeros, peintre.device()).height())
    , hauteurLigne(QFontMetrics(policeTextes, peintre.device()).height() + 2)
{
}

Debords Encombrement::DebordsDe(const MesureTextes &textes, quint64 numero) const
{
    // The number may need a font of another size where its own has no digits.
    const long largeurNumero = NombreDeChiffres(numero) * hauteurNumero;
    const long largeurMot = textes.plusLongMot * hauteurLigne;
    return {.dessous = 2 * hauteurNumero + textes.lignes * hauteurLigne,
            .cotes = std::abs(margeTextes) + MaxLI(0, (MaxLI(largeurNumero, largeurMot) - largeurTextes) / 2)};
}

Debords Encombrement::DebordsDe(const QRect &peints, long x, long y) const
{
    // Letters may lean over the place that their line takes.
    return {.dessous = peints.bottom() - y + hauteurLigne,
            .cotes = MaxLI(x - peints.left(), peints.right() - (x + largeurCadre)) + hauteurLigne};
}

bool Encombrement::SontHorsDe(const QRect &zone, const Coins &coins, const Debords &debords, bool avecPhoto) const
{
    if (zone.isNull())
        return false;
    const long cotes = tour + MaxLI(debords.cotes, 0);
    const long photo = avecPhoto ? 2 * largeurCadre + MaxLI(ecartPhoto, 0) + tour : 0;
    const long dessous = MaxLI(hauteurCadre, debords.dessous) + tour;
    return coins.gauche - cotes + (avecPhoto ? MinLI(ecartPhoto, 0) : 0) > zone.right()
        || coins.droite + MaxLI(largeurCadre + cotes, photo) < zone.left() || coins.haut - tour > zone.bottom()
        || coins.bas + dessous < zone.top();
}
