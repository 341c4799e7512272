#include "gedcomimport.h"
#include "infopersonne.h"
#include "personne.h"

IndividuGED *RacinePos = nullptr;
IndividuGED *LePere = nullptr;
IndividuGED *LaMere = nullptr;

namespace {

/// The individual with this identifier; of several the last of the list. An empty identifier is nobody's.
IndividuGED *ChercheIndividu(const QString &adresse)
{
    IndividuGED *trouve = nullptr;
    if (adresse.isEmpty())
        return nullptr;
    for (IndividuGED *individu = LesIndividus; individu; individu = individu->suivant) {
        if (individu->adresse == adresse)
            trouve = individu;
    }
    return trouve;
}

}  // namespace

long CompteIndiv()
{
    long nombre = 0;
    for (const IndividuGED *individu = LesIndividus; individu; individu = individu->suivant)
        ++nombre;
    return nombre;
}

void ChercheRacine(QString &adresse)
{
    RacinePos = nullptr;
    if (!adresse.isEmpty()) {
        RacinePos = ChercheIndividu(adresse);
        return;
    }
    for (IndividuGED *individu = LesIndividus; individu; individu = individu->suivant) {
        if (individu->fams.isEmpty())
            RacinePos = individu;
    }
}

void ChercheLesParents(IndividuGED *ind)
{
    LePere = nullptr;
    LaMere = nullptr;
    if (ind->adresse.isEmpty())
        return;
    for (const FamilleGED *famille = LesFamilles; famille; famille = famille->suivante) {
        for (const EnfantGED *enfant = famille->enfants; enfant; enfant = enfant->suivant) {
            if (enfant->adresse != ind->adresse)
                continue;
            if (IndividuGED *mari = ChercheIndividu(famille->mari))
                LePere = mari;
            if (IndividuGED *femme = ChercheIndividu(famille->femme))
                LaMere = femme;
        }
    }
}

void CopieInfo(IndividuGED *individu, Personne *personne)
{
    InfoPersonne &info = *personne->info;
    info.nom = individu->nom;
    info.prenom = individu->prenom;
    info.datenaissance = individu->datenaissance;
    info.lieunaissance = individu->lieunaissance;
    info.datedeces = individu->datedeces;
    info.lieudeces = individu->lieudeces;
    info.divers = individu->occu;
}
