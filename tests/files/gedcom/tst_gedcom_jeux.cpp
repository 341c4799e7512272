#include "environnement.h"
#include "gedcomtexte.h"
#include "lecturegedcom.h"
#include "octetsgedcom.h"

#include <QCoreApplication>

/// The character sets and the ends of lines of GEDCOM files.
class TestGedcomJeux : public QObject, private LectureGedcom
{
    Q_OBJECT

private Q_SLOTS:
    void laMemeFamilleDansTousLesJeux_data();
    void laMemeFamilleDansTousLesJeux();
    void laLigneCharChoisitLeJeu_data();
    void laLigneCharChoisitLeJeu();
    void laLigneCharSeTrouveDansLEnTete_data();
    void laLigneCharSeTrouveDansLEnTete();
    void lesLettresDesJeux_data();
    void lesLettresDesJeux();
    void lUtf8SeReconnaitQuoiQuAnnonceLEnTete_data();
    void lUtf8SeReconnaitQuoiQuAnnonceLEnTete();
    void laMarqueDecideAvantTout_data();
    void laMarqueDecideAvantTout();
    void lUtf16SeReconnaitSansMarque_data();
    void lUtf16SeReconnaitSansMarque();
    void unFauxAnselEstDuWindows_data();
    void unFauxAnselEstDuWindows();
    void lesFinsDeLigne_data();
    void lesFinsDeLigne();
    void unAccentEnFinDeLigneNeMangePasLaLigne();
    void leDernierOctetNEstJamaisPerdu_data();
    void leDernierOctetNEstJamaisPerdu();
};

void TestGedcomJeux::laMemeFamilleDansTousLesJeux_data()
{
    QTest::addColumn<QByteArray>("contenu");
    const QString famille =
        QStringLiteral("0 HEAD\n1 SOUR ESSAI\n1 CHAR %1\n2 VERS 5\n"
                       "0 @I1@ INDI\n1 NAME Gaëtan François /LEFÈVRE/\n1 SEX M\n1 BIRT\n2 DATE 12 février 1760\n"
                       "2 PLAC Pau, Pyrénées-Atlantiques\n1 OCCU maître charpentier à Nîmes\n1 FAMS @F1@\n"
                       "0 @I2@ INDI\n1 NAME Zoé Thaïs /d'ÉPINAY/\n1 SEX F\n1 DEAT\n2 DATE n° 12, août\n2 PLAC "
                       "Grünstraße\n1 FAMS @F1@\n"
                       "0 @I3@ INDI\n1 NAME Benoît /CÔTÉ Çà/\n1 FAMC @F1@\n"
                       "0 @F1@ FAM\n1 HUSB @I1@\n1 WIFE @I2@\n1 CHIL @I3@\n1 CHIL @I4@\n0 TRLR\n");
    const struct
    {
        const char *nom;
        Jeu jeu;
        const char *annonce;
        QByteArray marque;
    } jeux[] = {
        {"UTF-8", Jeu::Utf8, "UTF-8", {}},
        {"UTF-8 avec marque", Jeu::Utf8, "UTF-8", "\xEF\xBB\xBF"},
        {"UTF-16LE", Jeu::Utf16LE, "UNICODE", {}},
        {"UTF-16LE avec marque", Jeu::Utf16LE, "UNICODE", "\xFF\xFE"},
        {"UTF-16BE", Jeu::Utf16BE, "UNICODE", {}},
        {"UTF-16BE avec marque", Jeu::Utf16BE, "UNICODE", "\xFE\xFF"},
        {"ANSEL", Jeu::Ansel, "ANSEL", {}},
        {"ANSI", Jeu::Ansi, "ANSI", {}},
        {"MACINTOSH", Jeu::Macintosh, "MACINTOSH", {}},
        {"IBMPC", Jeu::Ibmpc, "IBMPC", {}},
    };
    const std::pair<const char *, const char *> fins[] = {
        {"LF", "\n"}, {"CRLF", "\r\n"}, {"CR", "\r"}, {"LFCR", "\n\r"}};
    for (const auto &jeu : jeux) {
        for (const auto &[nomFin, fin] : fins) {
            const QString texte = famille.arg(QLatin1String(jeu.annonce)).replace(u'\n', QLatin1String(fin));
            QTest::addRow("%s, %s", jeu.nom, nomFin) << jeu.marque + OctetsDe(texte, jeu.jeu);
        }
    }
}

