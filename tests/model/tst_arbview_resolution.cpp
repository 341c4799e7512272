#include "environnement.h"
#include "personne.h"
#include "vuedessai.h"

#include <QApplication>

/// A screen of 120 dots per inch: everything keeps its size in millimetres.
class TestArbViewResolution : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void lesMillimetresSuiventLEcran();
    void leClicSuitLEcran();
};

void TestArbViewResolution::lesMillimetresSuiventLEcran()
{
    VueDEssai essai;
    QCOMPARE(essai.dessin->logicalDpiX(), 120);
    essai.Ouvre(ArbreDeNumeros({1}));
    QVERIFY(essai.Montre());
    QTRY_VERIFY(essai.doc.canevasCalcule);
    // 15 mm are 70.8 pixels, 30 mm 141.7 and 42 mm 198.4.
    QCOMPARE(essai.doc.arbre->premiere->x, 70);
    QCOMPARE(essai.doc.arbre->premiere->y, 70);
    QCOMPARE(essai.dessin->size(), QSize(281, 338));
}

void TestArbViewResolution::leClicSuitLEcran()
{
    VueDEssai essai;
    essai.Ouvre(ArbreDeNumeros({1}));
    QVERIFY(essai.Montre());
    QTest::mouseClick(essai.dessin, Qt::LeftButton, {}, QPoint(211, 160));
    QVERIFY(!essai.doc.arbre->selection);
    QTest::mouseClick(essai.dessin, Qt::LeftButton, {}, QPoint(210, 267));
    QVERIFY(essai.doc.arbre->selection);
}

int main(int argc, char **argv)
{
    const Environnement environnement;
    qputenv("QT_ENABLE_HIGHDPI_SCALING", "0");
    qputenv("QT_FONT_DPI", "120");
    QApplication application(argc, argv);
    TestArbViewResolution test;
    return QTest::qExec(&test, argc, argv);
}
#include "tst_arbview_resolution.moc"
