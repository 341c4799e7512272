#include "signauxdefin.h"

#include <QSocketNotifier>

#include <array>
#include <cerrno>
#include <csignal>
#include <fcntl.h>
#include <unistd.h>

namespace {

volatile sig_atomic_t tubeDesSignaux = -1;

extern "C" void NoteLeSignal(int signal)
{
    // Nothing but the number into the pipe: everything else may be in the middle of something.
    const int erreur = errno;
    const auto numero = static_cast<unsigned char>(signal);
    [[maybe_unused]] const ssize_t ecrit = ::write(tubeDesSignaux, &numero, 1);
    errno = erreur;
}

void Ecoute(int signal)
{
    struct sigaction avant
    {
    };
    struct sigaction action
    {
    };
    action.sa_handler = NoteLeSignal;
    action.sa_flags = static_cast<int>(SA_RESTART | SA_RESETHAND);
    if (::sigaction(signal, nullptr, &avant) == 0 && avant.sa_handler == SIG_DFL)
        ::sigaction(signal, &action, nullptr);
}

}  // namespace

SignauxDeFin::SignauxDeFin(std::function<void()> unSauvetage)
    : sauvetage(std::move(unSauvetage))
{
    std::array<int, 2> bouts{};
    if (::pipe2(bouts.data(), O_CLOEXEC | O_NONBLOCK) != 0)
        return;
    // Open until the program ends: a signal may come at any time.
    tubeDesSignaux = bouts[1];
    const auto *avis = new QSocketNotifier(bouts[0], QSocketNotifier::Read, this);
    connect(avis, &QSocketNotifier::activated, this, [this, lecture = bouts[0]] { Termine(lecture); });
    for (const int signal : {SIGTERM, SIGHUP, SIGINT})
        Ecoute(signal);
}

void SignauxDeFin::Termine(int descripteur)
{
    unsigned char numero = 0;
    if (::read(descripteur, &numero, 1) != 1)
        return;
    sauvetage();
    std::signal(numero, SIG_DFL);
    std::raise(numero);
}
