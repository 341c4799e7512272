#pragma once

#include <optional>
#include <string>

/// One line of the table. Without a floor the limit is a value in the same unit.
struct Ligne
{
    std::string nom;
    int personnes = 0;  ///< 0 where there is no tree
    double valeur = 0;
    std::string unite;
    std::optional<double> plancher = {};
    std::optional<double> limite = {};
};

/// Prints work, persons, what was measured, how many times the floor that is, the limit, and "!" where it is above.
void Ecrit(const Ligne &ligne);
