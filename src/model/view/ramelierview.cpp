#include "ramelierview.h"

#include "arbview.h"

RamelierView::RamelierView(QWidget *parent, RamelierDoc *doc)
    : QScrollArea(parent)
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
    setWidget(dessin);
}
