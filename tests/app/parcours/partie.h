#pragma once

#include "frappes.h"
#include "pilote.h"

#include <QMap>
#include <QStringList>

class Dossier;

/// What all hands of a random user share in one journey: the folder, the choices, the dialogs, and the memory of what
/// was done.
class Partie
{
public:
    Partie(const Dossier &leDossier, quint32 graine);

    /// Something that may be done, and how often it is chosen.
    struct Chance
    {
        QString nom;
        int chance;
    };
    /// The place of one of \a chances. What was hardly done yet comes sooner, so that a short journey sees everything.
    [[nodiscard]] qsizetype Choisit(QList<Chance> chances);

    /// A new event begins.
    void Commence(const QString &geste);
    /// Tells the event being played in more detail.
    void Note(const QString &detail);
    /// The event being played is one of a kind that Choisit chose within another event.
    void Precise(const QString &geste);
    /// The event being played has brought about \a fait.
    void NoteLeFait(const QString &fait);

    /// The last events, the latest at the end.
    [[nodiscard]] const QStringList &Derniers() const { return derniers; }
    /// What was brought about, and how often: what never happened was not tried.
    [[nodiscard]] const QMap<QString, int> &Faits() const { return faits; }
    /// How often each event was played.
    [[nodiscard]] const QMap<QString, int> &Gestes() const { return gestes; }

    const Dossier &dossier;
    Tirage tirage;
    PiloteDialogues pilote;

private:
    QStringList derniers;
    QMap<QString, int> faits;
    QMap<QString, int> gestes;
};
