#include "ansel.h"
#include "environnement.h"

#include <QCoreApplication>

/// DecodeAnsel: every byte of the table, and where the accents go.
class TestAnsel : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void chaqueSigne_data();
    void chaqueSigne();
    void chaqueAccentSeul_data();
    void chaqueAccentSeul();
    void lesOctetsInconnusSeVoient_data();
    void lesOctetsInconnusSeVoient();
    void lAsciiResteCommeIlEst();
    void lesLettresFrancaises_data();
    void lesLettresFrancaises();
    void lesAccentsSeComposent_data();
    void lesAccentsSeComposent();
    void unAccentSansLettreGardeLaFinDeLigne_data();
    void unAccentSansLettreGardeLaFinDeLigne();
    void desAccentsSansFin_data();
    void desAccentsSansFin();
};

void TestAnsel::chaqueSigne_data()
{
    QTest::addColumn<int>("octet");
    QTest::addColumn<int>("caractere");
    const struct
    {
        int octet;
        int caractere;
        const char *nom;
    } signes[] = {
        {0xA1, 0x0141, "L barré"},
        {0xA2, 0x00D8, "O barré"},
        {0xA3, 0x0110, "D barré"},
        {0xA4, 0x00DE, "thorn majuscule"},
        {0xA5, 0x00C6, "AE"},
        {0xA6, 0x0152, "OE"},
        {0xA7, 0x02B9, "signe mou"},
        {0xA8, 0x00B7, "point médian"},
        {0xA9, 0x266D, "bémol"},
        {0xAA, 0x00AE, "marque déposée"},
        {0xAB, 0x00B1, "plus ou moins"},
        {0xAC, 0x01A0, "O cornu"},
        {0xAD, 0x01AF, "U cornu"},
        {0xAE, 0x02BC, "alif"},
        {0xB0, 0x02BB, "ayn"},
        {0xB1, 0x0142, "l barré"},
        {0xB2, 0x00F8, "o barré"},
        {0xB3, 0x0111, "d barré"},
        {0xB4, 0x00FE, "thorn"},
        {0xB5, 0x00E6, "ae"},
        {0xB6, 0x0153, "oe"},
        {0xB7, 0x02BA, "signe dur"},
        {0xB8, 0x0131, "i sans point"},
        {0xB9, 0x00A3, "livre"},
        {0xBA, 0x00F0, "eth"},
        {0xBC, 0x01A1, "o cornu"},
        {0xBD, 0x01B0, "u cornu"},
        {0xBE, 0x25A1, "carré vide"},
        {0xBF, 0x25A0, "carré plein"},
        {0xC0, 0x00B0, "degré"},
        {0xC1, 0x2113, "l de script"},
        {0xC2, 0x2117, "droits du son"},
        {0xC3, 0x00A9, "droits"},
        {0xC4, 0x266F, "dièse"},
        {0xC5, 0x00BF, "interrogation renversée"},
        {0xC6, 0x00A1, "exclamation renversée"},
        {0xC7, 0x00DF, "s dur"},
        {0xC8, 0x20AC, "euro"},
        {0xCD, 0x0065, "e médian"},
        {0xCE, 0x006F, "o médian"},
        {0xCF, 0x00DF, "s dur, une seconde fois"},
    };
    for (const auto &signe : signes)
        QTest::newRow(signe.nom) << signe.octet << signe.caractere;
}

void TestAnsel::chaqueSigne()
{
    QFETCH(int, octet);
    QFETCH(int, caractere);
    const QString attendu = QStringLiteral("a") + QChar(caractere) + u'z';
    QCOMPARE(DecodeAnsel(QByteArray("a") + char(octet) + 'z'), attendu);
}

