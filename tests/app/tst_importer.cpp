#include "dlgindrac.h"
#include "fenetre.h"

#include "arbre.h"
#include "arbres.h"
#include "infoarbre.h"
#include "ramelierdoc.h"

#include <QAction>
#include <QFileDialog>
#include <QLabel>

/// The command that makes a tree out of a GEDCOM file.
class TestImporter : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup();
    void importeDepuisLaRacineCliquee();
    void importeDepuisLaRacineEcrite();
    void leDialogueDitCeQuIlDemande();
    void renoncerPerdLArbreOuvert();
    void unFichierAbsentEstDit();
    void unFichierSansPersonneEstDit();
    void uneRacineInconnueEstDite();
    void leTravailNonSauveEstGarde();
    void lExportationResteInterdite();
    void lArbreImporteSeSauveSousUnNom();

private:
    void Importe(const QString &nom, const QString &racine);

    std::unique_ptr<Dossier> dossier;
    std::unique_ptr<Fenetre> fenetre;
    QString ged;
};

namespace {

constexpr auto famille = "0 HEAD\n1 CHAR UTF-8\n"
                         "0 @I1@ INDI\n1 NAME Élise /LEFÈVRE/\n1 SEX F\n1 BIRT\n2 DATE ca 1760\n2 PLAC Ploërmel\n"
                         "0 @I2@ INDI\n1 NAME Louis /LEFÈVRE/\n1 OCCU forgeron\n1 FAMS @F1@\n"
                         "0 @I3@ INDI\n1 NAME Anne /ROUX/\n1 FAMS @F1@\n"
                         "0 @F1@ FAM\n1 HUSB @I2@\n1 WIFE @I3@\n1 CHIL @I1@\n"
                         "0 TRLR\n";

}  // namespace

void TestImporter::init()
{
    EffaceReglages();
    dossier = std::make_unique<Dossier>();
    ged = dossier->Ecrit("famille.ged", famille);
    const QString arbre = dossier->Ecrit("a.xrlg", ArbreEcrit("A", {{1, "MARTIN"}}));
    fenetre = std::make_unique<Fenetre>(QStringList{arbre});
}

void TestImporter::cleanup()
{
    fenetre.reset();
    dossier.reset();
}

void TestImporter::Importe(const QString &nom, const QString &racine)
{
    Scenario scenario;
    Choisit(scenario, nom);
    scenario.Dialogue<DlgIndRac>([racine](DlgIndRac &dialogue) {
        dialogue.IndividuChoisi->setText(racine);
        dialogue.OKButton->click();
    });
    fenetre->actImporteGED->trigger();
    QCOMPARE(scenario.Ecarts(), QStringList());
}

void TestImporter::importeDepuisLaRacineCliquee()
{
    const Journal journal(*fenetre);
    QStringList lignes;
    Scenario scenario;
    Choisit(scenario, ged);
    scenario.Dialogue<DlgIndRac>([&lignes](DlgIndRac &dialogue) {
        QListWidget &liste = *dialogue.ListeDesIndividus;
        for (int i = 0; i < liste.count(); ++i)
            lignes += liste.item(i)->text();
        QTest::mouseClick(liste.viewport(), Qt::LeftButton, {}, liste.visualItemRect(liste.item(2)).center());
        dialogue.OKButton->click();
    });
    fenetre->actImporteGED->trigger();
    QCOMPARE(scenario.Ecarts(), QStringList());
    QCOMPARE(lignes,
             (QStringList{"@I3@ Anne  ROUX né(e) le  à ", "@I2@ Louis  LEFÈVRE né(e) le  à ",
                          "@I1@ Élise  LEFÈVRE né(e) le ca 1760 à Ploërmel"}));
    QCOMPARE(journal.Lignes(),
             (QStringList{"Nom du fichier GEDCOM à importer...", "[Ouvrir]", "Prêt",
                          "[Importation de fichier GED - Choix de la racine]", "= Ramelier 5.1 - Nouveau"}));
    QCOMPARE(StatutDe(*fenetre), "Prêt");
    QCOMPARE(NumerosEnTexte(*fenetre->doc->arbre), "1 2 3");
    QCOMPARE(fenetre->doc->arbre->infoArbre->titrearbre, "Généalogie importée de famille.ged");
    QVERIFY(!fenetre->modeConsultation);
    QVERIFY(!fenetre->doc->arbre->selection);
    QCOMPARE(fenetre->fichierArbre, QString());
    QCOMPARE(fenetre->fichierOptions, QString());
    QCOMPARE(fenetre->labelInfoModif->text(), " document modifé ");
    QVERIFY(EstDessine(*fenetre));
}

void TestImporter::importeDepuisLaRacineEcrite()
{
    Importe(ged, "la racine est @I2@, le père");
    QCOMPARE(ArbreEnTexte(*fenetre->doc->arbre), "1 Louis  LEFÈVRE\n");
}

