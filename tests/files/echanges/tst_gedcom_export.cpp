#include "bancechange.h"
#include "environnement.h"
#include "fichierattendu.h"

#include <QCoreApplication>

/// The GEDCOM file that the export writes, byte by byte.
class TestGedcomExport : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void laRacineSeule();
    void troisGenerations();
    void lesPersonnesSansNomNOntPasDeFiche();
    void unParentEstUnNumero();
    void nomsEtPrenoms_data();
    void nomsEtPrenoms();
    void lesDonneesDUnePersonne_data();
    void lesDonneesDUnePersonne();
    void leSexeEstDemandePourLaRacineSeule_data();
    void leSexeEstDemandePourLaRacineSeule();
    void leSexeEstDemandeChaqueFois();
    void lesGrandsNumeros();
    void lArbreResteCeQuIlEtait();

private:
    /// What follows the header of a.ged, "0 TRLR" included.
    static QByteArrayList Corps(BancEchange &banc, Arbre &arbre);
};

namespace {

std::unique_ptr<Arbre> UnePersonne(const QString &prenom, const QString &nom)
{
    auto arbre = ArbreDeNumeros({1});
    arbre->premiere->info->prenom = prenom;
    arbre->premiere->info->nom = nom;
    return arbre;
}

/// Two parents of the root, the father of one and the mother of the other.
const QStringList troisGenerationsAttendues{
    "0 @I1@ INDI",
    "  1 NAME Luc/NOËL/",
    "  1 SEX M",
    "  1 BIRT",
    "    2 DATE 1950",
    "    2 PLAC Metz",
    "  1 DEAT",
    "    2 DATE 2001",
    "    2 PLAC Brest",
    "  1 FAMC @F23@",
    "  1 OCCU Pâtre",
    "  1 NOTE  informations complémentaires : ",
    "    2 CONT  voir fichier (html ou texte) : luc.html",
    "    2 CONT  Photo voir fichier : luc.png",
    "  1 OBJE luc.png",
    "0 @I2@ INDI",
    "  1 NAME Jean/NOËL/",
    "  1 SEX M",
    "  1 BIRT",
    "    2 DATE 1920",
    "  1 DEAT",
    "    2 DATE 1990",
    "  1 FAMS @F23@",
    "  1 FAMC @F45@",
    "  1 OCCU Maçon",
    "  1 OBJE jean.png",
    "0 @I3@ INDI",
    "  1 NAME ROY/",
    "  1 SEX F",
    "  1 DEAT",
    "    2 PLAC Caen",
    "  1 FAMS @F23@",
    "  1 FAMC @F67@",
    "  1 NOTE  informations complémentaires : ",
    "    2 CONT  voir fichier (html ou texte) : roy.txt",
    "0 @I4@ INDI",
    "  1 NAME Guy//",
    "  1 SEX M",
    "  1 BIRT",
    "    2 PLAC Dole",
    "  1 FAMS @F45@",
    "0 @I7@ INDI",
    "  1 NAME Ève/SÉE/",
    "  1 SEX F",
    "  1 FAMS @F67@",
    "0 @F23@ FAM",
    "  1 HUSB @I2@",
    "  1 WIFE @I3@",
    "  1 CHIL @I1@",
    "  1 NCHI 1",
    "0 @F45@ FAM",
    "  1 HUSB @I4@",
    "  1 CHIL @I2@",
    "  1 NCHI 1",
    "0 @F67@ FAM",
    "  1 WIFE @I7@",
    "  1 CHIL @I3@",
    "  1 NCHI 1",
    "0 TRLR",
};

}  // namespace

QByteArrayList TestGedcomExport::Corps(BancEchange &banc, Arbre &arbre)
{
    const QByteArray octets = banc.Exporte(arbre);
    const QByteArray enTete = Octets(EnTete(banc.jour));
    if (!octets.startsWith(enTete))
        return Morceaux(octets);
    return Morceaux(octets.mid(enTete.size()));
}

