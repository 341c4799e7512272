#include "presentationdessai.h"

#include "dlgpolices.h"

#include <QApplication>
#include <QLineEdit>

/// The fonts of one tree.
class TestDlgPolices : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup() { dialogue.reset(); }
    void lesTextesSontCeuxPrevus();
    void lesBoutonsOntLeursNoms_data();
    void lesBoutonsOntLeursNoms();
    void chaqueLigneMeneASonBouton();
    void lesLabelsMontrentLesPolices();
    void lesTextesNOntPasDeStyle();
    void unBoutonNeChangeQueSaPolice_data();
    void unBoutonNeChangeQueSaPolice();
    void leDialoguePartDeLaPoliceEnCours_data();
    void leDialoguePartDeLaPoliceEnCours();
    void renoncerALaPoliceNeChangeRien_data();
    void renoncerALaPoliceNeChangeRien();
    void laCouleurChoisieDevientCelleDesTextes();
    void renoncerALaCouleurNeChangeRien_data();
    void renoncerALaCouleurNeChangeRien();
    void retablirRemetLesValeursDeLaReference();
    void laReferenceResteTelleQuelle_data();
    void laReferenceResteTelleQuelle();

private:
    LesPolices reference;
    std::unique_ptr<DlgPolices> dialogue;
};

namespace {

const QStringList policesDeReference{"Helvetica 7 400", "Liberation Mono 15 400 italique", "Courier 29 700",
                                     "Liberation Sans 10 700 italique", "#c80a64"};

void LignesDesBoutons()
{
    QTest::addColumn<QString>("bouton");
    QTest::addColumn<int>("rang");

    QTest::newRow("textes") << "Modifier la police des textes ..." << 0;
    QTest::newRow("numéros") << "Modifier la police des numéros ..." << 1;
    QTest::newRow("titre") << "Modifier la police du titre ..." << 2;
    QTest::newRow("légende") << "Modifier la police de la légende ..." << 3;
}

}  // namespace

void TestDlgPolices::init()
{
    reference = {QFont("Helvetica", 7), QFont("Liberation Mono", 15, QFont::Normal, true),
                 QFont("Courier", 29, QFont::Bold), QFont("Liberation Sans", 10, QFont::Bold, true),
                 QColor(200, 10, 100)};
    dialogue = std::make_unique<DlgPolices>(&reference, nullptr);
    dialogue->Montre(policesDessai);
    QVERIFY(Affiche(*dialogue));
}

void TestDlgPolices::lesTextesSontCeuxPrevus()
{
    const DlgPolices vide(&reference, nullptr);
    QStringList textes{"Police",    "Style",   "Taille",    "Textes des cadres :",
                       "Numéros :", "Titre :", "Légende :", "Couleur des textes : "};
    textes.sort();
    QCOMPARE(TextesDesLabels(vide), textes);
}

void TestDlgPolices::lesBoutonsOntLeursNoms_data()
{
    QTest::addColumn<QString>("texte");

    QTest::newRow("pbModifPolTextes") << "Modifier la police des textes ...";
    QTest::newRow("pbModifPolNum") << "Modifier la police des numéros ...";
    QTest::newRow("pbModifPolTitre") << "Modifier la police du titre ...";
    QTest::newRow("pbModifPolLegende") << "Modifier la police de la légende ...";
}

void TestDlgPolices::lesBoutonsOntLeursNoms()
{
    const auto *bouton = dialogue->findChild<QPushButton *>(QTest::currentDataTag());
    QVERIFY(bouton);
    QTEST(bouton->text(), "texte");
}

void TestDlgPolices::chaqueLigneMeneASonBouton()
{
    QCOMPARE(LabelDe(Bouton(*dialogue, "Modifier la police des textes ...")), "Textes des cadres :");
    QCOMPARE(LabelDe(Bouton(*dialogue, "Modifier la police des numéros ...")), "Numéros :");
    QCOMPARE(LabelDe(Bouton(*dialogue, "Modifier la police du titre ...")), "Titre :");
    QCOMPARE(LabelDe(Bouton(*dialogue, "Modifier la police de la légende ...")), "Légende :");
    QCOMPARE(LabelDe(Bouton(*dialogue, "Modifier la couleur des textes ...")), "Couleur des textes : ");
}

