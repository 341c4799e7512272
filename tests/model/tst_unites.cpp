#include "environnement.h"
#include "formatsdessins.h"
#include "lespolices.h"
#include "unites.h"

#include <QGuiApplication>

#include <cmath>
#include <limits>

namespace {

constexpr float pasUnNombre = std::numeric_limits<float>::quiet_NaN();
constexpr float infini = std::numeric_limits<float>::infinity();
constexpr float echelle96 = 96 / 25.4F;

/// Equal to the last bit; two "not a number" are equal too.
bool Pareils(float a, float b)
{
    return a == b || (std::isnan(a) && std::isnan(b));
}

/// What a user can tell of a font.
QString EnTexte(const QFont &police)
{
    return QStringLiteral("%1 %2 %3%4")
        .arg(police.family())
        .arg(police.pointSize())
        .arg(int(police.weight()))
        .arg(police.italic() ? QStringLiteral(" italique") : QString());
}

}  // namespace

class TestUnites : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void pxTronqueVersZero_data();
    void pxTronqueVersZero();
    void lEchelleEstLaResolutionParMillimetre();
    void leMaximumDeDeuxEntiers_data();
    void leMaximumDeDeuxEntiers();
    void leMaximumDeDeuxReels_data();
    void leMaximumDeDeuxReels();
    void deuxPuissanceN_data();
    void deuxPuissanceN();
    void lEntierResteEntreSesBornes_data();
    void lEntierResteEntreSesBornes();
    void laCoordonneeResteEntreSesBornes_data();
    void laCoordonneeResteEntreSesBornes();
    void lesFormatsParDefaut();
    void lesFormatsReduits();
    void lesFormatsNeufsSontNuls();
    void lEpaisseurEstTronquee_data();
    void lEpaisseurEstTronquee();
    void leRayonEstTronque_data();
    void leRayonEstTronque();
    void lesPolicesParDefaut();
    void lesPolicesReduites();
    void lesPolicesNeuvesSontCellesDeQt();
    void lePoidsSurCentDevientUnPoidsDePolice_data();
    void lePoidsSurCentDevientUnPoidsDePolice();
    void lePoidsDePoliceDevientUnPoidsSurCent_data();
    void lePoidsDePoliceDevientUnPoidsSurCent();
    void unePoliceSansTaillePrendDouzePoints();
};

void TestUnites::pxTronqueVersZero_data()
{
    QTest::addColumn<long>("valeur");
    QTest::addColumn<float>("echelle");
    QTest::addColumn<long>("pixels");

    QTest::newRow("cadre à 96 ppp") << 30L << echelle96 << 113L;
    QTest::newRow("hauteur à 96 ppp, 158,74") << 42L << echelle96 << 158L;
    QTest::newRow("cadre et intervalle, 151,18") << 40L << echelle96 << 151L;
    QTest::newRow("intervalle, 37,80") << 10L << echelle96 << 37L;
    QTest::newRow("négatif") << -1L << 2.0F << -2L;
    QTest::newRow("négatif tronqué") << -1L << 1.9F << -1L;
    QTest::newRow("négatif sous un pixel") << -1L << 0.99F << 0L;
    QTest::newRow("presque deux") << 1L << 1.999F << 1L;
    QTest::newRow("zéro") << 0L << 3.78F << 0L;
    QTest::newRow("échelle nulle") << 1000L << 0.0F << 0L;
    // In double precision the first product would stay below 7, and the second would keep its last digit.
    QTest::newRow("produit en simple précision") << 10L << 0.7F << 7L;
    QTest::newRow("valeur en simple précision") << 16777217L << 1.0F << 16777216L;
    QTest::newRow("au-delà de 32 bits") << 4294967296L << 2.0F << 8589934592L;
}

void TestUnites::pxTronqueVersZero()
{
    QFETCH(const long, valeur);
    QFETCH(const float, echelle);
    QFETCH(const long, pixels);
    QCOMPARE(Px(valeur, echelle), pixels);
}

void TestUnites::lEchelleEstLaResolutionParMillimetre()
{
    QVERIFY(Pareils(EchelleDeResolution(96), 3.77952756F));
    QVERIFY(Pareils(EchelleDeResolution(1200), 47.2440945F));
    QVERIFY(Pareils(EchelleDeResolution(0), 0.0F));
}

