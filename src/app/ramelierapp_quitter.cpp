#include "ramelierapp.h"

#include "boites.h"
#include "copiedesecours.h"
#include "findesession.h"

#include <QCloseEvent>
#include <QCoreApplication>

bool RamelierApp::queryExit()
{
    const int reponse =
        Boites::Demande(this, QMessageBox::Warning, QStringLiteral("Quitter..."),
                        QStringLiteral("L'arbre affiché a été modifié \n enregistrer les "
                                       "modifications avant de quitter ?"),
                        {QStringLiteral("Oui"), QStringLiteral("Non"), QStringLiteral("Annuler")}, 0, 2);
    if (reponse == 0) {
        slotFileSave();
        // The program leaves whatever became of the save: what it did not write must not be lost.
        secours->EcritEtGarde();
    }
    return reponse == 0 || reponse == 1;
}

bool RamelierApp::PeutQuitter()
{
    Status(QStringLiteral("Sortie de l'application..."));
    if (TravailNonSauve() && !FinDeSession::EstAcceptee() && !queryExit()) {
        Status(QStringLiteral("Prêt."));
        return false;
    }
    writeSettings();
    return true;
}

void RamelierApp::slotFileQuit()
{
    // Leaves the event loop alone: quit() would close the window first, and ask a second time.
    if (PeutQuitter())
        QCoreApplication::exit(0);
}

void RamelierApp::closeEvent(QCloseEvent *evenement)
{
    if (!PeutQuitter()) {
        evenement->ignore();
        return;
    }
    evenement->accept();
    Q_EMIT fermetureRamelier();
}
