#include "ramelierapp.h"

#include "lytextbrowser.h"

#include <QMessageBox>

void RamelierApp::slotAide()
{
    const auto *manuel =
        new LyTextBrowser(windowIcon(), QStringLiteral("Ramelier"), repAide + QStringLiteral("/index.html"), true);
    connect(this, &RamelierApp::fermetureRamelier, manuel, &LyTextBrowser::slotFileQuit);
}

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
