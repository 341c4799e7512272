#pragma once

#include "gedcomlecture.h"

class Arbre;
class Personne;
class QWidget;

/// A tree out of a GEDCOM file: the user picks the root, and the import climbs from each person to the husband and the wife
/// of the family that lists that person as a child.

/// Fills the empty \a arbre from \a nomFichier. \a parent owns the dialog that asks for the root. The tree stays without
/// persons when nothing could be imported: the user has been told why. Linear in the size of the file.
///
/// Who occurs twice among the ancestors (pedigree collapse) has parents above the place found last only. Nobody becomes
/// a parent who already stands in the line from that person down to the root, so that every file comes to an end, and
/// nobody gets a number that does not fit.
///
/// The lists of gedcomlecture.h are empty afterwards.
void ImporterDeFichierGEDCOM(QWidget *parent, const QString &nomFichier, Arbre *arbre);

/// The title of a tree out of \a nomFichier: "Généalogie importée de " and its name without its folder.
[[nodiscard]] QString TitreDImport(const QString &nomFichier);

/// The import on the lists that DecodeFichierGED fills, walk after walk; the import gives what they would, from an index.

/// What ChercheRacine and ChercheLesParents found, good as long as the lists; none after an import.
extern IndividuGED *RacinePos;
extern IndividuGED *LePere;
extern IndividuGED *LaMere;

/// The number of individuals read.
long CompteIndiv();
/// Sets RacinePos to the individual with this identifier or, when it is empty, to one who is nobody's spouse: of several,
/// the one nearest the start of the file.
void ChercheRacine(QString &adresse);
/// Sets LePere and LaMere to the parents of \a ind by walking all families.
void ChercheLesParents(IndividuGED *ind);
/// Copies what a tree keeps of an individual; the occupation goes into the remark.
void CopieInfo(IndividuGED *individu, Personne *personne);
