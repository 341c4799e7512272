#include "arbre.h"
#include "arbres.h"
#include "environnement.h"
#include "infopersonne.h"
#include "personne.h"
#include "pile.h"
#include "ramelierdoc.h"

#include <QApplication>
#include <QPainter>

namespace {

constexpr float echelle96 = 96 / 25.4F;

/// A document with this tree (it may be none), 1 px a millimetre: margins 15, boxes 30 x 42, gaps 10 and 15.
std::unique_ptr<RamelierDoc> DocumentAvec(std::unique_ptr<Arbre> arbre)
{
    auto document = std::make_unique<RamelierDoc>(QString());
    document->arbre = arbre.release();
    return document;
}

/// Puts the persons at these places, in list order.
void Place(const Arbre &arbre, const QList<QPoint> &places)
{
    auto place = places.begin();
    for (Personne *personne = arbre.premiere; personne; personne = personne->suivante, ++place) {
        personne->x = place->x();
        personne->y = place->y();
    }
}

}  // namespace

class TestCanevas : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();

    void laTailleDuDessin_data();
    void laTailleDuDessin();
    void laTailleApresLaDisposition();
    void chaqueLargeurEstConvertieAPart();
    void sansArbreRienNeChange();

    void leBlocALaPlusGrandeDesTroisLargeurs_data();
    void leBlocALaPlusGrandeDesTroisLargeurs();
    void leBlocALaDroiteDeLaRacine_data();
    void leBlocALaDroiteDeLaRacine();
    void leBlocCommenceApresLaPhotoDeLaRacine();
    void lesLignesSontEspaceesCommeLeTitre();
    void laHauteurNeGranditPasPourLeBloc();
    void unTitreVideDescendDUneLigneAChaqueFois();
    void sansTitreJamaisMesureRienNeDescend();
    void unArbreSansPersonneAUnTitreAuxMarges();

    void decalerToutDeplaceToutLeMonde();
    void decalerToutSansArbre();
    void decalerAncetresDeplaceChacunUneFois_data();
    void decalerAncetresDeplaceChacunUneFois();
    void decalerCentMillePeres_data();
    void decalerCentMillePeres();
    void laDispositionPrendLesFormatsDuDocument();

private:
    /// Measures at these scales on a device of 96 dots an inch.
    void Mesure(float sx, float sy);
    /// The rectangle that the text takes there.
    QSize Taille(const QFont &police, const QString &texte);

    QImage image{8, 8, QImage::Format_RGB32};
    std::unique_ptr<RamelierDoc> document;
};

void TestCanevas::init()
{
    image.setDotsPerMeterX(3780);
    image.setDotsPerMeterY(3780);
    document.reset();
}

void TestCanevas::Mesure(float sx, float sy)
{
    QPainter peintre(&image);
    document->CalcTailleCanevas(&peintre, sx, sy);
}

QSize TestCanevas::Taille(const QFont &police, const QString &texte)
{
    QPainter peintre(&image);
    peintre.setFont(police);
    return peintre.boundingRect(QRect(0, 0, 1, 1), Qt::AlignHCenter | Qt::AlignVCenter, texte).size();
}

void TestCanevas::laTailleDuDessin_data()
{
    QTest::addColumn<QList<QPoint>>("places");
    QTest::addColumn<QList<int>>("etatsPhotos");
    QTest::addColumn<long>("largeur");
    QTest::addColumn<long>("hauteur");

    const QList<int> sansPhoto{-1, -1, -1};
    QTest::newRow("trois cadres") << QList<QPoint>{{35, 72}, {15, 15}, {55, 15}} << sansPhoto << 100L << 129L;
    QTest::newRow("le plus à droite n'est pas le dernier")
        << QList<QPoint>{{35, 72}, {500, 15}, {55, 15}} << sansPhoto << 545L << 129L;
    QTest::newRow("une photo à droite") << QList<QPoint>{{35, 72}, {15, 15}, {55, 15}} << QList<int>{-1, -1, 1} << 130L
                                        << 129L;
    QTest::newRow("une photo qui dépasse sa voisine")
        << QList<QPoint>{{50, 72}, {15, 15}, {55, 15}} << QList<int>{2, -1, 0} << 125L << 129L;
    QTest::newRow("une photo qui ne dépasse pas")
        << QList<QPoint>{{35, 72}, {15, 15}, {55, 15}} << QList<int>{-1, 3, -1} << 100L << 129L;
    QTest::newRow("à gauche de l'origine") << QList<QPoint>{{35, 72}, {-20, 15}, {55, 15}} << sansPhoto << 120L << 129L;
    QTest::newRow("au-dessus de l'origine") << QList<QPoint>{{35, 72}, {15, -7}, {55, 15}} << sansPhoto << 100L << 136L;
    QTest::newRow("à l'origine") << QList<QPoint>{{0, 0}, {0, 0}, {0, 0}} << sansPhoto << 45L << 57L;
}

