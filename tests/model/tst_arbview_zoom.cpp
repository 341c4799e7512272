#include "environnement.h"
#include "infopersonne.h"
#include "personne.h"
#include "vuedessai.h"

#include <QApplication>
#include <QScrollBar>
#include <QWheelEvent>
#include <QWindow>

#include <random>

/// Five generations in a view of 640 x 480: as on paper boxes of 113 x 158 pixels, a canvas of 2490 x 1130.
class TestArbViewZoom : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup() { essai.reset(); }

    void laMoletteAgranditAutourDuPointeur_data();
    void laMoletteAgranditAutourDuPointeur();
    void unMouvementFinCompteAussi();
    void laMoletteSeuleFaitDefiler();
    void lesTouchesChangentLaTaille_data();
    void lesTouchesChangentLaTaille();
    void lesTouchesAgrandissentAutourDuPointeur();
    void sansPointeurLeMilieuReste();
    void laTailleADesBornes();
    void rienNEstDisposeNiMesure();
    void onCliqueCeQuOnVoit_data();
    void onCliqueCeQuOnVoit();
    void uneParDeLImageEstLaMeme_data();
    void uneParDeLImageEstLaMeme();
    void lesTraitsSuiventLeZoom();
    void unePhotoAgrandieResteNette();
    void leTitreSuitLeZoom();
    void unAutreArbreEstCommeSurLePapier();
    void unArbreChangeGardeSaTaille();
    void leZoomAvantLePremierDessin();

private:
    void Molette(QPoint dansLaVue, QPoint tour, Qt::KeyboardModifiers avec = Qt::ControlModifier);
    void Touche(Qt::Key touche, Qt::KeyboardModifiers avec = Qt::ControlModifier);
    [[nodiscard]] QPoint Position() const;
    /// What of the paper is shown at this point of the view.
    [[nodiscard]] QPointF SurPapier(QPoint dansLaVue) const;
    void VaAuMilieu();

    std::unique_ptr<VueDEssai> essai;
};

void TestArbViewZoom::init()
{
    essai = std::make_unique<VueDEssai>();
    essai->Ouvre(ArbreComplet(5));
    QVERIFY(essai->Montre());
    QVERIFY(QTest::qWaitForWindowActive(&essai->fenetre));
    essai->defilement->setFocus();
    QTRY_COMPARE(essai->dessin->size(), QSize(2490, 1130));
    QTRY_VERIFY(essai->defilement->verticalScrollBar()->isVisible());
    // Far from the chart.
    QCursor::setPos(essai->fenetre.mapToGlobal(QPoint(700, 100)));
}

void TestArbViewZoom::Molette(QPoint dansLaVue, QPoint tour, Qt::KeyboardModifiers avec)
{
    const QWidget &fenetre = essai->fenetre;
    const QPoint ici = essai->defilement->viewport()->mapTo(&fenetre, dansLaVue);
    QWheelEvent molette(dansLaVue - essai->dessin->pos(), fenetre.mapToGlobal(ici), QPoint(), tour, Qt::NoButton, avec,
                        Qt::NoScrollPhase, false);
    // Only what comes from the desktop goes on from the drawing to its scroll area.
    QSpontaneKeyEvent::setSpontaneous(&molette);
    qApp->notify(fenetre.childAt(ici), &molette);
}

void TestArbViewZoom::Touche(Qt::Key touche, Qt::KeyboardModifiers avec)
{
    QTest::keyClick(essai->fenetre.windowHandle(), touche, avec);
}

QPoint TestArbViewZoom::Position() const
{
    return {essai->defilement->horizontalScrollBar()->value(), essai->defilement->verticalScrollBar()->value()};
}

QPointF TestArbViewZoom::SurPapier(QPoint dansLaVue) const
{
    return QPointF(Position() + dansLaVue) / essai->dessin->SonZoom().Facteur();
}

void TestArbViewZoom::VaAuMilieu()
{
    essai->defilement->horizontalScrollBar()->setValue(900);
    essai->defilement->verticalScrollBar()->setValue(300);
}

