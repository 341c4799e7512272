#include "arbre.h"

#include "personne.h"

bool Arbre::DeselectSelect(long px, long py, float sx, float sy, const FormatsDessins &formats)
{
    const bool avaitUneSelection = selection != nullptr;
    if (selection) {
        if (selection->EstClique(px, py, sx, sy, formats))
            return false;
        selection->selectionnee = false;
        selection = nullptr;
    }
    for (Personne *personne = premiere; personne; personne = personne->suivante) {
        if (personne->EstClique(px, py, sx, sy, formats)) {
            personne->selectionnee = true;
            selection = personne;
            return true;
        }
    }
    return avaitUneSelection;
}
