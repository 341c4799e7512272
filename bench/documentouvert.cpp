#include "documentouvert.h"

#include "arbre.h"
#include "arbview.h"
#include "personne.h"
#include "unites.h"

#include <map>
#include <memory>

DocumentOuvert::DocumentOuvert(Forme forme, int personnes)
    : doc(QString())
    , vue(nullptr, &doc)
    , echelle(EchelleDeResolution(vue.vue()->logicalDpiX()))
{
    doc.formats = FormatsDessins::ParDefaut();
    doc.polices = LesPolices::ParDefaut();
    doc.arbre = GrandArbre(forme, personnes).release();
    doc.arbre->infoArbre->titrearbre = QStringLiteral("Grand arbre");
    Q_EMIT doc.documentChanged(1);
}

namespace {

std::map<std::pair<Forme, int>, std::unique_ptr<DocumentOuvert>> &Ouverts()
{
    static std::map<std::pair<Forme, int>, std::unique_ptr<DocumentOuvert>> ouverts;
    return ouverts;
}

}  // namespace

DocumentOuvert &DocumentDe(Forme forme, int personnes)
{
    auto &ouvert = Ouverts()[{forme, personnes}];
    if (!ouvert)
        ouvert = std::make_unique<DocumentOuvert>(forme, personnes);
    return *ouvert;
}

void FermeLesDocuments()
{
    Ouverts().clear();
}

Personne *PersonneDuMilieu(const RamelierDoc &doc)
{
    Personne *personne = doc.arbre->premiere;
    for (quint64 i = 0; i < doc.arbre->nombrePersonnes / 2; ++i)
        personne = personne->suivante;
    return personne;
}
