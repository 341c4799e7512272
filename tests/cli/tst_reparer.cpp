#include "arbresdifficiles.h"
#include "environnement.h"
#include "executecli.h"

#include <QFile>
#include <QGuiApplication>
#include <QTemporaryDir>

#include <unistd.h>

/// ramelier-cli reparer: the built program, its files and its exit status.
class TestReparer : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void repareUnArbreQuiNeSOuvrePlus();
    void copieUnArbreSansDefaut();
    void remplaceLaSortieEtGardeLAncienne();
    void refuseDEcrireSurLeFichier_data();
    void refuseDEcrireSurLeFichier();
    void mauvaisUsage_data();
    void mauvaisUsage();
    void echoueEtDitPourquoi_data();
    void echoueEtDitPourquoi();
    void sonAide();

private:
    [[nodiscard]] QString Chemin(const QString &nom) const { return dossier->filePath(nom); }
    void Ecrit(const QString &nom, const QByteArray &contenu) const;
    [[nodiscard]] QByteArray Lit(const QString &nom) const;

    std::unique_ptr<QTemporaryDir> dossier;
};

namespace {

QByteArray ArbreQuiNeSOuvrePlus()
{
    const auto arbre = ArbreDeNumeros({1, 2, 3});
    Trouve(*arbre, 3)->info->nom = "A & B";
    return OctetsDe(*arbre);
}

}  // namespace

void TestReparer::init()
{
    dossier = std::make_unique<QTemporaryDir>();
    QVERIFY(dossier->isValid());
}

void TestReparer::Ecrit(const QString &nom, const QByteArray &contenu) const
{
    QFile fichier(Chemin(nom));
    QVERIFY(fichier.open(QIODevice::WriteOnly) && fichier.write(contenu) == contenu.size());
}

QByteArray TestReparer::Lit(const QString &nom) const
{
    QFile fichier(Chemin(nom));
    return fichier.open(QIODevice::ReadOnly) ? fichier.readAll() : QByteArray("illisible");
}

void TestReparer::repareUnArbreQuiNeSOuvrePlus()
{
    const QByteArray avant = ArbreQuiNeSOuvrePlus();
    Ecrit("a.xrlg", avant);
    const Resultat resultat = Execute({"reparer", Chemin("a.xrlg"), Chemin("b.xrlg")});
    QCOMPARE(resultat.erreur, QString("ramelier-cli : n° 3, nom : texte protégé\n"));
    QCOMPARE(resultat.sortie, QString());
    QCOMPARE(resultat.code, 0);
    QCOMPARE(Lit("a.xrlg"), avant);
    QCOMPARE(Lit("b.xrlg"), QByteArray(avant).replace("A & B", "A &amp; B"));
}

void TestReparer::copieUnArbreSansDefaut()
{
    const QByteArray avant = OctetsDe(*ArbreComplet(3));
    Ecrit("a", avant);
    const Resultat resultat = Execute({"reparer", Chemin("a"), Chemin("b.XRLG")});
    QCOMPARE(resultat.erreur, QString("ramelier-cli : rien à réparer, la sortie est une copie\n"));
    QCOMPARE(resultat.code, 0);
    QCOMPARE(Lit("b.XRLG"), avant);
}

void TestReparer::remplaceLaSortieEtGardeLAncienne()
{
    Ecrit("a.xrlg", ArbreQuiNeSOuvrePlus());
    Ecrit("b.xrlg", "avant");
    QCOMPARE(Execute({"reparer", Chemin("a.xrlg"), Chemin("b.xrlg")}).code, 0);
    QVERIFY(Lit("b.xrlg").contains("A &amp; B"));
    QCOMPARE(Lit("b.xrlg~"), QByteArray("avant"));
}

void TestReparer::refuseDEcrireSurLeFichier_data()
{
    QTest::addColumn<QString>("fichier");
    QTest::addColumn<QString>("sortie");
    QTest::addColumn<QString>("cause");
    const QString meme = "la sortie ne peut être le fichier lui-même : ";
    QTest::newRow("le même nom") << "a.xrlg"
                                 << "a.xrlg" << meme;
    QTest::newRow("un lien vers lui") << "a.xrlg"
                                      << "lien.xrlg" << meme;
    QTest::newRow("lui par un lien") << "lien.xrlg"
                                     << "a.xrlg" << meme;
    QTest::newRow("un autre nom du même") << "a.xrlg"
                                          << "jumeau.xrlg" << meme;
    const QString garderait = "la sortie garderait son ancien contenu à la place du fichier : ";
    QTest::newRow("l'ancienne version de la sortie") << "a.xrlg~"
                                                     << "a.xrlg" << garderait;
    QTest::newRow("et par un lien") << "a.xrlg~"
                                    << "lien.xrlg" << garderait;
}

