#include "ecran.h"
#include "environnement.h"

#include <QRect>

/// A window comes back to a screen that shows it.
class TestEcran : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void unePlaceVisibleReste_data();
    void unePlaceVisibleReste();
    void unePlaceInvisibleEstRamenee_data();
    void unePlaceInvisibleEstRamenee();
    void sansEcranLaPlaceReste();
};

namespace {

const QSize taille(400, 300);
const QList<QRect> unSeul{QRect(0, 0, 1024, 768)};
/// A panel at the top; a second, larger screen to the left.
const QList<QRect> deux{QRect(0, 24, 1024, 744), QRect(-1920, 0, 1920, 1080)};

}  // namespace

void TestEcran::unePlaceVisibleReste_data()
{
    QTest::addColumn<QList<QRect>>("ecrans");
    QTest::addColumn<QPoint>("place");

    QTest::newRow("au milieu") << unSeul << QPoint(200, 200);
    QTest::newRow("au coin") << unSeul << QPoint(0, 0);
    QTest::newRow("un peu au-dessus") << unSeul << QPoint(100, -5);
    QTest::newRow("dépasse à gauche") << unSeul << QPoint(-300, 100);
    QTest::newRow("dépasse à droite") << unSeul << QPoint(900, 100);
    QTest::newRow("dépasse en bas") << unSeul << QPoint(100, 740);
    QTest::newRow("second écran") << deux << QPoint(-1500, 700);
    QTest::newRow("entre les deux") << deux << QPoint(-200, 300);
}

void TestEcran::unePlaceVisibleReste()
{
    QFETCH(const QList<QRect>, ecrans);
    QFETCH(const QPoint, place);
    QCOMPARE(PlaceVisible(place, taille, ecrans), place);
}

void TestEcran::unePlaceInvisibleEstRamenee_data()
{
    QTest::addColumn<QList<QRect>>("ecrans");
    QTest::addColumn<QPoint>("place");
    QTest::addColumn<QSize>("taille");
    QTest::addColumn<QPoint>("ramenee");

    // 30 pixels are kept for the title bar.
    QTest::newRow("à droite") << unSeul << QPoint(3000, 100) << taille << QPoint(624, 100);
    QTest::newRow("à gauche") << unSeul << QPoint(-1500, 100) << taille << QPoint(0, 100);
    QTest::newRow("en haut") << unSeul << QPoint(100, -900) << taille << QPoint(100, 0);
    QTest::newRow("en bas") << unSeul << QPoint(100, 2000) << taille << QPoint(100, 438);
    QTest::newRow("titre au-dessus") << unSeul << QPoint(100, -25) << taille << QPoint(100, 0);
    QTest::newRow("coin à peine visible") << unSeul << QPoint(1000, 760) << taille << QPoint(624, 438);
    QTest::newRow("plus grande que l'écran") << unSeul << QPoint(-5000, 50) << QSize(2000, 1500) << QPoint(0, 0);
    QTest::newRow("sous le tableau de bord") << deux << QPoint(100, -20) << taille << QPoint(100, 24);
    QTest::newRow("le plus proche des deux") << deux << QPoint(-2500, 1500) << taille << QPoint(-1920, 750);
    QTest::newRow("loin") << unSeul << QPoint(2000000000, -2000000000) << taille << QPoint(624, 0);
    QTest::newRow("au bout des entiers") << unSeul << QPoint(2147483647, -2147483647) << taille << QPoint(624, 0);
}

void TestEcran::unePlaceInvisibleEstRamenee()
{
    QFETCH(const QList<QRect>, ecrans);
    QFETCH(const QPoint, place);
    QFETCH(const QSize, taille);
    QTEST(PlaceVisible(place, taille, ecrans), "ramenee");
}

void TestEcran::sansEcranLaPlaceReste()
{
    QCOMPARE(PlaceVisible(QPoint(-5000, 3), taille, {}), QPoint(-5000, 3));
}

RAMELIER_TEST_MAIN(QCoreApplication, TestEcran)
#include "tst_ecran.moc"
