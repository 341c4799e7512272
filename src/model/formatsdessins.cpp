#include "formatsdessins.h"

#include "unites.h"

FormatsDessins FormatsDessins::ParDefaut()
{
    return {.largeurCadre = 30,
            .hauteurCadre = 42,
            .distMinHoriz = 10,
            .distMinVert = 15,
            .margeGenerale = 15,
            .margeDansCadre = 1,
            .intervCadrePhoto = 1,
            .epaisseurTraits = 1.0F,
            .rayonArc = 2.5F,
            .couleurTraits = defCouleurDesTraits};
}

FormatsDessins FormatsDessins::Reduits()
{
    return {.largeurCadre = 25,
            .hauteurCadre = 15,
            .distMinHoriz = 1,
            .distMinVert = 6,
            .margeGenerale = 5,
            .margeDansCadre = 0,
            .intervCadrePhoto = 1,
            .epaisseurTraits = 0.5F,
            .rayonArc = 1.0F,
            .couleurTraits = defCouleurDesTraits};
}

int FormatsDessins::EpaisseurPx(float echelleX) const
{
    constexpr int largeurMaxDunePlume = 32767;
    return EntierBorne(epaisseurTraits * echelleX, 0, largeurMaxDunePlume);
}

int FormatsDessins::Rondeur(float echelle) const
{
    constexpr int rondeurMax = 99;
    return EntierBorne(2 * rayonArc * echelle, 0, rondeurMax);
}

int FormatsDessins::RayonPx(float echelle) const
{
    constexpr int rayonMax = 100'000;
    return EntierBorne(rayonArc * echelle, 0, rayonMax);
}
