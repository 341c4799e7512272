#include "arbres.h"
#include "bancrlg.h"
#include "environnement.h"

#include <QGuiApplication>

/// readFicOldRLG: the layout of both versions.
class TestRlgFormat : public QObject, private BancRlg
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase() { Ecoute(); }
    void init() { Recommence(); }
    void cleanup() { QCOMPARE(messages, QStringList()); }
    void litLaVersion1OctetParOctet();
    void litLaVersion3OctetParOctet();
    void unAutreEnteteDonneDeux_data();
    void unAutreEnteteDonneDeux();
    void lEnteteEstCelleDeLAppelant();
    void laVersion3EstCompareeDAbord();
    void uneAutreMarqueDeDebutDonneTrois_data();
    void uneAutreMarqueDeDebutDonneTrois();
    void laPageDeGardeDemandeSaMarque_data();
    void laPageDeGardeDemandeSaMarque();
    void laPageDeGardeCompleteCeQuiEstLa();
    void lesMotsInutilesSontIgnores_data();
    void lesMotsInutilesSontIgnores();
    void seuleLaVersion1ADeuxMotsDePlus();
    void uneAutreMarqueNeConsommeQuUnEmplacement_data();
    void uneAutreMarqueNeConsommeQuUnEmplacement();
    void lesNombresVontAuBoutDeLeurTaille();
    void leNombreDeGenerationsEstCeluiDuFichier();
    void leNombreDEmplacementsFaitFoi();
    void unArbreVideEstUnArbre_data();
    void unArbreVideEstUnArbre();
    void lOrdreEtLesDoublesRestent();
    void lesLiensDemandentDeuxPersonnes();
};

namespace {

void LesDeuxVersions()
{
    QTest::addColumn<int>("version");
    QTest::newRow("version 1") << 1;
    QTest::newRow("version 3") << 3;
}

const QByteArray entete1 = QByteArray::fromHex("2b 417262726520 67e96ee9616c6f6769717565 202d20 522e204c69646f75 202d20"
                                               "56657273696f6e20312e30");
const QByteArray entete3 = QByteArray::fromHex("2b 417262726520 67e96ee9616c6f6769717565 202d20 522e204c69646f75 202d20"
                                               "56657273696f6e20332e30");

}  // namespace

void TestRlgFormat::litLaVersion1OctetParOctet()
{
    const QByteArray octets = entete1
        + QByteArray::fromHex("f503 f403  0200 c974  0000 0100 42 0000 0000  adde 0200 efbe efbe"
                              "f303 0100 0000 0200 0000 0000 f203  0200 4142 0100 c9 0000 0000 0000 0000 0000 0000 0000"
                              "f303 0200 0100 0000 0000 0100 f203  0000 0100 5a 0000 0000 0000 0000 0000 0000 0000"
                              "0200");
    QCOMPARE(Lit(octets), 0);
    QCOMPARE(type, 1);
    QCOMPARE(PageDe(*arbre), (QStringList{QStringLiteral("Ét"), "", "B", "", ""}));
    QCOMPARE(FichesDe(*arbre), (QStringList{QStringLiteral("1 0 2 0 0 -1 AB|É|||||||"), "2 1 0 0 1 -1 |Z|||||||"}));
    QCOMPARE(LiensDe(*arbre), QStringLiteral("1>2,-"));
    QCOMPARE(arbre->nombreGenerations, 2);
    QCOMPARE(arbre->nombrePersonnes, 2ULL);
    FichierRlg ecrit{.version = 1, .generations = 2, .page = {"\xC9t", "", "B"}};
    ecrit.motInutile = 0xdead;
    ecrit.motsInutiles = 0xbeef;
    ecrit.Ajoute({.numero = 1, .pere = 2, .textes = {"AB", "\xC9"}});
    ecrit.Ajoute({.numero = 2, .generation = 1, .enfant = 1, .textes = {"", "Z"}});
    QCOMPARE(ecrit.Octets().toHex(), octets.toHex());
}

