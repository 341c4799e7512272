#include "arbre.h"
#include "assemblage.h"
#include "grandarbre.h"
#include "infopersonne.h"
#include "mesure.h"
#include "personne.h"

namespace {

void Assemble(benchmark::State &etat, int personnes)
{
    const auto pere = GrandArbre(Forme::ParGeneration, personnes / 2);
    const auto mere = GrandArbre(Forme::ParGeneration, personnes / 2);
    for (auto _ : etat) {
        auto *arbre = new Arbre;
        AssembleArbres(*arbre, *pere, *mere, QString());
        etat.PauseTiming();
        delete arbre;
        etat.ResumeTiming();
    }
}

/// The same persons, texts and all, one after the other into a list.
void Copie(benchmark::State &etat, int personnes)
{
    const auto pere = GrandArbre(Forme::ParGeneration, personnes / 2);
    const auto mere = GrandArbre(Forme::ParGeneration, personnes / 2);
    for (auto _ : etat) {
        auto *arbre = new Arbre;
        for (const Arbre *source : {pere.get(), mere.get()}) {
            for (const Personne *personne = source->premiere; personne; personne = personne->suivante) {
                auto *copie = new Personne(personne->numerogeneration);
                copie->info = new InfoPersonne(*personne->info);
                arbre->AjouteALaFin(copie);
            }
        }
        etat.PauseTiming();
        delete arbre;
        etat.ResumeTiming();
    }
}

}  // namespace

void EnregistreAssemblage(int plusGrand)
{
    for (int personnes = 1000; personnes <= plusGrand; personnes *= 10)
        EnregistreMesure(
            {"assemblage de deux arbres", 4, personnes}, [=](benchmark::State &etat) { Assemble(etat, personnes); },
            [=](benchmark::State &etat) { Copie(etat, personnes); });
}
