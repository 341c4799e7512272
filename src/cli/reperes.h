#pragma once

#include "pages.h"

#include <QFont>
#include <QSizeF>

class QPainter;

/// What helps to put a chart together that was drawn on a grid of pages, all of it in the margins: crop marks where a page
/// meets its neighbours, which page it is, and where it lies in the grid. Lengths in points.
class Reperes
{
public:
    /// For pages that show \a page of the chart, in device pixels of which \a pointsParPouce make an inch, within margins of
    /// nine points at least. Texts are of the family of \a police.
    Reperes(const GrilleDePages &uneGrille, QSize page, int pointsParPouce, const QFont &police);

    /// On one page of the grid; both count from 0. The painter's origin is the corner of what the page shows.
    void Dessine(QPainter &peintre, long colonne, long ligne) const;

private:
    void TraitsDeCoupe(QPainter &peintre, long colonne, long ligne) const;
    void Plan(QPainter &peintre, double gauche, long colonne, long ligne) const;

    GrilleDePages grille;
    double pixelsParPoint;
    QSizeF montre;  ///< what a page shows
    QSizeF part;    ///< what it shows and the next one does not
    QFont ecriture;
};