void TestRlgFormat::litLaVersion3OctetParOctet()
{
    const QByteArray octets = entete3
        + QByteArray::fromHex("f503 0000  adde 0300000000000000"
                              "f303 0100000000000000 0000 0000000000000000 0300000000000000 0000000000000000 f203"
                              "0100 41 0000 0000 0000 0000 0000 0000 0000 0000"
                              "0000"
                              "f303 0300000000000000 0100 0706050403020100 0000000000000000 0100000000000000 f203"
                              "0100 42 0000 0000 0000 0000 0000 0000 0000 0000"
                              "0200");
    QCOMPARE(Lit(octets), 0);
    QCOMPARE(type, 3);
    QCOMPARE(PageDe(*arbre), (QStringList{"", "", "", "", ""}));
    // 0x0001020304050607
    QCOMPARE(FichesDe(*arbre), (QStringList{"1 0 0 3 0 -1 A||||||||", "3 1 283686952306183 0 1 -1 B||||||||"}));
    QCOMPARE(LiensDe(*arbre), QStringLiteral("1>-,3"));
    QCOMPARE(arbre->nombreGenerations, 2);
    FichierRlg ecrit{.version = 3, .generations = 2, .marqueDeLaPage = 0};
    ecrit.motInutile = 0xdead;
    ecrit.Ajoute({.numero = 1, .mere = 3, .textes = {"A"}});
    ecrit.Ajoute(0);
    ecrit.Ajoute({.numero = 3, .generation = 1, .pere = 283686952306183ULL, .enfant = 1, .textes = {"B"}});
    QCOMPARE(ecrit.Octets().toHex(), octets.toHex());
}

void TestRlgFormat::unAutreEnteteDonneDeux_data()
{
    QTest::addColumn<QByteArray>("entete");
    const QByteArray v2 = QByteArray(entete3).replace("3.0", "2.0");
    QTest::newRow("version 2.0") << v2;
    QTest::newRow("version 3.1") << QByteArray(entete3).replace("3.0", "3.1");
    QTest::newRow("version 1,0") << QByteArray(entete1).replace("1.0", "1,0");
    QTest::newRow("minuscule") << QByteArray(entete3).replace('A', 'a');
    QTest::newRow("sans accents") << QByteArray(entete3).replace('\xE9', 'e');
    QTest::newRow("blanc de plus") << '\x2c' + entete3.mid(1) + ' ';
    QTest::newRow("longueur de trop") << '\x2c' + entete3.mid(1);
    QTest::newRow("longueur trop courte") << '\x2a' + entete3.mid(1);
    QTest::newRow("longueur 255") << '\xff' + entete3.mid(1);
    QTest::newRow("longueur nulle") << '\0' + entete3.mid(1);
    QTest::newRow("sans longueur") << entete3.mid(1);
    QTest::newRow("coupée") << entete3.left(43);
    QTest::newRow("UTF-8") << '\x2d' + QByteArray("Arbre généalogique - R. Lidou - Version 3.0");
    QTest::newRow("UTF-8 mal comptée") << '\x2b' + QByteArray("Arbre généalogique - R. Lidou - Version 3.0");
}

void TestRlgFormat::unAutreEnteteDonneDeux()
{
    QFETCH(QByteArray, entete);
    FichierRlg fichier{.page = {"Titre"}, .entete = entete};
    fichier.Ajoute({.numero = 1, .textes = {"A"}});
    QCOMPARE(Lit(fichier), 2);
    QCOMPARE(type, 7);
    QVERIFY(!arbre->premiere);
    QCOMPARE(arbre->nombrePersonnes, 0ULL);
    QCOMPARE(PageDe(*arbre), (QStringList{"", "", "", "", ""}));
    QCOMPARE(Lit(QByteArray()), 2);
    QCOMPARE(type, 7);
}

void TestRlgFormat::lEnteteEstCelleDeLAppelant()
{
    enteteV1 = QStringLiteral("Un");
    enteteV3 = QStringLiteral("Troisième");
    FichierRlg fichier{.entete = QByteArray("\x02Un")};
    fichier.version = 1;
    fichier.Ajoute({.numero = 1, .textes = {"A"}});
    QCOMPARE(Lit(fichier), 0);
    QCOMPARE(type, 1);
    QCOMPARE(NumerosEnTexte(*arbre), QStringLiteral("1"));
    fichier.entete = QByteArray("\x09Troisi\xE8me");
    fichier.version = 3;
    fichier.emplacements.clear();
    fichier.Ajoute({.numero = 2, .textes = {"A"}});
    QCOMPARE(Lit(fichier), 0);
    QCOMPARE(type, 3);
    QCOMPARE(NumerosEnTexte(*arbre), QStringLiteral("2"));
    fichier.entete = entete3;
    QCOMPARE(Lit(fichier), 2);
}

void TestRlgFormat::laVersion3EstCompareeDAbord()
{
    enteteV1 = enteteV3;
    FichierRlg fichier;
    fichier.Ajoute({.numero = 4294967297ULL, .textes = {"A"}});
    QCOMPARE(Lit(fichier), 0);
    QCOMPARE(type, 3);
    QCOMPARE(NumerosEnTexte(*arbre), QStringLiteral("4294967297"));
}

