#include "assemblage.h"
#include "assemblagelitteral.h"
#include "environnement.h"

#include <QCoreApplication>

#include <algorithm>
#include <random>

/// The assembly gives what the literal walks give, for any trees. The seed in a message replays a failure.
class TestAssemblageLitteral : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void leLitteralDitVrai();
    void commeLeLitteral_data();
    void commeLeLitteral();
};

namespace {

/// How the trees of a row are drawn by lot.
struct Tirage
{
    int personnes = 40;         ///< at most, on each side
    quint64 plusGrand = 0;      ///< number; 0: a true tree, from its root
    double chanceParent = 0.7;  ///< true tree: of each parent to be known
    bool triee = true;          ///< in the order of the numbers
    bool generationsVraies = true;
    int generationDeLaRacine = 0;
    double chanceDouble = 0.0;  ///< of a person to come twice
};

using Melange = std::mt19937_64;

bool Chance(Melange &hasard, double p)
{
    return std::bernoulli_distribution(p)(hasard);
}

int GenerationDe(quint64 numero)
{
    int generation = 0;
    while (numero > 1) {
        numero /= 2;
        ++generation;
    }
    return generation;
}

QList<quint64> NumerosDeVraiArbre(const Tirage &tirage, Melange &hasard)
{
    QList<quint64> numeros{1};
    for (qsizetype i = 0; i < numeros.size() && numeros.size() < tirage.personnes; ++i) {
        for (const quint64 parent : {2 * numeros.at(i), 2 * numeros.at(i) + 1}) {
            if (numeros.at(i) < quint64(1) << 63 && Chance(hasard, tirage.chanceParent))
                numeros += parent;
        }
    }
    return numeros;
}

QList<quint64> Numeros(const Tirage &tirage, Melange &hasard)
{
    QList<quint64> numeros;
    if (tirage.plusGrand == 0) {
        numeros = NumerosDeVraiArbre(tirage, hasard);
    } else {
        for (quint64 i = hasard() % quint64(tirage.personnes + 1); i > 0; --i)
            numeros +=
                tirage.plusGrand == ~quint64(0) ? hasard() >> (hasard() % 64) : hasard() % (tirage.plusGrand + 1);
        std::sort(numeros.begin(), numeros.end());
    }
    for (qsizetype i = numeros.size() - 1; i >= 0; --i) {
        if (Chance(hasard, tirage.chanceDouble))
            numeros.insert(i, numeros.at(i));
    }
    if (!tirage.triee)
        std::shuffle(numeros.begin(), numeros.end(), hasard);
    return numeros;
}

QList<Source> SourcesAuHasard(const Tirage &tirage, Melange &hasard)
{
    QList<Source> sources;
    for (const quint64 numero : Numeros(tirage, hasard)) {
        Source source{.numero = numero, .generation = GenerationDe(numero) + tirage.generationDeLaRacine};
        if (!tirage.generationsVraies)
            source.generation = Chance(hasard, 0.9) ? int(hasard() % 8) : int(hasard() % 65536);
        source.pere = Chance(hasard, 0.8) ? 2 * numero : Chance(hasard, 0.5) ? 0 : hasard();
        source.mere = Chance(hasard, 0.8) ? 2 * numero + 1 : 0;
        source.nom = QString::number(sources.size());
        sources += source;
    }
    return sources;
}

}  // namespace

void TestAssemblageLitteral::leLitteralDitVrai()
{
    // The twin itself, on numbers that are known.
    const AssemblageLitteral seuls({{.nom = QStringLiteral("P")}}, {{.nom = QStringLiteral("M")}});
    QCOMPARE(seuls.Lignes(), (QStringList{"1/0 2,3 0 Enfant >1,2", "2/1 0,0 1 P >-,-", "3/1 0,0 1 M >-,-"}));
    QCOMPARE(seuls.generations, 2);
    const AssemblageLitteral desordre({{2, 1}, {1, 0, 2, 0}}, {{1, 0, 2, 0}, {2, 1}, {2, 1}});
    QCOMPARE(desordre.Lignes(),
             (QStringList{"1/0 2,3 0 Enfant >1,2", "2/1 4,0 1 A >-,-", "3/1 6,0 1 A >5,-", "4/2 0,0 2 A >-,-",
                          "6/2 0,0 3 A >-,-", "6/2 0,0 3 A >-,-"}));
    QCOMPARE(desordre.generations, 3);
    QCOMPARE(AssemblageLitteral({{~quint64(0), 0}, {1, 64}, {5, 63}}, {}).Personnes(), 2);
}

