#include "presentationdessai.h"

#include "dlgoptdessin.h"

#include <QApplication>
#include <QLineEdit>

/// The drawing options of one tree.
class TestDlgOptDessin : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup() { dialogue.reset(); }
    void lesTextesSontCeuxPrevus();
    void chaqueChampASonLabel_data();
    void chaqueChampASonLabel();
    void lesBoutonsOntLeursNoms();
    void lesEntiersVontDeZeroA99_data();
    void lesEntiersVontDeZeroA99();
    void lesReelsOntUneDecimale_data();
    void lesReelsOntUneDecimale();
    void ceQuiEstMontreEstSaisi_data();
    void ceQuiEstMontreEstSaisi();
    void chaqueChampChangeSonReglage_data();
    void chaqueChampChangeSonReglage();
    void laCouleurChoisieDevientCelleDesTraits();
    void sansCouleurOnPeutEnChoisirUne();
    void renoncerALaCouleurNeChangeRien_data();
    void renoncerALaCouleurNeChangeRien();
    void retablirRemetLesValeursDeLaReference();
    void retablirSuitLaReference();
    void laReferenceResteTelleQuelle_data();
    void laReferenceResteTelleQuelle();

private:
    FormatsDessins reference;
    std::unique_ptr<DlgOptDessin> dialogue;
};

namespace {

const QStringList entiers{"sbLCadre",   "sbHCadre",         "sbDMinHoriz",       "sbDMinVert",
                          "sbMargeMin", "sbMargeDansCadre", "sbIntervCadrePhoto"};
const QStringList reels{"dsbEpTrait", "dsbRayonArc"};

const FormatsDessins montres{11, 12, 13, 14, 15, 16, 17, 0.7F, 3.3F, QColor(10, 20, 30)};
const QString montresEnTexte = "11 12 13 14 15 16 17 0.7 3.3 #0a141e";
const QString referenceEnTexte = "41 42 43 44 45 46 47 1.9 5.1 #c80a64";

}  // namespace

void TestDlgOptDessin::init()
{
    reference = {41, 42, 43, 44, 45, 46, 47, 1.9F, 5.1F, QColor(200, 10, 100)};
    dialogue = std::make_unique<DlgOptDessin>(&reference, nullptr);
    dialogue->Montre(montres);
    QVERIFY(Affiche(*dialogue));
}

void TestDlgOptDessin::lesTextesSontCeuxPrevus()
{
    QStringList textes{"Cadres : Largeur :",
                       "Hauteur :",
                       "Distance minimum Horizontale entre deux cadres : ",
                       "Distance minimum Verticale entre deux cadres : ",
                       "Marge générale haute et gauche : ",
                       "Marge des textes dans les cadres : ",
                       "Distance entre cadre et photo associée : ",
                       "Epaisseur des traits :",
                       "Rayon des arcs de cercle : ",
                       "Couleur des traits :",
                       "NOTA : Toutes les dimensions sont en millimètres (mm)"};
    textes.sort();
    QCOMPARE(TextesDesLabels(*dialogue), textes);
}

void TestDlgOptDessin::chaqueChampASonLabel_data()
{
    LabelsDesLongueurs();
}

void TestDlgOptDessin::chaqueChampASonLabel()
{
    const auto *champ = dialogue->findChild<QAbstractSpinBox *>(QTest::currentDataTag());
    QVERIFY(champ);
    QTEST(LabelDe(champ), "texte");
}

void TestDlgOptDessin::lesBoutonsOntLeursNoms()
{
    QCOMPARE(dialogue->findChild<QPushButton *>("pbModifCouleur")->text(), "Modifier la couleur des traits ...");
    QCOMPARE(dialogue->findChild<QPushButton *>("pbValeursParDefaut")->text(),
             "Rétablir les valeurs de l'option préférences");
    QVERIFY(dialogue->findChild<QLineEdit *>("LineEditCouleurTraits"));
    QCOMPARE(dialogue->findChildren<QSpinBox *>().size(), 7);
    QCOMPARE(dialogue->findChildren<QDoubleSpinBox *>().size(), 2);
    QCOMPARE(dialogue->formatsReference, &reference);
}

void TestDlgOptDessin::lesEntiersVontDeZeroA99_data()
{
    QTest::addColumn<QString>("champ");
    for (const QString &nom : entiers)
        QTest::newRow(qPrintable(nom)) << nom;
}

