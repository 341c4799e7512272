#include "bancechange.h"
#include "environnement.h"

#include <QCoreApplication>

#include <random>

/// A tree that is exported and imported again comes back the same.
class TestGedcomAllerRetour : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void unePetiteFamilleRevient();
    void desArbresAuHasardReviennent_data();
    void desArbresAuHasardReviennent();
    void lesPlusGrandsNumerosReviennent_data();
    void lesPlusGrandsNumerosReviennent();
    void uneSecondeExportationEcritLeMemeFichier();
    void ficheEtPhotoNeReviennentPas();
    void leDessusDUnePersonneSansNomEstPerdu();
    void horsDeLatin1DevientUnPointDInterrogation();
    void laQuestionNommeLesNumerosDeLArbre();

private:
    /// Exports \a arbre and imports that file again from the individual @I1@.
    static std::unique_ptr<Arbre> AllerRetour(BancEchange &banc, Arbre &arbre);
};

std::unique_ptr<Arbre> TestGedcomAllerRetour::AllerRetour(BancEchange &banc, Arbre &arbre)
{
    if (!banc.Exporte(arbre).endsWith("0 TRLR\r\n"))
        return std::make_unique<Arbre>();
    return banc.ImporteFichier(banc.Chemin(QStringLiteral("a.ged")), QStringLiteral("@I1@"));
}

void TestGedcomAllerRetour::unePetiteFamilleRevient()
{
    BancEchange banc;
    const auto arbre = ArbreDeNumeros({1, 2, 3, 5});
    *Trouve(*arbre, 1)->info = {"NOËL", "Luc", "1950", "Metz", "2001", "Brest", "Pâtre", "", "", -1};
    *Trouve(*arbre, 2)->info = {"NOËL", "Jean Éloi", "", "L'Haÿ", "", "", "Maçon, 20 % du temps", "", "", -1};
    *Trouve(*arbre, 3)->info = {"ROY", "", "vers 1925", "", "", "Caen (14)", "", "", "", -1};
    *Trouve(*arbre, 5)->info = {"", "Ève", "", "", "1999 ?", "", "Fée", "", "", -1};
    const auto revenu = AllerRetour(banc, *arbre);
    QCOMPARE(ToutEnTexte(*revenu),
             QStringLiteral("4 personnes, 3 générations, sélection 0, liste 1 2 3 5\n"
                            "1 g0 e0 p2 m3 -> p2 m3 NOËL|Luc|1950|Metz|2001|Brest|Pâtre|| photo -1\n"
                            "2 g1 e1 p0 m5 -> p0 m5 NOËL|Jean Éloi||L'Haÿ|||Maçon, 20 % du temps|| photo -1\n"
                            "3 g1 e1 p0 m0 -> p0 m0 ROY||vers 1925|||Caen (14)||| photo -1\n"
                            "5 g2 e2 p0 m0 -> p0 m0 |Ève|||1999 ?||Fée|| photo -1\n"));
}

void TestGedcomAllerRetour::desArbresAuHasardReviennent_data()
{
    QTest::addColumn<quint32>("graine");
    for (quint32 graine = 1; graine <= 100; ++graine)
        QTest::addRow("graine %u", graine) << graine;
}

void TestGedcomAllerRetour::desArbresAuHasardReviennent()
{
    QFETCH(quint32, graine);
    const auto arbre = ArbreAuHasard({graine, 120, 0.8});
    std::mt19937 tirage(graine);
    const auto texte = [&tirage](const QStringList &choix) {
        return tirage() % 3 == 0 ? QString() : choix.at(qsizetype(tirage() % size_t(choix.size())));
    };
    const QStringList dates{"1900", "3 MAR 1901", "vers 1850 ?", "12/03/1799", "An VII"};
    const QStringList lieux{"Metz", "L'Haÿ-les-Roses", "Saint-Étienne (42)", "Île d'Yeu, n° 3", "50 % \"là\""};
    for (Personne *personne = arbre->premiere; personne; personne = personne->suivante) {
        const QString prenom = texte({"Jean", "Anne-Marie", "Zoé ", "Ève @I1@", "É"});
        *personne->info = {"Ñ" + personne->info->nom,
                           prenom,
                           texte(dates),
                           texte(lieux),
                           texte(dates),
                           texte(lieux),
                           texte({"Maçon", "1 HUSB"}),
                           QString(),
                           QString(),
                           InfoPersonne::PhotoNonEssayee};
    }
    BancEchange banc;
    banc.reponses->masculine = graine % 2 == 0;
    const auto revenu = AllerRetour(banc, *arbre);
    QCOMPARE(ToutEnTexte(*revenu), ToutEnTexte(*arbre));
}

void TestGedcomAllerRetour::lesPlusGrandsNumerosReviennent_data()
{
    QTest::addColumn<quint64>("dernier");
    QTest::newRow("de père en père") << quint64(9223372036854775808ULL);
    QTest::newRow("de mère en mère") << quint64(18446744073709551615ULL);
    QTest::newRow("tantôt l'un, tantôt l'autre") << quint64(12297829382473034410ULL);
}

