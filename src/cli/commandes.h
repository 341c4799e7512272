#pragma once

#include <QStringList>

/// The commands of ramelier-cli, each with its own words, options and help.

/// What the program tells its caller by its exit status.
enum class Sortie : int {
    Fait = 0,
    NonFait = 1,     ///< the error stream told why
    MalUtilise = 2,  ///< the words of the command line make no sense
};

/// Does what \a mots, the command line without the program's name, ask for.
Sortie ExecuteLaLigne(const QStringList &mots);
