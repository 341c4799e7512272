#pragma once

#include <QString>

struct FormatsDessins;
struct LesPolices;

/// The options files: drawing formats and fonts, one value a line under two header lines. One format serves the user's
/// preferences ("/.ramelier.opt" in the home folder) and the options of one tree (beside it, extension ".opt").
/// Nothing here shows a message.

/// Which header an options file gets.
enum TypeOptions : int {
    OptionsPreferences = 0,
    OptionsParArbre = 1,  ///< any other value writes no header
};

/// Reads \a fichier. False, the outputs untouched, when it is missing or cannot be opened; else true even when values
/// are missing or wrong: those become zero, or an empty family.
bool LitOptions(const QString &fichier, FormatsDessins *formats, LesPolices *polices);

/// Writes \a fichier, old or new but never half of it. Thickness and radius keep whole millimetres only. False when it
/// could not be written.
bool EcritOptions(const QString &fichier, const FormatsDessins &formats, const LesPolices &polices, int type);

/// The user's preferences file.
[[nodiscard]] QString CheminDesPreferences();

/// The options file of the tree file \a fichierArbre: same folder, its name up to the first dot, ".opt".
[[nodiscard]] QString CheminDesOptions(const QString &fichierArbre);

/// Reads the preferences file, or takes the built-in defaults when it cannot be read.
void LitPreferences(const QString &fichier, FormatsDessins *formats, LesPolices *polices);
