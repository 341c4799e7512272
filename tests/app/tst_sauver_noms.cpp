#include "arbre.h"
#include "fenetre.h"
#include "infopersonne.h"
#include "personne.h"
#include "ramelierdoc.h"

#include <QAction>
#include <QDir>
#include <QLabel>

/// Saving: which names the files get, what stays when a save fails or is refused, and what is written.
class TestSauverNoms : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void sauverEcritLArbreEtSesOptions();
    void sauverSansChangementEcritQuandMeme();
    void unNouvelArbrePartDuDossierCourantQuandAucunNAServi();
    void lExtensionDependDuPoint_data();
    void lExtensionDependDuPoint();
    void refuserDeRemplacerLaisseTousLesNoms_data();
    void refuserDeRemplacerLaisseTousLesNoms();
    void remplacerNeDemandeQuUneFois();
    void remplacerSonPropreFichierDemandeAussi();
    void lesOptionsDuNomRemplaceNeComptentPas();
    void sansFichierDOptionsRienNeSEcrit();
    void unEchecDeSauverSousGardeLeNouveauNom();
    void renoncerLaisseToutEnPlace();
    void apresSauverSousOnSauveALaNouvellePlace();

private:
    [[nodiscard]] QString Arbre1() const { return dossier->Ecrit("a.xrlg", ArbreEcrit("T", {{1, "MARTIN"}})); }
    void Modifie(Fenetre &fenetre) const;

    std::unique_ptr<Dossier> dossier;
    const QByteArray arbreModifie = ArbreEcrit("T", {{1, "LEBRUN"}}, 1);
};

void TestSauverNoms::init()
{
    EffaceReglages();
    dossier = std::make_unique<Dossier>();
}

void TestSauverNoms::Modifie(Fenetre &fenetre) const
{
    fenetre.doc->arbre->premiere->info->nom = QStringLiteral("LEBRUN");
    fenetre.doc->modifie = true;
    fenetre.MaJStatusBarreInfoModif();
}

void TestSauverNoms::sauverEcritLArbreEtSesOptions()
{
    Fenetre fenetre({Arbre1()});
    Modifie(fenetre);
    fenetre.doc->formats.largeurCadre = 47;
    fenetre.doc->optionsModifiees = true;
    const Scenario scenario;
    fenetre.actFileSave->trigger();
    QCOMPARE(scenario.Ecarts(), QStringList());
    QCOMPARE(dossier->Noms(), (QStringList{"a.opt", "a.xrlg", "a.xrlg~"}));
    QCOMPARE(dossier->Lit("a.xrlg"), arbreModifie);
    QCOMPARE(dossier->Lit("a.opt"), OptionsEcrites(47));
    QCOMPARE(fenetre.doc->areOptionsModified(), false);
    QCOMPARE(fenetre.windowTitle(), "Ramelier 5.1 - " + dossier->Chemin("a.xrlg"));
}

void TestSauverNoms::sauverSansChangementEcritQuandMeme()
{
    Fenetre fenetre({Arbre1()});
    QVERIFY(QFile::remove(dossier->Chemin("a.xrlg")));
    fenetre.slotFileSave();
    QCOMPARE(dossier->Noms(), QStringList{"a.xrlg"});
    QCOMPARE(dossier->Lit("a.xrlg"), ArbreEcrit("T", {{1, "MARTIN"}}, 1));
}

void TestSauverNoms::unNouvelArbrePartDuDossierCourantQuandAucunNAServi()
{
    const QString avant = QDir::currentPath();
    Fenetre fenetre({Arbre1()});
    fenetre.fichierArbre.clear();
    fenetre.dernierRep.clear();
    QVERIFY(QDir::setCurrent(dossier->Chemin()));
    Scenario scenario;
    DialogueVu vu;
    Renonce(scenario, &vu);
    fenetre.slotFileSaveAs();
    QVERIFY(QDir::setCurrent(avant));
    QCOMPARE(scenario.Ecarts(), QStringList());
    QCOMPARE(vu.dossier, dossier->Chemin());
    QCOMPARE(vu.nom, "nouveau");
}

void TestSauverNoms::lExtensionDependDuPoint_data()
{
    QTest::addColumn<QString>("choisi");
    QTest::addColumn<QString>("ecrit");
    QTest::addColumn<QString>("options");
    const auto ligne = [](const char *choisi, const char *ecrit, const char *options) {
        QTest::newRow(choisi) << QString::fromUtf8(choisi) << QString::fromUtf8(ecrit) << QString::fromUtf8(options);
    };
    ligne("martin", "martin.xrlg", "martin.opt");
    ligne("mes aïeux", "mes aïeux.xrlg", "mes aïeux.opt");
    ligne("martin.xrlg", "martin.xrlg", "martin.opt");
    ligne("martin.txt", "martin.txt", "martin.opt");
    ligne("martin.final.xrlg", "martin.final.xrlg", "martin.opt");
    ligne("martin.", "martin.", "martin.opt");
    ligne(".martin", ".martin", ".opt");
    ligne("archives.2020/arbre", "archives.2020/arbre", "archives.2020/arbre.opt");
    ligne("archives/arbre", "archives/arbre.xrlg", "archives/arbre.opt");
}

