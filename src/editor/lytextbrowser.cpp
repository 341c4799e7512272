#include "lytextbrowser.h"

#include "barres.h"
#include "boites.h"
#include "navigateurfiche.h"
#include "tableactions.h"
#include "textefiche.h"

#include <QCloseEvent>
#include <QFileInfo>
#include <QGuiApplication>
#include <QIcon>
#include <QMenuBar>
#include <QPrintDialog>
#include <QPrinter>
#include <QScreen>
#include <QStatusBar>
#include <QToolBar>

LyTextBrowser::LyTextBrowser(const QIcon &icone, const QString &titreDeBase, const QString &fichier, bool commeHtml)
    : navigateur(new NavigateurFiche(this))
    , titre(titreDeBase)
    , html(commeHtml)
{
    setWindowIcon(icone);
    setAttribute(Qt::WA_DeleteOnClose);
    initActions();
    initMenus();
    initBarreOutils();
    NommeLesBarres(*this);
    connect(navigateur, &QTextBrowser::sourceChanged, this, &LyTextBrowser::slotMaJCaption);
    connect(navigateur, &QTextBrowser::highlighted, this,
            [this](const QUrl &lien) { statusBar()->showMessage(lien.toString()); });
    Montre(fichier);
    navigateur->setFocus();
    setCentralWidget(navigateur);
    const QSize bureau = QGuiApplication::primaryScreen()->availableSize();
    resize(bureau.width() >= 800 && bureau.height() >= 600 ? QSize(700, 500) : QSize(600, 440));
    show();
}

void LyTextBrowser::initActions()
{
    using Vue = LyTextBrowser;
    // Member, text, shortcut, icon, status tip, what's this, slot. "de développement l'application" is meant so.
    static const DefAction<Vue> actions[] = {
        {&Vue::actFilePrint, "Im&primer", "Ctrl+P", ":/images/printer.png", "Imprime le texte affiché",
         "Imprimer\n\nImprime le texte affiché", &Vue::slotFilePrint},
        {&Vue::actFileQuit, "&Fermer", "Ctrl+Q", "", "Ferme cette fenêtre", "Fermer\n\nFerme cette fenêtre",
         &Vue::slotFileQuit},
        {&Vue::actSuivant, "Page suivante", "Alt+Right", ":/images/forward.png", "Page suivante",
         "Page suivante\n\nPermet d'aller à la page suivante\ndans l'historique de la navigation en cours",
         &Vue::slotSuivant},
        {&Vue::actPrecedent, "Page précédente", "Alt+Left", ":/images/backward.png", "Page précédente",
         "Page précédente\n\nPermet d'aller à la page précédente\ndans l'historique de la navigation en cours",
         &Vue::slotPrecedent},
        {&Vue::actRecharger, "Recharger", "F5", ":/images/recharger.png", "Recharger",
         "Recharger\n\nRecharge le document affiché dans le navigateur", &Vue::slotRecharger},
        {&Vue::actOrigine, "Origine", "Alt+Up", ":/images/debut.png", "Origine",
         "Origine\n\nPermet de retourner à la première page ouverte\ndans l'historique de la navigation en cours",
         &Vue::slotOrigine},
        {&Vue::actViewToolBar, "Barre d'outils", "", "", "Active/désactive la barre d'outils",
         "Barre d'outils\n\nActive/désactive la barre d'outils", nullptr},
        {&Vue::actHelpAbout, "A propos de l'afficheur de textes", "", "", "A propos de l'afficheur de textes",
         "A propos\n\nA propos de l'afficheur de textes", &Vue::slotHelpAbout},
        {&Vue::actHelpAboutQt, "A propos de Qt", "", "", "A propos de l'outil de développement de l'application",
         "A propos de Qt\n\nA propos de l'outil de développement l'application", &Vue::slotHelpAboutQt},
    };
    CreeActions(this, actions);
    actViewToolBar->setCheckable(true);
    actViewToolBar->setChecked(true);
    connect(actViewToolBar, &QAction::triggered, this, &LyTextBrowser::slotViewToolBar);
    actWhatsThis = NouvelleActionQuEstCe(this);
}

