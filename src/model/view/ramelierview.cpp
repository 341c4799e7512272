#include "ramelierview.h"

#include "arbview.h"

#include <QEvent>
#include <QScrollBar>

#include <limits>

namespace {

bool DepasseUnWidget(int longueur)
{
    return longueur > QWIDGETSIZE_MAX;
}

/// The point of a chart of \a longueur pixels where the drawing begins when the scroll bar is at \a position: it changes
/// seldom, and the drawing goes on beyond what is seen.
int Origine(int position, int longueur)
{
    constexpr int pas = QWIDGETSIZE_MAX / 2;
    return DepasseUnWidget(longueur) ? position / pas * pas : 0;
}

void EtendLaBarre(QScrollBar &barre, int longueur, int vus, int position)
{
    if (!DepasseUnWidget(longueur))
        return;
    barre.setRange(0, longueur - vus);
    barre.setValue(position);
}

}  // namespace

RamelierView::RamelierView(QWidget *parent, RamelierDoc *doc)
    : QScrollArea(parent)
    , glissement(*this)
{
    // A chart is drawn on paper: white with black lines whatever the desktop's colours are. Only the page and what is
    // written on it change; scroll bars and menus stay the desktop's.
    QPalette papier = viewport()->palette();
    papier.setColor(QPalette::Base, Qt::white);
    papier.setColor(QPalette::Text, Qt::black);
    viewport()->setPalette(papier);
    viewport()->setBackgroundRole(QPalette::Base);
    viewport()->setAutoFillBackground(true);
    // Without a frame an empty drawing of the view's own size needs no scroll bars.
    setFrameShape(QFrame::NoFrame);

    if (parent)
        resize(parent->size());
    dessin = new arbView(this, doc);
    dessin->setPalette(papier);
    connect(dessin, &arbView::canevasMesure, this, &RamelierView::PrendLeCanevas);
    connect(dessin, &arbView::aMontrer, this, &RamelierView::Montre);
    setWidget(dessin);
    setFocusProxy(dessin);
}

void RamelierView::PrendLeCanevas(long largeur, long hauteur)
{
    constexpr long plusGrand = std::numeric_limits<int>::max();
    canevas = QSize(static_cast<int>(qBound(0L, largeur, plusGrand)), static_cast<int>(qBound(0L, hauteur, plusGrand)));
    dessin->PrendOrigine({});
    Etend(Position());
}

QPoint RamelierView::Position() const
{
    return {horizontalScrollBar()->value(), verticalScrollBar()->value()};
}

bool RamelierView::EstImmense() const
{
    return DepasseUnWidget(canevas.width()) || DepasseUnWidget(canevas.height());
}

void RamelierView::Etend(QPoint position)
{
    if (!EstImmense())
        return;
    EtendLaBarre(*horizontalScrollBar(), canevas.width(), viewport()->width(), position.x());
    EtendLaBarre(*verticalScrollBar(), canevas.height(), viewport()->height(), position.y());
    PlaceLeDessin();
}

void RamelierView::PlaceLeDessin()
{
    const QPoint position = Position();
    const QPoint origine(Origine(position.x(), canevas.width()), Origine(position.y(), canevas.height()));
    dessin->PrendOrigine(origine);
    dessin->move(origine - position);
}

// The scroll area knows the drawing's size only, and makes its bars anew in these three places.

bool RamelierView::event(QEvent *evenement)
{
    const QPoint position = Position();
    const bool traite = QScrollArea::event(evenement);
    if (evenement->type() == QEvent::LayoutRequest || evenement->type() == QEvent::StyleChange)
        Etend(position);
    return traite;
}

bool RamelierView::eventFilter(QObject *objet, QEvent *evenement)
{
    const QPoint position = Position();
    const bool traite = QScrollArea::eventFilter(objet, evenement);
    if (objet == dessin && evenement->type() == QEvent::Resize)
        Etend(position);
    return traite;
}

void RamelierView::resizeEvent(QResizeEvent *evenement)
{
    const QPoint position = Position();
    QScrollArea::resizeEvent(evenement);
    Etend(position);
}

void RamelierView::scrollContentsBy(int dx, int dy)
{
    if (EstImmense())
        PlaceLeDessin();
    else
        QScrollArea::scrollContentsBy(dx, dy);
}
