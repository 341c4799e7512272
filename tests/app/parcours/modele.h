#pragma once

#include "contenu.h"

#include <QStringList>

class Fenetre;

/// What the window must hold after the commands of a journey, worked out beside it by the rules of each command.
class Modele
{
public:
    // The tree and its file.
    bool arbreOuvert = false;
    Contenu contenu;
    quint64 compteEnTrop = 0;  ///< a file's written count stays in the count of persons once it is read
    quint64 selection = 0;     ///< 0: nobody
    QString nomFichier;        ///< where a save goes; empty for a new tree
    QString fichierArbre;      ///< what the save dialog proposes; an open command given up empties it
    bool ancien = false;       ///< read from an older binary file and not saved since
    QString titre = "Ramelier 5.1";
    // The window.
    QString dernierRep;
    bool modeJamaisChange = true;  ///< the text of the mode's action is still the first one
    bool consultation = true;
    bool exportPermis = false;
    bool modifie = false;
    bool optionsModifiees = false;
    bool labelModifie = false;  ///< the field of the status bar, refreshed by most commands but not by all
    // What can be taken back.
    bool annulable = false;
    bool modifAnnulee = false;
    bool suppressionAAnnuler = false;
    quint64 numeroAAnnuler = 0;
    Textes avant;
    Textes apres;

    [[nodiscard]] bool TravailNonSauve() const { return modifie || optionsModifiees; }
    [[nodiscard]] bool EnEdition() const { return arbreOuvert && !consultation; }
    [[nodiscard]] bool Existe(quint64 numero) const { return contenu.personnes.contains(numero); }
    /// May be deleted: nobody stands above, and it is not the root.
    [[nodiscard]] bool EstUneCime(quint64 numero) const;
    [[nodiscard]] Textes &Selection() { return contenu.personnes[selection]; }
    /// Names of the actions that must be enabled, sorted.
    [[nodiscard]] QStringList ActionsActives() const;

    void RafraichitLabel() { labelModifie = TravailNonSauve(); }
    void Selectionne(quint64 numero);
    void BasculeMode();
    void Modifie(const Textes &nouveaux);
    void Ajoute(quint64 numero, const Textes &textes);
    void Supprime();
    void Annule();
    void Enregistre();
    void EnregistreSous(const QString &chemin);
    void Ouvre(const QString &chemin, const Contenu &lu, quint64 compteEcrit);
    void Commence(const Page &page, const Textes &racine);
    void AbandonneLaCreation();
    /// A window that starts anew, in the folder that the last one left.
    void Redemarre();
    /// The tree is gone, and nothing has taken its place.
    void PerdLArbre();
    /// A tree that comes from no tree file: imported or assembled.
    void PrendSansFichier(const Contenu &nouveau);

    /// Where \a fenetre is not as stated here; empty when it is.
    [[nodiscard]] QString EcartAvec(const Fenetre &fenetre) const;

private:
    [[nodiscard]] QString EcartDesTextes(const Fenetre &fenetre) const;
};
