#include "dlgpdg.h"
#include "dlgpers.h"
#include "fenetre.h"
#include "saisie.h"

#include "arbre.h"
#include "arbres.h"
#include "arbview.h"
#include "infopersonne.h"
#include "personne.h"
#include "ramelierdoc.h"
#include "ramelierview.h"

#include <QAction>
#include <QLabel>
#include <QMenu>

/// The commands that change and add persons and the title page, and the double click.
class TestEditer : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup();
    void modifierChangeLaPersonne();
    void modifierSansRienChangerNeMarqueRien_data();
    void modifierSansRienChangerNeMarqueRien();
    void unePersonneVideeRecoitUnNom();
    void ajouterLePere();
    void ajouterLaMere();
    void unAjoutAbandonneNeDitRien_data();
    void unAjoutAbandonneNeDitRien();
    void unParentPresentNEstPasAjoute();
    void laPageDeGarde();
    void laPageDeGardeAbandonnee();
    void sansSelectionRienNeSePasse();
    void sansArbreRienNeSePasse();
    void leDoubleClicEnEditionModifie();
    void leDoubleClicEnConsultationSansFiche();
    void leMenuDeLaPersonneEditeAussi();

private:
    void Edite(quint64 numero);
    [[nodiscard]] QString Nom(quint64 numero) const { return Trouve(*fenetre->doc->arbre, numero)->info->nom; }

    std::unique_ptr<Dossier> dossier;
    std::unique_ptr<Fenetre> fenetre;
};

namespace {

const QString pasModifie(21, ' ');
const QString modifie = " document modifé ";
const QString titreDuDialogue = "[Personne (Création / Modification)]";

void DoubleClique(Fenetre &fenetre, quint64 numero)
{
    Clique(fenetre, numero);
    const Personne *personne = Trouve(*fenetre.doc->arbre, numero);
    QTest::mouseDClick(fenetre.view->vue(), Qt::LeftButton, {}, QPoint(int(personne->x) + 20, int(personne->y) + 20));
}

}  // namespace

void TestEditer::init()
{
    EffaceReglages();
    dossier = std::make_unique<Dossier>();
    const QString chemin = dossier->Ecrit(
        "a.xrlg", ArbreEcrit("A", {{1, "MARTIN", "Paul"}, {2, "MARTIN", "Jean"}, {3, "LEFÈVRE", "Élise"}}));
    fenetre = std::make_unique<Fenetre>(QStringList{chemin});
}

void TestEditer::cleanup()
{
    fenetre.reset();
    dossier.reset();
}

void TestEditer::Edite(quint64 numero)
{
    fenetre->actModeTravail->trigger();
    Clique(*fenetre, numero);
    QCOMPARE(fenetre->doc->arbre->selection->numero, numero);
}

void TestEditer::modifierChangeLaPersonne()
{
    Edite(2);
    const Journal journal(*fenetre);
    QString entete;
    Scenario scenario;
    scenario.Dialogue<DlgPers>([&entete](DlgPers &dialogue) {
        entete = dialogue.LabelTitre->text();
        Ecrit(dialogue, "TxtNom", "DURAND");
        dialogue.accept();
    });
    fenetre->actModifier->trigger();
    QCOMPARE(scenario.Ecarts(), QStringList());
    QCOMPARE(entete, "Modification des informations de la personne n°2");
    QCOMPARE(journal.Lignes(), (QStringList{" ...", titreDuDialogue, "Prêt."}));
    QCOMPARE(ArbreEnTexte(*fenetre->doc->arbre), "1 Paul MARTIN\n  2 Jean DURAND\n  3 Élise LEFÈVRE\n");
    QCOMPARE(fenetre->labelInfoModif->text(), modifie);
    QVERIFY(fenetre->actAnnuler->isEnabled());
    QCOMPARE(fenetre->actAnnuler->text(), "&Annuler");
}

void TestEditer::modifierSansRienChangerNeMarqueRien_data()
{
    QTest::addColumn<bool>("accepte");
    QTest::newRow("accepté sans rien toucher") << true;
    QTest::newRow("annulé après avoir écrit") << false;
}

void TestEditer::modifierSansRienChangerNeMarqueRien()
{
    QFETCH(const bool, accepte);
    Edite(2);
    Scenario scenario;
    if (accepte)
        Saisit<DlgPers>(scenario, {});
    else
        Abandonne<DlgPers>(scenario, {{"TxtNom", "DURAND"}});
    fenetre->actModifier->trigger();
    QCOMPARE(scenario.Ecarts(), QStringList());
    QCOMPARE(Nom(2), "MARTIN");
    QCOMPARE(fenetre->labelInfoModif->text(), pasModifie);
    QVERIFY(!fenetre->actAnnuler->isEnabled());
    QCOMPARE(StatutDe(*fenetre), "Prêt.");
}

