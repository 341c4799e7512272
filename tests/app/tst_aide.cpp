#include "fenetre.h"

#include <QAction>

/// The two boxes that tell what the program and its toolkit are.
class TestAide : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void aPropos();
    void aProposDeQt();
};

void TestAide::aPropos()
{
    Fenetre fenetre;
    Scenario scenario;
    scenario.Repond("OK");
    fenetre.actHelpAbout->trigger();
    QCOMPARE(scenario.Ecarts(), QStringList());
    const BoiteVue boite = scenario.Boites().constFirst();
    QCOMPARE(boite.titre, "A propos...");
    QVERIFY2(boite.texte.startsWith("Ramelier - Arbre généalogique\nVersion 5.1"), qPrintable(boite.texte));
    QCOMPARE(boite.parent, &fenetre);
}

void TestAide::aProposDeQt()
{
    Fenetre fenetre;
    Scenario scenario;
    scenario.Repond("OK");
    fenetre.actHelpAboutQt->trigger();
    QCOMPARE(scenario.Ecarts(), QStringList());
    QCOMPARE(scenario.Boites().constFirst().titre, "ramelier - Arbre généalogique");
}

RAMELIER_TEST_FENETRE_MAIN(TestAide)
#include "tst_aide.moc"
