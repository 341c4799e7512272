#include "arbre.h"
#include "arbres.h"
#include "environnement.h"
#include "executecli.h"
#include "ficxrlg.h"
#include "infopersonne.h"
#include "personne.h"

#include <QGuiApplication>

/// ramelier-cli comparer: the built program, what it prints and its exit status.
class TestComparer : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void deuxArbresPareils();
    void chaqueChampCompte_data();
    void chaqueChampCompte();
    void chaqueTitreCompte();
    void lesPersonnesDUnSeulArbre();
    void lesLiensComptent();
    void lesDoublonsVontParPaires();
    void enJson();
    void rienEnJson();
    void unAllerRetourParGEDCOM();
    void mauvaisUsage();
    void unFichierAbsent();

private:
    using Champ = QString InfoPersonne::*;

    [[nodiscard]] QString Chemin(const QString &nom) const { return dossier->filePath(nom); }
    QString Ecrit(const QString &nom, Arbre &arbre) const;
    [[nodiscard]] Resultat Compare(Arbre &a, Arbre &b, const QStringList &options = {}) const;

    std::unique_ptr<QTemporaryDir> dossier;
};
Q_DECLARE_METATYPE(QString InfoPersonne::*)

void TestComparer::init()
{
    dossier = std::make_unique<QTemporaryDir>();
    QVERIFY(dossier->isValid());
}

QString TestComparer::Ecrit(const QString &nom, Arbre &arbre) const
{
    return writeFicXRLG(Chemin(nom), &arbre) ? Chemin(nom) : QString();
}

Resultat TestComparer::Compare(Arbre &a, Arbre &b, const QStringList &options) const
{
    return Execute(QStringList{"comparer", Ecrit("a.xrlg", a), Ecrit("b.xrlg", b)} + options);
}

void TestComparer::deuxArbresPareils()
{
    const auto a = ArbreComplet(4);
    const auto b = ArbreComplet(4);
    const Resultat resultat = Compare(*a, *b);
    QCOMPARE(resultat.sortie, QString());
    QCOMPARE(resultat.erreur, QString());
    QCOMPARE(resultat.code, 0);
}

void TestComparer::chaqueChampCompte_data()
{
    QTest::addColumn<Champ>("champ");
    QTest::addColumn<QString>("nom");
    QTest::newRow("nom") << &InfoPersonne::nom << "nom";
    QTest::newRow("prénom") << &InfoPersonne::prenom << "prénom";
    QTest::newRow("naissance") << &InfoPersonne::datenaissance << "date de naissance";
    QTest::newRow("lieu de naissance") << &InfoPersonne::lieunaissance << "lieu de naissance";
    QTest::newRow("décès") << &InfoPersonne::datedeces << "date de décès";
    QTest::newRow("lieu de décès") << &InfoPersonne::lieudeces << "lieu de décès";
    QTest::newRow("remarque") << &InfoPersonne::divers << "remarque";
    QTest::newRow("fiche") << &InfoPersonne::fichtml << "fiche";
    QTest::newRow("photo") << &InfoPersonne::ficphoto << "photo";
}

void TestComparer::chaqueChampCompte()
{
    QFETCH(const Champ, champ);
    QFETCH(const QString, nom);
    const auto a = ArbreComplet(3);
    const auto b = ArbreComplet(3);
    Trouve(*a, 5)->info->*champ = "Élise";
    Trouve(*b, 5)->info->*champ = "élise";
    const Resultat resultat = Compare(*a, *b);
    QCOMPARE(resultat.sortie, "n° 5 : " + nom + " : « Élise » et « élise »\n");
    QCOMPARE(resultat.erreur, QString());
    QCOMPARE(resultat.code, 1);
}

void TestComparer::chaqueTitreCompte()
{
    const auto a = ArbreComplet(1);
    const auto b = ArbreComplet(1);
    *b->infoArbre = {"t", "c", "d", "m", "e"};
    QCOMPARE(Compare(*a, *b).sortie,
             "page de garde : titre : «  » et « t »\npage de garde : créé par : «  » et « c »\n"
             "page de garde : date de création : «  » et « d »\npage de garde : mis à jour par : «  » et « m »\n"
             "page de garde : date de mise à jour : «  » et « e »\n");
}

