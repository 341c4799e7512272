#pragma once

#include <benchmark/benchmark.h>

#include <functional>
#include <string>

/// One line of the table: a work and the floor that it is compared with, both on \a personnes persons, in the same run.
struct Mesure
{
    std::string nom;
    double limite;  ///< how many times the floor is still well
    int personnes;
};

/// Measures \a travail and \a plancher; the benchmarks are named "NOM/LIMITE/PERSONNES/travail" and ".../plancher".
inline void EnregistreMesure(const Mesure &mesure, const std::function<void(benchmark::State &)> &travail,
                             const std::function<void(benchmark::State &)> &plancher)
{
    char limite[32];
    std::snprintf(limite, sizeof limite, "%g", mesure.limite);
    const std::string debut = mesure.nom + '/' + limite + '/' + std::to_string(mesure.personnes);
    benchmark::RegisterBenchmark((debut + "/travail").c_str(), travail)->Unit(benchmark::kMillisecond);
    benchmark::RegisterBenchmark((debut + "/plancher").c_str(), plancher)->Unit(benchmark::kMillisecond);
}

/// Register the measures of their topic, on trees of up to \a plusGrand persons.
void EnregistreDisposition(int plusGrand);
void EnregistreXrlg(int plusGrand);
void EnregistreGedcom(int plusGrand);
void EnregistreAssemblage(int plusGrand);
