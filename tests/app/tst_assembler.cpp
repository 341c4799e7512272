#include "fenetre.h"

#include "arbre.h"
#include "arbres.h"
#include "infoarbre.h"
#include "ramelierdoc.h"

#include <QAction>
#include <QDir>
#include <QLabel>

/// The command that makes a child's tree out of its father's and its mother's.
class TestAssembler : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup();
    void assembleDeuxArbres();
    void lesDialoguesDisentQuiEstDemande();
    void unFichierAbsentArreteTout_data();
    void unFichierAbsentArreteTout();
    void unFichierIncorrectLibereTout_data();
    void unFichierIncorrectLibereTout();
    void leTravailNonSauveEstGarde();
    void lExportationNEstPasTouchee();
    void laFicheDeLAncienArbreNEstPlusOfferte_data();
    void laFicheDeLAncienArbreNEstPlusOfferte();
    void lAssemblageSeSauveSousUnNom();

private:
    void Assemble(const QString &cheminDuPere, const QString &cheminDeLaMere);

    std::unique_ptr<Dossier> dossier;
    std::unique_ptr<Fenetre> fenetre;
    QString pere;
    QString mere;
};

namespace {

const QStringList commandes{"actFilePrint",      "actFileSave",    "actFileSaveAs",
                            "actFormatsDessins", "actModeTravail", "actPoliceCaract"};

bool AUneCommande(const Fenetre &fenetre)
{
    const QStringList actives = ActionsActives(fenetre);
    return std::any_of(commandes.begin(), commandes.end(),
                       [&actives](const QString &commande) { return actives.contains(commande); });
}

}  // namespace

void TestAssembler::init()
{
    EffaceReglages();
    dossier = std::make_unique<Dossier>();
    pere = dossier->Ecrit("pere.xrlg", ArbreEcrit("P", {{1, "MARTIN", "Jean"}, {2, "MARTIN", "Paul"}}));
    mere = dossier->Ecrit("mere.xrlg", ArbreEcrit("M", {{1, "LEFÈVRE", "Élise"}, {3, "ROUX", "Anne"}}));
    fenetre = std::make_unique<Fenetre>();
    fenetre->dernierRep = dossier->Chemin();
}

void TestAssembler::cleanup()
{
    fenetre.reset();
    dossier.reset();
}

void TestAssembler::Assemble(const QString &cheminDuPere, const QString &cheminDeLaMere)
{
    Scenario scenario;
    Choisit(scenario, cheminDuPere);
    Choisit(scenario, cheminDeLaMere);
    fenetre->actAssembleArbres->trigger();
    QCOMPARE(scenario.Ecarts(), QStringList());
}

void TestAssembler::assembleDeuxArbres()
{
    const Journal journal(*fenetre);
    Assemble(pere, mere);
    QCOMPARE(journal.Lignes(),
             (QStringList{"Nom du fichier arbre du père...", "[Fichier arbre du père]",
                          "Nom du fichier arbre de la mère...", "[Fichier arbre de la mère]", "Prêt",
                          "Assemblage de deux arbres...", "= Ramelier 5.1 - Nouveau", "Prêt"}));
    QCOMPARE(ArbreEnTexte(*fenetre->doc->arbre),
             "1 Enfant\n  2 Jean MARTIN\n  3 Élise LEFÈVRE\n    4 Paul MARTIN\n    7 Anne ROUX\n");
    QCOMPARE(fenetre->doc->arbre->infoArbre->titrearbre, "Généalogie de l'enfant");
    QCOMPARE(fenetre->dernierRep, QDir::homePath());
    QCOMPARE(fenetre->fichierArbre, QString());
    QCOMPARE(fenetre->fichierOptions, QString());
    QVERIFY(!fenetre->modeConsultation);
    QCOMPARE(fenetre->labelInfoModif->text(), " document modifé ");
    for (const QString &commande : commandes)
        QVERIFY2(ActionsActives(*fenetre).contains(commande), qPrintable(commande));
}

void TestAssembler::lesDialoguesDisentQuiEstDemande()
{
    DialogueVu pourLePere;
    DialogueVu pourLaMere;
    Scenario scenario;
    Choisit(scenario, pere, &pourLePere);
    Choisit(scenario, mere, &pourLaMere);
    fenetre->actAssembleArbres->trigger();
    QCOMPARE(scenario.Ecarts(), QStringList());
    QCOMPARE(pourLePere.titre, "Fichier arbre du père");
    QCOMPARE(pourLaMere.titre, "Fichier arbre de la mère");
    for (const DialogueVu &vu : {pourLePere, pourLaMere}) {
        QCOMPARE(vu.dossier, dossier->Chemin());
        QCOMPARE(vu.filtres, QStringList{"Fichiers au format XML (*.xrlg)"});
        QVERIFY(!vu.enregistre);
        QCOMPARE(vu.parent, fenetre.get());
    }
}

void TestAssembler::unFichierAbsentArreteTout_data()
{
    QTest::addColumn<bool>("lePere");
    QTest::addColumn<QString>("status");
    QTest::newRow("père") << true << "le fichier Père n'exite pas";
    QTest::newRow("mère") << false << "le fichier Mère n'exite pas";
}

