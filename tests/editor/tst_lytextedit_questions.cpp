#include "editeur.h"
#include "navigateurfiche.h"
#include "pannes.h"

#include <QFileDialog>
#include <QLabel>
#include <QSignalSpy>
#include <QToolBar>

/// New, open and close in the editor of sheets, the questions before a text goes, and the browsers that it opens.
class TestLyTextEditQuestions : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup();
    void laQuestionDeSauvegarde_data();
    void laQuestionDeSauvegarde();
    void chaqueReponseALaGarde_data();
    void chaqueReponseALaGarde();
    void uneSauvegardeManqueeArreteTout_data();
    void uneSauvegardeManqueeArreteTout();
    void uneSauvegardeSansNomDemandeUnNom_data();
    void uneSauvegardeSansNomDemandeUnNom();
    void laGardeRendSaReponse_data();
    void laGardeRendSaReponse();

    void nouveauVideTout();
    void nouveauSansModificationNeDemandeRien();
    void leDialogueOuvrir();
    void ouvrirMontreLeFichier_data();
    void ouvrirMontreLeFichier();
    void renoncerAOuvrir();
    void ouvrirUnFichierIllisibleNeChangeRien();

    void laQuestionDeFermeture();
    void chaqueReponseALaFermeture_data();
    void chaqueReponseALaFermeture();
    void annulerLaFermetureGardeTout_data();
    void annulerLaFermetureGardeTout();
    void fermerSansModificationNeDemandeRien();
    void ouiFermeMemeSiLaSauvegardeManque();
    void fermerPrevientDansLOrdre();

    void leNavigateurMontreLeFichier_data();
    void leNavigateurMontreLeFichier();
    void leNavigateurSertDeNouveau_data();
    void leNavigateurSertDeNouveau();
    void leNavigateurSuitUnAutreFichier_data();
    void leNavigateurSuitUnAutreFichier();
    void unNavigateurFermeEstOublie();
    void sansFichierLeNavigateurNeGenePas();
    void leManuelSOuvre();
    void fermerLEditeurFermeSesNavigateurs();
    void detruireLEditeurLaisseLeNavigateur();

private:
    /// An editor of its own on "a.html" with "Xabc", of which "X" is not saved.
    LyTextEdit &OuvreEtModifie();

    std::unique_ptr<Atelier> atelier;
};

namespace {

const QStringList ouiNonAnnuler{"Oui", "Non", "Annuler"};

void Reponds(Scenario &scenario, const QString &reponse)
{
    if (reponse == "Echap")
        scenario.Echappe();
    else
        scenario.Repond(reponse);
}

}  // namespace

void TestLyTextEditQuestions::init()
{
    atelier = std::make_unique<Atelier>();
}

void TestLyTextEditQuestions::cleanup()
{
    atelier.reset();
}

LyTextEdit &TestLyTextEditQuestions::OuvreEtModifie()
{
    atelier->dossier.Ecrit("a.html", "abc");
    LyTextEdit &editeur = atelier->OuvreSeul("a.html");
    Tape(editeur, "X");
    return editeur;
}

void TestLyTextEditQuestions::laQuestionDeSauvegarde_data()
{
    QTest::addColumn<ActionEditeur>("commande");
    QTest::newRow("nouveau") << &LyTextEdit::actFileNew;
    QTest::newRow("ouvrir") << &LyTextEdit::actFileOpen;
}

void TestLyTextEditQuestions::laQuestionDeSauvegarde()
{
    QFETCH(const ActionEditeur, commande);
    const LyTextEdit &editeur = OuvreEtModifie();
    Scenario scenario;
    scenario.Repond("Annuler");
    (editeur.*commande)->trigger();
    QCOMPARE(scenario.Ecarts(), QStringList());
    const BoiteVue boite = scenario.Boites().constFirst();
    QCOMPARE(boite.titre, "Sauvegarde");
    QCOMPARE(boite.texte, "Le texte a été modifié \n enregistrer les modifications ?");
    QCOMPARE(boite.icone, QMessageBox::Warning);
    QCOMPARE(boite.boutons, ouiNonAnnuler);
    QCOMPARE(boite.defaut, "Oui");
    QCOMPARE(boite.echappement, "Annuler");
    QCOMPARE(boite.parent, &editeur);
}