void TestReparer::refuseDEcrireSurLeFichier()
{
    QFETCH(const QString, fichier);
    QFETCH(const QString, sortie);
    QFETCH(const QString, cause);
    const QByteArray avant = ArbreQuiNeSOuvrePlus();
    Ecrit("a.xrlg", avant);
    Ecrit("a.xrlg~", "ancien" + avant);
    QVERIFY(QFile::link("a.xrlg", Chemin("lien.xrlg")));
    QCOMPARE(::link(QFile::encodeName(Chemin("a.xrlg")), QFile::encodeName(Chemin("jumeau.xrlg"))), 0);
    const Resultat resultat = Execute({"reparer", Chemin(fichier), Chemin(sortie)});
    QCOMPARE(resultat.erreur,
             "ramelier-cli : " + cause + Chemin(sortie) + "\nEssayez « ramelier-cli reparer --help ».\n");
    QCOMPARE(resultat.code, 2);
    QCOMPARE(Lit("a.xrlg"), avant);
    QCOMPARE(Lit("a.xrlg~"), "ancien" + avant);
}

void TestReparer::mauvaisUsage_data()
{
    QTest::addColumn<QStringList>("mots");
    QTest::addColumn<QString>("cause");
    QTest::newRow("un seul fichier") << QStringList{"a.xrlg"} << "reparer demande : FICHIER SORTIE";
    QTest::newRow("autre sortie") << QStringList{"a.xrlg", "b.ged"} << "la sortie doit se terminer par .xrlg : b.ged";
}

void TestReparer::mauvaisUsage()
{
    QFETCH(const QStringList, mots);
    QFETCH(const QString, cause);
    const Resultat resultat = Execute(QStringList{"reparer"} + mots);
    QCOMPARE(resultat.erreur, "ramelier-cli : " + cause + "\nEssayez « ramelier-cli reparer --help ».\n");
    QCOMPARE(resultat.code, 2);
}

void TestReparer::echoueEtDitPourquoi_data()
{
    QTest::addColumn<QString>("fichier");
    QTest::addColumn<QString>("sortie");
    QTest::addColumn<QString>("erreur");
    QTest::newRow("absent") << "rien.xrlg"
                            << "b.xrlg"
                            << "ramelier-cli : Impossible de lire le fichier %1/rien.xrlg: Aucun fichier ou dossier.\n";
    QTest::newRow("pas un arbre") << "page.html"
                                  << "b.xrlg"
                                  << "ramelier-cli : Impossible de réparer le fichier %1/page.html: Erreur de syntaxe "
                                     "ligne 1, colonne 6: Le fichier n'est pas un fichier XRLG.\n";
    QTest::newRow("dossier absent")
        << "a.xrlg"
        << "rien/b.xrlg"
        << "ramelier-cli : Impossible d'écrire dans le fichier %1/rien/b.xrlg: Aucun fichier ou dossier.\n";
}

void TestReparer::echoueEtDitPourquoi()
{
    QFETCH(const QString, fichier);
    QFETCH(const QString, sortie);
    QFETCH(const QString, erreur);
    Ecrit("a.xrlg", ArbreQuiNeSOuvrePlus());
    Ecrit("page.html", "<html/>");
    const Resultat resultat = Execute({"reparer", Chemin(fichier), Chemin(sortie)});
    QCOMPARE(resultat.erreur, erreur.arg(dossier->path()));
    QCOMPARE(resultat.code, 1);
    QVERIFY(!QFile::exists(Chemin(sortie)));
}

void TestReparer::sonAide()
{
    const Resultat resultat = Execute({"reparer", "--help"});
    QCOMPARE(resultat.code, 0);
    QVERIFY(
        resultat.sortie.startsWith("Usage : ramelier-cli reparer [options] FICHIER SORTIE\n"
                                   "écrit dans SORTIE ce que FICHIER, un .xrlg qui ne s'ouvre plus, devrait être\n"));
    QVERIFY(Execute({"--help"}).sortie.contains("  reparer FICHIER SORTIE\n"));
}

RAMELIER_TEST_MAIN(QGuiApplication, TestReparer)
#include "tst_reparer.moc"
