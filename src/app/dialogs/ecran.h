#pragma once

#include <QPoint>
#include <QSize>

class QRect;

/// Size of a main window that was never opened: 800 x 600 where the desktop is larger than that, else 600 x 440.
[[nodiscard]] QSize TailleInitiale();

/// \a voulue, the corner of the frame of a window of the size \a taille, unless no screen shows enough of its title bar
/// to take hold of: then the nearest place on a screen, where the window is whole if the screen is large enough.
[[nodiscard]] QPoint PlaceVisible(QPoint voulue, QSize taille);

/// The same for these screens, the first one being the main one.
[[nodiscard]] QPoint PlaceVisible(QPoint voulue, QSize taille, const QList<QRect> &ecrans);