void TestLyTextEditQuestions::chaqueReponseALaGarde_data()
{
    QTest::addColumn<bool>("ouvrir");
    QTest::addColumn<QString>("reponse");
    QTest::addColumn<bool>("continuer");
    QTest::addColumn<QString>("ecrit");
    for (const bool ouvrir : {false, true}) {
        const auto ligne = [ouvrir](const char *reponse, bool continuer, const char *ecrit) {
            QTest::newRow(qPrintable(QString("%1, %2").arg(ouvrir ? "ouvrir" : "nouveau", reponse)))
                << ouvrir << QString(reponse) << continuer << QString(ecrit);
        };
        ligne("Oui", true, "Xabc");
        ligne("Non", true, "abc");
        ligne("Annuler", false, "abc");
        ligne("Echap", false, "abc");
    }
}

void TestLyTextEditQuestions::chaqueReponseALaGarde()
{
    QFETCH(const bool, ouvrir);
    QFETCH(const QString, reponse);
    QFETCH(const bool, continuer);
    const LyTextEdit &editeur = OuvreEtModifie();
    atelier->dossier.Ecrit("b.txt", "suite");
    Scenario scenario;
    Reponds(scenario, reponse);
    if (ouvrir && continuer)
        Choisit(scenario, atelier->dossier.Chemin("b.txt"));
    (ouvrir ? editeur.actFileOpen : editeur.actFileNew)->trigger();
    QCOMPARE(scenario.Ecarts(), QStringList());
    QCOMPARE(scenario.Boites().size(), 1);
    QTEST(QString(atelier->dossier.Lit("a.html")), "ecrit");
    if (!continuer) {
        QCOMPARE(TexteDe(editeur), "Xabc");
        QVERIFY(EstModifie(editeur));
        QCOMPARE(editeur.windowTitle(), "Fiche n° 12 - a.html");
        return;
    }
    QCOMPARE(TexteDe(editeur), ouvrir ? "suite" : "");
    QVERIFY(!EstModifie(editeur));
    QCOMPARE(editeur.windowTitle(), ouvrir ? "Fiche n° 12 - b.txt" : "Fiche n° 12 - Nouveau");
}

void TestLyTextEditQuestions::uneSauvegardeManqueeArreteTout_data()
{
    laQuestionDeSauvegarde_data();
}

void TestLyTextEditQuestions::uneSauvegardeManqueeArreteTout()
{
    QFETCH(const ActionEditeur, commande);
    const LyTextEdit &editeur = OuvreEtModifie();
    Scenario scenario;
    scenario.Repond("Oui");
    scenario.Repond("OK");
    {
        const DisquePlein disque(2);
        (editeur.*commande)->trigger();
    }
    QCOMPARE(scenario.Ecarts(), QStringList());
    QCOMPARE(scenario.Boites().at(1).titre, "LyTextEdit");
    QCOMPARE(TexteDe(editeur), "Xabc");
    QVERIFY(EstModifie(editeur));
    QCOMPARE(atelier->dossier.Lit("a.html"), "abc");
    QCOMPARE(editeur.windowTitle(), "Fiche n° 12 - a.html");
}

void TestLyTextEditQuestions::uneSauvegardeSansNomDemandeUnNom_data()
{
    QTest::addColumn<bool>("renonce");
    QTest::newRow("nomme") << false;
    QTest::newRow("renonce") << true;
}

void TestLyTextEditQuestions::uneSauvegardeSansNomDemandeUnNom()
{
    QFETCH(const bool, renonce);
    const LyTextEdit &editeur = atelier->OuvreSeul();
    Tape(editeur, "abc");
    Scenario scenario;
    scenario.Repond("Oui");
    if (renonce)
        Renonce(scenario);
    else
        Choisit(scenario, atelier->dossier.Chemin("neuf"));
    editeur.actFileNew->trigger();
    QCOMPARE(scenario.Ecarts(), QStringList());
    QCOMPARE(TexteDe(editeur), renonce ? "abc" : "");
    QCOMPARE(EstModifie(editeur), renonce);
    QCOMPARE(atelier->dossier.Noms(), renonce ? QStringList() : QStringList{"neuf.html"});
    QCOMPARE(editeur.windowTitle(), "Fiche n° 12 - Nouveau");
}

