#include "arbre.h"
#include "arbres.h"
#include "disposition.h"
#include "environnement.h"
#include "formatsdessins.h"
#include "infopersonne.h"
#include "lespolices.h"
#include "personne.h"

#include <QGuiApplication>
#include <QPainter>

namespace {

constexpr float echelle = 4.0F;

/// Pixels of \a zone that hold \a couleur; every pixel that is not white when no colour is given.
int Compte(const QImage &image, const QRect &zone, const QColor &couleur = QColor())
{
    int nombre = 0;
    for (int y = zone.top(); y <= zone.bottom(); ++y) {
        for (int x = zone.left(); x <= zone.right(); ++x) {
            const QColor pixel = image.pixelColor(x, y);
            if (couleur.isValid() ? pixel == couleur : pixel != QColor(Qt::white))
                ++nombre;
        }
    }
    return nombre;
}

QImage Feuille(QSize taille)
{
    QImage feuille(taille, QImage::Format_RGB32);
    feuille.fill(Qt::white);
    return feuille;
}

/// How dark \a texte is in this font.
int EncreDe(const QString &texte, QFont::Weight poids)
{
    QImage feuille = Feuille(QSize(200, 40));
    QPainter peintre(&feuille);
    peintre.setFont(QFont(QStringLiteral("Helvetica"), 8, poids));
    peintre.drawText(QRect(0, 0, 200, 40), Qt::AlignHCenter, texte);
    peintre.end();
    return Compte(feuille, feuille.rect());
}

}  // namespace

/// Father, mother and root at 4 pixels per millimetre with the default formats and grey texts: boxes of 120 x 168 at
/// (60, 60), (220, 60) and (140, 288).
class TestDessinImage : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup() { arbre.reset(); }

    void chaquePointALaCouleurAttendue_data();
    void chaquePointALaCouleurAttendue();
    void leNumeroEtLeNomOntDeLEncre();
    void leNomEstPlusGrasQueLesDates();
    void laSelectionLaisseSonMilieuLibre();
    void laSelectionNeSImprimePas();
    void laSelectionSEffaceSansReste();
    void laPhotoEstACoteDuCadre();
    void leModeReduitNAPasDeCadre();
    void unePersonneNonAffichableLaisseSaPlaceBlanche();

private:
    [[nodiscard]] QImage Dessine(bool impression = false, bool arbreOuvert = true);

    FormatsDessins formats;
    LesPolices polices;
    std::unique_ptr<Arbre> arbre;
};

void TestDessinImage::init()
{
    formats = FormatsDessins::ParDefaut();
    polices = LesPolices::ParDefaut();
    polices.couleurCaracteres = Qt::darkGray;
    arbre = ArbreDeNumeros({1, 2, 3});
    DisposeArbre(*arbre, formats, echelle, echelle);
}

QImage TestDessinImage::Dessine(bool impression, bool arbreOuvert)
{
    QImage feuille = Feuille(QSize(520, 520));
    QPainter peintre(&feuille);
    arbre->Affiche(&peintre, echelle, echelle, impression, formats, polices, arbreOuvert);
    return feuille;
}

void TestDessinImage::chaquePointALaCouleurAttendue_data()
{
    QTest::addColumn<QPoint>("point");
    QTest::addColumn<bool>("noir");
    const auto point = [](const char *nom, int x, int y, bool noir) { QTest::newRow(nom) << QPoint(x, y) << noir; };
    point("bord haut du père", 90, 60, true);
    point("bord gauche du père", 60, 144, true);
    point("bord droit du père", 180, 144, true);
    point("bord bas du père", 90, 228, true);
    point("coin arrondi du père", 60, 60, false);
    point("coin arrondi bas du père", 180, 228, false);
    point("dans l'arrondi du père", 64, 65, true);
    point("dans le père", 75, 200, false);
    point("au-dessus du père", 90, 55, false);
    point("bord gauche de la mère", 220, 144, true);
    point("bord droit de la mère", 340, 144, true);
    point("bord haut de la racine", 170, 288, true);
    point("bord bas de la racine", 200, 456, true);
    point("sous la racine", 200, 462, false);
    point("entre père et mère", 200, 144, false);
    point("descente du père", 120, 240, true);
    point("à côté de la descente", 115, 240, false);
    point("arc du père", 123, 253, true);
    point("coin de l'arc du père", 119, 257, false);
    point("traverse du père", 150, 256, true);
    point("sous la traverse", 150, 262, false);
    point("arc vers la racine, à gauche", 197, 259, true);
    point("arc vers la racine, à droite", 203, 259, true);
    point("entre les deux arcs", 200, 253, false);
    point("descente vers la racine", 200, 275, true);
    point("traverse de la mère", 250, 256, true);
    point("arc de la mère", 277, 253, true);
    point("coin de l'arc de la mère", 282, 259, false);
    point("descente de la mère", 280, 240, true);
}

