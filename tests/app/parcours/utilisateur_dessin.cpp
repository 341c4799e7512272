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
#include <QMenu>

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
    if (!EstDessine(fenetre))
        qFatal("rien n'est dessiné");
    const Personne &personne = *Trouve(*fenetre.doc->arbre, numero);
    const QSize cadre = TailleDUnCadre(fenetre);
    return {static_cast<int>(personne.x) + cadre.width() / 2, static_cast<int>(personne.y) + cadre.height() / 2};
}

QList<quint64> Utilisateur::Occupants(QPoint point) const
{
    QList<quint64> occupants;
    const QSize cadre = TailleDUnCadre(fenetre);
    for (const Personne *personne = fenetre.doc->arbre->premiere; personne; personne = personne->suivante) {
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
    fenetre.view->ensureVisible(point.x(), point.y(), 20, 20);
    QTest::mouseClick(fenetre.view->vue(), Qt::LeftButton, {}, point);
}

void Utilisateur::CliqueSur(quint64 numero)
{
    const QPoint milieu = MilieuDe(numero);
    // Boxes lie over each other only where a photo came back without a new layout.
    if (Occupants(milieu).size() != 1)
        return Note("recouvert");
    MontreEtClique(milieu);
    modele.Selectionne(numero);
    Note(QString::number(numero));
}

void Utilisateur::SelectionnePersonne()
{
    if (!modele.arbreOuvert) {
        QTest::mouseClick(fenetre.view->vue(), Qt::LeftButton, {}, QPoint(10, 10));
        return Note("sans arbre");
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
        const QSize cadre = TailleDUnCadre(fenetre);
        const QPoint milieu = MilieuDe(tirage.Un(modele.contenu.personnes.keys()));
        const QPoint coin = milieu - QPoint(cadre.width() / 2, cadre.height() / 2);
        point = tirage.Chance(50) ? QPoint(coin.x(), milieu.y()) : QPoint(coin.x() + cadre.width(), milieu.y());
    } else {
        if (!EstDessine(fenetre))
            qFatal("rien n'est dessiné");
        const QSize dessin = fenetre.view->vue()->size();
        point = {tirage.Parmi(dessin.width()), tirage.Parmi(dessin.height())};
    }
    const QList<quint64> occupants = Occupants(point);
    if (occupants.size() > 1)
        return Note("recouvert");
    MontreEtClique(point);
    modele.Selectionne(occupants.isEmpty() ? 0 : occupants.constFirst());
    if (occupants.isEmpty())
        NoteLeFait("à côté");
    Note(QStringLiteral("(%1, %2)").arg(point.x()).arg(point.y()));
}

void Utilisateur::DoubleClique()
{
    // A sheet shown by a double click is another journey.
    SelectionnePersonne();
    if (!modele.arbreOuvert || modele.selection == 0 || (modele.consultation && !modele.Selection()[FicHtml].isEmpty()))
        return;
    const QPoint milieu = MilieuDe(modele.selection);
    const auto lance = [this, milieu] { QTest::mouseDClick(fenetre.view->vue(), Qt::LeftButton, {}, milieu); };
    if (modele.EnEdition())
        return ModifieLaSelection(lance);
    pilote.AttendBoite("Information",
                       "Il n'y a pas de fiche associée à la personne n°" + QString::number(modele.selection), "OK");
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
    const bool surUnePersonne = modele.selection != 0 && fenetre.popupPersonne->actions().contains(action);
    QMenu *menu = surUnePersonne ? fenetre.popupPersonne : fenetre.popupGeneral;
    if (!menu->actions().contains(action))
        return action->trigger();
    const QPoint point = surUnePersonne ? MilieuDe(modele.selection) : QPoint(1, 1);
    fenetre.view->ensureVisible(point.x(), point.y(), 20, 20);
    QTest::mouseClick(fenetre.view->vue(), Qt::RightButton, {}, point);
    if (menu->isVisible())
        NoteLeFait("par le menu");
    QTest::mouseClick(menu, Qt::LeftButton, {}, menu->actionGeometry(action).center());
    // A click on a disabled entry leaves the menu open.
    if (menu->isVisible())
        QTest::keyClick(menu, Qt::Key_Escape);
}
