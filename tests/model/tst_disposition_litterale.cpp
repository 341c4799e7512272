#include "arbre.h"
#include "arbres.h"
#include "disposition.h"
#include "dispositionrapide.h"
#include "environnement.h"
#include "formatsdessins.h"
#include "infopersonne.h"
#include "mesuresdisposition.h"
#include "personne.h"

#include <QGuiApplication>

#include <limits>
#include <random>

namespace {

/// The rules of the layout to the letter, pass by pass on the persons themselves: slow and plain.
class DispositionLitterale
{
public:
    DispositionLitterale(Arbre &aDisposer, const FormatsDessins &desFormats, float sx, float sy)
        : arbre(aDisposer)
        , formats(desFormats)
        , echelleX(sx)
        , echelleY(sy)
    {
    }

    void Execute()
    {
        if (arbre.premiere && !arbre.premiere->suivante) {
            arbre.premiere->x = EnPixels(formats.margeGenerale, echelleX);
            arbre.premiere->y = EnPixels(formats.margeGenerale, echelleY);
            return;
        }
        if (arbre.nombreGenerations == 0)
            return;
        bool aBouge = PremierePasse();
        while (aBouge) {
            aBouge = Correction();
            if (aBouge)
                ++corrections;
        }
    }

    int corrections = 0;    ///< passes that moved something after the first one
    int ecartsAGauche = 0;  ///< moves of ancestors measured from a place left of the person's own

private:
    static long EnPixels(long millimetres, float echelle)
    {
        return static_cast<long>(static_cast<float>(millimetres) * echelle);
    }

    long Largeur(const Personne &personne) const
    {
        const long k = personne.info && personne.info->etatPhoto > 0 ? 2 : 1;
        return EnPixels(k * formats.largeurCadre + formats.distMinHoriz, echelleX);
    }

    static long PlaceVoulue(const Personne &personne, long libre)
    {
        if (personne.ptrPere && personne.ptrMere)
            return (personne.ptrPere->x + personne.ptrMere->x) / 2;
        if (personne.ptrPere)
            return personne.ptrPere->x;
        if (personne.ptrMere)
            return personne.ptrMere->x;
        return libre;
    }

    static void DecaleAncetres(Personne &personne, long dx)
    {
        if (personne.ptrPere) {
            personne.ptrPere->x += dx;
            DecaleAncetres(*personne.ptrPere, dx);
        }
        for (Personne *mere = personne.ptrMere; mere; mere = mere->ptrMere) {
            mere->x += dx;
            if (mere->ptrPere) {
                mere->ptrPere->x += dx;
                DecaleAncetres(*mere->ptrPere, dx);
            }
        }
    }

    bool PremierePasse()
    {
        bool aBouge = false;
        long y = EnPixels(formats.margeGenerale, echelleY);
        for (int generation = arbre.nombreGenerations - 1; generation >= 0; --generation) {
            long libre = EnPixels(formats.margeGenerale, echelleX);
            for (Personne *personne = arbre.premiere; personne; personne = personne->suivante) {
                if (personne->numerogeneration < generation)
                    continue;
                if (personne->numerogeneration > generation)
                    break;
                const long voulue = PlaceVoulue(*personne, libre);
                if (libre > voulue) {
                    personne->x = libre;
                    DecaleAncetres(*personne, libre - voulue);
                    aBouge = true;
                } else {
                    personne->x = voulue;
                }
                personne->y = y;
                libre = personne->x + Largeur(*personne);
            }
            y += EnPixels(long(formats.hauteurCadre) + formats.distMinVert, echelleY);
        }
        return aBouge;
    }

    bool Correction()
    {
        bool aBouge = false;
        for (int generation = arbre.nombreGenerations - 1; generation >= 0; --generation) {
            long libre = EnPixels(formats.margeGenerale, echelleX);
            for (Personne *personne = arbre.premiere; personne; personne = personne->suivante) {
                if (personne->numerogeneration < generation)
                    continue;
                if (personne->numerogeneration > generation)
                    break;
                const long voulue = PlaceVoulue(*personne, libre);
                if (personne->x < voulue)
                    personne->x = voulue;
                if (libre > voulue) {
                    ecartsAGauche += personne->x > voulue ? 1 : 0;
                    personne->x = libre;
                    DecaleAncetres(*personne, libre - voulue);
                    aBouge = true;
                }
                libre = personne->x + Largeur(*personne);
            }
        }
        return aBouge;
    }

