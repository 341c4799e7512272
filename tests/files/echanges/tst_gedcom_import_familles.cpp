#include "bancechange.h"
#include "environnement.h"

#include <QCoreApplication>

/// The climb of the import: who becomes whose father and mother, and with which number.
class TestGedcomImportFamilles : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void troisGenerationsSontCopieesEntieres();
    void lesParents_data();
    void lesParents();
    void lesIdentifiantsEnDouble_data();
    void lesIdentifiantsEnDouble();
    void unImplexeNAQuUneAscendance();
    void unImplexeEntreDeuxGenerations();
    void lesCerclesFinissent_data();
    void lesCerclesFinissent();
    void quatreVingtsGenerationsSArretentOuLesNumerosFinissent_data();
    void quatreVingtsGenerationsSArretentOuLesNumerosFinissent();
    void chercheLesParentsOublieLesPrecedents();
    void trenteMilleAscendants();
};

namespace {

/// Individuals named after their identifiers: "I1 I2" gives two of them.
QByteArray Individus(const QByteArray &noms)
{
    QByteArray lignes = "0 HEAD\n";
    for (const QByteArray &nom : noms.split(' '))
        lignes += "0 @" + nom + "@ INDI\n1 NAME " + nom + '\n';
    return lignes;
}

/// A family, "-" for nobody: Famille("I2", "-", "I1") has a husband and a child.
QByteArray Famille(const QByteArray &mari, const QByteArray &femme, const QByteArray &enfants)
{
    QByteArray lignes = "0 @F@ FAM\n";
    if (mari != "-")
        lignes += "1 HUSB @" + mari + "@\n";
    if (femme != "-")
        lignes += "1 WIFE @" + femme + "@\n";
    for (const QByteArray &enfant : enfants.split(' '))
        lignes += "1 CHIL @" + enfant + "@\n";
    return lignes;
}

const QByteArray fin = "0 TRLR\n";

/// "1 I1, 2 I2": numbers and surnames, in list order.
QString Places(const Arbre &arbre)
{
    QStringList places;
    for (const Personne *personne = arbre.premiere; personne; personne = personne->suivante)
        places += QString::number(personne->numero) + u' ' + personne->info->nom;
    return places.join(QStringLiteral(", "));
}

}  // namespace

void TestGedcomImportFamilles::troisGenerationsSontCopieesEntieres()
{
    BancEchange banc;
    const auto arbre = banc.Importe(
        "0 HEAD\n1 CHAR UTF-8\n"
        "0 @I1@ INDI\n1 NAME Luc /NOËL/\n1 FAMC @F1@\n1 BIRT\n2 DATE 1950\n2 PLAC Metz\n1 DEAT\n2 DATE 2001\n"
        "2 PLAC Brest\n1 OCCU Pâtre\n"
        "0 @I2@ INDI\n1 NAME Jean /NOËL/\n1 SEX M\n1 BIRT\n2 DATE 1920\n1 FAMS @F1@\n1 FAMC @F2@\n1 OCCU Maçon\n"
        "0 @I3@ INDI\n1 NAME Ève /ROY/\n1 SEX F\n1 DEAT\n2 PLAC Caen\n1 FAMS @F1@\n1 OCCU Fée\n"
        "0 @I4@ INDI\n1 NAME VIEUX\n1 FAMS @F2@\n"
        "0 @I5@ INDI\n1 NAME Tante /NOËL/\n1 FAMC @F2@\n"
        "0 @F1@ FAM\n1 HUSB @I2@\n1 WIFE @I3@\n1 CHIL @I1@\n"
        "0 @F2@ FAM\n1 HUSB @I4@\n1 CHIL @I5@\n1 CHIL @I2@\n0 TRLR\n",
        QStringLiteral("@I1@"));
    QCOMPARE(ToutEnTexte(*arbre),
             QStringLiteral("4 personnes, 3 générations, sélection 0, liste 1 2 3 4\n"
                            "1 g0 e0 p2 m3 -> p2 m3 NOËL|Luc |1950|Metz|2001|Brest|Pâtre|| photo -1\n"
                            "2 g1 e1 p4 m0 -> p4 m0 NOËL|Jean |1920||||Maçon|| photo -1\n"
                            "3 g1 e1 p0 m0 -> p0 m0 ROY|Ève ||||Caen|Fée|| photo -1\n"
                            "4 g2 e2 p0 m0 -> p0 m0 VIEUX|||||||| photo -1\n"));
    QVERIFY(!LesIndividus && !LesFamilles);
}

