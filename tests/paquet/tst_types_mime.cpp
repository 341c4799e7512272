#include "environnement.h"
#include "execution.h"
#include "fichierrlg.h"

#include <QCoreApplication>
#include <QDir>
#include <QLocale>
#include <QMimeDatabase>

/// The types of tree files, as a desktop knows them once they are registered: by their names, and by their bytes alone.
class TestTypesMime : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void unFichierEstReconnu_data();
    void unFichierEstReconnu();
    void unTypeSePresente_data();
    void unTypeSePresente();

private:
    QTemporaryDir dossier;
    QMimeDatabase base;
};

namespace {

const QString arbre = QStringLiteral("application/x-ramelier+xml");
const QString ancien = QStringLiteral("application/x-ramelier-rlg");

const QByteArray enregistre = "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n"
                              "<!DOCTYPE xrlg>\n"
                              "<xrlg version=\"1.0\">\n"
                              "  <arbre>\n";

}  // namespace

void TestTypesMime::initTestCase()
{
    QVERIFY(QDir(dossier.path()).mkpath("mime/packages"));
    const QString paquets = dossier.filePath("mime/packages/");
    QVERIFY(QFile::copy(RAMELIER_TYPES, paquets + "ramelier.xml"));
    QVERIFY(QFile::copy("/usr/share/mime/packages/freedesktop.org.xml", paquets + "freedesktop.org.xml"));
    // Also where this process looks for types from now on.
    qputenv("XDG_DATA_DIRS", dossier.path().toLocal8Bit());
    const Execution registre = Execute("update-mime-database", {dossier.filePath("mime")});
    QCOMPARE(registre.sortie, "");
    QCOMPARE(registre.code, 0);
    QLocale::setDefault(QLocale(QLocale::French, QLocale::France));
}

void TestTypesMime::unFichierEstReconnu_data()
{
    QTest::addColumn<QString>("nom");
    QTest::addColumn<QByteArray>("contenu");
    QTest::addColumn<QString>("type");
    const QByteArray personne = "<?xml version=\"1.0\"?><personne/>";
    QTest::newRow("arbre") << "martin.xrlg" << enregistre << arbre;
    QTest::newRow("arbre en capitales") << "MARTIN.XRLG" << enregistre << arbre;
    QTest::newRow("arbre sans extension") << "martin" << enregistre << arbre;
    QTest::newRow("arbre d'une autre extension") << "martin.sauvegarde" << enregistre << arbre;
    QTest::newRow("arbre sans DOCTYPE") << "martin" << QByteArray("<?xml version='1.0'?><xrlg>") << arbre;
    QTest::newRow("arbre sans déclaration") << "martin" << QByteArray("<!DOCTYPE xrlg>\n<xrlg>") << arbre;
    QTest::newRow("élément seul") << "martin" << QByteArray("<xrlg version=\"1.0\">") << arbre;
    QTest::newRow("arbre vide") << "martin.xrlg" << QByteArray() << arbre;
    QTest::newRow("ancien") << "martin.rlg" << EnteteRlg(3) << ancien;
    QTest::newRow("ancien, version 1, sans extension") << "martin" << EnteteRlg(1) << ancien;
    QTest::newRow("ancien, version 3, sans extension") << "martin" << EnteteRlg(3) << ancien;
    QTest::newRow("autre XML") << "martin" << personne << "application/xml";
    QTest::newRow("autre XML nommé") << "martin.xml" << personne << "application/xml";
    QTest::newRow("en-tête sans sa longueur") << "martin" << EnteteRlg(3).mid(1) << "text/plain";
    QTest::newRow("GEDCOM") << "martin.ged" << QByteArray("0 HEAD\n") << "application/x-gedcom";
}

void TestTypesMime::unFichierEstReconnu()
{
    QFETCH(const QString, nom);
    QFETCH(const QByteArray, contenu);
    QFile fichier(dossier.filePath(nom));
    QVERIFY(fichier.open(QIODevice::WriteOnly) && fichier.write(contenu) == contenu.size());
    fichier.close();
    QTEST(base.mimeTypeForFile(fichier.fileName()).name(), "type");
}

void TestTypesMime::unTypeSePresente_data()
{
    QTest::addColumn<QString>("nom");
    QTest::addColumn<QString>("presentation");
    QTest::addColumn<QString>("icone");
    QTest::addColumn<QString>("extension");
    QTest::addColumn<bool>("estDuXml");
    QTest::newRow("arbre") << arbre << "arbre généalogique Ramelier"
                           << "application-x-ramelier+xml"
                           << "xrlg" << true;
    QTest::newRow("ancien") << ancien << "arbre généalogique Ramelier (ancien format)"
                            << "application-x-ramelier-rlg"
                            << "rlg" << false;
}

void TestTypesMime::unTypeSePresente()
{
    QFETCH(const QString, nom);
    const QMimeType type = base.mimeTypeForName(nom);
    QVERIFY(type.isValid());
    QTEST(type.comment(), "presentation");
    QTEST(type.iconName(), "icone");
    QTEST(type.preferredSuffix(), "extension");
    // Then a text editor may open it.
    QTEST(type.inherits("application/xml"), "estDuXml");
    QTEST(type.inherits("text/plain"), "estDuXml");
}

RAMELIER_TEST_MAIN(QCoreApplication, TestTypesMime)
#include "tst_types_mime.moc"