    Arbre &arbre;
    const FormatsDessins &formats;
    float echelleX;
    float echelleY;
};

/// How a tree grows.
enum class Croissance {
    ParGeneration,  ///< everybody has parents with the same chance
    Attaches,       ///< each new person is a parent of anybody who lacks one: the corrections last long
    EnLignes,       ///< long lines with few branches
    EnPeigne,       ///< one line as long as numbers go, a short one at each of its persons
    UneLigne,       ///< nobody has two parents
};

/// How the trees of a row are drawn by lot.
struct Tirage
{
    Croissance croissance = Croissance::ParGeneration;
    int arbres = 0;     ///< how many
    int plusPetit = 1;  ///< number of persons wished for
    int plusGrand = 200;
    double chancePhoto = 0;
    double chanceTrou = 0;      ///< of a person to be missing although its parents are there
    int generationsEnTrop = 0;  ///< at most; where negative, that many are not counted
    int marge = 15;             ///< mm, the general margin
    int largeurCadre = 0;       ///< pixels that a person takes in its row, a photo doubles them; 0: by lot too
};

/// What one lot gives: the numbers, the photos and the count of generations.
struct Lot
{
    QList<quint64> numeros;
    QList<bool> photos;
    int generationsEnTrop = 0;
    FormatsDessins formats;
    float echelleX = 1;
    float echelleY = 1;
};

QList<quint64> NumerosParGeneration(std::mt19937 &hasard, int voulues)
{
    const auto chance = [&hasard](double p) { return std::bernoulli_distribution(p)(hasard); };
    const double chanceParent = 0.01 * std::uniform_int_distribution<int>(50, 100)(hasard);
    QList<quint64> numeros{1};
    for (qsizetype i = 0; i < numeros.size() && numeros.size() < voulues; ++i) {
        if (numeros.at(i) >= quint64(1) << 62)
            continue;
        for (const quint64 parent : {2 * numeros.at(i), 2 * numeros.at(i) + 1}) {
            // The last one of the queue has a parent at least, so that lines do not die out too soon.
            if (chance(chanceParent) || i + 1 == numeros.size())
                numeros += parent;
        }
    }
    return numeros;
}

QList<quint64> NumerosAttaches(std::mt19937 &hasard, int voulues, Croissance croissance)
{
    QList<quint64> numeros{1};
    QList<quint64> places{2, 3};
    while (numeros.size() < voulues && !places.isEmpty()) {
        // At the end of the list stand the places of those who came last: lines grow there.
        const qsizetype derniers = croissance == Croissance::EnLignes ? std::min<qsizetype>(3, places.size()) : 0;
        const qsizetype premier = derniers > 0 ? places.size() - derniers : 0;
        const qsizetype rang = std::uniform_int_distribution<qsizetype>(premier, places.size() - 1)(hasard);
        const quint64 numero = places.takeAt(rang);
        numeros += numero;
        if (numero < quint64(1) << 62)
            places += {2 * numero, 2 * numero + 1};
    }
    std::sort(numeros.begin(), numeros.end());
    return numeros;
}

QList<quint64> NumerosEnLigne(std::mt19937 &hasard, int dents)
{
    constexpr quint64 plusGrandEnfant = quint64(1) << 62;
    const auto entre = [&hasard](int a, int b) { return std::uniform_int_distribution<int>(a, b)(hasard); };
    QList<quint64> numeros{1};
    for (quint64 numero = 1; numero < plusGrandEnfant;) {
        const quint64 parent = 2 * numero + static_cast<quint64>(entre(0, 1));
        quint64 dent = parent ^ 1;
        for (int reste = entre(0, dents); reste > 0 && dent < plusGrandEnfant; --reste) {
            numeros += dent;
            dent = 2 * dent + static_cast<quint64>(entre(0, 1));
        }
        numeros += parent;
        numero = parent;
    }
    std::sort(numeros.begin(), numeros.end());
    return numeros;
}

QList<quint64> Numeros(std::mt19937 &hasard, int voulues, Croissance croissance)
{
    switch (croissance) {
    case Croissance::ParGeneration:
        return NumerosParGeneration(hasard, voulues);
    case Croissance::EnPeigne:
        return NumerosEnLigne(hasard, 12);
    case Croissance::UneLigne:
        return NumerosEnLigne(hasard, 0);
    case Croissance::Attaches:
    case Croissance::EnLignes:
        break;
    }
    return NumerosAttaches(hasard, voulues, croissance);
}

Lot TireUnLot(const Tirage &tirage, quint32 graine)
{
    std::mt19937 hasard(graine);
    const auto entre = [&hasard](int a, int b) { return std::uniform_int_distribution<int>(a, b)(hasard); };
    const auto chance = [&hasard](double p) { return std::bernoulli_distribution(p)(hasard); };

    Lot lot;
    const int voulues = entre(tirage.plusPetit, tirage.plusGrand);
    for (const quint64 numero : Numeros(hasard, voulues, tirage.croissance)) {
        if (numero == 1 || !chance(tirage.chanceTrou)) {
            lot.numeros += numero;
            lot.photos += chance(tirage.chancePhoto);
        }
    }
    const int enTrop = tirage.generationsEnTrop;
    lot.generationsEnTrop = enTrop > 0 ? entre(1, enTrop) : enTrop;

    // Box width and height, gaps, margin: the two sets of the program and lengths of a user's own.
    switch (entre(0, 2)) {
    case 0:
        lot.formats = FormatsDessins::ParDefaut();
        break;
    case 1:
        lot.formats = FormatsDessins::Reduits();
        break;
    default:
        lot.formats.largeurCadre = entre(5, 120);
        lot.formats.hauteurCadre = entre(5, 120);
        lot.formats.distMinHoriz = entre(0, 40);
        lot.formats.distMinVert = entre(0, 40);
    }
    lot.formats.margeGenerale = tirage.marge;
    constexpr float echelles[] = {1.0F, 96 / 25.4F, 72 / 25.4F, 600 / 25.4F, 1200 / 25.4F, 0.3F, 1.7F};
    lot.echelleX = echelles[entre(0, 6)];
    lot.echelleY = echelles[entre(0, 6)];
    if (tirage.largeurCadre > 0) {
        lot.formats.largeurCadre = tirage.largeurCadre;
        lot.formats.distMinHoriz = 0;
        lot.echelleX = 1.0F;
    }
    return lot;
}

std::unique_ptr<Arbre> ArbreDuLot(const Lot &lot)
{
    auto arbre = ArbreDeNumeros(lot.numeros);
    const int comptees = std::max(0, arbre->nombreGenerations + lot.generationsEnTrop);
    arbre->nombreGenerations = static_cast<unsigned short>(comptees);
    qsizetype rang = 0;
    for (Personne *personne = arbre->premiere; personne; personne = personne->suivante, ++rang) {
        if (lot.photos.at(rang))
            personne->info->etatPhoto = InfoPersonne::PhotoChargee;
    }
    return arbre;
}

/// The first person whose two places differ, or nothing.
QString PremierEcart(const Arbre &arbre, const Arbre &attendu)
{
    const Personne *voulue = attendu.premiere;
    for (const Personne *personne = arbre.premiere; personne; personne = personne->suivante) {
        if (personne->x != voulue->x || personne->y != voulue->y) {
            return QStringLiteral("personne %1 : (%2, %3) au lieu de (%4, %5)")
                .arg(personne->numero)
                .arg(personne->x)
                .arg(personne->y)
                .arg(voulue->x)
                .arg(voulue->y);
        }
        voulue = voulue->suivante;
    }
    return {};
}

/// Every pass after the first one made in the same way.
enum class Corrections {
    ParHuit,  ///< where that is possible
    UneAUne,
};

void Dispose(Arbre &arbre, const Lot &lot, Corrections corrections)
{
    const MesuresDisposition mesures(lot.formats, lot.echelleX, lot.echelleY);
    DispositionRapide disposition(arbre, mesures);
    QVERIFY(disposition.EstBienFormee());
    disposition.Execute(corrections == Corrections::ParHuit ? 0 : std::numeric_limits<int>::max());
}

}  // namespace

