#pragma once

#include <QSize>

#include <functional>

class QPagedPaintDevice;
class QPainter;

/// A chart at its true size on a grid of pages that overlap by a few device pixels.
struct GrilleDePages
{
    /// Device pixels that neighbouring pages share.
    static constexpr int recouvrement = 5;

    long colonnes = 0;
    long lignes = 0;

    /// The grid for a canvas of \a largeur x \a hauteur on pages of \a page, all in device pixels. No page at all when
    /// a page is not larger than the overlap.
    [[nodiscard]] static GrilleDePages Pour(long largeur, long hauteur, QSize page);
    [[nodiscard]] bool EstVide() const { return colonnes == 0; }
};

/// Draws on page after page, column by column and each column from top to bottom: \a dessine is called with the painter
/// moved so that (0, 0) is the chart's corner, and clipped to what the page shows. Starts no page after the last one.
/// False when the device refused a new page. \a enMarge, if any, is called on each page afterwards, with its place in the
/// grid, the painter neither moved nor clipped.
bool DessineSurPages(QPagedPaintDevice &appareil, QPainter &peintre, const GrilleDePages &grille, QSize page,
                     const std::function<void(QPainter &)> &dessine,
                     const std::function<void(QPainter &, long colonne, long ligne)> &enMarge = {});
