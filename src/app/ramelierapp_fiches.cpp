#include "ramelierapp.h"

#include "arbre.h"
#include "boites.h"
#include "infopersonne.h"
#include "lytextbrowser.h"
#include "lytextedit.h"
#include "personne.h"
#include "ramelierdoc.h"

#include <QEventLoop>
#include <QFileInfo>
#include <QIcon>

namespace {

const QString information = QStringLiteral("Information");

QString TitreDeLaFiche(const Personne &personne)
{
    return QStringLiteral("Ramelier 5.1 - fiche associée à la personne n° ") + QString::number(personne.numero);
}

void MetDevant(QWidget &fenetre)
{
    fenetre.setWindowState(fenetre.windowState() & ~Qt::WindowMinimized);
    fenetre.raise();
    fenetre.activateWindow();
}

}  // namespace

void RamelierApp::slotAffFicheHTML()
{
    const Personne *personne = Selection();
    if (!personne || !personne->info)
        return;
    const QString chemin = DansDernierRep(personne->info->fichtml);
    if (!QFileInfo(chemin).isFile()) {
        Boites::Information(this, information,
                            QStringLiteral("Le fichier ") + chemin + QStringLiteral(" n'existe pas !"));
        return;
    }
    const bool html = chemin.contains(QStringLiteral(".htm"), Qt::CaseInsensitive);
    // Each one lives until it is closed, by its user or with this window.
    const auto *afficheur = new LyTextBrowser(windowIcon(), TitreDeLaFiche(*personne), chemin, html);
    connect(this, &RamelierApp::fermetureRamelier, afficheur, &LyTextBrowser::slotFileQuit);
}

QString RamelierApp::NomDeLaFicheAEditer()
{
    const Personne *personne = Selection();
    if (!personne || !personne->info)
        return {};
    if (!personne->info->fichtml.isEmpty())
        return personne->info->fichtml;
    Boites::Information(this, information,
                        QStringLiteral("Pour éditer la fiche associée, entrez d'abord le nom du fichier"));
    slotModifier();
    if (personne->info->fichtml.isEmpty())
        Boites::Information(this, information, QStringLiteral("Le nom du fichier n'a pas été entré\nAbandon"));
    return personne->info->fichtml;
}

bool RamelierApp::MetDevantLesEditeursDe(const QString &chemin)
{
    bool trouve = false;
    for (LyTextEdit *editeur = listeEditeurs; editeur; editeur = editeur->suivant) {
        if (editeur->fichierCourant != chemin)
            continue;
        MetDevant(*editeur);
        trouve = true;
    }
    return trouve;
}

void RamelierApp::slotEditFicheHTML()
{
    const QString nom = NomDeLaFicheAEditer();
    if (nom.isEmpty())
        return;
    const QString chemin = DansDernierRep(nom);
    if (MetDevantLesEditeursDe(chemin))
        return;
    auto *editeur = new LyTextEdit(TitreDeLaFiche(*Selection()), chemin, false, repApplication, QString());
    connect(editeur, &LyTextEdit::FermetureTextEdit, this, &RamelierApp::slotGestionListeEditeurs);
    connect(this, &RamelierApp::fermetureRamelier, editeur, &LyTextEdit::slotFileQuit);
    editeur->suivant = listeEditeurs;
    listeEditeurs = editeur;
    if (!QFileInfo::exists(chemin))
        editeur->CommenceLaFiche(chemin, nom);
    editeur->setWindowTitle(editeur->titre);
}

bool RamelierApp::OteDeLaChaine(LyTextEdit *editeur)
{
    QPointer<LyTextEdit> *maillon = &listeEditeurs;
    while (*maillon && *maillon != editeur)
        maillon = &(*maillon)->suivant;
    if (!*maillon)
        return false;
    *maillon = editeur->suivant;
    return true;
}

void RamelierApp::slotGestionListeEditeurs(LyTextEdit *editeur)
{
    if (!OteDeLaChaine(editeur))
        return;
    // It is still closing: it goes when it has done so.
    editeur->disconnect(this);
    disconnect(editeur);
    editeur->deleteLater();
}

void RamelierApp::FermeLesEditeurs()
{
    while (LyTextEdit *editeur = listeEditeurs) {
        OteDeLaChaine(editeur);
        QEventLoop attente;
        connect(editeur, &LyTextEdit::FermetureTextEdit, &attente, &QEventLoop::quit);
        editeur->slotFileQuit();
        // Its user would rather keep the text: the program waits for it.
        if (editeur->isVisible())
            attente.exec();
        delete editeur;
    }
}
