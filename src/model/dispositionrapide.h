#pragma once

#include "tabledisposition.h"

#include <vector>

class Arbre;
class Personne;
struct MesuresDisposition;

/// The layout of a well-formed tree. The passes are those of the rules, but each looks only at what the last one moved and
/// at what that touches: in a row, the persons from the first one on that moved, whose parents moved, or whose neighbour
/// moved. Everybody else would stay where they are.
///
/// On a tree grown at random the number of passes grows with that of the persons, and what they move with its square, so
/// that the tables are kept plain: positions and neighbours in list order, no branch that depends on a person. The same
/// passes by eight neighbours at a time are CorrigeParHuit's.
class DispositionRapide
{
public:
    DispositionRapide(Arbre &aDisposer, const MesuresDisposition &desMesures);

    /// Generations in order, all counted; every parent one generation above its child, and parents in the order of their
    /// children; lengths positive. Otherwise the passes might never end.
    [[nodiscard]] bool EstBienFormee() const { return bienFormee; }
    /// Precondition: EstBienFormee(). After \a correctionsUneAUne passes the others are made by eight where that can
    /// be: the positions are the same, but the tables for it only pay where many passes are left.
    void Execute(int correctionsUneAUne = 4);

private:
    using Rang = TableDisposition::Rang;
    using Rangee = TableDisposition::Rangee;

    /// Where a pass works in a row.
    struct Front
    {
        Rang premierDecale = 0;  ///< from here on the last pass moved ancestors
        Rang premierBouge = 0;   ///< from here on this pass moved somebody; the row's end: nobody
    };

    void PoseLesPersonnes();
    void RelieLesParents();
    [[nodiscard]] bool Relie(const Personne &enfant, const Personne *parent, Rang &dernierParent);
    void PremierePasse();
    bool CorrigeUneAUne();
    void CorrigeRangee(const Rangee &rangee, Front &front, Rang depuis);
    bool Corrige(Rang i, long &libre);
    bool ReporteLesDecalages();
    [[nodiscard]] Rang PremierParentApres(Rang i, Rang fin, Rang sinon) const;
    [[nodiscard]] Rang PremierEnfantApres(Rang i, Rang fin) const;
    void Ecrit();

    Arbre &arbre;
    const MesuresDisposition &mesures;
    bool bienFormee = true;
    TableDisposition table;
    std::vector<Front> fronts;    ///< by generation
    std::vector<long> decalages;  ///< by person: how much this pass still has to move every ancestor
};
