#pragma once

#include "dlgcherche.h"
#include "dlgremplace.h"
#include "dlgtableau.h"
#include "formulaire.h"

/// The dialogs of the editor of sheets by name, and all ten together.

inline QStringList DialoguesEditeur()
{
    return {"DlgCherche", "DlgRemplace", "DlgTableau"};
}

inline QStringList LesDixDialogues()
{
    return TousLesDialogues() + DialoguesEditeur();
}

/// A new one of the ten, without a parent.
inline std::unique_ptr<QDialog> NouveauDesDix(const QString &classe)
{
    if (classe == "DlgCherche")
        return std::make_unique<DlgCherche>();
    if (classe == "DlgRemplace")
        return std::make_unique<DlgRemplace>();
    if (classe == "DlgTableau")
        return std::make_unique<DlgTableau>();
    return NouveauDialogue(classe);
}
