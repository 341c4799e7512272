#include "arbre.h"
#include "arbres.h"
#include "disposition.h"
#include "environnement.h"
#include "formatsdessins.h"
#include "infopersonne.h"
#include "personne.h"

#include <QGuiApplication>

#include <limits>

namespace {

constexpr float echelle96 = 96 / 25.4F;

using Numeros = QList<quint64>;

/// A tree of these persons; those of \a photos have one. Nobody stands where a layout would put them.
std::unique_ptr<Arbre> ArbreDeplace(const Numeros &numeros, const Numeros &photos = {})
{
    auto arbre = ArbreDeNumeros(numeros);
    for (Personne *personne = arbre->premiere; personne; personne = personne->suivante) {
        personne->x = 4711;
        personne->y = -4711;
        if (photos.contains(personne->numero))
            personne->info->etatPhoto = InfoPersonne::PhotoChargee;
    }
    return arbre;
}

}  // namespace

class TestDisposition : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void aUnPixelParMillimetre_data();
    void aUnPixelParMillimetre();
    void aLEchelleDeLEcran_data();
    void aLEchelleDeLEcran();
    void reduiteALEchelleDeLEcran_data();
    void reduiteALEchelleDeLEcran();
    void chaqueAxeASonEchelle();
    void uneSecondeDispositionNeChangeRien();
    void toutEtatDePhotoVisibleElargit_data();
    void toutEtatDePhotoVisibleElargit();
    void unePersonneQuiNEstPasAfficheeGardeSaPlace();
    void unePersonneSansDonneesPrendUneLargeur();

    void uneSeulePersonneEstDansLeCoin_data();
    void uneSeulePersonneEstDansLeCoin();
    void leCompteDePersonnesNeDecideDeRien();
    void sansGenerationPersonneNeBouge();
    void sansPersonneRienNeSePasse();
    void desGenerationsEnTropLaissentDesRangsVides_data();
    void desGenerationsEnTropLaissentDesRangsVides();
    void leDecalageSeMesureDepuisLaPlaceVoulue();
    void desLongueursNullesOuNegatives_data();
    void desLongueursNullesOuNegatives();
    void desLongueursAbsurdesNeDebordentPas();
};

void TestDisposition::aUnPixelParMillimetre_data()
{
    QTest::addColumn<Numeros>("numeros");
    QTest::addColumn<Numeros>("photos");
    QTest::addColumn<QString>("positions");

    // Margins 15, rows every 57, a person takes 40, with a photo 70.
    const auto ligne = [](const char *nom, const Numeros &numeros, const Numeros &photos, const char *positions) {
        QTest::newRow(nom) << numeros << photos << QString::fromLatin1(positions);
    };
    ligne("racine", {1}, {}, "1:15,15");
    ligne("racine et photo", {1}, {1}, "1:15,15");
    ligne("père seul", {1, 2}, {}, "1:15,72 2:15,15");
    ligne("mère seule", {1, 3}, {}, "1:15,72 3:15,15");
    ligne("père et mère", {1, 2, 3}, {}, "1:35,72 2:15,15 3:55,15");
    ligne("photo du père", {1, 2, 3}, {2}, "1:50,72 2:15,15 3:85,15");
    ligne("photo de la mère, sans voisine", {1, 2, 3}, {3}, "1:35,72 2:15,15 3:55,15");
    ligne("photo de la racine", {1, 2, 3}, {1}, "1:35,72 2:15,15 3:55,15");
    ligne("trois générations", {1, 2, 3, 4, 5, 6, 7}, {}, "1:75,129 2:35,72 3:115,72 4:15,15 5:55,15 6:95,15 7:135,15");
    ligne("centré malgré une photo de grand-père", {1, 2, 3, 4, 5, 6, 7}, {5},
          "1:90,129 2:35,72 3:145,72 4:15,15 5:55,15 6:125,15 7:165,15");
    ligne("exactement sous le père", {1, 2, 3, 4, 6, 7}, {}, "1:45,129 2:15,72 3:75,72 4:15,15 6:55,15 7:95,15");
    ligne("exactement sous la mère", {1, 2, 3, 4, 5, 7}, {}, "1:65,129 2:35,72 3:95,72 4:15,15 5:55,15 7:95,15");
    // 2 has nobody above, so 3 and both her parents make room.
    ligne("poussée avec son père et sa mère", {1, 2, 3, 6, 7}, {}, "1:35,129 2:15,72 3:55,72 6:35,15 7:75,15");
    ligne("poussée plus loin par une photo", {1, 2, 3, 6, 7}, {2}, "1:50,129 2:15,72 3:85,72 6:65,15 7:105,15");
    ligne("toute l'ascendance suit", {1, 2, 3, 6, 7, 14, 15}, {},
          "1:35,186 2:15,129 3:55,129 6:35,72 7:75,72 14:55,15 15:95,15");
    ligne("la photo d'un ancêtre poussé", {1, 2, 3, 6, 7, 14, 15}, {6},
          "1:35,186 2:15,129 3:55,129 6:20,72 7:90,72 14:70,15 15:110,15");
    ligne("une génération de la lignée manque", {1, 4}, {}, "1:15,129 4:15,15");
    // The pushed ancestors of 7 push each other again, and everybody below is centred anew.
    ligne("une correction", {1, 2, 3, 5, 6, 7, 12, 14, 15, 29}, {},
          "1:50,243 2:15,186 3:85,186 5:15,129 6:55,129 7:115,129 12:55,72 14:95,72 15:135,72 29:95,15");
    ligne("deux corrections", {1, 2, 3, 4, 5, 6, 11, 12, 13, 24, 26, 27, 53}, {},
          "1:80,300 2:35,243 3:125,243 4:15,186 5:55,186 6:125,186 11:55,129 12:95,129 13:155,129 24:95,72 "
          "26:135,72 27:175,72 53:135,15");
    ligne("deux corrections et une photo qui n'y change rien", {1, 3, 6, 7, 12, 13, 15, 26, 30, 31, 60, 61, 62, 124},
          {1},
          "1:80,357 3:80,300 6:35,243 7:125,243 12:15,186 13:55,186 15:125,186 26:55,129 30:95,129 31:155,129 "
          "60:75,72 61:115,72 62:155,72 124:155,15");
}

