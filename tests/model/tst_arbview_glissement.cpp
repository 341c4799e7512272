#include "environnement.h"
#include "personne.h"
#include "vuedessai.h"

#include <QApplication>
#include <QMouseEvent>
#include <QScrollBar>
#include <QSignalSpy>
#include <QWindow>

namespace {

/// Of the view: on nobody, and in the box of person 16, when the chart is scrolled to (300, 200).
constexpr QPoint nullePart(200, 230);
constexpr QPoint dansUnCadre(150, 120);
constexpr QPoint depart(300, 200);

}  // namespace

/// The chart is drawn along by the mouse: five generations in a view of 400 x 300.
class TestArbViewGlissement : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup() { essai.reset(); }

    void onTire_data();
    void onTire();
    void leDessinResteSousLaSouris();
    void unPetitMouvementNEstQuUnClic();
    void leGestePrendFinAvecLeBouton();
    void unBoutonPerduMetFinAuGeste();
    void laMainSeFerme();
    void lePressionGardeSonEffet();
    void deuxGestesDeSuite();
    void onTireAussiParLeBlancAutour();
    void sansArbreRienNeSePasse();

private:
    void Evenement(QEvent::Type type, QPoint dansLaVue, Qt::MouseButton bouton, Qt::MouseButtons enfonces);
    void Presse(QPoint ici, Qt::MouseButton bouton = Qt::LeftButton);
    void Bouge(QPoint ici, Qt::MouseButtons enfonces = Qt::LeftButton);
    void Lache(QPoint ici, Qt::MouseButton bouton = Qt::LeftButton);
    [[nodiscard]] QPoint Position() const;
    void VaA(QPoint position);
    [[nodiscard]] Qt::CursorShape Curseur() const { return essai->defilement->viewport()->cursor().shape(); }

    std::unique_ptr<VueDEssai> essai;
};

void TestArbViewGlissement::init()
{
    essai = std::make_unique<VueDEssai>(QSize(400, 300));
    essai->Ouvre(ArbreComplet(5));
    QVERIFY(essai->Montre());
    QTRY_COMPARE(essai->dessin->size(), QSize(2490, 1130));
    QTRY_VERIFY(essai->defilement->verticalScrollBar()->isVisible());
    VaA(depart);
    QVERIFY(!essai->dessin->PersonneA(essai->dessin->mapFrom(essai->defilement->viewport(), nullePart)));
    QVERIFY(essai->dessin->PersonneA(essai->dessin->mapFrom(essai->defilement->viewport(), dansUnCadre)));
}

/// As the desktop gives it, to whatever lies there.
void TestArbViewGlissement::Evenement(QEvent::Type type, QPoint dansLaVue, Qt::MouseButton bouton,
                                      Qt::MouseButtons enfonces)
{
    const QPoint ici = essai->defilement->viewport()->mapTo(&essai->fenetre, dansLaVue);
    QMouseEvent souris(type, ici, essai->fenetre.mapToGlobal(ici), bouton, enfonces, Qt::NoModifier);
    QSpontaneKeyEvent::setSpontaneous(&souris);
    qApp->notify(essai->fenetre.windowHandle(), &souris);
}

void TestArbViewGlissement::Presse(QPoint ici, Qt::MouseButton bouton)
{
    Evenement(QEvent::MouseButtonPress, ici, bouton, bouton);
}

void TestArbViewGlissement::Bouge(QPoint ici, Qt::MouseButtons enfonces)
{
    Evenement(QEvent::MouseMove, ici, Qt::NoButton, enfonces);
}

void TestArbViewGlissement::Lache(QPoint ici, Qt::MouseButton bouton)
{
    Evenement(QEvent::MouseButtonRelease, ici, bouton, Qt::NoButton);
}

QPoint TestArbViewGlissement::Position() const
{
    return {essai->defilement->horizontalScrollBar()->value(), essai->defilement->verticalScrollBar()->value()};
}

void TestArbViewGlissement::VaA(QPoint position)
{
    essai->defilement->horizontalScrollBar()->setValue(position.x());
    essai->defilement->verticalScrollBar()->setValue(position.y());
    QCOMPARE(Position(), position);
}

