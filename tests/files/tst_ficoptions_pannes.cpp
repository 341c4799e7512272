#include "environnement.h"
#include "ficoptions.h"
#include "formatsdessins.h"
#include "interlocuteurnote.h"
#include "lespolices.h"
#include "pannes.h"

#include <QDir>
#include <QFile>
#include <QGuiApplication>

#include <limits>
#include <sys/stat.h>

/// The options files: values at their limits, damaged files, and files that cannot be read or written.
class TestFicOptionsPannes : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void init();
    void lesDixiemesSontTronquesAvantDEtreMultiplies_data();
    void lesDixiemesSontTronquesAvantDEtreMultiplies();
    void desLongueursAbsurdesSEcriventSansDegat_data();
    void desLongueursAbsurdesSEcriventSansDegat();
    void lePoidsSuitLEchelleDuFichier_data();
    void lePoidsSuitLEchelleDuFichier();
    void unePolicePencheeSEcrit1();
    void sansEnteteChaqueValeurEstDecalee();
    void desFinsDeLigneDAilleursSeLisent_data();
    void desFinsDeLigneDAilleursSeLisent();
    void unFichierCoupeALaLigne20();
    void uneFamilleAvecUnBlancDecaleJusquALaFin();
    void desOctetsQuelconquesSeLisentToujours();
    void unFichierIllisibleNeChangeRien_data();
    void unFichierIllisibleNeChangeRien();
    void uneEcritureImpossibleLaisseLAncienFichier_data();
    void uneEcritureImpossibleLaisseLAncienFichier();
    void lesValeursParDefautSontCompletes();
    void lesCheminsDesOptions_data();
    void lesCheminsDesOptions();

private:
    [[nodiscard]] QString Chemin(const QString &nom) const { return dossier->filePath(nom); }
    [[nodiscard]] QList<QByteArray> Lignes() const;
    void Pose(const QByteArray &contenu) const;
    bool Lit() { return LitOptions(Chemin(QStringLiteral("a.opt")), &formats, &polices); }
    bool Ecrit(int type = OptionsParArbre) const
    {
        return EcritOptions(Chemin(QStringLiteral("a.opt")), formats, polices, type);
    }

    std::unique_ptr<QTemporaryDir> dossier;
    FormatsDessins formats;
    LesPolices polices;
    QStringList messages;
};

namespace {

const QByteArray entete = "premiere\nseconde\n";

/// Family, size, weight on the scale of 0 to 1000, slope: a font in one comparison.
QString EnTexte(const QFont &police)
{
    return QStringLiteral("%1/%2/%3/%4")
        .arg(police.family())
        .arg(police.pointSize())
        .arg(int(police.weight()))
        .arg(police.italic() ? 1 : 0);
}

QString EnTexte(const FormatsDessins &formats)
{
    return QStringLiteral("%1 %2 %3 %4 %5 %6 %7 / %8 %9")
        .arg(formats.largeurCadre)
        .arg(formats.hauteurCadre)
        .arg(formats.distMinHoriz)
        .arg(formats.distMinVert)
        .arg(formats.margeGenerale)
        .arg(formats.margeDansCadre)
        .arg(formats.intervCadrePhoto)
        .arg(double(formats.epaisseurTraits))
        .arg(double(formats.rayonArc));
}

}  // namespace

void TestFicOptionsPannes::initTestCase()
{
    Interlocuteur::Installe(std::make_unique<InterlocuteurNote>(messages));
}

void TestFicOptionsPannes::init()
{
    dossier = std::make_unique<QTemporaryDir>();
    QCOMPARE(chmod(QFile::encodeName(dossier->path()).constData(), 0755), 0);
    formats = FormatsDessins::ParDefaut();
    polices = LesPolices::ParDefaut();
    messages.clear();
}

QList<QByteArray> TestFicOptionsPannes::Lignes() const
{
    QFile fichier(Chemin(QStringLiteral("a.opt")));
    return fichier.open(QIODevice::ReadOnly) ? fichier.readAll().split('\n') : QList<QByteArray>();
}

