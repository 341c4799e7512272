#include "dlgpers.h"
#include "fenetre.h"
#include "lytextbrowser.h"
#include "lytextedit.h"
#include "monqtextedit.h"
#include "navigateurfiche.h"
#include "ramelierdoc.h"
#include "saisie.h"

#include <QAction>
#include <QDir>
#include <QPointer>
#include <QSignalSpy>

/// Editing the sheets of persons, with the chain of the editors that are open.
class TestEditerFiche : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup();
    void sansArbreNiSelectionRienNeSePasse();
    void uneFicheExistanteSOuvre_data();
    void uneFicheExistanteSOuvre();
    void uneFicheAbsenteCommenceVide_data();
    void uneFicheAbsenteCommenceVide();
    void sansNomDeFicheOnLeDemande_data();
    void sansNomDeFicheOnLeDemande();
    void leNomEntreOuvreLEditeur();
    void laMemeFicheRevientDevant_data();
    void laMemeFicheRevientDevant();
    void deuxPersonnesPartagentUnEditeur();
    void lEditeurFermeQuitteLaChaine_data();
    void lEditeurFermeQuitteLaChaine();
    void unEditeurEtrangerLaisseLaChaine();
    void lEditeurFermeEstDetruitPlusTard_data();
    void lEditeurFermeEstDetruitPlusTard();
    void fermePuisEditeLaFicheEnregistree();
    void leDossierEstCeluiDuDernierArbre_data();
    void leDossierEstCeluiDuDernierArbre();
    void annulerGardeLEditeurEtSonTexte();
    void leNavigateurSuitSonEditeur();

private:
    /// The window in editing mode, on a tree of persons 1, 2, 3... with these sheets.
    void Ouvre(const QStringList &fiches);
    LyTextEdit *Edite(quint64 numero);
    [[nodiscard]] QString Chaine() const;

    std::unique_ptr<Dossier> dossier;
    std::unique_ptr<Fenetre> fenetre;
};

namespace {

template <typename T> QList<T *> Fenetres()
{
    QList<T *> trouvees;
    const auto candidates = QApplication::topLevelWidgets();
    for (QWidget *candidate : candidates) {
        if (auto *trouvee = qobject_cast<T *>(candidate))
            trouvees += trouvee;
    }
    return trouvees;
}

QByteArray ArbreAvecFiches(const QStringList &fiches)
{
    QList<PersonneEcrite> personnes;
    for (const QString &fiche : fiches)
        personnes += PersonneEcrite{static_cast<quint64>(personnes.size()) + 1, "MARTIN", "Jean", fiche};
    return ArbreEcrit("A", personnes);
}

}  // namespace

void TestEditerFiche::init()
{
    EffaceReglages();
    dossier = std::make_unique<Dossier>();
}

void TestEditerFiche::cleanup()
{
    qDeleteAll(Fenetres<LyTextBrowser>());
    qDeleteAll(Fenetres<LyTextEdit>());
    fenetre.reset();
    dossier.reset();
}

void TestEditerFiche::Ouvre(const QStringList &fiches)
{
    fenetre = std::make_unique<Fenetre>(QStringList{dossier->Ecrit("a.xrlg", ArbreAvecFiches(fiches))});
    fenetre->actModeTravail->trigger();
}

LyTextEdit *TestEditerFiche::Edite(quint64 numero)
{
    Clique(*fenetre, numero);
    fenetre->actEditFicheHTML->trigger();
    return fenetre->listeEditeurs;
}

QString TestEditerFiche::Chaine() const
{
    QStringList noms;
    for (const LyTextEdit *editeur = fenetre->listeEditeurs; editeur; editeur = editeur->suivant)
        noms += editeur->nomCourt;
    return noms.join(u' ');
}

void TestEditerFiche::sansArbreNiSelectionRienNeSePasse()
{
    Ouvre({"a.html"});
    const Scenario scenario;
    fenetre->slotEditFicheHTML();
    fenetre = std::make_unique<Fenetre>();
    fenetre->slotEditFicheHTML();
    QCOMPARE(scenario.Ecarts(), QStringList());
    QVERIFY(!fenetre->listeEditeurs);
    QVERIFY(Fenetres<LyTextEdit>().isEmpty());
}

