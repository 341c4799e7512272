#include "arbres.h"
#include "bancrlg.h"
#include "environnement.h"
#include "lecturelitterale.h"

#include <QCoreApplication>

#include <random>

/// readFicOldRLG: files cut short, damaged or made to exhaust the memory.
class TestRlgHostile : public QObject, private BancRlg
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void init() { Recommence(); }
    void cleanup() { QCOMPARE(messages, QStringList()); }
    void unFichierCoupeDonneCeQuIlContient();
    void coupeNImporteOu_data();
    void coupeNImporteOu();
    void chaqueBitRenverse_data();
    void chaqueBitRenverse();
    void unNombreImmenseSArreteALaFin_data();
    void unNombreImmenseSArreteALaFin();
    void desLongueursMenteuses_data();
    void desLongueursMenteuses();
    void desEmplacementsVidesJusquALaFin();
    void desOctetsQuelconques();
    void desMotsQuelconques();

private:
    void CompareAuLitteral(const QByteArray &octets, const QString &essai);
};

namespace {

/// A file with everything: title page, empty slots, missing texts, persons without a name, accents.
FichierRlg FichierRiche(int version)
{
    FichierRlg fichier{.version = version, .generations = 4, .page = {"Titre \xE9", "Moi", "1900", "Toi", "2000"}};
    fichier.motInutile = 1011;
    fichier.motsInutiles = 1011;
    fichier.Ajoute(
        {.numero = 1, .pere = 2, .mere = 3, .textes = {"DUPONT", "Ren\xE9", "1er mai", "Lyon", "", "", "?"}});
    fichier.Ajoute(0);
    fichier.Ajoute({.numero = 2, .generation = 1, .pere = 4, .mere = 5, .enfant = 1, .textes = {"B"}});
    fichier.Ajoute(
        {.numero = 3, .generation = 1, .pere = 6, .enfant = 1, .textes = {"", "C", "", "", "", "", "", "x"}});
    fichier.Ajoute({.numero = 4, .generation = 2, .enfant = 2, .textes = {"D"}, .marqueDesTextes = 0});
    fichier.Ajoute(65535);
    fichier.Ajoute({.numero = 5, .generation = 2, .enfant = 2, .textes = {"", "", "1800"}});
    fichier.Ajoute({.numero = 60001,
                    .generation = 3,
                    .pere = 60002,
                    .mere = 60003,
                    .enfant = 3,
                    .textes = {"E", "E", "E", "E", "E", "E", "E", "E", "rien.png"}});
    return fichier;
}

void LesDeuxVersions()
{
    QTest::addColumn<int>("version");
    QTest::newRow("version 1") << 1;
    QTest::newRow("version 3") << 3;
}

}  // namespace

void TestRlgHostile::initTestCase()
{
    Ecoute();
}

void TestRlgHostile::CompareAuLitteral(const QByteArray &octets, const QString &essai)
{
    const LectureLitterale attendu(octets);
    const int resultat = Lit(octets);
    QVERIFY2(resultat == attendu.resultat, qPrintable(essai));
    QVERIFY2(type == attendu.type, qPrintable(essai));
    QVERIFY2(PageDe(*arbre) == attendu.page, qPrintable(essai));
    QVERIFY2(FichesDe(*arbre) == attendu.Fiches(), qPrintable(essai));
    QVERIFY2(arbre->nombreGenerations == attendu.generations, qPrintable(essai));
    QVERIFY2(arbre->nombrePersonnes == quint64(attendu.Fiches().size()), qPrintable(essai));
    QVERIFY2(arbre->nombrePersonnes <= quint64(octets.size()) / 2, qPrintable(essai));
    QVERIFY2(NumerosEnTexte(*arbre) != QStringLiteral("liste brisée"), qPrintable(essai));
}