void TestUnites::leMaximumDeDeuxEntiers_data()
{
    QTest::addColumn<long>("a");
    QTest::addColumn<long>("b");
    QTest::addColumn<long>("maximum");
    QTest::addColumn<long>("minimum");

    constexpr long plusGrand = std::numeric_limits<long>::max();
    constexpr long plusPetit = std::numeric_limits<long>::min();
    QTest::newRow("a plus petit") << 2L << 3L << 3L << 2L;
    QTest::newRow("b plus petit") << 3L << 2L << 3L << 2L;
    QTest::newRow("égaux") << 5L << 5L << 5L << 5L;
    QTest::newRow("négatifs") << -7L << -2L << -2L << -7L;
    QTest::newRow("de signes contraires") << -1L << 0L << 0L << -1L;
    QTest::newRow("extrêmes") << plusPetit << plusGrand << plusGrand << plusPetit;
    QTest::newRow("au-delà de 32 bits") << 4294967296L << 1L << 4294967296L << 1L;
}

void TestUnites::leMaximumDeDeuxEntiers()
{
    QFETCH(const long, a);
    QFETCH(const long, b);
    QTEST(MaxLI(a, b), "maximum");
    QTEST(MinLI(a, b), "minimum");
}

void TestUnites::leMaximumDeDeuxReels_data()
{
    QTest::addColumn<float>("a");
    QTest::addColumn<float>("b");
    QTest::addColumn<float>("maximum");
    QTest::addColumn<float>("minimum");

    QTest::newRow("a plus petit") << 1.5F << 2.5F << 2.5F << 1.5F;
    QTest::newRow("b plus petit") << 2.5F << 1.5F << 2.5F << 1.5F;
    QTest::newRow("égaux") << 0.25F << 0.25F << 0.25F << 0.25F;
    QTest::newRow("négatifs") << -1.5F << -2.5F << -1.5F << -2.5F;
    QTest::newRow("infinis") << -infini << infini << infini << -infini;
    QTest::newRow("a n'est pas un nombre") << pasUnNombre << 2.0F << pasUnNombre << 2.0F;
    QTest::newRow("b n'est pas un nombre") << 2.0F << pasUnNombre << 2.0F << pasUnNombre;
    QTest::newRow("ni l'un ni l'autre") << pasUnNombre << pasUnNombre << pasUnNombre << pasUnNombre;
}

void TestUnites::leMaximumDeDeuxReels()
{
    QFETCH(const float, a);
    QFETCH(const float, b);
    QFETCH(const float, maximum);
    QFETCH(const float, minimum);
    QVERIFY2(Pareils(MaxF(a, b), maximum), qPrintable(QString::number(MaxF(a, b))));
    QVERIFY2(Pareils(MinF(a, b), minimum), qPrintable(QString::number(MinF(a, b))));
}

void TestUnites::deuxPuissanceN_data()
{
    QTest::addColumn<int>("n");
    QTest::addColumn<long>("puissance");

    QTest::newRow("0") << 0 << 1L;
    QTest::newRow("-3") << -3 << 1L;
    QTest::newRow("le plus petit entier") << std::numeric_limits<int>::min() << 1L;
    QTest::newRow("1") << 1 << 2L;
    QTest::newRow("10") << 10 << 1024L;
    QTest::newRow("31") << 31 << 2147483648L;
    QTest::newRow("62") << 62 << 4611686018427387904L;
    // What does not fit stays at the largest power that does.
    QTest::newRow("63") << 63 << 4611686018427387904L;
    QTest::newRow("64") << 64 << 4611686018427387904L;
    QTest::newRow("1000") << 1000 << 4611686018427387904L;
}

void TestUnites::deuxPuissanceN()
{
    QFETCH(const int, n);
    QTEST(DeuxPuissanceN(n), "puissance");
}

void TestUnites::lEntierResteEntreSesBornes_data()
{
    QTest::addColumn<double>("valeur");
    QTest::addColumn<int>("attendu");

    QTest::newRow("tronqué") << 2.9 << 2;
    QTest::newRow("négatif tronqué") << -2.9 << -2;
    QTest::newRow("juste au-dessus du minimum") << -4.5 << -4;
    QTest::newRow("minimum") << -5.0 << -5;
    QTest::newRow("sous le minimum") << -5.1 << -5;
    QTest::newRow("juste sous le maximum") << 9.99 << 9;
    QTest::newRow("maximum") << 10.0 << 10;
    QTest::newRow("au-dessus du maximum") << 1e300 << 10;
    QTest::newRow("moins l'infini") << -std::numeric_limits<double>::infinity() << -5;
    QTest::newRow("plus l'infini") << std::numeric_limits<double>::infinity() << 10;
    QTest::newRow("pas un nombre") << std::numeric_limits<double>::quiet_NaN() << -5;
}

void TestUnites::lEntierResteEntreSesBornes()
{
    QFETCH(const double, valeur);
    QTEST(EntierBorne(valeur, -5, 10), "attendu");
}

