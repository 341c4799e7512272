#pragma once

#include <QString>

/// A date as people write it in a tree, as far as it can be understood without a doubt.
struct DateComprise
{
    enum class Etat {
        Incomprise,
        Impossible,  ///< understood, and no such day exists
        Comprise,
    };

    Etat etat = Etat::Incomprise;
    int debut = 0;  ///< the first day that may be meant, as YYYYMMDD; 0 when it has no beginning
    int fin = 0;    ///< the last one; 99999999 when it has no end
};

/// Understands a year of four digits; dd/mm/yyyy (also with "." and "-"), mm/yyyy, yyyy-mm-dd; a day, a month in French or in
/// GEDCOM's English, shortened or not, and a year; two years; all of them behind "le", "vers", "avant", "après", "entre ...
/// et ...", "de ... à ..." and GEDCOM's words for the same. What is about a date may be fifty years away from it. Numbers in
/// the order of another country mean their year alone. A day of February may be one of the Julian calendar.
[[nodiscard]] DateComprise ComprendLaDate(const QString &texte);

/// True when both are understood and all of \a une comes before all of \a autre.
[[nodiscard]] bool SurementAvant(const DateComprise &une, const DateComprise &autre);
