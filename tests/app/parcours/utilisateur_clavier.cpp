#include "utilisateur.h"

#include "arbview.h"
#include "fenetre.h"
#include "ramelierview.h"

#include <bit>

// The chart under the keyboard.

namespace {

struct Fleche
{
    QString nom;
    Qt::Key touche;
    Qt::KeyboardModifiers avec = Qt::NoModifier;
};

const QList<Fleche> &Fleches()
{
    static const QList<Fleche> fleches{{"haut", Qt::Key_Up},      {"maj haut", Qt::Key_Up, Qt::ShiftModifier},
                                       {"bas", Qt::Key_Down},     {"gauche", Qt::Key_Left},
                                       {"droite", Qt::Key_Right}, {"début", Qt::Key_Home}};
    return fleches;
}

/// Whom the arrow leads to from person \a depuis among these; 0 where nobody stands there.
quint64 Arrivee(const Fleche &fleche, quint64 depuis, const QList<quint64> &numeros)
{
    const auto siPresent = [&numeros](quint64 numero) { return numeros.contains(numero) ? numero : 0; };
    if (depuis == 0 || fleche.touche == Qt::Key_Home)
        return numeros.constFirst();
    if (fleche.touche == Qt::Key_Down)
        return siPresent(depuis / 2);
    if (fleche.touche == Qt::Key_Up) {
        const quint64 autre = fleche.avec == Qt::ShiftModifier ? 1 : 0;
        const quint64 voulu = siPresent(2 * depuis + autre);
        return voulu != 0 ? voulu : siPresent(2 * depuis + 1 - autre);
    }
    const qsizetype place = numeros.indexOf(depuis) + (fleche.touche == Qt::Key_Left ? -1 : 1);
    const quint64 voisin = place >= 0 && place < numeros.size() ? numeros.at(place) : 0;
    return std::bit_width(voisin) == std::bit_width(depuis) ? voisin : 0;
}

}  // namespace

void Utilisateur::SuitUneFleche()
{
    const Fleche &fleche = tirage.Un(Fleches());
    QTest::keyClick(fenetre->view->vue(), fleche.touche, fleche.avec);
    partie.Note(fleche.nom);
    if (!modele.arbreOuvert)
        return;
    const quint64 numero = Arrivee(fleche, modele.selection, modele.contenu.personnes.keys());
    if (numero == 0 || numero == modele.selection)
        return partie.NoteLeFait("bout de l'arbre");
    modele.Selectionne(numero);
    partie.NoteLeFait("flèche suivie");
    partie.Note(QString::number(numero));
}

void Utilisateur::TapeUnNumero()
{
    if (!modele.arbreOuvert)
        return SuitUneFleche();
    const quint64 numero = tirage.Un(modele.contenu.personnes.keys());
    // The first of its digits may lead elsewhere, and back.
    if (numero == modele.selection)
        return partie.Note("déjà là");
    QTest::keyClick(fenetre->view->vue(), Qt::Key_Escape);
    QTest::keyClicks(fenetre->view->vue(), QString::number(numero));
    modele.Selectionne(numero);
    partie.NoteLeFait("numéro tapé");
    partie.Note(QString::number(numero));
}