void TestEditerFiche::uneFicheExistanteSOuvre_data()
{
    QTest::addColumn<QString>("fiche");
    QTest::addColumn<QString>("titre");
    QTest::addColumn<bool>("html");
    const auto ligne = [](const char *fiche, const char *nomCourt, bool html) {
        // The blank of the title's base, then that of the separator.
        QTest::newRow(fiche) << QString::fromUtf8(fiche)
                             << "Ramelier 5.1 - fiche associée à la personne n° 2  - " + QString::fromUtf8(nomCourt)
                             << html;
    };
    ligne("elise.html", "elise.html", true);
    ligne("elise.htm", "elise.htm", true);
    ligne("ELISE.HTM", "ELISE.HTM", false);
    ligne("notes.txt", "notes.txt", false);
    ligne("sous/elise.html", "elise.html", true);
    ligne("fiches.htm/notes.txt", "notes.txt", true);
    ligne("été %1 %2.html", "été %1 %2.html", true);
}

void TestEditerFiche::uneFicheExistanteSOuvre()
{
    QFETCH(const QString, fiche);
    QDir(dossier->Chemin()).mkpath(QFileInfo(fiche).path());
    dossier->Ecrit(fiche, "n\xE9 en 1760\n");
    Ouvre({"", fiche});
    const Scenario scenario;
    const LyTextEdit *editeur = Edite(2);
    QCOMPARE(scenario.Ecarts(), QStringList());
    QVERIFY(editeur);
    QVERIFY(editeur->isVisible());
    QCOMPARE(editeur->texte->toPlainText(), "né en 1760\n");
    QCOMPARE(editeur->fichierCourant, dossier->Chemin() + u'/' + fiche);
    QTEST(editeur->windowTitle(), "titre");
    QTEST(editeur->titre, "titre");
    QTEST(editeur->modeHtml, "html");
    QVERIFY(!editeur->autonome);
    QCOMPARE(editeur->repApplication, "/usr/bin");
    QVERIFY(!editeur->texte->document()->isModified());
    QVERIFY(!fenetre->doc->isModified());
}

void TestEditerFiche::uneFicheAbsenteCommenceVide_data()
{
    QTest::addColumn<QString>("fiche");
    QTest::addColumn<QString>("nomCourt");
    QTest::addColumn<bool>("html");
    QTest::newRow("page") << "elise.html"
                          << "elise.html" << true;
    QTest::newRow("texte") << "notes.txt"
                           << "notes.txt" << false;
    QTest::newRow("dans un dossier") << "sous/elise.html"
                                     << "elise.html" << true;
    QTest::newRow("lieu de remplacement dans le nom") << "a%2b%1.html"
                                                      << "a%2b%1.html" << true;
}

void TestEditerFiche::uneFicheAbsenteCommenceVide()
{
    QFETCH(const QString, fiche);
    QFETCH(const QString, nomCourt);
    QDir(dossier->Chemin()).mkdir("sous");
    Ouvre({"", fiche});
    const QString chemin = dossier->Chemin() + u'/' + fiche;
    Scenario scenario;
    scenario.Repond("OK");
    LyTextEdit *editeur = Edite(2);
    QCOMPARE(scenario.Ecarts(), QStringList());
    const BoiteVue boite = scenario.Boites().constFirst();
    QCOMPARE(boite.titre, "LyEditHtml");
    QCOMPARE(boite.texte, "Cannot read file " + chemin + ":\nAucun fichier ou dossier.");
    QCOMPARE(boite.icone, QMessageBox::Warning);
    QCOMPARE(boite.boutons, QStringList{"OK"});

    QVERIFY(editeur);
    QVERIFY(editeur->isVisible());
    QCOMPARE(editeur->texte->toPlainText(), QString());
    QVERIFY(!editeur->texte->document()->isModified());
    QCOMPARE(editeur->windowTitle(), "Ramelier 5.1 - fiche associée à la personne n° 2  - " + fiche);
    QCOMPARE(editeur->fichierCourant, chemin);
    QTEST(editeur->modeHtml, "html");
    QVERIFY(!QFile::exists(chemin));

    QTest::keyClicks(editeur->texte, "Jeanne");
    editeur->actFileSave->trigger();
    QCOMPARE(dossier->Lit(fiche), "Jeanne");
    QCOMPARE(editeur->windowTitle(), "Ramelier 5.1 - fiche associée à la personne n° 2  - " + nomCourt);
    QCOMPARE(scenario.Ecarts(), QStringList());
}

