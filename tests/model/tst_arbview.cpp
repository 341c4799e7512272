#include "environnement.h"
#include "infopersonne.h"
#include "personne.h"
#include "vuedessai.h"

#include <QApplication>
#include <QScrollBar>

/// At 96 dots per inch: boxes of 113 x 158 pixels, margins of 56.
class TestArbView : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void laTailleInitialeVientDuParent_data();
    void laTailleInitialeVientDuParent();
    void leDessinEstDansLaZoneDeDefilement();
    void lEchelleVientDeLaResolution();
    void lePremierDessinPrendLaTailleDuCanevas();
    void leCanevasNEstMesureQuUneFois();
    void desAscenseursMenentAuResteDuDessin();
    void toutLeDessinEstALEcran();
    void codeZeroReprendLaTailleDeLaZone();
    void codeZeroEffaceSansChangerDeTaille();
    void codeUnDisposeEtRemesure();
    void codeDeuxNeFaitQueRedessiner();
    void lesAutresCodesNeFontRien_data();
    void lesAutresCodesNeFontRien();
    void dessinerNeDisposeJamais();
    void codeUnSansArbreNeFaitRien();
    void laTailleResteDansLesLimites_data();
    void laTailleResteDansLesLimites();
    void leModeReduitSuitLeDocument();
    void leTitreEstDessine();
};

void TestArbView::laTailleInitialeVientDuParent_data()
{
    QTest::addColumn<QSize>("parent");
    QTest::addColumn<QSize>("attendue");
    QTest::newRow("fenêtre") << QSize(640, 480) << QSize(636, 395);
    QTest::newRow("grande") << QSize(1600, 1200) << QSize(1596, 1115);
    QTest::newRow("à peine plus grande") << QSize(6, 87) << QSize(2, 2);
    QTest::newRow("trop petite") << QSize(3, 60) << QSize(1, 1);
}

void TestArbView::laTailleInitialeVientDuParent()
{
    QFETCH(QSize, parent);
    QFETCH(QSize, attendue);
    const VueDEssai essai(parent);
    QCOMPARE(essai.dessin->size(), attendue);

    QWidget autreParent;
    autreParent.resize(parent);
    RamelierDoc doc{QString()};
    QCOMPARE(arbView(&autreParent, &doc).size(), attendue);
}

void TestArbView::leDessinEstDansLaZoneDeDefilement()
{
    const VueDEssai essai;
    QCOMPARE(essai.defilement->widget(), essai.dessin);
    QVERIFY(!essai.defilement->widgetResizable());
    QCOMPARE(essai.dessin->backgroundRole(), QPalette::Base);
}

void TestArbView::lEchelleVientDeLaResolution()
{
    VueDEssai essai;
    QCOMPARE(essai.dessin->logicalDpiX(), 96);
    QCOMPARE(essai.dessin->logicalDpiY(), 96);
    essai.Ouvre(ArbreDeNumeros({1, 2, 3}));
    const Arbre &arbre = *essai.doc.arbre;
    QCOMPARE(Trouve(arbre, 2)->x, 56);
    QCOMPARE(Trouve(arbre, 2)->y, 56);
    QCOMPARE(Trouve(arbre, 3)->x, 207);
    QCOMPARE(Trouve(arbre, 1)->x, 131);
    QCOMPARE(Trouve(arbre, 1)->y, 271);
}

void TestArbView::lePremierDessinPrendLaTailleDuCanevas()
{
    VueDEssai essai;
    essai.Ouvre(ArbreDeNumeros({1}));
    QVERIFY(!essai.doc.canevasCalcule);
    QCOMPARE(essai.dessin->size(), QSize(636, 395));
    QVERIFY(essai.Montre());
    QTRY_VERIFY(essai.doc.canevasCalcule);
    QCOMPARE(essai.doc.largeurCanevas, 225);
    QCOMPARE(essai.doc.hauteurCanevas, 270);
    QCOMPARE(essai.dessin->size(), QSize(225, 270));
}

void TestArbView::leCanevasNEstMesureQuUneFois()
{
    VueDEssai essai;
    essai.Ouvre(ArbreDeNumeros({1}));
    QVERIFY(essai.Montre());
    QTRY_VERIFY(essai.doc.canevasCalcule);
    essai.doc.largeurCanevas = 1234;
    CompteDeDessins compte(essai.dessin);
    essai.dessin->repaint();
    QCOMPARE(compte.nombre, 1);
    QCOMPARE(essai.doc.largeurCanevas, 1234);
    QCOMPARE(essai.dessin->size(), QSize(225, 270));
}

void TestArbView::desAscenseursMenentAuResteDuDessin()
{
    VueDEssai essai(QSize(200, 150));
    essai.Ouvre(ArbreDeNumeros({1}));
    QVERIFY(essai.Montre());
    QTRY_COMPARE(essai.dessin->size(), QSize(225, 270));
    const QSize fenetre = essai.defilement->viewport()->size();
    QTRY_COMPARE(essai.defilement->horizontalScrollBar()->maximum(), 225 - fenetre.width());
    QCOMPARE(essai.defilement->verticalScrollBar()->maximum(), 270 - fenetre.height());
    QTRY_VERIFY(essai.defilement->verticalScrollBar()->isVisible());
}

