#include "arbre.h"
#include "arbres.h"
#include "environnement.h"
#include "executecli.h"
#include "ficxrlg.h"
#include "pdflu.h"

#include <QFile>
#include <QGuiApplication>
#include <QRegularExpression>

/// The pages of a PDF that ramelier-cli dessiner makes: one for the whole chart.
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

RAMELIER_TEST_MAIN(QGuiApplication, TestDessinerPages)
#include "tst_dessiner_pages.moc"
