#include "arbre.h"

#include "formatsdessins.h"
#include "indexdessin.h"
#include "personne.h"
#include "unites.h"

Personne *Arbre::PersonneSous(long px, long py, float sx, float sy, const FormatsDessins &formats) const
{
    const long largeur = Px(formats.largeurCadre, sx);
    const long hauteur = Px(formats.hauteurCadre, sy);
    const long cx = Coordonnee(px);
    const long cy = Coordonnee(py);
    Personne *trouvee = nullptr;
    Parcourt(
        [&](const Bloc &bloc) {
            const Coins &coins = bloc.coins;
            return !trouvee && coins.gauche <= cx && cx <= coins.droite + largeur && coins.haut <= cy
                && cy <= coins.bas + hauteur;
        },
        [&](const Bloc &bloc) {
            for (Personne *personne = bloc.premiere; personne != bloc.fin && !trouvee; personne = personne->suivante) {
                if (personne->EstClique(px, py, sx, sy, formats))
                    trouvee = personne;
            }
        });
    return trouvee;
}

bool Arbre::DeselectSelect(long px, long py, float sx, float sy, const FormatsDessins &formats)
{
    const bool avaitUneSelection = selection != nullptr;
    if (selection) {
        if (selection->EstClique(px, py, sx, sy, formats))
            return false;
        selection->selectionnee = false;
        selection = nullptr;
    }
    selection = PersonneSous(px, py, sx, sy, formats);
    if (selection)
        selection->selectionnee = true;
    return selection || avaitUneSelection;
}

bool Arbre::Selectionne(Personne *personne)
{
    if (selection == personne)
        return false;
    if (selection)
        selection->selectionnee = false;
    selection = personne;
    if (selection)
        selection->selectionnee = true;
    return true;
}