void TestArbViewZoom::laMoletteAgranditAutourDuPointeur_data()
{
    QTest::addColumn<QPoint>("pointeur");
    QTest::addColumn<int>("crans");
    for (const QPoint pointeur : {QPoint(0, 0), QPoint(320, 240), QPoint(600, 50), QPoint(30, 440)}) {
        for (const int crans : {1, 3, 6, -1, -2})
            QTest::addRow("%d,%d de %d", pointeur.x(), pointeur.y(), crans) << pointeur << crans;
    }
}

void TestArbViewZoom::laMoletteAgranditAutourDuPointeur()
{
    QFETCH(const QPoint, pointeur);
    QFETCH(const int, crans);
    VaAuMilieu();
    const QPoint positionAvant = Position();
    const QPointF avant = SurPapier(pointeur);
    const int sens = crans > 0 ? 1 : -1;
    for (int i = 0; i != crans; i += sens) {
        Molette(pointeur, QPoint(0, 120 * sens));
        QCoreApplication::processEvents();
    }
    const Zoom zoom = essai->dessin->SonZoom();
    QCOMPARE(zoom.Cran(), crans);
    QCOMPARE(essai->dessin->size(), QSize(int(zoom.Longueur(2490)), int(zoom.Longueur(1130))));
    const QPointF ecart = (SurPapier(pointeur) - avant) * zoom.Facteur();
    QVERIFY2(ecart.manhattanLength() < 7, qPrintable(QDebug::toString(ecart)));
    // As many back: the same chart, and the same part of it.
    for (int i = 0; i != crans; i += sens)
        Molette(pointeur, QPoint(0, -120 * sens));
    QCOMPARE(essai->dessin->size(), QSize(2490, 1130));
    QVERIFY((Position() - positionAvant).manhattanLength() < 14);
}

void TestArbViewZoom::unMouvementFinCompteAussi()
{
    for (int i = 0; i < 3; ++i)
        Molette(QPoint(100, 100), QPoint(0, 30));
    QCOMPARE(essai->dessin->SonZoom().Cran(), 0);
    Molette(QPoint(100, 100), QPoint(0, 30));
    QCOMPARE(essai->dessin->SonZoom().Cran(), 1);
    Molette(QPoint(100, 100), QPoint(0, 360));
    QCOMPARE(essai->dessin->SonZoom().Cran(), 4);
    Molette(QPoint(100, 100), QPoint(0, -480));
    QCOMPARE(essai->dessin->SonZoom().Cran(), 0);
}

void TestArbViewZoom::laMoletteSeuleFaitDefiler()
{
    Molette(QPoint(100, 100), QPoint(0, -120), Qt::NoModifier);
    QCOMPARE(essai->dessin->SonZoom().Cran(), 0);
    QVERIFY(Position().y() > 0);
    QCOMPARE(Position().x(), 0);
}

void TestArbViewZoom::lesTouchesChangentLaTaille_data()
{
    QTest::addColumn<int>("depart");
    QTest::addColumn<Qt::Key>("touche");
    QTest::addColumn<Qt::KeyboardModifiers>("avec");
    QTest::addColumn<int>("cran");
    const auto ligne = [](const char *nom, int depart, Qt::Key touche, Qt::KeyboardModifiers avec, int cran) {
        QTest::newRow(nom) << depart << touche << avec << cran;
    };
    const Qt::KeyboardModifiers ctrl = Qt::ControlModifier;
    ligne("ctrl plus", 0, Qt::Key_Plus, ctrl | Qt::ShiftModifier, 1);
    ligne("ctrl plus du pavé", 0, Qt::Key_Plus, ctrl | Qt::KeypadModifier, 1);
    ligne("ctrl égale", 2, Qt::Key_Equal, ctrl, 3);
    ligne("ctrl moins", 0, Qt::Key_Minus, ctrl, -1);
    ligne("ctrl moins du pavé", 0, Qt::Key_Minus, ctrl | Qt::KeypadModifier, -1);
    ligne("ctrl zéro", 4, Qt::Key_0, ctrl, 0);
    ligne("ctrl zéro, plus petit", -7, Qt::Key_0, ctrl | Qt::ShiftModifier, 0);
    ligne("ctrl zéro du pavé", 4, Qt::Key_0, ctrl | Qt::KeypadModifier, 0);
    ligne("ctrl à", 4, Qt::Key_Agrave, ctrl, 0);
    ligne("plus sans ctrl", 0, Qt::Key_Plus, Qt::NoModifier, 0);
    ligne("moins avec alt", 0, Qt::Key_Minus, ctrl | Qt::AltModifier, 0);
}

