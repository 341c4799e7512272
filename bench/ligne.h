#pragma once

#include <cstdio>
#include <optional>
#include <string>

/// One line of the table. Without a floor the limit is a value in the same unit.
struct Ligne
{
    std::string nom;
    int personnes;
    double valeur;
    std::string unite;
    std::optional<double> plancher;
    std::optional<double> limite;
};

/// Prints \a ligne for bench/tableau, which aligns the columns: its fields between tabs, none where there is no value.
inline void Ecrit(const Ligne &ligne)
{
    const auto texte = [](std::optional<double> nombre) {
        char chiffres[32] = "";
        if (nombre)
            std::snprintf(chiffres, sizeof chiffres, "%.9g", *nombre);
        return std::string(chiffres);
    };
    std::printf("%s\t%d\t%s\t%s\t%s\t%s\n", ligne.nom.c_str(), ligne.personnes, texte(ligne.valeur).c_str(),
                ligne.unite.c_str(), texte(ligne.plancher).c_str(), texte(ligne.limite).c_str());
    std::fflush(stdout);
}