void TestGedcomExport::laRacineSeule()
{
    BancEchange banc;
    const auto arbre = UnePersonne(QStringLiteral("Jean"), QStringLiteral("DUPONT"));
    const QByteArray octets = banc.Exporte(*arbre);
    const QByteArray attendu = "0 HEAD\r\n"
                               "  1 SOUR Ramelier\r\n"
                               "    2 VERS 3.2\r\n"
                               "    2 NAME Ramelier - Arbre g\xe9n\xe9"
                               "alogique\r\n"
                               "    2 CORP R. Lidou\r\n"
                               "      3 ADDR contact@ramelier.example\r\n"
                               "  1 DATE "
        + banc.jour.toString(Qt::TextDate).toLatin1()
        + "\r\n"
          "  1 CHAR ANSI\r\n"
          "  1 FILE a.ged\r\n"
          "    2 NOTE Export\xe9 du fichier : famille.xrlg\r\n"
          "  1 GEDC\r\n"
          "    2 VERS 5.5\r\n"
          "    2 FORM LINEAGE_LINKED\r\n"
          "0 @I1@ INDI\r\n"
          "  1 NAME Jean/DUPONT/\r\n"
          "  1 SEX M\r\n"
          "0 TRLR\r\n";
    QCOMPARE(Morceaux(octets), Morceaux(attendu));
    QCOMPARE(banc.messages,
             (QStringList{"sexe",
                          "information|Exportation vers GEDCOM|"
                          "Exportation du fichier : famille.xrlg\n"
                          "vers fichier : a.ged\nterminée"}));
}

void TestGedcomExport::troisGenerations()
{
    // No mother for 2, no father for 3.
    BancEchange banc;
    const auto arbre = ArbreDeNumeros({1, 2, 3, 4, 7});
    *Trouve(*arbre, 1)->info = {"NOËL", "Luc", "1950", "Metz", "2001", "Brest", "Pâtre", "luc.html", "luc.png", 0};
    *Trouve(*arbre, 2)->info = {"NOËL", "Jean", "1920", "", "1990", "", "Maçon", "", "jean.png", 0};
    *Trouve(*arbre, 3)->info = {"ROY", "", "", "", "", "Caen", "", "roy.txt", "", 0};
    *Trouve(*arbre, 4)->info = {"", "Guy", "", "Dole", "", "", "", "", "", 0};
    *Trouve(*arbre, 7)->info = {"SÉE", "Ève", "", "", "", "", "", "", "", 0};
    const QByteArray octets = banc.Exporte(*arbre);
    QCOMPARE(Morceaux(octets), Morceaux(Octets(EnTete(banc.jour) + troisGenerationsAttendues)));
    QCOMPARE(banc.messages.count(QStringLiteral("sexe")), 1);
}

void TestGedcomExport::lesPersonnesSansNomNOntPasDeFiche()
{
    BancEchange banc;
    const auto arbre = ArbreDeNumeros({1, 2, 3, 6});
    for (const quint64 numero : std::initializer_list<quint64>{1, 3, 6})
        *Trouve(*arbre, numero)->info = {"", "", "1900", "Metz", "1980", "Brest", "Pâtre", "a.html", "a.png", 0};
    const QStringList lignes{
        "0 @I2@ INDI",   "  1 NAME N2/",  "  1 SEX M",     "  1 FAMS @F23@", "0 @F23@ FAM",
        "  1 HUSB @I2@", "  1 WIFE @I3@", "  1 CHIL @I1@", "  1 NCHI 1",     "0 @F67@ FAM",
        "  1 HUSB @I6@", "  1 CHIL @I3@", "  1 NCHI 1",    "0 TRLR",
    };
    QCOMPARE(Corps(banc, *arbre), Morceaux(Octets(lignes)));
    // The root has no name: nobody asks for its sex.
    QCOMPARE(banc.messages,
             QStringList{"information|Exportation vers GEDCOM|Exportation du fichier : famille.xrlg\n"
                         "vers fichier : a.ged\nterminée"});
    for (const Personne *personne = arbre->premiere; personne; personne = personne->suivante)
        personne->info->nom.clear();
    Trouve(*arbre, 3)->pere = 0;
    const QStringList sansFiche{"0 @F23@ FAM",   "  1 HUSB @I2@", "  1 WIFE @I3@",
                                "  1 CHIL @I1@", "  1 NCHI 1",    "0 TRLR"};
    QCOMPARE(Corps(banc, *arbre), Morceaux(Octets(sansFiche)));
}

