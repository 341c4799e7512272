#include "bancdocument.h"
#include "dlgpdg.h"
#include "dlgpers.h"

#include <optional>

/// RamelierDoc::newDoc: a new tree, its title page, its root, and the two ways to give up.
class TestCreation : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init() { banc.emplace(); }
    void cleanup();
    void unArbreNeuf();
    void unArbreNeufRemplaceLAncien();
    void lesFormatsReviennentAuxPreferencesAvantQueLAncienArbreParte();
    void lArbrePendantSaPageDeGarde();
    void laRacinePendantSaSaisie();
    void laRacineApresSaSaisie();
    void unPrenomOuUnTitreBlancSuffisent();
    void laPhotoDeLaRacineSeCharge();
    void sansTitreLaCreationEstAbandonnee_data();
    void sansTitreLaCreationEstAbandonnee();
    void sansNomDeRacineLaCreationEstAbandonnee_data();
    void sansNomDeRacineLaCreationEstAbandonnee();
    void lAbandonOublieLAncienArbre();
    void sansAncienArbreLeTypeResteJusquAuSucces();
    void apresUnAbandonUneCreationReussit();
    void rienNEstAAnnulerApresUneCreation();

private:
    bool Cree() { return banc->doc.newDoc(&banc->fenetre, banc->repertoire); }
    void OuvreUnAncienArbre();

    std::optional<Banc> banc;
};

namespace {

const QString sansTitre = "Vous n'avez pas donné de titre au nouvel arbre.\n\n"
                          "Création du nouvel arbre abandonnée !!!";
const QString sansNom = "Vous n'avez pas donné de nom ni de prénom à la personne racine du nouvel arbre.\n\n"
                        "Création du nouvel arbre abandonnée !!!";

/// " [arbre chargé création type 4 modifié options]": only what is true.
QString EtatDe(const RamelierDoc &doc)
{
    QStringList mots;
    if (doc.arbre)
        mots += "arbre";
    if (doc.arbreCharge)
        mots += "chargé";
    if (doc.creationEnCours)
        mots += "création";
    mots += QStringLiteral("type %1").arg(doc.typeFichier);
    if (doc.modifie)
        mots += "modifié";
    if (doc.optionsModifiees)
        mots += "options";
    return " [" + mots.join(' ') + "]";
}

}  // namespace

void TestCreation::cleanup()
{
    QVERIFY(banc->EstRange());
    banc.reset();
}

void TestCreation::OuvreUnAncienArbre()
{
    banc->Ouvre({1, 2, 3});
    banc->doc.nomFichier = "/home/moi/ancien.xrlg";
    banc->doc.typeFichier = 3;
    banc->doc.modifie = true;
    banc->doc.optionsModifiees = true;
}

void TestCreation::unArbreNeuf()
{
    const Deroulement deroulement(banc->doc, banc->fenetre, EtatDe);
    Scenario scenario;
    Saisit<DlgPdG>(scenario, {{"TextTitre", "Famille Lefèvre"}, {"TextDateCreation", "1912"}});
    Saisit<DlgPers>(scenario, {{"TxtNom", "LEFÈVRE"}});
    QVERIFY(Cree());
    QCOMPARE(scenario.Ecarts(), QStringList());
    QCOMPARE(
        deroulement.Lignes(),
        (QStringList{"dialogue DlgPdG [arbre création type 0]", "dialogue DlgPers [arbre création type 0]",
                     "documentChanged 2 [arbre création type 0]", "documentChanged 1 [arbre chargé type 4 modifié]"}));
    QCOMPARE(EtatDe(banc->doc), " [arbre chargé type 4 modifié]");
    QCOMPARE(banc->doc.nomFichier, QString());
    QCOMPARE(banc->doc.arbre->infoArbre->titrearbre, "Famille Lefèvre");
    QCOMPARE(banc->doc.arbre->infoArbre->date, "1912");
}

void TestCreation::unArbreNeufRemplaceLAncien()
{
    OuvreUnAncienArbre();
    const Deroulement deroulement(banc->doc, banc->fenetre, EtatDe);
    Scenario scenario;
    Saisit<DlgPdG>(scenario, {{"TextTitre", "B"}});
    Saisit<DlgPers>(scenario, {{"TxtNom", "DURAND"}});
    QVERIFY(Cree());
    QCOMPARE(scenario.Ecarts(), QStringList());
    QCOMPARE(
        deroulement.Lignes(),
        (QStringList{"documentChanged 0 [chargé type 0 modifié options]", "dialogue DlgPdG [arbre création type 0]",
                     "dialogue DlgPers [arbre création type 0]", "documentChanged 2 [arbre création type 0]",
                     "documentChanged 1 [arbre chargé type 4 modifié]"}));
    QCOMPARE(ArbreEnTexte(*banc->doc.arbre), "1 DURAND\n");
    QCOMPARE(banc->doc.nomFichier, QString());
}

