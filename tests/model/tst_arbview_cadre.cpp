#include "environnement.h"
#include "personne.h"
#include "vuedessai.h"

#include <QApplication>
#include <QLineEdit>
#include <QScrollBar>
#include <QWindow>

/// The frame that shows where the keyboard is: around the mark of the root, whose box is 113 x 158 pixels at (131, 271).
class TestArbViewCadre : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup() { essai.reset(); }

    void uneToucheLeMontre();
    void unClicNeLeMontrePas();
    void unClicLeCache();
    void leFoyerVenuDuClavierLeMontre_data();
    void leFoyerVenuDuClavierLeMontre();
    void ilNeVaPasSansLeFoyer();
    void ilNeVaPasSansSelection();
    void ilSuitLeZoom();
    void ilResteNoirSurUnBureauSombre();
    void laTabulationNeFaitPasDefiler();

private:
    void Touche(Qt::Key touche);
    void CliqueSurLaRacine();
    [[nodiscard]] bool SeVoit() const;
    [[nodiscard]] QImage Image() const { return essai->dessin->grab().toImage(); }

    std::unique_ptr<VueDEssai> essai;
    QLineEdit *champ = nullptr;  ///< beside the chart
};

void TestArbViewCadre::init()
{
    essai = std::make_unique<VueDEssai>();
    champ = new QLineEdit(&essai->fenetre);
    champ->move(0, 450);
    essai->Ouvre(ArbreDeNumeros({1, 2, 3}));
    QVERIFY(essai->Montre());
    QVERIFY(QTest::qWaitForWindowActive(&essai->fenetre));
    QTRY_VERIFY(essai->doc.canevasCalcule);
    essai->dessin->setFocus(Qt::OtherFocusReason);
    QVERIFY(!SeVoit());
}

void TestArbViewCadre::Touche(Qt::Key touche)
{
    QTest::keyClick(essai->fenetre.windowHandle(), touche);
}

void TestArbViewCadre::CliqueSurLaRacine()
{
    const QPoint racine(180, 350);
    essai->defilement->ensureVisible(racine.x(), racine.y());
    QTest::mouseClick(essai->fenetre.windowHandle(), Qt::LeftButton, {}, essai->dessin->mapTo(&essai->fenetre, racine));
    QCOMPARE(essai->doc.arbre->selection, essai->doc.arbre->premiere);
}

/// Two black pixels between white ones, beside the mark on all four sides.
bool TestArbViewCadre::SeVoit() const
{
    const QImage image = Image();
    const auto trait = [&image](QPoint debut, QPoint pas) {
        QList<QColor> couleurs;
        for (int i = 0; i < 4; ++i)
            couleurs += image.pixelColor(debut + i * pas);
        return couleurs == QList<QColor>{Qt::white, Qt::black, Qt::black, Qt::white};
    };
    return trait({120, 300}, {1, 0}) && trait({251, 300}, {1, 0}) && trait({160, 260}, {0, 1})
        && trait({160, 436}, {0, 1});
}

void TestArbViewCadre::uneToucheLeMontre()
{
    Touche(Qt::Key_Home);
    QVERIFY(SeVoit());
}

void TestArbViewCadre::unClicNeLeMontrePas()
{
    CliqueSurLaRacine();
    QVERIFY(essai->dessin->hasFocus());
    const QImage sansFoyer = [this] {
        champ->setFocus(Qt::OtherFocusReason);
        return Image();
    }();
    QVERIFY(!essai->dessin->hasFocus());
    CliqueSurLaRacine();
    QVERIFY(essai->dessin->hasFocus());
    QCOMPARE(Image(), sansFoyer);
}

void TestArbViewCadre::unClicLeCache()
{
    Touche(Qt::Key_Home);
    QVERIFY(SeVoit());
    CliqueSurLaRacine();
    QVERIFY(!SeVoit());
    QTRY_COMPARE(essai->ALEcran(121, 300), QColor(Qt::white));
    Touche(Qt::Key_Home);
    QVERIFY(SeVoit());
    QTRY_COMPARE(essai->ALEcran(121, 300), QColor(Qt::black));
}

