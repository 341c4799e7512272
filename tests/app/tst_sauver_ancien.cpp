#include "fenetre.h"

#include "arbre.h"
#include "arbres.h"
#include "ramelierdoc.h"

#include <QAction>
#include <QLabel>

/// Trees of the older binary format in the window: opened, and saved in the new format only.
class TestSauverAncien : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup();
    void ouvreUnArbreAncien_data();
    void ouvreUnArbreAncien();
    void sauverProposeUnNouveauNom();
    void lAncienFichierEstRenomme();
    void uneFoisSauveLArbreEstCommeUnAutre();
    void renoncerLaisseLAncienFichier();
    void refuserDeRemplacerLaisseLAncienFichier();
    void unAncienFichierDejaRenommeReste();
    void sauverSousFaitDeMeme();
    void apresUnEchecLaSauvegardeSuivanteRedemandeUnNom();
    void unFichierAbimeEstRefuse_data();
    void unFichierAbimeEstRefuse();

private:
    void Ouvre(int version, const QString &nom = QStringLiteral("martin.final.rlg"));

    std::unique_ptr<Dossier> dossier;
    std::unique_ptr<Fenetre> fenetre;
    QString chemin;
};

namespace {

QByteArray Entier(quint64 valeur, int octets)
{
    QByteArray resultat;
    for (int i = 0; i < octets; ++i)
        resultat += static_cast<char>((valeur >> (8 * i)) & 0xff);
    return resultat;
}

QByteArray Chaine(const QString &texte)
{
    return Entier(quint64(texte.size()), 2) + texte.toLatin1();
}

QByteArray PersonneAncienne(int version, quint64 numero, int generation, quint64 pere, const QString &nom)
{
    const int octets = version == 1 ? 2 : 8;
    QByteArray resultat = Entier(1011, 2) + Entier(numero, octets) + Entier(quint64(generation), 2)
        + Entier(pere, octets) + Entier(0, octets) + Entier(numero / 2, octets) + Entier(1010, 2) + Chaine(nom);
    for (int i = 0; i < 8; ++i)
        resultat += Chaine({});
    return resultat;
}

/// A root and his father in the older format.
QByteArray ArbreAncien(int version)
{
    const QString enTete =
        version == 1 ? "Arbre généalogique - R. Lidou - Version 1.0" : "Arbre généalogique - R. Lidou - Version 3.0";
    QByteArray resultat = Entier(quint64(enTete.size()), 1) + enTete.toLatin1() + Entier(1013, 2) + Entier(1012, 2)
        + Chaine("Les Martin") + Chaine({}) + Chaine({}) + Chaine({}) + Chaine({}) + Entier(0, 2)
        + Entier(2, version == 1 ? 2 : 8);
    if (version == 1)
        resultat += Entier(0, 4);
    return resultat + PersonneAncienne(version, 1, 0, 2, "MARTIN") + PersonneAncienne(version, 2, 1, 0, "LEFÈVRE")
        + Entier(2, 2);
}

const QString titreDuNom = "Enregistrement d'un arbre ancien format .rlg";

}  // namespace

void TestSauverAncien::init()
{
    EffaceReglages();
    dossier = std::make_unique<Dossier>();
}

void TestSauverAncien::cleanup()
{
    fenetre.reset();
    dossier.reset();
}

void TestSauverAncien::Ouvre(int version, const QString &nom)
{
    chemin = dossier->Ecrit(nom, ArbreAncien(version));
    fenetre = std::make_unique<Fenetre>(QStringList{chemin});
}

void TestSauverAncien::ouvreUnArbreAncien_data()
{
    QTest::addColumn<int>("version");
    QTest::newRow("version 1.0") << 1;
    QTest::newRow("version 3.0") << 3;
}

void TestSauverAncien::ouvreUnArbreAncien()
{
    QFETCH(const int, version);
    Ouvre(version);
    QCOMPARE(ArbreEnTexte(*fenetre->doc->arbre), "1 MARTIN\n  2 LEFÈVRE\n");
    QCOMPARE(fenetre->doc->typeFichier, version);
    QCOMPARE(fenetre->windowTitle(), "Ramelier 5.1 - " + chemin);
    QVERIFY(EstDessine(*fenetre));
}

