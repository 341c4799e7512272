#include "ramelierapp.h"

#include "arbre.h"
#include "infopersonne.h"
#include "personne.h"
#include "ramelierdoc.h"

#include <QAction>
#include <QLabel>
#include <QStatusBar>
#include <QToolBar>

namespace {

void Active(std::initializer_list<QAction *> actions, bool active)
{
    for (QAction *action : actions)
        action->setEnabled(active);
}

bool AUneFiche(const Personne &personne)
{
    return personne.info && !personne.info->fichtml.isEmpty();
}

}  // namespace

void RamelierApp::resetMenus()
{
    Active({actFileSave, actFileSaveAs, actFilePrint, actAnnuler, actModifier, actSuppPers, actAjouterPere,
            actAjouterMere, actEditFicheHTML, actEditPdG, actModeTravail, actExporteGED, actPoliceCaract,
            actFormatsDessins, actAffFicheHTML},
           false);
}

void RamelierApp::ActiveCommandesArbreSaufExport(bool active)
{
    Active({actFileSave, actFileSaveAs, actFilePrint, actModeTravail, actPoliceCaract, actFormatsDessins}, active);
}

void RamelierApp::ActiveCommandesArbre()
{
    ActiveCommandesArbreSaufExport(true);
    actExporteGED->setEnabled(true);
}

void RamelierApp::ActiveCommandesPersonne()
{
    const Personne &personne = *doc->arbre->selection;
    Active({actModifier, actSuppPers, actEditFicheHTML}, true);
    actAnnuler->setEnabled(false);
    actAjouterPere->setEnabled(!personne.ptrPere);
    actAjouterMere->setEnabled(!personne.ptrMere);
}

void RamelierApp::slotModeTravail()
{
    const Personne *selection = Selection();
    if (modeConsultation) {
        modeConsultation = false;
        actModeTravail->setText(QStringLiteral("Consultation"));
        labelMode->setText(QStringLiteral(" Edition "));
        if (doc->arbre)
            actEditPdG->setEnabled(true);
        if (selection) {
            ActiveCommandesPersonne();
            actAffFicheHTML->setEnabled(false);
        }
    } else {
        modeConsultation = true;
        // Lower case here, upper case at the start: deliberate.
        actModeTravail->setText(QStringLiteral("Mode édition/modification"));
        labelMode->setText(QStringLiteral(" Consultation "));
        Active({actAjouterPere, actAjouterMere, actEditPdG, actModifier, actSuppPers, actAnnuler, actAffFicheHTML,
                actEditFicheHTML},
               false);
        if (selection && AUneFiche(*selection))
            actAffFicheHTML->setEnabled(true);
    }
    Status(QStringLiteral("Prêt"));
}

void RamelierApp::PasseEnConsultation()
{
    modeConsultation = false;
    slotModeTravail();
}

void RamelierApp::PasseEnEdition()
{
    modeConsultation = true;
    slotModeTravail();
}

void RamelierApp::slotPersonneSelectionnee(int etat)
{
    if (etat == 0) {
        Active(
            {actModifier, actSuppPers, actAjouterPere, actAjouterMere, actAffFicheHTML, actEditFicheHTML, actAnnuler},
            false);
    } else if (etat == 1 && modeConsultation) {
        actAffFicheHTML->setEnabled(AUneFiche(*doc->arbre->selection));
        return;
    } else if (etat == 1) {
        ActiveCommandesPersonne();
    } else {
        return;
    }
    actAnnuler->setText(QStringLiteral("&Annuler"));
    modifAnnulee = false;
}

void RamelierApp::slotAutoriseAnnulation()
{
    actAnnuler->setEnabled(true);
    actAnnuler->setText(QStringLiteral("&Annuler"));
    modifAnnulee = false;
}

void RamelierApp::slotModeAffichage(bool complet)
{
    Status(QStringLiteral("Mode Affichage..."));
    affichageComplet = complet;
    doc->optionsParArbre = complet;
    if (complet)
        doc->initPolicesEtTraits(fichierOptions);
    else
        doc->initPolicesEtTraitsMini();
    if (doc->arbre)
        Q_EMIT docChanged(1);
    Status(QStringLiteral("Prêt."));
}

void RamelierApp::slotViewToolBar(bool visible)
{
    Status(QStringLiteral("Toggle toolbar..."));
    barreOutils->setVisible(visible);
    Status(QStringLiteral("Prêt."));
}

void RamelierApp::slotViewStatusBar(bool visible)
{
    Status(QStringLiteral("Toggle statusbar..."));
    statusBar()->setVisible(visible);
    Status(QStringLiteral("Prêt."));
}
