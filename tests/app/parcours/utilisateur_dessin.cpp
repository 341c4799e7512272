#include "utilisateur.h"

#include "arbre.h"
#include "arbres.h"
#include "arbview.h"
#include "fenetre.h"
#include "personne.h"
#include "ramelierdoc.h"
#include "ramelierview.h"
#include "unites.h"

#include <QAction>
#include <QFileInfo>
#include <QMenu>
#include <QScrollBar>
#include <QStyleOptionSlider>

// Clicks on the drawing, and the context menus.

namespace {

QSize TailleDUnCadre(const Fenetre &fenetre)
{
    const float echelle = EchelleDeResolution(fenetre.view->vue()->logicalDpiX());
    const FormatsDessins &formats = fenetre.doc->formats;
    return {static_cast<int>(Px(formats.largeurCadre, echelle)), static_cast<int>(Px(formats.hauteurCadre, echelle))};
}

}  // namespace

QPoint Utilisateur::MilieuDe(quint64 numero)
{
    if (!EstDessine(*fenetre))
        qFatal("rien n'est dessiné");
    const Personne &personne = *Trouve(*fenetre->doc->arbre, numero);
    const QSize cadre = TailleDUnCadre(*fenetre);
    return {static_cast<int>(personne.x) + cadre.width() / 2, static_cast<int>(personne.y) + cadre.height() / 2};
}

QList<quint64> Utilisateur::Occupants(QPoint point) const
{
    QList<quint64> occupants;
    const QSize cadre = TailleDUnCadre(*fenetre);
    for (const Personne *personne = fenetre->doc->arbre->premiere; personne; personne = personne->suivante) {
        // Strictly inside: the border does not count.
        const QRect dedans(static_cast<int>(personne->x) + 1, static_cast<int>(personne->y) + 1, cadre.width() - 1,
                           cadre.height() - 1);
        if (dedans.contains(point))
            occupants += personne->numero;
    }
    return occupants;
}

void Utilisateur::MontreEtClique(QPoint point)
{
    fenetre->view->ensureVisible(point.x(), point.y(), 20, 20);
    QTest::mouseClick(fenetre->view->vue(), Qt::LeftButton, {}, point);
}

void Utilisateur::CliqueSur(quint64 numero)
{
    const QPoint milieu = MilieuDe(numero);
    // Boxes lie over each other only where a photo came back without a new layout.
    if (Occupants(milieu).size() != 1)
        return partie.Note("recouvert");
    MontreEtClique(milieu);
    modele.Selectionne(numero);
    partie.Note(QString::number(numero));
}

void Utilisateur::SelectionnePersonne()
{
    if (!modele.arbreOuvert) {
        QTest::mouseClick(fenetre->view->vue(), Qt::LeftButton, {}, QPoint(10, 10));
        return partie.Note("sans arbre");
    }
    CliqueSur(tirage.Un(modele.contenu.personnes.keys()));
}

void Utilisateur::CliqueACote()
{
    if (!modele.arbreOuvert)
        return SelectionnePersonne();
    QPoint point;
    if (tirage.Chance(50)) {
        // On the border of a box, the corner between two of its sides.
        const QSize cadre = TailleDUnCadre(*fenetre);
        const QPoint milieu = MilieuDe(tirage.Un(modele.contenu.personnes.keys()));
        const QPoint coin = milieu - QPoint(cadre.width() / 2, cadre.height() / 2);
        point = tirage.Chance(50) ? QPoint(coin.x(), milieu.y()) : QPoint(coin.x() + cadre.width(), milieu.y());
    } else {
        if (!EstDessine(*fenetre))
            qFatal("rien n'est dessiné");
        const QSize dessin = fenetre->view->vue()->size();
        point = {tirage.Parmi(dessin.width()), tirage.Parmi(dessin.height())};
    }
    const QList<quint64> occupants = Occupants(point);
    if (occupants.size() > 1)
        return partie.Note("recouvert");
    MontreEtClique(point);
    modele.Selectionne(occupants.isEmpty() ? 0 : occupants.constFirst());
    if (occupants.isEmpty())
        partie.NoteLeFait("à côté");
    partie.Note(QStringLiteral("(%1, %2)").arg(point.x()).arg(point.y()));
}

