#include "environnement.h"
#include "infopersonne.h"
#include "personne.h"
#include "vuedessai.h"

#include <QAccessible>
#include <QAccessibleActionInterface>
#include <QApplication>
#include <QDialog>
#include <QScrollBar>

/// Father 2 with parents 4 and 5, mother 3: the chart as assistive tools ask for it and hear of it.
class TestArbViewAccessible : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup() { essai.reset(); }

    void leDessinEstUneListe();
    void chacunDitSonNomEtSesDates_data();
    void chacunDitSonNomEtSesDates();
    void chacunEstASaPlaceSurLEcran_data();
    void chacunEstASaPlaceSurLEcran();
    void lEtatSuitLaSelectionEtLeFoyer();
    void quiEstHorsDeVueLeDit();
    void onLesParcourt();
    void sansArbreLaListeEstVide();
    void onChoisitParUneAction_data();
    void onChoisitParUneAction();
    void pendantUneQuestionRienNeChange();
    void lesAbsentsNeSontPlusValides();
    void unParentProvisoireDisparait();
    void unAutreArbreLibereTout();
    void lesNumerosEnDoubleSeDistinguent();
    void laListeSurvitASonDessin();

private:
    [[nodiscard]] QAccessibleInterface *Liste() const { return QAccessible::queryAccessibleInterface(essai->dessin); }
    [[nodiscard]] QAccessibleInterface *Enfant(int rang) const { return Liste()->child(rang); }
    [[nodiscard]] QStringList Noms() const;
    void Selectionne(quint64 numero) { essai->doc.Selectionne(Trouve(*essai->doc.arbre, numero)); }

    std::unique_ptr<VueDEssai> essai;
};

void TestArbViewAccessible::init()
{
    essai = std::make_unique<VueDEssai>();
    auto arbre = ArbreDeNumeros({1, 2, 3, 4, 5});
    arbre->infoArbre->titrearbre = QStringLiteral("Les MARTIN");
    essai->Ouvre(std::move(arbre));
    QVERIFY(essai->Montre());
    QVERIFY(QTest::qWaitForWindowActive(&essai->fenetre));
    QTRY_VERIFY(essai->doc.canevasCalcule);
    essai->dessin->setFocus();
}

QStringList TestArbViewAccessible::Noms() const
{
    QStringList noms;
    for (int i = 0; i < Liste()->childCount(); ++i)
        noms += Enfant(i)->text(QAccessible::Name);
    return noms;
}

void TestArbViewAccessible::leDessinEstUneListe()
{
    QCOMPARE(Liste()->role(), QAccessible::List);
    QCOMPARE(Liste()->text(QAccessible::Name), QStringLiteral("Arbre généalogique : Les MARTIN"));
    QCOMPARE(Liste()->childCount(), 5);
    QCOMPARE(Noms(), QStringList({"N1, n° 1", "N2, n° 2", "N3, n° 3", "N4, n° 4", "N5, n° 5"}));
    QVERIFY(!Enfant(5));
    QVERIFY(!Enfant(-1));
    essai->doc.arbre->infoArbre->titrearbre.clear();
    QCOMPARE(Liste()->text(QAccessible::Name), QStringLiteral("Arbre généalogique"));
}

void TestArbViewAccessible::chacunDitSonNomEtSesDates_data()
{
    QTest::addColumn<InfoPersonne>("info");
    QTest::addColumn<QString>("nom");
    QTest::addColumn<QString>("description");
    const auto ligne = [](const char *cas, const QStringList &textes, const char *nom, const char *description) {
        const InfoPersonne info(textes.at(0), textes.at(1), textes.at(2), textes.at(3), textes.at(4), textes.at(5),
                                textes.at(6), "fiche.html", "photo.png", InfoPersonne::PhotoNonEssayee);
        QTest::newRow(cas) << info << nom << description;
    };
    ligne("tout", {"LEFÈVRE", "Élise", "1er mai 1900", "Lyon", "vers 1970", "Paris", "Notaire"}, "Élise LEFÈVRE, n° 2",
          "naissance : 1er mai 1900, Lyon ; décès : vers 1970, Paris ; Notaire");
    ligne("sans prénom", {"LEFÈVRE", "", "", "", "", "", ""}, "LEFÈVRE, n° 2", "");
    ligne("sans nom", {"", "Élise", "", "Lyon", "", "", ""}, "Élise, n° 2", "naissance : Lyon");
    ligne("rien", {"", "", "", "", "1970", "", ""}, "n° 2", "décès : 1970");
}

