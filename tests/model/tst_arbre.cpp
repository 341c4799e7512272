#include "arbre.h"
#include "arbres.h"
#include "environnement.h"
#include "infopersonne.h"
#include "personne.h"

#include <QGuiApplication>

namespace {

Personne *PersonneNumero(quint64 numero, unsigned short generation)
{
    auto *personne = new Personne(generation);
    personne->numero = numero;
    return personne;
}

/// Adds the persons of these numbers, each as father or mother of its child, which must be there.
void AjouteDansCetOrdre(Arbre &arbre, const QList<quint64> &numeros)
{
    for (const quint64 numero : numeros)
        arbre.AjoutePersonne(Trouve(arbre, numero / 2), numero % 2 == 0);
}

}  // namespace

class TestArbre : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void unArbreNeufEstVide();
    void unArbreDUneSeulePersonne();
    void detruireLArbreDetruitTout();

    void ajouterALaFinNeRegardePasLeNumero();
    void ajouterALaFinLaisseLesGenerations();

    void ajouterASaPlace_data();
    void ajouterASaPlace();
    void uneGenerationDePlusAuPlus_data();
    void uneGenerationDePlusAuPlus();

    void ajouterLePereOuvreUneGeneration();
    void ajouterLaMereApresLePereLaisseLesGenerations();
    void unParentAjouteEstVideEtVisible();
    void lesParentsSontTriesDansTousLesOrdres_data();
    void lesParentsSontTriesDansTousLesOrdres();
    void unParentAjouteRetrouveSesPropresParents_data();
    void unParentAjouteRetrouveSesPropresParents();
    void ajouterUnParentLaisseLAutre();
    void lesNumerosTiennentSur64Bits();
};

void TestArbre::unArbreNeufEstVide()
{
    const Arbre arbre;
    QVERIFY(arbre.infoArbre);
    QCOMPARE(arbre.infoArbre->titrearbre, QString());
    QCOMPARE(arbre.infoArbre->creepar, QString());
    QCOMPARE(arbre.infoArbre->date, QString());
    QCOMPARE(arbre.infoArbre->majpar, QString());
    QCOMPARE(arbre.infoArbre->datemaj, QString());
    QCOMPARE(arbre.nombrePersonnes, 0U);
    QCOMPARE(arbre.nombreGenerations, 0);
    QVERIFY(!arbre.premiere);
    QVERIFY(!arbre.derniere);
    QVERIFY(!arbre.selection);
    QVERIFY(!arbre.infoSauvee);
    QVERIFY(!arbre.enfantSansPere);
    QVERIFY(!arbre.enfantSansMere);
}

void TestArbre::unArbreDUneSeulePersonne()
{
    Arbre arbre;
    arbre.AjouteASaPlace(PersonneNumero(1, 0));
    QCOMPARE(arbre.nombrePersonnes, 1U);
    QCOMPARE(arbre.nombreGenerations, 1);
    QCOMPARE(NumerosEnTexte(arbre), QStringLiteral("1"));
    QCOMPARE(arbre.premiere, arbre.derniere);
}

void TestArbre::detruireLArbreDetruitTout()
{
    // A text that is shared by all of them tells when the last of its owners is gone.
    const QString texte = QString::number(1793);
    auto arbre = ArbreComplet(4);
    for (Personne *personne = arbre->premiere; personne; personne = personne->suivante)
        personne->info->divers = texte;
    arbre->infoArbre->titrearbre = texte;
    arbre->selection = arbre->derniere;
    arbre->SauveInfoPersonne(QString());
    QCOMPARE(arbre->infoSauvee->divers, QStringLiteral("1793"));
    QVERIFY(!texte.isDetached());
    arbre.reset();
    QVERIFY(texte.isDetached());
}

void TestArbre::ajouterALaFinNeRegardePasLeNumero()
{
    Arbre arbre;
    for (const quint64 numero : {5U, 3U, 3U, 9U, 1U})
        arbre.AjouteALaFin(PersonneNumero(numero, 0));
    QCOMPARE(NumerosEnTexte(arbre), QStringLiteral("5 3 3 9 1"));
    QCOMPARE(arbre.nombrePersonnes, 5U);
    QCOMPARE(arbre.premiere->numero, 5U);
    QVERIFY(!arbre.premiere->precedente);
    QCOMPARE(arbre.derniere->numero, 1U);
    QVERIFY(!arbre.derniere->suivante);
}

void TestArbre::ajouterALaFinLaisseLesGenerations()
{
    Arbre arbre;
    arbre.AjouteALaFin(PersonneNumero(1, 0));
    QCOMPARE(arbre.nombreGenerations, 0);
    arbre.nombreGenerations = 2;
    arbre.AjouteALaFin(PersonneNumero(16, 4));
    QCOMPARE(arbre.nombreGenerations, 2);
    // A reader may have counted the persons before: each one is added all the same.
    arbre.nombrePersonnes = 40;
    arbre.AjouteALaFin(PersonneNumero(17, 4));
    QCOMPARE(arbre.nombrePersonnes, 41U);
}

