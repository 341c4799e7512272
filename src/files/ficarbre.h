#pragma once

#include <QString>

class Arbre;

/// Fills the empty \a arbre from a tree file, with the reader that its name asks for: a name that holds ".xrlg" anywhere,
/// in capitals or not, is an XRLG file; else one that holds ".rlg" is an older binary file, with one of the two header
/// lines, and \a typeFichier then tells its version. \a repertoire is the absolute folder of the file.
/// 0 done, 1 cannot be opened, 2 or 3 wrong content; a file of any other name reads nothing and is an empty tree, 0.
int LitFichierArbre(const QString &fileName, QString &repertoire, Arbre *arbre, QString &enteteV1, QString &enteteV3,
                    int &typeFichier);
/// The same for a caller that does not ask which format it was.
int LitFichierArbre(const QString &fileName, QString &repertoire, Arbre *arbre);