void TestDessinImage::chaquePointALaCouleurAttendue()
{
    QFETCH(QPoint, point);
    QFETCH(bool, noir);
    QCOMPARE(Dessine().pixelColor(point), QColor(noir ? Qt::black : Qt::white));
}

void TestDessinImage::leNumeroEtLeNomOntDeLEncre()
{
    const QImage image = Dessine();
    const QRect numero(180, 293, 40, 20);
    const QRect nom(180, 314, 40, 12);
    QVERIFY(Compte(image, numero) > 20);
    QVERIFY(Compte(image, nom) > 20);
    QVERIFY(Compte(image, QRect(145, 293, 30, 30)) == 0);
    QVERIFY(Compte(image, QRect(150, 335, 100, 110)) == 0);
}

void TestDessinImage::leNomEstPlusGrasQueLesDates()
{
    const QString nom = QStringLiteral("HILDEGARDE");
    arbre->premiere->info->nom = nom;
    const int encre = Compte(Dessine(), QRect(150, 312, 100, 18));
    const int gras = EncreDe(nom, QFont::Bold);
    // Letters fall on other fractions of pixels here and there.
    QVERIFY2(qAbs(encre - gras) * 20 < gras, qPrintable(QStringLiteral("%1 pour %2").arg(encre).arg(gras)));
    QVERIFY(encre > EncreDe(nom, QFont::Normal) * 11 / 10);
}

void TestDessinImage::laSelectionLaisseSonMilieuLibre()
{
    arbre->premiere->selectionnee = true;
    const QImage image = Dessine();
    const QColor bleu(Qt::blue);
    // The mark runs from (137, 285) to (262, 458).
    QVERIFY(Compte(image, QRect(137, 283, 41, 3), bleu) > 30);
    QCOMPARE(Compte(image, QRect(182, 283, 36, 4), bleu), 0);
    QVERIFY(Compte(image, QRect(221, 283, 41, 3), bleu) > 30);
    QVERIFY(Compte(image, QRect(135, 290, 4, 160), bleu) > 100);
    QVERIFY(Compte(image, QRect(260, 290, 4, 160), bleu) > 100);
    QVERIFY(Compte(image, QRect(140, 456, 120, 4), bleu) > 100);
    // Nobody else is marked.
    QCOMPARE(Compte(image, QRect(0, 0, 520, 280), bleu), 0);
}

void TestDessinImage::laSelectionNeSImprimePas()
{
    const QImage sansSelection = Dessine(true);
    arbre->premiere->selectionnee = true;
    QCOMPARE(Dessine(true), sansSelection);
}

void TestDessinImage::laSelectionSEffaceSansReste()
{
    QImage feuille = Feuille(QSize(520, 520));
    QPainter peintre(&feuille);
    arbre->premiere->TraceSelection(&peintre, echelle, echelle, true, formats);
    QVERIFY(Compte(feuille, feuille.rect()) > 500);
    arbre->premiere->TraceSelection(&peintre, echelle, echelle, false, formats);
    QCOMPARE(Compte(feuille, feuille.rect()), 0);
}

void TestDessinImage::laPhotoEstACoteDuCadre()
{
    Personne &racine = *arbre->premiere;
    racine.info->photo = QImage(60, 60, QImage::Format_RGB32);
    racine.info->photo.fill(Qt::red);
    racine.info->etatPhoto = InfoPersonne::PhotoChargee;
    const QImage image = Dessine();
    QCOMPARE(Compte(image, QRect(268, 288, 120, 120), QColor(Qt::red)), 120 * 120);
    QCOMPARE(Compte(image, image.rect(), QColor(Qt::red)), 120 * 120);
}

void TestDessinImage::leModeReduitNAPasDeCadre()
{
    const QImage image = Dessine(false, false);
    QVERIFY(Compte(image, QRect(180, 290, 40, 40)) > 40);
    QCOMPARE(Compte(image, QRect(130, 290, 45, 180)), 0);
    QCOMPARE(Compte(image, QRect(130, 440, 140, 40)), 0);
    QCOMPARE(image.pixelColor(120, 240), QColor(Qt::black));
    QCOMPARE(image.pixelColor(200, 275), QColor(Qt::black));
}

void TestDessinImage::unePersonneNonAffichableLaisseSaPlaceBlanche()
{
    Trouve(*arbre, 3)->affichable = false;
    const QImage image = Dessine();
    QCOMPARE(Compte(image, QRect(185, 0, 335, 284)), 0);
    QCOMPARE(Compte(image, QRect(0, 232, 520, 52)), 0);
    QVERIFY(Compte(image, QRect(55, 55, 130, 178)) > 500);
}

RAMELIER_TEST_MAIN(QGuiApplication, TestDessinImage)
#include "tst_dessin_image.moc"
