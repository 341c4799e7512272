#pragma once

#include "mesuretextes.h"

#include <QRect>

class QPaintDevice;
struct FormatsDessins;
struct LesPolices;

/// The least rectangle that holds the top left corners of some boxes.
struct Coins
{
    /// As far as a painter's coordinates go.
    void Ajoute(long x, long y);
    [[nodiscard]] bool EstVide() const { return droite < gauche; }
    /// True when a corner at (\a x, \a y) may be one of them.
    [[nodiscard]] bool Contient(long x, long y) const;

    long gauche = 0;
    long droite = -1;
    long haut = 0;
    long bas = 0;
};

/// How much room the drawing of a person may need on one device, so that what lies outside the exposed part is skipped
/// without being measured. Computed once for a whole tree; all lengths in device pixels, always on the large side.
class Encombrement
{
public:
    Encombrement(const QPaintDevice *appareil, float sx, float sy, const FormatsDessins &formats,
                 const LesPolices &polices);

    /// True when nothing that persons with these corners, with at most these texts and with photos or not, draw lies in
    /// \a zone. A null zone is everything.
    [[nodiscard]] bool SontHorsDe(const QRect &zone, const Coins &coins, const MesureTextes &textes,
                                  bool avecPhoto) const;

private:
    long largeurCadre;   ///< W
    long hauteurCadre;   ///< H
    long tour;           ///< what lines and selection mark need around the box
    long ecartPhoto;     ///< from the box to its photo
    long basDuNumero;    ///< what the number needs below the top of the box
    long coteDuNumero;   ///< what the longest number needs on each side of the box
    long margeTextes;    ///< a box narrower than its margins has its texts beside its middle
    long largeurTextes;  ///< inner width of the box
    long hauteurLigne;
};
