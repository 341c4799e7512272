#include "encombrement.h"
#include "infopersonne.h"
#include "personne.h"

bool Personne::EstHorsDe(const QRect &zone, const Encombrement &encombrement) const
{
    Coins coin;
    coin.Ajoute(x, y);
    return encombrement.SontHorsDe(zone, coin, info ? info->Mesure() : MesureTextes(), FacteurPhoto() == 2);
}
