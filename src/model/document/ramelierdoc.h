#pragma once

#include "canevas.h"
#include "formatsdessins.h"
#include "lespolices.h"

#include <QObject>
#include <QString>

class Arbre;
class Personne;
class QPainter;
class QWidget;

/// The one open tree with the formats and fonts that it is drawn with, its file name and its modified flags, and every
/// operation that changes them. Tells views and window through signals. Owns its trees. Its canvas and title block
/// (largeurCanevas, xTitre, ...) are those of the device measured last.
class RamelierDoc : public QObject, public Canevas
{
    Q_OBJECT

public:
    /// No tree, and the user's preferred formats and fonts. The argument is not used.
    explicit RamelierDoc(const QString &repApplication);
    ~RamelierDoc() override;

    /// The tree has unsaved changes.
    [[nodiscard]] bool isModified() const { return modifie; }
    /// The formats or fonts have unsaved changes.
    [[nodiscard]] bool areOptionsModified() const { return optionsModifiees; }

    /// Starts a new tree with the preferred formats and fonts: asks for its title page, then for its root (photos are
    /// looked for in \a repertoire). False when the user gave no title, or the root no name: there is then no tree.
    bool newDoc(QWidget *parent, QString &repertoire);
    /// Lets the user change the title page. Nothing without a tree.
    void EditPdG(QWidget *parent);
    /// Lets the user change the texts of the selected person, whose former texts are kept for undo. \a creation: the
    /// person is new, and its caller decides what happens when it stays without a name. Nothing without a selection.
    void CreaModifPers(QWidget *parent, QString &repertoire, bool creation);
    /// Adds the father (\a pere) or the mother of the selected person, and selects it. False, the tree as it was, when
    /// the user left it without a name, when that parent is there already or when its number would not fit.
    bool AjoutePersonne(QWidget *parent, QString &repertoire, bool pere);
    /// Deletes the selected person and keeps it for undo. Callers offer it only for a person without parents; the first
    /// person of the list is never deleted.
    void SupPersonne(QString &repertoire);
    /// Let the user change the drawing formats, or the fonts, of the open tree.
    void modifFormatsDessins(QWidget *parent);
    void modifPoliceCar(QWidget *parent);

    /// What a loaded tree is for.
    enum Cible : int { CibleArbre = 0, CiblePere = 1, CibleMere = 2 };
    /// Reads the tree file \a fileName in the place of the tree: as the document's own, with the options file
    /// \a fichierOptions (CibleArbre), or as a parent's tree to assemble. 1 on success. 0 on failure: the user has been
    /// told, what was read before the mistake stays as the tree, without a file name.
    int load(const QString &fileName, QString &repertoire, QString &fichierOptions, int mode);
    /// Fills the tree with the reader that the name asks for; see LitFichierArbre.
    int OuvreFichierArbre(const QString &fileName, QString &repertoire);
    /// Writes the tree to its file and, when they changed, the formats and fonts to \a fichierOptions: when only these
    /// could not be written, the user is told. False, the flags unchanged, when the tree could not be written (the user has
    /// been told) or there is none.
    bool save(QString &fichierOptions);
    /// Writes the tree as XRLG under a new name, which becomes its own (after a failure a tree from an older file has
    /// none); writes the formats and fonts when they changed or
    /// \a avecOptions asks for it.
    bool saveAs(const QString &fileName, QString &fichierOptions, bool avecOptions);

    /// Closes the tree before a GEDCOM file is chosen.
    void PrepareImportGED();
    /// Makes a tree without a file out of a GEDCOM file; see ImporterDeFichierGEDCOM. 1 done; 0 nothing imported: there is
    /// no tree, the user has been told why.
    int ImporteDeGED(QWidget *parent, const QString &fileName);
    /// Writes the tree as GEDCOM; see ExporterVersFichierGEDCOM. Always true: the user is told how it ended.
    bool exporteVersGED(QWidget *parent, const QString &fileName);

