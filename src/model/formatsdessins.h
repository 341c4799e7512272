#pragma once

#include <QColor>
#include <Qt>

/// Colour of the lines of a chart until the user chooses another.
inline constexpr Qt::GlobalColor defCouleurDesTraits = Qt::black;

/// The lengths of the drawing, all in millimetres, and the colour of its lines. A plain value.
struct FormatsDessins
{
    int largeurCadre = 0;       ///< width of a person's box
    int hauteurCadre = 0;       ///< height of a person's box
    int distMinHoriz = 0;       ///< minimum horizontal distance between two boxes
    int distMinVert = 0;        ///< minimum vertical distance between two boxes
    int margeGenerale = 0;      ///< margin at the top and at the left of the drawing
    int margeDansCadre = 0;     ///< margin of the texts inside a box
    int intervCadrePhoto = 0;   ///< distance between a box and its photo
    float epaisseurTraits = 0;  ///< thickness of the lines
    float rayonArc = 0;         ///< radius of the arcs at the corners of the links
    QColor couleurTraits;       ///< colour of the lines

    /// The lengths of a user who has chosen none: boxes of 30 x 42 mm.
    [[nodiscard]] static FormatsDessins ParDefaut();
    /// The lengths of the reduced display: small boxes of 25 x 15 mm.
    [[nodiscard]] static FormatsDessins Reduits();

    /// Width in pixels of the line pen at \a echelleX, truncated; 0 draws hairlines. Within what a pen accepts.
    [[nodiscard]] int EpaisseurPx(float echelleX) const;
    /// How round the corners of the boxes are at \a echelle, in per cent of half a side, from 0 to 99.
    [[nodiscard]] int Rondeur(float echelle) const;
    /// Radius in pixels of the arcs at \a echelle, truncated, never negative.
    [[nodiscard]] int RayonPx(float echelle) const;
};