void TestArbViewZoom::lesTouchesChangentLaTaille()
{
    QFETCH(const int, depart);
    QFETCH(const Qt::Key, touche);
    QFETCH(const Qt::KeyboardModifiers, avec);
    QFETCH(const int, cran);
    essai->dessin->PrendLeZoom(Zoom(depart));
    Touche(touche, avec);
    QCOMPARE(essai->dessin->SonZoom().Cran(), cran);
    const Zoom zoom(cran);
    QCOMPARE(essai->dessin->size(), QSize(int(zoom.Longueur(2490)), int(zoom.Longueur(1130))));
}

void TestArbViewZoom::lesTouchesAgrandissentAutourDuPointeur()
{
    VaAuMilieu();
    const QPoint pointeur(550, 60);
    QCursor::setPos(essai->defilement->viewport()->mapToGlobal(pointeur));
    const QPointF avant = SurPapier(pointeur);
    Touche(Qt::Key_Plus);
    QVERIFY((SurPapier(pointeur) - avant).manhattanLength() < 2);
}

void TestArbViewZoom::sansPointeurLeMilieuReste()
{
    VaAuMilieu();
    const QPoint milieu = essai->defilement->viewport()->rect().center();
    const QPointF avant = SurPapier(milieu);
    Touche(Qt::Key_Plus);
    QVERIFY((SurPapier(milieu) - avant).manhattanLength() < 2);
}

void TestArbViewZoom::laTailleADesBornes()
{
    for (int i = 0; i < 40; ++i)
        Touche(Qt::Key_Plus);
    QCOMPARE(essai->dessin->SonZoom().Cran(), 6);
    Touche(Qt::Key_Minus);
    QCOMPARE(essai->dessin->SonZoom().Cran(), 5);
    for (int i = 0; i < 40; ++i)
        Molette(QPoint(5, 5), QPoint(0, -120));
    QCOMPARE(essai->dessin->SonZoom().Cran(), -10);
    Molette(QPoint(5, 5), QPoint(0, 120));
    QCOMPARE(essai->dessin->SonZoom().Cran(), -9);
}

void TestArbViewZoom::rienNEstDisposeNiMesure()
{
    // What a layout or a measure would put right again.
    Personne *personne = Trouve(*essai->doc.arbre, 5);
    const long x = personne->x += 7;
    essai->doc.largeurCanevas = 3000;
    for (const Qt::Key touche : {Qt::Key_Plus, Qt::Key_Plus, Qt::Key_0, Qt::Key_Minus}) {
        Touche(touche);
        essai->dessin->repaint();
    }
    QCOMPARE(personne->x, x);
    QVERIFY(essai->doc.canevasCalcule);
    QCOMPARE(essai->doc.largeurCanevas, 3000);
    QCOMPARE(essai->dessin->size(), QSize(2400, 904));
    QVERIFY(!essai->doc.isModified());
    QVERIFY(!essai->doc.areOptionsModified());
    QCOMPARE(essai->doc.formats.largeurCadre, 30);
    QCOMPARE(essai->doc.polices.policeTextes.pointSize(), 8);
}

void TestArbViewZoom::onCliqueCeQuOnVoit_data()
{
    QTest::addColumn<int>("cran");
    for (int cran = Zoom::plusPetit; cran <= Zoom::plusGrand; ++cran)
        QTest::addRow("%d", cran) << cran;
}

