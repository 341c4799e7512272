#pragma once

#include "arbre.h"
#include "gedcomimport.h"
#include "infopersonne.h"
#include "personne.h"

#include <QMap>

/// The climb to the letter, walk after walk over the two lists: slow and plain. They hold a file.
class MonteeLitterale
{
public:
    /// Fills the empty \a arbre from the individual with the identifier \a cle, or without one from somebody who is
    /// nobody's spouse.
    void Execute(Arbre &arbre, const QString &cle)
    {
        IndividuGED *racine = nullptr;
        for (IndividuGED *individu = LesIndividus; individu; individu = individu->suivant) {
            if (cle.isEmpty() ? individu->fams.isEmpty() : individu->adresse == cle)
                racine = individu;
        }
        if (!racine)
            return;
        auto *personne = new Personne(0);
        personne->info = new InfoPersonne;
        personne->numero = 1;
        Copie(*racine, *personne);
        racine->numero = 1;
        places.insert(1, racine);
        arbre.premiere = arbre.derniere = personne;
        arbre.nombrePersonnes = 1;
        arbre.nombreGenerations = 1;
        if (!LesIndividus->suivant)
            return;
        for (; personne; personne = personne->suivante)
            Monte(arbre, *personne);
    }

    struct Parents
    {
        IndividuGED *pere = nullptr;
        IndividuGED *mere = nullptr;
        int ecrases = 0;  ///< how often a later match took the place of another individual
    };

    static Parents CherchesPour(const IndividuGED &enfant)
    {
        Parents parents;
        for (const FamilleGED *famille = LesFamilles; famille; famille = famille->suivante) {
            for (const EnfantGED *candidat = famille->enfants; candidat; candidat = candidat->suivant) {
                if (candidat->adresse.isEmpty() || candidat->adresse != enfant.adresse)
                    continue;
                for (IndividuGED *individu = LesIndividus; individu; individu = individu->suivant) {
                    if (individu->adresse.isEmpty())
                        continue;
                    if (individu->adresse == famille->mari)
                        Prend(parents.pere, individu, parents.ecrases);
                    if (individu->adresse == famille->femme)
                        Prend(parents.mere, individu, parents.ecrases);
                }
            }
        }
        return parents;
    }

    int refuses = 0;      ///< parents who stand in the line already
    int sansNumero = 0;   ///< persons whose parents would get no number
    int retrouves = 0;    ///< parents who had a place already
    int abandonnees = 0;  ///< persons without parents because they were found again elsewhere
    int departages = 0;   ///< choices between several parents

private:
    static void Prend(IndividuGED *&place, IndividuGED *individu, int &ecrases)
    {
        if (place && place != individu)
            ++ecrases;
        place = individu;
    }

    void Monte(Arbre &arbre, Personne &personne)
    {
        IndividuGED *individu = nullptr;
        for (IndividuGED *candidat = LesIndividus; candidat; candidat = candidat->suivant) {
            if (candidat->numero == personne.numero)
                individu = candidat;
        }
        if (!individu) {
            ++abandonnees;
            return;
        }
        const Parents parents = CherchesPour(*individu);
        departages += parents.ecrases;
        if (personne.numero > 9223372036854775807ULL) {  // twice that and one is the largest number
            sansNumero += parents.pere || parents.mere ? 1 : 0;
            return;
        }
        Ajoute(arbre, personne, parents.pere, true);
        Ajoute(arbre, personne, parents.mere, false);
    }

    void Ajoute(Arbre &arbre, Personne &enfant, IndividuGED *individu, bool estPere)
    {
        if (!individu)
            return;
        for (quint64 numero = enfant.numero; numero > 0; numero /= 2) {
            if (places.value(numero) == individu) {
                ++refuses;
                return;
            }
        }
        retrouves += individu->numero != 0 ? 1 : 0;
        Personne *parent = arbre.AjoutePersonne(&enfant, estPere);
        Copie(*individu, *parent);
        individu->numero = parent->numero;
        places.insert(parent->numero, individu);
    }

    static void Copie(const IndividuGED &individu, Personne &personne)
    {
        personne.info->nom = individu.nom;
        personne.info->prenom = individu.prenom;
        personne.info->datenaissance = individu.datenaissance;
        personne.info->lieunaissance = individu.lieunaissance;
        personne.info->datedeces = individu.datedeces;
        personne.info->lieudeces = individu.lieudeces;
        personne.info->divers = individu.occu;
    }

    QMap<quint64, IndividuGED *> places;  ///< whom each number was given to
};
