#include "bureausombre.h"
#include "lytextbrowser.h"
#include "navigateurfiche.h"
#include "programmebureau.h"
#include "scenario.h"

#include <QAction>
#include <QApplication>
#include <QDir>
#include <QFile>
#include <QMenu>
#include <QMenuBar>
#include <QPointer>
#include <QPrintDialog>
#include <QSignalSpy>
#include <QStatusBar>
#include <QToolBar>

#include <poppler-qt6.h>

#include <optional>

#include <sys/stat.h>

/// The window that shows a sheet.
class TestLyTextBrowser : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup();
    void lesActions_data();
    void lesActions();
    void lesActionsDansLOrdre();
    void lesMenusEtLaBarre();
    void unTexteEstMontreTelQuel();
    void unTexteIllisibleLaisseLeTitre();
    void unePageDonneSonTitre();
    void lesLiensSeSuivent();
    void unLienEcritALaMainSeSuit_data();
    void unLienEcritALaMainSeSuit();
    void lienSousLaSourisDansLaBarreDeStatut();
    void uneImageAbsenteEtUnLienMortNeGenentPas();
    void cePourquoiUneFicheNEstPasLue_data();
    void cePourquoiUneFicheNEstPasLue();
    void rienNeVientDuReseau();
    void laBarreDOutilsSeCache();
    void laQuestionDitSesTextes();
    void imprimeEnPdfSansDialogue_data();
    void imprimeEnPdfSansDialogue();
    void imprimerPuisRenoncer();
    void aPropos();
    void fermerDetruitLaFenetre();
    void laTailleEtLeFoyer();
    void unBureauSombreGardeLePapierBlanc_data();
    void unBureauSombreGardeLePapierBlanc();
    void uneFicheChoisitLaCouleurDeSesLiens_data();
    void uneFicheChoisitLaCouleurDeSesLiens();

private:
    QString Ecrit(const QString &nom, const QByteArray &contenu) const;
    void Ouvre(const QString &chemin, bool html);

    std::unique_ptr<QTemporaryDir> dossier;
    QPointer<LyTextBrowser> fenetre;
};

namespace {

using MembreAction = QAction *LyTextBrowser::*;

QString Noms(const QList<QAction *> &actions)
{
    QStringList noms;
    for (const QAction *action : actions)
        noms += action->isSeparator() ? "|" : action->text();
    return noms.join(" / ");
}

}  // namespace

Q_DECLARE_METATYPE(MembreAction)

void TestLyTextBrowser::init()
{
    dossier = std::make_unique<QTemporaryDir>();
}

void TestLyTextBrowser::cleanup()
{
    delete fenetre;
    dossier.reset();
}

QString TestLyTextBrowser::Ecrit(const QString &nom, const QByteArray &contenu) const
{
    QFile fichier(dossier->filePath(nom));
    if (!fichier.open(QIODevice::WriteOnly) || fichier.write(contenu) != contenu.size())
        qFatal("le dossier d'essai refuse %s", qPrintable(nom));
    return fichier.fileName();
}

void TestLyTextBrowser::Ouvre(const QString &chemin, bool html)
{
    fenetre = new LyTextBrowser(QIcon(), "Fiche", chemin, html);
}

