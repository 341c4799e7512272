#include "annuaire.h"
#include "arbre.h"
#include "arbres.h"
#include "environnement.h"
#include "infopersonne.h"
#include "personne.h"
#include "sansaccents.h"

#include <QCoreApplication>

#include <random>

namespace {

constexpr quint64 plusGrand = std::numeric_limits<quint64>::max();

/// Gives the person of this number these names.
void Nomme(const Arbre &arbre, quint64 numero, const QString &prenom, const QString &nom)
{
    Personne *personne = Trouve(arbre, numero);
    personne->info->prenom = prenom;
    personne->info->nom = nom;
}

/// Persons 1 to 7 of three generations, with names.
std::unique_ptr<Arbre> Famille()
{
    auto arbre = ArbreComplet(3);
    Nomme(*arbre, 1, "Élise", "MARTIN");
    Nomme(*arbre, 2, "Jean-Marie", "MARTIN");
    Nomme(*arbre, 3, "Marguerite", "LEFÈVRE");
    Nomme(*arbre, 4, "Marcel", "MARTIN");
    Nomme(*arbre, 5, "Œdile", "LE ROY");
    Nomme(*arbre, 6, "", "LEFEBVRE");
    Nomme(*arbre, 7, "mélanie", "");
    return arbre;
}

quint64 NumeroOuZero(const Personne *personne)
{
    return personne ? personne->numero : 0;
}

/// What is asked of the search, literally: the first person who fits, behind \a depuis and round.
template <typename Convient>
Personne *ParBalayage(const Arbre &arbre, const Personne *depuis, bool avecElle, Convient convient)
{
    QList<Personne *> ordre;
    qsizetype debut = 0;
    for (Personne *personne = arbre.premiere; personne; personne = personne->suivante) {
        if (personne == depuis)
            debut = ordre.size() + (avecElle ? 0 : 1);
        ordre += personne;
    }
    for (qsizetype i = 0; i < ordre.size(); ++i) {
        Personne *personne = ordre.at((debut + i) % ordre.size());
        if (convient(*personne))
            return personne;
    }
    return nullptr;
}

bool ALeNom(const Personne &personne, const QString &tape)
{
    if (!personne.info)
        return false;
    QStringList parties{personne.info->prenom, personne.info->nom};
    parties.removeAll(QString());
    const QString debut = SansAccents(tape);
    const bool prenomDAbord = SansAccents(parties.join(' ')).startsWith(debut);
    std::reverse(parties.begin(), parties.end());
    return prenomDAbord || SansAccents(parties.join(' ')).startsWith(debut);
}

Personne *DeRang(const Arbre &arbre, int rang)
{
    Personne *personne = arbre.premiere;
    for (int i = 0; i < rang && personne; ++i)
        personne = personne->suivante;
    return personne;
}

/// Everybody in list order, with the numbers and the persons of the parents.
QString ListeEtLiens(const Arbre &arbre)
{
    QString texte = NumerosEnTexte(arbre) + u'\n';
    for (const Personne *personne = arbre.premiere; personne; personne = personne->suivante) {
        texte += QStringLiteral("%1<%2: %3=%4 %5=%6\n")
                     .arg(personne->numero)
                     .arg(personne->enfant)
                     .arg(personne->pere)
                     .arg(NumeroOuZero(personne->ptrPere))
                     .arg(personne->mere)
                     .arg(NumeroOuZero(personne->ptrMere));
    }
    return texte;
}

/// Whom each place, each person, each number and the beginnings of some names lead to.
QString Reponses(const Annuaire &annuaire, const Arbre &arbre)
{
    QString texte = QString::number(annuaire.Nombre()) + u'\n';
    for (std::size_t rang = 0; rang < annuaire.Nombre(); ++rang) {
        const Personne *personne = annuaire.DeRang(rang);
        const Personne *memeNumero = annuaire.DeNumero(personne->numero);
        texte += QStringLiteral("%1 %2 %3\n")
                     .arg(annuaire.RangDe(personne).value())
                     .arg(annuaire.RangDe(memeNumero).value())
                     .arg(personne->numero);
    }
    for (const QStringView debut : {QStringView(u"n1"), QStringView(u"n2"), QStringView(u"neuf")})
        texte += QString::number(NumeroOuZero(annuaire.Prochaine(arbre.derniere, false, NomCherche(debut)))) + u'\n';
    return texte;
}

/// At random, the same in every tree of the same persons.
void AjouteOuSupprime(Arbre &arbre, std::mt19937 tirage)
{
    Personne *personne = DeRang(arbre, static_cast<int>(tirage() % arbre.nombrePersonnes));
    const bool pere = tirage() % 2 == 0;
    if (tirage() % 3 == 0) {
        arbre.Selectionne(personne);
        arbre.SupprimePersonne();
    } else if (!(pere ? personne->ptrPere : personne->ptrMere)) {
        Personne *venue = arbre.AjoutePersonne(personne, pere);
        venue->info->nom = QStringLiteral("Neuf");
        arbre.TextesChanges(*venue);
    }
}

}  // namespace

