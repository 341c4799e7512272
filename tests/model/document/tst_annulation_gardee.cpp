#include "annulationreservee.h"
#include "bancdocument.h"
#include "dlgoptdessin.h"
#include "dlgpdg.h"
#include "dlgpers.h"
#include "dlgpolices.h"

#include <optional>

/// What the tree keeps for undo through modifications, additions and deletions: the last change alone.
class TestAnnulationGardee : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup();
    void pendantLaSaisieLaSelectionEstGardee();
    void uneModificationGardeLesTextesDAvant();
    void laCopieEstLaAvantLesSignaux();
    void laCopieRecharge_data();
    void laCopieRecharge();
    void unNomAttribueGardeLAncien();
    void uneModificationRemplaceLaPrecedente();
    void uneModificationEffaceUneSuppression_data();
    void uneModificationEffaceUneSuppression();
    void sansEffetToutResteGarde_data();
    void sansEffetToutResteGarde();
    void unAjoutFaitEffaceTout_data();
    void unAjoutFaitEffaceTout();
    void laPresentationNEffaceRien();
    void oublierEffaceTout();
    void leNumeroSuitLaCopie();
    void laReserveRemetCeQuElleAPris();
    void laReserveCedeLaPlace();

private:
    enum Avant { Rien, Modification, SuppressionDuPere, SuppressionDeLaMere };
    void Prepare(Avant avant);
    static void ColonneAvant();
    void Modifie(const Textes &textes);
    [[nodiscard]] QString Gardee() const { return Annulation(*banc->doc.arbre); }

    std::optional<Banc> banc;
};

void TestAnnulationGardee::init()
{
    banc.emplace();
    banc->EcritPhoto("six.png");
    banc->Ouvre({1, 2, 3, 6, 7});
    banc->Info(6).ficphoto = "six.png";
}

void TestAnnulationGardee::cleanup()
{
    QVERIFY(banc->EstRange());
    banc.reset();
}

/// One change that can be taken back; person 3 is then selected.
void TestAnnulationGardee::Prepare(Avant avant)
{
    if (avant != Rien)
        banc->Choisit(avant == SuppressionDeLaMere ? 7 : 6);
    if (avant == Modification)
        Modifie({{"TxtNom", "DURAND"}});
    else if (avant != Rien)
        banc->doc.SupPersonne(banc->repertoire);
    banc->Choisit(3);
    const QStringList attendus{"rien", "N6 de 6, sans père 0, sans mère 0", "N6 de 6, sans père 3, sans mère 0",
                               "N7 de 7, sans père 0, sans mère 3"};
    QCOMPARE(Gardee(), attendus.at(avant));
}

void TestAnnulationGardee::ColonneAvant()
{
    QTest::addColumn<int>("avant");
}

void TestAnnulationGardee::Modifie(const Textes &textes)
{
    Scenario scenario;
    Saisit<DlgPers>(scenario, textes);
    banc->doc.CreaModifPers(&banc->fenetre, banc->repertoire, false);
    QCOMPARE(scenario.Ecarts(), QStringList());
}

void TestAnnulationGardee::pendantLaSaisieLaSelectionEstGardee()
{
    banc->Choisit(6);
    banc->Info(6).lieudeces = "Brest";
    QString nom;
    QString textes;
    Scenario scenario;
    scenario.Dialogue<DlgPers>([&](DlgPers &dialogue) {
        nom = Gardee();
        textes = EnTexte(*banc->doc.arbre->infoSauvee);
        dialogue.reject();
    });
    banc->doc.CreaModifPers(&banc->fenetre, banc->repertoire, false);
    QCOMPARE(scenario.Ecarts(), QStringList());
    QCOMPARE(nom, "N6 de 6, sans père 0, sans mère 0");
    QCOMPARE(textes, "N6|||||Brest|||six.png photo 1");
    QCOMPARE(Gardee(), "rien");
}

void TestAnnulationGardee::uneModificationGardeLesTextesDAvant()
{
    banc->Choisit(3);
    banc->Info(3) = InfoPersonne("MARTIN", "Paul", "dn", "ln", "dd", "ld", "rem\nrem", "p.html", "", -1);
    Modifie({{"TxtNom", "DURAND"},
             {"TxtPrenom", "Anne"},
             {"TxtDivers", "forgeron"},
             {"TxtFicHtml", ""},
             {"TxtFicPhoto", "six.png"}});
    QCOMPARE(EnTexte(*banc->doc.arbre->infoSauvee), "MARTIN|Paul|dn|ln|dd|ld|rem\nrem|p.html| photo -1");
    QCOMPARE(banc->doc.arbre->numeroSauve, 3U);
}

void TestAnnulationGardee::laCopieEstLaAvantLesSignaux()
{
    Prepare(SuppressionDuPere);
    QStringList vues;
    connect(&banc->doc, &RamelierDoc::autoriseAnnulation, this, [&] { vues += Gardee(); });
    connect(&banc->doc, &RamelierDoc::documentChanged, this, [&] { vues += Gardee(); });
    Modifie({{"TxtNom", "DURAND"}});
    QCOMPARE(vues, QStringList(2, "N3 de 3, sans père 0, sans mère 0"));
}

