#pragma once

#include "arbre.h"
#include "ficxrlg.h"
#include "interlocuteurnote.h"

#include <QFile>
#include <QTemporaryDir>

#include <memory>

/// What the tests of the `.xrlg` reader share: a scratch folder, the tree read last, and what the user was told.
class LectureXrlg
{
protected:
    /// Keeps every message of the reader in messages, from now on.
    void Ecoute() { Interlocuteur::Installe(std::make_unique<InterlocuteurNote>(messages)); }

    /// A new empty folder, and nothing said.
    void Recommence()
    {
        dossier = std::make_unique<QTemporaryDir>();
        messages.clear();
    }

    [[nodiscard]] QString Chemin(const QString &nom) const { return dossier->filePath(nom); }

    /// Writes \a contenu to the file a.xrlg and reads it into a new tree; the reader's result, or -1 when the folder
    /// refuses the file.
    int Lit(const QByteArray &contenu)
    {
        const QString chemin = Chemin(QStringLiteral("a.xrlg"));
        QFile fichier(chemin);
        if (!fichier.open(QIODevice::WriteOnly) || fichier.write(contenu) != contenu.size())
            return -1;
        fichier.close();
        arbre = std::make_unique<Arbre>();
        QString repertoire = dossier->path();
        return readFicXRLG(chemin, repertoire, arbre.get());
    }

    std::unique_ptr<QTemporaryDir> dossier;
    std::unique_ptr<Arbre> arbre;
    QStringList messages;
};