void TestRlgHostile::unFichierCoupeDonneCeQuIlContient()
{
    const QByteArray avant = EnteteRlg(3) + Entier(1013, 2) + Entier(0, 2) + Entier(0, 2) + Entier(2, 8)
        + FicheRlg{.numero = 1, .pere = 2, .mere = 515, .textes = {"A"}}.Octets(3);
    QCOMPARE(Lit(avant), 0);
    QCOMPARE(ParentsDe(*arbre), QStringLiteral("1:2,515"));
    // The name is cut, what follows is empty.
    const QByteArray fiche = FicheRlg{.numero = 2, .generation = 1, .enfant = 1, .textes = {"DUPONT"}}.Octets(3);
    QCOMPARE(Lit(avant + fiche.left(2 + 34 + 2 + 2 + 3)), 0);
    QCOMPARE(FichesDe(*arbre), (QStringList{"1 0 2 515 0 -1 A||||||||", "2 1 0 0 1 -1 DUP||||||||"}));
    QCOMPARE(LiensDe(*arbre), QStringLiteral("1>2,-"));
    QCOMPARE(arbre->nombreGenerations, 0);
    // Cut before the name: the person has none, and its child loses the father.
    QCOMPARE(Lit(avant + fiche.left(2 + 34 + 2)), 0);
    QCOMPARE(ParentsDe(*arbre), QStringLiteral("1:0,515"));
    // The bytes that are missing are zero: 515 is 0x0203, here as 3, which nobody names.
    QCOMPARE(Lit(avant + Entier(1011, 2) + Entier(515, 1)), 0);
    QCOMPARE(ParentsDe(*arbre), QStringLiteral("1:2,515"));
    QCOMPARE(Lit(avant + Entier(1011, 2) + Entier(515, 2)), 0);
    QCOMPARE(ParentsDe(*arbre), QStringLiteral("1:2,0"));
    // Half a marker is none, half a count of generations counts.
    QCOMPARE(Lit(avant + Entier(1011, 1)), 0);
    QCOMPARE(ParentsDe(*arbre), QStringLiteral("1:2,515"));
    QCOMPARE(Lit(avant + Entier(0, 2) + Entier(0x0402, 1)), 0);
    QCOMPARE(arbre->nombreGenerations, 2);
}

void TestRlgHostile::coupeNImporteOu_data()
{
    LesDeuxVersions();
}

void TestRlgHostile::coupeNImporteOu()
{
    QFETCH(int, version);
    const QByteArray entier = FichierRiche(version).Octets();
    for (qsizetype taille = 0; taille <= entier.size(); ++taille) {
        CompareAuLitteral(entier.left(taille), QStringLiteral("%1 octets").arg(taille));
        if (QTest::currentTestFailed())
            return;
        // 44 bytes of header, then the start marker.
        QCOMPARE(Lit(entier.left(taille)), taille < 44 ? 2 : taille < 46 ? 3 : 0);
    }
    QCOMPARE(NumerosEnTexte(*arbre), QStringLiteral("1 2 3 60001"));
    QCOMPARE(ParentsDe(*arbre), QStringLiteral("1:2,3 2:0,0 3:6,0 60001:60002,60003"));
    QCOMPARE(arbre->nombreGenerations, 4);
}

void TestRlgHostile::chaqueBitRenverse_data()
{
    LesDeuxVersions();
}

void TestRlgHostile::chaqueBitRenverse()
{
    QFETCH(int, version);
    const QByteArray sain = FichierRiche(version).Octets();
    for (qsizetype octet = 0; octet < sain.size(); ++octet) {
        for (int bit = 0; bit < 8; ++bit) {
            QByteArray abime = sain;
            abime[octet] = char(abime.at(octet) ^ (1 << bit));
            CompareAuLitteral(abime, QStringLiteral("octet %1, bit %2").arg(octet).arg(bit));
            if (QTest::currentTestFailed())
                return;
        }
    }
}

void TestRlgHostile::unNombreImmenseSArreteALaFin_data()
{
    QTest::addColumn<int>("version");
    QTest::addColumn<quint64>("nombre");
    QTest::newRow("version 1") << 1 << quint64(65535);
    QTest::newRow("deux puissance 63") << 3 << quint64(9223372036854775808ULL);
    QTest::newRow("mille milliards") << 3 << quint64(1'000'000'000'000);
    QTest::newRow("deux puissance 64 moins un") << 3 << ~quint64(0);
}