void TestArbre::ajouterASaPlace_data()
{
    QTest::addColumn<QList<quint64>>("presents");
    QTest::addColumn<quint64>("numero");
    QTest::addColumn<QString>("liste");

    const QList<quint64> trois{2, 4, 8};
    const auto ligne = [](const char *nom, const QList<quint64> &presents, quint64 numero, const char *liste) {
        QTest::newRow(nom) << presents << numero << QString::fromLatin1(liste);
    };
    ligne("liste vide", {}, 7, "7");
    ligne("après la seule", {5}, 6, "5 6");
    ligne("avant la seule : à la fin", {5}, 3, "5 3");
    ligne("entre la première et la suivante", trois, 3, "2 3 4 8");
    ligne("entre la suivante et la dernière", trois, 5, "2 4 5 8");
    ligne("juste avant la dernière", trois, 7, "2 4 7 8");
    ligne("après la dernière", trois, 9, "2 4 8 9");
    ligne("avant la première : à la fin", trois, 1, "2 4 8 1");
    ligne("égale à la première : à la fin", trois, 2, "2 4 8 2");
    ligne("égale à celle du milieu : à la fin", trois, 4, "2 4 8 4");
    ligne("égale à la dernière : à la fin", trois, 8, "2 4 8 8");
    ligne("au-delà de 32 bits", {1, 4294967296}, 4294967295, "1 4294967295 4294967296");
}

void TestArbre::ajouterASaPlace()
{
    QFETCH(const QList<quint64>, presents);
    QFETCH(const quint64, numero);
    const auto arbre = ArbreDeNumeros(presents);
    Personne *ajoutee = PersonneNumero(numero, 0);
    arbre->AjouteASaPlace(ajoutee);
    QTEST(NumerosEnTexte(*arbre), "liste");
    QCOMPARE(arbre->nombrePersonnes, quint64(presents.size() + 1));
    QVERIFY(!arbre->premiere->precedente);
    QVERIFY(!arbre->derniere->suivante);
    QCOMPARE(ajoutee->suivante == nullptr, ajoutee == arbre->derniere);
}

void TestArbre::uneGenerationDePlusAuPlus_data()
{
    QTest::addColumn<int>("generation");
    QTest::addColumn<int>("nombre");

    QTest::newRow("déjà comptée") << 2 << 3;
    QTest::newRow("suivante") << 3 << 4;
    QTest::newRow("bien plus haute : une seule de plus") << 9 << 4;
    QTest::newRow("première") << 0 << 3;
}

void TestArbre::uneGenerationDePlusAuPlus()
{
    QFETCH(const int, generation);
    const auto arbre = ArbreDeNumeros({1, 2, 4});
    arbre->AjouteASaPlace(PersonneNumero(600, static_cast<unsigned short>(generation)));
    QTEST(int(arbre->nombreGenerations), "nombre");
}

void TestArbre::ajouterLePereOuvreUneGeneration()
{
    const auto arbre = ArbreDeNumeros({1});
    const Personne *pere = arbre->AjoutePersonne(arbre->premiere, true);
    QCOMPARE(pere->numero, 2U);
    QCOMPARE(pere->numerogeneration, 1);
    QCOMPARE(pere->enfant, 1U);
    QCOMPARE(arbre->premiere->pere, 2U);
    QCOMPARE(arbre->premiere->ptrPere, pere);
    QCOMPARE(arbre->premiere->mere, 0U);
    QVERIFY(!arbre->premiere->ptrMere);
    QCOMPARE(NumerosEnTexte(*arbre), QStringLiteral("1 2"));
    QCOMPARE(arbre->nombrePersonnes, 2U);
    QCOMPARE(arbre->nombreGenerations, 2);
}

void TestArbre::ajouterLaMereApresLePereLaisseLesGenerations()
{
    const auto arbre = ArbreDeNumeros({1});
    arbre->AjoutePersonne(arbre->premiere, true);
    const Personne *mere = arbre->AjoutePersonne(arbre->premiere, false);
    QCOMPARE(mere->numero, 3U);
    QCOMPARE(mere->numerogeneration, 1);
    QCOMPARE(mere->enfant, 1U);
    QCOMPARE(arbre->premiere->mere, 3U);
    QCOMPARE(arbre->premiere->ptrMere, mere);
    QCOMPARE(NumerosEnTexte(*arbre), QStringLiteral("1 2 3"));
    QCOMPARE(arbre->nombrePersonnes, 3U);
    QCOMPARE(arbre->nombreGenerations, 2);
}