void TestEditer::unePersonneVideeRecoitUnNom()
{
    Edite(3);
    Scenario scenario;
    Saisit<DlgPers>(scenario, {{"TxtNom", ""}, {"TxtPrenom", ""}});
    scenario.Repond("OK");
    fenetre->actModifier->trigger();
    QCOMPARE(scenario.Ecarts(), QStringList());
    const BoiteVue boite = scenario.Boites().constFirst();
    QCOMPARE(boite.titre, "Modification");
    QCOMPARE(boite.texte,
             "Après modification, la personne n'avait plus de nom ni de prénom.\n"
             "Pour éviter des problèmes ultérieurs, le nom ??? lui a été affecté arbitrairement !!");
    QCOMPARE(boite.icone, QMessageBox::Information);
    QCOMPARE(boite.boutons, QStringList{"OK"});
    QCOMPARE(boite.parent, fenetre.get());
    QCOMPARE(Nom(3), "???");
    QVERIFY(fenetre->actAnnuler->isEnabled());
}

void TestEditer::ajouterLePere()
{
    Edite(3);
    const Journal journal(*fenetre);
    Scenario scenario;
    Saisit<DlgPers>(scenario, {{"TxtNom", "LEFÈVRE"}, {"TxtPrenom", "Louis"}});
    fenetre->actAjouterPere->trigger();
    QCOMPARE(scenario.Ecarts(), QStringList());
    QCOMPARE(journal.Lignes(), (QStringList{titreDuDialogue, "Prêt."}));
    QCOMPARE(ArbreEnTexte(*fenetre->doc->arbre),
             "1 Paul MARTIN\n  2 Jean MARTIN\n  3 Élise LEFÈVRE\n    6 Louis LEFÈVRE\n");
    QCOMPARE(fenetre->doc->arbre->selection->numero, 6U);
    QCOMPARE(fenetre->labelInfoModif->text(), modifie);
    QVERIFY(fenetre->actAjouterPere->isEnabled());
    QVERIFY(!fenetre->actAnnuler->isEnabled());
}

void TestEditer::ajouterLaMere()
{
    Edite(3);
    Scenario scenario;
    Saisit<DlgPers>(scenario, {{"TxtPrenom", "Marie"}});
    fenetre->actAjouterMere->trigger();
    QCOMPARE(scenario.Ecarts(), QStringList());
    QCOMPARE(NumerosEnTexte(*fenetre->doc->arbre), "1 2 3 7");
    QCOMPARE(fenetre->doc->arbre->selection->numero, 7U);
    // The child now has a mother, no father.
    Clique(*fenetre, 3);
    QVERIFY(fenetre->actAjouterPere->isEnabled());
    QVERIFY(!fenetre->actAjouterMere->isEnabled());
}

void TestEditer::unAjoutAbandonneNeDitRien_data()
{
    QTest::addColumn<bool>("accepte");
    QTest::newRow("annulé") << false;
    QTest::newRow("accepté sans nom ni prénom") << true;
}

void TestEditer::unAjoutAbandonneNeDitRien()
{
    QFETCH(const bool, accepte);
    Edite(3);
    const Journal journal(*fenetre);
    Scenario scenario;
    if (accepte)
        Saisit<DlgPers>(scenario, {{"TxtDivers", "forgeron"}});
    else
        Abandonne<DlgPers>(scenario, {{"TxtNom", "LEFÈVRE"}});
    fenetre->actAjouterPere->trigger();
    QCOMPARE(scenario.Ecarts(), QStringList());
    QCOMPARE(journal.Lignes(), QStringList{titreDuDialogue});
    QCOMPARE(NumerosEnTexte(*fenetre->doc->arbre), "1 2 3");
    QCOMPARE(fenetre->doc->arbre->selection->numero, 3U);
    QCOMPARE(fenetre->labelInfoModif->text(), pasModifie);
    QVERIFY(!fenetre->doc->isModified());
    QVERIFY(fenetre->actAjouterPere->isEnabled());
}

void TestEditer::unParentPresentNEstPasAjoute()
{
    Edite(1);
    QVERIFY(!fenetre->actAjouterPere->isEnabled());
    QVERIFY(!fenetre->actAjouterMere->isEnabled());
    Scenario scenario;
    fenetre->slotAjouterPere();
    fenetre->slotAjouterMere();
    QCOMPARE(scenario.Ecarts(), QStringList());
    QCOMPARE(NumerosEnTexte(*fenetre->doc->arbre), "1 2 3");
}

