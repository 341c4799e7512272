#pragma once

#include <QMainWindow>
#include <QPointer>
#include <QString>

#include <memory>

class CopieDeSecours;
class LyTextEdit;
class Personne;
class QAction;
class QCloseEvent;
class QLabel;
class QMenu;
class QPrinter;
class QToolBar;
class RamelierDoc;
class RamelierView;

/// The program's one window: actions, menus, tool bar and status bar, the user's commands, the two working modes
/// (consultation and editing) and the two display modes (full and reduced). Owns the document and its view.
class RamelierApp : public QMainWindow
{
    Q_OBJECT

public:
    /// Builds, opens the tree file argv[1] when there is one, and shows itself. \a argv[0] tells where the help is.
    RamelierApp(int argc, char **argv);
    ~RamelierApp() override;

    // Public for the tests, which drive the window as its user does.
    bool modeConsultation = true;
    QLabel *labelMode = nullptr;
    QLabel *labelInfoModif = nullptr;
    bool modifAnnulee = false;  ///< the last modification was just taken back
    bool enDemarrage = true;    ///< only while the constructor runs: the open command shows no dialog
    QString fichierArbre;       ///< empty for a new tree
    QString fichierOptions;     ///< options file that goes with fichierArbre
    QString repApplication;     ///< absolute folder of the program
    QString repAide;            ///< folder of the help manual
    QString dernierRep;         ///< last folder used in a file dialog
    RamelierView *view = nullptr;
    RamelierDoc *doc = nullptr;
    std::unique_ptr<CopieDeSecours> secours;  ///< keeps a copy of the unsaved work
    bool affichageComplet = true;
    QMenu *menuFichier = nullptr;
    QMenu *menuEdition = nullptr;
    QMenu *menuFormat = nullptr;
    QMenu *menuAffichage = nullptr;
    QMenu *menuOutils = nullptr;
    QMenu *menuAide = nullptr;
    QMenu *popupPersonne = nullptr;  ///< owned
    QMenu *popupGeneral = nullptr;   ///< owned
    QToolBar *barreOutils = nullptr;
    QAction *actFileNew = nullptr;
    QAction *actFileOpen = nullptr;
    QAction *actFileSave = nullptr;
    QAction *actFileSaveAs = nullptr;
    QAction *actFilePrint = nullptr;
    QAction *actFileQuit = nullptr;
    QAction *actAnnuler = nullptr;
    QAction *actModifier = nullptr;
    QAction *actSuppPers = nullptr;
    QAction *actAjouterPere = nullptr;
    QAction *actAjouterMere = nullptr;
    QAction *actEditFicheHTML = nullptr;
    QAction *actEditPdG = nullptr;
    QAction *actFormatsDessins = nullptr;
    QAction *actPoliceCaract = nullptr;
    QAction *actPreferences = nullptr;
    QAction *actModeTravail = nullptr;
    QAction *actAffFicheHTML = nullptr;
    QAction *actViewToolBar = nullptr;
    QAction *actViewStatusBar = nullptr;
    QAction *actModeAffichage = nullptr;
    QAction *actAssembleArbres = nullptr;
    QAction *actImporteGED = nullptr;
    QAction *actExporteGED = nullptr;
    QAction *actAide = nullptr;
    QAction *actHelpAbout = nullptr;
    QAction *actHelpAboutQt = nullptr;
    QAction *actWhatsThis = nullptr;
    QPointer<LyTextEdit> listeEditeurs;  ///< head of the chain of open sheet editors, which this window owns

