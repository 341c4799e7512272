#pragma once

#include "marche.h"
#include "recherchetapee.h"
#include "zoom.h"

#include <QPoint>
#include <QWidget>

class Personne;
class RamelierDoc;

/// The drawing of the document's tree at the screen's true size, or larger or smaller as its user wants to see it. Turns
/// clicks and keys into selection changes, double clicks and context menus into signals, and has the tree laid out again
/// when the document says that it changed.
class arbView : public QWidget
{
    Q_OBJECT

public:
    /// As large as \a parent less fixed allowances for the window around it, until a tree is drawn.
    arbView(QWidget *parent, RamelierDoc *document);

    /// The point of the chart, in pixels, that stands in the corner of this widget: no widget can be as large as the
    /// largest charts.
    void PrendOrigine(QPoint point);
    /// Shows the chart in this size. A tree that goes leaves the true size to the next one.
    void PrendLeZoom(Zoom autre);
    [[nodiscard]] Zoom SonZoom() const { return zoom; }

    [[nodiscard]] RamelierDoc &Document() const { return *doc; }
    /// The box of \a personne in pixels of this widget; beyond its edges where the chart is larger than any widget.
    [[nodiscard]] QRect PlaceDe(const Personne &personne) const;
    /// Whose box holds this point of the widget; none beside all of them.
    [[nodiscard]] Personne *PersonneA(QPoint point) const;
    /// Selects \a personne, of the tree, as a click would, and has it scrolled into view.
    void SelectionneEtMontre(Personne *personne);
    /// Asks for the context menu of the selected person, scrolled into view, or for the general one.
    void DemandeLeMenu();

public Q_SLOTS:
    /// 0 the tree was removed: take the size of the scroll area; 1 lay out; 2 repaint only. Other codes do nothing.
    void slotDocumentChanged(int code);

Q_SIGNALS:
    /// Left double click while a person is selected, or the Enter key.
    void personneDoubleCliquee();
    /// Right click: 1 in the selected person's box, 0 elsewhere.
    void menuSurgissant(int lieu);
    /// The context menu was asked for by the keyboard: \a lieu as above, \a point of the screen to show it at.
    void menuAuClavier(int lieu, QPoint point);
    /// The size of the whole chart as it is shown, in pixels; 0 when there is none.
    void canevasMesure(long largeur, long hauteur);
    /// This part of the whole chart as it is shown, in pixels, is to be brought into view.
    void aMontrer(const QRect &zone);
    /// Others may be in the tree than before.
    void autresPersonnes();

protected:
    void paintEvent(QPaintEvent *evenement) override;
    void mousePressEvent(QMouseEvent *evenement) override;
    void mouseDoubleClickEvent(QMouseEvent *evenement) override;
    void keyPressEvent(QKeyEvent *evenement) override;
    void contextMenuEvent(QContextMenuEvent *evenement) override;
    void focusInEvent(QFocusEvent *evenement) override;
    void focusOutEvent(QFocusEvent *evenement) override;

private:
    void PrendLaTailleDuCanevas();
    [[nodiscard]] QPoint PointDuDessin(const QMouseEvent &evenement) const;
    [[nodiscard]] QRect PlaceSurPapier(const Personne &personne) const;
    void Dessine(QPainter &painter, const QRect &expose);
    /// The frame around the selected person's box and its mark, in pixels of this widget; null without a selection.
    [[nodiscard]] QRect CadreDuClavier() const;
    void RedessineLeCadreDuClavier();
    /// Draws it when the chart has the keyboard and the keyboard is used.
    void DessineLeCadreDuClavier(QPainter &painter) const;

    [[nodiscard]] bool Marche(const QKeyEvent &touche);
    [[nodiscard]] bool Cherche(const QKeyEvent &touche);
    [[nodiscard]] bool Commande(const QKeyEvent &touche);
    /// The keyboard, or the mouse (\a auClavier false), is what the chart is worked with.
    void SeSertDuClavier(bool auClavier);

    RamelierDoc *doc;
    QWidget *zoneDefilement;  ///< the scroll area that holds this widget
    QPoint origine;
    float echelleX;  ///< pixels per millimetre of this widget's device
    float echelleY;
    Zoom zoom;
    RechercheTapee recherche;
    bool clavier = false;  ///< the keyboard was used last
};
