#include "environnement.h"
#include "zoom.h"

#include <QCoreApplication>

/// Lengths of the chart on the screen and back.
class TestZoom : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void leZoomALaTailleDuPapierNeChangeRien();
    void lesCransOntDesBornes_data();
    void lesCransOntDesBornes();
    void lesLongueursNeSontJamaisCoupees();
    void lAllerEtLeRetourSeRepondent_data();
    void lAllerEtLeRetourSeRepondent();
};

void TestZoom::leZoomALaTailleDuPapierNeChangeRien()
{
    const Zoom zoom;
    QVERIFY(zoom.EstCommeSurLePapier());
    QCOMPARE(zoom.Facteur(), 1.0);
    QCOMPARE(zoom.Longueur(79'000'000'123L), 79'000'000'123L);
    const QRect place(-7, 1'000'000'000, 113, 158);
    QCOMPARE(zoom.Rectangle(place), place);
    QCOMPARE(zoom.RectangleSurPapier(place), place);
    QCOMPARE(zoom.PointSurPapier(QPoint(-3, 5)), QPoint(-3, 5));
    QVERIFY(Zoom(3) != zoom);
    QVERIFY(Zoom(0) == zoom);
}

void TestZoom::lesCransOntDesBornes_data()
{
    QTest::addColumn<int>("demande");
    QTest::addColumn<int>("cran");
    QTest::addColumn<double>("facteur");
    QTest::newRow("un peu plus grand") << 1 << 1 << 1.25;
    QTest::newRow("un peu plus petit") << -1 << -1 << 0.8;
    QTest::newRow("le plus grand") << 6 << 6 << 3.814697265625;
    QTest::newRow("trop grand") << 7 << 6 << 3.814697265625;
    QTest::newRow("le plus petit") << -10 << -10 << 0.1073741824;
    QTest::newRow("trop petit") << -1000 << -10 << 0.1073741824;
}

void TestZoom::lesCransOntDesBornes()
{
    QFETCH(const int, demande);
    QFETCH(const int, cran);
    QFETCH(const double, facteur);
    const Zoom zoom(demande);
    QCOMPARE(zoom.Cran(), cran);
    QCOMPARE(zoom.Facteur(), facteur);
}

void TestZoom::lesLongueursNeSontJamaisCoupees()
{
    QCOMPARE(Zoom(1).Longueur(225), 282);  // 281.25
    QCOMPARE(Zoom(-1).Longueur(225), 180);
    QCOMPARE(Zoom(-10).Longueur(1), 1);
    QCOMPARE(Zoom(6).Longueur(1'000'000'000), 3'814'697'266);
    // 56 * 1.25 = 70, 57 * 1.25 = 71.25; (56 + 113) * 1.25 = 211.25, (57 + 158) * 1.25 = 268.75.
    QCOMPARE(Zoom(1).Rectangle(QRect(56, 57, 113, 158)), QRect(QPoint(70, 71), QPoint(211, 268)));
    QCOMPARE(Zoom(-1).Rectangle(QRect(-1, -2, 1, 1)), QRect(QPoint(-1, -2), QPoint(-1, -1)));
}

void TestZoom::lAllerEtLeRetourSeRepondent_data()
{
    QTest::addColumn<int>("cran");
    for (int cran = Zoom::plusPetit; cran <= Zoom::plusGrand; ++cran)
        QTest::addRow("%d", cran) << cran;
}

void TestZoom::lAllerEtLeRetourSeRepondent()
{
    QFETCH(const int, cran);
    const Zoom zoom(cran);
    for (int gauche = -40; gauche < 40; ++gauche) {
        const QRect papier(gauche, 3 * gauche, 30, 41);
        const QRect ecran = zoom.Rectangle(papier);
        // Whoever lies under a pixel is painted when this pixel is exposed.
        QVERIFY(zoom.RectangleSurPapier(ecran).contains(papier));
        for (const QPoint pixel : {ecran.topLeft(), ecran.bottomRight(), ecran.center()})
            QVERIFY(zoom.RectangleSurPapier(QRect(pixel, QSize(1, 1))).contains(zoom.PointSurPapier(pixel)));
        QVERIFY(papier.contains(zoom.PointSurPapier(ecran.center())));
    }
}

RAMELIER_TEST_MAIN(QCoreApplication, TestZoom)
#include "tst_zoom.moc"
