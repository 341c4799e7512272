#include "environnement.h"
#include "ficoptions.h"
#include "formatsdessins.h"
#include "lespolices.h"

#include <QDir>
#include <QGuiApplication>

/// The options files: their lines, and what comes out of good and damaged ones.
class TestFicOptions : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void ecritChaqueLigne_data();
    void ecritChaqueLigne();
    void seulsLesMillimetresEntiersRestent_data();
    void seulsLesMillimetresEntiersRestent();
    void reliteCeQuiAEteEcrit();
    void unFichierSansEnteteEstMalLu();
    void unFichierCoupeDonneDesZeros();
    void uneFamilleAvecUnBlancDecaleLaSuite();
    void unMotALaPlaceDUnNombre();
    void lesCouleursImpossiblesNeSontPasValides();
    void sansFichierRienNeChange();
    void sansPreferencesLesValeursParDefaut();
    void lesCheminsDesFichiers();
    void uneEcritureImpossibleNeDitRien();

private:
    [[nodiscard]] QString Chemin(const QString &nom) const { return dossier->filePath(nom); }
    [[nodiscard]] QByteArray Contenu() const;
    void Pose(const QByteArray &contenu) const;

    std::unique_ptr<QTemporaryDir> dossier;
};

namespace {

const QByteArray valeurs = "10\n20\n30\n42\n10\n15\n15\n1\n1\n12\n34\n56\nHelvetica\n8\n"
                           "Courier\n14\n75\n0\nTimes\n12\n50\n1\nHelvetica\n30\n75\n0\n7\n8\n9\n";

FormatsDessins FormatsDeTest()
{
    FormatsDessins formats = FormatsDessins::ParDefaut();
    formats.couleurTraits = QColor(12, 34, 56);
    return formats;
}

LesPolices PolicesDeTest()
{
    LesPolices polices = LesPolices::ParDefaut();
    polices.policeNumeros = QFont(QStringLiteral("Courier"), 14, QFont::Bold);
    polices.policeLegende = QFont(QStringLiteral("Times"), 12, QFont::Normal, true);
    polices.couleurCaracteres = QColor(7, 8, 9);
    return polices;
}

}  // namespace

void TestFicOptions::init()
{
    dossier = std::make_unique<QTemporaryDir>();
}

QByteArray TestFicOptions::Contenu() const
{
    QFile fichier(Chemin(QStringLiteral("a.opt")));
    return fichier.open(QIODevice::ReadOnly) ? fichier.readAll() : QByteArray("illisible");
}

void TestFicOptions::Pose(const QByteArray &contenu) const
{
    QFile fichier(Chemin(QStringLiteral("a.opt")));
    QVERIFY(fichier.open(QIODevice::WriteOnly));
    QCOMPARE(fichier.write(contenu), contenu.size());
}

void TestFicOptions::ecritChaqueLigne_data()
{
    QTest::addColumn<int>("type");
    QTest::addColumn<QByteArray>("entete");
    QTest::newRow("préférences") << 0
                                 << QByteArray("Fichier créé par Ramelier pour enregistrer les préférences de "
                                               "l'utilisateur\nNE PAS MODIFIER MANUELLEMENT\n");
    QTest::newRow("arbre") << 1
                           << QByteArray("Fichier créé par Ramelier pour enregistrer les formats du fichier .rlg "
                                         "associé\nNE PAS MODIFIER MANUELLEMENT\n");
    QTest::newRow("autre") << 2 << QByteArray();
}

void TestFicOptions::ecritChaqueLigne()
{
    QFETCH(int, type);
    QFETCH(QByteArray, entete);
    QVERIFY(EcritOptions(Chemin(QStringLiteral("a.opt")), FormatsDeTest(), PolicesDeTest(), type));
    QCOMPARE(Contenu(), entete + valeurs);
}

void TestFicOptions::seulsLesMillimetresEntiersRestent_data()
{
    QTest::addColumn<float>("epaisseur");
    QTest::addColumn<QByteArray>("ligne");
    QTest::addColumn<float>("relue");
    QTest::newRow("0.5") << 0.5F << QByteArray("0") << 0.0F;
    QTest::newRow("1.0") << 1.0F << QByteArray("10") << 1.0F;
    QTest::newRow("2.5") << 2.5F << QByteArray("20") << 2.0F;
}

