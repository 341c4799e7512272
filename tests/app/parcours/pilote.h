#pragma once

#include <QDialog>
#include <QObject>
#include <QPointer>
#include <QQueue>
#include <QStringList>
#include <QTimer>

#include <functional>

class QFileDialog;
class QLineEdit;

/// Answers the modal dialogs of a long journey as soon as they are shown, in the order stated. A dialog that was not
/// expected, or of the wrong kind, or that stays open is closed and noted: a journey fails instead of hanging.
class PiloteDialogues : public QObject
{
public:
    PiloteDialogues();

    /// The next dialog is a \a T; \a reponse looks at it, answers it and returns what it found wrong, or nothing.
    template <typename T> void Attend(std::function<QString(T &)> reponse)
    {
        etapes.enqueue([reponse = std::move(reponse)](QDialog &dialogue) {
            auto *attendu = qobject_cast<T *>(&dialogue);
            return attendu ? reponse(*attendu) : refus(dialogue);
        });
    }
    /// The next dialog is a message box with these texts; clicks the button \a bouton.
    void AttendBoite(const QString &titre, const QString &texte, const QString &bouton);
    /// The next dialog is a file dialog; types \a chemin, or gives up when that is empty. \a nom is what its name field
    /// must hold at first.
    void AttendFichier(const QString &titre, const QString &nom, const QString &chemin);

    /// The next dialog is a print dialog; prints with its proposal, or gives up.
    void AttendImpression(bool imprime);
    /// The next dialog chooses a font; takes the one that it shows at \a taille points, or gives up.
    void AttendPolice(int taille, bool accepte);
    /// Every dialog that is not expected is given to \a reponse instead of being refused; an empty one ends that.
    void Improvise(std::function<QString(QDialog &)> reponse) { improvise = std::move(reponse); }

    /// What did not happen as stated since the last call; empty when all is well and every dialog was met.
    QStringList PrendEcarts();

protected:
    bool eventFilter(QObject *objet, QEvent *evenement) override;

private:
    static QString refus(const QDialog &dialogue);
    void Repond(QDialog &dialogue);
    void FermeTout();

    QQueue<std::function<QString(QDialog &)>> etapes;
    std::function<QString(QDialog &)> improvise;
    QPointer<QDialog> dernier;
    QStringList ecarts;
    QTimer garde;
};

/// Types \a chemin into a file dialog, and accepts.
void Choisit(QFileDialog &dialogue, const QString &chemin);
/// As a user types: replaces everything that \a champ holds.
void Remplace(QLineEdit &champ, const QString &texte);
/// Writes at its end.
void Ajoute(QLineEdit &champ, const QString &texte);
/// Selects everything and deletes it.
void Efface(QLineEdit &champ);
