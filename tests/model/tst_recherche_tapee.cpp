#include "arbre.h"
#include "arbres.h"
#include "environnement.h"
#include "infopersonne.h"
#include "personne.h"
#include "recherchetapee.h"

#include <QCoreApplication>

namespace {

constexpr int longtemps = 600'000;

std::unique_ptr<Arbre> ArbreNomme(const QStringList &noms)
{
    QList<quint64> numeros;
    for (qsizetype i = 1; i <= noms.size(); ++i)
        numeros += static_cast<quint64>(i);
    auto arbre = ArbreDeNumeros(numeros);
    for (Personne *personne = arbre->premiere; personne; personne = personne->suivante)
        personne->info->nom = noms.at(static_cast<qsizetype>(personne->numero) - 1);
    return arbre;
}

/// Types \a texte letter by letter and goes where each one leads; the number of the person selected at the end.
quint64 Tape(RechercheTapee &recherche, Arbre &arbre, const QString &texte)
{
    for (const QChar lettre : texte) {
        if (Personne *trouvee = recherche.Tape(lettre, arbre))
            arbre.Selectionne(trouvee);
    }
    return arbre.selection ? arbre.selection->numero : 0;
}

}  // namespace

/// What is typed without a field.
class TestRechercheTapee : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void lesLettresSAjoutent();
    void laPremiereLettrePasseALaSuivante();
    void lesLettresSuivantesRestentSurPlace();
    void laMemeLettreFaitLeTour();
    void deuxFoisLaMemeLettreCommenceAussiUnNom();
    void unTexteSansPersonneNeMeneNullePart();
    void lesChiffresMenentAuNumero();
    void unNumeroNEstPasUnNom();
    void onPeutOublier();
    void laPauseFaitOublier();
};

void TestRechercheTapee::lesLettresSAjoutent()
{
    const auto arbre = ArbreNomme({"ROOT", "MOREL", "MARTIN", "MARIN"});
    RechercheTapee recherche(longtemps);
    QVERIFY(!recherche.EstEnCours());
    QCOMPARE(Tape(recherche, *arbre, "m"), 2U);
    QVERIFY(recherche.EstEnCours());
    QCOMPARE(Tape(recherche, *arbre, "a"), 3U);
    QCOMPARE(Tape(recherche, *arbre, "r"), 3U);
    QCOMPARE(Tape(recherche, *arbre, "i"), 4U);
}

void TestRechercheTapee::laPremiereLettrePasseALaSuivante()
{
    const auto arbre = ArbreNomme({"MARTIN", "PETIT", "MARTIN", "MARTIN"});
    RechercheTapee recherche(longtemps);
    arbre->Selectionne(Trouve(*arbre, 1));
    for (const quint64 attendu : {3, 4, 1, 3}) {
        recherche.Oublie();
        QCOMPARE(Tape(recherche, *arbre, "martin"), attendu);
    }
}

void TestRechercheTapee::lesLettresSuivantesRestentSurPlace()
{
    const auto arbre = ArbreNomme({"PETIT", "MARTIN", "MARTIN"});
    RechercheTapee recherche(longtemps);
    QCOMPARE(Tape(recherche, *arbre, "martin"), 2U);
}

void TestRechercheTapee::laMemeLettreFaitLeTour()
{
    const auto arbre = ArbreNomme({"MARTIN", "PETIT", "MOREL", "MICHEL"});
    RechercheTapee recherche(longtemps);
    QCOMPARE(Tape(recherche, *arbre, "m"), 1U);
    QCOMPARE(Tape(recherche, *arbre, "m"), 3U);
    QCOMPARE(Tape(recherche, *arbre, "m"), 4U);
    QCOMPARE(Tape(recherche, *arbre, "m"), 1U);
}

void TestRechercheTapee::deuxFoisLaMemeLettreCommenceAussiUnNom()
{
    const auto arbre = ArbreNomme({"ABEL", "ADAM", "AARON"});
    RechercheTapee recherche(longtemps);
    QCOMPARE(Tape(recherche, *arbre, "aa"), 3U);
}

void TestRechercheTapee::unTexteSansPersonneNeMeneNullePart()
{
    const auto arbre = ArbreNomme({"PETIT", "MARTIN", "MARIN"});
    RechercheTapee recherche(longtemps);
    QCOMPARE(Tape(recherche, *arbre, "mx"), 2U);
    QCOMPARE(Tape(recherche, *arbre, "marin"), 2U);
    recherche.Oublie();
    QCOMPARE(Tape(recherche, *arbre, "marin"), 3U);
    const Arbre vide;
    QVERIFY(!recherche.Tape("m", vide));
}

void TestRechercheTapee::lesChiffresMenentAuNumero()
{
    const auto arbre = ArbreDeNumeros({1, 3, 7, 14, 28, 29, 140, 1406});
    RechercheTapee recherche(longtemps);
    QCOMPARE(Tape(recherche, *arbre, "1"), 1U);
    QCOMPARE(Tape(recherche, *arbre, "4"), 14U);
    QCOMPARE(Tape(recherche, *arbre, "0"), 140U);
    recherche.Oublie();
    QCOMPARE(Tape(recherche, *arbre, "2"), 28U);
    QCOMPARE(Tape(recherche, *arbre, "9"), 29U);
    QCOMPARE(Tape(recherche, *arbre, "9"), 29U);
}

void TestRechercheTapee::unNumeroNEstPasUnNom()
{
    const auto arbre = ArbreNomme({"1er DUC", "n2", "22"});
    RechercheTapee recherche(longtemps);
    QCOMPARE(Tape(recherche, *arbre, "3"), 3U);
    QCOMPARE(Tape(recherche, *arbre, "x"), 3U);
    recherche.Oublie();
    QCOMPARE(Tape(recherche, *arbre, "22"), 2U);
    recherche.Oublie();
    QCOMPARE(Tape(recherche, *arbre, "n2"), 2U);
}

void TestRechercheTapee::onPeutOublier()
{
    const auto arbre = ArbreNomme({"PETIT", "MARTIN", "ADAM"});
    RechercheTapee recherche(longtemps);
    QCOMPARE(Tape(recherche, *arbre, "m"), 2U);
    recherche.Oublie();
    QVERIFY(!recherche.EstEnCours());
    QCOMPARE(Tape(recherche, *arbre, "a"), 3U);
}

void TestRechercheTapee::laPauseFaitOublier()
{
    const auto arbre = ArbreNomme({"PETIT", "MARTIN", "ADAM"});
    RechercheTapee recherche(30);
    QCOMPARE(Tape(recherche, *arbre, "m"), 2U);
    QTRY_VERIFY(!recherche.EstEnCours());
    QCOMPARE(Tape(recherche, *arbre, "a"), 3U);
}

RAMELIER_TEST_MAIN(QCoreApplication, TestRechercheTapee)
#include "tst_recherche_tapee.moc"