void TestArbView::toutLeDessinEstALEcran()
{
    // The widget starts smaller than the drawing: what it gains while it is painted must be painted too.
    VueDEssai essai(QSize(400, 120));
    QVERIFY(essai.Montre());
    essai.fenetre.resize(400, 400);
    essai.defilement->resize(400, 400);
    essai.Ouvre(ArbreDeNumeros({1}));
    QTRY_COMPARE(essai.dessin->size(), QSize(225, 270));
    QTRY_COMPARE(essai.ALEcran(100, 214), QColor(Qt::black));
    QCOMPARE(essai.ALEcran(56, 130), QColor(Qt::black));
    QCOMPARE(essai.ALEcran(169, 130), QColor(Qt::black));
    QCOMPARE(essai.ALEcran(100, 220), QColor(Qt::white));
}

void TestArbView::codeZeroReprendLaTailleDeLaZone()
{
    VueDEssai essai;
    essai.Ouvre(ArbreDeNumeros({1}));
    QVERIFY(essai.Montre());
    QTRY_COMPARE(essai.dessin->size(), QSize(225, 270));
    QTRY_COMPARE(essai.ALEcran(56, 130), QColor(Qt::black));
    delete std::exchange(essai.doc.arbre, nullptr);
    essai.defilement->resize(500, 300);
    Q_EMIT essai.doc.documentChanged(0);
    QCOMPARE(essai.dessin->size(), QSize(500, 300));
    QTRY_COMPARE(essai.ALEcran(56, 130), QColor(Qt::white));
}

void TestArbView::codeZeroEffaceSansChangerDeTaille()
{
    VueDEssai essai;
    essai.Ouvre(ArbreDeNumeros({1}));
    QVERIFY(essai.Montre());
    QTRY_COMPARE(essai.dessin->size(), QSize(225, 270));
    CompteDeDessins compte(essai.dessin);
    essai.dessin->resize(essai.defilement->size());
    QTRY_VERIFY(compte.nombre >= 1);
    QCOMPARE(essai.ALEcran(56, 130), QColor(Qt::black));
    delete std::exchange(essai.doc.arbre, nullptr);
    Q_EMIT essai.doc.documentChanged(0);
    QCOMPARE(essai.dessin->size(), QSize(640, 480));
    QTRY_COMPARE(essai.ALEcran(56, 130), QColor(Qt::white));
}

void TestArbView::codeUnDisposeEtRemesure()
{
    VueDEssai essai;
    essai.Ouvre(ArbreDeNumeros({1}));
    QVERIFY(essai.Montre());
    QTRY_COMPARE(essai.dessin->size(), QSize(225, 270));
    QTRY_COMPARE(essai.ALEcran(56, 130), QColor(Qt::black));
    essai.doc.formats.largeurCadre = 60;
    essai.doc.arbre->premiere->x = 777;
    Q_EMIT essai.doc.documentChanged(1);
    QCOMPARE(essai.doc.arbre->premiere->x, 56);
    QVERIFY(!essai.doc.canevasCalcule);
    QCOMPARE(essai.dessin->size(), QSize(225, 270));
    QTRY_COMPARE(essai.dessin->size(), QSize(338, 270));
    QVERIFY(essai.doc.canevasCalcule);
    QTRY_COMPARE(essai.ALEcran(282, 130), QColor(Qt::black));
}

void TestArbView::codeDeuxNeFaitQueRedessiner()
{
    VueDEssai essai;
    essai.Ouvre(ArbreDeNumeros({1}));
    QVERIFY(essai.Montre());
    QTRY_COMPARE(essai.dessin->size(), QSize(225, 270));
    QTRY_COMPARE(essai.ALEcran(56, 130), QColor(Qt::black));
    essai.doc.formats.largeurCadre = 20;
    essai.doc.arbre->premiere->x = 77;
    Q_EMIT essai.doc.documentChanged(2);
    QTRY_COMPARE(essai.ALEcran(77, 130), QColor(Qt::black));
    QCOMPARE(essai.ALEcran(56, 130), QColor(Qt::white));
    QCOMPARE(essai.ALEcran(152, 130), QColor(Qt::black));
    QCOMPARE(essai.doc.arbre->premiere->x, 77);
    QVERIFY(essai.doc.canevasCalcule);
    QCOMPARE(essai.dessin->size(), QSize(225, 270));
}

void TestArbView::lesAutresCodesNeFontRien_data()
{
    QTest::addColumn<int>("code");
    QTest::newRow("3") << 3;
    QTest::newRow("-1") << -1;
    QTest::newRow("4") << 4;
    QTest::newRow("100") << 100;
}

