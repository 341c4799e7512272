#include "arbre.h"
#include "arbres.h"
#include "environnement.h"
#include "lecturexrlg.h"

#include <QCoreApplication>
#include <QFile>

/// readFicXRLG: the XML that it accepts, and the exact words for what it refuses.
class TestFicXrlgSyntaxe : public QObject, private LectureXrlg
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase() { Ecoute(); }
    void init() { Recommence(); }
    void dePrecisesErreursDeSyntaxe_data();
    void dePrecisesErreursDeSyntaxe();
    void uneErreurGardeLesPersonnesFinies_data();
    void uneErreurGardeLesPersonnesFinies();
    void seuleLaVersion10EstAcceptee_data();
    void seuleLaVersion10EstAcceptee();
    void unTexteSeLitCommeIlEstEcrit_data();
    void unTexteSeLitCommeIlEstEcrit();
    void uneEntiteExterneNEstJamaisOuverte();
    void ceQuiEstEntreGuillemetsNEstPasUneDeclaration_data();
    void ceQuiEstEntreGuillemetsNEstPasUneDeclaration();
};

void TestFicXrlgSyntaxe::dePrecisesErreursDeSyntaxe_data()
{
    QTest::addColumn<QByteArray>("contenu");
    QTest::addColumn<QString>("suite");
    const auto ligne = [](const char *nom, const QByteArray &contenu, const QString &suite) {
        QTest::newRow(nom) << contenu << suite;
    };
    const QString autre = QStringLiteral("Le fichier n'est pas un fichier XRLG.");
    ligne("vide", "", "1, colonne 1:\nunexpected end of file");
    ligne("que des blancs", " \n ", "2, colonne 2:\nunexpected end of file");
    ligne("du texte", "bonjour", "1, colonne 1:\nerror occurred while parsing element");
    ligne("une autre racine", "<?xml version=\"1.0\"?>\n<gedcom>\n</gedcom>", "2, colonne 8:\n" + autre);
    ligne("la racine en capitales", "<XRLG/>", "1, colonne 6:\n" + autre);
    ligne("la racine préfixée", "<x:xrlg xmlns:x=\"u\"/>", "1, colonne 20:\n" + autre);
    ligne("un arbre sans racine", "<arbre></arbre>", "1, colonne 7:\n" + autre);
    ligne("jamais fermée", "<xrlg>\n<arbre>", "2, colonne 8:\nunexpected end of file");
    ligne("mal fermée", "<xrlg><arbre></xrlg>", "1, colonne 20:\ntag mismatch");
    ligne("deux racines", "<xrlg></xrlg><xrlg/>", "1, colonne 15:\nunexpected character");
    ligne("du texte après la fin", "<xrlg></xrlg>bonjour", "1, colonne 14:\nunexpected character");
    ligne("une esperluette", "<xrlg>\n<personne><infopersonne><nom>A & B</nom></infopersonne></personne></xrlg>",
          "2, colonne 33:\nletter is expected");
    ligne("un inférieur", "<xrlg>\n<personne><infopersonne><nom>A < B</nom></infopersonne></personne></xrlg>",
          "2, colonne 33:\nerror occurred while parsing element");
    // The parser quotes nothing of the file, but a message of ours must survive a percent sign in it.
    ligne("des pourcents", "<xrlg version=\"%1%2%3\"/>",
          "1, colonne 23:\nLe fichier n'est pas un fichier XRLG version 1.0.");
}

void TestFicXrlgSyntaxe::dePrecisesErreursDeSyntaxe()
{
    QFETCH(QByteArray, contenu);
    QFETCH(QString, suite);
    QCOMPARE(Lit(contenu), 2);
    QCOMPARE(messages, QStringList{QStringLiteral("information|Arbre XRLG|Erreur de syntaxe ligne ") + suite});
    QVERIFY(!arbre->premiere);
    QCOMPARE(arbre->nombrePersonnes, 0U);
}

