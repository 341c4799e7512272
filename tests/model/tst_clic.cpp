#include "arbre.h"
#include "arbres.h"
#include "environnement.h"
#include "formatsdessins.h"
#include "infopersonne.h"
#include "personne.h"

#include <QGuiApplication>

#include <limits>

namespace {

constexpr float sx = 4.0F;
constexpr float sy = 2.0F;

}  // namespace

/// Boxes of 120 x 84 pixels.
class TestClic : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup() { arbre.reset(); }

    void seulLInterieurDuCadreEstTouche_data();
    void seulLInterieurDuCadreEstTouche();
    void laPhotoNEstPasTouchee();
    void unePersonneNonAffichableEstTouchee();
    void laSelectionNeChangePasLaZone();
    void lesDimensionsSontTronquees();
    void leClicChangeLaSelection_data();
    void leClicChangeLaSelection();
    void laPremiereDeLaListeLEmporte();
    void laSelectionSuperposeeGardeLeClic();
    void unArbreSansPersonneNeSelectionneRien();

private:
    [[nodiscard]] QString Selectionnees() const;

    FormatsDessins formats;
    std::unique_ptr<Arbre> arbre;  ///< 1 at (200, 300), 2 at (100, 100), 3 at (300, 100)
};

void TestClic::init()
{
    formats = FormatsDessins::ParDefaut();
    arbre = ArbreDeNumeros({1, 2, 3});
    const QPoint places[] = {{200, 300}, {100, 100}, {300, 100}};
    for (Personne *personne = arbre->premiere; personne; personne = personne->suivante) {
        personne->x = places[personne->numero - 1].x();
        personne->y = places[personne->numero - 1].y();
    }
}

/// The numbers of the persons marked as selected; a mark that the tree does not know of shows.
QString TestClic::Selectionnees() const
{
    QStringList numeros;
    for (const Personne *personne = arbre->premiere; personne; personne = personne->suivante) {
        if (personne->selectionnee)
            numeros += QString::number(personne->numero);
    }
    const QString selon = arbre->selection ? QString::number(arbre->selection->numero) : QString();
    return numeros.join(u' ') == selon ? selon : QStringLiteral("arbre %1, marques %2").arg(selon, numeros.join(u' '));
}

void TestClic::seulLInterieurDuCadreEstTouche_data()
{
    QTest::addColumn<long>("px");
    QTest::addColumn<long>("py");
    QTest::addColumn<bool>("attendu");
    const auto point = [](const char *nom, long px, long py, bool attendu) {
        QTest::newRow(nom) << px << py << attendu;
    };
    point("milieu", 260, 342, true);
    point("bord gauche", 200, 342, false);
    point("juste à droite du bord gauche", 201, 342, true);
    point("bord droit", 320, 342, false);
    point("juste à gauche du bord droit", 319, 342, true);
    point("bord haut", 260, 300, false);
    point("juste sous le bord haut", 260, 301, true);
    point("bord bas", 260, 384, false);
    point("juste au-dessus du bord bas", 260, 383, true);
    point("coin haut gauche", 200, 300, false);
    point("coin haut gauche, dedans", 201, 301, true);
    point("coin bas droit", 320, 384, false);
    point("coin bas droit, dedans", 319, 383, true);
    point("à gauche", 199, 342, false);
    point("à droite", 321, 342, false);
    point("au-dessus", 260, 299, false);
    point("au-dessous", 260, 385, false);
    point("très loin", std::numeric_limits<long>::max(), std::numeric_limits<long>::min(), false);
}

void TestClic::seulLInterieurDuCadreEstTouche()
{
    QFETCH(long, px);
    QFETCH(long, py);
    QFETCH(bool, attendu);
    QCOMPARE(arbre->premiere->EstClique(px, py, sx, sy, formats), attendu);
}

void TestClic::laPhotoNEstPasTouchee()
{
    Personne &personne = *arbre->premiere;
    personne.info->photo = QImage(120, 84, QImage::Format_RGB32);
    personne.info->etatPhoto = InfoPersonne::PhotoChargee;
    QVERIFY(!personne.EstClique(380, 342, sx, sy, formats));
    QVERIFY(personne.EstClique(319, 342, sx, sy, formats));
}

