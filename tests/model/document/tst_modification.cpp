#include "bancdocument.h"
#include "dlgpers.h"

#include <optional>

/// RamelierDoc::CreaModifPers: the texts of the selected person, and what the document says about them.
class TestModification : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup();
    void lEntete_data();
    void lEntete();
    void lesNeufChampsMontrentLaPersonne();
    void lesNeufChampsReviennent();
    void seulLeChampToucheRevient_data();
    void seulLeChampToucheRevient();
    void ceQuiNEstPasToucheResteALaLettre();
    void unTexteSArreteA250Caracteres();
    void sansEffetRienNeChange_data();
    void sansEffetRienNeChange();
    void reecrireLeMemeTexteCompte();
    void unTexteDonneLeCode2();
    void lesMarquesDejaPoseesRestent();
    void unePersonneVideeRecoitUnNom_data();
    void unePersonneVideeRecoitUnNom();
    void sansNomMaisAvecPrenomRienNEstAttribue();
    void unePersonneDejaVideRecoitAussiUnNom();
    void enCreationNiBoiteNiAnnulation();
    void seuleLaSelectionChange();
    void unePersonneSansDonneesEnRecoit();
    void sansSelectionRienNeSOuvre_data();
    void sansSelectionRienNeSOuvre();

private:
    void Modifie(bool creation = false) { banc->doc.CreaModifPers(&banc->fenetre, banc->repertoire, creation); }

    std::optional<Banc> banc;
};

namespace {

const Textes neufTextes{{"TxtNom", "DURAND"},        {"TxtPrenom", "Anne"},         {"TxtDateNais", "1er mai 1801"},
                        {"TxtLieuNais", "Ploërmel"}, {"TxtDateDec", "an XII"},      {"TxtLieuDec", "Brest"},
                        {"TxtDivers", "forgeron"},   {"TxtFicHtml", "durand.html"}, {"TxtFicPhoto", "durand.png"}};

const char boiteVide[] = "Après modification, la personne n'avait plus de nom ni de prénom.\n"
                         "Pour éviter des problèmes ultérieurs, le nom ??? lui a été affecté arbitrairement !!";

void Remplit(InfoPersonne &info)
{
    info = InfoPersonne("MARTIN", "Paul", "dn", "ln", "dd", "ld", "rem", "paul.html", "paul.png", -1);
}

}  // namespace

void TestModification::init()
{
    banc.emplace();
    banc->Ouvre({1, 2, 3});
    banc->Choisit(2);
}

void TestModification::cleanup()
{
    QVERIFY(banc->EstRange());
    banc.reset();
}

void TestModification::lEntete_data()
{
    QTest::addColumn<quint64>("numero");
    QTest::addColumn<bool>("creationEnCours");
    QTest::addColumn<bool>("creation");
    QTest::addColumn<QString>("entete");
    const QString racine = "Saisie des informations de la personne racine";
    QTest::newRow("la racine") << quint64(1) << false << false << "Modification des informations de la personne n°1";
    QTest::newRow("un parent qui s'ajoute")
        << quint64(4) << false << true << "Modification des informations de la personne n°4";
    QTest::newRow("le plus grand père") << quint64(18446744073709551614ULL) << false << false
                                        << "Modification des informations de la personne n°18446744073709551614";
    QTest::newRow("un nouvel arbre") << quint64(1) << true << true << racine;
    QTest::newRow("pendant une création, une autre personne") << quint64(6) << true << false << racine;
}

void TestModification::lEntete()
{
    QFETCH(const quint64, numero);
    QFETCH(const bool, creationEnCours);
    QFETCH(const bool, creation);
    banc->Ouvre({numero});
    banc->Choisit(numero);
    banc->doc.creationEnCours = creationEnCours;
    QString lu;
    Scenario scenario;
    scenario.Dialogue<DlgPers>([&lu](DlgPers &dialogue) {
        lu = dialogue.LabelTitre->text();
        dialogue.reject();
    });
    Modifie(creation);
    QCOMPARE(scenario.Ecarts(), QStringList());
    QTEST(lu, "entete");
}

