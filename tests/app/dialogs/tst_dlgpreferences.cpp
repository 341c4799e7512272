#include "presentationdessai.h"

#include "dlgpreferences.h"

#include <QApplication>
#include <QLineEdit>

/// The values that every new tree starts from.
class TestDlgPreferences : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup() { dialogue.reset(); }
    void lesTextesSontCeuxPrevus();
    void chaqueChampASonLabel_data();
    void chaqueChampASonLabel();
    void lesBoutonsOntLeursNoms_data();
    void lesBoutonsOntLeursNoms();
    void lesChampsGardentLesBornesDuCadreLogiciel();
    void ceQuiEstMontreEstSaisi();
    void chaqueChampChangeSonReglage_data();
    void chaqueChampChangeSonReglage();
    void uneCouleurNeChangePasLAutre_data();
    void uneCouleurNeChangePasLAutre();
    void renoncerALaCouleurNeChangeRien_data();
    void renoncerALaCouleurNeChangeRien();
    void unBoutonNeChangeQueSaPolice_data();
    void unBoutonNeChangeQueSaPolice();
    void renoncerALaPoliceNeChangeRien_data();
    void renoncerALaPoliceNeChangeRien();
    void retablirRemetLesValeursDOrigine();
    void apresRetablirEtOkLeTitreNEstPasGras();

private:
    void ChangeTout();

    std::unique_ptr<DlgPreferences> dialogue;
};

namespace {

const QStringList longueurs{"sbLCadre",         "sbHCadre",           "sbDMinHoriz", "sbDMinVert", "sbMargeMin",
                            "sbMargeDansCadre", "sbIntervCadrePhoto", "dsbEpTrait",  "dsbRayonArc"};
const QStringList boutonsDePolice{"Modifier la police des textes ...", "Modifier la police des numéros ...",
                                  "Modifier la police du titre ...", "Modifier la police de la légende ..."};

const FormatsDessins formatsMontres{11, 12, 13, 14, 15, 16, 17, 0.7F, 3.3F, QColor(1, 2, 3)};
const QString formatsEnTexte = "11 12 13 14 15 16 17 0.7 3.3 #010203";

void LignesDesPolices()
{
    QTest::addColumn<int>("rang");
    QTest::newRow("textes") << 0;
    QTest::newRow("numéros") << 1;
    QTest::newRow("titre") << 2;
    QTest::newRow("légende") << 3;
}

void LignesDesCouleurs()
{
    QTest::addColumn<QString>("bouton");
    QTest::addColumn<bool>("traits");
    QTest::newRow("traits") << "pbModifCouleurTraits" << true;
    QTest::newRow("textes") << "pbModifCouleurTextes" << false;
}

}  // namespace

void TestDlgPreferences::init()
{
    dialogue = std::make_unique<DlgPreferences>(nullptr);
    dialogue->Montre(formatsMontres, policesDessai);
    QVERIFY(Affiche(*dialogue));
}

void TestDlgPreferences::ChangeTout()
{
    for (const QString &nom : longueurs)
        Remplace(dialogue->findChild<QAbstractSpinBox *>(nom), "77");
    Scenario scenario;
    for (const QString &bouton : boutonsDePolice) {
        ProchainePolice(scenario, QFont("Liberation Serif", 22, QFont::Bold, true), true);
        Clique(Bouton(*dialogue, bouton));
    }
    for (QPushButton *bouton : {dialogue->pbModifCouleurTraits, dialogue->pbModifCouleurTextes}) {
        ProchaineCouleur(scenario, Qt::yellow, true);
        Clique(bouton);
    }
    QCOMPARE(scenario.Ecarts(), QStringList());
    QCOMPARE(EnTexte(dialogue->Saisie()), "77 77 77 77 77 77 77 77.0 77.0 #ffff00");
    QCOMPARE(EnTextes(dialogue->polices).count("Liberation Serif 22 700 italique"), 4);
    QCOMPARE(EnTextes(dialogue->polices).last(), "#ffff00");
}

void TestDlgPreferences::lesTextesSontCeuxPrevus()
{
    const DlgPreferences vide(nullptr);
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
                       "NOTA : Toutes les dimensions sont en millimètres (mm)",
                       "Police",
                       "Style",
                       "Taille",
                       "Textes des cadres :",
                       "Numéros :",
                       "Titre :",
                       "Légende :",
                       "Couleur des textes : "};
    textes.sort();
    QCOMPARE(TextesDesLabels(vide), textes);
}

void TestDlgPreferences::chaqueChampASonLabel_data()
{
    LabelsDesLongueurs();
}

void TestDlgPreferences::chaqueChampASonLabel()
{
    const auto *champ = dialogue->findChild<QAbstractSpinBox *>(QTest::currentDataTag());
    QVERIFY(champ);
    QTEST(LabelDe(champ), "texte");
}

