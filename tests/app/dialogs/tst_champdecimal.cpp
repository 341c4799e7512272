#include "formulaire.h"

#include "champdecimal.h"
#include "dlgoptdessin.h"
#include "dlgpreferences.h"

#include <QApplication>
#include <QClipboard>
#include <QLineEdit>
#include <QLocale>

/// Real numbers are shown with a comma, and typed with a comma or a point.
class TestChampDecimal : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void cleanup() { QLocale::setDefault(QLocale::c()); }
    void lesDialoguesMontrentUneVirgule_data();
    void lesDialoguesMontrentUneVirgule();
    void laSaisieEstComprise_data();
    void laSaisieEstComprise();
    void unNombreColleEstCompris();
};

void TestChampDecimal::lesDialoguesMontrentUneVirgule_data()
{
    QTest::addColumn<QString>("classe");
    QTest::newRow("options") << "DlgOptDessin";
    QTest::newRow("préférences") << "DlgPreferences";
}

void TestChampDecimal::lesDialoguesMontrentUneVirgule()
{
    QFETCH(const QString, classe);
    QLocale::setDefault(QLocale(QLocale::French, QLocale::France));
    const auto dialogue = NouveauDialogue(classe);
    const auto champs = dialogue->findChildren<QDoubleSpinBox *>();
    QCOMPARE(champs.size(), 2);
    QStringList textes;
    for (QDoubleSpinBox *champ : champs)
        textes += champ->text();
    textes.sort();
    QCOMPARE(textes, (QStringList{"1,0", "2,5"}));
    for (QDoubleSpinBox *champ : champs) {
        Remplace(champ, "3.5");
        QCOMPARE(champ->text(), "3,5");
        QCOMPARE(champ->value(), 3.5);
    }
}

void TestChampDecimal::laSaisieEstComprise_data()
{
    QTest::addColumn<QLocale>("langue");
    QTest::addColumn<QString>("frappe");
    QTest::addColumn<QString>("texte");
    QTest::addColumn<double>("valeur");

    const QLocale francais(QLocale::French, QLocale::France);
    QTest::newRow("virgule") << francais << "2,5"
                             << "2,5" << 2.5;
    QTest::newRow("point") << francais << "2.5"
                           << "2,5" << 2.5;
    QTest::newRow("deux points") << francais << "2.5.1"
                                 << "2,5" << 2.5;
    QTest::newRow("point puis virgule") << francais << "2.,5"
                                        << "2,5" << 2.5;
    QTest::newRow("point devant") << francais << ".5"
                                  << "0,5" << 0.5;
    QTest::newRow("trop de décimales") << francais << "2.59"
                                       << "2,5" << 2.5;
    QTest::newRow("entier") << francais << "7"
                            << "7,0" << 7.0;
    QTest::newRow("anglais, point") << QLocale(QLocale::English) << "2.5"
                                    << "2.5" << 2.5;
}

void TestChampDecimal::laSaisieEstComprise()
{
    QFETCH(const QLocale, langue);
    QFETCH(const QString, frappe);
    QLocale::setDefault(langue);
    ChampDecimal champ;
    champ.setDecimals(1);
    Remplace(&champ, frappe);
    champ.interpretText();
    QTEST(champ.text(), "texte");
    QTEST(champ.value(), "valeur");
}

void TestChampDecimal::unNombreColleEstCompris()
{
    QLocale::setDefault(QLocale(QLocale::French, QLocale::France));
    ChampDecimal champ;
    champ.setDecimals(1);
    QApplication::clipboard()->setText("4.5");
    champ.selectAll();
    champ.findChild<QLineEdit *>()->paste();
    champ.interpretText();
    QCOMPARE(champ.value(), 4.5);
}

RAMELIER_TEST_DIALOGUES_MAIN(TestChampDecimal)
#include "tst_champdecimal.moc"
