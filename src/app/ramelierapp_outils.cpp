#include "ramelierapp.h"

#include "boites.h"
#include "curseurattente.h"
#include "ramelierdoc.h"

#include <QAction>
#include <QDir>
#include <QFileDialog>
#include <QFileInfo>

namespace {

const QString titreNouveau = QStringLiteral("Ramelier 5.1 - Nouveau");
constexpr int dureeMessage = 2000;

/// What is said and asked for one of the two trees to assemble.
struct Cote
{
    QString demande;
    QString titre;
    QString absent;
    QString incorrect;
    RamelierDoc::Cible cible;
};

const Cote coteDuPere{QStringLiteral("Nom du fichier arbre du père..."), QStringLiteral("Fichier arbre du père"),
                      QStringLiteral("le fichier Père n'exite pas"), QStringLiteral("fichier Père incorrect"),
                      RamelierDoc::CiblePere};
const Cote coteDeLaMere{QStringLiteral("Nom du fichier arbre de la mère..."),
                        QStringLiteral("Fichier arbre de la mère"), QStringLiteral("le fichier Mère n'exite pas"),
                        QStringLiteral("fichier Mère incorrect"), RamelierDoc::CibleMere};

}  // namespace

void RamelierApp::OteLesCommandesArbre()
{
    ActiveCommandesArbreSaufExport(false);
    PasseEnConsultation();
    // Whoever is selected still goes with the tree.
    actAffFicheHTML->setEnabled(false);
}

void RamelierApp::RendLesCommandesArbre()
{
    fichierArbre.clear();
    fichierOptions.clear();
    setWindowTitle(titreNouveau);
    ActiveCommandesArbreSaufExport(true);
    PasseEnEdition();
}

bool RamelierApp::EstUnFichier(const QString &nom, const QString &statusSinon)
{
    if (QFileInfo(nom).isFile())
        return true;
    MontreEchecDOuverture(statusSinon, QStringLiteral("Le fichier ") + nom + QStringLiteral(" n'existe pas"));
    return false;
}

void RamelierApp::slotAssembleArbres()
{
    if (!PeutAbandonnerLArbre())
        return;
    QStringList noms;
    for (const Cote &cote : {coteDuPere, coteDeLaMere}) {
        Status(cote.demande);
        noms += QFileDialog::getOpenFileName(this, cote.titre, dernierRep,
                                             QStringLiteral("Fichiers au format XML (*.xrlg)"));
        if (!EstUnFichier(noms.constLast(), cote.absent))
            return;
    }
    // Whatever folders the two trees came from: deliberate.
    dernierRep = QDir::homePath();
    OteLesCommandesArbre();
    Status(QStringLiteral("Assemblage de deux arbres..."));
    RepeintAvantDeTravailler();
    for (const Cote &cote : {coteDuPere, coteDeLaMere}) {
        const QString &nom = noms.at(cote.cible - RamelierDoc::CiblePere);
        if (doc->load(nom, dernierRep, fichierOptions, cote.cible))
            continue;
        MontreEchecDOuverture(cote.incorrect, QStringLiteral("Impossible de charger le fichier ") + nom);
        doc->AbandonneLAssemblage();
        MaJStatusBarreInfoModif();
        return;
    }
    doc->AssembleDeuxArbres(this, dernierRep);
    RendLesCommandesArbre();
    Status(QStringLiteral("Prêt"));
    MaJStatusBarreInfoModif();
}

void RamelierApp::slotImporteFichierGED()
{
    if (!PeutAbandonnerLArbre())
        return;
    doc->PrepareImportGED();
    OteLesCommandesArbre();
    actExporteGED->setEnabled(false);
    Status(QStringLiteral("Nom du fichier GEDCOM à importer..."));
    const QString nom = QFileDialog::getOpenFileName(this, QStringLiteral("Ouvrir"), dernierRep,
                                                     QStringLiteral("Fichiers GEDCOM (*.ged)"));
    Status(QStringLiteral("Prêt"));
    if (nom.isEmpty()) {
        MaJStatusBarreInfoModif();
        Status(QStringLiteral("Prêt"));
        return;
    }
    if (!EstUnFichier(nom, QStringLiteral("le fichier GEDCOM n'exite pas"))) {
        MaJStatusBarreInfoModif();
        return;
    }
    RepeintAvantDeTravailler();
    if (doc->ImporteDeGED(this, nom))
        RendLesCommandesArbre();
    MaJStatusBarreInfoModif();
    Status(QStringLiteral("Prêt"));
}

void RamelierApp::slotExporteVersFichierGED()
{
    if (!doc->arbre)
        return;
    Status(QStringLiteral("Exporter vers fichier au format GEDCOM..."));
    const QString dossier = fichierArbre.isEmpty() ? dernierRep : QFileInfo(fichierArbre).absolutePath();
    QString nom = QFileDialog::getSaveFileName(this, QStringLiteral("Exporter au format GED"), dossier,
                                               QStringLiteral("Fichier GEDCOM (*.ged)"), nullptr,
                                               QFileDialog::DontConfirmOverwrite);
    if (nom.isEmpty()) {
        Status(QStringLiteral("Echec à l'exportation du fichier"), dureeMessage);
        Status(QStringLiteral("Prêt."));
        return;
    }
    // A dot in a folder's name keeps the extension away too: deliberate.
    if (!nom.contains(u'.'))
        nom += QStringLiteral(".ged");
    if (RefuseDeRemplacerLeGED(nom))
        return;
    RepeintAvantDeTravailler();
    doc->exporteVersGED(this, nom);
    Status(QStringLiteral("Arbre exporté vers : ") + nom, dureeMessage);
    Status(QStringLiteral("Prêt."));
}

bool RamelierApp::RefuseDeRemplacerLeGED(const QString &nom)
{
    const RemplacementDe question{
        QStringLiteral("Exporter vers fichier au format GED..."),
        QStringLiteral("ATTENTION !!!\nLe fichier ") + nom
            + QStringLiteral(
                " existe déjà  !!\n\nvous riquez de perdre des données si le fichier existant\nn'a pas été "
                "créé par Ramelier !!\n\nVoulez-vous vraiement le remplacer ??"),
        QStringLiteral("L'arbre n'a pas été exporté vers un fichier GEDCOM")};
    return RefuseDeRemplacer(nom, question);
}