/// Persons by place, number and name.
class TestAnnuaire : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void unArbreVideNAPersonne();
    void chacunASaPlace();
    void unNumeroMeneASaPersonne();
    void lEnfantEstCeluiDuDessin_data();
    void lEnfantEstCeluiDuDessin();
    void unNomSeCherche_data();
    void unNomSeCherche();
    void unNumeroSeCherche_data();
    void unNumeroSeCherche();
    void laRechercheEstCelleDuBalayage_data();
    void laRechercheEstCelleDuBalayage();
    void unChangementDeTexteSeTrouve();
    void quiEntreOuSortSeTrouve();
    void onEntreEtSortCommeSansAnnuaire_data();
    void onEntreEtSortCommeSansAnnuaire();
};

void TestAnnuaire::unArbreVideNAPersonne()
{
    const Arbre arbre;
    const Annuaire annuaire(arbre);
    QCOMPARE(annuaire.Nombre(), 0U);
    QVERIFY(!annuaire.DeRang(0));
    QVERIFY(!annuaire.DeNumero(1));
    QVERIFY(!annuaire.RangDe(nullptr));
    QVERIFY(!annuaire.Prochaine(nullptr, true, NomCherche(u"a")));
    QVERIFY(!annuaire.Prochaine(nullptr, true, u"1"));
}

void TestAnnuaire::chacunASaPlace()
{
    const auto arbre = ArbreDeNumeros({1, 3, 7, 15});
    const Annuaire annuaire(*arbre);
    QCOMPARE(annuaire.Nombre(), 4U);
    QCOMPARE(annuaire.DeRang(0), arbre->premiere);
    QCOMPARE(annuaire.DeRang(3), arbre->derniere);
    QVERIFY(!annuaire.DeRang(4));
    QCOMPARE(annuaire.RangDe(Trouve(*arbre, 7)), std::optional<std::size_t>(2));
    QVERIFY(!annuaire.RangDe(nullptr));
    const auto autre = ArbreDeNumeros({1, 3, 7});
    QVERIFY(!annuaire.RangDe(autre->derniere));
}

void TestAnnuaire::unNumeroMeneASaPersonne()
{
    const quint64 grand = quint64(1) << 63;
    const auto arbre = ArbreDeNumeros({1, 2, 5, grand, plusGrand});
    const Annuaire annuaire(*arbre);
    QCOMPARE(NumeroOuZero(annuaire.DeNumero(5)), 5U);
    QCOMPARE(NumeroOuZero(annuaire.DeNumero(grand)), grand);
    QCOMPARE(NumeroOuZero(annuaire.DeNumero(plusGrand)), plusGrand);
    QVERIFY(!annuaire.DeNumero(0));
    QVERIFY(!annuaire.DeNumero(4));
    QVERIFY(!annuaire.DeNumero(grand + 1));
}

