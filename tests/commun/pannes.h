#pragma once

#include <QtGlobal>

#include <csignal>
#include <cstdlib>
#include <sys/prctl.h>
#include <sys/resource.h>
#include <unistd.h>

/// Real failures of the system, each for the life of one object.

/// Files of this process may not grow beyond \a octets bytes: a disk that fills up.
class DisquePlein
{
public:
    explicit DisquePlein(rlim_t octets)
    {
        getrlimit(RLIMIT_FSIZE, &avant);
        signalAvant = std::signal(SIGXFSZ, SIG_IGN);
        rlimit petit = avant;
        petit.rlim_cur = octets;
        setrlimit(RLIMIT_FSIZE, &petit);
    }
    ~DisquePlein()
    {
        setrlimit(RLIMIT_FSIZE, &avant);
        std::signal(SIGXFSZ, signalAvant);
    }
    Q_DISABLE_COPY_MOVE(DisquePlein)

private:
    rlimit avant{};
    void (*signalAvant)(int) = SIG_DFL;
};

/// Permission bits count: a test run by root goes on as somebody else. What it touches must be open to others.
class SansPrivileges
{
public:
    SansPrivileges()
    {
        etaitRoot = geteuid() == 0;
        effectif = !etaitRoot || setresuid(personne, personne, 0) == 0;
    }
    ~SansPrivileges()
    {
        if (!etaitRoot || !effectif)
            return;
        if (setresuid(0, 0, 0) != 0)
            std::abort();
        // The change of user forbids to be traced, which the leak detector needs.
        prctl(PR_SET_DUMPABLE, 1);
    }
    Q_DISABLE_COPY_MOVE(SansPrivileges)

    /// False where a process may not become somebody else.
    [[nodiscard]] bool Effectif() const { return effectif; }

private:
    static constexpr uid_t personne = 65534;

    bool etaitRoot = false;
    bool effectif = false;
};