void TestAnnulationGardee::laCopieRecharge_data()
{
    QTest::addColumn<QString>("fichier");
    QTest::addColumn<int>("etat");
    QTest::newRow("un fichier") << "six.png" << 1;
    QTest::newRow("un fichier qui manque") << "sept.png" << 0;
    QTest::newRow("aucun") << "" << -1;
}

void TestAnnulationGardee::laCopieRecharge()
{
    QFETCH(const QString, fichier);
    QFETCH(const int, etat);
    banc->Choisit(6);
    banc->Info(6).ficphoto = fichier;
    banc->Info(6).etatPhoto = 3;
    Modifie({{"TxtFicPhoto", "autre.png"}});
    const InfoPersonne &copie = *banc->doc.arbre->infoSauvee;
    QCOMPARE(copie.ficphoto, fichier);
    QCOMPARE(copie.etatPhoto, etat);
    QCOMPARE(copie.photo.isNull(), etat != 1);
}

void TestAnnulationGardee::unNomAttribueGardeLAncien()
{
    banc->Choisit(2);
    Scenario scenario;
    Saisit<DlgPers>(scenario, {{"TxtNom", ""}});
    scenario.Repond("OK");
    banc->doc.CreaModifPers(&banc->fenetre, banc->repertoire, false);
    QCOMPARE(scenario.Ecarts(), QStringList());
    QCOMPARE(banc->Info(2).nom, "???");
    QCOMPARE(Gardee(), "N2 de 2, sans père 0, sans mère 0");
}

void TestAnnulationGardee::uneModificationRemplaceLaPrecedente()
{
    banc->Choisit(2);
    Modifie({{"TxtNom", "DURAND"}});
    Modifie({{"TxtNom", "LEROY"}});
    QCOMPARE(Gardee(), "DURAND de 2, sans père 0, sans mère 0");
    banc->Choisit(1);
    Modifie({{"TxtPrenom", "Paul"}});
    QCOMPARE(Gardee(), "N1 de 1, sans père 0, sans mère 0");
}

void TestAnnulationGardee::uneModificationEffaceUneSuppression_data()
{
    ColonneAvant();
    QTest::newRow("d'un père") << int(SuppressionDuPere);
    QTest::newRow("d'une mère") << int(SuppressionDeLaMere);
}

void TestAnnulationGardee::uneModificationEffaceUneSuppression()
{
    QFETCH(const int, avant);
    Prepare(Avant(avant));
    Modifie({{"TxtNom", "DURAND"}});
    QCOMPARE(Gardee(), "N3 de 3, sans père 0, sans mère 0");
}

void TestAnnulationGardee::sansEffetToutResteGarde_data()
{
    ColonneAvant();
    QTest::addColumn<QString>("geste");
    const QStringList avants{"rien", "une modification", "un père supprimé", "une mère supprimée"};
    const QStringList gestes{"modifier, annulé", "modifier, sans rien toucher", "ajouter, annulé",
                             "ajouter, sans nom ni prénom"};
    for (const QString &geste : gestes) {
        for (const Avant avant : {Rien, Modification, SuppressionDuPere, SuppressionDeLaMere})
            QTest::newRow(qPrintable(avants.at(avant) + ": " + geste)) << int(avant) << geste;
    }
}

void TestAnnulationGardee::sansEffetToutResteGarde()
{
    QFETCH(const int, avant);
    QFETCH(const QString, geste);
    Prepare(Avant(avant));
    const bool ajoute = geste.startsWith("ajouter");
    // The place of a deleted father or mother is free again: that one is tried.
    const bool pere = avant != SuppressionDeLaMere;
    if (avant < SuppressionDuPere)
        banc->Choisit(2);
    const QString toutAvant = ToutEnTexte(*banc->doc.arbre);
    const InfoPersonne *copie = banc->doc.arbre->infoSauvee;
    const QString texteAvant = copie ? EnTexte(*copie) : QString();
    Scenario scenario;
    if (geste.endsWith(", annulé"))
        Abandonne<DlgPers>(scenario, {{"TxtNom", "LEROY"}});
    else
        Saisit<DlgPers>(scenario, ajoute ? Textes{{"TxtDivers", "forgeron"}} : Textes{});
    if (ajoute)
        QVERIFY(!banc->doc.AjoutePersonne(&banc->fenetre, banc->repertoire, pere));
    else
        banc->doc.CreaModifPers(&banc->fenetre, banc->repertoire, false);
    QCOMPARE(scenario.Ecarts(), QStringList());
    QCOMPARE(ToutEnTexte(*banc->doc.arbre), toutAvant);
    copie = banc->doc.arbre->infoSauvee;
    QCOMPARE(copie ? EnTexte(*copie) : QString(), texteAvant);
    if (avant == Modification || avant == SuppressionDuPere)
        QCOMPARE(copie->photo.size(), QSize(30, 40));
}

