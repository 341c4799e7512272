#include "arbre.h"
#include "etatpeintre.h"
#include "formatsdessins.h"
#include "indexdessin.h"
#include "personne.h"
#include "unites.h"
#include "zonemontree.h"

#include <QColor>

void Arbre::PeintLesFonds(QPainter *painter, float sx, float sy, const FormatsDessins &formats,
                          const FondDeCase &fond) const
{
    const EtatPeintre etat(*painter);
    const QRect zone = ZoneMontree(*painter);
    const long largeur = MaxLI(Px(formats.largeurCadre, sx), 1);
    const long hauteur = MaxLI(Px(formats.hauteurCadre, sy), 1);
    const auto seVoit = [&](const Coins &coins) {
        return zone.isNull()
            || (coins.gauche <= zone.right() && coins.droite + largeur >= zone.left() && coins.haut <= zone.bottom()
                && coins.bas + hauteur >= zone.top());
    };
    const auto peint = [&](const Personne &personne) {
        Coins coin;
        coin.Ajoute(personne.x, personne.y);
        const QColor couleur = personne.affichable && seVoit(coin) ? fond(personne) : QColor();
        if (!couleur.isValid())
            return;
        painter->setBrush(couleur);
        painter->drawRoundedRect(
            QRect(Coordonnee(personne.x), Coordonnee(personne.y), Coordonnee(largeur), Coordonnee(hauteur)),
            formats.Rondeur(sx), formats.Rondeur(sy), Qt::RelativeSize);
    };
    painter->setPen(Qt::NoPen);
    Parcourt([&](const Bloc &bloc) { return seVoit(bloc.coins); },
             [&](const Bloc &bloc) {
                 for (const Personne *personne = bloc.premiere; personne != bloc.fin; personne = personne->suivante)
                     peint(*personne);
             });
}
