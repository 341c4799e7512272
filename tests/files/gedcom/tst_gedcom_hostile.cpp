#include "environnement.h"
#include "gedcomnaif.h"
#include "gedcomtexte.h"
#include "lecturegedcom.h"
#include "octetsgedcom.h"
#include "pannes.h"
#include "pile.h"

#include <QCoreApplication>
#include <QDir>

#include <random>
#include <sys/stat.h>

/// DecodeFichierGED: files that cannot be read, broken files, garbage and very large ones.
class TestGedcomHostile : public QObject, private LectureGedcom
{
    Q_OBJECT

private Q_SLOTS:
    void ceQuiNEstPasUnFichierEstRefuse_data();
    void ceQuiNEstPasUnFichierEstRefuse();
    void unFichierSansDroitEstRefuse();
    void unLienVersUnFichierSeLit();
    void unFichierCoupeNImporteOu_data();
    void unFichierCoupeNImporteOu();
    void chaqueOctetDansUnNom();
    void chaqueOctetPartout_data();
    void chaqueOctetPartout();
    void desOctetsAuHasard();
    void desLignesAuHasard_data();
    void desLignesAuHasard();
    void deTresLonguesLignes();
    void desLignesSansRien();
    void deuxCentMilleEnregistrementsSansRecursion();
    void viderDesListesVides();
};

void TestGedcomHostile::ceQuiNEstPasUnFichierEstRefuse_data()
{
    QTest::addColumn<QString>("chemin");
    const QString autreDossier = Chemin(QStringLiteral("un dossier"));
    QVERIFY(QDir().mkdir(autreDossier));
    const QString tube = Chemin(QStringLiteral("un tube"));
    QCOMPARE(mkfifo(QFile::encodeName(tube).constData(), 0600), 0);
    const QString lienMort = Chemin(QStringLiteral("un lien mort"));
    QVERIFY(QFile::link(Chemin(QStringLiteral("absent")), lienMort));
    const QString lienDeDossier = Chemin(QStringLiteral("un lien de dossier"));
    QVERIFY(QFile::link(autreDossier, lienDeDossier));
    QTest::newRow("absent") << Chemin(QStringLiteral("absent.ged"));
    QTest::newRow("dans un dossier absent") << Chemin(QStringLiteral("absent/a.ged"));
    QTest::newRow("un nom vide") << QString();
    QTest::newRow("un dossier") << autreDossier;
    QTest::newRow("un lien mort") << lienMort;
    QTest::newRow("un lien de dossier") << lienDeDossier;
    QTest::newRow("un tube") << tube;
    QTest::newRow("rien") << QStringLiteral("/dev/null");
    QTest::newRow("sans fin") << QStringLiteral("/dev/zero");
}

void TestGedcomHostile::ceQuiNEstPasUnFichierEstRefuse()
{
    QFETCH(QString, chemin);
    QVERIFY(Lit("0 @I1@ INDI\n0 @F1@ FAM\n0 TRLR\n"));
    QVERIFY(!DecodeFichierGED(chemin));
    // What was there stays.
    QCOMPARE(Individus(), QStringList{"@I1@"});
    QCOMPARE(Familles(), QStringList{"@F1@"});
}

void TestGedcomHostile::unFichierSansDroitEstRefuse()
{
    QVERIFY(Lit("0 @I1@ INDI\n0 TRLR\n"));
    QVERIFY(QFile::setPermissions(Chemin(QStringLiteral("a.ged")), {}));
    const SansPrivileges sansPrivileges;
    if (!sansPrivileges.Effectif())
        QSKIP("Ce processus ne peut pas changer d'utilisateur.");
    QVERIFY(!DecodeFichierGED(Chemin(QStringLiteral("a.ged"))));
    QCOMPARE(Individus(), QStringList{"@I1@"});
}

void TestGedcomHostile::unLienVersUnFichierSeLit()
{
    QVERIFY(Lit("0 @I1@ INDI\n0 TRLR\n"));
    const QString lien = Chemin(QStringLiteral("généalogie de l'été.ged"));
    QVERIFY(QFile::link(Chemin(QStringLiteral("a.ged")), lien));
    VideLesListesGED();
    QVERIFY(DecodeFichierGED(lien));
    QCOMPARE(Individus(), QStringList{"@I1@"});
}

