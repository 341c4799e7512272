#include "arbre.h"
#include "arbres.h"
#include "arbview.h"
#include "environnement.h"
#include "personne.h"
#include "ramelierdoc.h"
#include "ramelierview.h"

#include <QApplication>
#include <QScrollBar>

namespace {

// Thirty-two boxes of 113 x 158 pixels with a million pixels between them: twice what a widget holds.
constexpr int ecart = 264'000;  // mm
constexpr int plusGrandWidget = 16'777'215;

}  // namespace

/// A chart that no widget can hold is scrolled, seen and clicked from end to end.
class TestArbViewImmense : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup();
    void lesBarresVontJusquAuBout();
    void chacunSeVoitEtSeClique_data();
    void chacunSeVoitEtSeClique();
    void laPositionResteQuandLaFenetreChange();
    void unPetitArbreReprendSaPlace();
    void unCanevasPlusHautQuUnWidget();
    void chacunSeVoitEtSeCliqueDeToutesLesTailles_data();
    void chacunSeVoitEtSeCliqueDeToutesLesTailles();
    void leZoomGardeLaPlaceDuPointeur();
    void lesBarresBornentLeZoom();
    void lesTouchesMenentDUnBoutALAutre();

private:
    void Montre(std::unique_ptr<Arbre> arbre);
    void Defile(const Personne &personne);
    [[nodiscard]] QPoint DansLaVue(const Personne &personne) const;
    [[nodiscard]] bool SeVoit(const Personne &personne);
    [[nodiscard]] quint64 NumeroClique(const Personne &personne);
    [[nodiscard]] QPoint Position() const;

    std::unique_ptr<RamelierDoc> doc;
    std::unique_ptr<RamelierView> vue;
};

void TestArbViewImmense::init()
{
    doc = std::make_unique<RamelierDoc>(QString());
    vue = std::make_unique<RamelierView>(nullptr, doc.get());
    vue->resize(800, 600);
    vue->show();
    doc->formats.distMinHoriz = ecart;
    doc->formats.couleurTraits = Qt::red;
    Montre(ArbreComplet(6));
}

void TestArbViewImmense::cleanup()
{
    vue.reset();
    doc.reset();
}

void TestArbViewImmense::Montre(std::unique_ptr<Arbre> arbre)
{
    delete std::exchange(doc->arbre, arbre.release());
    doc->canevasCalcule = false;
    Q_EMIT doc->documentChanged(1);
    QTRY_VERIFY(doc->canevasCalcule);
}

void TestArbViewImmense::Defile(const Personne &personne)
{
    vue->horizontalScrollBar()->setValue(static_cast<int>(personne.x) - 300);
    vue->verticalScrollBar()->setValue(static_cast<int>(personne.y) - 200);
}

/// The upper left corner of the box.
QPoint TestArbViewImmense::DansLaVue(const Personne &personne) const
{
    return {static_cast<int>(personne.x) - vue->horizontalScrollBar()->value(),
            static_cast<int>(personne.y) - vue->verticalScrollBar()->value()};
}

bool TestArbViewImmense::SeVoit(const Personne &personne)
{
    const QImage image = vue->viewport()->grab().toImage();
    const QPoint bord = DansLaVue(personne) + QPoint(0, 79);
    return image.rect().contains(bord) && image.pixelColor(bord) == QColor(Qt::red)
        && image.pixelColor(bord + QPoint(-20, 0)) == QColor(Qt::white);
}

quint64 TestArbViewImmense::NumeroClique(const Personne &personne)
{
    const QPoint milieu = vue->vue()->mapFrom(vue->viewport(), DansLaVue(personne) + QPoint(56, 79));
    QTest::mouseClick(vue->vue(), Qt::LeftButton, {}, milieu);
    return doc->arbre->selection ? doc->arbre->selection->numero : 0;
}

void TestArbViewImmense::lesBarresVontJusquAuBout()
{
    QVERIFY(doc->largeurCanevas > 30'000'000);
    QCOMPARE(vue->vue()->width(), plusGrandWidget);
    QCOMPARE(vue->horizontalScrollBar()->maximum(), int(doc->largeurCanevas) - vue->viewport()->width());
    QCOMPARE(vue->verticalScrollBar()->maximum(), int(doc->hauteurCanevas) - vue->viewport()->height());
}

void TestArbViewImmense::chacunSeVoitEtSeClique_data()
{
    QTest::addColumn<quint64>("numero");
    for (const quint64 numero : std::initializer_list<quint64>{1, 32, 33, 40, 41, 47, 48, 55, 62, 63})
        QTest::addRow("%llu", numero) << numero;
}

