#include "environnement.h"
#include "personne.h"
#include "vuedessai.h"

#include <QApplication>
#include <QSignalSpy>

namespace {

/// Inside the boxes of persons 1, 2 and 3, on the border of 1, and far from all.
constexpr QPoint dansUn(180, 350);
constexpr QPoint dansDeux(110, 100);
constexpr QPoint dansTrois(260, 100);
constexpr QPoint bordDeUn(131, 350);
constexpr QPoint nullePart(20, 300);

}  // namespace

/// Father at (56, 56), mother at (207, 56), root at (131, 271) in boxes of 113 x 158 pixels.
class TestArbViewSouris : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup() { essai.reset(); }

    void unClicSuitLesRegles_data();
    void unClicSuitLesRegles();
    void unDoubleClicSuitLesRegles_data();
    void unDoubleClicSuitLesRegles();
    void laSelectionEstFaiteQuandLeSignalPart();
    void lesSignauxPortentLeursValeurs();
    void laMarqueDeSelectionApparait();
    void selectionnerNeDisposePas();
    void sansArbreLaSourisNeFaitRien_data();
    void sansArbreLaSourisNeFaitRien();
    void leClicSuitLesFormatsDuDocument();

private:
    void Selectionne(quint64 numero);
    [[nodiscard]] quint64 Selection() const;

    std::unique_ptr<VueDEssai> essai;
    QStringList signauxVus;  ///< in order
};

void TestArbViewSouris::init()
{
    signauxVus.clear();
    essai = std::make_unique<VueDEssai>();
    essai->Ouvre(ArbreDeNumeros({1, 2, 3}));
    QVERIFY(essai->Montre());
    QTRY_VERIFY(essai->doc.canevasCalcule);
    connect(&essai->doc, &RamelierDoc::documentChanged, this,
            [this](int code) { signauxVus += QStringLiteral("documentChanged %1").arg(code); });
    connect(&essai->doc, &RamelierDoc::personneSelectionnee, this,
            [this](int etat) { signauxVus += QStringLiteral("personneSelectionnee %1").arg(etat); });
    connect(&essai->doc, &RamelierDoc::autoriseAnnulation, this,
            [this] { signauxVus += QStringLiteral("autoriseAnnulation"); });
    connect(essai->dessin, &arbView::menuSurgissant, this,
            [this](int lieu) { signauxVus += QStringLiteral("menuSurgissant %1").arg(lieu); });
    connect(essai->dessin, &arbView::personneDoubleCliquee, this,
            [this] { signauxVus += QStringLiteral("personneDoubleCliquee"); });
}

void TestArbViewSouris::Selectionne(quint64 numero)
{
    Arbre &arbre = *essai->doc.arbre;
    arbre.selection = Trouve(arbre, numero);
    if (arbre.selection)
        arbre.selection->selectionnee = true;
}

quint64 TestArbViewSouris::Selection() const
{
    const Personne *selection = essai->doc.arbre->selection;
    return selection ? selection->numero : 0;
}