void TestGedcomExport::unParentEstUnNumero()
{
    BancEchange banc;
    const auto arbre = UnePersonne(QStringLiteral("Jean"), QStringLiteral("DUPONT"));
    arbre->premiere->mere = 3;
    const QStringList lignes{"0 @I1@ INDI",   "  1 NAME Jean/DUPONT/", "  1 SEX M",  "  1 FAMC @F23@", "0 @F23@ FAM",
                             "  1 WIFE @I3@", "  1 CHIL @I1@",         "  1 NCHI 1", "0 TRLR"};
    QCOMPARE(Corps(banc, *arbre), Morceaux(Octets(lignes)));
}

void TestGedcomExport::nomsEtPrenoms_data()
{
    QTest::addColumn<QString>("prenom");
    QTest::addColumn<QString>("nom");
    QTest::addColumn<QByteArray>("ligne");
    const auto cas = [](const char *titre, const char *prenom, const char *nom, const QByteArray &ligne) {
        QTest::newRow(titre) << QString::fromUtf8(prenom) << QString::fromUtf8(nom) << ligne;
    };
    cas("les deux", "Jean", "DUPONT", "  1 NAME Jean/DUPONT/\r");
    cas("un nom seul", "", "DUPONT", "  1 NAME DUPONT/\r");
    cas("un prénom seul", "Jean", "", "  1 NAME Jean//\r");
    cas("le blanc d'un import", "Jean ", "DUPONT", "  1 NAME Jean /DUPONT/\r");
    cas("des blancs", " ", " ", "  1 NAME  / /\r");
    cas("des pourcents", "%s%n", "100%", "  1 NAME %s%n/100%/\r");
    cas("des barres", "a/b", "/c/", "  1 NAME a/b//c//\r");
    cas("des barres inverses", "\\n", "\\", "  1 NAME \\n/\\/\r");
    cas("un arrobas", "@I2@", "@", "  1 NAME @I2@/@/\r");
    cas("des accents", "Zoé", "ÇÀŸß", "  1 NAME Zo\xe9/\xc7\xc0?\xdf/\r");
    cas("hors de Latin-1", "Œdipe", "Ł€", "  1 NAME ?dipe/?\?/\r");
    cas("une tabulation", "a\tb", "c", "  1 NAME a\tb/c/\r");
    cas("une fin de ligne", "a\rb", "c", "  1 NAME a\rb/c/\r");
    cas("une espace insécable", "a\u00a0b", "ÿ",
        "  1 NAME a\xa0"
        "b/\xff/\r");
}

void TestGedcomExport::nomsEtPrenoms()
{
    QFETCH(QString, prenom);
    QFETCH(QString, nom);
    QFETCH(QByteArray, ligne);
    BancEchange banc;
    const auto arbre = UnePersonne(prenom, nom);
    QCOMPARE(Corps(banc, *arbre), (QByteArrayList{"0 @I1@ INDI\r", ligne, "  1 SEX M\r", "0 TRLR\r", ""}));
}

