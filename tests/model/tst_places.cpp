#include "arbre.h"
#include "arbres.h"
#include "disposition.h"
#include "enregistreur.h"
#include "environnement.h"
#include "formatsdessins.h"
#include "infopersonne.h"
#include "lespolices.h"
#include "personne.h"

#include <QGuiApplication>
#include <QPainter>

#include <functional>
#include <random>

namespace {

constexpr float sx = 2.0F;
constexpr float sy = 2.0F;

struct Presentation
{
    FormatsDessins formats = FormatsDessins::ParDefaut();
    LesPolices polices = LesPolices::ParDefaut();
};

/// What is drawn when \a zone is exposed, in order.
QStringList Dessin(Arbre &arbre, const Presentation &presentation, const QRect &zone)
{
    Enregistreur dessin;
    QPainter peintre(&dessin);
    peintre.setClipRect(zone);
    arbre.Affiche(&peintre, sx, sy, false, presentation.formats, presentation.polices, true);
    return dessin.EnTexte();
}

/// What is seen in \a zone.
QImage Image(Arbre &arbre, const Presentation &presentation, const QRect &zone)
{
    QImage image(zone.size(), QImage::Format_RGB32);
    image.fill(Qt::white);
    QPainter peintre(&image);
    peintre.translate(-zone.topLeft());
    peintre.setClipRect(zone);
    arbre.Affiche(&peintre, sx, sy, false, presentation.formats, presentation.polices, true);
    return image;
}

/// The first person of the list whose box holds the point, by a walk along the list.
quint64 NumeroSous(const Arbre &arbre, const Presentation &presentation, QPoint point)
{
    for (const Personne *personne = arbre.premiere; personne; personne = personne->suivante) {
        if (personne->EstClique(point.x(), point.y(), sx, sy, presentation.formats))
            return personne->numero;
    }
    return 0;
}

/// Whom a click selects; nobody is selected then any more, so that no mark is drawn.
quint64 NumeroClique(Arbre &arbre, const Presentation &presentation, QPoint point)
{
    arbre.selection = nullptr;
    const bool change = arbre.DeselectSelect(point.x(), point.y(), sx, sy, presentation.formats);
    const quint64 numero = arbre.selection ? arbre.selection->numero : 0;
    if (arbre.selection)
        arbre.selection->selectionnee = false;
    return change == (numero != 0) ? numero : 999'999'999;
}

QRect Feuille(const Arbre &arbre)
{
    QRect feuille;
    for (const Personne *personne = arbre.premiere; personne; personne = personne->suivante)
        feuille |= QRect(static_cast<int>(personne->x), static_cast<int>(personne->y), 200, 200);
    return feuille;
}

/// Zones on and around boxes, the same on every machine.
QList<QRect> ZonesAuHasard(const Arbre &arbre, quint32 graine, int nombre)
{
    std::mt19937 hasard(graine);
    const auto entre = [&hasard](int mini, int maxi) {
        return mini + static_cast<int>(hasard() % static_cast<quint32>(maxi - mini + 1));
    };
    const QRect feuille = Feuille(arbre);
    QList<QRect> zones{QRect(feuille.topLeft(), feuille.size().boundedTo(QSize(3000, 2000)))};
    while (zones.size() < nombre) {
        zones += QRect(entre(feuille.left() - 50, feuille.right()), entre(feuille.top() - 50, feuille.bottom()),
                       entre(1, 1000), entre(1, 700));
    }
    return zones;
}

/// A third has no texts, some have long ones; photos stand beside some boxes.
void DonneDesTextes(Arbre &arbre, quint32 graine)
{
    std::mt19937 hasard(graine);
    for (Personne *personne = arbre.premiere; personne; personne = personne->suivante) {
        InfoPersonne &info = *personne->info;
        switch (hasard() % 60) {
        case 0:
            info.divers = QString(200, u'M');
            break;
        case 1:
            info.lieudeces = QStringLiteral("神聖羅馬帝國皇帝 神聖羅馬帝國皇帝");
            break;
        case 2:
            info.divers = QString(40, u'M').replace(u'M', QStringLiteral("M "));
            break;
        case 3:
            info.etatPhoto = InfoPersonne::PhotoChargee;
            info.photo = QImage(20, 30, QImage::Format_RGB32);
            break;
        case 4:
            delete std::exchange(personne->info, nullptr);
            break;
        default:
            if (hasard() % 3 == 0)
                info.nom.clear();
        }
    }
}

}  // namespace