void TestGedcomJeux::laMemeFamilleDansTousLesJeux()
{
    QFETCH(QByteArray, contenu);
    QVERIFY(Lit(contenu));
    QCOMPARE(Individus(),
             (QStringList{"@I3@ prenom[Benoît ] nom[CÔTÉ Çà] famc[@F1@]",
                          "@I2@ prenom[Zoé Thaïs ] nom[d'ÉPINAY] sexe[F] deces[n° 12, août]"
                          " lieudeces[Grünstraße] fams[@F1@]",
                          "@I1@ prenom[Gaëtan François ] nom[LEFÈVRE] sexe[M] naissance[12 février 1760]"
                          " lieunaissance[Pau, Pyrénées-Atlantiques] fams[@F1@] occu[maître charpentier à Nîmes]"}));
    QCOMPARE(Familles(), QStringList{"@F1@ mari[@I1@] femme[@I2@] enfants[@I4@,@I3@]"});
}

void TestGedcomJeux::laLigneCharChoisitLeJeu_data()
{
    QTest::addColumn<QByteArray>("annonce");
    QTest::addColumn<QString>("nom");
    const auto rangees = [](const QString &nom, const QByteArrayList &annonces) {
        for (const QByteArray &annonce : annonces)
            QTest::newRow(annonce.constData()) << annonce << nom;
    };
    // One byte tells the sets apart: E9 before a letter.
    rangees("Rž", {"ANSEL", "ansel", "Ansel", "  ANSEL  ", "ANSEL Z39.47"});
    rangees("Réz",
            {"ANSI", "ansi", "WINDOWS", "WINDOWS-1252", "MSWINDOWS", "IBM WINDOWS", "LATIN1", "ISO-8859-1",
             "ISO-8859-15", "ISO8859-1", "ASCII", "UTF-8", "UTF8", "UNICODE", "inconnu", "x", ""});
    rangees("RÈz", {"MACINTOSH", "Macintosh", "MAC"});
    rangees("RÚz", {"IBMPC", "ibmpc", "IBM", "IBM DOS", "IBM-PC", "MSDOS", "MS-DOS", "OEM", "IBM850", "CP850"});
    rangees("RΘz", {"IBM437", "CP437", "IBMPC 437"});
}

void TestGedcomJeux::laLigneCharChoisitLeJeu()
{
    QFETCH(QByteArray, annonce);
    QFETCH(QString, nom);
    QVERIFY(Lit("0 HEAD\n1 CHAR " + annonce + "\n0 @I1@ INDI\n1 NAME R\xE9z\n0 TRLR\n"));
    QCOMPARE(Individus(), QStringList{"@I1@ nom[" + nom + ']'});
}