void TestSauverNoms::lExtensionDependDuPoint()
{
    QFETCH(const QString, choisi);
    QFETCH(const QString, ecrit);
    QFETCH(const QString, options);
    QVERIFY(QDir(dossier->Chemin()).mkdir("archives.2020"));
    QVERIFY(QDir(dossier->Chemin()).mkdir("archives"));
    Fenetre fenetre({Arbre1()});
    Modifie(fenetre);
    Scenario scenario;
    Choisit(scenario, dossier->Chemin(choisi));
    fenetre.slotFileSaveAs();
    QCOMPARE(scenario.Ecarts(), QStringList());
    const QString chemin = dossier->Chemin(ecrit);
    QCOMPARE(dossier->Lit(ecrit), arbreModifie);
    QCOMPARE(fenetre.fichierArbre, chemin);
    QCOMPARE(fenetre.doc->nomFichier, chemin);
    QCOMPARE(fenetre.windowTitle(), "Ramelier 5.1 - " + chemin);
    QCOMPARE(fenetre.fichierOptions, dossier->Chemin(options));
    QCOMPARE(fenetre.dernierRep, QFileInfo(chemin).absolutePath());
    QCOMPARE(QFileInfo(dossier->Chemin("archives.2020/arbre.xrlg")).exists(), false);
    // The old file stays as it was.
    QCOMPARE(dossier->Lit("a.xrlg"), ArbreEcrit("T", {{1, "MARTIN"}}));
}

void TestSauverNoms::refuserDeRemplacerLaisseTousLesNoms_data()
{
    QTest::addColumn<bool>("echappe");
    QTest::newRow("Non") << false;
    QTest::newRow("touche Echap") << true;
}

void TestSauverNoms::refuserDeRemplacerLaisseTousLesNoms()
{
    QFETCH(const bool, echappe);
    const Dossier autre;
    const QString ancien = autre.Ecrit("b.xrlg", "ancien");
    const QString chemin = Arbre1();
    Fenetre fenetre({chemin});
    Modifie(fenetre);
    Scenario scenario;
    Choisit(scenario, ancien);
    if (echappe)
        scenario.Echappe();
    else
        scenario.Repond("Non");
    scenario.Repond("OK");
    fenetre.slotFileSaveAs();
    QCOMPARE(scenario.Ecarts(), QStringList());
    QCOMPARE(autre.Noms(), QStringList{"b.xrlg"});
    QCOMPARE(autre.Lit("b.xrlg"), QByteArray("ancien"));
    QCOMPARE(StatutDe(fenetre), "Prêt.");
    QCOMPARE(fenetre.fichierArbre, chemin);
    QCOMPARE(fenetre.fichierOptions, dossier->Chemin("a.opt"));
    QCOMPARE(fenetre.dernierRep, dossier->Chemin());
    QCOMPARE(fenetre.doc->nomFichier, chemin);
    QCOMPARE(fenetre.doc->typeFichier, 0);
    QCOMPARE(fenetre.doc->isModified(), true);
    QCOMPARE(fenetre.windowTitle(), "Ramelier 5.1 - " + chemin);
    QCOMPARE(fenetre.labelInfoModif->text(), " document modifé ");
}

void TestSauverNoms::remplacerNeDemandeQuUneFois()
{
    Fenetre fenetre({Arbre1()});
    Modifie(fenetre);
    const QString autre = dossier->Ecrit("b.xrlg", "ancien");
    const Journal journal(fenetre);
    Scenario scenario;
    Choisit(scenario, autre);
    scenario.Repond("Oui");
    fenetre.slotFileSaveAs();
    QCOMPARE(scenario.Ecarts(), QStringList());
    QCOMPARE(journal.Lignes(),
             (QStringList{"Enregistrement du fichier sous un nouveau nom...", "[Enregistrer sous]", "[Sauver sous...]",
                          "= Ramelier 5.1 - " + autre, "Arbre sauvé sous : " + autre + " (2000 ms)", "Prêt."}));
    QCOMPARE(dossier->Lit("b.xrlg"), arbreModifie);
}

void TestSauverNoms::remplacerSonPropreFichierDemandeAussi()
{
    const QString chemin = Arbre1();
    Fenetre fenetre({chemin});
    Modifie(fenetre);
    Scenario scenario;
    // The name without its extension, which is the file's own once it is added.
    Choisit(scenario, dossier->Chemin("a"));
    scenario.Repond("Oui");
    fenetre.slotFileSaveAs();
    QCOMPARE(scenario.Ecarts(), QStringList());
    QCOMPARE(scenario.Boites().constFirst().texte,
             "Le fichier " + chemin + " existe déjà  !!\nVoulez-vous vraiement le remplacer ??");
    QCOMPARE(dossier->Lit("a.xrlg"), arbreModifie);
}

