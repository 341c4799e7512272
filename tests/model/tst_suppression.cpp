#include "arbre.h"
#include "arbres.h"
#include "environnement.h"
#include "infopersonne.h"
#include "personne.h"

#include <QGuiApplication>

namespace {

void SupprimeNumero(Arbre &arbre, quint64 numero)
{
    arbre.selection = Trouve(arbre, numero);
    arbre.selection->selectionnee = true;
    arbre.SupprimePersonne();
}

}  // namespace

class TestSuppression : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void supprimer_data();
    void supprimer();
    void supprimerLePereLeDetacheDeSonEnfant();
    void supprimerLaMereLaDetacheDeSonEnfant();
    void supprimerDetruitLesDonneesDeLaSeuleSupprimee();
    void lesGenerationsNeBaissentQuUneALaFois();
    void unCompteTropGrandBaisseAvecLaDerniereSeulement();
    void supprimerSansSelectionNeFaitRien();
    void laPremiereNEstPasSupprimee();
    void unEnfantQuiManqueNEmpecheRien();
    void unDoublonSupprimeDetacheLEnfant();
    void seulLePremierEnfantEstDetache();
    void plusRienNeDesigneLaSupprimee();
    void lesLiensDAnnulationDesAutresRestent();
    void supprimerPuisAjouterRendLeMemeArbre();
};

void TestSuppression::supprimer_data()
{
    QTest::addColumn<QList<quint64>>("presents");
    QTest::addColumn<quint64>("numero");
    QTest::addColumn<QString>("liste");
    QTest::addColumn<int>("generations");

    const auto ligne = [](const char *nom, const QList<quint64> &presents, quint64 numero, const char *liste,
                          int generations) {
        QTest::newRow(nom) << presents << numero << QString::fromLatin1(liste) << generations;
    };
    ligne("au milieu", {1, 2, 3, 4}, 3, "1 2 4", 3);
    ligne("juste après la première", {1, 2, 3}, 2, "1 3", 2);
    ligne("juste avant la dernière", {1, 2, 3, 4, 6, 7}, 6, "1 2 3 4 7", 3);
    ligne("seule de sa génération mais au milieu", {1, 2, 4}, 2, "1 4", 3);
    ligne("la dernière, seule de sa génération", {1, 2, 3, 4}, 4, "1 2 3", 2);
    ligne("la dernière de plusieurs", {1, 2, 3, 4, 5}, 5, "1 2 3 4", 3);
    ligne("la seule avec la racine", {1, 3}, 3, "1", 1);
}

void TestSuppression::supprimer()
{
    QFETCH(const QList<quint64>, presents);
    QFETCH(const quint64, numero);
    const auto arbre = ArbreDeNumeros(presents);
    SupprimeNumero(*arbre, numero);
    QTEST(NumerosEnTexte(*arbre), "liste");
    QTEST(int(arbre->nombreGenerations), "generations");
    QCOMPARE(arbre->nombrePersonnes, quint64(presents.size() - 1));
    QVERIFY(!arbre->selection);
    QVERIFY(!arbre->derniere->suivante);
}

void TestSuppression::supprimerLePereLeDetacheDeSonEnfant()
{
    const auto arbre = ArbreDeNumeros({1, 2, 3, 4, 5});
    SupprimeNumero(*arbre, 4);
    const Personne *enfant = Trouve(*arbre, 2);
    QCOMPARE(enfant->pere, 0U);
    QVERIFY(!enfant->ptrPere);
    QCOMPARE(enfant->mere, 5U);
    QCOMPARE(enfant->ptrMere, Trouve(*arbre, 5));
    QCOMPARE(arbre->premiere->pere, 2U);
    QCOMPARE(arbre->premiere->mere, 3U);
}

void TestSuppression::supprimerLaMereLaDetacheDeSonEnfant()
{
    const auto arbre = ArbreDeNumeros({1, 2, 3, 4, 5});
    SupprimeNumero(*arbre, 5);
    const Personne *enfant = Trouve(*arbre, 2);
    QCOMPARE(enfant->mere, 0U);
    QVERIFY(!enfant->ptrMere);
    QCOMPARE(enfant->pere, 4U);
    QCOMPARE(enfant->ptrPere, Trouve(*arbre, 4));
    QCOMPARE(arbre->premiere->mere, 3U);
    QCOMPARE(arbre->premiere->ptrMere, Trouve(*arbre, 3));
}

void TestSuppression::supprimerDetruitLesDonneesDeLaSeuleSupprimee()
{
    const QString texte = QString::number(1815);
    const auto arbre = ArbreDeNumeros({1, 2, 3, 4});
    Trouve(*arbre, 3)->info->divers = texte;
    QVERIFY(!texte.isDetached());
    SupprimeNumero(*arbre, 3);
    QVERIFY(texte.isDetached());
    QCOMPARE(ArbreEnTexte(*arbre), QStringLiteral("1 N1\n  2 N2\n    4 N4\n"));
}

void TestSuppression::lesGenerationsNeBaissentQuUneALaFois()
{
    const auto arbre = ArbreDeNumeros({1, 2, 4});
    SupprimeNumero(*arbre, 2);
    QCOMPARE(arbre->nombreGenerations, 3);
    SupprimeNumero(*arbre, 4);
    QCOMPARE(NumerosEnTexte(*arbre), QStringLiteral("1"));
    QCOMPARE(arbre->nombreGenerations, 2);
}