void TestArbViewGlissement::onTire_data()
{
    QTest::addColumn<QPoint>("ou");
    QTest::addColumn<Qt::MouseButton>("bouton");
    QTest::addColumn<bool>("tire");
    QTest::newRow("gauche, sur personne") << nullePart << Qt::LeftButton << true;
    QTest::newRow("gauche, sur un cadre") << dansUnCadre << Qt::LeftButton << false;
    QTest::newRow("milieu, sur personne") << nullePart << Qt::MiddleButton << true;
    QTest::newRow("milieu, sur un cadre") << dansUnCadre << Qt::MiddleButton << true;
    QTest::newRow("droit, sur personne") << nullePart << Qt::RightButton << false;
    QTest::newRow("droit, sur un cadre") << dansUnCadre << Qt::RightButton << false;
    QTest::newRow("retour") << nullePart << Qt::BackButton << false;
}

void TestArbViewGlissement::onTire()
{
    QFETCH(const QPoint, ou);
    QFETCH(const Qt::MouseButton, bouton);
    QFETCH(const bool, tire);
    Presse(ou, bouton);
    Bouge(ou + QPoint(-30, 5), bouton);
    Bouge(ou + QPoint(-70, 40), bouton);
    QCOMPARE(Position(), depart + (tire ? QPoint(70, -40) : QPoint()));
    Lache(ou + QPoint(-70, 40), bouton);
    QCOMPARE(Position(), depart + (tire ? QPoint(70, -40) : QPoint()));
}

void TestArbViewGlissement::leDessinResteSousLaSouris()
{
    Presse(nullePart);
    // Beyond the corner of the chart and back.
    Bouge(nullePart + QPoint(2000, 2000));
    QCOMPARE(Position(), QPoint(0, 0));
    Bouge(nullePart + QPoint(40, -60));
    QCOMPARE(Position(), depart + QPoint(-40, 60));
    Bouge(nullePart);
    QCOMPARE(Position(), depart);
}

void TestArbViewGlissement::unPetitMouvementNEstQuUnClic()
{
    const int seuil = QApplication::startDragDistance();
    Presse(nullePart);
    Bouge(nullePart + QPoint(seuil - 1, 0));
    QCOMPARE(Position(), depart);
    QCOMPARE(Curseur(), Qt::ArrowCursor);
    Bouge(nullePart + QPoint(seuil, 0));
    QCOMPARE(Position(), depart - QPoint(seuil, 0));
    Bouge(nullePart + QPoint(1, 0));
    QCOMPARE(Position(), depart - QPoint(1, 0));
    Lache(nullePart);
    Presse(nullePart, Qt::MiddleButton);
    Bouge(nullePart + QPoint(1, 0), Qt::MiddleButton);
    QCOMPARE(Position(), depart - QPoint(2, 0));
}

void TestArbViewGlissement::leGestePrendFinAvecLeBouton()
{
    Presse(nullePart);
    Bouge(nullePart + QPoint(-50, -50));
    Lache(nullePart + QPoint(-50, -50));
    const QPoint atteinte = Position();
    QCOMPARE(atteinte, depart + QPoint(50, 50));
    Bouge(nullePart, Qt::NoButton);
    Presse(dansUnCadre);
    Bouge(dansUnCadre + QPoint(90, 90));
    Lache(dansUnCadre);
    QCOMPARE(Position(), atteinte);
}

void TestArbViewGlissement::unBoutonPerduMetFinAuGeste()
{
    Presse(nullePart, Qt::MiddleButton);
    Bouge(nullePart + QPoint(-50, -50), Qt::MiddleButton);
    QCOMPARE(Curseur(), Qt::ClosedHandCursor);
    // Whoever took the release told nobody; the other button is another gesture.
    Bouge(nullePart, Qt::LeftButton);
    QCOMPARE(Curseur(), Qt::ArrowCursor);
    Bouge(nullePart, Qt::MiddleButton);
    QCOMPARE(Position(), depart + QPoint(50, 50));
}

