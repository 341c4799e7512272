#pragma once

#include "analyseur.h"

inline constexpr Commande commandeAssembler{"assembler", "PERE MERE SORTIE",
                                            "assemble l'arbre du père et celui de la mère en celui de l'enfant"};

Sortie ExecuteAssembler(const QStringList &mots);
