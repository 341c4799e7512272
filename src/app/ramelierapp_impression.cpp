#include "ramelierapp.h"

#include "arbre.h"
#include "boites.h"
#include "curseurattente.h"
#include "pages.h"
#include "ramelierdoc.h"
#include "unites.h"

#include <QFileInfo>
#include <QPainter>
#include <QPrintDialog>
#include <QPrinter>

bool RamelierApp::ChoisitImprimante(QPrinter &imprimante, const QString &nomPdf)
{
    enum Reponse { Imprimante, FichierPdf };
    const int reponse =
        Boites::Demande(this, QMessageBox::Question, QStringLiteral("Choix du mode d'impression"),
                        QStringLiteral("Imprimer sur imprimante OU dans un fichier pdf ?"),
                        {QStringLiteral("Imprimante"), QStringLiteral("Fichier pdf"), QStringLiteral("Annuler")}, 0,
                        Boites::sansEchappement);
    // The dialog keeps in its own field the file name that the printer has while it is constructed, and then takes
    // that name away from a printer that prints on paper.
    if (reponse == Imprimante) {
        imprimante.setOutputFileName(nomPdf);
        QPrintDialog dialogue(&imprimante);
        imprimante.setOutputFileName(QString());
        dialogue.exec();
        return true;  // deliberate: a cancelled dialog prints all the same
    }
    if (reponse == FichierPdf) {
        imprimante.setOutputFileName(nomPdf);
        QPrintDialog dialogue(&imprimante);
        imprimante.setOutputFileName(nomPdf);
        return dialogue.exec() == QDialog::Accepted;
    }
    return false;
}

void RamelierApp::ImprimeSur(QPrinter &imprimante)
{
    Status(QStringLiteral("Impression en cours..."));
    RepeintAvantDeTravailler();
    const CurseurAttente attente;
    const QSize page(imprimante.width(), imprimante.height());
    QPainter painter;
    if (!doc->arbre || !painter.begin(&imprimante))
        return;
    const float sx = EchelleDeResolution(imprimante.logicalDpiX());
    const float sy = EchelleDeResolution(imprimante.logicalDpiY());
    doc->PositionneLesPersonnes(sx, sy);
    doc->CalcTailleCanevas(&painter, sx, sy);
    const GrilleDePages grille = GrilleDePages::Pour(doc->largeurCanevas, doc->hauteurCanevas, page);
    DessineSurPages(imprimante, painter, grille, page, [&](QPainter &peintre) {
        doc->arbre->Affiche(&peintre, sx, sy, true, doc->formats, doc->polices, doc->optionsParArbre);
        doc->AfficheTitre(&peintre, sx, sy);
    });
    painter.end();
    // The persons stand at the printer's scale: bring them back to the screen's.
    Q_EMIT docChanged(1);
}

void RamelierApp::slotFilePrint()
{
    Status(QStringLiteral("Impression..."));
    QPrinter imprimante(QPrinter::ScreenResolution);
    if (doc->arbre)
        imprimante.setDocName(doc->arbre->infoArbre->titrearbre);
    const QString nom = fichierArbre.isEmpty() ? QStringLiteral("fichier") : QFileInfo(fichierArbre).baseName();
    const QString nomPdf = DansDernierRep(nom + QStringLiteral(".pdf"));
    if (ChoisitImprimante(imprimante, nomPdf))
        ImprimeSur(imprimante);
    Status(QStringLiteral("Prêt."));
}
