#include "arbre.h"
#include "arbres.h"
#include "environnement.h"
#include "lecturexrlg.h"

#include <QCoreApplication>
#include <QElapsedTimer>
#include <QFile>

#include <random>

/// readFicXRLG: files made to exhaust the stack or the memory, and files that are no tree at all.
class TestFicXrlgHostile : public QObject, private LectureXrlg
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase() { Ecoute(); }
    void init() { Recommence(); }
    void desImbricationsSansFinSontRefusees_data();
    void desImbricationsSansFinSontRefusees();
    void lImbricationSeCompteOuverte();
    void desOctetsQuelconquesNeSontPasUnArbre();
    void desNomsSansFinNeSontPasUnArbre();
    void lesBombesDEntitesSontArretees_data();
    void lesBombesDEntitesSontArretees();
    void desParenthesesSansFinNeDebordentPas();
    void desDeclarationsSansFinNeRetiennentPas();
    void dansUnTexteCeNEstPasUneDeclaration();
};

void TestFicXrlgHostile::desImbricationsSansFinSontRefusees_data()
{
    QTest::addColumn<QByteArray>("debut");
    QTest::addColumn<QByteArray>("balise");
    QTest::addColumn<int>("colonne");
    // The 201st open element is one too many; its column is that of the end of its tag.
    QTest::newRow("inconnues") << QByteArray("<xrlg>") << QByteArray("<a>") << 606;
    QTest::newRow("personnes") << QByteArray("<xrlg>") << QByteArray("<personne>") << 2006;
    QTest::newRow("racines") << QByteArray() << QByteArray("<xrlg>") << 1206;
}

void TestFicXrlgHostile::desImbricationsSansFinSontRefusees()
{
    QFETCH(QByteArray, debut);
    QFETCH(QByteArray, balise);
    QFETCH(int, colonne);
    QCOMPARE(Lit(debut + balise.repeated(100'000)), 2);
    QCOMPARE(messages,
             QStringList{QStringLiteral("information|Arbre XRLG|Erreur de syntaxe ligne 1, colonne %1:\n"
                                        "Le fichier n'est pas un fichier XRLG.")
                             .arg(colonne)});
    QVERIFY(!arbre->premiere);
}

void TestFicXrlgHostile::lImbricationSeCompteOuverte()
{
    // Any number of elements beside each other, at the greatest depth that is accepted.
    const QByteArray cote = QByteArray("<b></b><c/>").repeated(1000);
    QCOMPARE(
        Lit("<xrlg>" + QByteArray("<a>").repeated(198) + cote + QByteArray("</a>").repeated(198) + cote + "</xrlg>"),
        0);
    QCOMPARE(messages, QStringList());
}

void TestFicXrlgHostile::desOctetsQuelconquesNeSontPasUnArbre()
{
    std::mt19937 tirage(7);
    for (int essai = 0; essai < 300; ++essai) {
        // Bytes of markup more often than others, so that the parser gets somewhere.
        const QByteArray frequents = "<>&;/!?[]\"'= xrlg-";
        QByteArray contenu = essai % 2 == 0 ? QByteArray() : QByteArray("<xrlg>");
        const qsizetype taille = 1 + qsizetype(tirage() % 400);
        while (contenu.size() < taille) {
            const auto octet = tirage();
            contenu += octet % 3 == 0 ? char(octet / 3 % 256) : frequents.at(qsizetype(octet / 3) % frequents.size());
        }
        messages.clear();
        QVERIFY2(Lit(contenu + '<') == 2, qPrintable(QString::number(essai)));
        QCOMPARE(messages.size(), 1);
        QVERIFY(!arbre->premiere);
    }
}

void TestFicXrlgHostile::desNomsSansFinNeSontPasUnArbre()
{
    QCOMPARE(Lit('<' + QByteArray(3'000'000, 'a')), 2);
    QCOMPARE(Lit("<xrlg " + QByteArray(3'000'000, 'a')), 2);
    QCOMPARE(Lit("<xrlg>" + QByteArray(3'000'000, 'a')), 2);
    QCOMPARE(Lit("<xrlg><!--" + QByteArray(3'000'000, 'a')), 2);
    QCOMPARE(messages.size(), 4);
}

void TestFicXrlgHostile::lesBombesDEntitesSontArretees_data()
{
    QTest::addColumn<QByteArray>("contenu");
    QByteArray declarations = "<!ENTITY a \"" + QByteArray(20, 'x') + "\">";
    for (char c = 'b'; c <= 'k'; ++c)
        declarations +=
            QByteArray("<!ENTITY ") + c + " \"" + (QByteArray("&") + char(c - 1) + ';').repeated(10) + "\">";
    // 20 characters, ten times ten times ten...
    QTest::newRow("dans un texte") << "<!DOCTYPE xrlg [" + declarations + "]><xrlg><creepar>&k;</creepar></xrlg>";
    QTest::newRow("dans un attribut") << "<!DOCTYPE xrlg [" + declarations + "]><xrlg a=\"&k;\"></xrlg>";
    QTest::newRow("qui se nomment l'une l'autre")
        << QByteArray("<!DOCTYPE xrlg [<!ENTITY a \"&b;\"><!ENTITY b \"&a;\">]><xrlg><creepar>&a;</creepar></xrlg>");
    // One large entity, written many times: 100 million characters from a file of 35 kB.
    QTest::newRow("à plat") << "<!DOCTYPE xrlg [<!ENTITY a \"" + QByteArray(20'000, 'x') + "\">]><xrlg><creepar>"
            + QByteArray("&a;").repeated(5'000) + "</creepar></xrlg>";
}

void TestFicXrlgHostile::lesBombesDEntitesSontArretees()
{
    QFETCH(QByteArray, contenu);
    QCOMPARE(Lit(contenu), 2);
    QCOMPARE(messages.size(), 1);
    QCOMPARE(arbre->infoArbre->creepar, QString());
}

void TestFicXrlgHostile::desParenthesesSansFinNeDebordentPas()
{
    // The content model of a document type nests too; whatever is made of it, it must not end the program.
    const QByteArray modele = QByteArray(200'000, '(') + 'b' + QByteArray(200'000, ')');
    const int resultat = Lit("<!DOCTYPE xrlg [<!ELEMENT a " + modele + ">]><xrlg></xrlg>");
    QVERIFY(resultat == 0 || resultat == 2);
    QCOMPARE(messages.size(), resultat == 2 ? 1 : 0);
}

void TestFicXrlgHostile::desDeclarationsSansFinNeRetiennentPas()
{
    QElapsedTimer montre;
    montre.start();
    QCOMPARE(Lit(QByteArray("<!DOCTYPE ").repeated(300'000)), 2);
    QCOMPARE(Lit(QByteArray("<!-- <!DOCTYPE -->").repeated(300'000)), 2);
    // A walk from each of them to the end would take hours.
    QVERIFY(montre.elapsed() < 20'000);
}

void TestFicXrlgHostile::dansUnTexteCeNEstPasUneDeclaration()
{
    QCOMPARE(
        Lit("<!-- <!DOCTYPE [ --><?a <!DOCTYPE [ ?><!DOCTYPE xrlg><xrlg><creepar><![CDATA[<!DOCTYPE x [&]]></creepar>"
            "</xrlg>"),
        0);
    QCOMPARE(messages, QStringList());
    QCOMPARE(arbre->infoArbre->creepar, "<!DOCTYPE x [&");
}

RAMELIER_TEST_MAIN(QCoreApplication, TestFicXrlgHostile)
#include "tst_ficxrlg_hostile.moc"