void TestFicOptions::seulsLesMillimetresEntiersRestent()
{
    QFETCH(float, epaisseur);
    QFETCH(QByteArray, ligne);
    QFETCH(float, relue);
    FormatsDessins formats = FormatsDeTest();
    formats.epaisseurTraits = epaisseur;
    formats.rayonArc = 3.0F;
    QVERIFY(EcritOptions(Chemin(QStringLiteral("a.opt")), formats, PolicesDeTest(), 1));
    QCOMPARE(Contenu().split('\n').at(2), ligne);
    QCOMPARE(Contenu().split('\n').at(3), QByteArray("30"));
    LesPolices polices;
    QVERIFY(LitOptions(Chemin(QStringLiteral("a.opt")), &formats, &polices));
    QCOMPARE(formats.epaisseurTraits, relue);
    QCOMPARE(formats.rayonArc, 3.0F);
}

void TestFicOptions::reliteCeQuiAEteEcrit()
{
    QVERIFY(EcritOptions(Chemin(QStringLiteral("a.opt")), FormatsDeTest(), PolicesDeTest(), 1));
    FormatsDessins formats;
    LesPolices polices;
    QVERIFY(LitOptions(Chemin(QStringLiteral("a.opt")), &formats, &polices));
    QCOMPARE(formats.largeurCadre, 30);
    QCOMPARE(formats.hauteurCadre, 42);
    QCOMPARE(formats.distMinHoriz, 10);
    QCOMPARE(formats.distMinVert, 15);
    QCOMPARE(formats.margeGenerale, 15);
    QCOMPARE(formats.margeDansCadre, 1);
    QCOMPARE(formats.intervCadrePhoto, 1);
    QCOMPARE(formats.epaisseurTraits, 1.0F);
    QCOMPARE(formats.rayonArc, 2.0F);
    QCOMPARE(formats.couleurTraits, QColor(12, 34, 56, 255));
    QCOMPARE(polices.policeTextes.family(), QStringLiteral("Helvetica"));
    QCOMPARE(polices.policeTextes.pointSize(), 8);
    QCOMPARE(polices.policeTextes.weight(), QFont::Normal);
    QCOMPARE(polices.policeNumeros.family(), QStringLiteral("Courier"));
    QCOMPARE(polices.policeNumeros.pointSize(), 14);
    QCOMPARE(polices.policeNumeros.weight(), QFont::Bold);
    QVERIFY(!polices.policeNumeros.italic());
    QCOMPARE(polices.policeLegende.family(), QStringLiteral("Times"));
    QCOMPARE(polices.policeLegende.weight(), QFont::Normal);
    QVERIFY(polices.policeLegende.italic());
    QCOMPARE(polices.policeTitre.pointSize(), 30);
    QCOMPARE(polices.policeTitre.weight(), QFont::Bold);
    QCOMPARE(polices.couleurCaracteres, QColor(7, 8, 9, 255));

    Pose("x\nx\n" + QByteArray(valeurs).replace("Helvetica\n30\n75\n0\n", "Helvetica\n30\n75\n1\n"));
    QVERIFY(LitOptions(Chemin(QStringLiteral("a.opt")), &formats, &polices));
    QCOMPARE(polices.policeTitre.weight(), QFont::Bold);
    QVERIFY(polices.policeTitre.italic());
}

void TestFicOptions::unFichierSansEnteteEstMalLu()
{
    QVERIFY(EcritOptions(Chemin(QStringLiteral("a.opt")), FormatsDeTest(), PolicesDeTest(), 2));
    FormatsDessins formats;
    LesPolices polices;
    QVERIFY(LitOptions(Chemin(QStringLiteral("a.opt")), &formats, &polices));
    // The two header lines that are not there were the thickness and the radius.
    QCOMPARE(formats.epaisseurTraits, 3.0F);
    QCOMPARE(formats.rayonArc, 4.2F);
    QCOMPARE(formats.largeurCadre, 10);
}

void TestFicOptions::unFichierCoupeDonneDesZeros()
{
    Pose("x\nx\n10\n20\n30\n42\n10\n15\n15\n1\n1\n12\n34\n56\nHelvetica\n8\nCourier\n14\n75\n0\n");
    FormatsDessins formats;
    LesPolices polices;
    QVERIFY(LitOptions(Chemin(QStringLiteral("a.opt")), &formats, &polices));
    QCOMPARE(formats.intervCadrePhoto, 1);
    QCOMPARE(polices.policeNumeros.pointSize(), 14);
    QCOMPARE(polices.policeLegende.family(), QString());
    QCOMPARE(polices.policeTitre.family(), QString());
    QVERIFY(!polices.policeTitre.italic());
    QCOMPARE(polices.couleurCaracteres, QColor(0, 0, 0));

    Pose(QByteArray());
    QVERIFY(LitOptions(Chemin(QStringLiteral("a.opt")), &formats, &polices));
    QCOMPARE(formats.largeurCadre, 0);
    QCOMPARE(formats.epaisseurTraits, 0.0F);
}

