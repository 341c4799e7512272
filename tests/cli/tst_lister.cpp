#include "arbre.h"
#include "arbres.h"
#include "environnement.h"
#include "executecli.h"
#include "ficxrlg.h"
#include "infopersonne.h"
#include "personne.h"

#include <QGuiApplication>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>

/// ramelier-cli lister: the built program, what it prints and its exit status.
class TestLister : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void enTexte();
    void enCsv();
    void enHtml();
    void enJson();
    void lesPremieresGenerations_data();
    void lesPremieresGenerations();
    void lImplexe_data();
    void lImplexe();
    void unArbreSansPersonne();
    void uneGenerationHorsDesNombres();
    void unArbreMalRange();
    void mauvaisUsage_data();
    void mauvaisUsage();
    void unFichierIllisible();

private:
    [[nodiscard]] QString Chemin(const QString &nom) const { return dossier->filePath(nom); }
    QString Ecrit(Arbre &arbre) const;
    /// Four persons, the mother of the root's mother unknown, with every kind of text.
    [[nodiscard]] QString EcritLaFamille() const;

    std::unique_ptr<QTemporaryDir> dossier;
};

void TestLister::init()
{
    dossier = std::make_unique<QTemporaryDir>();
    QVERIFY(dossier->isValid());
}

QString TestLister::Ecrit(Arbre &arbre) const
{
    return writeFicXRLG(Chemin("a.xrlg"), &arbre) ? Chemin("a.xrlg") : QString();
}

QString TestLister::EcritLaFamille() const
{
    const auto arbre = ArbreDeNumeros({1, 2, 3, 6});
    arbre->infoArbre->titrearbre = "Les Martin";
    *Trouve(*arbre, 1)->info =
        InfoPersonne("MARTIN", "Paul", "1900", "Brest", "1980", "Pau", "marin; pêcheur", {}, {}, 0);
    *Trouve(*arbre, 2)->info = InfoPersonne("MARTIN", "Jean", {}, "Brest", {}, {}, {}, {}, {}, 0);
    *Trouve(*arbre, 3)->info =
        InfoPersonne("LEFÈVRE", "Élise", "vers 1870", {}, "1940", {}, "dite \"Lison\"", {}, {}, 0);
    return Ecrit(*arbre);
}

void TestLister::enTexte()
{
    const Resultat resultat = Execute({"lister", EcritLaFamille()});
    QCOMPARE(resultat.erreur, QString());
    QCOMPARE(resultat.code, 0);
    QCOMPARE(resultat.sortie,
             "Les Martin\n\n"
             "Génération 1 : 1 connu sur 1 (100 %), implexe 0 %\n"
             "  1  Paul MARTIN, ° 1900 à Brest, + 1980 à Pau, marin; pêcheur\n\n"
             "Génération 2 : 2 connus sur 2 (100 %), implexe 0 %\n"
             "  2  Jean MARTIN, ° à Brest, [père et mère ?]\n"
             "  3  Élise LEFÈVRE, ° vers 1870, + 1940, dite \"Lison\", [mère ?]\n\n"
             "Génération 3 : 1 connu sur 4 (25 %), implexe 0 %\n"
             "  6  N6, [père et mère ?]\n");
}

void TestLister::enCsv()
{
    const Resultat resultat = Execute({"lister", EcritLaFamille(), "--format", "csv"});
    QCOMPARE(resultat.code, 0);
    QCOMPARE(resultat.sortie,
             "numero;generation;nom;prenom;naissance;lieu_naissance;deces;lieu_deces;remarque;parents_inconnus\r\n"
             "1;1;MARTIN;Paul;1900;Brest;1980;Pau;\"marin; pêcheur\";\r\n"
             "2;2;MARTIN;Jean;;Brest;;;;père et mère\r\n"
             "3;2;LEFÈVRE;Élise;vers 1870;;1940;;\"dite \"\"Lison\"\"\";mère\r\n"
             "6;3;N6;;;;;;;père et mère\r\n");
}

