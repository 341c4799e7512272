#pragma once

#include "analyseur.h"

inline constexpr Commande commandeReparer{
    "reparer", "FICHIER SORTIE", "écrit dans SORTIE ce que FICHIER, un .xrlg qui ne s'ouvre plus, devrait être"};

Sortie ExecuteReparer(const QStringList &mots);
