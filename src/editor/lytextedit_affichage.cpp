#include "lytextedit.h"

#include "champspresentation.h"
#include "lytextbrowser.h"
#include "monqtextedit.h"

#include <QMessageBox>
#include <QStatusBar>
#include <QToolBar>

void LyTextEdit::disableHtml(bool b)
{
    const auto actions = ActionsHtml();
    for (QAction *action : actions)
        action->setEnabled(b);
    actViewToolBarB->setEnabled(b);
    barreHtml->setVisible(b);
    actViewToolBarB->setChecked(b);
}

void LyTextEdit::slotViewToolBar(bool visible)
{
    barreOutils->setVisible(visible);
}

void LyTextEdit::slotViewToolBarB(bool visible)
{
    barreHtml->setVisible(visible);
}

void LyTextEdit::slotViewStatusBar(bool visible)
{
    statusBar()->setVisible(visible);
}

void LyTextEdit::slotAppelleLyTextBrowser()
{
    if (navigateurOuvert) {
        navigateurOuvert->html = modeHtml;
        navigateurOuvert->Montre(fichierCourant);
        navigateurOuvert->slotRecharger();
        navigateurOuvert->raise();
        navigateurOuvert->activateWindow();
        return;
    }
    navigateurOuvert = new LyTextBrowser(windowIcon(), QStringLiteral("LyTextBrowser"), fichierCourant, modeHtml);
    connect(navigateurOuvert, &LyTextBrowser::FermetureBrowser, this, &LyTextEdit::slotGereFermetureBrowser);
    connect(this, &LyTextEdit::fermetureLyEditHtml, navigateurOuvert, &LyTextBrowser::slotFileQuit);
}

void LyTextEdit::slotGereFermetureBrowser()
{
    navigateurOuvert.clear();
}

void LyTextEdit::slotPoliceEditeur()
{
    QFont police = policeEditeur;
    if (ChoisitPolice(this, police))
        AppliquePolice(police);
}

void LyTextEdit::slotAide()
{
    const auto *manuel =
        new LyTextBrowser(windowIcon(), QStringLiteral("LyEditHtml"), repAide + QStringLiteral("/index.html"), true);
    connect(this, &LyTextEdit::fermetureLyEditHtml, manuel, &LyTextBrowser::slotFileQuit);
}

void LyTextEdit::slotHelpAbout()
{
    QMessageBox::about(this, QStringLiteral("A propos..."),
                       QStringLiteral("LyEditHtml - Editeur de texte avec balises HTML\nVersion 1.0"));
}

void LyTextEdit::slotHelpAboutQt()
{
    QMessageBox::aboutQt(this);
}
