#include "environnement.h"
#include "gedcomnaif.h"
#include "octetsgedcom.h"

#include <QCoreApplication>

#include <random>

/// DecodeFichierGED counts in letters of UTF-16 and reads UTF-8 bytes as they are: letters of several bytes where it cuts.
class TestGedcomLettres : public QObject, private LectureGedcom
{
    Q_OBJECT

private Q_SLOTS:
    void lesValeursSeCoupentEnLettres_data();
    void lesValeursSeCoupentEnLettres();
    void uneLettreCoupeeEnDeuxGardeLesAutresFiches();
    void uneMarqueAuMilieuEstUneLettre();
    void lesMarquesDevantUnNomRestent();
    void unZeroResteDansUnNom();
    void lesFinsDeLignesSeMelent_data();
    void lesFinsDeLignesSeMelent();
    void desLettresAuHasard_data();
    void desLettresAuHasard();

private:
    /// \a texte in UTF-8, with a mark and without, and in UTF-16.
    static QList<QByteArray> EnOctets(const QString &texte);
};

QList<QByteArray> TestGedcomLettres::EnOctets(const QString &texte)
{
    const QByteArray utf8 = texte.toUtf8();
    return {utf8, "\xEF\xBB\xBF" + utf8, "\xFF\xFE" + OctetsDe(texte, Jeu::Utf16LE),
            "\xFE\xFF" + OctetsDe(texte, Jeu::Utf16BE)};
}

void TestGedcomLettres::lesValeursSeCoupentEnLettres_data()
{
    QTest::addColumn<QString>("ligne");
    QTest::addColumn<QString>("attendu");
    const auto cas = [](const char *nom, const QString &ligne, const QString &attendu) {
        QTest::newRow(nom) << ligne << attendu;
    };
    cas("le mot devant", "1 NAME Élise", "@I1@ nom[Élise]");
    cas("deux octets devant le mot", "1 éàNAME x", "@I1@ nom[ME x]");
    cas("trois octets devant le mot", "1 €NAME x", "@I1@ nom[E x]");
    cas("trois octets devant un mot de trois", "1 €SEX F", "@I1@ sexe[X F]");
    cas("quatre octets devant le mot", QStringLiteral("1 ab\U0001F600NAME x"), "@I1@ nom[NAME x]");
    cas("deux lettres de quatre octets", QStringLiteral("1 \U0001F600\U0001F601NAME x"), "@I1@ nom[NAME x]");
    cas("une coupe dans quatre octets", QStringLiteral("1 abc\U0001F600NAME x"),
        QStringLiteral("@I1@ nom[") + QChar(0xDE00) + "NAME x]");
    cas("une coupe dans quatre octets, mot de trois", QStringLiteral("1 a\U0001F600\U0001F600SEX x"),
        QStringLiteral("@I1@ sexe[\U0001F600SEX x]"));
    cas("une coupe derrière la ligne", "1 SEX", "@I1@");
    cas("des blancs de deux octets", QStringLiteral("\u00A01 NAME\u0085\u00A0é\u00A0\u0085"), "@I1@ nom[é]");
    cas("des blancs de trois octets", QStringLiteral("\u30001 NAME \u2003\u2028Zoé\u202F\u3000"), "@I1@ nom[Zoé]");
    cas("un octet de blanc au bout d'une lettre", "1 NAME  à", "@I1@ nom[à]");
    cas("des lettres qui ressemblent à des blancs", QStringLiteral("1 NAME \u200B\uFEFFx\u2060"),
        QStringLiteral("@I1@ nom[\u200B\uFEFFx\u2060]"));
    cas("des blancs autour d'un niveau", QStringLiteral("\u2003\u00A01 SEX M"), "@I1@ sexe[M]");
    cas("un identifiant accentué", "1 FAMS x @Fé1€@ y", "@I1@ fams[@Fé1€@]");
}

void TestGedcomLettres::lesValeursSeCoupentEnLettres()
{
    QFETCH(QString, ligne);
    QFETCH(QString, attendu);
    for (const QByteArray &octets : EnOctets("0 HEAD\n0 @I1@ INDI\n" + ligne + "\n0 TRLR\n")) {
        QVERIFY(Lit(octets));
        QCOMPARE(Individus(), QStringList{attendu});
    }
}

void TestGedcomLettres::uneLettreCoupeeEnDeuxGardeLesAutresFiches()
{
    const QString texte = QStringLiteral("0 @I1@ INDI\n1 NAME Zoé\n1 BIRT\n0 @F1@ FAM\n1 HUSB @I1@\n1 CHIL @I2@\n"
                                         "0 @I2@ INDI\n2 DATE 1700\n1 abc\U0001F600NAME x\n"
                                         "0 @F2@ FAM\n1 CHIL @I1@\n0 @I3@ INDI\n1 NAME Léa\n0 TRLR\n");
    for (const QByteArray &octets : EnOctets(texte)) {
        QVERIFY(Lit(octets));
        QCOMPARE(Individus(),
                 (QStringList{"@I3@ nom[Léa]", QStringLiteral("@I2@ nom[") + QChar(0xDE00) + "NAME x] naissance[1700]",
                              "@I1@ nom[Zoé]"}));
        QCOMPARE(Familles(), (QStringList{"@F2@ enfants[@I1@]", "@F1@ mari[@I1@] enfants[@I2@]"}));
    }
}

