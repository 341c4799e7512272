#pragma once

#include "scenario.h"

/// A file dialog as its user saw it.
struct DialogueVu
{
    QString titre;
    QString dossier;
    QString nom;  ///< in its name field
    QStringList filtres;
    bool enregistre = false;
    bool confirme = true;  ///< asks before it replaces a file
    QWidget *parent = nullptr;
};
/// The next modal window is a file dialog; types \a chemin and accepts.
void Choisit(Scenario &scenario, const QString &chemin, DialogueVu *vu = nullptr);
/// The next modal window is a file dialog; gives up.
void Renonce(Scenario &scenario, DialogueVu *vu = nullptr);
