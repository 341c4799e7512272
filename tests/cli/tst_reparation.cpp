#include "arbresdifficiles.h"
#include "environnement.h"
#include "lecturesilencieuse.h"
#include "reparation.h"

#include <QGuiApplication>

/// RepareXRLG: bytes in, bytes and words out.
class TestReparation : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void rendLArbreSauve_data();
    void rendLArbreSauve();
    void chaqueCaractereRevient();
    void ceQuiSeLitResteCommeIlEst_data();
    void ceQuiSeLitResteCommeIlEst();
    void neProtegePasDeuxFois();
    void unElementDansUnTexteEstUnTexte();
    void laMiseEnPageDUneAutreMainEstLue();
    void lesRetoursChariotRestent();
    void corrigeLesNombres();
    void remetLesPersonnesEnOrdre();
    void gardeCeQueNulNePeutTrancher();
    void coupeEtProtege_data();
    void coupeEtProtege();
    void leResteApresLaFinEstLaisse();
    void ditPourquoiRienNEstFait_data();
    void ditPourquoiRienNEstFait();
    void plusieursLecturesSeDisent();
    void desOctetsEtrangersSeDisent();
};

namespace {

QString Relu(const QByteArray &octets)
{
    Arbre arbre;
    return LitEnSilence(octets, arbre) ? QString("illisible") : ToutEnTexte(arbre);
}

/// None of their sequences is a joint of the writer: every tree made of them can be told from its file.
const QStringList &Morceaux()
{
    static const QStringList morceaux{"&",
                                      "<",
                                      ">",
                                      "\"",
                                      "'",
                                      "]]>",
                                      "&amp;",
                                      "&#13;",
                                      "</nom>",
                                      "<prenom>x</prenom>",
                                      "\n",
                                      "\r",
                                      "\t",
                                      "<personne>",
                                      "</personne>",
                                      "</infopersonne>\n",
                                      "      </infopersonne>\n    </personne>\n",
                                      "        <nom>",
                                      "<!-- ",
                                      " -->",
                                      "<![CDATA[",
                                      "<?xml ?>",
                                      "<!DOCTYPE x [",
                                      "</xrlg>\n",
                                      "  </arbre>\n</xrlg>\n",
                                      "😀",
                                      "é",
                                      "\u2028",
                                      "\x01",
                                      "\x1f",
                                      QString(QChar(u'\0')),
                                      QString(QChar(u'\uFFFE')),
                                      QString(QChar(u'\uFFFF')),
                                      " ",
                                      "Jean",
                                      "</divers>\n",
                                      "</nom>\n<prenom>",
                                      "</nom>\r\n        <prenom>",
                                      "</titrearbre>\n"};
    return morceaux;
}

}  // namespace

void TestReparation::rendLArbreSauve_data()
{
    QTest::addColumn<quint32>("graine");
    for (quint32 graine = 1; graine <= 200; ++graine)
        QTest::addRow("graine %u", graine) << graine;
}

void TestReparation::rendLArbreSauve()
{
    QFETCH(const quint32, graine);
    const auto arbre = ArbreDifficile(graine, 30, Morceaux());
    const Reparation reparation = RepareXRLG(OctetsDe(*arbre));
    QCOMPARE(reparation.echec, QString());
    QCOMPARE(Relu(reparation.octets), ToutEnTexte(*arbre));
}

void TestReparation::chaqueCaractereRevient()
{
    const auto arbre = ArbreDeNumeros({1});
    QString tous = "&";
    for (int code = 0; code <= 0xFFFF; ++code) {
        if (!QChar::isSurrogate(static_cast<char32_t>(code)))
            tous += QChar(code);
    }
    arbre->premiere->info->divers = tous + QString::fromUcs4(U"\x1F600\x10FFFF");
    QCOMPARE(Relu(RepareXRLG(OctetsDe(*arbre)).octets), ToutEnTexte(*arbre));
}

void TestReparation::ceQuiSeLitResteCommeIlEst_data()
{
    QTest::addColumn<QByteArray>("octets");
    const auto arbre = ArbreDeNumeros({1, 2, 3});
    QTest::newRow("telle que le programme l'écrit") << OctetsDe(*arbre);
    arbre->premiere->info->nom = "A & B <C> \"D\"";
    QTest::newRow("échappée") << OctetsDe(*arbre, TextesXRLG::Echappes);
    QTest::newRow("fins de ligne d'ailleurs") << OctetsDe(*ArbreDeNumeros({1})).replace("\n", "\r\n");
    QTest::newRow("mise en page d'une autre main")
        << QByteArray("<xrlg><arbre><!-- à moi --><nombrepersonnes>1</nombrepersonnes>"
                      "<personne><numero>1</numero><infopersonne><nom>A &amp; B</nom></infopersonne></personne>"
                      "<nombregenerations>1</nombregenerations></arbre></xrlg>");
    QTest::newRow("vide") << OctetsDe(Arbre());
}