void TestAnsel::chaqueAccentSeul_data()
{
    QTest::addColumn<int>("octet");
    QTest::addColumn<int>("accent");
    const struct
    {
        int octet;
        int accent;
        const char *nom;
    } accents[] = {
        {0xE0, 0x0309, "crochet en chef"},
        {0xE1, 0x0300, "grave"},
        {0xE2, 0x0301, "aigu"},
        {0xE3, 0x0302, "circonflexe"},
        {0xE4, 0x0303, "tilde"},
        {0xE5, 0x0304, "macron"},
        {0xE6, 0x0306, "brève"},
        {0xE7, 0x0307, "point en chef"},
        {0xE8, 0x0308, "tréma"},
        {0xE9, 0x030C, "caron"},
        {0xEA, 0x030A, "rond en chef"},
        {0xEB, 0xFE20, "ligature, moitié gauche"},
        {0xEC, 0xFE21, "ligature, moitié droite"},
        {0xED, 0x0315, "virgule en chef à droite"},
        {0xEE, 0x030B, "double aigu"},
        {0xEF, 0x0310, "candrabindu"},
        {0xF0, 0x0327, "cédille"},
        {0xF1, 0x0328, "ogonek"},
        {0xF2, 0x0323, "point souscrit"},
        {0xF3, 0x0324, "tréma souscrit"},
        {0xF4, 0x0325, "rond souscrit"},
        {0xF5, 0x0333, "double soulignement"},
        {0xF6, 0x0332, "soulignement"},
        {0xF7, 0x0326, "virgule souscrite"},
        {0xF8, 0x031C, "demi-rond souscrit"},
        {0xF9, 0x032E, "brève souscrite"},
        {0xFA, 0xFE22, "double tilde, moitié gauche"},
        {0xFB, 0xFE23, "double tilde, moitié droite"},
        {0xFC, 0x0338, "barre oblique"},
        {0xFE, 0x0313, "virgule en chef"},
    };
    for (const auto &accent : accents)
        QTest::newRow(accent.nom) << accent.octet << accent.accent;
}

void TestAnsel::chaqueAccentSeul()
{
    // A letter that composes with none of them.
    QFETCH(int, octet);
    QFETCH(int, accent);
    const QString attendu = QStringLiteral("aq") + QChar(accent) + u'z';
    QCOMPARE(DecodeAnsel(QByteArray("a") + char(octet) + "qz"), attendu);
}

void TestAnsel::lesOctetsInconnusSeVoient_data()
{
    QTest::addColumn<int>("octet");
    const auto intervalle = [](int debut, int fin) {
        for (int octet = debut; octet <= fin; ++octet)
            QTest::addRow("%02X", unsigned(octet)) << octet;
    };
    intervalle(0x80, 0xA0);
    intervalle(0xAF, 0xAF);
    intervalle(0xBB, 0xBB);
    intervalle(0xC9, 0xCC);
    intervalle(0xD0, 0xDF);
    intervalle(0xFD, 0xFD);
    intervalle(0xFF, 0xFF);
}

void TestAnsel::lesOctetsInconnusSeVoient()
{
    QFETCH(int, octet);
    QCOMPARE(DecodeAnsel(QByteArray("a") + char(octet) + 'z'), QStringLiteral("a\uFFFDz"));
    QCOMPARE(DecodeAnsel(QByteArray(1, char(octet))), QStringLiteral("\uFFFD"));
}

void TestAnsel::lAsciiResteCommeIlEst()
{
    QByteArray octets;
    QString texte;
    for (char16_t octet = 0; octet < 0x80; ++octet) {
        octets += char(octet);
        texte += QChar(octet);
    }
    QCOMPARE(DecodeAnsel(octets), texte);
    QCOMPARE(DecodeAnsel(QByteArray()), QString());
}