void TestLyTextBrowser::lesActions_data()
{
    QTest::addColumn<MembreAction>("membre");
    QTest::addColumn<QString>("texte");
    QTest::addColumn<QString>("raccourci");
    QTest::addColumn<QString>("status");
    QTest::addColumn<QString>("quEstCe");
    QTest::addColumn<QString>("icone");
    using Vue = LyTextBrowser;
    const auto ligne = [](MembreAction membre, const char *texte, const char *raccourci, const char *icone,
                          const char *status, const char *quEstCe) {
        QTest::newRow(texte) << membre << QString::fromUtf8(texte) << QString::fromUtf8(raccourci)
                             << QString::fromUtf8(status) << QString::fromUtf8(quEstCe) << QString::fromUtf8(icone);
    };
    ligne(&Vue::actFilePrint, "Im&primer", "Ctrl+P", ":/images/printer.png", "Imprime le texte affiché",
          "Imprimer\n\nImprime le texte affiché");
    ligne(&Vue::actFileQuit, "&Fermer", "Ctrl+Q", "", "Ferme cette fenêtre", "Fermer\n\nFerme cette fenêtre");
    ligne(&Vue::actSuivant, "Page suivante", "Alt+Right", ":/images/forward.png", "Page suivante",
          "Page suivante\n\nPermet d'aller à la page suivante\ndans l'historique de la navigation en cours");
    ligne(&Vue::actPrecedent, "Page précédente", "Alt+Left", ":/images/backward.png", "Page précédente",
          "Page précédente\n\nPermet d'aller à la page précédente\ndans l'historique de la navigation en cours");
    ligne(&Vue::actRecharger, "Recharger", "F5", ":/images/recharger.png", "Recharger",
          "Recharger\n\nRecharge le document affiché dans le navigateur");
    ligne(&Vue::actOrigine, "Origine", "Alt+Up", ":/images/debut.png", "Origine",
          "Origine\n\nPermet de retourner à la première page ouverte\ndans l'historique de la navigation en cours");
    ligne(&Vue::actViewToolBar, "Barre d'outils", "", "", "Active/désactive la barre d'outils",
          "Barre d'outils\n\nActive/désactive la barre d'outils");
    ligne(&Vue::actHelpAbout, "A propos de l'afficheur de textes", "", "", "A propos de l'afficheur de textes",
          "A propos\n\nA propos de l'afficheur de textes");
    ligne(&Vue::actHelpAboutQt, "A propos de Qt", "", "", "A propos de l'outil de développement de l'application",
          "A propos de Qt\n\nA propos de l'outil de développement l'application");
}

void TestLyTextBrowser::lesActions()
{
    QFETCH(const MembreAction, membre);
    Ouvre(Ecrit("a.txt", "a"), false);
    const QAction &action = *(fenetre->*membre);
    QTEST(action.text(), "texte");
    QTEST(action.shortcut().toString(QKeySequence::PortableText), "raccourci");
    QTEST(action.statusTip(), "status");
    QTEST(action.whatsThis(), "quEstCe");
    QFETCH(const QString, icone);
    QCOMPARE(action.icon().isNull(), icone.isEmpty());
    QCOMPARE(action.icon().pixmap(16, 16).isNull(), icone.isEmpty());
    QCOMPARE(action.icon().pixmap(16, 16).toImage(), QIcon(icone).pixmap(16, 16).toImage());
    QCOMPARE(action.isCheckable(), &action == fenetre->actViewToolBar);
    QCOMPARE(action.isChecked(), &action == fenetre->actViewToolBar);
}

void TestLyTextBrowser::lesActionsDansLOrdre()
{
    Ouvre(Ecrit("a.txt", "a"), false);
    QList<QAction *> ordre;
    for (QObject *enfant : fenetre->children()) {
        if (auto *action = qobject_cast<QAction *>(enfant))
            ordre += action;
    }
    QCOMPARE(Noms(ordre),
             "Im&primer / &Fermer / Page suivante / Page précédente / Recharger / Origine / Barre d'outils / "
             "A propos de l'afficheur de textes / A propos de Qt / "
                 + fenetre->actWhatsThis->text());
}