void TestDlgPreferences::lesBoutonsOntLeursNoms_data()
{
    QTest::addColumn<QString>("texte");

    QTest::newRow("pbModifCouleurTraits") << "Modifier la couleur des traits ...";
    QTest::newRow("pbModifCouleurTextes") << "Modifier la couleur des textes ...";
    QTest::newRow("pbValParDef") << "Rétablir toutes les valeurs par défaut";
    QTest::newRow("pbModifPolTextes") << "Modifier la police des textes ...";
    QTest::newRow("pbModifPolTitre") << "Modifier la police du titre ...";
    QTest::newRow("pbModifPolLegende") << "Modifier la police de la légende ...";
}

void TestDlgPreferences::lesBoutonsOntLeursNoms()
{
    const auto *bouton = dialogue->findChild<QPushButton *>(QTest::currentDataTag());
    QVERIFY(bouton);
    QTEST(bouton->text(), "texte");
}

void TestDlgPreferences::lesChampsGardentLesBornesDuCadreLogiciel()
{
    const auto entiers = dialogue->findChildren<QSpinBox *>();
    QCOMPARE(entiers.size(), 7);
    for (QSpinBox *entier : entiers) {
        QCOMPARE(entier->minimum(), 0);
        QCOMPARE(entier->maximum(), 99);
        Remplace(entier, "150");
        QCOMPARE(entier->value(), 15);
    }
    const auto reels = dialogue->findChildren<QDoubleSpinBox *>();
    QCOMPARE(reels.size(), 2);
    for (QDoubleSpinBox *reel : reels) {
        QCOMPARE(reel->decimals(), 1);
        QCOMPARE(reel->singleStep(), 0.1);
        QCOMPARE(reel->minimum(), 0.0);
        // What the toolkit makes of its 99.99 with one decimal.
        QCOMPARE(reel->maximum(), 100.0);
    }
}

void TestDlgPreferences::ceQuiEstMontreEstSaisi()
{
    QCOMPARE(EnTexte(dialogue->Saisie()), formatsEnTexte);
    QCOMPARE(dialogue->couleurTraits, QColor(1, 2, 3));
    QCOMPARE(EnTextes(dialogue->polices), policesDessaiEnTextes);
    QCOMPARE(LabelsDesPolices(*dialogue), labelsDessai);
    QVERIFY(dialogue->findChild<QLineEdit *>("LineEditCouleurTraits"));
    QVERIFY(dialogue->findChild<QLineEdit *>("LineEditCouleurTextes"));
    QCOMPARE(EcartsDePastille(dialogue->LineEditCouleurTraits, QColor(1, 2, 3)), QString());
    QCOMPARE(EcartsDePastille(dialogue->LineEditCouleurTextes, QColor(10, 20, 30)), QString());
}

void TestDlgPreferences::chaqueChampChangeSonReglage_data()
{
    SaisiesDesLongueurs("#010203");
}

void TestDlgPreferences::chaqueChampChangeSonReglage()
{
    Tape88(*dialogue, QTest::currentDataTag());
    QTEST(EnTexte(dialogue->Saisie()), "saisi");
    QCOMPARE(EnTextes(dialogue->polices), policesDessaiEnTextes);
}

void TestDlgPreferences::uneCouleurNeChangePasLAutre_data()
{
    LignesDesCouleurs();
}

void TestDlgPreferences::uneCouleurNeChangePasLAutre()
{
    QFETCH(const QString, bouton);
    QFETCH(const bool, traits);
    const QColor choisie(90, 130, 250);
    DialogueOuvert ouvert;
    Scenario scenario;
    ProchaineCouleur(scenario, choisie, true, &ouvert);
    Clique(dialogue->findChild<QPushButton *>(bouton));
    QCOMPARE(scenario.Ecarts(), QStringList());
    QCOMPARE(ouvert.couleur, traits ? QColor(1, 2, 3) : QColor(10, 20, 30));
    QCOMPARE(ouvert.parent, dialogue.get());
    const QColor desTraits = traits ? choisie : QColor(1, 2, 3);
    const QColor desTextes = traits ? QColor(10, 20, 30) : choisie;
    QCOMPARE(dialogue->couleurTraits, desTraits);
    QCOMPARE(dialogue->Saisie().couleurTraits, desTraits);
    QCOMPARE(dialogue->polices.couleurCaracteres, desTextes);
    QCOMPARE(EcartsDePastille(dialogue->LineEditCouleurTraits, desTraits), QString());
    QCOMPARE(EcartsDePastille(dialogue->LineEditCouleurTextes, desTextes), QString());
    QVERIFY(dialogue->isVisible());
}

void TestDlgPreferences::renoncerALaCouleurNeChangeRien_data()
{
    LignesDesCouleurs();
}

void TestDlgPreferences::renoncerALaCouleurNeChangeRien()
{
    QFETCH(const QString, bouton);
    Scenario scenario;
    ProchaineCouleur(scenario, Qt::green, false);
    Clique(dialogue->findChild<QPushButton *>(bouton));
    QCOMPARE(scenario.Ecarts(), QStringList());
    QCOMPARE(dialogue->couleurTraits, QColor(1, 2, 3));
    QCOMPARE(dialogue->polices.couleurCaracteres, QColor(10, 20, 30));
    QCOMPARE(EcartsDePastille(dialogue->LineEditCouleurTraits, QColor(1, 2, 3)), QString());
    QCOMPARE(EcartsDePastille(dialogue->LineEditCouleurTextes, QColor(10, 20, 30)), QString());
}

