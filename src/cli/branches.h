#pragma once

#include <QColor>
#include <QtGlobal>

/// The pale colour of the branch to which person \a numero belongs among the ancestors of person \a racine: each grandparent
/// has one, with all that grandparent's ancestors. In grey they are four shades too. None for the root, the parents and whoever
/// is no ancestor.
[[nodiscard]] QColor CouleurDeBranche(quint64 numero, quint64 racine);