void TestLyTextBrowser::lesMenusEtLaBarre()
{
    Ouvre(Ecrit("a.txt", "a"), false);
    QCOMPARE(Noms(fenetre->menuBar()->actions()), "&Fichier / Affichage / Aller à / &Aide");
    QCOMPARE(fenetre->menuFichier->title(), "&Fichier");
    QCOMPARE(Noms(fenetre->menuFichier->actions()), "Im&primer / | / &Fermer");
    QCOMPARE(fenetre->menuAffichage->title(), "Affichage");
    QCOMPARE(Noms(fenetre->menuAffichage->actions()), "Recharger / Barre d'outils");
    QCOMPARE(fenetre->menuAller->title(), "Aller à");
    QCOMPARE(Noms(fenetre->menuAller->actions()), "Page précédente / Page suivante / Origine");
    QCOMPARE(fenetre->menuAide->title(), "&Aide");
    QCOMPARE(Noms(fenetre->menuAide->actions()), "A propos de l'afficheur de textes / A propos de Qt");
    QCOMPARE(fenetre->barreOutils->windowTitle(), "Barre d'outils");
    QCOMPARE(Noms(fenetre->barreOutils->actions()),
             "Page précédente / Page suivante / Origine / Recharger / | / Im&primer / | / "
                 + fenetre->actWhatsThis->text() + " / |");
}

void TestLyTextBrowser::unTexteEstMontreTelQuel()
{
    Ouvre(Ecrit("notes.txt", "<b>Jean</b> & <i>Élise</i>\nné en 1760"), false);
    QCOMPARE(fenetre->navigateur->toPlainText(), "<b>Jean</b> & <i>Élise</i>\nné en 1760");
    QCOMPARE(fenetre->windowTitle(), "Fiche - notes.txt");
    QCOMPARE(fenetre->legende, "Fiche - notes.txt");
}

void TestLyTextBrowser::unTexteIllisibleLaisseLeTitre()
{
    Ouvre(dossier->filePath("absent.txt"), false);
    QCOMPARE(fenetre->navigateur->toPlainText(), QString());
    QCOMPARE(fenetre->windowTitle(), QString());
}

void TestLyTextBrowser::unePageDonneSonTitre()
{
    Ouvre(Ecrit("a.html", "<html><head><title>Jean Martin</title></head><body><b>forgeron</b></body></html>"), true);
    QCOMPARE(fenetre->windowTitle(), "Fiche - Jean Martin");
    QCOMPARE(fenetre->navigateur->toPlainText(), "forgeron");
}

void TestLyTextBrowser::lesLiensSeSuivent()
{
    Ecrit("b.html", "<title>Deux</title>b");
    Ouvre(Ecrit("a.html", "<title>Un</title><a href=\"b.html\">b</a>"), true);
    Q_EMIT fenetre->navigateur->anchorClicked(QUrl());
    fenetre->navigateur->setSource(QUrl("b.html"));
    QCOMPARE(fenetre->windowTitle(), "Fiche - Deux");
    fenetre->actPrecedent->trigger();
    QCOMPARE(fenetre->windowTitle(), "Fiche - Un");
    fenetre->actSuivant->trigger();
    QCOMPARE(fenetre->windowTitle(), "Fiche - Deux");
    Ecrit("b.html", "<title>Deux bis</title>b");
    fenetre->actRecharger->trigger();
    QCOMPARE(fenetre->windowTitle(), "Fiche - Deux bis");
    fenetre->actOrigine->trigger();
    QCOMPARE(fenetre->windowTitle(), "Fiche - Un");
}

void TestLyTextBrowser::unLienEcritALaMainSeSuit_data()
{
    QTest::addColumn<QString>("nom");
    QTest::addColumn<QString>("lien");
    QTest::newRow("simple") << "suite.html"
                            << "suite.html";
    QTest::newRow("accents et blancs") << "Élise Noël.html"
                                       << "Élise Noël.html";
    QTest::newRow("entités") << "Élise & Noël.html"
                             << "&Eacute;lise &amp; No&euml;l.html";
    QTest::newRow("codé") << "Élise #1 ?.html"
                          << "%C3%89lise%20%231%20%3F.html";
    QTest::newRow("pour cent seul") << "100 %.html"
                                    << "100 %.html";
    QTest::newRow("crochets") << "a[1].html"
                              << "a[1].html";
    QTest::newRow("dans un dossier") << "les fiches/l'aînée.html"
                                     << "les fiches/l'aînée.html";
    QTest::newRow("point en tête") << "suite.html"
                                   << "./suite.html";
}

