#include "recherchetapee.h"

#include "annuaire.h"
#include "arbre.h"

#include <algorithm>

RechercheTapee::RechercheTapee(int patience)
    : patienceMs(patience)
{
}

bool RechercheTapee::EstEnCours() const
{
    return !tape.isEmpty() && !derniereTouche.hasExpired(patienceMs);
}

void RechercheTapee::Oublie()
{
    tape.clear();
}

Personne *RechercheTapee::Tape(const QString &texte, const Arbre &arbre)
{
    const bool commence = !EstEnCours();
    if (commence)
        Oublie();
    tape += texte;
    derniereTouche.start();
    const Annuaire &annuaire = arbre.SonAnnuaire();
    // The first letter leaves the person where the search starts; the next ones stay as long as the person fits.
    if (tape.front() >= u'0' && tape.front() <= u'9')
        return annuaire.Prochaine(arbre.selection, !commence, QStringView(tape));
    Personne *trouvee = annuaire.Prochaine(arbre.selection, !commence, NomCherche(tape));
    const bool memeLettre =
        std::all_of(tape.begin(), tape.end(), [this](QChar lettre) { return lettre == tape.front(); });
    if (!trouvee && memeLettre)
        trouvee = annuaire.Prochaine(arbre.selection, false, NomCherche(tape.first(1)));
    return trouvee;
}
