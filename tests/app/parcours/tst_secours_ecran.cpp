#include "arbre.h"
#include "arbremartin.h"
#include "ecran.h"
#include "environnement.h"
#include "ficxrlg.h"
#include "infopersonne.h"
#include "personne.h"

#include <QDir>
#include <QGuiApplication>
#include <QProcess>

#include <csignal>

/// A tree changed in the built program by real keys, a program that is ended from outside, and the work found again.
class TestSecoursEcran : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void init();
    void cleanup();
    void leTravailSeRetrouve_data();
    void leTravailSeRetrouve();
    void sansTravailNonSauveRienNeReste();
    void ignorerUnSignalDureToutDuLong();

private:
    void Demarre(const QStringList &arguments, const QString &titre);
    void ChangeLeTitre(const QString &titre);
    void CommenceUneModification();
    void Envoie(int signal);
    void OuvreLaCopie(const QString &copie);
    void EnregistreSous(const QString &chemin);
    [[nodiscard]] int EncreDuStatut() const;
    [[nodiscard]] QStringList Copies() const { return etats.entryList({"*.xrlg"}, QDir::Files); }
    [[nodiscard]] QString TitreDe(const QString &chemin) const;

    QProcess programme;
    std::unique_ptr<QTemporaryDir> dossier;
    QDir etats;
    QString fenetre;
};

namespace {

constexpr int largeur = 1000;
constexpr int hauteur = 600;

}  // namespace

void TestSecoursEcran::initTestCase()
{
    QVERIFY(Ecran::PrendClavierFrancophone());
}

void TestSecoursEcran::init()
{
    etats.setPath(qEnvironmentVariable("XDG_STATE_HOME") + "/ramelier");
    QVERIFY(!etats.exists() || etats.removeRecursively());
    dossier = std::make_unique<QTemporaryDir>("/tmp/ramelier-essai-XXXXXX");
    QFile fichier(dossier->filePath("martin.xrlg"));
    QVERIFY(fichier.open(QIODevice::WriteOnly));
    fichier.write(arbreMartin);
}

void TestSecoursEcran::cleanup()
{
    if (programme.state() == QProcess::NotRunning)
        return;
    Ecran::Garde("secours-echec");
    programme.kill();
    programme.waitForFinished();
}

void TestSecoursEcran::Demarre(const QStringList &arguments, const QString &titre)
{
    programme.setProgram(RAMELIER_PROGRAMME);
    programme.setArguments(arguments);
    programme.start();
    QVERIFY(programme.waitForStarted());
    fenetre = Ecran::AttendActive(titre);
    QVERIFY(!fenetre.isEmpty());
    Ecran::Xdotool({"windowmove", fenetre, "20", "20"});
    Ecran::Xdotool({"windowsize", fenetre, QString::number(largeur), QString::number(hauteur)});
    QTRY_COMPARE_WITH_TIMEOUT(Ecran::Place(fenetre).size(), QSize(largeur, hauteur), 10000);
}

void TestSecoursEcran::ChangeLeTitre(const QString &titre)
{
    // In editing mode without a selection the title page is the only entry of the menu that can be chosen.
    Ecran::Touches({"alt+e", "Return"});
    QVERIFY(!Ecran::AttendActive("^Arbre généalogique - Page de garde$").isEmpty());
    Ecran::Touches({"ctrl+a"});
    Ecran::Tape(titre);
    Ecran::Touches({"Return"});
    QVERIFY(Ecran::EstActive(fenetre));
}

void TestSecoursEcran::CommenceUneModification()
{
    Ecran::Touches({"alt+e", "Return"});
    QVERIFY(!Ecran::AttendActive("^Arbre généalogique - Page de garde$").isEmpty());
    Ecran::Touches({"ctrl+a"});
    Ecran::Tape("jamais acceptée");
}

void TestSecoursEcran::Envoie(int signal)
{
    QCOMPARE(kill(static_cast<pid_t>(programme.processId()), signal), 0);
    QVERIFY(programme.waitForFinished(10000));
    QCOMPARE(programme.exitStatus(), QProcess::CrashExit);
    QCOMPARE(programme.exitCode(), signal);
}

QString TestSecoursEcran::TitreDe(const QString &chemin) const
{
    Arbre arbre;
    QString repertoire = dossier->path();
    if (readFicXRLG(chemin, repertoire, &arbre) != 0 || !arbre.premiere || arbre.premiere->info->nom != "MARTIN")
        return "illisible";
    return arbre.infoArbre->titrearbre;
}

int TestSecoursEcran::EncreDuStatut() const
{
    // Messages stand at the left of the status bar, the last light rows of the window; below is the dark desktop.
    const QRect place = Ecran::Place(fenetre);
    const QImage barre = Ecran::Image().copy(place.left() + 5, place.bottom() - 40, place.width() / 2, 42);
    int points = 0;
    for (int y = 0; y < barre.height(); ++y) {
        int sombres = 0;
        for (int x = 0; x < barre.width(); ++x)
            sombres += qGray(barre.pixel(x, y)) < 100 ? 1 : 0;
        points += sombres < barre.width() / 2 ? sombres : 0;
    }
    return points;
}

void TestSecoursEcran::OuvreLaCopie(const QString &copie)
{
    Ecran::Touches({"ctrl+o"});
    QVERIFY(!Ecran::AttendActive("^Ouvrir$").isEmpty());
    Ecran::Touches({"ctrl+a"});
    Ecran::Tape(copie);
    Ecran::Touches({"Return"});
    QVERIFY(Ecran::EstActive(fenetre));
    QTRY_COMPARE_WITH_TIMEOUT(Ecran::Xdotool({"getwindowname", fenetre}), "Ramelier 5.1 - " + copie, 10000);
}

