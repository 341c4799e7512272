#pragma once

#include "constat.h"

class Arbre;
class FichesGED;

/// What is wrong or odd in a file, told to \a surConstat one by one.

/// Of any kind that the program reads. Linear, the photos and sheets that it looks for apart.
void VerifieUnFichier(const QString &nom, const SurConstat &surConstat);

/// The persons of a tree: their numbers as Coherence has them, their dates, the photos and sheets in \a dossier. The same
/// names and birth at several numbers are a remark.
void VerifieUnArbre(const Arbre &arbre, const QString &dossier, const SurConstat &surConstat);

/// The individuals and families of a GEDCOM file: links without an end, identifiers borne twice, dates, who is his own
/// ancestor.
void VerifieDesFiches(const FichesGED &fiches, const SurConstat &surConstat);
