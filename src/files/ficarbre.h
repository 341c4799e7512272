#pragma once

#include <QString>

class Arbre;

/// Fills the empty \a arbre from a tree file, with the reader that its name asks for: a name that holds ".xrlg" anywhere,
/// in capitals or not, is an XRLG file. \a repertoire is the absolute folder of the file.
/// 0 done, 1 cannot be opened, 2 wrong content; a file of any other name reads nothing and is an empty tree, 0.
int LitFichierArbre(const QString &fileName, QString &repertoire, Arbre *arbre);
