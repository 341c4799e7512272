#pragma once

#include "interlocuteur.h"

#include <QStringList>

/// Keeps what readers and writers say, one line a message: "information|title|text" or "avertissement|title|text".
/// Installed for the life of the object's scope by Installe().
class InterlocuteurNote : public Interlocuteur
{
public:
    explicit InterlocuteurNote(QStringList &messages)
        : notes(messages)
    {
    }

    void Information(const QString &titre, const QString &texte) override
    {
        notes += QStringLiteral("information|") + titre + u'|' + texte;
    }
    void Avertissement(const QString &titre, const QString &texte) override
    {
        notes += QStringLiteral("avertissement|") + titre + u'|' + texte;
    }

    std::optional<QString> ChoisitRacine(QWidget * /*parent*/, const Lignes &individus) override
    {
        notes += QStringLiteral("racine|") + individus().join(u'|');
        return racine;
    }
    bool RacineMasculine(QWidget * /*parent*/) override
    {
        notes += QStringLiteral("sexe");
        return masculine;
    }

    std::optional<QString> racine;  ///< the answer to the question for the root
    bool masculine = true;          ///< the answer to the question for its sex

private:
    QStringList &notes;
};
