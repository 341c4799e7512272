#include "formulaire.h"

#include "champspresentation.h"

#include <QApplication>
#include <QFontDatabase>
#include <QFontDialog>
#include <QLineEdit>

/// How a font and a colour are shown and chosen.
class TestChampsPresentation : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void leStyleSuitLePoidsEtLaPente_data();
    void leStyleSuitLePoidsEtLaPente();
    void leStyleVautAussiPourUnPoidsSurMille_data();
    void leStyleVautAussiPourUnPoidsSurMille();
    void uneObliqueEstItalique();
    void laFamilleSAfficheTelleQuelle();
    void laTailleSAfficheEnDecimal_data();
    void laTailleSAfficheEnDecimal();
    void sansLabelDeStyleLeResteSAffiche();
    void laPastilleMontreSaCouleurPartout_data();
    void laPastilleMontreSaCouleurPartout();
    void uneCouleurRemplaceLAutre();
    void unePoliceAbsenteGardeSonNomEtSonStyle();
    void unePoliceAbsenteSeLaisseRemplacer();
};

void TestChampsPresentation::leStyleSuitLePoidsEtLaPente_data()
{
    QTest::addColumn<int>("surCent");
    QTest::addColumn<bool>("italique");
    QTest::addColumn<QString>("style");

    QTest::newRow("maigre") << 0 << false << "Normal";
    QTest::newRow("léger") << 25 << false << "Normal";
    QTest::newRow("léger italique") << 25 << true << "Italic";
    QTest::newRow("exactement 50") << 50 << false << "Normal";
    QTest::newRow("exactement 50 italique") << 50 << true << "Italic";
    QTest::newRow("moyen") << 57 << false << "Bold";
    QTest::newRow("moyen italique") << 57 << true << "Bold Italic";
    QTest::newRow("demi-gras") << 63 << false << "Bold";
    QTest::newRow("gras") << 75 << false << "Bold";
    QTest::newRow("gras italique") << 75 << true << "Bold Italic";
    QTest::newRow("noir") << 87 << false << "Bold";
    QTest::newRow("99 italique") << 99 << true << "Bold Italic";
}

void TestChampsPresentation::leStyleSuitLePoidsEtLaPente()
{
    QFETCH(const int, surCent);
    QFETCH(const bool, italique);
    QLabel famille;
    QLabel style("avant");
    QLabel taille;
    QFont police = FaitPolice("Helvetica", 12, surCent, italique);
    AffichageInfoPolice(police, &famille, &style, &taille);
    QTEST(style.text(), "style");
    QCOMPARE(famille.text(), "Helvetica");
    QCOMPARE(taille.text(), "12");
}

void TestChampsPresentation::leStyleVautAussiPourUnPoidsSurMille_data()
{
    QTest::addColumn<QFont::Weight>("poids");
    QTest::addColumn<QString>("droit");
    QTest::addColumn<QString>("penche");

    QTest::newRow("maigre") << QFont::Thin << "Normal"
                            << "Italic";
    QTest::newRow("léger") << QFont::Light << "Normal"
                           << "Italic";
    QTest::newRow("normal") << QFont::Normal << "Normal"
                            << "Italic";
    QTest::newRow("moyen") << QFont::Medium << "Bold"
                           << "Bold Italic";
    QTest::newRow("demi-gras") << QFont::DemiBold << "Bold"
                               << "Bold Italic";
    QTest::newRow("gras") << QFont::Bold << "Bold"
                          << "Bold Italic";
    QTest::newRow("noir") << QFont::Black << "Bold"
                          << "Bold Italic";
}

void TestChampsPresentation::leStyleVautAussiPourUnPoidsSurMille()
{
    QFETCH(const QFont::Weight, poids);
    QLabel famille;
    QLabel style;
    QLabel taille;
    QFont droit("Liberation Serif", 9, poids, false);
    AffichageInfoPolice(droit, &famille, &style, &taille);
    QTEST(style.text(), "droit");
    QFont penche("Liberation Serif", 9, poids, true);
    AffichageInfoPolice(penche, &famille, &style, &taille);
    QTEST(style.text(), "penche");
}

void TestChampsPresentation::uneObliqueEstItalique()
{
    QLabel famille;
    QLabel style;
    QLabel taille;
    QFont police("Helvetica", 12);
    police.setStyle(QFont::StyleOblique);
    AffichageInfoPolice(police, &famille, &style, &taille);
    QCOMPARE(style.text(), "Italic");
}

void TestChampsPresentation::laFamilleSAfficheTelleQuelle()
{
    QLabel famille;
    QLabel taille;
    QFont police("Été <b>Gras</b> & Fils", 12);
    AffichageInfoPolice(police, &famille, nullptr, &taille);
    QCOMPARE(famille.text(), "Été <b>Gras</b> & Fils");
}

