#include "lytextedit.h"

#include "tableactions.h"

#include <QActionGroup>

void LyTextEdit::initActions()
{
    using Vue = LyTextEdit;
    // Member, text, shortcut, icon, status tip, what's this, slot.
    static const DefAction<Vue> actions[] = {
        {&Vue::actFileNew, "&Nouveau", "Ctrl+N", ":/images/filenew.png", "Création d'un nouveau texte",
         "Nouveau\n\nCréation d'un nouveau texte", &Vue::slotFileNew},
        {&Vue::actFileOpen, "&Ouvrir", "Ctrl+O", ":/images/fileopen.png", "Ouvre un fichier texte existant",
         "Ouvrir\n\nOuvre un fichier texte existant", &Vue::slotFileOpen},
        {&Vue::actFileSave, "&Sauver", "Ctrl+S", ":/images/filesave.png", "Enregistre le texte édité",
         "Sauver\n\nEnregistre le texte édité", nullptr},
        {&Vue::actFileSaveAs, "Sau&ver sous...", "", "", "Enregistre le texte édité dans un autre fichier",
         "Sauver sous\n\nEnregistre le texte édité dans un autre fichier", nullptr},
        {&Vue::actEditAnnuler, "Annuler", "Ctrl+Z", ":/images/defaire.png", "Annule les dernières actions d'édition",
         "Annuler\n\nAnnule les dernières actions d'édition", &Vue::slotEditAnnuler},
        {&Vue::actEditRefaire, "Refaire", "Ctrl+Y", ":/images/refaire.png", "Annule la dernière action d'annulation",
         "Refaire\n\nAnnule la dernière action d'annulation", &Vue::slotEditRefaire},
        {&Vue::actEditCut, "Co&uper", "Ctrl+X", ":/images/couper.png",
         "Coupe le texte sélectionné et le place dans le presse-papier",
         "Couper\n\nCoupe le texte sélectionné et le place dans le presse-papier", &Vue::slotEditCut},
        {&Vue::actEditCopy, "&Copier", "Ctrl+C", ":/images/copier.png",
         "Copie le texte sélectionné et le place dans le presse-papier",
         "Copier\n\nCopie le texte sélectionné et le place dans le presse-papier", &Vue::slotEditCopy},
        {&Vue::actEditPaste, "Co&ller", "Ctrl+V", ":/images/coller.png",
         "Insère le contenu du presse-papier à la position actuelle du curseur",
         "Coller\n\nInsère le contenu du presse-papier à la position actuelle du curseur", &Vue::slotEditPaste},
        {&Vue::actEditCherche, "Chercher...", "Ctrl+F", ":/images/chercher.png",
         "Recherche d'un mot ou d'une expression", "Chercher\n\nCherche un mot ou une expression",
         &Vue::slotEditCherche},
        {&Vue::actEditReplace, "&Remplacer...", "Ctrl+R", "", "Remplacement de mot(s) par autre(s) mot(s)",
         "Remplacer\n\nRemplace un (ou des) mot(s) par d'autres", &Vue::slotEditReplace},
        {&Vue::actEditReplaceEncore, "Répéter chercher/remplacer", "F3", "",
         "Répète l'action de recherche ou de remplacement précédente",
         "Répéter chercher/remplacer\n\nRépète l'action de recherche ou de remplacement précédente",
         &Vue::slotEditReplaceEncore},
        {&Vue::actAppelleLyTextBrowser, "Voir dans le navigateur", "", ":/images/navigateur.png",
         "Montre le texte dans un navigateur", "Voir dans le navigateur\n\nMontre le texte dans un navigateur",
         &Vue::slotAppelleLyTextBrowser},
        {&Vue::actViewToolBar, "Barre d'outils", "", "", "Active/désactive la barre d'outils",
         "Barre d'outils\n\nActive/désactive la barre d'outils", nullptr, &Vue::slotViewToolBar},
        {&Vue::actViewToolBarB, "Barre d'outils HTML", "", "", "Active/désactive la barre d'outils HTML",
         "Barre d'outils HTML\n\nActive/désactive la barre d'outils HTML", nullptr, &Vue::slotViewToolBarB},
        {&Vue::actViewStatusBar, "Barre de &statut", "", "", "Active/désactive la barre de statut",
         "Barre de statut\n\nActive/désactive la barre de statut", nullptr, &Vue::slotViewStatusBar},
        {&Vue::actPoliceEditeur, "Police Editeur", "", "", "", "Police Editeur", &Vue::slotPoliceEditeur},
        {&Vue::actAide, "Manuel d'aide de l'éditeur Html", "F1", "", "Aide de l'application",
         "Manuel d'aide de l'éditeur Html\n\nAide de l'application", &Vue::slotAide},
        {&Vue::actHelpAbout, "A propos de l'éditeur de textes", "", "", "", "A propos de l'éditeur de textes",
         &Vue::slotHelpAbout},
        {&Vue::actHelpAboutQt, "A propos de Qt", "", "", "A propos de l'outil de développement de l'application",
         "A propos de Qt\n\nA propos de l'outil de développement de l'application", &Vue::slotHelpAboutQt},
    };
    CreeActions(this, actions);
    connect(actFileSave, &QAction::triggered, this, &LyTextEdit::slotFileSave);
    connect(actFileSaveAs, &QAction::triggered, this, &LyTextEdit::slotFileSaveAs);
    actFileQuit = autonome
        ? NouvelleAction(this, "&Quitter", "Ctrl+Q", "", "Quitte l'application", "Quitter\n\nQuitte l'application")
        : NouvelleAction(this, "&Fermer", "Ctrl+Q", "", "Ferme cette fenêtre", "Fermer\n\nFerme cette fenêtre");
    connect(actFileQuit, &QAction::triggered, this, &LyTextEdit::slotFileQuit);
    for (QAction *action : {actEditAnnuler, actEditRefaire, actEditCut, actEditCopy})
        action->setEnabled(false);
    initActionsHtml();
}