void TestReparation::ceQuiSeLitResteCommeIlEst()
{
    QFETCH(const QByteArray, octets);
    const Reparation reparation = RepareXRLG(octets);
    QCOMPARE(reparation.echec, QString());
    QCOMPARE(reparation.faits, QStringList());
    QCOMPARE(reparation.octets, octets);
}

void TestReparation::neProtegePasDeuxFois()
{
    const auto arbre = ArbreDeNumeros({1, 2, 3});
    arbre->premiere->info->nom = "A & B";
    const QString attendu = ToutEnTexte(*arbre);
    arbre->nombreGenerations = 7;
    const Reparation reparation = RepareXRLG(OctetsDe(*arbre, TextesXRLG::Echappes));
    QCOMPARE(reparation.faits, QStringList{"nombre de générations 7 corrigé en 2"});
    QCOMPARE(Relu(reparation.octets), attendu);
    QCOMPARE(RepareXRLG(reparation.octets).faits, QStringList());
}

void TestReparation::unElementDansUnTexteEstUnTexte()
{
    const auto arbre = ArbreDeNumeros({1});
    arbre->premiere->info->divers = "un <b>beau</b> jour &amp; plus";
    const Reparation reparation = RepareXRLG(OctetsDe(*arbre));
    QCOMPARE(reparation.faits, QStringList{"n° 1, remarque : texte protégé"});
    QCOMPARE(Relu(reparation.octets), ToutEnTexte(*arbre));
}

void TestReparation::laMiseEnPageDUneAutreMainEstLue()
{
    const auto arbre = ArbreDeNumeros({1, 2, 3});
    const QString attendu = ToutEnTexte(*arbre);
    arbre->nombrePersonnes = 1;
    const Reparation reparation = RepareXRLG(OctetsDe(*arbre).replace("    <personne>\n", "\t<personne>\n"));
    QCOMPARE(reparation.faits, QStringList{"nombre de personnes 1 corrigé en 3"});
    QCOMPARE(Relu(reparation.octets), attendu);
    // One person alone stands elsewhere: the layout would take it for a text of the one before.
    QByteArray uneSeule = OctetsDe(*arbre);
    uneSeule.insert(uneSeule.lastIndexOf("    <personne>"), "\n");
    QCOMPARE(Relu(RepareXRLG(uneSeule).octets), attendu);
}

void TestReparation::lesRetoursChariotRestent()
{
    const auto arbre = ArbreDeNumeros({1});
    arbre->premiere->info->divers = "un\r\ndeux\r";
    const Reparation reparation = RepareXRLG(OctetsDe(*arbre));
    QCOMPARE(reparation.faits, QStringList{"retours chariot protégés"});
    QCOMPARE(Relu(reparation.octets), ToutEnTexte(*arbre));
}

void TestReparation::corrigeLesNombres()
{
    const auto arbre = ArbreDeNumeros({1, 2, 3, 5});
    const QString attendu = ToutEnTexte(*arbre);
    arbre->nombrePersonnes = 8;
    arbre->nombreGenerations = 2;
    arbre->premiere->numerogeneration = 1;
    Trouve(*arbre, 2)->pere = 4;
    Trouve(*arbre, 2)->mere = 0;
    Trouve(*arbre, 5)->enfant = 3;
    const Reparation reparation = RepareXRLG(OctetsDe(*arbre));
    QCOMPARE(reparation.faits,
             (QStringList{"n° 1 : génération 1 corrigé en 0", "n° 2 : père 4 corrigé en 0",
                          "n° 2 : mère 0 corrigé en 5", "n° 5 : enfant 3 corrigé en 2",
                          "nombre de personnes 8 corrigé en 4", "nombre de générations 2 corrigé en 3"}));
    QCOMPARE(Relu(reparation.octets), attendu);
}

void TestReparation::remetLesPersonnesEnOrdre()
{
    const auto arbre = ArbreDeNumeros({1, 2, 3});
    const QString attendu = ToutEnTexte(*arbre);
    QByteArray octets = OctetsDe(*arbre);
    const qsizetype deux = octets.indexOf("    <personne>\n      <numero>2<");
    const qsizetype trois = octets.indexOf("    <personne>\n      <numero>3<");
    const QByteArray deuxieme = octets.mid(deux, trois - deux);
    octets.remove(deux, trois - deux);
    octets.insert(octets.indexOf("    <nombregenerations>"), deuxieme);
    const Reparation reparation = RepareXRLG(octets);
    QCOMPARE(reparation.faits, QStringList{"personnes remises dans l'ordre de leurs numéros"});
    QCOMPARE(Relu(reparation.octets), attendu);
}