void TestFicOptionsPannes::Pose(const QByteArray &contenu) const
{
    QFile fichier(Chemin(QStringLiteral("a.opt")));
    QVERIFY(fichier.open(QIODevice::WriteOnly));
    QCOMPARE(fichier.write(contenu), contenu.size());
}

void TestFicOptionsPannes::lesDixiemesSontTronquesAvantDEtreMultiplies_data()
{
    QTest::addColumn<float>("millimetres");
    QTest::addColumn<QByteArray>("ligne");
    QTest::newRow("0") << 0.0F << QByteArray("0");
    QTest::newRow("0.5") << 0.5F << QByteArray("0");
    QTest::newRow("0.99") << 0.99F << QByteArray("0");
    QTest::newRow("1.0") << 1.0F << QByteArray("10");
    QTest::newRow("2.5") << 2.5F << QByteArray("20");
    QTest::newRow("12.9") << 12.9F << QByteArray("120");
    QTest::newRow("-0.5") << -0.5F << QByteArray("0");
    QTest::newRow("-2.5") << -2.5F << QByteArray("-20");
}

void TestFicOptionsPannes::lesDixiemesSontTronquesAvantDEtreMultiplies()
{
    QFETCH(float, millimetres);
    QFETCH(QByteArray, ligne);
    formats.epaisseurTraits = millimetres;
    formats.rayonArc = 7.0F;
    QVERIFY(Ecrit());
    QCOMPARE(Lignes().mid(2, 3), (QList<QByteArray>{ligne, "70", "30"}));
    formats.epaisseurTraits = 7.0F;
    formats.rayonArc = millimetres;
    QVERIFY(Ecrit());
    QCOMPARE(Lignes().mid(2, 3), (QList<QByteArray>{"70", ligne, "30"}));
}

void TestFicOptionsPannes::desLongueursAbsurdesSEcriventSansDegat_data()
{
    QTest::addColumn<float>("longueur");
    QTest::newRow("l'infini") << std::numeric_limits<float>::infinity();
    QTest::newRow("moins l'infini") << -std::numeric_limits<float>::infinity();
    QTest::newRow("pas un nombre") << std::numeric_limits<float>::quiet_NaN();
    QTest::newRow("trop pour un entier") << 3.0e9F;
    QTest::newRow("trop une fois multipliée") << -1.0e9F;
}

void TestFicOptionsPannes::desLongueursAbsurdesSEcriventSansDegat()
{
    QFETCH(float, longueur);
    formats.epaisseurTraits = longueur;
    formats.rayonArc = longueur;
    QVERIFY(Ecrit());
    // The other lines are where they belong.
    QCOMPARE(Lignes().size(), 32);
    QCOMPARE(Lignes().mid(4, 2), (QList<QByteArray>{"30", "42"}));
    QVERIFY(Lit());
    QCOMPARE(formats.largeurCadre, 30);
}

void TestFicOptionsPannes::lePoidsSuitLEchelleDuFichier_data()
{
    QTest::addColumn<QByteArray>("ligne");
    QTest::addColumn<int>("poids");
    QTest::newRow("fin") << QByteArray("0") << 100;
    QTest::newRow("maigre") << QByteArray("25") << 300;
    QTest::newRow("normal") << QByteArray("50") << 400;
    QTest::newRow("demi-gras") << QByteArray("63") << 600;
    QTest::newRow("gras") << QByteArray("75") << 700;
    QTest::newRow("noir") << QByteArray("87") << 900;
}

void TestFicOptionsPannes::lePoidsSuitLEchelleDuFichier()
{
    QFETCH(QByteArray, ligne);
    QFETCH(int, poids);
    Pose(entete + "10\n20\n30\n42\n10\n15\n15\n1\n1\n0\n0\n0\nHelvetica\n8\nHelvetica\n14\n" + ligne
         + "\n0\nHelvetica\n12\n" + ligne + "\n0\nHelvetica\n30\n" + ligne + "\n0\n0\n0\n0\n");
    QVERIFY(Lit());
    QCOMPARE(int(polices.policeNumeros.weight()), poids);
    QCOMPARE(int(polices.policeLegende.weight()), poids);
    QCOMPARE(int(polices.policeTitre.weight()), poids);
    QVERIFY(Ecrit());
    QCOMPARE(Lignes().at(18), ligne);
    QCOMPARE(Lignes().at(22), ligne);
    QCOMPARE(Lignes().at(26), ligne);
}

