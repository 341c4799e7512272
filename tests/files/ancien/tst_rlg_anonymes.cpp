#include "arbres.h"
#include "bancrlg.h"
#include "environnement.h"
#include "lecturelitterale.h"

#include <QCoreApplication>

#include <random>

/// readFicOldRLG: a person without any name is dropped, and its child loses the link.
class TestRlgAnonymes : public QObject, private BancRlg
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase() { Ecoute(); }
    void init() { Recommence(); }
    void cleanup() { QCOMPARE(messages, QStringList()); }
    void unNomOuUnPrenomSuffit_data();
    void unNomOuUnPrenomSuffit();
    void lEnfantPerdSonLien_data();
    void lEnfantPerdSonLien();
    void unAncetreAnonymeDetacheSesParents();
    void lesNumerosDe64BitsSontCompares();
    void tousAnonymesFontUnArbreVide();
    void lesAnonymesNeComptentPas();
    void commeLaRechercheDansToutLArbre_data();
    void commeLaRechercheDansToutLArbre();
    void desCentainesDeMilliersDAnonymes();
};

namespace {

/// "1:2,3" is person 1 with these parents; "-5" one of number 5 without a name.
QByteArrayList Emplacements(const QString &fiches, int version)
{
    QByteArrayList emplacements;
    for (const QString &mot : fiches.split(u' ')) {
        const QStringList nombres = QString(mot).remove(u'-').replace(u':', u',').split(u',');
        FicheRlg fiche{.numero = nombres.at(0).toULongLong()};
        if (nombres.size() == 3) {
            fiche.pere = nombres.at(1).toULongLong();
            fiche.mere = nombres.at(2).toULongLong();
        }
        if (!mot.startsWith(u'-'))
            fiche.textes = {"A"};
        emplacements += fiche.Octets(version);
    }
    return emplacements;
}

}  // namespace

void TestRlgAnonymes::unNomOuUnPrenomSuffit_data()
{
    QTest::addColumn<QByteArrayList>("textes");
    QTest::addColumn<QString>("numeros");
    QTest::newRow("nom") << QByteArrayList{"X"} << "1 2";
    QTest::newRow("prénom") << QByteArrayList{"", "X"} << "1 2";
    QTest::newRow("un blanc") << QByteArrayList{" "} << "1 2";
    QTest::newRow("rien") << QByteArrayList{} << "1";
    QTest::newRow("tout le reste") << QByteArrayList{"", "", "1900", "Lyon", "1970", "Paris", "notaire", "a.html", "b"}
                                   << "1";
}

void TestRlgAnonymes::unNomOuUnPrenomSuffit()
{
    QFETCH(QByteArrayList, textes);
    QFETCH(QString, numeros);
    for (const int version : {1, 3}) {
        FichierRlg fichier{.version = version, .generations = 2};
        fichier.Ajoute({.numero = 1, .pere = 2, .textes = {"A"}});
        fichier.Ajoute({.numero = 2, .textes = textes});
        QCOMPARE(Lit(fichier), 0);
        QCOMPARE(NumerosEnTexte(*arbre), numeros);
        QCOMPARE(arbre->premiere->pere, numeros == QStringLiteral("1") ? 0ULL : 2ULL);
    }
}

