#include "arbre.h"
#include "arbres.h"
#include "environnement.h"
#include "personne.h"

#include <QGuiApplication>
#include <QSet>

#include <random>

namespace {

/// One person as a file gives it: its number and those of its parents.
struct Fiche
{
    quint64 numero;
    quint64 pere = 0;
    quint64 mere = 0;
};

std::unique_ptr<Arbre> ArbreDeFiches(const QList<Fiche> &fiches)
{
    auto arbre = std::make_unique<Arbre>();
    for (const Fiche &fiche : fiches) {
        auto *personne = new Personne(0);
        personne->numero = fiche.numero;
        personne->pere = fiche.pere;
        personne->mere = fiche.mere;
        arbre->AjouteALaFin(personne);
    }
    return arbre;
}

struct Parents
{
    const Personne *pere = nullptr;
    const Personne *mere = nullptr;
};

/// The literal walk: backward from the last person, each one scans all that follow it; where several match, the last
/// one counts. Whoever is a parent already is not given away again. In list order.
QList<Parents> ParentsParBalayage(const Arbre &arbre)
{
    QList<Parents> liens;
    QSet<const Personne *> dejaParents;
    const auto prend = [&dejaParents](const Personne *candidat) -> const Personne * {
        if (!candidat || dejaParents.contains(candidat))
            return nullptr;
        dejaParents.insert(candidat);
        return candidat;
    };
    for (const Personne *personne = arbre.derniere; personne; personne = personne->precedente) {
        Parents trouves;
        for (const Personne *autre = personne->suivante; autre; autre = autre->suivante) {
            if (personne->pere != 0 && autre->numero == personne->pere)
                trouves.pere = autre;
            if (personne->mere != 0 && autre->numero == personne->mere)
                trouves.mere = autre;
        }
        const Personne *pere = prend(trouves.pere);
        const Personne *mere = prend(trouves.mere);
        liens.prepend({pere, mere});
    }
    return liens;
}

/// "1>2,3 2>4": who is linked with whom, by number.
QString LiensEnTexte(const Arbre &arbre)
{
    QStringList liens;
    for (const Personne *personne = arbre.premiere; personne; personne = personne->suivante) {
        if (!personne->ptrPere && !personne->ptrMere)
            continue;
        QString lien = QString::number(personne->numero) + u'>';
        if (personne->ptrPere)
            lien += QString::number(personne->ptrPere->numero);
        if (personne->ptrMere)
            lien += u',' + QString::number(personne->ptrMere->numero);
        liens += lien;
    }
    return liens.join(u' ');
}

/// How the lists of a row are drawn by lot.
struct Tirage
{
    int personnes;      ///< at most
    quint64 plusGrand;  ///< number
    bool triee;         ///< numbers that grow along the list
    double chanceVrai;  ///< of a parent's number to be 2n or 2n + 1, else any number
};

QList<Fiche> FichesAuHasard(const Tirage &tirage, std::mt19937 &hasard)
{
    const auto entre = [&hasard](quint64 a, quint64 b) { return std::uniform_int_distribution<quint64>(a, b)(hasard); };
    const auto chance = [&hasard](double p) { return std::bernoulli_distribution(p)(hasard); };
    QList<Fiche> fiches(qsizetype(entre(0, quint64(tirage.personnes))));
    for (Fiche &fiche : fiches)
        fiche.numero = entre(0, tirage.plusGrand);
    if (tirage.triee) {
        std::sort(fiches.begin(), fiches.end(), [](const Fiche &a, const Fiche &b) { return a.numero < b.numero; });
    }
    for (Fiche &fiche : fiches) {
        if (chance(0.8))
            fiche.pere = chance(tirage.chanceVrai) ? 2 * fiche.numero : entre(0, tirage.plusGrand);
        if (chance(0.8))
            fiche.mere = chance(tirage.chanceVrai) ? 2 * fiche.numero + 1 : entre(0, tirage.plusGrand);
    }
    return fiches;
}

}  // namespace

class TestLiens : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void lesParentsSontRetrouves_data();
    void lesParentsSontRetrouves();
    void lesNumerosLusRestent();
    void leDernierDesDoublonsCompte();
    void unParentNAQuUnEnfant();
    void unArbreSansPersonne();
    void commeLeBalayage_data();
    void commeLeBalayage();
};

void TestLiens::lesParentsSontRetrouves_data()
{
    QTest::addColumn<QList<Fiche>>("fiches");
    QTest::addColumn<QString>("liens");

    const auto ligne = [](const char *nom, const QList<Fiche> &fiches, const char *liens) {
        QTest::newRow(nom) << fiches << QString::fromLatin1(liens);
    };
    ligne("racine seule", {{1}}, "");
    ligne("père et mère", {{1, 2, 3}, {2}, {3}}, "1>2,3");
    ligne("père seul", {{1, 2, 0}, {2}}, "1>2");
    ligne("mère seule", {{1, 0, 3}, {3}}, "1>,3");
    ligne("trois générations", {{1, 2, 3}, {2, 4, 5}, {3, 0, 7}, {4}, {5}, {7}}, "1>2,3 2>4,5 3>,7");
    ligne("une personne manque", {{1, 2, 3}, {2, 4, 5}, {5}}, "1>2 2>,5");
    ligne("un parent placé avant son enfant n'est pas trouvé", {{2}, {1, 2, 3}, {3}}, "1>,3");
    ligne("personne n'est son propre parent", {{4, 4, 4}}, "");
    ligne("zéro n'est pas un numéro de parent", {{1, 2, 0}, {2, 0, 0}, {0}}, "1>2");
    ligne("une même personne n'est pas père et mère", {{1, 2, 2}, {2}}, "1>2");
    ligne("d'autres numéros que le double", {{1, 30, 12}, {12, 0, 99}, {30}, {99}}, "1>30,12 12>,99");
    ligne("au-delà de 32 bits", {{4294967297, 8589934594, 8589934595}, {8589934594}, {8589934595}},
          "4294967297>8589934594,8589934595");
    ligne("les plus grands numéros",
          {{1, 18446744073709551614U, 18446744073709551615U}, {18446744073709551614U}, {18446744073709551615U}},
          "1>18446744073709551614,18446744073709551615");
}