void TestArbViewAccessible::chacunDitSonNomEtSesDates()
{
    QFETCH(const InfoPersonne, info);
    QFETCH(const QString, nom);
    QFETCH(const QString, description);
    *Trouve(*essai->doc.arbre, 2)->info = info;
    const QAccessibleInterface *enfant = Enfant(1);
    QCOMPARE(enfant->role(), QAccessible::ListItem);
    QCOMPARE(enfant->text(QAccessible::Name), nom);
    QCOMPARE(enfant->text(QAccessible::Description), description);
    QCOMPARE(enfant->text(QAccessible::Value), QString());
    delete std::exchange(Trouve(*essai->doc.arbre, 2)->info, nullptr);
    QCOMPARE(enfant->text(QAccessible::Name), QStringLiteral("n° 2"));
    QCOMPARE(enfant->text(QAccessible::Description), QString());
}

void TestArbViewAccessible::chacunEstASaPlaceSurLEcran_data()
{
    QTest::addColumn<int>("cran");
    QTest::addColumn<QPoint>("defile");
    QTest::addColumn<QRect>("place");
    // Father 2 stands between his parents, at (131, 271) with boxes of 113 x 158.
    QTest::newRow("comme sur le papier") << 0 << QPoint() << QRect(131, 271, 113, 158);
    QTest::newRow("défilé") << 0 << QPoint(0, 100) << QRect(131, 171, 113, 158);
    QTest::newRow("agrandi et défilé") << 1 << QPoint(30, 100) << QRect(133, 238, 142, 199);
}

void TestArbViewAccessible::chacunEstASaPlaceSurLEcran()
{
    QFETCH(const int, cran);
    QFETCH(const QPoint, defile);
    QFETCH(const QRect, place);
    essai->defilement->resize(300, 400);
    essai->dessin->PrendLeZoom(Zoom(cran));
    essai->defilement->horizontalScrollBar()->setValue(defile.x());
    essai->defilement->verticalScrollBar()->setValue(defile.y());
    const QPoint coin = essai->defilement->viewport()->mapToGlobal(QPoint());
    QAccessibleInterface *enfant = Enfant(1);
    QCOMPARE(enfant->rect(), place.translated(coin));
    QCOMPARE(Liste()->childAt(coin.x() + place.center().x(), coin.y() + place.center().y()), enfant);
    QVERIFY(!Liste()->childAt(coin.x() + place.left() - 4, coin.y() + place.center().y()));
    QVERIFY(!Liste()->childAt(coin.x() + place.center().x(), coin.y() - 50));
}

void TestArbViewAccessible::lEtatSuitLaSelectionEtLeFoyer()
{
    const auto etat = [this](int rang) {
        const QAccessible::State e = Enfant(rang)->state();
        return QStringLiteral("%1%2%3%4").arg(e.selectable).arg(e.selected).arg(e.focusable).arg(e.focused);
    };
    QCOMPARE(etat(1), QStringLiteral("1010"));
    Selectionne(2);
    QCOMPARE(etat(1), QStringLiteral("1111"));
    QCOMPARE(etat(2), QStringLiteral("1010"));
    QCOMPARE(Liste()->focusChild(), Enfant(1));
    QVERIFY(Liste()->state().focused);
    essai->dessin->clearFocus();
    QCOMPARE(etat(1), QStringLiteral("1110"));
    QVERIFY(!Liste()->focusChild());
    essai->dessin->setFocus();
    essai->doc.Selectionne(nullptr);
    QCOMPARE(Liste()->focusChild(), Liste());
}