void TestAnnuaire::lEnfantEstCeluiDuDessin_data()
{
    QTest::addColumn<std::function<void(Arbre &)>>("bricole");
    QTest::addColumn<quint64>("parent");
    QTest::addColumn<quint64>("enfant");
    using Bricole = std::function<void(Arbre &)>;
    const Bricole rien = [](Arbre &) {};
    QTest::newRow("père") << rien << quint64(6) << quint64(3);
    QTest::newRow("mère") << rien << quint64(7) << quint64(3);
    QTest::newRow("racine") << rien << quint64(1) << quint64(0);
    QTest::newRow("numéro de l'enfant perdu")
        << Bricole([](Arbre &arbre) { Trouve(arbre, 6)->enfant = 0; }) << quint64(6) << quint64(3);
    QTest::newRow("numéro d'un autre enfant")
        << Bricole([](Arbre &arbre) { Trouve(arbre, 6)->enfant = 2; }) << quint64(6) << quint64(3);
    QTest::newRow("lié à quelqu'un d'autre") << Bricole([](Arbre &arbre) {
        Trouve(arbre, 3)->ptrPere = nullptr;
        Trouve(arbre, 5)->ptrMere = Trouve(arbre, 6);
    }) << quint64(6) << quint64(5);
    QTest::newRow("lié à personne") << Bricole([](Arbre &arbre) { Trouve(arbre, 3)->ptrPere = nullptr; }) << quint64(6)
                                    << quint64(0);
    QTest::newRow("enfant en double") << Bricole([](Arbre &arbre) {
        // The first person of number 3 comes later in the list than an impostor.
        Trouve(arbre, 2)->numero = 3;
    }) << quint64(6) << quint64(3);
}

void TestAnnuaire::lEnfantEstCeluiDuDessin()
{
    QFETCH(const std::function<void(Arbre &)>, bricole);
    QFETCH(const quint64, parent);
    QFETCH(const quint64, enfant);
    const auto arbre = ArbreComplet(3);
    const Personne *personne = Trouve(*arbre, parent);
    bricole(*arbre);
    const Personne *trouve = Annuaire(*arbre).EnfantDe(*personne);
    QCOMPARE(NumeroOuZero(trouve), enfant);
    if (trouve)
        QVERIFY(trouve->ptrPere == personne || trouve->ptrMere == personne);
}

void TestAnnuaire::unNomSeCherche_data()
{
    QTest::addColumn<quint64>("depuis");
    QTest::addColumn<bool>("avecElle");
    QTest::addColumn<QString>("tape");
    QTest::addColumn<quint64>("attendu");
    const auto ligne = [](const char *nom, quint64 depuis, bool avecElle, const char *tape, quint64 attendu) {
        QTest::newRow(nom) << depuis << avecElle << tape << attendu;
    };
    ligne("du début", 0, false, "martin", 1);
    ligne("la suivante", 1, false, "martin", 2);
    ligne("elle-même", 1, true, "martin", 1);
    ligne("en passant par la fin", 4, false, "martin", 1);
    ligne("elle seule", 5, false, "le roy", 5);
    ligne("majuscules et accents tapés", 0, false, "LeFÈ", 3);
    ligne("accents non tapés", 0, false, "lefev", 3);
    ligne("accents tapés en trop", 0, false, "lêféb", 6);
    ligne("prénom", 0, false, "marg", 3);
    ligne("prénom puis nom", 0, false, "marcel mar", 4);
    ligne("nom puis prénom", 0, false, "martin j", 2);
    ligne("ligature", 0, false, "oed", 5);
    ligne("ligature tapée", 0, false, "œdile", 5);
    ligne("prénom composé", 0, false, "jean-m", 2);
    ligne("prénom composé avec un blanc", 0, false, "jean m", 2);
    ligne("nom en deux mots", 0, false, "LE R", 5);
    ligne("sans prénom", 0, false, "lefebvre", 6);
    ligne("sans nom", 0, false, "Mélanie", 7);
    ligne("le milieu d'un nom", 0, false, "artin", 0);
    ligne("deuxième prénom", 0, false, "marie", 0);
    ligne("plus long que le nom", 0, false, "martinet", 0);
    ligne("blanc après un nom seul", 0, false, "lefebvre ", 0);
    ligne("inconnu", 3, true, "zzz", 0);
}

void TestAnnuaire::unNomSeCherche()
{
    QFETCH(const quint64, depuis);
    QFETCH(const bool, avecElle);
    QFETCH(const QString, tape);
    QFETCH(const quint64, attendu);
    const auto arbre = Famille();
    const Annuaire annuaire(*arbre);
    QCOMPARE(NumeroOuZero(annuaire.Prochaine(Trouve(*arbre, depuis), avecElle, NomCherche(tape))), attendu);
}

