#include "arbre.h"
#include "arbres.h"
#include "environnement.h"
#include "executecli.h"
#include "ficxrlg.h"
#include "pdflu.h"

#include <QFile>
#include <QGuiApplication>
#include <QImage>
#include <QRegularExpression>

/// The pages of a PDF that ramelier-cli dessiner makes: one for the whole chart, or a grid of them to be put together.
class TestDessinerPages : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void unePageAussiGrandeQueLArbre();
    void laPageTientLeTitre();
    void lesLettresSontLesMemesQueSurDesA4_data();
    void lesLettresSontLesMemesQueSurDesA4();
    void auDelaDe14400PointsLUniteGrandit();
    void lesPolicesSontDansLaPage();
    void lesReperesLaissentLeDessinTelQuel();
    void lesTraitsDeCoupe_data();
    void lesTraitsDeCoupe();
    void lePlanDesPages_data();
    void lePlanDesPages();
    void dUneGrandeGrilleLePlanMontreLesVoisines_data();
    void dUneGrandeGrilleLePlanMontreLesVoisines();

private:
    [[nodiscard]] QString Chemin(const QString &nom) const { return dossier->filePath(nom); }
    /// A drawn tree, read back; none when it was not drawn.
    [[nodiscard]] std::unique_ptr<Poppler::Document> Dessine(Arbre &arbre, const QStringList &options) const;
    [[nodiscard]] std::unique_ptr<Poppler::Document> Dessine(int generations, const QStringList &options) const
    {
        return Dessine(*ArbreComplet(generations), options);
    }
    /// What the PDF just drawn says its unit is; 0 when it says nothing.
    [[nodiscard]] double Unite() const;

    std::unique_ptr<QTemporaryDir> dossier;
};

void TestDessinerPages::init()
{
    dossier = std::make_unique<QTemporaryDir>();
    QVERIFY(dossier->isValid());
}

std::unique_ptr<Poppler::Document> TestDessinerPages::Dessine(Arbre &arbre, const QStringList &options) const
{
    const QString xrlg = Chemin(QStringLiteral("arbre.xrlg"));
    const QString pdf = Chemin(QStringLiteral("arbre.pdf"));
    if (!writeFicXRLG(xrlg, &arbre))
        return nullptr;
    const Resultat resultat = Execute(QStringList{QStringLiteral("dessiner"), xrlg, pdf} + options);
    return resultat.code == 0 && resultat.erreur.isEmpty() ? Poppler::Document::load(pdf) : nullptr;
}

double TestDessinerPages::Unite() const
{
    QFile pdf(Chemin(QStringLiteral("arbre.pdf")));
    if (!pdf.open(QIODevice::ReadOnly))
        return -1;
    static const QRegularExpression ligne(QStringLiteral("/UserUnit ([0-9.]+)"));
    return ligne.match(QString::fromLatin1(pdf.readAll())).captured(1).toDouble();
}

void TestDessinerPages::unePageAussiGrandeQueLArbre()
{
    const auto document = Dessine(5, {"--page", "unique"});
    QVERIFY(document);
    QCOMPARE(document->numPages(), 1);
    // 2490 x 1130 pixels of which 96 make an inch, as of 72 points; a page has no part of a point.
    QCOMPARE(document->page(0)->pageSizeF(), QSizeF(1868, 848));
    QCOMPARE(Unite(), 0.0);
    const QStringList mots = PdfLu::Mots(*document, 0);
    for (int numero = 1; numero <= 31; ++numero)
        QCOMPARE(mots.count(QStringLiteral("N%1").arg(numero)), 1);
    // The margins of the chart, 15 mm, are those of the page: the last box ends 56 pixels before its edge.
    const QRectF derniere = PdfLu::Place(*document, 0, QStringLiteral("N31"));
    QVERIFY(qAbs(derniere.center().x() - (2490 - 56 - 56.5) * 0.75) < 1);
}

void TestDessinerPages::laPageTientLeTitre()
{
    const auto arbre = ArbreComplet(1);
    arbre->infoArbre->titrearbre = QStringLiteral("MWMWMWMWMWMWMWMWMWMWMWMWMWMWMWMWMWMWMWMW");
    const auto document = Dessine(*arbre, {"--page", "unique"});
    QVERIFY(document);
    // A margin of 56 pixels behind it.
    const QRectF titre = PdfLu::Place(*document, 0, arbre->infoArbre->titrearbre);
    QVERIFY(qAbs(document->page(0)->pageSizeF().width() - titre.right() - 42) < 2);
}

void TestDessinerPages::lesLettresSontLesMemesQueSurDesA4_data()
{
    QTest::addColumn<int>("generations");
    QTest::addColumn<QString>("mot");
    QTest::newRow("petit arbre") << 4 << "N8";
    QTest::newRow("grande unité") << 10 << "N512";
}

