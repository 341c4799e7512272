#include "arbre.h"
#include "arbres.h"
#include "arbview.h"
#include "fenetre.h"
#include "lytextbrowser.h"
#include "navigateurfiche.h"
#include "personne.h"
#include "ramelierdoc.h"
#include "ramelierview.h"

#include <QAction>
#include <QDir>
#include <QPointer>

/// Showing the sheet of a person.
class TestFiches : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup();
    void laFicheEstMontree_data();
    void laFicheEstMontree();
    void chaqueAppelOuvreUneFenetre();
    void uneFicheAbsenteEstDite();
    void leDoubleClicEnConsultationMontreLaFiche();
    void laFicheEstChercheeAvecLeDernierArbre();
    void fermerLaFenetreFermeLesFiches();
    void sansSelectionRienNeSePasse();

private:
    void Ouvre(const QString &fiche);
    static QList<LyTextBrowser *> Afficheurs();

    std::unique_ptr<Dossier> dossier;
    std::unique_ptr<Fenetre> fenetre;
};

void TestFiches::init()
{
    EffaceReglages();
    dossier = std::make_unique<Dossier>();
}

void TestFiches::cleanup()
{
    qDeleteAll(Afficheurs());
    fenetre.reset();
    dossier.reset();
}

void TestFiches::Ouvre(const QString &fiche)
{
    const QString chemin =
        dossier->Ecrit("a.xrlg", ArbreEcrit("A", {{1, "MARTIN", "Jean"}, {12, "LEFÈVRE", "Élise", fiche}}));
    fenetre = std::make_unique<Fenetre>(QStringList{chemin});
}

QList<LyTextBrowser *> TestFiches::Afficheurs()
{
    QList<LyTextBrowser *> trouves;
    const auto fenetres = QApplication::topLevelWidgets();
    for (QWidget *candidate : fenetres) {
        if (auto *afficheur = qobject_cast<LyTextBrowser *>(candidate))
            trouves += afficheur;
    }
    return trouves;
}

void TestFiches::laFicheEstMontree_data()
{
    QTest::addColumn<QString>("fiche");
    QTest::addColumn<QString>("texte");
    QTest::addColumn<QString>("titre");
    const QString debut = "Ramelier 5.1 - fiche associée à la personne n° 12 - ";
    QTest::newRow("html") << "elise.html"
                          << "été" << debut + "Titre";
    QTest::newRow("htm en capitales") << "notes.HTM"
                                      << "été" << debut + "Titre";
    QTest::newRow("html en capitales") << "notes.HTML"
                                       << "été" << debut + "Titre";
    QTest::newRow("texte") << "notes.txt"
                           << "<title>Titre</title><b>été</b>" << debut + "notes.txt";
    QTest::newRow("htm dans le nom de son dossier") << "fiches.htm/notes.txt"
                                                    << "été" << debut + "Titre";
}

void TestFiches::laFicheEstMontree()
{
    QFETCH(const QString, fiche);
    QDir(dossier->Chemin()).mkdir("fiches.htm");
    dossier->Ecrit(fiche, "<title>Titre</title><b>été</b>");
    Ouvre(fiche);
    Clique(*fenetre, 12);
    fenetre->actAffFicheHTML->trigger();
    QCOMPARE(Afficheurs().size(), 1);
    const LyTextBrowser &afficheur = *Afficheurs().constFirst();
    QTEST(afficheur.navigateur->toPlainText(), "texte");
    QTEST(afficheur.windowTitle(), "titre");
    QCOMPARE(afficheur.windowIcon().cacheKey(), fenetre->windowIcon().cacheKey());
}

void TestFiches::chaqueAppelOuvreUneFenetre()
{
    dossier->Ecrit("elise.html", "a");
    Ouvre("elise.html");
    Clique(*fenetre, 12);
    fenetre->actAffFicheHTML->trigger();
    fenetre->actAffFicheHTML->trigger();
    QCOMPARE(Afficheurs().size(), 2);
}

void TestFiches::uneFicheAbsenteEstDite()
{
    Ouvre("absente.html");
    Clique(*fenetre, 12);
    Scenario scenario;
    scenario.Repond("OK");
    fenetre->actAffFicheHTML->trigger();
    QCOMPARE(scenario.Ecarts(), QStringList());
    const BoiteVue boite = scenario.Boites().constFirst();
    QCOMPARE(boite.titre, "Information");
    QCOMPARE(boite.texte, "Le fichier " + dossier->Chemin("absente.html") + " n'existe pas !");
    QCOMPARE(boite.icone, QMessageBox::Information);
    QCOMPARE(boite.boutons, QStringList{"OK"});
    QCOMPARE(Afficheurs().size(), 0);
}

void TestFiches::leDoubleClicEnConsultationMontreLaFiche()
{
    dossier->Ecrit("elise.html", "a");
    Ouvre("elise.html");
    Clique(*fenetre, 12);
    const Personne *personne = Trouve(*fenetre->doc->arbre, 12);
    QTest::mouseDClick(fenetre->view->vue(), Qt::LeftButton, {}, QPoint(int(personne->x) + 20, int(personne->y) + 20));
    QCOMPARE(Afficheurs().size(), 1);
    QCOMPARE(Afficheurs().constFirst()->navigateur->toPlainText(), "a");
}

void TestFiches::laFicheEstChercheeAvecLeDernierArbre()
{
    const Dossier autre;
    dossier->Ecrit("elise.html", "premier dossier");
    autre.Ecrit("elise.html", "autre dossier");
    Ouvre("elise.html");
    Scenario scenario;
    Choisit(scenario, autre.Chemin("b"));
    fenetre->actFileSaveAs->trigger();
    QCOMPARE(scenario.Ecarts(), QStringList());
    Clique(*fenetre, 12);
    fenetre->actAffFicheHTML->trigger();
    QCOMPARE(Afficheurs().size(), 1);
    QCOMPARE(Afficheurs().constFirst()->navigateur->toPlainText(), "autre dossier");
}

void TestFiches::fermerLaFenetreFermeLesFiches()
{
    dossier->Ecrit("elise.html", "a");
    Ouvre("elise.html");
    Clique(*fenetre, 12);
    fenetre->actAffFicheHTML->trigger();
    const QPointer<LyTextBrowser> afficheur = Afficheurs().constFirst();
    fenetre->close();
    QTRY_VERIFY(!afficheur);
}

void TestFiches::sansSelectionRienNeSePasse()
{
    Ouvre("elise.html");
    Scenario scenario;
    fenetre->slotAffFicheHTML();
    fenetre = std::make_unique<Fenetre>();
    fenetre->slotAffFicheHTML();
    QCOMPARE(scenario.Ecarts(), QStringList());
    QCOMPARE(Afficheurs().size(), 0);
}

RAMELIER_TEST_BUREAU_MAIN(TestFiches)
#include "tst_fiches.moc"
