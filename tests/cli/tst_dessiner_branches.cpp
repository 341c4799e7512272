#include "arbre.h"
#include "arbres.h"
#include "environnement.h"
#include "executecli.h"
#include "ficxrlg.h"
#include "pdflu.h"

#include <QGuiApplication>
#include <QImage>
#include <QPainter>
#include <QSvgRenderer>

#include <algorithm>
#include <cmath>

/// ramelier-cli dessiner --couleurs-branches.
class TestDessinerBranches : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void chaqueGrandParentASaCouleur_data();
    void chaqueGrandParentASaCouleur();
    void lesCouleursSontCellesDeLaRacineDessinee();
    void toutesLesSortiesOntLesMemes();
    void enGrisAussiOnLesDistingue();
    void lesTextesRestentLisibles();
    void lAffichageReduitAussi();

private:
    [[nodiscard]] QString Chemin(const QString &nom) const { return dossier.filePath(nom); }
    [[nodiscard]] QString Dessine(const QString &nom, const QStringList &options) const;
    [[nodiscard]] QImage Image(const QStringList &options) const;

    QTemporaryDir dossier;
};

void TestDessinerBranches::initTestCase()
{
    QVERIFY(dossier.isValid());
    QVERIFY(writeFicXRLG(Chemin(QStringLiteral("arbre.xrlg")), ArbreComplet(4).get()));
}

QString TestDessinerBranches::Dessine(const QString &nom, const QStringList &options) const
{
    const QStringList mots{QStringLiteral("dessiner"), Chemin(QStringLiteral("arbre.xrlg")), Chemin(nom)};
    const Resultat resultat = Execute(mots + options);
    return resultat.code == 0 && resultat.erreur.isEmpty() ? Chemin(nom) : QString();
}

QImage TestDessinerBranches::Image(const QStringList &options) const
{
    return QImage(Dessine(QStringLiteral("arbre.png"), options));
}

namespace {

// Boxes of 113 x 158 pixels, 151 apart, in rows 215 apart: this far into a box, near its left bottom corner, no text stands.
constexpr QPoint libre(10, 140);

constexpr QPoint Rangee(int rang, int x)
{
    return QPoint(x, 56 + 215 * rang) + libre;
}

const QColor jaune(255, 241, 194);
const QColor bleu(197, 229, 251);
const QColor vert(186, 217, 171);
const QColor rose(232, 169, 168);

}  // namespace

void TestDessinerBranches::chaqueGrandParentASaCouleur_data()
{
    QTest::addColumn<QPoint>("point");
    QTest::addColumn<QColor>("couleur");
    QTest::newRow("1") << Rangee(3, 584) << QColor(Qt::white);
    QTest::newRow("2") << Rangee(2, 282) << QColor(Qt::white);
    QTest::newRow("3") << Rangee(2, 886) << QColor(Qt::white);
    QTest::newRow("4") << Rangee(1, 131) << jaune;
    QTest::newRow("5") << Rangee(1, 433) << bleu;
    QTest::newRow("6") << Rangee(1, 735) << vert;
    QTest::newRow("7") << Rangee(1, 1037) << rose;
    QTest::newRow("8") << Rangee(0, 56) << jaune;
    QTest::newRow("9") << Rangee(0, 207) << jaune;
    QTest::newRow("10") << Rangee(0, 358) << bleu;
    QTest::newRow("13") << Rangee(0, 811) << vert;
    QTest::newRow("15") << Rangee(0, 1113) << rose;
    QTest::newRow("entre deux cases") << QPoint(190, 100) << QColor(Qt::white);
}

void TestDessinerBranches::chaqueGrandParentASaCouleur()
{
    QFETCH(const QPoint, point);
    const QImage image = Image({"--couleurs-branches"});
    QTEST(image.pixelColor(point), "couleur");
    QCOMPARE(Image({}).pixelColor(point), QColor(Qt::white));
}

void TestDessinerBranches::lesCouleursSontCellesDeLaRacineDessinee()
{
    const QImage image = Image({"--couleurs-branches", "--racine", "3"});
    // 3 below 6 and 7, which are its parents now; 12 to 15 are its grandparents.
    QCOMPARE(image.pixelColor(Rangee(2, 282)), QColor(Qt::white));
    QCOMPARE(image.pixelColor(Rangee(1, 131)), QColor(Qt::white));
    QCOMPARE(image.pixelColor(Rangee(0, 56)), jaune);
    QCOMPARE(image.pixelColor(Rangee(0, 207)), bleu);
    QCOMPARE(image.pixelColor(Rangee(0, 358)), vert);
    QCOMPARE(image.pixelColor(Rangee(0, 509)), rose);
}

