#include "dispositionrapide.h"

#include "arbre.h"
#include "mesuresdisposition.h"
#include "personne.h"
#include "unites.h"

#include <algorithm>

DispositionRapide::DispositionRapide(Arbre &aDisposer, const MesuresDisposition &desMesures)
    : arbre(aDisposer)
    , mesures(desMesures)
{
    PoseLesPersonnes();
    if (bienFormee)
        RelieLesParents();
}

void DispositionRapide::PoseLesPersonnes()
{
    for (Personne *personne = arbre.premiere; personne; personne = personne->suivante) {
        const Rang rang = largeurs.size();
        const Rang generation = personne->numerogeneration;
        personne->rang = rang;
        largeurs.push_back(static_cast<int>(mesures.Largeur(*personne)));
        bienFormee = largeurs.back() > 0 && generation < arbre.nombreGenerations && generation + 1 >= rangees.size();
        if (!bienFormee)
            return;
        while (rangees.size() <= generation)
            rangees.push_back({.debut = rang, .fin = rang});
        rangees.back().fin = rang + 1;
    }
}

void DispositionRapide::RelieLesParents()
{
    const Rang nombre = largeurs.size();
    x.resize(nombre);
    decalages.resize(nombre + 1);
    premiersParents.resize(nombre);
    secondsParents.resize(nombre);
    enfants.assign(nombre, static_cast<int>(nombre));
    Rang dernierParent = 0;
    for (Personne *personne = arbre.premiere; personne && bienFormee; personne = personne->suivante) {
        const Personne *pere = personne->ptrPere;
        const Personne *mere = personne->ptrMere;
        bienFormee = Relie(*personne, pere, dernierParent) && Relie(*personne, mere, dernierParent);
        const Personne &premier = pere ? *pere : mere ? *mere : *personne;
        premiersParents[personne->rang] = static_cast<int>(premier.rang);
        secondsParents[personne->rang] = static_cast<int>(mere ? mere->rang : premier.rang);
    }
}

bool DispositionRapide::Relie(const Personne &enfant, const Personne *parent, Rang &dernierParent)
{
    if (!parent)
        return true;
    if (parent->rang <= dernierParent || parent->rang >= enfants.size()
        || parent->numerogeneration != enfant.numerogeneration + 1)
        return false;
    dernierParent = parent->rang;
    enfants[parent->rang] = static_cast<int>(enfant.rang);
    return true;
}

void DispositionRapide::Execute()
{
    PremierePasse();
    while (ReporteLesDecalages())
        Correction();
    Ecrit();
}

void DispositionRapide::PremierePasse()
{
    for (auto rangee = rangees.rbegin(); rangee != rangees.rend(); ++rangee) {
        long libre = mesures.margeX;
        for (Rang i = rangee->debut; i < rangee->fin; ++i) {
            const Rang premier = static_cast<Rang>(premiersParents[i]);
            const Rang second = static_cast<Rang>(secondsParents[i]);
            const long voulue = premier == i ? libre : (x[premier] + x[second]) / 2;
            x[i] = MaxLI(libre, voulue);
            decalages[i] = x[i] - voulue;
            libre = x[i] + largeurs[i];
        }
        rangee->premierBouge = rangee->debut;
        rangee->premierDecale = rangee->fin;
    }
}

bool DispositionRapide::ReporteLesDecalages()
{
    // Nobody but their own child looks at the ancestors again before the pass ends, so their moves add up until here.
    bool aBouge = false;
    for (Rang generation = 0; generation + 1 < rangees.size(); ++generation) {
        const Rangee &enfantsIci = rangees[generation];
        Rangee &parentsLa = rangees[generation + 1];
        Rang i = PremierParentApres(enfantsIci.premierBouge, enfantsIci.fin, parentsLa.fin);
        while (i < parentsLa.fin && decalages[static_cast<Rang>(enfants[i])] == 0)
            ++i;
        parentsLa.premierDecale = i;
        parentsLa.premierBouge = std::min(parentsLa.premierBouge, i);
        aBouge = aBouge || i < parentsLa.fin;
        for (; i < parentsLa.fin; ++i) {
            const long decalage = decalages[static_cast<Rang>(enfants[i])];
            x[i] += decalage;
            decalages[i] += decalage;
        }
    }
    return aBouge;
}

void DispositionRapide::Correction()
{
    Rang touche = enfants.size();  // in the row: the child of the first one that moved in the row above
    for (auto rangee = rangees.rbegin(); rangee != rangees.rend(); ++rangee) {
        CorrigeRangee(*rangee, std::min(rangee->premierDecale, touche));
        touche = PremierEnfantApres(rangee->premierBouge, rangee->fin);
    }
}

DispositionRapide::Rang DispositionRapide::PremierParentApres(Rang i, Rang fin, Rang sinon) const
{
    while (i < fin && static_cast<Rang>(premiersParents[i]) == i)
        ++i;
    return i < fin ? static_cast<Rang>(premiersParents[i]) : sinon;
}

DispositionRapide::Rang DispositionRapide::PremierEnfantApres(Rang i, Rang fin) const
{
    const Rang aucun = enfants.size();
    while (i < fin && static_cast<Rang>(enfants[i]) == aucun)
        ++i;
    return i < fin ? static_cast<Rang>(enfants[i]) : aucun;
}

bool DispositionRapide::Corrige(Rang i, long &libre)
{
    const Rang premier = static_cast<Rang>(premiersParents[i]);
    const long voulue = (x[premier] + x[static_cast<Rang>(secondsParents[i])]) / 2;
    const long avant = x[i];
    // Measured from the wanted place even when the person stood further right: deliberate. Who has no parent wants to
    // be at the free place: its own stands for that one here, and its ancestors' move moves nobody.
    decalages[i] = MaxLI(libre - voulue, 0);
    x[i] = libre > voulue ? libre : MaxLI(avant, voulue);
    libre = x[i] + largeurs[i];
    return x[i] != avant || (decalages[i] != 0 && premier != i);
}

void DispositionRapide::CorrigeRangee(Rangee &rangee, Rang depuis)
{
    rangee.premierBouge = rangee.fin;
    if (depuis >= rangee.fin)
        return;
    long libre = depuis > rangee.debut ? x[depuis - 1] + largeurs[depuis - 1] : mesures.margeX;
    Rang i = depuis;
    while (i < rangee.fin && !Corrige(i, libre) && i < rangee.premierDecale)
        ++i;
    rangee.premierBouge = i;
    for (++i; i < rangee.fin; ++i)
        Corrige(i, libre);
}

void DispositionRapide::Ecrit()
{
    for (Personne *personne = arbre.premiere; personne; personne = personne->suivante) {
        personne->x = x[personne->rang];
        personne->y = mesures.margeY + (arbre.nombreGenerations - 1 - personne->numerogeneration) * mesures.pasVertical;
    }
}
