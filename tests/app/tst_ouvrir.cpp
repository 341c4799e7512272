#include "arbre.h"
#include "arbres.h"
#include "fenetre.h"
#include "ramelierdoc.h"

#include <QAction>
#include <QDir>
#include <QLabel>

/// Opening a tree, with the real dialog and boxes, and the guard of unsaved work.
class TestOuvrir : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void ouvreLeFichierChoisi();
    void renoncer();
    void unNomQuiNEstPasUnFichier_data();
    void unNomQuiNEstPasUnFichier();
    void unFichierIncorrect();
    void lesOptionsPortentLeNomJusquAuPremierPoint();
    void unArbreOuvertEstEnConsultation();
    void laGardeProposeDeSauver();
    void laGardeSelonLaReponse_data();
    void laGardeSelonLaReponse();
    void laGardeRetientQuandLaSauvegardeEchoue();
    void laGardeRetientQuandOnRenonceASauverSous();

private:
    [[nodiscard]] QString Ecrit(const QString &nom, const QString &titre = QStringLiteral("T")) const
    {
        return dossier->Ecrit(nom, ArbreEcrit(titre, {{1, "MARTIN"}}));
    }

    std::unique_ptr<Dossier> dossier;
};

void TestOuvrir::init()
{
    EffaceReglages();
    dossier = std::make_unique<Dossier>();
}

void TestOuvrir::ouvreLeFichierChoisi()
{
    const QString chemin = Ecrit(QStringLiteral("b.xrlg"));
    Fenetre fenetre;
    fenetre.dernierRep = dossier->Chemin();
    Scenario scenario;
    DialogueVu vu;
    Choisit(scenario, chemin, &vu);
    const Journal journal(fenetre);
    fenetre.slotFileOpen();
    QCOMPARE(scenario.Ecarts(), QStringList());
    QCOMPARE(vu.titre, QStringLiteral("Ouvrir"));
    QCOMPARE(vu.dossier, dossier->Chemin());
    QCOMPARE(vu.filtres, (QStringList{"Fichiers au format XML (*.xrlg)", "Fichiers anciennes versions (*.rlg)"}));
    QVERIFY(!vu.enregistre);
    QCOMPARE(vu.parent, &fenetre);
    QCOMPARE(journal.Lignes(),
             (QStringList{"Ouverture du fichier...", "[Ouvrir]", "= Ramelier 5.1 - " + chemin,
                          "Arbre chargé : " + chemin + " (2000 ms)", "Prêt"}));
    QCOMPARE(fenetre.windowTitle(), QStringLiteral("Ramelier 5.1 - ") + chemin);
    QCOMPARE(fenetre.fichierArbre, chemin);
    QCOMPARE(fenetre.fichierOptions, dossier->Chemin(QStringLiteral("b.opt")));
    QCOMPARE(fenetre.dernierRep, dossier->Chemin());
    QCOMPARE(NumerosEnTexte(*fenetre.doc->arbre), QStringLiteral("1"));
    QCOMPARE(fenetre.labelInfoModif->text(), QString(21, u' '));
}

void TestOuvrir::renoncer()
{
    Fenetre fenetre({Ecrit(QStringLiteral("a.xrlg"))});
    const QString titre = fenetre.windowTitle();
    const Arbre *arbre = fenetre.doc->arbre;
    Scenario scenario;
    Renonce(scenario);
    const Journal journal(fenetre);
    fenetre.slotFileOpen();
    QCOMPARE(scenario.Ecarts(), QStringList());
    QCOMPARE(journal.Lignes(),
             (QStringList{"Ouverture du fichier...", "[Ouvrir]", "Echec à l'ouverture du fichier (2000 ms)"}));
    QCOMPARE(StatutDe(fenetre), QStringLiteral("Echec à l'ouverture du fichier (2000 ms)"));
    QCOMPARE(fenetre.doc->arbre, arbre);
    QCOMPARE(fenetre.windowTitle(), titre);
    QCOMPARE(fenetre.fichierArbre, QString());
}

void TestOuvrir::unNomQuiNEstPasUnFichier_data()
{
    QTest::addColumn<QString>("nom");
    QTest::newRow("absent") << "absent.xrlg";
    QTest::newRow("dossier") << "dossier.xrlg";
}

