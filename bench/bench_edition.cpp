#include "arbre.h"
#include "disposition.h"
#include "dlgpers.h"
#include "documentouvert.h"
#include "mesure.h"
#include "parentdesboites.h"
#include "personne.h"

#include <algorithm>

namespace {

constexpr double limite = 1.2;

/// The dialog is not measured, but takes its time, and so does a large tree.
int FoisParBoite(int personnes)
{
    return std::clamp(500'000 / personnes, 1, 20);
}

/// Whose father comes and goes.
enum class Enfant {
    DuMilieu,               ///< somebody about the middle of a tree where three parents of four are known
    DeLaDerniereGeneration  ///< a complete tree's last child without parents
};

DocumentOuvert &Ouvert(Enfant enfant, int personnes)
{
    return DocumentDe(enfant == Enfant::DuMilieu ? Forme::ParGeneration : Forme::Complete, personnes);
}

/// The first child without a father from the middle on; where the generation is complete, its father is the last
/// person of the list.
Personne *EnfantSansPere(const RamelierDoc &doc)
{
    Personne *enfant = PersonneDuMilieu(doc);
    while (enfant->ptrPere)
        enfant = enfant->suivante;
    return enfant;
}

void Selectionne(Arbre &arbre, Personne *personne)
{
    if (arbre.selection)
        arbre.selection->selectionnee = false;
    personne->selectionnee = true;
    arbre.selection = personne;
}

void Ajoute(benchmark::State &etat, Enfant lequel, int personnes)
{
    RamelierDoc &doc = Ouvert(lequel, personnes).doc;
    Personne *enfant = EnfantSansPere(doc);
    QString repertoire;
    ParentDesBoites parent(etat);
    for (auto _ : etat) {
        etat.PauseTiming();
        Selectionne(*doc.arbre, enfant);
        etat.ResumeTiming();
        if (!doc.AjoutePersonne(&parent, repertoire, true))
            etat.SkipWithError("ajout");
        etat.PauseTiming();
        doc.arbre->SupprimePersonne();
        etat.ResumeTiming();
    }
}

void Supprime(benchmark::State &etat, Enfant lequel, int personnes)
{
    RamelierDoc &doc = Ouvert(lequel, personnes).doc;
    Personne *enfant = EnfantSansPere(doc);
    QString repertoire;
    for (auto _ : etat) {
        etat.PauseTiming();
        Selectionne(*doc.arbre, doc.arbre->AjoutePersonne(enfant, true));
        Q_EMIT doc.documentChanged(1);
        etat.ResumeTiming();
        doc.SupPersonne(repertoire);
    }
    doc.arbre->OublieAnnulation();
}

/// One layout and one walk along the list.
void DisposeEtParcourt(const DocumentOuvert &ouvert)
{
    DisposeArbre(*ouvert.doc.arbre, ouvert.doc.formats, ouvert.echelle, ouvert.echelle);
    for (const Personne *personne = ouvert.doc.arbre->premiere; personne; personne = personne->suivante)
        benchmark::DoNotOptimize(personne->numero);
}

/// The least that a deletion costs.
void PlancherDeSuppression(benchmark::State &etat, Enfant lequel, int personnes)
{
    const DocumentOuvert &ouvert = Ouvert(lequel, personnes);
    for (auto _ : etat)
        DisposeEtParcourt(ouvert);
}

/// The least that an addition costs, with what the dialog leaves in the processor's caches.
void PlancherDAjout(benchmark::State &etat, Enfant lequel, int personnes)
{
    const DocumentOuvert &ouvert = Ouvert(lequel, personnes);
    ParentDesBoites parent(etat);
    for (auto _ : etat) {
        DlgPers(&parent).exec();
        DisposeEtParcourt(ouvert);
    }
}

void Enregistre(const char *ajout, const char *suppression, Enfant enfant, int personnes)
{
    EnregistreMesure(
        {ajout, limite, personnes, FoisParBoite(personnes)},
        [=](benchmark::State &etat) { Ajoute(etat, enfant, personnes); },
        [=](benchmark::State &etat) { PlancherDAjout(etat, enfant, personnes); });
    EnregistreMesure(
        {suppression, limite, personnes}, [=](benchmark::State &etat) { Supprime(etat, enfant, personnes); },
        [=](benchmark::State &etat) { PlancherDeSuppression(etat, enfant, personnes); });
}

}  // namespace

void EnregistreEdition(int plusGrand)
{
    for (int personnes = 1000; personnes <= plusGrand; personnes *= 10) {
        Enregistre("ajout d'une personne à la fin", "suppression à la fin", Enfant::DeLaDerniereGeneration, personnes);
        Enregistre("ajout d'une personne au milieu", "suppression au milieu", Enfant::DuMilieu, personnes);
    }
}
