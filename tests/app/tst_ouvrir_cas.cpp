#include "fenetre.h"

#include "arbre.h"
#include "arbres.h"
#include "arbview.h"
#include "ramelierdoc.h"
#include "ramelierview.h"

#include <QAction>
#include <QLabel>
#include <QSignalSpy>

/// The open command: names and options, failures, and odd trees.
class TestOuvrirCas : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init() { EffaceReglages(); }
    void annulerLeDialogueLaisseLeDocument();
    void apresUneOuvertureAnnuleeLeNomDArbreEstVide();
    void leFichierDOptionsPorteLeNomJusquauPremierPoint_data();
    void leFichierDOptionsPorteLeNomJusquauPremierPoint();
    void lArbreFinalPrendLesOptionsDArbre();
    void unFichierIncorrectEstRefuse_data();
    void unFichierIncorrectEstRefuse();
    void unEchecGardeLeTitreEtLesMauvaisNoms();
    void unArbreAMoitieLuSeLaisseDessiner();
    void unAutreNomSOuvreEnArbreVide();
    void unArbreVideSupporteToutesLesCommandes();
    void lesMajusculesSOuvrentAussi();
    void ouvrirRemplaceLArbre();

private:
    [[nodiscard]] static QStringList Ouvre(Fenetre &fenetre, const QString &chemin);
    static QString UneRacine(const Dossier &dossier, const QString &nom);
};

QString TestOuvrirCas::UneRacine(const Dossier &dossier, const QString &nom)
{
    return dossier.Ecrit(nom, ArbreEcrit("Famille", {{1, "MARTIN"}}));
}

/// What went otherwise than a dialog answered with \a chemin.
QStringList TestOuvrirCas::Ouvre(Fenetre &fenetre, const QString &chemin)
{
    Scenario scenario;
    Choisit(scenario, chemin);
    fenetre.slotFileOpen();
    return scenario.Ecarts();
}

void TestOuvrirCas::annulerLeDialogueLaisseLeDocument()
{
    const Dossier dossier;
    const QString chemin = UneRacine(dossier, "a.xrlg");
    Fenetre fenetre({chemin});
    const Arbre *arbre = fenetre.doc->arbre;
    const QSignalSpy change(fenetre.doc, &RamelierDoc::documentChanged);
    const QStringList actives = ActionsActives(fenetre);
    const Journal journal(fenetre);
    Scenario scenario;
    Renonce(scenario);
    fenetre.slotFileOpen();
    QCOMPARE(scenario.Ecarts(), QStringList());
    QCOMPARE(journal.Lignes(),
             (QStringList{"Ouverture du fichier...", "[Ouvrir]", "Echec à l'ouverture du fichier (2000 ms)"}));
    QCOMPARE(StatutDe(fenetre), "Echec à l'ouverture du fichier (2000 ms)");
    QCOMPARE(fenetre.doc->arbre, arbre);
    QCOMPARE(fenetre.doc->nomFichier, chemin);
    QCOMPARE(change.count(), 0);
    QCOMPARE(fenetre.windowTitle(), "Ramelier 5.1 - " + chemin);
    QCOMPARE(ActionsActives(fenetre), actives);
}

void TestOuvrirCas::apresUneOuvertureAnnuleeLeNomDArbreEstVide()
{
    const Dossier dossier;
    const QString chemin = UneRacine(dossier, "a.xrlg");
    Fenetre fenetre({chemin});
    Scenario scenario;
    DialogueVu vu;
    Renonce(scenario);
    Renonce(scenario, &vu);
    fenetre.slotFileOpen();
    QCOMPARE(fenetre.fichierArbre, QString());
    QCOMPARE(fenetre.fichierOptions, dossier.Chemin("a.opt"));
    // The document still knows its file, the save dialog does not.
    fenetre.slotFileSaveAs();
    QCOMPARE(vu.dossier, dossier.Chemin());
    QCOMPARE(vu.nom, "nouveau");
    fenetre.slotFileSave();
    QCOMPARE(scenario.Ecarts(), QStringList());
    QCOMPARE(dossier.Noms(), (QStringList{"a.xrlg", "a.xrlg~"}));
}

