#pragma once

#include <QByteArray>
#include <QString>
#include <QStringList>

#include <memory>
#include <optional>
#include <vector>

class Dossier;

/// Everything of the user's that the programs write into a file, each by the real code that its command calls.

/// One of them, with a file of its own in a scratch folder and two contents, 0 and 1, to tell old from new.
class Sauvegarde
{
public:
    /// What the user is told goes to \a dits, one line a message.
    explicit Sauvegarde(QStringList &messages)
        : dits(messages)
    {
    }
    virtual ~Sauvegarde();
    Q_DISABLE_COPY_MOVE(Sauvegarde)

    /// The file's name in its folder.
    [[nodiscard]] virtual QString Fichier() const = 0;
    /// Saves the content \a version over the file. True when the program takes it for saved.
    [[nodiscard]] virtual bool Ecrit(int version) = 0;
    /// How the one message begins that tells the user of a failure; none where the command that saves tells it.
    [[nodiscard]] virtual QString Echec() const = 0;
    /// There is still something to save, as far as the program knows; none where it keeps no such mark.
    [[nodiscard]] virtual std::optional<bool> ResteModifie() const { return {}; }

protected:
    QStringList &dits;
};

/// All of them, in the folder \a dossier. Readers and writers must talk to an InterlocuteurNote that also fills \a dits.
std::vector<std::unique_ptr<Sauvegarde>> Sauvegardes(const Dossier &dossier, QStringList &dits);

/// \a octets without what changes with the day.
[[nodiscard]] QByteArray SansLaDate(const QByteArray &octets);
