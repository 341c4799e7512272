#include "ramelierapp.h"

#include "tableactions.h"

void RamelierApp::initActions()
{
    using App = RamelierApp;
    // Member, text, shortcut, icon, status tip, what's this, slot. Some texts look odd; they are meant to be as they are.
    static const DefAction<App> actions[] = {
        {&App::actFileNew, "&Nouveau", "Ctrl+N", ":/images/filenew.png", "Création d'un nouvel arbre généalogique",
         "Nouveau\n\nCréation d'un nouvel arbre généalogique", &App::slotFileNew},
        {&App::actFileOpen, "&Ouvrir", "Ctrl+O", ":/images/fileopen.png",
         "Ouvre le fichier d'un arbre existant (extension .xrlg ou .rlg)",
         "Ouvrir\n\nOuvre le fichier d'un arbre existant (extension .xrlg ou .rlg)", &App::slotFileOpen},
        {&App::actFileSave, "&Sauver", "Ctrl+S", ":/images/filesave.png",
         "Enregistre l'arbre affiché (dans un fichier .xrlg)",
         "Sauver\n\nEnregistre l'arbre affiché (dans un fichier .xrlg)", &App::slotFileSave},
        {&App::actFileSaveAs, "Sau&ver sous...", "", "", "Enregistre l'arbre affiché dans un autre fichier .xrlg",
         "Sauver sous\n\nEnregistre l'arbre affiché dans un autre fichier .xrlg", &App::slotFileSaveAs},
        {&App::actFilePrint, "&Imprimer...", "Ctrl+P", ":/images/printer.png", "Imprime l'arbre affiché",
         "Imprimer\n\nImprime l'arbre affiché", &App::slotFilePrint},
        {&App::actFileQuit, "&Quitter", "Ctrl+Q", "", "Quitte l'application", "Quitter\n\nQuitte l'application",
         &App::slotFileQuit},
        {&App::actAnnuler, "&Annuler", "", "", "Annule l'opération d'édition précédente",
         "Annuler\n\nAnnule l'opération d'édition précédente", &App::slotAnnuler},
        {&App::actModifier, "&Modifier la personne sélectionnée", "", "", "Modifier la personne sélectionnée",
         "Modifier...\n\nModifier la personne sélectionnée", &App::slotModifier},
        {&App::actSuppPers, "S&upprimer la personne sélectionnée", "", "", "Supprimer la personne sélectionnée",
         "Supprimer la personne sélectionnée\n\nSupprimer la personne sélectionnée", &App::slotSuppPers},
        {&App::actAjouterPere, "Ajouter le père", "", "", "Ajouter le père de la personne sélectionnée",
         "Ajouter le père\n\nAjouter le père de la personne sélectionnée", &App::slotAjouterPere},
        {&App::actAjouterMere, "Ajouter la mère", "", "", "Ajouter la mère de la personne sélectionnée",
         "Ajouter la mère\n\nAjouter la mère de la personne sélectionnée", &App::slotAjouterMere},
        {&App::actEditFicheHTML, "Editer la fiche associée", "", "",
         "Editer la fiche (HTML ou TXT) associée à la personne sélectionnée (si elle existe)",
         "Editer la fiche associée\n\nEditer la fiche (HTML ou TXT) associée à la personne sélectionnée\n"
         "pour la modifier (si elle fiche existe) ou la créer",
         &App::slotEditFicheHTML},
        {&App::actEditPdG, "Edition &Page de garde...", "", "",
         "Edite la page de garde : titre de l'arbre, auteur, date de création ou modification",
         "Edition Page de garde\n\nEdite la page de garde : titre de l'arbre, auteur, date de création ou "
         "modification",
         &App::slotEditPdG},
        {&App::actFormatsDessins, "Options de dessin... ", "", "",
         "Définition des dimensions et de l'épaisseur des traits (pour l'arbre ouvert)",
         "Options de dessin\n\nDéfinir l'épaisseur des traits,\nles dimensions des cadres, \n"
         "les distances entre cadres\n(pour l'arbre ouvert)",
         &App::slotFormatsDessins},
        {&App::actPoliceCaract, "Caractères...", "", "", "Définition des polices de caractères (pour l'arbre ouvert)",
         "Caractères\n\nDéfinir les polices et les tailles des caractères\n(pour l'arbre ouvert)",
         &App::slotPoliceCaract},
        {&App::actPreferences, "Préférences...", "", "", "Préférences pour polices et dessins",
         "Préférences\n\nDéfinir les polices et les tailles des caractères\net les formats de dessins par défaut",
         &App::slotPreferences},
        {&App::actModeTravail, "Mode Edition/modification", "F8", ":/images/consedit.png",
         "Passer du mode Consultation au mode Edition et vice-versa",
         "Mode...\n\nPasser du mode Consultation au mode Edition et vice-versa", &App::slotModeTravail},
        {&App::actAffFicheHTML, "Afficher la fiche associée", "", "",
         "Afficher la fiche (HTML ou TXT) associée à la personne sélectionnée (si elle existe)",
         "Afficher la fiche associée\n\nAfficher la fiche (HTML ou TXT) associée à la personne sélectionnée\n"
         "(si cette fiche existe)",
         &App::slotAffFicheHTML},
        {&App::actViewToolBar, "Barre d'outils", "", "", "Active/désactive la barre d'outils",
         "Barre d'outils\n\nActive/désactive la barre d'outils", nullptr, &App::slotViewToolBar},
        {&App::actViewStatusBar, "Barre de &statut", "", "", "Active/désactive la barre de statut",
         "Barre de statut\n\nActive/désactive la barre de statut", nullptr, &App::slotViewStatusBar},
        {&App::actModeAffichage, "Affichage complet de l'arbre", "", "",
         "Passer du mode Affichage complet au mode Affichage réduit et vice-versa",
         "Passer du mode Affichage complet au mode Affichage réduit et vice-versa", nullptr, &App::slotModeAffichage},
        {&App::actAssembleArbres, "Assembler deux arbres...", "", "",
         "Créer un arbre à partir des arbres du père et de la mère",
         "Assembler deux arbres\n\nPermet de créer automatiquement un arbre à partir des arbres du père et de "
         "la mère",
         &App::slotAssembleArbres},
        {&App::actImporteGED, "Importer un fichier GEDCOM...", "", "", "Importer un arbre au format GEDCOM",
         "Importer un fichier GEDCOM\n\nPermet de créer un arbre à partir d'un fichier GEDCOM",
         &App::slotImporteFichierGED},
        {&App::actExporteGED, "Exporter vers un fichier GEDCOM...", "", "",
         "Exporter l'arbre vers un fichier au format GEDCOM",
         "Exporter vers un fichier GEDCOM\n\nPermet d'exporter l'arbre vers un fichier GEDCOM",
         &App::slotExporteVersFichierGED},
        {&App::actAide, "Manuel d'aide d'Arbre généalogique", "F1", "", "Aide de l'application",
         "Aide\n\nManuel de l'application Arbre généalogique", &App::slotAide},
        {&App::actHelpAbout, "A propos d'Arbre généalogique", "", "", "A propos de l'application",
         "A propos\n\nA propos de l'application", &App::slotHelpAbout},
        {&App::actHelpAboutQt, "A propos de Qt", "", "", "A propos de l'outil de développement de l'application",
         "A propos de Qt\n\nA propos de l'outil de développement l'application", &App::slotHelpAboutQt},
    };
    CreeActions(this, actions);
    actWhatsThis = NouvelleActionQuEstCe(this);
    resetMenus();
}
