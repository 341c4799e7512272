#include "fenetre.h"

#include "arbre.h"
#include "arbres.h"
#include "arbview.h"
#include "dlgpers.h"
#include "personne.h"
#include "ramelierdoc.h"
#include "ramelierview.h"

#include <QAction>
#include <QMenu>
#include <QWindow>

#include <poppler-qt6.h>

/// The window worked with the keyboard alone, from the file to the dialogs.
class TestClavier : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup();

    void lesTouchesVontAuDessinDesLOuverture();
    void lesCommandesSuiventCommeApresUnClic_data();
    void lesCommandesSuiventCommeApresUnClic();
    void entreeAfficheOuModifie();
    void onReprendApresUnDialogue();
    void leMenuSurgitSurLaPersonne_data();
    void leMenuSurgitSurLaPersonne();
    void lesRaccourcisRestentDesRaccourcis();
    void unAutreFichierReprendLaVraieTaille();
    void lAffichageReduitGardeSelectionEtTaille();
    void leZoomNeChangeNiLeFichierNiLImpression();

private:
    void Touche(Qt::Key touche, Qt::KeyboardModifiers avec = Qt::NoModifier)
    {
        QTest::keyClick(fenetre->windowHandle(), touche, avec);
    }
    /// What the desktop does when a dialog goes.
    void RevientALaFenetre();
    [[nodiscard]] quint64 Selection() const;
    [[nodiscard]] QList<QImage> Imprime(const QString &nom);

    std::unique_ptr<Dossier> dossier;
    std::unique_ptr<Fenetre> fenetre;
};

void TestClavier::init()
{
    EffaceReglages();
    dossier = std::make_unique<Dossier>();
    const QString chemin = dossier->Ecrit(
        "a.xrlg",
        ArbreEcrit("Les MARTIN", {{1, "MARTIN", "Paul"}, {2, "MARTIN", "Jean"}, {3, "LEFÈVRE", "Élise", "e.html"}}));
    fenetre = std::make_unique<Fenetre>(QStringList{chemin});
    QVERIFY(EstDessine(*fenetre));
    QVERIFY(QTest::qWaitForWindowActive(fenetre.get()));
}

void TestClavier::cleanup()
{
    fenetre.reset();
    dossier.reset();
}

void TestClavier::RevientALaFenetre()
{
    fenetre->activateWindow();
    QVERIFY(QTest::qWaitForWindowActive(fenetre.get()));
}

quint64 TestClavier::Selection() const
{
    const Personne *selection = fenetre->doc->arbre->selection;
    return selection ? selection->numero : 0;
}

void TestClavier::lesTouchesVontAuDessinDesLOuverture()
{
    Touche(Qt::Key_Home);
    QCOMPARE(Selection(), 1U);
    Touche(Qt::Key_Up, Qt::ShiftModifier);
    QCOMPARE(Selection(), 3U);
    Touche(Qt::Key_M);
    QCOMPARE(Selection(), 1U);
}

void TestClavier::lesCommandesSuiventCommeApresUnClic_data()
{
    QTest::addColumn<bool>("edition");
    QTest::newRow("consultation") << false;
    QTest::newRow("édition") << true;
}

void TestClavier::lesCommandesSuiventCommeApresUnClic()
{
    QFETCH(const bool, edition);
    if (edition)
        Touche(Qt::Key_F8);
    QStringList parClic;
    for (const quint64 numero : {1, 2, 3}) {
        CliqueDansLeVide(*fenetre);
        Clique(*fenetre, numero);
        parClic += ActionsActives(*fenetre).join(' ');
    }
    CliqueDansLeVide(*fenetre);
    QStringList auClavier;
    for (const Qt::Key touche : {Qt::Key_Home, Qt::Key_Up, Qt::Key_Right}) {
        Touche(touche);
        auClavier += ActionsActives(*fenetre).join(' ');
    }
    QCOMPARE(auClavier, parClic);
    QCOMPARE(parClic.at(1).contains("actAjouterPere"), edition);
    QVERIFY(parClic.at(0) != parClic.at(2));
}

void TestClavier::entreeAfficheOuModifie()
{
    Scenario scenario;
    scenario.Repond("OK");
    Touche(Qt::Key_2);
    Touche(Qt::Key_Return);
    QCOMPARE(scenario.Boites().size(), 1);
    QCOMPARE(scenario.Boites().first().texte, QStringLiteral("Il n'y a pas de fiche associée à la personne n°2"));
    RevientALaFenetre();
    Touche(Qt::Key_F8);
    scenario.Dialogue<DlgPers>([](DlgPers &dialogue) { dialogue.reject(); });
    Touche(Qt::Key_Enter, Qt::KeypadModifier);
    QCOMPARE(scenario.Ecarts(), QStringList());
}

void TestClavier::onReprendApresUnDialogue()
{
    Touche(Qt::Key_F8);
    Touche(Qt::Key_Home);
    Scenario scenario;
    scenario.Dialogue<DlgPers>([](DlgPers &dialogue) { dialogue.accept(); });
    Touche(Qt::Key_Return);
    QCOMPARE(scenario.Ecarts(), QStringList());
    RevientALaFenetre();
    QVERIFY(fenetre->view->vue()->hasFocus());
    Touche(Qt::Key_Up);
    QCOMPARE(Selection(), 2U);
}