void TestLyTextEditQuestions::laGardeRendSaReponse_data()
{
    QTest::addColumn<QString>("reponse");
    QTest::addColumn<bool>("depart");
    QTest::addColumn<bool>("arrivee");
    QTest::newRow("Oui") << "Oui" << true << true;
    QTest::newRow("Oui, parti de faux") << "Oui" << false << true;
    QTest::newRow("Non") << "Non" << true << true;
    QTest::newRow("Non, parti de faux") << "Non" << false << false;
    QTest::newRow("Annuler") << "Annuler" << true << false;
    QTest::newRow("Echap") << "Echap" << true << false;
}

void TestLyTextEditQuestions::laGardeRendSaReponse()
{
    QFETCH(const QString, reponse);
    QFETCH(bool, depart);
    LyTextEdit &editeur = OuvreEtModifie();
    Scenario scenario;
    Reponds(scenario, reponse);
    editeur.proposeSauvegarde(&depart);
    QCOMPARE(scenario.Ecarts(), QStringList());
    QTEST(depart, "arrivee");
}

void TestLyTextEditQuestions::nouveauVideTout()
{
    atelier->dossier.Ecrit("a.txt", "abc");
    LyTextEdit &editeur = atelier->OuvreSeul("a.txt");
    editeur.alignement = " align=justify";
    Tape(editeur, "X");
    editeur.actFileSave->trigger();
    QVERIFY(editeur.actEditAnnuler->isEnabled());
    QVERIFY(!editeur.actCarGras->isEnabled());
    editeur.actFileNew->trigger();
    QCOMPARE(TexteDe(editeur), QString());
    QCOMPARE(editeur.fichierCourant, QString());
    QCOMPARE(editeur.windowTitle(), "Fiche n° 12 - Nouveau");
    QVERIFY(editeur.modeHtml);
    QVERIFY(editeur.actCarGras->isEnabled());
    QVERIFY(editeur.actViewToolBarB->isChecked());
    QVERIFY(editeur.barreHtml->isVisible());
    QCOMPARE(editeur.labelAlignement->text(), "Justifié");
    QVERIFY(!editeur.actEditAnnuler->isEnabled());
    QVERIFY(!EstModifie(editeur));
    QCOMPARE(editeur.labelInfoModif->text(), QString(31, u' '));
    QCOMPARE(atelier->dossier.Lit("a.txt"), "Xabc");
}

void TestLyTextEditQuestions::nouveauSansModificationNeDemandeRien()
{
    atelier->dossier.Ecrit("a.html", "abc");
    const LyTextEdit &editeur = atelier->OuvreSeul("a.html");
    const Scenario scenario;
    editeur.actFileNew->trigger();
    QCOMPARE(scenario.Ecarts(), QStringList());
    QCOMPARE(TexteDe(editeur), QString());
}

void TestLyTextEditQuestions::leDialogueOuvrir()
{
    QVERIFY(QDir(atelier->dossier.Chemin()).mkdir("fiches"));
    atelier->dossier.Ecrit("fiches/a.html", "abc");
    const LyTextEdit &editeur = atelier->OuvreSeul("fiches/a.html");
    Scenario scenario;
    DialogueVu vu;
    Renonce(scenario, &vu);
    editeur.actFileOpen->trigger();
    QCOMPARE(scenario.Ecarts(), QStringList());
    QCOMPARE(vu.titre, "Ouvrir");
    QCOMPARE(vu.filtres,
             (QStringList{"Fichiers html (*.htm *.html)", "Textes simples (*.txt)", "Tous les fichiers (*)"}));
    QCOMPARE(vu.dossier, atelier->dossier.Chemin("fiches"));
    QVERIFY(!vu.enregistre);
    QCOMPARE(vu.parent, &editeur);
}

void TestLyTextEditQuestions::ouvrirMontreLeFichier_data()
{
    QTest::addColumn<QString>("nom");
    QTest::addColumn<bool>("html");
    QTest::newRow("html") << "b.html" << true;
    QTest::newRow("texte") << "b.txt" << false;
    QTest::newRow("majuscules") << "b.HTM" << false;
}