void TestArbViewCadre::leFoyerVenuDuClavierLeMontre_data()
{
    QTest::addColumn<Qt::FocusReason>("raison");
    QTest::addColumn<bool>("attendu");
    QTest::newRow("tabulation") << Qt::TabFocusReason << true;
    QTest::newRow("tabulation en arrière") << Qt::BacktabFocusReason << true;
    QTest::newRow("raccourci") << Qt::ShortcutFocusReason << true;
    QTest::newRow("souris") << Qt::MouseFocusReason << false;
    QTest::newRow("fenêtre") << Qt::ActiveWindowFocusReason << false;
    QTest::newRow("programme") << Qt::OtherFocusReason << false;
}

void TestArbViewCadre::leFoyerVenuDuClavierLeMontre()
{
    QFETCH(const Qt::FocusReason, raison);
    QFETCH(const bool, attendu);
    CliqueSurLaRacine();
    champ->setFocus(Qt::OtherFocusReason);
    essai->dessin->setFocus(raison);
    QVERIFY(essai->dessin->hasFocus());
    QCOMPARE(SeVoit(), attendu);
}

void TestArbViewCadre::ilNeVaPasSansLeFoyer()
{
    Touche(Qt::Key_Home);
    QVERIFY(SeVoit());
    champ->setFocus(Qt::OtherFocusReason);
    QVERIFY(!SeVoit());
    QTRY_COMPARE(essai->ALEcran(121, 300), QColor(Qt::white));
    // Another window comes before, and this one again: the keyboard is where it was.
    essai->dessin->setFocus(Qt::ActiveWindowFocusReason);
    QVERIFY(SeVoit());
}

void TestArbViewCadre::ilNeVaPasSansSelection()
{
    const QImage avant = Image();
    champ->setFocus(Qt::OtherFocusReason);
    essai->dessin->setFocus(Qt::TabFocusReason);
    QCOMPARE(Image(), avant);
}

void TestArbViewCadre::ilSuitLeZoom()
{
    Touche(Qt::Key_Home);
    essai->dessin->PrendLeZoom(Zoom(-3));
    // The box with its mark begins at (125, 265) on paper, 0.512 times that on the screen; the frame four pixels before.
    const QImage image = Image();
    QCOMPARE(image.pixelColor(59, 160), QColor(Qt::white));
    QCOMPARE(image.pixelColor(60, 160), QColor(Qt::black));
    QCOMPARE(image.pixelColor(61, 160), QColor(Qt::black));
    QCOMPARE(image.pixelColor(62, 160), QColor(Qt::white));
}

void TestArbViewCadre::ilResteNoirSurUnBureauSombre()
{
    const QPalette avant = QApplication::palette();
    QApplication::setPalette(QPalette(QColor(30, 30, 30)));
    Touche(Qt::Key_Home);
    const bool vu = SeVoit();
    QApplication::setPalette(avant);
    QVERIFY(vu);
}

void TestArbViewCadre::laTabulationNeFaitPasDefiler()
{
    essai->defilement->resize(200, 150);
    const QScrollBar *barre = essai->defilement->verticalScrollBar();
    QTRY_VERIFY(barre->maximum() > 100);
    CliqueSurLaRacine();
    essai->defilement->verticalScrollBar()->setValue(7);
    for (const bool auChamp : {true, false, true}) {
        Touche(Qt::Key_Tab);
        QCOMPARE(champ->hasFocus(), auChamp);
        QCOMPARE(essai->dessin->hasFocus(), !auChamp);
        QCOMPARE(barre->value(), 7);
    }
}

RAMELIER_TEST_MAIN(QApplication, TestArbViewCadre)
#include "tst_arbview_cadre.moc"