void TestClavier::leMenuSurgitSurLaPersonne_data()
{
    QTest::addColumn<Qt::Key>("touche");
    QTest::addColumn<Qt::KeyboardModifiers>("avec");
    QTest::newRow("menu") << Qt::Key_Menu << Qt::KeyboardModifiers();
    QTest::newRow("maj F10") << Qt::Key_F10 << Qt::KeyboardModifiers(Qt::ShiftModifier);
}

void TestClavier::leMenuSurgitSurLaPersonne()
{
    QFETCH(const Qt::Key, touche);
    QFETCH(const Qt::KeyboardModifiers, avec);
    QCursor::setPos(fenetre->mapToGlobal(QPoint(2, 2)));
    Touche(touche, avec);
    QTRY_VERIFY(fenetre->popupGeneral->isVisible());
    QVERIFY(!fenetre->popupPersonne->isVisible());
    fenetre->popupGeneral->hide();
    Touche(Qt::Key_2);
    Touche(touche, avec);
    QTRY_VERIFY(fenetre->popupPersonne->isVisible());
    QVERIFY(!fenetre->popupGeneral->isVisible());
    const arbView &dessin = *fenetre->view->vue();
    const QRect place = dessin.PlaceDe(*fenetre->doc->arbre->selection);
    QCOMPARE(fenetre->popupPersonne->pos(), dessin.mapToGlobal(place.center()));
    fenetre->popupPersonne->hide();
}

void TestClavier::lesRaccourcisRestentDesRaccourcis()
{
    Touche(Qt::Key_F8);
    QVERIFY(!fenetre->modeConsultation);
    fenetre->doc->modifie = true;
    Touche(Qt::Key_S, Qt::ControlModifier);
    QVERIFY(!fenetre->doc->isModified());
    QCOMPARE(Selection(), 0U);
}

void TestClavier::unAutreFichierReprendLaVraieTaille()
{
    Touche(Qt::Key_Plus, Qt::ControlModifier);
    QCOMPARE(fenetre->view->vue()->SonZoom().Cran(), 1);
    Scenario scenario;
    Choisit(scenario, dossier->Ecrit("b.xrlg", ArbreEcrit("", {{1, "DURAND"}})));
    fenetre->slotFileOpen();
    QCOMPARE(scenario.Ecarts(), QStringList());
    QTRY_COMPARE(fenetre->view->vue()->size(), QSize(225, 270));
}

void TestClavier::lAffichageReduitGardeSelectionEtTaille()
{
    Touche(Qt::Key_2);
    Touche(Qt::Key_Minus, Qt::ControlModifier);
    fenetre->actModeAffichage->trigger();
    QTRY_VERIFY(fenetre->doc->canevasCalcule);
    QCOMPARE(Selection(), 2U);
    QCOMPARE(fenetre->view->vue()->SonZoom().Cran(), -1);
    Touche(Qt::Key_Right);
    QCOMPARE(Selection(), 3U);
}

QList<QImage> TestClavier::Imprime(const QString &nom)
{
    Scenario scenario;
    scenario.Repond("Fichier pdf");
    scenario.Dialogue<QDialog>([](QDialog &dialogue) {
        QMetaObject::invokeMethod(
            &dialogue, [&dialogue] { dialogue.accept(); }, Qt::QueuedConnection);
    });
    fenetre->slotFilePrint();
    QList<QImage> pages;
    if (!scenario.Ecarts().isEmpty())
        return pages;
    const auto pdf = Poppler::Document::load(dossier->Chemin(nom));
    for (int page = 0; pdf && page < pdf->numPages(); ++page)
        pages += pdf->page(page)->renderToImage(96, 96);
    return pages;
}

void TestClavier::leZoomNeChangeNiLeFichierNiLImpression()
{
    fenetre->slotFileSave();
    const QByteArray fichier = dossier->Lit("a.xrlg");
    const QList<QImage> pages = Imprime("a.pdf");
    QCOMPARE(pages.size(), 1);
    for (const Qt::Key touche : {Qt::Key_Plus, Qt::Key_Plus, Qt::Key_Minus, Qt::Key_Minus, Qt::Key_Minus}) {
        Touche(touche, Qt::ControlModifier);
        fenetre->view->vue()->repaint();
        QVERIFY(!fenetre->doc->isModified());
        QVERIFY(!fenetre->doc->areOptionsModified());
    }
    QCOMPARE(fenetre->view->vue()->SonZoom().Cran(), -1);
    QCOMPARE(Imprime("a.pdf"), pages);
    // And it is shown as small as before.
    QTRY_VERIFY(fenetre->doc->canevasCalcule);
    QCOMPARE(fenetre->view->vue()->SonZoom().Cran(), -1);
    fenetre->slotFileSave();
    QCOMPARE(dossier->Lit("a.xrlg").size(), fichier.size());
    QVERIFY(!dossier->Noms().contains("a.opt"));
}

RAMELIER_TEST_BUREAU_MAIN(TestClavier)
#include "tst_clavier.moc"
