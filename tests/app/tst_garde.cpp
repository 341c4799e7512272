#include "fenetre.h"

#include "arbre.h"
#include "arbres.h"
#include "infopersonne.h"
#include "personne.h"
#include "ramelierdoc.h"

#include <QLabel>

/// The guard that protects unsaved work before the tree goes.
class TestGarde : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup();
    void sansModificationRienNEstDemande();
    void laBoiteDitSesTextes_data();
    void laBoiteDitSesTextes();
    void ouiSauveEtContinue();
    void ouiSansNomDemandeLeNomEtContinue();
    void ouiQuiNePeutSauverSArrete();
    void ouiDontLeNomEstRefuseSArrete();
    void nonContinueSansSauver();
    void nonPuisRenoncerLaisseToutModifie();
    void annulerLaisseTout_data();
    void annulerLaisseTout();
    void laGardeNePermetJamais_data();
    void laGardeNePermetJamais();

private:
    void Modifie();

    std::unique_ptr<Dossier> dossier;
    std::unique_ptr<Fenetre> fenetre;
    QString chemin;
    QString autre;
};

namespace {

const QString avertissement =
    "L'arbre affiché a été modifié, on vous laisse la possibilité de sauver les modifications";
const QString oui = "Oui";
const QString non = "Non";
const QString annuler = "Annuler";

}  // namespace

void TestGarde::init()
{
    EffaceReglages();
    dossier = std::make_unique<Dossier>();
    chemin = dossier->Ecrit("a.xrlg", ArbreEcrit("A", {{1, "MARTIN"}}));
    autre = dossier->Ecrit("b.xrlg", ArbreEcrit("B", {{1, "DURAND"}}));
    fenetre = std::make_unique<Fenetre>(QStringList{chemin});
}

void TestGarde::cleanup()
{
    fenetre.reset();
    dossier.reset();
}

void TestGarde::Modifie()
{
    fenetre->doc->arbre->premiere->info->nom = "LEBRUN";
    fenetre->doc->modifie = true;
    fenetre->MaJStatusBarreInfoModif();
}

void TestGarde::sansModificationRienNEstDemande()
{
    Scenario scenario;
    Choisit(scenario, autre);
    fenetre->slotFileOpen();
    QCOMPARE(scenario.Ecarts(), QStringList());
    QCOMPARE(scenario.Boites().size(), 0);
}

void TestGarde::laBoiteDitSesTextes_data()
{
    QTest::addColumn<bool>("arbre");
    QTest::addColumn<bool>("options");
    QTest::newRow("arbre modifié") << true << false;
    QTest::newRow("options modifiées") << false << true;
    QTest::newRow("les deux") << true << true;
}

void TestGarde::laBoiteDitSesTextes()
{
    QFETCH(const bool, arbre);
    QFETCH(const bool, options);
    fenetre->doc->modifie = arbre;
    fenetre->doc->optionsModifiees = options;
    Scenario scenario;
    scenario.Repond(annuler);
    fenetre->slotFileOpen();
    QCOMPARE(scenario.Ecarts(), QStringList());
    const BoiteVue boite = scenario.Boites().constFirst();
    QCOMPARE(boite.titre, "Sauvegarde");
    QCOMPARE(boite.texte, "L'arbre affiché a été modifié \n enregistrer les modifications ?");
    QCOMPARE(boite.icone, QMessageBox::Warning);
    QCOMPARE(boite.boutons, (QStringList{oui, non, annuler}));
    QCOMPARE(boite.defaut, oui);
    QCOMPARE(boite.echappement, annuler);
    QCOMPARE(boite.parent, fenetre.get());
}

void TestGarde::ouiSauveEtContinue()
{
    Modifie();
    const Journal journal(*fenetre);
    Scenario scenario;
    scenario.Repond(oui);
    Choisit(scenario, autre);
    fenetre->slotFileOpen();
    QCOMPARE(scenario.Ecarts(), QStringList());
    QCOMPARE(
        journal.Lignes(),
        (QStringList{avertissement, "[Sauvegarde]", "Enregistrement du fichier...", "Prêt.", "Ouverture du fichier...",
                     "[Ouvrir]", "= Ramelier 5.1 - " + autre, "Arbre chargé : " + autre + " (2000 ms)", "Prêt"}));
    QCOMPARE(dossier->Lit("a.xrlg"), ArbreEcrit("A", {{1, "LEBRUN"}}, 1));
    QCOMPARE(ArbreEnTexte(*fenetre->doc->arbre), "1 DURAND\n");
    QCOMPARE(fenetre->labelInfoModif->text(), "                     ");
}

void TestGarde::ouiSansNomDemandeLeNomEtContinue()
{
    Modifie();
    fenetre->doc->nomFichier.clear();
    const QString nouveau = dossier->Chemin("nouveau.xrlg");
    Scenario scenario;
    scenario.Repond(oui);
    Choisit(scenario, nouveau);
    Choisit(scenario, autre);
    fenetre->slotFileOpen();
    QCOMPARE(scenario.Ecarts(), QStringList());
    QCOMPARE(dossier->Lit("nouveau.xrlg"), ArbreEcrit("A", {{1, "LEBRUN"}}, 1));
    QCOMPARE(fenetre->fichierArbre, autre);
}

