#include "arbres.h"
#include "bancrlg.h"
#include "environnement.h"
#include "ramelierdoc.h"

#include <QGuiApplication>
#include <QImage>

/// RamelierDoc and the older tree files.
class TestRlgDocument : public QObject, private BancRlg
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase() { Ecoute(); }
    void init();
    void cleanup();
    void ouvreLesDeuxVersions_data();
    void ouvreLesDeuxVersions();
    void unEchecLaisseUnArbreVide_data();
    void unEchecLaisseUnArbreVide();
    void unEchecOublieLeFichierPrecedent();
    void chargeLesArbresDesParents_data();
    void chargeLesArbresDesParents();
    void sauverSousConvertit();
    void lesPhotosSontDansLeDossierDonne();
    void unFichierCoupeSOuvre();

private:
    [[nodiscard]] QByteArray Contenu(const QString &nom) const
    {
        QFile fichier(Chemin(nom));
        return fichier.open(QIODevice::ReadOnly) ? fichier.readAll() : QByteArray("illisible");
    }
    int Charge(const QString &nom, int mode = 0) { return doc->load(Chemin(nom), repertoire, options, mode); }
    static FichierRlg TroisPersonnes(int version)
    {
        FichierRlg fichier{
            .version = version, .generations = 2, .page = {"Les \xCAtres", "Moi", "1999", "Toi", "2001"}};
        fichier.Ajoute({.numero = 1, .pere = 2, .mere = 3, .textes = {"DUPONT", "Ren\xE9"}});
        fichier.Ajoute({.numero = 2, .generation = 1, .enfant = 1, .textes = {"DUPONT", "Zo\xEBl", "1900", "Lyon"}});
        fichier.Ajoute(0);
        fichier.Ajoute({.numero = 3, .generation = 1, .enfant = 1, .textes = {"MARTIN"}});
        return fichier;
    }

    std::unique_ptr<RamelierDoc> doc;
    QString repertoire;
    QString options;
    QList<int> codes;
};

void TestRlgDocument::init()
{
    Recommence();
    doc = std::make_unique<RamelierDoc>(QString());
    repertoire = dossier->path();
    options = Chemin(QStringLiteral("a.opt"));
    codes.clear();
    connect(doc.get(), &RamelierDoc::documentChanged, this, [this](int code) { codes += code; });
}

void TestRlgDocument::cleanup()
{
    doc.reset();
    QCOMPARE(messages, QStringList());
}

void TestRlgDocument::ouvreLesDeuxVersions_data()
{
    QTest::addColumn<int>("version");
    QTest::addColumn<QString>("nom");
    QTest::newRow("version 1") << 1 << "a.rlg";
    QTest::newRow("version 3") << 3 << "a.rlg";
    QTest::newRow("capitales") << 3 << "A.RLG";
    QTest::newRow("nom accentué") << 1 << QStringLiteral("Généalogie 家.rlg");
}

void TestRlgDocument::ouvreLesDeuxVersions()
{
    QFETCH(int, version);
    QFETCH(QString, nom);
    Pose(nom, TroisPersonnes(version).Octets());
    QCOMPARE(Charge(nom), 1);
    QCOMPARE(doc->typeFichier, version);
    QCOMPARE(doc->nomFichier, Chemin(nom));
    QVERIFY(doc->arbreCharge && !doc->isModified() && !doc->areOptionsModified());
    QCOMPARE(codes, QList<int>{1});
    QCOMPARE(ArbreEnTexte(*doc->arbre), QStringLiteral("1 René DUPONT\n  2 Zoël DUPONT\n  3 MARTIN\n"));
    QCOMPARE(LiensDe(*doc->arbre), QStringLiteral("1>2,3"));
    QCOMPARE(PageDe(*doc->arbre), (QStringList{QStringLiteral("Les Êtres"), "Moi", "1999", "Toi", "2001"}));
    QCOMPARE(doc->arbre->nombrePersonnes, 3ULL);
    QCOMPARE(doc->arbre->nombreGenerations, 2);
    QCOMPARE(Contenu(nom), TroisPersonnes(version).Octets());
    // The header lines are compared, never changed.
    QCOMPARE(doc->enteteV1, QStringLiteral("Arbre généalogique - R. Lidou - Version 1.0"));
    QCOMPARE(doc->enteteV3, QStringLiteral("Arbre généalogique - R. Lidou - Version 3.0"));
}

void TestRlgDocument::unEchecLaisseUnArbreVide_data()
{
    QTest::addColumn<QByteArray>("contenu");
    QTest::addColumn<int>("resultat");
    QTest::newRow("autre entête") << TroisPersonnes(3).Octets().replace("3.0", "3.1") << 2;
    QTest::newRow("vide") << QByteArray() << 2;
    QTest::newRow("autre début") << EnteteRlg(3) + "xx" << 3;
    QTest::newRow("autre début, version 1") << EnteteRlg(1) << 3;
}

void TestRlgDocument::unEchecLaisseUnArbreVide()
{
    QFETCH(QByteArray, contenu);
    QFETCH(int, resultat);
    Pose(QStringLiteral("a.rlg"), contenu);
    for (const int mode : {0, 1, 2}) {
        QCOMPARE(Charge(QStringLiteral("a.rlg"), mode), 0);
        QVERIFY(doc->arbre && !doc->arbre->premiere);
        QVERIFY(!doc->arbrePere && !doc->arbreMere);
        QCOMPARE(doc->typeFichier, 0);
        QCOMPARE(doc->nomFichier, QString());
    }
    QCOMPARE(doc->OuvreFichierArbre(Chemin(QStringLiteral("a.rlg")), repertoire), resultat);
    QCOMPARE(doc->OuvreFichierArbre(Chemin(QStringLiteral("rien.rlg")), repertoire), 1);
    QCOMPARE(Charge(QStringLiteral("rien.rlg")), 0);
    QCOMPARE(doc->typeFichier, 0);
}