void TestDlgOptDessin::lesEntiersVontDeZeroA99()
{
    QFETCH(const QString, champ);
    auto *entier = dialogue->findChild<QSpinBox *>(champ);
    QVERIFY(entier);
    QCOMPARE(entier->minimum(), 0);
    QCOMPARE(entier->maximum(), 99);
    QCOMPARE(entier->singleStep(), 1);
    Remplace(entier, "99");
    QCOMPARE(entier->value(), 99);
    QTest::keyClick(entier, Qt::Key_Up);
    QCOMPARE(entier->value(), 99);
    // The third digit does not go in.
    Remplace(entier, "150");
    QCOMPARE(entier->value(), 15);
    QTest::keyClick(entier, Qt::Key_Up);
    QCOMPARE(entier->value(), 16);
    Remplace(entier, "-1");
    QCOMPARE(entier->value(), 1);
    Remplace(entier, "0");
    QTest::keyClick(entier, Qt::Key_Down);
    QCOMPARE(entier->value(), 0);
}

void TestDlgOptDessin::lesReelsOntUneDecimale_data()
{
    QTest::addColumn<QString>("champ");
    for (const QString &nom : reels)
        QTest::newRow(qPrintable(nom)) << nom;
}

void TestDlgOptDessin::lesReelsOntUneDecimale()
{
    QFETCH(const QString, champ);
    auto *reel = dialogue->findChild<QDoubleSpinBox *>(champ);
    QVERIFY(reel);
    QCOMPARE(reel->decimals(), 1);
    QCOMPARE(reel->singleStep(), 0.1);
    QCOMPARE(reel->minimum(), 0.0);
    // What the toolkit makes of its 99.99 with one decimal.
    QCOMPARE(reel->maximum(), 100.0);
    Remplace(reel, "1.2");
    QCOMPARE(reel->value(), 1.2);
    QTest::keyClick(reel, Qt::Key_Up);
    QCOMPARE(reel->text(), "1.3");
    QTest::keyClick(reel, Qt::Key_Down);
    QTest::keyClick(reel, Qt::Key_Down);
    QCOMPARE(reel->text(), "1.1");
    // The second decimal does not go in.
    Remplace(reel, "2.57");
    QCOMPARE(reel->value(), 2.5);
    Remplace(reel, "0");
    QTest::keyClick(reel, Qt::Key_Down);
    QCOMPARE(reel->value(), 0.0);
}

void TestDlgOptDessin::ceQuiEstMontreEstSaisi_data()
{
    QTest::addColumn<FormatsDessins>("montre");
    QTest::addColumn<QString>("saisi");

    QTest::newRow("tous différents") << montres << montresEnTexte;
    QTest::newRow("zéros") << FormatsDessins{0, 0, 0, 0, 0, 0, 0, 0.F, 0.F, QColor(Qt::white)}
                           << "0 0 0 0 0 0 0 0.0 0.0 #ffffff";
    QTest::newRow("bornes") << FormatsDessins{99, 99, 99, 99, 99, 99, 99, 99.9F, 99.9F, QColor(Qt::red)}
                            << "99 99 99 99 99 99 99 99.9 99.9 #ff0000";
    QTest::newRow("trop grands") << FormatsDessins{100, 150, 1000, 9999, 2147483647,
                                                   101, 199, 1.F,  2.F,  QColor(Qt::red)}
                                 << "99 99 99 99 99 99 99 1.0 2.0 #ff0000";
    QTest::newRow("négatifs") << FormatsDessins{-1, -2, -3, -4, -5, -6, -7, -1.F, -0.5F, QColor(Qt::red)}
                              << "0 0 0 0 0 0 0 0.0 0.0 #ff0000";
}

void TestDlgOptDessin::ceQuiEstMontreEstSaisi()
{
    QFETCH(const FormatsDessins, montre);
    dialogue->Montre(montre);
    QTEST(EnTexte(dialogue->Saisie()), "saisi");
    QCOMPARE(dialogue->couleurTraits, montre.couleurTraits);
    QCOMPARE(EcartsDePastille(dialogue->LineEditCouleurTraits, montre.couleurTraits), QString());
}

void TestDlgOptDessin::chaqueChampChangeSonReglage_data()
{
    SaisiesDesLongueurs("#0a141e");
}

void TestDlgOptDessin::chaqueChampChangeSonReglage()
{
    Tape88(*dialogue, QTest::currentDataTag());
    QTEST(EnTexte(dialogue->Saisie()), "saisi");
}

void TestDlgOptDessin::laCouleurChoisieDevientCelleDesTraits()
{
    const QColor choisie(90, 130, 250);
    DialogueOuvert ouvert;
    Scenario scenario;
    ProchaineCouleur(scenario, choisie, true, &ouvert);
    Clique(dialogue->pbModifCouleur);
    QCOMPARE(scenario.Ecarts(), QStringList());
    QCOMPARE(ouvert.couleur, QColor(10, 20, 30));
    QCOMPARE(ouvert.parent, dialogue.get());
    QCOMPARE(dialogue->couleurTraits, choisie);
    QCOMPARE(EcartsDePastille(dialogue->LineEditCouleurTraits, choisie), QString());
    QCOMPARE(EnTexte(dialogue->Saisie()), "11 12 13 14 15 16 17 0.7 3.3 #5a82fa");
    QVERIFY(dialogue->isVisible());

    // The next time it starts from there.
    ProchaineCouleur(scenario, Qt::white, false, &ouvert);
    Clique(dialogue->pbModifCouleur);
    QCOMPARE(ouvert.couleur, choisie);
    QCOMPARE(scenario.Ecarts(), QStringList());
}

