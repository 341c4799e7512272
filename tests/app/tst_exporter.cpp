#include "dlgsexrac.h"
#include "fenetre.h"

#include "ramelierdoc.h"

#include <QAction>

/// The command that writes the tree as a GEDCOM file.
class TestExporter : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup();
    void exporte();
    void leDialogueDitCeQuIlDemande();
    void renoncerNExporteRien();
    void unNomSansPointRecoitLExtension();
    void unFichierExistantNEstRemplaceQuAvecAccord_data();
    void unFichierExistantNEstRemplaceQuAvecAccord();
    void leSexeDeLaRacineEstDemande_data();
    void leSexeDeLaRacineEstDemande();
    void unEchecEstDit();

private:
    std::unique_ptr<Dossier> dossier;
    std::unique_ptr<Fenetre> fenetre;
};

void TestExporter::init()
{
    EffaceReglages();
    dossier = std::make_unique<Dossier>();
    const QString arbre = dossier->Ecrit("a.xrlg", ArbreEcrit("A", {{1, "MARTIN", "Jean"}}));
    fenetre = std::make_unique<Fenetre>(QStringList{arbre});
}

void TestExporter::cleanup()
{
    fenetre.reset();
    dossier.reset();
}

void TestExporter::exporte()
{
    const Journal journal(*fenetre);
    Scenario scenario;
    Choisit(scenario, dossier->Chemin("a.ged"));
    scenario.Dialogue<DlgSexRac>([](DlgSexRac &dialogue) { dialogue.accept(); });
    scenario.Repond("OK");
    fenetre->actExporteGED->trigger();
    QCOMPARE(scenario.Ecarts(), QStringList());
    const BoiteVue boite = scenario.Boites().constFirst();
    QCOMPARE(boite.titre, "Exportation vers GEDCOM");
    QCOMPARE(boite.texte, "Exportation du fichier : a.xrlg\nvers fichier : a.ged\nterminée");
    QCOMPARE(boite.icone, QMessageBox::Information);
    QCOMPARE(boite.parent, nullptr);
    QCOMPARE(journal.Lignes(),
             (QStringList{"Exporter vers fichier au format GEDCOM...", "[Exporter au format GED]",
                          "[Arbre généalogique - Sexe de la racine]", "[Exportation vers GEDCOM]",
                          "Arbre exporté vers : " + dossier->Chemin("a.ged") + " (2000 ms)", "Prêt."}));
    QVERIFY(dossier->Lit("a.ged").contains("0 @I1@ INDI\r\n  1 NAME Jean/MARTIN/\r\n  1 SEX M\r\n"));
    QVERIFY(!fenetre->doc->isModified());
}

void TestExporter::leDialogueDitCeQuIlDemande()
{
    DialogueVu vu;
    Scenario scenario;
    Renonce(scenario, &vu);
    fenetre->actExporteGED->trigger();
    QCOMPARE(scenario.Ecarts(), QStringList());
    QCOMPARE(vu.titre, "Exporter au format GED");
    QCOMPARE(vu.dossier, dossier->Chemin());
    QCOMPARE(vu.nom, QString());
    QCOMPARE(vu.filtres, QStringList{"Fichier GEDCOM (*.ged)"});
    QVERIFY(vu.enregistre);
    QVERIFY(!vu.confirme);
}

void TestExporter::renoncerNExporteRien()
{
    const Journal journal(*fenetre);
    Scenario scenario;
    Renonce(scenario);
    fenetre->actExporteGED->trigger();
    QCOMPARE(scenario.Ecarts(), QStringList());
    QCOMPARE(journal.Lignes(),
             (QStringList{"Exporter vers fichier au format GEDCOM...", "[Exporter au format GED]",
                          "Echec à l'exportation du fichier (2000 ms)", "Prêt."}));
    QCOMPARE(dossier->Noms(), QStringList{"a.xrlg"});
}

void TestExporter::unNomSansPointRecoitLExtension()
{
    Scenario scenario;
    Choisit(scenario, dossier->Chemin("famille"));
    scenario.Dialogue<DlgSexRac>([](DlgSexRac &dialogue) { dialogue.accept(); });
    scenario.Repond("OK");
    fenetre->actExporteGED->trigger();
    QCOMPARE(scenario.Ecarts(), QStringList());
    QCOMPARE(dossier->Noms(), (QStringList{"a.xrlg", "famille.ged"}));
}

