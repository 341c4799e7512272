#include "environnement.h"
#include "navigateurfiche.h"
#include "pageprudente.h"

#include <QApplication>
#include <QFile>

/// Pages that the toolkit would not lay out within hours.
class TestPagePrudente : public QObject
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

void TestPagePrudente::seulesLesPlusProfondesChangent_data()
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

void TestPagePrudente::seulesLesPlusProfondesChangent()
{
    QFETCH(const QString, html);
    QTEST(PagePrudente(html), "attendu");
}

void TestPagePrudente::lesImagesImmensesSontReduites_data()
{
    QTest::addColumn<QString>("html");
    QTest::addColumn<QString>("attendu");
    const auto pareil = [](const char *nom, const char *html) { QTest::newRow(nom) << html << html; };
    pareil("petite", "<img src=a.png width=640 height=\"480\">");
    pareil("la plus grande", "<img width=99999 height='99999'>");
    pareil("pour cent", "<img width=100%>");
    pareil("pas une image", "<td width=9999999><hr width=9999999>width=9999999");
    pareil("un autre attribut", "<img src=\"a9999999.png\" alt=9999999>");
    pareil("quarante images", qPrintable(QString("<img width=99999>").repeated(40)));
    QTest::newRow("large") << "<img width=100000>"
                           << "<img width=1>";
    QTest::newRow("haute") << "<IMG src='a' HEIGHT = \"33000000\" alt=b>"
                           << "<IMG src='a' HEIGHT = 1 alt=b>";
    QTest::newRow("les deux") << "<img width='1e9' height=-200000>"
                              << "<img width=1 height=1>";
    QTest::newRow("infinie") << "<img width=inf height=nan>"
                             << "<img width=1 height=1>";
    QTest::newRow("trop ensemble") << QString("<img width=99999>").repeated(42)
                                   << QString("<img width=99999>").repeated(40) + QString("<img width=1>").repeated(2);
}

void TestPagePrudente::lesImagesImmensesSontReduites()
{
    QFETCH(const QString, html);
    QTEST(PagePrudente(html), "attendu");
}

void TestPagePrudente::unePageSeMontreToutDeSuite_data()
{
    QTest::addColumn<QByteArray>("page");
    // Each table more doubles the time that the toolkit takes.
    QTest::newRow("cent tables") << QByteArray("<table><tr><td>").repeated(100) + "au fond";
    QTest::newRow("image large") << QByteArray("<img width=33000000>a<td>au fond");
    QTest::newRow("image haute") << QByteArray("<img height=33000000>a<td>au fond");
    QTest::newRow("beaucoup d'images larges") << QByteArray("<img width=99999>").repeated(400) + "a<td>au fond";
}

void TestPagePrudente::unePageSeMontreToutDeSuite()
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

RAMELIER_TEST_MAIN(QApplication, TestPagePrudente)
#include "tst_pageprudente.moc"
