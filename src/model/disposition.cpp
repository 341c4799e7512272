#include "disposition.h"

#include "arbre.h"
#include "dispositionprudente.h"
#include "dispositionrapide.h"
#include "mesuresdisposition.h"

namespace {

void PlaceLesPersonnes(Arbre &arbre, const MesuresDisposition &mesures)
{
    if (arbre.premiere && !arbre.premiere->suivante) {
        arbre.premiere->x = mesures.margeX;
        arbre.premiere->y = mesures.margeY;
        return;
    }
    DispositionRapide rapide(arbre, mesures);
    if (rapide.EstBienFormee())
        rapide.Execute();
    else
        DispositionPrudente(arbre, mesures).Execute();
}

}  // namespace

void DisposeArbre(Arbre &arbre, const FormatsDessins &formats, float echelleX, float echelleY)
{
    const MesuresDisposition mesures(formats, echelleX, echelleY);
    PlaceLesPersonnes(arbre, mesures);
    arbre.NoteLesPlaces(mesures);
}

bool EstDispose(const Arbre &arbre, const FormatsDessins &formats, float echelleX, float echelleY)
{
    return arbre.EstPlaceAvec(MesuresDisposition(formats, echelleX, echelleY));
}
