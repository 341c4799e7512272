#include "dispositionprudente.h"

#include "arbre.h"
#include "mesuresdisposition.h"
#include "personne.h"
#include "unites.h"

namespace {

/// A sum that stops far beyond every true position: the shifts of a malformed tree may double at every pass.
long Somme(long a, long b)
{
    constexpr long limite = 100'000'000'000'000'000L;
    return MaxLI(-limite, MinLI(a + b, limite));
}

}  // namespace

DispositionPrudente::DispositionPrudente(Arbre &aDisposer, const MesuresDisposition &desMesures)
    : arbre(aDisposer)
    , mesures(desMesures)
{
    for (Personne *personne = aDisposer.premiere; personne; personne = personne->suivante) {
        personne->rang = places.size();
        places.push_back({personne, personne->x, mesures.Largeur(*personne)});
    }
    RetrouveLesParents();
    RangeParGeneration();
}

void DispositionPrudente::RetrouveLesParents()
{
    // Parents stand behind their children in the list; a link that says otherwise is not followed.
    for (Place &place : places) {
        const Personne *pere = place.personne->ptrPere;
        const Personne *mere = place.personne->ptrMere;
        if (pere && pere->rang > place.personne->rang)
            place.pere = pere->rang;
        if (mere && mere->rang > place.personne->rang)
            place.mere = mere->rang;
    }
}

void DispositionPrudente::RangeParGeneration()
{
    // A row ends at the first person of a later generation, so a person that comes after one has no row.
    rangees.resize(arbre.nombreGenerations);
    unsigned short plusHaute = 0;
    for (Rang rang = 0; rang < places.size(); ++rang) {
        const unsigned short generation = places[rang].personne->numerogeneration;
        if (generation < plusHaute)
            continue;
        plusHaute = generation;
        if (generation < rangees.size())
            rangees[generation].push_back(rang);
    }
}

void DispositionPrudente::Execute()
{
    constexpr int corrections = 100;
    bool aBouge = Passe(true);
    for (int passes = 0; aBouge && passes < corrections; ++passes)
        aBouge = Passe(false);
    Ecrit();
}

long DispositionPrudente::PlaceVoulue(const Place &place, long libre) const
{
    if (place.pere != aucun && place.mere != aucun)
        return (places[place.pere].x + places[place.mere].x) / 2;
    if (place.pere != aucun)
        return places[place.pere].x;
    if (place.mere != aucun)
        return places[place.mere].x;
    return libre;
}

bool DispositionPrudente::Passe(bool premiere)
{
    bool aBouge = false;
    for (auto rangee = rangees.rbegin(); rangee != rangees.rend(); ++rangee) {
        long libre = mesures.margeX;
        for (const Rang rang : *rangee) {
            Place &place = places[rang];
            const long voulue = PlaceVoulue(place, libre);
            if (premiere || place.x < voulue)
                place.x = voulue;
            if (libre > voulue) {
                // Measured from the wanted place even when the person stood further right: deliberate.
                place.x = libre;
                place.decalage = Somme(place.decalage, libre - voulue);
                aBouge = true;
            }
            libre = Somme(place.x, place.largeur);
        }
    }
    if (aBouge)
        ReporteLesDecalages();
    return aBouge;
}

void DispositionPrudente::ReporteLesDecalages()
{
    // Nobody but their own child looks at the ancestors again before the pass ends, so their moves add up until here.
    for (Place &place : places) {
        if (place.decalage == 0)
            continue;
        for (const Rang parent : {place.pere, place.mere}) {
            if (parent == aucun)
                continue;
            places[parent].x = Somme(places[parent].x, place.decalage);
            places[parent].decalage = Somme(places[parent].decalage, place.decalage);
        }
        place.decalage = 0;
    }
}

void DispositionPrudente::Ecrit()
{
    for (const Place &place : places)
        place.personne->x = place.x;
    long y = mesures.margeY;
    for (auto rangee = rangees.rbegin(); rangee != rangees.rend(); ++rangee) {
        for (const Rang rang : *rangee)
            places[rang].personne->y = y;
        y += mesures.pasVertical;
    }
}
