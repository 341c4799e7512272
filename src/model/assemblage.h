#pragma once

#include <QString>
#include <QStringView>

class Arbre;
class Personne;

/// A child's tree out of its father's and its mother's. A person n of generation g becomes n + 2^g on the father's side and
/// n + 2^(g+1) on the mother's, one generation later; so do the numbers of the parents.

/// The renumbered copy of \a source (\a estPere: on the father's side), its photo loaded from \a repertoire, not linked to
/// anybody; none where its number does not fit. \a parNumero: the generation follows from the number, for trees whose root
/// is not generation 0. The caller owns it.
[[nodiscard]] Personne *CopieRenumerotee(const Personne &source, bool estPere, bool parNumero,
                                         const QString &repertoire);
/// True when the generations of \a arbre do not start at 0.
[[nodiscard]] bool GenerationsDecalees(const Arbre &arbre);
/// Makes \a copie the father or the mother of \a enfant, as its number says; nothing without a child.
void RelieASonEnfant(Personne *enfant, Personne *copie);

/// The title of a child's tree.
inline constexpr QStringView titreDAssemblage = u"Généalogie de l'enfant";

/// Fills the empty \a arbre: a root "Enfant", number 1, then every person of both trees at its place. Linear.
void AssembleArbres(Arbre &arbre, const Arbre &arbrePere, const Arbre &arbreMere, const QString &repertoire);