void TestLister::enHtml()
{
    const Resultat resultat = Execute({"lister", EcritLaFamille(), "--format", "html", "--generations", "1"});
    QCOMPARE(resultat.code, 0);
    QCOMPARE(
        resultat.sortie,
        "<!DOCTYPE html>\n<html lang=\"fr\">\n<head>\n<meta charset=\"utf-8\">\n<title>Les Martin</title>\n</head>\n"
        "<body>\n<h1>Les Martin</h1>\n<table border=\"1\">\n"
        "<tr><th>Numéro</th><th>Génération</th><th>Nom</th><th>Prénom</th><th>Naissance</th>"
        "<th>Lieu de naissance</th><th>Décès</th><th>Lieu de décès</th><th>Remarque</th>"
        "<th>Parents inconnus</th></tr>\n"
        "<tr><th colspan=\"10\">Génération 1 : 1 connu sur 1 (100 %), implexe 0 %</th></tr>\n"
        "<tr><td>1</td><td>1</td><td>MARTIN</td><td>Paul</td><td>1900</td><td>Brest</td><td>1980</td>"
        "<td>Pau</td><td>marin; pêcheur</td><td></td></tr>\n"
        "</table>\n</body>\n</html>\n");
    // The texts of a page are no markup of it.
    QVERIFY(Execute({"lister", EcritLaFamille(), "--format", "html"}).sortie.contains("dite &quot;Lison&quot;"));
}

void TestLister::enJson()
{
    const Resultat resultat = Execute({"lister", EcritLaFamille(), "--json"});
    QCOMPARE(resultat.code, 0);
    const QJsonArray personnes = QJsonDocument::fromJson(resultat.sortie.toUtf8()).array();
    QCOMPARE(personnes.size(), 4);
    QCOMPARE(personnes.at(2).toObject(),
             (QJsonObject{{"numero", "3"},
                          {"generation", "2"},
                          {"nom", "LEFÈVRE"},
                          {"prenom", "Élise"},
                          {"naissance", "vers 1870"},
                          {"lieu_naissance", ""},
                          {"deces", "1940"},
                          {"lieu_deces", ""},
                          {"remarque", "dite \"Lison\""},
                          {"parents_inconnus", "mère"}}));
}

void TestLister::lesPremieresGenerations_data()
{
    QTest::addColumn<QString>("generations");
    QTest::addColumn<QStringList>("numeros");
    QTest::newRow("une") << "1" << QStringList{"1"};
    QTest::newRow("deux") << "2" << QStringList{"1", "2", "3"};
    QTest::newRow("trois") << "3" << QStringList{"1", "2", "3", "4", "5", "6", "7"};
    QTest::newRow("plus qu'il n'y en a") << "99" << QStringList{"1", "2", "3", "4", "5", "6", "7"};
}

void TestLister::lesPremieresGenerations()
{
    QFETCH(const QString, generations);
    const auto arbre = ArbreComplet(3);
    const Resultat resultat = Execute({"lister", Ecrit(*arbre), "--format=csv", "--generations", generations});
    QStringList numeros;
    const QStringList lignes = resultat.sortie.split("\r\n", Qt::SkipEmptyParts).mid(1);
    for (const QString &ligne : lignes)
        numeros += ligne.section(u';', 0, 0);
    QTEST(numeros, "numeros");
}

void TestLister::lImplexe_data()
{
    QTest::addColumn<InfoPersonne *>("autre");
    QTest::addColumn<QString>("taux");
    const auto ligne = [](const char *nom, const char *nomDe, const char *prenom, const char *date, const char *lieu,
                          const char *taux) {
        QTest::newRow(nom) << new InfoPersonne(QString::fromUtf8(nomDe), QString::fromUtf8(prenom),
                                               QString::fromUtf8(date), QString::fromUtf8(lieu), {}, {}, {}, {}, {}, 0)
                           << QString::fromUtf8(taux);
    };
    ligne("la même personne", "LEFÈVRE", "Élise", "1870", "Brest", "25 %");
    ligne("en capitales, avec des blancs", "lefèvre", " ÉLISE ", "1870", "BREST", "25 %");
    ligne("une autre date", "LEFÈVRE", "Élise", "1871", "Brest", "0 %");
    ligne("un autre lieu", "LEFÈVRE", "Élise", "1870", "Pau", "0 %");
    ligne("un autre prénom", "LEFÈVRE", "Elsa", "1870", "Brest", "0 %");
}

