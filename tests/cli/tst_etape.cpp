#include "environnement.h"
#include "etape.h"
#include "message.h"

#include <QCoreApplication>

#include <array>
#include <fcntl.h>
#include <poll.h>
#include <pty.h>
#include <unistd.h>

/// What a step of the companion tells on a terminal, and that it tells nothing elsewhere.
class TestEtape : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void uneEtapeCourteNeDitRien();
    void uneEtapeLongueCompteLesSecondes();
    void uneErreurEffaceLaLigne();
    void ailleursElleNeDitRien();
};

namespace {

/// While it lives, the error stream goes into one end of \a bouts.
class ErreursVers
{
public:
    explicit ErreursVers(int bout)
        : avant(dup(STDERR_FILENO))
    {
        fflush(stderr);
        dup2(bout, STDERR_FILENO);
    }
    ~ErreursVers()
    {
        fflush(stderr);
        dup2(avant, STDERR_FILENO);
        close(avant);
    }
    Q_DISABLE_COPY_MOVE(ErreursVers)

private:
    int avant;
};

/// What \a travail writes to the error stream, which is one end of \a bouts, read at the other.
QByteArray Dit(const std::array<int, 2> &bouts, const std::function<void()> &travail)
{
    {
        const ErreursVers vers(bouts[1]);
        travail();
    }
    QByteArray dit;
    pollfd attente{.fd = bouts[0], .events = POLLIN, .revents = 0};
    while (poll(&attente, 1, 100) == 1 && (attente.revents & POLLIN) != 0) {
        std::array<char, 1000> bloc{};
        const ssize_t lus = read(bouts[0], bloc.data(), bloc.size());
        if (lus <= 0)
            break;
        dit.append(bloc.data(), lus);
    }
    close(bouts[0]);
    close(bouts[1]);
    return dit;
}

QByteArray DitAuTerminal(const std::function<void()> &travail)
{
    std::array<int, 2> bouts{};
    if (openpty(&bouts[0], &bouts[1], nullptr, nullptr, nullptr) != 0)
        return "pas de terminal";
    return Dit(bouts, travail);
}

}  // namespace

void TestEtape::uneEtapeCourteNeDitRien()
{
    QCOMPARE(DitAuTerminal([] { const Etape etape(QStringLiteral("lecture")); }), QByteArray());
}

void TestEtape::uneEtapeLongueCompteLesSecondes()
{
    const QByteArray dit = DitAuTerminal([] {
        const Etape etape(QStringLiteral("lecture de é.xrlg"));
        QTest::qSleep(2500);
    });
    QVERIFY2(
        dit.startsWith("\rramelier-cli : lecture de é.xrlg, 1 s\033[K\rramelier-cli : lecture de é.xrlg, 2 s\033[K"),
        dit.constData());
    QVERIFY2(dit.endsWith("\r\033[K"), dit.constData());
}

void TestEtape::uneErreurEffaceLaLigne()
{
    const QByteArray dit = DitAuTerminal([] {
        const Etape etape(QStringLiteral("lecture"));
        QTest::qSleep(1300);
        EcritLErreur(QStringLiteral("Le disque est plein\nvraiment"));
    });
    QCOMPARE(dit,
             QByteArray("\rramelier-cli : lecture, 1 s\033[K\r\033[Kramelier-cli : Le disque est plein vraiment\r\n"
                        "\r\033[K"));
}

void TestEtape::ailleursElleNeDitRien()
{
    std::array<int, 2> tube{};
    QCOMPARE(pipe(tube.data()), 0);
    const QByteArray dit = Dit(tube, [] {
        const Etape etape(QStringLiteral("lecture"));
        QTest::qSleep(1300);
        EcritLErreur(QStringLiteral("Le disque est plein"));
    });
    QCOMPARE(dit, QByteArray("ramelier-cli : Le disque est plein\n"));
}

RAMELIER_TEST_MAIN(QCoreApplication, TestEtape)
#include "tst_etape.moc"