void Utilisateur::DoubleClique()
{
    SelectionnePersonne();
    if (!modele.arbreOuvert || modele.selection == 0)
        return;
    const bool fiche = modele.consultation && !modele.Selection()[FicHtml].isEmpty();
    if (fiche && fiches.Complet())
        return partie.Note("assez de fenêtres");
    const QPoint milieu = MilieuDe(modele.selection);
    const auto lance = [this, milieu] { QTest::mouseDClick(fenetre->view->vue(), Qt::LeftButton, {}, milieu); };
    if (modele.EnEdition())
        return ModifieLaSelection(lance);
    const QString numero = QString::number(modele.selection);
    if (fiche) {
        PrevoitAffichage();
        lance();
        if (!QFileInfo(modele.dernierRep + '/' + modele.Selection()[FicHtml]).isFile())
            return;
        ecartDuGeste = fiches.ConstateLAfficheur("Ramelier 5.1 - fiche associée à la personne n° " + numero + " - ");
        return partie.NoteLeFait("fiche par un double clic");
    }
    pilote.AttendBoite("Information", "Il n'y a pas de fiche associée à la personne n°" + numero, "OK");
    partie.NoteLeFait("double clic sans fiche");
    lance();
}

void Utilisateur::Lance(QAction *action)
{
    if (modele.arbreOuvert && tirage.Chance(8))
        return LanceParLeMenu(action);
    // A disabled action does nothing here, as in a menu.
    action->trigger();
}

void Utilisateur::LanceParLeMenu(QAction *action)
{
    const bool surUnePersonne = modele.selection != 0 && fenetre->popupPersonne->actions().contains(action);
    QMenu *menu = surUnePersonne ? fenetre->popupPersonne : fenetre->popupGeneral;
    if (!menu->actions().contains(action))
        return action->trigger();
    const QPoint point = surUnePersonne ? MilieuDe(modele.selection) : QPoint(1, 1);
    fenetre->view->ensureVisible(point.x(), point.y(), 20, 20);
    QTest::mouseClick(fenetre->view->vue(), Qt::RightButton, {}, point);
    if (menu->isVisible())
        partie.NoteLeFait("par le menu");
    QTest::mouseClick(menu, Qt::LeftButton, {}, menu->actionGeometry(action).center());
    // A click on a disabled entry leaves the menu open.
    if (menu->isVisible())
        QTest::keyClick(menu, Qt::Key_Escape);
}

void Utilisateur::TireUneBarre()
{
    QScrollBar &barre = tirage.Chance(50) ? *fenetre->view->horizontalScrollBar() : *fenetre->view->verticalScrollBar();
    if (barre.maximum() == 0)
        return partie.Note("rien à faire défiler");
    QStyleOptionSlider option;
    option.initFrom(&barre);
    option.orientation = barre.orientation();
    option.minimum = barre.minimum();
    option.maximum = barre.maximum();
    option.sliderPosition = option.sliderValue = barre.value();
    option.pageStep = barre.pageStep();
    option.singleStep = barre.singleStep();
    const QPoint prise =
        barre.style()->subControlRect(QStyle::CC_ScrollBar, &option, QStyle::SC_ScrollBarSlider, &barre).center();
    const QPoint but(tirage.Parmi(barre.width()), tirage.Parmi(barre.height()));
    QTest::mousePress(&barre, Qt::LeftButton, {}, prise);
    QTest::mouseMove(&barre, but);
    QTest::mouseRelease(&barre, Qt::LeftButton, {}, but);
    const int place = barre.orientation() == Qt::Horizontal ? fenetre->view->vue()->x() : fenetre->view->vue()->y();
    const QSize canevas(static_cast<int>(fenetre->doc->largeurCanevas), static_cast<int>(fenetre->doc->hauteurCanevas));
    // Larger than a widget may be, the drawing does not follow the bar point by point.
    if (canevas.width() <= QWIDGETSIZE_MAX && canevas.height() <= QWIDGETSIZE_MAX && place != -barre.value())
        ecartDuGeste = QStringLiteral("dessin en %1 pour une barre à %2").arg(place).arg(barre.value());
    partie.NoteLeFait("défilé");
}

void Utilisateur::ChangeLaTaille()
{
    const QSize taille(300 + tirage.Parmi(900), 250 + tirage.Parmi(700));
    fenetre->resize(taille);
    if (tirage.Chance(10)) {
        fenetre->showMinimized();
        fenetre->showNormal();
    }
    partie.NoteLeFait("autre taille");
}
