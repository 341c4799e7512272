#pragma once

#include <QByteArray>
#include <QProcess>
#include <QString>
#include <QTemporaryDir>

/// A print server of the test's own, on the loopback alone, with one queue that writes what would go to the printer into a
/// PDF file: what is printed is seen as a printer gets it. Construct it before the application object, whose printers it
/// then is. Its processes end with it.
class ServeurCups
{
public:
    ServeurCups();
    ~ServeurCups();
    Q_DISABLE_COPY_MOVE(ServeurCups)

    /// Why there is no printer; empty when all is well.
    [[nodiscard]] QString Panne() const { return panne; }
    /// The default printer's name.
    [[nodiscard]] static QString Imprimante() { return QStringLiteral("Papier"); }

    /// Waits until nothing is left to print. The bytes that the printer got since the last call; empty when nothing was
    /// printed.
    [[nodiscard]] QByteArray Imprime() const;
    /// The titles of what was printed, as the server has noted them.
    [[nodiscard]] QStringList Travaux() const;

private:
    [[nodiscard]] QString Chemin(const QString &nom) const { return dossier.filePath(nom); }
    void Ecrit(const QString &nom, const QByteArray &texte);
    void Prepare();
    void Demarre();
    void AjouteLImprimante();

    QTemporaryDir dossier{QStringLiteral("/tmp/ramelier-cups-XXXXXX")};
    QProcess serveur;
    QString adresse;
    QString panne;
};