void TestDlgPreferences::unBoutonNeChangeQueSaPolice_data()
{
    LignesDesPolices();
}

void TestDlgPreferences::unBoutonNeChangeQueSaPolice()
{
    QFETCH(const int, rang);
    DialogueOuvert ouvert;
    Scenario scenario;
    ProchainePolice(scenario, QFont("Liberation Serif", 22, QFont::Bold, true), true, &ouvert);
    Clique(Bouton(*dialogue, boutonsDePolice.at(rang)));
    QCOMPARE(scenario.Ecarts(), QStringList());
    QCOMPARE(EnTexte(ouvert.police), policesDessaiEnTextes.at(rang));
    QCOMPARE(ouvert.parent, dialogue.get());
    QStringList polices = policesDessaiEnTextes;
    polices[rang] = "Liberation Serif 22 700 italique";
    QCOMPARE(EnTextes(dialogue->polices), polices);
    QStringList labels = labelsDessai;
    labels[rang] = rang == 0 ? "Liberation Serif 22" : "Liberation Serif Bold Italic 22";
    QCOMPARE(LabelsDesPolices(*dialogue), labels);
    QCOMPARE(EnTexte(dialogue->Saisie()), formatsEnTexte);
}

void TestDlgPreferences::renoncerALaPoliceNeChangeRien_data()
{
    LignesDesPolices();
}

void TestDlgPreferences::renoncerALaPoliceNeChangeRien()
{
    QFETCH(const int, rang);
    Scenario scenario;
    ProchainePolice(scenario, QFont("Liberation Serif", 22, QFont::Bold, true), false);
    Clique(Bouton(*dialogue, boutonsDePolice.at(rang)));
    QCOMPARE(scenario.Ecarts(), QStringList());
    QCOMPARE(EnTextes(dialogue->polices), policesDessaiEnTextes);
    QCOMPARE(LabelsDesPolices(*dialogue), labelsDessai);
}

void TestDlgPreferences::retablirRemetLesValeursDOrigine()
{
    ChangeTout();
    Clique(Bouton(*dialogue, "Rétablir toutes les valeurs par défaut"));
    QVERIFY(dialogue->isVisible());
    QCOMPARE(dialogue->sbLCadre->value(), 30);
    QCOMPARE(dialogue->sbHCadre->value(), 42);
    QCOMPARE(dialogue->sbDMinHoriz->value(), 10);
    QCOMPARE(dialogue->sbDMinVert->value(), 15);
    QCOMPARE(dialogue->sbMargeMin->value(), 15);
    QCOMPARE(dialogue->sbMargeDansCadre->value(), 1);
    QCOMPARE(dialogue->sbIntervCadrePhoto->value(), 1);
    QCOMPARE(dialogue->dsbEpTrait->value(), 1.0);
    QCOMPARE(dialogue->dsbRayonArc->value(), 2.5);
    QCOMPARE(dialogue->couleurTraits, QColor(Qt::black));
    QCOMPARE(EnTexte(dialogue->Saisie()), "30 42 10 15 15 1 1 1.0 2.5 #000000");
    QCOMPARE(EnTextes(dialogue->polices),
             QStringList({"Helvetica 8 400", "Helvetica 14 700", "Helvetica 30 400", "Helvetica 12 400", "#000000"}));
    QCOMPARE(LabelsDesPolices(*dialogue),
             QStringList({"Helvetica 8", "Helvetica Bold 14", "Helvetica Normal 30", "Helvetica Normal 12"}));
    QCOMPARE(EcartsDePastille(dialogue->LineEditCouleurTraits, Qt::black), QString());
    QCOMPARE(EcartsDePastille(dialogue->LineEditCouleurTextes, Qt::black), QString());
}

void TestDlgPreferences::apresRetablirEtOkLeTitreNEstPasGras()
{
    dialogue->Montre(FormatsDessins::ParDefaut(), LesPolices::ParDefaut());
    QCOMPARE(LabelsDesPolices(*dialogue).at(2), "Helvetica Bold 30");
    QVERIFY(dialogue->polices.policeTitre.bold());
    Clique(dialogue->pbValParDef);
    Clique(Bouton(*dialogue, "OK"));
    QCOMPARE(dialogue->result(), int(QDialog::Accepted));
    QCOMPARE(dialogue->polices.policeTitre.pointSize(), 30);
    QVERIFY(!dialogue->polices.policeTitre.bold());
    QVERIFY(!dialogue->polices.policeTitre.italic());
    QVERIFY(dialogue->polices.policeNumeros.bold());
}

RAMELIER_TEST_DIALOGUES_MAIN(TestDlgPreferences)
#include "tst_dlgpreferences.moc"
