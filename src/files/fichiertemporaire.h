#pragma once

#include <QByteArray>
#include <QTemporaryFile>

/// The file that a new content is written to before it takes a name: ".ramelier-XXXXXX" in the folder of that name,
/// under a lock (flock) for as long as it is open. It notices every byte that did not reach the disk: on a disk that
/// fills up a write of a part would otherwise pass for a success. Small writes are gathered; to seek in it is not provided
/// for.
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
    [[nodiscard]] bool Verrouille();
    bool EcritTout(const char *octets, qint64 nombre);

    QByteArray amasses;  ///< not yet handed to the system
    bool complet = true;
};

/// Removes from \a dossier what writers that were killed left there: temporary files that no living process has locked,
/// and second names ".ramelier-XXXXXX~" (see CopieAncienne) whose temporary file is gone. Another user's stay.
void RetireLesRestes(const QString &dossier);
