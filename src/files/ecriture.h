#pragma once

#include "fichiertemporaire.h"

#include <QString>

/// Writes a file so that its name always holds the old content or the complete new one: the new content goes to a
/// temporary file in the same folder that takes the name at the end. Symbolic links are followed, permissions kept. What a
/// writer that was killed left in that folder is removed.
class EcritureFichier
{
public:
    /// What becomes of the content that is replaced.
    enum class Ancien {
        Perdu,
        Garde,  ///< it stays beside the file, under its name with a "~"; see CopieAncienne
    };

    explicit EcritureFichier(const QString &nom, Ancien lAncien = Ancien::Perdu);
    Q_DISABLE_COPY_MOVE(EcritureFichier)

    /// Tries the target as it stands, without changing it, and opens the temporary file. False with Erreur() set when
    /// the target is no regular file or may not be written.
    [[nodiscard]] bool Ouvre();
    /// Where to write, once open.
    [[nodiscard]] QIODevice &Appareil() { return temporaire; }
    /// Puts the new content in place. False with Erreur() set, and the old file intact, when any write failed.
    [[nodiscard]] bool Termine();
    /// What went wrong, in the system's words, in French.
    [[nodiscard]] QString Erreur() const;

private:
    bool Refuse(const QString &cause);
    bool Abandonne(const QString &cause);
    [[nodiscard]] bool EssaieLaCible();
    [[nodiscard]] bool PrendLeNom();

    Ancien ancien;
    QString cible;  ///< the file behind every symbolic link
    FichierTemporaire temporaire;
    QString refus;  ///< why the target was not even tried, or could not take the new content
};