void TestAnsel::lesLettresFrancaises_data()
{
    QTest::addColumn<QByteArray>("octets");
    QTest::addColumn<QString>("texte");
    const auto rangee = [](const QByteArray &octets, const char *texte) {
        QTest::newRow(texte) << octets << QString(texte);
    };
    rangee("\xE1"
           "a\xE1"
           "e\xE1"
           "u",
           "àèù");
    rangee("\xE1"
           "A\xE1"
           "E\xE1"
           "U",
           "ÀÈÙ");
    rangee("\xE2"
           "e\xE2"
           "E",
           "éÉ");
    rangee("\xE3"
           "a\xE3"
           "e\xE3"
           "i\xE3"
           "o\xE3"
           "u",
           "âêîôû");
    rangee("\xE3"
           "A\xE3"
           "E\xE3"
           "I\xE3"
           "O\xE3"
           "U",
           "ÂÊÎÔÛ");
    rangee("\xE8"
           "e\xE8"
           "i\xE8"
           "u\xE8"
           "y",
           "ëïüÿ");
    rangee("\xE8"
           "E\xE8"
           "I\xE8"
           "U\xE8"
           "Y",
           "ËÏÜŸ");
    rangee("\xF0"
           "c\xF0"
           "C",
           "çÇ");
    rangee("\xB6\xA6\xB5\xA5", "œŒæÆ");
    rangee("\xE4"
           "n\xE4"
           "N",
           "ñÑ");
    rangee("stra\xCF"
           "e, stra\xC7"
           "e",
           "straße, straße");
    rangee("Ren\xE2"
           "ee LEF\xE1"
           "EVRE",
           "Renée LEFÈVRE");
    rangee("Louise d'\xE2"
           "EPINAY",
           "Louise d'ÉPINAY");
    rangee("n\xC0 12", "n° 12");
    rangee("\xEA"
           "Angstr\xE8"
           "om \xE2"
           "S\xE9"
           "s\xE6"
           "g",
           "Ångström Śšğ");
}

void TestAnsel::lesLettresFrancaises()
{
    QFETCH(QByteArray, octets);
    QTEST(DecodeAnsel(octets), "texte");
}

void TestAnsel::lesAccentsSeComposent_data()
{
    QTest::addColumn<QByteArray>("octets");
    QTest::addColumn<QString>("texte");
    // The accent nearest the letter is the one written last.
    QTest::newRow("deux qui se composent") << QByteArray("\xE2\xE3"
                                                         "a")
                                           << QStringLiteral("\u1EA5");
    QTest::newRow("les mêmes à l'envers") << QByteArray("\xE3\xE2"
                                                        "a")
                                          << QStringLiteral("\u00E1\u0302");
    QTest::newRow("un dessus, un dessous") << QByteArray("\xE3\xF2"
                                                         "o")
                                           << QStringLiteral("\u1ED9");
    QTest::newRow("un dessous, un dessus") << QByteArray("\xF2\xE3"
                                                         "o")
                                           << QStringLiteral("\u1ED9");
    QTest::newRow("trois") << QByteArray("\xE1\xE2\xE8"
                                         "q")
                           << QStringLiteral("q\u0308\u0301\u0300");
    QTest::newRow("sur un signe d'un octet") << QByteArray("\xE2\xB2") << QStringLiteral("\u01FF");
    QTest::newRow("sur le ae") << QByteArray("\xE5\xA5") << QStringLiteral("\u01E2");
    QTest::newRow("sur un o cornu") << QByteArray("\xE1\xBC") << QStringLiteral("\u1EDD");
    QTest::newRow("sur un octet inconnu") << QByteArray("\xE2\x80") << QStringLiteral("\uFFFD\u0301");
    QTest::newRow("un inconnu entre l'accent et la lettre") << QByteArray("\xE2\xFD"
                                                                          "e")
                                                            << QStringLiteral("\uFFFD\u0301"
                                                                              "e");
    QTest::newRow("sur un blanc") << QByteArray("a\xE2 b") << QStringLiteral("a \u0301b");
    QTest::newRow("sur un chiffre") << QByteArray("\xE2"
                                                  "1")
                                    << QStringLiteral("1\u0301");
    QTest::newRow("la barre oblique") << QByteArray("\xFC=\xFC"
                                                    "q")
                                      << QStringLiteral("\u2260q\u0338");
    QTest::newRow("une ligature") << QByteArray("\xEB"
                                                "t\xEC"
                                                "s")
                                  << QStringLiteral("t\uFE20s\uFE21");
    QTest::newRow("e et o médians prennent l'accent") << QByteArray("\xE2\xCD\xE3\xCE") << QStringLiteral("éô");
    QTest::newRow("deux lettres, deux accents") << QByteArray("\xE2"
                                                              "e\xE1"
                                                              "e")
                                                << QStringLiteral("éè");
    QTest::newRow("un accent ne vaut qu'une fois") << QByteArray("\xE2"
                                                                 "ee")
                                                   << QStringLiteral("ée");
}