void TestArbViewImmense::chacunSeVoitEtSeClique()
{
    QFETCH(const quint64, numero);
    const Personne *personne = Trouve(*doc->arbre, numero);
    Defile(*personne);
    QVERIFY(SeVoit(*personne));
    QCOMPARE(NumeroClique(*personne), numero);
    // A few steps further, as the wheel goes.
    vue->horizontalScrollBar()->setValue(vue->horizontalScrollBar()->value() + 30);
    QVERIFY(SeVoit(*personne));
    vue->horizontalScrollBar()->setValue(vue->horizontalScrollBar()->value() - 90);
    QVERIFY(SeVoit(*personne));
    QCOMPARE(NumeroClique(*personne), numero);
}

void TestArbViewImmense::laPositionResteQuandLaFenetreChange()
{
    const Personne *personne = Trouve(*doc->arbre, 60);
    Defile(*personne);
    const int position = vue->horizontalScrollBar()->value();
    QVERIFY(position > plusGrandWidget);
    vue->resize(1000, 500);
    QCOMPARE(vue->horizontalScrollBar()->value(), position);
    QVERIFY(SeVoit(*personne));
    // The same tree measured again.
    Q_EMIT doc->documentChanged(1);
    QTRY_VERIFY(doc->canevasCalcule);
    QCOMPARE(vue->horizontalScrollBar()->value(), position);
    QVERIFY(SeVoit(*personne));
    QCOMPARE(NumeroClique(*personne), 60U);
}

void TestArbViewImmense::unPetitArbreReprendSaPlace()
{
    Defile(*Trouve(*doc->arbre, 63));
    doc->formats.distMinHoriz = 10;
    Montre(ArbreDeNumeros({1, 2, 3}));
    QCOMPARE(vue->horizontalScrollBar()->maximum(), 0);
    const Personne *racine = doc->arbre->premiere;
    QVERIFY(SeVoit(*racine));
    QCOMPARE(NumeroClique(*racine), 1U);
    // And no tree at all takes the size of the view.
    delete std::exchange(doc->arbre, nullptr);
    Q_EMIT doc->documentChanged(0);
    QCOMPARE(vue->vue()->size(), vue->size());
    QCOMPARE(vue->vue()->pos(), QPoint(0, 0));
}

void TestArbViewImmense::unCanevasPlusHautQuUnWidget()
{
    doc->formats.distMinHoriz = 10;
    doc->formats.distMinVert = ecart;
    QList<quint64> ligne;
    for (quint64 numero = 1; ligne.size() < 30; numero *= 2)
        ligne += numero;
    Montre(ArbreDeNumeros(ligne));
    QCOMPARE(vue->vue()->height(), plusGrandWidget);
    for (const quint64 numero : {quint64(1), quint64(4096), ligne.last()}) {
        const Personne *personne = Trouve(*doc->arbre, numero);
        Defile(*personne);
        QVERIFY(SeVoit(*personne));
        QCOMPARE(NumeroClique(*personne), numero);
    }
}

QPoint TestArbViewImmense::Position() const
{
    return {vue->horizontalScrollBar()->value(), vue->verticalScrollBar()->value()};
}

void TestArbViewImmense::chacunSeVoitEtSeCliqueDeToutesLesTailles_data()
{
    QTest::addColumn<int>("cran");
    for (const int cran : {-10, -7, -4, -3, -1, 1, 3, 6})
        QTest::addRow("%d", cran) << cran;
}

