#pragma once

#include <QObject>

#include <functional>

/// The signals that ask a program to end (SIGTERM, SIGHUP, SIGINT) and come while work is unsaved: the event loop, that
/// of a dialog too, has the work put in safety, then the program ends by the signal. The same signal once more ends it
/// at once. A signal that was ignored when the program started (nohup) stays ignored.
class SignauxDeFin : public QObject
{
public:
    /// \a unSauvetage is called once, in the event loop, before the program ends. One object a program.
    explicit SignauxDeFin(std::function<void()> unSauvetage);

private:
    void Termine(int descripteur);

    std::function<void()> sauvetage;
};
