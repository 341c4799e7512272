#pragma once

#include "interlocuteur.h"

/// Speaks to the user through message boxes that belong to no window, and asks through dialogs.
class InterlocuteurBureau : public Interlocuteur
{
public:
    void Information(const QString &titre, const QString &texte) override;
    void Avertissement(const QString &titre, const QString &texte) override;
    std::optional<QString> ChoisitRacine(QWidget *parent, const Lignes &individus) override;
    bool RacineMasculine(QWidget *parent) override;
};
