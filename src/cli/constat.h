#pragma once

#include <QString>

#include <cstdio>
#include <functional>

/// One thing that is wrong or odd in a file.
struct Constat
{
    enum class Gravite {
        Erreur,
        Remarque,  ///< odd, but it may well be so
    };

    Gravite gravite = Gravite::Erreur;
    QString texte{};
    quint64 numero = 0;  ///< whose it is, in a tree; 0: nobody's
    QString fiche{};     ///< whose it is, in a GEDCOM file: "@I1@"; empty: nobody's
    int ligne = 0;       ///< where the reading stopped; 0: it did not
    int colonne = 0;
};

using SurConstat = std::function<void(const Constat &)>;

/// Writes what is found as it comes, one line each, as words or as the objects of a JSON array.
class ListeDeConstats
{
public:
    /// \a flux stays the caller's.
    ListeDeConstats(std::FILE *flux, bool enJson);
    Q_DISABLE_COPY_MOVE(ListeDeConstats)

    void Ajoute(const QString &fichier, const Constat &constat);
    /// To be called once, at the end.
    void Termine();
    [[nodiscard]] bool AUneErreur() const { return uneErreur; }

private:
    void Ecrit(const QString &ligne);

    std::FILE *sortie;
    bool json;
    bool uneErreur = false;
    bool premier = true;
};
