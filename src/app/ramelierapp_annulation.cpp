#include "ramelierapp.h"

#include "arbre.h"
#include "infopersonne.h"
#include "personne.h"
#include "ramelierdoc.h"

#include <QAction>

#include <utility>

void RamelierApp::slotAnnuler()
{
    const Arbre *arbre = doc->arbre;
    if (!arbre)
        return;
    if (arbre->enfantSansPere || arbre->enfantSansMere)
        AnnulerSuppression();
    else if (arbre->selection && arbre->infoSauvee)
        AnnulerModif();
}

void RamelierApp::AnnulerSuppression()
{
    Arbre &arbre = *doc->arbre;
    actAnnuler->setEnabled(false);
    const bool pere = arbre.enfantSansPere;
    Personne *enfant = std::exchange(pere ? arbre.enfantSansPere : arbre.enfantSansMere, nullptr);
    const bool placeOccupee = pere ? enfant->ptrPere : enfant->ptrMere;
    const quint64 numero = 2 * enfant->numero + (pere ? 0 : 1);
    if (placeOccupee || !arbre.infoSauvee || arbre.numeroSauve != numero)
        return;
    Personne *remise = arbre.AjoutePersonne(enfant, pere);
    delete std::exchange(remise->info, std::exchange(arbre.infoSauvee, nullptr));
    arbre.TextesChanges(*remise);
    arbre.numeroSauve = 0;
    Q_EMIT docChanged(1);
    doc->modifie = true;
    MaJStatusBarreInfoModif();
}

void RamelierApp::AnnulerModif()
{
    Arbre &arbre = *doc->arbre;
    Personne &personne = *arbre.selection;
    if (arbre.numeroSauve != personne.numero)
        return;
    const bool sansFicheAvant = personne.info->fichtml.isEmpty();
    InfoPersonne *sauvee = std::exchange(arbre.infoSauvee, nullptr);
    arbre.SauveInfoPersonne(dernierRep);
    delete std::exchange(personne.info, sauvee);
    arbre.TextesChanges(personne);
    modifAnnulee = !modifAnnulee;
    actAnnuler->setText(modifAnnulee ? QStringLiteral("&Annuler annuler") : QStringLiteral("&Annuler"));
    const bool sansFicheApres = personne.info->fichtml.isEmpty();
    Q_EMIT docChanged(sansFicheAvant && sansFicheApres ? 2 : 1);
    doc->modifie = true;
    MaJStatusBarreInfoModif();
}