void TestModification::lesNeufChampsMontrentLaPersonne()
{
    Remplit(banc->Info(2));
    QStringList lus;
    Scenario scenario;
    scenario.Dialogue<DlgPers>([&lus](DlgPers &dialogue) {
        lus = {dialogue.TxtNom->text(),      dialogue.TxtPrenom->text(),  dialogue.TxtDateNais->text(),
               dialogue.TxtLieuNais->text(), dialogue.TxtDateDec->text(), dialogue.TxtLieuDec->text(),
               dialogue.TxtDivers->text(),   dialogue.TxtFicHtml->text(), dialogue.TxtFicPhoto->text()};
        dialogue.reject();
    });
    Modifie();
    QCOMPARE(scenario.Ecarts(), QStringList());
    QCOMPARE(lus, (QStringList{"MARTIN", "Paul", "dn", "ln", "dd", "ld", "rem", "paul.html", "paul.png"}));
}

void TestModification::lesNeufChampsReviennent()
{
    Scenario scenario;
    Saisit<DlgPers>(scenario, neufTextes);
    Modifie();
    QCOMPARE(scenario.Ecarts(), QStringList());
    QCOMPARE(EnTexte(banc->Info(2)),
             "DURAND|Anne|1er mai 1801|Ploërmel|an XII|Brest|forgeron|durand.html|durand.png photo 0");
}

void TestModification::seulLeChampToucheRevient_data()
{
    QTest::addColumn<QString>("champ");
    QTest::addColumn<QString>("attendu");
    QTest::newRow("nom") << "TxtNom"
                         << "X|Paul|dn|ln|dd|ld|rem|paul.html|paul.png photo -1";
    QTest::newRow("prénom") << "TxtPrenom"
                            << "MARTIN|X|dn|ln|dd|ld|rem|paul.html|paul.png photo -1";
    QTest::newRow("date de naissance") << "TxtDateNais"
                                       << "MARTIN|Paul|X|ln|dd|ld|rem|paul.html|paul.png photo -1";
    QTest::newRow("lieu de naissance") << "TxtLieuNais"
                                       << "MARTIN|Paul|dn|X|dd|ld|rem|paul.html|paul.png photo -1";
    QTest::newRow("date de décès") << "TxtDateDec"
                                   << "MARTIN|Paul|dn|ln|X|ld|rem|paul.html|paul.png photo -1";
    QTest::newRow("lieu de décès") << "TxtLieuDec"
                                   << "MARTIN|Paul|dn|ln|dd|X|rem|paul.html|paul.png photo -1";
    QTest::newRow("divers") << "TxtDivers"
                            << "MARTIN|Paul|dn|ln|dd|ld|X|paul.html|paul.png photo -1";
    QTest::newRow("fiche") << "TxtFicHtml"
                           << "MARTIN|Paul|dn|ln|dd|ld|rem|X|paul.png photo -1";
    QTest::newRow("photo") << "TxtFicPhoto"
                           << "MARTIN|Paul|dn|ln|dd|ld|rem|paul.html|X photo 0";
}

void TestModification::seulLeChampToucheRevient()
{
    QFETCH(const QString, champ);
    Remplit(banc->Info(2));
    const QByteArray nom = champ.toLatin1();
    Scenario scenario;
    Saisit<DlgPers>(scenario, {{nom.constData(), "X"}});
    Modifie();
    QCOMPARE(scenario.Ecarts(), QStringList());
    QTEST(EnTexte(banc->Info(2)), "attendu");
}

void TestModification::ceQuiNEstPasToucheResteALaLettre()
{
    const QString long300(300, 'y');
    InfoPersonne &info = banc->Info(2);
    info.divers = long300;
    info.lieudeces = "rue\nville\r\npays\ttab ";
    Scenario scenario;
    Saisit<DlgPers>(scenario, {});
    Saisit<DlgPers>(scenario, {{"TxtPrenom", "Jean"}});
    Modifie();
    QCOMPARE(info.divers, long300);
    QCOMPARE(banc->deroulement.Lignes(), QStringList{"dialogue DlgPers"});
    Modifie();
    QCOMPARE(scenario.Ecarts(), QStringList());
    QCOMPARE(info.prenom, "Jean");
    QCOMPARE(info.divers, long300);
    QCOMPARE(info.lieudeces, "rue\nville\r\npays\ttab ");
}

void TestModification::unTexteSArreteA250Caracteres()
{
    Scenario scenario;
    Saisit<DlgPers>(scenario, {{"TxtNom", QString(251, 'N')}, {"TxtFicHtml", QString(300, 'f')}});
    Modifie();
    QCOMPARE(scenario.Ecarts(), QStringList());
    QCOMPARE(banc->Info(2).nom, QString(250, 'N'));
    QCOMPARE(banc->Info(2).fichtml, QString(250, 'f'));
}