void TestClic::unePersonneNonAffichableEstTouchee()
{
    arbre->premiere->affichable = false;
    QVERIFY(arbre->premiere->EstClique(260, 342, sx, sy, formats));
    QVERIFY(arbre->DeselectSelect(260, 342, sx, sy, formats));
    QCOMPARE(Selectionnees(), QStringLiteral("1"));
}

void TestClic::laSelectionNeChangePasLaZone()
{
    arbre->premiere->selectionnee = true;
    QVERIFY(!arbre->premiere->EstClique(198, 342, sx, sy, formats));
    QVERIFY(!arbre->premiere->EstClique(200, 342, sx, sy, formats));
}

void TestClic::lesDimensionsSontTronquees()
{
    // 30 mm are 113.38 pixels and 42 mm are 158.74 at 96 dots per inch.
    const auto echelle = static_cast<float>(96 / 25.4);
    QVERIFY(arbre->premiere->EstClique(312, 342, echelle, echelle, formats));
    QVERIFY(!arbre->premiere->EstClique(313, 342, echelle, echelle, formats));
    QVERIFY(arbre->premiere->EstClique(260, 457, echelle, echelle, formats));
    QVERIFY(!arbre->premiere->EstClique(260, 458, echelle, echelle, formats));
}

void TestClic::leClicChangeLaSelection_data()
{
    QTest::addColumn<quint64>("avant");
    QTest::addColumn<QPoint>("clic");
    QTest::addColumn<bool>("change");
    QTest::addColumn<QString>("apres");
    const QPoint dansUn(260, 342);
    const QPoint dansTrois(360, 142);
    const QPoint aCote(10, 10);
    const QPoint surLeBord(200, 342);
    const QString rien;
    QTest::newRow("rien, dans une personne") << quint64(0) << dansUn << true << QStringLiteral("1");
    QTest::newRow("rien, dans la dernière") << quint64(0) << dansTrois << true << QStringLiteral("3");
    QTest::newRow("rien, à côté") << quint64(0) << aCote << false << rien;
    QTest::newRow("rien, sur un bord") << quint64(0) << surLeBord << false << rien;
    QTest::newRow("sélection, dans la même") << quint64(1) << dansUn << false << QStringLiteral("1");
    QTest::newRow("sélection, dans une autre") << quint64(1) << dansTrois << true << QStringLiteral("3");
    QTest::newRow("sélection, dans une précédente") << quint64(3) << dansUn << true << QStringLiteral("1");
    QTest::newRow("sélection, à côté") << quint64(1) << aCote << true << rien;
    QTest::newRow("sélection, sur son bord") << quint64(1) << surLeBord << true << rien;
}

void TestClic::leClicChangeLaSelection()
{
    QFETCH(quint64, avant);
    QFETCH(QPoint, clic);
    QFETCH(bool, change);
    QFETCH(QString, apres);
    if (avant != 0) {
        arbre->selection = Trouve(*arbre, avant);
        arbre->selection->selectionnee = true;
    }
    QCOMPARE(arbre->DeselectSelect(clic.x(), clic.y(), sx, sy, formats), change);
    QCOMPARE(Selectionnees(), apres);
}

void TestClic::laPremiereDeLaListeLEmporte()
{
    Trouve(*arbre, 2)->x = 320;
    QVERIFY(arbre->DeselectSelect(360, 142, sx, sy, formats));
    QCOMPARE(Selectionnees(), QStringLiteral("2"));
}

void TestClic::laSelectionSuperposeeGardeLeClic()
{
    Trouve(*arbre, 2)->x = 320;
    arbre->selection = Trouve(*arbre, 3);
    arbre->selection->selectionnee = true;
    QVERIFY(!arbre->DeselectSelect(360, 142, sx, sy, formats));
    QCOMPARE(Selectionnees(), QStringLiteral("3"));
}

void TestClic::unArbreSansPersonneNeSelectionneRien()
{
    Arbre vide;
    QVERIFY(!vide.DeselectSelect(260, 342, sx, sy, formats));
    QVERIFY(!vide.selection);
}

RAMELIER_TEST_MAIN(QGuiApplication, TestClic)
#include "tst_clic.moc"