void LyTextBrowser::initMenus()
{
    menuFichier = menuBar()->addMenu(QStringLiteral("&Fichier"));
    menuFichier->addAction(actFilePrint);
    menuFichier->addSeparator();
    menuFichier->addAction(actFileQuit);
    menuAffichage = menuBar()->addMenu(QStringLiteral("Affichage"));
    menuAffichage->addActions({actRecharger, actViewToolBar});
    menuAller = menuBar()->addMenu(QStringLiteral("Aller à"));
    menuAller->addActions({actPrecedent, actSuivant, actOrigine});
    menuAide = menuBar()->addMenu(QStringLiteral("&Aide"));
    menuAide->addActions({actHelpAbout, actHelpAboutQt});
}

void LyTextBrowser::initBarreOutils()
{
    barreOutils = addToolBar(QStringLiteral("Barre d'outils"));
    barreOutils->addActions({actPrecedent, actSuivant, actOrigine, actRecharger});
    barreOutils->addSeparator();
    barreOutils->addAction(actFilePrint);
    barreOutils->addSeparator();
    barreOutils->addAction(actWhatsThis);
    barreOutils->addSeparator();
}

void LyTextBrowser::Montre(const QString &fichier)
{
    const QFileInfo info(fichier);
    fichierMontre = fichier;
    fichierPdf = info.absolutePath() + u'/' + info.baseName() + QStringLiteral(".pdf");
    if (html) {
        navigateur->setSource(QUrl::fromLocalFile(fichier));
        return;
    }
    QString cause;
    const QByteArray octets = OctetsFiche(fichier, &cause);
    navigateur->setPlainText(TexteFicheSimple(octets));
    if (octets.isNull()) {
        statusBar()->showMessage(NavigateurFiche::NonLu(fichier, cause));
        return;
    }
    statusBar()->clearMessage();
    legende = titre + QStringLiteral(" - ") + info.fileName();
    setWindowTitle(legende);
}

void LyTextBrowser::slotMaJCaption()
{
    legende = titre + QStringLiteral(" - ") + navigateur->documentTitle();
    setWindowTitle(legende);
}

void LyTextBrowser::slotFilePrint()
{
    QPrinter imprimante(QPrinter::ScreenResolution);
    const int choix =
        Boites::Demande(this, QMessageBox::Question, QStringLiteral("Choix du mode d'impression"),
                        QStringLiteral("Imprimer sur imprimante OU dans un fichier pdf ?"),
                        {QStringLiteral("Imprimante"), QStringLiteral("Fichier pdf"), QStringLiteral("Annuler")}, 0,
                        Boites::sansEchappement);
    if (choix == 0) {
        QPrintDialog dialogue(&imprimante, this);
        if (dialogue.exec() == QDialog::Accepted)
            navigateur->print(&imprimante);
    } else if (choix == 1) {
        imprimante.setOutputFileName(fichierPdf);
        navigateur->print(&imprimante);
    }
}

void LyTextBrowser::slotFileQuit()
{
    close();
}

void LyTextBrowser::slotSuivant()
{
    navigateur->forward();
}

void LyTextBrowser::slotPrecedent()
{
    navigateur->backward();
}

void LyTextBrowser::slotRecharger()
{
    // A plain text has no source that the toolkit could read again.
    if (html)
        navigateur->reload();
    else
        Montre(fichierMontre);
}

void LyTextBrowser::slotOrigine()
{
    navigateur->home();
}

void LyTextBrowser::slotViewToolBar(bool visible)
{
    barreOutils->setVisible(visible);
}

void LyTextBrowser::slotHelpAbout()
{
    QMessageBox::about(this, QStringLiteral("A propos de l'afficheur de textes..."),
                       QStringLiteral("LyTextBrowser - afficheur de textes\nVersion 0.2 pour Windows"));
}

void LyTextBrowser::slotHelpAboutQt()
{
    QMessageBox::aboutQt(this);
}

void LyTextBrowser::closeEvent(QCloseEvent *evenement)
{
    evenement->accept();
    Q_EMIT FermetureBrowser();
}
