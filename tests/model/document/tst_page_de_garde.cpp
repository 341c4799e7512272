#include "bancdocument.h"
#include "dlgpdg.h"

#include <optional>

/// RamelierDoc::EditPdG: the title page of the tree.
class TestPageDeGarde : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup();
    void lesCinqChampsMontrentLaPageDeGarde();
    void lesCinqChampsReviennent();
    void seulCeQuiEstToucheRevient();
    void reecrireLeMemeTexteCompte();
    void sansEffetRienNeChange_data();
    void sansEffetRienNeChange();
    void pendantUneCreationLesTextesViennentEnSilence();
    void leTitreNAPasDeLimite();
    void sansArbreRienNeSOuvre();

private:
    [[nodiscard]] QStringList Page() const;

    std::optional<Banc> banc;
};

void TestPageDeGarde::init()
{
    banc.emplace();
    banc->Ouvre({1});
    *banc->doc.arbre->infoArbre = {
        .titrearbre = "Les Martin", .creepar = "Paul", .date = "1912", .majpar = "Élise", .datemaj = "2 mai 1920"};
}

void TestPageDeGarde::cleanup()
{
    QVERIFY(banc->EstRange());
    banc.reset();
}

QStringList TestPageDeGarde::Page() const
{
    const InfoArbre &page = *banc->doc.arbre->infoArbre;
    return {page.titrearbre, page.creepar, page.date, page.majpar, page.datemaj};
}

void TestPageDeGarde::lesCinqChampsMontrentLaPageDeGarde()
{
    QStringList vus;
    Scenario scenario;
    scenario.Dialogue<DlgPdG>([&vus](DlgPdG &dialogue) {
        vus = {dialogue.TextTitre->text(), dialogue.TextCreePar->text(), dialogue.TextDateCreation->text(),
               dialogue.TextMaJPar->text(), dialogue.TextDateMaJ->text()};
        dialogue.reject();
    });
    banc->doc.EditPdG(&banc->fenetre);
    QCOMPARE(scenario.Ecarts(), QStringList());
    QCOMPARE(vus, (QStringList{"Les Martin", "Paul", "1912", "Élise", "2 mai 1920"}));
}

void TestPageDeGarde::lesCinqChampsReviennent()
{
    Scenario scenario;
    Saisit<DlgPdG>(scenario,
                   {{"TextTitre", "a"},
                    {"TextCreePar", "b"},
                    {"TextDateCreation", "c"},
                    {"TextMaJPar", "d"},
                    {"TextDateMaJ", ""}});
    banc->doc.EditPdG(&banc->fenetre);
    QCOMPARE(scenario.Ecarts(), QStringList());
    QCOMPARE(Page(), (QStringList{"a", "b", "c", "d", ""}));
    QCOMPARE(banc->deroulement.Lignes(), (QStringList{"dialogue DlgPdG", "documentChanged 1"}));
    QVERIFY(banc->doc.isModified());
    QVERIFY(!banc->doc.areOptionsModified());
}

void TestPageDeGarde::seulCeQuiEstToucheRevient()
{
    const QString long300(300, 'x');
    InfoArbre &page = *banc->doc.arbre->infoArbre;
    page.creepar = long300;
    page.date = "une\nautre\r\nligne";
    Scenario scenario;
    Saisit<DlgPdG>(scenario, {{"TextMaJPar", "Jean"}});
    banc->doc.EditPdG(&banc->fenetre);
    QCOMPARE(scenario.Ecarts(), QStringList());
    QCOMPARE(Page(), (QStringList{"Les Martin", long300, "une\nautre\r\nligne", "Jean", "2 mai 1920"}));
}

void TestPageDeGarde::reecrireLeMemeTexteCompte()
{
    Scenario scenario;
    Saisit<DlgPdG>(scenario, {{"TextCreePar", "Paul"}});
    banc->doc.EditPdG(&banc->fenetre);
    QCOMPARE(scenario.Ecarts(), QStringList());
    QCOMPARE(banc->deroulement.Lignes(), (QStringList{"dialogue DlgPdG", "documentChanged 1"}));
    QVERIFY(banc->doc.isModified());
}

void TestPageDeGarde::sansEffetRienNeChange_data()
{
    QTest::addColumn<bool>("accepte");
    QTest::addColumn<bool>("modifieAvant");
    QTest::newRow("acceptée sans rien toucher") << true << false;
    QTest::newRow("annulée après avoir écrit") << false << false;
    QTest::newRow("acceptée sans rien toucher, arbre déjà modifié") << true << true;
}

void TestPageDeGarde::sansEffetRienNeChange()
{
    QFETCH(const bool, accepte);
    QFETCH(const bool, modifieAvant);
    banc->doc.modifie = modifieAvant;
    Scenario scenario;
    if (accepte)
        Saisit<DlgPdG>(scenario, {});
    else
        Abandonne<DlgPdG>(scenario, {{"TextTitre", "Les Durand"}, {"TextMaJPar", "Jean"}});
    banc->doc.EditPdG(&banc->fenetre);
    QCOMPARE(scenario.Ecarts(), QStringList());
    QCOMPARE(Page(), (QStringList{"Les Martin", "Paul", "1912", "Élise", "2 mai 1920"}));
    QCOMPARE(banc->deroulement.Lignes(), QStringList{modifieAvant ? "dialogue DlgPdG modifié" : "dialogue DlgPdG"});
    QCOMPARE(banc->doc.isModified(), modifieAvant);
}

void TestPageDeGarde::pendantUneCreationLesTextesViennentEnSilence()
{
    banc->doc.creationEnCours = true;
    Scenario scenario;
    Saisit<DlgPdG>(scenario, {{"TextTitre", "Les Durand"}});
    banc->doc.EditPdG(&banc->fenetre);
    QCOMPARE(scenario.Ecarts(), QStringList());
    QCOMPARE(banc->doc.arbre->infoArbre->titrearbre, "Les Durand");
    QCOMPARE(banc->deroulement.Lignes(), QStringList{"dialogue DlgPdG"});
    QVERIFY(!banc->doc.isModified());
}

void TestPageDeGarde::leTitreNAPasDeLimite()
{
    Scenario scenario;
    Saisit<DlgPdG>(scenario, {{"TextTitre", QString(1000, 'T')}, {"TextCreePar", QString(251, 'x')}});
    banc->doc.EditPdG(&banc->fenetre);
    QCOMPARE(scenario.Ecarts(), QStringList());
    QCOMPARE(banc->doc.arbre->infoArbre->titrearbre, QString(1000, 'T'));
    QCOMPARE(banc->doc.arbre->infoArbre->creepar, QString(250, 'x'));
}

void TestPageDeGarde::sansArbreRienNeSOuvre()
{
    delete std::exchange(banc->doc.arbre, nullptr);
    Scenario scenario;
    banc->doc.EditPdG(&banc->fenetre);
    QCOMPARE(scenario.Ecarts(), QStringList());
    QCOMPARE(banc->deroulement.Lignes(), QStringList());
    QVERIFY(!banc->doc.isModified());
}

RAMELIER_TEST_MAIN(QApplication, TestPageDeGarde)
#include "tst_page_de_garde.moc"