void TestAssembler::unFichierAbsentArreteTout()
{
    QFETCH(const bool, lePere);
    QFETCH(const QString, status);
    const Journal journal(*fenetre);
    Scenario scenario;
    if (!lePere)
        Choisit(scenario, pere);
    Renonce(scenario);
    scenario.Repond("OK");
    fenetre->actAssembleArbres->trigger();
    QCOMPARE(scenario.Ecarts(), QStringList());
    const BoiteVue boite = scenario.Boites().constFirst();
    QCOMPARE(boite.titre, "Information");
    QCOMPARE(boite.texte, "Le fichier  n'existe pas");
    QCOMPARE(boite.icone, QMessageBox::Information);
    QCOMPARE(boite.boutons, QStringList{"OK"});
    QCOMPARE(journal.Lignes().mid(journal.Lignes().size() - 3), (QStringList{status, "[Information]", "Prêt"}));
    QCOMPARE(fenetre->dernierRep, dossier->Chemin());
    QVERIFY(!fenetre->doc->arbre);
}

void TestAssembler::unFichierIncorrectLibereTout_data()
{
    QTest::addColumn<bool>("lePere");
    QTest::addColumn<QString>("status");
    QTest::newRow("père") << true << "fichier Père incorrect";
    QTest::newRow("mère") << false << "fichier Mère incorrect";
}

void TestAssembler::unFichierIncorrectLibereTout()
{
    QFETCH(const bool, lePere);
    QFETCH(const QString, status);
    const QString mauvais = dossier->Ecrit("mauvais.xrlg", "<?xml version=\"1.0\"?>\n<xrlg version=\"1.0\">\n<arbre>");
    const Journal journal(*fenetre);
    Scenario scenario;
    Choisit(scenario, lePere ? mauvais : pere);
    Choisit(scenario, lePere ? mere : mauvais);
    scenario.Repond("OK");  // the reader's own box
    scenario.Repond("OK");
    fenetre->actAssembleArbres->trigger();
    QCOMPARE(scenario.Ecarts(), QStringList());
    const BoiteVue boite = scenario.Boites().constLast();
    QCOMPARE(boite.titre, "Information");
    QCOMPARE(boite.texte, "Impossible de charger le fichier " + mauvais);
    QCOMPARE(journal.Lignes().mid(journal.Lignes().size() - 3), (QStringList{status, "[Information]", "Prêt"}));
    QVERIFY(!fenetre->doc->arbre);
    QVERIFY(!fenetre->doc->arbrePere);
    QVERIFY(!fenetre->doc->arbreMere);
    QVERIFY(!AUneCommande(*fenetre));
    // The window works on.
    Assemble(pere, mere);
    QCOMPARE(NumerosEnTexte(*fenetre->doc->arbre), "1 2 3 4 7");
}

void TestAssembler::leTravailNonSauveEstGarde()
{
    fenetre = std::make_unique<Fenetre>(QStringList{pere});
    fenetre->doc->modifie = true;
    Scenario scenario;
    scenario.Repond("Annuler");
    fenetre->actAssembleArbres->trigger();
    QCOMPARE(scenario.Ecarts(), QStringList());
    QCOMPARE(scenario.Boites().constFirst().titre, "Sauvegarde");
    QCOMPARE(NumerosEnTexte(*fenetre->doc->arbre), "1 2");
}

void TestAssembler::lExportationNEstPasTouchee()
{
    Assemble(pere, mere);
    QVERIFY(!fenetre->actExporteGED->isEnabled());
    fenetre = std::make_unique<Fenetre>(QStringList{pere});
    QVERIFY(fenetre->actExporteGED->isEnabled());
    Assemble(pere, mere);
    QVERIFY(fenetre->actExporteGED->isEnabled());
}

void TestAssembler::laFicheDeLAncienArbreNEstPlusOfferte_data()
{
    QTest::addColumn<QByteArray>("octetsDuPere");
    QTest::newRow("assemblé") << ArbreEcrit("P", {{1, "MARTIN", "Jean"}});
    QTest::newRow("abandonné") << QByteArray("Ceci n'est pas un arbre.");
}

void TestAssembler::laFicheDeLAncienArbreNEstPlusOfferte()
{
    QFETCH(const QByteArray, octetsDuPere);
    fenetre = std::make_unique<Fenetre>(
        QStringList{dossier->Ecrit("ouvert.xrlg", ArbreEcrit("A", {{1, "MARTIN", "Paul", "fiche.html"}}))});
    Clique(*fenetre, 1);
    QVERIFY(fenetre->actAffFicheHTML->isEnabled());
    Scenario scenario;
    Choisit(scenario, dossier->Ecrit("autre.xrlg", octetsDuPere));
    Choisit(scenario, mere);
    if (!octetsDuPere.startsWith('<'))
        scenario.Repond("OK").Repond("OK");
    fenetre->actAssembleArbres->trigger();
    QCOMPARE(scenario.Ecarts(), QStringList());
    QVERIFY(!fenetre->actAffFicheHTML->isEnabled());
}

void TestAssembler::lAssemblageSeSauveSousUnNom()
{
    fenetre = std::make_unique<Fenetre>(QStringList{pere});
    Assemble(pere, mere);
    DialogueVu vu;
    Scenario scenario;
    Choisit(scenario, dossier->Chemin("enfant"), &vu);
    fenetre->actFileSave->trigger();
    QCOMPARE(scenario.Ecarts(), QStringList());
    QCOMPARE(vu.nom, "nouveau");
    QCOMPARE(dossier->Noms(), (QStringList{"enfant.xrlg", "mere.xrlg", "pere.xrlg"}));
    QCOMPARE(dossier->Lit("pere.xrlg"), ArbreEcrit("P", {{1, "MARTIN", "Jean"}, {2, "MARTIN", "Paul"}}));
}

RAMELIER_TEST_BUREAU_MAIN(TestAssembler)
#include "tst_assembler.moc"
