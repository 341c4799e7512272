#include "arbre.h"
#include "arbres.h"
#include "disposition.h"
#include "environnement.h"
#include "formatsdessins.h"
#include "infopersonne.h"
#include "personne.h"

#include <QGuiApplication>

#include <random>

namespace {

void Dispose(Arbre &arbre)
{
    // Margins 15, rows every 57, a person takes 40.
    DisposeArbre(arbre, FormatsDessins::ParDefaut(), 1.0F, 1.0F);
}

/// Parents and generations by lot, as no program would write them. With \a commeLus the parents are given by number
/// and found as after a file was read, else anybody may be anybody's parent.
std::unique_ptr<Arbre> ArbreMalFormeAuHasard(std::mt19937 &hasard, bool commeLus)
{
    const auto entre = [&hasard](int a, int b) { return std::uniform_int_distribution<int>(a, b)(hasard); };
    auto arbre = std::make_unique<Arbre>();
    QList<Personne *> personnes;
    const int nombre = entre(2, 40);
    const bool parGeneration = entre(0, 1) == 1;
    for (int i = 0; i < nombre; ++i) {
        auto *personne = new Personne(static_cast<unsigned short>(parGeneration ? i / 6 : entre(0, 5)));
        personne->numero = static_cast<quint64>(i + 1);
        arbre->AjouteALaFin(personne);
        personnes += personne;
    }
    arbre->nombreGenerations = static_cast<unsigned short>(entre(1, 8));
    const auto parent = [&]() -> Personne * { return entre(0, 3) != 0 ? personnes.at(entre(0, nombre - 1)) : nullptr; };
    for (Personne *personne : personnes) {
        personne->ptrPere = parent();
        personne->ptrMere = parent();
        personne->pere = personne->ptrPere ? personne->ptrPere->numero : 0;
        personne->mere = personne->ptrMere ? personne->ptrMere->numero : 0;
    }
    if (commeLus)
        arbre->DetermineLiensDeParente();
    return arbre;
}

}  // namespace

/// Trees that no rule would bring to rest, as a damaged file may leave them: the layout gives up after 100 corrections.
class TestDispositionMalFormee : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void unParentDeDeuxEnfants();
    void desParentsCroises();
    void unPereDerriereLaMere();
    void uneGenerationEnDesordre();
    void uneGenerationQuiNEstPasComptee();
    void unAncetreDeSoiMeme();
    void desPlacesQuiDoublentSansFin();
    void desLosangesSansFin();
    void desArbresAuHasard_data();
    void desArbresAuHasard();
};

void TestDispositionMalFormee::unParentDeDeuxEnfants()
{
    // 3 must stand 40 right of 2, but moving 3 moves the father of both.
    const auto arbre = ArbreDeNumeros({1, 2, 3, 4});
    Trouve(*arbre, 3)->ptrPere = Trouve(*arbre, 4);
    Dispose(*arbre);
    QCOMPARE(PositionsEnTexte(*arbre), QStringLiteral("1:4035,129 2:4015,72 3:4055,72 4:4055,15"));
}

void TestDispositionMalFormee::desParentsCroises()
{
    const auto arbre = ArbreDeNumeros({1, 2, 3, 4, 6});
    Trouve(*arbre, 2)->ptrPere = Trouve(*arbre, 6);
    Trouve(*arbre, 3)->ptrPere = Trouve(*arbre, 4);
    Dispose(*arbre);
    QCOMPARE(PositionsEnTexte(*arbre), QStringLiteral("1:8075,129 2:8055,72 3:8095,72 4:8095,15 6:8055,15"));
}

void TestDispositionMalFormee::unPereDerriereLaMere()
{
    // The mean of the parents' places is the same; nothing overlaps.
    const auto arbre = ArbreDeNumeros({1, 2, 3});
    arbre->premiere->ptrPere = arbre->derniere;
    arbre->premiere->ptrMere = arbre->derniere->precedente;
    Dispose(*arbre);
    QCOMPARE(PositionsEnTexte(*arbre), QStringLiteral("1:35,72 2:15,15 3:55,15"));
}

void TestDispositionMalFormee::uneGenerationEnDesordre()
{
    // The row of generation 1 ends before it begins: 3 stays where it was.
    const auto arbre = ArbreDeNumeros({1, 2, 3});
    Trouve(*arbre, 2)->numerogeneration = 2;
    Trouve(*arbre, 3)->x = 500;
    Trouve(*arbre, 3)->y = 600;
    arbre->nombreGenerations = 3;
    Dispose(*arbre);
    QCOMPARE(PositionsEnTexte(*arbre), QStringLiteral("1:257,129 2:15,15 3:500,600"));
}