void TestRlgHostile::unNombreImmenseSArreteALaFin()
{
    QFETCH(int, version);
    QFETCH(quint64, nombre);
    FichierRlg fichier = FichierRiche(version);
    fichier.nombre = nombre;
    QCOMPARE(Lit(fichier), 0);
    QCOMPARE(NumerosEnTexte(*arbre), QStringLiteral("1 2 3 60001"));
    QCOMPARE(arbre->nombrePersonnes, 4ULL);
    QCOMPARE(arbre->nombreGenerations, 0);
    QCOMPARE(LiensDe(*arbre), QStringLiteral("1>2,3"));
    CompareAuLitteral(fichier.Octets(), QString());
    // Nothing at all behind the count.
    fichier.emplacements.clear();
    QCOMPARE(Lit(fichier.Octets().chopped(2)), 0);
    QVERIFY(!arbre->premiere);
    QCOMPARE(arbre->nombrePersonnes, 0ULL);
}

void TestRlgHostile::desLongueursMenteuses_data()
{
    QTest::addColumn<int>("longueur");
    for (const int longueur : {0x7FFF, 0x8000, 0xFFFF})
        QTest::addRow("%d", longueur) << longueur;
}

void TestRlgHostile::desLongueursMenteuses()
{
    // Each text in turn announces more than there is.
    QFETCH(int, longueur);
    for (const int version : {1, 3}) {
        for (int texte = 0; texte < 14; ++texte) {
            QByteArrayList longueurs(14, Texte("A"));
            longueurs[texte] = Entier(quint64(longueur), 2);
            const int taille = version == 1 ? 2 : 8;
            QByteArray octets = EnteteRlg(version) + Entier(1013, 2) + Entier(1012, 2) + longueurs.mid(0, 5).join();
            octets += Entier(0, 2) + Entier(1, taille) + Entier(0, version == 1 ? 4 : 0) + Entier(1011, 2);
            octets += Entier(1, taille) + Entier(0, 2 + 3 * taille) + Entier(1010, 2) + longueurs.mid(5).join();
            CompareAuLitteral(octets + Entier(1, 2), QStringLiteral("texte %1").arg(texte));
            if (QTest::currentTestFailed())
                return;
        }
    }
}

void TestRlgHostile::desEmplacementsVidesJusquALaFin()
{
    FichierRlg fichier{.generations = 0, .nombre = ~quint64(0)};
    fichier.emplacements = {QByteArray(5'000'001, '\0')};
    fichier.Ajoute({.numero = 1, .textes = {"A"}});
    QCOMPARE(Lit(fichier), 0);
    // Out of step by one byte: the person is not seen.
    QCOMPARE(arbre->nombrePersonnes, 0ULL);
    fichier.emplacements = {QByteArray(5'000'000, '\0')};
    fichier.Ajoute({.numero = 1, .textes = {"A"}});
    QCOMPARE(Lit(fichier), 0);
    QCOMPARE(NumerosEnTexte(*arbre), QStringLiteral("1"));
}

void TestRlgHostile::desOctetsQuelconques()
{
    std::mt19937 hasard(11);
    for (int essai = 0; essai < 1000; ++essai) {
        QByteArray octets = essai % 4 == 0 ? QByteArray() : EnteteRlg(essai % 4) + Entier(1013, 2);
        for (auto taille = hasard() % 500; taille > 0; --taille)
            octets += char(hasard());
        CompareAuLitteral(octets, QString::number(essai));
        if (QTest::currentTestFailed())
            return;
    }
}

void TestRlgHostile::desMotsQuelconques()
{
    // Words that mean something more often than others, so that persons come out.
    const quint16 mots[] = {0, 0, 0, 1, 1, 2, 3, 5, 1010, 1010, 1010, 1011, 1011, 1011, 1012, 1013, 0x4141, 0xFFFF};
    std::mt19937 hasard(12);
    quint64 personnes = 0;
    for (int essai = 0; essai < 2000; ++essai) {
        const int version = essai % 2 == 0 ? 1 : 3;
        QByteArray octets = EnteteRlg(version) + Entier(1013, 2) + Entier(hasard() % 2 == 0 ? 1012 : 0, 2)
            + QByteArray(10, '\0') + Entier(0, 2) + Entier(50, version == 1 ? 2 : 8);
        for (auto taille = hasard() % 400; taille > 0; --taille)
            octets += Entier(mots[hasard() % std::size(mots)], 2);
        CompareAuLitteral(octets, QString::number(essai));
        if (QTest::currentTestFailed())
            return;
        personnes += arbre->nombrePersonnes;
    }
    QVERIFY(personnes > 100);
}

RAMELIER_TEST_MAIN(QCoreApplication, TestRlgHostile)
#include "tst_rlg_hostile.moc"