void TestLyTextEditQuestions::ouvrirMontreLeFichier()
{
    QFETCH(const QString, nom);
    QFETCH(const bool, html);
    QVERIFY(QDir(atelier->dossier.Chemin()).mkdir("fiches"));
    const QString chemin = atelier->dossier.Ecrit("fiches/" + nom, "\xc9lise");
    const LyTextEdit &editeur = atelier->OuvreSeul();
    Scenario scenario;
    Choisit(scenario, chemin);
    editeur.actFileOpen->trigger();
    QCOMPARE(scenario.Ecarts(), QStringList());
    QCOMPARE(TexteDe(editeur), "Élise");
    QCOMPARE(editeur.fichierCourant, chemin);
    QCOMPARE(editeur.nomCourt, nom);
    QCOMPARE(editeur.windowTitle(), "Fiche n° 12 - " + nom);
    QCOMPARE(editeur.dernierRep, atelier->dossier.Chemin("fiches"));
    QCOMPARE(editeur.modeHtml, html);
    QCOMPARE(editeur.actCarGras->isEnabled(), html);
    QCOMPARE(editeur.barreHtml->isVisible(), html);
    QCOMPARE(editeur.labelAlignement->text(), html ? "Gauche" : "");
    QVERIFY(!EstModifie(editeur));
}

void TestLyTextEditQuestions::renoncerAOuvrir()
{
    const LyTextEdit &editeur = OuvreEtModifie();
    Scenario scenario;
    scenario.Repond("Non");
    Renonce(scenario);
    editeur.actFileOpen->trigger();
    QCOMPARE(scenario.Ecarts(), QStringList());
    QCOMPARE(TexteDe(editeur), "Xabc");
    QVERIFY(EstModifie(editeur));
    QCOMPARE(editeur.windowTitle(), "Fiche n° 12 - a.html");
    QCOMPARE(atelier->dossier.Lit("a.html"), "abc");
}

void TestLyTextEditQuestions::ouvrirUnFichierIllisibleNeChangeRien()
{
    const LyTextEdit &editeur = OuvreEtModifie();
    const QString dernierRep = editeur.dernierRep;
    const QString chemin = atelier->dossier.Ecrit("b.txt", "secret");
    Scenario scenario;
    scenario.Repond("Non");
    // It goes while the dialog is open.
    scenario.Dialogue<QFileDialog>([chemin](QFileDialog &dialogue) {
        dialogue.selectFile(chemin);
        QObject::connect(&dialogue, &QDialog::accepted, [chemin] { QFile::remove(chemin); });
        QMetaObject::invokeMethod(&dialogue, "accept", Qt::QueuedConnection);
    });
    scenario.Repond("OK");
    editeur.actFileOpen->trigger();
    QCOMPARE(scenario.Ecarts(), QStringList());
    QCOMPARE(scenario.Boites().at(1).titre, "LyEditHtml");
    QCOMPARE(TexteDe(editeur), "Xabc");
    QVERIFY(EstModifie(editeur));
    QVERIFY(editeur.modeHtml);
    QVERIFY(editeur.actCarGras->isEnabled());
    QCOMPARE(editeur.fichierCourant, atelier->dossier.Chemin("a.html"));
    QCOMPARE(editeur.windowTitle(), "Fiche n° 12 - a.html");
    QCOMPARE(editeur.dernierRep, dernierRep);
}

void TestLyTextEditQuestions::laQuestionDeFermeture()
{
    const LyTextEdit &editeur = OuvreEtModifie();
    Scenario scenario;
    scenario.Repond("Annuler");
    editeur.actFileQuit->trigger();
    QCOMPARE(scenario.Ecarts(), QStringList());
    QCOMPARE(scenario.Boites().size(), 1);
    const BoiteVue boite = scenario.Boites().constFirst();
    QCOMPARE(boite.titre, "Fermer...");
    QCOMPARE(boite.texte, "La fiche éditée a été modifiée \n enregistrer les modifications avant de fermer ?");
    QCOMPARE(boite.icone, QMessageBox::Warning);
    QCOMPARE(boite.boutons, ouiNonAnnuler);
    QCOMPARE(boite.defaut, "Oui");
    QCOMPARE(boite.echappement, "Annuler");
    QCOMPARE(boite.parent, &editeur);
}

