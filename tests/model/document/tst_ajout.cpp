#include "bancdocument.h"
#include "dlgpers.h"

#include <optional>

/// RamelierDoc::AjoutePersonne: the father or the mother of the selected person.
class TestAjout : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup();
    void lePere();
    void laMere();
    void lePereApresLaMere();
    void leParentPendantSaSaisie();
    void leParentDevientVisibleAvantLeDernierSignal();
    void laPhotoDuParentSeCharge();
    void unPrenomSuffit();
    void quelQueSoitLOrdreLaListeEstTriee_data();
    void quelQueSoitLOrdreLaListeEstTriee();
    void unParentRetrouveSesPropresParents();
    void unAjoutAbandonneNeLaisseRien_data();
    void unAjoutAbandonneNeLaisseRien();
    void unFichierBancalResteTelQuel_data();
    void unFichierBancalResteTelQuel();
    void unAutreEnfantDuMemeNumeroResteTelQuel();
    void lAbandonGardeLesMarques();
    void unParentPresentNEstPasAjoute_data();
    void unParentPresentNEstPasAjoute();
    void leDernierNumeroQuiADesParents();
    void auDelaDe64BitsRienNEstAjoute_data();
    void auDelaDe64BitsRienNEstAjoute();
    void sansSelectionRienNEstAjoute_data();
    void sansSelectionRienNEstAjoute();

private:
    void Ouvre(const QList<quint64> &numeros, quint64 choisi);
    bool Ajoute(bool pere) { return banc->doc.AjoutePersonne(&banc->fenetre, banc->repertoire, pere); }
    /// The user gives the parent a surname.
    bool AjouteAvecNom(bool pere, const QString &nom = "DURAND");

    std::optional<Banc> banc;
};

void TestAjout::init()
{
    banc.emplace();
    Ouvre({1, 2}, 2);
}

void TestAjout::cleanup()
{
    QVERIFY(banc->EstRange());
    banc.reset();
}

void TestAjout::Ouvre(const QList<quint64> &numeros, quint64 choisi)
{
    banc->Ouvre(numeros);
    banc->Choisit(choisi);
}

bool TestAjout::AjouteAvecNom(bool pere, const QString &nom)
{
    Scenario scenario;
    Saisit<DlgPers>(scenario, {{"TxtNom", nom}});
    const bool ajoute = Ajoute(pere);
    return ajoute && scenario.Ecarts().isEmpty();
}

void TestAjout::lePere()
{
    QVERIFY(AjouteAvecNom(true));
    QCOMPARE(banc->deroulement.Lignes(),
             (QStringList{"dialogue DlgPers", "documentChanged 2", "documentChanged 1 modifié",
                          "personneSelectionnee 1 modifié"}));
    QVERIFY(banc->doc.isModified());
    QVERIFY(!banc->doc.areOptionsModified());
    QCOMPARE(ToutEnTexte(*banc->doc.arbre),
             "3 personnes, 3 générations, sélection 4, 1 2 4\n"
             "1 g0 p2 m0 e0 -> p2 m0 0,0 affichable 1 sélectionnée 0 N1|||||||| photo -1\n"
             "2 g1 p4 m0 e1 -> p4 m0 0,0 affichable 1 sélectionnée 0 N2|||||||| photo -1\n"
             "4 g2 p0 m0 e2 -> p0 m0 0,0 affichable 1 sélectionnée 1 DURAND|||||||| photo -1\n"
             "rien\n"
             "||||");
}

void TestAjout::laMere()
{
    QVERIFY(AjouteAvecNom(false));
    QCOMPARE(banc->deroulement.Lignes(),
             (QStringList{"dialogue DlgPers", "documentChanged 2", "documentChanged 1 modifié",
                          "personneSelectionnee 1 modifié"}));
    QCOMPARE(ToutEnTexte(*banc->doc.arbre),
             "3 personnes, 3 générations, sélection 5, 1 2 5\n"
             "1 g0 p2 m0 e0 -> p2 m0 0,0 affichable 1 sélectionnée 0 N1|||||||| photo -1\n"
             "2 g1 p0 m5 e1 -> p0 m5 0,0 affichable 1 sélectionnée 0 N2|||||||| photo -1\n"
             "5 g2 p0 m0 e2 -> p0 m0 0,0 affichable 1 sélectionnée 1 DURAND|||||||| photo -1\n"
             "rien\n"
             "||||");
}

void TestAjout::lePereApresLaMere()
{
    Ouvre({1, 3}, 1);
    QVERIFY(AjouteAvecNom(true));
    QCOMPARE(NumerosEnTexte(*banc->doc.arbre), "1 2 3");
    QCOMPARE(banc->doc.arbre->nombreGenerations, 2);
    QCOMPARE(banc->doc.arbre->nombrePersonnes, 3U);
    QCOMPARE(banc->Qui(1)->ptrPere, banc->Qui(2));
    QCOMPARE(banc->Qui(1)->ptrMere, banc->Qui(3));
}