void TestGedcomExport::lesDonneesDUnePersonne_data()
{
    QTest::addColumn<QStringList>("donnees");  // birth date and place, death date and place, remark, sheet, photo
    QTest::addColumn<QStringList>("lignes");
    const auto cas = [](const char *titre, const QStringList &donnees, const QStringList &lignes) {
        QTest::newRow(titre) << donnees << lignes;
    };
    cas("rien", {"", "", "", "", "", "", ""}, {});
    cas("date de naissance", {"n", "", "", "", "", "", ""}, {"  1 BIRT", "    2 DATE n"});
    cas("lieu de naissance", {"", "N", "", "", "", "", ""}, {"  1 BIRT", "    2 PLAC N"});
    cas("naissance", {"n", "N", "", "", "", "", ""}, {"  1 BIRT", "    2 DATE n", "    2 PLAC N"});
    cas("date de décès", {"", "", "d", "", "", "", ""}, {"  1 DEAT", "    2 DATE d"});
    cas("lieu de décès", {"", "", "", "D", "", "", ""}, {"  1 DEAT", "    2 PLAC D"});
    cas("décès", {"", "", "d", "D", "", "", ""}, {"  1 DEAT", "    2 DATE d", "    2 PLAC D"});
    cas("lieu de naissance, date de décès", {"", "N", "d", "", "", "", ""},
        {"  1 BIRT", "    2 PLAC N", "  1 DEAT", "    2 DATE d"});
    cas("remarque", {"", "", "", "", "r", "", ""}, {"  1 OCCU r"});
    cas("photo", {"", "", "", "", "", "", "p.png"}, {"  1 OBJE p.png"});
    cas("fiche", {"", "", "", "", "", "f.html", ""},
        {"  1 NOTE  informations complémentaires : ", "    2 CONT  voir fichier (html ou texte) : f.html"});
    cas("fiche et photo", {"", "", "", "", "", "f.html", "p.png"},
        {"  1 NOTE  informations complémentaires : ", "    2 CONT  voir fichier (html ou texte) : f.html",
         "    2 CONT  Photo voir fichier : p.png", "  1 OBJE p.png"});
    cas("tout, avec des pourcents", {"%d", "%s", "%1", "%%", "%n", "%x", "%c"},
        {"  1 BIRT", "    2 DATE %d", "    2 PLAC %s", "  1 DEAT", "    2 DATE %1", "    2 PLAC %%", "  1 OCCU %n",
         "  1 NOTE  informations complémentaires : ", "    2 CONT  voir fichier (html ou texte) : %x",
         "    2 CONT  Photo voir fichier : %c", "  1 OBJE %c"});
    cas("des blancs", {" ", " ", " ", " ", " ", "", ""},
        {"  1 BIRT", "    2 DATE  ", "    2 PLAC  ", "  1 DEAT", "    2 DATE  ", "    2 PLAC  ", "  1 OCCU  "});
    cas("une fin de ligne", {"", "", "", "", "a\nb", "", ""}, {"  1 OCCU a\nb"});
}

void TestGedcomExport::lesDonneesDUnePersonne()
{
    QFETCH(QStringList, donnees);
    QFETCH(QStringList, lignes);
    BancEchange banc;
    const auto arbre = UnePersonne(QStringLiteral("Jean"), QStringLiteral("DUPONT"));
    *arbre->premiere->info = {"DUPONT",      "Jean",        donnees.at(0), donnees.at(1), donnees.at(2),
                              donnees.at(3), donnees.at(4), donnees.at(5), donnees.at(6), 0};
    const QStringList avant{"0 @I1@ INDI", "  1 NAME Jean/DUPONT/", "  1 SEX M"};
    QCOMPARE(Corps(banc, *arbre), Morceaux(Octets(avant + lignes + QStringList("0 TRLR"))));
}

void TestGedcomExport::leSexeEstDemandePourLaRacineSeule_data()
{
    QTest::addColumn<bool>("masculine");
    QTest::addColumn<QByteArray>("sexes");
    QTest::newRow("un homme") << true << QByteArray("MMFMFMF");
    QTest::newRow("une femme") << false << QByteArray("FMFMFMF");
}

