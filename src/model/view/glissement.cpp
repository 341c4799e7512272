#include "glissement.h"

#include <QAbstractScrollArea>
#include <QApplication>
#include <QMouseEvent>
#include <QScrollBar>

Glissement::Glissement(QAbstractScrollArea &uneZone)
    : zone(uneZone)
{
}

bool Glissement::Commence(const QMouseEvent &appui)
{
    if (appui.button() != Qt::MiddleButton && appui.button() != Qt::LeftButton)
        return false;
    Termine();
    bouton = appui.button();
    depart = appui.globalPosition().toPoint();
    position = Position();
    if (bouton == Qt::MiddleButton)
        Prend();
    return true;
}

QPoint Glissement::Position() const
{
    return {zone.horizontalScrollBar()->value(), zone.verticalScrollBar()->value()};
}

void Glissement::Prend()
{
    enMain = true;
    zone.viewport()->setCursor(Qt::ClosedHandCursor);
}

bool Glissement::Suit(const QMouseEvent &mouvement)
{
    // The release may have gone to a menu or to another window.
    if (!(mouvement.buttons() & bouton)) {
        Termine();
        return false;
    }
    const QPoint ici = mouvement.globalPosition().toPoint();
    if (!enMain && (ici - depart).manhattanLength() < QApplication::startDragDistance())
        return true;
    if (!enMain)
        Prend();
    const QPoint voulue = position - (ici - depart);
    zone.horizontalScrollBar()->setValue(voulue.x());
    zone.verticalScrollBar()->setValue(voulue.y());
    return true;
}

void Glissement::Termine()
{
    bouton = Qt::NoButton;
    if (!enMain)
        return;
    enMain = false;
    zone.viewport()->unsetCursor();
}
