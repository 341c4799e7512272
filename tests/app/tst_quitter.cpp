#include "arbre.h"
#include "fenetre.h"
#include "ramelierdoc.h"

#include <QCloseEvent>
#include <QEventLoop>
#include <QSettings>
#include <QSignalSpy>
#include <QTimer>

/// Leaving the program, by its own command and by the window manager, with and without unsaved work.
class TestQuitter : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void quitterSansTravailNeDemandeRien();
    void quitterDemande();
    void quitterSelonLaReponse_data();
    void quitterSelonLaReponse();
    void fermerSansTravailNeDemandeRien();
    void fermerSelonLaReponse_data();
    void fermerSelonLaReponse();
    void lesOptionsModifieesSontAussiDuTravail();
    void queryExitQuitteMemeSiLaSauvegardeEchoue();

private:
    /// Runs the event loop with the quit command in it; the exit status, or -1 when the program stays.
    static int Quitte(Fenetre &fenetre);
    [[nodiscard]] static QVariant Reglage(const char *nom)
    {
        return QSettings(QStringLiteral("ProgrammesLY"), QStringLiteral("ramelier")).value(QString::fromLatin1(nom));
    }
    [[nodiscard]] QString Arbre1() const
    {
        return dossier->Ecrit(QStringLiteral("a.xrlg"), ArbreEcrit(QStringLiteral("T"), {{1, "MARTIN"}}));
    }

    std::unique_ptr<Dossier> dossier;
};

void TestQuitter::init()
{
    EffaceReglages();
    dossier = std::make_unique<Dossier>();
}

int TestQuitter::Quitte(Fenetre &fenetre)
{
    QTimer::singleShot(0, &fenetre, &RamelierApp::slotFileQuit);
    // When the program stays, the loop ends by itself once the command is over.
    QTimer::singleShot(1500, &fenetre, [] { QCoreApplication::exit(-1); });
    return QApplication::exec();
}

void TestQuitter::quitterSansTravailNeDemandeRien()
{
    Fenetre fenetre({Arbre1()});
    fenetre.resize(640, 480);
    const Scenario scenario;
    const QSignalSpy fermeture(&fenetre, &RamelierApp::fermetureRamelier);
    const Journal journal(fenetre);
    QCOMPARE(Quitte(fenetre), 0);
    QCOMPARE(scenario.Ecarts(), QStringList());
    QCOMPARE(journal.Lignes(), QStringList{QStringLiteral("Sortie de l'application...")});
    // The window is not closed first.
    QVERIFY(fenetre.isVisible());
    QVERIFY(fermeture.isEmpty());
    QCOMPARE(Reglage("size").toSize(), QSize(640, 480));
    QCOMPARE(Reglage("pos").toPoint(), fenetre.pos());
    QCOMPARE(Reglage("lastdir").toString(), dossier->Chemin());
}

void TestQuitter::quitterDemande()
{
    Fenetre fenetre({Arbre1()});
    fenetre.doc->modifie = true;
    Scenario scenario;
    scenario.Echappe();
    fenetre.slotFileQuit();
    QCOMPARE(scenario.Ecarts(), QStringList());
    const BoiteVue &boite = scenario.Boites().first();
    QCOMPARE(boite.titre, QStringLiteral("Quitter..."));
    QCOMPARE(boite.texte,
             QStringLiteral("L'arbre affiché a été modifié \n enregistrer les modifications avant de quitter ?"));
    QCOMPARE(boite.icone, QMessageBox::Warning);
    QCOMPARE(boite.boutons, (QStringList{"Oui", "Non", "Annuler"}));
    QCOMPARE(boite.defaut, QStringLiteral("Oui"));
    QCOMPARE(boite.echappement, QStringLiteral("Annuler"));
    QCOMPARE(boite.parent, &fenetre);
    QCOMPARE(StatutDe(fenetre), QStringLiteral("Prêt."));
}

void TestQuitter::quitterSelonLaReponse_data()
{
    QTest::addColumn<QString>("reponse");
    QTest::addColumn<bool>("quitte");
    QTest::addColumn<bool>("enregistre");
    QTest::newRow("Oui") << "Oui" << true << true;
    QTest::newRow("Non") << "Non" << true << false;
    QTest::newRow("Annuler") << "Annuler" << false << false;
}