void TestDlgPolices::lesLabelsMontrentLesPolices()
{
    QCOMPARE(LabelsDesPolices(*dialogue), labelsDessai);
    QCOMPARE(EnTextes(dialogue->polices), policesDessaiEnTextes);
    QVERIFY(dialogue->findChild<QLineEdit *>("LineEditCouleur"));
    QCOMPARE(EcartsDePastille(dialogue->LineEditCouleur, QColor(10, 20, 30)), QString());
    QCOMPARE(dialogue->policesReference, &reference);
}

void TestDlgPolices::lesTextesNOntPasDeStyle()
{
    LesPolices grasses = policesDessai;
    for (QFont *police : {&grasses.policeTextes, &grasses.policeNumeros, &grasses.policeTitre, &grasses.policeLegende})
        *police = QFont("Liberation Sans", 10, QFont::Bold, true);
    dialogue->Montre(grasses);
    QCOMPARE(TextesDesLabels(*dialogue).filter("Bold"), QStringList({"Bold Italic", "Bold Italic", "Bold Italic"}));
}

void TestDlgPolices::unBoutonNeChangeQueSaPolice_data()
{
    LignesDesBoutons();
}

void TestDlgPolices::unBoutonNeChangeQueSaPolice()
{
    QFETCH(const QString, bouton);
    QFETCH(const int, rang);
    Scenario scenario;
    ProchainePolice(scenario, QFont("Liberation Serif", 22, QFont::Bold, true), true);
    Clique(Bouton(*dialogue, bouton));
    QCOMPARE(scenario.Ecarts(), QStringList());
    QStringList labels = labelsDessai;
    labels[rang] = rang == 0 ? "Liberation Serif 22" : "Liberation Serif Bold Italic 22";
    QCOMPARE(LabelsDesPolices(*dialogue), labels);
    QStringList polices = policesDessaiEnTextes;
    polices[rang] = "Liberation Serif 22 700 italique";
    QCOMPARE(EnTextes(dialogue->polices), polices);
    QCOMPARE(EcartsDePastille(dialogue->LineEditCouleur, QColor(10, 20, 30)), QString());
    QVERIFY(dialogue->isVisible());

    // And back to a plain one.
    ProchainePolice(scenario, QFont("Liberation Mono", 6, QFont::Normal, false), true);
    Clique(Bouton(*dialogue, bouton));
    labels[rang] = rang == 0 ? "Liberation Mono 6" : "Liberation Mono Normal 6";
    QCOMPARE(LabelsDesPolices(*dialogue), labels);
    polices[rang] = "Liberation Mono 6 400";
    QCOMPARE(EnTextes(dialogue->polices), polices);
    QCOMPARE(scenario.Ecarts(), QStringList());
}

void TestDlgPolices::leDialoguePartDeLaPoliceEnCours_data()
{
    LignesDesBoutons();
}

void TestDlgPolices::leDialoguePartDeLaPoliceEnCours()
{
    QFETCH(const QString, bouton);
    QFETCH(const int, rang);
    DialogueOuvert ouvert;
    Scenario scenario;
    ProchainePolice(scenario, QFont("Liberation Mono", 24), true, &ouvert);
    Clique(Bouton(*dialogue, bouton));
    QCOMPARE(EnTexte(ouvert.police), policesDessaiEnTextes.at(rang));
    QCOMPARE(ouvert.parent, dialogue.get());

    ProchainePolice(scenario, QFont("Liberation Serif", 5), false, &ouvert);
    Clique(Bouton(*dialogue, bouton));
    QCOMPARE(EnTexte(ouvert.police), "Liberation Mono 24 400");
    QCOMPARE(scenario.Ecarts(), QStringList());
}

void TestDlgPolices::renoncerALaPoliceNeChangeRien_data()
{
    LignesDesBoutons();
}

void TestDlgPolices::renoncerALaPoliceNeChangeRien()
{
    QFETCH(const QString, bouton);
    Scenario scenario;
    ProchainePolice(scenario, QFont("Liberation Serif", 22, QFont::Bold, true), false);
    Clique(Bouton(*dialogue, bouton));
    QCOMPARE(scenario.Ecarts(), QStringList());
    QCOMPARE(LabelsDesPolices(*dialogue), labelsDessai);
    QCOMPARE(EnTextes(dialogue->polices), policesDessaiEnTextes);
    QVERIFY(dialogue->isVisible());
}

