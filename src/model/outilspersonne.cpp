#include "outilspersonne.h"

#include "formatsdessins.h"
#include "lespolices.h"
#include "plume.h"
#include "unites.h"

namespace {

constexpr int gras = 75;
constexpr int normal = 50;

}  // namespace

OutilsPersonne::OutilsPersonne(const QPainter &peintre, float echelleX, float echelleY, bool enImpression,
                               const FormatsDessins &desFormats, const LesPolices &polices, bool toutMontrer)
    : formats(desFormats)
    , sx(echelleX)
    , sy(echelleY)
    , impression(enImpression)
    , arbreOuvert(toutMontrer)
    , largeur(MaxLI(Px(formats.largeurCadre, sx), 1))
    , hauteur(MaxLI(Px(formats.hauteurCadre, sy), 1))
    , marge(Px(formats.margeDansCadre, sx))
    , rondeurX(formats.Rondeur(sx))
    , rondeurY(formats.Rondeur(sy))
    , traits(formats.couleurTraits, LargeurDePlume(peintre, formats.EpaisseurPx(sx)), Qt::SolidLine)
    , textes(traits)
    , numeros(PoliceDessinable(polices.policeNumeros))
{
    // But for its colour the same pen: a file of drawing commands is told of it once, not at every person.
    textes.setColor(polices.couleurCaracteres);
    const QFont choisie = PoliceDessinable(polices.policeTextes);
    noms = FaitPolice(choisie.family(), choisie.pointSize(), gras);
    datesEtLieux = FaitPolice(choisie.family(), choisie.pointSize(), normal);
    remarques = FaitPolice(choisie.family(), choisie.pointSize(), normal, true);
}
