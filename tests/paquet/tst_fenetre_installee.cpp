#include "ecran.h"
#include "environnement.h"
#include "execution.h"

#include <QGuiApplication>

/// An installed program, called by its name alone from somewhere else, under a real X server.
class TestFenetreInstallee : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void cleanup();
    void leBureauReconnaitSaFenetre_data();
    void leBureauReconnaitSaFenetre();

private:
    QTemporaryDir dossier;
    QProcess programme;
};

void TestFenetreInstallee::initTestCase()
{
    const Execution installe =
        Execute("cmake", {"--install", RAMELIER_CONSTRUCTION, "--prefix", dossier.filePath("mon usr")});
    QVERIFY2(installe.code == 0, qPrintable(installe.sortie));
    qputenv("PATH", dossier.filePath("mon usr/bin").toLocal8Bit() + ':' + qgetenv("PATH"));
}

void TestFenetreInstallee::cleanup()
{
    if (QTest::currentTestFailed())
        Ecran::Garde("fenetre-installee-echec");
    programme.kill();
    programme.waitForFinished();
}

void TestFenetreInstallee::leBureauReconnaitSaFenetre_data()
{
    QTest::addColumn<QString>("nom");
    QTest::addColumn<QString>("fichier");
    QTest::addColumn<QString>("titre");
    QTest::addColumn<QString>("titreDuManuel");
    QTest::newRow("arbre") << "ramelier"
                           << "louis-xiv.xrlg"
                           << "^Ramelier 5.1 - .*/louis-xiv.xrlg$"
                           << "^Ramelier - Manuel de Ramelier$";
    QTest::newRow("éditeur") << "lyedithtml"
                             << "henri-iv.html"
                             << "^LyEditHtml 1.0 - henri-iv.html$"
                             << "^LyEditHtml - Manuel de l.éditeur de fiches$";
}

void TestFenetreInstallee::leBureauReconnaitSaFenetre()
{
    QFETCH(const QString, nom);
    QFETCH(const QString, fichier);
    QFETCH(const QString, titre);
    QFETCH(const QString, titreDuManuel);
    const QString partage = dossier.filePath("mon usr/share/");
    programme.setWorkingDirectory("/");
    programme.setProcessChannelMode(QProcess::ForwardedErrorChannel);
    programme.start("sh", {"-c", "exec " + nom + " \"$1\"", "sh", partage + "doc/ramelier/examples/" + fichier});
    const QString fenetre = Ecran::AttendActive(titre);
    QVERIFY(!fenetre.isEmpty());
    QCOMPARE(Execute("xprop", {"-id", fenetre, "WM_CLASS"}).sortie.trimmed(),
             QStringLiteral("WM_CLASS(STRING) = \"%1\", \"%1\"").arg(nom));
    QFile entree(partage + "applications/" + nom + ".desktop");
    QVERIFY(entree.open(QIODevice::ReadOnly));
    QVERIFY(entree.readAll().contains("\nStartupWMClass=" + nom.toLatin1() + '\n'));
    Ecran::Touches({"F1"});
    QVERIFY(!Ecran::AttendActive(titreDuManuel).isEmpty());
    Ecran::Garde("installe-" + nom);
}

RAMELIER_TEST_MAIN(QGuiApplication, TestFenetreInstallee)
#include "tst_fenetre_installee.moc"