void TestGedcomImportFamilles::lesParents_data()
{
    QTest::addColumn<QByteArray>("familles");
    QTest::addColumn<QString>("places");
    const auto cas = [](const char *nom, const QByteArray &familles, const char *places) {
        QTest::newRow(nom) << familles << places;
    };
    cas("les deux", Famille("I2", "I3", "I1"), "1 I1, 2 I2, 3 I3");
    cas("une mère sans père", Famille("-", "I3", "I1"), "1 I1, 3 I3");
    cas("un père sans mère", Famille("I2", "-", "I1"), "1 I1, 2 I2");
    cas("aucun", Famille("-", "-", "I1"), "1 I1");
    cas("la mère ne suit que son côté", Famille("-", "I3", "I1") + Famille("I4", "I5", "I3"), "1 I1, 3 I3, 6 I4, 7 I5");
    cas("un père sans fiche", Famille("I99", "I3", "I1"), "1 I1, 3 I3");
    cas("une mère sans fiche", Famille("I2", "I99", "I1"), "1 I1, 2 I2");
    cas("de deux familles la première", Famille("I2", "I3", "I1") + Famille("I4", "I5", "I1"), "1 I1, 2 I2, 3 I3");
    cas("le père de l'une, la mère de l'autre", Famille("I2", "-", "I1") + Famille("-", "I5", "I1"),
        "1 I1, 2 I2, 3 I5");
    cas("la mère de l'une, le père de l'autre", Famille("-", "I3", "I1") + Famille("I4", "I5", "I1"),
        "1 I1, 2 I4, 3 I3");
    cas("une première famille sans fiches", Famille("I98", "I99", "I1") + Famille("I4", "I5", "I1"),
        "1 I1, 2 I4, 3 I5");
    cas("un premier père sans fiche", Famille("I99", "I3", "I1") + Famille("I4", "I5", "I1"), "1 I1, 2 I4, 3 I3");
    cas("un enfant compté deux fois", Famille("I2", "I3", "I1 I6 I1"), "1 I1, 2 I2, 3 I3");
    cas("parmi ses frères", Famille("I2", "I3", "I5 I4 I1"), "1 I1, 2 I2, 3 I3");
    cas("les familles d'un autre", Famille("I2", "I3", "I4"), "1 I1");
    cas("minuscules", Famille("I2", "I3", "i1"), "1 I1");
    cas("sans enfant", "0 @F1@ FAM\n1 HUSB @I2@\n1 WIFE @I3@\n", "1 I1");
    cas("FAMC ne suffit pas", "1 FAMC @F1@\n0 @F1@ FAM\n1 HUSB @I2@\n1 WIFE @I3@\n1 CHIL @I4@\n", "1 I1");
    cas("sans arrobas", "0 @F1@ FAM\n1 HUSB I2\n1 WIFE @I3@\n1 CHIL @I1@\n", "1 I1, 3 I3");
    cas("les mêmes pour père et mère", Famille("I2", "I2", "I1") + Famille("I4", "I5", "I2"),
        "1 I1, 2 I2, 3 I2, 6 I4, 7 I5");
}

void TestGedcomImportFamilles::lesParents()
{
    QFETCH(QByteArray, familles);
    QFETCH(QString, places);
    BancEchange banc;
    const auto arbre = banc.Importe(Individus("I2 I3 I4 I5 I6 I1") + familles + fin, QStringLiteral("@I1@"));
    QCOMPARE(Places(*arbre), places);
    QCOMPARE(banc.messages.size(), 1);
    QVERIFY(!arbre->selection);
}

void TestGedcomImportFamilles::lesIdentifiantsEnDouble_data()
{
    QTest::addColumn<QByteArray>("contenu");
    QTest::addColumn<QString>("places");
    QTest::newRow("un père deux fois") << QByteArray("0 @I1@ INDI\n1 NAME I1\n0 @I2@ INDI\n1 NAME Premier\n"
                                                     "0 @I2@ INDI\n1 NAME Second\n")
            + Famille("I2", "-", "I1") << "1 I1, 2 Premier";
    // Nobody asked for it: the root is the one without spouse, the father the first with that identifier.
    QTest::newRow("la racine et son père") << QByteArray("0 @I1@ INDI\n1 NAME Premier\n1 FAMS @F@\n"
                                                         "0 @I1@ INDI\n1 NAME Second\n")
            + Famille("I1", "-", "I1") << "1 Second, 2 Premier";
    QTest::newRow("personne n'a d'identifiant")
        << QByteArray("0 INDI\n1 NAME Un\n0 INDI\n1 NAME Deux\n0 FAM\n1 HUSB I2\n1 WIFE\n1 CHIL I1\n") << "1 Un";
    QTest::newRow("des parents sans identifiant")
        << Individus("I1") + QByteArray("0 INDI\n1 NAME Deux\n0 FAM\n1 HUSB\n1 WIFE\n1 CHIL @I1@\n") << "1 I1";
    QTest::newRow("un enfant sans identifiant")
        << QByteArray("0 INDI\n1 NAME Un\n0 @I2@ INDI\n1 NAME I2\n1 FAMS @F@\n0 FAM\n1 HUSB @I2@\n1 CHIL\n") << "1 Un";
    QTest::newRow("deux arrobas sont un identifiant")
        << QByteArray("0 @I1@ INDI\n1 NAME I1\n0 @@ INDI\n1 NAME Deux\n0 FAM\n1 HUSB @@\n1 CHIL @I1@\n")
        << "1 I1, 2 Deux";
}

