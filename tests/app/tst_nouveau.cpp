#include "dlgpdg.h"
#include "dlgpers.h"
#include "fenetre.h"
#include "saisie.h"

#include "arbre.h"
#include "arbres.h"
#include "infopersonne.h"
#include "personne.h"
#include "ramelierdoc.h"

#include <QAction>
#include <QLabel>

/// The command that starts a new tree.
class TestNouveau : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup();
    void unArbreNeufSOuvreEnEdition();
    void unArbreNeufRemplaceLAncien();
    void sansTitreRienNEstCree_data();
    void sansTitreRienNEstCree();
    void sansNomDeRacineRienNEstCree_data();
    void sansNomDeRacineRienNEstCree();
    void unAbandonLaisseLeTitreDeLaFenetre();
    void leTravailNonSauveEstGarde();
    void laPremiereSauvegardeDemandeUnNom();
    void lesOptionsDeLAncienArbreNeSuiventPas();

private:
    std::unique_ptr<Dossier> dossier;
    std::unique_ptr<Fenetre> fenetre;
};

namespace {

const QStringList actionsSansArbre{"actAide",          "actAssembleArbres", "actFileNew",       "actFileOpen",
                                   "actFileQuit",      "actHelpAbout",      "actHelpAboutQt",   "actImporteGED",
                                   "actModeAffichage", "actPreferences",    "actViewStatusBar", "actViewToolBar",
                                   "actWhatsThis"};

}  // namespace

void TestNouveau::init()
{
    EffaceReglages();
    dossier = std::make_unique<Dossier>();
    fenetre = std::make_unique<Fenetre>();
    fenetre->dernierRep = dossier->Chemin();
}

void TestNouveau::cleanup()
{
    fenetre.reset();
    dossier.reset();
}

void TestNouveau::unArbreNeufSOuvreEnEdition()
{
    const Journal journal(*fenetre);
    Scenario scenario;
    Saisit<DlgPdG>(scenario, {{"TextTitre", "Famille Lefèvre"}});
    Saisit<DlgPers>(scenario, {{"TxtNom", "LEFÈVRE"}, {"TxtPrenom", "Élise"}});
    fenetre->actFileNew->trigger();
    QCOMPARE(scenario.Ecarts(), QStringList());
    QCOMPARE(scenario.Boites().size(), 0);
    QCOMPARE(journal.Lignes(),
             (QStringList{"Prêt", "Création d'un nouvel arbre...", "[Arbre généalogique - Page de garde]",
                          "[Personne (Création / Modification)]", "= Ramelier 5.1 - Nouveau", "Prêt", "Prêt."}));
    QCOMPARE(ArbreEnTexte(*fenetre->doc->arbre), "1 Élise LEFÈVRE\n");
    QCOMPARE(fenetre->doc->arbre->infoArbre->titrearbre, "Famille Lefèvre");
    QVERIFY(!fenetre->modeConsultation);
    QCOMPARE(fenetre->labelMode->text(), " Edition ");
    QCOMPARE(fenetre->labelInfoModif->text(), " document modifé ");
    QCOMPARE(fenetre->fichierArbre, QString());
    QStringList actives = actionsSansArbre;
    actives += {"actAjouterMere", "actAjouterPere",  "actEditFicheHTML", "actEditPdG",        "actExporteGED",
                "actFilePrint",   "actFileSave",     "actFileSaveAs",    "actFormatsDessins", "actModeTravail",
                "actModifier",    "actPoliceCaract", "actSuppPers"};
    actives.sort();
    QCOMPARE(ActionsActives(*fenetre), actives);
}

void TestNouveau::unArbreNeufRemplaceLAncien()
{
    const QString chemin = dossier->Ecrit("a.xrlg", ArbreEcrit("A", {{1, "MARTIN"}, {2, "MARTIN"}}));
    fenetre = std::make_unique<Fenetre>(QStringList{chemin});
    fenetre->slotModeTravail();
    Clique(*fenetre, 2);
    Scenario scenario;
    Saisit<DlgPdG>(scenario, {{"TextTitre", "B"}});
    Saisit<DlgPers>(scenario, {{"TxtNom", "DURAND"}});
    fenetre->actFileNew->trigger();
    QCOMPARE(scenario.Ecarts(), QStringList());
    QCOMPARE(ArbreEnTexte(*fenetre->doc->arbre), "1 DURAND\n");
    QVERIFY(EstDessine(*fenetre));
    QCOMPARE(dossier->Lit("a.xrlg"), ArbreEcrit("A", {{1, "MARTIN"}, {2, "MARTIN"}}));
}

void TestNouveau::sansTitreRienNEstCree_data()
{
    QTest::addColumn<bool>("annule");
    QTest::newRow("page de garde annulée") << true;
    QTest::newRow("page de garde sans titre") << false;
}

void TestNouveau::sansTitreRienNEstCree()
{
    QFETCH(const bool, annule);
    const QString chemin = dossier->Ecrit("a.xrlg", ArbreEcrit("A", {{1, "MARTIN"}}));
    fenetre = std::make_unique<Fenetre>(QStringList{chemin});
    Scenario scenario;
    if (annule)
        Abandonne<DlgPdG>(scenario, {{"TextTitre", "A"}});
    else
        Saisit<DlgPdG>(scenario, {{"TextCreePar", "Paul"}});
    scenario.Repond("OK");
    fenetre->actFileNew->trigger();
    QCOMPARE(scenario.Ecarts(), QStringList());
    const BoiteVue boite = scenario.Boites().constFirst();
    QCOMPARE(boite.titre, "Création du nouvel arbre");
    QCOMPARE(boite.texte, "Vous n'avez pas donné de titre au nouvel arbre.\n\nCréation du nouvel arbre abandonnée !!!");
    QCOMPARE(boite.icone, QMessageBox::Information);
    QCOMPARE(boite.boutons, QStringList{"OK"});
    QCOMPARE(boite.parent, fenetre.get());
    QVERIFY(!fenetre->doc->arbre);
    QVERIFY(fenetre->modeConsultation);
    QCOMPARE(ActionsActives(*fenetre), actionsSansArbre);
    QCOMPARE(fenetre->labelInfoModif->text(), QString(21, ' '));
    QCOMPARE(StatutDe(*fenetre), "Prêt.");
}

