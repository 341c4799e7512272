#pragma once

#include <QPoint>
#include <Qt>

class QAbstractScrollArea;
class QMouseEvent;

/// Moves what a scroll area shows along with the mouse, a closed hand, while a button is held.
class Glissement
{
public:
    explicit Glissement(QAbstractScrollArea &uneZone);

    /// Begins at the button of \a appui: with the middle one at once, with the left one when the mouse has gone far
    /// enough for a drag; with others not at all. False then.
    bool Commence(const QMouseEvent &appui);
    /// False when nothing is being moved.
    bool Suit(const QMouseEvent &mouvement);
    void Termine();

private:
    void Prend();
    [[nodiscard]] QPoint Position() const;

    QAbstractScrollArea &zone;
    Qt::MouseButton bouton = Qt::NoButton;
    bool enMain = false;
    QPoint depart;    ///< of the mouse on the screen
    QPoint position;  ///< of the scroll bars then
};
