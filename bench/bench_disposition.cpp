#include "arbre.h"
#include "disposition.h"
#include "formatsdessins.h"
#include "grandarbre.h"
#include "mesure.h"
#include "personne.h"

namespace {

void Dispose(benchmark::State &etat, Forme forme, int personnes)
{
    constexpr float echelle = 96 / 25.4F;
    const auto arbre = GrandArbre(forme, personnes);
    for (auto _ : etat)
        DisposeArbre(*arbre, FormatsDessins::ParDefaut(), echelle, echelle);
}

/// One pass along the list that touches each person.
void Parcourt(benchmark::State &etat, Forme forme, int personnes)
{
    const auto arbre = GrandArbre(forme, personnes);
    for (auto _ : etat) {
        for (Personne *personne = arbre->premiere; personne; personne = personne->suivante)
            ++personne->x;
        benchmark::ClobberMemory();
    }
}

void Enregistre(const char *nom, double limite, Forme forme, int personnes)
{
    EnregistreMesure(
        {nom, limite, personnes}, [=](benchmark::State &etat) { Dispose(etat, forme, personnes); },
        [=](benchmark::State &etat) { Parcourt(etat, forme, personnes); });
}

}  // namespace

void EnregistreDisposition(int plusGrand)
{
    for (int personnes = 1000; personnes <= plusGrand; personnes *= 10) {
        Enregistre("disposition, arbre complet", 25, Forme::Complete, personnes);
        Enregistre("disposition, trois parents sur quatre", 200, Forme::ParGeneration, personnes);
        Enregistre("disposition, parents au hasard", 200, Forme::Attachee, personnes);
    }
}
