#include "pages.h"

#include "etatpeintre.h"

#include <QPagedPaintDevice>

GrilleDePages GrilleDePages::Pour(long largeur, long hauteur, QSize page)
{
    if (page.width() <= recouvrement || page.height() <= recouvrement)
        return {};
    return {.colonnes = largeur / (page.width() - recouvrement) + 1,
            .lignes = hauteur / (page.height() - recouvrement) + 1};
}

bool DessineSurPages(QPagedPaintDevice &appareil, QPainter &peintre, const GrilleDePages &grille, QSize page,
                     const std::function<void(QPainter &)> &dessine,
                     const std::function<void(QPainter &, long colonne, long ligne)> &enMarge)
{
    const long pasX = page.width() - GrilleDePages::recouvrement;
    const long pasY = page.height() - GrilleDePages::recouvrement;
    for (long colonne = 0; colonne < grille.colonnes; ++colonne) {
        for (long ligne = 0; ligne < grille.lignes; ++ligne) {
            const bool premierePage = colonne == 0 && ligne == 0;
            if (!premierePage && !appareil.newPage())
                return false;
            {
                const EtatPeintre etat(peintre);
                peintre.setClipRect(QRect(QPoint(0, 0), page));
                peintre.translate(-double(colonne * pasX), -double(ligne * pasY));
                dessine(peintre);
            }
            if (enMarge)
                enMarge(peintre, colonne, ligne);
        }
    }
    return true;
}
