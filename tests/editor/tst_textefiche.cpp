#include "environnement.h"
#include "textefiche.h"

#include <QFile>

/// How the bytes of a sheet become text.
class TestTexteFiche : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void unePageHtml_data();
    void unePageHtml();
    void unTexteSimple_data();
    void unTexteSimple();
    void lesOctetsDUnFichier();
};

void TestTexteFiche::unePageHtml_data()
{
    QTest::addColumn<QByteArray>("octets");
    QTest::addColumn<QString>("texte");
    QTest::newRow("sans déclaration, UTF-8") << QByteArray("<p>\xC3\xA9t\xC3\xA9</p>") << "<p>été</p>";
    QTest::newRow("sans déclaration, Latin-1") << QByteArray("<p>\xE9t\xE9</p>") << "<p>été</p>";
    QTest::newRow("Latin-1 déclaré") << QByteArray("<meta charset=\"iso-8859-1\"><p>\xC3\xA9</p>")
                                     << "<meta charset=\"iso-8859-1\"><p>Ã©</p>";
    QTest::newRow("déclaré à l'ancienne")
        << QByteArray("<META HTTP-EQUIV=\"Content-Type\" content=\"text/html; CHARSET=ISO-8859-1\">\xC3\xA9")
        << "<META HTTP-EQUIV=\"Content-Type\" content=\"text/html; CHARSET=ISO-8859-1\">Ã©";
    QTest::newRow("Windows déclaré") << QByteArray("<meta charset=windows-1252>\x9C") << "<meta charset=windows-1252>œ";
    QTest::newRow("déclaration inconnue") << QByteArray("<meta charset=x-rien>\xE9") << "<meta charset=x-rien>é";
    QTest::newRow("la marque l'emporte") << QByteArray("\xEF\xBB\xBF<meta charset=iso-8859-1>\xC3\xA9")
                                         << "<meta charset=iso-8859-1>é";
    QTest::newRow("vide") << QByteArray("") << "";
}

void TestTexteFiche::unePageHtml()
{
    QFETCH(const QByteArray, octets);
    QTEST(TexteFicheHtml(octets), "texte");
}

void TestTexteFiche::unTexteSimple_data()
{
    QTest::addColumn<QByteArray>("octets");
    QTest::addColumn<QString>("texte");
    QTest::newRow("UTF-8") << QByteArray("\xC3\xA9t\xC3\xA9") << "été";
    QTest::newRow("Latin-1") << QByteArray("\xE9t\xE9") << "été";
    QTest::newRow("une déclaration n'y compte pas")
        << QByteArray("charset=iso-8859-1 \xC3\xA9") << "charset=iso-8859-1 é";
    QTest::newRow("lettre coupée") << QByteArray("Ren\xE9") << "René";
    QTest::newRow("UTF-16 avec marque") << QByteArray("\xFF\xFE\xE9\x00", 4) << "é";
}

void TestTexteFiche::unTexteSimple()
{
    QFETCH(const QByteArray, octets);
    QTEST(TexteFicheSimple(octets), "texte");
}

void TestTexteFiche::lesOctetsDUnFichier()
{
    const QTemporaryDir dossier;
    QFile fichier(dossier.filePath("vide.txt"));
    QVERIFY(fichier.open(QIODevice::WriteOnly));
    QVERIFY(!OctetsFiche(fichier.fileName()).isNull());
    QVERIFY(OctetsFiche(fichier.fileName()).isEmpty());
    QVERIFY(OctetsFiche(dossier.filePath("absent.txt")).isNull());
    QVERIFY(OctetsFiche(dossier.path()).isNull());
    QVERIFY(OctetsFiche("/dev/zero").isNull());
}

RAMELIER_TEST_MAIN(QCoreApplication, TestTexteFiche)
#include "tst_textefiche.moc"