void TestQuitter::quitterSelonLaReponse()
{
    QFETCH(QString, reponse);
    QFETCH(bool, quitte);
    QFETCH(bool, enregistre);
    Fenetre fenetre({Arbre1()});
    fenetre.doc->arbre->infoArbre->titrearbre = QStringLiteral("Change");
    fenetre.doc->modifie = true;
    Scenario scenario;
    scenario.Repond(reponse);
    QCOMPARE(Quitte(fenetre), quitte ? 0 : -1);
    QCOMPARE(scenario.Ecarts(), QStringList());
    QCOMPARE(scenario.Boites().size(), 1);
    QCOMPARE(dossier->Lit(QStringLiteral("a.xrlg")).contains("Change"), enregistre);
    QCOMPARE(Reglage("size").isValid(), quitte);
    QCOMPARE(fenetre.doc->isModified(), !enregistre);
    if (!quitte)
        QCOMPARE(StatutDe(fenetre), QStringLiteral("Prêt."));
}

void TestQuitter::fermerSansTravailNeDemandeRien()
{
    Fenetre fenetre({Arbre1()});
    const Scenario scenario;
    const QSignalSpy fermeture(&fenetre, &RamelierApp::fermetureRamelier);
    const Journal journal(fenetre);
    QVERIFY(fenetre.close());
    QCOMPARE(scenario.Ecarts(), QStringList());
    QCOMPARE(journal.Lignes(), QStringList{QStringLiteral("Sortie de l'application...")});
    QCOMPARE(fermeture.size(), 1);
    QVERIFY(Reglage("size").isValid());
}

void TestQuitter::fermerSelonLaReponse_data()
{
    quitterSelonLaReponse_data();
}

void TestQuitter::fermerSelonLaReponse()
{
    QFETCH(QString, reponse);
    QFETCH(bool, quitte);
    QFETCH(bool, enregistre);
    Fenetre fenetre({Arbre1()});
    fenetre.doc->arbre->infoArbre->titrearbre = QStringLiteral("Change");
    fenetre.doc->modifie = true;
    Scenario scenario;
    scenario.Repond(reponse);
    const QSignalSpy fermeture(&fenetre, &RamelierApp::fermetureRamelier);
    QCOMPARE(fenetre.close(), quitte);
    QCOMPARE(scenario.Ecarts(), QStringList());
    QCOMPARE(scenario.Boites().first().titre, QStringLiteral("Quitter..."));
    QCOMPARE(fenetre.isVisible(), !quitte);
    QCOMPARE(fermeture.size(), quitte ? 1 : 0);
    QCOMPARE(dossier->Lit(QStringLiteral("a.xrlg")).contains("Change"), enregistre);
    QCOMPARE(Reglage("size").isValid(), quitte);
    if (!quitte)
        QCOMPARE(StatutDe(fenetre), QStringLiteral("Prêt."));
}

void TestQuitter::lesOptionsModifieesSontAussiDuTravail()
{
    Fenetre fenetre({Arbre1()});
    fenetre.doc->optionsModifiees = true;
    Scenario scenario;
    scenario.Repond(QStringLiteral("Oui"));
    QVERIFY(fenetre.close());
    QCOMPARE(scenario.Ecarts(), QStringList());
    QVERIFY(dossier->Noms().contains(QStringLiteral("a.opt")));
}

void TestQuitter::queryExitQuitteMemeSiLaSauvegardeEchoue()
{
    Fenetre fenetre({Arbre1()});
    fenetre.doc->nomFichier = dossier->Chemin(QStringLiteral("rien/a.xrlg"));
    fenetre.doc->modifie = true;
    Scenario scenario;
    scenario.Repond(QStringLiteral("Oui")).Repond(QStringLiteral("OK"));
    QVERIFY(fenetre.queryExit());
    QCOMPARE(scenario.Ecarts(), QStringList());
    QCOMPARE(scenario.Boites().at(1).titre, QStringLiteral("Fichier XRLG"));
    QCOMPARE(scenario.Boites().at(1).icone, QMessageBox::Warning);
    QCOMPARE(scenario.Boites().at(1).parent, nullptr);
}

RAMELIER_TEST_BUREAU_MAIN(TestQuitter)
#include "tst_quitter.moc"