void TestCanevas::laTailleDuDessin()
{
    QFETCH(const QList<QPoint>, places);
    QFETCH(const QList<int>, etatsPhotos);
    document = DocumentAvec(ArbreDeNumeros({1, 2, 3}));
    Place(*document->arbre, places);
    for (int i = 0; i < 3; ++i)
        Trouve(*document->arbre, quint64(i + 1))->info->etatPhoto = etatsPhotos.at(i);
    document->arbre->derniere->affichable = false;
    QVERIFY(!document->canevasCalcule);
    Mesure(1.0F, 1.0F);
    QTEST(document->largeurCanevas, "largeur");
    QTEST(document->hauteurCanevas, "hauteur");
    QVERIFY(document->canevasCalcule);
}

void TestCanevas::laTailleApresLaDisposition()
{
    document = DocumentAvec(ArbreDeNumeros({1, 2, 3}));
    document->PositionneLesPersonnes(echelle96, echelle96);
    Mesure(echelle96, echelle96);
    // 207 + 113 (113.39) + 56 (56.69); 271 + 158 (158.74) + 56.
    QCOMPARE(document->largeurCanevas, 376L);
    QCOMPARE(document->hauteurCanevas, 485L);
}

void TestCanevas::chaqueLargeurEstConvertieAPart()
{
    // 33 mm are 124 px (124.72), so a box and its photo 248, while 66 mm would be 249 px.
    document = DocumentAvec(ArbreDeNumeros({1}));
    document->formats.largeurCadre = 33;
    document->arbre->premiere->info->etatPhoto = InfoPersonne::PhotoChargee;
    document->PositionneLesPersonnes(echelle96, 1.0F);
    Mesure(echelle96, 1.0F);
    QCOMPARE(document->largeurCanevas, 360L);
    QCOMPARE(document->hauteurCanevas, 72L);
}

void TestCanevas::sansArbreRienNeChange()
{
    document = DocumentAvec(nullptr);
    document->PositionneLesPersonnes(1.0F, 1.0F);
    Mesure(1.0F, 1.0F);
    QCOMPARE(document->largeurCanevas, 0L);
    QCOMPARE(document->hauteurCanevas, 0L);
}

void TestCanevas::leBlocALaPlusGrandeDesTroisLargeurs_data()
{
    QTest::addColumn<QStringList>("textes");  // title, author, date, author and date of the update
    QTest::addColumn<bool>("dansLaPoliceDuTitre");
    QTest::addColumn<QString>("plusLarge");

    const QString rien;
    const QString court = QStringLiteral("A");
    const QString longue = QStringLiteral("une ligne bien plus longue que toutes les autres du bloc");
    QTest::newRow("le titre") << QStringList{longue, rien, rien, rien, rien} << true << longue;
    QTest::newRow("la mise à jour, même vide")
        << QStringList{court, rien, rien, rien, rien} << false << QStringLiteral("Mise à jour - Auteur :  - Date : ");
    QTest::newRow("la création") << QStringList{court, longue, QStringLiteral("2004"), rien, rien} << false
                                 << QStringLiteral("Auteur : %1 - Date : 2004").arg(longue);
    QTest::newRow("la création sans auteur")
        << QStringList{court, rien, longue, rien, rien} << false << QStringLiteral("Auteur :  - Date : %1").arg(longue);
    QTest::newRow("la mise à jour") << QStringList{court, court, court, QStringLiteral("moi"), longue} << false
                                    << QStringLiteral("Mise à jour - Auteur : moi - Date : %1").arg(longue);
}