void TestCreation::lesFormatsReviennentAuxPreferencesAvantQueLAncienArbreParte()
{
    OuvreUnAncienArbre();
    RamelierDoc &doc = banc->doc;
    doc.formatsPref.largeurCadre = 55;
    doc.policesPref.policeTextes.setPointSize(21);
    doc.policesPref.couleurCaracteres = QColor("#0000ff");
    doc.formats.largeurCadre = 77;
    doc.polices.policeTextes.setPointSize(9);
    QStringList vus;
    connect(&doc, &RamelierDoc::documentChanged, this, [&](int code) {
        vus += QStringLiteral("%1: %2 mm, %3 points, %4")
                   .arg(code)
                   .arg(doc.formats.largeurCadre)
                   .arg(doc.polices.policeTextes.pointSize())
                   .arg(doc.polices.couleurCaracteres.name());
    });
    Scenario scenario;
    Abandonne<DlgPdG>(scenario);
    scenario.Repond("OK");
    QVERIFY(!Cree());
    QCOMPARE(scenario.Ecarts(), QStringList());
    // Once for the old tree, once for the new one.
    QCOMPARE(vus, (QStringList{"0: 55 mm, 21 points, #0000ff", "0: 55 mm, 21 points, #0000ff"}));
}

void TestCreation::lArbrePendantSaPageDeGarde()
{
    OuvreUnAncienArbre();
    QString vu;
    QString nomFichier = "?";
    Scenario scenario;
    scenario.Dialogue<DlgPdG>([&](DlgPdG &dialogue) {
        vu = ToutEnTexte(*banc->doc.arbre);
        nomFichier = banc->doc.nomFichier;
        dialogue.reject();
    });
    scenario.Repond("OK");
    QVERIFY(!Cree());
    QCOMPARE(scenario.Ecarts(), QStringList());
    QCOMPARE(vu, "0 personnes, 0 générations, sélection 0, \nrien\n||||");
    QCOMPARE(nomFichier, QString());
}

void TestCreation::laRacinePendantSaSaisie()
{
    QString vue;
    QString entete;
    QStringList champs;
    Scenario scenario;
    Saisit<DlgPdG>(scenario, {{"TextTitre", "A"}});
    scenario.Dialogue<DlgPers>([&](DlgPers &dialogue) {
        const Arbre &arbre = *banc->doc.arbre;
        vue = ToutEnTexte(arbre).section('\n', 0, 1);
        QCOMPARE(arbre.premiere, arbre.derniere);
        QCOMPARE(arbre.selection, arbre.premiere);
        entete = dialogue.LabelTitre->text();
        for (const QLineEdit *champ : dialogue.findChildren<QLineEdit *>())
            champs += champ->text();
        Ecrit(dialogue, "TxtNom", "MARTIN");
        dialogue.accept();
    });
    QVERIFY(Cree());
    QCOMPARE(scenario.Ecarts(), QStringList());
    QCOMPARE(vue,
             "1 personnes, 1 générations, sélection 1, 1\n"
             "1 g0 p0 m0 e0 -> p0 m0 0,0 affichable 0 sélectionnée 1 |||||||| photo -1");
    QCOMPARE(entete, "Saisie des informations de la personne racine");
    QCOMPARE(champs, QStringList(9, ""));
}

void TestCreation::laRacineApresSaSaisie()
{
    Scenario scenario;
    Saisit<DlgPdG>(scenario, {{"TextTitre", "A"}});
    Saisit<DlgPers>(scenario, {{"TxtNom", "MARTIN"}, {"TxtPrenom", "Paul"}, {"TxtLieuDec", "Ploërmel"}});
    QVERIFY(Cree());
    QCOMPARE(scenario.Ecarts(), QStringList());
    QCOMPARE(ToutEnTexte(*banc->doc.arbre),
             "1 personnes, 1 générations, sélection 1, 1\n"
             "1 g0 p0 m0 e0 -> p0 m0 0,0 affichable 1 sélectionnée 1 MARTIN|Paul||||Ploërmel||| photo -1\n"
             "rien\n"
             "A||||");
}