void TestRlgDocument::unEchecOublieLeFichierPrecedent()
{
    Pose(QStringLiteral("a.rlg"), TroisPersonnes(3).Octets());
    Pose(QStringLiteral("b.rlg"), EnteteRlg(1) + "xx");
    QCOMPARE(Charge(QStringLiteral("a.rlg")), 1);
    doc->modifie = true;
    QCOMPARE(Charge(QStringLiteral("b.rlg")), 0);
    QCOMPARE(codes, (QList<int>{1, 0}));
    QCOMPARE(doc->typeFichier, 0);
    QCOMPARE(doc->nomFichier, QString());
    QVERIFY(!doc->isModified());
    QVERIFY(!doc->arbre->premiere);
    // And a sound one opens again.
    QCOMPARE(Charge(QStringLiteral("a.rlg")), 1);
    QCOMPARE(doc->typeFichier, 3);
    QCOMPARE(NumerosEnTexte(*doc->arbre), QStringLiteral("1 2 3"));
}

void TestRlgDocument::chargeLesArbresDesParents_data()
{
    QTest::addColumn<int>("version");
    QTest::newRow("version 1") << 1;
    QTest::newRow("version 3") << 3;
}

void TestRlgDocument::chargeLesArbresDesParents()
{
    QFETCH(int, version);
    Pose(QStringLiteral("a.rlg"), TroisPersonnes(version).Octets());
    QCOMPARE(Charge(QStringLiteral("a.rlg"), 1), 1);
    QCOMPARE(Charge(QStringLiteral("a.rlg"), 2), 1);
    QCOMPARE(NumerosEnTexte(*doc->arbrePere), QStringLiteral("1 2 3"));
    QCOMPARE(NumerosEnTexte(*doc->arbreMere), QStringLiteral("1 2 3"));
    QVERIFY(doc->arbrePere != doc->arbreMere);
    QVERIFY(!doc->arbre);
    QCOMPARE(codes, QList<int>());
    QCOMPARE(doc->nomFichier, QString());
    QVERIFY(!doc->arbreCharge);
}

void TestRlgDocument::sauverSousConvertit()
{
    for (const int version : {1, 3}) {
        Pose(QStringLiteral("a.rlg"), TroisPersonnes(version).Octets());
        QCOMPARE(Charge(QStringLiteral("a.rlg")), 1);
        const QStringList fiches = FichesDe(*doc->arbre);
        QCOMPARE(
            fiches,
            (QStringList{QStringLiteral("1 0 2 3 0 -1 DUPONT|René|||||||"),
                         QStringLiteral("2 1 0 0 1 -1 DUPONT|Zoël|1900|Lyon|||||"), "3 1 0 0 1 -1 MARTIN||||||||"}));
        QVERIFY(doc->saveAs(Chemin(QStringLiteral("a.xrlg")), options, false));
        QCOMPARE(doc->typeFichier, 4);
        QCOMPARE(doc->nomFichier, Chemin(QStringLiteral("a.xrlg")));
        QCOMPARE(Charge(QStringLiteral("a.xrlg")), 1);
        QCOMPARE(FichesDe(*doc->arbre), fiches);
        QCOMPARE(LiensDe(*doc->arbre), QStringLiteral("1>2,3"));
        QCOMPARE(PageDe(*doc->arbre), (QStringList{QStringLiteral("Les Êtres"), "Moi", "1999", "Toi", "2001"}));
        QCOMPARE(Contenu(QStringLiteral("a.rlg")), TroisPersonnes(version).Octets());
    }
}

void TestRlgDocument::lesPhotosSontDansLeDossierDonne()
{
    QImage image(7, 5, QImage::Format_RGB32);
    image.fill(Qt::red);
    QVERIFY(image.save(Chemin(QStringLiteral("p.png"))));
    FichierRlg fichier{.version = 1};
    fichier.Ajoute({.numero = 1, .textes = {"A", "", "", "", "", "", "", "", "p.png"}});
    Pose(QStringLiteral("a.rlg"), fichier.Octets());
    QCOMPARE(Charge(QStringLiteral("a.rlg")), 1);
    QCOMPARE(doc->arbre->premiere->info->etatPhoto, 1);
    QCOMPARE(doc->arbre->premiere->info->photo.size(), QSize(7, 5));
    repertoire = Chemin(QStringLiteral("rien"));
    QCOMPARE(Charge(QStringLiteral("a.rlg")), 1);
    QCOMPARE(doc->arbre->premiere->info->etatPhoto, 0);
}

void TestRlgDocument::unFichierCoupeSOuvre()
{
    // Nothing tells a short file from a whole one.
    Pose(QStringLiteral("a.rlg"), TroisPersonnes(3).Octets().chopped(30));
    QCOMPARE(Charge(QStringLiteral("a.rlg")), 1);
    QCOMPARE(doc->typeFichier, 3);
    QCOMPARE(ParentsDe(*doc->arbre), QStringLiteral("1:2,0 2:0,0"));
    QCOMPARE(doc->arbre->nombreGenerations, 0);
}

RAMELIER_TEST_MAIN(QGuiApplication, TestRlgDocument)
#include "tst_rlg_document.moc"