void TestEditerFiche::sansNomDeFicheOnLeDemande_data()
{
    QTest::addColumn<bool>("accepte");
    QTest::addColumn<Textes>("textes");
    QTest::newRow("renonce") << false << Textes{{"TxtFicHtml", "elise.html"}};
    QTest::newRow("rien de touché") << true << Textes{};
    QTest::newRow("autre chose écrit") << true << Textes{{"TxtPrenom", "Élise"}};
}

void TestEditerFiche::sansNomDeFicheOnLeDemande()
{
    QFETCH(const bool, accepte);
    QFETCH(const Textes, textes);
    dossier->Ecrit("elise.html", "Jeanne");
    Ouvre({"a.html", ""});
    Clique(*fenetre, 2);
    Scenario scenario;
    scenario.Repond("OK");
    if (accepte)
        Saisit<DlgPers>(scenario, textes);
    else
        Abandonne<DlgPers>(scenario, textes);
    scenario.Repond("OK");
    const Journal journal(*fenetre);
    fenetre->actEditFicheHTML->trigger();
    QCOMPARE(scenario.Ecarts(), QStringList());
    QCOMPARE(scenario.Boites().size(), 2);
    const BoiteVue invitation = scenario.Boites().at(0);
    QCOMPARE(invitation.titre, "Information");
    QCOMPARE(invitation.texte, "Pour éditer la fiche associée, entrez d'abord le nom du fichier");
    const BoiteVue abandon = scenario.Boites().at(1);
    QCOMPARE(abandon.titre, "Information");
    QCOMPARE(abandon.texte, "Le nom du fichier n'a pas été entré\nAbandon");
    for (const BoiteVue &boite : {invitation, abandon}) {
        QCOMPARE(boite.icone, QMessageBox::Information);
        QCOMPARE(boite.boutons, QStringList{"OK"});
        QCOMPARE(boite.parent, fenetre.get());
    }
    QCOMPARE(journal.Lignes(),
             (QStringList{"[Information]", " ...", "[Personne (Création / Modification)]", "Prêt.", "[Information]"}));
    QVERIFY(!fenetre->listeEditeurs);
    QVERIFY(Fenetres<LyTextEdit>().isEmpty());
}

void TestEditerFiche::leNomEntreOuvreLEditeur()
{
    dossier->Ecrit("elise.html", "Jeanne");
    Ouvre({"a.html", ""});
    Clique(*fenetre, 2);
    Scenario scenario;
    scenario.Repond("OK");
    Saisit<DlgPers>(scenario, {{"TxtFicHtml", "elise.html"}});
    fenetre->actEditFicheHTML->trigger();
    QCOMPARE(scenario.Ecarts(), QStringList());
    QCOMPARE(scenario.Boites().size(), 1);
    QCOMPARE(Chaine(), "elise.html");
    QCOMPARE(fenetre->listeEditeurs->texte->toPlainText(), "Jeanne");
    QCOMPARE(fenetre->listeEditeurs->windowTitle(), "Ramelier 5.1 - fiche associée à la personne n° 2  - elise.html");
    QVERIFY(fenetre->doc->isModified());
    QVERIFY(fenetre->actAnnuler->isEnabled());
}

void TestEditerFiche::laMemeFicheRevientDevant_data()
{
    QTest::addColumn<bool>("reduite");
    QTest::newRow("derrière") << false;
    QTest::newRow("réduite en icône") << true;
}

void TestEditerFiche::laMemeFicheRevientDevant()
{
    QFETCH(const bool, reduite);
    dossier->Ecrit("a.html", "a");
    Ouvre({"a.html"});
    LyTextEdit *editeur = Edite(1);
    QVERIFY(QTest::qWaitForWindowActive(editeur));
    if (reduite)
        editeur->showMinimized();
    fenetre->activateWindow();
    QVERIFY(QTest::qWaitForWindowActive(fenetre.get()));
    QCOMPARE(Edite(1), editeur);
    QCOMPARE(Fenetres<LyTextEdit>(), QList{editeur});
    QCOMPARE(Chaine(), "a.html");
    QTRY_VERIFY(editeur->isActiveWindow());
    QVERIFY(!editeur->isMinimized());
}