void TestDessinerPages::lesLettresSontLesMemesQueSurDesA4()
{
    QFETCH(const int, generations);
    QFETCH(const QString, mot);
    const auto surA4 = Dessine(generations, {});
    QVERIFY(surA4);
    const QRectF attendu = PdfLu::Place(*surA4, 0, mot);
    const auto document = Dessine(generations, {"--page=UNIQUE"});
    QVERIFY(document);
    const double points = Unite() == 0 ? 1 : Unite();
    const QRectF place = PdfLu::Place(*document, 0, mot);
    QVERIFY(!attendu.isEmpty());
    QVERIFY(qAbs(place.width() * points - attendu.width()) < 0.01);
    QVERIFY(qAbs(place.height() * points - attendu.height()) < 0.01);
    // A page of the grid has margins of ten points, cut to 13 pixels of 0.75.
    QVERIFY(qAbs(place.left() * points - (attendu.left() - 9.75)) < 0.01);
    QVERIFY(qAbs(place.top() * points - (attendu.top() - 9.75)) < 0.01);
}

void TestDessinerPages::auDelaDe14400PointsLUniteGrandit()
{
    const auto document = Dessine(10, {"--page", "unique"});
    QVERIFY(document);
    QCOMPARE(document->numPages(), 1);
    // 77386 x 2205 pixels: 58040 x 1654 points.
    QVERIFY(qAbs(Unite() - 58040.0 / 14400) < 0.00001);
    const QSizeF page = document->page(0)->pageSizeF();
    QCOMPARE(page.width(), 14400.0);
    QVERIFY(qAbs(page.height() * Unite() - 1654) < 0.01);
    const auto version = document->getPdfVersion();
    QCOMPARE(QStringLiteral("%1.%2").arg(version.major).arg(version.minor), QStringLiteral("1.6"));
    const QRectF derniere = PdfLu::Place(*document, 0, QStringLiteral("N1023"));
    QVERIFY(qAbs(derniere.center().x() * Unite() - (77386 - 56 - 56.5) * 0.75) < 1);
}

void TestDessinerPages::lesPolicesSontDansLaPage()
{
    const auto document = Dessine(10, {"--page", "unique"});
    QVERIFY(document);
    const auto polices = document->fonts();
    QVERIFY(!polices.isEmpty());
    for (const Poppler::FontInfo &police : polices)
        QVERIFY2(police.isEmbedded(), qPrintable(police.name()));
}

namespace {

// An A4 page shows 767 x 1097 pixels of 96 to the inch, within margins of 13, and hands five of them on to its neighbour. Pages
// are looked at with three points to one of these pixels, four to a point of which 72 make an inch.
constexpr int finesse = 3;

QImage Image(const Poppler::Document &document, int page)
{
    return document.page(page)
        ->renderToImage(96.0 * finesse, 96.0 * finesse)
        .convertToFormat(QImage::Format_Grayscale8);
}

bool EstSombre(const QImage &image, QPointF points)
{
    constexpr int parPoint = 4;
    return qGray(image.pixel((points * parPoint).toPoint())) < 128;
}

constexpr QRect Montre()
{
    return {13 * finesse, 13 * finesse, 767 * finesse, 1097 * finesse};
}

/// Where the map of the pages begins: behind the text, 1.5 points below what is shown.
QPointF CoinDuPlan(const Poppler::Document &document, int page)
{
    constexpr double aGauche = 9.75 + 12;
    double fin = 0;
    for (const auto &mot : document.page(page)->textList()) {
        const QRectF boite = mot->boundingBox();
        if (boite.top() > 830 && boite.left() >= aGauche - 0.5)
            fin = qMax(fin, boite.right());
    }
    return {fin + 6, 832.5 + 1.5};
}

}  // namespace

void TestDessinerPages::lesReperesLaissentLeDessinTelQuel()
{
    const auto sans = Dessine(5, {});
    QVERIFY(sans);
    const auto avec = Dessine(5, {"--reperes"});
    QVERIFY(avec);
    QCOMPARE(sans->numPages(), 8);
    QCOMPARE(avec->numPages(), 8);
    for (int page = 0; page < 8; ++page) {
        const QImage image = Image(*sans, page);
        const QImage reperee = Image(*avec, page);
        QCOMPARE(reperee.copy(Montre()), image.copy(Montre()));
        QVERIFY(reperee != image);
    }
}

