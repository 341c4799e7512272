#pragma once

#include "datecomprise.h"

#include <QStringList>

/// The birth and the death of somebody.
struct DatesDeVie
{
    DatesDeVie(const QString &uneNaissance, const QString &unDeces);

    /// What is surely wrong about them.
    [[nodiscard]] QStringList Fautes() const;
    /// True when this birth surely comes before that of a parent.
    [[nodiscard]] bool NaitAvant(const DatesDeVie &parent) const { return SurementAvant(naissance, parent.naissance); }

    QString naissanceEcrite;
    QString decesEcrit;
    DateComprise naissance;
    DateComprise deces;
};