void TestReparation::gardeCeQueNulNePeutTrancher()
{
    const auto arbre = ArbreDeNumeros({1, 2, 3});
    Trouve(*arbre, 2)->info->nom = "A & B";
    QByteArray octets = OctetsDe(*arbre).replace("<numero>3<", "<numero>2<").replace("<mere>3<", "<mere>0<");
    Arbre relu;
    QVERIFY(!LitEnSilence(RepareXRLG(octets).octets, relu));
    QCOMPARE(ArbreEnTexte(relu), QString("1 N1\n  2 A & B\n  2 N3\n"));
    octets = OctetsDe(*arbre).replace("<numero>3<", "<numero>trois<");
    Arbre sansNumero;
    QVERIFY(!LitEnSilence(RepareXRLG(octets).octets, sansNumero));
    QCOMPARE(ArbreEnTexte(sansNumero), QString("  0 N3\n1 N1\n  2 A & B\n"));
}

void TestReparation::coupeEtProtege_data()
{
    QTest::addColumn<TextesXRLG>("textes");
    QTest::newRow("tels quels") << TextesXRLG::TelsQuels;
    QTest::newRow("échappés") << TextesXRLG::Echappes;
}

void TestReparation::coupeEtProtege()
{
    QFETCH(const TextesXRLG, textes);
    const auto arbre = ArbreDeNumeros({1, 2, 3, 6});
    arbre->premiere->info->prenom = "Paul &amp; <Jean>";
    QByteArray octets = OctetsDe(*arbre, textes);
    octets.truncate(octets.indexOf("<nom>N6"));
    const auto reste = ArbreDeNumeros({1, 2, 3});
    reste->premiere->info->prenom = "Paul &amp; <Jean>";
    const Reparation reparation = RepareXRLG(octets);
    QCOMPARE(Relu(reparation.octets), ToutEnTexte(*reste));
    QCOMPARE(reparation.faits.first(),
             QString("la fin manque ou est abîmée : gardé jusqu'à la dernière personne entière, 181 octets laissés"));
    QCOMPARE(reparation.faits.last(), QString("nombre de personnes 4 corrigé en 3"));
    QVERIFY(reparation.faits.contains("n° 3 : père 6 corrigé en 0"));
}

void TestReparation::leResteApresLaFinEstLaisse()
{
    const auto arbre = ArbreDeNumeros({1, 2});
    const QByteArray octets = OctetsDe(*arbre) + "x>\n    </personne>\n";
    const Reparation reparation = RepareXRLG(octets);
    QCOMPARE(
        reparation.faits,
        QStringList{"la fin manque ou est abîmée : gardé jusqu'à la dernière personne entière, 83 octets laissés"});
    QCOMPARE(Relu(reparation.octets), ToutEnTexte(*arbre));
}

void TestReparation::ditPourquoiRienNEstFait_data()
{
    QTest::addColumn<QByteArray>("octets");
    QTest::addColumn<QString>("echec");
    const QByteArray bon = OctetsDe(*ArbreDeNumeros({1}));
    QTest::newRow("vide") << QByteArray() << "Erreur de syntaxe ligne 1, colonne 1:\nunexpected end of file";
    QTest::newRow("autre chose") << QByteArray("<html/>")
                                 << "Erreur de syntaxe ligne 1, colonne 6:\nLe fichier n'est pas un fichier XRLG.";
    QTest::newRow("aucune personne entière")
        << bon.left(bon.indexOf("</infopersonne>")) << "Erreur de syntaxe ligne 17, colonne 7:\nunexpected end of file";
}

void TestReparation::ditPourquoiRienNEstFait()
{
    QFETCH(const QByteArray, octets);
    QFETCH(const QString, echec);
    const Reparation reparation = RepareXRLG(octets);
    QCOMPARE(reparation.echec, echec);
    QCOMPARE(reparation.octets, QByteArray());
}

void TestReparation::plusieursLecturesSeDisent()
{
    const auto arbre = ArbreDeNumeros({1});
    arbre->premiere->info->nom = "A</nom>\n        <prenom>B";
    arbre->premiere->info->prenom = "C";
    QCOMPARE(RepareXRLG(OctetsDe(*arbre)).faits,
             (QStringList{"n° 1, prénom : texte protégé",
                          "n° 1 : ses textes peuvent se lire de plusieurs façons, à vérifier"}));
}

void TestReparation::desOctetsEtrangersSeDisent()
{
    const QByteArray octets = OctetsDe(*ArbreDeNumeros({1})).replace("N1", "L\xE9on & fils");
    const Reparation reparation = RepareXRLG(octets);
    QCOMPARE(reparation.faits,
             (QStringList{"n° 1, nom : texte protégé",
                          "n° 1, nom : des octets qui ne sont pas de l'UTF-8 deviennent « \uFFFD »"}));
    QVERIFY(reparation.octets.contains("L\uFFFDon &amp; fils"));
}

RAMELIER_TEST_MAIN(QGuiApplication, TestReparation)
#include "tst_reparation.moc"
