#pragma once

#include <QtGlobal>

#include <functional>

#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

/// What became of work that was done by a process of its own.
struct Enfant
{
    bool fini = false;    ///< it ended by itself, before the time was up
    int resultat = -1;    ///< what the work returned, 0 to 255
    long megaoctets = 0;  ///< the most memory that it held, with that of this process when it began
};

/// Does \a travail in a copy of this process, which is ended after \a secondes.
inline Enfant DansUnEnfant(uint secondes, const std::function<int()> &travail)
{
    const pid_t processus = fork();
    if (processus == 0) {
        alarm(secondes);
        _exit(travail());
    }
    int fin = 0;
    rusage usage{};
    if (processus < 0 || wait4(processus, &fin, 0, &usage) != processus || !WIFEXITED(fin))
        return {.megaoctets = usage.ru_maxrss / 1024};
    return {.fini = true, .resultat = WEXITSTATUS(fin), .megaoctets = usage.ru_maxrss / 1024};
}
