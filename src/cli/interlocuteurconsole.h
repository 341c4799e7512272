#pragma once

#include "interlocuteur.h"

/// Writes to the standard error stream, one line a message.
class InterlocuteurConsole : public Interlocuteur
{
public:
    void Information(const QString &titre, const QString &texte) override;
    void Avertissement(const QString &titre, const QString &texte) override;
};
