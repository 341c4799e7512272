#include "message.h"

#include <cstdio>

void EcritLErreur(const QString &texte)
{
    QString ligne = texte;
    std::fprintf(stderr, "ramelier-cli : %s\n", qUtf8Printable(ligne.replace(u'\n', u' ')));
}

Sortie RefuseLUsage(const QString &cause, const QString &commande)
{
    EcritLErreur(cause);
    const QString mots = commande.isEmpty() ? commande : commande + u' ';
    std::fprintf(stderr, "Essayez « ramelier-cli %s--help ».\n", qUtf8Printable(mots));
    return Sortie::MalUtilise;
}
