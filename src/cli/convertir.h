#pragma once

#include "analyseur.h"

inline constexpr Commande commandeConvertir{"convertir", "ENTREE SORTIE",
                                            "convertit un arbre : .rlg, .xrlg ou .ged en .xrlg ou .ged"};

Sortie ExecuteConvertir(const QStringList &mots);
