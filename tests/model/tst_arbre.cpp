#include "arbre.h"
#include "arbres.h"
#include "environnement.h"
#include "infopersonne.h"
#include "personne.h"

#include <QGuiApplication>

class TestArbre : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void ajouterLePereOuvreUneGeneration();
};

void TestArbre::ajouterLePereOuvreUneGeneration()
{
    const auto arbre = ArbreDeNumeros({1});
    const Personne *pere = arbre->AjoutePersonne(arbre->premiere, true);
    QCOMPARE(pere->numero, 2U);
    QCOMPARE(NumerosEnTexte(*arbre), QStringLiteral("1 2"));
    QCOMPARE(arbre->nombreGenerations, 2);
}

RAMELIER_TEST_MAIN(QGuiApplication, TestArbre)
#include "tst_arbre.moc"
