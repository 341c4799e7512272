#include "interlocuteurconsole.h"

#include "message.h"

void InterlocuteurConsole::Installe(const Reponses &reponses)
{
    Interlocuteur::Installe(std::make_unique<InterlocuteurConsole>(reponses));
}

void InterlocuteurConsole::Information(const QString & /*titre*/, const QString &texte)
{
    EcritLErreur(texte);
}

void InterlocuteurConsole::Avertissement(const QString & /*titre*/, const QString &texte)
{
    EcritLErreur(texte);
}

std::optional<QString> InterlocuteurConsole::ChoisitRacine(QWidget * /*parent*/, const Lignes & /*individus*/)
{
    return reponses.racine;
}

bool InterlocuteurConsole::RacineMasculine(QWidget * /*parent*/)
{
    return reponses.sexe == Sexe::Masculin;
}
