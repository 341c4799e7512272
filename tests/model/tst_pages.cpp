#include "environnement.h"
#include "pages.h"

#include <QGuiApplication>

#include <limits>

class TestPages : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void laGrilleCouvreLeDessin_data();
    void laGrilleCouvreLeDessin();
    void unePageTropPetiteNeDonneRien_data();
    void unePageTropPetiteNeDonneRien();
    void uneGrilleNeuveEstVide();
};

void TestPages::laGrilleCouvreLeDessin_data()
{
    QTest::addColumn<long>("largeur");
    QTest::addColumn<long>("hauteur");
    QTest::addColumn<QSize>("page");
    QTest::addColumn<long>("colonnes");
    QTest::addColumn<long>("lignes");

    // Neighbouring pages share 5 dots: one of 1005 x 2005 brings 1000 x 2000 more.
    const QSize page(1005, 2005);
    const long enorme = std::numeric_limits<int>::max();
    QTest::newRow("vide") << 0L << 0L << page << 1L << 1L;
    QTest::newRow("plus petit qu'une page") << 600L << 700L << page << 1L << 1L;
    QTest::newRow("le dernier d'une page") << 999L << 1999L << page << 1L << 1L;
    QTest::newRow("exactement un pas") << 1000L << 2000L << page << 2L << 2L;
    QTest::newRow("exactement une page") << 1005L << 2005L << page << 2L << 2L;
    QTest::newRow("une page et demie de large") << 1507L << 1900L << page << 2L << 1L;
    QTest::newRow("une page et demie de haut") << 900L << 3007L << page << 1L << 2L;
    QTest::newRow("juste avant deux pas") << 1999L << 3999L << page << 2L << 2L;
    QTest::newRow("exactement deux pas") << 2000L << 4000L << page << 3L << 3L;
    QTest::newRow("beaucoup de colonnes") << 123456L << 100L << page << 124L << 1L;
    QTest::newRow("au-delà de 32 bits") << 5'000'000'000L << 10L << page << 5'000'001L << 1L;
    QTest::newRow("la plus petite page") << 10L << 3L << QSize(6, 6) << 11L << 4L;
    QTest::newRow("la plus grande page") << 10L << 3L << QSize(int(enorme), int(enorme)) << 1L << 1L;
}

void TestPages::laGrilleCouvreLeDessin()
{
    QFETCH(const long, largeur);
    QFETCH(const long, hauteur);
    QFETCH(const QSize, page);
    const GrilleDePages grille = GrilleDePages::Pour(largeur, hauteur, page);
    QTEST(grille.colonnes, "colonnes");
    QTEST(grille.lignes, "lignes");
    QVERIFY(!grille.EstVide());
}

void TestPages::unePageTropPetiteNeDonneRien_data()
{
    QTest::addColumn<QSize>("page");

    QTest::newRow("5 de large") << QSize(5, 2000);
    QTest::newRow("5 de haut") << QSize(1000, 5);
    QTest::newRow("nulle") << QSize(0, 0);
    QTest::newRow("négative") << QSize(-1, -1);
    QTest::newRow("négative et grande") << QSize(1000, -2000);
}

void TestPages::unePageTropPetiteNeDonneRien()
{
    QFETCH(const QSize, page);
    const GrilleDePages grille = GrilleDePages::Pour(3000, 3000, page);
    QVERIFY(grille.EstVide());
    QCOMPARE(grille.colonnes, 0L);
    QCOMPARE(grille.lignes, 0L);
}

void TestPages::uneGrilleNeuveEstVide()
{
    QVERIFY(GrilleDePages().EstVide());
}

RAMELIER_TEST_MAIN(QGuiApplication, TestPages)
#include "tst_pages.moc"