void TestModification::sansEffetRienNeChange_data()
{
    QTest::addColumn<bool>("accepte");
    QTest::addColumn<bool>("creation");
    QTest::addColumn<QString>("nom");
    QTest::newRow("accepté sans rien toucher") << true << false << "MARTIN";
    QTest::newRow("annulé après avoir tout écrit") << false << false << "MARTIN";
    QTest::newRow("accepté sans rien toucher, en création") << true << true << "MARTIN";
    QTest::newRow("annulé après avoir tout écrit, en création") << false << true << "MARTIN";
    // Nothing was changed: nobody gives a name to who had none.
    QTest::newRow("accepté sans rien toucher, personne sans nom") << true << false << "";
}

void TestModification::sansEffetRienNeChange()
{
    QFETCH(const bool, accepte);
    QFETCH(const bool, creation);
    QFETCH(const QString, nom);
    Remplit(banc->Info(2));
    banc->Info(2).nom = nom;
    if (nom.isEmpty())
        banc->Info(2).prenom = QString();
    const QString avant = ToutEnTexte(*banc->doc.arbre);
    Scenario scenario;
    if (accepte)
        Saisit<DlgPers>(scenario, {});
    else
        Abandonne<DlgPers>(scenario, neufTextes);
    Modifie(creation);
    QCOMPARE(scenario.Ecarts(), QStringList());
    QCOMPARE(ToutEnTexte(*banc->doc.arbre), avant);
    QCOMPARE(banc->deroulement.Lignes(), QStringList{"dialogue DlgPers"});
    QVERIFY(!banc->doc.isModified());
}

void TestModification::reecrireLeMemeTexteCompte()
{
    Scenario scenario;
    Saisit<DlgPers>(scenario, {{"TxtNom", "N2"}});
    Modifie();
    QCOMPARE(scenario.Ecarts(), QStringList());
    QCOMPARE(banc->deroulement.Lignes(), (QStringList{"dialogue DlgPers", "autoriseAnnulation", "documentChanged 2"}));
    QVERIFY(banc->doc.isModified());
}

void TestModification::unTexteDonneLeCode2()
{
    QString nomRecu;
    connect(&banc->doc, &RamelierDoc::autoriseAnnulation, this, [&] { nomRecu = banc->Info(2).divers; });
    Scenario scenario;
    Saisit<DlgPers>(scenario, {{"TxtDivers", "forgeron"}});
    Modifie();
    QCOMPARE(scenario.Ecarts(), QStringList());
    QCOMPARE(nomRecu, "forgeron");
    // The flag comes after the signals.
    QCOMPARE(banc->deroulement.Lignes(), (QStringList{"dialogue DlgPers", "autoriseAnnulation", "documentChanged 2"}));
    QVERIFY(banc->doc.isModified());
    QVERIFY(!banc->doc.areOptionsModified());
}

void TestModification::lesMarquesDejaPoseesRestent()
{
    banc->doc.modifie = true;
    banc->doc.optionsModifiees = true;
    Scenario scenario;
    Saisit<DlgPers>(scenario, {{"TxtNom", "X"}});
    Modifie();
    QCOMPARE(scenario.Ecarts(), QStringList());
    QCOMPARE(banc->deroulement.Lignes(),
             (QStringList{"dialogue DlgPers modifié options", "autoriseAnnulation modifié options",
                          "documentChanged 2 modifié options"}));
    QVERIFY(banc->doc.isModified());
    QVERIFY(banc->doc.areOptionsModified());
}

void TestModification::unePersonneVideeRecoitUnNom_data()
{
    QTest::addColumn<Textes>("textes");
    QTest::addColumn<QString>("attendu");
    QTest::addColumn<int>("code");
    QTest::newRow("noms effacés") << Textes{{"TxtNom", ""}, {"TxtPrenom", ""}}
                                  << "???||dn|ln|dd|ld|rem|paul.html|paul.png photo -1" << 2;
    QTest::newRow("noms et photo effacés") << Textes{{"TxtNom", ""}, {"TxtPrenom", ""}, {"TxtFicPhoto", ""}}
                                           << "???||dn|ln|dd|ld|rem|paul.html| photo -1" << 1;
}

