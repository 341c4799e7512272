#include "ramelierapp.h"

#include <QAction>
#include <QCursor>
#include <QMenu>
#include <QMenuBar>
#include <QToolBar>

namespace {

/// A separator in the tables of menu entries.
constexpr QAction *separateur = nullptr;

}  // namespace

void RamelierApp::Remplit(QMenu *menu, std::initializer_list<QAction *> actions)
{
    for (QAction *action : actions) {
        if (action)
            menu->addAction(action);
        else
            menu->addSeparator();
    }
}

void RamelierApp::initMenuBar()
{
    menuFichier = menuBar()->addMenu(QStringLiteral("&Fichier"));
    Remplit(menuFichier,
            {actFileNew, actFileOpen, actFileSave, actFileSaveAs, separateur, actFilePrint, separateur, actFileQuit});
    menuEdition = menuBar()->addMenu(QStringLiteral("&Edition"));
    Remplit(menuEdition,
            {actAnnuler, separateur, actModifier, actAjouterPere, actAjouterMere, separateur, actSuppPers, separateur,
             actEditFicheHTML, separateur, actEditPdG});
    menuFormat = menuBar()->addMenu(QStringLiteral("Forma&t"));
    Remplit(menuFormat, {actFormatsDessins, actPoliceCaract, separateur, actPreferences});
    menuAffichage = menuBar()->addMenu(QStringLiteral("Affichage"));
    Remplit(menuAffichage,
            {actModeTravail, separateur, actAffFicheHTML, separateur, actViewToolBar, actViewStatusBar, separateur,
             actModeAffichage});
    menuOutils = menuBar()->addMenu(QStringLiteral("Outils"));
    Remplit(menuOutils, {actAssembleArbres, separateur, actExporteGED, actImporteGED});
    menuAide = menuBar()->addMenu(QStringLiteral("&Aide"));
    Remplit(menuAide, {actAide, separateur, separateur, actHelpAbout, actHelpAboutQt});
}

void RamelierApp::initToolBar()
{
    barreOutils = addToolBar(QStringLiteral("Barre d'outils"));
    barreOutils->setObjectName(QStringLiteral("barreOutils"));
    barreOutils->setIconSize(QSize(16, 16));
    barreOutils->addActions({actFileNew, actFileOpen, actFileSave, actFilePrint, actModeTravail});
    barreOutils->addSeparator();
    barreOutils->addAction(actWhatsThis);
    barreOutils->addSeparator();
}

void RamelierApp::ConstruitMenusSurgissants()
{
    popupGeneral = new QMenu;
    Remplit(
        popupGeneral,
        {actModeTravail, separateur, actEditPdG, separateur, actFormatsDessins, actPoliceCaract, separateur, actAide});
    popupPersonne = new QMenu;
    Remplit(popupPersonne,
            {actAnnuler, separateur, actModifier, actAjouterPere, actAjouterMere, separateur, actSuppPers, separateur,
             actAffFicheHTML, actEditFicheHTML, separateur, actAide});
}

void RamelierApp::MontreMenuSurgissant(int k, QPoint ici)
{
    if (k == 0)
        popupGeneral->popup(ici);
    else if (k == 1)
        popupPersonne->popup(ici);
}

void RamelierApp::slotMenuSurgissant(int k)
{
    MontreMenuSurgissant(k, QCursor::pos());
}