void TestArbViewSouris::unClicSuitLesRegles_data()
{
    QTest::addColumn<quint64>("avant");
    QTest::addColumn<Qt::MouseButton>("bouton");
    QTest::addColumn<QPoint>("ou");
    QTest::addColumn<QStringList>("attendus");
    QTest::addColumn<quint64>("apres");
    const auto clic = [](const char *nom, quint64 avant, Qt::MouseButton bouton, QPoint ou, const QStringList &attendus,
                         quint64 apres) { QTest::newRow(nom) << avant << bouton << ou << attendus << apres; };
    const QStringList rien;
    const QStringList choisie{QStringLiteral("documentChanged 2"), QStringLiteral("personneSelectionnee 1")};
    const QStringList aucune{QStringLiteral("documentChanged 2"), QStringLiteral("personneSelectionnee 0")};
    const QStringList menuDehors{QStringLiteral("menuSurgissant 0")};
    const QStringList menuDedans{QStringLiteral("menuSurgissant 1")};
    clic("gauche, personne", 0, Qt::LeftButton, dansUn, choisie, 1);
    clic("gauche, autre personne", 1, Qt::LeftButton, dansTrois, choisie, 3);
    clic("gauche, personne sélectionnée", 1, Qt::LeftButton, dansUn, rien, 1);
    clic("gauche, vide sans sélection", 0, Qt::LeftButton, nullePart, rien, 0);
    clic("gauche, vide avec sélection", 2, Qt::LeftButton, nullePart, aucune, 0);
    clic("gauche, bord sans sélection", 0, Qt::LeftButton, bordDeUn, rien, 0);
    clic("gauche, bord avec sélection", 1, Qt::LeftButton, bordDeUn, aucune, 0);
    clic("droit, vide sans sélection", 0, Qt::RightButton, nullePart, menuDehors, 0);
    clic("droit, personne sans sélection", 0, Qt::RightButton, dansUn, menuDehors, 0);
    clic("droit, personne sélectionnée", 1, Qt::RightButton, dansUn, menuDedans, 1);
    clic("droit, bord de la personne sélectionnée", 1, Qt::RightButton, bordDeUn, menuDehors, 1);
    clic("droit, autre personne", 1, Qt::RightButton, dansDeux, menuDehors, 1);
    clic("droit, vide avec sélection", 1, Qt::RightButton, nullePart, menuDehors, 1);
    clic("milieu, personne", 0, Qt::MiddleButton, dansUn, rien, 0);
    clic("milieu, vide avec sélection", 1, Qt::MiddleButton, nullePart, rien, 1);
    clic("retour, personne", 0, Qt::BackButton, dansUn, rien, 0);
}

void TestArbViewSouris::unClicSuitLesRegles()
{
    QFETCH(quint64, avant);
    QFETCH(Qt::MouseButton, bouton);
    QFETCH(QPoint, ou);
    QFETCH(QStringList, attendus);
    QFETCH(quint64, apres);
    Selectionne(avant);
    QTest::mouseClick(essai->dessin, bouton, {}, ou);
    QCOMPARE(signauxVus, attendus);
    QCOMPARE(Selection(), apres);
    for (const Personne *personne = essai->doc.arbre->premiere; personne; personne = personne->suivante)
        QCOMPARE(personne->selectionnee, personne->numero == apres);
}

void TestArbViewSouris::unDoubleClicSuitLesRegles_data()
{
    QTest::addColumn<quint64>("avant");
    QTest::addColumn<Qt::MouseButton>("bouton");
    QTest::addColumn<QPoint>("ou");
    QTest::addColumn<QStringList>("attendus");
    const QStringList rien;
    const QString doubleClic = QStringLiteral("personneDoubleCliquee");
    QTest::newRow("gauche, personne") << quint64(0) << Qt::LeftButton << dansUn
                                      << QStringList{QStringLiteral("documentChanged 2"),
                                                     QStringLiteral("personneSelectionnee 1"), doubleClic};
    QTest::newRow("gauche, personne sélectionnée") << quint64(1) << Qt::LeftButton << dansUn << QStringList{doubleClic};
    QTest::newRow("gauche, vide sans sélection") << quint64(0) << Qt::LeftButton << nullePart << rien;
    QTest::newRow("gauche, vide avec sélection")
        << quint64(1) << Qt::LeftButton << nullePart
        << QStringList{QStringLiteral("documentChanged 2"), QStringLiteral("personneSelectionnee 0")};
    QTest::newRow("droit, personne sélectionnée")
        << quint64(1) << Qt::RightButton << dansUn << QStringList{QStringLiteral("menuSurgissant 1")};
    QTest::newRow("milieu, personne sélectionnée") << quint64(1) << Qt::MiddleButton << dansUn << rien;
}

void TestArbViewSouris::unDoubleClicSuitLesRegles()
{
    QFETCH(quint64, avant);
    QFETCH(Qt::MouseButton, bouton);
    QFETCH(QPoint, ou);
    QFETCH(QStringList, attendus);
    Selectionne(avant);
    // As a mouse does it: a whole click, then the second press as a double click.
    QTest::mouseClick(essai->dessin, bouton, {}, ou);
    QTest::mouseDClick(essai->dessin, bouton, {}, ou);
    QCOMPARE(signauxVus, attendus);
}