void TestSauverAncien::sauverProposeUnNouveauNom()
{
    Ouvre(3);
    DialogueVu vu;
    Scenario scenario;
    scenario.Repond("OK");
    Renonce(scenario, &vu);
    fenetre->actFileSave->trigger();
    QCOMPARE(scenario.Ecarts(), QStringList());
    const BoiteVue boite = scenario.Boites().constFirst();
    QCOMPARE(boite.titre, titreDuNom);
    QCOMPARE(boite.texte,
             "L'enregistrement d'un arbre ancien format .rlg\nse fait uniquement sous le nouveau format .xrlg\n"
             "le fichier de l'arbre original est renommé :\nmartin.rlg.old\n"
             "le nom proposé pour le nouveau fichier :\nmartin.xrlg\n(vous pouvez modifier ce nom à votre guise)");
    QCOMPARE(boite.icone, QMessageBox::Information);
    QCOMPARE(boite.boutons, QStringList{"OK"});
    QCOMPARE(boite.parent, fenetre.get());
    QCOMPARE(vu.titre, "Enregistrer sous");
    QCOMPARE(vu.dossier, dossier->Chemin());
    QCOMPARE(vu.nom, "martin.xrlg");
    QCOMPARE(vu.filtres, QStringList{"Fichiers au format XML (*.xrlg)"});
}

void TestSauverAncien::lAncienFichierEstRenomme()
{
    Ouvre(1);
    const Journal journal(*fenetre);
    Scenario scenario;
    scenario.Repond("OK");
    Choisit(scenario, dossier->Chemin("martin.xrlg"));
    fenetre->actFileSave->trigger();
    QCOMPARE(scenario.Ecarts(), QStringList());
    QCOMPARE(dossier->Noms(), (QStringList{"martin.final.rlg.old", "martin.xrlg"}));
    QCOMPARE(dossier->Lit("martin.final.rlg.old"), ArbreAncien(1));
    const QString nouveau = dossier->Chemin("martin.xrlg");
    QCOMPARE(
        journal.Lignes(),
        (QStringList{"Enregistrement du fichier sous un nouveau nom...", "[" + titreDuNom + "]", "[Enregistrer sous]",
                     "= Ramelier 5.1 - " + nouveau, "Arbre sauvé sous : " + nouveau + " (2000 ms)", "Prêt."}));
    // The new file holds the whole tree.
    fenetre = std::make_unique<Fenetre>(QStringList{nouveau});
    QCOMPARE(ArbreEnTexte(*fenetre->doc->arbre), "1 MARTIN\n  2 LEFÈVRE\n");
}

void TestSauverAncien::uneFoisSauveLArbreEstCommeUnAutre()
{
    Ouvre(3);
    Scenario scenario;
    scenario.Repond("OK");
    Choisit(scenario, dossier->Chemin("martin.xrlg"));
    fenetre->actFileSave->trigger();
    QCOMPARE(fenetre->doc->typeFichier, 4);
    fenetre->doc->modifie = true;
    fenetre->actFileSave->trigger();
    QCOMPARE(scenario.Ecarts(), QStringList());
    QCOMPARE(scenario.Boites().size(), 1);
    QVERIFY(!fenetre->doc->isModified());
}

void TestSauverAncien::renoncerLaisseLAncienFichier()
{
    Ouvre(3);
    Scenario scenario;
    scenario.Repond("OK");
    Renonce(scenario);
    fenetre->actFileSave->trigger();
    QCOMPARE(scenario.Ecarts(), QStringList());
    QCOMPARE(dossier->Noms(), QStringList{"martin.final.rlg"});
    QCOMPARE(fenetre->fichierArbre, chemin);
    QCOMPARE(fenetre->doc->typeFichier, 3);
}