void TestAjout::leParentPendantSaSaisie()
{
    QString vu;
    QString entete;
    QStringList champs;
    Scenario scenario;
    scenario.Dialogue<DlgPers>([&](DlgPers &dialogue) {
        vu = ToutEnTexte(*banc->doc.arbre);
        entete = dialogue.LabelTitre->text();
        for (const QLineEdit *champ : dialogue.findChildren<QLineEdit *>())
            champs += champ->text();
        dialogue.reject();
    });
    QVERIFY(!Ajoute(false));
    QCOMPARE(scenario.Ecarts(), QStringList());
    QCOMPARE(entete, "Modification des informations de la personne n°5");
    QCOMPARE(champs, QStringList(9, ""));
    QCOMPARE(vu,
             "3 personnes, 3 générations, sélection 5, 1 2 5\n"
             "1 g0 p2 m0 e0 -> p2 m0 0,0 affichable 1 sélectionnée 0 N1|||||||| photo -1\n"
             "2 g1 p0 m5 e1 -> p0 m5 0,0 affichable 1 sélectionnée 0 N2|||||||| photo -1\n"
             "5 g2 p0 m0 e2 -> p0 m0 0,0 affichable 0 sélectionnée 1 |||||||| photo -1\n"
             " de 5, sans père 0, sans mère 0\n"
             "||||");
}

void TestAjout::leParentDevientVisibleAvantLeDernierSignal()
{
    QList<bool> visible;
    connect(&banc->doc, &RamelierDoc::documentChanged, this, [&] { visible += banc->Qui(4)->affichable; });
    QVERIFY(AjouteAvecNom(true));
    QCOMPARE(visible, (QList<bool>{false, true}));
}

void TestAjout::laPhotoDuParentSeCharge()
{
    banc->EcritPhoto("durand.png");
    Scenario scenario;
    Saisit<DlgPers>(scenario, {{"TxtNom", "DURAND"}, {"TxtFicPhoto", "durand.png"}});
    QVERIFY(Ajoute(true));
    QCOMPARE(scenario.Ecarts(), QStringList());
    QCOMPARE(EnTexte(banc->Info(4)), "DURAND||||||||durand.png photo 1");
    QCOMPARE(banc->deroulement.Lignes(),
             (QStringList{"dialogue DlgPers", "documentChanged 1", "documentChanged 1 modifié",
                          "personneSelectionnee 1 modifié"}));
}

void TestAjout::unPrenomSuffit()
{
    Scenario scenario;
    Saisit<DlgPers>(scenario, {{"TxtPrenom", "Anne"}});
    QVERIFY(Ajoute(false));
    QCOMPARE(scenario.Ecarts(), QStringList());
    QCOMPARE(ArbreEnTexte(*banc->doc.arbre), "1 N1\n  2 N2\n    5 Anne\n");
}

void TestAjout::quelQueSoitLOrdreLaListeEstTriee_data()
{
    QTest::addColumn<QList<quint64>>("ajouts");
    QTest::newRow("dans l'ordre") << QList<quint64>{2, 3, 4, 5, 6};
    QTest::newRow("4, puis 5 avant 6") << QList<quint64>{2, 4, 3, 5, 6};
    QTest::newRow("les mères d'abord") << QList<quint64>{3, 2, 5, 6, 4};
    QTest::newRow("la branche de la mère d'abord") << QList<quint64>{3, 6, 2, 5, 4};
}

void TestAjout::quelQueSoitLOrdreLaListeEstTriee()
{
    QFETCH(const QList<quint64>, ajouts);
    banc->Ouvre({1});
    for (const quint64 numero : ajouts) {
        banc->Choisit(numero / 2);
        QVERIFY(AjouteAvecNom(numero % 2 == 0, QString::number(numero)));
        QCOMPARE(banc->doc.arbre->selection->numero, numero);
    }
    QCOMPARE(NumerosEnTexte(*banc->doc.arbre), "1 2 3 4 5 6");
    QCOMPARE(ArbreEnTexte(*banc->doc.arbre), "1 N1\n  2 2\n  3 3\n    4 4\n    5 5\n    6 6\n");
    QCOMPARE(banc->doc.arbre->nombrePersonnes, 6U);
    QCOMPARE(banc->doc.arbre->nombreGenerations, 3);
}

void TestAjout::unParentRetrouveSesPropresParents()
{
    Ouvre({1, 4, 5}, 1);
    QVERIFY(AjouteAvecNom(true));
    QCOMPARE(NumerosEnTexte(*banc->doc.arbre), "1 2 4 5");
    QCOMPARE(banc->Qui(2)->ptrPere, banc->Qui(4));
    QCOMPARE(banc->Qui(2)->ptrMere, banc->Qui(5));
}