void TestFicOptionsPannes::unePolicePencheeSEcrit1()
{
    // policeTextes keeps neither weight nor slope.
    polices.policeTextes = QFont(QStringLiteral("Times"), 9, QFont::Black, true);
    polices.policeNumeros.setStyle(QFont::StyleOblique);
    polices.policeTitre.setItalic(true);
    QVERIFY(Ecrit());
    QCOMPARE(Lignes().mid(14, 14),
             (QList<QByteArray>{"Times", "9", "Helvetica", "14", "75", "1", "Helvetica", "12", "50", "0", "Helvetica",
                                "30", "75", "1"}));
    QVERIFY(Lit());
    QCOMPARE(EnTexte(polices.policeTextes), QStringLiteral("Times/9/400/0"));
    QCOMPARE(EnTexte(polices.policeNumeros), QStringLiteral("Helvetica/14/700/1"));
    QCOMPARE(EnTexte(polices.policeLegende), QStringLiteral("Helvetica/12/400/0"));
    QCOMPARE(EnTexte(polices.policeTitre), QStringLiteral("Helvetica/30/700/1"));
}

void TestFicOptionsPannes::sansEnteteChaqueValeurEstDecalee()
{
    formats.couleurTraits = QColor(12, 34, 56);
    QVERIFY(Ecrit(2));
    QVERIFY(Lit());
    // Thickness and radius were taken for the header; the first family stops the shift, for no number can be a word.
    QCOMPARE(EnTexte(formats), QStringLiteral("10 15 15 1 1 12 34 / 3 4.2"));
    QCOMPARE(formats.couleurTraits, QColor(56, 0, 0));
    QCOMPARE(EnTexte(polices.policeTextes), QStringLiteral("Helvetica/8/400/0"));
    QCOMPARE(EnTexte(polices.policeTitre), QStringLiteral("Helvetica/30/700/0"));
    QCOMPARE(polices.couleurCaracteres, QColor(0, 0, 0));
}

void TestFicOptionsPannes::desFinsDeLigneDAilleursSeLisent_data()
{
    QTest::addColumn<QByteArray>("contenu");
    const QByteArray valeurs =
        "10\n20\n31\n42\n10\n15\n15\n1\n1\n1\n2\n3\nTimes\n9\nTimes\n14\n75\n0\nTimes\n12\n50\n1\n"
        "Times\n30\n75\n0\n4\n5\n6\n";
    const QByteArray latin1 = "Fichier cr\xE9\xE9 par Ramelier\nNE PAS MODIFIER MANUELLEMENT\n";
    QTest::newRow("retours chariot") << QByteArray(entete + valeurs).replace("\n", "\r\n");
    QTest::newRow("en-tête en Latin-1") << latin1 + valeurs;
    QTest::newRow("sans fin de ligne à la fin") << QByteArray(entete + valeurs).chopped(1);
    QTest::newRow("plusieurs valeurs sur une ligne") << entete + QByteArray(valeurs).replace("\n", " ");
    QTest::newRow("des lignes vides") << entete + QByteArray(valeurs).replace("\n", "\n\n");
    QTest::newRow("des lignes en trop") << entete + valeurs + "99\nautre\n";
}

void TestFicOptionsPannes::desFinsDeLigneDAilleursSeLisent()
{
    QFETCH(QByteArray, contenu);
    Pose(contenu);
    QVERIFY(Lit());
    QCOMPARE(EnTexte(formats), QStringLiteral("31 42 10 15 15 1 1 / 1 2"));
    QCOMPARE(formats.couleurTraits, QColor(1, 2, 3, 255));
    QCOMPARE(EnTexte(polices.policeTextes), QStringLiteral("Times/9/400/0"));
    QCOMPARE(EnTexte(polices.policeNumeros), QStringLiteral("Times/14/700/0"));
    QCOMPARE(EnTexte(polices.policeLegende), QStringLiteral("Times/12/400/1"));
    QCOMPARE(EnTexte(polices.policeTitre), QStringLiteral("Times/30/700/0"));
    QCOMPARE(polices.couleurCaracteres, QColor(4, 5, 6, 255));
}

