#pragma once

#include <QDialog>
#include <QMessageBox>
#include <QObject>
#include <QPointer>
#include <QQueue>
#include <QStringList>
#include <QTimer>

#include <functional>

/// A message box as its user saw it.
struct BoiteVue
{
    QString titre;
    QString texte;
    QMessageBox::Icon icone = QMessageBox::NoIcon;
    QStringList boutons;  ///< their texts, in order
    QString defaut;       ///< text of the button that answers Return; empty when none
    QString echappement;  ///< text of the button that answers Escape; empty when none
    QWidget *parent = nullptr;
};

/// Answers the modal boxes and dialogs that a command opens, in the stated order, and keeps what it saw. A box that was not
/// expected, or of the wrong kind, is closed and noted in Ecarts(): a test fails instead of hanging. Works from a timer,
/// so commands that block in exec() are called directly. Where two live at once, only the youngest answers.
class Scenario : public QObject
{
    Q_OBJECT

public:
    Scenario();
    ~Scenario() override;
    Q_DISABLE_COPY_MOVE(Scenario)

    /// The next modal window is a message box; clicks the button with this text.
    Scenario &Repond(const QString &bouton);
    /// The next modal window is a message box; presses the Escape key in it.
    Scenario &Echappe();
    /// The next modal window is a \a T; calls \a action once, when it is shown. The action must not block: it queues
    /// what opens further boxes (ClicPlusTard).
    template <typename T> Scenario &Dialogue(std::function<void(T &)> action)
    {
        etapes.enqueue([action](QWidget *fenetre) {
            auto *dialogue = qobject_cast<T *>(fenetre);
            if (dialogue)
                action(*dialogue);
            return dialogue != nullptr;
        });
        return *this;
    }

    /// Message boxes seen so far, in order.
    [[nodiscard]] const QList<BoiteVue> &Boites() const { return boites; }
    /// What did not happen as stated; empty when all is well and every step was used.
    [[nodiscard]] QStringList Ecarts() const;

    /// Clicks \a bouton from the event loop, so that what it opens does not block the caller.
    static void ClicPlusTard(QWidget *bouton);

private:
    void Regarde();
    void Note(QMessageBox &boite);

    static Scenario *actif;

    Scenario *precedent;
    QTimer minuterie;
    QPointer<QWidget> derniereVue;
    QQueue<std::function<bool(QWidget *)>> etapes;
    QList<BoiteVue> boites;
    QStringList ecarts;
};
