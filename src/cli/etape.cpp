#include "etape.h"

#include <chrono>
#include <cstdio>

#include <unistd.h>

Etape::Etape(const QString &unTexte)
    : texte(unTexte.toUtf8())
{
    if (::isatty(STDERR_FILENO) != 0)
        conteur = std::thread([this] { Raconte(); });
}

Etape::~Etape()
{
    {
        const std::lock_guard garde(verrou);
        finie = true;
    }
    fin.notify_one();
    if (conteur.joinable())
        conteur.join();
    if (racontee)
        std::fputs("\r\033[K", stderr);
}

void Etape::Raconte()
{
    std::unique_lock garde(verrou);
    for (int secondes = 1; !fin.wait_for(garde, std::chrono::seconds(1), [this] { return finie; }); ++secondes) {
        racontee = true;
        std::fprintf(stderr, "\rramelier-cli : %s, %d s\033[K", texte.constData(), secondes);
        std::fflush(stderr);
    }
}