void TestArbViewGlissement::laMainSeFerme()
{
    Presse(nullePart);
    QCOMPARE(Curseur(), Qt::ArrowCursor);
    Bouge(nullePart + QPoint(50, 0));
    QCOMPARE(Curseur(), Qt::ClosedHandCursor);
    QCOMPARE(essai->dessin->cursor().shape(), Qt::ClosedHandCursor);
    Lache(nullePart);
    QCOMPARE(Curseur(), Qt::ArrowCursor);
    Presse(dansUnCadre, Qt::MiddleButton);
    QCOMPARE(Curseur(), Qt::ClosedHandCursor);
    Lache(dansUnCadre, Qt::MiddleButton);
    QCOMPARE(Curseur(), Qt::ArrowCursor);
}

void TestArbViewGlissement::lePressionGardeSonEffet()
{
    Arbre &arbre = *essai->doc.arbre;
    arbre.Selectionne(Trouve(arbre, 3));
    QSignalSpy selections(&essai->doc, &RamelierDoc::personneSelectionnee);
    Presse(nullePart, Qt::MiddleButton);
    Bouge(nullePart + QPoint(50, 0), Qt::MiddleButton);
    Lache(nullePart, Qt::MiddleButton);
    QCOMPARE(arbre.selection, Trouve(arbre, 3));
    QCOMPARE(selections.size(), 0);
    Presse(nullePart);
    QVERIFY(!arbre.selection);
    QCOMPARE(selections.size(), 1);
    Bouge(nullePart + QPoint(50, 0));
    Lache(nullePart);
    QVERIFY(!arbre.selection);
    QCOMPARE(selections.size(), 1);
}

void TestArbViewGlissement::deuxGestesDeSuite()
{
    Presse(nullePart);
    Bouge(nullePart + QPoint(30, 0));
    Lache(nullePart + QPoint(30, 0));
    // A second press so soon comes as a double click, to the drawing as what follows it.
    const auto auDessin = [this](QEvent::Type type, QPoint ici, Qt::MouseButton bouton) {
        const QPointF local = essai->dessin->mapFrom(essai->defilement->viewport(), ici);
        QMouseEvent souris(type, local, essai->dessin->mapToGlobal(local), bouton, Qt::LeftButton, Qt::NoModifier);
        QSpontaneKeyEvent::setSpontaneous(&souris);
        qApp->notify(essai->dessin, &souris);
    };
    auDessin(QEvent::MouseButtonDblClick, nullePart, Qt::LeftButton);
    auDessin(QEvent::MouseMove, nullePart + QPoint(30, 0), Qt::NoButton);
    QCOMPARE(Position(), depart - QPoint(60, 0));
}

void TestArbViewGlissement::onTireAussiParLeBlancAutour()
{
    // A chart that is higher than the view, and not as wide.
    essai->Ouvre(ArbreDeNumeros({1, 2, 4, 8}));
    QTRY_VERIFY(essai->dessin->width() < 300);
    QTRY_VERIFY(essai->defilement->verticalScrollBar()->maximum() > 200);
    VaA(QPoint(0, 100));
    const QPoint blanc(350, 150);
    QVERIFY(!essai->dessin->geometry().contains(blanc));
    Presse(blanc);
    Bouge(blanc - QPoint(0, 40));
    Lache(blanc - QPoint(0, 40));
    QCOMPARE(Position(), QPoint(0, 140));
}

void TestArbViewGlissement::sansArbreRienNeSePasse()
{
    delete std::exchange(essai->doc.arbre, nullptr);
    Q_EMIT essai->doc.documentChanged(0);
    for (const Qt::MouseButton bouton : {Qt::LeftButton, Qt::MiddleButton}) {
        Presse(nullePart, bouton);
        Bouge(nullePart + QPoint(50, 50), bouton);
        Lache(nullePart + QPoint(50, 50), bouton);
    }
    QCOMPARE(Position(), QPoint(0, 0));
    QCOMPARE(essai->dessin->pos(), QPoint(0, 0));
    QCOMPARE(Curseur(), Qt::ArrowCursor);
}

RAMELIER_TEST_MAIN(QApplication, TestArbViewGlissement)
#include "tst_arbview_glissement.moc"