void TestGedcomJeux::laLigneCharSeTrouveDansLEnTete_data()
{
    QTest::addColumn<QByteArray>("debut");
    QTest::addColumn<QString>("nom");
    const auto rangee = [](const char *nom, const QByteArray &debut, const char *lu) {
        QTest::newRow(nom) << debut << QString(lu);
    };
    rangee("aucune", "0 HEAD\n1 SOUR a\n", "Réz");
    rangee("pas d'en-tête", "", "Réz");
    rangee("tout à la fin", "0 HEAD\n1 SOUR a\n2 VERS b\n1 GEDC\n2 VERS 5.5\n1 CHAR ANSEL\n", "Rž");
    rangee("derrière une longue ligne", "0 HEAD\n1 NOTE " + QByteArray(100'000, 'a') + "\n1 CHAR ANSEL\n", "Rž");
    rangee("CRLF", "0 HEAD\r\n1 CHAR ANSEL\r\n", "Rž");
    rangee("LFCR", "0 HEAD\n\r1 CHAR ANSEL\n\r", "Rž");
    rangee("des blancs devant", "0 HEAD\n   1 CHAR ANSEL\n", "Rž");
    rangee("une tabulation devant", "0 HEAD\n\t1 CHAR ANSEL\n", "Rž");
    rangee("des lignes vides devant", "\n\n0 HEAD\n\n1 CHAR ANSEL\n", "Rž");
    rangee("sans ligne HEAD", "1 CHAR ANSEL\n", "Rž");
    rangee("au niveau 2", "0 HEAD\n1 SOUR a\n2 CHAR ANSEL\n", "Réz");
    rangee("dans un autre mot", "0 HEAD\n1 CHARACTERS ANSEL\n", "Réz");
    rangee("dans un autre bloc", "0 HEAD\n0 @S1@ SOUR\n1 CHAR ANSEL\n", "Réz");
    rangee("dans un texte", "0 HEAD\n1 NOTE 1 CHAR ANSEL\n", "Réz");
}

void TestGedcomJeux::laLigneCharSeTrouveDansLEnTete()
{
    QFETCH(QByteArray, debut);
    QFETCH(QString, nom);
    QVERIFY(Lit(debut + "0 @I1@ INDI\n1 NAME R\xE9z\n0 TRLR\n"));
    QCOMPARE(Individus(), QStringList{"@I1@ nom[" + nom + ']'});
}

void TestGedcomJeux::lesLettresDesJeux_data()
{
    QTest::addColumn<QByteArray>("annonce");
    QTest::addColumn<QByteArray>("octets");
    QTest::addColumn<QString>("lettres");
    const auto rangee = [](const QByteArray &annonce, const QByteArray &octets, const char *lettres) {
        QTest::newRow(annonce.constData()) << annonce << octets << QString(lettres);
    };
    rangee("ANSI", "\xC0\xC2\xC7\xC8\xC9\xCA\xCB\xCE\xCF\xD4\xD9\xDB\xDC\x9F\x8C\xC6x", "ÀÂÇÈÉÊËÎÏÔÙÛÜŸŒÆx");
    rangee("WINDOWS", "\xE0\xE2\xE7\xE8\xE9\xEA\xEB\xEE\xEF\xF4\xF9\xFB\xFC\xFF\x9C\xE6\x80\x92x",
           "àâçèéêëîïôùûüÿœæ€’x");
    rangee("MACINTOSH", "\x88\x89\x8D\x8F\x8E\x90\x91\x94\x95\x99\x9D\x9E\x9F\xD8\xCF\xBE\xD5x", "àâçèéêëîïôùûüÿœæ’x");
    rangee("MAC", "\xCB\xE5\x82\xE9\x83\xE6\xE8\xEB\xEC\xEF\xF4\xF3\x86\xD9\xCE\xAEx", "ÀÂÇÈÉÊËÎÏÔÙÛÜŸŒÆx");
    rangee("IBMPC", "\x85\x83\x87\x8A\x82\x88\x89\x8C\x8B\x93\x97\x96\x81\x98\x91x", "àâçèéêëîïôùûüÿæx");
    rangee("IBM DOS", "\xB7\xB6\x80\xD4\x90\xD2\xD3\xD7\xD8\xE2\xEB\xEA\x9A\x92\xE1\xF8x", "ÀÂÇÈÉÊËÎÏÔÙÛÜÆß°x");
    rangee("CP437", "\x85\x83\x87\x8A\x82\x88\x89\x8C\x8B\x93\x97\x96\x81\x98\x91\x80\x90\x9A\x92x",
           "àâçèéêëîïôùûüÿæÇÉÜÆx");
}

void TestGedcomJeux::lesLettresDesJeux()
{
    QFETCH(QByteArray, annonce);
    QFETCH(QByteArray, octets);
    QFETCH(QString, lettres);
    QVERIFY(Lit("0 HEAD\n1 CHAR " + annonce + "\n0 @I1@ INDI\n1 NAME " + octets + "\n0 TRLR\n"));
    QCOMPARE(Individus(), QStringList{"@I1@ nom[" + lettres + ']'});
}

void TestGedcomJeux::lUtf8SeReconnaitQuoiQuAnnonceLEnTete_data()
{
    QTest::addColumn<QByteArray>("annonce");
    for (const char *annonce : {"UTF-8", "ANSEL", "ANSI", "ASCII", "MACINTOSH", "IBMPC", "UNICODE", "inconnu"})
        QTest::newRow(annonce) << QByteArray("1 CHAR ") + annonce + '\n';
    QTest::newRow("rien") << QByteArray();
}

void TestGedcomJeux::lUtf8SeReconnaitQuoiQuAnnonceLEnTete()
{
    QFETCH(QByteArray, annonce);
    QVERIFY(Lit("0 HEAD\n" + annonce + "0 @I1@ INDI\n1 NAME Zoé /d'ÉPINAY €𝄞/\n0 TRLR\n"));
    QCOMPARE(Individus(), QStringList{"@I1@ prenom[Zoé ] nom[d'ÉPINAY €𝄞]"});
}

void TestGedcomJeux::laMarqueDecideAvantTout_data()
{
    QTest::addColumn<QByteArray>("contenu");
    QTest::addColumn<QString>("texte");
    QTest::newRow("UTF-8") << QByteArray("\xEF\xBB\xBF"
                                         "0 HEAD\n1 CHAR ANSI\né")
                           << QStringLiteral("0 HEAD\n1 CHAR ANSI\né");
    QTest::newRow("UTF-8 faux") << QByteArray("\xEF\xBB\xBF"
                                              "1 CHAR ANSI\n\xE9z")
                                << QStringLiteral("1 CHAR ANSI\n\uFFFDz");
    QTest::newRow("UTF-16LE") << QByteArray("\xFF\xFE"
                                            "0\0 \0\xE9\0",
                                            8)
                              << QStringLiteral("0 é");
    QTest::newRow("UTF-16BE") << QByteArray("\xFE\xFF"
                                            "\0"
                                            "0\0 \0\xE9",
                                            8)
                              << QStringLiteral("0 é");
    QTest::newRow("UTF-16LE sans un seul octet nul") << QByteArray("\xFF\xFE\x65\x66", 4) << QStringLiteral("\u6665");
    QTest::newRow("UTF-16BE sans un seul octet nul") << QByteArray("\xFE\xFF\x65\x66", 4) << QStringLiteral("\u6566");
}

void TestGedcomJeux::laMarqueDecideAvantTout()
{
    QFETCH(QByteArray, contenu);
    QTEST(TexteGED(contenu), "texte");
}

void TestGedcomJeux::lUtf16SeReconnaitSansMarque_data()
{
    QTest::addColumn<int>("jeu");
    QTest::addColumn<QString>("debut");
    for (const char *debut :
         {"", "\n", "\r\n", " ", "0 HEAD\n", "0 HEAD\n1 CHAR ANSEL\n", "\n\n0 HEAD\r\n1 CHAR UTF-8\r\n"}) {
        const QByteArray nom = QByteArray(debut).replace('\n', "\\n").replace('\r', "\\r");
        QTest::addRow("LE '%s'", nom.constData()) << int(Jeu::Utf16LE) << QString(debut);
        QTest::addRow("BE '%s'", nom.constData()) << int(Jeu::Utf16BE) << QString(debut);
    }
}

void TestGedcomJeux::lUtf16SeReconnaitSansMarque()
{
    QFETCH(int, jeu);
    QFETCH(QString, debut);
    // Letters with the bytes of ends of lines, of blanks and of slashes in them.
    const QString texte = debut + "0 @I1@ INDI\n1 NAME ĊčഊĠ /\u2F2F\u0A0D/\n0 TRLR\n";
    QVERIFY(Lit(OctetsDe(texte, Jeu(jeu))));
    QCOMPARE(Individus(), QStringList{"@I1@ prenom[ĊčഊĠ ] nom[\u2F2F\u0A0D]"});
}

void TestGedcomJeux::unFauxAnselEstDuWindows_data()
{
    QTest::addColumn<QByteArray>("ligne");
    QTest::addColumn<QString>("textes");
    const auto rangee = [](const char *nom, const QByteArray &ligne, const char *textes) {
        QTest::newRow(nom) << ligne << QString(textes);
    };
    // The other line of the individual holds E9 before a letter.
    rangee("devant un blanc", "1 NAME Ren\xE9 /DUPONT/", " prenom[René ] nom[DUPONT] occu[Réz]");
    rangee("devant une barre", "1 NAME Ren\xE9/DUPONT/", " prenom[René] nom[DUPONT] occu[Réz]");
    rangee("devant un chiffre",
           "1 NAME n\xE9"
           "1700",
           " nom[né1700] occu[Réz]");
    rangee("devant un 0",
           "1 NAME n\xE9"
           "0",
           " nom[né0] occu[Réz]");
    rangee("devant un 9",
           "1 NAME n\xE9"
           "9",
           " nom[né9] occu[Réz]");
    rangee("devant LF", "1 NAME MAL\xC9\n1 SEX n\xE9", " nom[MALÉ] sexe[né] occu[Réz]");
    rangee("devant CRLF", "1 NAME Ren\xE9\r", " nom[René] occu[Réz]");
    rangee("le premier octet", "1 NAME \xE0 /B/", " prenom[à ] nom[B] occu[Réz]");
    rangee("le dernier octet", "1 NAME a\xFF /B/", " prenom[aÿ ] nom[B] occu[Réz]");
    rangee("sur une autre ligne encore", "1 NOTE Ren\xE9 a", " occu[Réz]");
    // What real ANSEL has at the end of words.
    rangee("rien de tel",
           "1 NAME Ren\xE2"
           "e /B/",
           " prenom[René ] nom[B] occu[Rž]");
    rangee("un s dur devant un blanc", "1 NAME Wei\xCF /GRO\xC7/", " prenom[Weiß ] nom[GROß] occu[Rž]");
    rangee("un degré devant un chiffre",
           "1 NAME n\xC0"
           "12\xC0 3",
           " nom[n°12° 3] occu[Rž]");
    rangee("deux accents de suite",
           "1 NAME a\xE2\xE3"
           "a /B/",
           " prenom[a\u1EA5 ] nom[B] occu[Rž]");
}

void TestGedcomJeux::unFauxAnselEstDuWindows()
{
    QFETCH(QByteArray, ligne);
    QFETCH(QString, textes);
    QVERIFY(Lit("0 HEAD\n1 CHAR ANSEL\n0 @I1@ INDI\n1 OCCU R\xE9z\n" + ligne + "\n0 TRLR\n"));
    QCOMPARE(Individus(), QStringList{"@I1@" + textes});
}

void TestGedcomJeux::lesFinsDeLigne_data()
{
    QTest::addColumn<QByteArray>("contenu");
    QTest::addColumn<QString>("individu");
    const auto rangee = [](const char *nom, const QByteArray &contenu, const char *individu) {
        QTest::newRow(nom) << contenu << QString(individu);
    };
    rangee("LF", "0 @I1@ INDI\n1 SEX M\n0 TRLR\n", "@I1@ sexe[M]");
    rangee("LF, la dernière sans fin", "0 @I1@ INDI\n1 SEX M\n0 TRLR", "@I1@ sexe[M]");
    rangee("CR, la dernière sans fin", "0 @I1@ INDI\r1 SEX M\r0 TRLR", "@I1@ sexe[M]");
    rangee("CRCRLF", "0 @I1@ INDI\r\r\n1 SEX M\r\r\n0 TRLR\r\r\n", "@I1@ sexe[M]");
    rangee("LF et CRLF mêlés", "0 @I1@ INDI\r\n1 SEX M\n0 TRLR\r\n", "@I1@ sexe[M]");
    rangee("des lignes vides partout", "\r\n\r\n0 @I1@ INDI\r\n\r\n1 SEX M\r\n\r\n0 TRLR\r\n", "@I1@ sexe[M]");
    rangee("des blancs aux deux bouts", " \t0 @I1@ INDI \t\n\t 1 SEX M\t \n  0 TRLR", "@I1@ sexe[M]");
    rangee("un saut de page autour", "\f0 @I1@ INDI\f\n\v1 SEX M\v\n0 TRLR", "@I1@ sexe[M]");
    // Where a file has one LF, a CR ends no line.
    rangee("CR et un seul LF", "0 @I1@ INDI\r1 SEX M\n0 TRLR", "@I1@");
    rangee("un CR dans un texte", "0 @I1@ INDI\n1 NAME a\rb\n0 TRLR\n", "@I1@ nom[a\rb]");
    rangee("aucune autre fin de ligne", "0 @I1@ INDI\n1 NAME a\u2028b\u0085c\fd\n0 TRLR\n",
           "@I1@ nom[a\u2028b\u0085c\fd]");
}

void TestGedcomJeux::lesFinsDeLigne()
{
    QFETCH(QByteArray, contenu);
    QFETCH(QString, individu);
    QVERIFY(Lit(contenu));
    QCOMPARE(Individus(), QStringList{individu});
}

void TestGedcomJeux::unAccentEnFinDeLigneNeMangePasLaLigne()
{
    // An accent before the end of the file is ANSEL still: the line before it must stand.
    QVERIFY(Lit("0 HEAD\n1 CHAR ANSEL\n0 @I1@ INDI\n1 NAME R\xE9z\n0 TRLR \xE2"));
    QCOMPARE(Individus(), QStringList{"@I1@ nom[Rž]"});
}

void TestGedcomJeux::leDernierOctetNEstJamaisPerdu_data()
{
    QTest::addColumn<QByteArray>("contenu");
    QTest::addColumn<QString>("texte");
    // The start of a letter in UTF-8, but nothing else in the file is UTF-8.
    QTest::newRow("ANSI") << QByteArray("1 CHAR ANSI\nRen\xE9") << QStringLiteral("1 CHAR ANSI\nRené");
    QTest::newRow("ANSEL") << QByteArray("1 CHAR ANSEL\na\xE2") << QStringLiteral("1 CHAR ANSEL\na \u0301");
    QTest::newRow("IBMPC") << QByteArray("1 CHAR IBMPC\n\xE2") << QStringLiteral("1 CHAR IBMPC\nÔ");
}

void TestGedcomJeux::leDernierOctetNEstJamaisPerdu()
{
    QFETCH(QByteArray, contenu);
    QTEST(TexteGED(contenu), "texte");
}

RAMELIER_TEST_MAIN(QCoreApplication, TestGedcomJeux)
#include "tst_gedcom_jeux.moc"
