#include "commun.h"

#include <QDir>
#include <QDirIterator>
#include <QFile>

#include <csignal>
#include <cstdio>
#include <sys/resource.h>
#include <sys/time.h>
#include <unistd.h>

/// Gives a target every file of the folders named on the command line, within bounds of time, memory and stack. A crash or
/// a property that does not hold ends the process; the file comes from the last line that was written.

namespace {

constexpr time_t secondesParFichier = 60;  // of the processor: a busy machine does not count
constexpr rlim_t octetsDePile = 8 << 20;
constexpr long kiloOctetsDeMemoire = 2 << 20;

void TropLong(int /*signal*/)
{
    constexpr char message[] = "== TROP LONG\n";
    [[maybe_unused]] const auto ecrits = write(STDERR_FILENO, message, sizeof message - 1);
    std::abort();
}

void Borne()
{
    rlimit pile{};
    getrlimit(RLIMIT_STACK, &pile);
    pile.rlim_cur = qMin(pile.rlim_max, octetsDePile);
    setrlimit(RLIMIT_STACK, &pile);
    std::signal(SIGPROF, TropLong);
}

void CompteJusqua(time_t secondes)
{
    const itimerval fin{.it_interval = {}, .it_value = {.tv_sec = secondes, .tv_usec = 0}};
    setitimer(ITIMER_PROF, &fin, nullptr);
}

bool TropDeMemoire()
{
    rusage usage{};
    getrusage(RUSAGE_SELF, &usage);
    return usage.ru_maxrss > kiloOctetsDeMemoire;
}

void Donne(const QString &nom)
{
    std::printf("%s\n", qUtf8Printable(nom));
    std::fflush(stdout);
    QFile fichier(nom);
    Exige(fichier.open(QIODevice::ReadOnly), "le fichier se lit");
    const QByteArray octets = fichier.readAll();
    CompteJusqua(secondesParFichier);
    LLVMFuzzerTestOneInput(reinterpret_cast<const std::uint8_t *>(octets.constData()), std::size_t(octets.size()));
    CompteJusqua(0);
}

}  // namespace

int main(int argc, char **argv)
{
    Borne();
    LLVMFuzzerInitialize(&argc, &argv);
    int fichiers = 0;
    for (int i = 1; i < argc; ++i) {
        QStringList noms;
        QDirIterator parcours(QString::fromLocal8Bit(argv[i]), QDir::Files);
        while (parcours.hasNext())
            noms += parcours.next();
        noms.sort();
        for (const QString &nom : std::as_const(noms))
            Donne(nom);
        fichiers += static_cast<int>(noms.size());
    }
    Exige(fichiers > 0, "il y a des fichiers à rejouer");
    Exige(!TropDeMemoire(), "la mémoire suffit");
    std::printf("%d fichiers\n", fichiers);
    return 0;
}
