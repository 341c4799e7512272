#pragma once

#include <QAction>

/// One row of the table of actions of a window of class \a Fenetre. All texts are UTF-8.
template <typename Fenetre> struct DefAction
{
    QAction *Fenetre::*membre;
    const char *texte;
    const char *raccourci;  ///< in its portable form; empty when there is none
    const char *icone;      ///< name of the resource; empty when there is none
    const char *status;
    const char *quEstCe;
    void (Fenetre::*slot)();                   ///< null when the caller connects the action itself
    void (Fenetre::*bascule)(bool) = nullptr;  ///< of a checkable action, checked at first, in the place of slot
};

/// A new action with these texts, as in a DefAction. Belongs to \a parent.
[[nodiscard]] QAction *NouvelleAction(QObject *parent, const char *texte, const char *raccourci, const char *icone,
                                      const char *status, const char *quEstCe);

/// The toolkit's What's This action, under an icon that is sharp on every screen and shows on every theme. Belongs to
/// \a parent.
[[nodiscard]] QAction *NouvelleActionQuEstCe(QObject *parent);

/// Makes every action of \a table for \a fenetre, which owns them, and connects them.
template <typename Fenetre, std::size_t nombre>
void CreeActions(Fenetre *fenetre, const DefAction<Fenetre> (&table)[nombre])
{
    for (const DefAction<Fenetre> &ligne : table) {
        QAction *action =
            NouvelleAction(fenetre, ligne.texte, ligne.raccourci, ligne.icone, ligne.status, ligne.quEstCe);
        if (ligne.bascule) {
            action->setCheckable(true);
            action->setChecked(true);
            QObject::connect(action, &QAction::toggled, fenetre, ligne.bascule);
        } else if (ligne.slot) {
            QObject::connect(action, &QAction::triggered, fenetre, ligne.slot);
        }
        fenetre->*ligne.membre = action;
    }
}
