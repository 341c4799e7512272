#include "arbre.h"
#include "fenetre.h"
#include "ramelierdoc.h"

#include <QDir>
#include <QLabel>

/// Saving, and saving under another name, with the real dialog and boxes.
class TestSauver : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void sauveALaMemePlace();
    void sauverSansNomDemandeUnNom();
    void unEchecDeSauvegardeSeDit();
    void sauveSousUnNouveauNom();
    void leDialoguePartDuBonEndroit_data();
    void leDialoguePartDuBonEndroit();
    void renoncer();
    void lExtensionSAjouteSansPoint();
    void unPointDansLeDossierSuffit();
    void demandeAvantDeRemplacer();
    void remplacerOuNon_data();
    void remplacerOuNon();
    void lesOptionsSuiventLeNouveauNom_data();
    void lesOptionsSuiventLeNouveauNom();
    void lEchecDeSauverSousSeDit();

private:
    [[nodiscard]] QString Arbre1() const
    {
        return dossier->Ecrit(QStringLiteral("a.xrlg"), ArbreEcrit(QStringLiteral("T"), {{1, "MARTIN"}}));
    }

    std::unique_ptr<Dossier> dossier;
};

void TestSauver::init()
{
    EffaceReglages();
    dossier = std::make_unique<Dossier>();
}

void TestSauver::sauveALaMemePlace()
{
    Fenetre fenetre({Arbre1()});
    fenetre.doc->arbre->infoArbre->titrearbre = QStringLiteral("Change");
    fenetre.doc->modifie = true;
    fenetre.MaJStatusBarreInfoModif();
    QCOMPARE(fenetre.labelInfoModif->text(), QStringLiteral(" document modifé "));
    const Scenario scenario;
    const Journal journal(fenetre);
    fenetre.slotFileSave();
    QCOMPARE(scenario.Ecarts(), QStringList());
    QCOMPARE(journal.Lignes(), (QStringList{"Enregistrement du fichier...", "Prêt."}));
    QCOMPARE(fenetre.labelInfoModif->text(), QString(21, u' '));
    QVERIFY(dossier->Lit(QStringLiteral("a.xrlg")).contains("<titrearbre>Change</titrearbre>"));
    QVERIFY(!fenetre.doc->isModified());
}

void TestSauver::sauverSansNomDemandeUnNom()
{
    Fenetre fenetre({Arbre1()});
    fenetre.doc->nomFichier.clear();
    Scenario scenario;
    DialogueVu vu;
    Renonce(scenario, &vu);
    const Journal journal(fenetre);
    fenetre.slotFileSave();
    QCOMPARE(scenario.Ecarts(), QStringList());
    QCOMPARE(vu.titre, QStringLiteral("Enregistrer sous"));
    QCOMPARE(journal.Lignes(),
             (QStringList{"Enregistrement du fichier sous un nouveau nom...", "[Enregistrer sous]",
                          "Echec à l'enregistrement du fichier (2000 ms)", "Prêt."}));
}

void TestSauver::unEchecDeSauvegardeSeDit()
{
    Fenetre fenetre({Arbre1()});
    const QString impossible = dossier->Chemin(QStringLiteral("rien/a.xrlg"));
    fenetre.doc->nomFichier = impossible;
    fenetre.doc->modifie = true;
    Scenario scenario;
    scenario.Repond(QStringLiteral("OK"));
    const Journal journal(fenetre);
    fenetre.slotFileSave();
    QCOMPARE(scenario.Ecarts(), QStringList());
    QCOMPARE(scenario.Boites().first().titre, QStringLiteral("Fichier XRLG"));
    QCOMPARE(scenario.Boites().first().texte,
             QStringLiteral("Impossible d'écrire dans le fichier ") + impossible
                 + QStringLiteral(":\nAucun fichier ou dossier."));
    QCOMPARE(scenario.Boites().first().icone, QMessageBox::Warning);
    QCOMPARE(scenario.Boites().first().parent, nullptr);
    QCOMPARE(journal.Lignes(), (QStringList{"Enregistrement du fichier...", "[Fichier XRLG]", "Prêt."}));
    QVERIFY(fenetre.doc->isModified());
    QCOMPARE(fenetre.labelInfoModif->text(), QStringLiteral(" document modifé "));
}