/// A tree that knows where everybody stands draws and finds the same persons as one that walks along its list.
class TestPlaces : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void laMemeImageEtLesMemesClics_data();
    void laMemeImageEtLesMemesClics();
    void lesArbresMalFormesAussi_data();
    void lesArbresMalFormesAussi();
    void unTextePlusLongEstVuDeLoin_data();
    void unTextePlusLongEstVuDeLoin();
    void quiVientOuPartEstVu();
    void tousDeplacesTousDessines();
    void aucunLienAuDelaDeLaPremierePersonneDEnHaut();
    void uneAutrePresentationOublieLesTextesPeints();
    void quiNAtteintPasLaPartieExposeeNEstPasDessine();
    void quandUneDispositionNeChangeraitRien_data();
    void quandUneDispositionNeChangeraitRien();

private:
    static void Compare(Arbre &arbre, quint32 graine);
};

/// Fails where the tree with its places and without them differ.
void TestPlaces::Compare(Arbre &arbre, quint32 graine)
{
    const Presentation presentation;
    const QList<QRect> zones = ZonesAuHasard(arbre, graine, 25);
    QList<QImage> images;
    QList<quint64> cliques;
    for (const QRect &zone : zones) {
        images += Image(arbre, presentation, zone);
        for (const QPoint point : {zone.center(), zone.topLeft(), zone.bottomRight()})
            cliques += NumeroClique(arbre, presentation, point);
    }
    // By now the tree knows what the texts took.
    for (qsizetype i = 0; i < zones.size(); ++i)
        QCOMPARE(Image(arbre, presentation, zones.at(i)), images.at(i));
    arbre.OublieLesPlaces();
    for (const QRect &zone : zones) {
        QCOMPARE(images.takeFirst(), Image(arbre, presentation, zone));
        for (const QPoint point : {zone.center(), zone.topLeft(), zone.bottomRight()})
            QCOMPARE(cliques.takeFirst(), NumeroSous(arbre, presentation, point));
    }
}

void TestPlaces::laMemeImageEtLesMemesClics_data()
{
    // Up to 64 persons are looked at as one, and up to 64 such lots.
    QTest::addColumn<int>("personnes");
    QTest::addColumn<double>("chanceParent");
    QTest::newRow("une personne") << 1 << 1.0;
    QTest::newRow("une petite famille") << 7 << 1.0;
    QTest::newRow("64") << 64 << 1.0;
    QTest::newRow("65") << 65 << 1.0;
    QTest::newRow("127") << 127 << 1.0;
    QTest::newRow("cinq cents") << 500 << 0.8;
    QTest::newRow("cinq mille") << 5000 << 1.0;
    QTest::newRow("cinq mille, clairsemés") << 5000 << 0.9;
}

void TestPlaces::laMemeImageEtLesMemesClics()
{
    QFETCH(const int, personnes);
    QFETCH(const double, chanceParent);
    for (quint32 graine = 1; graine <= 4; ++graine) {
        const auto arbre = ArbreAuHasard({.graine = graine, .personnes = personnes, .chanceParent = chanceParent});
        DonneDesTextes(*arbre, graine);
        DisposeArbre(*arbre, Presentation().formats, sx, sy);
        Compare(*arbre, graine);
    }
}

void TestPlaces::lesArbresMalFormesAussi_data()
{
    QTest::addColumn<int>("defaut");
    QTest::newRow("une génération de trop") << 0;
    QTest::newRow("liens vers n'importe qui") << 1;
    QTest::newRow("places au hasard") << 2;
    QTest::newRow("générations au hasard") << 3;
    QTest::newRow("places à perte de vue") << 4;
}

void TestPlaces::lesArbresMalFormesAussi()
{
    QFETCH(const int, defaut);
    for (quint32 graine = 1; graine <= 10; ++graine) {
        const auto arbre = ArbreAuHasard(
            {.graine = graine, .personnes = 300, .chanceParent = 0.9, .generationsEnTrop = defaut == 0 ? 1 : 0});
        DisposeArbre(*arbre, Presentation().formats, sx, sy);
        std::mt19937 hasard(graine);
        for (Personne *personne = arbre->premiere; personne; personne = personne->suivante) {
            if (defaut == 1 && hasard() % 4 == 0)
                personne->ptrMere = Trouve(*arbre, 1 + hasard() % 40);
            if (defaut == 2) {
                personne->x = static_cast<long>(hasard() % 3000);
                personne->y = static_cast<long>(hasard() % 1000);
            }
            if (defaut == 3 && hasard() % 10 == 0)
                personne->numerogeneration = static_cast<unsigned short>(hasard() % 12);
            if (defaut == 4 && hasard() % 10 == 0)
                personne->x = 100'000'000'000'000'000L;
        }
        arbre->NoteLesPlaces();
        Compare(*arbre, graine);
    }
}

