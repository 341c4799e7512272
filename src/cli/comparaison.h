#pragma once

#include <QString>
#include <QtGlobal>

#include <functional>

class Arbre;

/// One thing that two trees do not have alike.
struct Difference
{
    quint64 numero = 0;  ///< Sosa number of the person; 0 on the title page
    QString champ;       ///< what differs: "nom", "date de naissance"...; empty when the person is in one tree only
    QString dansA;       ///< its value; not empty without champ: the person's name where it is
    QString dansB;
};

/// Calls \a pourChacune for each difference between the persons of \a a and \a b in the order of their numbers, before them,
/// when \a avecTitres, between the title pages. Persons of one number are compared in the order of their lists.
/// O(n log n).
void Compare(const Arbre &a, const Arbre &b, bool avecTitres,
             const std::function<void(const Difference &)> &pourChacune);