void TestFicXrlgSyntaxe::uneErreurGardeLesPersonnesFinies_data()
{
    QTest::addColumn<QByteArray>("fin");
    QTest::addColumn<QString>("numeros");
    QTest::newRow("au milieu d'une personne") << QByteArray("<personne><numero>2</numero></arbre>") << "1";
    QTest::newRow("au milieu d'un nom") << QByteArray("<personne><infopersonne><nom>A & B") << "1";
    QTest::newRow("entre deux personnes") << QByteArray("<personne><numero>2</numero></personne><") << "1 2";
    QTest::newRow("une personne jamais finie, remplacée") << QByteArray("<personne><infopersonne/><personne><a") << "1";
    QTest::newRow("une racine d'une autre version") << QByteArray("<xrlg version=\"2.0\">") << "1";
}

void TestFicXrlgSyntaxe::uneErreurGardeLesPersonnesFinies()
{
    QFETCH(QByteArray, fin);
    QFETCH(QString, numeros);
    QCOMPARE(Lit("<xrlg><arbre><nombrepersonnes>9</nombrepersonnes><personne><numero>1</numero></personne>" + fin), 2);
    QCOMPARE(messages.size(), 1);
    QCOMPARE(NumerosEnTexte(*arbre), numeros);
    QCOMPARE(arbre->nombrePersonnes, quint64(numeros.count(u' ') + 10));
}

void TestFicXrlgSyntaxe::seuleLaVersion10EstAcceptee_data()
{
    QTest::addColumn<QByteArray>("racine");
    QTest::addColumn<bool>("acceptee");
    QTest::newRow("1.0") << QByteArray("version=\"1.0\"") << true;
    QTest::newRow("aucune") << QByteArray("") << true;
    QTest::newRow("vide") << QByteArray("version=''") << true;
    QTest::newRow("un autre attribut") << QByteArray("Version=\"2.0\" auteur=\"moi\"") << true;
    QTest::newRow("2.0") << QByteArray("version=\"2.0\"") << false;
    QTest::newRow("1") << QByteArray("version=\"1\"") << false;
    QTest::newRow("1.0 et un blanc") << QByteArray("version=\"1.0 \"") << false;
    QTest::newRow("un blanc") << QByteArray("version=\" \"") << false;
}

void TestFicXrlgSyntaxe::seuleLaVersion10EstAcceptee()
{
    QFETCH(QByteArray, racine);
    QFETCH(bool, acceptee);
    QCOMPARE(Lit("<xrlg " + racine + "><arbre><personne><numero>1</numero></personne></arbre></xrlg>"),
             acceptee ? 0 : 2);
    QCOMPARE(messages.size(), acceptee ? 0 : 1);
    QCOMPARE(NumerosEnTexte(*arbre), acceptee ? QStringLiteral("1") : QString());
    if (!acceptee)
        QVERIFY(messages.first().endsWith(QStringLiteral(":\nLe fichier n'est pas un fichier XRLG version 1.0.")));
}

void TestFicXrlgSyntaxe::unTexteSeLitCommeIlEstEcrit_data()
{
    QTest::addColumn<QByteArray>("contenu");
    QTest::addColumn<QString>("texte");
    const auto ligne = [](const char *nom, const QByteArray &element, const QString &texte) {
        QTest::newRow(nom) << "<xrlg><creepar>" + element + "</creepar></xrlg>" << texte;
    };
    ligne("des accents", "Zoé Œuvrard", "Zoé Œuvrard");
    ligne("d'autres écritures", "Łódź 孔子 😀", "Łódź 孔子 😀");
    ligne("des blancs autour", "  Zoé  ", "  Zoé  ");
    ligne("que des blancs", "   ", "   ");
    ligne("des tabulations", "\tA\t B \t", "\tA\t B \t");
    ligne("des lignes", "\n A\n\nB\n", "\n A\n\nB\n");
    ligne("des fins de ligne d'ailleurs", "A\r\nB\r\n", "A\nB\n");
    ligne("un supérieur", "A > B", "A > B");
    ligne("des entités", "&lt;&amp;&gt;&quot;&apos;", "<&>\"'");
    ligne("des numéros de caractères", "Zo&#233; &#x1F600;", "Zoé 😀");
    ligne("une section littérale", "a<![CDATA[ & <b> ]]>c", "a & <b> c");
    ligne("un commentaire", "a<!-- <b> -->b", "ab");
    ligne("une instruction", "a<?autre chose?>b", "ab");
    // Whatever stood before the last start tag is forgotten, never what follows an end tag.
    ligne("un élément au milieu", "ab<b>cd</b>ef", "cdef");
    ligne("un élément vide au milieu", "ab<br/>cd", "cd");
    QTest::newRow("une marque d'ordre des octets")
        << QByteArray("\xEF\xBB\xBF<xrlg><creepar>Zoé</creepar></xrlg>") << "Zoé";
    QTest::newRow("en Latin-1") << QByteArray("<?xml version=\"1.0\" encoding=\"ISO-8859-1\"?>"
                                              "<xrlg><creepar>Zo\xE9</creepar></xrlg>")
                                << "Zoé";
    QTest::newRow("des octets qui ne sont pas de l'UTF-8")
        << QByteArray("<xrlg><creepar>Zo\xE9!</creepar></xrlg>") << "Zo\uFFFD!";
    QTest::newRow("le dernier compte") << QByteArray("<xrlg><creepar>A</creepar><creepar>B</creepar></xrlg>") << "B";
    QTest::newRow("un élément vide efface") << QByteArray("<xrlg><creepar>A</creepar><creepar/></xrlg>") << "";
}

