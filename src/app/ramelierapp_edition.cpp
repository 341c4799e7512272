#include "ramelierapp.h"

#include "arbre.h"
#include "boites.h"
#include "infopersonne.h"
#include "personne.h"
#include "ramelierdoc.h"

namespace {

const QString titreSuppression = QStringLiteral("Suppression de la personne sélectionnée");

}  // namespace

Personne *RamelierApp::Selection() const
{
    return doc->arbre ? doc->arbre->selection : nullptr;
}

void RamelierApp::slotModifier()
{
    if (!Selection())
        return;
    Status(QStringLiteral(" ..."));
    doc->CreaModifPers(this, dernierRep, false);
    MaJStatusBarreInfoModif();
    Status(QStringLiteral("Prêt."));
}

void RamelierApp::AjouteParent(bool pere)
{
    if (!doc->AjoutePersonne(this, dernierRep, pere))
        return;
    Status(QStringLiteral("Prêt."));
    MaJStatusBarreInfoModif();
}

void RamelierApp::slotAjouterPere()
{
    AjouteParent(true);
}

void RamelierApp::slotAjouterMere()
{
    AjouteParent(false);
}

QString RamelierApp::RefusDeSupprimer(const Personne &personne) const
{
    QString refus = QStringLiteral("Impossible de supprimer la personne n° ") + QString::number(personne.numero);
    if (personne.numero == 1 || &personne == doc->arbre->premiere)
        return refus;
    if (personne.ptrPere || personne.ptrMere)
        return refus + QStringLiteral(" car elle possède au moins un ancêtrre");
    return {};
}

void RamelierApp::slotSuppPers()
{
    const Personne *personne = Selection();
    if (!personne)
        return;
    if (const QString refus = RefusDeSupprimer(*personne); !refus.isEmpty()) {
        Boites::Information(this, titreSuppression, refus);
        return;
    }
    const QString question = QStringLiteral("Voulez-vous vraiement supprimer la personne n° ")
        + QString::number(personne->numero) + QStringLiteral(" ?");
    if (Boites::Demande(this, QMessageBox::Warning, titreSuppression, question,
                        {QStringLiteral("Oui"), QStringLiteral("Non")}, 1, 1)
        == 0) {
        doc->SupPersonne(dernierRep);
        // Nobody is selected any more; the deletion alone can be taken back.
        slotPersonneSelectionnee(0);
        slotAutoriseAnnulation();
    }
    MaJStatusBarreInfoModif();
    Status(QStringLiteral("Prêt."));
}

void RamelierApp::slotEditPdG()
{
    if (!doc->arbre)
        return;
    Status(QStringLiteral("Edition de la page de garde ..."));
    doc->EditPdG(this);
    Status(QStringLiteral("Prêt."));
    MaJStatusBarreInfoModif();
}

void RamelierApp::slotPersonneDoubleCliquee()
{
    const Personne *personne = Selection();
    if (!personne)
        return;
    if (!modeConsultation)
        slotModifier();
    else if (!personne->info || personne->info->fichtml.isEmpty())
        Boites::Information(this, QStringLiteral("Information"),
                            QStringLiteral("Il n'y a pas de fiche associée à la personne n°")
                                + QString::number(personne->numero));
    else
        slotAffFicheHTML();
}