void TestAjout::unAjoutAbandonneNeLaisseRien_data()
{
    QTest::addColumn<bool>("pere");
    QTest::addColumn<bool>("accepte");
    QTest::addColumn<Textes>("textes");
    for (const bool pere : {true, false}) {
        const char *qui = pere ? "père" : "mère";
        QTest::addRow("%s, annulé", qui) << pere << false << Textes{};
        QTest::addRow("%s, annulé après le nom", qui) << pere << false << Textes{{"TxtNom", "DURAND"}};
        QTest::addRow("%s, accepté sans rien écrire", qui) << pere << true << Textes{};
        QTest::addRow("%s, accepté avec une remarque", qui) << pere << true << Textes{{"TxtDivers", "forgeron"}};
        QTest::addRow("%s, accepté avec une photo", qui) << pere << true << Textes{{"TxtFicPhoto", "durand.png"}};
    }
}

void TestAjout::unAjoutAbandonneNeLaisseRien()
{
    QFETCH(const bool, pere);
    QFETCH(const bool, accepte);
    QFETCH(const Textes, textes);
    banc->EcritPhoto("durand.png");
    Ouvre({1, 2, 3, 6}, 2);
    long place = 100;
    for (Personne *personne = banc->doc.arbre->premiere; personne; personne = personne->suivante) {
        personne->x = place++;
        personne->y = place++;
    }
    banc->Qui(2)->affichable = false;
    const QString avant = ToutEnTexte(*banc->doc.arbre);
    Scenario scenario;
    if (accepte)
        Saisit<DlgPers>(scenario, textes);
    else
        Abandonne<DlgPers>(scenario, textes);
    QVERIFY(!Ajoute(pere));
    QCOMPARE(scenario.Ecarts(), QStringList());
    QCOMPARE(banc->deroulement.Lignes(), QStringList{"dialogue DlgPers"});
    QVERIFY(!banc->doc.isModified());
    QCOMPARE(ToutEnTexte(*banc->doc.arbre), avant);
    QCOMPARE(NumerosEnTexte(*banc->doc.arbre), "1 2 3 6");
    QCOMPARE(banc->doc.arbre->selection, banc->Qui(2));
}

void TestAjout::unFichierBancalResteTelQuel_data()
{
    QTest::addColumn<QList<quint64>>("numeros");
    QTest::addColumn<quint64>("choisi");
    QTest::addColumn<bool>("pere");
    QTest::newRow("générations en trop, le parent est le dernier") << QList<quint64>{1, 2} << quint64(2) << true;
    QTest::newRow("générations en trop, le parent est au milieu") << QList<quint64>{1, 3, 6} << quint64(1) << true;
    QTest::newRow("le parent est là sans son lien") << QList<quint64>{1, 2, 4} << quint64(1) << true;
    QTest::newRow("la racine manque") << QList<quint64>{6} << quint64(6) << false;
    QTest::newRow("les grands-parents sont déjà là") << QList<quint64>{1, 4, 5} << quint64(1) << true;
}

void TestAjout::unFichierBancalResteTelQuel()
{
    QFETCH(const QList<quint64>, numeros);
    QFETCH(const quint64, choisi);
    QFETCH(const bool, pere);
    Ouvre(numeros, choisi);
    Arbre &arbre = *banc->doc.arbre;
    arbre.nombreGenerations = 9;
    arbre.nombrePersonnes = 70;
    // A number that nobody's link follows, as a damaged file leaves it.
    Personne *enfant = banc->Qui(choisi);
    (pere ? enfant->ptrPere : enfant->ptrMere) = nullptr;
    (pere ? enfant->pere : enfant->mere) = 77;
    const QString avant = ToutEnTexte(arbre);
    Scenario scenario;
    Saisit<DlgPers>(scenario, {{"TxtDivers", "forgeron"}});
    QVERIFY(!Ajoute(pere));
    QCOMPARE(scenario.Ecarts(), QStringList());
    QCOMPARE(ToutEnTexte(arbre), avant);
}

void TestAjout::unAutreEnfantDuMemeNumeroResteTelQuel()
{
    // A damaged file: the root, which comes first, names as its own the father of 3.
    Ouvre({1, 2, 3}, 3);
    banc->Qui(1)->pere = 6;
    const QString avant = ToutEnTexte(*banc->doc.arbre);
    Scenario scenario;
    Abandonne<DlgPers>(scenario);
    QVERIFY(!Ajoute(true));
    QCOMPARE(scenario.Ecarts(), QStringList());
    QCOMPARE(ToutEnTexte(*banc->doc.arbre), avant);
}

