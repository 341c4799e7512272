#include "arbre.h"
#include "arbres.h"
#include "disposition.h"
#include "environnement.h"
#include "formatsdessins.h"
#include "infopersonne.h"
#include "personne.h"
#include "pile.h"

#include <QGuiApplication>

#include <vector>

namespace {

/// What a program has by default.
constexpr uint pile = 8 * 1024 * 1024;

}  // namespace

/// A million persons are a long list and a wide chart, never a deep stack.
class TestMillion : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void unArbreComplet();
    void uneLigneeSansFin();
    void uneListeSansArbre();
};

void TestMillion::unArbreComplet()
{
    // 20 generations: 1,048,575 persons.
    constexpr quint64 derniere = (quint64(1) << 20) - 1;
    SurUnePileDe(pile, [] {
        auto arbre = std::make_unique<Arbre>();
        std::vector<const Personne *> parNumero(derniere + 1);
        unsigned short generation = 0;
        for (quint64 numero = 1; numero <= derniere; ++numero) {
            if (numero == quint64(2) << generation)
                ++generation;
            auto *personne = new Personne(generation);
            personne->numero = numero;
            personne->info = new InfoPersonne;
            personne->enfant = numero / 2;
            if (2 * numero < derniere) {
                personne->pere = 2 * numero;
                personne->mere = 2 * numero + 1;
            }
            arbre->AjouteALaFin(personne);
            parNumero[numero] = personne;
        }
        arbre->nombreGenerations = 20;
        QCOMPARE(arbre->nombrePersonnes, 1'048'575U);

        arbre->DetermineLiensDeParente();
        quint64 liens = 0;
        for (const Personne *personne = arbre->premiere; personne && personne->ptrPere && personne->ptrMere;
             personne = personne->suivante) {
            QCOMPARE(personne->ptrPere, parNumero[personne->pere]);
            QCOMPARE(personne->ptrMere, parNumero[personne->mere]);
            liens += 2;
        }
        QCOMPARE(liens, 1'048'574U);

        // Margins 15, rows every 57, a person takes 40.
        DisposeArbre(*arbre, FormatsDessins::ParDefaut(), 1.0F, 1.0F);
        const struct
        {
            quint64 numero;
            long x;
            long y;
        } attendus[] = {{1, 10'485'755, 1098}, {2, 5'242'875, 1041}, {3, 15'728'635, 1041},
                        {4, 2'621'435, 984},   {262'144, 35, 72},    {524'287, 20'971'475, 72},
                        {524'288, 15, 15},     {524'289, 55, 15},    {1'048'575, 20'971'495, 15}};
        for (const auto &attendu : attendus) {
            QCOMPARE(parNumero[attendu.numero]->x, attendu.x);
            QCOMPARE(parNumero[attendu.numero]->y, attendu.y);
        }
        arbre.reset();
    });
}

void TestMillion::uneLigneeSansFin()
{
    // Father after father, beyond the 65,535 generations that can be counted: those have no row of their own.
    SurUnePileDe(pile, [] {
        auto arbre = std::make_unique<Arbre>();
        for (quint64 numero = 1; numero <= 1'000'000; ++numero) {
            auto *personne = new Personne(static_cast<unsigned short>(std::min<quint64>(numero - 1, 65535)));
            personne->numero = numero;
            personne->pere = numero < 1'000'000 ? numero + 1 : 0;
            arbre->AjouteALaFin(personne);
        }
        arbre->nombreGenerations = 65535;
        arbre->DetermineLiensDeParente();
        quint64 liens = 0;
        for (const Personne *personne = arbre->premiere; personne->ptrPere; personne = personne->ptrPere)
            ++liens;
        QCOMPARE(liens, 999'999U);

        DisposeArbre(*arbre, FormatsDessins::ParDefaut(), 1.0F, 1.0F);
        QCOMPARE(arbre->premiere->x, 15L);
        QCOMPARE(arbre->premiere->y, 3'735'453L);
        QCOMPARE(Trouve(*arbre, 65535)->y, 15L);
        QCOMPARE(arbre->derniere->x, 15L);
        QCOMPARE(arbre->derniere->y, 0L);
        arbre.reset();
    });
}

void TestMillion::uneListeSansArbre()
{
    const QString texte = QString::number(1453);
    SurUnePileDe(pile, [&texte] {
        auto tete = std::make_unique<Personne>(static_cast<unsigned short>(0));
        Personne *queue = tete.get();
        for (int i = 1; i < 1'000'000; ++i) {
            queue->suivante = new Personne(0);
            queue->suivante->precedente = queue;
            queue = queue->suivante;
        }
        queue->info = new InfoPersonne;
        queue->info->nom = texte;
        tete.reset();
    });
    QVERIFY(texte.isDetached());
}

RAMELIER_TEST_MAIN(QGuiApplication, TestMillion)
#include "tst_million.moc"