void TestSecoursEcran::EnregistreSous(const QString &chemin)
{
    Ecran::Touches({"alt+f", "v"});
    QVERIFY(!Ecran::AttendActive("^Enregistrer sous$").isEmpty());
    Ecran::Touches({"ctrl+a"});
    Ecran::Tape(chemin);
    Ecran::Touches({"Return"});
    QVERIFY(Ecran::EstActive(fenetre));
    QTRY_COMPARE_WITH_TIMEOUT(Ecran::Xdotool({"getwindowname", fenetre}), "Ramelier 5.1 - " + chemin, 10000);
}

void TestSecoursEcran::leTravailSeRetrouve_data()
{
    QTest::addColumn<int>("signal");
    QTest::addColumn<bool>("dansUnDialogue");
    QTest::newRow("SIGTERM") << SIGTERM << false;
    QTest::newRow("SIGTERM dans un dialogue") << SIGTERM << true;
    QTest::newRow("SIGHUP") << SIGHUP << false;
    QTest::newRow("SIGINT") << SIGINT << false;
    QTest::newRow("SIGKILL") << SIGKILL << false;
}

void TestSecoursEcran::leTravailSeRetrouve()
{
    QFETCH(int, signal);
    QFETCH(bool, dansUnDialogue);
    const auto echec = [] { return QTest::currentTestFailed(); };
    Demarre({dossier->filePath("martin.xrlg")}, "^Ramelier 5.1 - ");
    if (echec())
        return;
    const int encreOrdinaire = EncreDuStatut();
    Ecran::Touches({"F8"});
    ChangeLeTitre("Premier titre");
    QTRY_COMPARE(Copies().size(), 1);
    const QString copie = etats.filePath(Copies().constFirst());
    // No time is left for a second copy but by the signal, which nothing foresees when it kills.
    const QString attendu = signal == SIGKILL ? "Premier titre" : "Second titre";
    if (signal != SIGKILL && !echec())
        ChangeLeTitre("Second titre");
    if (dansUnDialogue && !echec())
        CommenceUneModification();
    if (!echec())
        Envoie(signal);
    if (echec())
        return;
    QCOMPARE(Copies(), QStringList{QFileInfo(copie).fileName()});
    QCOMPARE(TitreDe(copie), attendu);
    QCOMPARE(TitreDe(dossier->filePath("martin.xrlg")), "Ancien titre");

    programme.readAllStandardError();
    Demarre({}, "^Ramelier 5.1$");
    const QByteArray annonce = "Une copie de secours a été retrouvée : " + QFile::encodeName(copie) + "\n";
    QByteArray erreurs;
    static_cast<void>(QTest::qWaitFor([this, &erreurs, &annonce] {
        erreurs += programme.readAllStandardError();
        return erreurs.size() >= annonce.size();
    }));
    QCOMPARE(erreurs, annonce);
    QTRY_VERIFY2(EncreDuStatut() > 4 * encreOrdinaire, qPrintable(QString::number(EncreDuStatut())));
    Ecran::Garde("secours-retrouve");
    if (!echec())
        OuvreLaCopie(copie);
    QCOMPARE(Copies().size(), 1);
    if (!echec())
        EnregistreSous(dossier->filePath("rendu.xrlg"));
    QTRY_COMPARE(Copies(), QStringList());
    QCOMPARE(TitreDe(dossier->filePath("rendu.xrlg")), attendu);
    Ecran::Touches({"ctrl+q"});
    QVERIFY(programme.waitForFinished(10000));
    QCOMPARE(programme.exitStatus(), QProcess::NormalExit);
}

void TestSecoursEcran::sansTravailNonSauveRienNeReste()
{
    Demarre({dossier->filePath("martin.xrlg")}, "^Ramelier 5.1 - ");
    Ecran::Touches({"F8"});
    ChangeLeTitre("Premier titre");
    QTRY_COMPARE(Copies().size(), 1);
    Ecran::Touches({"ctrl+s"});
    QTRY_COMPARE(Copies(), QStringList());
    if (!QTest::currentTestFailed())
        Envoie(SIGTERM);
    QCOMPARE(Copies(), QStringList());
    QCOMPARE(TitreDe(dossier->filePath("martin.xrlg")), "Premier titre");
    QCOMPARE(TitreDe(dossier->filePath("martin.xrlg~")), "Ancien titre");
}

void TestSecoursEcran::ignorerUnSignalDureToutDuLong()
{
    // As under nohup: a program that was started with a signal ignored goes on ignoring it.
    const auto avant = std::signal(SIGHUP, SIG_IGN);
    Demarre({dossier->filePath("martin.xrlg")}, "^Ramelier 5.1 - ");
    std::signal(SIGHUP, avant);
    QCOMPARE(kill(static_cast<pid_t>(programme.processId()), SIGHUP), 0);
    Ecran::Touches({"F8"});
    ChangeLeTitre("Premier titre");
    QTRY_COMPARE(Copies().size(), 1);
    if (!QTest::currentTestFailed())
        Envoie(SIGTERM);
}

RAMELIER_TEST_MAIN(QGuiApplication, TestSecoursEcran)
#include "tst_secours_ecran.moc"
