#include "indexdessin.h"

#include "arbre.h"
#include "infopersonne.h"
#include "personne.h"
#include "unites.h"

#include <algorithm>

namespace {

// A page is crossed by one or two blocks of each row it shows, whose persons are all looked at.
constexpr int personnesParBloc = 16;
constexpr std::size_t blocsParGroupe = 128;

void Elargit(MesureTextes &mesure, const MesureTextes &autre)
{
    mesure.lignes = MaxLI(mesure.lignes, autre.lignes);
    mesure.plusLongMot = MaxLI(mesure.plusLongMot, autre.plusLongMot);
}

void Elargit(Coins &coins, const Coins &autres)
{
    if (autres.EstVide())
        return;
    coins.Ajoute(autres.gauche, autres.haut);
    coins.Ajoute(autres.droite, autres.bas);
}

void AjouteLesLiens(Coins &coins, const Personne &enfant)
{
    for (const Personne *parent : {enfant.ptrPere, enfant.ptrMere}) {
        if (!parent)
            continue;
        coins.Ajoute(enfant.x, enfant.y);
        coins.Ajoute(parent->x, parent->y);
    }
}

}  // namespace

IndexDessin::IndexDessin(const Arbre &arbre)
    : nombreGenerations(arbre.nombreGenerations)
    , peints(0)
{
    bool avecLiens = true;
    int place = personnesParBloc;
    for (Personne *personne = arbre.premiere; personne; personne = personne->suivante) {
        const bool autreRangee = personne->precedente && personne->precedente->y != personne->y;
        if (++place > personnesParBloc || autreRangee) {
            if (!blocs.empty())
                blocs.back().fin = personne;
            blocs.push_back({.premiere = personne, .rang = avecPhoto.size()});
            place = 1;
        }
        avecLiens = avecLiens && personne->numerogeneration != arbre.nombreGenerations - 1;
        Range(personne, avecLiens);
    }
    RassembleLesBlocs();
    peints = DebordsPeints(avecPhoto.size());
}

void IndexDessin::Range(Personne *personne, bool avecLiens)
{
    Bloc &bloc = blocs.back();
    bloc.coins.Ajoute(personne->x, personne->y);
    if (avecLiens)
        AjouteLesLiens(bloc.coinsLies, *personne);
    bloc.plusGrandNumero = std::max(bloc.plusGrandNumero, personne->numero);
    if (personne->info)
        Elargit(bloc.textes, personne->info->Mesure());
    avecPhoto.push_back(personne->FacteurPhoto() == 2);
}

bool IndexDessin::RienNaChange(const Arbre &arbre) const
{
    if (arbre.nombreGenerations != nombreGenerations)
        return false;
    auto avait = avecPhoto.begin();
    for (const Personne *personne = arbre.premiere; personne; personne = personne->suivante, ++avait) {
        if (*avait != (personne->FacteurPhoto() == 2))
            return false;
    }
    return true;
}

void IndexDessin::RassembleLesBlocs()
{
    for (std::size_t i = 0; i < blocs.size(); ++i) {
        if (i % blocsParGroupe == 0)
            groupes.push_back({.tous = {.premiere = blocs[i].premiere}, .premier = i, .fin = i});
        Groupe &groupe = groupes.back();
        groupe.fin = i + 1;
        groupe.tous.fin = blocs[i].fin;
        Elargit(groupe.tous.coins, blocs[i].coins);
        Elargit(groupe.tous.coinsLies, blocs[i].coinsLies);
        Elargit(groupe.tous.textes, blocs[i].textes);
        groupe.tous.plusGrandNumero = std::max(groupe.tous.plusGrandNumero, blocs[i].plusGrandNumero);
    }
}

void IndexDessin::Parcourt(const Question &question, const Visite &visite) const
{
    for (const Groupe &groupe : groupes) {
        if (!question(groupe.tous))
            continue;
        for (std::size_t i = groupe.premier; i < groupe.fin; ++i) {
            if (question(blocs[i]))
                visite(blocs[i]);
        }
    }
}

void IndexDessin::OublieLePeint(const Bloc &bloc, const Personne &changee)
{
    std::size_t rang = bloc.rang;
    for (const Personne *personne = bloc.premiere; personne != bloc.fin; personne = personne->suivante, ++rang) {
        if (personne == &changee)
            peints.Oublie(rang);
    }
}

void IndexDessin::TextesChanges(const Personne &personne)
{
    const MesureTextes mesure = personne.info ? personne.info->Mesure() : MesureTextes();
    // Blocks that only might hold the person become larger too: they are looked at once more than needed.
    for (Groupe &groupe : groupes) {
        if (!groupe.tous.coins.Contient(personne.x, personne.y))
            continue;
        Elargit(groupe.tous.textes, mesure);
        for (std::size_t i = groupe.premier; i < groupe.fin; ++i) {
            if (!blocs[i].coins.Contient(personne.x, personne.y))
                continue;
            Elargit(blocs[i].textes, mesure);
            OublieLePeint(blocs[i], personne);
        }
    }
}