void TestCanevas::leBlocALaPlusGrandeDesTroisLargeurs()
{
    QFETCH(const QStringList, textes);
    QFETCH(const bool, dansLaPoliceDuTitre);
    QFETCH(const QString, plusLarge);
    document = DocumentAvec(ArbreDeNumeros({1}));
    *document->arbre->infoArbre = {textes.at(0), textes.at(1), textes.at(2), textes.at(3), textes.at(4)};
    document->PositionneLesPersonnes(1.0F, 1.0F);
    Mesure(1.0F, 1.0F);
    const LesPolices &polices = document->polices;
    const long bloc = Taille(dansLaPoliceDuTitre ? polices.policeTitre : polices.policeLegende, plusLarge).width();
    // The root ends at 45, the block begins after a gap of 10.
    QCOMPARE(document->xTitre, 55L);
    QCOMPARE(document->largeurCanevas, 70L + bloc);
}

void TestCanevas::leBlocALaDroiteDeLaRacine_data()
{
    QTest::addColumn<int>("reste");           // from the root's right edge to the canvas' edge, less the block's width
    QTest::addColumn<int>("xTitre");          // from the root's right edge
    QTest::addColumn<int>("agrandissement");  // of the canvas

    // The block may begin 10 right of the root and keeps 15 from the canvas' edge.
    QTest::newRow("bien trop étroit") << -50 << 10 << 75;
    QTest::newRow("juste trop étroit pour le bloc") << -1 << 10 << 26;
    QTest::newRow("le bloc sans marge") << 0 << 10 << 25;
    QTest::newRow("le bloc et sa marge, trop près de la racine") << 15 << 10 << 10;
    QTest::newRow("un pixel manque") << 24 << 10 << 1;
    QTest::newRow("juste assez") << 25 << 10 << 0;
    QTest::newRow("contre la marge de droite") << 26 << 11 << 0;
    QTest::newRow("loin à droite") << 1000 << 985 << 0;
}

void TestCanevas::leBlocALaDroiteDeLaRacine()
{
    QFETCH(const int, reste);
    QFETCH(const int, xTitre);
    QFETCH(const int, agrandissement);
    document = DocumentAvec(ArbreDeNumeros({1, 2, 3}));
    document->arbre->infoArbre->titrearbre = QStringLiteral("Les ancêtres de tous les rois de France et de Navarre");
    const int bloc = Taille(document->polices.policeTitre, document->arbre->infoArbre->titrearbre).width();
    // The root from 100 to 130; the mother ends a margin of 15 before the canvas does.
    const int largeur = 130 + bloc + reste;
    Place(*document->arbre, {{100, 500}, {15, 15}, {largeur - 45, 15}});
    Mesure(1.0F, 1.0F);
    QCOMPARE(document->xTitre, 130L + xTitre);
    QCOMPARE(document->largeurCanevas, long(largeur + agrandissement));
}

void TestCanevas::leBlocCommenceApresLaPhotoDeLaRacine()
{
    document = DocumentAvec(ArbreDeNumeros({1}));
    document->arbre->infoArbre->titrearbre = QStringLiteral("Un titre");
    document->arbre->premiere->info->etatPhoto = InfoPersonne::PhotoPourEcran;
    document->PositionneLesPersonnes(echelle96, echelle96);
    Mesure(echelle96, echelle96);
    // 56 + 2 x 113 + 37: each length converted by itself.
    QCOMPARE(document->xTitre, 319L);
}

void TestCanevas::lesLignesSontEspaceesCommeLeTitre()
{
    document = DocumentAvec(ArbreDeNumeros({1, 2, 3}));
    document->arbre->infoArbre->titrearbre = QStringLiteral("Un titre");
    document->polices.policeLegende.setPointSize(60);
    document->PositionneLesPersonnes(1.0F, 1.0F);
    Mesure(1.0F, 1.0F);
    const long ligne = Taille(document->polices.policeTitre, QStringLiteral("Un titre")).height();
    QVERIFY(ligne > 20);
    QCOMPARE(document->hauteurLigneTitre, ligne);
    QCOMPARE(document->yTitre, 72 + ligne);
    QCOMPARE(document->yLegende1, 72 + 2 * ligne);
    QCOMPARE(document->yLegende2, 72 + 3 * ligne);
}