void TestGedcomLettres::uneMarqueAuMilieuEstUneLettre()
{
    // In front of a level it makes no number: level 0.
    for (const QByteArray &octets : EnOctets(QStringLiteral("0 @I1@ INDI\n\uFEFF1 SEX M\n1 SEX F\n0 TRLR\n"))) {
        QVERIFY(Lit(octets));
        QCOMPARE(Individus(), QStringList{"@I1@"});
    }
}

void TestGedcomLettres::lesMarquesDevantUnNomRestent()
{
    const QString marques(100'000, QChar(0xFEFF));
    for (const QByteArray &octets : EnOctets("0 @I1@ INDI\n1 NAME " + marques + "é/" + marques + "/\n0 TRLR\n")) {
        QVERIFY(Lit(octets));
        QCOMPARE(Individus(), QStringList{"@I1@ prenom[" + marques + "é] nom[" + marques + "]"});
    }
}

void TestGedcomLettres::unZeroResteDansUnNom()
{
    QVERIFY(LitUnIndividu("1 NAME a" + QByteArray(1, '\0') + "b\n1 SEX " + QByteArray(1, '\0')));
    QCOMPARE(Individus(), QStringList{"@I1@ nom[a" + QString(QChar(0)) + "b] sexe[" + QString(QChar(0)) + "]"});
}

void TestGedcomLettres::lesFinsDeLignesSeMelent_data()
{
    QTest::addColumn<QByteArray>("contenu");
    QTest::addColumn<QStringList>("attendus");
    QTest::newRow("CR au milieu, LF au bout")
        << QByteArray("0 @I1@ INDI\r1 SEX M\n1 SEX F\n0 TRLR\n") << QStringList{"@I1@ sexe[F]"};
    QTest::newRow("CR, CRLF et LF") << QByteArray("0 @I1@ INDI\r\n1 NAME a\rb\r\r\n1 SEX M\n\r0 TRLR")
                                    << QStringList{"@I1@ nom[a\rb] sexe[M]"};
    QTest::newRow("CR seul, la dernière ligne sans fin")
        << QByteArray("0 @I1@ INDI\r1 SEX M\r\r0 @I2@ INDI\r0 TRLR") << QStringList{"@I2@", "@I1@ sexe[M]"};
    QTest::newRow("une valeur au bout du fichier")
        << QByteArray("0 @I1@ INDI\n0 @I2@ INDI\n1 NAM") << QStringList{"@I1@"};
    QTest::newRow("un mot au bout du fichier") << QByteArray("0 @I1@ INDI\n0 @I2@ INDI\n1 NAME") << QStringList{"@I1@"};
    QTest::newRow("un bloc au bout du fichier") << QByteArray("0 @I1@ INDI\n0 @I2@ IND") << QStringList{"@I1@"};
}

void TestGedcomLettres::lesFinsDeLignesSeMelent()
{
    QFETCH(QByteArray, contenu);
    QFETCH(QStringList, attendus);
    for (const QByteArray &octets : EnOctets(QString::fromUtf8(contenu))) {
        QVERIFY(Lit(octets));
        QCOMPARE(Individus(), attendus);
    }
}

void TestGedcomLettres::desLettresAuHasard_data()
{
    QTest::addColumn<uint>("graine");
    for (uint graine = 1; graine <= 20; ++graine)
        QTest::addRow("graine %u", graine) << graine;
}

void TestGedcomLettres::desLettresAuHasard()
{
    QFETCH(uint, graine);
    const QStringList morceaux{
        "0 ",    "1 ",      "2 ",   "\n",   "\n",     "@I1@ INDI\n", "@F1@ FAM\n",
        "NAME",  "SEX",     "DATE", "BIRT", "CHIL",   "FAMS",        "/",
        " ",     "@",       "é",    "à",    "€",      "a",           "É1",
        "\r",    "\u00A0",  "DEAT", "OCCU", "\u2003", "HUSB ",       QStringLiteral("\U0001F600"),
        "NAM",   "\uFEFF",  "PLAC", "x",    "\u0085", "0 TRLR\n",    QStringLiteral("\U00010348"),
        "FAMSS", "NNAMEEX", "SSEX"};
    std::mt19937 tirage(graine);
    for (int essai = 0; essai < 100; ++essai) {
        QString texte = "0 HEAD\n";
        for (auto reste = tirage() % 150; reste > 0; --reste)
            texte += morceaux.at(qsizetype(tirage()) % morceaux.size());
        const GedcomNaif attendu(texte);
        for (const QByteArray &octets : EnOctets(texte)) {
            QVERIFY(Lit(octets));
            QCOMPARE(Individus(), attendu.individus);
            QCOMPARE(Familles(), attendu.familles);
        }
    }
}

RAMELIER_TEST_MAIN(QCoreApplication, TestGedcomLettres)
#include "tst_gedcom_lettres.moc"
