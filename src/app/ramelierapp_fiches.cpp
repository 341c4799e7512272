#include "ramelierapp.h"

#include "arbre.h"
#include "boites.h"
#include "infopersonne.h"
#include "lytextbrowser.h"
#include "personne.h"
#include "ramelierdoc.h"

#include <QFileInfo>
#include <QIcon>

void RamelierApp::slotAffFicheHTML()
{
    const Personne *personne = Selection();
    if (!personne || !personne->info)
        return;
    const QString chemin = dernierRep + u'/' + personne->info->fichtml;
    if (!QFileInfo(chemin).isFile()) {
        Boites::Information(this, QStringLiteral("Information"),
                            QStringLiteral("Le fichier ") + chemin + QStringLiteral(" n'existe pas !"));
        return;
    }
    const bool html = chemin.contains(QStringLiteral(".htm"), Qt::CaseInsensitive);
    // Each one lives until it is closed, by its user or with this window.
    const auto *afficheur = new LyTextBrowser(windowIcon(),
                                              QStringLiteral("Ramelier 5.1 - fiche associée à la personne n° ")
                                                  + QString::number(personne->numero),
                                              chemin, html);
    connect(this, &RamelierApp::fermetureRamelier, afficheur, &LyTextBrowser::slotFileQuit);
}

// The editor of sheets does not exist yet: its command does nothing.
void RamelierApp::slotEditFicheHTML() { }
