#include "environnement.h"
#include "signauxdefin.h"

#include <QCoreApplication>
#include <QTimer>

#include <array>
#include <csignal>
#include <sys/wait.h>
#include <unistd.h>

/// Signals that ask a program to end, each in a process of its own.
class TestSignauxDeFin : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void leTravailEstSauveAvantLaFin_data();
    void leTravailEstSauveAvantLaFin();
    void leMemeSignalEncoreTermineAussitot_data();
    void leMemeSignalEncoreTermineAussitot();
    void unAutreSignalAttendLaFinDuSauvetage();
    void unSignalIgnoreLeReste();
};

namespace {

/// What became of a process: how it ended, and what it had written until then.
struct Fin
{
    int signal = 0;  ///< that ended it, 0 when it ended by itself
    QByteArray ecrit;
};

using Sauvetage = std::function<void(int sortie)>;

void Ecrit(int sortie, char lettre)
{
    [[maybe_unused]] const ssize_t ecrits = write(sortie, &lettre, 1);
}

/// A program that waits, to which \a signal comes; it ends by itself after half a second.
[[noreturn]] void Attend(int signal, int sortie, const Sauvetage &sauvetage)
{
    // The test's own program listens to them, too.
    for (const int deFin : {SIGTERM, SIGHUP, SIGINT}) {
        if (std::signal(deFin, SIG_DFL) == SIG_IGN)
            std::signal(deFin, SIG_IGN);
    }
    const SignauxDeFin signaux([sortie, &sauvetage] { sauvetage(sortie); });
    QTimer::singleShot(0, [signal] { raise(signal); });
    QTimer::singleShot(500, [] { _exit(0); });
    QEventLoop().exec();
    _exit(1);
}

Fin Recoit(int signal, const Sauvetage &sauvetage)
{
    std::array<int, 2> tube{};
    if (pipe(tube.data()) != 0)
        return {.signal = -1, .ecrit = {}};
    const pid_t processus = fork();
    if (processus == 0)
        Attend(signal, tube[1], sauvetage);
    close(tube[1]);
    Fin fin;
    char lettre = 0;
    while (read(tube[0], &lettre, 1) == 1)
        fin.ecrit += lettre;
    close(tube[0]);
    int etat = 0;
    waitpid(processus, &etat, 0);
    fin.signal = WIFSIGNALED(etat) ? WTERMSIG(etat) : 0;
    return fin;
}

}  // namespace

void TestSignauxDeFin::leTravailEstSauveAvantLaFin_data()
{
    QTest::addColumn<int>("signal");
    QTest::newRow("SIGTERM") << SIGTERM;
    QTest::newRow("SIGHUP") << SIGHUP;
    QTest::newRow("SIGINT") << SIGINT;
}

void TestSignauxDeFin::leTravailEstSauveAvantLaFin()
{
    QFETCH(int, signal);
    const Fin fin = Recoit(signal, [](int sortie) {
        Ecrit(sortie, 'a');
        Ecrit(sortie, 'b');
    });
    QCOMPARE(fin.signal, signal);
    QCOMPARE(fin.ecrit, QByteArray("ab"));
}

void TestSignauxDeFin::leMemeSignalEncoreTermineAussitot_data()
{
    leTravailEstSauveAvantLaFin_data();
}

void TestSignauxDeFin::leMemeSignalEncoreTermineAussitot()
{
    QFETCH(int, signal);
    const Fin fin = Recoit(signal, [signal](int sortie) {
        Ecrit(sortie, 'a');
        raise(signal);
        Ecrit(sortie, 'b');
    });
    QCOMPARE(fin.signal, signal);
    QCOMPARE(fin.ecrit, QByteArray("a"));
}

void TestSignauxDeFin::unAutreSignalAttendLaFinDuSauvetage()
{
    const Fin fin = Recoit(SIGTERM, [](int sortie) {
        Ecrit(sortie, 'a');
        raise(SIGHUP);
        Ecrit(sortie, 'b');
    });
    QCOMPARE(fin.signal, SIGTERM);
    QCOMPARE(fin.ecrit, QByteArray("ab"));
}

void TestSignauxDeFin::unSignalIgnoreLeReste()
{
    const auto avant = std::signal(SIGHUP, SIG_IGN);
    const Fin fin = Recoit(SIGHUP, [](int sortie) { Ecrit(sortie, 'a'); });
    std::signal(SIGHUP, avant);
    QCOMPARE(fin.signal, 0);
    QCOMPARE(fin.ecrit, QByteArray());
}

RAMELIER_TEST_MAIN(QCoreApplication, TestSignauxDeFin)
#include "tst_signaux_de_fin.moc"
