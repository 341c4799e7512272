#include "bancechange.h"
#include "environnement.h"
#include "monteelitterale.h"

#include <QCoreApplication>

#include <random>

/// The import finds individuals by identifiers of every kind.
class TestGedcomIdentifiants : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void lesParentsPortentDesIdentifiants_data();
    void lesParentsPortentDesIdentifiants();
    void lePremierDUnIdentifiantEstLeBon();
    void laRacineSansIdentifiantNAPasDeParents();
    void laRacineEnDoubleALesParentsDuPremier();
    void unIdentifiantTapeEnUtf16();
    void unDemiCaractereNeDesignePersonne();
    void desIdentifiantsAuHasard_data();
    void desIdentifiantsAuHasard();
};

/// Three individuals, the last two the parents of the first; all with the surname of their part.
static QByteArray TroisPersonnes(const QByteArray &enfant, const QByteArray &pere, const QByteArray &mere)
{
    return "0 " + enfant + " INDI\n1 NAME ENFANT\n0 " + pere + " INDI\n1 NAME PERE\n0 " + mere
        + " INDI\n1 NAME MERE\n0 @F1@ FAM\n1 HUSB " + pere + "\n1 WIFE " + mere + "\n1 CHIL " + enfant + "\n0 TRLR\n";
}

void TestGedcomIdentifiants::lesParentsPortentDesIdentifiants_data()
{
    QTest::addColumn<QByteArray>("enfant");
    QTest::addColumn<QByteArray>("pere");
    QTest::addColumn<QByteArray>("mere");
    const auto cas = [](const char *nom, const char *enfant, const char *pere, const char *mere) {
        QTest::newRow(nom) << QByteArray(enfant) << QByteArray(pere) << QByteArray(mere);
    };
    cas("un nombre, trois lettres", "@I7@", "@P7@", "@7@");
    cas("des zéros devant", "@I7@", "@I07@", "@I0007@");
    cas("sans nombre", "@A@", "@B@", "@C@");
    cas("des nombres qui ne tiennent nulle part", "@I18446744073709551616@", "@I0@", "@I36893488147419103232@");
    cas("de très grands nombres", "@I500000001@", "@I500000003@", "@I500000005@");
    cas("des chiffres partout", "@1I2@", "@I12@", "@12I@");
    cas("des accents", "@Père 1@", "@Mère 1@", "@Été 1@");
    cas("rien entre les signes", "@@", "@ @", "@  @");
}

void TestGedcomIdentifiants::lesParentsPortentDesIdentifiants()
{
    QFETCH(QByteArray, enfant);
    QFETCH(QByteArray, pere);
    QFETCH(QByteArray, mere);
    BancEchange banc;
    const QByteArray contenu = TroisPersonnes(enfant, pere, mere);
    const QString texte = QString::fromUtf8(contenu);
    const QByteArray utf16(reinterpret_cast<const char *>(texte.utf16()), 2 * texte.size());
    for (const QByteArray &octets : {contenu, "\xFF\xFE" + utf16}) {
        const auto arbre = banc.Importe(octets, QString::fromUtf8(enfant));
        QCOMPARE(ArbreEnTexte(*arbre), "1 ENFANT\n  2 PERE\n  3 MERE\n");
    }
}

void TestGedcomIdentifiants::lePremierDUnIdentifiantEstLeBon()
{
    BancEchange banc;
    const QByteArray doubles = "0 @P7@ INDI\n1 NAME AUTRE PERE\n0 @I7@ INDI\n1 NAME AUTRE ENFANT\n";
    QByteArray contenu = TroisPersonnes("@I7@", "@P7@", "@M7@");
    contenu.replace("0 @F1@", doubles + "0 @F1@");
    QCOMPARE(ArbreEnTexte(*banc.Importe(contenu, "@I7@")), "1 ENFANT\n  2 PERE\n  3 MERE\n");
    QCOMPARE(ArbreEnTexte(*banc.Importe(doubles + TroisPersonnes("@I7@", "@P7@", "@M7@"), "@I7@")),
             "1 AUTRE ENFANT\n  2 AUTRE PERE\n  3 MERE\n");
}

void TestGedcomIdentifiants::laRacineSansIdentifiantNAPasDeParents()
{
    BancEchange banc;
    const QByteArray contenu = "0 INDI\n1 NAME ENFANT\n0 @I2@ INDI\n1 NAME PERE\n1 FAMS @F1@\n"
                               "0 @F1@ FAM\n1 HUSB @I2@\n1 CHIL x\n1 CHIL @I\n0 TRLR\n";
    QCOMPARE(ArbreEnTexte(*banc.Importe(contenu, std::nullopt)), "1 ENFANT\n");
}