void TestFicOptionsPannes::unFichierCoupeALaLigne20()
{
    polices.couleurCaracteres = Qt::red;
    Pose(entete + "10\n20\n31\n42\n10\n15\n15\n1\n1\n1\n2\n3\nTimes\n9\nTimes\n14\n75\n1\n");
    QVERIFY(Lit());
    QCOMPARE(EnTexte(formats), QStringLiteral("31 42 10 15 15 1 1 / 1 2"));
    QCOMPARE(EnTexte(polices.policeNumeros), QStringLiteral("Times/14/700/1"));
    // A size of zero is twelve for a font, a weight of zero the thinnest.
    QCOMPARE(EnTexte(polices.policeLegende), QStringLiteral("/12/100/0"));
    QCOMPARE(EnTexte(polices.policeTitre), QStringLiteral("/12/100/0"));
    QCOMPARE(polices.couleurCaracteres, QColor(0, 0, 0, 255));
}

void TestFicOptionsPannes::uneFamilleAvecUnBlancDecaleJusquALaFin()
{
    polices.policeTextes.setFamily(QStringLiteral("Liberation Sans"));
    QVERIFY(Ecrit());
    QCOMPARE(Lignes().at(14), QByteArray("Liberation Sans"));
    QVERIFY(Lit());
    // The size meets "Sans" and is zero; "Sans" becomes the next family, and so on.
    QCOMPARE(EnTexte(polices.policeTextes), QStringLiteral("Liberation/12/400/0"));
    QCOMPARE(polices.policeNumeros.family(), QStringLiteral("Sans"));
    QCOMPARE(polices.policeNumeros.pointSize(), 8);
    QCOMPARE(polices.policeNumeros.weight(), QFont::Thin);
    QCOMPARE(EnTexte(polices.policeLegende), QStringLiteral("Helvetica/14/700/0"));
    QCOMPARE(EnTexte(polices.policeTitre), QStringLiteral("Helvetica/12/400/0"));
    QCOMPARE(polices.couleurCaracteres, QColor(0, 0, 0));
}

