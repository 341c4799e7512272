#pragma once

#include "scenario.h"

#include <QLineEdit>
#include <QList>

#include <utility>

/// Filling in the dialogs as a user does.

/// Names of line edits, and what the user writes in the place of their text.
using Textes = QList<std::pair<const char *, QString>>;

/// Replaces the text of a line edit as typing or pasting does: it then counts as touched.
inline void Ecrit(const QDialog &dialogue, const char *champ, const QString &texte)
{
    auto *ligne = dialogue.findChild<QLineEdit *>(QString::fromLatin1(champ));
    ligne->selectAll();
    ligne->insert(texte);
}

/// The next modal window is a \a T: the user writes \a textes and accepts.
template <typename T> void Saisit(Scenario &scenario, const Textes &textes)
{
    scenario.Dialogue<T>([textes](T &dialogue) {
        for (const auto &[champ, texte] : textes)
            Ecrit(dialogue, champ, texte);
        dialogue.accept();
    });
}

/// The next modal window is a \a T: the user writes \a textes and gives up.
template <typename T> void Abandonne(Scenario &scenario, const Textes &textes = {})
{
    scenario.Dialogue<T>([textes](T &dialogue) {
        for (const auto &[champ, texte] : textes)
            Ecrit(dialogue, champ, texte);
        dialogue.reject();
    });
}