void TestGedcomHostile::unFichierCoupeNImporteOu_data()
{
    QTest::addColumn<int>("jeu");
    QTest::addColumn<QByteArray>("marque");
    QTest::addColumn<QString>("annonce");
    QTest::addColumn<QString>("fin");
    QTest::newRow("UTF-8") << int(Jeu::Utf8) << QByteArray() << "UTF-8"
                           << "\n";
    QTest::newRow("UTF-8 avec marque") << int(Jeu::Utf8) << QByteArray("\xEF\xBB\xBF") << "UTF-8"
                                       << "\r\n";
    QTest::newRow("UTF-16LE") << int(Jeu::Utf16LE) << QByteArray() << "UNICODE"
                              << "\r\n";
    QTest::newRow("UTF-16BE avec marque") << int(Jeu::Utf16BE) << QByteArray("\xFE\xFF") << "UNICODE"
                                          << "\n";
    QTest::newRow("ANSEL") << int(Jeu::Ansel) << QByteArray() << "ANSEL"
                           << "\n";
    QTest::newRow("ANSI") << int(Jeu::Ansi) << QByteArray() << "ANSI"
                          << "\r\n";
    QTest::newRow("MACINTOSH") << int(Jeu::Macintosh) << QByteArray() << "MACINTOSH"
                               << "\r";
}

void TestGedcomHostile::unFichierCoupeNImporteOu()
{
    QFETCH(int, jeu);
    QFETCH(QByteArray, marque);
    QFETCH(QString, annonce);
    QFETCH(QString, fin);
    QString texte = "0 HEAD\n1 CHAR " + annonce
        + "\n0 @I1@ INDI\n1 NAME Zoé /LEFÈVRE/\n1 SEX F\n1 BIRT\n2 DATE 1700\n2 PLAC Nîmes\n1 DEAT\n"
          "2 DATE 7 août\n1 FAMS @F1@\n1 OCCU métayère\n0 @I2@ INDI\n1 NAME Jean /DUPONT/\n1 FAMC @F2@\n"
          "0 @F1@ FAM\n1 HUSB @I2@\n1 WIFE @I1@\n1 CHIL @I3@\n1 CHIL @I4@\n0 TRLR\n";
    texte.replace(u'\n', fin);
    QByteArray octets = marque;
    for (qsizetype caracteres = 0; caracteres < texte.size(); ++caracteres) {
        const GedcomNaif attendu(texte.first(caracteres));
        // A cut within a letter can only harm the last line, and that one is in a record that is lost.
        const QByteArray lettre = OctetsDe(texte.at(caracteres), Jeu(jeu));
        for (qsizetype i = 0; i < lettre.size(); ++i) {
            QVERIFY(Lit(octets + lettre.first(i)));
            QCOMPARE(Individus(), attendu.individus);
            QCOMPARE(Familles(), attendu.familles);
        }
        octets += lettre;
    }
    QVERIFY(Lit(octets));
    QCOMPARE(Individus().size(), 2);
    QCOMPARE(Familles().size(), 1);
}

void TestGedcomHostile::chaqueOctetDansUnNom()
{
    // Windows-1252: the same as Latin-1 but for 80 to 9F.
    const QString milieu = QStringLiteral("€\u0081‚ƒ„…†‡ˆ‰Š‹Œ\u008DŽ\u008F\u0090‘’“”•–—˜™š›œ\u009DžŸ");
    QByteArray contenu = "0 HEAD\n1 CHAR ANSI\n";
    QStringList attendus;
    for (int octet = 0; octet < 256; ++octet) {
        if (octet == '\n' || octet == '/')
            continue;
        contenu += "0 @I1@ INDI\n1 NAME x" + QByteArray(1, char(octet)) + "y\n";
        const QChar lu = octet >= 0x80 && octet < 0xA0 ? milieu.at(octet - 0x80) : QChar(octet);
        attendus.prepend(QStringLiteral("@I1@ nom[x") + lu + "y]");
    }
    QVERIFY(Lit(contenu + "0 TRLR\n"));
    QCOMPARE(attendus.size(), 254);
    QCOMPARE(Individus(), attendus);
}

