#pragma once

#include "arbre.h"
#include "arbres.h"
#include "arbview.h"
#include "ramelierdoc.h"
#include "ramelierview.h"

#include <QScreen>
#include <QtTest>

/// The real document in the real view, which fills a window. Nothing is shown before Montre().
struct VueDEssai
{
    explicit VueDEssai(QSize taille = QSize(640, 480))
    {
        fenetre.resize(taille);
        defilement = new RamelierView(&fenetre, &doc);
        dessin = defilement->vue();
    }

    /// Puts \a arbre in the document, as one that changed.
    void Ouvre(std::unique_ptr<Arbre> arbre)
    {
        delete std::exchange(doc.arbre, arbre.release());
        Q_EMIT doc.documentChanged(1);
    }

    [[nodiscard]] bool Montre()
    {
        fenetre.show();
        return QTest::qWaitForWindowExposed(&fenetre);
    }

    /// What the screen really shows at this point of the drawing.
    [[nodiscard]] QColor ALEcran(int x, int y) const
    {
        const QPoint ici = dessin->mapTo(&fenetre, QPoint(x, y));
        return fenetre.screen()->grabWindow(fenetre.winId()).toImage().pixelColor(ici);
    }

    RamelierDoc doc{QString()};
    QWidget fenetre;
    RamelierView *defilement;
    arbView *dessin;
};

/// Counts how often a widget is painted.
class CompteDeDessins : public QObject
{
public:
    explicit CompteDeDessins(QWidget *aSuivre) { aSuivre->installEventFilter(this); }

    int nombre = 0;

protected:
    bool eventFilter(QObject *objet, QEvent *evenement) override
    {
        if (evenement->type() == QEvent::Paint)
            ++nombre;
        return QObject::eventFilter(objet, evenement);
    }
};