void TestGedcomIdentifiants::laRacineEnDoubleALesParentsDuPremier()
{
    BancEchange banc;
    // Nobody's spouse is only the second of the two.
    const QByteArray contenu = "0 @I1@ INDI\n1 NAME UN\n1 FAMS @F9@\n0 @I1@ INDI\n1 NAME DEUX\n"
                               "0 @I2@ INDI\n1 NAME PERE\n1 FAMS @F1@\n0 @F1@ FAM\n1 HUSB @I2@\n1 CHIL @I1@\n0 TRLR\n";
    QCOMPARE(ArbreEnTexte(*banc.Importe(contenu, std::nullopt)), "1 DEUX\n  2 PERE\n");
}

void TestGedcomIdentifiants::unIdentifiantTapeEnUtf16()
{
    BancEchange banc;
    const QString texte = QStringLiteral("\uFEFF0 @Aïeul@ INDI\n1 NAME Zoé /NOËL/\n1 BIRT\n2 DATE août\n2 PLAC Nîmes\n"
                                         "0 @B@ INDI\n0 TRLR\n");
    const QByteArray octets(reinterpret_cast<const char *>(texte.utf16()), 2 * texte.size());
    QCOMPARE(ArbreEnTexte(*banc.Importe(octets, QStringLiteral("x @Aïeul@ y"))), "1 Zoé  NOËL\n");
    QCOMPARE(banc.messages, QStringList{"racine|@B@   né(e) le  à |@Aïeul@ Zoé  NOËL né(e) le août à Nîmes"});
}

void TestGedcomIdentifiants::unDemiCaractereNeDesignePersonne()
{
    BancEchange banc;
    const QString demi = QStringLiteral("@") + QChar(0xD83D) + u'@';
    for (const char *adresse : {"@\xEF\xBF\xBD@", "@?@", "@@"}) {
        const QByteArray contenu = "0 " + QByteArray(adresse) + " INDI\n0 TRLR\n";
        QVERIFY(!banc.Importe(contenu, demi)->premiere);
        QCOMPARE(banc.messages.last(),
                 "information|Information|Impossible de trouver la personne  " + demi
                     + "\nproposée comme racine de l'arbre");
    }
}

void TestGedcomIdentifiants::desIdentifiantsAuHasard_data()
{
    QTest::addColumn<uint>("graine");
    for (uint graine = 0; graine < 10; ++graine)
        QTest::addRow("graine %u", graine) << graine;
}

void TestGedcomIdentifiants::desIdentifiantsAuHasard()
{
    QFETCH(uint, graine);
    const QByteArrayList adresses{"@I1@", "@P1@", "@1@",   "@I01@", "@I2@",  "@I3@", "@I4@",  "@I257@",
                                  "@A@",  "@B@",  "@1B@",  "@@",    "",      "@é1@", "@I5@",  "@I18446744073709551617@",
                                  "@I9@", "@9I@", "@ 9 @", "@I17@", "@I33@", "@I6@", "@I65@", "@I129@"};
    BancEchange banc;
    std::mt19937 tirage(graine);
    const auto une = [&] { return adresses.at(qsizetype(tirage()) % adresses.size()); };
    for (int essai = 0; essai < 100; ++essai) {
        QByteArray contenu = "0 HEAD\n";
        for (auto i = tirage() % 30; i > 0; --i) {
            contenu += "0 " + une() + " INDI\n1 NAME N" + QByteArray::number(i) + "\n";
            if (tirage() % 3 == 0)
                contenu += "1 FAMS @F1@\n";
        }
        for (auto i = tirage() % 30; i > 0; --i)
            contenu +=
                "0 @F@ FAM\n1 HUSB " + une() + "\n1 WIFE " + une() + "\n1 CHIL " + une() + "\n1 CHIL " + une() + "\n";
        const QString fichier = banc.Pose(QString::number(essai) + ".ged", contenu + "0 TRLR\n");
        QString cle = QString::fromUtf8(une());
        VideLesListesGED();
        QVERIFY(DecodeFichierGED(fichier));
        Arbre attendu;
        MonteeLitterale().Execute(attendu, cle);
        QCOMPARE(ToutEnTexte(*banc.ImporteFichier(fichier, cle)), ToutEnTexte(attendu));
    }
}

RAMELIER_TEST_MAIN(QCoreApplication, TestGedcomIdentifiants)
#include "tst_gedcom_identifiants.moc"
