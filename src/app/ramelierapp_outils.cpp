#include "ramelierapp.h"

// Commands that this version does not have yet: their actions exist, and do nothing.

void RamelierApp::slotEditFicheHTML() { }

void RamelierApp::slotAffFicheHTML() { }

void RamelierApp::slotAssembleArbres() { }

void RamelierApp::slotImporteFichierGED() { }

void RamelierApp::slotExporteVersFichierGED() { }
