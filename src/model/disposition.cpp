#include "disposition.h"

#include "arbre.h"
#include "dispositionprudente.h"
#include "dispositionrapide.h"
#include "mesuresdisposition.h"

void DisposeArbre(Arbre &arbre, const FormatsDessins &formats, float echelleX, float echelleY)
{
    const MesuresDisposition mesures(formats, echelleX, echelleY);
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
