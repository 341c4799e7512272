#include "assemblage.h"
#include "environnement.h"
#include "sourcesdassemblage.h"

#include <QGuiApplication>

/// A child's tree out of two.
class TestAssemblage : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void deuxPersonnesSeulesEnFontTrois();
    void laRacineEstUnEnfantACompleter();
    void deuxArbresComplets();
    void lesNumerosDesAbsentsRestentNuls();
    void desArbresVides_data();
    void desArbresVides();
    void uneRacineDeTroisiemeGeneration();
    void laPlusHauteGenerationTient();
    void unEnfantApresSesParentsNEstPasRelie();
    void lesDoublesVontALaFin();
    void lesSourcesRestentIntactes();
    void deGrandsArbres();
};

namespace {

std::unique_ptr<Arbre> Assemble(const Arbre &pere, const Arbre &mere, const QString &repertoire = {})
{
    auto arbre = std::make_unique<Arbre>();
    AssembleArbres(*arbre, pere, mere, repertoire);
    return arbre;
}

}  // namespace

void TestAssemblage::deuxPersonnesSeulesEnFontTrois()
{
    const auto arbre = Assemble(*ArbreDeNumeros({1}), *ArbreDeSources({{.nom = QStringLiteral("M")}}));
    QCOMPARE(LignesDe(*arbre), (QStringList{"1/0 2,3 0 Enfant >1,2", "2/1 0,0 1 N1 >-,-", "3/1 0,0 1 M >-,-"}));
    QCOMPARE(NumerosEnTexte(*arbre), QStringLiteral("1 2 3"));
    QCOMPARE(arbre->nombrePersonnes, 3ULL);
    QCOMPARE(arbre->nombreGenerations, 2);
}

void TestAssemblage::laRacineEstUnEnfantACompleter()
{
    const auto arbre = Assemble(*ArbreComplet(1), *ArbreComplet(1));
    const Personne &racine = *arbre->premiere;
    QCOMPARE(racine.numero, 1ULL);
    QCOMPARE(racine.pere, 2ULL);
    QCOMPARE(racine.mere, 3ULL);
    QCOMPARE(racine.enfant, 0ULL);
    QCOMPARE(racine.numerogeneration, 0);
    QCOMPARE(TextesDe(*racine.info), QStringLiteral("Enfant||||||||"));
    QCOMPARE(racine.info->etatPhoto, -1);
    QVERIFY(racine.affichable && !racine.selectionnee);
    QVERIFY(!arbre->selection && !arbre->infoSauvee && !arbre->enfantSansPere && !arbre->enfantSansMere);
}

void TestAssemblage::deuxArbresComplets()
{
    // The father's grandfather 2 becomes 4, the mother's mother 3 becomes 7.
    const auto arbre = Assemble(*ArbreComplet(3), *ArbreComplet(3));
    QCOMPARE(LignesDe(*arbre),
             (QStringList{"1/0 2,3 0 Enfant >1,2", "2/1 4,5 1 N1 >3,4", "3/1 6,7 1 N1 >5,6", "4/2 8,9 2 N2 >7,8",
                          "5/2 10,11 2 N3 >9,10", "6/2 12,13 3 N2 >11,12", "7/2 14,15 3 N3 >13,14", "8/3 0,0 4 N4 >-,-",
                          "9/3 0,0 4 N5 >-,-", "10/3 0,0 5 N6 >-,-", "11/3 0,0 5 N7 >-,-", "12/3 0,0 6 N4 >-,-",
                          "13/3 0,0 6 N5 >-,-", "14/3 0,0 7 N6 >-,-", "15/3 0,0 7 N7 >-,-"}));
    QCOMPARE(arbre->nombrePersonnes, 15ULL);
    QCOMPARE(arbre->nombreGenerations, 4);
    QCOMPARE(NumerosEnTexte(*arbre), QStringLiteral("1 2 3 4 5 6 7 8 9 10 11 12 13 14 15"));
}

void TestAssemblage::lesNumerosDesAbsentsRestentNuls()
{
    const auto arbre = Assemble(*ArbreDeNumeros({1, 3, 6, 13}), *ArbreDeNumeros({1, 2, 5}));
    QCOMPARE(LignesDe(*arbre),
             (QStringList{"1/0 2,3 0 Enfant >1,2", "2/1 0,5 1 N1 >-,3", "3/1 6,0 1 N1 >4,-", "5/2 10,0 2 N3 >5,-",
                          "6/2 0,13 3 N2 >-,6", "10/3 0,21 5 N6 >-,7", "13/3 0,0 6 N5 >-,-", "21/4 0,0 10 N13 >-,-"}));
    QCOMPARE(arbre->nombreGenerations, 5);
}

void TestAssemblage::desArbresVides_data()
{
    QTest::addColumn<int>("pere");
    QTest::addColumn<int>("mere");
    QTest::addColumn<QString>("numeros");
    QTest::addColumn<QString>("liens");
    QTest::newRow("les deux") << 0 << 0 << "1"
                              << "";
    QTest::newRow("celui du père") << 0 << 2 << "1 3 6 7"
                                   << "1>-,3 3>6,7";
    QTest::newRow("celui de la mère") << 2 << 0 << "1 2 4 5"
                                      << "1>2,- 2>4,5";
}

void TestAssemblage::desArbresVides()
{
    QFETCH(int, pere);
    QFETCH(int, mere);
    QFETCH(QString, numeros);
    QFETCH(QString, liens);
    const auto arbre = Assemble(*ArbreComplet(pere), *ArbreComplet(mere));
    QCOMPARE(NumerosEnTexte(*arbre), numeros);
    QCOMPARE(LiensDe(*arbre), liens);
    QCOMPARE(arbre->premiere->pere, 2ULL);
    QCOMPARE(arbre->premiere->mere, 3ULL);
}

