#include "rangeesparhuit.h"

#include <algorithm>
#include <utility>

namespace {

constexpr int huit = 8;

}  // namespace

bool RangeesParHuit::Remplit(const TableDisposition &table)
{
    const std::size_t personnes = table.x.size();
    places.resize(personnes);
    serrees.resize(personnes);
    entrees.resize(personnes);
    rangees.resize(table.rangees.size());
    for (std::size_t generation = rangees.size(); generation-- > 0;) {
        if (!PlaceLaRangee(table, generation))
            return false;
    }
    const std::size_t nombre = ecarts.size();
    groupes.resize(nombre / huit);
    corrections.resize(nombre);
    pousses.resize(nombre);
    enfants.assign(nombre, aucun);
    for (const TableDisposition::Rangee &rangee : table.rangees)
        RelieLaRangee(table, rangee);
    decalages.resize(static_cast<std::size_t>(entree));
    // The parents are read sixteen at a time.
    ecarts.resize(nombre + std::size_t{2} * huit);
    return true;
}

bool RangeesParHuit::PlaceLaRangee(const TableDisposition &table, std::size_t generation)
{
    const auto [debut, fin] = table.rangees[generation];
    rangees[generation].debut = static_cast<int>(ecarts.size());
    long serree = 0;
    int premierParent = aucun;
    for (Rang rang = debut; rang < fin; ++rang) {
        const Rang premier = static_cast<Rang>(table.premiersParents[rang]);
        const Rang second = static_cast<Rang>(table.secondsParents[rang]);
        if (serree >= limite || table.x[rang] >= limite || places[second] >= places[premier] + 2 * huit)
            return false;
        if (ecarts.size() % huit == 0)
            premierParent = aucun;
        if (premier != rang && premierParent == aucun)
            premierParent = places[premier];
        if (premier != rang && places[second] >= premierParent + 2 * huit) {
            // Persons without a child stand between the parents: they would not be sixteen neighbours.
            FinitLeGroupe();
            premierParent = places[premier];
        }
        places[rang] = static_cast<int>(ecarts.size());
        serrees[rang] = static_cast<int>(serree);
        ecarts.push_back(static_cast<int>(table.x[rang] - serree));
        serree += table.largeurs[rang];
    }
    rangees[generation].fin = static_cast<int>(ecarts.size());
    FinitLeGroupe();
    return true;
}

void RangeesParHuit::FinitLeGroupe()
{
    while (ecarts.size() % huit != 0)
        ecarts.push_back(ecarts.back());
}

void RangeesParHuit::RelieLaRangee(const TableDisposition &table, const TableDisposition::Rangee &rangee)
{
    Rang debut = rangee.debut;
    while (debut < rangee.fin) {
        Rang fin = debut + 1;
        while (fin < rangee.fin && places[fin] % huit != 0)
            ++fin;
        RelieLeGroupe(table, debut, fin);
        debut = fin;
    }
    entree += huit;
}

void RangeesParHuit::RelieLeGroupe(const TableDisposition &table, Rang debut, Rang fin)
{
    Groupe &groupe = groupes[static_cast<std::size_t>(places[debut] / huit)];
    groupe.premierDecalage = entree;
    bool aParent = false;
    bool aEnfant = false;
    for (Rang rang = debut; rang < fin; ++rang) {
        const Rang enfant = static_cast<Rang>(table.enfants[rang]);
        if (enfant != table.x.size()) {
            if (!std::exchange(aEnfant, true))
                groupe.premierEnfant = entrees[enfant];
            groupe.leursEnfants[rang - debut] = static_cast<std::int8_t>(entrees[enfant] - groupe.premierEnfant);
            enfants[static_cast<std::size_t>(places[rang])] = places[enfant];
        }
        const Rang premier = static_cast<Rang>(table.premiersParents[rang]);
        if (premier != rang) {
            if (!std::exchange(aParent, true))
                groupe.premierParent = places[premier];
            RelieLesParents(table, rang, groupe, rang - debut);
        }
    }
}

void RangeesParHuit::RelieLesParents(const TableDisposition &table, Rang rang, Groupe &groupe, std::size_t place)
{
    const Rang premier = static_cast<Rang>(table.premiersParents[rang]);
    const Rang second = static_cast<Rang>(table.secondsParents[rang]);
    groupe.premiersParents[place] = static_cast<std::int8_t>(places[premier] - groupe.premierParent);
    groupe.secondsParents[place] = static_cast<std::int8_t>(places[second] - groupe.premierParent);
    corrections[static_cast<std::size_t>(places[rang])] = serrees[premier] + serrees[second] - 2 * serrees[rang];
    entrees[rang] = entree;
    groupe.avecParents[static_cast<std::size_t>(entree - groupe.premierDecalage)] = static_cast<std::int8_t>(place);
    ++entree;
}

void RangeesParHuit::EcritLesPositions(TableDisposition &table) const
{
    for (Rang rang = 0; rang < table.x.size(); ++rang)
        table.x[rang] = long(serrees[rang]) + ecarts[static_cast<std::size_t>(places[rang])];
}
