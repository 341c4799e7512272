#include "annuaire.h"
#include "arbre.h"
#include "arbview.h"
#include "documentouvert.h"
#include "mesure.h"
#include "personne.h"

#include <QCoreApplication>
#include <QKeyEvent>

namespace {

constexpr double limiteMs = 10;
constexpr double limiteAnnuaireMs = 500;

DocumentOuvert &Ouvert(int personnes)
{
    return DocumentDe(Forme::ParGeneration, personnes);
}

void Touche(DocumentOuvert &ouvert, Qt::Key touche, const QString &texte = {})
{
    QKeyEvent evenement(QEvent::KeyPress, touche, Qt::NoModifier, texte);
    QCoreApplication::sendEvent(ouvert.vue.vue(), &evenement);
}

/// Everything that one key does from the person in the middle, but for the painting. \a dejaTape: the letters before it.
void DepuisLeMilieu(benchmark::State &etat, int personnes, Qt::Key touche, const QString &texte, bool bouge,
                    const QString &dejaTape = {})
{
    DocumentOuvert &ouvert = Ouvert(personnes);
    Personne *milieu = PersonneDuMilieu(ouvert.doc);
    for (auto _ : etat) {
        etat.PauseTiming();
        Touche(ouvert, Qt::Key_Escape);
        for (const QChar lettre : dejaTape)
            Touche(ouvert, Qt::Key_unknown, lettre);
        ouvert.doc.Selectionne(milieu);
        etat.ResumeTiming();
        Touche(ouvert, touche, texte);
        if ((ouvert.doc.arbre->selection != milieu) != bouge)
            etat.SkipWithError("selection");
    }
    Touche(ouvert, Qt::Key_Escape);
    ouvert.doc.Selectionne(nullptr);
}

void FaitLAnnuaire(benchmark::State &etat, int personnes)
{
    const DocumentOuvert &ouvert = Ouvert(personnes);
    for (auto _ : etat)
        benchmark::DoNotOptimize(Annuaire(*ouvert.doc.arbre).Nombre());
}

}  // namespace

void EnregistreClavier(int plusGrand)
{
    for (int personnes = 1000; personnes <= plusGrand; personnes *= 10) {
        EnregistreDuree({"touche vers l'enfant", limiteMs, personnes},
                        [=](benchmark::State &etat) { DepuisLeMilieu(etat, personnes, Qt::Key_Down, {}, true); });
        EnregistreDuree({"touche vers la racine", limiteMs, personnes},
                        [=](benchmark::State &etat) { DepuisLeMilieu(etat, personnes, Qt::Key_Home, {}, true); });
        EnregistreDuree({"chiffre d'un numéro", limiteMs, personnes}, [=](benchmark::State &etat) {
            DepuisLeMilieu(etat, personnes, Qt::Key_2, QStringLiteral("2"), true);
        });
        EnregistreDuree(
            {"lettre par laquelle aucun nom ne commence", limiteMs, personnes},
            [=](benchmark::State &etat) { DepuisLeMilieu(etat, personnes, Qt::Key_Z, QStringLiteral("ž!"), false); });
        EnregistreDuree({"lettre derrière un nom répandu", limiteMs, personnes}, [=](benchmark::State &etat) {
            DepuisLeMilieu(etat, personnes, Qt::Key_X, QStringLiteral("x"), false, QStringLiteral("martin"));
        });
        EnregistreDuree({"annuaire d'un arbre", limiteAnnuaireMs, personnes},
                        [=](benchmark::State &etat) { FaitLAnnuaire(etat, personnes); });
    }
}
