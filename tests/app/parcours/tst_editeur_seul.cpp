#include "ecran.h"
#include "environnement.h"

#include <QDir>
#include <QGuiApplication>
#include <QProcess>

#include <csignal>

/// The editor of sheets as a program of its own, built and installed, under a real X server.
class TestEditeurSeul : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void cleanup();
    void unTexteNeufDevientUnFichier();
    void leTexteSeRetrouveApresUnSignal();
    void leManuelEstACoteDuProgramme_data();
    void leManuelEstACoteDuProgramme();

private:
    void Demarre(const QString &chemin, const QStringList &arguments,
                 QProcess::ProcessChannelMode canaux = QProcess::ForwardedErrorChannel);

    QProcess programme;
    QTemporaryDir dossier{"/tmp/ramelier-essai-XXXXXX"};
};

void TestEditeurSeul::initTestCase()
{
    QVERIFY(dossier.isValid());
    QVERIFY(Ecran::PrendClavierFrancophone());
}

void TestEditeurSeul::cleanup()
{
    if (!QTest::currentTestFailed())
        return;
    Ecran::Garde("editeur-seul-echec");
    programme.kill();
    programme.waitForFinished();
}

void TestEditeurSeul::Demarre(const QString &chemin, const QStringList &arguments, QProcess::ProcessChannelMode canaux)
{
    programme.setProgram(chemin);
    programme.setArguments(arguments);
    programme.setWorkingDirectory(dossier.path());
    programme.setProcessChannelMode(canaux);
    programme.start();
    QVERIFY(programme.waitForStarted());
}

void TestEditeurSeul::unTexteNeufDevientUnFichier()
{
    Demarre(RAMELIER_EDITEUR, {});
    QVERIFY(!Ecran::AttendActive("^LyEditHtml 1.0 - Nouveau$").isEmpty());
    Ecran::Tape("Né à Sète");
    Ecran::Touches({"ctrl+s"});
    QVERIFY(!Ecran::AttendActive("^Enregistrer sous$").isEmpty());
    Ecran::Tape("fiche");
    Ecran::Touches({"Return"});
    QVERIFY(!Ecran::AttendActive("^LyEditHtml 1.0 - fiche.html$").isEmpty());
    Ecran::Garde("editeur-seul");
    Ecran::Touches({"ctrl+q"});
    QVERIFY(programme.waitForFinished());
    QCOMPARE(programme.exitCode(), 0);
    QFile fichier(dossier.filePath("fiche.html"));
    QVERIFY(fichier.open(QIODevice::ReadOnly));
    QCOMPARE(fichier.readAll(), QByteArray("N\xe9 \xe0 S\xe8te"));
}

void TestEditeurSeul::leTexteSeRetrouveApresUnSignal()
{
    Demarre(RAMELIER_EDITEUR, {});
    QVERIFY(!Ecran::AttendActive("^LyEditHtml 1.0 - Nouveau$").isEmpty());
    Ecran::Tape("Né à Sète");
    QCOMPARE(kill(static_cast<pid_t>(programme.processId()), SIGTERM), 0);
    QVERIFY(programme.waitForFinished());
    QCOMPARE(programme.exitStatus(), QProcess::CrashExit);
    const QDir etats(qEnvironmentVariable("XDG_STATE_HOME") + "/ramelier");
    const QStringList copies = etats.entryList({"*.html"}, QDir::Files);
    QCOMPARE(copies.size(), 1);
    const QString copie = etats.filePath(copies.constFirst());
    QFile fichier(copie);
    QVERIFY(fichier.open(QIODevice::ReadOnly));
    QCOMPARE(fichier.readAll(), QByteArray("N\xe9 \xe0 S\xe8te"));

    Demarre(RAMELIER_EDITEUR, {}, QProcess::SeparateChannels);
    QVERIFY(!Ecran::AttendActive("^LyEditHtml 1.0 - Nouveau$").isEmpty());
    const QByteArray annonce = "Une copie de secours a été retrouvée : " + QFile::encodeName(copie) + "\n";
    QByteArray erreurs;
    static_cast<void>(QTest::qWaitFor([this, &erreurs, &annonce] {
        erreurs += programme.readAllStandardError();
        return erreurs.size() >= annonce.size();
    }));
    QCOMPARE(erreurs, annonce);
    Ecran::Garde("editeur-seul-secours");
    Ecran::Touches({"ctrl+q"});
    QVERIFY(programme.waitForFinished());
    QVERIFY(fichier.remove());
}

void TestEditeurSeul::leManuelEstACoteDuProgramme_data()
{
    QTest::addColumn<QString>("programmeLance");
    QTest::addColumn<QString>("titre");
    QTest::addColumn<QString>("titreDuManuel");
    const QString installes = dossier.filePath("usr/bin/");
    QCOMPARE(QProcess::execute("cmake", {"--install", RAMELIER_CONSTRUCTION, "--prefix", dossier.filePath("usr")}), 0);
    const QString editeur = "^LyEditHtml 1.0 - Nouveau$";
    const QString manuelEditeur = "^LyEditHtml - Manuel de l.éditeur de fiches$";
    QTest::newRow("éditeur construit") << QString(RAMELIER_EDITEUR) << editeur << manuelEditeur;
    QTest::newRow("éditeur installé") << installes + "lyedithtml" << editeur << manuelEditeur;
    QTest::newRow("arbre construit") << QString(RAMELIER_PROGRAMME) << "^Ramelier 5.1$"
                                     << "^Ramelier - Manuel de Ramelier$";
    QTest::newRow("arbre installé") << installes + "ramelier"
                                    << "^Ramelier 5.1$"
                                    << "^Ramelier - Manuel de Ramelier$";
}

void TestEditeurSeul::leManuelEstACoteDuProgramme()
{
    QFETCH(const QString, programmeLance);
    QFETCH(const QString, titre);
    QFETCH(const QString, titreDuManuel);
    Demarre(programmeLance, {});
    QVERIFY(!Ecran::AttendActive(titre).isEmpty());
    Ecran::Touches({"F1"});
    QVERIFY(!Ecran::AttendActive(titreDuManuel).isEmpty());
    // The manual, then the program that showed it.
    Ecran::Touches({"ctrl+q"});
    QVERIFY(!Ecran::AttendActive(titre).isEmpty());
    Ecran::Touches({"ctrl+q"});
    QVERIFY(programme.waitForFinished());
    QCOMPARE(programme.exitCode(), 0);
}

RAMELIER_TEST_MAIN(QGuiApplication, TestEditeurSeul)
#include "tst_editeur_seul.moc"
