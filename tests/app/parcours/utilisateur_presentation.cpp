#include "utilisateur.h"

#include "dlgoptdessin.h"
#include "dlgpolices.h"
#include "dlgpreferences.h"
#include "fenetre.h"
#include "ramelierdoc.h"

#include <QAbstractButton>
#include <QAction>
#include <QColorDialog>
#include <QFileInfo>
#include <QMessageBox>
#include <QSpinBox>
#include <QStatusBar>
#include <QToolBar>
#include <QWhatsThis>

// Modes, formats, fonts, preferences, bars, and what is told about the program.

namespace {

/// How a user leaves a dialog of lengths and fonts.
struct Reglage
{
    bool accepte;
    bool rend;  ///< pushes the button that restores
    Qt::Key touche;
    int fois;
    bool police;   ///< opens the font dialog
    bool couleur;  ///< opens the colour dialog
};

Reglage TireReglage(Tirage &tirage)
{
    return {.accepte = tirage.Chance(60),
            .rend = tirage.Chance(25),
            .touche = tirage.Chance(50) ? Qt::Key_Up : Qt::Key_Down,
            .fois = tirage.Parmi(4),
            .police = tirage.Chance(30),
            .couleur = tirage.Chance(30)};
}

void ChangeLaDistance(const Reglage &reglage, QSpinBox &champ)
{
    for (int i = 0; i < reglage.fois && champ.value() > 2; ++i)
        QTest::keyClick(&champ, reglage.touche);
}

void AttendCouleur(PiloteDialogues &pilote, Tirage &tirage)
{
    const bool accepte = tirage.Chance(60);
    const QColor choisie(tirage.Parmi(256), tirage.Parmi(256), tirage.Parmi(256));
    pilote.Attend<QColorDialog>([accepte, choisie](QColorDialog &dialogue) {
        dialogue.setCurrentColor(choisie);
        static_cast<QDialog &>(dialogue).done(accepte ? QDialog::Accepted : QDialog::Rejected);
        return QString();
    });
}

void AttendPolice(PiloteDialogues &pilote, Tirage &tirage)
{
    const bool accepte = tirage.Chance(60);
    const int taille = 7 + tirage.Parmi(6);
    pilote.AttendPolice(taille, accepte);
}

}  // namespace

void Utilisateur::ChangeLeMode()
{
    Lance(fenetre->actModeTravail);
    if (modele.arbreOuvert) {
        modele.BasculeMode();
        partie.NoteLeFait(modele.consultation ? "consultation" : "édition");
    }
}

void Utilisateur::ChangeLAffichage()
{
    Lance(fenetre->actModeAffichage);
    partie.NoteLeFait(fenetre->affichageComplet ? "affichage complet" : "affichage réduit");
    if (fenetre->actModeAffichage->isChecked() != fenetre->affichageComplet)
        ecartDuGeste = QStringLiteral("affichage complet ou réduit");
}

void Utilisateur::ChangeLesFormats()
{
    if (!modele.arbreOuvert)
        return Lance(fenetre->actFormatsDessins);
    const Reglage reglage = TireReglage(tirage);
    pilote.Attend<DlgOptDessin>([reglage](DlgOptDessin &dialogue) {
        if (reglage.rend)
            dialogue.pbValeursParDefaut->click();
        if (reglage.couleur)
            dialogue.pbModifCouleur->click();
        ChangeLaDistance(reglage, *dialogue.sbDMinHoriz);
        (reglage.accepte ? dialogue.OKButton : dialogue.CancelButton)->click();
        return QString();
    });
    if (reglage.couleur)
        AttendCouleur(pilote, tirage);
    Lance(fenetre->actFormatsDessins);
    partie.NoteLeFait(reglage.accepte ? "formats changés" : "formats abandonnés");
    // This command leaves the field of the status bar as it was.
    modele.optionsModifiees = modele.optionsModifiees || reglage.accepte;
}