void TestFicXrlgSyntaxe::unTexteSeLitCommeIlEstEcrit()
{
    QFETCH(QByteArray, contenu);
    QFETCH(QString, texte);
    QCOMPARE(Lit(contenu), 0);
    QCOMPARE(messages, QStringList());
    QCOMPARE(arbre->infoArbre->creepar, texte);
}

void TestFicXrlgSyntaxe::uneEntiteExterneNEstJamaisOuverte()
{
    const QString secret = dossier->filePath(QStringLiteral("secret"));
    QFile fichier(secret);
    QVERIFY(fichier.open(QIODevice::WriteOnly));
    fichier.write("un secret");
    fichier.close();
    Lit("<!DOCTYPE xrlg [<!ENTITY e SYSTEM \"file://" + secret.toUtf8() + "\">]><xrlg><creepar>[&e;]</creepar></xrlg>");
    QVERIFY(!arbre->infoArbre->creepar.contains(QStringLiteral("secret")));
}

void TestFicXrlgSyntaxe::ceQuiEstEntreGuillemetsNEstPasUneDeclaration_data()
{
    QTest::addColumn<QByteArray>("type");
    QTest::addColumn<int>("resultat");
    QTest::addColumn<QStringList>("dit");
    const auto refus = [](int colonne) {
        return QStringList{QStringLiteral("information|Arbre XRLG|Erreur de syntaxe ligne 1, colonne %1:\n"
                                          "Le fichier n'est pas un fichier XRLG.")
                               .arg(colonne)};
    };
    QTest::newRow("crochet") << QByteArray("<!DOCTYPE xrlg SYSTEM \"a[b\">") << 0 << QStringList();
    QTest::newRow("crochet, apostrophes") << QByteArray("<!DOCTYPE xrlg SYSTEM 'a[b'>") << 0 << QStringList();
    QTest::newRow("l'autre guillemet") << QByteArray("<!DOCTYPE xrlg SYSTEM \"a'[\">") << 0 << QStringList();
    QTest::newRow("supérieur") << QByteArray("<!DOCTYPE xrlg SYSTEM \"a>b\" [<!ENTITY e \"f\">]>") << 2 << refus(29);
    QTest::newRow("deux textes") << QByteArray("<!DOCTYPE xrlg PUBLIC '>' \">\" [<!ENTITY e \"f\">]>") << 2
                                 << refus(31);
}

void TestFicXrlgSyntaxe::ceQuiEstEntreGuillemetsNEstPasUneDeclaration()
{
    QFETCH(QByteArray, type);
    QFETCH(int, resultat);
    QFETCH(QStringList, dit);
    QCOMPARE(Lit(type + "<xrlg version=\"1.0\"><arbre><personne><numero>1</numero></personne></arbre></xrlg>"),
             resultat);
    QCOMPARE(messages, dit);
    QCOMPARE(NumerosEnTexte(*arbre), resultat == 0 ? QStringLiteral("1") : QString());
}

RAMELIER_TEST_MAIN(QCoreApplication, TestFicXrlgSyntaxe)
#include "tst_ficxrlg_syntaxe.moc"
