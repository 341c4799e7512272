#include "environnement.h"
#include "navigateurfiche.h"
#include "tablesprofondes.h"

#include <QApplication>
#include <QFile>

/// Pages that the toolkit would not lay out within hours.
class TestPageHostile : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void seulesLesPlusProfondesChangent_data();
    void seulesLesPlusProfondesChangent();
    void lesImagesImmensesSontReduites_data();
    void lesImagesImmensesSontReduites();
    void unePageSeMontreToutDeSuite_data();
    void unePageSeMontreToutDeSuite();
};

void TestPageHostile::seulesLesPlusProfondesChangent_data()
{
    QTest::addColumn<QString>("html");
    QTest::addColumn<QString>("attendu");
    const QString cinq = QString("<table>").repeated(5);
    const QString fin = QString("</table>").repeated(5);
    QTest::newRow("rien") << ""
                          << "";
    QTest::newRow("sans table") << "<p>tableau</table>"
                                << "<p>tableau</table>";
    QTest::newRow("cinq") << cinq + "a" + fin << cinq + "a" + fin;
    QTest::newRow("six") << cinq + "<table border=1>a</table>" + fin << cinq + "<div border=1>a</div>" + fin;
    QTest::newRow("sept") << cinq + "<Table><TABLE\n>a</TABLE></table >" + fin
                          << cinq + "<div><div\n>a</div></div >" + fin;
    QTest::newRow("beaucoup qui se suivent")
        << QString("<table>a</table>").repeated(20) << QString("<table>a</table>").repeated(20);
    QTest::newRow("fermées avant d'être ouvertes") << "</table></table>" + cinq + "<table>"
                                                   << "</table></table>" + cinq + "<div>";
    QTest::newRow("après une trop profonde") << cinq + "<table>a</table><table>b</table>" + fin + "<table>c"
                                             << cinq + "<div>a</div><div>b</div>" + fin + "<table>c";
    QTest::newRow("un autre mot") << cinq + "<tableau><table-x>" << cinq + "<tableau><div-x>";
}

void TestPageHostile::seulesLesPlusProfondesChangent()
{
    QFETCH(const QString, html);
    QTEST(SansTablesProfondes(html), "attendu");
}

void TestPageHostile::lesImagesImmensesSontReduites_data()
{
    QTest::addColumn<QString>("html");
    QTest::addColumn<int>("largeur");
    QTest::newRow("comme demandée") << "<img width=640 height=5>" << 640;
    QTest::newRow("la plus grande") << "<img width=20000 height=5>" << 20000;
    QTest::newRow("large") << "<img width=20001 height=5>" << 20000;
    QTest::newRow("écrite autrement") << "<IMG width='3.3e7'height=5>" << 20000;
    QTest::newRow("cent ensemble") << QString("<img width=99999 height=5>").repeated(100) << 2'000'000;
    QTest::newRow("quatre cents ensemble") << QString("<img width=99999 height=5>").repeated(400) << 4'000'000;
}

void TestPageHostile::lesImagesImmensesSontReduites()
{
    QFETCH(const QString, html);
    NavigateurFiche navigateur(nullptr);
    navigateur.setLineWrapMode(QTextEdit::NoWrap);
    navigateur.document()->setDocumentMargin(0);
    navigateur.setHtml(html);
    QTEST(qRound(navigateur.document()->idealWidth()), "largeur");
}

void TestPageHostile::unePageSeMontreToutDeSuite_data()
{
    QTest::addColumn<QByteArray>("page");
    // Each table more doubles the time that the toolkit takes.
    QTest::newRow("cent tables") << QByteArray("<table><tr><td>").repeated(100) + "au fond";
    QTest::newRow("image large") << QByteArray("<img width=33000000>a<td>au fond");
    QTest::newRow("image haute") << QByteArray("<img height=33000000>a<td>au fond");
    QTest::newRow("beaucoup d'images larges") << QByteArray("<img width=99999>").repeated(400) + "a<td>au fond";
}

void TestPageHostile::unePageSeMontreToutDeSuite()
{
    QFETCH(const QByteArray, page);
    const QTemporaryDir dossier;
    QFile fiche(dossier.filePath(QStringLiteral("a.html")));
    QVERIFY(fiche.open(QIODevice::WriteOnly));
    fiche.write(page);
    fiche.close();
    NavigateurFiche navigateur(nullptr);
    navigateur.setSource(QUrl::fromLocalFile(fiche.fileName()));
    navigateur.show();
    QVERIFY(!navigateur.grab().isNull());
    QVERIFY(navigateur.toPlainText().contains(QStringLiteral("au fond")));
}

RAMELIER_TEST_MAIN(QApplication, TestPageHostile)
#include "tst_pagehostile.moc"