void TestArbViewAccessible::quiEstHorsDeVueLeDit()
{
    essai->defilement->resize(300, 300);
    QVERIFY(!Enfant(3)->state().offscreen);
    QVERIFY(Enfant(0)->state().offscreen);
    essai->defilement->verticalScrollBar()->setValue(1000);
    QVERIFY(Enfant(3)->state().offscreen);
    QVERIFY(!Enfant(0)->state().offscreen);
    QVERIFY(!Enfant(0)->state().invisible);
    essai->doc.arbre->premiere->affichable = false;
    QVERIFY(Enfant(0)->state().invisible);
}

void TestArbViewAccessible::onLesParcourt()
{
    for (int rang = 0; rang < 5; ++rang) {
        QAccessibleInterface *enfant = Enfant(rang);
        QVERIFY(enfant && enfant->isValid());
        QCOMPARE(Enfant(rang), enfant);
        QCOMPARE(Liste()->indexOfChild(enfant), rang);
        QCOMPARE(enfant->parent(), Liste());
        QCOMPARE(enfant->childCount(), 0);
        QVERIFY(!enfant->child(0));
        QVERIFY(!enfant->childAt(1, 1));
        QCOMPARE(enfant->indexOfChild(Liste()), -1);
        QCOMPARE(enfant->window(), essai->fenetre.windowHandle());
        QVERIFY(!enfant->object());
        QCOMPARE(QAccessible::accessibleInterface(QAccessible::uniqueId(enfant)), enfant);
    }
    QCOMPARE(Liste()->indexOfChild(Liste()), -1);
    // From the window down to it.
    const QAccessibleInterface *parent = Liste()->parent();
    QVERIFY(parent && parent->indexOfChild(Liste()) >= 0);
}

void TestArbViewAccessible::sansArbreLaListeEstVide()
{
    const QAccessible::Id id = QAccessible::uniqueId(Enfant(1));
    delete std::exchange(essai->doc.arbre, nullptr);
    Q_EMIT essai->doc.documentChanged(0);
    QVERIFY(!QAccessible::accessibleInterface(id));
    QCOMPARE(Liste()->childCount(), 0);
    QVERIFY(!Enfant(0));
    QVERIFY(!Liste()->childAt(100, 100));
    QCOMPARE(Liste()->focusChild(), Liste());
    QCOMPARE(Liste()->text(QAccessible::Name), QStringLiteral("Arbre généalogique"));
}

void TestArbViewAccessible::onChoisitParUneAction_data()
{
    QTest::addColumn<QString>("action");
    QTest::addColumn<bool>("choisit");
    QTest::addColumn<int>("menus");
    QTest::newRow("appuyer") << QAccessibleActionInterface::pressAction() << true << 0;
    QTest::newRow("donner le foyer") << QAccessibleActionInterface::setFocusAction() << true << 0;
    QTest::newRow("menu") << QAccessibleActionInterface::showMenuAction() << true << 1;
    QTest::newRow("inconnue") << QStringLiteral("Danser") << false << 0;
}

void TestArbViewAccessible::onChoisitParUneAction()
{
    QFETCH(const QString, action);
    QFETCH(const bool, choisit);
    QFETCH(const int, menus);
    essai->defilement->resize(200, 200);
    essai->dessin->clearFocus();
    QSignalSpy selections(&essai->doc, &RamelierDoc::personneSelectionnee);
    QSignalSpy demandes(essai->dessin, &arbView::menuAuClavier);
    QAccessibleActionInterface *actions = Enfant(2)->actionInterface();
    QVERIFY(actions);
    QCOMPARE(actions->actionNames().contains(action), choisit);
    QCOMPARE(actions->keyBindingsForAction(action), QStringList());
    actions->doAction(action);
    QCOMPARE(essai->doc.arbre->selection == Trouve(*essai->doc.arbre, 3), choisit);
    QCOMPARE(selections.size(), choisit ? 1 : 0);
    QCOMPARE(essai->dessin->hasFocus(), choisit);
    QCOMPARE(demandes.size(), menus);
    QCOMPARE(!Enfant(2)->state().offscreen, choisit);
}

void TestArbViewAccessible::pendantUneQuestionRienNeChange()
{
    QDialog question(&essai->fenetre);
    question.setModal(true);
    question.show();
    QVERIFY(QApplication::activeModalWidget());
    Enfant(2)->actionInterface()->doAction(QAccessibleActionInterface::pressAction());
    QVERIFY(!essai->doc.arbre->selection);
}