void TestSauverNoms::lesOptionsDuNomRemplaceNeComptentPas()
{
    // The tree had no options file; the file it replaces has one, which stays as it is.
    const QString autre = dossier->Ecrit("b.xrlg", "ancien");
    dossier->Ecrit("b.opt", OptionsEcrites(55));
    Fenetre fenetre({Arbre1()});
    Scenario scenario;
    Choisit(scenario, autre);
    scenario.Repond("Oui");
    fenetre.slotFileSaveAs();
    QCOMPARE(scenario.Ecarts(), QStringList());
    QCOMPARE(fenetre.fichierOptions, dossier->Chemin("b.opt"));
    QCOMPARE(dossier->Lit("b.opt"), OptionsEcrites(55));
    QCOMPARE(fenetre.doc->formats.largeurCadre, 30);
}

void TestSauverNoms::sansFichierDOptionsRienNeSEcrit()
{
    Fenetre fenetre({Arbre1()});
    fenetre.fichierOptions.clear();
    Scenario scenario;
    Choisit(scenario, dossier->Chemin("b.xrlg"));
    fenetre.slotFileSaveAs();
    QCOMPARE(scenario.Ecarts(), QStringList());
    QCOMPARE(dossier->Noms(), (QStringList{"a.xrlg", "b.xrlg"}));
    QCOMPARE(fenetre.fichierOptions, dossier->Chemin("b.opt"));
}

void TestSauverNoms::unEchecDeSauverSousGardeLeNouveauNom()
{
    const QString chemin = Arbre1();
    Fenetre fenetre({chemin});
    Modifie(fenetre);
    const QString absent = dossier->Chemin("rien/b.xrlg");
    const Journal journal(fenetre);
    Scenario scenario;
    Choisit(scenario, absent);
    scenario.Repond("OK");
    fenetre.slotFileSaveAs();
    QCOMPARE(scenario.Ecarts(), QStringList());
    // Only the document's own box tells: the command goes on as if the file had been written.
    QCOMPARE(journal.Lignes(),
             (QStringList{"Enregistrement du fichier sous un nouveau nom...", "[Enregistrer sous]", "[Fichier XRLG]",
                          "= Ramelier 5.1 - " + absent, "Arbre sauvé sous : " + absent + " (2000 ms)", "Prêt."}));
    QCOMPARE(fenetre.fichierArbre, absent);
    QCOMPARE(fenetre.dernierRep, dossier->Chemin("rien"));
    QCOMPARE(fenetre.fichierOptions, dossier->Chemin("rien/b.opt"));
    QCOMPARE(fenetre.doc->nomFichier, chemin);
    QCOMPARE(fenetre.doc->isModified(), true);
    QCOMPARE(dossier->Lit("a.xrlg"), ArbreEcrit("T", {{1, "MARTIN"}}));
}

void TestSauverNoms::renoncerLaisseToutEnPlace()
{
    const QString chemin = Arbre1();
    Fenetre fenetre({chemin});
    Modifie(fenetre);
    Scenario scenario;
    Renonce(scenario);
    fenetre.actFileSaveAs->trigger();
    QCOMPARE(scenario.Ecarts(), QStringList());
    // Without an end: "Prêt." is what stays.
    QCOMPARE(StatutDe(fenetre), "Prêt.");
    QCOMPARE(fenetre.fichierArbre, chemin);
    QCOMPARE(fenetre.fichierOptions, dossier->Chemin("a.opt"));
    QCOMPARE(fenetre.doc->nomFichier, chemin);
    QCOMPARE(fenetre.windowTitle(), "Ramelier 5.1 - " + chemin);
    QCOMPARE(dossier->Noms(), QStringList{"a.xrlg"});
    QCOMPARE(dossier->Lit("a.xrlg"), ArbreEcrit("T", {{1, "MARTIN"}}));
}

void TestSauverNoms::apresSauverSousOnSauveALaNouvellePlace()
{
    Fenetre fenetre({Arbre1()});
    Scenario scenario;
    Choisit(scenario, dossier->Chemin("b"));
    fenetre.slotFileSaveAs();
    Modifie(fenetre);
    fenetre.slotFileSave();
    QCOMPARE(scenario.Ecarts(), QStringList());
    QCOMPARE(dossier->Lit("b.xrlg"), arbreModifie);
    QCOMPARE(dossier->Lit("a.xrlg"), ArbreEcrit("T", {{1, "MARTIN"}}));
}

RAMELIER_TEST_BUREAU_MAIN(TestSauverNoms)
#include "tst_sauver_noms.moc"
