#pragma once

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

public Q_SLOTS:
    /// 0 the tree was removed: take the size of the scroll area; 1 lay out; 2 repaint only. Other codes do nothing.
    void slotDocumentChanged(int code);

Q_SIGNALS:
    /// Left double click while a person is selected.
    void personneDoubleCliquee();
    /// Right click: 1 in the selected person's box, 0 elsewhere.
    void menuSurgissant(int lieu);

protected:
    void paintEvent(QPaintEvent *evenement) override;
    void mousePressEvent(QMouseEvent *evenement) override;
    void mouseDoubleClickEvent(QMouseEvent *evenement) override;

private:
    void PrendLaTailleDuCanevas();

    RamelierDoc *doc;
    QWidget *zoneDefilement;  ///< the scroll area that holds this widget
    float echelleX;           ///< pixels per millimetre of this widget's device
    float echelleY;
};