    /// Disables every command that needs a tree or a selection.
    void resetMenus();
    /// Shows in the status bar whether the document has unsaved changes.
    void MaJStatusBarreInfoModif();
    /// The desktop's session ends: offers to save the tree and every sheet; false when the user stays.
    [[nodiscard]] bool PeutFinirLaSession();
    /// The program ends against its user's will: the unsaved work goes into rescue copies.
    void MetEnSurete();
    void readSettings();
    void writeSettings();

public Q_SLOTS:
    void slotFileNew();
    void slotFileOpen();
    void slotFileSave();
    void slotFileSaveAs();
    void slotFilePrint();
    void slotFileQuit();
    void slotAnnuler();
    void slotModifier();
    void slotSuppPers();
    void slotAjouterPere();
    void slotAjouterMere();
    void slotEditFicheHTML();
    void slotEditPdG();
    void slotFormatsDessins();
    void slotPoliceCaract();
    void slotPreferences();
    /// Goes from consultation to editing, or back.
    void slotModeTravail();
    void slotAffFicheHTML();
    void slotViewToolBar(bool visible);
    void slotViewStatusBar(bool visible);
    /// Full display (\a complet) with the tree's own formats, or the reduced display.
    void slotModeAffichage(bool complet);
    void slotAssembleArbres();
    void slotImporteFichierGED();
    void slotExporteVersFichierGED();
    void slotAide();
    void slotHelpAbout();
    void slotHelpAboutQt();
    /// 0 shows the general context menu at the mouse, 1 the one of the selected person.
    void slotMenuSurgissant(int k);
    /// 0 nothing is selected any more, 1 a person is.
    void slotPersonneSelectionnee(int etat);
    void slotPersonneDoubleCliquee();
    /// A change can be taken back.
    void slotAutoriseAnnulation();
    /// \a editeur closes: it leaves the chain of open editors, if it is in it, and is deleted later.
    void slotGestionListeEditeurs(LyTextEdit *editeur);

Q_SIGNALS:
    /// Asks the drawing to refresh; codes as RamelierDoc::documentChanged.
    void docChanged(int code);
    /// The window closes for good; its satellite windows close with it.
    void fermetureRamelier();

protected:
    void closeEvent(QCloseEvent *evenement) override;
    void dragEnterEvent(QDragEnterEvent *evenement) override;
    void dropEvent(QDropEvent *evenement) override;
    /// Offers to save unsaved work before the tree goes. Clears \a continuer when the user would rather keep it, or when
    /// the save did not succeed; never sets it.
    void proposeSauvegarde(bool *continuer);
    /// Offers to save before leaving; false when the user stays.
    bool queryExit();
    /// Swaps the selected person's texts with the saved ones, so that a second call restores the modification. Nothing
    /// when the saved texts are somebody else's.
    void AnnulerModif();
    /// Puts the deleted person back in its place. Nothing when somebody else stands there.
    void AnnulerSuppression();

private:
    void initActions();
    void initMenuBar();
    void initToolBar();
    void initStatusBar();
    void ConstruitMenusSurgissants();
    void MontreMenuSurgissant(int k, QPoint ici);
    void ConnecteLeDocument();
    /// Tells of the copies that programs left which ended against their user's will.
    void AnnonceLesCopiesDeSecours();
    void Remplit(QMenu *menu, std::initializer_list<QAction *> actions);

    void Status(const QString &texte, int duree = 0);
    /// The path of \a nom in the last folder used, in the current one when there is none yet.
    [[nodiscard]] QString DansDernierRep(const QString &nom) const;
    [[nodiscard]] bool TravailNonSauve() const;
    [[nodiscard]] bool PeutAbandonnerLArbre();
    /// The selected person, or none.
    [[nodiscard]] Personne *Selection() const;
    /// Why \a personne cannot be deleted; empty when it can.
    [[nodiscard]] QString RefusDeSupprimer(const Personne &personne) const;
    void AjouteParent(bool pere);
    /// The name of the selected person's sheet, which the user is asked for when there is none; empty when they gave up.
    [[nodiscard]] QString NomDeLaFicheAEditer();
    /// False when no open editor has the file \a chemin.
    [[nodiscard]] bool MetDevantLesEditeursDe(const QString &chemin);
    /// False when \a editeur is not in the chain.
    bool OteDeLaChaine(LyTextEdit *editeur);
    /// Closes every open editor, one after the other, and waits for those whose user keeps them open.
    void FermeLesEditeurs();
    /// Lets the user change and keep the preferences; false when they gave up.
    [[nodiscard]] bool SaisitPreferences();
    void PasseEnConsultation();
    void PasseEnEdition();
    void ActiveCommandesArbre();
    void ActiveCommandesArbreSaufExport(bool active);
    void ActiveCommandesPersonne();
    /// Opens fichierArbre, whatever was there; the user is told when it cannot be.
    void ChargeLeFichierArbre();
    /// Opens \a fichier, which was dropped here, as if it had been chosen in the dialog.
    void OuvreLeFichierDepose(const QString &fichier);
    void MontreEchecDOuverture(const QString &status, const QString &texte);
    /// What is asked before a file is replaced, and said when it is not.
    struct RemplacementDe
    {
        QString titre;
        QString question;
        QString refus;
    };
    /// True when \a nom exists and the user would rather keep it.
    [[nodiscard]] bool RefuseDeRemplacer(const QString &nom, const RemplacementDe &textes);
    [[nodiscard]] bool RefuseDeRemplacerLeGED(const QString &nom);
    /// Chooses where to save; empty when the user gave up. \a ancien: an older binary file is converted.
    [[nodiscard]] QString ChoisitUnNom(bool ancien);
    /// The tree comes from an older binary file and is not yet saved in the new format.
    [[nodiscard]] bool EstAncienFormat() const;
    /// True when \a nom is an existing file; otherwise says that it is not.
    [[nodiscard]] bool EstUnFichier(const QString &nom, const QString &statusSinon);
    /// The open tree is about to go: its commands too, but for the export.
    void OteLesCommandesArbre();
    /// A tree without a file is there, to be edited.
    void RendLesCommandesArbre();
    [[nodiscard]] bool ChoisitImprimante(QPrinter &imprimante, const QString &nomPdf);
    void ImprimeSur(QPrinter &imprimante);
    [[nodiscard]] bool PeutQuitter();
};