void TestGedcomHostile::chaqueOctetPartout_data()
{
    QTest::addColumn<QByteArray>("debut");
    QTest::addColumn<QByteArray>("fin");
    QTest::addColumn<int>("individus");
    // Zero last: in front it would tell UTF-16.
    QByteArray octets;
    for (int octet = 1; octet <= 256; ++octet)
        octets += char(octet % 256);
    QTest::newRow("seuls") << octets << QByteArray() << 0;
    QTest::newRow("devant") << octets + '\n' << QByteArray() << 1;
    QTest::newRow("derrière") << QByteArray() << octets << 1;
    QTest::newRow("des deux côtés") << octets + '\n' << octets << 1;
    QTest::newRow("derrière un en-tête ANSEL") << "0 HEAD\n1 CHAR ANSEL\n1 NOTE " + octets + '\n' << octets << 1;
    QTest::newRow("derrière un en-tête Macintosh") << "0 HEAD\n1 CHAR MACINTOSH\n1 NOTE " + octets + '\n'
                                                   << octets << 1;
}

void TestGedcomHostile::chaqueOctetPartout()
{
    QFETCH(QByteArray, debut);
    QFETCH(QByteArray, fin);
    QFETCH(int, individus);
    const QByteArray record = individus ? QByteArray("0 @I1@ INDI\n1 SEX M\n0 TRLR\n") : QByteArray();
    QVERIFY(Lit(debut + record + fin));
    QCOMPARE(Individus(), individus ? QStringList{"@I1@ sexe[M]"} : QStringList());
    QCOMPARE(Familles(), QStringList());
}

void TestGedcomHostile::desOctetsAuHasard()
{
    std::mt19937 tirage(11);
    for (int essai = 0; essai < 500; ++essai) {
        QByteArray bruit;
        // Every other time without zero bytes in front, which would make it UTF-16.
        if (essai % 2 == 0)
            bruit = "0 HEAD\n1 CHAR ANSEL\n";
        for (auto reste = tirage() % 600; reste > 0; --reste)
            bruit += char(tirage() % 256);
        QVERIFY(Lit(bruit));
        const GedcomNaif attendu(TexteGED(bruit));
        QVERIFY2(Individus() == attendu.individus && Familles() == attendu.familles,
                 qPrintable(QString::number(essai)));
        // The noise hides no record that follows it, whatever set of one byte a letter it was taken for.
        if (essai % 2 == 0) {
            QVERIFY(Lit(bruit + "\n0 @I1@ INDI\n1 SEX M\n0 TRLR\n"));
            QVERIFY2(LesIndividus && LesIndividus->sexe == "M", qPrintable(QString::number(essai)));
        }
    }
}

void TestGedcomHostile::desLignesAuHasard_data()
{
    QTest::addColumn<uint>("graine");
    for (uint graine = 1; graine <= 40; ++graine)
        QTest::addRow("graine %u", graine) << graine;
}

void TestGedcomHostile::desLignesAuHasard()
{
    QFETCH(uint, graine);
    const QStringList niveaux{"0", "0",  "1", "1", "1",  "1",   "2",  "2",    "2",
                              "3", "-1", "x", "",  " 1", "\t2", "1 ", "99999"};
    const QStringList mots{"HEAD", "INDI", "@I1@ INDI", "@I2@ INDI", "@F1@ FAM", "@F2@ FAM", "TRLR", "NAME", "NAME",
                           "SEX",  "BIRT", "DEAT",      "DATE",      "PLAC",     "FAMS",     "FAMC", "OCCU", "HUSB",
                           "WIFE", "CHIL", "NOTE",      "BAPM",      "CONC",     "@",        "é"};
    const QStringList valeurs{"",      " ",        "M",      "@I1@",  "@F1@",   "@@",     "@X",         "Jean /DUPONT/",
                              "a/b/c", "LEFÈVRE/", "/d'É/",  "ESSEX", "BIRTON", "UPDATE", "1\u00A0700", "@I1@ @I2@",
                              "FAMC",  "\t",       "NAMEs/", "12",    "\u2028", "\r",     "//",         "INDIEN"};
    const QStringList fins{"\n", "\n", "\n", "\r\n", "\n\r", "\n\n", "\r", ""};
    std::mt19937 tirage(graine);
    const auto un = [&tirage](const QStringList &choix) { return choix.at(qsizetype(tirage()) % choix.size()); };
    // Some files have no LF at all.
    const bool macintosh = graine % 8 == 0;
    for (int essai = 0; essai < 25; ++essai) {
        QString texte;
        for (auto lignes = tirage() % 60; lignes > 0; --lignes)
            texte += un(niveaux) + ' ' + un(mots) + ' ' + un(valeurs) + (tirage() % 4 == 0 ? un(valeurs) : QString())
                + (macintosh ? QStringLiteral("\r") : un(fins));
        const GedcomNaif attendu(texte);
        QVERIFY(Lit("\xEF\xBB\xBF" + texte.toUtf8()));
        QCOMPARE(Individus(), attendu.individus);
        QCOMPARE(Familles(), attendu.familles);
    }
}

