#include "arbre.h"
#include "arbview.h"
#include "ramelierdoc.h"
#include "ramelierview.h"

#include <QCursor>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QScrollBar>
#include <QWheelEvent>

#include <limits>
#include <optional>

namespace {

/// What a wheel turns in one notch, in eighths of a degree.
constexpr int tourDUnCran = 120;

/// By how many notches \a touche changes the size; all of them back for Ctrl+0. The keys of a French keyboard that bear
/// these signs do it without Shift too.
std::optional<int> CransDe(const QKeyEvent &touche, Zoom actuel)
{
    if ((touche.modifiers() & ~(Qt::ShiftModifier | Qt::KeypadModifier)) != Qt::ControlModifier)
        return {};
    switch (touche.key()) {
    case Qt::Key_Plus:
    case Qt::Key_Equal:
        return 1;
    case Qt::Key_Minus:
        return -1;
    case Qt::Key_0:
    case Qt::Key_Agrave:
        return -actuel.Cran();
    default:
        return {};
    }
}

/// Where a scroll bar at \a position has to stand for the pixels from \a debut to \a fin to be among the \a vus ones.
int PositionPourVoir(int position, int debut, int fin, int vus)
{
    constexpr int marge = 30;
    if (debut >= position && fin <= position + vus)
        return position;
    // What is far away comes to the middle; what is larger than the view shows its beginning.
    if (fin < position - vus || debut > position + 2 * vus)
        return debut - qMax(0, vus - (fin - debut)) / 2;
    const int bord = qBound(0, (vus - (fin - debut)) / 2, marge);
    return debut < position || fin - debut > vus ? debut - bord : fin - vus + bord;
}

}  // namespace

void RamelierView::Montre(const QRect &zone)
{
    horizontalScrollBar()->setValue(
        PositionPourVoir(horizontalScrollBar()->value(), zone.left(), zone.right() + 1, viewport()->width()));
    verticalScrollBar()->setValue(
        PositionPourVoir(verticalScrollBar()->value(), zone.top(), zone.bottom() + 1, viewport()->height()));
}

// The drawing is all that can have the keyboard here: there is nothing to scroll to, as a scroll area would.
bool RamelierView::focusNextPrevChild(bool suivant)
{
    return QWidget::focusNextPrevChild(suivant);  // NOLINT(bugprone-parent-virtual-call)
}

void RamelierView::Agrandit(int crans, QPoint pivot)
{
    const RamelierDoc &doc = dessin->Document();
    if (!doc.arbre)
        return;
    const Zoom avant = dessin->SonZoom();
    Zoom apres(avant.Cran() + crans);
    // Scroll bars count in int.
    constexpr long plusGrand = std::numeric_limits<int>::max();
    while (apres.Cran() > 0 && apres.Longueur(qMax(doc.largeurCanevas, doc.hauteurCanevas)) > plusGrand)
        apres = Zoom(apres.Cran() - 1);
    const QPointF surPapier = QPointF(Position() + pivot) / avant.Facteur();
    dessin->PrendLeZoom(apres);
    const QPoint position = (surPapier * apres.Facteur()).toPoint() - pivot;
    horizontalScrollBar()->setValue(position.x());
    verticalScrollBar()->setValue(position.y());
}

QPoint RamelierView::Pivot() const
{
    const QPoint souris = viewport()->mapFromGlobal(QCursor::pos());
    return viewport()->rect().contains(souris) ? souris : viewport()->rect().center();
}

void RamelierView::keyPressEvent(QKeyEvent *evenement)
{
    if (const std::optional<int> crans = CransDe(*evenement, dessin->SonZoom()))
        Agrandit(*crans, Pivot());
    else
        QScrollArea::keyPressEvent(evenement);
}

void RamelierView::wheelEvent(QWheelEvent *evenement)
{
    if (!(evenement->modifiers() & Qt::ControlModifier)) {
        QScrollArea::wheelEvent(evenement);
        return;
    }
    resteDeMolette += evenement->angleDelta().y();
    const int crans = resteDeMolette / tourDUnCran;
    resteDeMolette -= crans * tourDUnCran;
    Agrandit(crans, evenement->position().toPoint());
    evenement->accept();
}

void RamelierView::mousePressEvent(QMouseEvent *evenement)
{
    if (!glissement.Commence(*evenement))
        QScrollArea::mousePressEvent(evenement);
}

void RamelierView::mouseDoubleClickEvent(QMouseEvent *evenement)
{
    mousePressEvent(evenement);
}

void RamelierView::mouseMoveEvent(QMouseEvent *evenement)
{
    if (!glissement.Suit(*evenement))
        QScrollArea::mouseMoveEvent(evenement);
}

void RamelierView::mouseReleaseEvent(QMouseEvent *evenement)
{
    glissement.Termine();
    QScrollArea::mouseReleaseEvent(evenement);
}