void TestLyTextEditQuestions::chaqueReponseALaFermeture_data()
{
    QTest::addColumn<QString>("reponse");
    QTest::addColumn<bool>("ferme");
    QTest::addColumn<QString>("ecrit");
    QTest::newRow("Oui") << "Oui" << true << "Xabc";
    QTest::newRow("Non") << "Non" << true << "abc";
    QTest::newRow("Annuler") << "Annuler" << false << "abc";
    QTest::newRow("Echap") << "Echap" << false << "abc";
}

void TestLyTextEditQuestions::chaqueReponseALaFermeture()
{
    QFETCH(const QString, reponse);
    QFETCH(const bool, ferme);
    LyTextEdit &editeur = OuvreEtModifie();
    Scenario scenario;
    Reponds(scenario, reponse);
    Reponds(scenario, reponse);
    QCOMPARE(editeur.queryExit(), ferme);
    editeur.texte->document()->setModified(true);
    QCOMPARE(editeur.close(), ferme);
    QCOMPARE(scenario.Ecarts(), QStringList());
    QCOMPARE(editeur.isVisible(), !ferme);
    QTEST(QString(atelier->dossier.Lit("a.html")), "ecrit");
}

void TestLyTextEditQuestions::annulerLaFermetureGardeTout_data()
{
    QTest::addColumn<QString>("reponse");
    QTest::newRow("Annuler") << "Annuler";
    QTest::newRow("Echap") << "Echap";
}

void TestLyTextEditQuestions::annulerLaFermetureGardeTout()
{
    QFETCH(const QString, reponse);
    const LyTextEdit &editeur = OuvreEtModifie();
    const QSignalSpy fermetures(&editeur, &LyTextEdit::FermetureTextEdit);
    const QSignalSpy fins(&editeur, &LyTextEdit::fermetureLyEditHtml);
    Scenario scenario;
    Reponds(scenario, reponse);
    editeur.actFileQuit->trigger();
    QCOMPARE(scenario.Ecarts(), QStringList());
    QVERIFY(editeur.isVisible());
    QCOMPARE(TexteDe(editeur), "Xabc");
    QVERIFY(EstModifie(editeur));
    QCOMPARE(editeur.labelInfoModif->text(), " document modifé ");
    QCOMPARE(fermetures.size(), 0);
    QCOMPARE(fins.size(), 0);
    QCOMPARE(QSettings("ProgrammesLY", "ramelieredithtml").allKeys(), QStringList());
}

void TestLyTextEditQuestions::fermerSansModificationNeDemandeRien()
{
    const LyTextEdit &editeur = atelier->Ouvre("a.html", "abc");
    const Scenario scenario;
    editeur.actFileQuit->trigger();
    QCOMPARE(scenario.Ecarts(), QStringList());
    QVERIFY(!editeur.isVisible());
}

void TestLyTextEditQuestions::ouiFermeMemeSiLaSauvegardeManque()
{
    LyTextEdit &editeur = OuvreEtModifie();
    Scenario scenario;
    scenario.Repond("Oui");
    scenario.Repond("OK");
    bool sort = false;
    {
        const DisquePlein disque(2);
        sort = editeur.queryExit();
    }
    QVERIFY(sort);
    QCOMPARE(scenario.Ecarts(), QStringList());
    QCOMPARE(scenario.Boites().at(1).titre, "LyTextEdit");
    QCOMPARE(atelier->dossier.Lit("a.html"), "abc");
    QVERIFY(EstModifie(editeur));
}