void TestAnnuaire::unNumeroSeCherche_data()
{
    QTest::addColumn<quint64>("depuis");
    QTest::addColumn<bool>("avecElle");
    QTest::addColumn<QString>("tape");
    QTest::addColumn<quint64>("attendu");
    const auto ligne = [](const char *nom, quint64 depuis, bool avecElle, const char *tape, quint64 attendu) {
        QTest::newRow(nom) << depuis << avecElle << tape << attendu;
    };
    ligne("exact", 0, false, "13", 13);
    ligne("exact, derrière", 208, false, "13", 13);
    ligne("exact, elle-même", 13, false, "13", 13);
    ligne("début", 0, false, "20", 208);
    ligne("début, la suivante", 208, false, "20", 209);
    ligne("début, elle-même", 208, true, "20", 208);
    ligne("début, en passant par la fin", 209, false, "20", 208);
    ligne("plusieurs longueurs", 13, false, "10", 104);
    ligne("plus long", 104, false, "10", 1040);
    ligne("puis la plus courte", 1040, false, "10", 104);
    ligne("le plus grand", 0, false, "18446744073709551615", plusGrand);
    ligne("début du plus grand", 0, false, "184467440737", quint64(18446744073709551614ULL));
    ligne("trop grand", 0, false, "18446744073709551616", 0);
    ligne("bien trop grand", 0, false, "100000000000000000000000000", 0);
    ligne("personne", 0, false, "7", 0);
    ligne("zéro", 0, false, "0", 0);
    ligne("zéro devant", 0, false, "013", 0);
    ligne("rien", 0, false, "", 0);
    ligne("une lettre dedans", 0, false, "1a", 0);
    ligne("signe", 0, false, "+13", 0);
    ligne("milieu d'un numéro", 0, false, "08", 0);
}

void TestAnnuaire::unNumeroSeCherche()
{
    QFETCH(const quint64, depuis);
    QFETCH(const bool, avecElle);
    QFETCH(const QString, tape);
    QFETCH(const quint64, attendu);
    const auto arbre =
        ArbreDeNumeros({1, 3, 6, 13, 26, 52, 104, 208, 209, 520, 1040, plusGrand / 2, plusGrand - 1, plusGrand});
    const Annuaire annuaire(*arbre);
    QCOMPARE(NumeroOuZero(annuaire.Prochaine(Trouve(*arbre, depuis), avecElle, QStringView(tape))), attendu);
}

void TestAnnuaire::laRechercheEstCelleDuBalayage_data()
{
    QTest::addColumn<quint32>("graine");
    QTest::addColumn<bool>("abime");
    for (quint32 graine = 1; graine <= 12; ++graine)
        QTest::addRow("%s %u", graine % 2 == 0 ? "abîmé" : "sain", graine) << graine << (graine % 2 == 0);
}

void TestAnnuaire::laRechercheEstCelleDuBalayage()
{
    QFETCH(const quint32, graine);
    QFETCH(const bool, abime);
    std::mt19937 tirage(graine);
    const auto tire = [&tirage](int n) { return static_cast<int>(tirage() % static_cast<unsigned>(n)); };
    const QStringList mots{"",       "Anne",  "anne-marie", "Ann",      "É",    "Éa",    "D'Ar", "de",
                           "DUPONT", "Dupré", "DUP",        "LE FÈVRE", "œuf ", "Œuvre", "x1",   "???"};
    const auto arbre = ArbreAuHasard({.graine = graine, .personnes = 60, .chanceParent = 0.8});
    for (Personne *personne = arbre->premiere; personne; personne = personne->suivante) {
        personne->info->prenom = mots.at(tire(static_cast<int>(mots.size())));
        personne->info->nom = mots.at(tire(static_cast<int>(mots.size())));
        if (abime && tire(4) == 0)
            personne->numero = static_cast<quint64>(tire(40));
        if (abime && tire(8) == 0)
            delete std::exchange(personne->info, nullptr);
    }
    const Annuaire annuaire(*arbre);
    QList<Personne *> departs{nullptr};
    for (Personne *personne = arbre->premiere; personne; personne = personne->suivante)
        departs += personne;
    for (int essai = 0; essai < 400; ++essai) {
        const Personne *depuis = departs.at(tire(static_cast<int>(departs.size())));
        const bool avecElle = tire(2) == 0;
        const QString mot = mots.at(1 + tire(static_cast<int>(mots.size()) - 1));
        const QString tape = mot.first(1 + tire(static_cast<int>(mot.size())));
        const Personne *nommee =
            ParBalayage(*arbre, depuis, avecElle, [&tape](const Personne &une) { return ALeNom(une, tape); });
        QCOMPARE(annuaire.Prochaine(depuis, avecElle, NomCherche(tape)), nommee);

        const QString chiffres = QString::number(1 + tire(300));
        const auto exacte = [&](const Personne &une) { return QString::number(une.numero) == chiffres; };
        const auto debut = [&](const Personne &une) { return QString::number(une.numero).startsWith(chiffres); };
        const Personne *numerotee = ParBalayage(*arbre, nullptr, true, exacte);
        if (!numerotee)
            numerotee = ParBalayage(*arbre, depuis, avecElle, debut);
        QCOMPARE(annuaire.Prochaine(depuis, avecElle, QStringView(chiffres)), numerotee);
        if (depuis)
            QCOMPARE(annuaire.DeRang(annuaire.RangDe(depuis).value()), depuis);
    }
}