void TestOuvrir::unNomQuiNEstPasUnFichier()
{
    QFETCH(QString, nom);
    QVERIFY(QDir(dossier->Chemin()).mkdir(QStringLiteral("dossier.xrlg")));
    const QString chemin = dossier->Chemin(nom);
    Scenario scenario;
    scenario.Repond(QStringLiteral("OK"));
    Fenetre fenetre({chemin});
    QCOMPARE(scenario.Ecarts(), QStringList());
    const BoiteVue &boite = scenario.Boites().first();
    QCOMPARE(boite.titre, QStringLiteral("Information"));
    QCOMPARE(boite.texte, QStringLiteral("Le fichier ") + chemin + QStringLiteral(" n'existe pas"));
    QCOMPARE(boite.icone, QMessageBox::Information);
    QCOMPARE(boite.boutons, QStringList{QStringLiteral("OK")});
    QCOMPARE(boite.parent, &fenetre);
    QCOMPARE(fenetre.windowTitle(), QStringLiteral("Ramelier 5.1"));
    QCOMPARE(fenetre.fichierArbre, chemin);
    QVERIFY(!fenetre.doc->arbre);
    // The same without the start: only the messages differ by the journal that can listen.
    fenetre.enDemarrage = true;
    scenario.Repond(QStringLiteral("OK"));
    const Journal journal(fenetre);
    fenetre.slotFileOpen();
    QCOMPARE(journal.Lignes(), (QStringList{"le fichier n'exite pas", "[Information]", "Prêt"}));
}

void TestOuvrir::unFichierIncorrect()
{
    Fenetre fenetre({Ecrit(QStringLiteral("a.xrlg"))});
    const QString titre = fenetre.windowTitle();
    const QString mauvais = dossier->Ecrit(QStringLiteral("mauvais.xrlg"), "<html/>");
    Scenario scenario;
    Choisit(scenario, mauvais);
    scenario.Repond(QStringLiteral("OK")).Repond(QStringLiteral("OK"));
    const Journal journal(fenetre);
    fenetre.slotFileOpen();
    QCOMPARE(scenario.Ecarts(), QStringList());
    const BoiteVue &syntaxe = scenario.Boites().at(0);
    QCOMPARE(syntaxe.titre, QStringLiteral("Arbre XRLG"));
    QCOMPARE(syntaxe.texte,
             QStringLiteral("Erreur de syntaxe ligne 1, colonne 6:\nLe fichier n'est pas un fichier XRLG."));
    QCOMPARE(syntaxe.icone, QMessageBox::Information);
    QCOMPARE(syntaxe.parent, nullptr);
    const BoiteVue &echec = scenario.Boites().at(1);
    QCOMPARE(echec.titre, QStringLiteral("Information"));
    QCOMPARE(echec.texte, QStringLiteral("Impossible de charger le fichier ") + mauvais);
    QCOMPARE(echec.icone, QMessageBox::Information);
    QCOMPARE(echec.parent, &fenetre);
    QCOMPARE(journal.Lignes(),
             (QStringList{"Ouverture du fichier...", "[Ouvrir]", "[Arbre XRLG]", "fichier incorrect", "[Information]",
                          "Prêt"}));
    // The title keeps the last good file's name; the wrong name stays the window's.
    QCOMPARE(fenetre.windowTitle(), titre);
    QCOMPARE(fenetre.fichierArbre, mauvais);
}

void TestOuvrir::lesOptionsPortentLeNomJusquAuPremierPoint()
{
    dossier->Ecrit(QStringLiteral("arbre.opt"), OptionsEcrites(51));
    const Fenetre fenetre({Ecrit(QStringLiteral("arbre.final.xrlg"))});
    QCOMPARE(fenetre.fichierOptions, dossier->Chemin(QStringLiteral("arbre.opt")));
    QCOMPARE(fenetre.doc->formats.largeurCadre, 51);
}

void TestOuvrir::unArbreOuvertEstEnConsultation()
{
    Fenetre fenetre({Ecrit(QStringLiteral("a.xrlg"))});
    fenetre.slotModeTravail();
    QVERIFY(!fenetre.modeConsultation);
    Scenario scenario;
    Choisit(scenario, Ecrit(QStringLiteral("b.xrlg")));
    fenetre.slotFileOpen();
    QCOMPARE(scenario.Ecarts(), QStringList());
    QVERIFY(fenetre.modeConsultation);
    QCOMPARE(fenetre.labelMode->text(), QStringLiteral(" Consultation "));
    QCOMPARE(fenetre.actModeTravail->text(), QStringLiteral("Mode édition/modification"));
}

