#include "arbre.h"
#include "documentouvert.h"
#include "mesure.h"
#include "parentdesboites.h"
#include "personne.h"

namespace {

constexpr double limiteMs = 10;
constexpr int foisParBoite = 20;  // the dialog is not measured, but takes its time

DocumentOuvert &Ouvert(int personnes)
{
    return DocumentDe(Forme::ParGeneration, personnes);
}

void CliqueSur(DocumentOuvert &ouvert, const Personne &personne)
{
    ouvert.doc.DeselectSelect(personne.x + 10, personne.y + 10, ouvert.echelle, ouvert.echelle);
}

/// On the corner of the drawing there is nobody.
void CliqueDansLeVide(DocumentOuvert &ouvert)
{
    ouvert.doc.DeselectSelect(1, 1, ouvert.echelle, ouvert.echelle);
}

void Selectionne(benchmark::State &etat, int personnes)
{
    DocumentOuvert &ouvert = Ouvert(personnes);
    const Personne *milieu = PersonneDuMilieu(ouvert.doc);
    for (auto _ : etat) {
        CliqueSur(ouvert, *milieu);
        etat.PauseTiming();
        if (ouvert.doc.arbre->selection != milieu)
            etat.SkipWithError("selection");
        CliqueDansLeVide(ouvert);
        etat.ResumeTiming();
    }
}

void Deselectionne(benchmark::State &etat, int personnes)
{
    DocumentOuvert &ouvert = Ouvert(personnes);
    const Personne *milieu = PersonneDuMilieu(ouvert.doc);
    for (auto _ : etat) {
        etat.PauseTiming();
        CliqueSur(ouvert, *milieu);
        etat.ResumeTiming();
        CliqueDansLeVide(ouvert);
        if (ouvert.doc.arbre->selection)
            etat.SkipWithError("selection");
    }
}

void ChangeUnTexte(benchmark::State &etat, int personnes)
{
    DocumentOuvert &ouvert = Ouvert(personnes);
    CliqueSur(ouvert, *PersonneDuMilieu(ouvert.doc));
    QString repertoire;
    ParentDesBoites parent(etat);
    for (auto _ : etat)
        ouvert.doc.CreaModifPers(&parent, repertoire, false);
    CliqueDansLeVide(ouvert);
}

}  // namespace

void EnregistreClic(int plusGrand)
{
    for (int personnes = 1000; personnes <= plusGrand; personnes *= 10) {
        EnregistreDuree({"clic sur une personne du milieu", limiteMs, personnes},
                        [=](benchmark::State &etat) { Selectionne(etat, personnes); });
        EnregistreDuree({"clic à côté des personnes", limiteMs, personnes},
                        [=](benchmark::State &etat) { Deselectionne(etat, personnes); });
        EnregistreDuree({"changement d'un texte", limiteMs, personnes, foisParBoite},
                        [=](benchmark::State &etat) { ChangeUnTexte(etat, personnes); });
    }
}