void TestCanevas::laHauteurNeGranditPasPourLeBloc()
{
    document = DocumentAvec(ArbreDeNumeros({1}));
    document->arbre->infoArbre->titrearbre = QStringLiteral("Un titre");
    document->polices.policeTitre.setPointSize(100);
    document->PositionneLesPersonnes(1.0F, 1.0F);
    Mesure(1.0F, 1.0F);
    QCOMPARE(document->hauteurCanevas, 72L);
    QVERIFY(document->yLegende2 > 72);
}

void TestCanevas::unTitreVideDescendDUneLigneAChaqueFois()
{
    document = DocumentAvec(ArbreDeNumeros({1}));
    document->arbre->infoArbre->titrearbre = QStringLiteral("Un titre");
    document->PositionneLesPersonnes(1.0F, 1.0F);
    Mesure(1.0F, 1.0F);
    const long ligne = Taille(document->polices.policeTitre, QStringLiteral("Un titre")).height();
    QCOMPARE(document->yTitre, 15 + ligne);

    document->arbre->infoArbre->titrearbre.clear();
    document->arbre->infoArbre->creepar = QStringLiteral("quelqu'un dont le nom est plus large que toute la racine");
    for (int fois = 1; fois <= 3; ++fois) {
        document->canevasCalcule = false;
        Mesure(1.0F, 1.0F);
        QCOMPARE(document->yTitre, 15 + (1 + fois) * ligne);
        QCOMPARE(document->yLegende1, 15 + (2 + fois) * ligne);
        QCOMPARE(document->yLegende2, 15 + (3 + fois) * ligne);
        QCOMPARE(document->xTitre, 55L);
        QCOMPARE(document->hauteurLigneTitre, ligne);
        QCOMPARE(document->largeurCanevas, 60L);
        QCOMPARE(document->hauteurCanevas, 72L);
        QVERIFY(document->canevasCalcule);
    }
}

void TestCanevas::sansTitreJamaisMesureRienNeDescend()
{
    document = DocumentAvec(ArbreDeNumeros({1}));
    document->PositionneLesPersonnes(1.0F, 1.0F);
    Mesure(1.0F, 1.0F);
    Mesure(1.0F, 1.0F);
    QCOMPARE(document->yTitre, 0L);
    QCOMPARE(document->yLegende1, 0L);
    QCOMPARE(document->yLegende2, 0L);
    QCOMPARE(document->largeurCanevas, 60L);
}

void TestCanevas::unArbreSansPersonneAUnTitreAuxMarges()
{
    document = DocumentAvec(std::make_unique<Arbre>());
    document->PositionneLesPersonnes(1.0F, 2.0F);
    Mesure(1.0F, 2.0F);
    QCOMPARE(document->largeurCanevas, 15L);
    QCOMPARE(document->hauteurCanevas, 30L);

    document->arbre->infoArbre->titrearbre = QStringLiteral("Un titre sans personne");
    Mesure(1.0F, 2.0F);
    const QSize titre = Taille(document->polices.policeTitre, QStringLiteral("Un titre sans personne"));
    QCOMPARE(document->xTitre, 15L);
    QCOMPARE(document->yTitre, 30L + titre.height());
    QCOMPARE(document->largeurCanevas, 30L + titre.width());
    QCOMPARE(document->hauteurCanevas, 30L);
}

void TestCanevas::decalerToutDeplaceToutLeMonde()
{
    document = DocumentAvec(ArbreDeNumeros({1, 2, 3}));
    document->PositionneLesPersonnes(1.0F, 1.0F);
    document->xTitre = 1000;
    document->yTitre = 2000;
    document->yLegende1 = 2100;
    document->yLegende2 = 2200;
    document->largeurCanevas = 300;
    document->hauteurCanevas = 400;
    document->DecalerTout(-100, 7);
    QCOMPARE(PositionsEnTexte(*document->arbre), QStringLiteral("1:-65,79 2:-85,22 3:-45,22"));
    QCOMPARE(document->xTitre, 900L);
    QCOMPARE(document->yTitre, 2007L);
    QCOMPARE(document->yLegende1, 2107L);
    QCOMPARE(document->yLegende2, 2207L);
    QCOMPARE(document->largeurCanevas, 300L);
    QCOMPARE(document->hauteurCanevas, 400L);
    document->DecalerTout(100, -7);
    QCOMPARE(PositionsEnTexte(*document->arbre), QStringLiteral("1:35,72 2:15,15 3:55,15"));
}