void TestRlgAnonymes::lEnfantPerdSonLien_data()
{
    QTest::addColumn<QString>("fichier");
    QTest::addColumn<QString>("parents");
    QTest::addColumn<QString>("liens");
    QTest::newRow("5 est une mère") << "1:2,3 2:4,5 3 4 -5"
                                    << "1:2,3 2:4,0 3:0,0 4:0,0"
                                    << "1>2,3 2>4,-";
    QTest::newRow("4 est un père") << "1:2,3 2:4,5 3 -4 5"
                                   << "1:2,3 2:0,5 3:0,0 5:0,0"
                                   << "1>2,3 2>-,5";
    QTest::newRow("les deux parents") << "1:2,3 -2 -3"
                                      << "1:0,0"
                                      << "";
    QTest::newRow("pair: le père, même si c'est la mère qui le nomme") << "1:2,3 2:8,4 3 -4"
                                                                       << "1:2,3 2:0,4 3:0,0"
                                                                       << "1>2,3";
    QTest::newRow("impair: la mère, même si c'est le père qui le nomme") << "1:2,3 2:5,9 3 -5"
                                                                         << "1:2,3 2:5,0 3:0,0"
                                                                         << "1>2,3";
    QTest::newRow("le premier seulement") << "1:2,5 2:4,5 3:6,5 -5"
                                          << "1:2,0 2:4,5 3:6,5"
                                          << "1>2,-";
    QTest::newRow("le premier de la liste, non du numéro") << "3:6,5 2:4,5 1:2,5 -5"
                                                           << "3:6,0 2:4,5 1:2,5"
                                                           << "";
    QTest::newRow("deux fois le même") << "1:2,5 2:4,5 3:6,5 -5 -5"
                                       << "1:2,0 2:4,0 3:6,5"
                                       << "1>2,-";
    QTest::newRow("celui qui le nomme encore arrête tout") << "1:5,7 2:4,5 -5 -5 -5"
                                                           << "1:5,0 2:4,5"
                                                           << "";
    QTest::newRow("père et mère du même numéro") << "1:5,5 2:4,5 -5 -5"
                                                 << "1:5,0 2:4,5"
                                                 << "";
    QTest::newRow("avant son enfant") << "1:2,3 -5 2:4,5 3"
                                      << "1:2,3 2:4,5 3:0,0"
                                      << "1>2,3";
    QTest::newRow("personne ne le nomme") << "1:2,3 2 3 -9"
                                          << "1:2,3 2:0,0 3:0,0"
                                          << "1>2,3";
    QTest::newRow("le numéro 0 ne délie personne") << "1:2,0 2:0,5 -0 5"
                                                   << "1:2,0 2:0,5 5:0,0"
                                                   << "1>2,- 2>-,5";
    QTest::newRow("la racine") << "-1:2,3 2:4,5 3 4 5"
                               << "2:4,5 3:0,0 4:0,0 5:0,0"
                               << "2>4,5";
    QTest::newRow("son propre parent") << "1:1,1 -1"
                                       << "1:1,0"
                                       << "";
    QTest::newRow("un homonyme en a le numéro") << "1:2,5 5 -5"
                                                << "1:2,0 5:0,0"
                                                << "";
}

void TestRlgAnonymes::lEnfantPerdSonLien()
{
    QFETCH(QString, fichier);
    QFETCH(QString, parents);
    QFETCH(QString, liens);
    for (const int version : {1, 3}) {
        QCOMPARE(Lit(FichierRlg{.version = version, .emplacements = Emplacements(fichier, version)}), 0);
        QCOMPARE(ParentsDe(*arbre), parents);
        QCOMPARE(LiensDe(*arbre), liens);
    }
}

void TestRlgAnonymes::unAncetreAnonymeDetacheSesParents()
{
    // A dropped person is nobody's child any more: the number it named stays with the others.
    QCOMPARE(Lit(FichierRlg{.emplacements = Emplacements(QStringLiteral("1:2,3 -2:4,5 3:6,5 -5"), 3)}), 0);
    QCOMPARE(ParentsDe(*arbre), QStringLiteral("1:0,3 3:6,0"));
}

void TestRlgAnonymes::lesNumerosDe64BitsSontCompares()
{
    const QString fiches = QStringLiteral("1:2,4294967299 2:4294967298,3 3:18446744073709551614,18446744073709551615 "
                                          "-4294967299 -4294967298 -18446744073709551615");
    QCOMPARE(Lit(FichierRlg{.emplacements = Emplacements(fiches, 3)}), 0);
    QCOMPARE(ParentsDe(*arbre), QStringLiteral("1:2,0 2:0,3 3:18446744073709551614,0"));
}

