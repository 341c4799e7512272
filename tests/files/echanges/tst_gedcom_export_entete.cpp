#include "bancechange.h"
#include "environnement.h"
#include "fichierattendu.h"

#include <QCoreApplication>

/// The header of the GEDCOM file that the export writes, with the tree's title page and the names of the files.
class TestGedcomExportEntete : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void titreEtAuteurs();
    void lesLignesDeTitre_data();
    void lesLignesDeTitre();
    void lesTextesSortentTelsQuels();
    void lesNomsDeFichierPerdentLeurDossier_data();
    void lesNomsDeFichierPerdentLeurDossier();
};

namespace {

std::unique_ptr<Arbre> JeanDupont()
{
    auto arbre = ArbreDeNumeros({1});
    arbre->premiere->info->prenom = QStringLiteral("Jean");
    arbre->premiere->info->nom = QStringLiteral("DUPONT");
    return arbre;
}

}  // namespace

void TestGedcomExportEntete::titreEtAuteurs()
{
    BancEchange banc;
    const auto arbre = JeanDupont();
    *arbre->infoArbre = {QStringLiteral("Les DUPONT à Sète"), QStringLiteral("Zoé MARTIN"),
                         QStringLiteral("3 mai 2001"), QStringLiteral("Luc NOËL"), QStringLiteral("août 2005")};
    const QByteArray octets = banc.Exporte(*arbre);
    const QStringList lignes{
        "0 HEAD",
        "  1 SOUR Ramelier",
        "    2 VERS 3.2",
        "    2 NAME Ramelier - Arbre généalogique",
        "    2 CORP R. Lidou",
        "      3 ADDR contact@ramelier.example",
        "  1 DATE " + banc.jour.toString(Qt::TextDate),
        "  1 CHAR ANSI",
        "  1 SUBM @S0@",
        "  1 FILE a.ged",
        "    2 NOTE Exporté du fichier : famille.xrlg",
        "      3 CONT Titre de l'arbre : Les DUPONT à Sète",
        "      3 CONT Auteur : Zoé MARTIN - Date : 3 mai 2001",
        "      3 CONT Mise à jour - Auteur : Luc NOËL - Date : août 2005",
        "  1 GEDC",
        "    2 VERS 5.5",
        "    2 FORM LINEAGE_LINKED",
        "0 @S0@ SUBM",
        "  1 NAME Zoé MARTIN",
        "0 @I1@ INDI",
        "  1 NAME Jean/DUPONT/",
        "  1 SEX M",
        "0 TRLR",
    };
    QCOMPARE(Morceaux(octets), Morceaux(Octets(lignes)));
}

void TestGedcomExportEntete::lesLignesDeTitre_data()
{
    QTest::addColumn<QStringList>("garde");  // title, author, date, updater, date
    QTest::addColumn<QStringList>("lignes");
    QTest::newRow("rien") << QStringList{"", "", "", "", ""} << QStringList{};
    QTest::newRow("un titre") << QStringList{"T", "", "", "", ""} << QStringList{"      3 CONT Titre de l'arbre : T"};
    QTest::newRow("un auteur") << QStringList{"", "A", "", "", ""}
                               << QStringList{"  1 SUBM @S0@", "      3 CONT Auteur : A", "0 @S0@ SUBM", "  1 NAME A"};
    QTest::newRow("un auteur et sa date")
        << QStringList{"", "A", "D", "", ""}
        << QStringList{"  1 SUBM @S0@", "      3 CONT Auteur : A - Date : D", "0 @S0@ SUBM", "  1 NAME A"};
    QTest::newRow("une date sans auteur") << QStringList{"", "", "D", "", ""} << QStringList{};
    QTest::newRow("une mise à jour") << QStringList{"", "", "", "M", ""}
                                     << QStringList{"      3 CONT Mise à jour - Auteur : M"};
    QTest::newRow("une mise à jour et sa date")
        << QStringList{"", "", "", "M", "E"} << QStringList{"      3 CONT Mise à jour - Auteur : M - Date : E"};
    QTest::newRow("une date de mise à jour seule") << QStringList{"", "", "", "", "E"} << QStringList{};
    QTest::newRow("des dates croisées") << QStringList{
        "", "A", "", "", "E"} << QStringList{"  1 SUBM @S0@", "      3 CONT Auteur : A", "0 @S0@ SUBM", "  1 NAME A"};
}

