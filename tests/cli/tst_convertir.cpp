#include "arbre.h"
#include "arbres.h"
#include "environnement.h"
#include "executecli.h"
#include "fichierrlg.h"
#include "ficxrlg.h"
#include "infopersonne.h"
#include "personne.h"

#include <QGuiApplication>

/// ramelier-cli convertir and assembler: the built program, its files and its exit status.
class TestConvertir : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void unArbreDevientUnGEDCOM();
    void leSexeDeLaRacine_data();
    void leSexeDeLaRacine();
    void unGEDCOMDevientUnArbre_data();
    void unGEDCOMDevientUnArbre();
    void unAncienArbreDevientUnArbre();
    void lesTextesQuiGenentSeRelisent();
    void lesAutresTextesSontCeuxDuProgramme();
    void lAncienContenuResteACote();
    void deuxArbresSAssemblent();
    void mauvaisUsage_data();
    void mauvaisUsage();
    void echoueEtDitPourquoi_data();
    void echoueEtDitPourquoi();
    void laSortieResteQuandLEntreeNeSeLitPas();

private:
    [[nodiscard]] QString Chemin(const QString &nom) const { return dossier->filePath(nom); }
    QString Ecrit(const QString &nom, const QByteArray &contenu) const;
    [[nodiscard]] QByteArray Lit(const QString &nom) const;
    /// Numbers and names of a tree file as ArbreEnTexte has them, its title before them.
    [[nodiscard]] QString Relu(const QString &nom) const;

    std::unique_ptr<QTemporaryDir> dossier;
};

namespace {

constexpr auto famille = "0 HEAD\n1 CHAR UTF-8\n"
                         "0 @I1@ INDI\n1 NAME Paul/MARTIN/\n1 SEX M\n1 FAMC @F1@\n"
                         "0 @I2@ INDI\n1 NAME Jean/MARTIN/\n1 SEX M\n1 FAMS @F1@\n1 FAMC @F2@\n"
                         "0 @I3@ INDI\n1 NAME Élise/LEFÈVRE/\n1 SEX F\n1 FAMS @F1@\n"
                         "0 @I4@ INDI\n1 NAME Luc/MARTIN/\n1 SEX M\n1 FAMS @F2@\n"
                         "0 @F1@ FAM\n1 HUSB @I2@\n1 WIFE @I3@\n1 CHIL @I1@\n"
                         "0 @F2@ FAM\n1 HUSB @I4@\n1 CHIL @I2@\n"
                         "0 TRLR\n";

}  // namespace

void TestConvertir::init()
{
    dossier = std::make_unique<QTemporaryDir>();
    QVERIFY(dossier->isValid());
}

QString TestConvertir::Ecrit(const QString &nom, const QByteArray &contenu) const
{
    QFile fichier(Chemin(nom));
    return fichier.open(QIODevice::WriteOnly) && fichier.write(contenu) == contenu.size() ? Chemin(nom) : QString();
}

QByteArray TestConvertir::Lit(const QString &nom) const
{
    QFile fichier(Chemin(nom));
    return fichier.open(QIODevice::ReadOnly) ? fichier.readAll() : QByteArray("illisible");
}

QString TestConvertir::Relu(const QString &nom) const
{
    Arbre arbre;
    QString repertoire = dossier->path();
    if (readFicXRLG(Chemin(nom), repertoire, &arbre) != 0)
        return "illisible";
    return arbre.infoArbre->titrearbre + u'\n' + ArbreEnTexte(arbre);
}

void TestConvertir::unArbreDevientUnGEDCOM()
{
    const auto arbre = ArbreComplet(2);
    QVERIFY(writeFicXRLG(Chemin("a.xrlg"), arbre.get()));
    const Resultat resultat = Execute({"convertir", Chemin("a.xrlg"), Chemin("a.ged")});
    QCOMPARE(resultat.erreur, QString());
    QCOMPARE(resultat.sortie, QString());
    QCOMPARE(resultat.code, 0);
    const QByteArray ged = Lit("a.ged");
    QVERIFY(ged.startsWith("0 HEAD\r\n"));
    QVERIFY(ged.contains("0 @I1@ INDI\r\n"));
    QVERIFY(ged.contains("NAME N3/\r\n"));
    QVERIFY(ged.endsWith("0 TRLR\r\n"));
}

void TestConvertir::leSexeDeLaRacine_data()
{
    QTest::addColumn<QStringList>("options");
    QTest::addColumn<QByteArray>("sexe");
    QTest::newRow("sans option") << QStringList() << QByteArray("SEX M\r\n");
    QTest::newRow("M") << QStringList{"--sexe-racine", "M"} << QByteArray("SEX M\r\n");
    QTest::newRow("F") << QStringList{"--sexe-racine", "F"} << QByteArray("SEX F\r\n");
    QTest::newRow("f") << QStringList{"--sexe-racine=f"} << QByteArray("SEX F\r\n");
}