void TestArbre::unParentAjouteEstVideEtVisible()
{
    const auto arbre = ArbreDeNumeros({1});
    const Personne *pere = arbre->AjoutePersonne(arbre->premiere, true);
    QVERIFY(pere->affichable);
    QVERIFY(!pere->selectionnee);
    QVERIFY(!arbre->selection);
    QCOMPARE(pere->pere, 0U);
    QCOMPARE(pere->mere, 0U);
    QVERIFY(!pere->ptrPere);
    QVERIFY(!pere->ptrMere);
    QVERIFY(pere->info);
    const InfoPersonne &info = *pere->info;
    for (const QString &texte : {info.nom, info.prenom, info.datenaissance, info.lieunaissance, info.datedeces,
                                 info.lieudeces, info.divers, info.fichtml, info.ficphoto})
        QCOMPARE(texte, QString());
    QCOMPARE(info.etatPhoto, -1);
    QVERIFY(info.photo.isNull());
}

void TestArbre::lesParentsSontTriesDansTousLesOrdres_data()
{
    QTest::addColumn<QList<quint64>>("ordre");

    QTest::newRow("croissant") << QList<quint64>{2, 3, 4, 5, 6};
    QTest::newRow("5 après 4 et avant 6") << QList<quint64>{2, 4, 5, 3, 6};
    QTest::newRow("6 avant 5") << QList<quint64>{2, 4, 3, 6, 5};
    QTest::newRow("mères d'abord") << QList<quint64>{3, 2, 5, 4, 6};
    QTest::newRow("une lignée puis l'autre") << QList<quint64>{3, 6, 2, 5, 4};
}

void TestArbre::lesParentsSontTriesDansTousLesOrdres()
{
    QFETCH(const QList<quint64>, ordre);
    const auto arbre = ArbreDeNumeros({1});
    AjouteDansCetOrdre(*arbre, ordre);
    QCOMPARE(NumerosEnTexte(*arbre), QStringLiteral("1 2 3 4 5 6"));
    QCOMPARE(arbre->nombrePersonnes, 6U);
    QCOMPARE(arbre->nombreGenerations, 3);
    QCOMPARE(Trouve(*arbre, 2)->ptrMere, Trouve(*arbre, 5));
    QCOMPARE(Trouve(*arbre, 3)->ptrPere, Trouve(*arbre, 6));
}

void TestArbre::unParentAjouteRetrouveSesPropresParents_data()
{
    QTest::addColumn<QList<quint64>>("presents");
    QTest::addColumn<bool>("estPere");
    QTest::addColumn<quint64>("sonPere");
    QTest::addColumn<quint64>("saMere");

    const quint64 aucun = 0;
    QTest::newRow("les deux parents du père") << QList<quint64>{1, 3, 4, 5} << true << quint64(4) << quint64(5);
    QTest::newRow("le père du père") << QList<quint64>{1, 4, 9} << true << quint64(4) << aucun;
    QTest::newRow("la mère du père, seule en tête de rang") << QList<quint64>{1, 5} << true << aucun << quint64(5);
    QTest::newRow("les deux parents de la mère") << QList<quint64>{1, 4, 6, 7} << false << quint64(6) << quint64(7);
    QTest::newRow("la mère de la mère") << QList<quint64>{1, 2, 7, 14} << false << aucun << quint64(7);
    QTest::newRow("aucun des siens") << QList<quint64>{1, 6, 7, 8} << true << aucun << aucun;
}

void TestArbre::unParentAjouteRetrouveSesPropresParents()
{
    QFETCH(const QList<quint64>, presents);
    QFETCH(const bool, estPere);
    QFETCH(const quint64, sonPere);
    QFETCH(const quint64, saMere);
    const auto arbre = ArbreDeNumeros(presents);
    const Personne *parent = arbre->AjoutePersonne(arbre->premiere, estPere);
    QCOMPARE(parent->pere, sonPere);
    QCOMPARE(parent->mere, saMere);
    QCOMPARE(parent->ptrPere, sonPere ? Trouve(*arbre, sonPere) : nullptr);
    QCOMPARE(parent->ptrMere, saMere ? Trouve(*arbre, saMere) : nullptr);
}

void TestArbre::ajouterUnParentLaisseLAutre()
{
    const auto arbre = ArbreDeNumeros({1, 2, 5});
    Personne *enfant = Trouve(*arbre, 2);
    arbre->AjoutePersonne(enfant, true);
    QCOMPARE(enfant->mere, 5U);
    QCOMPARE(enfant->ptrMere, Trouve(*arbre, 5));
    QCOMPARE(enfant->pere, 4U);
    QCOMPARE(NumerosEnTexte(*arbre), QStringLiteral("1 2 4 5"));
    QCOMPARE(arbre->nombreGenerations, 3);
}

void TestArbre::lesNumerosTiennentSur64Bits()
{
    const auto arbre = ArbreDeNumeros({1, 4611686018427387904U});
    const Personne *mere = arbre->AjoutePersonne(arbre->derniere, false);
    QCOMPARE(mere->numero, 9223372036854775809U);
    QCOMPARE(mere->numerogeneration, 63);
    QCOMPARE(mere->enfant, 4611686018427387904U);
    QCOMPARE(arbre->derniere, mere);
}

RAMELIER_TEST_MAIN(QGuiApplication, TestArbre)
#include "tst_arbre.moc"