/// The fast layout against the literal one, on random trees. A failure names its seed: the row and the seed replay it.
class TestDispositionLitterale : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void lesDeuxSAccordentSurUnExemple();
    void commeLesReglesALaLettre_data();
    void commeLesReglesALaLettre();
    void lesGrandsParHuitCommeUneAUne_data();
    void lesGrandsParHuitCommeUneAUne();
};

void TestDispositionLitterale::lesDeuxSAccordentSurUnExemple()
{
    const auto arbre = ArbreDeNumeros({1, 2, 3, 5, 6, 7, 12, 14, 15, 29});
    const FormatsDessins formats = FormatsDessins::ParDefaut();
    DispositionLitterale litterale(*arbre, formats, 1.0F, 1.0F);
    litterale.Execute();
    QCOMPARE(PositionsEnTexte(*arbre),
             QStringLiteral("1:50,243 2:15,186 3:85,186 5:15,129 6:55,129 7:115,129 "
                            "12:55,72 14:95,72 15:135,72 29:95,15"));
    QCOMPARE(litterale.corrections, 1);
}

void TestDispositionLitterale::commeLesReglesALaLettre_data()
{
    QTest::addColumn<Tirage>("tirage");
    QTest::addColumn<int>("arbresCorriges");  // at least, where a correction moved somebody
    QTest::addColumn<int>("ecartsAGauche");   // at least

    QTest::newRow("petits") << Tirage{.arbres = 3000, .plusGrand = 30} << 20 << 0;
    QTest::newRow("moyens") << Tirage{.arbres = 2500, .plusPetit = 30} << 500 << 0;
    QTest::newRow("photos") << Tirage{.arbres = 2000, .chancePhoto = 0.3} << 300 << 0;
    QTest::newRow("trous") << Tirage{.arbres = 1500, .chancePhoto = 0.1, .chanceTrou = 0.15} << 100 << 0;
    QTest::newRow("générations en trop")
        << Tirage{.arbres = 1000, .plusGrand = 120, .chancePhoto = 0.1, .generationsEnTrop = 9} << 100 << 0;
    QTest::newRow("générations non comptées")
        << Tirage{.arbres = 500, .plusPetit = 10, .plusGrand = 100, .generationsEnTrop = -2} << 50 << 0;
    QTest::newRow("marge négative") << Tirage{.arbres = 1000, .plusGrand = 120, .chancePhoto = 0.2, .marge = -77} << 100
                                    << 5;
    QTest::newRow("attachés") << Tirage{.croissance = Croissance::Attaches, .arbres = 1500, .chancePhoto = 0.1} << 1000
                              << 0;
    QTest::newRow("attachés, avec trous")
        << Tirage{.croissance = Croissance::Attaches, .arbres = 500, .chancePhoto = 0.1, .chanceTrou = 0.1} << 200 << 0;
    QTest::newRow("attachés, une photo sur deux")
        << Tirage{.croissance = Croissance::Attaches, .arbres = 1000, .chancePhoto = 0.5} << 700 << 0;
    QTest::newRow("petits attachés")
        << Tirage{.croissance = Croissance::Attaches, .arbres = 4000, .plusGrand = 40, .chancePhoto = 0.2} << 1000 << 0;
    QTest::newRow("attachés, beaucoup de trous")
        << Tirage{.croissance = Croissance::Attaches, .arbres = 500, .plusGrand = 400, .chanceTrou = 0.4} << 200 << 0;
    QTest::newRow("attachés sans marge") << Tirage{.croissance = Croissance::Attaches, .arbres = 500, .marge = 0} << 300
                                         << 0;
    QTest::newRow("une ligne") << Tirage{.croissance = Croissance::UneLigne, .arbres = 100, .chancePhoto = 0.2} << 0
                               << 0;
    QTest::newRow("peignes") << Tirage{.croissance = Croissance::EnPeigne, .arbres = 600, .chancePhoto = 0.2} << 300
                             << 0;
    QTest::newRow("longues lignes") << Tirage{.croissance = Croissance::EnLignes,
                                              .arbres = 150,
                                              .plusPetit = 300,
                                              .plusGrand = 900,
                                              .chancePhoto = 0.2}
                                    << 20 << 0;
    // Some of them outgrow 32 bits at once, some on the way, some never.
    QTest::newRow("attachés géants") << Tirage{.croissance = Croissance::Attaches,
                                               .arbres = 12,
                                               .plusPetit = 500,
                                               .plusGrand = 3000,
                                               .chancePhoto = 0.5,
                                               .largeurCadre = 500'000}
                                     << 12 << 0;
    QTest::newRow("lignes") << Tirage{.croissance = Croissance::EnLignes, .arbres = 1000, .chancePhoto = 0.1} << 30
                            << 0;
    QTest::newRow("grands attachés") << Tirage{.croissance = Croissance::Attaches,
                                               .arbres = 15,
                                               .plusPetit = 2000,
                                               .plusGrand = 5000,
                                               .chancePhoto = 0.05}
                                     << 12 << 0;
    QTest::newRow("grands") << Tirage{.arbres = 60, .plusPetit = 500, .plusGrand = 1000, .chancePhoto = 0.1} << 40 << 0;
}

void TestDispositionLitterale::commeLesReglesALaLettre()
{
    QFETCH(const Tirage, tirage);
    QFETCH(const int, arbresCorriges);
    QFETCH(const int, ecartsAGauche);
    int corriges = 0;
    int ecarts = 0;
    for (quint32 graine = 1; graine <= static_cast<quint32>(tirage.arbres); ++graine) {
        const Lot lot = TireUnLot(tirage, graine);
        const auto attendu = ArbreDuLot(lot);
        DispositionLitterale litterale(*attendu, lot.formats, lot.echelleX, lot.echelleY);
        litterale.Execute();
        corriges += litterale.corrections >= 1 ? 1 : 0;
        ecarts += litterale.ecartsAGauche;

        const auto arbre = ArbreDuLot(lot);
        // What is not drawn takes its place all the same.
        arbre->derniere->affichable = false;
        DisposeArbre(*arbre, lot.formats, lot.echelleX, lot.echelleY);
        const QString ecart = PremierEcart(*arbre, *attendu);
        QVERIFY2(ecart.isEmpty(), qPrintable(QStringLiteral("graine %1, %2").arg(graine).arg(ecart)));

        // A person alone, and generations that are not counted, are others' work.
        if (!arbre->premiere->suivante || tirage.generationsEnTrop < 0)
            continue;
        for (const Corrections corrections : {Corrections::ParHuit, Corrections::UneAUne}) {
            Dispose(*arbre, lot, corrections);
            const QString autreEcart = PremierEcart(*arbre, *attendu);
            QVERIFY2(autreEcart.isEmpty(),
                     qPrintable(QStringLiteral("graine %1, corrections %2, %3")
                                    .arg(graine)
                                    .arg(static_cast<int>(corrections))
                                    .arg(autreEcart)));
        }
    }
    // Trees that come to rest at once would compare little.
    QVERIFY2(corriges >= arbresCorriges, qPrintable(QString::number(corriges)));
    QVERIFY2(ecarts >= ecartsAGauche, qPrintable(QString::number(ecarts)));
}

void TestDispositionLitterale::lesGrandsParHuitCommeUneAUne_data()
{
    QTest::addColumn<Tirage>("tirage");

    Tirage tirage{.croissance = Croissance::Attaches, .plusPetit = 15'000, .plusGrand = 20'000};
    QTest::newRow("attachés") << tirage;
    tirage.chancePhoto = 0.3;
    QTest::newRow("photos") << tirage;
    tirage.chanceTrou = 0.02;
    QTest::newRow("photos et trous") << tirage;
    tirage.chanceTrou = 0;
    tirage.croissance = Croissance::ParGeneration;
    QTest::newRow("par génération") << tirage;
}

void TestDispositionLitterale::lesGrandsParHuitCommeUneAUne()
{
    QFETCH(const Tirage, tirage);
    const Lot lot = TireUnLot(tirage, 1);
    const auto arbre = ArbreDuLot(lot);
    Dispose(*arbre, lot, Corrections::ParHuit);
    const auto attendu = ArbreDuLot(lot);
    Dispose(*attendu, lot, Corrections::UneAUne);
    QVERIFY(attendu->premiere->x > 0);
    QCOMPARE(PremierEcart(*arbre, *attendu), QString());
}

RAMELIER_TEST_MAIN(QGuiApplication, TestDispositionLitterale)
#include "tst_disposition_litterale.moc"