void TestAssemblageLitteral::commeLeLitteral_data()
{
    QTest::addColumn<int>("personnes");
    QTest::addColumn<quint64>("plusGrand");
    QTest::addColumn<double>("chanceParent");
    QTest::addColumn<bool>("triee");
    QTest::addColumn<bool>("generationsVraies");
    QTest::addColumn<int>("generationDeLaRacine");
    QTest::addColumn<double>("chanceDouble");
    const quint64 tout = ~quint64(0);
    QTest::newRow("vrais arbres") << 60 << quint64(0) << 0.7 << true << true << 0 << 0.0;
    QTest::newRow("arbres hauts") << 150 << quint64(0) << 0.52 << true << true << 0 << 0.0;
    QTest::newRow("racine de génération 5") << 60 << quint64(0) << 0.7 << true << true << 5 << 0.0;
    QTest::newRow("mêlés") << 40 << quint64(0) << 0.7 << false << true << 0 << 0.0;
    QTest::newRow("doubles") << 40 << quint64(0) << 0.7 << true << true << 0 << 0.2;
    QTest::newRow("doubles mêlés") << 40 << quint64(0) << 0.7 << false << true << 0 << 0.2;
    QTest::newRow("générations fausses") << 40 << quint64(0) << 0.7 << true << false << 0 << 0.0;
    QTest::newRow("tout faux") << 40 << quint64(0) << 0.7 << false << false << 0 << 0.3;
    QTest::newRow("numéros serrés") << 30 << quint64(20) << 0.0 << true << true << 0 << 0.0;
    QTest::newRow("numéros serrés mêlés") << 30 << quint64(20) << 0.0 << false << false << 0 << 0.0;
    QTest::newRow("numéros épars") << 40 << quint64(5000) << 0.0 << true << true << 0 << 0.1;
    QTest::newRow("numéros de 64 bits") << 40 << tout << 0.0 << true << true << 0 << 0.0;
    QTest::newRow("numéros de 64 bits mêlés") << 40 << tout << 0.0 << false << false << 0 << 0.1;
}

void TestAssemblageLitteral::commeLeLitteral()
{
    QFETCH(int, personnes);
    QFETCH(quint64, plusGrand);
    QFETCH(double, chanceParent);
    QFETCH(bool, triee);
    QFETCH(bool, generationsVraies);
    QFETCH(int, generationDeLaRacine);
    QFETCH(double, chanceDouble);
    const Tirage tirage{personnes,   plusGrand, chanceParent, triee, generationsVraies, generationDeLaRacine,
                        chanceDouble};
    qsizetype assemblees = 0;
    for (quint64 graine = 1; graine <= 400; ++graine) {
        Melange hasard(graine);
        const QList<Source> duPere = SourcesAuHasard(tirage, hasard);
        const QList<Source> deLaMere = SourcesAuHasard(tirage, hasard);
        const AssemblageLitteral attendu(duPere, deLaMere);
        Arbre arbre;
        AssembleArbres(arbre, *ArbreDeSources(duPere), *ArbreDeSources(deLaMere), QString());
        const QByteArray essai = "graine " + QByteArray::number(graine);
        QVERIFY2(LignesDe(arbre) == attendu.Lignes(), essai.constData());
        QVERIFY2(arbre.nombrePersonnes == quint64(attendu.Personnes()), essai.constData());
        QVERIFY2(arbre.nombreGenerations == attendu.generations, essai.constData());
        QVERIFY2(NumerosEnTexte(arbre) != QStringLiteral("liste brisée"), essai.constData());
        assemblees += attendu.Personnes();
    }
    QVERIFY(assemblees > 2000);
}

RAMELIER_TEST_MAIN(QCoreApplication, TestAssemblageLitteral)
#include "tst_assemblage_litteral.moc"
