#pragma once

#include "tabledisposition.h"

#include <array>
#include <cstdint>
#include <vector>

/// The rows of a layout cut into groups of eight neighbours, for CorrigeParHuit.
///
/// A person's ecart is how far it stands right of where it would stand in its row packed from 0. A row is free of
/// overlaps when its ecarts never fall, so that the free place becomes the largest ecart so far. And since parents stand
/// in the order of their children, the parents of a group are at most sixteen neighbours, and its children at most eight
/// neighbours among those who have parents: a group notes where they begin, a person how far behind that its own are.
class RangeesParHuit
{
public:
    /// Of ecarts and moves that stay below it 32 bits hold all that a pass computes.
    static constexpr int limite = 1 << 28;
    static constexpr int aucun = -1;

    struct Rangee
    {
        int debut;  ///< place of its first person, a multiple of eight
        int fin;
    };

    using HuitPlaces = std::array<std::int8_t, 8>;
    static constexpr HuitPlaces huitAucun{aucun, aucun, aucun, aucun, aucun, aucun, aucun, aucun};

    /// What a place has not is aucun.
    struct Groupe
    {
        int premierParent = 0;                   ///< place of the first parent of its persons
        int premierEnfant = 0;                   ///< entry of the first child of its persons in decalages
        int premierDecalage = 0;                 ///< entry of the first of its persons with parents in decalages
        HuitPlaces premiersParents = huitAucun;  ///< how far behind premierParent
        HuitPlaces secondsParents = huitAucun;   ///< the same as the first where there is only one
        HuitPlaces leursEnfants = huitAucun;     ///< how far behind premierEnfant
        HuitPlaces avecParents = huitAucun;      ///< the places of those who have parents, these first
    };

    /// False when the tables cannot hold the tree: positions from the limit on, or strangers between two parents.
    [[nodiscard]] bool Remplit(const TableDisposition &table);
    void EcritLesPositions(TableDisposition &table) const;

    std::vector<Rangee> rangees;  ///< by generation
    std::vector<Groupe> groupes;
    // One entry a place. Places left over at the end of a group have neither parents nor child: a pass gives them the
    // largest ecart so far, which moves nobody.
    std::vector<int> ecarts;
    std::vector<int> corrections;  ///< what the ecarts of both parents lack to be twice that of the place between them
    std::vector<int> pousses;      ///< by how much a pass put the person right of the place between its parents
    std::vector<int> enfants;      ///< place of the child, or aucun
    /// By how much a pass has to move the ancestors: one entry for each person with parents, eight spare ones a row.
    std::vector<int> decalages;

private:
    using Rang = TableDisposition::Rang;

    bool PlaceLaRangee(const TableDisposition &table, std::size_t generation);
    void FinitLeGroupe();
    void RelieLaRangee(const TableDisposition &table, const TableDisposition::Rangee &rangee);
    void RelieLeGroupe(const TableDisposition &table, Rang debut, Rang fin);
    void RelieLesParents(const TableDisposition &table, Rang rang, Groupe &groupe, std::size_t place);

    // By rank in the list, while the tables are filled.
    std::vector<int> places;
    std::vector<int> serrees;  ///< where the person stands in its row packed from 0
    std::vector<int> entrees;  ///< in decalages, of a person with parents
    int entree = 0;            ///< the next one
};