void TestLister::lImplexe()
{
    QFETCH(InfoPersonne *, autre);
    QFETCH(const QString, taux);
    const auto arbre = ArbreComplet(3);
    *Trouve(*arbre, 5)->info = InfoPersonne("LEFÈVRE", "Élise", "1870", "Brest", {}, {}, {}, {}, {}, 0);
    *Trouve(*arbre, 7)->info = *std::unique_ptr<InfoPersonne>(autre);
    const QString sortie = Execute({"lister", Ecrit(*arbre)}).sortie;
    QVERIFY2(sortie.contains("Génération 3 : 4 connus sur 4 (100 %), implexe " + taux + "\n"), qPrintable(sortie));
}

void TestLister::unArbreSansPersonne()
{
    Arbre arbre;
    const Resultat resultat = Execute({"lister", Ecrit(arbre)});
    QCOMPARE(resultat.code, 0);
    QCOMPARE(resultat.sortie, "Liste Sosa\n");
}

void TestLister::uneGenerationHorsDesNombres()
{
    // The 64th generation begins with 2^63; of so many a part of a percent is known.
    const auto arbre = ArbreDeNumeros({1, quint64(1) << 63});
    QVERIFY(Execute({"lister", Ecrit(*arbre)})
                .sortie.contains("\nGénération 64 : 1 connu sur 2^63 (0 %), implexe 0 %\n  9223372036854775808  "));
}

void TestLister::unArbreMalRange()
{
    const auto arbre = ArbreDeNumeros({1, 3, 2});
    const QString sortie = Execute({"lister", Ecrit(*arbre), "--format=csv"}).sortie;
    QVERIFY(sortie.indexOf("\n2;2;N2") > 0);
    QVERIFY(sortie.indexOf("\n2;2;N2") < sortie.indexOf("\n3;2;N3"));
}

void TestLister::mauvaisUsage_data()
{
    QTest::addColumn<QStringList>("arguments");
    QTest::addColumn<QString>("erreur");
    QTest::newRow("sans arbre") << QStringList{"lister"} << "lister demande : ARBRE";
    QTest::newRow("zéro génération") << QStringList{"lister", "a.xrlg", "--generations", "0"}
                                     << "le nombre de générations est un entier à partir de 1 : 0";
    QTest::newRow("des générations en lettres") << QStringList{"lister", "a.xrlg", "--generations", "dix"}
                                                << "le nombre de générations est un entier à partir de 1 : dix";
    QTest::newRow("un autre format") << QStringList{"lister", "a.xrlg", "--format", "xls"}
                                     << "le format est texte, csv ou html : xls";
}

void TestLister::mauvaisUsage()
{
    QFETCH(const QStringList, arguments);
    QFETCH(const QString, erreur);
    const Resultat resultat = Execute(arguments);
    QCOMPARE(resultat.code, 2);
    QCOMPARE(resultat.sortie, QString());
    QCOMPARE(resultat.erreur, "ramelier-cli : " + erreur + "\nEssayez « ramelier-cli lister --help ».\n");
}

void TestLister::unFichierIllisible()
{
    QFile fichier(Chemin("a.xrlg"));
    QVERIFY(fichier.open(QIODevice::WriteOnly));
    fichier.write("<html/>");
    fichier.close();
    const Resultat resultat = Execute({"lister", Chemin("a.xrlg")});
    QCOMPARE(resultat.code, 1);
    QCOMPARE(resultat.sortie, QString());
    QCOMPARE(resultat.erreur,
             QString("ramelier-cli : Erreur de syntaxe ligne 1, colonne 6: Le fichier n'est pas un fichier XRLG.\n"
                     "ramelier-cli : Impossible de charger le fichier %1/a.xrlg\n")
                 .arg(dossier->path()));
}

RAMELIER_TEST_MAIN(QGuiApplication, TestLister)
#include "tst_lister.moc"