void TestDispositionMalFormee::uneGenerationQuiNEstPasComptee()
{
    // The grandparents have no row; their place counts and they follow when their child is pushed.
    const auto arbre = ArbreDeNumeros({1, 2, 3, 6, 7});
    arbre->nombreGenerations = 2;
    Trouve(*arbre, 6)->x = 10;
    Trouve(*arbre, 7)->x = 30;
    Dispose(*arbre);
    QCOMPARE(PositionsEnTexte(*arbre), QStringLiteral("1:35,72 2:15,15 3:55,15 6:45,0 7:65,0"));
}

void TestDispositionMalFormee::unAncetreDeSoiMeme()
{
    const auto arbre = ArbreDeNumeros({1, 2, 3});
    Trouve(*arbre, 3)->ptrPere = arbre->premiere;
    Trouve(*arbre, 2)->ptrMere = Trouve(*arbre, 2);
    Dispose(*arbre);
    QCOMPARE(arbre->premiere->y, 72L);
    QCOMPARE(Trouve(*arbre, 2)->y, 15L);
    QCOMPARE(Trouve(*arbre, 3)->y, 15L);
}

void TestDispositionMalFormee::desPlacesQuiDoublentSansFin()
{
    // Everybody of generation 0, as a damaged file may say: each of the hundred corrections multiplies some places. All
    // moves go to the right, so nobody may end left of the margin.
    const struct
    {
        quint64 numero;
        quint64 pere;
        quint64 mere;
    } fiches[] = {{1, 10, 0}, {2, 3, 0}, {3, 4, 0}, {4, 0, 0}, {5, 0, 8},
                  {6, 0, 0},  {7, 0, 0}, {8, 9, 9}, {9, 0, 0}, {10, 0, 0}};
    Arbre arbre;
    for (const auto &fiche : fiches) {
        auto *personne = new Personne(0);
        personne->numero = fiche.numero;
        personne->pere = fiche.pere;
        personne->mere = fiche.mere;
        arbre.AjouteALaFin(personne);
    }
    arbre.nombreGenerations = 1;
    arbre.DetermineLiensDeParente();
    Dispose(arbre);
    for (const Personne *personne = arbre.premiere; personne; personne = personne->suivante) {
        QCOMPARE(personne->y, 15L);
        QVERIFY2(personne->x >= 15, qPrintable(PositionsEnTexte(arbre)));
    }
}

void TestDispositionMalFormee::desLosangesSansFin()
{
    // Two persons a generation, both children of the same two: the lines of ancestors double with every generation.
    constexpr int generations = 100;
    Arbre arbre;
    for (int i = 0; i < 2 * generations; ++i) {
        auto *personne = new Personne(static_cast<unsigned short>(i / 2));
        personne->numero = static_cast<quint64>(i + 1);
        arbre.AjouteALaFin(personne);
    }
    arbre.nombreGenerations = generations;
    for (Personne *premier = arbre.premiere; premier->suivante->suivante; premier = premier->suivante->suivante) {
        for (Personne *enfant : {premier, premier->suivante}) {
            enfant->ptrPere = premier->suivante->suivante;
            enfant->ptrMere = enfant->ptrPere->suivante;
        }
    }
    Dispose(arbre);
    QCOMPARE(arbre.derniere->y, 15L);
    QCOMPARE(arbre.premiere->y, 5658L);
    for (const Personne *personne = arbre.premiere; personne; personne = personne->suivante)
        QVERIFY2(personne->x >= 15, qPrintable(PositionsEnTexte(arbre)));
}

void TestDispositionMalFormee::desArbresAuHasard_data()
{
    QTest::addColumn<bool>("commeLus");

    QTest::newRow("liens comme lus dans un fichier") << true;
    QTest::newRow("liens sans aucune règle") << false;
}

void TestDispositionMalFormee::desArbresAuHasard()
{
    QFETCH(const bool, commeLus);
    for (quint32 graine = 1; graine <= 2000; ++graine) {
        std::mt19937 hasard(graine);
        const auto arbre = ArbreMalFormeAuHasard(hasard, commeLus);
        Dispose(*arbre);
        int plusHaute = 0;
        for (const Personne *personne = arbre->premiere; personne; personne = personne->suivante) {
            const int generation = personne->numerogeneration;
            plusHaute = std::max(plusHaute, generation);
            const bool aUnRang = generation == plusHaute && generation < arbre->nombreGenerations;
            const long y = aUnRang ? 15 + 57L * (arbre->nombreGenerations - 1 - generation) : 0;
            QVERIFY2(personne->y == y && personne->x >= 0,
                     qPrintable(QStringLiteral("graine %1, personne %2 : (%3, %4)")
                                    .arg(graine)
                                    .arg(personne->numero)
                                    .arg(personne->x)
                                    .arg(personne->y)));
        }
    }
}

RAMELIER_TEST_MAIN(QGuiApplication, TestDispositionMalFormee)
#include "tst_disposition_malformee.moc"
