#include "fiches.h"

#include "champspresentation.h"
#include "dossier.h"
#include "editeur.h"
#include "navigateurfiche.h"
#include "partie.h"

#include <QFileInfo>
#include <QToolBar>

// Browsers, and what an editor shows beside its text.

QString Fiches::ConstateLAfficheur(const QString &debutTitre, LyTextEdit *proprietaire)
{
    const QList<LyTextBrowser *> nouveaux = Inconnues<LyTextBrowser>();
    if (nouveaux.size() != 1)
        return QStringLiteral("%1 afficheurs nouveaux").arg(nouveaux.size());
    affiches += Affiche{nouveaux.constFirst(), debutTitre, proprietaire};
    return {};
}

void Fiches::ImprimeLAfficheur(Affiche &affiche)
{
    LyTextBrowser &vue = *affiche.vue;
    const QString reponse = partie.tirage.Un(QStringList{"Imprimante", "Fichier pdf", "Annuler"});
    partie.pilote.AttendBoite("Choix du mode d'impression", "Imprimer sur imprimante OU dans un fichier pdf ?",
                              reponse);
    if (reponse == "Imprimante")
        partie.pilote.AttendImpression(false);
    const bool possible = QFileInfo(QFileInfo(vue.fichierPdf).absolutePath()).isWritable();
    QFile::remove(vue.fichierPdf);
    vue.actFilePrint->trigger();
    if (QFileInfo::exists(vue.fichierPdf) != (reponse == "Fichier pdf" && possible))
        ecart = QStringLiteral("impression de la fiche : ") + vue.fichierPdf;
    QFile::remove(vue.fichierPdf);
    partie.NoteLeFait("fiche : impression " + reponse);
}

void Fiches::UtiliseLAfficheur(Affiche &affiche)
{
    LyTextBrowser &vue = *affiche.vue;
    const int fait = partie.tirage.Parmi(20);
    if (fait < 8) {
        const QList<QAction *> actions{vue.actSuivant, vue.actPrecedent, vue.actRecharger, vue.actOrigine};
        partie.tirage.Un(actions)->trigger();
        partie.NoteLeFait("afficheur : page");
    } else if (fait < 12) {
        // The first link, or the next one.
        QTest::keyClick(vue.navigateur, Qt::Key_Tab);
        QTest::keyClick(vue.navigateur, Qt::Key_Return);
        partie.NoteLeFait("afficheur : lien");
    } else if (fait < 14) {
        ImprimeLAfficheur(affiche);
    } else if (fait < 15) {
        vue.actViewToolBar->trigger();
        if (vue.barreOutils->isVisible() != vue.actViewToolBar->isChecked())
            ecart = QStringLiteral("barre d'outils de l'afficheur");
        vue.resize(200 + partie.tirage.Parmi(600), 100 + partie.tirage.Parmi(500));
        partie.NoteLeFait("afficheur : barre");
    } else if (fait < 16) {
        partie.pilote.AttendBoite("A propos de l'afficheur de textes...",
                                  "LyTextBrowser - afficheur de textes\nVersion 0.2 pour Windows", "OK");
        vue.actHelpAbout->trigger();
        partie.NoteLeFait("afficheur : à propos");
    } else {
        partie.tirage.Chance(50) ? vue.actFileQuit->trigger() : static_cast<void>(vue.close());
        affiches.removeIf([&vue](const Affiche &candidat) { return candidat.vue == &vue; });
        partie.NoteLeFait("afficheur fermé");
    }
}

void Fiches::Montre(Edite &edite)
{
    if (edite.vue->navigateurOuvert) {
        edite.vue->actAppelleLyTextBrowser->trigger();
        if (!edite.vue->navigateurOuvert || !Inconnues<LyTextBrowser>().isEmpty())
            ecart = QStringLiteral("un second navigateur pour une fiche");
        return partie.NoteLeFait("fiche : montrée encore");
    }
    if (Complet())
        return partie.Note("assez de fenêtres");
    edite.vue->actAppelleLyTextBrowser->trigger();
    // A text that cannot be read has no title.
    const QString defaut = ConstateLAfficheur({}, edite.vue);
    if (!defaut.isEmpty() || edite.vue->navigateurOuvert != affiches.constLast().vue)
        ecart = defaut + QStringLiteral(" navigateur de la fiche");
    partie.NoteLeFait("fiche : montrée");
}

void Fiches::Aide(Edite &edite)
{
    if (Complet())
        return partie.Note("assez de fenêtres");
    edite.vue->actAide->trigger();
    ecart = ConstateLAfficheur("LyEditHtml - ", edite.vue);
    partie.NoteLeFait("fiche : aide");
}

void Fiches::ChangeLaPolice(Edite &edite)
{
    const bool accepte = partie.tirage.Chance(50);
    const int taille = 8 + partie.tirage.Parmi(6);
    partie.pilote.AttendPolice(taille, accepte);
    edite.vue->actPoliceEditeur->trigger();
    if (accepte && edite.vue->policeEditeur.pointSize() != taille)
        ecart = QStringLiteral("police de l'éditeur : ") + edite.vue->policeEditeur.toString();
    partie.NoteLeFait("fiche : police");
}

void Fiches::DemandeQuiEstCe(Edite &edite)
{
    partie.pilote.AttendBoite("A propos...", "LyEditHtml - Editeur de texte avec balises HTML\nVersion 1.0", "OK");
    edite.vue->actHelpAbout->trigger();
    partie.NoteLeFait("fiche : à propos");
}

void Fiches::ChangeLesBarres(Edite &edite)
{
    LyTextEdit &vue = *edite.vue;
    vue.actViewToolBar->trigger();
    vue.actViewStatusBar->trigger();
    if (vue.barreOutils->isVisible() != vue.actViewToolBar->isChecked()
        || vue.statusBar()->isVisible() != vue.actViewStatusBar->isChecked())
        ecart = QStringLiteral("barres de l'éditeur");
    vue.resize(200 + partie.tirage.Parmi(600), 100 + partie.tirage.Parmi(500));
    partie.NoteLeFait("fiche : barres");
}