void Utilisateur::ChangeLesPolices()
{
    if (!modele.arbreOuvert)
        return Lance(fenetre->actPoliceCaract);
    const Reglage reglage = TireReglage(tirage);
    pilote.Attend<DlgPolices>([reglage](DlgPolices &dialogue) {
        if (reglage.rend)
            dialogue.pbPolicesParDefaut->click();
        if (reglage.police)
            dialogue.pbModifPolTitre->click();
        if (reglage.couleur)
            dialogue.pbModifCouleur->click();
        (reglage.accepte ? dialogue.OKButton : dialogue.CancelButton)->click();
        return QString();
    });
    if (reglage.police)
        AttendPolice(pilote, tirage);
    if (reglage.couleur)
        AttendCouleur(pilote, tirage);
    Lance(fenetre->actPoliceCaract);
    partie.NoteLeFait(reglage.accepte ? "polices changées" : "polices abandonnées");
    modele.optionsModifiees = modele.optionsModifiees || reglage.accepte;
}

void Utilisateur::ChangeLesPreferences()
{
    const Reglage reglage = TireReglage(tirage);
    pilote.Attend<DlgPreferences>([reglage](DlgPreferences &dialogue) {
        if (reglage.rend)
            dialogue.pbValParDef->click();
        if (reglage.police)
            dialogue.pbModifPolTextes->click();
        if (reglage.couleur)
            dialogue.pbModifCouleurTraits->click();
        ChangeLaDistance(reglage, *dialogue.sbDMinVert);
        (reglage.accepte ? dialogue.accept() : dialogue.reject());
        return QString();
    });
    if (reglage.police)
        AttendPolice(pilote, tirage);
    if (reglage.couleur)
        AttendCouleur(pilote, tirage);
    const FormatsDessins avant = fenetre->doc->formats;
    Lance(fenetre->actPreferences);
    partie.NoteLeFait(reglage.accepte ? "préférences changées" : "préférences abandonnées");
    if (reglage.accepte && !QFileInfo::exists(fenetre->doc->fichierPreferences))
        ecartDuGeste = QStringLiteral("préférences non écrites");
    // Where the tree takes them, it is only painted again: laid out anew at the next change.
    const FormatsDessins &apres = fenetre->doc->formats;
    dispositionPerimee = dispositionPerimee || apres.distMinVert != avant.distMinVert
        || apres.distMinHoriz != avant.distMinHoriz || apres.largeurCadre != avant.largeurCadre
        || apres.hauteurCadre != avant.hauteurCadre;
}

void Utilisateur::MontreOuCacheUneBarre()
{
    const bool outils = tirage.Chance(50);
    Lance(outils ? fenetre->actViewToolBar : fenetre->actViewStatusBar);
    if (fenetre->barreOutils->isVisible() != fenetre->actViewToolBar->isChecked()
        || fenetre->statusBar()->isVisible() != fenetre->actViewStatusBar->isChecked())
        ecartDuGeste = QStringLiteral("barres montrées ou cachées");
    partie.NoteLeFait(outils ? "barre d'outils" : "barre de statut");
}

void Utilisateur::DemandeQuiEstCe()
{
    if (tirage.Chance(50)) {
        pilote.AttendBoite("A propos...",
                           "Ramelier - Arbre généalogique\nVersion 5.1\n\nDessine, conserve et imprime un arbre "
                           "généalogique ascendant,\nnuméroté selon Sosa-Stradonitz.",
                           "OK");
        partie.NoteLeFait("à propos");
        return Lance(fenetre->actHelpAbout);
    }
    pilote.Attend<QMessageBox>([](QMessageBox &boite) {
        const bool juste = boite.windowTitle() == "ramelier - Arbre généalogique" && boite.text().contains("Qt");
        boite.buttons().constFirst()->click();
        return juste ? QString() : boite.windowTitle();
    });
    partie.NoteLeFait("à propos de Qt");
    Lance(fenetre->actHelpAboutQt);
}

void Utilisateur::DemandeQuoi()
{
    Lance(fenetre->actWhatsThis);
    if (!QWhatsThis::inWhatsThisMode())
        ecartDuGeste = QStringLiteral("pas de question « qu'est-ce que c'est »");
    QWhatsThis::leaveWhatsThisMode();
    partie.NoteLeFait("qu'est-ce que c'est");
}