void TestOuvrirCas::leFichierDOptionsPorteLeNomJusquauPremierPoint_data()
{
    QTest::addColumn<QString>("arbre");
    QTest::addColumn<QString>("options");
    QTest::newRow("un point") << "arbre.xrlg"
                              << "arbre.opt";
    QTest::newRow("deux points") << "arbre.final.xrlg"
                                 << "arbre.opt";
    QTest::newRow("capitales") << "ARBRE.XRLG"
                               << "ARBRE.opt";
    QTest::newRow("blanc") << "mes aïeux.v2.xrlg"
                           << "mes aïeux.opt";
    QTest::newRow("caché") << ".secret.xrlg"
                           << ".opt";
}

void TestOuvrirCas::leFichierDOptionsPorteLeNomJusquauPremierPoint()
{
    QFETCH(const QString, arbre);
    QFETCH(const QString, options);
    const Dossier dossier;
    const QString chemin = UneRacine(dossier, arbre);
    Fenetre fenetre;
    QCOMPARE(Ouvre(fenetre, chemin), QStringList());
    QCOMPARE(fenetre.windowTitle(), "Ramelier 5.1 - " + chemin);
    QCOMPARE(fenetre.fichierOptions, dossier.Chemin() + u'/' + options);
}

void TestOuvrirCas::lArbreFinalPrendLesOptionsDArbre()
{
    const Dossier dossier;
    dossier.Ecrit("arbre.opt", OptionsEcrites(41));
    dossier.Ecrit("arbre.final.opt", OptionsEcrites(42));
    Fenetre fenetre;
    QCOMPARE(Ouvre(fenetre, UneRacine(dossier, "arbre.final.xrlg")), QStringList());
    QCOMPARE(fenetre.doc->formats.largeurCadre, 41);
    // Another tree has no options of its own: the preferences again.
    QCOMPARE(Ouvre(fenetre, UneRacine(dossier, "autre.xrlg")), QStringList());
    QCOMPARE(fenetre.doc->formats.largeurCadre, 30);
}

void TestOuvrirCas::unFichierIncorrectEstRefuse_data()
{
    QTest::addColumn<QByteArray>("contenu");
    QTest::addColumn<QString>("finDuMessage");
    QTest::newRow("autre racine") << QByteArray("<html></html>") << "\nLe fichier n'est pas un fichier XRLG.";
    QTest::newRow("autre version") << QByteArray("<xrlg version=\"2.0\"></xrlg>")
                                   << "\nLe fichier n'est pas un fichier XRLG version 1.0.";
    QTest::newRow("vide") << QByteArray() << QString();
    QTest::newRow("coupé") << QByteArray("<xrlg version=\"1.0\"><arbre><personne>") << QString();
}

void TestOuvrirCas::unFichierIncorrectEstRefuse()
{
    QFETCH(const QByteArray, contenu);
    QFETCH(const QString, finDuMessage);
    const Dossier dossier;
    const QString chemin = dossier.Ecrit("faux.xrlg", contenu);
    Fenetre fenetre;
    const Journal journal(fenetre);
    Scenario scenario;
    Choisit(scenario, chemin);
    scenario.Repond("OK").Repond("OK");
    fenetre.slotFileOpen();
    QCOMPARE(scenario.Ecarts(), QStringList());
    QCOMPARE(journal.Lignes(),
             (QStringList{"Ouverture du fichier...", "[Ouvrir]", "[Arbre XRLG]", "fichier incorrect", "[Information]",
                          "Prêt"}));
    const BoiteVue syntaxe = scenario.Boites().at(0);
    QVERIFY2(syntaxe.texte.startsWith("Erreur de syntaxe ligne "), qPrintable(syntaxe.texte));
    QVERIFY2(syntaxe.texte.endsWith(finDuMessage), qPrintable(syntaxe.texte));
    QCOMPARE(syntaxe.parent, nullptr);
    const BoiteVue refus = scenario.Boites().at(1);
    QCOMPARE(refus.titre, "Information");
    QCOMPARE(refus.texte, "Impossible de charger le fichier " + chemin);
    QCOMPARE(refus.icone, QMessageBox::Information);
    QCOMPARE(refus.boutons, QStringList{"OK"});
    QCOMPARE(refus.parent, &fenetre);
    QCOMPARE(fenetre.windowTitle(), "Ramelier 5.1");
    QVERIFY(!fenetre.actFileSave->isEnabled());
}