void TestAssemblage::uneRacineDeTroisiemeGeneration()
{
    // Each side is judged by its own root.
    const QList<Source> decales{{1, 3, 2, 3}, {2, 4, 0, 5}, {3, 9}, {5, 0}};
    const auto pere = Assemble(*ArbreDeSources(decales), *ArbreComplet(2));
    QCOMPARE(LignesDe(*pere),
             (QStringList{"1/0 2,3 0 Enfant >1,2", "2/1 4,5 1 A >3,4", "3/1 6,7 1 N1 >5,6", "4/2 0,9 2 A >-,7",
                          "5/2 0,0 2 A >-,-", "6/2 0,0 3 N2 >-,-", "7/2 0,0 3 N3 >-,-", "9/3 0,0 4 A >-,-"}));
    QCOMPARE(pere->nombreGenerations, 4);
    const auto mere = Assemble(*ArbreComplet(2), *ArbreDeSources(decales));
    QCOMPARE(NumerosEnTexte(*mere), QStringLiteral("1 2 3 4 5 6 7 13"));
    QCOMPARE(LiensDe(*mere), QStringLiteral("1>2,3 2>4,5 3>6,7 6>-,13"));
    QCOMPARE(mere->nombreGenerations, 4);
}

void TestAssemblage::laPlusHauteGenerationTient()
{
    // One line of fathers up to the highest number of 64 bits.
    QList<quint64> peres;
    for (int generation = 0; generation < 64; ++generation)
        peres += quint64(1) << generation;
    const auto arbre = Assemble(*ArbreDeNumeros(peres), *ArbreDeNumeros(peres));
    // Of each line, generation 63 has no number left: 1, then 63 persons twice.
    QCOMPARE(arbre->nombrePersonnes, 127ULL);
    QCOMPARE(arbre->nombreGenerations, 64);
    QCOMPARE(arbre->derniere->numero, 13835058055282163712ULL);
    QCOMPARE(arbre->derniere->numerogeneration, 63);
    QCOMPARE(arbre->derniere->pere, 0ULL);
    QCOMPARE(arbre->derniere->precedente->numero, 9223372036854775808ULL);
    for (const Personne *p = arbre->premiere; p != arbre->derniere; p = p->suivante) {
        QVERIFY(p->suivante->numero > p->numero);
        QVERIFY(p->numerogeneration == 63 || (p->ptrPere && p->ptrPere->numero == p->pere));
    }
}

void TestAssemblage::unEnfantApresSesParentsNEstPasRelie()
{
    const auto arbre = Assemble(*ArbreDeSources({{2, 1}, {1, 0, 2, 3}, {3, 1}}), *ArbreComplet(0));
    QCOMPARE(NumerosEnTexte(*arbre), QStringLiteral("1 2 4 5"));
    QCOMPARE(LiensDe(*arbre), QStringLiteral("1>2,- 2>-,5"));
    QCOMPARE(Trouve(*arbre, 2)->pere, 4ULL);
}

void TestAssemblage::lesDoublesVontALaFin()
{
    QList<Source> sources{{1, 0, 2, 0}, {2, 1, 4, 5}, {4, 2}, {2, 1, 4, 5}, {3, 1}};
    sources[1].nom = QStringLiteral("premier");
    sources[3].nom = QStringLiteral("second");
    const auto arbre = Assemble(*ArbreDeSources(sources), *ArbreComplet(1));
    // The first one of a number has the parents, the last one of a number is the parent.
    QCOMPARE(LignesDe(*arbre),
             (QStringList{"1/0 2,3 0 Enfant >1,2", "2/1 4,0 1 A >6,4", "3/1 0,0 1 N1 >-,-", "4/2 8,9 2 premier >5,-",
                          "5/2 0,0 2 A >-,-", "8/3 0,0 4 A >-,-", "4/2 8,9 2 second >-,-"}));
}

void TestAssemblage::lesSourcesRestentIntactes()
{
    const auto pere = ArbreComplet(3);
    const auto mere = ArbreDeNumeros({1, 3});
    const QStringList avantPere = LignesDe(*pere);
    const QStringList avantMere = LignesDe(*mere);
    const auto arbre = Assemble(*pere, *mere);
    QCOMPARE(LignesDe(*pere), avantPere);
    QCOMPARE(LignesDe(*mere), avantMere);
    QCOMPARE(pere->nombrePersonnes, 7ULL);
    QCOMPARE(pere->nombreGenerations, 3);
    arbre->premiere->ptrPere->info->nom = QStringLiteral("autre");
    QCOMPARE(pere->premiere->info->nom, QStringLiteral("N1"));
    // One and the same tree on both sides.
    QCOMPARE(NumerosEnTexte(*Assemble(*mere, *mere)), QStringLiteral("1 2 3 5 7"));
}

void TestAssemblage::deGrandsArbres()
{
    const auto cote = ArbreComplet(15);
    const auto arbre = Assemble(*cote, *cote);
    QCOMPARE(arbre->nombrePersonnes, 65535ULL);
    QCOMPARE(arbre->nombreGenerations, 16);
    quint64 attendu = 0;
    for (const Personne *p = arbre->premiere; p; p = p->suivante) {
        QCOMPARE(p->numero, ++attendu);
        QCOMPARE(p->ptrPere ? p->ptrPere->numero : 0, attendu < 32768 ? 2 * attendu : 0);
        QCOMPARE(p->ptrMere ? p->ptrMere->numero : 0, attendu < 32768 ? 2 * attendu + 1 : 0);
    }
    QCOMPARE(attendu, 65535ULL);
}

RAMELIER_TEST_MAIN(QGuiApplication, TestAssemblage)
#include "tst_assemblage.moc"