void TestAnnuaire::unChangementDeTexteSeTrouve()
{
    const auto arbre = Famille();
    const Personne *depuis = arbre->premiere;
    QVERIFY(!arbre->SonAnnuaire().Prochaine(depuis, true, NomCherche(u"zoé")));
    Nomme(*arbre, 5, "Zoé", "AUBRY");
    arbre->TextesChanges(*Trouve(*arbre, 5));
    QCOMPARE(NumeroOuZero(arbre->SonAnnuaire().Prochaine(depuis, true, NomCherche(u"zoé"))), 5U);
    QVERIFY(!arbre->SonAnnuaire().Prochaine(depuis, true, NomCherche(u"le roy")));
}

void TestAnnuaire::quiEntreOuSortSeTrouve()
{
    const auto arbre = ArbreDeNumeros({1, 2, 3});
    QCOMPARE(arbre->SonAnnuaire().Nombre(), 3U);
    Personne *ajoutee = arbre->AjoutePersonne(Trouve(*arbre, 3), false);
    QCOMPARE(arbre->SonAnnuaire().Nombre(), 4U);
    QCOMPARE(arbre->SonAnnuaire().DeNumero(7), ajoutee);
    QVERIFY(arbre->Selectionne(ajoutee));
    arbre->SupprimePersonne();
    QCOMPARE(arbre->SonAnnuaire().Nombre(), 3U);
    QVERIFY(!arbre->SonAnnuaire().DeNumero(7));
}

void TestAnnuaire::onEntreEtSortCommeSansAnnuaire_data()
{
    laRechercheEstCelleDuBalayage_data();
}

void TestAnnuaire::onEntreEtSortCommeSansAnnuaire()
{
    QFETCH(const quint32, graine);
    QFETCH(const bool, abime);
    std::mt19937 tirage(graine);
    const Hasard hasard{.graine = graine, .personnes = 30, .chanceParent = 0.7};
    const auto arbre = ArbreAuHasard(hasard);
    const auto sansAnnuaire = ArbreAuHasard(hasard);
    for (Personne *une = arbre->premiere, *autre = sansAnnuaire->premiere; abime && une;
         une = une->suivante, autre = autre->suivante) {
        if (tirage() % 4 == 0)
            une->numero = autre->numero = tirage() % 20;
    }
    const Annuaire &tenu = arbre->SonAnnuaire();
    for (int pas = 0; pas < 150; ++pas) {
        const std::mt19937 hasardDuPas(tirage());
        AjouteOuSupprime(*arbre, hasardDuPas);
        AjouteOuSupprime(*sansAnnuaire, hasardDuPas);
        QCOMPARE(ListeEtLiens(*arbre), ListeEtLiens(*sansAnnuaire));
        QCOMPARE(Reponses(tenu, *arbre), Reponses(Annuaire(*arbre), *arbre));
    }
}

RAMELIER_TEST_MAIN(QCoreApplication, TestAnnuaire)
#include "tst_annuaire.moc"
