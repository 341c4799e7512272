#include "arbres.h"
#include "bancrlg.h"
#include "environnement.h"
#include "ficarbre.h"
#include "ficxrlg.h"
#include "pannes.h"

#include <QCoreApplication>
#include <QDir>

#include <sys/stat.h>

/// readFicOldRLG and LitFichierArbre: which files are opened, and by which reader.
class TestRlgOuverture : public QObject, private BancRlg
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase() { Ecoute(); }
    void init() { Recommence(); }
    void cleanup() { QCOMPARE(messages, QStringList()); }
    void ceQuiNEstPasUnFichierDonneUn_data();
    void ceQuiNEstPasUnFichierDonneUn();
    void unFichierInterditDonneUn();
    void toutNomDeFichierConvient_data();
    void toutNomDeFichierConvient();
    void unLienMeneAuFichier();
    void neToucheNiAuFichierNiAuDossier();
    void leNomChoisitLeLecteur_data();
    void leNomChoisitLeLecteur();
    void lesResultatsPassent_data();
    void lesResultatsPassent();
    void sansDemanderLaVersion();

private:
    static QByteArray UneSeule(int version, quint64 numero)
    {
        FichierRlg fichier{.version = version};
        fichier.Ajoute({.numero = numero, .textes = {"A"}});
        return fichier.Octets();
    }
    int LitArbre(const QString &nom)
    {
        arbre = std::make_unique<Arbre>();
        type = 7;
        QString repertoire = dossier->path();
        return LitFichierArbre(Chemin(nom), repertoire, arbre.get(), enteteV1, enteteV3, type);
    }
};

void TestRlgOuverture::ceQuiNEstPasUnFichierDonneUn_data()
{
    QTest::addColumn<QString>("nom");
    QTest::newRow("absent") << "rien.rlg";
    QTest::newRow("dossier absent") << "rien/a.rlg";
    QTest::newRow("dossier") << "dossier.rlg";
    QTest::newRow("tube") << "tube.rlg";
    QTest::newRow("lien sans but") << "lien.rlg";
    QTest::newRow("lien vers un appareil") << "appareil.rlg";
    QTest::newRow("fichier pris pour un dossier") << "a.rlg/b.rlg";
    QTest::newRow("nom trop long") << QString(5000, u'a') + QStringLiteral(".rlg");
}

void TestRlgOuverture::ceQuiNEstPasUnFichierDonneUn()
{
    QFETCH(QString, nom);
    QVERIFY(QDir(dossier->path()).mkdir(QStringLiteral("dossier.rlg")));
    QVERIFY(mkfifo(QFile::encodeName(Chemin(QStringLiteral("tube.rlg"))).constData(), 0600) == 0);
    QVERIFY(QFile::link(Chemin(QStringLiteral("nulle part")), Chemin(QStringLiteral("lien.rlg"))));
    QVERIFY(QFile::link(QStringLiteral("/dev/zero"), Chemin(QStringLiteral("appareil.rlg"))));
    QVERIFY(!Pose(QStringLiteral("a.rlg"), UneSeule(3, 1)).isEmpty());
    QCOMPARE(LitNomme(Chemin(nom)), 1);
    QCOMPARE(type, 7);
    QVERIFY(!arbre->premiere);
    QCOMPARE(LitNomme(QString()), 1);
}

void TestRlgOuverture::unFichierInterditDonneUn()
{
    const QString chemin = Pose(QStringLiteral("a.rlg"), UneSeule(3, 1));
    QVERIFY(QFile::setPermissions(dossier->path(), QFile::Permissions(0x7555)));
    QVERIFY(QFile::setPermissions(chemin, {}));
    int resultat = -1;
    {
        const SansPrivileges personne;
        if (!personne.Effectif())
            QSKIP("ne peut pas devenir quelqu'un d'autre");
        resultat = LitNomme(chemin);
    }
    QFile::setPermissions(dossier->path(), QFile::Permissions(0x7755));
    QFile::setPermissions(chemin, QFile::ReadOwner | QFile::WriteOwner);
    QCOMPARE(resultat, 1);
    QCOMPARE(type, 7);
    QCOMPARE(LitNomme(chemin), 0);
}

void TestRlgOuverture::toutNomDeFichierConvient_data()
{
    QTest::addColumn<QString>("nom");
    QTest::newRow("accents") << QStringLiteral("généalogie d'été.rlg");
    QTest::newRow("hors de l'alphabet latin") << QStringLiteral("œuvre 家族 😀.rlg");
    QTest::newRow("sans extension") << "arbre";
    QTest::newRow("blancs et signes") << QStringLiteral(" %s%n a&b #1?.rlg ");
    QTest::newRow("saut de ligne") << "a\nb.rlg";
}

void TestRlgOuverture::toutNomDeFichierConvient()
{
    QFETCH(QString, nom);
    QVERIFY(!Pose(nom, UneSeule(1, 1)).isEmpty());
    QCOMPARE(LitNomme(Chemin(nom)), 0);
    QCOMPARE(NumerosEnTexte(*arbre), QStringLiteral("1"));
}

void TestRlgOuverture::unLienMeneAuFichier()
{
    QVERIFY(!Pose(QStringLiteral("vrai"), UneSeule(3, 1)).isEmpty());
    QVERIFY(QFile::link(Chemin(QStringLiteral("vrai")), Chemin(QStringLiteral("a.rlg"))));
    QCOMPARE(LitNomme(Chemin(QStringLiteral("a.rlg"))), 0);
    QCOMPARE(NumerosEnTexte(*arbre), QStringLiteral("1"));
}

