#pragma once

#include <QString>

class InfoPersonne;
class QPaintDevice;
struct FormatsDessins;
struct LesPolices;

/// How much room the drawing of a person may need on one device, so that what lies outside the exposed part is skipped
/// without being measured. Computed once for a whole tree; all lengths in device pixels, always on the large side.
class Encombrement
{
public:
    Encombrement(const QPaintDevice *appareil, float sx, float sy, const FormatsDessins &formats,
                 const LesPolices &polices);

    /// What the texts of a person need below the top of the box, and on each side of it.
    struct Debords
    {
        long bas = 0;
        long cotes = 0;
    };
    /// From the lengths of the texts alone: a bound that costs nothing.
    [[nodiscard]] Debords DebordsGrossiers(const InfoPersonne &info) const;
    /// From the words of the texts; a closer bound for texts in Latin letters.
    [[nodiscard]] Debords DebordsFins(const InfoPersonne &info) const;

    long largeurCadre;  ///< W
    long hauteurCadre;  ///< H
    long tour;          ///< what lines and selection mark need around the box
    long ecartPhoto;    ///< from the box to its photo
    long basDuNumero;   ///< what the number needs below the top of the box
    long coteDuNumero;  ///< what the longest number needs on each side of the box

private:
    [[nodiscard]] Debords DebordsDe(long lignes, long plusLongMot, long largeurLettre) const;

    long margeTextes;    ///< a box narrower than its margins has its texts beside its middle
    long largeurTextes;  ///< inner width of the box
    long hauteurLigne;
};