void TestArbViewZoom::onCliqueCeQuOnVoit()
{
    QFETCH(const int, cran);
    essai->dessin->PrendLeZoom(Zoom(cran));
    const auto clique = [this](QPoint ici, Qt::MouseButton bouton = Qt::LeftButton) {
        QTest::mouseClick(essai->dessin, bouton, {}, ici);
        const Personne *selection = essai->doc.arbre->selection;
        return selection ? selection->numero : 0;
    };
    for (const quint64 numero : {1, 2, 7, 16, 31}) {
        const QRect place = essai->dessin->PlaceDe(*Trouve(*essai->doc.arbre, numero));
        QCOMPARE(clique(place.center()), numero);
        QCOMPARE(clique(place.topLeft() - QPoint(2, 2)), 0U);
        QCOMPARE(clique(place.bottomRight() - QPoint(2, 2)), numero);
        QCOMPARE(clique(place.bottomRight() + QPoint(2, 2)), 0U);
        QCOMPARE(clique(place.center()), numero);
        QSignalSpy menus(essai->dessin, &arbView::menuSurgissant);
        QTest::mouseClick(essai->dessin, Qt::RightButton, {}, place.center());
        QTest::mouseClick(essai->dessin, Qt::RightButton, {}, place.topLeft() - QPoint(2, 2));
        QCOMPARE(menus.size(), 2);
        QCOMPARE(menus.at(0).at(0).toInt(), 1);
        QCOMPARE(menus.at(1).at(0).toInt(), 0);
    }
}

void TestArbViewZoom::uneParDeLImageEstLaMeme_data()
{
    onCliqueCeQuOnVoit_data();
}

void TestArbViewZoom::uneParDeLImageEstLaMeme()
{
    QFETCH(const int, cran);
    for (Personne *personne = essai->doc.arbre->premiere; personne; personne = personne->suivante) {
        InfoPersonne &info = *personne->info;
        info.prenom = QString(static_cast<int>(personne->numero % 5), u'W');
        info.lieunaissance = QStringLiteral("Saint-Germain-en-Laye, quartier du château");
        if (personne->numero % 3 == 0) {
            info.photo = QImage(40, 70, QImage::Format_RGB32);
            info.photo.fill(QColor(200, int(personne->numero) * 8, 90));
            info.etatPhoto = InfoPersonne::PhotoChargee;
        }
        essai->doc.arbre->TextesChanges(*personne);
    }
    essai->doc.arbre->infoArbre->titrearbre = QStringLiteral("Les ancêtres");
    // Lines thinner than a pixel are veils, laid twice where they are cut, and their dashes begin where painting begins.
    const int bord = cran > -5 ? 0 : 1;
    if (bord == 0)
        essai->doc.arbre->Selectionne(Trouve(*essai->doc.arbre, 5));
    Q_EMIT essai->doc.documentChanged(1);
    essai->dessin->PrendLeZoom(Zoom(cran));
    essai->dessin->repaint();
    const QSize taille = essai->dessin->size();
    const QImage entiere = essai->dessin->grab().toImage();
    std::mt19937 tirage(static_cast<quint32>(cran + 100));
    const auto tire = [&tirage](int n) { return static_cast<int>(tirage() % static_cast<unsigned>(n)); };
    for (int essais = 0; essais < 60; ++essais) {
        const QRect zone =
            QRect(tire(taille.width()), tire(taille.height()), 1 + tire(90), 1 + tire(60)) & QRect(QPoint(), taille);
        const QImage partie = essai->dessin->grab(zone).toImage();
        const QRect sansBord = partie.rect().adjusted(bord, bord, -bord, -bord);
        QVERIFY2(partie.copy(sansBord) == entiere.copy(zone).copy(sansBord), qPrintable(QDebug::toString(zone)));
    }
}

void TestArbViewZoom::lesTraitsSuiventLeZoom()
{
    // The root's box of 113 x 158 stands at (1188, 916) and has lines of three pixels around its border.
    const Personne &racine = *essai->doc.arbre->premiere;
    QCOMPARE(QPoint(int(racine.x), int(racine.y)), QPoint(1188, 916));
    essai->dessin->PrendLeZoom(Zoom(3));
    const QImage image = essai->dessin->grab(QRect(2300, 1900, 300, 100)).toImage();
    // 1188 * 1.953125 is 2320.3, three pixels become six.
    for (int x = 0; x < 40; ++x) {
        const bool trait = x >= 18 && x < 23;
        const bool autour = x >= 16 && x < 26;
        if (trait || !autour)
            QCOMPARE(image.pixelColor(x, 50), QColor(trait ? Qt::black : Qt::white));
    }
}