void TestFicOptionsPannes::desOctetsQuelconquesSeLisentToujours()
{
    for (const QByteArray &contenu :
         {QByteArray(), QByteArray("\n"), QByteArray("une ligne sans fin"), QByteArray(100'000, '\0'),
          QByteArray(100'000, '9'), QByteArray("\xFF\xFE").repeated(1000), entete + QByteArray(100'000, '9'),
          entete + QByteArray("99999999999999999999\n-99999999999999999999\n").repeated(30),
          entete + QByteArray("-2147483648\n2147483647\n").repeated(30), entete + QByteArray("nan\ninf\n-\n+\n.\n")}) {
        Pose(contenu);
        QVERIFY(Lit());
        // What was read can be written again.
        QVERIFY(Ecrit());
    }
}

void TestFicOptionsPannes::unFichierIllisibleNeChangeRien_data()
{
    QTest::addColumn<QString>("nom");
    QTest::newRow("absent") << "absent.opt";
    QTest::newRow("un dossier") << "dossier";
    QTest::newRow("un tube") << "tube";
    QTest::newRow("interdit") << "interdit.opt";
    QTest::newRow("un lien perdu") << "lien.opt";
}

void TestFicOptionsPannes::unFichierIllisibleNeChangeRien()
{
    QFETCH(QString, nom);
    QVERIFY(QDir(dossier->path()).mkdir(QStringLiteral("dossier")));
    QCOMPARE(mkfifo(QFile::encodeName(Chemin(QStringLiteral("tube"))).constData(), 0666), 0);
    QVERIFY(QFile::link(Chemin(QStringLiteral("absent.opt")), Chemin(QStringLiteral("lien.opt"))));
    QVERIFY(EcritOptions(Chemin(QStringLiteral("interdit.opt")), FormatsDessins::Reduits(), LesPolices::Reduites(), 1));
    QCOMPARE(chmod(QFile::encodeName(Chemin(QStringLiteral("interdit.opt"))).constData(), 0000), 0);
    bool lu = true;
    {
        const SansPrivileges sansPrivileges;
        if (!sansPrivileges.Effectif())
            QSKIP("cannot become an ordinary user here");
        lu = LitOptions(Chemin(nom), &formats, &polices);
    }
    QVERIFY(!lu);
    QCOMPARE(EnTexte(formats), QStringLiteral("30 42 10 15 15 1 1 / 1 2.5"));
    QCOMPARE(EnTexte(polices.policeNumeros), QStringLiteral("Helvetica/14/700/0"));
    QCOMPARE(messages, QStringList());
}

void TestFicOptionsPannes::uneEcritureImpossibleLaisseLAncienFichier_data()
{
    QTest::addColumn<bool>("disquePlein");
    QTest::newRow("disque plein") << true;
    QTest::newRow("fichier protégé") << false;
}

void TestFicOptionsPannes::uneEcritureImpossibleLaisseLAncienFichier()
{
    QFETCH(bool, disquePlein);
    Pose("ancien");
    QCOMPARE(chmod(QFile::encodeName(Chemin(QStringLiteral("a.opt"))).constData(), 0444), 0);
    bool ecrit = true;
    if (disquePlein) {
        const DisquePlein disque(50);
        ecrit = Ecrit();
    } else {
        const SansPrivileges sansPrivileges;
        if (!sansPrivileges.Effectif())
            QSKIP("cannot become an ordinary user here");
        ecrit = Ecrit();
    }
    QVERIFY(!ecrit);
    QCOMPARE(Lignes(), QList<QByteArray>{"ancien"});
    QCOMPARE(messages, QStringList());
    QCOMPARE(QDir(dossier->path()).entryList(QDir::Files | QDir::Hidden), QStringList{"a.opt"});
}

void TestFicOptionsPannes::lesValeursParDefautSontCompletes()
{
    formats = FormatsDessins::Reduits();
    polices = LesPolices();
    LitPreferences(Chemin(QStringLiteral("absent.opt")), &formats, &polices);
    QCOMPARE(EnTexte(formats), QStringLiteral("30 42 10 15 15 1 1 / 1 2.5"));
    QCOMPARE(formats.couleurTraits, QColor(0, 0, 0, 255));
    QCOMPARE(EnTexte(polices.policeTextes), QStringLiteral("Helvetica/8/400/0"));
    QCOMPARE(EnTexte(polices.policeNumeros), QStringLiteral("Helvetica/14/700/0"));
    QCOMPARE(EnTexte(polices.policeTitre), QStringLiteral("Helvetica/30/700/0"));
    QCOMPARE(EnTexte(polices.policeLegende), QStringLiteral("Helvetica/12/400/0"));
    QCOMPARE(polices.couleurCaracteres, QColor(0, 0, 0, 255));
}

void TestFicOptionsPannes::lesCheminsDesOptions_data()
{
    QTest::addColumn<QString>("arbre");
    QTest::addColumn<QString>("options");
    QTest::newRow("un point") << "/d/arbre.xrlg"
                              << "/d/arbre.opt";
    QTest::newRow("deux points") << "/d/arbre.final.xrlg"
                                 << "/d/arbre.opt";
    QTest::newRow("sans extension") << "/d/arbre"
                                    << "/d/arbre.opt";
    QTest::newRow("ancien") << "/d/arbre.rlg"
                            << "/d/arbre.opt";
    QTest::newRow("un dossier avec un point") << "/d.old/arbre.xrlg"
                                              << "/d.old/arbre.opt";
    QTest::newRow("un nom caché") << "/d/.arbre.xrlg"
                                  << "/d/.opt";
    QTest::newRow("des blancs et des accents") << "/d/Arbre généalogique.xrlg"
                                               << "/d/Arbre généalogique.opt";
    QTest::newRow("un détour") << "/d/e/../arbre.xrlg"
                               << "/d/arbre.opt";
}

void TestFicOptionsPannes::lesCheminsDesOptions()
{
    QFETCH(QString, arbre);
    QFETCH(QString, options);
    QCOMPARE(CheminDesOptions(arbre), options);
}

RAMELIER_TEST_MAIN(QGuiApplication, TestFicOptionsPannes)
#include "tst_ficoptions_pannes.moc"
