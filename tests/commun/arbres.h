#pragma once

#include <QList>
#include <QString>

#include <memory>

class Arbre;
class Personne;

/// Trees for the tests.

/// A tree of the persons with these Sosa numbers, given in increasing order: generations and links follow from the
/// numbers, each person is named "N" + its number, the counts are exact.
std::unique_ptr<Arbre> ArbreDeNumeros(const QList<quint64> &numeros);

/// The complete tree of \a generations generations: 1 to 2^generations - 1.
std::unique_ptr<Arbre> ArbreComplet(int generations);

/// How a random tree grows.
struct Hasard
{
    quint32 graine = 1;          ///< same seed, same tree
    int personnes = 50;          ///< at most
    double chanceParent = 0.75;  ///< of each parent to be known
    double chancePhoto = 0.0;    ///< of a person to take two box widths
    int generationsEnTrop = 0;   ///< added to the count of generations
};
std::unique_ptr<Arbre> ArbreAuHasard(const Hasard &hasard);

/// The person with this number, or none.
Personne *Trouve(const Arbre &arbre, quint64 numero);

/// One line a person, two blanks for each generation: number, given names, surname.
QString ArbreEnTexte(const Arbre &arbre);

/// The numbers in list order, walked forward; walking backward must give the same, or the text says so.
QString NumerosEnTexte(const Arbre &arbre);

/// "1:35,129 2:15,72": number and place of each person, in list order.
QString PositionsEnTexte(const Arbre &arbre);