void LyTextEdit::initActionsHtml()
{
    using Vue = LyTextEdit;
    // Member, text, shortcut, icon, status tip, what's this, slot.
    static const DefAction<Vue> actions[] = {
        {&Vue::actCarGras, "Gras", "Ctrl+Alt+G", ":/images/cargras.png", "Texte en caractères gras",
         "Gras\n\nTexte en caractères gras", &Vue::slotCarGras},
        {&Vue::actCarItalic, "Italic", "Ctrl+Alt+I", ":/images/italic.png", "Texte en italique",
         "Italic\n\nTexte en italique", &Vue::slotCarItalic},
        {&Vue::actCarSouligne, "Souligné", "Ctrl+Alt+U", ":/images/souligne.png", "Texte souligné",
         "Souligné\n\nTexte souligné", &Vue::slotCarSouligne},
        {&Vue::actCarPreformate, "Préformaté", "Ctrl+Alt+F", ":/images/carpre.png",
         "Texte préformaté : blancs et fins de ligne sont conservés",
         "Préformaté\n\nTexte préformaté : blancs et fins de ligne sont conservés", &Vue::slotCarPreformate},
        {&Vue::actGauche, "Aligné à gauche", "", ":/images/gauche.png", "Justification à gauche",
         "Aligné à gauche\n\nJustification à gauche", nullptr},
        {&Vue::actCentre, "Centré", "", ":/images/centre.png", "Justification centrée",
         "Centré\n\nJustification centrée", nullptr},
        {&Vue::actDroite, "Aligné à droite", "", ":/images/droite.png", "Justification à droite",
         "Aligné à droite\n\nJustification à droite", nullptr},
        {&Vue::actJustifie, "Justifié", "", ":/images/justifie.png", "Justification (aligné à gauche et à droite)",
         "Justifié\n\nJustification (aligné à gauche et à droite)", nullptr},
        {&Vue::actSqueletteHtml, "Corps...", "", ":/images/squelettehtml.png", "Insère le corps d'une page HTML vide",
         "Corps\n\nInsère le corps d'une page HTML vide", &Vue::slotSqueletteHtml},
        {&Vue::actParagraphe, "Paragraphe", "Ctrl+Alt+P", ":/images/paragraphe.png", "Insère un paragraphe",
         "Paragraphe\n\nInsère un paragraphe", &Vue::slotParagraphe},
        {&Vue::actAlaLigne, "Aller à la ligne", "Ctrl+Alt+K", ":/images/alaligne.png", "Insère un retour à la ligne",
         "Aller à la ligne\n\nInsère un retour à la ligne", &Vue::slotAlaLigne},
        {&Vue::actLigneHoriz, "Ligne horizontale", "", ":/images/lignehoriz.png", "Insère une ligne horizontale",
         "Ligne horizontale\n\nInsère une ligne horizontale", &Vue::slotLigneHoriz},
        {&Vue::actBlancInsec, "Espace insécable", "Ctrl+Alt+N", ":/images/blancinsec.png", "Insère un espace insécable",
         "Espace insécable\n\nInsère un espace insécable", &Vue::slotBlancInsec},
        {&Vue::actTitre1, "Titre de niveau 1", "Ctrl+Alt+1", ":/images/h1icon.png", "Insère un titre de niveau 1",
         "Titre de niveau 1\n\nInsère un titre de niveau 1", &Vue::slotTitre1},
        {&Vue::actTitre2, "Titre de niveau 2", "Ctrl+Alt+2", ":/images/h2icon.png", "Insère un titre de niveau 2",
         "Titre de niveau 2\n\nInsère un titre de niveau 2", &Vue::slotTitre2},
        {&Vue::actTitre3, "Titre de niveau 3", "Ctrl+Alt+3", ":/images/h3icon.png", "Insère un titre de niveau 3",
         "Titre de niveau 3\n\nInsère un titre de niveau 3", &Vue::slotTitre3},
        {&Vue::actTitre4, "Titre de niveau 4", "Ctrl+Alt+4", "", "Insère un titre de niveau 4",
         "Titre de niveau 4\n\nInsère un titre de niveau 4", &Vue::slotTitre4},
        {&Vue::actTitre5, "Titre de niveau 5", "Ctrl+Alt+5", "", "Insère un titre de niveau 5",
         "Titre de niveau 5\n\nInsère un titre de niveau 5", &Vue::slotTitre5},
        {&Vue::actTitre6, "Titre de niveau 6", "Ctrl+Alt+6", "", "Insère un titre de niveau 6",
         "Titre de niveau 6\n\nInsère un titre de niveau 6", &Vue::slotTitre6},
        {&Vue::actListeSimple, "Liste simple", "Shift+Alt+L", ":/images/listesimple.png", "Insère une liste à puces",
         "Liste simple\n\nInsère une liste à puces", &Vue::slotListeSimple},
        {&Vue::actListeOrdo, "Liste ordonnée", "Shift+Alt+O", ":/images/listeordo.png", "Insère une liste numérotée",
         "Liste ordonnée\n\nInsère une liste numérotée", &Vue::slotListeOrdo},
        {&Vue::actElemListe, "Elément de liste", "Shift+Alt+E", ":/images/elemliste.png", "Insère un élément de liste",
         "Elément de liste\n\nInsère un élément de liste", &Vue::slotElemListe},
        {&Vue::actListeDef, "Liste de définitions", "", ":/images/listedef.png", "Insère une liste de définitions",
         "Liste de définitions\n\nInsère une liste de définitions", &Vue::slotListeDef},
        {&Vue::actTermDef, "Terme défini", "", ":/images/termdef.png", "Insère un terme à définir",
         "Terme défini\n\nInsère un terme à définir", &Vue::slotTermDef},
        {&Vue::actDefinition, "Définition", "", ":/images/definition.png", "Insère la définition d'un terme",
         "Définition\n\nInsère la définition d'un terme", &Vue::slotDefinition},
        {&Vue::actTableaux, "Tableaux", "Ctrl+Alt+T", ":/images/tableaux.png", "Insère un tableau",
         "Tableaux\n\nInsère un tableau", &Vue::slotTableaux},
        {&Vue::actLienHypText, "Lien hyper-texte", "", ":/images/lienhyptext.png", "Insère un lien vers une page",
         "Lien hyper-texte\n\nInsère un lien vers une page", &Vue::slotLienHypText},
        {&Vue::actNameAncre, "Ancre hyper-texte", "", ":/images/ancre.png", "Insère un repère où un lien peut mener",
         "Ancre hyper-texte\n\nInsère un repère où un lien peut mener", &Vue::slotNameAncre},
        {&Vue::actImage, "Image", "", ":/images/image.png", "Insère une image", "Image\n\nInsère une image",
         &Vue::slotImage},
    };
    CreeActions(this, actions);
    AccepteLesChiffresSansMajuscule();
    groupeAlignement = new QActionGroup(this);
    for (QAction *action : {actGauche, actCentre, actDroite, actJustifie}) {
        action->setCheckable(true);
        groupeAlignement->addAction(action);
    }
    actGauche->setChecked(true);
    connect(groupeAlignement, &QActionGroup::triggered, this, &LyTextEdit::slotTextAlign);
}

