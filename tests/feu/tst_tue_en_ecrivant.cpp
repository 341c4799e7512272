#include "dossier.h"
#include "interlocuteurnote.h"
#include "programmebureau.h"
#include "sauvegardes.h"

#include <QElapsedTimer>
#include <QRandomGenerator>

#include <csignal>
#include <sys/wait.h>
#include <unistd.h>

/// A process that saves without end is killed at any moment, again and again: the file is always the old one or the new
/// one, whole, and the next saving sweeps up.
class TestTueEnEcrivant : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void leFichierResteEntier_data();
    void leFichierResteEntier();

private:
    /// How often each saving is killed. RAMELIER_FEU_MORTS says otherwise.
    static constexpr int mortsHabituelles = 250;

    static bool TueUnEcrivain(Sauvegarde &sauvegarde, quint32 apresMicrosecondes);

    Dossier dossier;
    QStringList dits;
    std::vector<std::unique_ptr<Sauvegarde>> toutes;
};

void TestTueEnEcrivant::initTestCase()
{
    Interlocuteur::Installe(std::make_unique<InterlocuteurNote>(dits));
    toutes = Sauvegardes(dossier, dits);
}

/// False when there could not be such a process.
bool TestTueEnEcrivant::TueUnEcrivain(Sauvegarde &sauvegarde, quint32 apresMicrosecondes)
{
    const pid_t ecrivain = fork();
    if (ecrivain < 0)
        return false;
    if (ecrivain == 0) {
        for (int version = 1; sauvegarde.Ecrit(version);)
            version = 1 - version;
        _exit(1);
    }
    usleep(apresMicrosecondes);
    kill(ecrivain, SIGKILL);
    int fin = 0;
    return waitpid(ecrivain, &fin, 0) == ecrivain && WIFSIGNALED(fin) && WTERMSIG(fin) == SIGKILL;
}

void TestTueEnEcrivant::leFichierResteEntier_data()
{
    QTest::addColumn<int>("rang");
    QTest::addColumn<QStringList>("permis");
    QTest::newRow("arbre") << 0 << QStringList{"a.xrlg", "a.xrlg~"};
    QTest::newRow("options") << 1 << QStringList{"o.opt"};
    QTest::newRow("fiche") << 2 << QStringList{"f.htm"};
    QTest::newRow("gedcom") << 3 << QStringList{"g.ged"};
}

void TestTueEnEcrivant::leFichierResteEntier()
{
    QFETCH(int, rang);
    QFETCH(QStringList, permis);
    Sauvegarde &sauvegarde = *toutes.at(std::size_t(rang));
    const auto contenu = [&] { return SansLaDate(dossier.Lit(sauvegarde.Fichier())); };
    QElapsedTimer chrono;
    chrono.start();
    QVERIFY(sauvegarde.Ecrit(1));
    // From before the first saving to the middle of a later one, however slow the machine is.
    const auto auPlusTard = quint32(3 * chrono.nsecsElapsed() / 1000 + 3000);
    const QByteArray nouveau = contenu();
    QVERIFY(sauvegarde.Ecrit(0));
    const QByteArray ancien = contenu();
    // What no saving needs.
    const QStringList avant = dossier.Noms();
    const auto restes = [&] {
        QStringList noms = dossier.Noms();
        noms.removeIf([&](const QString &nom) { return avant.contains(nom) || permis.contains(nom); });
        return noms;
    };

    const int morts = qEnvironmentVariableIsSet("RAMELIER_FEU_MORTS")
        ? qEnvironmentVariableIntValue("RAMELIER_FEU_MORTS")
        : mortsHabituelles;
    QRandomGenerator hasard(quint32(rang) + 1);
    int remplaces = 0;
    int interrompus = 0;
    for (int mort = 0; mort < morts; ++mort) {
        QVERIFY(TueUnEcrivain(sauvegarde, hasard.bounded(auPlusTard)));
        const QByteArray reste = contenu();
        QVERIFY2(reste == ancien || reste == nouveau, qPrintable(QStringLiteral("kill %1").arg(mort)));
        remplaces += reste == nouveau ? 1 : 0;
        interrompus += restes().isEmpty() ? 0 : 1;
        QVERIFY(sauvegarde.Ecrit(0));
        QCOMPARE(contenu(), ancien);
        QCOMPARE(restes(), QStringList());
    }
    // The kills did hit: some after a saving, some within one.
    QVERIFY(remplaces > 0);
    QVERIFY(interrompus > 0);
    qInfo("%d kills, %d in the middle of a saving, %d after a new file", morts, interrompus, remplaces);
}

RAMELIER_TEST_BUREAU_MAIN(TestTueEnEcrivant)
#include "tst_tue_en_ecrivant.moc"