void TestEditerFiche::deuxPersonnesPartagentUnEditeur()
{
    dossier->Ecrit("a.html", "a");
    Ouvre({"a.html", "b.txt", "a.html"});
    LyTextEdit *editeur = Edite(1);
    QCOMPARE(Edite(3), editeur);
    QCOMPARE(Chaine(), "a.html");
    QCOMPARE(editeur->windowTitle(), "Ramelier 5.1 - fiche associée à la personne n° 1  - a.html");
}

void TestEditerFiche::lEditeurFermeQuitteLaChaine_data()
{
    QTest::addColumn<quint64>("numero");
    QTest::addColumn<QString>("reste");
    QTest::newRow("tête") << quint64(3) << "b.html a.html";
    QTest::newRow("milieu") << quint64(2) << "c.html a.html";
    QTest::newRow("queue") << quint64(1) << "c.html b.html";
}

void TestEditerFiche::lEditeurFermeQuitteLaChaine()
{
    QFETCH(const quint64, numero);
    for (const char *nom : {"a.html", "b.html", "c.html"})
        dossier->Ecrit(nom, nom);
    Ouvre({"a.html", "b.html", "c.html"});
    LyTextEdit *ferme = nullptr;
    for (quint64 n = 1; n <= 3; ++n) {
        LyTextEdit *editeur = Edite(n);
        if (n == numero)
            ferme = editeur;
    }
    QCOMPARE(Chaine(), "c.html b.html a.html");
    QCOMPARE(Fenetres<LyTextEdit>().size(), 3);
    ferme->actFileQuit->trigger();
    QTEST(Chaine(), "reste");
    QTRY_COMPARE(Fenetres<LyTextEdit>().size(), 2);
    QTEST(Chaine(), "reste");
    QVERIFY(fenetre->isVisible());
}

void TestEditerFiche::unEditeurEtrangerLaisseLaChaine()
{
    dossier->Ecrit("a.html", "a");
    dossier->Ecrit("b.html", "b");
    Ouvre({"a.html", "b.html"});
    Edite(1);
    Edite(2);
    const QPointer<LyTextEdit> etranger =
        new LyTextEdit("Titre", dossier->Chemin("a.html"), false, "/usr/bin", QString());
    fenetre->slotGestionListeEditeurs(etranger);
    fenetre->slotGestionListeEditeurs(nullptr);
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    QVERIFY(etranger);
    QCOMPARE(Chaine(), "b.html a.html");
}

void TestEditerFiche::lEditeurFermeEstDetruitPlusTard_data()
{
    QTest::addColumn<bool>("modifie");
    QTest::newRow("sans question") << false;
    QTest::newRow("après sa question") << true;
}

void TestEditerFiche::lEditeurFermeEstDetruitPlusTard()
{
    QFETCH(const bool, modifie);
    dossier->Ecrit("a.html", "a");
    Ouvre({"a.html"});
    const QPointer<LyTextEdit> editeur = Edite(1);
    Scenario scenario;
    if (modifie) {
        QTest::keyClicks(editeur->texte, "x");
        scenario.Repond("Non");
    }
    const QSignalSpy fermetures(editeur, &LyTextEdit::FermetureTextEdit);
    editeur->slotFileQuit();
    // It has just told that it closes, and its own functions are still to return.
    QVERIFY(editeur);
    QVERIFY(!editeur->isVisible());
    QVERIFY(!fenetre->listeEditeurs);
    QTRY_VERIFY(!editeur);
    QCOMPARE(fermetures.size(), 1);
    QCOMPARE(scenario.Ecarts(), QStringList());
    QCOMPARE(dossier->Lit("a.html"), "a");
}

void TestEditerFiche::fermePuisEditeLaFicheEnregistree()
{
    dossier->Ecrit("a.html", "a");
    Ouvre({"a.html"});
    const QPointer<LyTextEdit> premier = Edite(1);
    QTest::keyClicks(premier->texte, "plus ");
    premier->actFileSave->trigger();
    const Scenario scenario;
    premier->close();
    const QPointer<LyTextEdit> second = Edite(1);
    QVERIFY(second);
    QVERIFY(second != premier);
    QVERIFY(second->isVisible());
    QCOMPARE(second->texte->toPlainText(), "plus a");
    QTRY_VERIFY(!premier);
    QVERIFY(second);
    QCOMPARE(Chaine(), "a.html");
    QCOMPARE(scenario.Ecarts(), QStringList());
}

