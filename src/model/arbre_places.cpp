#include "arbre.h"
#include "indexdessin.h"
#include "infopersonne.h"
#include "personne.h"

void Arbre::NoteLesPlaces()
{
    index = std::make_unique<IndexDessin>(*this);
}

void Arbre::OublieLesPlaces()
{
    index.reset();
}

void Arbre::TextesChanges(const Personne &personne)
{
    if (personne.info)
        personne.info->OublieMesure();
    if (index)
        index->TextesChanges(personne);
}

void Arbre::Parcourt(const std::function<bool(const Bloc &)> &question,
                     const std::function<void(const Bloc &)> &visite) const
{
    if (index)
        index->Parcourt(question, visite);
    else if (premiere)
        visite({.premiere = premiere, .fin = nullptr});
}
