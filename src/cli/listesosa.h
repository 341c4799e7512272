#pragma once

#include <QString>
#include <QtGlobal>

#include <cstddef>
#include <vector>

class Arbre;
class Personne;

/// The Sosa list of a tree: its persons by number, and what is known of each generation. The root is generation 1.
class ListeSosa
{
public:
    /// One generation of ancestors.
    struct Generation
    {
        int rang = 0;
        std::size_t connus = 0;  ///< numbers that the tree has
        std::size_t distincts =
            0;  ///< persons behind them: who stands at several numbers counts once, in its first one
    };

    /// Of the first \a generations generations of \a arbre, which must outlive it; of all when it is 0.
    ListeSosa(const Arbre &arbre, int generations);

    /// In the order of their numbers.
    [[nodiscard]] const std::vector<const Personne *> &Personnes() const { return personnes; }
    /// Those that have anybody, from the root's on.
    [[nodiscard]] const std::vector<Generation> &Generations() const { return generations; }

private:
    void CompteLesGenerations();

    std::vector<const Personne *> personnes;
    std::vector<Generation> generations;
};

/// 1 for the root, 2 for its parents...; 0 for the number 0, which nobody should have.
[[nodiscard]] int GenerationDuNumero(quint64 numero);

/// Which parents are not in the tree: "père", "mère", "père et mère", or nothing.
[[nodiscard]] QString ParentsInconnus(const Personne &personne);

/// "50 %" or "0,2 %": at most one decimal.
[[nodiscard]] QString Pourcentage(double part);

/// How many of the 2^(generation - 1) ancestors of a generation are known, as a share of 1.
[[nodiscard]] double PartConnue(const ListeSosa::Generation &generation);
/// The share of numbers whose person stands at an earlier one.
[[nodiscard]] double TauxDImplexe(const ListeSosa::Generation &generation);