    /// Makes the child's tree, without a file, out of arbrePere and arbreMere, which are both loaded and are gone then.
    /// Photos are looked for in \a repertoire. Always true. See AssembleArbres.
    bool AssembleDeuxArbres(QWidget *parent, QString &repertoire);
    /// The copy of one person of a parent's tree, linked to its child in the tree but not in its list yet; none where
    /// its number does not fit. Walks the list; AssembleDeuxArbres has an index instead.
    Personne *CopiePourAssemblage(Personne *source, bool estPere, QString &repertoire);
    /// Frees what was loaded for an assembly that cannot be made; there is then no tree.
    void AbandonneLAssemblage();

    /// See LitOptions and EcritOptions.
    bool loadOptions(const QString &fichier, FormatsDessins *formatsLus, LesPolices *policesLues);
    bool saveOptions(const QString &fichier, FormatsDessins *formatsEcrits, LesPolices *policesEcrites, int type);
    /// Loads the user's preferences, or the built-in defaults.
    void initPolicesEtTraitsPref();
    /// Loads the formats and fonts of a tree, or copies the preferences when \a fichier cannot be read.
    void initPolicesEtTraits(const QString &fichier);
    /// Takes the formats and fonts of the reduced display.
    void initPolicesEtTraitsMini();

    /// Hands a click (pixels, at these scales) to the tree. When the selection changed: documentChanged(2), then
    /// personneSelectionnee with 1 or 0.
    void DeselectSelect(long px, long py, float echelleX, float echelleY);
    /// Selects \a personne, of the tree, and tells it as after a click on its box. Nothing when it is selected already.
    void Selectionne(Personne *personne);

    /// Places every person for one pair of scales; see DisposeArbre.
    void PositionneLesPersonnes(float echelleX, float echelleY);
    /// Moves every ancestor of \a personne, not itself, right by \a dx pixels; each one once.
    void DecalerAncetres(Personne *personne, long dx);
    /// Moves every person and the title block.
    void DecalerTout(long dx, long dy);
    /// Measures the drawing and its title block with the painter's fonts; see CalculeCanevas.
    void CalcTailleCanevas(QPainter *painter, float echelleX, float echelleY);
    /// Draws the title block at the place that CalcTailleCanevas gave it.
    void AfficheTitre(QPainter *painter, float echelleX, float echelleY);

    QString fichierPreferences;
    Arbre *arbre = nullptr;      ///< owned, none when no tree is open
    Arbre *arbrePere = nullptr;  ///< owned: the father's tree to assemble
    Arbre *arbreMere = nullptr;  ///< owned: the mother's tree to assemble
    FormatsDessins formats;
    LesPolices polices;
    FormatsDessins formatsPref;
    LesPolices policesPref;
    bool arbreCharge = false;
    bool creationEnCours = false;
    bool importGED = false;
    QString nomFichier;           ///< empty until a new or imported tree is saved
    QString enteteV1;             ///< header line of the oldest binary files
    QString enteteV3;             ///< header line of the later binary files
    int typeFichier = 0;          ///< 0 none, 1 or 3 an older binary file, 4 XRLG
    bool optionsParArbre = true;  ///< full display: each tree has its own formats and fonts; false: reduced display
    bool titreAffiche = true;     ///< the title block is drawn
    bool modifie = false;
    bool optionsModifiees = false;

Q_SIGNALS:
    /// 0 the tree was removed; 1 the tree or its presentation changed: lay out; 2 only texts or selection changed.
    void documentChanged(int code);
    /// 1 a person is selected, 0 none.
    void personneSelectionnee(int etat);
    /// A change that can be undone was made.
    void autoriseAnnulation();

private:
    void AnnonceLaSelection();
    void SupprimeArbre();
    void SauveLesOptions(const QString &fichier);
    bool AbandonneLaCreation(QWidget *parent, const QString &titre, const QString &raison);
    void CreeLaRacine();
    void CommenceUnArbreSansFichier(const QString &titre);
    void TermineUnArbreSansFichier();
    void LibereLesArbresDesParents();
};