void TestGarde::ouiQuiNePeutSauverSArrete()
{
    Modifie();
    fenetre->doc->nomFichier = dossier->Chemin("disparu/a.xrlg");
    const Journal journal(*fenetre);
    Scenario scenario;
    scenario.Repond(oui).Repond("OK");
    fenetre->slotFileOpen();
    QCOMPARE(scenario.Ecarts(), QStringList());
    QCOMPARE(journal.Lignes(),
             (QStringList{avertissement, "[Sauvegarde]", "Enregistrement du fichier...", "[Fichier XRLG]", "Prêt."}));
    QCOMPARE(fenetre->doc->isModified(), true);
    QCOMPARE(ArbreEnTexte(*fenetre->doc->arbre), "1 LEBRUN\n");
    QCOMPARE(fenetre->labelInfoModif->text(), " document modifé ");
    QCOMPARE(fenetre->fichierArbre, chemin);
}

void TestGarde::ouiDontLeNomEstRefuseSArrete()
{
    Modifie();
    fenetre->doc->nomFichier.clear();
    const Journal journal(*fenetre);
    Scenario scenario;
    scenario.Repond(oui);
    Renonce(scenario);
    fenetre->slotFileOpen();
    QCOMPARE(scenario.Ecarts(), QStringList());
    QCOMPARE(journal.Lignes(),
             (QStringList{avertissement, "[Sauvegarde]", "Enregistrement du fichier sous un nouveau nom...",
                          "[Enregistrer sous]", "Echec à l'enregistrement du fichier (2000 ms)", "Prêt."}));
    QCOMPARE(fenetre->doc->isModified(), true);
    QCOMPARE(ArbreEnTexte(*fenetre->doc->arbre), "1 LEBRUN\n");
}

void TestGarde::nonContinueSansSauver()
{
    Modifie();
    Scenario scenario;
    scenario.Repond(non);
    Choisit(scenario, autre);
    fenetre->slotFileOpen();
    QCOMPARE(scenario.Ecarts(), QStringList());
    QCOMPARE(dossier->Lit("a.xrlg"), ArbreEcrit("A", {{1, "MARTIN"}}));
    QCOMPARE(ArbreEnTexte(*fenetre->doc->arbre), "1 DURAND\n");
    QCOMPARE(fenetre->doc->isModified(), false);
    QCOMPARE(fenetre->labelInfoModif->text(), "                     ");
}

void TestGarde::nonPuisRenoncerLaisseToutModifie()
{
    Modifie();
    fenetre->doc->optionsModifiees = true;
    Scenario scenario;
    scenario.Repond(non);
    Renonce(scenario);
    fenetre->slotFileOpen();
    QCOMPARE(scenario.Ecarts(), QStringList());
    QCOMPARE(StatutDe(*fenetre), "Echec à l'ouverture du fichier (2000 ms)");
    QCOMPARE(ArbreEnTexte(*fenetre->doc->arbre), "1 LEBRUN\n");
    QCOMPARE(fenetre->doc->isModified(), true);
    QCOMPARE(fenetre->doc->areOptionsModified(), true);
}

void TestGarde::annulerLaisseTout_data()
{
    QTest::addColumn<bool>("echappe");
    QTest::newRow("Annuler") << false;
    QTest::newRow("touche Echap") << true;
}

void TestGarde::annulerLaisseTout()
{
    QFETCH(const bool, echappe);
    Modifie();
    const Journal journal(*fenetre);
    Scenario scenario;
    if (echappe)
        scenario.Echappe();
    else
        scenario.Repond(annuler);
    fenetre->slotFileOpen();
    QCOMPARE(scenario.Ecarts(), QStringList());
    // The guard's message stays.
    QCOMPARE(journal.Lignes(), (QStringList{avertissement, "[Sauvegarde]"}));
    QCOMPARE(StatutDe(*fenetre), avertissement);
    QCOMPARE(ArbreEnTexte(*fenetre->doc->arbre), "1 LEBRUN\n");
    QCOMPARE(fenetre->doc->isModified(), true);
    QCOMPARE(fenetre->fichierArbre, chemin);
    QCOMPARE(dossier->Lit("a.xrlg"), ArbreEcrit("A", {{1, "MARTIN"}}));
}

void TestGarde::laGardeNePermetJamais_data()
{
    QTest::addColumn<QString>("reponse");
    QTest::addColumn<bool>("avant");
    QTest::addColumn<bool>("apres");
    QTest::newRow("Oui, permis") << oui << true << true;
    QTest::newRow("Oui, défendu") << oui << false << false;
    QTest::newRow("Non, permis") << non << true << true;
    QTest::newRow("Non, défendu") << non << false << false;
    QTest::newRow("Annuler, permis") << annuler << true << false;
    QTest::newRow("Annuler, défendu") << annuler << false << false;
}

void TestGarde::laGardeNePermetJamais()
{
    QFETCH(const QString, reponse);
    QFETCH(const bool, avant);
    Modifie();
    Scenario scenario;
    scenario.Repond(reponse);
    bool continuer = avant;
    fenetre->proposeSauvegarde(&continuer);
    QCOMPARE(scenario.Ecarts(), QStringList());
    QTEST(continuer, "apres");
}

RAMELIER_TEST_BUREAU_MAIN(TestGarde)
#include "tst_garde.moc"