void TestOuvrir::laGardeProposeDeSauver()
{
    Fenetre fenetre({Ecrit(QStringLiteral("a.xrlg"))});
    fenetre.doc->modifie = true;
    Scenario scenario;
    scenario.Echappe();
    const Journal journal(fenetre);
    fenetre.slotFileOpen();
    QCOMPARE(scenario.Ecarts(), QStringList());
    const BoiteVue &boite = scenario.Boites().first();
    QCOMPARE(boite.titre, QStringLiteral("Sauvegarde"));
    QCOMPARE(boite.texte, QStringLiteral("L'arbre affiché a été modifié \n enregistrer les modifications ?"));
    QCOMPARE(boite.icone, QMessageBox::Warning);
    QCOMPARE(boite.boutons, (QStringList{"Oui", "Non", "Annuler"}));
    QCOMPARE(boite.defaut, QStringLiteral("Oui"));
    QCOMPARE(boite.echappement, QStringLiteral("Annuler"));
    QCOMPARE(boite.parent, &fenetre);
    // The text of the guard stays in the status bar.
    QCOMPARE(journal.Lignes(),
             (QStringList{"L'arbre affiché a été modifié, on vous laisse la possibilité de sauver les "
                          "modifications",
                          "[Sauvegarde]"}));
}

void TestOuvrir::laGardeSelonLaReponse_data()
{
    QTest::addColumn<QString>("reponse");
    QTest::addColumn<bool>("enregistre");
    QTest::addColumn<bool>("poursuit");
    QTest::newRow("Oui") << "Oui" << true << true;
    QTest::newRow("Non") << "Non" << false << true;
    QTest::newRow("Annuler") << "Annuler" << false << false;
}

void TestOuvrir::laGardeSelonLaReponse()
{
    QFETCH(QString, reponse);
    QFETCH(bool, enregistre);
    QFETCH(bool, poursuit);
    Fenetre fenetre({Ecrit(QStringLiteral("a.xrlg"))});
    const QString autre = Ecrit(QStringLiteral("b.xrlg"));
    fenetre.doc->arbre->infoArbre->titrearbre = QStringLiteral("Change");
    fenetre.doc->modifie = true;
    Scenario scenario;
    scenario.Repond(reponse);
    if (poursuit)
        Choisit(scenario, autre);
    fenetre.slotFileOpen();
    QCOMPARE(scenario.Ecarts(), QStringList());
    QCOMPARE(dossier->Lit(QStringLiteral("a.xrlg")).contains("Change"), enregistre);
    QCOMPARE(fenetre.fichierArbre, poursuit ? autre : dossier->Chemin(QStringLiteral("a.xrlg")));
    QCOMPARE(fenetre.doc->isModified(), !poursuit);
}

void TestOuvrir::laGardeRetientQuandLaSauvegardeEchoue()
{
    Fenetre fenetre({Ecrit(QStringLiteral("a.xrlg"))});
    fenetre.doc->nomFichier = dossier->Chemin(QStringLiteral("rien/a.xrlg"));
    fenetre.doc->modifie = true;
    const Arbre *arbre = fenetre.doc->arbre;
    Scenario scenario;
    scenario.Repond(QStringLiteral("Oui")).Repond(QStringLiteral("OK"));
    bool continuer = true;
    fenetre.proposeSauvegarde(&continuer);
    QVERIFY(!continuer);
    scenario.Repond(QStringLiteral("Oui")).Repond(QStringLiteral("OK"));
    fenetre.slotFileOpen();
    QCOMPARE(scenario.Ecarts(), QStringList());
    QCOMPARE(fenetre.doc->arbre, arbre);
}

void TestOuvrir::laGardeRetientQuandOnRenonceASauverSous()
{
    Fenetre fenetre({Ecrit(QStringLiteral("a.xrlg"))});
    fenetre.doc->nomFichier.clear();
    fenetre.doc->modifie = true;
    Scenario scenario;
    scenario.Repond(QStringLiteral("Oui"));
    Renonce(scenario);
    bool continuer = true;
    fenetre.proposeSauvegarde(&continuer);
    QCOMPARE(scenario.Ecarts(), QStringList());
    QVERIFY(!continuer);
    // It never says yes by itself.
    bool dejaNon = false;
    scenario.Repond(QStringLiteral("Non"));
    fenetre.proposeSauvegarde(&dejaNon);
    QVERIFY(!dejaNon);
}

RAMELIER_TEST_BUREAU_MAIN(TestOuvrir)
#include "tst_ouvrir.moc"