void TestDlgOptDessin::sansCouleurOnPeutEnChoisirUne()
{
    dialogue->couleurTraits = QColor();
    Scenario scenario;
    ProchaineCouleur(scenario, Qt::magenta, true);
    Clique(dialogue->pbModifCouleur);
    QCOMPARE(scenario.Ecarts(), QStringList());
    QCOMPARE(dialogue->couleurTraits, QColor(Qt::magenta));
    QCOMPARE(EcartsDePastille(dialogue->LineEditCouleurTraits, Qt::magenta), QString());
}

void TestDlgOptDessin::renoncerALaCouleurNeChangeRien_data()
{
    QTest::addColumn<QColor>("depart");
    QTest::newRow("une couleur") << QColor(10, 20, 30);
    QTest::newRow("aucune couleur") << QColor();
}

void TestDlgOptDessin::renoncerALaCouleurNeChangeRien()
{
    QFETCH(const QColor, depart);
    dialogue->couleurTraits = depart;
    Scenario scenario;
    ProchaineCouleur(scenario, Qt::green, false);
    Clique(dialogue->pbModifCouleur);
    QCOMPARE(scenario.Ecarts(), QStringList());
    QCOMPARE(dialogue->couleurTraits, depart);
    QCOMPARE(EcartsDePastille(dialogue->LineEditCouleurTraits, QColor(10, 20, 30)), QString());
    QVERIFY(dialogue->isVisible());
}

void TestDlgOptDessin::retablirRemetLesValeursDeLaReference()
{
    for (const QString &nom : entiers + reels)
        Remplace(dialogue->findChild<QAbstractSpinBox *>(nom), "77");
    Scenario scenario;
    ProchaineCouleur(scenario, Qt::yellow, true);
    Clique(dialogue->pbModifCouleur);
    QCOMPARE(EnTexte(dialogue->Saisie()), "77 77 77 77 77 77 77 77.0 77.0 #ffff00");

    Clique(Bouton(*dialogue, "Rétablir les valeurs de l'option préférences"));
    QCOMPARE(EnTexte(dialogue->Saisie()), referenceEnTexte);
    QCOMPARE(dialogue->sbLCadre->value(), 41);
    QCOMPARE(dialogue->sbHCadre->value(), 42);
    QCOMPARE(dialogue->sbDMinHoriz->value(), 43);
    QCOMPARE(dialogue->sbDMinVert->value(), 44);
    QCOMPARE(dialogue->sbMargeMin->value(), 45);
    QCOMPARE(dialogue->sbMargeDansCadre->value(), 46);
    QCOMPARE(dialogue->sbIntervCadrePhoto->value(), 47);
    QCOMPARE(dialogue->dsbEpTrait->value(), 1.9);
    QCOMPARE(dialogue->dsbRayonArc->value(), 5.1);
    QCOMPARE(dialogue->couleurTraits, QColor(200, 10, 100));
    QCOMPARE(EcartsDePastille(dialogue->LineEditCouleurTraits, QColor(200, 10, 100)), QString());
    QVERIFY(dialogue->isVisible());
    QCOMPARE(EnTexte(reference), referenceEnTexte);
}

void TestDlgOptDessin::retablirSuitLaReference()
{
    // The dialog keeps no copy of the reference.
    reference.largeurCadre = 5;
    Clique(dialogue->pbValeursParDefaut);
    QCOMPARE(dialogue->sbLCadre->value(), 5);
}

void TestDlgOptDessin::laReferenceResteTelleQuelle_data()
{
    QTest::addColumn<QString>("bouton");
    QTest::newRow("OK") << "OK";
    QTest::newRow("Annuler") << "Annuler";
}

void TestDlgOptDessin::laReferenceResteTelleQuelle()
{
    QFETCH(const QString, bouton);
    Clique(dialogue->pbValeursParDefaut);
    for (const QString &nom : entiers + reels)
        Remplace(dialogue->findChild<QAbstractSpinBox *>(nom), "66");
    Scenario scenario;
    ProchaineCouleur(scenario, Qt::cyan, true);
    Clique(dialogue->pbModifCouleur);
    Clique(Bouton(*dialogue, bouton));
    QVERIFY(!dialogue->isVisible());
    QCOMPARE(EnTexte(reference), referenceEnTexte);
    QCOMPARE(scenario.Ecarts(), QStringList());
}

RAMELIER_TEST_DIALOGUES_MAIN(TestDlgOptDessin)
#include "tst_dlgoptdessin.moc"
