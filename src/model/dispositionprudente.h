#pragma once

#include <cstddef>
#include <vector>

class Arbre;
class Personne;
struct MesuresDisposition;

/// The layout of a malformed tree (a generation out of order, parents in another order than their children, lengths that
/// are not positive): every pass looks at every person, and the corrections, which might never come to rest, stop after
/// 100 passes. The persons are copied into a plain table in list order, moved there, and written back.
class DispositionPrudente
{
public:
    DispositionPrudente(Arbre &aDisposer, const MesuresDisposition &desMesures);
    void Execute();

private:
    using Rang = std::size_t;
    static constexpr Rang aucun = static_cast<Rang>(-1);

    struct Place
    {
        Personne *personne;
        long x;
        long largeur;       ///< taken in its row, the gap to the next box included
        long decalage = 0;  ///< by how much this pass still has to move every ancestor
        Rang pere = aucun;
        Rang mere = aucun;
    };

    void RetrouveLesParents();
    void RangeParGeneration();
    [[nodiscard]] long PlaceVoulue(const Place &place, long libre) const;
    bool Passe(bool premiere);
    void ReporteLesDecalages();
    void Ecrit();

    Arbre &arbre;
    const MesuresDisposition &mesures;
    std::vector<Place> places;               ///< in list order
    std::vector<std::vector<Rang>> rangees;  ///< by generation, each in list order
};