void TestUnites::laCoordonneeResteEntreSesBornes_data()
{
    QTest::addColumn<long>("position");
    QTest::addColumn<int>("coordonnee");

    QTest::newRow("zéro") << 0L << 0;
    QTest::newRow("négative") << -123456L << -123456;
    QTest::newRow("dernière") << 1'000'000'000L << 1'000'000'000;
    QTest::newRow("au-delà") << 1'000'000'001L << 1'000'000'000;
    QTest::newRow("bien au-delà") << std::numeric_limits<long>::max() << 1'000'000'000;
    QTest::newRow("en deçà") << -1'000'000'001L << -1'000'000'000;
    QTest::newRow("bien en deçà") << std::numeric_limits<long>::min() << -1'000'000'000;
}

void TestUnites::laCoordonneeResteEntreSesBornes()
{
    QFETCH(const long, position);
    QTEST(Coordonnee(position), "coordonnee");
}

void TestUnites::lesFormatsParDefaut()
{
    const FormatsDessins formats = FormatsDessins::ParDefaut();
    QCOMPARE(formats.largeurCadre, 30);
    QCOMPARE(formats.hauteurCadre, 42);
    QCOMPARE(formats.distMinHoriz, 10);
    QCOMPARE(formats.distMinVert, 15);
    QCOMPARE(formats.margeGenerale, 15);
    QCOMPARE(formats.margeDansCadre, 1);
    QCOMPARE(formats.intervCadrePhoto, 1);
    QCOMPARE(formats.epaisseurTraits, 1.0F);
    QCOMPARE(formats.rayonArc, 2.5F);
    QCOMPARE(formats.couleurTraits, QColor(0, 0, 0));
}

void TestUnites::lesFormatsReduits()
{
    const FormatsDessins formats = FormatsDessins::Reduits();
    QCOMPARE(formats.largeurCadre, 25);
    QCOMPARE(formats.hauteurCadre, 15);
    QCOMPARE(formats.distMinHoriz, 1);
    QCOMPARE(formats.distMinVert, 6);
    QCOMPARE(formats.margeGenerale, 5);
    QCOMPARE(formats.margeDansCadre, 0);
    QCOMPARE(formats.intervCadrePhoto, 1);
    QCOMPARE(formats.epaisseurTraits, 0.5F);
    QCOMPARE(formats.rayonArc, 1.0F);
    QCOMPARE(formats.couleurTraits, QColor(0, 0, 0));
}

void TestUnites::lesFormatsNeufsSontNuls()
{
    const FormatsDessins formats;
    QCOMPARE(formats.largeurCadre, 0);
    QCOMPARE(formats.margeGenerale, 0);
    QCOMPARE(formats.epaisseurTraits, 0.0F);
    QVERIFY(!formats.couleurTraits.isValid());
}

void TestUnites::lEpaisseurEstTronquee_data()
{
    QTest::addColumn<float>("epaisseur");
    QTest::addColumn<int>("pixels");

    QTest::newRow("un millimètre, 3,78") << 1.0F << 3;
    QTest::newRow("un demi, 1,89") << 0.5F << 1;
    QTest::newRow("un cinquième, 0,76") << 0.2F << 0;
    QTest::newRow("nulle") << 0.0F << 0;
    QTest::newRow("négative") << -3.0F << 0;
    QTest::newRow("énorme") << 1e30F << 32767;
    QTest::newRow("pas un nombre") << pasUnNombre << 0;
}

void TestUnites::lEpaisseurEstTronquee()
{
    QFETCH(const float, epaisseur);
    FormatsDessins formats;
    formats.epaisseurTraits = epaisseur;
    QTEST(formats.EpaisseurPx(echelle96), "pixels");
}

void TestUnites::leRayonEstTronque_data()
{
    QTest::addColumn<float>("rayon");
    QTest::addColumn<int>("pixels");

    QTest::newRow("par défaut, 9,45") << 2.5F << 9;
    QTest::newRow("réduit, 3,78") << 1.0F << 3;
    QTest::newRow("nul") << 0.0F << 0;
    QTest::newRow("négatif") << -2.5F << 0;
    QTest::newRow("énorme") << 1e30F << 100'000;
    QTest::newRow("pas un nombre") << pasUnNombre << 0;
}

void TestUnites::leRayonEstTronque()
{
    QFETCH(const float, rayon);
    FormatsDessins formats;
    formats.rayonArc = rayon;
    QTEST(formats.RayonPx(echelle96), "pixels");
}

