#pragma once

#include <benchmark/benchmark.h>

#include <functional>
#include <string>

/// One line of the table: a work on \a personnes persons.
struct Mesure
{
    std::string nom;
    double limite;  ///< how many times the floor is still well; for a duration, how many milliseconds
    int personnes;
    int fois = 0;         ///< how often a run does the work; 0 as often as it takes to be measured
    bool murale = false;  ///< in real time: the disk, too, is waited for
};

/// Measures \a travail beside \a plancher, what it must cost at least. The benchmarks are named
/// "NOM/PERSONNES/travail" and ".../plancher". A counter that both set is a line of its own, without a limit.
void EnregistreMesure(const Mesure &mesure, const std::function<void(benchmark::State &)> &travail,
                      const std::function<void(benchmark::State &)> &plancher);
/// Measures a \a travail that the user waits for: what counts is how long it takes, not beside what.
void EnregistreDuree(const Mesure &mesure, const std::function<void(benchmark::State &)> &travail);

/// Runs all that was registered, one measure after the other, and prints the lines of the table, see ligne.h. Of several runs
/// the fastest counts, in processor time unless it says otherwise: what else the machine does is not measured.
void MesureTout();

/// Register the measures of their topic, on trees of up to \a plusGrand persons.
void EnregistreDisposition(int plusGrand);
void EnregistreXrlg(int plusGrand);
void EnregistreGedcom(int plusGrand);
void EnregistreAssemblage(int plusGrand);
void EnregistreDessin(int plusGrand);
void EnregistreClic(int plusGrand);
void EnregistreClavier(int plusGrand);
void EnregistreEdition(int plusGrand);
void EnregistreImpression(int plusGrand);
