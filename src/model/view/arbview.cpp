#include "arbview.h"

#include "accessiblevue.h"
#include "annuaire.h"
#include "arbre.h"
#include "etatpeintre.h"
#include "personne.h"
#include "ramelierdoc.h"
#include "unites.h"

#include <QMouseEvent>
#include <QPainter>

namespace {

/// What the window needs around the drawing when it first opens, in pixels.
constexpr int largeurReservee = 4;
constexpr int hauteurReservee = 85;

/// How long somebody may look for the next letter, in milliseconds.
constexpr int patienceDeLaRecherche = 1500;

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
    , recherche(patienceDeLaRecherche)
{
    setBackgroundRole(QPalette::Base);
    setFocusPolicy(Qt::StrongFocus);
    RendAccessible();
    resize(TaillePossible(parent->width() - largeurReservee, parent->height() - hauteurReservee));
    connect(doc, &RamelierDoc::documentChanged, this, &arbView::slotDocumentChanged);
    connect(doc, &RamelierDoc::personneSelectionnee, this, [this] { AnnonceLaSelection(*this); });
}

void arbView::PrendOrigine(QPoint point)
{
    if (origine == point)
        return;
    origine = point;
    update();
}

void arbView::PrendLeZoom(Zoom autre)
{
    if (zoom == autre)
        return;
    zoom = autre;
    if (doc->arbre && doc->canevasCalcule)
        PrendLaTailleDuCanevas();
    update();
}

QPoint arbView::PointDuDessin(const QMouseEvent &evenement) const
{
    return zoom.PointSurPapier(evenement.position().toPoint() + origine);
}

QRect arbView::PlaceSurPapier(const Personne &personne) const
{
    return {Coordonnee(personne.x), Coordonnee(personne.y), Coordonnee(Px(doc->formats.largeurCadre, echelleX)),
            Coordonnee(Px(doc->formats.hauteurCadre, echelleY))};
}

QRect arbView::PlaceDe(const Personne &personne) const
{
    return zoom.Rectangle(PlaceSurPapier(personne)).translated(-origine);
}

Personne *arbView::PersonneA(QPoint point) const
{
    if (!doc->arbre)
        return nullptr;
    const QPoint ici = zoom.PointSurPapier(point + origine);
    return doc->arbre->PersonneSous(ici.x(), ici.y(), echelleX, echelleY, doc->formats);
}

void arbView::PrendLaTailleDuCanevas()
{
    const long largeur = zoom.Longueur(doc->largeurCanevas);
    const long hauteur = zoom.Longueur(doc->hauteurCanevas);
    Q_EMIT canevasMesure(largeur, hauteur);
    resize(TaillePossible(largeur, hauteur));
}

void arbView::paintEvent(QPaintEvent *evenement)
{
    QPainter painter(this);
    if (!doc->arbre)
        return;
    if (!doc->canevasCalcule) {
        doc->CalcTailleCanevas(&painter, echelleX, echelleY);
        PrendLaTailleDuCanevas();
    }
    Dessine(painter, evenement->rect());
    DessineLeCadreDuClavier(painter);
}

void arbView::Dessine(QPainter &painter, const QRect &expose)
{
    const EtatPeintre etat(painter);
    painter.translate(-origine);
    if (!zoom.EstCommeSurLePapier()) {
        // Where a coordinate falls between two pixels, it goes to the same one wherever painting starts.
        constexpr double horsDesEgalites = 0.0013;
        painter.translate(horsDesEgalites, horsDesEgalites);
        painter.scale(zoom.Facteur(), zoom.Facteur());
        painter.setRenderHint(QPainter::SmoothPixmapTransform);
    }
    painter.setClipRect(zoom.RectangleSurPapier(expose.translated(origine)));
    doc->arbre->Affiche(&painter, echelleX, echelleY, false, doc->formats, doc->polices, doc->optionsParArbre);
    doc->AfficheTitre(&painter, echelleX, echelleY);
}

void arbView::mousePressEvent(QMouseEvent *evenement)
{
    SeSertDuClavier(false);
    if (!doc->arbre)
        return;
    const QPoint point = PointDuDessin(*evenement);
    if (evenement->button() == Qt::RightButton) {
        const Personne *selection = doc->arbre->selection;
        const bool surLaSelection =
            selection && selection->EstClique(point.x(), point.y(), echelleX, echelleY, doc->formats);
        Q_EMIT menuSurgissant(surLaSelection ? 1 : 0);
        return;
    }
    if (evenement->button() == Qt::LeftButton)
        doc->DeselectSelect(point.x(), point.y(), echelleX, echelleY);
    // A press on nobody, or of the middle button, is for the scroll area: the chart may be drawn along.
    if (evenement->button() != Qt::LeftButton || !doc->arbre->selection)
        evenement->ignore();
}

void arbView::mouseDoubleClickEvent(QMouseEvent *evenement)
{
    if (evenement->button() == Qt::LeftButton && doc->arbre && doc->arbre->selection)
        Q_EMIT personneDoubleCliquee();
    else if (doc->arbre)
        evenement->ignore();
}

void arbView::slotDocumentChanged(int code)
{
    switch (code) {
    case 0:
        recherche.Oublie();
        zoom = Zoom();
        Q_EMIT autresPersonnes();
        Q_EMIT canevasMesure(0, 0);
        resize(zoneDefilement->size());
        break;
    case 1:
        doc->PositionneLesPersonnes(echelleX, echelleY);
        doc->canevasCalcule = false;
        if (doc->arbre)
            (void)doc->arbre->SonAnnuaire();  // made now, so that no key waits for it
        Q_EMIT autresPersonnes();
        break;
    case 2:
        AnnonceLesTextes(*this);
        break;
    default:
        return;
    }
    update();
}
