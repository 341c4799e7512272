#pragma once

#include <QByteArray>
#include <QString>
#include <QTemporaryFile>

/// A temporary file that notices every byte that did not reach the disk: on a disk that fills up a write of a part would
/// otherwise pass for a success. Small writes are gathered; to seek in it is not provided for.
class FichierTemporaire : public QTemporaryFile
{
public:
    /// Creates and opens the file in \a dossier. False with errorString() when it cannot be created.
    [[nodiscard]] bool CreeDans(const QString &dossier);
    /// Hands the system what was gathered. False with errorString() when any byte since the opening was refused.
    [[nodiscard]] bool Vide();

protected:
    qint64 writeData(const char *octets, qint64 nombre) override;

private:
    bool EcritTout(const char *octets, qint64 nombre);

    QByteArray amasses;  ///< not yet handed to the system
    bool complet = true;
};

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
    [[nodiscard]] QIODevice &Appareil() { return temporaire; }
    /// Puts the new content in place. False with Erreur() set, and the old file intact, when any write failed.
    [[nodiscard]] bool Termine();
    /// What went wrong, in the system's words.
    [[nodiscard]] QString Erreur() const { return refus.isEmpty() ? temporaire.errorString() : refus; }

private:
    bool Refuse(const QString &cause);
    bool Abandonne(const QString &cause);
    [[nodiscard]] bool EssaieLaCible();

    QString cible;  ///< the file behind every symbolic link
    FichierTemporaire temporaire;
    QString refus;  ///< why the target was not even tried, or could not take the new content
};