void TestPlaces::unTextePlusLongEstVuDeLoin_data()
{
    QTest::addColumn<int>("generations");
    QTest::addColumn<quint64>("numero");
    QTest::newRow("petit arbre") << 9 << quint64{300};
    // More persons than are looked at as one: who changes is among the first ones, or the last of his block far above.
    QTest::newRow("grand arbre, en bas") << 13 << quint64{3};
    QTest::newRow("grand arbre, en haut") << 13 << quint64{8063};
}

void TestPlaces::unTextePlusLongEstVuDeLoin()
{
    QFETCH(int, generations);
    QFETCH(quint64, numero);
    const auto arbre = ArbreComplet(generations);
    const Presentation presentation;
    DisposeArbre(*arbre, presentation.formats, sx, sy);
    Personne *personne = Trouve(*arbre, numero);
    const QRect zone(static_cast<int>(personne->x) + 900, static_cast<int>(personne->y), 100, 84);
    QVERIFY(!Dessin(*arbre, presentation, zone).join(u'\n').contains(QStringLiteral("MMM")));
    personne->info->nom = QString(300, u'M');
    arbre->TextesChanges(*personne);
    QVERIFY(Dessin(*arbre, presentation, zone).join(u'\n').contains(QStringLiteral("MMM")));
    // Without data there is nothing to measure.
    delete std::exchange(personne->info, nullptr);
    arbre->TextesChanges(*personne);
    QVERIFY(!Dessin(*arbre, presentation, zone).join(u'\n').contains(QStringLiteral("MMM")));
}

void TestPlaces::quiVientOuPartEstVu()
{
    const auto arbre = ArbreDeNumeros({1, 2, 3});
    const Presentation presentation;
    DisposeArbre(*arbre, presentation.formats, sx, sy);
    Personne *ajoutee = arbre->AjoutePersonne(Trouve(*arbre, 3), true);
    ajoutee->x = 2000;
    ajoutee->y = 500;
    QCOMPARE(NumeroClique(*arbre, presentation, QPoint(2010, 510)), 6U);
    QVERIFY(Dessin(*arbre, presentation, QRect(2000, 500, 60, 60)).contains(QStringLiteral("texte 6")));
    DisposeArbre(*arbre, presentation.formats, sx, sy);
    const QPoint dedans(static_cast<int>(ajoutee->x) + 5, static_cast<int>(ajoutee->y) + 5);
    QCOMPARE(NumeroClique(*arbre, presentation, dedans), 6U);
    arbre->selection = ajoutee;
    arbre->SupprimePersonne();
    QCOMPARE(NumerosEnTexte(*arbre), "1 2 3");
    QCOMPARE(NumeroClique(*arbre, presentation, dedans), 0U);
}

void TestPlaces::tousDeplacesTousDessines()
{
    const auto arbre = ArbreDeNumeros({1, 2});
    const Presentation presentation;
    DisposeArbre(*arbre, presentation.formats, sx, sy);
    arbre->OublieLesPlaces();
    for (Personne *personne = arbre->premiere; personne; personne = personne->suivante)
        personne->x += 3000;
    QCOMPARE(NumeroClique(*arbre, presentation,
                          QPoint(static_cast<int>(arbre->premiere->x) + 5, static_cast<int>(arbre->premiere->y) + 5)),
             1U);
}

void TestPlaces::aucunLienAuDelaDeLaPremierePersonneDEnHaut()
{
    // The count of generations is one too small: the walk of the links stops at the first person of what passes for the
    // top generation.
    const auto arbre = ArbreComplet(3);
    arbre->nombreGenerations = 2;
    const Presentation presentation;
    DisposeArbre(*arbre, presentation.formats, sx, sy);
    const QStringList dessin = Dessin(*arbre, presentation, QRect(-5000, -5000, 10000, 10000));
    QCOMPARE(dessin.filter(QStringLiteral("arc ")).size(), 4);
}

void TestPlaces::uneAutrePresentationOublieLesTextesPeints()
{
    const auto arbre = ArbreDeNumeros({1, 2});
    Presentation presentation;
    arbre->premiere->info->divers = QString(12, u'M').replace(u'M', QStringLiteral("Marie "));
    DisposeArbre(*arbre, presentation.formats, sx, sy);
    const QRect dessous(static_cast<int>(arbre->premiere->x), static_cast<int>(arbre->premiere->y) + 400, 100, 50);
    const QRect tout(-500, -500, 2000, 2000);
    QVERIFY(Dessin(*arbre, presentation, tout).contains(QStringLiteral("texte 1")));
    QCOMPARE(Dessin(*arbre, presentation, dessous), QStringList());
    presentation.polices.policeTextes = FaitPolice(QStringLiteral("Liberation Serif"), 40, 50);
    QVERIFY(Dessin(*arbre, presentation, dessous).join(u'\n').contains(QStringLiteral("Marie")));
}