void TestDessinerPages::lesTraitsDeCoupe_data()
{
    QTest::addColumn<int>("page");
    QTest::addColumn<QString>("voisines");
    // Four columns of two pages, printed column by column.
    QTest::newRow("coin") << 0 << "droite dessous";
    QTest::newRow("coin du bas") << 1 << "droite dessus";
    QTest::newRow("au milieu") << 2 << "gauche droite dessous";
    QTest::newRow("au milieu, en bas") << 5 << "gauche droite dessus";
    QTest::newRow("dernière") << 7 << "gauche dessus";
}

void TestDessinerPages::lesTraitsDeCoupe()
{
    QFETCH(const int, page);
    const auto document = Dessine(5, {"--reperes"});
    QVERIFY(document);
    const QImage image = Image(*document, page);
    // Points from the corner of the paper: what is shown begins at 9.75, ends at 585 and 832.5; the neighbours' parts begin
    // 3.75 before that.
    QStringList coupees;
    const auto regarde = [&](const QString &voisine, QPointF unBout, QPointF autreBout) {
        QCOMPARE(EstSombre(image, unBout), EstSombre(image, autreBout));
        if (EstSombre(image, unBout))
            coupees += voisine;
    };
    regarde("gauche", {9.75, 5}, {9.75, 837});
    regarde("droite", {581.25, 5}, {581.25, 837});
    regarde("dessus", {5, 9.75}, {590, 9.75});
    regarde("dessous", {5, 828.75}, {590, 828.75});
    QTEST(coupees.join(u' '), "voisines");
}

void TestDessinerPages::lePlanDesPages_data()
{
    QTest::addColumn<int>("page");
    QTest::addColumn<QString>("texte");
    QTest::addColumn<QString>("plan");
    QTest::newRow("première") << 0 << "page 1 sur 8, rangée 1, colonne 1"
                              << "#.../....";
    QTest::newRow("deuxième") << 1 << "page 2 sur 8, rangée 2, colonne 1"
                              << "..../#...";
    QTest::newRow("troisième") << 2 << "page 3 sur 8, rangée 1, colonne 2"
                               << ".#../....";
    QTest::newRow("dernière") << 7 << "page 8 sur 8, rangée 2, colonne 4"
                              << "..../...#";
}

void TestDessinerPages::lePlanDesPages()
{
    QFETCH(const int, page);
    const auto document = Dessine(5, {"--reperes"});
    QVERIFY(document);
    QStringList mots = PdfLu::Mots(*document, page);
    QTEST(mots.mid(mots.indexOf("page")).join(u' '), "texte");
    const QImage image = Image(*document, page);
    const QPointF coin = CoinDuPlan(*document, page);
    // Cells of half of seven points, of the page's own shape.
    constexpr double haute = 3.5;
    constexpr double large = haute * 767 / 1097;
    QString plan;
    for (int ligne = 0; ligne < 2; ++ligne) {
        for (int colonne = 0; colonne < 4; ++colonne)
            plan += EstSombre(image, coin + QPointF((colonne + 0.5) * large, (ligne + 0.5) * haute)) ? u'#' : u'.';
        plan += ligne == 0 ? QStringLiteral("/") : QString();
    }
    QTEST(plan, "plan");
}

void TestDessinerPages::dUneGrandeGrilleLePlanMontreLesVoisines_data()
{
    QTest::addColumn<int>("page");
    QTest::addColumn<int>("place");
    QTest::addColumn<QString>("suites");
    // The 256 boxes of the top row, reduced, stand on 33 pages beside one another, of which a map shows 24.
    QTest::newRow("début") << 0 << 0 << "après";
    QTest::newRow("milieu") << 20 << 12 << "avant après";
    QTest::newRow("fin") << 32 << 23 << "avant";
}

void TestDessinerPages::dUneGrandeGrilleLePlanMontreLesVoisines()
{
    QFETCH(const int, page);
    QFETCH(const int, place);
    const auto document = Dessine(9, {"--reduit", "--reperes", "--page", "A4"});
    QVERIFY(document);
    QCOMPARE(document->numPages(), 33);
    const QImage image = Image(*document, page);
    const QPointF coin = CoinDuPlan(*document, page);
    constexpr double large = 7.0 * 767 / 1097;
    QList<int> pleines;
    for (int colonne = 0; colonne < 24; ++colonne) {
        if (EstSombre(image, coin + QPointF((colonne + 0.5) * large, 3.5)))
            pleines += colonne;
    }
    QCOMPARE(pleines, QList<int>{place});
    QStringList suites;
    if (EstSombre(image, coin - QPointF(0.2 * large, 0)))
        suites += QStringLiteral("avant");
    if (EstSombre(image, coin + QPointF(24.2 * large, 0)))
        suites += QStringLiteral("après");
    QTEST(suites.join(u' '), "suites");
}

RAMELIER_TEST_MAIN(QGuiApplication, TestDessinerPages)
#include "tst_dessiner_pages.moc"
