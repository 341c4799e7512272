#include "arbre.h"
#include "arbres.h"
#include "dlgindrac.h"
#include "dlgsexrac.h"
#include "environnement.h"
#include "gedcomexport.h"
#include "gedcomimport.h"
#include "interlocuteurbureau.h"
#include "ramelierdoc.h"
#include "scenario.h"

#include <QApplication>
#include <QTemporaryDir>

/// A GEDCOM import or export from its first question to its last box, as its user sees them.
class TestGedcomBoites : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void unImportEntier_data();
    void unImportEntier();
    void lesEchecsDImportMontrentUneInformation_data();
    void lesEchecsDImportMontrentUneInformation();
    void unExportEntier_data();
    void unExportEntier();
    void unExportManqueMontreUneInformation();
    void leDocumentDemandeDansSaFenetre();
    void unNomDeFichierNEstPasDuHtml();

private:
    [[nodiscard]] QString Chemin(const QString &nom) const { return dossier->filePath(nom); }
    [[nodiscard]] QString Pose(const QByteArray &contenu) const;
    static void VerifieLaBoite(const Scenario &scenario, const QString &titre, const QString &texte);

    std::unique_ptr<QTemporaryDir> dossier;
    std::unique_ptr<QWidget> fenetre;
};

namespace {

const QByteArray famille = "0 @I1@ INDI\n1 NAME Jean /DUPONT/\n"
                           "0 @I2@ INDI\n1 NAME Luc /DUPONT/\n1 FAMS @F1@\n"
                           "0 @I3@ INDI\n1 NAME Zoe /SEULE/\n"
                           "0 @F1@ FAM\n1 HUSB @I2@\n1 CHIL @I1@\n0 TRLR\n";

/// One way to use the dialog for the root.
using Geste = std::function<void(DlgIndRac &)>;

}  // namespace

Q_DECLARE_METATYPE(Geste)

void TestGedcomBoites::init()
{
    Interlocuteur::Installe(std::make_unique<InterlocuteurBureau>());
    dossier = std::make_unique<QTemporaryDir>();
    fenetre = std::make_unique<QWidget>();
}

QString TestGedcomBoites::Pose(const QByteArray &contenu) const
{
    QFile fichier(Chemin(QStringLiteral("a.ged")));
    const bool ecrit = fichier.open(QIODevice::WriteOnly) && fichier.write(contenu) == contenu.size();
    return ecrit ? fichier.fileName() : QString();
}

void TestGedcomBoites::VerifieLaBoite(const Scenario &scenario, const QString &titre, const QString &texte)
{
    QCOMPARE(scenario.Ecarts(), QStringList());
    QCOMPARE(scenario.Boites().size(), 1);
    const BoiteVue &boite = scenario.Boites().constFirst();
    QCOMPARE(boite.icone, QMessageBox::Information);
    QCOMPARE(boite.titre, titre);
    QCOMPARE(boite.texte, texte);
    QCOMPARE(boite.boutons, QStringList{"OK"});
    QVERIFY(!boite.parent);
}

void TestGedcomBoites::unImportEntier_data()
{
    QTest::addColumn<Geste>("geste");
    QTest::addColumn<QString>("arbre");
    const auto accepte = [](const char *texte) {
        return Geste([texte](DlgIndRac &dialogue) {
            QTest::keyClicks(dialogue.IndividuChoisi, texte);
            QTest::keyClick(&dialogue, Qt::Key_Return);
        });
    };
    QTest::newRow("cliquer la première ligne") << Geste([](DlgIndRac &dialogue) {
        const QListWidget *liste = dialogue.ListeDesIndividus;
        QTest::mouseClick(liste->viewport(), Qt::LeftButton, {}, liste->visualItemRect(liste->item(0)).center());
        QTest::mouseClick(dialogue.OKButton, Qt::LeftButton);
    }) << "1 Zoe  SEULE\n";
    QTest::newRow("taper un identifiant") << accepte("le numero @I2@ ?") << "1 Luc  DUPONT\n";
    QTest::newRow("ne rien choisir") << accepte("") << "1 Jean  DUPONT\n  2 Luc  DUPONT\n";
    QTest::newRow("renoncer") << Geste([](DlgIndRac &dialogue) { dialogue.reject(); })
                              << "1 Jean  DUPONT\n  2 Luc  DUPONT\n";
}

void TestGedcomBoites::unImportEntier()
{
    QFETCH(Geste, geste);
    QFETCH(QString, arbre);
    const QWidget *parent = nullptr;
    Scenario scenario;
    scenario.Dialogue<DlgIndRac>([&](DlgIndRac &dialogue) {
        parent = dialogue.parentWidget();
        geste(dialogue);
    });
    Arbre importe;
    ImporterDeFichierGEDCOM(fenetre.get(), Pose(famille), &importe);
    QCOMPARE(scenario.Ecarts(), QStringList());
    QCOMPARE(scenario.Boites().size(), 0);
    QCOMPARE(ArbreEnTexte(importe), arbre);
    QCOMPARE(parent, fenetre.get());
}

void TestGedcomBoites::lesEchecsDImportMontrentUneInformation_data()
{
    QTest::addColumn<QByteArray>("contenu");
    QTest::addColumn<QString>("nom");
    QTest::addColumn<bool>("demande");
    QTest::addColumn<QString>("texte");
    QTest::newRow("absent") << QByteArray() << "absent.ged" << false
                            << "Impossible de traiter le fichier %1/absent.ged";
    QTest::newRow("sans individu") << QByteArray("0 TRLR\n") << "a.ged" << false
                                   << "Impossible de construire un arbre à partir de %1/a.ged";
    QTest::newRow("sans la racine") << famille << "a.ged" << true
                                    << "Impossible de trouver la personne  @I9@\nproposée comme racine de l'arbre";
}

