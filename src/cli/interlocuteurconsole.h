#pragma once

#include "interlocuteur.h"

/// Writes to the standard error stream, one line a message. Nobody answers a question: the first individual without a
/// family of its own is the root, and a man.
class InterlocuteurConsole : public Interlocuteur
{
public:
    void Information(const QString &titre, const QString &texte) override;
    void Avertissement(const QString &titre, const QString &texte) override;
    std::optional<QString> ChoisitRacine(QWidget *parent, const Lignes &individus) override;
    bool RacineMasculine(QWidget *parent) override;
};
