#pragma once

#include "glissement.h"
#include "zoom.h"

#include <QScrollArea>

class arbView;
class RamelierDoc;

/// The scrolled view of the document's tree. Charts may be larger than any widget: the scroll bars then go over the whole
/// chart, and the drawing, as large as a widget can be, is put where the user looks. Ctrl and the wheel, +, - or 0 change
/// the size at which it is shown; the mouse can draw it along.
class RamelierView : public QScrollArea
{
    Q_OBJECT

public:
    /// Takes \a parent's size first, so that the drawing starts with the size that the window gives it.
    RamelierView(QWidget *parent, RamelierDoc *doc);

    /// The drawing; belongs to this scroll area.
    [[nodiscard]] arbView *vue() const { return dessin; }

    /// Scrolls until \a zone of the chart as it is shown, in pixels, is in view: no further than needed when it is near.
    void Montre(const QRect &zone);

    bool eventFilter(QObject *objet, QEvent *evenement) override;

protected:
    bool event(QEvent *evenement) override;
    bool focusNextPrevChild(bool suivant) override;
    void keyPressEvent(QKeyEvent *evenement) override;
    void wheelEvent(QWheelEvent *evenement) override;
    void mousePressEvent(QMouseEvent *evenement) override;
    void mouseDoubleClickEvent(QMouseEvent *evenement) override;
    void mouseMoveEvent(QMouseEvent *evenement) override;
    void mouseReleaseEvent(QMouseEvent *evenement) override;
    void resizeEvent(QResizeEvent *evenement) override;
    void scrollContentsBy(int dx, int dy) override;

private:
    void PrendLeCanevas(long largeur, long hauteur);
    [[nodiscard]] QPoint Position() const;
    [[nodiscard]] bool EstImmense() const;
    void Etend(QPoint position);
    void PlaceLeDessin();
    /// Changes the size of the chart; what is shown at \a pivot, a point of the view, stays there.
    void Agrandit(int crans, QPoint pivot);
    /// The mouse when it is over the view, or else the middle of the view.
    [[nodiscard]] QPoint Pivot() const;

    arbView *dessin = nullptr;
    QSize canevas;  ///< as it is shown, in pixels
    Glissement glissement;
    int resteDeMolette = 0;  ///< of a turn that was not a whole notch
};