void TestDlgPolices::laCouleurChoisieDevientCelleDesTextes()
{
    const QColor choisie(90, 130, 250);
    DialogueOuvert ouvert;
    Scenario scenario;
    ProchaineCouleur(scenario, choisie, true, &ouvert);
    Clique(dialogue->pbModifCouleur);
    QCOMPARE(scenario.Ecarts(), QStringList());
    QCOMPARE(ouvert.couleur, QColor(10, 20, 30));
    QCOMPARE(ouvert.parent, dialogue.get());
    QCOMPARE(dialogue->polices.couleurCaracteres, choisie);
    QCOMPARE(EcartsDePastille(dialogue->LineEditCouleur, choisie), QString());
    QCOMPARE(LabelsDesPolices(*dialogue), labelsDessai);
    QCOMPARE(EnTextes(dialogue->polices).first(4), policesDessaiEnTextes.first(4));
}

void TestDlgPolices::renoncerALaCouleurNeChangeRien_data()
{
    QTest::addColumn<QColor>("depart");
    QTest::newRow("une couleur") << QColor(10, 20, 30);
    QTest::newRow("aucune couleur") << QColor();
}

void TestDlgPolices::renoncerALaCouleurNeChangeRien()
{
    QFETCH(const QColor, depart);
    dialogue->polices.couleurCaracteres = depart;
    Scenario scenario;
    ProchaineCouleur(scenario, Qt::green, false);
    Clique(dialogue->pbModifCouleur);
    QCOMPARE(scenario.Ecarts(), QStringList());
    QCOMPARE(dialogue->polices.couleurCaracteres, depart);
    QCOMPARE(EcartsDePastille(dialogue->LineEditCouleur, QColor(10, 20, 30)), QString());
}

void TestDlgPolices::retablirRemetLesValeursDeLaReference()
{
    Scenario scenario;
    for (const char *bouton : {"Modifier la police des textes ...", "Modifier la police des numéros ...",
                               "Modifier la police du titre ...", "Modifier la police de la légende ..."}) {
        ProchainePolice(scenario, QFont("Liberation Serif", 22, QFont::Bold, true), true);
        Clique(Bouton(*dialogue, bouton));
    }
    ProchaineCouleur(scenario, Qt::yellow, true);
    Clique(dialogue->pbModifCouleur);
    QCOMPARE(scenario.Ecarts(), QStringList());
    QCOMPARE(EnTextes(dialogue->polices).count("Liberation Serif 22 700 italique"), 4);

    Clique(Bouton(*dialogue, "Rétablir les valeurs de l'option préférences"));
    QCOMPARE(EnTextes(dialogue->polices), policesDeReference);
    QCOMPARE(dialogue->polices.policeTitre, reference.policeTitre);
    QCOMPARE(
        LabelsDesPolices(*dialogue),
        QStringList({"Helvetica 7", "Liberation Mono Italic 15", "Courier Bold 29", "Liberation Sans Bold Italic 10"}));
    QCOMPARE(EcartsDePastille(dialogue->LineEditCouleur, QColor(200, 10, 100)), QString());
    QVERIFY(dialogue->isVisible());
    QCOMPARE(EnTextes(reference), policesDeReference);
}

void TestDlgPolices::laReferenceResteTelleQuelle_data()
{
    QTest::addColumn<QString>("bouton");
    QTest::newRow("OK") << "OK";
    QTest::newRow("Annuler") << "Annuler";
}

void TestDlgPolices::laReferenceResteTelleQuelle()
{
    QFETCH(const QString, bouton);
    Clique(Bouton(*dialogue, "Rétablir les valeurs de l'option préférences"));
    Scenario scenario;
    ProchainePolice(scenario, QFont("Liberation Serif", 40), true);
    Clique(Bouton(*dialogue, "Modifier la police du titre ..."));
    ProchaineCouleur(scenario, Qt::cyan, true);
    Clique(Bouton(*dialogue, "Modifier la couleur des textes ..."));
    Clique(Bouton(*dialogue, bouton));
    QVERIFY(!dialogue->isVisible());
    QCOMPARE(EnTextes(reference), policesDeReference);
    QCOMPARE(scenario.Ecarts(), QStringList());
}

RAMELIER_TEST_DIALOGUES_MAIN(TestDlgPolices)
#include "tst_dlgpolices.moc"
