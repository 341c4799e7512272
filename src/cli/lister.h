#pragma once

#include "analyseur.h"

inline constexpr Commande commandeLister{"lister", "ARBRE",
                                         "écrit la liste Sosa : numéros, générations, noms, dates et lieux"};

Sortie ExecuteLister(const QStringList &mots);
