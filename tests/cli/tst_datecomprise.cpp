#include "datecomprise.h"
#include "environnement.h"

#include <QGuiApplication>

/// ComprendLaDate: what is surely meant by the dates of a tree.
class TestDateComprise : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void comprend_data();
    void comprend();
    void neComprendPas_data();
    void neComprendPas();
    void saitLImpossible_data();
    void saitLImpossible();
    void compareCeQuiEstSur_data();
    void compareCeQuiEstSur();
};

namespace {

constexpr int sansFin = 99999999;

void Date(const char *texte, int debut, int fin)
{
    QTest::newRow(texte) << QString(texte) << debut << fin;
}

void Texte(const char *texte)
{
    QTest::newRow(texte) << QString(texte);
}

}  // namespace

void TestDateComprise::comprend_data()
{
    QTest::addColumn<QString>("texte");
    QTest::addColumn<int>("debut");
    QTest::addColumn<int>("fin");
    Date("1850", 18500101, 18501231);
    Date("  1850 ", 18500101, 18501231);
    Date("12/03/1850", 18500312, 18500312);
    Date("1.3.1850", 18500301, 18500301);
    Date("1-3-1850", 18500301, 18500301);
    Date("1850-03-12", 18500312, 18500312);
    Date("03/1850", 18500301, 18500331);
    Date("../03/1850", 18500301, 18500331);
    Date("00/00/1850", 18500101, 18501231);
    Date("03/13/1850", 18500101, 18501231);  // the order of another country
    Date("29/02/1700", 17000229, 17000229);  // a day of the Julian calendar
    Date("12 mars 1850", 18500312, 18500312);
    Date("le 1er Février 1850", 18500201, 18500201);
    Date("1er août 1850", 18500801, 18500801);
    Date("12 févr. 1850", 18500212, 18500212);
    Date("12 DEC 1850", 18501212, 18501212);
    Date("@#DJULIAN@ 12 MAY 1650", 16500512, 16500512);
    Date("@#DGREGORIAN@ FEB 1850", 18500201, 18500228);
    Date("décembre 1850", 18501201, 18501231);
    Date("3 7bre 1750", 17500903, 17500903);
    Date("3 Xbre 1750", 17501203, 17501203);
    Date("avant 1789", 0, 17891231);
    Date("avant le 14 juillet 1789", 0, 17890714);
    Date("BEF 14 JUL 1789", 0, 17890714);
    Date("/1789", 0, 17891231);
    Date("TO 1789", 0, 17891231);
    Date("après 1789", 17890101, sansFin);
    Date("AFT JUL 1789", 17890701, sansFin);
    Date("1789/", 17890101, sansFin);
    Date("FROM 1789", 17890101, sansFin);
    Date("entre 1789 et mars 1791", 17890101, 17910331);
    Date("BET 1 JAN 1789 AND 1790", 17890101, 17901231);
    Date("de 1789 à 1790", 17890101, 17901231);
    Date("FROM 1789 TO 1790", 17890101, 17901231);
    Date("1789/1796", 17890101, 17961231);
    Date("vers 1850", 18000101, 19001231);
    Date("env. 12 mars 1850", 18000312, 19000312);
    Date("ca 1850", 18000101, 19001231);
    Date("ABT 1850", 18000101, 19001231);
    Date("vers 0020", 0, 701231);
}

void TestDateComprise::comprend()
{
    QFETCH(const QString, texte);
    const DateComprise date = ComprendLaDate(texte);
    QCOMPARE(date.etat, DateComprise::Etat::Comprise);
    QTEST(date.debut, "debut");
    QTEST(date.fin, "fin");
}

void TestDateComprise::neComprendPas_data()
{
    QTest::addColumn<QString>("texte");
    for (const char *texte : {"",
                              "?",
                              "inconnue",
                              "185",
                              "18500",
                              "0000",
                              "1850 ?",
                              "1850/51",
                              "12 vendémiaire 1795",
                              "12 vendémiaire an III",
                              "@#DFRENCH R@ 12 VEND 3",
                              "50 av. J.-C.",
                              "avant",
                              "avant la guerre",
                              "12 mars",
                              "12/03",
                              "12/03/50",
                              "mars 50",
                              "INT 1850 (dit-on)",
                              "entre 1850 et demain",
                              "1850 ou 1851",
                              "avant vers 1850",
                              "12  1850 mars"})
        Texte(texte);
    QTest::newRow("interminable") << "avant " + QString(1000000, u' ') + QString(1000000, u'1');
}

void TestDateComprise::neComprendPas()
{
    QFETCH(const QString, texte);
    QCOMPARE(ComprendLaDate(texte).etat, DateComprise::Etat::Incomprise);
}

void TestDateComprise::saitLImpossible_data()
{
    QTest::addColumn<QString>("texte");
    for (const char *texte :
         {"31/04/1850", "30/02/1852", "29/02/1851", "32/01/1850", "13/13/1850", "99/99/1850", "13/1850",
          "31 avril 1850", "avant le 31 juin 1850", "entre 31/06/1850 et 1851", "31 JUN 1850"})
        Texte(texte);
}

void TestDateComprise::saitLImpossible()
{
    QFETCH(const QString, texte);
    QCOMPARE(ComprendLaDate(texte).etat, DateComprise::Etat::Impossible);
}

void TestDateComprise::compareCeQuiEstSur_data()
{
    QTest::addColumn<QString>("une");
    QTest::addColumn<QString>("autre");
    QTest::addColumn<bool>("avant");
    const auto cas = [](const char *une, const char *autre, bool avant) {
        QTest::addRow("%s, %s", une, autre) << QString(une) << QString(autre) << avant;
    };
    cas("1849", "1850", true);
    cas("1850", "1850", false);
    cas("1850", "12/03/1850", false);
    cas("11/03/1850", "12/03/1850", true);
    cas("avant 1850", "1850", false);
    cas("avant 1850", "1851", true);
    cas("après 1850", "1900", false);
    cas("1849", "après 1850", true);
    cas("vers 1700", "1750", false);
    cas("vers 1700", "1751", true);
    cas("hier", "1850", false);
    cas("1700", "31/06/1850", false);
}

void TestDateComprise::compareCeQuiEstSur()
{
    QFETCH(const QString, une);
    QFETCH(const QString, autre);
    QFETCH(const bool, avant);
    QCOMPARE(SurementAvant(ComprendLaDate(une), ComprendLaDate(autre)), avant);
}

RAMELIER_TEST_MAIN(QGuiApplication, TestDateComprise)
#include "tst_datecomprise.moc"