void TestGedcomExport::leSexeEstDemandePourLaRacineSeule()
{
    QFETCH(bool, masculine);
    QFETCH(QByteArray, sexes);
    BancEchange banc;
    banc.reponses->masculine = masculine;
    const auto arbre = ArbreComplet(3);
    QByteArray ecrits;
    for (const QByteArray &ligne : Corps(banc, *arbre)) {
        if (ligne.startsWith("  1 SEX "))
            ecrits += ligne.mid(8).trimmed();
    }
    QCOMPARE(ecrits, sexes);
    QCOMPARE(banc.messages.size(), 2);
    QCOMPARE(banc.messages.constFirst(), QStringLiteral("sexe"));
}

void TestGedcomExport::leSexeEstDemandeChaqueFois()
{
    BancEchange banc;
    const auto arbre = ArbreComplet(1);
    for (const bool masculine : {false, true, false}) {
        banc.reponses->masculine = masculine;
        QCOMPARE(Corps(banc, *arbre),
                 (QByteArrayList{"0 @I1@ INDI\r", "  1 NAME N1/\r", masculine ? "  1 SEX M\r" : "  1 SEX F\r",
                                 "0 TRLR\r", ""}));
        QCOMPARE(banc.messages.count(QStringLiteral("sexe")), 1);
    }
}

void TestGedcomExport::lesGrandsNumeros()
{
    BancEchange banc;
    const auto arbre =
        ArbreDeNumeros({1, 4294967296, 9223372036854775807ULL, 18446744073709551614ULL, 18446744073709551615ULL});
    const QStringList lignes{
        "0 @I1@ INDI",
        "  1 NAME N1/",
        "  1 SEX M",
        "0 @I4294967296@ INDI",
        "  1 NAME N4294967296/",
        "  1 SEX M",
        "  1 FAMS @F42949672964294967297@",
        "0 @I9223372036854775807@ INDI",
        "  1 NAME N9223372036854775807/",
        "  1 SEX F",
        "  1 FAMS @F92233720368547758069223372036854775807@",
        "  1 FAMC @F1844674407370955161418446744073709551615@",
        "0 @I18446744073709551614@ INDI",
        "  1 NAME N18446744073709551614/",
        "  1 SEX M",
        "  1 FAMS @F1844674407370955161418446744073709551615@",
        "0 @I18446744073709551615@ INDI",
        "  1 NAME N18446744073709551615/",
        "  1 SEX F",
        "  1 FAMS @F1844674407370955161418446744073709551615@",
        "0 @F1844674407370955161418446744073709551615@ FAM",
        "  1 HUSB @I18446744073709551614@",
        "  1 WIFE @I18446744073709551615@",
        "  1 CHIL @I9223372036854775807@",
        "  1 NCHI 1",
        "0 TRLR",
    };
    QCOMPARE(Corps(banc, *arbre), Morceaux(Octets(lignes)));
}

void TestGedcomExport::lArbreResteCeQuIlEtait()
{
    BancEchange banc;
    const auto arbre = ArbreComplet(4);
    *arbre->infoArbre = {"T", "A", "D", "M", "E"};
    Trouve(*arbre, 5)->info->nom.clear();
    const QString avant = ToutEnTexte(*arbre);
    QVERIFY(banc.Exporte(*arbre).endsWith("0 TRLR\r\n"));
    QCOMPARE(ToutEnTexte(*arbre), avant);
    const InfoArbre &garde = *arbre->infoArbre;
    QCOMPARE((QStringList{garde.titrearbre, garde.creepar, garde.date, garde.majpar, garde.datemaj}),
             (QStringList{"T", "A", "D", "M", "E"}));
}

RAMELIER_TEST_MAIN(QCoreApplication, TestGedcomExport)
#include "tst_gedcom_export.moc"
