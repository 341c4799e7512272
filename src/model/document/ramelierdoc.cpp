#include "ramelierdoc.h"

#include "arbre.h"
#include "ficoldrlg.h"
#include "ficoptions.h"

#include <utility>

RamelierDoc::RamelierDoc(const QString & /*repApplication*/)
    : fichierPreferences(CheminDesPreferences())
    , enteteV1(enteteRlgV1)
    , enteteV3(enteteRlgV3)
{
    initPolicesEtTraitsPref();
    initPolicesEtTraits(QString());
}

RamelierDoc::~RamelierDoc()
{
    delete arbre;
    delete arbrePere;
    delete arbreMere;
}

void RamelierDoc::SupprimeArbre()
{
    delete std::exchange(arbre, nullptr);
    Q_EMIT documentChanged(0);
}

bool RamelierDoc::loadOptions(const QString &fichier, FormatsDessins *formatsLus, LesPolices *policesLues)
{
    return LitOptions(fichier, formatsLus, policesLues);
}

bool RamelierDoc::saveOptions(const QString &fichier, FormatsDessins *formatsEcrits, LesPolices *policesEcrites,
                              int type)
{
    return EcritOptions(fichier, *formatsEcrits, *policesEcrites, type);
}

void RamelierDoc::initPolicesEtTraitsPref()
{
    LitPreferences(fichierPreferences, &formatsPref, &policesPref);
}

void RamelierDoc::initPolicesEtTraits(const QString &fichier)
{
    if (loadOptions(fichier, &formats, &polices))
        return;
    formats = formatsPref;
    polices = policesPref;
}

void RamelierDoc::initPolicesEtTraitsMini()
{
    formats = FormatsDessins::Reduits();
    polices = LesPolices::Reduites();
}

void RamelierDoc::DeselectSelect(long px, long py, float echelleX, float echelleY)
{
    if (arbre && arbre->DeselectSelect(px, py, echelleX, echelleY, formats))
        AnnonceLaSelection();
}

void RamelierDoc::Selectionne(Personne *personne)
{
    if (arbre && arbre->Selectionne(personne))
        AnnonceLaSelection();
}

void RamelierDoc::AnnonceLaSelection()
{
    Q_EMIT documentChanged(2);
    Q_EMIT personneSelectionnee(arbre->selection ? 1 : 0);
}