void TestSuppression::unCompteTropGrandBaisseAvecLaDerniereSeulement()
{
    const auto arbre = ArbreDeNumeros({1, 2, 3});
    arbre->nombreGenerations = 5;
    SupprimeNumero(*arbre, 2);
    QCOMPARE(arbre->nombreGenerations, 5);
    SupprimeNumero(*arbre, 3);
    QCOMPARE(arbre->nombreGenerations, 4);
}

void TestSuppression::supprimerSansSelectionNeFaitRien()
{
    const auto arbre = ArbreDeNumeros({1, 2, 3});
    arbre->SupprimePersonne();
    QCOMPARE(NumerosEnTexte(*arbre), QStringLiteral("1 2 3"));
    QCOMPARE(arbre->nombrePersonnes, 3U);
    Arbre vide;
    vide.SupprimePersonne();
    QCOMPARE(vide.nombrePersonnes, 0U);
}

void TestSuppression::laPremiereNEstPasSupprimee()
{
    const auto arbre = ArbreDeNumeros({1, 2, 3});
    SupprimeNumero(*arbre, 1);
    QCOMPARE(NumerosEnTexte(*arbre), QStringLiteral("1 2 3"));
    QCOMPARE(arbre->nombrePersonnes, 3U);
    QCOMPARE(arbre->nombreGenerations, 2);
    QCOMPARE(arbre->selection, arbre->premiere);

    // The first of the list, whatever its number.
    const auto sansRacine = ArbreDeNumeros({6});
    SupprimeNumero(*sansRacine, 6);
    QCOMPARE(NumerosEnTexte(*sansRacine), QStringLiteral("6"));
}

void TestSuppression::unEnfantQuiManqueNEmpecheRien()
{
    const auto arbre = ArbreDeNumeros({1, 3, 10, 13});
    SupprimeNumero(*arbre, 10);
    QCOMPARE(NumerosEnTexte(*arbre), QStringLiteral("1 3 13"));
    SupprimeNumero(*arbre, 13);
    QCOMPARE(NumerosEnTexte(*arbre), QStringLiteral("1 3"));
    QCOMPARE(arbre->premiere->mere, 3U);
}

void TestSuppression::unDoublonSupprimeDetacheLEnfant()
{
    // Two persons bear the number 3; the child is linked with the last one, and the first one goes.
    const auto arbre = ArbreDeNumeros({1, 2, 3});
    Personne *premierDoublon = arbre->derniere;
    auto *secondDoublon = new Personne(1);
    secondDoublon->numero = 3;
    arbre->AjouteALaFin(secondDoublon);
    arbre->premiere->ptrMere = secondDoublon;

    arbre->selection = premierDoublon;
    arbre->SupprimePersonne();
    QCOMPARE(NumerosEnTexte(*arbre), QStringLiteral("1 2 3"));
    QCOMPARE(arbre->derniere, secondDoublon);
    QCOMPARE(arbre->premiere->mere, 0U);
    QVERIFY(!arbre->premiere->ptrMere);
}

void TestSuppression::seulLePremierEnfantEstDetache()
{
    const auto arbre = ArbreDeNumeros({1, 2, 3});
    Trouve(*arbre, 2)->mere = 3;
    SupprimeNumero(*arbre, 3);
    QCOMPARE(arbre->premiere->mere, 0U);
    QCOMPARE(arbre->derniere->mere, 3U);
}

void TestSuppression::plusRienNeDesigneLaSupprimee()
{
    const auto arbre = ArbreDeNumeros({1, 2, 3, 4, 5});
    Personne *supprimee = Trouve(*arbre, 4);
    // Links that a damaged file may leave.
    Trouve(*arbre, 3)->ptrPere = supprimee;
    Trouve(*arbre, 5)->ptrMere = supprimee;
    arbre->enfantSansPere = supprimee;
    arbre->enfantSansMere = supprimee;
    SupprimeNumero(*arbre, 4);
    QVERIFY(!Trouve(*arbre, 2)->ptrPere);
    QVERIFY(!Trouve(*arbre, 3)->ptrPere);
    QVERIFY(!Trouve(*arbre, 5)->ptrMere);
    QVERIFY(!arbre->enfantSansPere);
    QVERIFY(!arbre->enfantSansMere);
}

void TestSuppression::lesLiensDAnnulationDesAutresRestent()
{
    const auto arbre = ArbreDeNumeros({1, 2, 3, 4});
    arbre->enfantSansPere = Trouve(*arbre, 2);
    arbre->enfantSansMere = arbre->premiere;
    SupprimeNumero(*arbre, 4);
    QCOMPARE(arbre->enfantSansPere, Trouve(*arbre, 2));
    QCOMPARE(arbre->enfantSansMere, arbre->premiere);
}

void TestSuppression::supprimerPuisAjouterRendLeMemeArbre()
{
    const auto arbre = ArbreDeNumeros({1, 2, 3, 4, 6, 7});
    SupprimeNumero(*arbre, 7);
    arbre->AjoutePersonne(Trouve(*arbre, 3), false);
    QCOMPARE(NumerosEnTexte(*arbre), QStringLiteral("1 2 3 4 6 7"));
    QCOMPARE(arbre->nombrePersonnes, 6U);
    QCOMPARE(arbre->nombreGenerations, 3);
    QCOMPARE(Trouve(*arbre, 3)->ptrMere, arbre->derniere);
}

RAMELIER_TEST_MAIN(QGuiApplication, TestSuppression)
#include "tst_suppression.moc"
