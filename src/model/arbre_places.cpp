#include "annuaire.h"
#include "arbre.h"
#include "indexdessin.h"
#include "infopersonne.h"
#include "personne.h"

void Arbre::NoteLesPlaces(std::optional<MesuresDisposition> mesures)
{
    index = std::make_unique<IndexDessin>(*this);
    mesuresDesPlaces = mesures;
}

void Arbre::OublieLesPlaces()
{
    index.reset();
}

bool Arbre::EstPlaceAvec(const MesuresDisposition &mesures) const
{
    return index && mesuresDesPlaces == mesures && index->RienNaChange(*this);
}

void Arbre::TextesChanges(const Personne &personne)
{
    if (personne.info)
        personne.info->OublieMesure();
    if (index)
        index->TextesChanges(personne);
    if (annuaire)
        annuaire->TextesChanges(personne);
}

const Annuaire &Arbre::SonAnnuaire() const
{
    if (!annuaire)
        annuaire = std::make_unique<Annuaire>(*this);
    return *annuaire;
}

const Annuaire *Arbre::AnnuaireTrie() const
{
    return annuaire && annuaire->EstTrie() ? annuaire.get() : nullptr;
}

void Arbre::Parcourt(const std::function<bool(const Bloc &)> &question,
                     const std::function<void(const Bloc &)> &visite) const
{
    if (index)
        index->Parcourt(question, visite);
    else if (premiere)
        visite({.premiere = premiere, .fin = nullptr});
}
