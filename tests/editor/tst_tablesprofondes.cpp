#include "environnement.h"
#include "navigateurfiche.h"
#include "tablesprofondes.h"

#include <QApplication>
#include <QFile>

/// Tables in tables in tables.
class TestTablesProfondes : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void seulesLesPlusProfondesChangent_data();
    void seulesLesPlusProfondesChangent();
    void unePageDeCentTablesSeMontre();
};

void TestTablesProfondes::seulesLesPlusProfondesChangent_data()
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

void TestTablesProfondes::seulesLesPlusProfondesChangent()
{
    QFETCH(const QString, html);
    QTEST(SansTablesProfondes(html), "attendu");
}

void TestTablesProfondes::unePageDeCentTablesSeMontre()
{
    // Each table more doubles the time that the toolkit takes.
    const QTemporaryDir dossier;
    QFile fiche(dossier.filePath(QStringLiteral("a.html")));
    QVERIFY(fiche.open(QIODevice::WriteOnly));
    fiche.write(QByteArray("<table><tr><td>").repeated(100) + "au fond");
    fiche.close();
    NavigateurFiche navigateur(nullptr);
    navigateur.setSource(QUrl::fromLocalFile(fiche.fileName()));
    navigateur.show();
    QVERIFY(!navigateur.grab().isNull());
    QVERIFY(navigateur.toPlainText().contains(QStringLiteral("au fond")));
}

RAMELIER_TEST_MAIN(QApplication, TestTablesProfondes)
#include "tst_tablesprofondes.moc"
