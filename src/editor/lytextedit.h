#pragma once

#include <QFont>
#include <QMainWindow>
#include <QPointer>
#include <QStringConverter>

#include <memory>

class CopieDeFiche;
class HighlighterHtml;
class LyTextBrowser;
class QActionGroup;
class QLabel;
class QMenu;
class QToolBar;
class monQTextEdit;

/// A window that edits one sheet, HTML source with commands for its tags or plain text. Does not delete itself: closed, it
/// is hidden, and whoever made it deletes it, never inside its FermetureTextEdit signal. Whoever keeps a pointer to one
/// keeps a QPointer.
class LyTextEdit : public QMainWindow
{
    Q_OBJECT

public:
    /// Opens \a fichier, or starts a new text when it is empty, and shows itself. \a seul: it is a program of its own, and
    /// \a programme the path of its binary; otherwise \a programme is the folder of the program that it belongs to. The
    /// window's title begins with \a debutTitre, a blank and \a complementTitre. A file that cannot be read is reported.
    LyTextEdit(const QString &debutTitre, const QString &fichier, bool seul, const QString &programme,
               const QString &complementTitre);
    ~LyTextEdit() override;

    /// The charset of every sheet read and written: ISO 8859-1. What it lacks is written as "?".
    static constexpr QStringConverter::Encoding codec = QStringConverter::Latin1;

    /// The sheet \a chemin, which does not exist yet, is what is edited; \a nom is added to the window's title.
    void CommenceLaFiche(const QString &chemin, const QString &nom);

    QPointer<LyTextEdit> suivant;  ///< the next editor in the main window's chain
    QString repApplication;        ///< folder of the program
    QString repAide;               ///< folder of the help manual
    QString dernierRep;            ///< last folder used in a file dialog
    QString titreBase;             ///< what every title begins with
    QString titre;                 ///< the title last composed
    QString fichierCourant;        ///< path of the sheet; empty for a new text
    QString nomCourt;              ///< its name without folder
    bool autonome;
    bool modeHtml = true;
    QFont policeEditeur;
    QString alignement;  ///< attribute for paragraphs and headings; empty to the left
    QString texteCherche;
    QString texteRemplacement;  ///< empty: a search replaces nothing
    bool casseRespectee = true;
    monQTextEdit *texte;
    HighlighterHtml *highlighter;
    std::unique_ptr<CopieDeFiche> secours;  ///< keeps a copy of the unsaved text
    QPointer<LyTextBrowser> navigateurOuvert;
    QLabel *labelAlignement = nullptr;
    QLabel *labelInsertion = nullptr;
    QLabel *labelInfoModif = nullptr;
    QMenu *menuFichier = nullptr;
    QMenu *menuEdition = nullptr;
    QMenu *menuHtml = nullptr;
    QMenu *menuAffichage = nullptr;
    QMenu *menuAide = nullptr;
    QToolBar *barreOutils = nullptr;
    QToolBar *barreHtml = nullptr;
    QActionGroup *groupeAlignement = nullptr;
    QAction *actFileNew = nullptr;
    QAction *actFileOpen = nullptr;
    QAction *actFileSave = nullptr;
    QAction *actFileSaveAs = nullptr;
    QAction *actFileQuit = nullptr;
    QAction *actEditAnnuler = nullptr;
    QAction *actEditRefaire = nullptr;
    QAction *actEditCut = nullptr;
    QAction *actEditCopy = nullptr;
    QAction *actEditPaste = nullptr;
    QAction *actEditCherche = nullptr;
    QAction *actEditReplace = nullptr;
    QAction *actEditReplaceEncore = nullptr;
    QAction *actCarGras = nullptr;
    QAction *actCarItalic = nullptr;
    QAction *actCarSouligne = nullptr;
    QAction *actCarPreformate = nullptr;
    QAction *actGauche = nullptr;
    QAction *actCentre = nullptr;
    QAction *actDroite = nullptr;
    QAction *actJustifie = nullptr;
    QAction *actSqueletteHtml = nullptr;
    QAction *actParagraphe = nullptr;
    QAction *actAlaLigne = nullptr;
    QAction *actLigneHoriz = nullptr;
    QAction *actBlancInsec = nullptr;
    QAction *actTitre1 = nullptr;
    QAction *actTitre2 = nullptr;
    QAction *actTitre3 = nullptr;
    QAction *actTitre4 = nullptr;
    QAction *actTitre5 = nullptr;
    QAction *actTitre6 = nullptr;
    QAction *actListeSimple = nullptr;
    QAction *actListeOrdo = nullptr;
    QAction *actElemListe = nullptr;
    QAction *actListeDef = nullptr;
    QAction *actTermDef = nullptr;
    QAction *actDefinition = nullptr;
    QAction *actTableaux = nullptr;
    QAction *actLienHypText = nullptr;
    QAction *actNameAncre = nullptr;
    QAction *actImage = nullptr;
    QAction *actAppelleLyTextBrowser = nullptr;
    QAction *actViewToolBar = nullptr;
    QAction *actViewToolBarB = nullptr;
    QAction *actViewStatusBar = nullptr;
    QAction *actPoliceEditeur = nullptr;
    QAction *actAide = nullptr;
    QAction *actHelpAbout = nullptr;
    QAction *actHelpAboutQt = nullptr;

