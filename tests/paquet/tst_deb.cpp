#include "environnement.h"
#include "execution.h"
#include "fichiersinstalles.h"

#include <QCoreApplication>
#include <QDir>

/// The Debian package that cpack makes of this build.
class TestDeb : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void sonNomDitSaVersion();
    void ilDemandeCeQuiSertALExecution_data();
    void ilDemandeCeQuiSertALExecution();
    void ilContientLInstallation();
    void sesDocumentsSontCompresses_data();
    void sesDocumentsSontCompresses();
    void sesDroitsSontCeuxDeTous();

private:
    [[nodiscard]] QString Champ(const QString &nom) const
    {
        return Execute("dpkg-deb", {"-f", paquet, nom}).sortie.trimmed();
    }

    QTemporaryDir dossier;
    QString paquet;
};

void TestDeb::initTestCase()
{
    const Execution fait =
        Execute("cpack", {"--config", RAMELIER_CONSTRUCTION "/CPackConfig.cmake", "-B", dossier.filePath("paquet")});
    QVERIFY2(fait.code == 0, qPrintable(fait.sortie));
    const QStringList paquets = QDir(dossier.filePath("paquet")).entryList({"*.deb"});
    QCOMPARE(paquets.size(), 1);
    paquet = dossier.filePath("paquet/" + paquets.constFirst());
    const Execution deballe = Execute("dpkg-deb", {"-x", paquet, dossier.filePath("racine")});
    QVERIFY2(deballe.code == 0, qPrintable(deballe.sortie));
}

void TestDeb::sonNomDitSaVersion()
{
    const QString architecture = Execute("dpkg", {"--print-architecture"}).sortie.trimmed();
    QCOMPARE(QFileInfo(paquet).fileName(), "ramelier_5.1-0upstream1_" + architecture + ".deb");
    QCOMPARE(Champ("Version"), "5.1-0upstream1");
    // The package's own list of changes tells of this version.
    QCOMPARE(Execute("dpkg-parsechangelog", {"-l", RAMELIER_CHANGEMENTS, "-S", "Version"}).sortie.trimmed(),
             "5.1-0upstream1");
    QCOMPARE(Execute("dpkg-parsechangelog", {"-l", RAMELIER_CHANGEMENTS, "-S", "Maintainer"}).sortie.trimmed(),
             Champ("Maintainer"));
}

void TestDeb::ilDemandeCeQuiSertALExecution_data()
{
    QTest::addColumn<QString>("champ");
    QTest::addColumn<QString>("voulu");
    for (const char *voulu : {"libqt6core6", "libqt6gui6", "libqt6widgets6", "libqt6printsupport6", "libqt6svg6",
                              "libqt6core5compat6", "qt6-translations-l10n", "fonts-liberation", "hicolor-icon-theme"})
        QTest::newRow(voulu) << "Depends" << voulu;
    QTest::newRow("autres formats d'images") << "Recommends"
                                             << "qt6-image-formats-plugins";
    QTest::newRow("Wayland") << "Recommends"
                             << "qt6-wayland";
}

void TestDeb::ilDemandeCeQuiSertALExecution()
{
    QFETCH(const QString, champ);
    QFETCH(const QString, voulu);
    QStringList noms = Champ(champ).split(", ");
    for (QString &nom : noms)
        nom = nom.section(' ', 0, 0);
    QVERIFY2(noms.contains(voulu), qPrintable(noms.join(' ')));
}

void TestDeb::ilContientLInstallation()
{
    QStringList attendus = FichiersAttendus();
    attendus += {"share/doc/ramelier/changelog.Debian.gz", "share/lintian/overrides/ramelier"};
    for (QString &nom : attendus) {
        if (nom.startsWith("share/man/") || nom == "share/doc/ramelier/changelog")
            nom += ".gz";
        nom.prepend("usr/");
    }
    QStringList fichiers = FichiersDe(dossier.filePath("racine"));
    const qsizetype pages =
        fichiers.removeIf([](const QString &nom) { return nom.startsWith("usr/share/ramelier/AideRamelier/"); });
    QCOMPARE(Ecarts(fichiers, attendus), "");
    QCOMPARE(pages, FichiersDe(RAMELIER_MANUEL).size());
}

void TestDeb::sesDocumentsSontCompresses_data()
{
    QTest::addColumn<QString>("document");
    QTest::addColumn<QString>("extrait");
    QTest::newRow("page anglaise") << "man/man1/ramelier.1.gz"
                                   << "ascending family tree";
    QTest::newRow("page française") << "man/fr/man1/lyedithtml.1.gz"
                                    << "arbre généalogique";
    QTest::newRow("changements") << "doc/ramelier/changelog.gz"
                                 << "# Changes";
    QTest::newRow("changements du paquet") << "doc/ramelier/changelog.Debian.gz"
                                           << "ramelier (5.1-0upstream1) ";
}

void TestDeb::sesDocumentsSontCompresses()
{
    QFETCH(const QString, document);
    QFETCH(const QString, extrait);
    const QString chemin = dossier.filePath("racine/usr/share/" + document);
    const QString contenu = Execute("gzip", {"-dc", chemin}).sortie;
    QVERIFY2(contenu.contains(extrait), qPrintable(contenu.left(200)));
    // As small as it gets, and without a date: offsets 4 to 8 of the format.
    QFile fichier(chemin);
    QVERIFY(fichier.open(QIODevice::ReadOnly));
    QCOMPARE(fichier.read(9).mid(4).toHex(), QByteArray("0000000002"));
}

void TestDeb::sesDroitsSontCeuxDeTous()
{
    const QStringList lignes = Execute("dpkg-deb", {"-c", paquet}).sortie.split('\n', Qt::SkipEmptyParts);
    QVERIFY(lignes.size() > 150);
    for (const QString &ligne : lignes) {
        const bool programme = ligne.contains("/bin/") || ligne.contains("/lib/ramelier/");
        const QString droits = ligne.startsWith('l') ? "lrwxrwxrwx"
            : ligne.endsWith('/')                    ? "drwxr-xr-x"
            : programme                              ? "-rwxr-xr-x"
                                                     : "-rw-r--r--";
        QVERIFY2(ligne.startsWith(droits + " root/root "), qPrintable(ligne));
    }
}

RAMELIER_TEST_MAIN(QCoreApplication, TestDeb)
#include "tst_deb.moc"