void TestSauverAncien::refuserDeRemplacerLaisseLAncienFichier()
{
    Ouvre(3);
    const QString existant = dossier->Ecrit("martin.xrlg", "autre chose");
    Scenario scenario;
    scenario.Repond("OK");
    Choisit(scenario, existant);
    scenario.Repond("Non");
    scenario.Repond("OK");
    fenetre->actFileSave->trigger();
    QCOMPARE(scenario.Ecarts(), QStringList());
    QCOMPARE(dossier->Noms(), (QStringList{"martin.final.rlg", "martin.xrlg"}));
    QCOMPARE(dossier->Lit("martin.xrlg"), "autre chose");
}

void TestSauverAncien::unAncienFichierDejaRenommeReste()
{
    Ouvre(3);
    dossier->Ecrit("martin.final.rlg.old", "plus ancien");
    Scenario scenario;
    scenario.Repond("OK");
    Choisit(scenario, dossier->Chemin("martin.xrlg"));
    fenetre->actFileSave->trigger();
    QCOMPARE(scenario.Ecarts(), QStringList());
    QCOMPARE(dossier->Lit("martin.final.rlg.old"), "plus ancien");
    QCOMPARE(dossier->Lit("martin.final.rlg"), ArbreAncien(3));
    QCOMPARE(fenetre->doc->typeFichier, 4);
}

void TestSauverAncien::sauverSousFaitDeMeme()
{
    Ouvre(3);
    Scenario scenario;
    scenario.Repond("OK");
    Choisit(scenario, dossier->Chemin("autre"));
    fenetre->actFileSaveAs->trigger();
    QCOMPARE(scenario.Ecarts(), QStringList());
    QCOMPARE(scenario.Boites().constFirst().titre, titreDuNom);
    QCOMPARE(dossier->Noms(), (QStringList{"autre.xrlg", "martin.final.rlg.old"}));
}

void TestSauverAncien::apresUnEchecLaSauvegardeSuivanteRedemandeUnNom()
{
    Ouvre(3);
    fenetre->doc->modifie = true;
    Scenario scenario;
    scenario.Repond("OK");
    Choisit(scenario, dossier->Chemin("absent/martin.xrlg"));
    scenario.Repond("OK");  // the writer's own box
    fenetre->actFileSave->trigger();
    QCOMPARE(scenario.Boites().constLast().titre, "Fichier XRLG");
    QVERIFY(fenetre->doc->isModified());
    QCOMPARE(dossier->Noms(), QStringList{"martin.final.rlg.old"});
    // Nothing is ever written under the older name.
    Choisit(scenario, dossier->Chemin("martin.xrlg"));
    fenetre->actFileSave->trigger();
    QCOMPARE(scenario.Ecarts(), QStringList());
    QCOMPARE(dossier->Noms(), (QStringList{"martin.final.rlg.old", "martin.xrlg"}));
    QVERIFY(!fenetre->doc->isModified());
}

void TestSauverAncien::unFichierAbimeEstRefuse_data()
{
    QTest::addColumn<QByteArray>("contenu");
    QByteArray autreEnTete = ArbreAncien(3);
    autreEnTete.replace("Version 3.0", "Version 2.0");
    QTest::newRow("autre version") << autreEnTete;
    QByteArray autreMarque = ArbreAncien(3);
    autreMarque[44] = 'x';
    QTest::newRow("autre marque") << autreMarque;
    QTest::newRow("vide") << QByteArray();
}

void TestSauverAncien::unFichierAbimeEstRefuse()
{
    QFETCH(const QByteArray, contenu);
    chemin = dossier->Ecrit("a.rlg", contenu);
    Scenario scenario;
    scenario.Repond("OK");
    fenetre = std::make_unique<Fenetre>(QStringList{chemin});
    QCOMPARE(scenario.Ecarts(), QStringList());
    QCOMPARE(scenario.Boites().constFirst().texte, "Impossible de charger le fichier " + chemin);
    // Never taken for a tree to convert.
    QCOMPARE(fenetre->doc->typeFichier, 0);
    QCOMPARE(dossier->Lit("a.rlg"), contenu);
}

RAMELIER_TEST_BUREAU_MAIN(TestSauverAncien)
#include "tst_sauver_ancien.moc"