void TestArbView::lesAutresCodesNeFontRien()
{
    QFETCH(int, code);
    VueDEssai essai(QSize(400, 200));
    essai.Ouvre(ArbreDeNumeros({1}));
    QVERIFY(essai.Montre());
    QTRY_COMPARE(essai.dessin->size(), QSize(225, 270));
    QTRY_VERIFY(essai.defilement->verticalScrollBar()->isVisible());
    essai.dessin->repaint();
    CompteDeDessins compte(essai.dessin);
    CompteDeDessins temoin(essai.defilement->verticalScrollBar());
    essai.doc.arbre->premiere->x = 77;
    Q_EMIT essai.doc.documentChanged(code);
    // Painted in the same turn as the drawing would be.
    essai.defilement->verticalScrollBar()->update();
    QTRY_COMPARE(temoin.nombre, 1);
    QCOMPARE(compte.nombre, 0);
    QCOMPARE(essai.doc.arbre->premiere->x, 77);
    QVERIFY(essai.doc.canevasCalcule);
    QCOMPARE(essai.dessin->size(), QSize(225, 270));
}

void TestArbView::dessinerNeDisposeJamais()
{
    VueDEssai essai;
    essai.Ouvre(ArbreDeNumeros({1}));
    essai.doc.arbre->premiere->x = 100;
    essai.doc.arbre->premiere->y = 80;
    QVERIFY(essai.Montre());
    QTRY_VERIFY(essai.doc.canevasCalcule);
    QCOMPARE(essai.doc.arbre->premiere->x, 100);
    QCOMPARE(essai.doc.arbre->premiere->y, 80);
    QCOMPARE(essai.dessin->size(), QSize(269, 294));
}

void TestArbView::codeUnSansArbreNeFaitRien()
{
    VueDEssai essai;
    QVERIFY(essai.Montre());
    CompteDeDessins compte(essai.dessin);
    Q_EMIT essai.doc.documentChanged(1);
    QTRY_VERIFY(compte.nombre >= 1);
    QVERIFY(!essai.doc.canevasCalcule);
    QCOMPARE(essai.dessin->size(), QSize(636, 395));
    QCOMPARE(essai.dessin->grab().toImage().pixelColor(300, 200), QColor(Qt::white));
}

void TestArbView::laTailleResteDansLesLimites_data()
{
    QTest::addColumn<int>("largeur");
    QTest::addColumn<int>("hauteur");
    QTest::addColumn<QSize>("attendue");
    QTest::newRow("rien") << 0 << 0 << QSize(1, 1);
    QTest::newRow("négatif") << -50 << -50 << QSize(1, 1);
    QTest::newRow("énorme") << 2147483647 << 2147483647 << QSize(16777215, 16777215);
    QTest::newRow("très large") << 100000000 << 42 << QSize(16777215, 158);
}

void TestArbView::laTailleResteDansLesLimites()
{
    QFETCH(int, largeur);
    QFETCH(int, hauteur);
    QFETCH(QSize, attendue);
    VueDEssai essai;
    essai.doc.formats.largeurCadre = largeur;
    essai.doc.formats.hauteurCadre = hauteur;
    essai.doc.formats.margeGenerale = 0;
    essai.Ouvre(ArbreDeNumeros({1}));
    QVERIFY(essai.Montre());
    QTRY_VERIFY(essai.doc.canevasCalcule);
    QCOMPARE(essai.dessin->size(), attendue);
    // It is still painted, so a better tree shows.
    essai.doc.formats = essai.doc.formatsPref;
    Q_EMIT essai.doc.documentChanged(1);
    QTRY_COMPARE(essai.dessin->size(), QSize(225, 270));
}

void TestArbView::leModeReduitSuitLeDocument()
{
    VueDEssai essai;
    essai.Ouvre(ArbreDeNumeros({1}));
    essai.doc.arbre->premiere->info->lieunaissance = QStringLiteral("Lyon");
    QImage image = essai.dessin->grab().toImage();
    QCOMPARE(image.pixelColor(100, 56), QColor(Qt::black));
    essai.doc.optionsParArbre = false;
    image = essai.dessin->grab().toImage();
    QCOMPARE(image.pixelColor(100, 56), QColor(Qt::white));
}

void TestArbView::leTitreEstDessine()
{
    VueDEssai essai;
    auto arbre = ArbreDeNumeros({1});
    arbre->infoArbre->titrearbre = QStringLiteral("Famille Dupont");
    essai.Ouvre(std::move(arbre));
    QVERIFY(essai.Montre());
    QTRY_VERIFY(essai.doc.canevasCalcule);
    // The block begins where the next box could: 56 + 113 + 37.
    QCOMPARE(essai.doc.xTitre, 206);
    QVERIFY(essai.dessin->width() > 450);
    const auto encre = [&] {
        const QImage image = essai.dessin->grab(QRect(206, 40, 200, 200)).toImage();
        QImage blanche = image;
        blanche.fill(Qt::white);
        return image != blanche;
    };
    QVERIFY(encre());
    essai.doc.titreAffiche = false;
    QVERIFY(!encre());
}

RAMELIER_TEST_MAIN(QApplication, TestArbView)
#include "tst_arbview.moc"