void TestSauver::sauveSousUnNouveauNom()
{
    Fenetre fenetre({Arbre1()});
    QVERIFY(QDir(dossier->Chemin()).mkdir(QStringLiteral("ailleurs")));
    const QString nouveau = dossier->Chemin(QStringLiteral("ailleurs/b.c.xrlg"));
    fenetre.doc->modifie = true;
    Scenario scenario;
    DialogueVu vu;
    Choisit(scenario, nouveau, &vu);
    const Journal journal(fenetre);
    fenetre.slotFileSaveAs();
    QCOMPARE(scenario.Ecarts(), QStringList());
    QCOMPARE(vu.titre, QStringLiteral("Enregistrer sous"));
    QCOMPARE(vu.filtres, QStringList{QStringLiteral("Fichiers au format XML (*.xrlg)")});
    QVERIFY(vu.enregistre);
    QVERIFY(!vu.confirme);
    QCOMPARE(vu.parent, &fenetre);
    QCOMPARE(journal.Lignes(),
             (QStringList{"Enregistrement du fichier sous un nouveau nom...", "[Enregistrer sous]",
                          "= Ramelier 5.1 - " + nouveau, "Arbre sauvé sous : " + nouveau + " (2000 ms)", "Prêt."}));
    QCOMPARE(fenetre.windowTitle(), QStringLiteral("Ramelier 5.1 - ") + nouveau);
    QCOMPARE(fenetre.fichierArbre, nouveau);
    QCOMPARE(fenetre.dernierRep, dossier->Chemin(QStringLiteral("ailleurs")));
    QCOMPARE(fenetre.fichierOptions, dossier->Chemin(QStringLiteral("ailleurs/b.opt")));
    QCOMPARE(fenetre.doc->nomFichier, nouveau);
    QCOMPARE(fenetre.doc->typeFichier, 4);
    QVERIFY(QFile::exists(nouveau));
    QCOMPARE(fenetre.labelInfoModif->text(), QString(21, u' '));
}

void TestSauver::leDialoguePartDuBonEndroit_data()
{
    QTest::addColumn<bool>("nouvelArbre");
    QTest::addColumn<QString>("nom");
    QTest::newRow("arbre ouvert") << false << "a.xrlg";
    QTest::newRow("nouvel arbre") << true << "nouveau";
}

void TestSauver::leDialoguePartDuBonEndroit()
{
    QFETCH(bool, nouvelArbre);
    QFETCH(QString, nom);
    Fenetre fenetre({Arbre1()});
    if (nouvelArbre)
        fenetre.fichierArbre.clear();
    Scenario scenario;
    DialogueVu vu;
    Renonce(scenario, &vu);
    fenetre.slotFileSaveAs();
    QCOMPARE(scenario.Ecarts(), QStringList());
    QCOMPARE(vu.dossier, dossier->Chemin());
    QCOMPARE(vu.nom, nom);
}

void TestSauver::renoncer()
{
    Fenetre fenetre({Arbre1()});
    const QString avant = fenetre.fichierArbre;
    fenetre.doc->modifie = true;
    Scenario scenario;
    Renonce(scenario);
    const Journal journal(fenetre);
    fenetre.slotFileSaveAs();
    QCOMPARE(scenario.Ecarts(), QStringList());
    QCOMPARE(journal.Lignes(),
             (QStringList{"Enregistrement du fichier sous un nouveau nom...", "[Enregistrer sous]",
                          "Echec à l'enregistrement du fichier (2000 ms)", "Prêt."}));
    QCOMPARE(fenetre.fichierArbre, avant);
    QCOMPARE(fenetre.doc->typeFichier, 0);
    QVERIFY(fenetre.doc->isModified());
}

void TestSauver::lExtensionSAjouteSansPoint()
{
    Fenetre fenetre({Arbre1()});
    Scenario scenario;
    Choisit(scenario, dossier->Chemin(QStringLiteral("sans")));
    fenetre.slotFileSaveAs();
    QCOMPARE(scenario.Ecarts(), QStringList());
    QCOMPARE(fenetre.fichierArbre, dossier->Chemin(QStringLiteral("sans.xrlg")));
    QVERIFY(dossier->Noms().contains(QStringLiteral("sans.xrlg")));
}

void TestSauver::unPointDansLeDossierSuffit()
{
    Fenetre fenetre({Arbre1()});
    QVERIFY(QDir(dossier->Chemin()).mkdir(QStringLiteral("archives.2020")));
    const QString nom = dossier->Chemin(QStringLiteral("archives.2020/arbre"));
    Scenario scenario;
    Choisit(scenario, nom);
    fenetre.slotFileSaveAs();
    QCOMPARE(scenario.Ecarts(), QStringList());
    QCOMPARE(fenetre.fichierArbre, nom);
    QVERIFY(QFile::exists(nom));
    QVERIFY(!QFile::exists(nom + QStringLiteral(".xrlg")));
}

