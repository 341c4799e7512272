#include "ramelierdoc.h"

#include "arbre.h"
#include "assemblage.h"
#include "curseurattente.h"
#include "gedcomexport.h"
#include "gedcomimport.h"
#include "personne.h"

#include <utility>

void RamelierDoc::CommenceUnArbreSansFichier(const QString &titre)
{
    delete std::exchange(arbre, new Arbre);
    arbre->infoArbre->titrearbre = titre;
    creationEnCours = false;
    nomFichier.clear();
    typeFichier = 0;
}

void RamelierDoc::TermineUnArbreSansFichier()
{
    modifie = true;
    optionsModifiees = false;
    arbreCharge = true;
    Q_EMIT documentChanged(1);
}

void RamelierDoc::PrepareImportGED()
{
    SupprimeArbre();
    modifie = false;
    optionsModifiees = false;
    nomFichier.clear();
    typeFichier = 0;
    arbreCharge = false;
    importGED = false;
}

int RamelierDoc::ImporteDeGED(QWidget *parent, const QString &fileName)
{
    const CurseurAttente attente;
    initPolicesEtTraits(QString());
    CommenceUnArbreSansFichier(TitreDImport(fileName));
    importGED = true;
    ImporterDeFichierGEDCOM(parent, fileName, arbre);
    if (!arbre->premiere) {
        delete std::exchange(arbre, nullptr);
        modifie = false;
        return 0;
    }
    TermineUnArbreSansFichier();
    return 1;
}

bool RamelierDoc::exporteVersGED(QWidget *parent, const QString &fileName)
{
    const CurseurAttente attente;
    if (arbre)
        ExporterVersFichierGEDCOM(parent, fileName, arbre, nomFichier);
    return true;
}

Personne *RamelierDoc::CopiePourAssemblage(Personne *source, bool estPere, QString &repertoire)
{
    const Arbre *origine = estPere ? arbrePere : arbreMere;
    Personne *copie = CopieRenumerotee(*source, estPere, origine && GenerationsDecalees(*origine), repertoire);
    if (!copie)
        return nullptr;
    Personne *enfant = arbre->premiere;
    while (enfant && enfant->numero != copie->enfant)
        enfant = enfant->suivante;
    RelieASonEnfant(enfant, copie);
    return copie;
}

bool RamelierDoc::AssembleDeuxArbres(QWidget * /*parent*/, QString &repertoire)
{
    const CurseurAttente attente;
    initPolicesEtTraits(QString());
    creationEnCours = false;
    SupprimeArbre();
    CommenceUnArbreSansFichier(titreDAssemblage.toString());
    importGED = false;
    AssembleArbres(*arbre, *arbrePere, *arbreMere, repertoire);
    LibereLesArbresDesParents();
    TermineUnArbreSansFichier();
    return true;
}

void RamelierDoc::LibereLesArbresDesParents()
{
    delete std::exchange(arbrePere, nullptr);
    delete std::exchange(arbreMere, nullptr);
}

void RamelierDoc::AbandonneLAssemblage()
{
    LibereLesArbresDesParents();
    SupprimeArbre();
}
