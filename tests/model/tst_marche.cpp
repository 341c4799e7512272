#include "arbre.h"
#include "arbres.h"
#include "environnement.h"
#include "marche.h"
#include "personne.h"

#include <QCoreApplication>

/// Where a step through the chart leads.
class TestMarche : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void chaquePasMeneQuelquePart_data();
    void chaquePasMeneQuelquePart();
    void sansSelectionToutMeneALaRacine();
    void unArbreVideNeMeneNullePart();
    void unArbreEnDesordreNeFaitPasTourner();
};

Q_DECLARE_METATYPE(Pas)

void TestMarche::chaquePasMeneQuelquePart_data()
{
    QTest::addColumn<quint64>("depuis");
    QTest::addColumn<Pas>("pas");
    QTest::addColumn<quint64>("attendu");
    const auto ligne = [](const char *nom, quint64 depuis, Pas pas, quint64 attendu) {
        QTest::newRow(nom) << depuis << pas << attendu;
    };
    ligne("le père", 1, Pas::VersLePere, 2);
    ligne("la mère", 1, Pas::VersLaMere, 3);
    ligne("la mère, faute de père", 2, Pas::VersLePere, 5);
    ligne("la mère seule", 2, Pas::VersLaMere, 5);
    ligne("le père seul", 3, Pas::VersLePere, 6);
    ligne("le père, faute de mère", 3, Pas::VersLaMere, 6);
    ligne("pas de parents", 5, Pas::VersLePere, 0);
    ligne("pas de parents non plus", 5, Pas::VersLaMere, 0);
    ligne("l'enfant d'un père", 6, Pas::VersLEnfant, 3);
    ligne("l'enfant d'une mère", 5, Pas::VersLEnfant, 2);
    ligne("la racine n'est le parent de personne", 1, Pas::VersLEnfant, 0);
    ligne("le voisin de droite", 2, Pas::ADroite, 3);
    ligne("par-dessus un trou", 5, Pas::ADroite, 6);
    ligne("le voisin de gauche", 6, Pas::AGauche, 5);
    ligne("le dernier de la rangée", 3, Pas::ADroite, 0);
    ligne("le premier de la rangée", 2, Pas::AGauche, 0);
    ligne("le dernier de l'arbre", 6, Pas::ADroite, 0);
    ligne("le premier de l'arbre", 1, Pas::AGauche, 0);
    ligne("la racine", 6, Pas::VersLaRacine, 1);
    ligne("la racine, déjà", 1, Pas::VersLaRacine, 1);
}

void TestMarche::chaquePasMeneQuelquePart()
{
    QFETCH(const quint64, depuis);
    QFETCH(const Pas, pas);
    QFETCH(const quint64, attendu);
    // 2 has a mother only, 3 a father only.
    const auto arbre = ArbreDeNumeros({1, 2, 3, 5, 6});
    arbre->Selectionne(Trouve(*arbre, depuis));
    const Personne *personne = ApresLePas(*arbre, pas);
    QCOMPARE(personne ? personne->numero : 0, attendu);
    QCOMPARE(arbre->selection->numero, depuis);
}

void TestMarche::sansSelectionToutMeneALaRacine()
{
    const auto arbre = ArbreDeNumeros({1, 2, 3});
    for (const Pas pas :
         {Pas::VersLePere, Pas::VersLaMere, Pas::VersLEnfant, Pas::AGauche, Pas::ADroite, Pas::VersLaRacine})
        QCOMPARE(ApresLePas(*arbre, pas), arbre->premiere);
}

void TestMarche::unArbreVideNeMeneNullePart()
{
    const Arbre arbre;
    for (const Pas pas : {Pas::VersLePere, Pas::VersLEnfant, Pas::ADroite, Pas::VersLaRacine})
        QVERIFY(!ApresLePas(arbre, pas));
}

void TestMarche::unArbreEnDesordreNeFaitPasTourner()
{
    const auto arbre = ArbreComplet(4);
    for (Personne *personne = arbre->premiere; personne; personne = personne->suivante) {
        personne->numerogeneration = static_cast<unsigned short>(7919 * personne->numero % 5);
        personne->numero = personne->numero * 7919 % 6;
    }
    for (Personne *personne = arbre->premiere; personne; personne = personne->suivante) {
        arbre->Selectionne(personne);
        const Personne *droite = ApresLePas(*arbre, Pas::ADroite);
        QVERIFY(!droite || (droite == personne->suivante && droite->numerogeneration == personne->numerogeneration));
        const Personne *enfant = ApresLePas(*arbre, Pas::VersLEnfant);
        QCOMPARE(enfant == nullptr, personne == arbre->premiere);
        QVERIFY(!enfant || enfant->ptrPere == personne || enfant->ptrMere == personne);
    }
}

RAMELIER_TEST_MAIN(QCoreApplication, TestMarche)
#include "tst_marche.moc"
