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

private:
    void Montre(std::unique_ptr<Arbre> arbre);
    void Defile(const Personne &personne);
    [[nodiscard]] QPoint DansLaVue(const Personne &personne) const;
    [[nodiscard]] bool SeVoit(const Personne &personne);
    [[nodiscard]] quint64 NumeroClique(const Personne &personne);

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

RAMELIER_TEST_MAIN(QApplication, TestArbViewImmense)
#include "tst_arbview_immense.moc"