void TestCanevas::decalerToutSansArbre()
{
    document = DocumentAvec(nullptr);
    document->DecalerTout(3, 5);
    QCOMPARE(document->xTitre, 3L);
    QCOMPARE(document->yLegende2, 5L);
}

void TestCanevas::decalerAncetresDeplaceChacunUneFois_data()
{
    QTest::addColumn<quint64>("numero");
    QTest::addColumn<QString>("positions");

    const auto ligne = [](quint64 numero, const char *positions) {
        QTest::addRow("de %llu", numero) << numero << QString::fromLatin1(positions);
    };
    ligne(1, "1:0,0 2:9,0 3:9,0 4:9,0 5:9,0 6:9,0 7:9,0 10:9,0 11:9,0 14:9,0 15:9,0");
    ligne(2, "1:0,0 2:0,0 3:0,0 4:9,0 5:9,0 6:0,0 7:0,0 10:9,0 11:9,0 14:0,0 15:0,0");
    ligne(3, "1:0,0 2:0,0 3:0,0 4:0,0 5:0,0 6:9,0 7:9,0 10:0,0 11:0,0 14:9,0 15:9,0");
    ligne(7, "1:0,0 2:0,0 3:0,0 4:0,0 5:0,0 6:0,0 7:0,0 10:0,0 11:0,0 14:9,0 15:9,0");
    ligne(15, "1:0,0 2:0,0 3:0,0 4:0,0 5:0,0 6:0,0 7:0,0 10:0,0 11:0,0 14:0,0 15:0,0");
}

void TestCanevas::decalerAncetresDeplaceChacunUneFois()
{
    QFETCH(const quint64, numero);
    document = DocumentAvec(ArbreDeNumeros({1, 2, 3, 4, 5, 6, 7, 10, 11, 14, 15}));
    document->DecalerAncetres(Trouve(*document->arbre, numero), 9);
    QTEST(PositionsEnTexte(*document->arbre), "positions");
}

void TestCanevas::decalerCentMillePeres_data()
{
    QTest::addColumn<bool>("peres");

    QTest::newRow("pères") << true;
    QTest::newRow("mères") << false;
}

void TestCanevas::decalerCentMillePeres()
{
    QFETCH(const bool, peres);
    auto arbre = std::make_unique<Arbre>();
    for (int i = 0; i <= 100'000; ++i) {
        auto *personne = new Personne(0);
        if (i > 0)
            (peres ? arbre->derniere->ptrPere : arbre->derniere->ptrMere) = personne;
        arbre->AjouteALaFin(personne);
    }
    document = DocumentAvec(std::move(arbre));
    // A quarter of a megabyte bears a few thousand calls, not a hundred thousand.
    SurUnePileDe(256 * 1024, [this] { document->DecalerAncetres(document->arbre->premiere, -5); });
    QCOMPARE(document->arbre->premiere->x, 0L);
    for (const Personne *personne = document->arbre->premiere->suivante; personne; personne = personne->suivante)
        QCOMPARE(personne->x, -5L);
}

void TestCanevas::laDispositionPrendLesFormatsDuDocument()
{
    document = DocumentAvec(ArbreDeNumeros({1, 2, 3}));
    document->PositionneLesPersonnes(1.0F, 1.0F);
    QCOMPARE(PositionsEnTexte(*document->arbre), QStringLiteral("1:35,72 2:15,15 3:55,15"));
    // The photo keeps its place in the reduced display, which does not draw it.
    document->optionsParArbre = false;
    document->initPolicesEtTraitsMini();
    Trouve(*document->arbre, 2)->info->etatPhoto = InfoPersonne::PhotoChargee;
    document->PositionneLesPersonnes(1.0F, 1.0F);
    QCOMPARE(PositionsEnTexte(*document->arbre), QStringLiteral("1:30,26 2:5,5 3:56,5"));
    Mesure(1.0F, 1.0F);
    QCOMPARE(document->largeurCanevas, 86L);
    QCOMPARE(document->hauteurCanevas, 46L);
}

RAMELIER_TEST_MAIN(QApplication, TestCanevas)
#include "tst_canevas.moc"
