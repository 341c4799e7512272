#include "ramelierapp.h"

#include "boites.h"
#include "curseurattente.h"
#include "ficoptions.h"
#include "placedesecours.h"
#include "ramelierdoc.h"

#include <QFile>
#include <QFileDialog>
#include <QFileInfo>

namespace {

const QString filtreXrlg = QStringLiteral("Fichiers au format XML (*.xrlg)");
const QString titre = QStringLiteral("Ramelier 5.1 - ");
constexpr int dureeMessage = 2000;

bool EstLeMemeFichier(const QString &un, const QString &autre)
{
    return QFileInfo(un).canonicalFilePath() == QFileInfo(autre).canonicalFilePath();
}

}  // namespace

void RamelierApp::proposeSauvegarde(bool *continuer)
{
    Status(QStringLiteral("L'arbre affiché a été modifié, on vous laisse la possibilité de sauver les "
                          "modifications"));
    const int reponse =
        Boites::Demande(this, QMessageBox::Warning, QStringLiteral("Sauvegarde"),
                        QStringLiteral("L'arbre affiché a été modifié \n enregistrer les "
                                       "modifications ?"),
                        {QStringLiteral("Oui"), QStringLiteral("Non"), QStringLiteral("Annuler")}, 0, 2);
    if (reponse == 0) {
        slotFileSave();
        // A save that failed or was given up leaves the work in danger: the tree stays.
        if (TravailNonSauve())
            *continuer = false;
    } else if (reponse != 1) {
        *continuer = false;
    }
}

bool RamelierApp::PeutAbandonnerLArbre()
{
    bool continuer = true;
    if (TravailNonSauve())
        proposeSauvegarde(&continuer);
    return continuer;
}

void RamelierApp::MontreEchecDOuverture(const QString &status, const QString &texte)
{
    Status(status);
    Boites::Information(this, QStringLiteral("Information"), texte);
    Status(QStringLiteral("Prêt"));
}

void RamelierApp::slotFileNew()
{
    if (!PeutAbandonnerLArbre())
        return;
    fichierArbre.clear();
    fichierOptions.clear();
    PasseEnConsultation();
    resetMenus();
    Status(QStringLiteral("Création d'un nouvel arbre..."));
    if (doc->newDoc(this, dernierRep)) {
        setWindowTitle(titre + QStringLiteral("Nouveau"));
        ActiveCommandesArbre();
        PasseEnEdition();
    }
    MaJStatusBarreInfoModif();
    Status(QStringLiteral("Prêt."));
}

void RamelierApp::slotFileOpen()
{
    if (!PeutAbandonnerLArbre())
        return;
    if (!enDemarrage) {
        Status(QStringLiteral("Ouverture du fichier..."));
        fichierArbre =
            QFileDialog::getOpenFileName(this, QStringLiteral("Ouvrir"), dernierRep,
                                         filtreXrlg + QStringLiteral(";; Fichiers anciennes versions (*.rlg)"));
    }
    if (fichierArbre.isEmpty()) {
        Status(QStringLiteral("Echec à l'ouverture du fichier"), dureeMessage);
        return;
    }
    ChargeLeFichierArbre();
}

void RamelierApp::ChargeLeFichierArbre()
{
    if (!QFileInfo(fichierArbre).isFile()) {
        MontreEchecDOuverture(QStringLiteral("le fichier n'exite pas"),
                              QStringLiteral("Le fichier ") + fichierArbre + QStringLiteral(" n'existe pas"));
        return;
    }
    dernierRep = DossierDeLArbre(fichierArbre);
    fichierOptions = CheminDesOptions(fichierArbre);
    if (!enDemarrage)
        RepeintAvantDeTravailler();
    if (!doc->load(fichierArbre, dernierRep, fichierOptions, RamelierDoc::CibleArbre)) {
        MontreEchecDOuverture(QStringLiteral("fichier incorrect"),
                              QStringLiteral("Impossible de charger le fichier ") + fichierArbre);
        return;
    }
    setWindowTitle(titre + fichierArbre);
    Status(QStringLiteral("Arbre chargé : ") + fichierArbre, dureeMessage);
    ActiveCommandesArbre();
    PasseEnConsultation();
    Status(QStringLiteral("Prêt"));
    MaJStatusBarreInfoModif();
}

