#pragma once

#include <QPoint>
#include <QWidget>

class RamelierDoc;
class RamelierView;

/// The drawing of the document's tree at the screen's true size. Turns clicks into selection changes, a double click and
/// a context menu signal, and has the tree laid out again when the document says that it changed.
class arbView : public QWidget
{
    Q_OBJECT

public:
    /// As large as \a parent less fixed allowances for the window around it, until a tree is drawn.
    arbView(QWidget *parent, RamelierDoc *document);

    /// The point of the chart, in pixels, that stands in the corner of this widget: no widget can be as large as the
    /// largest charts.
    void PrendOrigine(QPoint point);

public Q_SLOTS:
    /// 0 the tree was removed: take the size of the scroll area; 1 lay out; 2 repaint only. Other codes do nothing.
    void slotDocumentChanged(int code);

Q_SIGNALS:
    /// Left double click while a person is selected.
    void personneDoubleCliquee();
    /// Right click: 1 in the selected person's box, 0 elsewhere.
    void menuSurgissant(int lieu);
    /// The size of the whole chart, in pixels; 0 when there is none.
    void canevasMesure(long largeur, long hauteur);

protected:
    void paintEvent(QPaintEvent *evenement) override;
    void mousePressEvent(QMouseEvent *evenement) override;
    void mouseDoubleClickEvent(QMouseEvent *evenement) override;

private:
    void PrendLaTailleDuCanevas();
    [[nodiscard]] QPoint PointDuDessin(const QMouseEvent &evenement) const;

    RamelierDoc *doc;
    QWidget *zoneDefilement;  ///< the scroll area that holds this widget
    QPoint origine;
    float echelleX;  ///< pixels per millimetre of this widget's device
    float echelleY;
};
