#pragma once

#include "analyseur.h"

inline constexpr Commande commandeVerifier{"verifier", "FICHIER...",
                                           "dit ce qui est faux ou étrange dans des arbres : .xrlg, .rlg ou .ged"};

/// NonFait when something is wrong; what is merely odd is told but does not count.
Sortie ExecuteVerifier(const QStringList &mots);
