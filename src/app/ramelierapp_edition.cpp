#include "ramelierapp.h"

// Commands that this version does not have yet: their actions exist, and do nothing.

void RamelierApp::slotFileNew() { }

void RamelierApp::slotAnnuler() { }

void RamelierApp::slotModifier() { }

void RamelierApp::slotSuppPers() { }

void RamelierApp::slotAjouterPere() { }

void RamelierApp::slotAjouterMere() { }

void RamelierApp::slotEditFicheHTML() { }

void RamelierApp::slotEditPdG() { }

void RamelierApp::slotFormatsDessins() { }

void RamelierApp::slotPoliceCaract() { }

void RamelierApp::slotPreferences() { }

void RamelierApp::slotAffFicheHTML() { }

void RamelierApp::slotAssembleArbres() { }

void RamelierApp::slotImporteFichierGED() { }

void RamelierApp::slotExporteVersFichierGED() { }

void RamelierApp::slotAide() { }

void RamelierApp::slotHelpAbout() { }

void RamelierApp::slotHelpAboutQt() { }

void RamelierApp::slotPersonneDoubleCliquee() { }
