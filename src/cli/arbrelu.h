#pragma once

#include "ficxrlg.h"

#include <QString>

#include <memory>

class Arbre;

/// What the commands read and write: trees in files of any kind that the program knows.

/// True when \a nom ends in ".ged", in capitals or not.
[[nodiscard]] bool EstGEDCOM(const QString &nom);

/// The tree in the file \a nom: ".xrlg", ".rlg" (the older one) or ".ged", whose root Interlocuteur is asked for. None when
/// it cannot be had; the error stream has told why.
[[nodiscard]] std::unique_ptr<Arbre> LitUnArbre(const QString &nom);

/// True when \a nom ends in ".xrlg" or ".ged", in capitals or not.
[[nodiscard]] bool PeutEtreEcrit(const QString &nom);
/// Writes \a arbre, which came from the file \a origine, into \a sortie of the kind that its name says. Texts of a ".xrlg"
/// file that could not be read back are escaped. False when it could not be done; the error stream has told why.
[[nodiscard]] bool EcritUnArbre(const Arbre &arbre, const QString &origine, const QString &sortie);

/// How the texts of \a arbre are to stand in a ".xrlg" file for the program to read them back: escaped as soon as one needs
/// it.
[[nodiscard]] TextesXRLG TextesPour(const Arbre &arbre);
