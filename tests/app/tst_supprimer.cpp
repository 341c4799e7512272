#include "fenetre.h"

#include "annuaire.h"
#include "arbre.h"
#include "arbres.h"
#include "infopersonne.h"
#include "personne.h"
#include "ramelierdoc.h"

#include <QAction>
#include <QLabel>

/// Deleting a person, and taking the deletion back.
class TestSupprimer : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup();
    void laRacineNeSeSupprimePas();
    void laPremierePersonneNonPlus();
    void uneRacineSansAncetresNonPlus();
    void quiAUnAncetreNeSeSupprimePas_data();
    void quiAUnAncetreNeSeSupprimePas();
    void laQuestionDitSesTextes();
    void nonLaisseTout_data();
    void nonLaisseTout();
    void ouiSupprime();
    void apresUneSuppressionSeuleLAnnulationRestePossible();
    void annulerRemetLePere();
    void annulerRemetLaMere();
    void annulerRemetTousLesTextes();
    void quiRevientSeChercheParSonNom();
    void uneSuppressionNeSAnnuleQuUneFois();
    void unePlaceRepriseRefuseLAnnulation();
    void lesTextesDUnAutreRefusentLAnnulation();
    void uneSuppressionEffaceLaPrecedente();

private:
    void Edite(quint64 numero);
    void Supprime(quint64 numero);

    std::unique_ptr<Dossier> dossier;
    std::unique_ptr<Fenetre> fenetre;
};

namespace {

const QString titre = "Suppression de la personne sélectionnée";

QByteArray Famille()
{
    return ArbreEcrit("A",
                      {{1, "MARTIN", "Paul"},
                       {2, "MARTIN", "Jean", "jean.html", "Ploërmel"},
                       {3, "LEFÈVRE", "Élise"},
                       {6, "LEFÈVRE", "Louis"}});
}

}  // namespace

void TestSupprimer::init()
{
    EffaceReglages();
    dossier = std::make_unique<Dossier>();
    fenetre = std::make_unique<Fenetre>(QStringList{dossier->Ecrit("a.xrlg", Famille())});
    fenetre->actModeTravail->trigger();
}

void TestSupprimer::cleanup()
{
    fenetre.reset();
    dossier.reset();
}

void TestSupprimer::Edite(quint64 numero)
{
    Clique(*fenetre, numero);
    QCOMPARE(fenetre->doc->arbre->selection->numero, numero);
}

void TestSupprimer::Supprime(quint64 numero)
{
    Edite(numero);
    Scenario scenario;
    scenario.Repond("Oui");
    fenetre->actSuppPers->trigger();
    QCOMPARE(scenario.Ecarts(), QStringList());
}

void TestSupprimer::laRacineNeSeSupprimePas()
{
    Edite(1);
    const Journal journal(*fenetre);
    Scenario scenario;
    scenario.Repond("OK");
    fenetre->actSuppPers->trigger();
    QCOMPARE(scenario.Ecarts(), QStringList());
    const BoiteVue boite = scenario.Boites().constFirst();
    QCOMPARE(boite.titre, titre);
    QCOMPARE(boite.texte, "Impossible de supprimer la personne n° 1");
    QCOMPARE(boite.icone, QMessageBox::Information);
    QCOMPARE(boite.boutons, QStringList{"OK"});
    QCOMPARE(boite.parent, fenetre.get());
    QCOMPARE(journal.Lignes(), QStringList{"[" + titre + "]"});
    QCOMPARE(NumerosEnTexte(*fenetre->doc->arbre), "1 2 3 6");
}

void TestSupprimer::laPremierePersonneNonPlus()
{
    fenetre = std::make_unique<Fenetre>(QStringList{dossier->Ecrit("b.xrlg", ArbreEcrit("B", {{5, "MARTIN"}}))});
    fenetre->actModeTravail->trigger();
    Edite(5);
    Scenario scenario;
    scenario.Repond("OK");
    fenetre->actSuppPers->trigger();
    QCOMPARE(scenario.Ecarts(), QStringList());
    QCOMPARE(scenario.Boites().constFirst().texte, "Impossible de supprimer la personne n° 5");
    QCOMPARE(NumerosEnTexte(*fenetre->doc->arbre), "5");
}

void TestSupprimer::uneRacineSansAncetresNonPlus()
{
    fenetre = std::make_unique<Fenetre>(QStringList{dossier->Ecrit("b.xrlg", ArbreEcrit("B", {{1, "MARTIN"}}))});
    fenetre->actModeTravail->trigger();
    Edite(1);
    Scenario scenario;
    scenario.Repond("OK");
    fenetre->actSuppPers->trigger();
    QCOMPARE(scenario.Ecarts(), QStringList());
    QCOMPARE(scenario.Boites().constFirst().texte, "Impossible de supprimer la personne n° 1");
}