void TestDisposition::aUnPixelParMillimetre()
{
    QFETCH(const Numeros, numeros);
    QFETCH(const Numeros, photos);
    const auto arbre = ArbreDeplace(numeros, photos);
    DisposeArbre(*arbre, FormatsDessins::ParDefaut(), 1.0F, 1.0F);
    QTEST(PositionsEnTexte(*arbre), "positions");
}

void TestDisposition::aLEchelleDeLEcran_data()
{
    QTest::addColumn<Numeros>("numeros");
    QTest::addColumn<Numeros>("photos");
    QTest::addColumn<QString>("positions");

    // Margins 56 (56.69), rows every 215 (215.43), a person takes 151 (151.18, not 113 + 37), with a photo 264.
    const auto ligne = [](const char *nom, const Numeros &numeros, const Numeros &photos, const char *positions) {
        QTest::newRow(nom) << numeros << photos << QString::fromLatin1(positions);
    };
    ligne("racine", {1}, {}, "1:56,56");
    ligne("père et mère, moyenne tronquée", {1, 2, 3}, {}, "1:131,271 2:56,56 3:207,56");
    ligne("photo du père", {1, 2, 3}, {2}, "1:188,271 2:56,56 3:320,56");
    ligne("poussée avec ses parents", {1, 2, 3, 6, 7}, {}, "1:131,486 2:56,271 3:207,271 6:132,56 7:283,56");
    ligne("trois générations", {1, 2, 3, 4, 5, 6, 7}, {},
          "1:282,486 2:131,271 3:433,271 4:56,56 5:207,56 6:358,56 7:509,56");
}

void TestDisposition::aLEchelleDeLEcran()
{
    QFETCH(const Numeros, numeros);
    QFETCH(const Numeros, photos);
    const auto arbre = ArbreDeplace(numeros, photos);
    DisposeArbre(*arbre, FormatsDessins::ParDefaut(), echelle96, echelle96);
    QTEST(PositionsEnTexte(*arbre), "positions");
}

void TestDisposition::reduiteALEchelleDeLEcran_data()
{
    QTest::addColumn<Numeros>("photos");
    QTest::addColumn<QString>("positions");

    // Margins 18 (18.90), rows every 79 (79.37), a person takes 98 (98.27), with a photo 192 (192.76).
    QTest::newRow("sans photo") << Numeros{} << QStringLiteral("1:67,97 2:18,18 3:116,18");
    QTest::newRow("une photo tient sa place") << Numeros{2} << QStringLiteral("1:114,97 2:18,18 3:210,18");
}

void TestDisposition::reduiteALEchelleDeLEcran()
{
    QFETCH(const Numeros, photos);
    const auto arbre = ArbreDeplace({1, 2, 3}, photos);
    DisposeArbre(*arbre, FormatsDessins::Reduits(), echelle96, echelle96);
    QTEST(PositionsEnTexte(*arbre), "positions");
}

void TestDisposition::chaqueAxeASonEchelle()
{
    const auto arbre = ArbreDeplace({1, 2, 3});
    DisposeArbre(*arbre, FormatsDessins::ParDefaut(), 1.0F, 2.0F);
    QCOMPARE(PositionsEnTexte(*arbre), QStringLiteral("1:35,144 2:15,30 3:55,30"));
}

