#pragma once

#include <QSaveFile>
#include <QString>

/// A QSaveFile that notices every byte that did not reach the disk. On a disk that fills up QSaveFile itself takes a write
/// of a part for a success, and would put a cut-off file in place.
class FichierComplet : public QSaveFile
{
public:
    using QSaveFile::QSaveFile;
    [[nodiscard]] bool EstComplet() const { return complet; }

protected:
    qint64 writeData(const char *octets, qint64 nombre) override;

private:
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
    [[nodiscard]] QIODevice &Appareil() { return fichier; }
    /// Puts the new content in place. False with Erreur() set, and the old file intact, when any write failed.
    [[nodiscard]] bool Termine();
    /// What went wrong, in the system's words.
    [[nodiscard]] QString Erreur() const { return refus.isEmpty() ? fichier.errorString() : refus; }

private:
    FichierComplet fichier;
    QString refus;  ///< why the target was not even tried
};