void TestCreation::unPrenomOuUnTitreBlancSuffisent()
{
    Scenario scenario;
    Saisit<DlgPdG>(scenario, {{"TextTitre", " "}});
    Saisit<DlgPers>(scenario, {{"TxtPrenom", "Paul"}});
    QVERIFY(Cree());
    QCOMPARE(scenario.Ecarts(), QStringList());
    QCOMPARE(ArbreEnTexte(*banc->doc.arbre), "1 Paul\n");
}

void TestCreation::laPhotoDeLaRacineSeCharge()
{
    banc->EcritPhoto("paul.png");
    Scenario scenario;
    Saisit<DlgPdG>(scenario, {{"TextTitre", "A"}});
    Saisit<DlgPers>(scenario, {{"TxtNom", "MARTIN"}, {"TxtFicPhoto", "paul.png"}});
    QVERIFY(Cree());
    QCOMPARE(scenario.Ecarts(), QStringList());
    QCOMPARE(banc->deroulement.Lignes(),
             (QStringList{"dialogue DlgPdG", "dialogue DlgPers", "documentChanged 1", "documentChanged 1 modifié"}));
    QCOMPARE(EnTexte(banc->Info(1)), "MARTIN||||||||paul.png photo 1");
    QCOMPARE(banc->Info(1).photo.size(), QSize(30, 40));
}

void TestCreation::sansTitreLaCreationEstAbandonnee_data()
{
    QTest::addColumn<bool>("accepte");
    QTest::addColumn<Textes>("textes");
    QTest::newRow("annulée") << false << Textes{};
    QTest::newRow("annulée après le titre") << false << Textes{{"TextTitre", "A"}};
    QTest::newRow("acceptée sans rien écrire") << true << Textes{};
    QTest::newRow("acceptée avec tout sauf le titre")
        << true << Textes{{"TextCreePar", "Paul"}, {"TextDateCreation", "1912"}, {"TextMaJPar", "Élise"}};
}

void TestCreation::sansTitreLaCreationEstAbandonnee()
{
    QFETCH(const bool, accepte);
    QFETCH(const Textes, textes);
    const Deroulement deroulement(banc->doc, banc->fenetre, EtatDe);
    Scenario scenario;
    if (accepte)
        Saisit<DlgPdG>(scenario, textes);
    else
        Abandonne<DlgPdG>(scenario, textes);
    scenario.Repond("OK");
    QVERIFY(!Cree());
    QCOMPARE(scenario.Ecarts(), QStringList());
    QCOMPARE(deroulement.Lignes(),
             (QStringList{"dialogue DlgPdG [arbre création type 0]", "documentChanged 0 [création type 0]",
                          "boîte Création du nouvel arbre [type 0]"}));
    QCOMPARE(EtatDe(banc->doc), " [type 0]");
    const BoiteVue boite = scenario.Boites().constFirst();
    QCOMPARE(boite.titre, "Création du nouvel arbre");
    QCOMPARE(boite.texte, sansTitre);
    QCOMPARE(boite.icone, QMessageBox::Information);
    QCOMPARE(boite.boutons, QStringList{"OK"});
    QCOMPARE(boite.parent, &banc->fenetre);
}

void TestCreation::sansNomDeRacineLaCreationEstAbandonnee_data()
{
    QTest::addColumn<bool>("accepte");
    QTest::addColumn<Textes>("textes");
    QTest::addColumn<QStringList>("suite");
    const QStringList muette{"documentChanged 0 [création type 0]",
                             "boîte Création de la racine du nouvel arbre [type 0]"};
    const auto apres = [&muette](const char *signal) {
        return QStringList{signal, "documentChanged 0 [création type 0 modifié]", muette.constLast()};
    };
    QTest::newRow("annulée") << false << Textes{} << muette;
    QTest::newRow("annulée après le nom") << false << Textes{{"TxtNom", "MARTIN"}} << muette;
    QTest::newRow("acceptée sans rien écrire") << true << Textes{} << muette;
    QTest::newRow("acceptée avec une remarque")
        << true << Textes{{"TxtDivers", "forgeron"}} << apres("documentChanged 2 [arbre création type 0]");
    QTest::newRow("acceptée avec une photo")
        << true << Textes{{"TxtFicPhoto", "paul.png"}} << apres("documentChanged 1 [arbre création type 0]");
}

