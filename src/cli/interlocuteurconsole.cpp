#include "interlocuteurconsole.h"

#include <cstdio>

namespace {

void EcritUneLigne(QString texte)
{
    std::fprintf(stderr, "ramelier-cli : %s\n", qUtf8Printable(texte.replace(u'\n', u' ')));
}

}  // namespace

void InterlocuteurConsole::Information(const QString & /*titre*/, const QString &texte)
{
    EcritUneLigne(texte);
}

void InterlocuteurConsole::Avertissement(const QString & /*titre*/, const QString &texte)
{
    EcritUneLigne(texte);
}

std::optional<QString> InterlocuteurConsole::ChoisitRacine(QWidget * /*parent*/, const Lignes & /*individus*/)
{
    return {};
}

bool InterlocuteurConsole::RacineMasculine(QWidget * /*parent*/)
{
    return true;
}