void TestConvertir::leSexeDeLaRacine()
{
    QFETCH(const QStringList, options);
    QFETCH(const QByteArray, sexe);
    const auto arbre = ArbreComplet(1);
    QVERIFY(writeFicXRLG(Chemin("a.xrlg"), arbre.get()));
    QCOMPARE(Execute(QStringList{"convertir", Chemin("a.xrlg"), Chemin("a.ged")} + options).code, 0);
    QVERIFY(Lit("a.ged").contains(sexe));
}

void TestConvertir::unGEDCOMDevientUnArbre_data()
{
    QTest::addColumn<QStringList>("options");
    QTest::addColumn<QString>("arbre");
    const QString titre = "Généalogie importée de famille.ged\n";
    QTest::newRow("le premier sans conjoint")
        << QStringList() << titre + "1 Paul MARTIN\n  2 Jean MARTIN\n  3 Élise LEFÈVRE\n    4 Luc MARTIN\n";
    QTest::newRow("une racine choisie") << QStringList{"--racine", "@I2@"} << titre + "1 Jean MARTIN\n  2 Luc MARTIN\n";
}

void TestConvertir::unGEDCOMDevientUnArbre()
{
    QFETCH(const QStringList, options);
    QFETCH(const QString, arbre);
    const QString ged = Ecrit("famille.ged", famille);
    const Resultat resultat = Execute(QStringList{"convertir", ged, Chemin("a.xrlg")} + options);
    QCOMPARE(resultat.erreur, QString());
    QCOMPARE(resultat.code, 0);
    QCOMPARE(Relu("a.xrlg"), arbre);
}

void TestConvertir::unAncienArbreDevientUnArbre()
{
    FichierRlg ancien{.page = {"Les Martin"}};
    ancien.Ajoute({.numero = 1, .textes = {"MARTIN", "Paul"}});
    QVERIFY(!Ecrit("a.rlg", ancien.Octets()).isEmpty());
    const Resultat resultat = Execute({"convertir", Chemin("a.rlg"), Chemin("a.xrlg")});
    QCOMPARE(resultat.erreur, QString());
    QCOMPARE(resultat.code, 0);
    QCOMPARE(Relu("a.xrlg"), "Les Martin\n1 Paul MARTIN\n");
}

void TestConvertir::lesTextesQuiGenentSeRelisent()
{
    QByteArray ged(famille);
    ged.replace("Paul/MARTIN/", "Paul & Cie/<MARTIN>/");
    QCOMPARE(Execute({"convertir", Ecrit("famille.ged", ged), Chemin("a.xrlg")}).code, 0);
    QVERIFY2(Relu("a.xrlg").contains("1 Paul & Cie <MARTIN>\n"), qPrintable(Relu("a.xrlg")));
}

void TestConvertir::lesAutresTextesSontCeuxDuProgramme()
{
    const auto arbre = ArbreComplet(3);
    arbre->premiere->info->divers = "« il dit \"oui\" > à l'époque »";
    QVERIFY(writeFicXRLG(Chemin("a.xrlg"), arbre.get()));
    QCOMPARE(Execute({"convertir", Chemin("a.xrlg"), Chemin("b.xrlg")}).code, 0);
    QCOMPARE(Relu("b.xrlg"), Relu("a.xrlg"));
    QVERIFY(Lit("b.xrlg").contains("« il dit \"oui\" > à l'époque »"));
}

void TestConvertir::lAncienContenuResteACote()
{
    const QString ged = Ecrit("famille.ged", famille);
    Ecrit("a.xrlg", "avant");
    QCOMPARE(Execute({"convertir", ged, Chemin("a.xrlg")}).code, 0);
    QCOMPARE(Lit("a.xrlg~"), QByteArray("avant"));
}

void TestConvertir::deuxArbresSAssemblent()
{
    const auto parents = ArbreComplet(2);
    QVERIFY(writeFicXRLG(Chemin("pere.xrlg"), parents.get()));
    const QString mere = Ecrit("famille.ged", famille);
    const Resultat resultat = Execute({"assembler", Chemin("pere.xrlg"), mere, Chemin("enfant.xrlg")});
    QCOMPARE(resultat.erreur, QString());
    QCOMPARE(resultat.code, 0);
    QCOMPARE(Relu("enfant.xrlg"),
             "Généalogie de l'enfant\n1 Enfant\n  2 N1\n  3 Paul MARTIN\n    4 N2\n    5 N3\n    6 Jean MARTIN\n"
             "    7 Élise LEFÈVRE\n      12 Luc MARTIN\n");
}