void TestGedcomImportFamilles::lesIdentifiantsEnDouble()
{
    QFETCH(QByteArray, contenu);
    QFETCH(QString, places);
    BancEchange banc;
    const auto arbre = banc.Importe(contenu + fin, {});
    QCOMPARE(Places(*arbre), places);
}

void TestGedcomImportFamilles::unImplexeNAQuUneAscendance()
{
    // The two parents are half brother and sister: their father I4 has the places 4 and 6.
    BancEchange banc;
    const auto arbre =
        banc.Importe(Individus("I1 I2 I3 I4 I5 I7 I8 I9") + Famille("I2", "I3", "I1") + Famille("I4", "I5", "I2")
                         + Famille("I4", "I7", "I3") + Famille("I8", "I9", "I4") + fin,
                     QStringLiteral("@I1@"));
    QCOMPARE(Places(*arbre), QStringLiteral("1 I1, 2 I2, 3 I3, 4 I4, 5 I5, 6 I4, 7 I7, 12 I8, 13 I9"));
    QCOMPARE(arbre->nombrePersonnes, 9U);
    QCOMPARE(arbre->nombreGenerations, 4);
    QCOMPARE(Trouve(*arbre, 4)->pere, 0U);
    QCOMPARE(Trouve(*arbre, 6)->pere, 12U);
}

void TestGedcomImportFamilles::unImplexeEntreDeuxGenerations()
{
    // I4 is the father of I2 and of I3's mother I7: place 4 is handled before he is found again at 14.
    BancEchange banc;
    const auto arbre = banc.Importe(Individus("I1 I2 I3 I4 I7 I8 I16") + Famille("I2", "I3", "I1")
                                        + Famille("I4", "-", "I2") + Famille("-", "I7", "I3") + Famille("I4", "-", "I7")
                                        + Famille("I8", "-", "I4") + Famille("I16", "-", "I8") + fin,
                                    QStringLiteral("@I1@"));
    QCOMPARE(Places(*arbre), QStringLiteral("1 I1, 2 I2, 3 I3, 4 I4, 7 I7, 8 I8, 14 I4, 16 I16, 28 I8, 56 I16"));
}

void TestGedcomImportFamilles::lesCerclesFinissent_data()
{
    QTest::addColumn<QByteArray>("familles");
    QTest::addColumn<QString>("places");
    const auto cas = [](const char *nom, const QByteArray &familles, const char *places) {
        QTest::newRow(nom) << familles << places;
    };
    cas("son propre père", Famille("I1", "I3", "I1"), "1 I1, 3 I3");
    cas("son propre père et sa propre mère", Famille("I1", "I1", "I1"), "1 I1");
    cas("père et fils l'un de l'autre", Famille("I2", "-", "I1") + Famille("I1", "I3", "I2"), "1 I1, 2 I2, 5 I3");
    cas("le fils est sa mère", Famille("-", "I2", "I1") + Famille("-", "I1", "I2"), "1 I1, 3 I2");
    cas("à trois", Famille("I2", "-", "I1") + Famille("-", "I3", "I2") + Famille("I1", "-", "I3"), "1 I1, 2 I2, 5 I3");
    cas("plus haut que la racine", Famille("I2", "-", "I1") + Famille("I3", "-", "I2") + Famille("I2", "-", "I3"),
        "1 I1, 2 I2, 4 I3");
    cas("la mère est la fille du père", Famille("I2", "I3", "I1") + Famille("I2", "-", "I3"), "1 I1, 2 I2, 3 I3, 6 I2");
    cas("et lui son fils", Famille("I2", "I3", "I1") + Famille("I2", "-", "I3") + Famille("-", "I3", "I2"),
        "1 I1, 2 I2, 3 I3, 5 I3");
    cas("tous de tous", Famille("I1", "I2", "I1 I2 I3") + Famille("I3", "I4", "I1 I2 I3 I4"), "1 I1, 3 I2");
}