void TestArbViewSouris::laSelectionEstFaiteQuandLeSignalPart()
{
    QList<quint64> vues;
    connect(&essai->doc, &RamelierDoc::documentChanged, this, [&] { vues += Selection(); });
    connect(&essai->doc, &RamelierDoc::personneSelectionnee, this, [&] { vues += Selection(); });
    QTest::mouseClick(essai->dessin, Qt::LeftButton, {}, dansTrois);
    QTest::mouseClick(essai->dessin, Qt::LeftButton, {}, nullePart);
    QCOMPARE(vues, QList<quint64>({3, 3, 0, 0}));
}

void TestArbViewSouris::lesSignauxPortentLeursValeurs()
{
    QSignalSpy changements(&essai->doc, &RamelierDoc::documentChanged);
    QSignalSpy selections(&essai->doc, &RamelierDoc::personneSelectionnee);
    QSignalSpy menus(essai->dessin, &arbView::menuSurgissant);
    QSignalSpy doublesClics(essai->dessin, &arbView::personneDoubleCliquee);
    QTest::mouseClick(essai->dessin, Qt::LeftButton, {}, dansDeux);
    QTest::mouseDClick(essai->dessin, Qt::LeftButton, {}, dansDeux);
    QTest::mouseClick(essai->dessin, Qt::RightButton, {}, dansDeux);
    QTest::mouseClick(essai->dessin, Qt::RightButton, {}, nullePart);
    QCOMPARE(changements, QList<QVariantList>({{2}}));
    QCOMPARE(selections, QList<QVariantList>({{1}}));
    QCOMPARE(menus, QList<QVariantList>({{1}, {0}}));
    QCOMPARE(doublesClics.count(), 1);
}

void TestArbViewSouris::laMarqueDeSelectionApparait()
{
    // On the left edge of the mark, where its first dash begins.
    const QColor bleu(Qt::blue);
    QTRY_COMPARE(essai->ALEcran(131, 350), QColor(Qt::black));
    QVERIFY(essai->ALEcran(128, 270) != bleu);
    QTest::mouseClick(essai->dessin, Qt::LeftButton, {}, dansUn);
    QTRY_COMPARE(essai->ALEcran(128, 270), bleu);
    QTest::mouseClick(essai->dessin, Qt::LeftButton, {}, nullePart);
    QTRY_VERIFY(essai->ALEcran(128, 270) != bleu);
}

void TestArbViewSouris::selectionnerNeDisposePas()
{
    Personne *pere = Trouve(*essai->doc.arbre, 2);
    pere->x = 60;
    QTest::mouseClick(essai->dessin, Qt::LeftButton, {}, dansUn);
    QCOMPARE(Selection(), quint64(1));
    QCOMPARE(pere->x, 60);
    QVERIFY(essai->doc.canevasCalcule);
}

void TestArbViewSouris::sansArbreLaSourisNeFaitRien_data()
{
    QTest::addColumn<Qt::MouseButton>("bouton");
    QTest::newRow("gauche") << Qt::LeftButton;
    QTest::newRow("droit") << Qt::RightButton;
    QTest::newRow("milieu") << Qt::MiddleButton;
}

void TestArbViewSouris::sansArbreLaSourisNeFaitRien()
{
    QFETCH(Qt::MouseButton, bouton);
    delete std::exchange(essai->doc.arbre, nullptr);
    QTest::mouseClick(essai->dessin, bouton, {}, dansUn);
    QTest::mouseDClick(essai->dessin, bouton, {}, dansUn);
    QCOMPARE(signauxVus, QStringList());
}

void TestArbViewSouris::leClicSuitLesFormatsDuDocument()
{
    // The current formats count, even before a new layout.
    essai->doc.formats.largeurCadre = 10;
    QTest::mouseClick(essai->dessin, Qt::LeftButton, {}, dansUn);
    QCOMPARE(Selection(), quint64(0));
    QTest::mouseClick(essai->dessin, Qt::LeftButton, {}, QPoint(150, 350));
    QCOMPARE(Selection(), quint64(1));
}

RAMELIER_TEST_MAIN(QApplication, TestArbViewSouris)
#include "tst_arbview_souris.moc"