    /// Shows the text of the file \a f. False after a box when it cannot be read; the text then stays.
    bool loadFile(const QString &f);
    /// Writes the text into the file \a f, which keeps its old content or gets the whole new one. False after a box when
    /// it cannot be written; file name and text then stay as they were.
    bool saveFile(const QString &f);
    /// What a save of the text writes. \a complets becomes false when the charset lacks some of it.
    [[nodiscard]] QByteArray OctetsAEnregistrer(bool *complets = nullptr) const;
    /// \a f is the file that is edited; the title says so.
    void setCurrentFile(const QString &f);
    /// HTML mode or text mode by the name of the file.
    void setHtmlOuTxt(const QString &f);
    /// Enables (true!) or disables the HTML commands and shows or hides their tool bar.
    void disableHtml(bool b);
    /// Offers to save before the text goes. \a continuer tells whether it was saved when the user wished so, is cleared
    /// when they would rather keep it, and stays when they give it up.
    void proposeSauvegarde(bool *continuer);
    /// Offers to save before closing; false when the window stays.
    bool queryExit();
    /// The same for every editor that is open and has something to save.
    [[nodiscard]] static bool TousPeuventFermer();
    /// Nothing may be asked any more: the unsaved text of every editor that is open goes into a rescue copy.
    static void MetLesFichesEnSurete();
    /// Puts the selected text between two tags, then moves the cursor as decaleCurseur when one of the numbers is not 0.
    void insertTag(const QString &ouvrante, const QString &fermante, int decalCar, int decalBloc);
    /// Moves the cursor by \a decalCar characters, then, unless \a decalBloc is 0, to the start of the line: of its own,
    /// or with a negative number of one further up. Stops at the first line.
    void decaleCurseur(int decalCar, int decalBloc);
    /// A line break after the selection or at the cursor.
    void finLigne();
    [[nodiscard]] bool isTextSelected() const;
    void readSettings();
    void writeSettings();

public Q_SLOTS:
    void slotFileNew();
    void slotFileOpen();
    bool slotFileSave();
    bool slotFileSaveAs();
    void slotFileQuit();
    void slotEditAnnuler();
    void slotEditRefaire();
    void slotEditCut();
    void slotEditCopy();
    void slotEditPaste();
    void slotEditCherche();
    void slotEditReplace();
    /// Finds the next occurrence after the cursor, and replaces it when there is something to put in its place.
    void slotEditReplaceEncore();
    void slotCarGras();
    void slotCarItalic();
    void slotCarSouligne();
    void slotCarPreformate();
    void slotTextAlign(QAction *action);
    void slotSqueletteHtml();
    void slotParagraphe();
    void slotAlaLigne();
    void slotLigneHoriz();
    void slotBlancInsec();
    void slotTitre1();
    void slotTitre2();
    void slotTitre3();
    void slotTitre4();
    void slotTitre5();
    void slotTitre6();
    void slotListeSimple();
    void slotListeOrdo();
    void slotElemListe();
    void slotListeDef();
    void slotTermDef();
    void slotDefinition();
    void slotTableaux();
    void slotLienHypText();
    void slotNameAncre();
    void slotImage();
    /// Shows the sheet, as its file is, in a browser.
    void slotAppelleLyTextBrowser();
    void slotGereFermetureBrowser();
    void slotViewToolBar(bool visible);
    void slotViewToolBarB(bool visible);
    void slotViewStatusBar(bool visible);
    void slotPoliceEditeur();
    void slotAide();
    void slotHelpAbout();
    void slotHelpAboutQt();
    /// Shows in the status bar whether the text has unsaved changes.
    void slotMaJStatusBarreInfoModif(bool m);
    /// Goes from inserting to overwriting, or back.
    void slotInsertRewrite();

Q_SIGNALS:
    /// This editor closes.
    void FermetureTextEdit(LyTextEdit *editeur);
    void CreationTextEdit(LyTextEdit *editeur);
    /// The editor closes; the browsers that it opened close with it.
    void fermetureLyEditHtml();

protected:
    void closeEvent(QCloseEvent *evenement) override;

private:
    void initActions();
    void initActionsHtml();
    void AccepteLesChiffresSansMajuscule();
    void initMenus();
    void initMenuHtml();
    void initBarresOutils();
    void initStatusBar();
    void initTexte();
    void OuvreOuCommence(const QString &fichier);
    void ConnecteLeTexte();
    /// The HTML commands, in the order of their menu.
    [[nodiscard]] QList<QAction *> ActionsHtml() const;

    void ComposeTitre(const QString &suite);
    void MontreAlignement();
    /// True when the text may go: it is not modified, or the user said what to do with it.
    [[nodiscard]] bool PeutAbandonnerLeTexte();
    /// Saves under the current name, or asks for one.
    bool Sauve();
    /// The name chosen in a file dialog, as typed; empty when the user gave up.
    [[nodiscard]] QString DemandeUnNom();
    /// The chosen name with its extension; empty when the user gave up.
    [[nodiscard]] QString ChoisitUnNom();
    void AppliquePolice(const QFont &police);
    /// Tags round the selection, or an empty pair with the cursor inside.
    void Encadre(const QString &ouvrante, const QString &fermante);
    void InsereTitre(int niveau);
    void InsereTableau(int lignes, int colonnes, bool bordure);
    void InsereLigne(const QString &ligne);
};