void TestPlaces::quiNAtteintPasLaPartieExposeeNEstPasDessine()
{
    // Ten short words might take ten lines, and take four.
    const auto arbre = ArbreDeNumeros({1});
    const Presentation presentation;
    QString &remarque = arbre->premiere->info->divers;
    remarque = QStringLiteral("a b c d e f g h i j k l");
    arbre->premiere->x = 100;
    arbre->premiere->y = 100;
    arbre->NoteLesPlaces();
    const QRect dessous(100, 230, 60, 40);
    QCOMPARE(Dessin(*arbre, presentation, dessous), QStringList());
    // Measured once: what the texts take is remembered until they are said to have changed.
    remarque = QString(12, u'M').replace(u'M', QStringLiteral("Marie "));
    QCOMPARE(Dessin(*arbre, presentation, dessous), QStringList());
    arbre->TextesChanges(*arbre->premiere);
    QVERIFY(Dessin(*arbre, presentation, dessous).contains(QStringLiteral("texte 1")));
}

using Changement = std::function<void(Arbre &, Presentation &)>;

void TestPlaces::quandUneDispositionNeChangeraitRien_data()
{
    QTest::addColumn<Changement>("change");
    QTest::addColumn<bool>("estDispose");
    const auto ligne = [](const char *nom, bool estDispose, const Changement &change) {
        QTest::newRow(nom) << change << estDispose;
    };
    ligne("rien", true, [](Arbre &, Presentation &) {});
    ligne("un texte", true, [](Arbre &arbre, Presentation &) { arbre.premiere->info->nom = QStringLiteral("X"); });
    ligne("une couleur", true, [](Arbre &, Presentation &p) { p.formats.couleurTraits = Qt::red; });
    ligne("une photo préparée", true,
          [](Arbre &arbre, Presentation &) { Trouve(arbre, 2)->info->etatPhoto = InfoPersonne::PhotoPourEcran; });
    ligne("une photo de plus", false,
          [](Arbre &arbre, Presentation &) { Trouve(arbre, 3)->info->etatPhoto = InfoPersonne::PhotoChargee; });
    ligne("une photo de moins", false,
          [](Arbre &arbre, Presentation &) { Trouve(arbre, 2)->info->etatPhoto = InfoPersonne::PhotoAbsente; });
    ligne("une photo à un autre", false, [](Arbre &arbre, Presentation &) {
        std::swap(Trouve(arbre, 2)->info->etatPhoto, Trouve(arbre, 3)->info->etatPhoto);
    });
    ligne("la largeur des cadres", false, [](Arbre &, Presentation &p) { p.formats.largeurCadre += 1; });
    ligne("la hauteur des cadres", false, [](Arbre &, Presentation &p) { p.formats.hauteurCadre += 1; });
    ligne("la marge", false, [](Arbre &, Presentation &p) { p.formats.margeGenerale += 1; });
    ligne("l'écart", false, [](Arbre &, Presentation &p) { p.formats.distMinHoriz += 1; });
    ligne("une génération", false, [](Arbre &arbre, Presentation &) { ++arbre.nombreGenerations; });
    ligne("une personne de plus", false,
          [](Arbre &arbre, Presentation &) { arbre.AjoutePersonne(Trouve(arbre, 3), true); });
    ligne("une personne de moins", false, [](Arbre &arbre, Presentation &) {
        arbre.selection = Trouve(arbre, 3);
        arbre.SupprimePersonne();
    });
    ligne("liens retrouvés", false, [](Arbre &arbre, Presentation &) { arbre.DetermineLiensDeParente(); });
    ligne("places oubliées", false, [](Arbre &arbre, Presentation &) { arbre.OublieLesPlaces(); });
    ligne("places d'une autre main", false, [](Arbre &arbre, Presentation &) { arbre.NoteLesPlaces(); });
}

void TestPlaces::quandUneDispositionNeChangeraitRien()
{
    QFETCH(const Changement, change);
    QFETCH(const bool, estDispose);
    Presentation presentation;
    const auto arbre = ArbreDeNumeros({1, 2, 3});
    Trouve(*arbre, 2)->info->etatPhoto = InfoPersonne::PhotoChargee;
    QVERIFY(!EstDispose(*arbre, presentation.formats, sx, sy));
    DisposeArbre(*arbre, presentation.formats, sx, sy);
    QVERIFY(!EstDispose(*arbre, presentation.formats, 2 * sx, sy));
    change(*arbre, presentation);
    QCOMPARE(EstDispose(*arbre, presentation.formats, sx, sy), estDispose);
    DisposeArbre(*arbre, presentation.formats, sx, sy);
    QVERIFY(EstDispose(*arbre, presentation.formats, sx, sy));
}

RAMELIER_TEST_MAIN(QGuiApplication, TestPlaces)
#include "tst_places.moc"
