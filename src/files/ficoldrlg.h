#pragma once

#include <QString>

#include <cstdio>

class Arbre;

/// The older binary tree files ".rlg", read only: version 1.0 with 16-bit numbers, version 3.0 with 64-bit ones. All
/// integers are little-endian, all texts ISO 8859-1 behind a 16-bit length.

/// The header lines of the two versions.
inline const QString enteteRlgV1 = QStringLiteral("Arbre généalogique - R. Lidou - Version 1.0");
inline const QString enteteRlgV3 = QStringLiteral("Arbre généalogique - R. Lidou - Version 3.0");

/// Fills the empty \a arbre from the file \a fileName; photos are looked up in \a repertoire. A person without any name is
/// dropped, and the child that names it as a parent loses that link. A file that ends too soon gives what it holds.
/// 0 done; 1 cannot be opened; 2 the header is neither \a enteteV3 nor \a enteteV1; 3 the start marker is wrong.
/// \a typeFichier becomes 3 or 1 once the header is known. Shows no message. Linear in the size of the file, whatever
/// count it announces.
int readFicOldRLG(const QString &fileName, QString &repertoire, Arbre *arbre, QString &enteteV1, QString &enteteV3,
                  int &typeFichier);

/// Appends \a n bytes of \a f to \a s, each one a character of the same code; fewer at the end of the file, none when \a n
/// is not positive.
void LitChaine(std::FILE *f, QString &s, short n);

/// Writes the 16-bit length of \a s, then its characters, one byte each ("?" for what ISO 8859-1 does not have).
void EcriChaine(std::FILE *f, QString &s);