void TestGedcomHostile::deTresLonguesLignes()
{
    constexpr int longueur = 3'000'000;
    const QByteArray long1(longueur, 'a');
    QVERIFY(LitUnIndividu("1 NAME " + long1 + '/' + long1 + "/\n1 NOTE " + long1 + "\n1 SEX M"));
    QVERIFY(LesIndividus);
    QCOMPARE(LesIndividus->prenom.size(), longueur);
    QCOMPARE(LesIndividus->nom.size(), longueur);
    QCOMPARE(LesIndividus->sexe, "M");

    for (const char *motif : {"/", "@", "0 ", " ", "a", "NAM", "\xE9"}) {
        QVERIFY(Lit(QByteArray(motif).repeated(longueur)));
        QVERIFY(!LesIndividus && !LesFamilles);
        QVERIFY(LitUnIndividu("1 NOTE " + QByteArray(motif).repeated(longueur) + "\n1 SEX M"));
        QCOMPARE(Individus(), QStringList{"@I1@ sexe[M]"});
    }
    QVERIFY(LitUnIndividu("1 NAME " + QByteArray(longueur, '/')));
    QCOMPARE(Individus(), QStringList{"@I1@"});
    QVERIFY(LitUnIndividu("1 FAMS " + QByteArray(longueur, '@')));
    QCOMPARE(Individus(), QStringList{"@I1@ fams[@@]"});
}

void TestGedcomHostile::desLignesSansRien()
{
    for (const char *fin : {"\n", "\r", "\r\n", "\n\r", " \n", "1\n", "HEAD\n"}) {
        QVERIFY(Lit(QByteArray(fin).repeated(500'000)));
        QVERIFY(!LesIndividus && !LesFamilles);
    }
}

void TestGedcomHostile::deuxCentMilleEnregistrementsSansRecursion()
{
    constexpr int nombre = 200'000;
    QByteArray contenu = "0 @F0@ FAM\n";
    for (int i = 1; i <= nombre; ++i) {
        const QByteArray numero = QByteArray::number(i);
        contenu += "1 CHIL @I" + numero + "@\n";
    }
    for (int i = 1; i <= nombre; ++i) {
        const QByteArray numero = QByteArray::number(i);
        contenu += "0 @I" + numero + "@ INDI\n0 @F" + numero + "@ FAM\n1 CHIL @I" + numero + "@\n";
    }
    bool lu = false;
    int individus = 0;
    int familles = 0;
    int enfants = 0;
    SurUnePileDe(256 * 1024, [&] {
        lu = Lit(contenu + "0 TRLR\n");
        for (const IndividuGED *individu = LesIndividus; individu; individu = individu->suivant)
            ++individus;
        for (const FamilleGED *famille = LesFamilles; famille; famille = famille->suivante) {
            ++familles;
            for (const EnfantGED *enfant = famille->enfants; enfant; enfant = enfant->suivant)
                ++enfants;
        }
        VideLesListesGED();
    });
    QVERIFY(lu);
    QCOMPARE(individus, nombre);
    QCOMPARE(familles, nombre + 1);
    QCOMPARE(enfants, 2 * nombre);
    QVERIFY(!LesIndividus);
    QVERIFY(!LesFamilles);
}

void TestGedcomHostile::viderDesListesVides()
{
    VideLesListesGED();
    VideLesListesGED();
    QVERIFY(!LesIndividus);
    QVERIFY(!LesFamilles);
    QVERIFY(Lit("0 @I1@ INDI\n0 TRLR\n"));
    QVERIFY(LesIndividus);
    VideLesListesGED();
    QVERIFY(!LesIndividus);
}

RAMELIER_TEST_MAIN(QCoreApplication, TestGedcomHostile)
#include "tst_gedcom_hostile.moc"