void LyTextEdit::AccepteLesChiffresSansMajuscule()
{
    // The keys 1 to 6 of a French keyboard give these without Shift; the menus show the digits.
    QAction *const titres[] = {actTitre1, actTitre2, actTitre3, actTitre4, actTitre5, actTitre6};
    static constexpr int touches[] = {Qt::Key_Ampersand,  Qt::Key_Eacute,    Qt::Key_QuoteDbl,
                                      Qt::Key_Apostrophe, Qt::Key_ParenLeft, Qt::Key_Minus};
    for (std::size_t i = 0; i < std::size(titres); ++i) {
        titres[i]->setShortcuts(
            {titres[i]->shortcut(),
             QKeySequence(QKeyCombination(Qt::ControlModifier | Qt::AltModifier, static_cast<Qt::Key>(touches[i])))});
    }
}

QList<QAction *> LyTextEdit::ActionsHtml() const
{
    return {actCarGras,    actCarItalic,   actCarSouligne,   actCarPreformate, actGauche,   actCentre,
            actDroite,     actJustifie,    actSqueletteHtml, actParagraphe,    actAlaLigne, actLigneHoriz,
            actBlancInsec, actTitre1,      actTitre2,        actTitre3,        actTitre4,   actTitre5,
            actTitre6,     actListeSimple, actListeOrdo,     actElemListe,     actListeDef, actTermDef,
            actDefinition, actTableaux,    actLienHypText,   actNameAncre,     actImage};
}
