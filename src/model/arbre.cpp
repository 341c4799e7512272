#include "arbre.h"

#include "annuaire.h"
#include "indexdessin.h"
#include "infopersonne.h"
#include "personne.h"
#include "photos.h"

#include <utility>

Arbre::Arbre()
    : infoArbre(new InfoArbre)
{
}

Arbre::~Arbre()
{
    delete infoArbre;
    delete premiere;
    delete infoSauvee;
    OublieLesPhotosInutiles();
}

void Arbre::AjouteALaFin(Personne *personne)
{
    OublieLesPlaces();
    if (!premiere) {
        premiere = personne;
    } else {
        derniere->suivante = personne;
        personne->precedente = derniere;
    }
    derniere = personne;
    ++nombrePersonnes;
    if (annuaire)
        annuaire->Vient(personne);
}

Personne *Arbre::DepartVers(const Personne &personne) const
{
    const Annuaire *trie = AnnuaireTrie();
    Personne *avant = trie ? trie->DAvant(personne.numero) : nullptr;
    return avant ? avant : premiere;
}

void Arbre::Insere(Personne *personne, Personne *depuis)
{
    OublieLesPlaces();
    for (Personne *courante = depuis ? depuis : DepartVers(*personne); courante && courante->suivante;
         courante = courante->suivante) {
        Personne *apres = courante->suivante;
        if (personne->numero > courante->numero && personne->numero < apres->numero) {
            personne->precedente = courante;
            personne->suivante = apres;
            courante->suivante = personne;
            apres->precedente = personne;
            ++nombrePersonnes;
            if (annuaire)
                annuaire->Vient(personne);
            return;
        }
    }
    AjouteALaFin(personne);
}

void Arbre::AjouteASaPlace(Personne *personne, Personne *depuis)
{
    Insere(personne, depuis);
    if (personne->numerogeneration >= nombreGenerations)
        ++nombreGenerations;
}

Personne *Arbre::AjoutePersonne(Personne *enfant, bool estPere, Personne *depuis)
{
    auto *parent = new Personne(static_cast<unsigned short>(enfant->numerogeneration + 1));
    parent->info = new InfoPersonne;
    parent->numero = 2 * enfant->numero + (estPere ? 0 : 1);
    parent->enfant = enfant->numero;
    (estPere ? enfant->pere : enfant->mere) = parent->numero;
    (estPere ? enfant->ptrPere : enfant->ptrMere) = parent;
    AjouteASaPlace(parent, depuis);
    RetrouveSesParents(parent);
    return parent;
}

void Arbre::SupprimePersonne()
{
    if (!selection || selection == premiere)
        return;
    OublieLesPlaces();
    Personne *supprimee = std::exchange(selection, nullptr);
    const bool etaitLaDerniere = supprimee == derniere;

    if (annuaire)
        annuaire->Part(*supprimee);
    DetacheDeSonEnfant(supprimee);
    supprimee->precedente->suivante = supprimee->suivante;
    if (etaitLaDerniere)
        derniere = supprimee->precedente;
    else
        supprimee->suivante->precedente = supprimee->precedente;
    supprimee->suivante = nullptr;
    delete supprimee;
    --nombrePersonnes;

    // Only the tail can empty a generation here: deleting in the middle deliberately recounts nothing.
    if (etaitLaDerniere && nombreGenerations - 1 > derniere->numerogeneration)
        --nombreGenerations;
}

void Arbre::SauveInfoPersonne(const QString &dossier)
{
    delete std::exchange(infoSauvee, nullptr);
    numeroSauve = selection ? selection->numero : 0;
    if (!selection)
        return;
    if (!selection->info) {
        infoSauvee = new InfoPersonne;
        return;
    }
    const InfoPersonne &info = *selection->info;
    infoSauvee =
        new InfoPersonne(info.nom, info.prenom, info.datenaissance, info.lieunaissance, info.datedeces, info.lieudeces,
                         info.divers, info.fichtml, info.ficphoto, InfoPersonne::PhotoNonEssayee);
    if (!infoSauvee->ficphoto.isEmpty())
        infoSauvee->etatPhoto =
            infoSauvee->ChargePhoto(dossier) ? InfoPersonne::PhotoChargee : InfoPersonne::PhotoAbsente;
}

void Arbre::OublieAnnulation()
{
    delete std::exchange(infoSauvee, nullptr);
    numeroSauve = 0;
    enfantSansPere = nullptr;
    enfantSansMere = nullptr;
}