void TestUnites::lesPolicesParDefaut()
{
    const LesPolices polices = LesPolices::ParDefaut();
    QCOMPARE(EnTexte(polices.policeTextes), QStringLiteral("Helvetica 8 400"));
    QCOMPARE(EnTexte(polices.policeNumeros), QStringLiteral("Helvetica 14 700"));
    QCOMPARE(EnTexte(polices.policeTitre), QStringLiteral("Helvetica 30 700"));
    QCOMPARE(EnTexte(polices.policeLegende), QStringLiteral("Helvetica 12 400"));
    QCOMPARE(polices.couleurCaracteres, QColor(0, 0, 0));
}

void TestUnites::lesPolicesReduites()
{
    const LesPolices polices = LesPolices::Reduites();
    QCOMPARE(EnTexte(polices.policeTextes), QStringLiteral("Helvetica 8 400"));
    QCOMPARE(EnTexte(polices.policeNumeros), QStringLiteral("Helvetica 8 700"));
    QCOMPARE(EnTexte(polices.policeTitre), QStringLiteral("Helvetica 10 700"));
    QCOMPARE(EnTexte(polices.policeLegende), QStringLiteral("Helvetica 8 400"));
    QCOMPARE(polices.couleurCaracteres, QColor(0, 0, 0));
}

void TestUnites::lesPolicesNeuvesSontCellesDeQt()
{
    const LesPolices polices;
    QCOMPARE(polices.policeTextes, QFont());
    QCOMPARE(polices.policeNumeros, QFont());
    QCOMPARE(polices.policeTitre, QFont());
    QCOMPARE(polices.policeLegende, QFont());
    QVERIFY(!polices.couleurCaracteres.isValid());
}

void TestUnites::lePoidsSurCentDevientUnPoidsDePolice_data()
{
    QTest::addColumn<int>("surCent");
    QTest::addColumn<int>("poids");

    QTest::newRow("normal") << 50 << 400;
    QTest::newRow("gras") << 75 << 700;
    QTest::newRow("le plus léger") << 0 << 100;
    QTest::newRow("très léger") << 12 << 200;
    QTest::newRow("léger") << 25 << 300;
    QTest::newRow("moyen") << 57 << 500;
    QTest::newRow("demi-gras") << 63 << 600;
    QTest::newRow("très gras") << 81 << 800;
    QTest::newRow("noir") << 87 << 900;
    QTest::newRow("au plus près de normal") << 48 << 400;
    QTest::newRow("au plus près de gras") << 73 << 700;
    QTest::newRow("dernier de l'échelle") << 99 << 900;
    QTest::newRow("négatif") << -1 << 100;
    QTest::newRow("absurde") << std::numeric_limits<int>::max() << 900;
    QTest::newRow("absurde et négatif") << std::numeric_limits<int>::min() << 100;
}

void TestUnites::lePoidsSurCentDevientUnPoidsDePolice()
{
    QFETCH(const int, surCent);
    QFETCH(const int, poids);
    QCOMPARE(int(PoidsDePolice(surCent)), poids);
    QCOMPARE(EnTexte(FaitPolice(defNomPol, 9, surCent, true)), QStringLiteral("Helvetica 9 %1 italique").arg(poids));
}

void TestUnites::lePoidsDePoliceDevientUnPoidsSurCent_data()
{
    QTest::addColumn<int>("poids");
    QTest::addColumn<int>("surCent");

    QTest::newRow("normal") << 400 << 50;
    QTest::newRow("gras") << 700 << 75;
    QTest::newRow("le plus léger") << 100 << 0;
    QTest::newRow("très léger") << 200 << 12;
    QTest::newRow("léger") << 300 << 25;
    QTest::newRow("moyen") << 500 << 57;
    QTest::newRow("demi-gras") << 600 << 63;
    QTest::newRow("très gras") << 800 << 81;
    QTest::newRow("noir") << 900 << 87;
    QTest::newRow("au plus près de normal") << 430 << 50;
    QTest::newRow("au plus près de gras") << 680 << 75;
    QTest::newRow("dernier") << 1000 << 87;
    QTest::newRow("premier") << 1 << 0;
}

void TestUnites::lePoidsDePoliceDevientUnPoidsSurCent()
{
    QFETCH(const int, poids);
    QFont police;
    police.setWeight(static_cast<QFont::Weight>(poids));
    QTEST(PoidsSurCent(police), "surCent");
}

void TestUnites::unePoliceSansTaillePrendDouzePoints()
{
    QCOMPARE(EnTexte(FaitPolice(QStringLiteral("Courier"), 0, 50)), QStringLiteral("Courier 12 400"));
}

RAMELIER_TEST_MAIN(QGuiApplication, TestUnites)
#include "tst_unites.moc"
