#include "ramelierapp.h"

#include <QMessageBox>

// The manual does not exist yet: its command does nothing.
void RamelierApp::slotAide() { }

void RamelierApp::slotHelpAbout()
{
    QMessageBox::about(this, QStringLiteral("A propos..."),
                       QStringLiteral("Ramelier - Arbre généalogique\nVersion 5.1\n\n"
                                      "Dessine, conserve et imprime un arbre généalogique ascendant,\n"
                                      "numéroté selon Sosa-Stradonitz."));
}

void RamelierApp::slotHelpAboutQt()
{
    QMessageBox::aboutQt(this, QStringLiteral("ramelier - Arbre généalogique"));
}
