#include "ligne.h"

#include <cstdlib>

/// ecrit_ligne NAME PERSONS MILLISECONDS FLOOR LIMIT: a line of the table for the scripts.
int main(int argc, char **argv)
{
    if (argc != 6)
        return EXIT_FAILURE;
    Ecrit({.nom = argv[1],
           .personnes = std::atoi(argv[2]),
           .valeur = std::atof(argv[3]),
           .unite = "ms",
           .plancher = std::atof(argv[4]),
           .limite = std::atof(argv[5])});
    return EXIT_SUCCESS;
}