void TestGedcomBoites::lesEchecsDImportMontrentUneInformation()
{
    QFETCH(QByteArray, contenu);
    QFETCH(QString, nom);
    QFETCH(bool, demande);
    QFETCH(QString, texte);
    QVERIFY(!Pose(contenu).isEmpty());
    Scenario scenario;
    if (demande) {
        scenario.Dialogue<DlgIndRac>([](DlgIndRac &dialogue) {
            dialogue.IndividuChoisi->setText(QStringLiteral("@I9@"));
            dialogue.accept();
        });
    }
    scenario.Echappe();
    Arbre arbre;
    ImporterDeFichierGEDCOM(fenetre.get(), Chemin(nom), &arbre);
    VerifieLaBoite(scenario, QStringLiteral("Information"), texte.replace(QStringLiteral("%1"), dossier->path()));
    QVERIFY(!arbre.premiere);
}

void TestGedcomBoites::unExportEntier_data()
{
    QTest::addColumn<bool>("feminin");
    QTest::addColumn<QByteArray>("sexe");
    QTest::newRow("masculin") << false << QByteArray("\r\n  1 SEX M\r\n");
    QTest::newRow("féminin") << true << QByteArray("\r\n  1 SEX F\r\n");
}

void TestGedcomBoites::unExportEntier()
{
    QFETCH(bool, feminin);
    QFETCH(QByteArray, sexe);
    const auto arbre = ArbreComplet(1);
    QString nomArbre = QStringLiteral("/a/famille.xrlg");
    const QWidget *parent = nullptr;
    Scenario scenario;
    scenario.Dialogue<DlgSexRac>([&](DlgSexRac &dialogue) {
        parent = dialogue.parentWidget();
        if (feminin)
            dialogue.radioButtonF->click();
        dialogue.reject();  // the answer counts however the dialog is left
    });
    scenario.Repond(QStringLiteral("OK"));
    ExporterVersFichierGEDCOM(fenetre.get(), Chemin(QStringLiteral("b.ged")), arbre.get(), nomArbre);
    VerifieLaBoite(scenario, QStringLiteral("Exportation vers GEDCOM"),
                   QStringLiteral("Exportation du fichier : famille.xrlg\nvers fichier : b.ged\nterminée"));
    QCOMPARE(parent, fenetre.get());
    QFile fichier(Chemin(QStringLiteral("b.ged")));
    QVERIFY(fichier.open(QIODevice::ReadOnly));
    QVERIFY(fichier.readAll().contains("  1 NAME N1/" + sexe + "0 TRLR\r\n"));
}

void TestGedcomBoites::unExportManqueMontreUneInformation()
{
    const auto arbre = ArbreComplet(1);
    QString nomArbre = QStringLiteral("/a/famille.xrlg");
    Scenario scenario;
    scenario.Repond(QStringLiteral("OK"));
    ExporterVersFichierGEDCOM(fenetre.get(), Chemin(QStringLiteral("rien/b.ged")), arbre.get(), nomArbre);
    VerifieLaBoite(scenario, QStringLiteral("Exportation vers GEDCOM"),
                   QStringLiteral("Echec à l'exportation du fichier"));
}

void TestGedcomBoites::leDocumentDemandeDansSaFenetre()
{
    RamelierDoc doc{QString()};
    QList<const QWidget *> parents;
    Scenario scenario;
    scenario.Dialogue<DlgIndRac>([&](DlgIndRac &dialogue) {
        parents += dialogue.parentWidget();
        dialogue.reject();
    });
    QCOMPARE(doc.ImporteDeGED(fenetre.get(), Pose(famille)), 1);
    scenario.Dialogue<DlgSexRac>([&](DlgSexRac &dialogue) {
        parents += dialogue.parentWidget();
        dialogue.accept();
    });
    scenario.Echappe();
    QVERIFY(doc.exporteVersGED(fenetre.get(), Chemin(QStringLiteral("b.ged"))));
    VerifieLaBoite(scenario, QStringLiteral("Exportation vers GEDCOM"),
                   QStringLiteral("Exportation du fichier : \nvers fichier : b.ged\nterminée"));
    QCOMPARE(parents, (QList<const QWidget *>{fenetre.get(), fenetre.get()}));
}

void TestGedcomBoites::unNomDeFichierNEstPasDuHtml()
{
    const QString nom = Chemin(QStringLiteral("<b>gras<b>.ged"));
    Qt::TextFormat format = Qt::AutoText;
    Scenario scenario;
    scenario.Dialogue<QMessageBox>([&format](QMessageBox &boite) {
        format = boite.textFormat();
        Scenario::ClicPlusTard(boite.button(QMessageBox::Ok));
    });
    Arbre arbre;
    ImporterDeFichierGEDCOM(fenetre.get(), nom, &arbre);
    QCOMPARE(format, Qt::PlainText);
    VerifieLaBoite(scenario, QStringLiteral("Information"), QStringLiteral("Impossible de traiter le fichier ") + nom);
}

RAMELIER_TEST_MAIN(QApplication, TestGedcomBoites)
#include "tst_gedcom_boites.moc"