void TestAjout::lAbandonGardeLesMarques()
{
    banc->doc.modifie = true;
    banc->doc.optionsModifiees = true;
    Scenario scenario;
    Abandonne<DlgPers>(scenario);
    QVERIFY(!Ajoute(true));
    QCOMPARE(scenario.Ecarts(), QStringList());
    QCOMPARE(banc->deroulement.Lignes(), QStringList{"dialogue DlgPers modifié options"});
    QVERIFY(banc->doc.isModified());
    QVERIFY(banc->doc.areOptionsModified());
}

void TestAjout::unParentPresentNEstPasAjoute_data()
{
    QTest::addColumn<quint64>("present");
    QTest::newRow("le père") << quint64(4);
    QTest::newRow("la mère") << quint64(5);
}

void TestAjout::unParentPresentNEstPasAjoute()
{
    QFETCH(const quint64, present);
    Ouvre({1, 2, present}, 2);
    const QString avant = ToutEnTexte(*banc->doc.arbre);
    Scenario scenario;
    QVERIFY(!Ajoute(present == 4));
    QCOMPARE(scenario.Ecarts(), QStringList());
    QCOMPARE(banc->deroulement.Lignes(), QStringList());
    QCOMPARE(ToutEnTexte(*banc->doc.arbre), avant);
    QVERIFY(!banc->doc.isModified());
    // The other parent has its place.
    QVERIFY(AjouteAvecNom(present != 4));
    QCOMPARE(NumerosEnTexte(*banc->doc.arbre), "1 2 4 5");
}

void TestAjout::leDernierNumeroQuiADesParents()
{
    const quint64 dernier = 9223372036854775807ULL;
    Ouvre({dernier}, dernier);
    QString entete;
    Scenario scenario;
    scenario.Dialogue<DlgPers>([&entete](DlgPers &dialogue) {
        entete = dialogue.LabelTitre->text();
        Ecrit(dialogue, "TxtNom", "DURAND");
        dialogue.accept();
    });
    QVERIFY(Ajoute(true));
    QCOMPARE(scenario.Ecarts(), QStringList());
    QCOMPARE(entete, "Modification des informations de la personne n°18446744073709551614");
    banc->Choisit(dernier);
    Saisit<DlgPers>(scenario, {{"TxtNom", "LEROY"}});
    QVERIFY(Ajoute(false));
    QCOMPARE(scenario.Ecarts(), QStringList());
    QCOMPARE(NumerosEnTexte(*banc->doc.arbre), "9223372036854775807 18446744073709551614 18446744073709551615");
    QCOMPARE(banc->Qui(dernier)->pere, 18446744073709551614ULL);
    QCOMPARE(banc->Qui(dernier)->mere, 18446744073709551615ULL);
    QCOMPARE(banc->Qui(dernier)->ptrMere->enfant, dernier);
}

void TestAjout::auDelaDe64BitsRienNEstAjoute_data()
{
    QTest::addColumn<quint64>("numero");
    QTest::addColumn<bool>("pere");
    for (const bool pere : {true, false}) {
        QTest::addRow("2^63, %s", pere ? "père" : "mère") << quint64(9223372036854775808ULL) << pere;
        QTest::addRow("2^64 - 1, %s", pere ? "père" : "mère") << quint64(18446744073709551615ULL) << pere;
    }
}

void TestAjout::auDelaDe64BitsRienNEstAjoute()
{
    QFETCH(const quint64, numero);
    QFETCH(const bool, pere);
    Ouvre({numero}, numero);
    const QString avant = ToutEnTexte(*banc->doc.arbre);
    Scenario scenario;
    QVERIFY(!Ajoute(pere));
    QCOMPARE(scenario.Ecarts(), QStringList());
    QCOMPARE(banc->deroulement.Lignes(), QStringList());
    QCOMPARE(ToutEnTexte(*banc->doc.arbre), avant);
    QVERIFY(!banc->doc.isModified());
}

void TestAjout::sansSelectionRienNEstAjoute_data()
{
    QTest::addColumn<bool>("avecArbre");
    QTest::newRow("un arbre, personne de sélectionné") << true;
    QTest::newRow("pas d'arbre") << false;
}

void TestAjout::sansSelectionRienNEstAjoute()
{
    QFETCH(const bool, avecArbre);
    banc->doc.arbre->selection = nullptr;
    if (!avecArbre)
        delete std::exchange(banc->doc.arbre, nullptr);
    Scenario scenario;
    QVERIFY(!Ajoute(true));
    QVERIFY(!Ajoute(false));
    QCOMPARE(scenario.Ecarts(), QStringList());
    QCOMPARE(banc->deroulement.Lignes(), QStringList());
    QVERIFY(!banc->doc.isModified());
    if (avecArbre)
        QCOMPARE(NumerosEnTexte(*banc->doc.arbre), "1 2");
}

RAMELIER_TEST_MAIN(QApplication, TestAjout)
#include "tst_ajout.moc"