void TestEditerFiche::leDossierEstCeluiDuDernierArbre_data()
{
    QTest::addColumn<bool>("ouvre");
    QTest::newRow("ouvert") << true;
    QTest::newRow("enregistré sous") << false;
}

void TestEditerFiche::leDossierEstCeluiDuDernierArbre()
{
    QFETCH(const bool, ouvre);
    const Dossier autre;
    dossier->Ecrit("elise.html", "premier dossier");
    autre.Ecrit("elise.html", "autre dossier");
    Ouvre({"elise.html"});
    QCOMPARE(Edite(1)->texte->toPlainText(), "premier dossier");
    Scenario scenario;
    if (ouvre) {
        Choisit(scenario, autre.Ecrit("b.xrlg", ArbreAvecFiches({"elise.html"})));
        fenetre->actFileOpen->trigger();
        fenetre->actModeTravail->trigger();
    } else {
        Choisit(scenario, autre.Chemin("b"));
        fenetre->actFileSaveAs->trigger();
    }
    QCOMPARE(scenario.Ecarts(), QStringList());
    // Of the same name, yet another sheet.
    const LyTextEdit *editeur = Edite(1);
    QCOMPARE(Chaine(), "elise.html elise.html");
    QCOMPARE(editeur->texte->toPlainText(), "autre dossier");
    QCOMPARE(editeur->fichierCourant, autre.Chemin("elise.html"));
    QCOMPARE(scenario.Ecarts(), QStringList());
}

void TestEditerFiche::annulerGardeLEditeurEtSonTexte()
{
    dossier->Ecrit("a.html", "a");
    Ouvre({"a.html"});
    LyTextEdit *editeur = Edite(1);
    QTest::keyClicks(editeur->texte, "plus ");
    Scenario scenario;
    scenario.Repond("Annuler").Echappe();
    QVERIFY(!editeur->close());
    editeur->actFileQuit->trigger();
    QCOMPARE(scenario.Ecarts(), QStringList());
    for (const BoiteVue &boite : scenario.Boites()) {
        QCOMPARE(boite.titre, "Fermer...");
        QCOMPARE(boite.texte, "La fiche éditée a été modifiée \n enregistrer les modifications avant de fermer ?");
        QCOMPARE(boite.icone, QMessageBox::Warning);
        QCOMPARE(boite.boutons, (QStringList{"Oui", "Non", "Annuler"}));
        QCOMPARE(boite.defaut, "Oui");
        QCOMPARE(boite.echappement, "Annuler");
        QCOMPARE(boite.parent, editeur);
    }
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    QCOMPARE(Fenetres<LyTextEdit>(), QList{editeur});
    QVERIFY(editeur->isVisible());
    QVERIFY(editeur->texte->document()->isModified());
    QCOMPARE(editeur->texte->toPlainText(), "plus a");
    QCOMPARE(dossier->Lit("a.html"), "a");
    QCOMPARE(Edite(1), editeur);
    QCOMPARE(Chaine(), "a.html");
}

void TestEditerFiche::leNavigateurSuitSonEditeur()
{
    dossier->Ecrit("a.html", "<title>Titre</title>été");
    Ouvre({"a.html"});
    LyTextEdit *editeur = Edite(1);
    editeur->actAppelleLyTextBrowser->trigger();
    QCOMPARE(Fenetres<LyTextBrowser>().size(), 1);
    const QPointer<LyTextBrowser> navigateur = Fenetres<LyTextBrowser>().constFirst();
    QCOMPARE(navigateur->windowTitle(), "LyTextBrowser - Titre");
    QCOMPARE(navigateur->navigateur->toPlainText(), "été");
    // Closed by its user, it leaves its editor; another one closes with it.
    navigateur->close();
    QTRY_VERIFY(!navigateur);
    QVERIFY(editeur->isVisible());
    QCOMPARE(Chaine(), "a.html");
    editeur->actAppelleLyTextBrowser->trigger();
    const QPointer<LyTextBrowser> second = Fenetres<LyTextBrowser>().constFirst();
    editeur->close();
    QTRY_VERIFY(!second);
    QTRY_VERIFY(Fenetres<LyTextEdit>().isEmpty());
    QVERIFY(fenetre->isVisible());
}

RAMELIER_TEST_BUREAU_MAIN(TestEditerFiche)
#include "tst_editer_fiche.moc"