void TestComparer::lesPersonnesDUnSeulArbre()
{
    const auto a = ArbreDeNumeros({1, 2, 4});
    const auto b = ArbreDeNumeros({1, 2, 5});
    Trouve(*a, 4)->info->nom.clear();
    Trouve(*b, 5)->info->prenom = "Élise";
    const Resultat resultat = Compare(*a, *b);
    QCOMPARE(resultat.sortie,
             "n° 2 : père : « 4 » et « 0 »\nn° 2 : mère : « 0 » et « 5 »\n"
             "n° 4 : seulement dans A : sans nom\nn° 5 : seulement dans B : Élise N5\n");
    QCOMPARE(resultat.code, 1);
}

void TestComparer::lesLiensComptent()
{
    const auto a = ArbreComplet(2);
    const auto b = ArbreComplet(2);
    b->premiere->pere = 0;
    b->premiere->mere = 7;
    b->derniere->enfant = 9;
    QCOMPARE(Compare(*a, *b).sortie,
             "n° 1 : père : « 2 » et « 0 »\nn° 1 : mère : « 3 » et « 7 »\nn° 3 : enfant : « 1 » et « 9 »\n");
}

void TestComparer::lesDoublonsVontParPaires()
{
    const auto a = ArbreDeNumeros({1, 2, 2});
    const auto b = ArbreDeNumeros({1, 2, 2});
    a->derniere->info->nom = "second";
    b->derniere->info->nom = "autre";
    QCOMPARE(Compare(*a, *b).sortie, "n° 2 : nom : « second » et « autre »\n");
}

void TestComparer::enJson()
{
    const auto a = ArbreDeNumeros({1, 2});
    const auto b = ArbreDeNumeros({1});
    b->premiere->info->nom = "dit \"Petit\"";
    const Resultat resultat = Compare(*a, *b, {"--json"});
    QCOMPARE(resultat.sortie,
             "[\n{\"a\":\"N1\",\"b\":\"dit \\\"Petit\\\"\",\"champ\":\"nom\",\"numero\":\"1\"},\n"
             "{\"a\":\"2\",\"b\":\"0\",\"champ\":\"père\",\"numero\":\"1\"},\n"
             "{\"numero\":\"2\",\"personne\":\"N2\",\"seulement\":\"A\"}\n]\n");
    QCOMPARE(resultat.code, 1);
}

void TestComparer::rienEnJson()
{
    const auto a = ArbreComplet(1);
    const auto b = ArbreComplet(1);
    const Resultat resultat = Compare(*a, *b, {"--json"});
    QCOMPARE(resultat.sortie, "[]\n");
    QCOMPARE(resultat.code, 0);
}

void TestComparer::unAllerRetourParGEDCOM()
{
    // Seven generations, half of the parents known: numbers, names and links come back.
    const auto arbre = ArbreAuHasard({.graine = 7, .personnes = 60});
    arbre->infoArbre->titrearbre = "Ce titre ne revient pas";
    const QString avant = Ecrit("a.xrlg", *arbre);
    QCOMPARE(Execute({"convertir", avant, Chemin("a.ged")}).code, 0);
    const Resultat resultat = Execute({"comparer", avant, Chemin("a.ged"), "--racine", "@I1@"});
    QCOMPARE(resultat.sortie, QString());
    QCOMPARE(resultat.code, 0);
}

void TestComparer::mauvaisUsage()
{
    const Resultat resultat = Execute({"comparer", "a.xrlg"});
    QCOMPARE(resultat.code, 2);
    QCOMPARE(resultat.erreur, "ramelier-cli : comparer demande : A B\nEssayez « ramelier-cli comparer --help ».\n");
}

void TestComparer::unFichierAbsent()
{
    const auto arbre = ArbreComplet(1);
    const Resultat resultat = Execute({"comparer", Ecrit("a.xrlg", *arbre), Chemin("b.xrlg")});
    QCOMPARE(resultat.code, 1);
    QCOMPARE(resultat.sortie, QString());
    QCOMPARE(resultat.erreur, QString("ramelier-cli : Le fichier %1/b.xrlg n'existe pas\n").arg(dossier->path()));
}

RAMELIER_TEST_MAIN(QGuiApplication, TestComparer)
#include "tst_comparer.moc"
