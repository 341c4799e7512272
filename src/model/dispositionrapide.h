#pragma once

#include <cstddef>
#include <vector>

class Arbre;
class Personne;
struct MesuresDisposition;

/// The layout of a well-formed tree. The passes are those of the rules, but each looks only at what the last one moved and
/// at what that touches: in a row, the persons from the first one on that moved, whose parents moved, or whose neighbour
/// moved. Everybody else would stay where they are.
///
/// On a tree grown at random the number of passes grows with that of the persons, and what they move with its square, so
/// that the tables are kept plain: positions and neighbours in list order, no branch that depends on a person.
class DispositionRapide
{
public:
    DispositionRapide(Arbre &arbre, const MesuresDisposition &mesures);

    /// Generations in order, all counted; every parent one generation above its child, and parents in the order of their
    /// children; lengths positive. Otherwise the passes might never end.
    [[nodiscard]] bool EstBienFormee() const { return bienFormee; }
    /// Precondition: EstBienFormee().
    void Execute();

private:
    using Rang = std::size_t;

    struct Rangee
    {
        Rang debut;
        Rang fin;
        Rang premierDecale = 0;  ///< from here on the last pass moved ancestors
        Rang premierBouge = 0;   ///< from here on this pass moved somebody; fin: nobody
    };

    void PoseLesPersonnes();
    void RelieLesParents();
    [[nodiscard]] bool Relie(const Personne &enfant, const Personne *parent, Rang &dernierParent);
    void PremierePasse();
    void Correction();
    void CorrigeRangee(Rangee &rangee, Rang depuis);
    bool Corrige(Rang i, long &libre);
    bool ReporteLesDecalages();
    [[nodiscard]] Rang PremierParentApres(Rang i, Rang fin, Rang sinon) const;
    [[nodiscard]] Rang PremierEnfantApres(Rang i, Rang fin) const;
    void Ecrit();

    Arbre &arbre;
    const MesuresDisposition &mesures;
    bool bienFormee = true;
    // One entry a person, in list order.
    std::vector<long> x;
    std::vector<long> decalages;       ///< by how much this pass still has to move every ancestor
    std::vector<int> premiersParents;  ///< the person itself where it has no parent
    std::vector<int> secondsParents;   ///< as the first where there is only one
    std::vector<int> enfants;          ///< where there is none, an entry behind all others that never moves
    std::vector<int> largeurs;         ///< taken in the row, the gap to the next box included
    std::vector<Rangee> rangees;       ///< by generation
};
