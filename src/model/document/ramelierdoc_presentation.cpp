#include "ramelierdoc.h"

#include "arbre.h"
#include "dlgoptdessin.h"
#include "dlgpolices.h"
#include "infopersonne.h"
#include "personne.h"

void RamelierDoc::modifFormatsDessins(QWidget *parent)
{
    DlgOptDessin dialogue(&formatsPref, parent);
    dialogue.Montre(formats);
    if (dialogue.exec() != QDialog::Accepted)
        return;
    formats = dialogue.Saisie();
    if (!arbre)
        return;
    // Photos scaled for the former sizes are scaled again when they are drawn.
    for (Personne *personne = arbre->premiere; personne; personne = personne->suivante) {
        if (personne->info && personne->info->etatPhoto > InfoPersonne::PhotoChargee)
            personne->info->etatPhoto = InfoPersonne::PhotoChargee;
    }
    Q_EMIT documentChanged(1);
    optionsModifiees = true;
}

void RamelierDoc::modifPoliceCar(QWidget *parent)
{
    DlgPolices dialogue(&policesPref, parent);
    dialogue.Montre(polices);
    if (dialogue.exec() != QDialog::Accepted)
        return;
    polices = dialogue.polices;
    if (!arbre)
        return;
    Q_EMIT documentChanged(1);
    optionsModifiees = true;
}