void TestDessinerBranches::toutesLesSortiesOntLesMemes()
{
    QSvgRenderer svg(Dessine(QStringLiteral("arbre.svg"), {"--couleurs-branches"}));
    QImage image(svg.viewBox().size(), QImage::Format_RGB32);
    QPainter peintre(&image);
    svg.render(&peintre);
    peintre.end();
    QCOMPARE(image.pixelColor(Rangee(1, 433)), bleu);
    QCOMPARE(image.pixelColor(Rangee(2, 282)), QColor(Qt::white));
    const auto grille =
        Poppler::Document::load(Dessine(QStringLiteral("arbre.pdf"), {"--couleurs-branches", "--reperes"}));
    QVERIFY(grille);
    // Margins of 13 pixels; the second page begins 762 further.
    const QPoint marge(13, 13);
    QCOMPARE(grille->page(0)->renderToImage(96, 96).pixelColor(Rangee(1, 433) + marge), bleu);
    QCOMPARE(grille->page(1)->renderToImage(96, 96).pixelColor(Rangee(1, 1037 - 762) + marge), rose);
    const auto unique =
        Poppler::Document::load(Dessine(QStringLiteral("arbre.pdf"), {"--couleurs-branches", "--page", "unique"}));
    QVERIFY(unique);
    QCOMPARE(unique->page(0)->renderToImage(96, 96).pixelColor(Rangee(1, 735)), vert);
}

void TestDessinerBranches::enGrisAussiOnLesDistingue()
{
    const QImage image = Image({"--couleurs-branches"});
    // As a printer mixes them.
    const auto enGris = [](const QColor &couleur) {
        return (299 * couleur.red() + 587 * couleur.green() + 114 * couleur.blue()) / 1000;
    };
    QList<int> gris{255};
    for (const int x : {131, 433, 735, 1037})
        gris += enGris(image.pixelColor(Rangee(1, x)));
    std::sort(gris.begin(), gris.end());
    for (qsizetype i = 1; i < gris.size(); ++i)
        QVERIFY2(gris[i] - gris[i - 1] >= 14, qPrintable(QString::number(gris[i])));
}

/// As sRGB has it, from 0 to 1.
double Luminance(const QColor &couleur)
{
    const auto lineaire = [](double valeur) {
        return valeur <= 0.04045 ? valeur / 12.92 : std::pow((valeur + 0.055) / 1.055, 2.4);
    };
    return 0.2126 * lineaire(couleur.redF()) + 0.7152 * lineaire(couleur.greenF()) + 0.0722 * lineaire(couleur.blueF());
}

void TestDessinerBranches::lesTextesRestentLisibles()
{
    const QImage sans = Image({});
    const QImage avec = Image({"--couleurs-branches"});
    QCOMPARE(avec.size(), sans.size());
    int noirs = 0;
    for (int y = 0; y < sans.height(); ++y) {
        for (int x = 0; x < sans.width(); ++x) {
            if (sans.pixelColor(x, y) != QColor(Qt::black))
                continue;
            QCOMPARE(avec.pixelColor(x, y), QColor(Qt::black));
            ++noirs;
        }
    }
    QVERIFY(noirs > 10'000);
    // Seven to one is what people of weak sight need.
    for (const int x : {131, 433, 735, 1037})
        QVERIFY((Luminance(avec.pixelColor(Rangee(1, x))) + 0.05) / 0.05 > 7);
    const auto pdf = Poppler::Document::load(Dessine(QStringLiteral("arbre.pdf"), {"--couleurs-branches"}));
    QVERIFY(pdf && PdfLu::Mots(*pdf, 0).contains(QStringLiteral("N8")));
}

void TestDessinerBranches::lAffichageReduitAussi()
{
    const QImage image = Image({"--couleurs-branches", "--reduit"});
    // Boxes of 94 x 56 pixels, 98 apart, within margins of 18.
    QCOMPARE(image.pixelColor(18 + 5, 18 + 50), jaune);
    QCOMPARE(image.pixelColor(18 + 7 * 98 + 5, 18 + 50), rose);
    QCOMPARE(Image({"--reduit"}).pixelColor(18 + 5, 18 + 50), QColor(Qt::white));
}

RAMELIER_TEST_MAIN(QGuiApplication, TestDessinerBranches)
#include "tst_dessiner_branches.moc"