void TestLyTextBrowser::unLienEcritALaMainSeSuit()
{
    QFETCH(const QString, nom);
    QFETCH(const QString, lien);
    QVERIFY(QDir(dossier->path()).mkpath("les fiches"));
    QVERIFY(!Ecrit(nom, "<title>Suite</title>deux").isEmpty());
    Ouvre(Ecrit("n° #1 %.html", "<title>Début</title><p><a href=\"" + lien.toUtf8() + "\">suite</a></p>"), true);
    QTest::keyClick(fenetre->navigateur, Qt::Key_Tab);
    QTest::keyClick(fenetre->navigateur, Qt::Key_Return);
    QVERIFY(fenetre->windowTitle().endsWith(" - Suite"));
    QCOMPARE(fenetre->navigateur->toPlainText(), "deux");
}

void TestLyTextBrowser::lienSousLaSourisDansLaBarreDeStatut()
{
    Ouvre(Ecrit("a.html", "<p><a href=\"b.html\">un lien assez long pour la souris</a></p>"), true);
    QVERIFY(QTest::qWaitForWindowExposed(fenetre));
    QTextCursor dansLeLien(fenetre->navigateur->document());
    dansLeLien.setPosition(5);
    QTest::mouseMove(fenetre->navigateur->viewport(), QPoint(300, 300));
    QTest::mouseMove(fenetre->navigateur->viewport(), fenetre->navigateur->cursorRect(dansLeLien).center());
    QTRY_COMPARE(fenetre->statusBar()->currentMessage(), QUrl::fromLocalFile(dossier->filePath("b.html")).toString());
}

void TestLyTextBrowser::uneImageAbsenteEtUnLienMortNeGenentPas()
{
    Ouvre(Ecrit("a.html", "<title>Un</title><img src=\"absente.png\"><img src=\"/dev/zero\"><p>texte</p>"), true);
    QVERIFY(fenetre->navigateur->toPlainText().contains("texte"));
    fenetre->navigateur->setSource(QUrl("mort.html"));
    QCOMPARE(fenetre->navigateur->toPlainText(), "Le fichier " + dossier->filePath("mort.html") + " n'existe pas !");
    fenetre->actPrecedent->trigger();
    QCOMPARE(fenetre->windowTitle(), "Fiche - Un");
}

void TestLyTextBrowser::cePourquoiUneFicheNEstPasLue_data()
{
    QTest::addColumn<QString>("nom");
    QTest::addColumn<QString>("cause");
    QTest::newRow("plus de 16 Mio") << "immense"
                                    << "Le fichier est trop grand";
    QTest::newRow("dossier") << "dossier"
                             << "le fichier à ouvrir est un répertoire";
    QTest::newRow("tube") << "tube"
                          << "Ce n'est pas un fichier ordinaire";
}

void TestLyTextBrowser::cePourquoiUneFicheNEstPasLue()
{
    QFETCH(const QString, nom);
    QFETCH(const QString, cause);
    QVERIFY(QFile(Ecrit("immense", "a")).resize((16 << 20) + 1));
    QVERIFY(QDir(dossier->path()).mkdir("dossier"));
    QCOMPARE(mkfifo(QFile::encodeName(dossier->filePath("tube")).constData(), 0600), 0);
    const QString chemin = dossier->filePath(nom);
    const QString dit = "Le fichier " + chemin + " ne peut pas être lu : " + cause + ".";
    Ouvre(chemin, true);
    QCOMPARE(fenetre->navigateur->toPlainText(), dit);
    delete fenetre;
    Ouvre(chemin, false);
    QCOMPARE(fenetre->navigateur->toPlainText(), QString());
    QCOMPARE(fenetre->windowTitle(), QString());
    QCOMPARE(fenetre->statusBar()->currentMessage(), dit);
    QVERIFY(QFile::remove(chemin) || QDir().rmdir(chemin));
    Ecrit(nom, "lu enfin");
    fenetre->actRecharger->trigger();
    QCOMPARE(fenetre->navigateur->toPlainText(), "lu enfin");
    QCOMPARE(fenetre->statusBar()->currentMessage(), QString());
}