void TestOuvrirCas::unEchecGardeLeTitreEtLesMauvaisNoms()
{
    const Dossier bons;
    const QString bon = UneRacine(bons, "bon.xrlg");
    const Dossier mauvais;
    const QString faux = mauvais.Ecrit("faux.xrlg", "<faux/>");
    Fenetre fenetre({bon});
    fenetre.slotModeTravail();
    Scenario scenario;
    Choisit(scenario, faux);
    scenario.Repond("OK").Repond("OK");
    fenetre.slotFileOpen();
    QCOMPARE(scenario.Ecarts(), QStringList());
    QCOMPARE(fenetre.windowTitle(), "Ramelier 5.1 - " + bon);
    QCOMPARE(fenetre.fichierArbre, faux);
    QCOMPARE(fenetre.fichierOptions, mauvais.Chemin("faux.opt"));
    QCOMPARE(fenetre.dernierRep, mauvais.Chemin());
    QCOMPARE(fenetre.doc->nomFichier, QString());
    QCOMPARE(fenetre.modeConsultation, false);
}

void TestOuvrirCas::unArbreAMoitieLuSeLaisseDessiner()
{
    const Dossier dossier;
    QByteArray coupe = ArbreEcrit("Famille", {{1, "UN"}, {2, "DEUX"}, {3, "TROIS"}});
    coupe.truncate(coupe.indexOf("<numero>3"));
    Fenetre fenetre({UneRacine(dossier, "bon.xrlg")});
    QVERIFY(EstDessine(fenetre));
    QImage pendantLaBoite;
    Scenario scenario;
    Choisit(scenario, dossier.Ecrit("coupe.xrlg", coupe));
    scenario.Dialogue<QMessageBox>([&](QMessageBox &boite) {
        pendantLaBoite = fenetre.grab().toImage();
        boite.accept();
    });
    scenario.Repond("OK");
    fenetre.slotFileOpen();
    QCOMPARE(scenario.Ecarts(), QStringList());
    QVERIFY(!pendantLaBoite.isNull());
    QCOMPARE(NumerosEnTexte(*fenetre.doc->arbre), "1 2");
    QVERIFY(!fenetre.grab().isNull());
}

void TestOuvrirCas::unAutreNomSOuvreEnArbreVide()
{
    const Dossier dossier;
    const QString chemin = dossier.Ecrit("notes.txt", "rien d'un arbre");
    Fenetre fenetre;
    QCOMPARE(Ouvre(fenetre, chemin), QStringList());
    QVERIFY(fenetre.doc->arbre);
    QCOMPARE(fenetre.doc->arbre->premiere, nullptr);
    QCOMPARE(fenetre.windowTitle(), "Ramelier 5.1 - " + chemin);
    QVERIFY(fenetre.actFileSave->isEnabled());
}

void TestOuvrirCas::unArbreVideSupporteToutesLesCommandes()
{
    const Dossier dossier;
    Fenetre fenetre({dossier.Ecrit("vide.xrlg", ArbreEcrit("Vide", {}))});
    CliqueDansLeVide(fenetre);
    CliqueDansLeVide(fenetre, Qt::RightButton);
    fenetre.slotModeTravail();
    fenetre.slotModeAffichage(false);
    fenetre.slotModeAffichage(true);
    QVERIFY(!fenetre.grab().isNull());
    fenetre.slotFileSave();
    QCOMPARE(dossier.Lit("vide.xrlg"), ArbreEcrit("Vide", {}));
}

void TestOuvrirCas::lesMajusculesSOuvrentAussi()
{
    const Dossier dossier;
    Fenetre fenetre;
    QCOMPARE(Ouvre(fenetre, UneRacine(dossier, "MARTIN.XRLG")), QStringList());
    QCOMPARE(ArbreEnTexte(*fenetre.doc->arbre), "1 MARTIN\n");
}

void TestOuvrirCas::ouvrirRemplaceLArbre()
{
    const Dossier dossier;
    Fenetre fenetre({UneRacine(dossier, "a.xrlg")});
    Clique(fenetre, 1);
    const QSignalSpy change(fenetre.doc, &RamelierDoc::documentChanged);
    QCOMPARE(Ouvre(fenetre, dossier.Ecrit("b.xrlg", ArbreEcrit("B", {{1, "AUTRE"}}))), QStringList());
    QCOMPARE(ArbreEnTexte(*fenetre.doc->arbre), "1 AUTRE\n");
    QCOMPARE(fenetre.doc->arbre->selection, nullptr);
    QCOMPARE(QList<QVariantList>(change), (QList<QVariantList>{{0}, {1}}));
}

RAMELIER_TEST_BUREAU_MAIN(TestOuvrirCas)
#include "tst_ouvrir_cas.moc"
