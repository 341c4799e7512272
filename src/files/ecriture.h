#pragma once

#include <QSaveFile>
#include <QString>

/// Writes a file so that its name always holds the old content or the complete new one: the new content goes to a
/// temporary file in the same folder that takes the name at the end. Symbolic links are followed, permissions kept.
class EcritureFichier
{
public:
    explicit EcritureFichier(const QString &nom);
    Q_DISABLE_COPY_MOVE(EcritureFichier)

    /// Tries the target as it stands, without changing it, and opens the temporary file. False with Erreur() set when
    /// the target is no regular file or may not be written.
    [[nodiscard]] bool Ouvre();
    /// Where to write, once open.
    [[nodiscard]] QIODevice &Appareil() { return fichier; }
    /// Puts the new content in place. False with Erreur() set, and the old file intact, when any write failed.
    [[nodiscard]] bool Termine();
    /// What went wrong, in the system's words.
    [[nodiscard]] QString Erreur() const { return erreur; }

private:
    QSaveFile fichier;
    QString erreur;
};