void TestLyTextBrowser::rienNeVientDuReseau()
{
    Ouvre(Ecrit("a.html", "<img src=\"http://localhost:9/a.png\"><p>texte</p>"), true);
    fenetre->navigateur->setSource(QUrl("http://localhost:9/b.html"));
    QCOMPARE(fenetre->navigateur->toPlainText(), "Le fichier http://localhost:9/b.html n'existe pas !");
}

void TestLyTextBrowser::laBarreDOutilsSeCache()
{
    Ouvre(Ecrit("a.txt", "a"), false);
    fenetre->actViewToolBar->trigger();
    QVERIFY(!fenetre->barreOutils->isVisible());
    fenetre->actViewToolBar->trigger();
    QVERIFY(fenetre->barreOutils->isVisible());
}

void TestLyTextBrowser::laQuestionDitSesTextes()
{
    Ouvre(Ecrit("a.txt", "a"), false);
    Scenario scenario;
    scenario.Repond("Annuler");
    fenetre->actFilePrint->trigger();
    QCOMPARE(scenario.Ecarts(), QStringList());
    const BoiteVue boite = scenario.Boites().constFirst();
    QCOMPARE(boite.titre, "Choix du mode d'impression");
    QCOMPARE(boite.texte, "Imprimer sur imprimante OU dans un fichier pdf ?");
    QCOMPARE(boite.icone, QMessageBox::Question);
    QCOMPARE(boite.boutons, (QStringList{"Imprimante", "Fichier pdf", "Annuler"}));
    QCOMPARE(boite.defaut, "Imprimante");
    QCOMPARE(boite.echappement, QString());
    QCOMPARE(boite.parent, fenetre);
    QCOMPARE(QDir(dossier->path()).entryList(QDir::Files), QStringList{"a.txt"});
}

void TestLyTextBrowser::imprimeEnPdfSansDialogue_data()
{
    QTest::addColumn<QString>("nom");
    QTest::addColumn<QByteArray>("contenu");
    QTest::addColumn<QString>("pdf");
    QTest::newRow("page") << "x.html" << QByteArray("<p>Élise LEFÈVRE</p>") << "x.pdf";
    QTest::newRow("texte") << "x.final.txt" << QByteArray("Élise LEFÈVRE") << "x.pdf";
}

void TestLyTextBrowser::imprimeEnPdfSansDialogue()
{
    QFETCH(const QString, nom);
    QFETCH(const QByteArray, contenu);
    QFETCH(const QString, pdf);
    Ecrit(pdf, "ancien");
    Ouvre(Ecrit(nom, contenu), nom.endsWith(".html"));
    QCOMPARE(fenetre->fichierPdf, dossier->filePath(pdf));
    Scenario scenario;
    scenario.Repond("Fichier pdf");
    fenetre->actFilePrint->trigger();
    QCOMPARE(scenario.Ecarts(), QStringList());
    const auto document = Poppler::Document::load(dossier->filePath(pdf));
    QVERIFY(document);
    QCOMPARE(document->numPages(), 1);
    QVERIFY(document->page(0)->text(QRectF()).contains("Élise LEFÈVRE"));
}

void TestLyTextBrowser::imprimerPuisRenoncer()
{
    Ouvre(Ecrit("a.txt", "a"), false);
    Scenario scenario;
    scenario.Repond("Imprimante");
    scenario.Dialogue<QPrintDialog>([](QPrintDialog &dialogue) { dialogue.reject(); });
    fenetre->actFilePrint->trigger();
    QCOMPARE(scenario.Ecarts(), QStringList());
    QCOMPARE(QDir(dossier->path()).entryList(QDir::Files), QStringList{"a.txt"});
}