void TestLiens::lesParentsSontRetrouves()
{
    QFETCH(const QList<Fiche>, fiches);
    const auto arbre = ArbreDeFiches(fiches);
    arbre->DetermineLiensDeParente();
    QTEST(LiensEnTexte(*arbre), "liens");
}

void TestLiens::lesNumerosLusRestent()
{
    const auto arbre = ArbreDeFiches({{1, 2, 3}, {2, 40, 50}});
    arbre->DetermineLiensDeParente();
    const Personne *pere = arbre->derniere;
    QVERIFY(!pere->ptrPere);
    QVERIFY(!pere->ptrMere);
    QCOMPARE(pere->pere, 40U);
    QCOMPARE(pere->mere, 50U);
    QVERIFY(!arbre->premiere->ptrMere);
    QCOMPARE(arbre->premiere->mere, 3U);
}

void TestLiens::leDernierDesDoublonsCompte()
{
    const auto arbre = ArbreDeFiches({{1, 2, 3}, {2}, {3}, {2}, {3}});
    arbre->DetermineLiensDeParente();
    QCOMPARE(arbre->premiere->ptrMere, arbre->derniere);
    QCOMPARE(arbre->premiere->ptrPere, arbre->derniere->precedente);
}

void TestLiens::unParentNAQuUnEnfant()
{
    // Two persons claim the same father: the later one of the list keeps him.
    const auto arbre = ArbreDeFiches({{1, 9, 0}, {2, 9, 0}, {9}});
    arbre->DetermineLiensDeParente();
    QCOMPARE(LiensEnTexte(*arbre), QStringLiteral("2>9"));
    QCOMPARE(arbre->premiere->pere, 9U);

    // As father of one and mother of the other, too; and no other bearer of the number takes his place.
    const auto deux = ArbreDeFiches({{1, 0, 9}, {9}, {2, 9, 0}, {9}});
    deux->DetermineLiensDeParente();
    QCOMPARE(LiensEnTexte(*deux), QStringLiteral("2>9"));
    QCOMPARE(Trouve(*deux, 2)->ptrPere, deux->derniere);
}

void TestLiens::unArbreSansPersonne()
{
    Arbre arbre;
    arbre.DetermineLiensDeParente();
    QVERIFY(!arbre.premiere);
}

void TestLiens::commeLeBalayage_data()
{
    QTest::addColumn<Tirage>("tirage");
    QTest::addColumn<int>("listes");

    QTest::newRow("listes triées") << Tirage{60, 60, true, 1.0} << 800;
    QTest::newRow("listes triées, numéros faux") << Tirage{60, 60, true, 0.5} << 600;
    QTest::newRow("listes en désordre") << Tirage{40, 40, false, 0.9} << 800;
    QTest::newRow("beaucoup de doublons") << Tirage{30, 6, false, 0.5} << 800;
    QTest::newRow("beaucoup de zéros") << Tirage{12, 1, false, 0.5} << 400;
    QTest::newRow("grandes listes") << Tirage{400, 300, true, 0.8} << 100;
}

void TestLiens::commeLeBalayage()
{
    QFETCH(const Tirage, tirage);
    QFETCH(const int, listes);
    int liensVus = 0;
    for (int graine = 1; graine <= listes; ++graine) {
        std::mt19937 hasard(static_cast<quint32>(graine));
        const auto arbre = ArbreDeFiches(FichesAuHasard(tirage, hasard));
        const QList<Parents> attendus = ParentsParBalayage(*arbre);
        arbre->DetermineLiensDeParente();
        qsizetype rang = 0;
        for (const Personne *personne = arbre->premiere; personne; personne = personne->suivante, ++rang) {
            const Parents &attendu = attendus.at(rang);
            liensVus += (attendu.pere ? 1 : 0) + (attendu.mere ? 1 : 0);
            if (personne->ptrPere == attendu.pere && personne->ptrMere == attendu.mere)
                continue;
            QFAIL(qPrintable(QStringLiteral("graine %1, personne de rang %2 (numéro %3)")
                                 .arg(graine)
                                 .arg(rang)
                                 .arg(personne->numero)));
        }
        QCOMPARE(rang, attendus.size());
    }
    // The lists must hold links to find, or the comparison says nothing.
    QVERIFY2(liensVus > 200, qPrintable(QString::number(liensVus)));
}

RAMELIER_TEST_MAIN(QGuiApplication, TestLiens)
#include "tst_liens.moc"
