#include "fenetre.h"
#include "lytextbrowser.h"
#include "navigateurfiche.h"

#include <QAction>
#include <QDir>
#include <QPointer>

/// The manual, and the two boxes that tell what the program and its toolkit are.
class TestAide : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void cleanup();
    void aPropos();
    void aProposDeQt();
    void leManuelSOuvre_data();
    void leManuelSOuvre();
    void chaqueAppelOuvreUnManuel();
    void fermerLaFenetreFermeLesManuels();
    void unManuelAbsentEstDit();

private:
    static QList<LyTextBrowser *> Manuels();
};

namespace {

/// The program stands in \a dossier, its manual beside it.
QString ProgrammeAvecManuel(const Dossier &dossier)
{
    QDir(dossier.Chemin()).mkdir("AideRamelier");
    dossier.Ecrit("AideRamelier/index.html",
                  "<title>Le manuel</title><p>Bien d\xC3\xA9"
                  "buter</p>");
    return dossier.Chemin("ramelier");
}

}  // namespace

void TestAide::cleanup()
{
    qDeleteAll(Manuels());
}

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

QList<LyTextBrowser *> TestAide::Manuels()
{
    QList<LyTextBrowser *> trouves;
    const auto candidates = QApplication::topLevelWidgets();
    for (QWidget *candidate : candidates) {
        if (auto *manuel = qobject_cast<LyTextBrowser *>(candidate))
            trouves += manuel;
    }
    return trouves;
}

void TestAide::leManuelSOuvre_data()
{
    QTest::addColumn<bool>("auClavier");
    QTest::newRow("F1") << true;
    QTest::newRow("au menu") << false;
}

void TestAide::leManuelSOuvre()
{
    QFETCH(const bool, auClavier);
    const Dossier dossier;
    Fenetre fenetre({}, ProgrammeAvecManuel(dossier));
    QVERIFY(QTest::qWaitForWindowActive(&fenetre));
    if (auClavier)
        QTest::keyClick(&fenetre, Qt::Key_F1);
    else
        fenetre.actAide->trigger();
    QTRY_COMPARE(Manuels().size(), 1);
    const LyTextBrowser *manuel = Manuels().constFirst();
    QVERIFY(manuel->isVisible());
    QCOMPARE(manuel->windowTitle(), "Ramelier - Le manuel");
    QCOMPARE(manuel->titre, "Ramelier");
    QVERIFY(manuel->html);
    QCOMPARE(manuel->navigateur->toPlainText(), "Bien débuter");
    QCOMPARE(manuel->navigateur->source(), QUrl::fromLocalFile(dossier.Chemin("AideRamelier/index.html")));
    QVERIFY(!manuel->windowIcon().isNull());
    QCOMPARE(manuel->windowIcon().cacheKey(), fenetre.windowIcon().cacheKey());
}

void TestAide::chaqueAppelOuvreUnManuel()
{
    const Dossier dossier;
    Fenetre fenetre({}, ProgrammeAvecManuel(dossier));
    fenetre.actAide->trigger();
    fenetre.actAide->trigger();
    QCOMPARE(Manuels().size(), 2);
    Manuels().constFirst()->actFileQuit->trigger();
    QTRY_COMPARE(Manuels().size(), 1);
    QVERIFY(Manuels().constFirst()->isVisible());
    QVERIFY(fenetre.isVisible());
}

void TestAide::fermerLaFenetreFermeLesManuels()
{
    const Dossier dossier;
    Fenetre fenetre({}, ProgrammeAvecManuel(dossier));
    fenetre.actAide->trigger();
    fenetre.actAide->trigger();
    QCOMPARE(Manuels().size(), 2);
    QVERIFY(fenetre.close());
    QTRY_VERIFY(Manuels().isEmpty());
}

void TestAide::unManuelAbsentEstDit()
{
    const Dossier dossier;
    Fenetre fenetre({}, dossier.Chemin("ramelier"));
    const Scenario scenario;
    fenetre.actAide->trigger();
    QCOMPARE(scenario.Ecarts(), QStringList());
    QCOMPARE(Manuels().size(), 1);
    const LyTextBrowser *manuel = Manuels().constFirst();
    QCOMPARE(manuel->navigateur->toPlainText(),
             "Le fichier " + dossier.Chemin("AideRamelier/index.html") + " n'existe pas !");
    QCOMPARE(manuel->windowTitle(), "Ramelier - ");
}

RAMELIER_TEST_BUREAU_MAIN(TestAide)
#include "tst_aide.moc"
