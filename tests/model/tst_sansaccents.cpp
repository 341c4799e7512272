#include "environnement.h"
#include "sansaccents.h"

#include <QCoreApplication>

/// What a search takes for equal.
class TestSansAccents : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void lesAccentsEtLaCasseSontIgnores_data();
    void lesAccentsEtLaCasseSontIgnores();
    void unDebutResteUnDebut();
};

void TestSansAccents::lesAccentsEtLaCasseSontIgnores_data()
{
    QTest::addColumn<QString>("texte");
    QTest::addColumn<QString>("attendu");
    QTest::newRow("rien") << ""
                          << "";
    QTest::newRow("majuscules") << "MARTIN"
                                << "martin";
    QTest::newRow("français") << "ÀÂÄÇÉÈÊËÎÏÔÖÙÛÜŸ àâäçéèêëîïôöùûüÿ"
                              << "aaaceeeeiioouuuy aaaceeeeiioouuuy";
    QTest::newRow("ligatures") << "LEBŒUF lebœuf Ægidius Weiß"
                               << "leboeuf leboeuf aegidius weiss";
    QTest::newRow("autres lettres latines") << "Søren Łukasz Đặng Åse"
                                            << "soren lukasz dang ase";
    QTest::newRow("accents séparés") << "Le\u0301fe\u0300vre"
                                     << "lefevre";
    QTest::newRow("prénom composé") << "Jean-Marie"
                                    << "jean marie";
    QTest::newRow("apostrophes") << "D’ALBRET d'Albret"
                                 << "d'albret d'albret";
    QTest::newRow("blancs insécables") << "LE\u00A0ROY\u202FX"
                                       << "le roy x";
    QTest::newRow("grec") << "Ἀλέξανδρος"
                          << "αλεξανδροσ";
    QTest::newRow("coréen") << "김"
                            << "김";
    QTest::newRow("hors du premier plan") << "𝒜x"
                                          << "𝒜x";
    QTest::newRow("signes et chiffres") << "??? 2 (dit)"
                                        << "??? 2 (dit)";
}

void TestSansAccents::lesAccentsEtLaCasseSontIgnores()
{
    QFETCH(const QString, texte);
    QFETCH(const QString, attendu);
    QCOMPARE(SansAccents(texte), attendu);
}

void TestSansAccents::unDebutResteUnDebut()
{
    const QString texte = "Œuf de Le\u0301fe\u0300vre-Weiß";
    for (qsizetype longueur = 0; longueur <= texte.size(); ++longueur)
        QVERIFY(SansAccents(texte).startsWith(SansAccents(texte.first(longueur))));
}

RAMELIER_TEST_MAIN(QCoreApplication, TestSansAccents)
#include "tst_sansaccents.moc"