void TestEditer::laPageDeGarde()
{
    fenetre->actModeTravail->trigger();
    const Journal journal(*fenetre);
    Scenario scenario;
    Saisit<DlgPdG>(scenario, {{"TextTitre", "Les Martin"}, {"TextDateMaJ", "2026"}});
    fenetre->actEditPdG->trigger();
    QCOMPARE(scenario.Ecarts(), QStringList());
    QCOMPARE(journal.Lignes(),
             (QStringList{"Edition de la page de garde ...", "[Arbre généalogique - Page de garde]", "Prêt."}));
    QCOMPARE(fenetre->doc->arbre->infoArbre->titrearbre, "Les Martin");
    QCOMPARE(fenetre->doc->arbre->infoArbre->datemaj, "2026");
    QCOMPARE(fenetre->labelInfoModif->text(), modifie);
}

void TestEditer::laPageDeGardeAbandonnee()
{
    fenetre->actModeTravail->trigger();
    Scenario scenario;
    Abandonne<DlgPdG>(scenario, {{"TextTitre", "Les Martin"}});
    fenetre->actEditPdG->trigger();
    QCOMPARE(scenario.Ecarts(), QStringList());
    QCOMPARE(fenetre->doc->arbre->infoArbre->titrearbre, "A");
    QCOMPARE(fenetre->labelInfoModif->text(), pasModifie);
}

void TestEditer::sansSelectionRienNeSePasse()
{
    fenetre->actModeTravail->trigger();
    const Journal journal(*fenetre);
    Scenario scenario;
    fenetre->slotModifier();
    fenetre->slotAjouterPere();
    fenetre->slotAjouterMere();
    fenetre->slotSuppPers();
    fenetre->slotAnnuler();
    fenetre->slotPersonneDoubleCliquee();
    QCOMPARE(scenario.Ecarts(), QStringList());
    QCOMPARE(journal.Lignes(), QStringList());
    QCOMPARE(NumerosEnTexte(*fenetre->doc->arbre), "1 2 3");
    QVERIFY(!fenetre->doc->isModified());
}

void TestEditer::sansArbreRienNeSePasse()
{
    fenetre = std::make_unique<Fenetre>();
    const Journal journal(*fenetre);
    Scenario scenario;
    fenetre->slotModifier();
    fenetre->slotAjouterPere();
    fenetre->slotAjouterMere();
    fenetre->slotSuppPers();
    fenetre->slotAnnuler();
    fenetre->slotEditPdG();
    fenetre->slotPersonneDoubleCliquee();
    QCOMPARE(scenario.Ecarts(), QStringList());
    QCOMPARE(journal.Lignes(), QStringList());
    QVERIFY(!fenetre->doc->isModified());
}

void TestEditer::leDoubleClicEnEditionModifie()
{
    fenetre->actModeTravail->trigger();
    QString entete;
    Scenario scenario;
    scenario.Dialogue<DlgPers>([&entete](DlgPers &dialogue) {
        entete = dialogue.LabelTitre->text();
        Ecrit(dialogue, "TxtNom", "LEROY");
        dialogue.accept();
    });
    DoubleClique(*fenetre, 3);
    QCOMPARE(scenario.Ecarts(), QStringList());
    QCOMPARE(entete, "Modification des informations de la personne n°3");
    QCOMPARE(Nom(3), "LEROY");
    QCOMPARE(fenetre->labelInfoModif->text(), modifie);
}

void TestEditer::leDoubleClicEnConsultationSansFiche()
{
    Scenario scenario;
    scenario.Repond("OK");
    DoubleClique(*fenetre, 3);
    QCOMPARE(scenario.Ecarts(), QStringList());
    const BoiteVue boite = scenario.Boites().constFirst();
    QCOMPARE(boite.titre, "Information");
    QCOMPARE(boite.texte, "Il n'y a pas de fiche associée à la personne n°3");
    QCOMPARE(boite.icone, QMessageBox::Information);
    QCOMPARE(boite.boutons, QStringList{"OK"});
}

void TestEditer::leMenuDeLaPersonneEditeAussi()
{
    Edite(2);
    Clique(*fenetre, 2, Qt::RightButton);
    QMenu *menu = fenetre->popupPersonne;
    QVERIFY(menu->isVisible());
    Scenario scenario;
    Saisit<DlgPers>(scenario, {{"TxtNom", "MOREAU"}});
    QTest::mouseClick(menu, Qt::LeftButton, {}, menu->actionGeometry(fenetre->actModifier).center());
    QCOMPARE(scenario.Ecarts(), QStringList());
    QCOMPARE(Nom(2), "MOREAU");
}

RAMELIER_TEST_BUREAU_MAIN(TestEditer)
#include "tst_editer.moc"
