#pragma once

#include <QImage>
#include <QRect>
#include <QString>
#include <QStringList>

/// The screen of an X server of its own, seen and driven from outside: windows by their titles, real keys and clicks.
namespace Ecran {

/// Runs xdotool; what it printed.
QString Xdotool(const QStringList &arguments);

/// Waits until a window whose title matches the regular expression \a titre is shown and has the keyboard. Its number;
/// empty when none came.
QString AttendActive(const QString &titre);
/// Waits until the window \a fenetre has the keyboard.
bool EstActive(const QString &fenetre);
/// Place of the inside of a window on the screen.
QRect Place(const QString &fenetre);

/// Keys one after the other, as "Tab", "ctrl+s".
void Touches(const QStringList &touches);
/// A text, typed key by key on the keyboard that PrendClavierFrancophone put in place.
void Tape(const QString &texte);
/// A keyboard with keys for é, É, è, È, à, ç...: texts made of what it has arrive whole, anything else may get lost.
bool PrendClavierFrancophone();
/// A click at \a point of the screen.
void Clique(QPoint point, int bouton = 1);

/// The whole screen.
QImage Image();
/// Keeps the screen as a picture among those of the build.
void Garde(const QString &nom);
/// How many points of \a zone have this colour.
int Points(const QImage &image, const QRect &zone, QRgb couleur);

}  // namespace Ecran
