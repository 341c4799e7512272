#include "sousarbre.h"

#include "arbre.h"
#include "infopersonne.h"
#include "personne.h"

#include <algorithm>
#include <bit>
#include <optional>

namespace {

/// How many generations \a numero stands above \a racine; none when it is no ancestor.
std::optional<int> GenerationsAuDessus(quint64 numero, quint64 racine)
{
    const int ecart = static_cast<int>(std::bit_width(numero)) - static_cast<int>(std::bit_width(racine));
    if (ecart < 0 || (numero >> ecart) != racine)
        return {};
    return ecart;
}

std::unique_ptr<Personne> Copie(const Personne &source, int generation)
{
    auto copie = std::make_unique<Personne>(static_cast<unsigned short>(generation));
    copie->numero = source.numero;
    copie->pere = source.pere;
    copie->mere = source.mere;
    copie->enfant = source.enfant;
    if (source.info)
        copie->info = new InfoPersonne(*source.info);
    return copie;
}

}  // namespace

std::unique_ptr<Arbre> SousArbre(const Arbre &arbre, quint64 racine, int generations)
{
    auto partie = std::make_unique<Arbre>();
    *partie->infoArbre = *arbre.infoArbre;
    int plusHaute = 0;
    for (const Personne *personne = arbre.premiere; personne; personne = personne->suivante) {
        const auto generation = GenerationsAuDessus(personne->numero, racine);
        if (!generation || (generations > 0 && *generation >= generations))
            continue;
        plusHaute = std::max(plusHaute, *generation);
        partie->AjouteALaFin(Copie(*personne, *generation).release());
    }
    if (!partie->premiere || partie->premiere->numero != racine)
        return nullptr;
    partie->premiere->enfant = 0;
    partie->nombreGenerations = static_cast<unsigned short>(plusHaute + 1);
    partie->DetermineLiensDeParente();
    return partie;
}
