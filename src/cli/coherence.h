#pragma once

#include <QHash>
#include <QString>
#include <QtGlobal>

#include <vector>

class Arbre;
class Personne;

/// What the numbers of a tree's persons must be. The number of a person tells everything: n/2 is the child (0 for the root),
/// 2n the father and 2n+1 the mother when they are in the tree, else 0, and the generation is 0 for 1, 1 for 2 and 3, 2 for
/// 4 to 7, and so on. The count of persons is that of the persons, the count of generations one more than the largest.
class Coherence
{
public:
    /// Linear. \a arbre may be malformed in every way.
    explicit Coherence(const Arbre &arbre);

    /// A number of a person that is not what it must be.
    struct Ecart
    {
        const char *nom;  ///< in French: "père"
        quint64 ecrit;
        quint64 voulu;
    };
    /// None for a person without a number, about whom nothing can be said.
    [[nodiscard]] std::vector<Ecart> De(const Personne &personne) const;
    /// Gives \a personne the numbers that it must have.
    void Corrige(Personne &personne) const;

    /// How many persons bear this number.
    [[nodiscard]] quint64 Porteurs(quint64 numero) const { return porteurs.value(numero); }
    [[nodiscard]] quint64 NombrePersonnes() const { return personnes; }
    [[nodiscard]] unsigned short NombreGenerations() const { return generations; }

private:
    struct Voulus
    {
        unsigned short generation;
        quint64 pere;
        quint64 mere;
        quint64 enfant;
    };
    [[nodiscard]] Voulus PourLeNumero(quint64 numero) const;

    QHash<quint64, quint64> porteurs;
    quint64 personnes = 0;
    unsigned short generations = 0;
};