void TestAnsel::lesAccentsSeComposent()
{
    QFETCH(QByteArray, octets);
    QTEST(DecodeAnsel(octets), "texte");
}

void TestAnsel::unAccentSansLettreGardeLaFinDeLigne_data()
{
    QTest::addColumn<QByteArray>("octets");
    QTest::addColumn<QString>("texte");
    QTest::newRow("devant LF") << QByteArray("abc\xE2\ndef") << QStringLiteral("abc \u0301\ndef");
    QTest::newRow("devant CR") << QByteArray("abc\xE2\rdef") << QStringLiteral("abc \u0301\rdef");
    QTest::newRow("devant CRLF") << QByteArray("abc\xE2\r\ndef") << QStringLiteral("abc \u0301\r\ndef");
    QTest::newRow("devant une tabulation") << QByteArray("abc\xE2\tdef") << QStringLiteral("abc \u0301\tdef");
    QTest::newRow("devant un zéro") << QByteArray("abc\xE2\0def", 8)
                                    << QStringLiteral("abc \u0301") + QChar(u'\0') + "def";
    QTest::newRow("devant 1F") << QByteArray("abc\xE2\x1F") << QStringLiteral("abc \u0301\x1F");
    QTest::newRow("devant un effacement") << QByteArray("abc\xE2\x7F") << QStringLiteral("abc \u0301\x7F");
    QTest::newRow("à la fin") << QByteArray("abc\xE2") << QStringLiteral("abc \u0301");
    QTest::newRow("seul") << QByteArray("\xE2") << QStringLiteral(" \u0301");
    QTest::newRow("deux") << QByteArray("abc\xE2\xE3\n") << QStringLiteral("abc \u0302\u0301\n");
    QTest::newRow("la ligne suivante commence sans accent") << QByteArray("\xE2\n"
                                                                          "e")
                                                            << QStringLiteral(" \u0301\ne");
}

void TestAnsel::unAccentSansLettreGardeLaFinDeLigne()
{
    QFETCH(QByteArray, octets);
    QTEST(DecodeAnsel(octets), "texte");
}

void TestAnsel::desAccentsSansFin_data()
{
    QTest::addColumn<QByteArray>("accents");
    QTest::addColumn<QString>("lettre");
    QTest::newRow("un seul") << QByteArray(1'000'000, '\xE2') << "q" + QString(10, QChar(0x0301));
    QTest::newRow("en alternance") << QByteArray("\xE2\xF2").repeated(500'000)
                                   << "q" + QString(5, QChar(0x0323)) + QString(5, QChar(0x0301));
}

void TestAnsel::desAccentsSansFin()
{
    QFETCH(const QByteArray, accents);
    QFETCH(const QString, lettre);
    const QString texte = DecodeAnsel(accents + 'q');
    // Thirty to a blank, 33,333 times; the letter has the other ten. None is lost.
    QCOMPARE(texte.size(), 1'000'000 + 33'333 + 1);
    QCOMPARE(texte.count(u' '), 33'333);
    QCOMPARE(texte.last(11), lettre);
}

RAMELIER_TEST_MAIN(QCoreApplication, TestAnsel)
#include "tst_ansel.moc"