void TestRlgOuverture::neToucheNiAuFichierNiAuDossier()
{
    const QByteArray octets = UneSeule(3, 1);
    QCOMPARE(Lit(octets), 0);
    QCOMPARE(QDir(dossier->path()).entryList(QDir::AllEntries | QDir::Hidden | QDir::NoDotAndDotDot),
             QStringList{"a.rlg"});
    QFile fichier(Chemin(QStringLiteral("a.rlg")));
    QVERIFY(fichier.open(QIODevice::ReadOnly));
    QCOMPARE(fichier.readAll(), octets);
}

void TestRlgOuverture::leNomChoisitLeLecteur_data()
{
    QTest::addColumn<QString>("nom");
    QTest::addColumn<QString>("numeros");
    QTest::addColumn<int>("version");
    QTest::newRow("minuscules") << "a.rlg"
                                << "5" << 3;
    QTest::newRow("capitales") << "A.RLG"
                               << "5" << 3;
    QTest::newRow("mêlées") << "a.rLg"
                            << "5" << 3;
    QTest::newRow("au milieu") << "a.rlg.bak"
                               << "5" << 3;
    QTest::newRow("collé") << "a.rlgx"
                           << "5" << 3;
    QTest::newRow("dans le nom d'un dossier") << "d.RLG/arbre.txt"
                                              << "5" << 3;
    QTest::newRow("sans le point") << "arlg"
                                   << "" << 7;
    QTest::newRow("autre extension") << "a.ged"
                                     << "" << 7;
    QTest::newRow("lettre entre le point et le nom") << "a.brlg"
                                                     << "" << 7;
}

void TestRlgOuverture::leNomChoisitLeLecteur()
{
    QFETCH(QString, nom);
    QFETCH(QString, numeros);
    QFETCH(int, version);
    QVERIFY(QDir(dossier->path()).mkdir(QStringLiteral("d.RLG")));
    QVERIFY(!Pose(nom, UneSeule(3, 5)).isEmpty());
    QCOMPARE(LitArbre(nom), 0);
    QCOMPARE(NumerosEnTexte(*arbre), numeros);
    QCOMPARE(type, version);
    // The newer name wins, wherever it stands: XML is read there.
    for (const QString &double_ : {QStringLiteral("b.rlg.xrlg"), QStringLiteral("b.XRLG.rlg")}) {
        const auto ecrit = ArbreDeNumeros({1, 2});
        QVERIFY(writeFicXRLG(Chemin(double_), ecrit.get()));
        QCOMPARE(LitArbre(double_), 0);
        QCOMPARE(NumerosEnTexte(*arbre), QStringLiteral("1 2"));
        QCOMPARE(type, 7);
    }
}

void TestRlgOuverture::lesResultatsPassent_data()
{
    QTest::addColumn<QByteArray>("contenu");
    QTest::addColumn<int>("resultat");
    QTest::addColumn<int>("version");
    QTest::newRow("version 1") << UneSeule(1, 1) << 0 << 1;
    QTest::newRow("version 3") << UneSeule(3, 1) << 0 << 3;
    QTest::newRow("autre entête") << UneSeule(3, 1).replace("3.0", "4.0") << 2 << 7;
    QTest::newRow("autre début, version 1") << EnteteRlg(1) + "xx" << 3 << 1;
    QTest::newRow("autre début, version 3") << EnteteRlg(3) + "xx" << 3 << 3;
    QTest::newRow("un arbre XML") << QByteArray("<xrlg></xrlg>") << 2 << 7;
    QTest::newRow("vide") << QByteArray() << 2 << 7;
}

void TestRlgOuverture::lesResultatsPassent()
{
    QFETCH(QByteArray, contenu);
    QFETCH(int, resultat);
    QFETCH(int, version);
    QVERIFY(!Pose(QStringLiteral("a.rlg"), contenu).isEmpty());
    QCOMPARE(LitArbre(QStringLiteral("a.rlg")), resultat);
    QCOMPARE(type, version);
    QCOMPARE(NumerosEnTexte(*arbre), resultat == 0 ? QStringLiteral("1") : QString());
    QCOMPARE(LitArbre(QStringLiteral("rien.rlg")), 1);
    QCOMPARE(type, 7);
    // The caller's own lines are compared.
    enteteV1 = enteteV3 = QStringLiteral("autre");
    QCOMPARE(LitArbre(QStringLiteral("a.rlg")), 2);
}

void TestRlgOuverture::sansDemanderLaVersion()
{
    QString repertoire = dossier->path();
    for (const int version : {1, 3}) {
        QVERIFY(!Pose(QStringLiteral("a.rlg"), UneSeule(version, 9)).isEmpty());
        Arbre lu;
        QCOMPARE(LitFichierArbre(Chemin(QStringLiteral("a.rlg")), repertoire, &lu), 0);
        QCOMPARE(NumerosEnTexte(lu), QStringLiteral("9"));
    }
    Arbre vide;
    QCOMPARE(LitFichierArbre(Chemin(QStringLiteral("rien.rlg")), repertoire, &vide), 1);
    QCOMPARE(LitFichierArbre(Chemin(QStringLiteral("rien.txt")), repertoire, &vide), 0);
    QVERIFY(!vide.premiere);
}

RAMELIER_TEST_MAIN(QCoreApplication, TestRlgOuverture)
#include "tst_rlg_ouverture.moc"
