#pragma once

#include "mesuretextes.h"

#include <QFont>
#include <QRect>

class QPainter;
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

/// What the texts of a person take, in device pixels.
struct Debords
{
    long dessous = 0;  ///< below the top of the box
    long cotes = 0;    ///< on each side of the box
};

/// How much room the drawing of a person may need on one kind of device with one presentation, so that what lies outside
/// the exposed part is skipped. Computed once for a whole tree; all lengths in device pixels, always on the large side.
/// Equal ones give the same drawing the same room.
class Encombrement
{
public:
    /// For what \a peintre, which is active, draws on.
    Encombrement(const QPainter &peintre, float sx, float sy, const FormatsDessins &formats, const LesPolices &polices,
                 bool arbreOuvert);

    bool operator==(const Encombrement &autre) const = default;

    /// Of texts below a number of no more digits than \a numero that have not been drawn: a bound.
    [[nodiscard]] Debords DebordsDe(const MesureTextes &textes, quint64 numero) const;
    /// Of texts that were drawn in \a peints, in the box whose corner is (\a x, \a y).
    [[nodiscard]] Debords DebordsDe(const QRect &peints, long x, long y) const;
    /// True when nothing that persons with these corners, with at most these texts and with photos or not, draw lies in
    /// \a zone. A null zone is everything.
    [[nodiscard]] bool SontHorsDe(const QRect &zone, const Coins &coins, const Debords &debords, bool avecPhoto) const;

private:
    int appareilVu;  ///< kind of the device
    int pointsParPouceX;
    int pointsParPouceY;
    qreal finesse;     ///< device pixels to one of the painter's
    bool texteEntier;  ///< full display
    QFont policeNumeros;
    QFont policeTextes;
    long largeurCadre;   ///< W
    long hauteurCadre;   ///< H
    long tour;           ///< what lines and selection mark need around the box
    long ecartPhoto;     ///< from the box to its photo
    long margeTextes;    ///< of the texts in the box; a box narrower than its margins has them beside its middle
    long largeurTextes;  ///< inner width of the box
    long hauteurNumero;
    long hauteurLigne;
};
