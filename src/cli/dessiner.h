#pragma once

#include "analyseur.h"

#include <QString>

inline constexpr Commande commandeDessiner{"dessiner", "ARBRE SORTIE",
                                           "dessine l'arbre ; SORTIE se termine par .pdf, .png ou .svg"};

Sortie ExecuteDessiner(const QStringList &mots);

/// Draws the tree file \a fichierArbre as the program prints it, into \a sortie: ".pdf" on a grid of A4 pages, ".png" and
/// ".svg" as one picture at 96 dots per inch. An existing file is replaced, whole or not at all. False when it could not
/// be done; Interlocuteur has told why.
bool Dessiner(const QString &fichierArbre, const QString &sortie);

/// True when \a sortie has a suffix that Dessiner knows.
[[nodiscard]] bool FormatDeDessinConnu(const QString &sortie);
