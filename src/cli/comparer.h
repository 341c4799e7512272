#pragma once

#include "analyseur.h"

inline constexpr Commande commandeComparer{"comparer", "A B", "dit ce que deux arbres ont de différent"};

/// Done when they are alike, not done when they differ.
Sortie ExecuteComparer(const QStringList &mots);
