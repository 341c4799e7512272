#include "arbre.h"
#include "etatpeintre.h"
#include "formatsdessins.h"
#include "indexdessin.h"
#include "personne.h"
#include "plume.h"
#include "unites.h"
#include "zonemontree.h"

#include <QBrush>
#include <QPen>

#include <cstdlib>

namespace {

/// The lines and arcs from one child up to its parents, for one pair of scales. All lengths in pixels.
class TraceurDeLiaisons
{
public:
    TraceurDeLiaisons(QPainter &surQuoi, float sx, float sy, const FormatsDessins &formats)
        : peintre(surQuoi)
        , zone(ZoneMontree(surQuoi))
        , epaisseur(formats.EpaisseurPx(sx))
        , rx(formats.RayonPx(sx))
        , ry(formats.RayonPx(sy))
        , demiLargeur(Px(formats.largeurCadre / 2, sx))
        , hauteur(Px(formats.hauteurCadre, sy))
        , versMilieu(Px(long(formats.distMinVert / 2) + formats.hauteurCadre, sy))
    {
    }

    /// False when no link between boxes with these corners is to be seen.
    [[nodiscard]] bool PeutMontrer(const Coins &coins) const
    {
        const long cote = std::abs(demiLargeur);
        const long dessous = MaxLI(std::abs(hauteur), std::abs(versMilieu));
        return zone.isNull()
            || (!coins.EstVide()
                && !EstHors(coins.gauche - cote, coins.droite + cote, coins.haut - dessous, coins.bas + dessous));
    }

    void Trace(const Personne &enfant) const
    {
        const Personne *pere = enfant.ptrPere;
        const Personne *mere = enfant.ptrMere;
        if (pere && mere) {
            if (pere->affichable && mere->affichable)
                DeuxParents(enfant, *pere, *mere);
        } else if (const Personne *parent = pere ? pere : mere; parent && parent->affichable) {
            UnParent(enfant, *parent);
        }
    }

private:
    /// Of links: their arcs may stand out by their diameter.
    [[nodiscard]] bool EstHors(long gauche, long droite, long haut, long bas) const
    {
        return EstHors(gauche, droite, haut, bas, 2L * rx, 2L * ry);
    }

    [[nodiscard]] bool EstHors(long gauche, long droite, long haut, long bas, long arcX, long arcY) const
    {
        if (zone.isNull())
            return false;
        const long bordX = epaisseur + arcX + 1;
        const long bordY = epaisseur + arcY + 1;
        return MinLI(gauche, droite) - bordX > zone.right() || MaxLI(gauche, droite) + bordX < zone.left()
            || MinLI(haut, bas) - bordY > zone.bottom() || MaxLI(haut, bas) + bordY < zone.top();
    }

    // A link may be as wide as the chart, and of most of its pieces a page shows nothing.
    void Ligne(long x1, long y1, long x2, long y2) const
    {
        if (!EstHors(x1, x2, y1, y2, 0, 0))
            peintre.drawLine(Coordonnee(x1), Coordonnee(y1), Coordonnee(x2), Coordonnee(y2));
    }

    /// Angles in sixteenths of a degree.
    void Arc(long x, long y, int depart, int ouverture) const
    {
        if (!EstHors(x, x + 2L * rx, y, y + 2L * ry, 0, 0))
            peintre.drawArc(Coordonnee(x), Coordonnee(y), 2 * rx, 2 * ry, depart, ouverture);
    }

    void UnParent(const Personne &enfant, const Personne &parent) const
    {
        const long x = parent.x + demiLargeur;
        Ligne(x, parent.y + hauteur, x, enfant.y);
    }

    void DeuxParents(const Personne &enfant, const Personne &pere, const Personne &mere) const
    {
        constexpr int quart = 1440;
        constexpr int aGauche = 2880;
        constexpr int enHaut = 1440;
        constexpr int enBas = 4320;
        const long fx = pere.x + demiLargeur;
        const long mx = mere.x + demiLargeur;
        const long cx = (fx + mx) / 2;
        const long bas = pere.y + hauteur;
        const long milieu = pere.y + versMilieu;
        if (EstHors(fx, mx, MinLI(MinLI(bas, milieu), enfant.y), MaxLI(MaxLI(bas, milieu), enfant.y)))
            return;
        Ligne(fx, bas, fx, milieu - ry);
        Arc(fx, milieu - 2L * ry, aGauche, quart);
        Ligne(fx + rx, milieu, cx - rx, milieu);
        Arc(cx - 2L * rx, milieu, enHaut, -quart);
        Ligne(cx, milieu + ry, cx, enfant.y);
        Arc(cx, milieu, aGauche, -quart);
        Ligne(cx + rx, milieu, mx - rx, milieu);
        Ligne(mx - rx, milieu, mx - rx, milieu);
        Arc(mx - 2L * rx, milieu - 2L * ry, enBas, quart);
        Ligne(mx, milieu - ry, mx, bas);
    }

    QPainter &peintre;
    QRect zone;
    int epaisseur;
    int rx;
    int ry;
    long demiLargeur;  ///< from a box's left edge to its middle
    long hauteur;
    long versMilieu;  ///< from a box's top edge to half-way between its row and the next
};

}  // namespace

void Arbre::TraceLesLiaisons(QPainter *painter, float sx, float sy, const FormatsDessins &formats) const
{
    const EtatPeintre etat(*painter);
    painter->setPen(QPen(QBrush(formats.couleurTraits), LargeurDePlume(*painter, formats.EpaisseurPx(sx)),
                         Qt::SolidLine, Qt::SquareCap, Qt::BevelJoin));
    painter->setBrush(Qt::NoBrush);
    const TraceurDeLiaisons traceur(*painter, sx, sy, formats);
    // The parents of the top generation cannot be in the tree.
    bool estFini = false;
    Parcourt([&](const Bloc &bloc) { return !estFini && traceur.PeutMontrer(bloc.coinsLies); },
             [&](const Bloc &bloc) {
                 for (const Personne *enfant = bloc.premiere; enfant != bloc.fin && !estFini;
                      enfant = enfant->suivante) {
                     estFini = enfant->numerogeneration == nombreGenerations - 1;
                     if (!estFini)
                         traceur.Trace(*enfant);
                 }
             });
}