void TestSupprimer::quiAUnAncetreNeSeSupprimePas_data()
{
    QTest::addColumn<quint64>("parent");
    QTest::newRow("un père") << quint64(4);
    QTest::newRow("une mère") << quint64(5);
}

void TestSupprimer::quiAUnAncetreNeSeSupprimePas()
{
    QFETCH(const quint64, parent);
    const QString chemin =
        dossier->Ecrit("b.xrlg", ArbreEcrit("B", {{1, "MARTIN"}, {2, "MARTIN"}, {parent, "MARTIN"}}));
    fenetre = std::make_unique<Fenetre>(QStringList{chemin});
    fenetre->actModeTravail->trigger();
    Edite(2);
    Scenario scenario;
    scenario.Repond("OK");
    fenetre->actSuppPers->trigger();
    QCOMPARE(scenario.Ecarts(), QStringList());
    const BoiteVue boite = scenario.Boites().constFirst();
    QCOMPARE(boite.titre, titre);
    QCOMPARE(boite.texte, "Impossible de supprimer la personne n° 2 car elle possède au moins un ancêtrre");
    QCOMPARE(boite.icone, QMessageBox::Information);
    QCOMPARE(boite.boutons, QStringList{"OK"});
    QCOMPARE(fenetre->doc->arbre->nombrePersonnes, 3U);
}

void TestSupprimer::laQuestionDitSesTextes()
{
    Edite(6);
    const Journal journal(*fenetre);
    Scenario scenario;
    scenario.Repond("Non");
    fenetre->actSuppPers->trigger();
    QCOMPARE(scenario.Ecarts(), QStringList());
    const BoiteVue boite = scenario.Boites().constFirst();
    QCOMPARE(boite.titre, titre);
    QCOMPARE(boite.texte, "Voulez-vous vraiement supprimer la personne n° 6 ?");
    QCOMPARE(boite.icone, QMessageBox::Warning);
    QCOMPARE(boite.boutons, (QStringList{"Oui", "Non"}));
    QCOMPARE(boite.defaut, "Non");
    QCOMPARE(boite.echappement, "Non");
    QCOMPARE(journal.Lignes(), (QStringList{"[" + titre + "]", "Prêt."}));
}

void TestSupprimer::nonLaisseTout_data()
{
    QTest::addColumn<bool>("echappe");
    QTest::newRow("Non") << false;
    QTest::newRow("Echap") << true;
}

void TestSupprimer::nonLaisseTout()
{
    QFETCH(const bool, echappe);
    Edite(6);
    Scenario scenario;
    if (echappe)
        scenario.Echappe();
    else
        scenario.Repond("Non");
    fenetre->actSuppPers->trigger();
    QCOMPARE(scenario.Ecarts(), QStringList());
    QCOMPARE(NumerosEnTexte(*fenetre->doc->arbre), "1 2 3 6");
    QCOMPARE(fenetre->doc->arbre->selection->numero, 6U);
    QVERIFY(!fenetre->doc->isModified());
    QVERIFY(fenetre->actSuppPers->isEnabled());
    QVERIFY(!fenetre->actAnnuler->isEnabled());
}

void TestSupprimer::ouiSupprime()
{
    Edite(6);
    const Journal journal(*fenetre);
    Scenario scenario;
    scenario.Repond("Oui");
    fenetre->actSuppPers->trigger();
    QCOMPARE(scenario.Ecarts(), QStringList());
    QCOMPARE(ArbreEnTexte(*fenetre->doc->arbre), "1 Paul MARTIN\n  2 Jean MARTIN\n  3 Élise LEFÈVRE\n");
    QCOMPARE(fenetre->labelInfoModif->text(), " document modifé ");
    QCOMPARE(journal.Lignes(), (QStringList{"[" + titre + "]", "Prêt."}));
}

void TestSupprimer::apresUneSuppressionSeuleLAnnulationRestePossible()
{
    Supprime(6);
    QVERIFY(!fenetre->doc->arbre->selection);
    QVERIFY(fenetre->actAnnuler->isEnabled());
    QCOMPARE(fenetre->actAnnuler->text(), "&Annuler");
    for (const QAction *action : {fenetre->actModifier, fenetre->actSuppPers, fenetre->actAjouterPere,
                                  fenetre->actAjouterMere, fenetre->actEditFicheHTML, fenetre->actAffFicheHTML})
        QVERIFY2(!action->isEnabled(), qPrintable(action->text()));
}

