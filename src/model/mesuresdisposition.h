#pragma once

#include "formatsdessins.h"
#include "personne.h"
#include "unites.h"

/// The lengths that a layout needs, in device pixels.
struct MesuresDisposition
{
    MesuresDisposition(const FormatsDessins &formats, float echelleX, float echelleY)
        : margeX(PxBorne(formats.margeGenerale, echelleX))
        , margeY(PxBorne(formats.margeGenerale, echelleY))
        , pasVertical(PxBorne(long(formats.hauteurCadre) + formats.distMinVert, echelleY))
        , largeurSansPhoto(PxBorne(long(formats.largeurCadre) + formats.distMinHoriz, echelleX))
        , largeurAvecPhoto(PxBorne(2L * formats.largeurCadre + formats.distMinHoriz, echelleX))
    {
    }

    bool operator==(const MesuresDisposition &) const = default;

    /// Taken by a person in its row, the gap to the next box included.
    [[nodiscard]] long Largeur(const Personne &personne) const
    {
        return personne.FacteurPhoto() == 2 ? largeurAvecPhoto : largeurSansPhoto;
    }

    long margeX;
    long margeY;
    long pasVertical;
    long largeurSansPhoto;
    long largeurAvecPhoto;

private:
    /// Lengths from a damaged options file must not overflow the positions of a million persons.
    static long PxBorne(long millimetres, float echelle)
    {
        constexpr long limite = 1'000'000;
        return MaxLI(-limite, MinLI(Px(millimetres, echelle), limite));
    }
};
