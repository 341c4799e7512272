#pragma once

#include "commandes.h"

#include <QString>

/// One line on the error stream: "ramelier-cli : TEXTE". Line ends within it become blanks.
void EcritLErreur(const QString &texte);

/// The same for a command line that makes no sense, with a line that says where help is: that of \a commande, when it is
/// given.
Sortie RefuseLUsage(const QString &cause, const QString &commande = {});
