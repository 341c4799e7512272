#include "lytextedit.h"

#include <QLabel>
#include <QMenuBar>
#include <QStatusBar>
#include <QToolBar>

void LyTextEdit::initMenus()
{
    menuFichier = menuBar()->addMenu(QStringLiteral("&Fichier"));
    if (autonome)
        menuFichier->addActions({actFileNew, actFileOpen});
    menuFichier->addAction(actFileSave);
    if (autonome)
        menuFichier->addAction(actFileSaveAs);
    menuFichier->addSeparator();
    menuFichier->addAction(actFileQuit);

    menuEdition = menuBar()->addMenu(QStringLiteral("&Edition"));
    menuEdition->addActions({actEditAnnuler, actEditRefaire});
    menuEdition->addSeparator();
    menuEdition->addActions({actEditCut, actEditCopy, actEditPaste});
    menuEdition->addSeparator();
    menuEdition->addActions({actEditCherche, actEditReplace, actEditReplaceEncore});

    initMenuHtml();

    menuAffichage = menuBar()->addMenu(QStringLiteral("Affichage"));
    menuAffichage->addAction(actAppelleLyTextBrowser);
    menuAffichage->addSeparator();
    menuAffichage->addActions({actViewToolBar, actViewToolBarB, actViewStatusBar});
    menuAffichage->addSeparator();
    menuAffichage->addAction(actPoliceEditeur);

    menuAide = menuBar()->addMenu(QStringLiteral("&Aide"));
    menuAide->addAction(actAide);
    menuAide->addSeparator();
    menuAide->addActions({actHelpAbout, actHelpAboutQt});
}

void LyTextEdit::initMenuHtml()
{
    menuHtml = menuBar()->addMenu(QStringLiteral("Edition &Html"));
    menuHtml->addMenu(QStringLiteral("Caractères"))
        ->addActions({actCarGras, actCarItalic, actCarSouligne, actCarPreformate});
    menuHtml->addSeparator();
    menuHtml->addMenu(QStringLiteral("Justification"))->addActions({actGauche, actCentre, actDroite, actJustifie});
    menuHtml->addSeparator();
    menuHtml->addActions({actSqueletteHtml, actParagraphe, actAlaLigne, actLigneHoriz, actBlancInsec});
    menuHtml->addSeparator();
    menuHtml->addMenu(QStringLiteral("Titres"))
        ->addActions({actTitre1, actTitre2, actTitre3, actTitre4, actTitre5, actTitre6});
    menuHtml->addSeparator();
    menuHtml->addMenu(QStringLiteral("Listes"))
        ->addActions({actListeSimple, actListeOrdo, actElemListe, actListeDef, actTermDef, actDefinition});
    menuHtml->addSeparator();
    menuHtml->addActions({actTableaux, actLienHypText, actNameAncre, actImage});
}

void LyTextEdit::initBarresOutils()
{
    barreOutils = addToolBar(QStringLiteral("Barre d'outils"));
    if (autonome)
        barreOutils->addActions({actFileNew, actFileOpen});
    barreOutils->addAction(actFileSave);
    barreOutils->addSeparator();
    barreOutils->addActions({actEditAnnuler, actEditRefaire});
    barreOutils->addSeparator();
    barreOutils->addActions({actEditCut, actEditCopy, actEditPaste});
    barreOutils->addSeparator();
    barreOutils->addAction(actEditCherche);

    addToolBarBreak();
    barreHtml = addToolBar(QStringLiteral("Barre d'outils balises HTML"));
    barreHtml->addActions({actSqueletteHtml, actCarGras, actCarItalic, actCarSouligne, actCarPreformate});
    barreHtml->addSeparator();
    barreHtml->addActions({actGauche, actCentre, actDroite, actJustifie});
    barreHtml->addSeparator();
    barreHtml->addActions({actParagraphe, actAlaLigne, actLigneHoriz, actBlancInsec});
    barreHtml->addSeparator();
    barreHtml->addActions({actTitre1, actTitre2, actTitre3});
    barreHtml->addSeparator();
    barreHtml->addActions({actListeSimple, actListeOrdo, actElemListe, actListeDef, actTermDef, actDefinition});
    barreHtml->addSeparator();
    barreHtml->addActions({actTableaux, actLienHypText, actNameAncre, actImage});
}

void LyTextEdit::initStatusBar()
{
    constexpr int dureeAccueil = 2000;
    statusBar()->showMessage(QStringLiteral("Prêt."), dureeAccueil);
    labelAlignement = new QLabel(QStringLiteral("Gauche"));
    labelInsertion = new QLabel(QStringLiteral("INS"));
    labelInfoModif = new QLabel;
    for (QLabel *label : {labelAlignement, labelInsertion, labelInfoModif})
        statusBar()->addPermanentWidget(label);
    slotMaJStatusBarreInfoModif(false);
}
