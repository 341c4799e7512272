#include "marche.h"

#include "annuaire.h"
#include "arbre.h"
#include "personne.h"

namespace {

/// Rows are generations, and who follows in one follows in the list.
Personne *SiMemeRangee(const Personne &personne, Personne *voisine)
{
    return voisine && voisine->numerogeneration == personne.numerogeneration ? voisine : nullptr;
}

}  // namespace

Personne *ApresLePas(const Arbre &arbre, Pas pas)
{
    const Personne *selection = arbre.selection;
    if (!selection || pas == Pas::VersLaRacine)
        return arbre.premiere;
    switch (pas) {
    case Pas::VersLePere:
        return selection->ptrPere ? selection->ptrPere : selection->ptrMere;
    case Pas::VersLaMere:
        return selection->ptrMere ? selection->ptrMere : selection->ptrPere;
    case Pas::VersLEnfant:
        return arbre.SonAnnuaire().EnfantDe(*selection);
    case Pas::AGauche:
        return SiMemeRangee(*selection, selection->precedente);
    case Pas::ADroite:
        return SiMemeRangee(*selection, selection->suivante);
    case Pas::VersLaRacine:
        break;
    }
    return nullptr;
}
