#pragma once

#include "frappes.h"
#include "modele.h"
#include "pilote.h"

#include <QMap>
#include <QObject>
#include <QPoint>
#include <QQueue>

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
    int personnes = 30;            ///< about as many stay in the tree
    int selectionApresAjout = 60;  ///< chance, in percent, to click on somebody before a person is added
};

/// Plays a random but replayable user of the window: clicks on the drawing, commands by their actions or by the context
/// menus, an answer to every dialog. After each event everything that shows is compared with the model beside it.
class Utilisateur
{
public:
    /// \a fenetre has just opened \a chemin, whose written count of persons is 0.
    Utilisateur(Fenetre &fenetre, const Dossier &dossier, quint32 graine, const Profil &profil, const QString &chemin);

    /// Plays one event. What went wrong, or nothing.
    QString Joue();
    /// The last events, the latest at the end.
    [[nodiscard]] const QStringList &Derniers() const { return derniers; }
    /// What the user has brought about, and how often: what never happened was not tried.
    [[nodiscard]] const QMap<QString, int> &Faits() const { return faits; }

private:
    enum Geste {
        Selectionner,
        CliquerACote,
        DoubleCliquer,
        Modifier,
        AjouterPere,
        AjouterMere,
        Supprimer,
        Annuler,
        EditerPage,
        ChangerMode,
        ChangerAffichage,
        ChangerFormats,
        Sauver,
        SauverSous,
        Ouvrir,
        Commencer
    };
    /// A file written or given in this journey, as it must be read back.
    struct Fichier
    {
        Contenu contenu;
        quint64 compte;
    };

    [[nodiscard]] Geste Choisit();
    void Fait(Geste geste);
    void Note(const QString &detail);
    void NoteLeFait(const QString &fait);
    [[nodiscard]] QString Verifie();
    [[nodiscard]] QString VerifieLaDisposition();
    [[nodiscard]] QString VerifieLesFichiers();

    // The drawing.
    void SelectionnePersonne();
    void CliqueSur(quint64 numero);
    void CliqueACote();
    void DoubleClique();
    [[nodiscard]] QPoint MilieuDe(quint64 numero);
    /// Who would take a click at \a point.
    [[nodiscard]] QList<quint64> Occupants(QPoint point) const;
    void MontreEtClique(QPoint point);
    /// Runs \a action as a user may: by the context menu under the mouse or by its shortcut, menu or button.
    void Lance(QAction *action);
    void LanceParLeMenu(QAction *action);

    // Persons and title page.
    void ModifieLaSelection(const std::function<void()> &lance);
    void AjouteUnParent(bool pere);
    void SupprimeLaSelection();
    void AnnuleLeDernier();
    void EditeLaPage();
    void AttendPersonne(const QString &titre, const Textes &avant, const Saisie &saisie);
    void AttendPage(const Page &avant, const Saisie &saisie);
    [[nodiscard]] Saisie TireSaisie(std::size_t champs);
    [[nodiscard]] Saisie TirePersonneNouvelle();

    // Modes, formats and files.
    void ChangeLeMode();
    void ChangeLAffichage();
    void ChangeLesFormats();
    void Sauve();
    void SauveSous();
    void OuvreUnFichier();
    void CommenceUnArbre();
    /// Answers the guard of unsaved work when it must come up; false when the command stops there.
    [[nodiscard]] bool PasseLaGarde();
    /// Prepares what a save asks, and does it in the model; false when it is given up.
    bool PrevoitSauvegarde(bool sous);
    void RetientLeFichier();

    Fenetre &fenetre;
    const Dossier &dossier;
    PiloteDialogues pilote;
    Tirage tirage;
    Profil profil;
    Modele modele;
    QMap<QString, Fichier> fichiers;  ///< by path
    QStringList aVerifier;            ///< files written by the event being played
    QQueue<Geste> suite;              ///< what the user has in mind already
    QStringList derniers;
    QMap<QString, int> faits;
    QObject ecoute;
    bool dispositionPerimee = false;  ///< a photo came or went by an undo that only repaints
};