void TestArbViewImmense::chacunSeVoitEtSeCliqueDeToutesLesTailles()
{
    QFETCH(const int, cran);
    arbView *dessin = vue->vue();
    dessin->PrendLeZoom(Zoom(cran));
    const double facteur = Zoom(cran).Facteur();
    QCOMPARE(vue->horizontalScrollBar()->maximum(),
             int(Zoom(cran).Longueur(doc->largeurCanevas)) - vue->viewport()->width());
    for (const quint64 numero : {1, 32, 40, 47, 48, 62, 63}) {
        const Personne *personne = Trouve(*doc->arbre, numero);
        for (const int decalage : {250, 20, 400}) {
            vue->horizontalScrollBar()->setValue(static_cast<int>(double(personne->x) * facteur) - decalage);
            vue->verticalScrollBar()->setValue(static_cast<int>(double(personne->y) * facteur) - 100);
            const QRect place = dessin->PlaceDe(*personne);
            const QImage image = dessin->grab(place.adjusted(-8, -8, 8, 8)).toImage();
            int rouge = 255;
            for (int x = 6; x < 11; ++x)
                rouge = qMin(rouge, image.pixelColor(x, image.height() / 2).green());
            QVERIFY2(rouge < 200, qPrintable(QString::number(rouge)));
            QCOMPARE(image.pixelColor(1, image.height() / 2), QColor(Qt::white));
            QTest::mouseClick(dessin, Qt::LeftButton, {}, place.topLeft() - QPoint(3, 3));
            QVERIFY(!doc->arbre->selection);
            QTest::mouseClick(dessin, Qt::LeftButton, {}, place.center());
            QCOMPARE(doc->arbre->selection, personne);
            doc->arbre->Selectionne(nullptr);
        }
    }
    dessin->PrendLeZoom(Zoom());
    const Personne *personne = Trouve(*doc->arbre, 63);
    Defile(*personne);
    QVERIFY(SeVoit(*personne));
    QCOMPARE(NumeroClique(*personne), 63U);
}

void TestArbViewImmense::leZoomGardeLaPlaceDuPointeur()
{
    const Personne *personne = Trouve(*doc->arbre, 60);
    Defile(*personne);
    const QPoint avant = Position();
    const QPoint pointeur(310, 250);
    QCursor::setPos(vue->viewport()->mapToGlobal(pointeur));
    // Small enough for one widget, and back.
    for (int i = 0; i < 6; ++i)
        QTest::keyClick(vue.get(), Qt::Key_Minus, Qt::ControlModifier);
    QCOMPARE(vue->vue()->SonZoom().Cran(), -6);
    QVERIFY(vue->vue()->width() < plusGrandWidget);
    const double facteur = Zoom(-6).Facteur();
    const QPointF ecart = QPointF(Position() + pointeur) - QPointF(avant + pointeur) * facteur;
    QVERIFY(qAbs(ecart.x()) < 8);
    for (int i = 0; i < 6; ++i)
        QTest::keyClick(vue.get(), Qt::Key_Plus, Qt::ControlModifier);
    QCOMPARE(vue->vue()->width(), plusGrandWidget);
    QVERIFY(qAbs(Position().x() - avant.x()) < 40);
    vue->verticalScrollBar()->setValue(0);
    QVERIFY(SeVoit(*personne));
}

void TestArbViewImmense::lesBarresBornentLeZoom()
{
    // About a thousand million pixels: at more than twice that scroll bars cannot count any more.
    Montre(ArbreComplet(11));
    QVERIFY(doc->largeurCanevas > 1'000'000'000);
    for (int i = 0; i < 8; ++i)
        QTest::keyClick(vue.get(), Qt::Key_Plus, Qt::ControlModifier);
    QCOMPARE(vue->vue()->SonZoom().Cran(), 3);
    QCOMPARE(long(vue->horizontalScrollBar()->maximum()),
             Zoom(3).Longueur(doc->largeurCanevas) - vue->viewport()->width());
    for (const Qt::Key touche : {Qt::Key_2, Qt::Key_0, Qt::Key_0, Qt::Key_0})
        QTest::keyClick(vue->vue(), touche);
    QCOMPARE(doc->arbre->selection, Trouve(*doc->arbre, 2000));
    const QRect place = vue->vue()->PlaceDe(*doc->arbre->selection).translated(vue->vue()->pos());
    QVERIFY(vue->viewport()->rect().contains(place));
}

void TestArbViewImmense::lesTouchesMenentDUnBoutALAutre()
{
    const auto va = [this](Qt::Key touche, quint64 numero) {
        QTest::keyClick(vue->vue(), touche);
        QCOMPARE(doc->arbre->selection, Trouve(*doc->arbre, numero));
        QVERIFY(vue->viewport()->rect().contains(
            vue->vue()->PlaceDe(*doc->arbre->selection).translated(vue->vue()->pos())));
    };
    for (const int cran : {0, -3, 2}) {
        vue->vue()->PrendLeZoom(Zoom(cran));
        va(Qt::Key_Home, 1);
        for (const quint64 numero : {2, 4, 8, 16, 32})
            va(Qt::Key_Up, numero);
        for (quint64 numero = 33; numero <= 63; ++numero)
            va(Qt::Key_Right, numero);
        va(Qt::Key_Down, 31);
    }
}

RAMELIER_TEST_MAIN(QApplication, TestArbViewImmense)
#include "tst_arbview_immense.moc"