void TestArbViewAccessible::lesAbsentsNeSontPlusValides()
{
    QAccessibleInterface *quatre = Enfant(3);
    QAccessibleInterface *cinq = Enfant(4);
    const QAccessible::Id id = QAccessible::uniqueId(quatre);
    Arbre &arbre = *essai->doc.arbre;
    arbre.Selectionne(Trouve(arbre, 4));
    arbre.SupprimePersonne();
    // Before the chart is told.
    QVERIFY(!quatre->isValid());
    QVERIFY(quatre->state().invalid);
    QCOMPARE(quatre->rect(), QRect());
    QCOMPARE(quatre->text(QAccessible::Name), QString());
    QCOMPARE(Liste()->indexOfChild(quatre), -1);
    quatre->actionInterface()->doAction(QAccessibleActionInterface::pressAction());
    QVERIFY(!arbre.selection);
    QVERIFY(cinq->isValid());
    QCOMPARE(Liste()->indexOfChild(cinq), 3);
    QCOMPARE(cinq->text(QAccessible::Name), QStringLiteral("N5, n° 5"));
    Q_EMIT essai->doc.documentChanged(1);
    QVERIFY(!QAccessible::accessibleInterface(id));
    QCOMPARE(Noms(), QStringList({"N1, n° 1", "N2, n° 2", "N3, n° 3", "N5, n° 5"}));
}

void TestArbViewAccessible::unParentProvisoireDisparait()
{
    // As when the dialog of a new person is open: nobody is told of it.
    Arbre &arbre = *essai->doc.arbre;
    Personne *provisoire = arbre.AjoutePersonne(Trouve(arbre, 3), true);
    QCOMPARE(Liste()->childCount(), 6);
    const QAccessibleInterface *six = Enfant(5);
    QCOMPARE(six->text(QAccessible::Name), QStringLiteral("n° 6"));
    arbre.Selectionne(provisoire);
    arbre.SupprimePersonne();
    QVERIFY(!six->isValid());
    QCOMPARE(Liste()->childCount(), 5);
    QVERIFY(!Enfant(5));
}

void TestArbViewAccessible::unAutreArbreLibereTout()
{
    QList<QAccessible::Id> ids;
    for (int rang = 0; rang < 5; ++rang)
        ids += QAccessible::uniqueId(Enfant(rang));
    essai->Ouvre(ArbreDeNumeros({1, 3}));
    for (const QAccessible::Id id : ids)
        QVERIFY(!QAccessible::accessibleInterface(id));
    QCOMPARE(Noms(), QStringList({"N1, n° 1", "N3, n° 3"}));
}

void TestArbViewAccessible::lesNumerosEnDoubleSeDistinguent()
{
    auto arbre = ArbreDeNumeros({1, 2, 3});
    for (Personne *personne = arbre->premiere; personne; personne = personne->suivante)
        personne->numero = 7;
    essai->Ouvre(std::move(arbre));
    QCOMPARE(Noms(), QStringList({"N1, n° 7", "N2, n° 7", "N3, n° 7"}));
    for (int rang = 0; rang < 3; ++rang) {
        QCOMPARE(Liste()->indexOfChild(Enfant(rang)), rang);
        Enfant(rang)->actionInterface()->doAction(QAccessibleActionInterface::pressAction());
        QVERIFY(Enfant(rang)->state().selected);
        QCOMPARE(Liste()->focusChild(), Enfant(rang));
    }
}

void TestArbViewAccessible::laListeSurvitASonDessin()
{
    const QAccessible::Id liste = QAccessible::uniqueId(Liste());
    const QAccessible::Id enfant = QAccessible::uniqueId(Enfant(2));
    essai.reset();
    QVERIFY(!QAccessible::accessibleInterface(liste));
    QVERIFY(!QAccessible::accessibleInterface(enfant));
}

RAMELIER_TEST_MAIN(QApplication, TestArbViewAccessible)
#include "tst_arbview_accessible.moc"
