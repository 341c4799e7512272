#include "correctionsparhuit.h"
#include "environnement.h"
#include "huitentiers.h"
#include "tabledisposition.h"

#include <QCoreApplication>

namespace {

constexpr long limite = 1L << 28;

/// The root 0, its father 1, its mother 2 and her father 3. The boxes of 1 and 2 may overlap.
///
///         3
///     1   2
///       0
TableDisposition DeuxLignes(long pere, long mere, int largeur)
{
    return {.x = {(pere + mere) / 2, pere, mere, mere},
            .premiersParents = {1, 1, 3, 3},
            .secondsParents = {2, 1, 3, 3},
            .enfants = {4, 0, 0, 2},
            .largeurs = {largeur, largeur, largeur, largeur},
            .rangees = {{.debut = 0, .fin = 1}, {.debut = 1, .fin = 3}, {.debut = 3, .fin = 4}}};
}

}  // namespace

/// What the corrections by eight do with a table; that they follow the rules on trees is shown with the literal layout.
class TestCorrectionsParHuit : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void pousseLaMereEtSesAncetres();
    void renonceSansRienDeplacer_data();
    void renonceSansRienDeplacer();
};

void TestCorrectionsParHuit::pousseLaMereEtSesAncetres()
{
    TableDisposition table = DeuxLignes(20, 41, 100);
#ifdef AVEC_HUIT_ENTIERS
    if (!HuitEntiers::Existent())
        QSKIP("this processor cannot");
#else
    QSKIP("this processor cannot");
#endif
    QVERIFY(CorrigeParHuit(table, 20));
    QCOMPARE(table.x, (std::vector<long>{70, 20, 120, 120}));
}

void TestCorrectionsParHuit::renonceSansRienDeplacer_data()
{
    QTest::addColumn<TableDisposition>("table");
    QTest::addColumn<long>("marge");

    QTest::newRow("marge négative") << DeuxLignes(20, 40, 100) << -1L;
    QTest::newRow("trop à droite") << DeuxLignes(20, limite, 100) << 20L;
    QTest::newRow("trop à droite après une passe") << DeuxLignes(limite - 60, limite - 20, 100) << 20L;
    TableDisposition large = DeuxLignes(20, 40, 100);
    large.largeurs[1] = static_cast<int>(limite);
    QTest::newRow("trop large") << large << 20L;

    // The root's parents are the first and the last of twenty.
    constexpr std::size_t parents = 20;
    TableDisposition etrangers;
    etrangers.rangees = {{.debut = 0, .fin = 1}, {.debut = 1, .fin = parents + 1}};
    for (std::size_t rang = 0; rang <= parents; ++rang) {
        etrangers.x.push_back(rang == 0 ? 20 : 20 + 50 * static_cast<long>(rang - 1));
        etrangers.premiersParents.push_back(static_cast<int>(rang));
        etrangers.secondsParents.push_back(static_cast<int>(rang));
        etrangers.enfants.push_back(parents + 1);
        etrangers.largeurs.push_back(100);
    }
    etrangers.premiersParents[0] = 1;
    etrangers.secondsParents[0] = parents;
    etrangers.enfants[1] = 0;
    etrangers.enfants[parents] = 0;
    QTest::newRow("des étrangers entre les parents") << etrangers << 20L;
}

void TestCorrectionsParHuit::renonceSansRienDeplacer()
{
    QFETCH(TableDisposition, table);
    QFETCH(const long, marge);
    const std::vector<long> avant = table.x;
    QVERIFY(!CorrigeParHuit(table, marge));
    QCOMPARE(table.x, avant);
}

RAMELIER_TEST_MAIN(QCoreApplication, TestCorrectionsParHuit)
#include "tst_corrections_par_huit.moc"