void TestCreation::sansNomDeRacineLaCreationEstAbandonnee()
{
    QFETCH(const bool, accepte);
    QFETCH(const Textes, textes);
    QFETCH(const QStringList, suite);
    const Deroulement deroulement(banc->doc, banc->fenetre, EtatDe);
    Scenario scenario;
    Saisit<DlgPdG>(scenario, {{"TextTitre", "A"}});
    if (accepte)
        Saisit<DlgPers>(scenario, textes);
    else
        Abandonne<DlgPers>(scenario, textes);
    scenario.Repond("OK");
    QVERIFY(!Cree());
    QCOMPARE(scenario.Ecarts(), QStringList());
    QCOMPARE(
        deroulement.Lignes(),
        (QStringList{"dialogue DlgPdG [arbre création type 0]", "dialogue DlgPers [arbre création type 0]"} + suite));
    QCOMPARE(EtatDe(banc->doc), " [type 0]");
    const BoiteVue boite = scenario.Boites().constFirst();
    QCOMPARE(boite.titre, "Création de la racine du nouvel arbre");
    QCOMPARE(boite.texte, sansNom);
    QCOMPARE(boite.icone, QMessageBox::Information);
    QCOMPARE(boite.boutons, QStringList{"OK"});
    QCOMPARE(boite.parent, &banc->fenetre);
}

void TestCreation::lAbandonOublieLAncienArbre()
{
    OuvreUnAncienArbre();
    const Deroulement deroulement(banc->doc, banc->fenetre, EtatDe);
    Scenario scenario;
    Abandonne<DlgPdG>(scenario);
    scenario.Repond("OK");
    QVERIFY(!Cree());
    QCOMPARE(scenario.Ecarts(), QStringList());
    QCOMPARE(
        deroulement.Lignes(),
        (QStringList{"documentChanged 0 [chargé type 0 modifié options]", "dialogue DlgPdG [arbre création type 0]",
                     "documentChanged 0 [création type 0]", "boîte Création du nouvel arbre [type 0]"}));
    QCOMPARE(EtatDe(banc->doc), " [type 0]");
    QCOMPARE(banc->doc.nomFichier, QString());
}

void TestCreation::sansAncienArbreLeTypeResteJusquAuSucces()
{
    banc->doc.typeFichier = 3;
    const Deroulement deroulement(banc->doc, banc->fenetre, EtatDe);
    Scenario scenario;
    Saisit<DlgPdG>(scenario, {{"TextTitre", "A"}});
    Saisit<DlgPers>(scenario, {{"TxtNom", "MARTIN"}});
    QVERIFY(Cree());
    QCOMPARE(scenario.Ecarts(), QStringList());
    QCOMPARE(deroulement.Lignes().at(0), "dialogue DlgPdG [arbre création type 3]");
    QCOMPARE(banc->doc.typeFichier, 4);
}

void TestCreation::apresUnAbandonUneCreationReussit()
{
    Scenario scenario;
    Saisit<DlgPdG>(scenario, {{"TextTitre", "A"}});
    Abandonne<DlgPers>(scenario);
    scenario.Repond("OK");
    QVERIFY(!Cree());
    Saisit<DlgPdG>(scenario, {{"TextTitre", "B"}});
    Saisit<DlgPers>(scenario, {{"TxtNom", "MARTIN"}});
    QVERIFY(Cree());
    QCOMPARE(scenario.Ecarts(), QStringList());
    QCOMPARE(banc->doc.arbre->infoArbre->titrearbre, "B");
    QCOMPARE(ArbreEnTexte(*banc->doc.arbre), "1 MARTIN\n");
}

void TestCreation::rienNEstAAnnulerApresUneCreation()
{
    banc->Ouvre({1, 2});
    banc->Choisit(2);
    banc->doc.SupPersonne(banc->repertoire);
    Scenario scenario;
    Saisit<DlgPdG>(scenario, {{"TextTitre", "A"}});
    Saisit<DlgPers>(scenario, {{"TxtNom", "MARTIN"}});
    QVERIFY(Cree());
    QCOMPARE(scenario.Ecarts(), QStringList());
    QCOMPARE(Annulation(*banc->doc.arbre), "rien");
}

RAMELIER_TEST_MAIN(QApplication, TestCreation)
#include "tst_creation.moc"
