#include "arbres.h"
#include "bancrlg.h"
#include "environnement.h"

#include <QDir>
#include <QGuiApplication>
#include <QImage>

/// readFicOldRLG: the texts of a person and its photo.
class TestRlgTextes : public QObject, private BancRlg
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase() { Ecoute(); }
    void init() { Recommence(); }
    void cleanup() { QCOMPARE(messages, QStringList()); }
    void lesNeufTextesGardentLeursAccents();
    void laPageDeGardeGardeSesAccents();
    void unTexteDeLongueurNulleEstVide();
    void lesLonguesChainesSontLues_data();
    void lesLonguesChainesSontLues();
    void uneLongueurNegativeNeLitRien_data();
    void uneLongueurNegativeNeLitRien();
    void sansMarqueDeTextesIlNYEnAPas_data();
    void sansMarqueDeTextesIlNYEnAPas();
    void laPhotoEstChargee_data();
    void laPhotoEstChargee();
    void laPhotoSeChercheDansLeDossierDonne();
};

void TestRlgTextes::lesNeufTextesGardentLeursAccents()
{
    for (const int version : {1, 3}) {
        FichierRlg fichier{.version = version};
        fichier.Ajoute({.numero = 1,
                        .textes = {"N\xC9", "\xC0gn\xE8s", "1er ao\xFBt", "B\xE2le",
                                   "d\xE9"
                                   "c. 1900",
                                   "N\xEEmes", "ma\xE7on \xAB\xE0 vie\xBB\nfin", "p\xE8re.html", "\xFF.png"}});
        QCOMPARE(Lit(fichier), 0);
        QCOMPARE(FichesDe(*arbre),
                 QStringList{QStringLiteral("1 0 0 0 0 0 NÉ|Àgnès|1er août|Bâle|déc. 1900|Nîmes|maçon «à vie»\nfin|"
                                            "père.html|ÿ.png")});
    }
}

void TestRlgTextes::laPageDeGardeGardeSesAccents()
{
    for (const int version : {1, 3}) {
        FichierRlg fichier{.version = version,
                           .page = {"G\xE9n\xE9"
                                    "alogie",
                                    "Ren\xE9", "f\xE9vrier", "Zo\xEB", "ao\xFBt"}};
        fichier.Ajoute({.numero = 1, .textes = {"A"}});
        QCOMPARE(Lit(fichier), 0);
        QCOMPARE(PageDe(*arbre),
                 (QStringList{QStringLiteral("Généalogie"), QStringLiteral("René"), QStringLiteral("février"),
                              QStringLiteral("Zoë"), QStringLiteral("août")}));
    }
}

void TestRlgTextes::unTexteDeLongueurNulleEstVide()
{
    FichierRlg fichier;
    fichier.Ajoute({.numero = 1, .textes = {"", "Jean", "", "Lyon", "", "", "", "a.html", ""}});
    fichier.Ajoute({.numero = 2, .textes = {"DUPONT"}});
    QCOMPARE(Lit(fichier), 0);
    QCOMPARE(FichesDe(*arbre), (QStringList{"1 0 0 0 0 -1 |Jean||Lyon||||a.html|", "2 0 0 0 0 -1 DUPONT||||||||"}));
}

void TestRlgTextes::lesLonguesChainesSontLues_data()
{
    QTest::addColumn<int>("longueur");
    for (const int longueur : {1, 255, 256, 257, 4096, 32767})
        QTest::addRow("%d", longueur) << longueur;
}

void TestRlgTextes::lesLonguesChainesSontLues()
{
    QFETCH(int, longueur);
    FichierRlg fichier{.page = {QByteArray(longueur, 't')}};
    fichier.Ajoute({.numero = 1, .textes = {"A", "", "", "", "", "", QByteArray(longueur, '\xE9'), "f"}});
    fichier.Ajoute({.numero = 2, .textes = {"B"}});
    QCOMPARE(Lit(fichier), 0);
    QCOMPARE(arbre->infoArbre->titrearbre, QString(longueur, u't'));
    QCOMPARE(arbre->premiere->info->divers, QString(longueur, u'é'));
    QCOMPARE(arbre->premiere->info->fichtml, QStringLiteral("f"));
    QCOMPARE(NumerosEnTexte(*arbre), QStringLiteral("1 2"));
}

void TestRlgTextes::uneLongueurNegativeNeLitRien_data()
{
    QTest::addColumn<int>("longueur");
    for (const int longueur : {0x8000, 0x8001, 0xFFFF})
        QTest::addRow("%d", longueur) << longueur;
}

void TestRlgTextes::uneLongueurNegativeNeLitRien()
{
    // No byte belongs to such a text: the next length follows at once.
    QFETCH(int, longueur);
    FichierRlg fichier;
    QByteArray fiche = Entier(1011, 2) + Entier(1, 8) + Entier(0, 26) + Entier(1010, 2) + Texte("A");
    fiche += Entier(quint64(longueur), 2) + Texte("n") + Texte("").repeated(6);
    fichier.emplacements = {fiche, FicheRlg{.numero = 2, .textes = {"B"}}.Octets(3)};
    QCOMPARE(Lit(fichier), 0);
    QCOMPARE(FichesDe(*arbre), (QStringList{"1 0 0 0 0 -1 A||n||||||", "2 0 0 0 0 -1 B||||||||"}));
}

