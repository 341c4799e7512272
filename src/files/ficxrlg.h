#pragma once

#include <QString>

class Arbre;
class QIODevice;

/// The `.xrlg` tree file: a small XML dialect with one element a text. Texts are written exactly as held, nothing is
/// escaped: a file whose texts hold "&" or "<" cannot be read back. The reader takes escaped texts too.

/// Writes the whole tree to the file \a fileName, which holds the old content or the complete new one whatever happens.
/// The content that it replaces stays beside it under its name with a "~". False after a box "Fichier XRLG" when it could
/// not be written.
bool writeFicXRLG(const QString &fileName, Arbre *arbre);

/// How texts stand in a file: as the format has it, or so that any text can be read back.
enum class TextesXRLG { TelsQuels, Echappes };

/// The bytes of \a arbre into \a sortie, in blocks; false when the device refused one.
[[nodiscard]] bool EcritArbreXRLG(QIODevice &sortie, const Arbre &arbre, TextesXRLG textes = TextesXRLG::TelsQuels);

/// Fills the empty \a arbre from the file \a fileName; photos are looked up in \a repertoire, the absolute folder of the
/// file. The person count of the tree becomes the written count plus the persons read.
/// 0 done; 1 the file cannot be opened; 2 its text is wrong (the tree keeps the persons read before that place).
/// For 1 and 2 a box "Arbre XRLG" has told why.
int readFicXRLG(const QString &fileName, QString &repertoire, Arbre *arbre);