void TestModification::unePersonneVideeRecoitUnNom()
{
    QFETCH(const Textes, textes);
    QFETCH(const int, code);
    Remplit(banc->Info(2));
    QString nomPendantLaBoite;
    Scenario scenario;
    Saisit<DlgPers>(scenario, textes);
    scenario.Dialogue<QMessageBox>([&](QMessageBox &boite) {
        nomPendantLaBoite = banc->Info(2).nom;
        Scenario::ClicPlusTard(boite.buttons().constFirst());
    });
    Modifie();
    QCOMPARE(scenario.Ecarts(), QStringList());
    QTEST(EnTexte(banc->Info(2)), "attendu");
    QCOMPARE(nomPendantLaBoite, "???");
    QCOMPARE(banc->deroulement.Lignes(),
             (QStringList{"dialogue DlgPers", "boîte Modification", "autoriseAnnulation",
                          code == 1 ? "documentChanged 1" : "documentChanged 2"}));
    QVERIFY(banc->doc.isModified());
    const BoiteVue boite = scenario.Boites().constFirst();
    QCOMPARE(boite.titre, "Modification");
    QCOMPARE(boite.texte, boiteVide);
    QCOMPARE(boite.icone, QMessageBox::Information);
    QCOMPARE(boite.boutons, QStringList{"OK"});
    QCOMPARE(boite.parent, &banc->fenetre);
}

void TestModification::sansNomMaisAvecPrenomRienNEstAttribue()
{
    Scenario scenario;
    Saisit<DlgPers>(scenario, {{"TxtNom", ""}, {"TxtPrenom", "Anne"}});
    Modifie();
    QCOMPARE(scenario.Ecarts(), QStringList());
    QCOMPARE(EnTexte(banc->Info(2)), "|Anne||||||| photo -1");
}

void TestModification::unePersonneDejaVideRecoitAussiUnNom()
{
    banc->Info(2).nom = QString();
    Scenario scenario;
    Saisit<DlgPers>(scenario, {{"TxtDivers", "forgeron"}});
    scenario.Repond("OK");
    Modifie();
    QCOMPARE(scenario.Ecarts(), QStringList());
    QCOMPARE(EnTexte(banc->Info(2)), "???||||||forgeron|| photo -1");
}

void TestModification::enCreationNiBoiteNiAnnulation()
{
    Scenario scenario;
    Saisit<DlgPers>(scenario, {{"TxtPrenom", "Anne"}});
    Modifie(true);
    QCOMPARE(scenario.Ecarts(), QStringList());
    QCOMPARE(banc->deroulement.Lignes(), (QStringList{"dialogue DlgPers", "documentChanged 2"}));
    QVERIFY(banc->doc.isModified());
    QCOMPARE(EnTexte(banc->Info(2)), "N2|Anne||||||| photo -1");
}

void TestModification::seuleLaSelectionChange()
{
    Scenario scenario;
    Saisit<DlgPers>(scenario, {{"TxtNom", "DURAND"}});
    Modifie();
    QCOMPARE(scenario.Ecarts(), QStringList());
    QCOMPARE(ToutEnTexte(*banc->doc.arbre),
             "3 personnes, 2 générations, sélection 2, 1 2 3\n"
             "1 g0 p2 m3 e0 -> p2 m3 0,0 affichable 1 sélectionnée 0 N1|||||||| photo -1\n"
             "2 g1 p0 m0 e1 -> p0 m0 0,0 affichable 1 sélectionnée 1 DURAND|||||||| photo -1\n"
             "3 g1 p0 m0 e1 -> p0 m0 0,0 affichable 1 sélectionnée 0 N3|||||||| photo -1\n"
             "N2 de 2, sans père 0, sans mère 0\n"
             "||||");
}

void TestModification::unePersonneSansDonneesEnRecoit()
{
    delete std::exchange(banc->Qui(2)->info, nullptr);
    Scenario scenario;
    Saisit<DlgPers>(scenario, {{"TxtNom", "DURAND"}});
    Modifie();
    QCOMPARE(scenario.Ecarts(), QStringList());
    QCOMPARE(EnTexte(banc->Info(2)), "DURAND|||||||| photo -1");
}

void TestModification::sansSelectionRienNeSOuvre_data()
{
    QTest::addColumn<bool>("avecArbre");
    QTest::newRow("un arbre, personne de sélectionné") << true;
    QTest::newRow("pas d'arbre") << false;
}

void TestModification::sansSelectionRienNeSOuvre()
{
    QFETCH(const bool, avecArbre);
    banc->doc.arbre->selection = nullptr;
    if (!avecArbre)
        delete std::exchange(banc->doc.arbre, nullptr);
    Scenario scenario;
    Modifie();
    Modifie(true);
    QCOMPARE(scenario.Ecarts(), QStringList());
    QCOMPARE(banc->deroulement.Lignes(), QStringList());
    QVERIFY(!banc->doc.isModified());
}

RAMELIER_TEST_MAIN(QApplication, TestModification)
#include "tst_modification.moc"