void TestAnnulationGardee::unAjoutFaitEffaceTout_data()
{
    ColonneAvant();
    QTest::newRow("rien") << int(Rien);
    QTest::newRow("une modification") << int(Modification);
    QTest::newRow("un père supprimé") << int(SuppressionDuPere);
    QTest::newRow("une mère supprimée") << int(SuppressionDeLaMere);
}

void TestAnnulationGardee::unAjoutFaitEffaceTout()
{
    QFETCH(const int, avant);
    Prepare(Avant(avant));
    banc->Choisit(2);
    QString pendantLeDernierSignal;
    connect(&banc->doc, &RamelierDoc::personneSelectionnee, this, [&] { pendantLeDernierSignal = Gardee(); });
    Scenario scenario;
    Saisit<DlgPers>(scenario, {{"TxtNom", "LEROY"}});
    QVERIFY(banc->doc.AjoutePersonne(&banc->fenetre, banc->repertoire, true));
    QCOMPARE(scenario.Ecarts(), QStringList());
    QCOMPARE(pendantLeDernierSignal, "rien");
    QCOMPARE(Gardee(), "rien");
}

void TestAnnulationGardee::laPresentationNEffaceRien()
{
    Prepare(SuppressionDuPere);
    Scenario scenario;
    Saisit<DlgPdG>(scenario, {{"TextTitre", "Les Martin"}});
    Saisit<DlgOptDessin>(scenario, {});
    Saisit<DlgPolices>(scenario, {});
    banc->doc.EditPdG(&banc->fenetre);
    banc->doc.modifFormatsDessins(&banc->fenetre);
    banc->doc.modifPoliceCar(&banc->fenetre);
    QCOMPARE(scenario.Ecarts(), QStringList());
    QCOMPARE(Gardee(), "N6 de 6, sans père 3, sans mère 0");
}

void TestAnnulationGardee::oublierEffaceTout()
{
    Arbre &arbre = *banc->doc.arbre;
    banc->Choisit(6);
    arbre.SauveInfoPersonne(banc->repertoire);
    arbre.enfantSansPere = banc->Qui(3);
    arbre.enfantSansMere = banc->Qui(1);
    QCOMPARE(Gardee(), "N6 de 6, sans père 3, sans mère 1");
    const QString personnes = NumerosEnTexte(arbre);
    for (int fois = 0; fois < 2; ++fois) {
        arbre.OublieAnnulation();
        QVERIFY(!arbre.infoSauvee);
        QCOMPARE(arbre.numeroSauve, 0U);
        QVERIFY(!arbre.enfantSansPere);
        QVERIFY(!arbre.enfantSansMere);
    }
    QCOMPARE(NumerosEnTexte(arbre), personnes);
    QCOMPARE(arbre.selection, banc->Qui(6));
}

void TestAnnulationGardee::leNumeroSuitLaCopie()
{
    Arbre &arbre = *banc->doc.arbre;
    QCOMPARE(arbre.numeroSauve, 0U);
    banc->Choisit(7);
    arbre.SauveInfoPersonne(banc->repertoire);
    QCOMPARE(Gardee(), "N7 de 7, sans père 0, sans mère 0");
    banc->Choisit(6);
    QCOMPARE(arbre.numeroSauve, 7U);
    arbre.SauveInfoPersonne(banc->repertoire);
    QCOMPARE(Gardee(), "N6 de 6, sans père 0, sans mère 0");
    arbre.selection = nullptr;
    arbre.SauveInfoPersonne(banc->repertoire);
    QCOMPARE(Gardee(), "rien");
}

void TestAnnulationGardee::laReserveRemetCeQuElleAPris()
{
    Prepare(SuppressionDeLaMere);
    Arbre &arbre = *banc->doc.arbre;
    const InfoPersonne *copie = arbre.infoSauvee;
    {
        const AnnulationReservee reserve(arbre);
        QVERIFY(!arbre.infoSauvee);
        arbre.SauveInfoPersonne(banc->repertoire);
        QCOMPARE(arbre.infoSauvee->nom, "N3");
    }
    QCOMPARE(arbre.infoSauvee, copie);
    QCOMPARE(Gardee(), "N7 de 7, sans père 0, sans mère 3");
}

void TestAnnulationGardee::laReserveCedeLaPlace()
{
    Prepare(SuppressionDeLaMere);
    Arbre &arbre = *banc->doc.arbre;
    {
        AnnulationReservee reserve(arbre);
        arbre.SauveInfoPersonne(banc->repertoire);
        reserve.LaisseLaPlace();
        QCOMPARE(Gardee(), "N3 de 3, sans père 0, sans mère 0");
    }
    QCOMPARE(Gardee(), "N3 de 3, sans père 0, sans mère 0");
}

RAMELIER_TEST_MAIN(QApplication, TestAnnulationGardee)
#include "tst_annulation_gardee.moc"