void TestGedcomImportFamilles::lesCerclesFinissent()
{
    QFETCH(QByteArray, familles);
    QFETCH(QString, places);
    BancEchange banc;
    const auto arbre = banc.Importe(Individus("I1 I2 I3 I4") + familles + fin, QStringLiteral("@I1@"));
    QCOMPARE(Places(*arbre), places);
    QCOMPARE(banc.messages.size(), 1);
}

void TestGedcomImportFamilles::quatreVingtsGenerationsSArretentOuLesNumerosFinissent_data()
{
    QTest::addColumn<bool>("parLesPeres");
    QTest::addColumn<quint64>("dernier");
    QTest::newRow("de père en père") << true << quint64(9223372036854775808ULL);
    QTest::newRow("de mère en mère") << false << quint64(18446744073709551615ULL);
}

void TestGedcomImportFamilles::quatreVingtsGenerationsSArretentOuLesNumerosFinissent()
{
    QFETCH(bool, parLesPeres);
    QFETCH(quint64, dernier);
    QByteArray noms = "I1";
    QByteArray familles;
    for (int i = 2; i <= 80; ++i) {
        const QByteArray parent = "I" + QByteArray::number(i);
        noms += ' ' + parent;
        familles += Famille(parLesPeres ? parent : "-", parLesPeres ? "-" : parent, "I" + QByteArray::number(i - 1));
    }
    BancEchange banc;
    const auto arbre = banc.Importe(Individus(noms) + familles + fin, QStringLiteral("@I1@"));
    QCOMPARE(arbre->nombrePersonnes, 64U);
    QCOMPARE(arbre->nombreGenerations, 64);
    QCOMPARE(arbre->derniere->numero, dernier);
    QCOMPARE(arbre->derniere->info->nom, QStringLiteral("I64"));
    QCOMPARE(arbre->derniere->pere, 0U);
    QCOMPARE(arbre->derniere->mere, 0U);
    QCOMPARE(arbre->derniere->numerogeneration, 63);
    QVERIFY(NumerosEnTexte(*arbre).startsWith(parLesPeres ? u"1 2 4 8 16" : u"1 3 7 15 31"));
    QCOMPARE(banc.messages.size(), 1);
}

void TestGedcomImportFamilles::chercheLesParentsOublieLesPrecedents()
{
    const BancEchange banc;
    QVERIFY(DecodeFichierGED(banc.Pose(QStringLiteral("a.ged"),
                                       Individus("I1 I2 I3 I4") + Famille("I2", "I3", "I1") + Famille("-", "I4", "I2")
                                           + "0 FAM\n1 HUSB @I4@\n1 CHIL\n0 INDI\n" + fin)));
    const auto cherche = [](const QString &adresse) {
        IndividuGED *individu = LesIndividus;
        while (individu && individu->adresse != adresse)
            individu = individu->suivant;
        if (!individu)
            return QStringLiteral("absent");
        ChercheLesParents(individu);
        return (LePere ? LePere->nom : QStringLiteral("-")) + u' ' + (LaMere ? LaMere->nom : QStringLiteral("-"));
    };
    QCOMPARE(cherche(QStringLiteral("@I1@")), QStringLiteral("I2 I3"));
    QCOMPARE(cherche(QStringLiteral("@I2@")), QStringLiteral("- I4"));
    QCOMPARE(cherche(QStringLiteral("@I3@")), QStringLiteral("- -"));
    QCOMPARE(cherche(QStringLiteral("@I1@")), QStringLiteral("I2 I3"));
    QCOMPARE(cherche(QString()), QStringLiteral("- -"));
}

void TestGedcomImportFamilles::trenteMilleAscendants()
{
    constexpr int nombre = (1 << 15) - 1;
    QByteArray contenu = "0 HEAD\n";
    for (int i = 1; i <= nombre; ++i)
        contenu += "0 @I" + QByteArray::number(i) + "@ INDI\n1 NAME I" + QByteArray::number(i) + '\n';
    for (int i = 1; i <= nombre / 2; ++i)
        contenu +=
            Famille("I" + QByteArray::number(2 * i), "I" + QByteArray::number(2 * i + 1), "I" + QByteArray::number(i));
    BancEchange banc;
    const auto arbre = banc.Importe(contenu + fin, QStringLiteral("@I1@"));
    QCOMPARE(arbre->nombrePersonnes, 32767U);
    QCOMPARE(arbre->nombreGenerations, 15);
    quint64 attendu = 0;
    for (const Personne *personne = arbre->premiere; personne; personne = personne->suivante) {
        QCOMPARE(personne->numero, ++attendu);
        QCOMPARE(personne->info->nom, u'I' + QString::number(attendu));
    }
    QCOMPARE(attendu, 32767U);
}

RAMELIER_TEST_MAIN(QCoreApplication, TestGedcomImportFamilles)
#include "tst_gedcom_import_familles.moc"