void TestLyTextEditQuestions::fermerPrevientDansLOrdre()
{
    atelier->Ouvre("a.html", "abc");
    const QPointer<LyTextEdit> editeur = atelier->editeur.get();
    QStringList journal;
    connect(editeur, &LyTextEdit::FermetureTextEdit, this, [&journal, editeur](const LyTextEdit *ferme) {
        QSettings reglages("ProgrammesLY", "ramelieredithtml");
        journal += QString("FermetureTextEdit %1, %2 réglages, visible %3")
                       .arg(ferme == editeur)
                       .arg(reglages.allKeys().size())
                       .arg(editeur->isVisible());
    });
    connect(editeur, &LyTextEdit::fermetureLyEditHtml, this, [&journal] { journal += "fermetureLyEditHtml"; });
    QVERIFY(editeur->close());
    const QStringList attendu{"FermetureTextEdit 1, 3 réglages, visible 1", "fermetureLyEditHtml"};
    QCOMPARE(journal, attendu);
    QVERIFY(!editeur->isVisible());
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    QVERIFY(editeur);
    editeur->close();
    QCOMPARE(journal, attendu);
}

void TestLyTextEditQuestions::leNavigateurMontreLeFichier_data()
{
    QTest::addColumn<QString>("nom");
    QTest::addColumn<QString>("titre");
    QTest::addColumn<QString>("texte");
    QTest::newRow("html") << "a.html"
                          << "LyTextBrowser - Titre"
                          << "corps";
    QTest::newRow("texte") << "a.txt"
                           << "LyTextBrowser - a.txt"
                           << "<title>Titre</title><b>corps</b>";
}

void TestLyTextEditQuestions::leNavigateurMontreLeFichier()
{
    QFETCH(const QString, nom);
    const LyTextEdit &editeur = atelier->Ouvre(nom, "<title>Titre</title><b>corps</b>");
    Tape(editeur, "pas encore enregistré");
    editeur.actAppelleLyTextBrowser->trigger();
    QCOMPARE(Atelier::Afficheurs().size(), 1);
    const LyTextBrowser *afficheur = editeur.navigateurOuvert;
    QCOMPARE(Atelier::Afficheurs().constFirst(), afficheur);
    QVERIFY(afficheur->isVisible());
    QTEST(afficheur->windowTitle(), "titre");
    QTEST(afficheur->navigateur->toPlainText(), "texte");
}

void TestLyTextEditQuestions::leNavigateurSertDeNouveau_data()
{
    QTest::addColumn<QString>("nom");
    QTest::newRow("html") << "a.html";
    QTest::newRow("texte") << "a.txt";
}

void TestLyTextEditQuestions::leNavigateurSertDeNouveau()
{
    QFETCH(const QString, nom);
    const LyTextEdit &editeur = atelier->Ouvre(nom, "avant");
    editeur.actAppelleLyTextBrowser->trigger();
    const QPointer<LyTextBrowser> afficheur = editeur.navigateurOuvert;
    QCOMPARE(afficheur->navigateur->toPlainText(), "avant");
    Tape(editeur, "bien ");
    editeur.actFileSave->trigger();
    editeur.actAppelleLyTextBrowser->trigger();
    QCOMPARE(Atelier::Afficheurs(), QList<LyTextBrowser *>{afficheur});
    QCOMPARE(editeur.navigateurOuvert, afficheur);
    QCOMPARE(afficheur->navigateur->toPlainText(), "bien avant");
}

void TestLyTextEditQuestions::leNavigateurSuitUnAutreFichier_data()
{
    QTest::addColumn<QString>("avant");
    QTest::addColumn<QString>("apres");
    QTest::addColumn<QString>("texte");
    QTest::addColumn<QString>("titre");
    QTest::newRow("html, html") << "a.html"
                                << "b.html"
                                << "b"
                                << "LyTextBrowser - B";
    QTest::newRow("html, texte") << "a.html"
                                 << "b.txt"
                                 << "<title>B</title>b"
                                 << "LyTextBrowser - b.txt";
    QTest::newRow("texte, html") << "a.txt"
                                 << "b.html"
                                 << "b"
                                 << "LyTextBrowser - B";
    QTest::newRow("texte, texte") << "a.txt"
                                  << "b.txt"
                                  << "<title>B</title>b"
                                  << "LyTextBrowser - b.txt";
}