bool RamelierApp::EstAncienFormat() const
{
    return doc->typeFichier == 1 || doc->typeFichier == 3;
}

void RamelierApp::slotFileSave()
{
    if (doc->nomFichier.isEmpty() || EstAncienFormat()) {
        slotFileSaveAs();
        return;
    }
    Status(QStringLiteral("Enregistrement du fichier..."));
    RepeintAvantDeTravailler();
    doc->save(fichierOptions);
    Status(QStringLiteral("Prêt."));
    MaJStatusBarreInfoModif();
}

bool RamelierApp::RefuseDeRemplacer(const QString &nom, const RemplacementDe &textes)
{
    if (!QFileInfo::exists(nom))
        return false;
    const int reponse = Boites::Demande(this, QMessageBox::Warning, textes.titre, textes.question,
                                        {QStringLiteral("Oui"), QStringLiteral("Non")}, 1, 1);
    if (reponse != 1)
        return false;
    Boites::Information(this, QStringLiteral("Information"), textes.refus);
    Status(QStringLiteral("Prêt."));
    return true;
}

QString RamelierApp::ChoisitUnNom(bool ancien)
{
    QString depart = fichierArbre.isEmpty() ? DansDernierRep(QStringLiteral("nouveau")) : fichierArbre;
    if (ancien) {
        const QString base = QFileInfo(fichierArbre).baseName();
        const QString propose = base + QStringLiteral(".xrlg");
        Boites::Information(
            this, QStringLiteral("Enregistrement d'un arbre ancien format .rlg"),
            QStringLiteral("L'enregistrement d'un arbre ancien format .rlg\nse fait uniquement sous le nouveau format "
                           ".xrlg\nle fichier de l'arbre original est renommé :\n")
                + base + QStringLiteral(".rlg.old\nle nom proposé pour le nouveau fichier :\n") + propose
                + QStringLiteral("\n(vous pouvez modifier ce nom à votre guise)"));
        depart = DansDernierRep(propose);
    }
    QString nom = QFileDialog::getSaveFileName(this, QStringLiteral("Enregistrer sous"), depart, filtreXrlg, nullptr,
                                               QFileDialog::DontConfirmOverwrite);
    // A dot in a folder's name keeps the extension away too: deliberate.
    if (!nom.isEmpty() && !nom.contains(u'.'))
        nom += QStringLiteral(".xrlg");
    return nom;
}

void RamelierApp::slotFileSaveAs()
{
    Status(QStringLiteral("Enregistrement du fichier sous un nouveau nom..."));
    const bool ancien = EstAncienFormat();
    const QString nom = ChoisitUnNom(ancien);
    if (nom.isEmpty()) {
        Status(QStringLiteral("Echec à l'enregistrement du fichier"), dureeMessage);
        Status(QStringLiteral("Prêt."));
        return;
    }
    const RemplacementDe question{QStringLiteral("Sauver sous..."),
                                  QStringLiteral("Le fichier ") + nom
                                      + QStringLiteral(" existe déjà  !!\nVoulez-vous vraiement le remplacer ??"),
                                  QStringLiteral("L'arbre n'a pas été enregistré sous le nouveau nom")};
    if (RefuseDeRemplacer(nom, question))
        return;
    if (ancien)
        QFile::rename(fichierArbre, fichierArbre + QStringLiteral(".old"));
    const bool avecOptions = !fichierOptions.isEmpty() && QFileInfo::exists(fichierOptions);
    fichierArbre = nom;
    dernierRep = QFileInfo(nom).absolutePath();
    fichierOptions = CheminDesOptions(nom);
    RepeintAvantDeTravailler();
    const QString avant = doc->nomFichier;
    if (doc->saveAs(fichierArbre, fichierOptions, avecOptions) && !EstLeMemeFichier(avant, fichierArbre))
        OublieLaCopieDeSecours(avant);
    setWindowTitle(titre + nom);
    Status(QStringLiteral("Arbre sauvé sous : ") + nom, dureeMessage);
    MaJStatusBarreInfoModif();
    Status(QStringLiteral("Prêt."));
}
