#pragma once

#include "interlocuteur.h"

enum class Sexe { Masculin, Feminin };

/// What the command line says beforehand to the questions that the program asks.
struct Reponses
{
    QString racine;              ///< identifier of the root in a GEDCOM file; empty: who is nobody's spouse
    Sexe sexe = Sexe::Masculin;  ///< of the root
};

/// Writes to the standard error stream, one line a message, and answers as it was told to.
class InterlocuteurConsole : public Interlocuteur
{
public:
    explicit InterlocuteurConsole(Reponses desReponses = {})
        : reponses(std::move(desReponses))
    {
    }
    /// One with these answers for the rest of the program.
    static void Installe(const Reponses &reponses);

    void Information(const QString &titre, const QString &texte) override;
    void Avertissement(const QString &titre, const QString &texte) override;
    std::optional<QString> ChoisitRacine(QWidget *parent, const Lignes &individus) override;
    bool RacineMasculine(QWidget *parent) override;

private:
    Reponses reponses;
};
