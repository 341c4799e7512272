#include <QGuiApplication>
#include <QImage>
#include <QPixmap>
#include <QScreen>

#include <algorithm>
#include <chrono>
#include <csignal>
#include <cstdio>
#include <cstdlib>
#include <limits>

#include <sys/wait.h>
#include <unistd.h>

namespace {

using Horloge = std::chrono::steady_clock;
constexpr auto auPlus = std::chrono::seconds(20);

/// A point in the middle of a window of 400 x 400 at (200, 200).
QRgb PixelDeLaFenetre()
{
    return QGuiApplication::primaryScreen()->grabWindow(0, 400, 400, 1, 1).toImage().pixel(0, 0);
}

/// False when that never came.
bool AttendQue(const auto &condition)
{
    constexpr useconds_t attente = 300;
    const auto fin = Horloge::now() + auPlus;
    while (!condition()) {
        if (Horloge::now() > fin)
            return false;
        usleep(attente);
    }
    return true;
}

/// From the start of the command to its first painted window, in milliseconds; less than zero when there was none.
double Duree(char **commande)
{
    const QRgb fond = PixelDeLaFenetre();
    const auto debut = Horloge::now();
    const pid_t processus = fork();
    if (processus == 0) {
        execvp(commande[0], commande);
        _exit(EXIT_FAILURE);
    }
    if (processus < 0)
        return -1;
    const bool peinte = AttendQue([fond] { return PixelDeLaFenetre() != fond; });
    const double duree = std::chrono::duration<double, std::milli>(Horloge::now() - debut).count();
    kill(processus, SIGTERM);
    waitpid(processus, nullptr, 0);
    const bool partie = AttendQue([fond] { return PixelDeLaFenetre() == fond; });
    return peinte && partie ? duree : -1;
}

}  // namespace

/// chrono_fenetre COMMAND...: the milliseconds from the start of the command until its window is painted, of the
/// fastest of some runs. Needs an X server without a window manager, whose background shows where no window is: until
/// a window of Qt is painted the server leaves there what was there before.
int main(int argc, char **argv)
{
    constexpr int essais = 20;
    if (argc < 2)
        return EXIT_FAILURE;
    int sansArguments = 1;
    const QGuiApplication application(sansArguments, argv);
    double meilleure = std::numeric_limits<double>::max();
    for (int i = 0; i < essais; ++i) {
        const double duree = Duree(argv + 1);
        if (duree < 0)
            return EXIT_FAILURE;
        meilleure = std::min(meilleure, duree);
    }
    std::printf("%.3f\n", meilleure);
    return EXIT_SUCCESS;
}