void TestRlgFormat::uneAutreMarqueDeDebutDonneTrois_data()
{
    QTest::addColumn<int>("version");
    QTest::addColumn<int>("marque");
    for (const int version : {1, 3}) {
        for (const int marque : {0, 1, 1010, 1011, 1012, 1014, 62723, 65535})
            QTest::addRow("version %d, marque %d", version, marque) << version << marque;
    }
}

void TestRlgFormat::uneAutreMarqueDeDebutDonneTrois()
{
    QFETCH(int, version);
    QFETCH(int, marque);
    FichierRlg fichier{.version = version, .generations = 5, .page = {"Titre"}};
    fichier.marqueDeDebut = quint16(marque);
    fichier.Ajoute({.numero = 1, .textes = {"A"}});
    QCOMPARE(Lit(fichier), 3);
    QCOMPARE(type, version);
    QVERIFY(!arbre->premiere);
    QCOMPARE(arbre->nombreGenerations, 0);
    QCOMPARE(PageDe(*arbre), (QStringList{"", "", "", "", ""}));
    // Nothing behind the header at all.
    QCOMPARE(Lit(EnteteRlg(version)), 3);
    QCOMPARE(type, version);
}

void TestRlgFormat::laPageDeGardeDemandeSaMarque_data()
{
    QTest::addColumn<int>("marque");
    QTest::addColumn<QStringList>("page");
    const QStringList rien{"", "", "", "", ""};
    QTest::newRow("1012") << 1012 << QStringList{"Titre", "Moi", "1er mai", "Toi", QStringLiteral("août")};
    QTest::newRow("0") << 0 << rien;
    QTest::newRow("1010") << 1010 << rien;
    QTest::newRow("1011") << 1011 << rien;
    QTest::newRow("1013") << 1013 << rien;
    QTest::newRow("octets échangés") << 0xf403 << rien;
    QTest::newRow("65535") << 65535 << rien;
}

void TestRlgFormat::laPageDeGardeDemandeSaMarque()
{
    QFETCH(int, marque);
    QFETCH(QStringList, page);
    for (const int version : {1, 3}) {
        FichierRlg fichier{.version = version, .page = {"Titre", "Moi", "1er mai", "Toi", "ao\xFBt"}};
        fichier.marqueDeLaPage = quint16(marque);
        fichier.Ajoute({.numero = 1, .textes = {"A"}});
        QCOMPARE(Lit(fichier), 0);
        QCOMPARE(PageDe(*arbre), page);
        QCOMPARE(NumerosEnTexte(*arbre), QStringLiteral("1"));
    }
}

void TestRlgFormat::laPageDeGardeCompleteCeQuiEstLa()
{
    // Empty texts in the middle: each string is read only where it is.
    FichierRlg fichier{.page = {"", "Moi", "", "", "fin"}};
    fichier.Ajoute({.numero = 1, .textes = {"A"}});
    QCOMPARE(Lit(fichier), 0);
    QCOMPARE(PageDe(*arbre), (QStringList{"", "Moi", "", "", "fin"}));
    QCOMPARE(NumerosEnTexte(*arbre), QStringLiteral("1"));
}

void TestRlgFormat::lesMotsInutilesSontIgnores_data()
{
    QTest::addColumn<int>("mot");
    for (const int mot : {0, 1, 1010, 1011, 1012, 1013, 65535})
        QTest::addRow("%d", mot) << mot;
}

void TestRlgFormat::lesMotsInutilesSontIgnores()
{
    QFETCH(int, mot);
    for (const int version : {1, 3}) {
        for (const quint16 marqueDeLaPage : {quint16(0), quint16(1012)}) {
            FichierRlg fichier{.version = version, .generations = 1, .page = {"T"}};
            fichier.marqueDeLaPage = marqueDeLaPage;
            fichier.motInutile = quint16(mot);
            fichier.motsInutiles = quint16(mot);
            fichier.Ajoute({.numero = 1, .textes = {"A", "B"}});
            QCOMPARE(Lit(fichier), 0);
            QCOMPARE(FichesDe(*arbre), QStringList{"1 0 0 0 0 -1 A|B|||||||"});
            QCOMPARE(arbre->nombreGenerations, 1);
            QCOMPARE(PageDe(*arbre).at(0), marqueDeLaPage == 1012 ? QStringLiteral("T") : QString());
        }
    }
}