void TestLyTextBrowser::aPropos()
{
    Ouvre(Ecrit("a.txt", "a"), false);
    Scenario scenario;
    scenario.Repond("OK");
    scenario.Repond("OK");
    fenetre->actHelpAbout->trigger();
    fenetre->actHelpAboutQt->trigger();
    QCOMPARE(scenario.Ecarts(), QStringList());
    QCOMPARE(scenario.Boites().constFirst().titre, "A propos de l'afficheur de textes...");
    QCOMPARE(scenario.Boites().constFirst().texte, "LyTextBrowser - afficheur de textes\nVersion 0.2 pour Windows");
    QVERIFY(scenario.Boites().constLast().texte.contains("Qt"));
}

void TestLyTextBrowser::fermerDetruitLaFenetre()
{
    Ouvre(Ecrit("a.txt", "a"), false);
    const QSignalSpy fermetures(fenetre, &LyTextBrowser::FermetureBrowser);
    fenetre->actFileQuit->trigger();
    QCOMPARE(fermetures.size(), 1);
    QTRY_VERIFY(!fenetre);
}

void TestLyTextBrowser::laTailleEtLeFoyer()
{
    Ouvre(Ecrit("a.txt", "a"), false);
    // The screen of the tests is 800 x 800.
    QCOMPARE(fenetre->size(), QSize(700, 500));
    QVERIFY(fenetre->isVisible());
    QVERIFY(QTest::qWaitForWindowActive(fenetre));
    QCOMPARE(QApplication::focusWidget(), fenetre->navigateur);
    QCOMPARE(fenetre->centralWidget(), fenetre->navigateur);
}

void TestLyTextBrowser::unBureauSombreGardeLePapierBlanc_data()
{
    QTest::addColumn<bool>("avant");
    QTest::newRow("sombre avant d'ouvrir") << true;
    QTest::newRow("sombre plus tard") << false;
}

void TestLyTextBrowser::unBureauSombreGardeLePapierBlanc()
{
    QFETCH(const bool, avant);
    std::optional<BureauSombre> sombre;
    if (avant)
        sombre.emplace();
    Ouvre(Ecrit("a.html", "<h1>Titre</h1><p><a href=\"b.html\">Un lien</a>"), true);
    if (!avant)
        sombre.emplace();
    QVERIFY(QTest::qWaitForWindowExposed(fenetre));
    QCOMPARE(fenetre->palette().color(QPalette::Base), QColor(10, 10, 10));
    const QImage page = fenetre->navigateur->viewport()->grab().toImage();
    QVERIFY(PixelsDe(page, Qt::white) > page.width() * page.height() * 9 / 10);
    QVERIFY(PixelsDe(page, Qt::black) > 50);
    // The line under the link.
    QVERIFY(PixelsDe(page, Qt::blue) > 20);
    QCOMPARE(PixelsDe(page, Qt::yellow), 0);
}

void TestLyTextBrowser::uneFicheChoisitLaCouleurDeSesLiens_data()
{
    QTest::addColumn<QByteArray>("fiche");
    QTest::newRow("feuille de style") << QByteArray(
        "<style>a { color: #008000 }</style><a href=\"b.html\">Un lien</a>");
    QTest::newRow("style du lien") << QByteArray("<a href=\"b.html\" style=\"color: #008000\">Un lien</a>");
    QTest::newRow("couleur dans le lien")
        << QByteArray("<a href=\"b.html\"><font color=\"#008000\">Un lien</font></a>");
}

void TestLyTextBrowser::uneFicheChoisitLaCouleurDeSesLiens()
{
    QFETCH(const QByteArray, fiche);
    Ouvre(Ecrit("a.html", fiche), true);
    QVERIFY(QTest::qWaitForWindowExposed(fenetre));
    const QImage page = fenetre->navigateur->viewport()->grab().toImage();
    QVERIFY(PixelsDe(page, QColor(0, 128, 0)) > 20);
    QCOMPARE(PixelsDe(page, Qt::blue), 0);
}

RAMELIER_TEST_BUREAU_MAIN(TestLyTextBrowser)
#include "tst_lytextbrowser.moc"
