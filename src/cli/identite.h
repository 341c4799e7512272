#pragma once

#include <QString>

class Personne;

/// Who somebody is, for finding that person at another number (implexe): both names, the date and the place of birth.
/// Empty without names or date: namesakes of one village are many. Capitals and useless blanks do not count.
[[nodiscard]] QString Identite(const Personne &personne);