void TestArbViewZoom::unePhotoAgrandieResteNette()
{
    InfoPersonne &info = *essai->doc.arbre->premiere->info;
    // Black and white columns of two pixels of a photo that fits its box at twice the size of the paper.
    info.photo = QImage(226, 316, QImage::Format_RGB32);
    for (int y = 0; y < 316; ++y) {
        for (int x = 0; x < 226; ++x)
            info.photo.setPixelColor(x, y, x / 2 % 2 == 0 ? Qt::black : Qt::white);
    }
    info.etatPhoto = InfoPersonne::PhotoChargee;
    Q_EMIT essai->doc.documentChanged(1);
    const auto contraste = [this, &info](int cran) {
        essai->dessin->PrendLeZoom(Zoom(cran));
        essai->dessin->repaint();
        const QRect place = essai->dessin->PlaceDe(*essai->doc.arbre->premiere);
        const QImage image = essai->dessin->grab(place.translated(place.width() + 20, 0)).toImage();
        int moyen = 0;
        for (int x = 0; x + 1 < image.width() / 2; ++x) {
            const int ecart = image.pixelColor(x, 30).lightness() - image.pixelColor(x + 1, 30).lightness();
            moyen += qAbs(ecart);
        }
        return info.photoEcran.isNull() ? -1 : moyen / (image.width() / 2);
    };
    const QSize surPapier(113, 158);
    QVERIFY(contraste(0) >= 0);
    QCOMPARE(info.photoEcran.size(), surPapier);
    QVERIFY(contraste(2) > 40);
    QCOMPARE(info.photoEcran.size(), 2 * surPapier);
    QCOMPARE(info.etatPhoto, int(InfoPersonne::PhotoPourEcran));
    QVERIFY(contraste(-2) >= 0);
    QCOMPARE(info.photoEcran.size(), surPapier);
}

void TestArbViewZoom::leTitreSuitLeZoom()
{
    essai->doc.arbre->infoArbre->titrearbre = QStringLiteral("Famille Dupont");
    Q_EMIT essai->doc.documentChanged(1);
    essai->dessin->PrendLeZoom(Zoom(-3));
    essai->dessin->repaint();
    const auto encre = [this](const QRect &surPapier) {
        const QImage image = essai->dessin->grab(essai->dessin->SonZoom().Rectangle(surPapier)).toImage();
        QImage blanche = image;
        blanche.fill(Qt::white);
        return image != blanche;
    };
    const RamelierDoc &doc = essai->doc;
    QVERIFY(encre(QRect(int(doc.xTitre), int(doc.yTitre) - 20, 200, 30)));
    QVERIFY(!encre(QRect(int(doc.xTitre), int(doc.yTitre) - 120, 200, 60)));
}

void TestArbViewZoom::unAutreArbreEstCommeSurLePapier()
{
    essai->dessin->PrendLeZoom(Zoom(4));
    delete std::exchange(essai->doc.arbre, nullptr);
    Q_EMIT essai->doc.documentChanged(0);
    QCOMPARE(essai->dessin->size(), essai->defilement->size());
    QCOMPARE(essai->dessin->SonZoom().Cran(), 0);
    essai->Ouvre(ArbreComplet(5));
    QTRY_COMPARE(essai->dessin->size(), QSize(2490, 1130));
}

void TestArbViewZoom::unArbreChangeGardeSaTaille()
{
    essai->dessin->PrendLeZoom(Zoom(-1));
    essai->doc.formats.largeurCadre = 60;
    Q_EMIT essai->doc.documentChanged(1);
    QTRY_VERIFY(essai->doc.canevasCalcule);
    QVERIFY(essai->doc.largeurCanevas > 4000);
    QCOMPARE(essai->dessin->size(), QSize(int(Zoom(-1).Longueur(essai->doc.largeurCanevas)), 904));
}

void TestArbViewZoom::leZoomAvantLePremierDessin()
{
    VueDEssai autre;
    autre.Ouvre(ArbreDeNumeros({1}));
    autre.dessin->PrendLeZoom(Zoom(1));
    QCOMPARE(autre.dessin->size(), QSize(636, 395));
    QVERIFY(autre.Montre());
    QTRY_COMPARE(autre.dessin->size(), QSize(282, 338));
}

RAMELIER_TEST_MAIN(QApplication, TestArbViewZoom)
#include "tst_arbview_zoom.moc"
