#include "message.h"

#include <cstdio>

#include <unistd.h>

void EcritLErreur(const QString &texte)
{
    QString ligne = texte;
    // In a terminal a step that goes on (see Etape) may have left its line.
    const char *efface = ::isatty(STDERR_FILENO) != 0 ? "\r\033[K" : "";
    std::fprintf(stderr, "%sramelier-cli : %s\n", efface, qUtf8Printable(ligne.replace(u'\n', u' ')));
}

Sortie RefuseLUsage(const QString &cause, const QString &commande)
{
    EcritLErreur(cause);
    const QString mots = commande.isEmpty() ? commande : commande + u' ';
    std::fprintf(stderr, "Essayez « ramelier-cli %s--help ».\n", qUtf8Printable(mots));
    return Sortie::MalUtilise;
}
