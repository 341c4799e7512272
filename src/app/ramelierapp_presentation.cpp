#include "ramelierapp.h"

#include "boites.h"
#include "dlgpreferences.h"
#include "ficoptions.h"
#include "ramelierdoc.h"

#include <QFileInfo>

void RamelierApp::slotFormatsDessins()
{
    doc->modifFormatsDessins(this);
}

void RamelierApp::slotPoliceCaract()
{
    doc->modifPoliceCar(this);
}

bool RamelierApp::SaisitPreferences()
{
    DlgPreferences dialogue(this);
    dialogue.Montre(doc->formatsPref, doc->policesPref);
    if (dialogue.exec() != QDialog::Accepted)
        return false;
    doc->formatsPref = dialogue.Saisie();
    doc->policesPref = dialogue.polices;
    if (!doc->saveOptions(doc->fichierPreferences, &doc->formatsPref, &doc->policesPref, OptionsPreferences))
        Boites::Information(this, QStringLiteral("Information"),
                            QStringLiteral("échec ouverture de ") + doc->fichierPreferences
                                + QStringLiteral("\nPréférences non enregistrées"));
    return true;
}

void RamelierApp::slotPreferences()
{
    if (!SaisitPreferences())
        return;
    doc->initPolicesEtTraitsPref();
    // A tree that has its own options keeps them.
    if (!doc->arbre || QFileInfo::exists(fichierOptions) || doc->areOptionsModified())
        return;
    doc->initPolicesEtTraits(QString());
    Q_EMIT docChanged(2);
}