void TestFicOptions::uneFamilleAvecUnBlancDecaleLaSuite()
{
    Pose("x\nx\n10\n20\n30\n42\n10\n15\n15\n1\n1\n12\n34\n56\nLiberation Sans\n8\nCourier\n14\n75\n0\n");
    FormatsDessins formats;
    LesPolices polices;
    QVERIFY(LitOptions(Chemin(QStringLiteral("a.opt")), &formats, &polices));
    QCOMPARE(polices.policeTextes.family(), QStringLiteral("Liberation"));
    QCOMPARE(polices.policeNumeros.family(), QStringLiteral("Sans"));
    QCOMPARE(polices.policeNumeros.pointSize(), 8);
}

void TestFicOptions::unMotALaPlaceDUnNombre()
{
    Pose("x\nx\n10\n20\ntrente\n42\n");
    FormatsDessins formats;
    LesPolices polices;
    QVERIFY(LitOptions(Chemin(QStringLiteral("a.opt")), &formats, &polices));
    QCOMPARE(formats.rayonArc, 2.0F);
    QCOMPARE(formats.largeurCadre, 0);
    // Nothing takes the word until a family is read.
    QCOMPARE(formats.hauteurCadre, 0);
    QCOMPARE(polices.policeTextes.family(), QStringLiteral("trente"));
}

void TestFicOptions::lesCouleursImpossiblesNeSontPasValides()
{
    Pose("x\nx\n10\n20\n30\n42\n10\n15\n15\n1\n1\n300\n-1\n0\nHelvetica\n8\n");
    FormatsDessins formats;
    LesPolices polices;
    QVERIFY(LitOptions(Chemin(QStringLiteral("a.opt")), &formats, &polices));
    QVERIFY(!formats.couleurTraits.isValid());
}

void TestFicOptions::sansFichierRienNeChange()
{
    FormatsDessins formats = FormatsDeTest();
    LesPolices polices = PolicesDeTest();
    QVERIFY(!LitOptions(Chemin(QStringLiteral("absent.opt")), &formats, &polices));
    QVERIFY(!LitOptions(dossier->path(), &formats, &polices));
    QVERIFY(!LitOptions(QString(), &formats, &polices));
    QCOMPARE(formats.couleurTraits, QColor(12, 34, 56));
    QCOMPARE(polices.policeNumeros.family(), QStringLiteral("Courier"));
}

void TestFicOptions::sansPreferencesLesValeursParDefaut()
{
    FormatsDessins formats;
    LesPolices polices;
    LitPreferences(Chemin(QStringLiteral("absent.opt")), &formats, &polices);
    QCOMPARE(formats.largeurCadre, 30);
    QCOMPARE(formats.hauteurCadre, 42);
    QCOMPARE(formats.epaisseurTraits, 1.0F);
    QCOMPARE(formats.rayonArc, 2.5F);
    QCOMPARE(formats.couleurTraits, QColor(0, 0, 0));
    QCOMPARE(polices.policeTextes.pointSize(), 8);
    QCOMPARE(polices.policeNumeros.pointSize(), 14);
    QCOMPARE(polices.policeTitre.pointSize(), 30);
    QCOMPARE(polices.policeLegende.pointSize(), 12);
    QCOMPARE(polices.policeNumeros.weight(), QFont::Bold);
    QCOMPARE(polices.policeTitre.weight(), QFont::Bold);

    Pose("x\nx\n" + valeurs);
    LitPreferences(Chemin(QStringLiteral("a.opt")), &formats, &polices);
    QCOMPARE(formats.couleurTraits, QColor(12, 34, 56));
}

void TestFicOptions::lesCheminsDesFichiers()
{
    QCOMPARE(CheminDesPreferences(), Environnement::Maison() + QStringLiteral("/.ramelier.opt"));
    QCOMPARE(CheminDesOptions(QStringLiteral("/data/arbre.final.xrlg")), QStringLiteral("/data/arbre.opt"));
    QCOMPARE(CheminDesOptions(QStringLiteral("/data.d/arbre")), QStringLiteral("/data.d/arbre.opt"));
    QCOMPARE(CheminDesOptions(QStringLiteral("arbre.xrlg")), QDir::currentPath() + QStringLiteral("/arbre.opt"));
}

void TestFicOptions::uneEcritureImpossibleNeDitRien()
{
    QVERIFY(!EcritOptions(Chemin(QStringLiteral("rien/a.opt")), FormatsDeTest(), PolicesDeTest(), 1));
    QVERIFY(!EcritOptions(dossier->path(), FormatsDeTest(), PolicesDeTest(), 1));
    QCOMPARE(QDir(dossier->path()).entryList(QDir::Files | QDir::Hidden), QStringList());
}

RAMELIER_TEST_MAIN(QGuiApplication, TestFicOptions)
#include "tst_ficoptions.moc"