void TestSauver::demandeAvantDeRemplacer()
{
    Fenetre fenetre({Arbre1()});
    const QString autre = dossier->Ecrit(QStringLiteral("autre.xrlg"), "ancien");
    Scenario scenario;
    Choisit(scenario, autre);
    scenario.Repond(QStringLiteral("Non")).Repond(QStringLiteral("OK"));
    const Journal journal(fenetre);
    fenetre.slotFileSaveAs();
    QCOMPARE(scenario.Ecarts(), QStringList());
    const BoiteVue &question = scenario.Boites().at(0);
    QCOMPARE(question.titre, QStringLiteral("Sauver sous..."));
    QCOMPARE(question.texte,
             QStringLiteral("Le fichier ") + autre
                 + QStringLiteral(" existe déjà  !!\nVoulez-vous vraiement le remplacer ??"));
    QCOMPARE(question.icone, QMessageBox::Warning);
    QCOMPARE(question.boutons, (QStringList{"Oui", "Non"}));
    QCOMPARE(question.defaut, QStringLiteral("Non"));
    QCOMPARE(question.echappement, QStringLiteral("Non"));
    QCOMPARE(question.parent, &fenetre);
    const BoiteVue &refus = scenario.Boites().at(1);
    QCOMPARE(refus.titre, QStringLiteral("Information"));
    QCOMPARE(refus.texte, QStringLiteral("L'arbre n'a pas été enregistré sous le nouveau nom"));
    QCOMPARE(refus.icone, QMessageBox::Information);
    QCOMPARE(refus.boutons, QStringList{QStringLiteral("OK")});
    QCOMPARE(refus.parent, &fenetre);
    QCOMPARE(journal.Lignes(),
             (QStringList{"Enregistrement du fichier sous un nouveau nom...", "[Enregistrer sous]", "[Sauver sous...]",
                          "[Information]", "Prêt."}));
}

void TestSauver::remplacerOuNon_data()
{
    QTest::addColumn<QString>("reponse");
    QTest::addColumn<bool>("remplace");
    QTest::newRow("Oui") << "Oui" << true;
    QTest::newRow("Non") << "Non" << false;
    QTest::newRow("Echap") << "" << false;
}

void TestSauver::remplacerOuNon()
{
    QFETCH(QString, reponse);
    QFETCH(bool, remplace);
    Fenetre fenetre({Arbre1()});
    const QString avant = fenetre.fichierArbre;
    const QString autre = dossier->Ecrit(QStringLiteral("autre.xrlg"), "ancien");
    Scenario scenario;
    Choisit(scenario, autre);
    if (reponse.isEmpty())
        scenario.Echappe();
    else
        scenario.Repond(reponse);
    if (!remplace)
        scenario.Repond(QStringLiteral("OK"));
    fenetre.slotFileSaveAs();
    QCOMPARE(scenario.Ecarts(), QStringList());
    QCOMPARE(dossier->Lit(QStringLiteral("autre.xrlg")) != "ancien", remplace);
    QCOMPARE(fenetre.fichierArbre, remplace ? autre : avant);
}

void TestSauver::lesOptionsSuiventLeNouveauNom_data()
{
    QTest::addColumn<bool>("anciennes");
    QTest::addColumn<bool>("modifiees");
    QTest::addColumn<bool>("ecrites");
    QTest::newRow("aucune") << false << false << false;
    QTest::newRow("l'arbre en avait") << true << false << true;
    QTest::newRow("modifiées") << false << true << true;
}

void TestSauver::lesOptionsSuiventLeNouveauNom()
{
    QFETCH(bool, anciennes);
    QFETCH(bool, modifiees);
    QFETCH(bool, ecrites);
    if (anciennes)
        dossier->Ecrit(QStringLiteral("a.opt"), OptionsEcrites(47));
    Fenetre fenetre({Arbre1()});
    fenetre.doc->optionsModifiees = modifiees;
    Scenario scenario;
    Choisit(scenario, dossier->Chemin(QStringLiteral("b.xrlg")));
    fenetre.slotFileSaveAs();
    QCOMPARE(scenario.Ecarts(), QStringList());
    QCOMPARE(dossier->Noms().contains(QStringLiteral("b.opt")), ecrites);
    if (anciennes)
        QCOMPARE(dossier->Lit(QStringLiteral("b.opt")), OptionsEcrites(47));
}

void TestSauver::lEchecDeSauverSousSeDit()
{
    Fenetre fenetre({Arbre1()});
    fenetre.doc->modifie = true;
    Scenario scenario;
    // A folder that is not there: the dialog takes the name, the disk does not.
    const QString absent = dossier->Chemin(QStringLiteral("rien/b.xrlg"));
    Choisit(scenario, absent);
    scenario.Repond(QStringLiteral("OK"));
    fenetre.slotFileSaveAs();
    QCOMPARE(scenario.Ecarts(), QStringList());
    QCOMPARE(scenario.Boites().first().titre, QStringLiteral("Fichier XRLG"));
    QVERIFY(fenetre.doc->isModified());
    QCOMPARE(fenetre.doc->typeFichier, 4);
    QCOMPARE(fenetre.labelInfoModif->text(), QStringLiteral(" document modifé "));
    QVERIFY(!QFile::exists(absent));
}

RAMELIER_TEST_BUREAU_MAIN(TestSauver)
#include "tst_sauver.moc"