void TestDisposition::uneSecondeDispositionNeChangeRien()
{
    const auto arbre = ArbreDeplace({1, 2, 3, 6, 7});
    const FormatsDessins formats = FormatsDessins::ParDefaut();
    DisposeArbre(*arbre, formats, 30.0F, 30.0F);
    DisposeArbre(*arbre, formats, 1.0F, 1.0F);
    QCOMPARE(PositionsEnTexte(*arbre), QStringLiteral("1:35,129 2:15,72 3:55,72 6:35,15 7:75,15"));
    DisposeArbre(*arbre, formats, 1.0F, 1.0F);
    QCOMPARE(PositionsEnTexte(*arbre), QStringLiteral("1:35,129 2:15,72 3:55,72 6:35,15 7:75,15"));
}

void TestDisposition::toutEtatDePhotoVisibleElargit_data()
{
    QTest::addColumn<int>("etat");
    QTest::addColumn<long>("xDeLaMere");

    QTest::newRow("pas encore essayée") << -1 << 55L;
    QTest::newRow("absente") << 0 << 55L;
    QTest::newRow("chargée") << 1 << 85L;
    QTest::newRow("à l'écran") << 2 << 85L;
    QTest::newRow("à l'impression") << 3 << 85L;
}

void TestDisposition::toutEtatDePhotoVisibleElargit()
{
    QFETCH(const int, etat);
    const auto arbre = ArbreDeplace({1, 2, 3});
    Trouve(*arbre, 2)->info->etatPhoto = etat;
    DisposeArbre(*arbre, FormatsDessins::ParDefaut(), 1.0F, 1.0F);
    QTEST(Trouve(*arbre, 3)->x, "xDeLaMere");
}

void TestDisposition::unePersonneQuiNEstPasAfficheeGardeSaPlace()
{
    const auto arbre = ArbreDeplace({1, 2, 3}, {2});
    Trouve(*arbre, 2)->affichable = false;
    DisposeArbre(*arbre, FormatsDessins::ParDefaut(), 1.0F, 1.0F);
    QCOMPARE(PositionsEnTexte(*arbre), QStringLiteral("1:50,72 2:15,15 3:85,15"));
}

void TestDisposition::unePersonneSansDonneesPrendUneLargeur()
{
    const auto arbre = ArbreDeplace({1, 2, 3}, {2});
    delete std::exchange(Trouve(*arbre, 2)->info, nullptr);
    DisposeArbre(*arbre, FormatsDessins::ParDefaut(), 1.0F, 1.0F);
    QCOMPARE(PositionsEnTexte(*arbre), QStringLiteral("1:35,72 2:15,15 3:55,15"));
}

void TestDisposition::uneSeulePersonneEstDansLeCoin_data()
{
    QTest::addColumn<int>("generation");
    QTest::addColumn<int>("generations");
    QTest::addColumn<quint64>("nombrePersonnes");

    QTest::newRow("comptes justes") << 0 << 1 << quint64(1);
    QTest::newRow("génération 1") << 1 << 1 << quint64(1);
    QTest::newRow("génération 1 et compte de personnes doublé") << 1 << 1 << quint64(2);
    QTest::newRow("compte de personnes nul") << 0 << 1 << quint64(0);
    QTest::newRow("aucune génération comptée") << 0 << 0 << quint64(1);
    QTest::newRow("trop de générations et de personnes comptées") << 0 << 7 << quint64(12);
}

void TestDisposition::uneSeulePersonneEstDansLeCoin()
{
    QFETCH(const int, generation);
    QFETCH(const int, generations);
    QFETCH(const quint64, nombrePersonnes);
    const auto arbre = ArbreDeplace({1});
    arbre->premiere->numerogeneration = static_cast<unsigned short>(generation);
    arbre->nombreGenerations = static_cast<unsigned short>(generations);
    arbre->nombrePersonnes = nombrePersonnes;
    DisposeArbre(*arbre, FormatsDessins::ParDefaut(), echelle96, 1.0F);
    QCOMPARE(PositionsEnTexte(*arbre), QStringLiteral("1:56,15"));
}

void TestDisposition::leCompteDePersonnesNeDecideDeRien()
{
    const auto arbre = ArbreDeplace({1, 2, 3});
    arbre->nombrePersonnes = 1;
    DisposeArbre(*arbre, FormatsDessins::ParDefaut(), 1.0F, 1.0F);
    QCOMPARE(PositionsEnTexte(*arbre), QStringLiteral("1:35,72 2:15,15 3:55,15"));
}