void TestLyTextEditQuestions::leNavigateurSuitUnAutreFichier()
{
    QFETCH(const QString, avant);
    QFETCH(const QString, apres);
    atelier->dossier.Ecrit(avant, "<title>A</title>a");
    atelier->dossier.Ecrit(apres, "<title>B</title>b");
    const LyTextEdit &editeur = atelier->OuvreSeul(avant);
    editeur.actAppelleLyTextBrowser->trigger();
    Scenario scenario;
    Choisit(scenario, atelier->dossier.Chemin(apres));
    editeur.actFileOpen->trigger();
    QCOMPARE(scenario.Ecarts(), QStringList());
    editeur.actAppelleLyTextBrowser->trigger();
    QCOMPARE(Atelier::Afficheurs().size(), 1);
    QTEST(editeur.navigateurOuvert->navigateur->toPlainText(), "texte");
    QTEST(editeur.navigateurOuvert->windowTitle(), "titre");
}

void TestLyTextEditQuestions::unNavigateurFermeEstOublie()
{
    const LyTextEdit &editeur = atelier->Ouvre("a.html", "abc");
    editeur.actAppelleLyTextBrowser->trigger();
    const QPointer<LyTextBrowser> premier = editeur.navigateurOuvert;
    premier->close();
    QVERIFY(!editeur.navigateurOuvert);
    editeur.actAppelleLyTextBrowser->trigger();
    QVERIFY(editeur.navigateurOuvert);
    QVERIFY(editeur.navigateurOuvert != premier);
    QVERIFY(editeur.navigateurOuvert->isVisible());
    QTRY_VERIFY(!premier);
    QVERIFY(editeur.navigateurOuvert);
}

void TestLyTextEditQuestions::sansFichierLeNavigateurNeGenePas()
{
    const LyTextEdit &editeur = atelier->OuvreSeul();
    const Scenario scenario;
    editeur.actAppelleLyTextBrowser->trigger();
    editeur.actAppelleLyTextBrowser->trigger();
    QCOMPARE(scenario.Ecarts(), QStringList());
    QCOMPARE(Atelier::Afficheurs().size(), 1);
    QVERIFY(editeur.navigateurOuvert->isVisible());
}

void TestLyTextEditQuestions::leManuelSOuvre()
{
    QVERIFY(QDir(atelier->dossier.Chemin()).mkpath("AideRamelier/editeur"));
    atelier->dossier.Ecrit("AideRamelier/editeur/index.html", "<title>Manuel</title>aide");
    const LyTextEdit &editeur = atelier->Ouvre("a.txt", "abc");
    editeur.actAide->trigger();
    QCOMPARE(Atelier::Afficheurs().size(), 1);
    const LyTextBrowser *manuel = Atelier::Afficheurs().constFirst();
    QCOMPARE(manuel->windowTitle(), "LyEditHtml - Manuel");
    QCOMPARE(manuel->navigateur->toPlainText(), "aide");
    QCOMPARE(manuel->navigateur->source(),
             QUrl::fromLocalFile(atelier->dossier.Chemin("AideRamelier/editeur/index.html")));
    // It is not the browser of the sheet.
    QVERIFY(!editeur.navigateurOuvert);
}

void TestLyTextEditQuestions::fermerLEditeurFermeSesNavigateurs()
{
    LyTextEdit &editeur = atelier->Ouvre("a.html", "abc");
    editeur.actAppelleLyTextBrowser->trigger();
    editeur.actAide->trigger();
    QCOMPARE(Atelier::Afficheurs().size(), 2);
    QVERIFY(editeur.close());
    QTRY_COMPARE(Atelier::Afficheurs().size(), 0);
    QVERIFY(!editeur.navigateurOuvert);
}

void TestLyTextEditQuestions::detruireLEditeurLaisseLeNavigateur()
{
    const LyTextEdit &editeur = atelier->Ouvre("a.html", "abc");
    editeur.actAppelleLyTextBrowser->trigger();
    const QPointer<LyTextBrowser> afficheur = editeur.navigateurOuvert;
    atelier->editeur.reset();
    QVERIFY(afficheur);
    // Nobody listens any more.
    afficheur->close();
    QTRY_VERIFY(!afficheur);
}

RAMELIER_TEST_BUREAU_MAIN(TestLyTextEditQuestions)
#include "tst_lytextedit_questions.moc"
