#include "barres.h"

#include <QMainWindow>
#include <QMenuBar>
#include <QToolBar>

namespace {

/// \a suite is what the toolkit calls the button of the rest.
void Nomme(QWidget &barre, const QString &nom, const char *suite)
{
    barre.setAccessibleName(nom);
    if (auto *bouton = barre.findChild<QWidget *>(QString::fromLatin1(suite)))
        bouton->setAccessibleName(nom + QStringLiteral(" (suite)"));
}

}  // namespace

void NommeLesBarres(QMainWindow &fenetre)
{
    Nomme(*fenetre.menuBar(), QStringLiteral("Barre de menus"), "qt_menubar_ext_button");
    const auto barres = fenetre.findChildren<QToolBar *>();
    for (QToolBar *barre : barres)
        Nomme(*barre, barre->windowTitle(), "qt_toolbar_ext_button");
}
