#include "arbview.h"

#include "arbre.h"
#include "personne.h"
#include "ramelierdoc.h"
#include "unites.h"

#include <QMouseEvent>
#include <QPainter>

namespace {

/// What the window needs around the drawing when it first opens, in pixels.
constexpr int largeurReservee = 4;
constexpr int hauteurReservee = 85;

/// A widget of no size is never painted, and larger than this the toolkit allows none.
QSize TaillePossible(long largeur, long hauteur)
{
    return {static_cast<int>(qBound(1L, largeur, long(QWIDGETSIZE_MAX))),
            static_cast<int>(qBound(1L, hauteur, long(QWIDGETSIZE_MAX)))};
}

}  // namespace

arbView::arbView(QWidget *parent, RamelierDoc *document)
    : QWidget(parent)
    , doc(document)
    , zoneDefilement(parent)
    , echelleX(EchelleDeResolution(logicalDpiX()))
    , echelleY(EchelleDeResolution(logicalDpiY()))
{
    setBackgroundRole(QPalette::Base);
    resize(TaillePossible(parent->width() - largeurReservee, parent->height() - hauteurReservee));
    connect(doc, &RamelierDoc::documentChanged, this, &arbView::slotDocumentChanged);
}

void arbView::PrendOrigine(QPoint point)
{
    if (origine == point)
        return;
    origine = point;
    update();
}

QPoint arbView::PointDuDessin(const QMouseEvent &evenement) const
{
    return evenement.position().toPoint() + origine;
}

void arbView::PrendLaTailleDuCanevas()
{
    Q_EMIT canevasMesure(doc->largeurCanevas, doc->hauteurCanevas);
    resize(TaillePossible(doc->largeurCanevas, doc->hauteurCanevas));
}

void arbView::paintEvent(QPaintEvent *evenement)
{
    QPainter painter(this);
    if (!doc->arbre)
        return;
    painter.translate(-origine);
    painter.setClipRect(evenement->rect().translated(origine));
    if (!doc->canevasCalcule) {
        doc->CalcTailleCanevas(&painter, echelleX, echelleY);
        PrendLaTailleDuCanevas();
    }
    doc->arbre->Affiche(&painter, echelleX, echelleY, false, doc->formats, doc->polices, doc->optionsParArbre);
    doc->AfficheTitre(&painter, echelleX, echelleY);
}

void arbView::mousePressEvent(QMouseEvent *evenement)
{
    if (!doc->arbre)
        return;
    const QPoint point = PointDuDessin(*evenement);
    if (evenement->button() == Qt::LeftButton) {
        doc->DeselectSelect(point.x(), point.y(), echelleX, echelleY);
    } else if (evenement->button() == Qt::RightButton) {
        const Personne *selection = doc->arbre->selection;
        const bool surLaSelection =
            selection && selection->EstClique(point.x(), point.y(), echelleX, echelleY, doc->formats);
        Q_EMIT menuSurgissant(surLaSelection ? 1 : 0);
    }
}

void arbView::mouseDoubleClickEvent(QMouseEvent *evenement)
{
    if (evenement->button() == Qt::LeftButton && doc->arbre && doc->arbre->selection)
        Q_EMIT personneDoubleCliquee();
}

void arbView::slotDocumentChanged(int code)
{
    switch (code) {
    case 0:
        Q_EMIT canevasMesure(0, 0);
        resize(zoneDefilement->size());
        break;
    case 1:
        doc->PositionneLesPersonnes(echelleX, echelleY);
        doc->canevasCalcule = false;
        break;
    case 2:
        break;
    default:
        return;
    }
    update();
}