void TestDisposition::sansGenerationPersonneNeBouge()
{
    const auto arbre = ArbreDeplace({1, 2, 3});
    arbre->nombreGenerations = 0;
    DisposeArbre(*arbre, FormatsDessins::ParDefaut(), 1.0F, 1.0F);
    QCOMPARE(PositionsEnTexte(*arbre), QStringLiteral("1:4711,-4711 2:4711,-4711 3:4711,-4711"));
}

void TestDisposition::sansPersonneRienNeSePasse()
{
    Arbre arbre;
    DisposeArbre(arbre, FormatsDessins::ParDefaut(), 1.0F, 1.0F);
    arbre.nombreGenerations = 3;
    DisposeArbre(arbre, FormatsDessins::ParDefaut(), 1.0F, 1.0F);
    QCOMPARE(PositionsEnTexte(arbre), QString());
}

void TestDisposition::desGenerationsEnTropLaissentDesRangsVides_data()
{
    QTest::addColumn<int>("generations");
    QTest::addColumn<QString>("positions");

    QTest::newRow("une de trop") << 3 << QStringLiteral("1:35,129 2:15,72 3:55,72");
    QTest::newRow("deux de trop") << 4 << QStringLiteral("1:35,186 2:15,129 3:55,129");
    QTest::newRow("toutes") << 65535 << QStringLiteral("1:35,3735453 2:15,3735396 3:55,3735396");
}

void TestDisposition::desGenerationsEnTropLaissentDesRangsVides()
{
    QFETCH(const int, generations);
    const auto arbre = ArbreDeplace({1, 2, 3});
    arbre->nombreGenerations = static_cast<unsigned short>(generations);
    DisposeArbre(*arbre, FormatsDessins::ParDefaut(), 1.0F, 1.0F);
    QTEST(PositionsEnTexte(*arbre), "positions");
}

void TestDisposition::leDecalageSeMesureDepuisLaPlaceVoulue()
{
    // Left of the origin means are truncated to the right: (-21 + 20) / 2 is 0. So 3, moved by 20 with its parents,
    // finds itself one right of their mean; it stays, and the parents move by that one all the same.
    FormatsDessins formats = FormatsDessins::ParDefaut();
    formats.largeurCadre = 31;
    formats.margeGenerale = -21;
    const auto arbre = ArbreDeplace({1, 2, 3, 6, 7});
    DisposeArbre(*arbre, formats, 1.0F, 1.0F);
    QCOMPARE(PositionsEnTexte(*arbre), QStringLiteral("1:0,93 2:-21,36 3:20,36 6:0,-21 7:41,-21"));
}

void TestDisposition::desLongueursNullesOuNegatives_data()
{
    QTest::addColumn<int>("largeur");
    QTest::addColumn<int>("hauteur");
    QTest::addColumn<QString>("positions");

    // 10 between the boxes and 15 between the rows.
    QTest::newRow("largeur qui annule l'intervalle") << -10 << 42 << QStringLiteral("1:15,72 2:15,15 3:15,15");
    QTest::newRow("largeur négative") << -50 << 42 << QStringLiteral("1:15,72 2:35,15 3:-5,15");
    QTest::newRow("hauteur nulle") << 30 << 0 << QStringLiteral("1:35,30 2:15,15 3:55,15");
    QTest::newRow("hauteur négative") << 30 << -30 << QStringLiteral("1:35,0 2:15,15 3:55,15");
}

void TestDisposition::desLongueursNullesOuNegatives()
{
    QFETCH(const int, largeur);
    QFETCH(const int, hauteur);
    FormatsDessins formats = FormatsDessins::ParDefaut();
    formats.largeurCadre = largeur;
    formats.hauteurCadre = hauteur;
    const auto arbre = ArbreDeplace({1, 2, 3});
    DisposeArbre(*arbre, formats, 1.0F, 1.0F);
    QTEST(PositionsEnTexte(*arbre), "positions");
}

void TestDisposition::desLongueursAbsurdesNeDebordentPas()
{
    constexpr int plusGrand = std::numeric_limits<int>::max();
    FormatsDessins formats;
    formats.largeurCadre = plusGrand;
    formats.hauteurCadre = plusGrand;
    formats.distMinHoriz = plusGrand;
    formats.distMinVert = plusGrand;
    formats.margeGenerale = plusGrand;
    const auto arbre = ArbreComplet(8);
    DisposeArbre(*arbre, formats, 1000.0F, 1000.0F);
    QVERIFY(Trouve(*arbre, 2)->x < arbre->premiere->x);
    QVERIFY(arbre->premiere->x < Trouve(*arbre, 3)->x);
    QVERIFY(Trouve(*arbre, 254)->x < Trouve(*arbre, 255)->x);
    QVERIFY(arbre->derniere->y > 0);
    QVERIFY(arbre->derniere->y < arbre->premiere->y);
}

RAMELIER_TEST_MAIN(QGuiApplication, TestDisposition)
#include "tst_disposition.moc"
