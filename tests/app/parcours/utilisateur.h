#pragma once

#include "fiches.h"
#include "improvisation.h"
#include "modele.h"
#include "partie.h"

#include <QObject>
#include <QPoint>
#include <QQueue>

#include <memory>

class Dossier;
class Fenetre;
class QAction;

/// How a random user goes about it, in chances of each command.
struct Profil
{
    int selectionner = 30;
    int modifier = 12;
    int ajouter = 18;
    int supprimer = 12;
    int annuler = 6;
    int mode = 5;
    int sauver = 4;
    int fichiers = 2;              ///< open, save under another name, new tree
    int echanges = 2;              ///< GEDCOM and assembly
    int fiches = 9;                ///< sheets: shown and edited
    int desordre = 1;              ///< files that no program wrote
    int personnes = 30;            ///< about as many stay in the tree
    int selectionApresAjout = 60;  ///< chance, in percent, to click on somebody before a person is added
};

/// Plays a random but replayable user of the program: clicks on the drawing, commands by their actions or by the context
/// menus, an answer to every dialog, sheets that stay open beside. After each event everything that shows is compared
/// with the model beside it; only where a damaged file has put the window into a state that nothing describes are the
/// answers improvised, and no more than its soundness is asked for until another file is opened.
class Utilisateur
{
public:
    /// Starts the program on the tree file \a chemin, whose written count of persons is 0.
    Utilisateur(const Dossier &dossier, quint32 graine, const Profil &profil, const QString &chemin);
    ~Utilisateur();
    Q_DISABLE_COPY_MOVE(Utilisateur)

    /// Plays one event. What went wrong, or nothing.
    QString Joue();
    /// Leaves the program, whatever is open. What went wrong, or nothing.
    QString Quitte();
    [[nodiscard]] const Partie &SaPartie() const { return partie; }

private:
    using Geste = void (Utilisateur::*)();
    /// An event, and how often it is chosen.
    struct DefGeste
    {
        const char *nom;
        Geste geste;
        int chance;
    };
    /// A file written or given in this journey, as it must be read back.
    struct Fichier
    {
        Contenu contenu;
        quint64 compte;
    };
    /// A person's dialog that will come up: what it shows, and what it leaves.
    struct ModificationPrevue
    {
        Textes avant{};
        Textes apres{};
        bool change = false;
    };

    [[nodiscard]] QList<DefGeste> Gestes() const;
    [[nodiscard]] DefGeste Choisit();
    [[nodiscard]] QString Verifie();
    [[nodiscard]] QString VerifieLaDisposition();
    [[nodiscard]] QString VerifieLesFichiers();
    [[nodiscard]] QString VerifieLesFenetres();
    [[nodiscard]] QString VerifieSansModele();

    // The drawing.
    void SelectionnePersonne();
    void CliqueSur(quint64 numero);
    void CliqueACote();
    void DoubleClique();
    [[nodiscard]] QPoint MilieuDe(quint64 numero);
    /// Who would take a click at \a point.
    [[nodiscard]] QList<quint64> Occupants(QPoint point) const;
    void MontreEtClique(QPoint point);
    void SuitUneFleche();
    void TapeUnNumero();
    /// Runs \a action as a user may: by the context menu under the mouse or by its shortcut, menu or button.
    void Lance(QAction *action);
    void LanceParLeMenu(QAction *action);
    void TireUneBarre();
    void ChangeLaTaille();

    // Persons and title page.
    void Modifie();
    void ModifieLaSelection(const std::function<void()> &lance);
    [[nodiscard]] ModificationPrevue PrevoitModification();
    void ConstateModification(const ModificationPrevue &prevue);
    void AjouteUnPere();
    void AjouteUneMere();
    void AjouteUnParent(bool pere);
    void SupprimeLaSelection();
    void AnnuleLeDernier();
    void EditeLaPage();
    void AttendPersonne(const QString &titre, const Textes &avant, const Saisie &saisie);
    void AttendPage(const Page &avant, const Saisie &saisie);
    [[nodiscard]] Saisie TireSaisie(std::size_t champs);
    [[nodiscard]] Saisie TirePersonneNouvelle();

    // Modes, formats, fonts, preferences, bars, and what is told about the program.
    void ChangeLeMode();
    void ChangeLAffichage();
    void ChangeLesFormats();
    void ChangeLesPolices();
    void ChangeLesPreferences();
    void MontreOuCacheUneBarre();
    void DemandeQuiEstCe();
    void DemandeQuoi();

    // Files.
    void Sauve();
    void SauveSous();
    void OuvreUnFichier();
    void CommenceUnArbre();
    void Imprime();
    /// Answers the guard of unsaved work when it must come up; false when the command stops there.
    [[nodiscard]] bool PasseLaGarde();
    /// Prepares what a save asks, and does it in the model; false when it is given up.
    bool PrevoitSauvegarde(bool sous);
    /// What the save dialog proposes, and the path that the user chooses there; empty when the user gives up.
    [[nodiscard]] QString PrevoitLeNomPropose();
    [[nodiscard]] QString PrevoitLeNom();
    void RetientLeFichier();
    /// A file dialog is given up after the name of a file that is not there.
    void AttendFichierAbsent(const QString &titre, const QString &nom);

    // Exchanges.
    void ImporteUnGED();
    void ImporteUneExportation();
    void PrevoitImportation(const QString &nom);
    void ExporteEnGED();
    void PrevoitExportation(const QString &chemin, bool masculine);
    [[nodiscard]] bool RefuseDeRemplacerLExportation(const QString &chemin);
    void AssembleDeuxArbres();
    [[nodiscard]] QString VerifieLExportation(const QString &chemin, bool masculine) const;

    // Damaged files, and what follows.
    void OuvreUnFichierAbime();
    void AssembleAvecUnAbime();
    void Improvise();
    void RevientAuModele();
    void CommenceLeDesordre(int evenements);
    /// The reader says \a erreur, unless that is empty, and the window that \a chemin cannot be loaded.
    void AttendRefus(const QString &chemin, const QString &erreur);
    void LanceSurUnAbime();
    /// A sound file in the older binary format, written anew: a conversion takes it away. And what it holds.
    [[nodiscard]] QString EcritUnAncien();
    [[nodiscard]] static Fichier Ancien();

    // Sheets.
    void AfficheLaFiche();
    void EditeLaFiche();
    void PrevoitAffichage();
    void AfficheLAide();
    void UtiliseUneFiche();
    void OuvreLEditeurSeul();

    // The whole program.
    void FermeEtRouvre();
    [[nodiscard]] bool PrevoitDeQuitter();
    [[nodiscard]] bool Ferme(bool parLaCommande);
    void LanceAvec(const QStringList &arguments);

    Partie partie;
    const Dossier &dossier = partie.dossier;
    Tirage &tirage = partie.tirage;
    PiloteDialogues &pilote = partie.pilote;
    Profil profil;
    Modele modele;
    std::unique_ptr<Fenetre> fenetre;
    Fiches fiches;
    Improvisation improvisation;
    QMap<QString, Fichier> fichiers;          ///< by path
    QMap<QString, Contenu> exportations;      ///< GEDCOM files that were written, by path
    QStringList aVerifier;                    ///< files written by the event being played
    QStringList renommes;                     ///< older files whose conversion must have renamed them
    QString ecartDuGeste;                     ///< what the event being played found by itself
    QQueue<std::pair<QString, Geste>> suite;  ///< what the user has in mind already
    int desordre = 0;                         ///< events still to be improvised
    bool dispositionPerimee = false;          ///< a photo came or went by an undo that only repaints
};