void TestRlgAnonymes::tousAnonymesFontUnArbreVide()
{
    for (const int version : {1, 3}) {
        FichierRlg fichier{.version = version, .emplacements = Emplacements(QStringLiteral("-1:2,3 -2 -3"), version)};
        fichier.generations = 2;
        QCOMPARE(Lit(fichier), 0);
        QVERIFY(!arbre->premiere && !arbre->derniere);
        QCOMPARE(arbre->nombrePersonnes, 0ULL);
        QCOMPARE(arbre->nombreGenerations, 2);
    }
}

void TestRlgAnonymes::lesAnonymesNeComptentPas()
{
    FichierRlg fichier{.emplacements = Emplacements(QStringLiteral("1:2,3 -2 3 -6 -7"), 3)};
    fichier.Ajoute(0);
    fichier.generations = 3;
    QCOMPARE(Lit(fichier), 0);
    QCOMPARE(arbre->nombrePersonnes, 2ULL);
    QCOMPARE(NumerosEnTexte(*arbre), QStringLiteral("1 3"));
    QCOMPARE(arbre->nombreGenerations, 3);
}

void TestRlgAnonymes::commeLaRechercheDansToutLArbre_data()
{
    QTest::addColumn<int>("plusGrand");
    QTest::addColumn<int>("personnes");
    QTest::newRow("peu de numéros") << 6 << 12;
    QTest::newRow("quelques-uns") << 30 << 40;
    QTest::newRow("beaucoup") << 60000 << 60;
}

void TestRlgAnonymes::commeLaRechercheDansToutLArbre()
{
    QFETCH(int, plusGrand);
    QFETCH(int, personnes);
    int oublies = 0;
    for (quint32 graine = 1; graine <= 1500; ++graine) {
        std::mt19937 hasard(graine);
        const auto tire = [&hasard](int n) { return quint64(hasard() % quint32(n + 1)); };
        FichierRlg fichier{.version = graine % 2 == 0 ? 1 : 3};
        for (quint64 i = tire(personnes); i > 0; --i) {
            FicheRlg fiche{.numero = tire(plusGrand)};
            fiche.pere = tire(3) == 0 ? tire(plusGrand) : 2 * fiche.numero;
            fiche.mere = tire(3) == 0 ? tire(plusGrand) : 2 * fiche.numero + 1;
            if (tire(2) > 0)
                fiche.textes = {"A"};
            if (tire(8) == 0)
                fichier.Ajoute(quint16(tire(65535)));
            fichier.Ajoute(fiche);
        }
        const QByteArray octets = fichier.Octets();
        const LectureLitterale attendu(octets);
        QCOMPARE(Lit(octets), 0);
        QVERIFY2(FichesDe(*arbre) == attendu.Fiches(), qPrintable(QStringLiteral("graine %1").arg(graine)));
        QCOMPARE(arbre->nombrePersonnes, quint64(attendu.Fiches().size()));
        QVERIFY(NumerosEnTexte(*arbre) != QStringLiteral("liste brisée"));
        oublies += int(fichier.emplacements.size() - attendu.Fiches().size());
    }
    QVERIFY(oublies > 1000);
}

void TestRlgAnonymes::desCentainesDeMilliersDAnonymes()
{
    // A walk of the list for each of them would not end: the children come last to first.
    const quint64 enfants = 200'000;
    FichierRlg fichier;
    for (quint64 n = enfants; n < 2 * enfants; ++n)
        fichier.Ajoute({.numero = n, .pere = 2 * n, .mere = 2 * n + 1, .textes = {"A"}});
    for (quint64 n = 4 * enfants - 1; n >= 2 * enfants; --n)
        fichier.Ajoute({.numero = n});
    // And as many of one number that nobody loses.
    for (quint64 n = 0; n < enfants; ++n)
        fichier.Ajoute({.numero = 1});
    QCOMPARE(Lit(fichier), 0);
    QCOMPARE(arbre->nombrePersonnes, 200'000ULL);
    quint64 restants = 0;
    for (const Personne *p = arbre->premiere; p; p = p->suivante)
        restants += p->pere + p->mere;
    QCOMPARE(restants, 0ULL);
}

RAMELIER_TEST_MAIN(QCoreApplication, TestRlgAnonymes)
#include "tst_rlg_anonymes.moc"
