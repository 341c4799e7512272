#pragma once

#include <QList>
#include <QString>

#include <memory>

class Descripteur;

/// Where one program keeps a rescue copy: of a tree, NAME-PID.xrlg in the user's state folder, with the options file of that
/// name and a link to the folder of the tree ("NAME-PID.dossier": photos and sheets are found there); of a sheet,
/// NAME-PID.html or NAME-PID.txt. A lock file ("NAME-PID.verrou") tells whether the program is still alive.
class PlaceDeSecours
{
public:
    /// Takes a place for the tree or sheet \a nomFichier, empty for one without a file. Never that of another copy, left
    /// behind or not. None when the state folder cannot be made or written.
    [[nodiscard]] static std::unique_ptr<PlaceDeSecours> Prend(const QString &nomFichier);
    /// Gives the place back; the files stay.
    ~PlaceDeSecours();
    Q_DISABLE_COPY_MOVE(PlaceDeSecours)

    [[nodiscard]] QString Arbre() const;
    [[nodiscard]] QString Options() const;
    [[nodiscard]] QString Dossier() const;
    [[nodiscard]] QString Fiche(bool html) const;
    /// Deletes the copy and what belongs to it.
    void Vide();
    /// In a child process: the place stays its parent's, and is free when that one is gone.
    void LaisseAuParent();

private:
    explicit PlaceDeSecours(const QString &uneBase);
    [[nodiscard]] bool Verrouille();

    QString base;  ///< absolute path without extension
    std::unique_ptr<Descripteur> verrou;
};

enum class Copies { Toutes, DeFiches };

/// The copies that a program left that is gone, the latest first.
[[nodiscard]] QStringList CopiesRetrouvees(Copies lesquelles = Copies::Toutes);

/// \a fichier, a tree or a sheet, stands where rescue copies are kept.
[[nodiscard]] bool EstUneCopieDeSecours(const QString &fichier);

/// Where the photos and sheets of a tree file are: in its folder; those of a rescue copy in the folder of its tree.
[[nodiscard]] QString DossierDeLArbre(const QString &fichierArbre);

/// Deletes a rescue copy that has done its work, and what belongs to it. Anything else is left alone.
void OublieLaCopieDeSecours(const QString &fichier);
