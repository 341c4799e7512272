#include "environnement.h"
#include "execution.h"
#include "fichiersinstalles.h"

#include <QCoreApplication>
#include <QImage>

/// What "cmake --install" leaves: every file at its place, programs that are found by their names and find their manuals.
class TestInstallation : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void chaqueFichierEstASaPlace();
    void lesManuelsSontEntiersEtAupresDesProgrammes();
    void unLanceurAppelleParLeCheminDefinitif_data();
    void unLanceurAppelleParLeCheminDefinitif();
    void unProgrammeSAppelleParSonNom();
    void seulLeSystemeDitOuSontLesBibliotheques_data();
    void seulLeSystemeDitOuSontLesBibliotheques();

private:
    [[nodiscard]] QString Chemin(const QString &nom) const { return dossier.filePath("usr/" + nom); }
    [[nodiscard]] QByteArray Lit(const QString &nom) const
    {
        QFile fichier(dossier.filePath(nom));
        return fichier.open(QIODevice::ReadOnly) ? fichier.readAll() : QByteArray("illisible");
    }

    QTemporaryDir dossier;
};

void TestInstallation::initTestCase()
{
    const Execution installe = Execute("cmake", {"--install", RAMELIER_CONSTRUCTION, "--prefix", Chemin("")});
    QVERIFY2(installe.code == 0, qPrintable(installe.sortie));
}

void TestInstallation::chaqueFichierEstASaPlace()
{
    QStringList fichiers = FichiersDe(Chemin(""));
    fichiers.removeIf([](const QString &nom) { return nom.startsWith("share/ramelier/AideRamelier/"); });
    QCOMPARE(Ecarts(fichiers, FichiersAttendus()), "");
}

void TestInstallation::lesManuelsSontEntiersEtAupresDesProgrammes()
{
    QCOMPARE(Ecarts(FichiersDe(Chemin("lib/ramelier/AideRamelier")), FichiersDe(RAMELIER_MANUEL)), "");
    QCOMPARE(Ecarts(FichiersDe(Chemin("lib/ramelier/AideLyEditHtml")), FichiersDe(RAMELIER_MANUEL "/editeur")), "");
    QVERIFY(QFileInfo(Chemin("lib/ramelier/AideLyEditHtml/index.html")).isFile());
}

void TestInstallation::unLanceurAppelleParLeCheminDefinitif_data()
{
    QTest::addColumn<QString>("destination");
    QTest::addColumn<QString>("prefixe");
    QTest::addColumn<QString>("lanceur");
    QTest::addColumn<QByteArray>("contenu");
    const QString ici = dossier.path();
    QTest::newRow("un dossier") << "" << ici + "/usr"
                                << "usr/bin/ramelier"
                                << "#!/bin/sh\nexec '" + ici.toUtf8() + "/usr/lib/ramelier/ramelier' \"$@\"\n";
    QTest::newRow("blancs et apostrophes")
        << "" << ici + "/l'été $HOME"
        << "l'été $HOME/bin/lyedithtml"
        << "#!/bin/sh\nexec '" + ici.toUtf8() + "/l'\\''été $HOME/lib/ramelier/lyedithtml' \"$@\"\n";
    QTest::newRow("pour un paquet") << ici + "/racine"
                                    << "/usr"
                                    << "racine/usr/bin/ramelier-cli"
                                    << QByteArray("#!/bin/sh\nexec '/usr/lib/ramelier/ramelier-cli' \"$@\"\n");
}

void TestInstallation::unLanceurAppelleParLeCheminDefinitif()
{
    QFETCH(const QString, destination);
    QFETCH(const QString, prefixe);
    QFETCH(const QString, lanceur);
    const Execution installe =
        Execute("cmake", {"--install", RAMELIER_CONSTRUCTION, "--prefix", prefixe}, Avec("DESTDIR", destination));
    QVERIFY2(installe.code == 0, qPrintable(installe.sortie));
    QTEST(Lit(lanceur), "contenu");
    const QFile::Permissions pourMoi = QFile::ReadUser | QFile::WriteUser | QFile::ExeUser;
    QCOMPARE(QFile::permissions(dossier.filePath(lanceur)) & ~pourMoi,
             QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner | QFile::ReadGroup | QFile::ExeGroup
                 | QFile::ReadOther | QFile::ExeOther);
}

void TestInstallation::unProgrammeSAppelleParSonNom()
{
    const QString dessin = dossier.filePath("un dessin.png");
    const Execution dessine = Execute("sh",
                                      {"-c", "ramelier-cli dessiner \"$1\" \"$2\"", "sh",
                                       Chemin("share/doc/ramelier/examples/louis-xiv.xrlg"), dessin},
                                      Avec("PATH", Chemin("bin") + ":/usr/bin:/bin"));
    QCOMPARE(dessine.sortie, "");
    QCOMPARE(dessine.code, 0);
    QVERIFY(!QImage(dessin).isNull());
}

void TestInstallation::seulLeSystemeDitOuSontLesBibliotheques_data()
{
    QTest::addColumn<QString>("programme");
    for (const char *programme : {"ramelier", "ramelier-cli", "lyedithtml"})
        QTest::newRow(programme) << QString(programme);
}

void TestInstallation::seulLeSystemeDitOuSontLesBibliotheques()
{
    QFETCH(const QString, programme);
    const Execution lu = Execute("readelf", {"-d", Chemin("lib/ramelier/" + programme)}, Avec("LC_ALL", "C"));
    QCOMPARE(lu.code, 0);
    QVERIFY2(lu.sortie.contains("libQt6Core.so.6"), qPrintable(lu.sortie));
    QVERIFY2(!lu.sortie.contains("RUNPATH") && !lu.sortie.contains("RPATH"), qPrintable(lu.sortie));
}

RAMELIER_TEST_MAIN(QCoreApplication, TestInstallation)
#include "tst_installation.moc"
