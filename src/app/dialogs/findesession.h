#pragma once

#include <functional>

class QObject;

/// The end of the desktop's session (log out, shut down), which some desktops announce: the user may still save, or keep
/// the session going. Desktops that announce nothing end the program by a signal.
namespace FinDeSession {

struct Programme
{
    /// Asks what has to be asked; false when the user would rather stay.
    std::function<bool()> peutFinir;
    /// Nothing may be asked any more: puts in safety what can be.
    std::function<void()> metEnSurete = [] {};
};

/// From now on the end of the session goes through \a programme, as long as \a contexte lives. Call once.
void Surveille(QObject *contexte, const Programme &programme);

/// The user has been asked, has agreed to the end of the session, and has touched nothing since: windows that close ask
/// nothing again.
[[nodiscard]] bool EstAcceptee();

/// Notes what has become of the last question.
void NoteLAccord(bool donne);

/// What becomes of the request of \a session, a QSessionManager. Apart for the tests, which have another one.
template <typename Session> void Repond(Session &session, const Programme &programme)
{
    if (!session.allowsInteraction()) {
        programme.metEnSurete();
        NoteLAccord(true);
        return;
    }
    const bool accord = programme.peutFinir();
    NoteLAccord(accord);
    // To release it first would tell the session manager that all is well.
    if (accord)
        session.release();
    else
        session.cancel();
}

}  // namespace FinDeSession
