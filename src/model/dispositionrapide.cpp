#include "dispositionrapide.h"

#include "arbre.h"
#include "correctionsparhuit.h"
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
        const Rang rang = table.largeurs.size();
        const Rang generation = personne->numerogeneration;
        personne->rang = rang;
        table.largeurs.push_back(static_cast<int>(mesures.Largeur(*personne)));
        bienFormee =
            table.largeurs.back() > 0 && generation < arbre.nombreGenerations && generation + 1 >= table.rangees.size();
        if (!bienFormee)
            return;
        while (table.rangees.size() <= generation)
            table.rangees.push_back({.debut = rang, .fin = rang});
        table.rangees.back().fin = rang + 1;
    }
}

void DispositionRapide::RelieLesParents()
{
    const Rang nombre = table.largeurs.size();
    table.x.resize(nombre);
    decalages.resize(nombre + 1);
    table.premiersParents.resize(nombre);
    table.secondsParents.resize(nombre);
    table.enfants.assign(nombre, static_cast<int>(nombre));
    Rang dernierParent = 0;
    for (Personne *personne = arbre.premiere; personne && bienFormee; personne = personne->suivante) {
        const Personne *pere = personne->ptrPere;
        const Personne *mere = personne->ptrMere;
        bienFormee = Relie(*personne, pere, dernierParent) && Relie(*personne, mere, dernierParent);
        const Personne &premier = pere ? *pere : mere ? *mere : *personne;
        table.premiersParents[personne->rang] = static_cast<int>(premier.rang);
        table.secondsParents[personne->rang] = static_cast<int>(mere ? mere->rang : premier.rang);
    }
}

bool DispositionRapide::Relie(const Personne &enfant, const Personne *parent, Rang &dernierParent)
{
    if (!parent)
        return true;
    if (parent->rang <= dernierParent || parent->rang >= table.enfants.size()
        || parent->numerogeneration != enfant.numerogeneration + 1)
        return false;
    dernierParent = parent->rang;
    table.enfants[parent->rang] = static_cast<int>(enfant.rang);
    return true;
}

void DispositionRapide::Execute(int correctionsUneAUne)
{
    PremierePasse();
    bool aBouge = ReporteLesDecalages();
    for (int passe = 0; aBouge && passe < correctionsUneAUne; ++passe)
        aBouge = CorrigeUneAUne();
    if (aBouge && !CorrigeParHuit(table, mesures.margeX)) {
        while (aBouge)
            aBouge = CorrigeUneAUne();
    }
    Ecrit();
}

void DispositionRapide::PremierePasse()
{
    for (auto rangee = table.rangees.rbegin(); rangee != table.rangees.rend(); ++rangee) {
        long libre = mesures.margeX;
        for (Rang i = rangee->debut; i < rangee->fin; ++i) {
            const Rang premier = static_cast<Rang>(table.premiersParents[i]);
            const Rang second = static_cast<Rang>(table.secondsParents[i]);
            const long voulue = premier == i ? libre : (table.x[premier] + table.x[second]) / 2;
            table.x[i] = MaxLI(libre, voulue);
            decalages[i] = table.x[i] - voulue;
            libre = table.x[i] + table.largeurs[i];
        }
    }
    for (const Rangee &rangee : table.rangees)
        fronts.push_back({.premierDecale = rangee.fin, .premierBouge = rangee.debut});
}

bool DispositionRapide::ReporteLesDecalages()
{
    // Nobody but their own child looks at the ancestors again before the pass ends, so their moves add up until here.
    bool aBouge = false;
    for (Rang generation = 0; generation + 1 < fronts.size(); ++generation) {
        const Rang finParents = table.rangees[generation + 1].fin;
        Front &frontParents = fronts[generation + 1];
        Rang i = PremierParentApres(fronts[generation].premierBouge, table.rangees[generation].fin, finParents);
        while (i < finParents && decalages[static_cast<Rang>(table.enfants[i])] == 0)
            ++i;
        frontParents.premierDecale = i;
        frontParents.premierBouge = std::min(frontParents.premierBouge, i);
        aBouge = aBouge || i < finParents;
        for (; i < finParents; ++i) {
            const long decalage = decalages[static_cast<Rang>(table.enfants[i])];
            table.x[i] += decalage;
            decalages[i] += decalage;
        }
    }
    return aBouge;
}

bool DispositionRapide::CorrigeUneAUne()
{
    Rang touche = table.enfants.size();  // in the row: the child of the first one that moved in the row above
    for (Rang generation = fronts.size(); generation-- > 0;) {
        const Rangee &rangee = table.rangees[generation];
        Front &front = fronts[generation];
        CorrigeRangee(rangee, front, std::min(front.premierDecale, touche));
        touche = PremierEnfantApres(front.premierBouge, rangee.fin);
    }
    return ReporteLesDecalages();
}

DispositionRapide::Rang DispositionRapide::PremierParentApres(Rang i, Rang fin, Rang sinon) const
{
    while (i < fin && static_cast<Rang>(table.premiersParents[i]) == i)
        ++i;
    return i < fin ? static_cast<Rang>(table.premiersParents[i]) : sinon;
}

DispositionRapide::Rang DispositionRapide::PremierEnfantApres(Rang i, Rang fin) const
{
    const Rang aucun = table.enfants.size();
    while (i < fin && static_cast<Rang>(table.enfants[i]) == aucun)
        ++i;
    return i < fin ? static_cast<Rang>(table.enfants[i]) : aucun;
}

bool DispositionRapide::Corrige(Rang i, long &libre)
{
    const Rang premier = static_cast<Rang>(table.premiersParents[i]);
    const long voulue = (table.x[premier] + table.x[static_cast<Rang>(table.secondsParents[i])]) / 2;
    const long avant = table.x[i];
    // Measured from the wanted place even when the person stood further right: deliberate. Who has no parent wants to
    // be at the free place: its own stands for that one here, and its ancestors' move moves nobody.
    decalages[i] = MaxLI(libre - voulue, 0);
    table.x[i] = libre > voulue ? libre : MaxLI(avant, voulue);
    libre = table.x[i] + table.largeurs[i];
    return table.x[i] != avant || (decalages[i] != 0 && premier != i);
}

void DispositionRapide::CorrigeRangee(const Rangee &rangee, Front &front, Rang depuis)
{
    front.premierBouge = rangee.fin;
    if (depuis >= rangee.fin)
        return;
    long libre = depuis > rangee.debut ? table.x[depuis - 1] + table.largeurs[depuis - 1] : mesures.margeX;
    Rang i = depuis;
    while (i < rangee.fin && !Corrige(i, libre) && i < front.premierDecale)
        ++i;
    front.premierBouge = i;
    for (++i; i < rangee.fin; ++i)
        Corrige(i, libre);
}

void DispositionRapide::Ecrit()
{
    for (Personne *personne = arbre.premiere; personne; personne = personne->suivante) {
        personne->x = table.x[personne->rang];
        personne->y = mesures.margeY + (arbre.nombreGenerations - 1 - personne->numerogeneration) * mesures.pasVertical;
    }
}
