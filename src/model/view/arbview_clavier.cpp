#include "arbview.h"

#include "accessiblevue.h"
#include "arbre.h"
#include "etatpeintre.h"
#include "formatsdessins.h"
#include "personne.h"
#include "ramelierdoc.h"

#include <QContextMenuEvent>
#include <QFocusEvent>
#include <QKeyEvent>
#include <QPainter>
#include <QPen>

#include <optional>

namespace {

/// What the selection mark needs around a box, in pixels on paper.
int BordDeLaMarque(const FormatsDessins &formats, float echelle)
{
    constexpr int ecart = 3;
    return ecart + formats.EpaisseurPx(echelle);
}

constexpr int epaisseurDuCadre = 2;
constexpr int ecartDuCadre = 2;

/// True when, beside Shift where \a avecMaj, no key is held that makes another of this one.
bool EstSeule(const QKeyEvent &touche, bool avecMaj)
{
    const Qt::KeyboardModifiers sansEffet =
        Qt::KeypadModifier | Qt::GroupSwitchModifier | (avecMaj ? Qt::ShiftModifier : Qt::NoModifier);
    return !(touche.modifiers() & ~sansEffet);
}

std::optional<Pas> PasDe(const QKeyEvent &touche)
{
    if (!EstSeule(touche, true))
        return {};
    const bool maj = touche.modifiers() & Qt::ShiftModifier;
    switch (touche.key()) {
    case Qt::Key_Up:
        return maj ? Pas::VersLaMere : Pas::VersLePere;
    case Qt::Key_Down:
        return Pas::VersLEnfant;
    case Qt::Key_Left:
        return Pas::AGauche;
    case Qt::Key_Right:
        return Pas::ADroite;
    case Qt::Key_Home:
        return Pas::VersLaRacine;
    default:
        return {};
    }
}

/// A text may hold a blank, but none begins with one.
bool EstDuTexte(const QString &texte, bool auDebut)
{
    return !texte.isEmpty() && (texte.front().isPrint() || texte.front().isSurrogate())
        && !(auDebut && texte.front().isSpace());
}

}  // namespace

void arbView::keyPressEvent(QKeyEvent *evenement)
{
    if (!doc->arbre || !(Marche(*evenement) || Cherche(*evenement) || Commande(*evenement)))
        QWidget::keyPressEvent(evenement);
}

bool arbView::Marche(const QKeyEvent &touche)
{
    const std::optional<Pas> pas = PasDe(touche);
    if (!pas)
        return false;
    recherche.Oublie();
    SeSertDuClavier(true);
    SelectionneEtMontre(ApresLePas(*doc->arbre, *pas));
    return true;
}

bool arbView::Cherche(const QKeyEvent &touche)
{
    if (touche.key() == Qt::Key_Escape && recherche.EstEnCours()) {
        recherche.Oublie();
        return true;
    }
    if (!EstSeule(touche, true) || !EstDuTexte(touche.text(), !recherche.EstEnCours()))
        return false;
    SeSertDuClavier(true);
    SelectionneEtMontre(recherche.Tape(touche.text(), *doc->arbre));
    return true;
}

bool arbView::Commande(const QKeyEvent &touche)
{
    const bool entree = (touche.key() == Qt::Key_Return || touche.key() == Qt::Key_Enter) && EstSeule(touche, false);
    if (entree && doc->arbre->selection && !touche.isAutoRepeat()) {
        Q_EMIT personneDoubleCliquee();
        return true;
    }
    const bool menu = (touche.key() == Qt::Key_Menu && EstSeule(touche, false))
        || (touche.key() == Qt::Key_F10 && touche.modifiers() == Qt::ShiftModifier);
    if (menu)
        DemandeLeMenu();
    return menu;
}

void arbView::SelectionneEtMontre(Personne *personne)
{
    if (personne)
        doc->Selectionne(personne);
    const Personne *selection = doc->arbre->selection;
    if (!selection)
        return;
    if (!doc->canevasCalcule && isVisible())
        repaint();  // what is not measured cannot be scrolled to
    const int bord = BordDeLaMarque(doc->formats, echelleX);
    QRect place = PlaceSurPapier(*selection);
    place.setWidth(place.width() * selection->FacteurPhoto());
    Q_EMIT aMontrer(zoom.Rectangle(place.adjusted(-bord, -bord, bord, bord)));
}

void arbView::DemandeLeMenu()
{
    SelectionneEtMontre(nullptr);
    const QRect visible = visibleRegion().boundingRect();
    const Personne *selection = doc->arbre->selection;
    const QRect place = selection ? PlaceDe(*selection) & visible : visible;
    Q_EMIT menuAuClavier(selection ? 1 : 0, mapToGlobal((place.isEmpty() ? visible : place).center()));
}

void arbView::contextMenuEvent(QContextMenuEvent *evenement)
{
    // The mouse has its menu from the press of its button.
    if (doc->arbre && evenement->reason() == QContextMenuEvent::Keyboard)
        DemandeLeMenu();
    else
        QWidget::contextMenuEvent(evenement);
}

void arbView::focusInEvent(QFocusEvent *evenement)
{
    const Qt::FocusReason raison = evenement->reason();
    if (raison == Qt::TabFocusReason || raison == Qt::BacktabFocusReason || raison == Qt::ShortcutFocusReason)
        SeSertDuClavier(true);
    RedessineLeCadreDuClavier();
    AnnonceLaPersonneActive(*this);
}

void arbView::focusOutEvent(QFocusEvent * /*evenement*/)
{
    RedessineLeCadreDuClavier();
}

void arbView::SeSertDuClavier(bool auClavier)
{
    if (clavier == auClavier)
        return;
    clavier = auClavier;
    RedessineLeCadreDuClavier();
}

QRect arbView::CadreDuClavier() const
{
    if (!doc->arbre || !doc->arbre->selection)
        return {};
    const int bord = BordDeLaMarque(doc->formats, echelleX);
    const QRect marque = PlaceSurPapier(*doc->arbre->selection).adjusted(-bord, -bord, bord, bord);
    constexpr int autour = ecartDuCadre + epaisseurDuCadre;
    return zoom.Rectangle(marque).translated(-origine).adjusted(-autour, -autour, autour, autour);
}

void arbView::RedessineLeCadreDuClavier()
{
    update(CadreDuClavier());
}

void arbView::DessineLeCadreDuClavier(QPainter &painter) const
{
    const QRect place = CadreDuClavier();
    if (place.isEmpty() || !clavier || !hasFocus())
        return;
    const EtatPeintre etat(painter);
    painter.setPen(
        QPen(palette().color(QPalette::Text), epaisseurDuCadre, Qt::SolidLine, Qt::SquareCap, Qt::MiterJoin));
    painter.setBrush(Qt::NoBrush);
    painter.drawRect(place.adjusted(1, 1, -1, -1));
}