void TestImporter::leDialogueDitCeQuIlDemande()
{
    DialogueVu vu;
    Scenario scenario;
    Renonce(scenario, &vu);
    fenetre->actImporteGED->trigger();
    QCOMPARE(scenario.Ecarts(), QStringList());
    QCOMPARE(vu.titre, "Ouvrir");
    QCOMPARE(vu.dossier, dossier->Chemin());
    QCOMPARE(vu.filtres, QStringList{"Fichiers GEDCOM (*.ged)"});
    QVERIFY(!vu.enregistre);
}

void TestImporter::renoncerPerdLArbreOuvert()
{
    Scenario scenario;
    Renonce(scenario);
    fenetre->actImporteGED->trigger();
    QCOMPARE(scenario.Ecarts(), QStringList());
    QVERIFY(!fenetre->doc->arbre);
    QCOMPARE(StatutDe(*fenetre), "Prêt");
    QVERIFY(!fenetre->actFileSave->isEnabled());
    QVERIFY(!fenetre->actExporteGED->isEnabled());
    QCOMPARE(dossier->Lit("a.xrlg"), ArbreEcrit("A", {{1, "MARTIN"}}));
}

void TestImporter::unFichierAbsentEstDit()
{
    // The dialog's own check lets a folder through when it is typed with its slash; a file that goes meanwhile is the same.
    const Journal journal(*fenetre);
    Scenario scenario;
    scenario.Dialogue<QFileDialog>([this](QFileDialog &dialogue) {
        dialogue.selectFile(ged);
        QFile::remove(ged);
        static_cast<QDialog &>(dialogue).done(QDialog::Accepted);
    });
    scenario.Repond("OK");
    fenetre->actImporteGED->trigger();
    QCOMPARE(scenario.Ecarts(), QStringList());
    const BoiteVue boite = scenario.Boites().constFirst();
    QCOMPARE(boite.titre, "Information");
    QCOMPARE(boite.texte, "Le fichier " + ged + " n'existe pas");
    QCOMPARE(journal.Lignes().mid(journal.Lignes().size() - 3),
             (QStringList{"le fichier GEDCOM n'exite pas", "[Information]", "Prêt"}));
}

void TestImporter::unFichierSansPersonneEstDit()
{
    const QString vide = dossier->Ecrit("vide.ged", "0 HEAD\n0 TRLR\n");
    Scenario scenario;
    Choisit(scenario, vide);
    scenario.Repond("OK");
    fenetre->actImporteGED->trigger();
    QCOMPARE(scenario.Ecarts(), QStringList());
    const BoiteVue boite = scenario.Boites().constFirst();
    QCOMPARE(boite.titre, "Information");
    QCOMPARE(boite.texte, "Impossible de construire un arbre à partir de " + vide);
    QCOMPARE(boite.icone, QMessageBox::Information);
    QCOMPARE(boite.parent, nullptr);
    QVERIFY(!fenetre->doc->arbre);
    QVERIFY(!fenetre->doc->isModified());
    QVERIFY(!fenetre->actFileSave->isEnabled());
    QCOMPARE(StatutDe(*fenetre), "Prêt");
}

void TestImporter::uneRacineInconnueEstDite()
{
    Scenario scenario;
    Choisit(scenario, ged);
    scenario.Dialogue<DlgIndRac>([](DlgIndRac &dialogue) {
        dialogue.IndividuChoisi->setText("@I9@");
        dialogue.OKButton->click();
    });
    scenario.Repond("OK");
    fenetre->actImporteGED->trigger();
    QCOMPARE(scenario.Ecarts(), QStringList());
    QCOMPARE(scenario.Boites().constFirst().texte,
             "Impossible de trouver la personne  @I9@\nproposée comme racine de l'arbre");
    QVERIFY(!fenetre->doc->arbre);
}

void TestImporter::leTravailNonSauveEstGarde()
{
    fenetre->doc->modifie = true;
    Scenario scenario;
    scenario.Repond("Annuler");
    fenetre->actImporteGED->trigger();
    QCOMPARE(scenario.Ecarts(), QStringList());
    QCOMPARE(ArbreEnTexte(*fenetre->doc->arbre), "1 MARTIN\n");
}

void TestImporter::lExportationResteInterdite()
{
    QVERIFY(fenetre->actExporteGED->isEnabled());
    Importe(ged, "@I1@");
    QVERIFY(!fenetre->actExporteGED->isEnabled());
    QVERIFY(fenetre->actFileSave->isEnabled());
}

void TestImporter::lArbreImporteSeSauveSousUnNom()
{
    Importe(ged, "@I1@");
    Scenario scenario;
    Choisit(scenario, dossier->Chemin("importe"));
    fenetre->actFileSave->trigger();
    QCOMPARE(scenario.Ecarts(), QStringList());
    QCOMPARE(dossier->Noms(), (QStringList{"a.xrlg", "famille.ged", "importe.xrlg"}));
    QCOMPARE(dossier->Lit("a.xrlg"), ArbreEcrit("A", {{1, "MARTIN"}}));
}

RAMELIER_TEST_BUREAU_MAIN(TestImporter)
#include "tst_importer.moc"