void TestChampsPresentation::laTailleSAfficheEnDecimal_data()
{
    QTest::addColumn<int>("points");
    QTest::addColumn<QString>("texte");

    QTest::newRow("1") << 1 << "1";
    QTest::newRow("8") << 8 << "8";
    QTest::newRow("10") << 10 << "10";
    QTest::newRow("1000") << 1000 << "1000";
    QTest::newRow("32767") << 32767 << "32767";
}

void TestChampsPresentation::laTailleSAfficheEnDecimal()
{
    QFETCH(const int, points);
    QLabel famille;
    QLabel taille;
    QFont police("Helvetica", points);
    AffichageInfoPolice(police, &famille, nullptr, &taille);
    QTEST(taille.text(), "texte");
}

void TestChampsPresentation::sansLabelDeStyleLeResteSAffiche()
{
    QLabel famille("avant");
    QLabel taille("avant");
    QFont police("Liberation Mono", 17, QFont::Bold, true);
    AffichageInfoPolice(police, &famille, nullptr, &taille);
    QCOMPARE(famille.text(), "Liberation Mono");
    QCOMPARE(taille.text(), "17");
}

void TestChampsPresentation::laPastilleMontreSaCouleurPartout_data()
{
    QTest::addColumn<QColor>("couleur");

    QTest::newRow("noir") << QColor(Qt::black);
    QTest::newRow("blanc") << QColor(Qt::white);
    QTest::newRow("vert") << QColor(1, 160, 3);
    QTest::newRow("rouge") << QColor(254, 0, 0);
}

void TestChampsPresentation::laPastilleMontreSaCouleurPartout()
{
    QFETCH(const QColor, couleur);
    QLineEdit pastille;
    QPushButton bouton;
    MontreCouleur({&pastille, &bouton}, couleur);
    QCOMPARE(pastille.palette().brush(QPalette::Active, pastille.backgroundRole()), QBrush(couleur));
    QCOMPARE(pastille.palette().brush(QPalette::Inactive, pastille.backgroundRole()), QBrush(couleur));
    QCOMPARE(pastille.palette().brush(QPalette::Disabled, pastille.backgroundRole()), QBrush(couleur));
    QVERIFY(pastille.styleSheet().isEmpty());
    QCOMPARE(EcartsDePastille(&pastille, couleur), QString());
    pastille.setEnabled(false);
    QCOMPARE(EcartsDePastille(&pastille, couleur), QString());
}

void TestChampsPresentation::uneCouleurRemplaceLAutre()
{
    QLineEdit pastille;
    QPushButton bouton;
    MontreCouleur({&pastille, &bouton}, Qt::red);
    MontreCouleur({&pastille, &bouton}, Qt::blue);
    QCOMPARE(EcartsDePastille(&pastille, Qt::blue), QString());
    // The rest of the palette stays.
    QPalette attendue = QLineEdit().palette();
    attendue.setBrush(QPalette::All, pastille.backgroundRole(), QColor(Qt::blue));
    QCOMPARE(pastille.palette(), attendue);
}

void TestChampsPresentation::unePoliceAbsenteGardeSonNomEtSonStyle()
{
    QVERIFY(!QFontDatabase::hasFamily("Helvetica"));
    QFont police = FaitPolice("Helvetica", 30, 75, true);
    Scenario scenario;
    scenario.Dialogue<QFontDialog>([](QFontDialog &dialogue) { dialogue.accept(); });
    QVERIFY(ChoisitPolice(nullptr, police));
    QCOMPARE(scenario.Ecarts(), QStringList());
    QCOMPARE(police.family(), "Helvetica");
    QCOMPARE(police.pointSize(), 30);
    QCOMPARE(police.bold(), true);
    QCOMPARE(police.italic(), true);
}

void TestChampsPresentation::unePoliceAbsenteSeLaisseRemplacer()
{
    QFont police = FaitPolice("Helvetica", 30, 75);
    Scenario scenario;
    scenario.Dialogue<QFontDialog>([](QFontDialog &dialogue) {
        dialogue.setCurrentFont(QFont("Liberation Serif", 11));
        dialogue.accept();
    });
    QVERIFY(ChoisitPolice(nullptr, police));
    QCOMPARE(scenario.Ecarts(), QStringList());
    QCOMPARE(police.family(), "Liberation Serif");
    QCOMPARE(police.pointSize(), 11);
    QCOMPARE(police.bold(), false);
}

RAMELIER_TEST_DIALOGUES_MAIN(TestChampsPresentation)
#include "tst_champspresentation.moc"