void TestConvertir::mauvaisUsage_data()
{
    QTest::addColumn<QStringList>("arguments");
    QTest::addColumn<QString>("erreur");
    const QString convertir = "Essayez « ramelier-cli convertir --help ».\n";
    const QString assembler = "Essayez « ramelier-cli assembler --help ».\n";
    QTest::newRow("un seul fichier") << QStringList{"convertir", "a.ged"}
                                     << "ramelier-cli : convertir demande : ENTREE SORTIE\n" + convertir;
    QTest::newRow("trois fichiers") << QStringList{"convertir", "a.ged", "b.xrlg", "c.xrlg"}
                                    << "ramelier-cli : convertir demande : ENTREE SORTIE\n" + convertir;
    QTest::newRow("vers un ancien") << QStringList{"convertir", "a.xrlg", "a.rlg"}
                                    << "ramelier-cli : la sortie doit se terminer par .xrlg ou .ged : a.rlg\n"
            + convertir;
    QTest::newRow("sexe") << QStringList{"convertir", "a.xrlg", "a.ged", "--sexe-racine", "X"}
                          << "ramelier-cli : le sexe de la racine est M ou F : X\n" + convertir;
    QTest::newRow("deux arbres") << QStringList{"assembler", "a.xrlg", "b.xrlg"}
                                 << "ramelier-cli : assembler demande : PERE MERE SORTIE\n" + assembler;
    QTest::newRow("vers autre chose") << QStringList{"assembler", "a.xrlg", "b.xrlg", "c.pdf"}
                                      << "ramelier-cli : la sortie doit se terminer par .xrlg ou .ged : c.pdf\n"
            + assembler;
}

void TestConvertir::mauvaisUsage()
{
    QFETCH(const QStringList, arguments);
    QFETCH(const QString, erreur);
    const Resultat resultat = Execute(arguments);
    QCOMPARE(resultat.code, 2);
    QCOMPARE(resultat.sortie, QString());
    QCOMPARE(resultat.erreur, erreur);
}

void TestConvertir::echoueEtDitPourquoi_data()
{
    QTest::addColumn<QString>("nom");
    QTest::addColumn<QByteArray>("contenu");
    QTest::addColumn<QStringList>("options");
    QTest::addColumn<QString>("sortie");
    QTest::addColumn<QString>("erreur");
    const auto ligne = [](const char *cas, const QString &nom, const QByteArray &contenu, const QStringList &options,
                          const QString &sortie, const QString &erreur) {
        QTest::newRow(cas) << nom << contenu << options << sortie << erreur;
    };
    ligne("absent", "a.ged", {}, {}, "b.xrlg", "ramelier-cli : Le fichier %1/a.ged n'existe pas\n");
    ligne("ni arbre ni GEDCOM", "a.txt", "bonjour", {}, "b.xrlg",
          "ramelier-cli : Le fichier %1/a.txt n'est pas un arbre : son nom doit se terminer par .xrlg, .rlg ou .ged\n");
    ligne("GEDCOM sans personne", "a.ged", "0 HEAD\n0 TRLR\n", {}, "b.xrlg",
          "ramelier-cli : Impossible de construire un arbre à partir de %1/a.ged\n");
    ligne("racine inconnue", "a.ged", famille, {"--racine", "@I9@"}, "b.xrlg",
          "ramelier-cli : Impossible de trouver la personne  @I9@ proposée comme racine de l'arbre\n");
    ligne("arbre abîmé", "a.xrlg", "<html/>", {}, "b.ged",
          "ramelier-cli : Erreur de syntaxe ligne 1, colonne 6: Le fichier n'est pas un fichier XRLG.\n"
          "ramelier-cli : Impossible de charger le fichier %1/a.xrlg\n");
    ligne("dossier absent, arbre", "a.ged", famille, {}, "rien/b.xrlg",
          "ramelier-cli : Impossible d'écrire dans le fichier %1/rien/b.xrlg: Aucun fichier ou dossier.\n");
    ligne("dossier absent, GEDCOM", "a.ged", famille, {}, "rien/b.ged",
          "ramelier-cli : Impossible d'écrire dans le fichier %1/rien/b.ged\n");
}

void TestConvertir::echoueEtDitPourquoi()
{
    QFETCH(const QString, nom);
    QFETCH(const QByteArray, contenu);
    QFETCH(const QStringList, options);
    QFETCH(const QString, sortie);
    QFETCH(const QString, erreur);
    if (!contenu.isEmpty())
        QVERIFY(!Ecrit(nom, contenu).isEmpty());
    const Resultat resultat = Execute(QStringList{"convertir", Chemin(nom), Chemin(sortie)} + options);
    QCOMPARE(resultat.erreur, erreur.contains(u'%') ? erreur.arg(dossier->path()) : erreur);
    QCOMPARE(resultat.code, 1);
    QVERIFY(!QFile::exists(Chemin(sortie)));
}

void TestConvertir::laSortieResteQuandLEntreeNeSeLitPas()
{
    Ecrit("enfant.xrlg", "avant");
    const QString pere = Ecrit("famille.ged", famille);
    const Resultat resultat = Execute({"assembler", pere, Chemin("absente.xrlg"), Chemin("enfant.xrlg")});
    QCOMPARE(resultat.code, 1);
    QCOMPARE(resultat.erreur, QString("ramelier-cli : Le fichier %1/absente.xrlg n'existe pas\n").arg(dossier->path()));
    QCOMPARE(Lit("enfant.xrlg"), QByteArray("avant"));
    QVERIFY(!QFile::exists(Chemin("enfant.xrlg~")));
}

RAMELIER_TEST_MAIN(QGuiApplication, TestConvertir)
#include "tst_convertir.moc"
