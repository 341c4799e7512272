#pragma once

#include "analyseur.h"

#include <QPageSize>
#include <QString>

inline constexpr Commande commandeDessiner{"dessiner", "ARBRE SORTIE",
                                           "dessine l'arbre ; SORTIE se termine par .pdf, .png ou .svg"};

Sortie ExecuteDessiner(const QStringList &mots);

/// What is to be drawn, and how.
struct DemandeDeDessin
{
    QString arbre;
    QString sortie;  ///< ".pdf" on pages, ".png" and ".svg" as one picture
    bool reduit = false;
    QPageSize::PageSizeId page = QPageSize::A4;
    bool pageUnique = false;  ///< one page of a ".pdf", as large as the chart, in the place of the grid
    bool paysage = false;
    bool reperes = false;              ///< crop marks and a map on each page of the grid
    int pointsParPouce = 96;           ///< of a ".png"
    bool couleursDesBranches = false;  ///< a pale fill behind the boxes, one for each grandparent's ancestors
    quint64 racine = 1;                ///< whose ancestors
    int generations = 0;               ///< 0: all
};

/// Draws a tree as the program prints it. An existing file is replaced, whole or not at all. False when it could not be
/// done; Interlocuteur has told why.
bool Dessiner(const DemandeDeDessin &demande);

/// True when \a sortie has a suffix that Dessiner knows.
[[nodiscard]] bool FormatDeDessinConnu(const QString &sortie);