void TestSupprimer::annulerRemetLePere()
{
    Supprime(6);
    fenetre->doc->modifie = false;
    fenetre->MaJStatusBarreInfoModif();
    QList<int> codes;
    connect(fenetre.get(), &RamelierApp::docChanged, this, [&codes](int code) { codes += code; });
    fenetre->actAnnuler->trigger();
    QCOMPARE(codes, QList<int>{1});
    QCOMPARE(ArbreEnTexte(*fenetre->doc->arbre),
             "1 Paul MARTIN\n  2 Jean MARTIN\n  3 Élise LEFÈVRE\n    6 Louis LEFÈVRE\n");
    QCOMPARE(Trouve(*fenetre->doc->arbre, 3)->ptrPere, Trouve(*fenetre->doc->arbre, 6));
    QCOMPARE(fenetre->doc->arbre->nombreGenerations, 3);
    QVERIFY(!fenetre->actAnnuler->isEnabled());
    QVERIFY(!fenetre->doc->arbre->infoSauvee);
    QVERIFY(!fenetre->doc->arbre->enfantSansPere);
    QVERIFY(fenetre->doc->isModified());
    QCOMPARE(fenetre->labelInfoModif->text(), " document modifé ");
}

void TestSupprimer::annulerRemetLaMere()
{
    Supprime(6);
    Supprime(3);
    QVERIFY(fenetre->doc->arbre->enfantSansMere);
    fenetre->actAnnuler->trigger();
    QCOMPARE(ArbreEnTexte(*fenetre->doc->arbre), "1 Paul MARTIN\n  2 Jean MARTIN\n  3 Élise LEFÈVRE\n");
    QCOMPARE(fenetre->doc->arbre->premiere->ptrMere, Trouve(*fenetre->doc->arbre, 3));
    QCOMPARE(fenetre->doc->arbre->premiere->mere, 3U);
    QVERIFY(!fenetre->doc->arbre->enfantSansMere);
    QVERIFY(!fenetre->actAnnuler->isEnabled());
}

void TestSupprimer::annulerRemetTousLesTextes()
{
    Supprime(2);
    QCOMPARE(NumerosEnTexte(*fenetre->doc->arbre), "1 3 6");
    fenetre->actAnnuler->trigger();
    const Personne *jean = Trouve(*fenetre->doc->arbre, 2);
    QVERIFY(jean);
    QCOMPARE(jean->info->nom, "MARTIN");
    QCOMPARE(jean->info->prenom, "Jean");
    QCOMPARE(jean->info->lieunaissance, "Ploërmel");
    QCOMPARE(jean->info->fichtml, "jean.html");
    QCOMPARE(jean->affichable, true);
    QCOMPARE(jean->selectionnee, false);
}

void TestSupprimer::quiRevientSeChercheParSonNom()
{
    const auto louis = [this] {
        const Personne *trouvee =
            fenetre->doc->arbre->SonAnnuaire().Prochaine(nullptr, true, NomCherche(QStringView(u"louis")));
        return trouvee ? trouvee->numero : 0;
    };
    QCOMPARE(louis(), 6U);
    Supprime(6);
    QCOMPARE(louis(), 0U);
    fenetre->actAnnuler->trigger();
    QCOMPARE(louis(), 6U);
}

void TestSupprimer::uneSuppressionNeSAnnuleQuUneFois()
{
    Supprime(6);
    fenetre->actAnnuler->trigger();
    fenetre->slotAnnuler();
    QCOMPARE(NumerosEnTexte(*fenetre->doc->arbre), "1 2 3 6");
}

void TestSupprimer::unePlaceRepriseRefuseLAnnulation()
{
    Supprime(6);
    Arbre &arbre = *fenetre->doc->arbre;
    arbre.AjoutePersonne(arbre.enfantSansPere, true)->info->nom = "LEROY";
    fenetre->actAnnuler->trigger();
    QCOMPARE(ArbreEnTexte(arbre), "1 Paul MARTIN\n  2 Jean MARTIN\n  3 Élise LEFÈVRE\n    6 LEROY\n");
    QVERIFY(!fenetre->actAnnuler->isEnabled());
}

void TestSupprimer::lesTextesDUnAutreRefusentLAnnulation()
{
    Supprime(6);
    fenetre->doc->arbre->numeroSauve = 7;
    fenetre->actAnnuler->trigger();
    QCOMPARE(NumerosEnTexte(*fenetre->doc->arbre), "1 2 3");
}

void TestSupprimer::uneSuppressionEffaceLaPrecedente()
{
    Supprime(6);
    Supprime(2);
    fenetre->actAnnuler->trigger();
    fenetre->slotAnnuler();
    QCOMPARE(ArbreEnTexte(*fenetre->doc->arbre), "1 Paul MARTIN\n  2 Jean MARTIN\n  3 Élise LEFÈVRE\n");
}

RAMELIER_TEST_BUREAU_MAIN(TestSupprimer)
#include "tst_supprimer.moc"
