#include "annuaire.h"
#include "arbre.h"
#include "personne.h"

#include <QHash>

#include <algorithm>
#include <limits>

namespace {

/// The persons seen so far on a backward walk, by number. Where several bear one number, the last of the list counts.
struct Porteur
{
    Personne *personne = nullptr;
    bool estParent = false;
};

/// Counted: what the tree says of itself may be wrong.
qsizetype NombreDePersonnes(const Arbre &arbre)
{
    qsizetype nombre = 0;
    for (const Personne *personne = arbre.premiere; personne; personne = personne->suivante)
        ++nombre;
    return nombre;
}

Personne *PrendParent(QHash<quint64, Porteur> &porteurs, quint64 numero)
{
    if (numero == 0)
        return nullptr;
    const auto trouve = porteurs.find(numero);
    if (trouve == porteurs.end() || trouve->estParent)
        return nullptr;
    trouve->estParent = true;
    return trouve->personne;
}

}  // namespace

void Arbre::DetermineLiensDeParente()
{
    OublieLesPlaces();
    QHash<quint64, Porteur> porteurs;
    porteurs.reserve(NombreDePersonnes(*this));
    for (Personne *personne = derniere; personne; personne = personne->precedente) {
        personne->ptrPere = PrendParent(porteurs, personne->pere);
        personne->ptrMere = PrendParent(porteurs, personne->mere);
        if (Porteur &porteur = porteurs[personne->numero]; !porteur.personne)
            porteur.personne = personne;
    }
}

void Arbre::RetrouveSesParents(Personne *personne)
{
    if (personne->numero > std::numeric_limits<quint64>::max() / 2)
        return;
    const quint64 numeroPere = 2 * personne->numero;
    const Annuaire *trie = AnnuaireTrie();
    const Personne *avant = trie ? trie->DAvant(std::max(numeroPere, personne->numero + 1)) : personne;
    Personne *candidate = avant->suivante;
    for (; candidate && !(trie && candidate->numero > numeroPere + 1); candidate = candidate->suivante) {
        if (candidate->numero == numeroPere) {
            personne->pere = candidate->numero;
            personne->ptrPere = candidate;
        } else if (candidate->numero == numeroPere + 1) {
            personne->mere = candidate->numero;
            personne->ptrMere = candidate;
        }
    }
}

void Arbre::DetacheDeSonEnfant(const Personne *parent)
{
    bool enfantTrouve = false;
    for (Personne *personne = premiere; personne; personne = personne->suivante) {
        if (!enfantTrouve && (personne->pere == parent->numero || personne->mere == parent->numero)) {
            enfantTrouve = true;
            if (parent->numero % 2 != 0) {
                personne->mere = 0;
                personne->ptrMere = nullptr;
            } else {
                personne->pere = 0;
                personne->ptrPere = nullptr;
            }
        }
        if (personne->ptrPere == parent)
            personne->ptrPere = nullptr;
        if (personne->ptrMere == parent)
            personne->ptrMere = nullptr;
    }
    if (enfantSansPere == parent)
        enfantSansPere = nullptr;
    if (enfantSansMere == parent)
        enfantSansMere = nullptr;
}
