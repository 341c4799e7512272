#pragma once

class Arbre;
class Personne;

/// A step through a chart from the selected person, whose parents stand above and whose child stands below.
enum class Pas {
    VersLePere,  ///< the mother where there is no father
    VersLaMere,  ///< the father where there is no mother
    VersLEnfant,
    AGauche,  ///< to the neighbour in the row
    ADroite,
    VersLaRacine,
};

/// Whom \a pas leads to: none where nobody stands there. Without a selection every step leads to the root. O(log n).
[[nodiscard]] Personne *ApresLePas(const Arbre &arbre, Pas pas);