void TestGedcomExportEntete::lesLignesDeTitre()
{
    QFETCH(QStringList, garde);
    QFETCH(QStringList, lignes);
    BancEchange banc;
    const auto arbre = JeanDupont();
    *arbre->infoArbre = {garde.at(0), garde.at(1), garde.at(2), garde.at(3), garde.at(4)};
    const QStringList ecrites = QString::fromLatin1(banc.Exporte(*arbre)).split(QStringLiteral("\r\n"));
    QStringList enPlus = ecrites;
    const QStringList enTete = EnTete(banc.jour);
    for (const QString &ligne : enTete)
        QVERIFY2(enPlus.removeOne(ligne), qPrintable(ligne));
    QCOMPARE(enPlus, lignes + QStringList({"0 @I1@ INDI", "  1 NAME Jean/DUPONT/", "  1 SEX M", "0 TRLR", ""}));
}

void TestGedcomExportEntete::lesTextesSortentTelsQuels()
{
    BancEchange banc;
    const auto arbre = JeanDupont();
    *arbre->infoArbre = {QStringLiteral("100 % %s\nŒuvre / é"), QStringLiteral("%1 ☺"), QStringLiteral("%n"),
                         QStringLiteral("\"@\""), QStringLiteral("%2\r")};
    const QByteArray octets = banc.Exporte(*arbre);
    QVERIFY(octets.contains("      3 CONT Titre de l'arbre : 100 % %s\n?uvre / \xe9\r\n"
                            "      3 CONT Auteur : %1 ? - Date : %n\r\n"
                            "      3 CONT Mise \xe0 jour - Auteur : \"@\" - Date : %2\r\r\n"
                            "  1 GEDC\r\n"));
    QVERIFY(octets.contains("\r\n0 @S0@ SUBM\r\n  1 NAME %1 ?\r\n0 @I1@ INDI\r\n"));
}

void TestGedcomExportEntete::lesNomsDeFichierPerdentLeurDossier_data()
{
    QTest::addColumn<QString>("nomGED");
    QTest::addColumn<QString>("nomArbre");
    QTest::addColumn<QByteArray>("lignes");
    QTest::addColumn<QString>("message");
    QTest::newRow("pas encore sauvé") << "b.ged"
                                      << "" << QByteArray("  1 FILE b.ged\r\n    2 NOTE Export\xe9 du fichier : \r\n")
                                      << "Exportation du fichier : \nvers fichier : b.ged\nterminée";
    QTest::newRow("des pourcents et des blancs")
        << "50 %1 %s.ged"
        << "/a/%2 b.xrlg" << QByteArray("  1 FILE 50 %1 %s.ged\r\n    2 NOTE Export\xe9 du fichier : %2 b.xrlg\r\n")
        << "Exportation du fichier : %2 b.xrlg\nvers fichier : 50 %1 %s.ged\nterminée";
    QTest::newRow("des accents") << "Noël.x.ged"
                                 << "/é/Œuvre.rlg"
                                 << QByteArray(
                                        "  1 FILE No\xebl.x.ged\r\n    2 NOTE Export\xe9 du fichier : ?uvre.rlg\r\n")
                                 << "Exportation du fichier : Œuvre.rlg\nvers fichier : Noël.x.ged\nterminée";
}

void TestGedcomExportEntete::lesNomsDeFichierPerdentLeurDossier()
{
    QFETCH(QString, nomGED);
    QFETCH(QString, nomArbre);
    QFETCH(QByteArray, lignes);
    QFETCH(QString, message);
    BancEchange banc;
    const auto arbre = ArbreComplet(1);
    const QString nomArbreAvant = nomArbre;
    ExporterVersFichierGEDCOM(nullptr, banc.Chemin(nomGED), arbre.get(), nomArbre);
    QVERIFY(banc.Contenu(nomGED).contains("  1 CHAR ANSI\r\n" + lignes + "  1 GEDC\r\n"));
    QCOMPARE(banc.messages.constLast(), "information|Exportation vers GEDCOM|" + message);
    QCOMPARE(nomArbre, nomArbreAvant);
}

RAMELIER_TEST_MAIN(QCoreApplication, TestGedcomExportEntete)
#include "tst_gedcom_export_entete.moc"
