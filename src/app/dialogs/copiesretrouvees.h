#pragma once

#include <QStringList>

class QStatusBar;

/// Tells the user of the rescue copies \a copies, the latest first: on the error stream, and in \a barre, whose tool tip has
/// the whole of a path that a small window cuts. Nothing without copies.
void AnnonceLesCopies(const QStringList &copies, QStatusBar &barre);