void TestRlgTextes::sansMarqueDeTextesIlNYEnAPas_data()
{
    QTest::addColumn<int>("marque");
    for (const int marque : {0, 1009, 1011, 1012, 62210, 65535})
        QTest::addRow("%d", marque) << marque;
}

void TestRlgTextes::sansMarqueDeTextesIlNYEnAPas()
{
    // Without texts a person has no name: it is not kept, and the next slot begins at once.
    QFETCH(int, marque);
    for (const int version : {1, 3}) {
        FichierRlg fichier{.version = version, .generations = 3};
        fichier.Ajoute({.numero = 1, .pere = 2, .mere = 3, .textes = {"A"}});
        fichier.Ajoute(
            {.numero = 2, .generation = 1, .enfant = 1, .textes = {"X"}, .marqueDesTextes = quint16(marque)});
        fichier.Ajoute({.numero = 3, .generation = 1, .enfant = 1, .textes = {"B"}});
        QCOMPARE(Lit(fichier), 0);
        QCOMPARE(FichesDe(*arbre), (QStringList{"1 0 0 3 0 -1 A||||||||", "3 1 0 0 1 -1 B||||||||"}));
        QCOMPARE(arbre->nombreGenerations, 3);
    }
}

void TestRlgTextes::laPhotoEstChargee_data()
{
    QTest::addColumn<QByteArray>("nom");
    QTest::addColumn<int>("etat");
    QTest::newRow("photo") << QByteArray("jean.png") << 1;
    QTest::newRow("nom accentué") << QByteArray("ao\xFBt.png") << 1;
    QTest::newRow("dans un dossier") << QByteArray("photos/jean.png") << 1;
    QTest::newRow("extension trompeuse") << QByteArray("jean.txt") << 1;
    QTest::newRow("absente") << QByteArray("rien.png") << 0;
    QTest::newRow("pas une image") << QByteArray("faux.png") << 0;
    QTest::newRow("un dossier") << QByteArray("photos") << 0;
    QTest::newRow("aucune") << QByteArray() << -1;
}

void TestRlgTextes::laPhotoEstChargee()
{
    QFETCH(QByteArray, nom);
    QFETCH(int, etat);
    QImage image(7, 5, QImage::Format_RGB32);
    image.fill(Qt::red);
    QVERIFY(QDir(dossier->path()).mkdir(QStringLiteral("photos")));
    for (const QString &photo :
         {QStringLiteral("jean.png"), QStringLiteral("août.png"), QStringLiteral("photos/jean.png")})
        QVERIFY(image.save(Chemin(photo)));
    QVERIFY(QFile::copy(Chemin(QStringLiteral("jean.png")), Chemin(QStringLiteral("jean.txt"))));
    QVERIFY(!Pose(QStringLiteral("faux.png"), "pas une image").isEmpty());
    for (const int version : {1, 3}) {
        FichierRlg fichier{.version = version};
        fichier.Ajoute({.numero = 1, .textes = {"A", "", "", "", "", "", "", "", nom}});
        QCOMPARE(Lit(fichier), 0);
        const InfoPersonne &info = *arbre->premiere->info;
        QCOMPARE(info.etatPhoto, etat);
        QCOMPARE(info.photo.size(), etat == 1 ? QSize(7, 5) : QSize(0, 0));
        QVERIFY(info.photoEcran.isNull() && info.photoImpression.isNull());
        QCOMPARE(info.ficphoto, QString::fromLatin1(nom));
    }
}

void TestRlgTextes::laPhotoSeChercheDansLeDossierDonne()
{
    QImage image(3, 2, QImage::Format_RGB32);
    image.fill(Qt::blue);
    QVERIFY(QDir(dossier->path()).mkdir(QStringLiteral("ailleurs")));
    QVERIFY(image.save(Chemin(QStringLiteral("ailleurs/p.png"))));
    FichierRlg fichier;
    fichier.Ajoute({.numero = 1, .textes = {"A", "", "", "", "", "", "", "", "p.png"}});
    QCOMPARE(Lit(fichier), 0);
    QCOMPARE(arbre->premiere->info->etatPhoto, 0);
    Arbre autre;
    QString repertoire = Chemin(QStringLiteral("ailleurs"));
    QCOMPARE(readFicOldRLG(Chemin(QStringLiteral("a.rlg")), repertoire, &autre, enteteV1, enteteV3, type), 0);
    QCOMPARE(autre.premiere->info->etatPhoto, 1);
    QCOMPARE(autre.premiere->info->photo.size(), QSize(3, 2));
    QCOMPARE(repertoire, Chemin(QStringLiteral("ailleurs")));
}

RAMELIER_TEST_MAIN(QGuiApplication, TestRlgTextes)
#include "tst_rlg_textes.moc"