void TestExporter::unFichierExistantNEstRemplaceQuAvecAccord_data()
{
    QTest::addColumn<bool>("accord");
    QTest::newRow("Oui") << true;
    QTest::newRow("Non") << false;
}

void TestExporter::unFichierExistantNEstRemplaceQuAvecAccord()
{
    QFETCH(const bool, accord);
    const QString chemin = dossier->Ecrit("a.ged", "ancien");
    Scenario scenario;
    Choisit(scenario, chemin);
    scenario.Repond(accord ? "Oui" : "Non");
    if (accord)
        scenario.Dialogue<DlgSexRac>([](DlgSexRac &dialogue) { dialogue.accept(); });
    scenario.Repond("OK");
    fenetre->actExporteGED->trigger();
    QCOMPARE(scenario.Ecarts(), QStringList());
    const BoiteVue boite = scenario.Boites().constFirst();
    QCOMPARE(boite.titre, "Exporter vers fichier au format GED...");
    QCOMPARE(boite.texte,
             "ATTENTION !!!\nLe fichier " + chemin
                 + " existe déjà  !!\n\nvous riquez de perdre des données si le fichier existant\n"
                   "n'a pas été créé par Ramelier !!\n\nVoulez-vous vraiement le remplacer ??");
    QCOMPARE(boite.icone, QMessageBox::Warning);
    QCOMPARE(boite.boutons, (QStringList{"Oui", "Non"}));
    QCOMPARE(boite.defaut, "Non");
    QCOMPARE(boite.echappement, "Non");
    QCOMPARE(dossier->Lit("a.ged") == "ancien", !accord);
    if (!accord) {
        QCOMPARE(scenario.Boites().constLast().titre, "Information");
        QCOMPARE(scenario.Boites().constLast().texte, "L'arbre n'a pas été exporté vers un fichier GEDCOM");
    }
    QCOMPARE(StatutDe(*fenetre), "Prêt.");
}

void TestExporter::leSexeDeLaRacineEstDemande_data()
{
    QTest::addColumn<bool>("feminin");
    QTest::addColumn<bool>("accepte");
    QTest::addColumn<QByteArray>("ligne");
    QTest::newRow("masculin") << false << true << QByteArray("  1 SEX M\r\n");
    QTest::newRow("féminin") << true << true << QByteArray("  1 SEX F\r\n");
    QTest::newRow("fermé sans répondre") << false << false << QByteArray("  1 SEX M\r\n");
    QTest::newRow("fermé après féminin") << true << false << QByteArray("  1 SEX F\r\n");
}

void TestExporter::leSexeDeLaRacineEstDemande()
{
    QFETCH(const bool, feminin);
    QFETCH(const bool, accepte);
    QFETCH(const QByteArray, ligne);
    Scenario scenario;
    Choisit(scenario, dossier->Chemin("a.ged"));
    scenario.Dialogue<DlgSexRac>([feminin, accepte](DlgSexRac &dialogue) {
        if (feminin)
            dialogue.radioButtonF->click();
        dialogue.done(accepte ? QDialog::Accepted : QDialog::Rejected);
    });
    scenario.Repond("OK");
    fenetre->actExporteGED->trigger();
    QCOMPARE(scenario.Ecarts(), QStringList());
    QVERIFY(dossier->Lit("a.ged").contains(ligne));
}

void TestExporter::unEchecEstDit()
{
    Scenario scenario;
    Choisit(scenario, dossier->Chemin("absent/a.ged"));
    scenario.Repond("OK");
    fenetre->actExporteGED->trigger();
    QCOMPARE(scenario.Ecarts(), QStringList());
    QCOMPARE(scenario.Boites().constFirst().titre, "Exportation vers GEDCOM");
    QCOMPARE(scenario.Boites().constFirst().texte, "Echec à l'exportation du fichier");
}

RAMELIER_TEST_BUREAU_MAIN(TestExporter)
#include "tst_exporter.moc"