void TestRlgFormat::seuleLaVersion1ADeuxMotsDePlus()
{
    // The two words read as a marker would make persons of them: four slots in version 3, two in version 1.
    QByteArray fin = Entier(1011, 2) + Entier(1011, 2);
    fin += FicheRlg{.numero = 1, .textes = {"A"}}.Octets(1) + FicheRlg{.numero = 2, .textes = {"B"}}.Octets(1);
    QCOMPARE(Lit(entete1 + Entier(1013, 2) + Entier(0, 2) + Entier(0, 2) + Entier(2, 2) + fin + Entier(2, 2)), 0);
    QCOMPARE(NumerosEnTexte(*arbre), QStringLiteral("1 2"));
    QCOMPARE(arbre->nombreGenerations, 2);
    const QByteArray enTrop = Entier(0, 4) + FicheRlg{.numero = 1, .textes = {"A"}}.Octets(3) + Entier(2, 2);
    const QByteArray debut = entete3 + Entier(1013, 2) + Entier(0, 2) + Entier(0, 2);
    QCOMPARE(Lit(debut + Entier(3, 8) + enTrop), 0);
    QCOMPARE(NumerosEnTexte(*arbre), QStringLiteral("1"));
    QCOMPARE(arbre->nombreGenerations, 2);
    QCOMPARE(Lit(debut + Entier(1, 8) + enTrop), 0);
    QCOMPARE(NumerosEnTexte(*arbre), QString());
}

void TestRlgFormat::uneAutreMarqueNeConsommeQuUnEmplacement_data()
{
    QTest::addColumn<int>("marque");
    for (const int marque : {0, 1, 1009, 1010, 1012, 1013, 62211, 65535})
        QTest::addRow("%d", marque) << marque;
}

void TestRlgFormat::uneAutreMarqueNeConsommeQuUnEmplacement()
{
    QFETCH(int, marque);
    for (const int version : {1, 3}) {
        FichierRlg fichier{.version = version, .generations = 9};
        fichier.Ajoute(quint16(marque));
        fichier.Ajoute({.numero = 1, .textes = {"A"}});
        fichier.Ajoute(quint16(marque));
        fichier.Ajoute(quint16(marque));
        fichier.Ajoute({.numero = 2, .textes = {"B"}});
        fichier.Ajoute(quint16(marque));
        QCOMPARE(Lit(fichier), 0);
        QCOMPARE(NumerosEnTexte(*arbre), QStringLiteral("1 2"));
        QCOMPARE(arbre->nombrePersonnes, 2ULL);
        QCOMPARE(arbre->nombreGenerations, 9);
        // The empty slots count: with four of the six, the fifth marker stands where the generations should.
        fichier.nombre = 4;
        QCOMPARE(Lit(fichier), 0);
        QCOMPARE(NumerosEnTexte(*arbre), QStringLiteral("1"));
        QCOMPARE(arbre->nombreGenerations, 1011);
    }
}

void TestRlgFormat::lesNombresVontAuBoutDeLeurTaille()
{
    const quint64 plein = 18446744073709551615ULL;
    FichierRlg v3{.generations = 65535};
    v3.Ajoute({.numero = plein,
               .generation = 65535,
               .pere = plein - 1,
               .mere = 9223372036854775808ULL,
               .enfant = plein / 2,
               .textes = {"A"}});
    QCOMPARE(Lit(v3), 0);
    QCOMPARE(FichesDe(*arbre),
             QStringList{"18446744073709551615 65535 18446744073709551614 9223372036854775808 9223372036854775807 -1 "
                         "A||||||||"});
    QCOMPARE(arbre->nombreGenerations, 65535);
    FichierRlg v1{.version = 1, .generations = 65535};
    v1.Ajoute({.numero = 65535, .generation = 65535, .pere = 65534, .mere = 32768, .enfant = 32767, .textes = {"A"}});
    QCOMPARE(Lit(v1), 0);
    QCOMPARE(FichesDe(*arbre), QStringList{"65535 65535 65534 32768 32767 -1 A||||||||"});
    QCOMPARE(arbre->nombreGenerations, 65535);
    // The low and the high half of a 64-bit number both count.
    FichierRlg liens{.generations = 2};
    liens.Ajoute({.numero = 1, .pere = 4294967298ULL, .mere = 3, .textes = {"A"}});
    liens.Ajoute({.numero = 2, .textes = {"B"}});
    liens.Ajoute({.numero = 4294967298ULL, .textes = {"C"}});
    QCOMPARE(Lit(liens), 0);
    QCOMPARE(LiensDe(*arbre), QStringLiteral("1>4294967298,-"));
}