void TestGedcomAllerRetour::lesPlusGrandsNumerosReviennent()
{
    QFETCH(quint64, dernier);
    QList<quint64> numeros;
    for (quint64 numero = dernier; numero > 0; numero /= 2)
        numeros.prepend(numero);
    const auto arbre = ArbreDeNumeros(numeros);
    BancEchange banc;
    const auto revenu = AllerRetour(banc, *arbre);
    QCOMPARE(revenu->nombrePersonnes, 64U);
    QCOMPARE(revenu->derniere->numero, dernier);
    QCOMPARE(ToutEnTexte(*revenu), ToutEnTexte(*arbre));
}

void TestGedcomAllerRetour::uneSecondeExportationEcritLeMemeFichier()
{
    BancEchange banc;
    banc.reponses->masculine = false;
    const auto arbre = ArbreAuHasard({77, 60, 0.8});
    const auto revenu = AllerRetour(banc, *arbre);
    QByteArray premier;
    QByteArray second;
    QDate jour;
    do {  // again when midnight passed meanwhile
        premier = banc.Exporte(*arbre);
        jour = banc.jour;
        second = banc.Exporte(*revenu);
    } while (jour != banc.jour);
    QCOMPARE(second.split('\n'), premier.split('\n'));
    QVERIFY(premier.count("\r\n0 @I") > 20);
}

void TestGedcomAllerRetour::ficheEtPhotoNeReviennentPas()
{
    BancEchange banc;
    const auto arbre = ArbreDeNumeros({1});
    *arbre->premiere->info = {"DUPONT", "Jean", "1900", "Metz", "", "", "Notaire", "jean.html", "jean.png", 2};
    *arbre->infoArbre = {"Les DUPONT", "Zoé", "2001", "Luc", "2005"};
    const auto revenu = AllerRetour(banc, *arbre);
    QCOMPARE(ToutEnTexte(*revenu),
             QStringLiteral("1 personnes, 1 générations, sélection 0, liste 1\n"
                            "1 g0 e0 p0 m0 -> p0 m0 DUPONT|Jean|1900|Metz|||Notaire|| photo -1\n"));
    QCOMPARE(revenu->infoArbre->titrearbre, QString());
}

void TestGedcomAllerRetour::leDessusDUnePersonneSansNomEstPerdu()
{
    BancEchange banc;
    const auto arbre = ArbreDeNumeros({1, 2, 3, 4, 6, 7});
    Trouve(*arbre, 3)->info->nom.clear();
    const auto revenu = AllerRetour(banc, *arbre);
    QCOMPARE(ArbreEnTexte(*revenu), QStringLiteral("1 N1\n  2 N2\n    4 N4\n"));
}

void TestGedcomAllerRetour::horsDeLatin1DevientUnPointDInterrogation()
{
    BancEchange banc;
    const auto arbre = ArbreDeNumeros({1});
    *arbre->premiere->info = {"Šćepan", "Œdipe", "1900", "Łódź", "", "", "prêté 5 €", "", "", -1};
    const auto revenu = AllerRetour(banc, *arbre);
    QVERIFY(revenu->premiere);
    QCOMPARE(Textes(*revenu->premiere->info), QStringLiteral("??epan|?dipe|1900|?ód?|||prêté 5 ?|| photo -1"));
}

void TestGedcomAllerRetour::laQuestionNommeLesNumerosDeLArbre()
{
    BancEchange banc;
    const auto arbre = ArbreDeNumeros({1, 2, 3});
    *Trouve(*arbre, 2)->info = {"NOËL", "Jean", "1920", "Metz", "", "", "", "", "", -1};
    const auto revenu = AllerRetour(banc, *arbre);
    QCOMPARE(banc.messages.constLast(),
             QStringLiteral("racine|@I3@  N3 né(e) le  à |@I2@ Jean NOËL né(e) le 1920 à Metz|@I1@  N1 né(e) le  à "));
    QCOMPARE(NumerosEnTexte(*revenu), QStringLiteral("1 2 3"));
    // From an ancestor up: a smaller tree with its own numbers.
    const auto duPere = banc.ImporteFichier(banc.Chemin(QStringLiteral("a.ged")), QStringLiteral("@I2@"));
    QCOMPARE(ArbreEnTexte(*duPere), QStringLiteral("1 Jean NOËL\n"));
    // Everybody but the root is a spouse.
    const auto sansReponse = banc.ImporteFichier(banc.Chemin(QStringLiteral("a.ged")), {});
    QCOMPARE(NumerosEnTexte(*sansReponse), QStringLiteral("1 2 3"));
}

RAMELIER_TEST_MAIN(QCoreApplication, TestGedcomAllerRetour)
#include "tst_gedcom_aller_retour.moc"
