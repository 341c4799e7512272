#include "ramelierdoc.h"

#include "arbre.h"
#include "curseurattente.h"
#include "disposition.h"
#include "personne.h"

#include <vector>

void RamelierDoc::PositionneLesPersonnes(float echelleX, float echelleY)
{
    if (!arbre || EstDispose(*arbre, formats, echelleX, echelleY))
        return;
    const CurseurAttente attente;
    DisposeArbre(*arbre, formats, echelleX, echelleY);
}

void RamelierDoc::DecalerAncetres(Personne *personne, long dx)
{
    if (arbre)
        arbre->OublieLesPlaces();
    // An explicit stack: lines of ancestors may be longer than the call stack is deep.
    std::vector<Personne *> aSuivre{personne};
    while (!aSuivre.empty()) {
        const Personne *courante = aSuivre.back();
        aSuivre.pop_back();
        for (Personne *parent : {courante->ptrPere, courante->ptrMere}) {
            if (!parent)
                continue;
            parent->x += dx;
            aSuivre.push_back(parent);
        }
    }
}

void RamelierDoc::DecalerTout(long dx, long dy)
{
    if (arbre) {
        arbre->OublieLesPlaces();
        for (Personne *personne = arbre->premiere; personne; personne = personne->suivante) {
            personne->x += dx;
            personne->y += dy;
        }
    }
    xTitre += dx;
    yTitre += dy;
    yLegende1 += dy;
    yLegende2 += dy;
}

void RamelierDoc::CalcTailleCanevas(QPainter *painter, float echelleX, float echelleY)
{
    if (arbre)
        CalculeCanevas(*this, *painter, *arbre, formats, polices, echelleX, echelleY);
}

void RamelierDoc::AfficheTitre(QPainter *painter, float /*echelleX*/, float /*echelleY*/)
{
    if (arbre && titreAffiche)
        DessineTitre(*painter, *arbre->infoArbre, *this, polices);
}