void TestRlgFormat::leNombreDeGenerationsEstCeluiDuFichier()
{
    for (const int version : {1, 3}) {
        for (const quint16 generations : {quint16(0), quint16(1), quint16(258), quint16(65535)}) {
            FichierRlg fichier{.version = version, .generations = generations};
            fichier.Ajoute({.numero = 1, .textes = {"A"}});
            fichier.Ajoute({.numero = 2, .generation = 1, .textes = {"B"}});
            // What stands behind it is nobody's business.
            QCOMPARE(Lit(fichier.Octets() + FicheRlg{.numero = 3, .textes = {"C"}}.Octets(version)), 0);
            QCOMPARE(arbre->nombreGenerations, generations);
            QCOMPARE(NumerosEnTexte(*arbre), QStringLiteral("1 2"));
        }
    }
}

void TestRlgFormat::leNombreDEmplacementsFaitFoi()
{
    for (const int version : {1, 3}) {
        FichierRlg fichier{.version = version, .generations = 2};
        fichier.Ajoute({.numero = 1, .textes = {"A"}});
        fichier.Ajoute({.numero = 2, .textes = {"B"}});
        fichier.nombre = 1;
        QCOMPARE(Lit(fichier), 0);
        QCOMPARE(NumerosEnTexte(*arbre), QStringLiteral("1"));
        QCOMPARE(arbre->nombrePersonnes, 1ULL);
        // One too many: the generations are read as a slot, and there are none.
        fichier.nombre = 3;
        QCOMPARE(Lit(fichier), 0);
        QCOMPARE(NumerosEnTexte(*arbre), QStringLiteral("1 2"));
        QCOMPARE(arbre->nombrePersonnes, 2ULL);
        QCOMPARE(arbre->nombreGenerations, 0);
    }
}

void TestRlgFormat::unArbreVideEstUnArbre_data()
{
    LesDeuxVersions();
}

void TestRlgFormat::unArbreVideEstUnArbre()
{
    QFETCH(int, version);
    QCOMPARE(Lit(FichierRlg{.version = version, .generations = 4, .page = {"Vide"}}), 0);
    QCOMPARE(type, version);
    QVERIFY(!arbre->premiere && !arbre->derniere && !arbre->selection);
    QCOMPARE(arbre->nombrePersonnes, 0ULL);
    QCOMPARE(arbre->nombreGenerations, 4);
    QCOMPARE(PageDe(*arbre).at(0), QStringLiteral("Vide"));
    // Only the start marker.
    QCOMPARE(Lit(EnteteRlg(version) + Entier(1013, 2)), 0);
    QCOMPARE(arbre->nombreGenerations, 0);
}

void TestRlgFormat::lOrdreEtLesDoublesRestent()
{
    for (const int version : {1, 3}) {
        FichierRlg fichier{.version = version};
        for (const quint64 numero : std::initializer_list<quint64>{4, 1, 2, 2, 0, 7})
            fichier.Ajoute({.numero = numero, .textes = {"A"}});
        QCOMPARE(Lit(fichier), 0);
        QCOMPARE(NumerosEnTexte(*arbre), QStringLiteral("4 1 2 2 0 7"));
        QCOMPARE(arbre->nombrePersonnes, 6ULL);
        for (const Personne *p = arbre->premiere; p; p = p->suivante)
            QVERIFY(p->affichable && !p->selectionnee && p->x == 0 && p->y == 0);
    }
}

void TestRlgFormat::lesLiensDemandentDeuxPersonnes()
{
    for (const int version : {1, 3}) {
        FichierRlg fichier{.version = version, .generations = 2};
        fichier.Ajoute({.numero = 1, .pere = 1, .mere = 3, .textes = {"A"}});
        QCOMPARE(Lit(fichier), 0);
        QCOMPARE(LiensDe(*arbre), QString());
        // The second one is not kept, the first one stays alone.
        fichier.Ajoute({.numero = 7, .textes = {}});
        QCOMPARE(Lit(fichier), 0);
        QCOMPARE(LiensDe(*arbre), QString());
        fichier.Ajoute({.numero = 3, .generation = 1, .enfant = 1, .textes = {"B"}});
        QCOMPARE(Lit(fichier), 0);
        QCOMPARE(LiensDe(*arbre), QStringLiteral("1>-,3"));
        QCOMPARE(ParentsDe(*arbre), QStringLiteral("1:1,3 3:0,0"));
    }
}

RAMELIER_TEST_MAIN(QGuiApplication, TestRlgFormat)
#include "tst_rlg_format.moc"