void TestNouveau::sansNomDeRacineRienNEstCree_data()
{
    QTest::addColumn<bool>("annule");
    QTest::newRow("personne annulée") << true;
    QTest::newRow("personne sans nom ni prénom") << false;
}

void TestNouveau::sansNomDeRacineRienNEstCree()
{
    QFETCH(const bool, annule);
    Scenario scenario;
    Saisit<DlgPdG>(scenario, {{"TextTitre", "A"}});
    if (annule)
        Abandonne<DlgPers>(scenario, {{"TxtNom", "MARTIN"}});
    else
        Saisit<DlgPers>(scenario, {{"TxtDivers", "forgeron"}});
    scenario.Repond("OK");
    fenetre->actFileNew->trigger();
    QCOMPARE(scenario.Ecarts(), QStringList());
    const BoiteVue boite = scenario.Boites().constFirst();
    QCOMPARE(boite.titre, "Création de la racine du nouvel arbre");
    QCOMPARE(boite.texte,
             "Vous n'avez pas donné de nom ni de prénom à la personne racine du nouvel arbre.\n\n"
             "Création du nouvel arbre abandonnée !!!");
    QCOMPARE(boite.icone, QMessageBox::Information);
    QCOMPARE(boite.boutons, QStringList{"OK"});
    QVERIFY(!fenetre->doc->arbre);
    QCOMPARE(ActionsActives(*fenetre), actionsSansArbre);
    QCOMPARE(fenetre->labelInfoModif->text(), QString(21, ' '));
    QCOMPARE(StatutDe(*fenetre), "Prêt.");
}

void TestNouveau::unAbandonLaisseLeTitreDeLaFenetre()
{
    const QString chemin = dossier->Ecrit("a.xrlg", ArbreEcrit("A", {{1, "MARTIN"}}));
    fenetre = std::make_unique<Fenetre>(QStringList{chemin});
    Scenario scenario;
    Abandonne<DlgPdG>(scenario);
    scenario.Repond("OK");
    fenetre->actFileNew->trigger();
    QCOMPARE(scenario.Ecarts(), QStringList());
    QCOMPARE(fenetre->windowTitle(), "Ramelier 5.1 - " + chemin);
    QCOMPARE(fenetre->fichierArbre, QString());
    QCOMPARE(fenetre->fichierOptions, QString());
}

void TestNouveau::leTravailNonSauveEstGarde()
{
    const QString chemin = dossier->Ecrit("a.xrlg", ArbreEcrit("A", {{1, "MARTIN"}}));
    fenetre = std::make_unique<Fenetre>(QStringList{chemin});
    fenetre->doc->modifie = true;
    Scenario scenario;
    scenario.Repond("Annuler");
    fenetre->actFileNew->trigger();
    QCOMPARE(scenario.Ecarts(), QStringList());
    QCOMPARE(scenario.Boites().constFirst().titre, "Sauvegarde");
    QCOMPARE(ArbreEnTexte(*fenetre->doc->arbre), "1 MARTIN\n");
    QCOMPARE(fenetre->fichierArbre, chemin);
    QVERIFY(fenetre->actFileSave->isEnabled());
}

void TestNouveau::laPremiereSauvegardeDemandeUnNom()
{
    DialogueVu vu;
    Scenario scenario;
    Saisit<DlgPdG>(scenario, {{"TextTitre", "A"}});
    Saisit<DlgPers>(scenario, {{"TxtNom", "MARTIN"}});
    Choisit(scenario, dossier->Chemin("neuf"), &vu);
    fenetre->actFileNew->trigger();
    fenetre->actFileSave->trigger();
    QCOMPARE(scenario.Ecarts(), QStringList());
    QCOMPARE(vu.nom, "nouveau");
    QCOMPARE(dossier->Noms(), QStringList{"neuf.xrlg"});
    QCOMPARE(fenetre->windowTitle(), "Ramelier 5.1 - " + dossier->Chemin("neuf.xrlg"));
    QCOMPARE(fenetre->labelInfoModif->text(), QString(21, ' '));
}

void TestNouveau::lesOptionsDeLAncienArbreNeSuiventPas()
{
    const QString chemin = dossier->Ecrit("a.xrlg", ArbreEcrit("A", {{1, "MARTIN"}}));
    dossier->Ecrit("a.opt", OptionsEcrites(77));
    fenetre = std::make_unique<Fenetre>(QStringList{chemin});
    QCOMPARE(fenetre->doc->formats.largeurCadre, 77);
    Scenario scenario;
    Saisit<DlgPdG>(scenario, {{"TextTitre", "B"}});
    Saisit<DlgPers>(scenario, {{"TxtNom", "DURAND"}});
    fenetre->actFileNew->trigger();
    QCOMPARE(fenetre->doc->formats.largeurCadre, 30);
    // Back from the reduced display, the new tree still has none of the old one's lengths.
    fenetre->actModeAffichage->toggle();
    fenetre->actModeAffichage->toggle();
    QCOMPARE(fenetre->doc->formats.largeurCadre, 30);
    QCOMPARE(scenario.Ecarts(), QStringList());
}

RAMELIER_TEST_BUREAU_MAIN(TestNouveau)
#include "tst_nouveau.moc"
