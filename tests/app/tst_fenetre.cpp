#include "fenetre.h"

#include "arbre.h"
#include "arbview.h"
#include "ramelierdoc.h"
#include "ramelierview.h"

#include <QImageReader>
#include <QLabel>
#include <QMenu>
#include <QPushButton>
#include <QScreen>
#include <QSettings>
#include <QStatusBar>

/// Start-up, settings and end of the main window.
class TestFenetre : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init() { EffaceReglages(); }
    void lApplicationEstPrete();
    void laFenetrePorteSonTitreEtSonIcone();
    void laFenetreSOuvreVideSansArgument();
    void laVueRemplitLaFenetre();
    void leDossierDuProgrammeVientDeLaLigneDeCommande_data();
    void leDossierDuProgrammeVientDeLaLigneDeCommande();
    void laBarreDeStatutDitPretEtDeuxChamps();
    void leFichierEnArgumentSOuvreSansDialogue();
    void leFichierRelatifGardeSonNom();
    void lArgumentQuiNEstPasUnFichierEstRefuse_data();
    void lArgumentQuiNEstPasUnFichierEstRefuse();
    void lArgumentVideEchoueSansBoite();
    void lesArgumentsSuivantsSontIgnores();
    void laTailleParDefautEst400Sur400();
    void laTailleEnregistreeLEmporte();
    void unePlaceHorsDesEcransEstRamenee();
    void lesReglagesSEcriventSousLeursCles();
    void lesReglagesSEcriventSeulementEnQuittant();
    void leDessinPrendLaTailleDeLaFenetre();
    void lesSignauxDuDocumentArriventALaFenetre();
    void leSignalDeLaFenetreArriveAuDessin();
    void laFenetreSeDetruitEnToutEtat_data();
    void laFenetreSeDetruitEnToutEtat();
};

namespace {

QString UneRacine(const Dossier &dossier, const QString &nom = QStringLiteral("a.xrlg"))
{
    return dossier.Ecrit(nom, ArbreEcrit(QStringLiteral("Famille"), {{1, QStringLiteral("MARTIN")}}));
}

}  // namespace

void TestFenetre::lApplicationEstPrete()
{
    QCOMPARE(QGuiApplication::desktopFileName(), QStringLiteral("ramelier"));
    QCOMPARE(QImageReader::allocationLimit(), 1024);
    QCOMPARE(QLocale().name(), QStringLiteral("fr_FR"));
    QCOMPARE(QCoreApplication::translate("QPlatformTheme", "Cancel"), QStringLiteral("Annuler"));
}

void TestFenetre::laFenetrePorteSonTitreEtSonIcone()
{
    const Fenetre fenetre;
    QCOMPARE(fenetre.windowTitle(), QStringLiteral("Ramelier 5.1"));
    const QImage icone(QStringLiteral(":/images/ramelier.png"));
    QVERIFY(!icone.isNull());
    QCOMPARE(
        fenetre.windowIcon().pixmap(icone.size(), 1.0).toImage().convertToFormat(QImage::Format_ARGB32_Premultiplied),
        icone.convertToFormat(QImage::Format_ARGB32_Premultiplied));
}

void TestFenetre::laFenetreSOuvreVideSansArgument()
{
    const Scenario scenario;
    const Fenetre fenetre;
    QVERIFY(fenetre.isVisible());
    QCOMPARE(fenetre.doc->arbre, nullptr);
    QCOMPARE(fenetre.fichierArbre, QString());
    QCOMPARE(fenetre.fichierOptions, QString());
    QCOMPARE(fenetre.dernierRep, QString());
    QCOMPARE(fenetre.modeConsultation, true);
    QCOMPARE(fenetre.modifAnnulee, false);
    QCOMPARE(fenetre.enDemarrage, false);
    QCOMPARE(fenetre.affichageComplet, true);
    QVERIFY(fenetre.listeEditeurs.isNull());
    QCoreApplication::processEvents();
    QCOMPARE(scenario.Ecarts(), QStringList());
}

void TestFenetre::laVueRemplitLaFenetre()
{
    const Fenetre fenetre;
    QVERIFY(fenetre.view);
    QCOMPARE(fenetre.centralWidget(), fenetre.view);
    QVERIFY(fenetre.view->isVisible());
}

void TestFenetre::leDossierDuProgrammeVientDeLaLigneDeCommande_data()
{
    QTest::addColumn<QString>("programme");
    QTest::addColumn<QString>("dossier");
    QTest::newRow("absolu") << QStringLiteral("/opt/ramelier/bin/ramelier") << QStringLiteral("/opt/ramelier/bin");
    QTest::newRow("relatif") << QStringLiteral("bin/ramelier") << QDir::currentPath() + QStringLiteral("/bin");
    QTest::newRow("ici") << QStringLiteral("./ramelier") << QDir::currentPath();
    QTest::newRow("accent") << QStringLiteral("/opt/généalogie/ramelier") << QStringLiteral("/opt/généalogie");
}

void TestFenetre::leDossierDuProgrammeVientDeLaLigneDeCommande()
{
    QFETCH(const QString, programme);
    QFETCH(const QString, dossier);
    const Fenetre fenetre({}, programme);
    QCOMPARE(fenetre.repApplication, dossier);
    QCOMPARE(fenetre.repAide, dossier + QStringLiteral("/AideRamelier"));
}

void TestFenetre::laBarreDeStatutDitPretEtDeuxChamps()
{
    const Fenetre fenetre;
    QCOMPARE(StatutDe(fenetre), QStringLiteral("Prêt. (2000 ms)"));
    QCOMPARE(fenetre.labelInfoModif->text(), QStringLiteral("                     "));
    QCOMPARE(fenetre.labelMode->text(), QStringLiteral(" Consultation "));
    QVERIFY(fenetre.labelInfoModif->isVisible());
    QVERIFY(fenetre.labelMode->isVisible());
    QCOMPARE(fenetre.labelInfoModif->parentWidget()->metaObject()->className(), "QStatusBar");
    QVERIFY(fenetre.labelInfoModif->geometry().right() < fenetre.labelMode->geometry().left());
}

void TestFenetre::leFichierEnArgumentSOuvreSansDialogue()
{
    const Dossier dossier;
    const QString chemin = UneRacine(dossier, QStringLiteral("aïeux.xrlg"));
    const Scenario scenario;
    const Fenetre fenetre({chemin});
    QCoreApplication::processEvents();
    QCOMPARE(scenario.Ecarts(), QStringList());
    QCOMPARE(fenetre.windowTitle(), QStringLiteral("Ramelier 5.1 - ") + chemin);
    QCOMPARE(fenetre.fichierArbre, chemin);
    QCOMPARE(fenetre.fichierOptions, dossier.Chemin(QStringLiteral("aïeux.opt")));
    QCOMPARE(fenetre.dernierRep, dossier.Chemin());
    QVERIFY(fenetre.doc->arbre);
    QCOMPARE(fenetre.doc->arbre->nombrePersonnes, 1U);
    QCOMPARE(StatutDe(fenetre), QStringLiteral("Prêt"));
    QCOMPARE(fenetre.enDemarrage, false);
    QCOMPARE(fenetre.modeConsultation, true);
}

void TestFenetre::leFichierRelatifGardeSonNom()
{
    const Dossier dossier;
    UneRacine(dossier);
    const QString avant = QDir::currentPath();
    QVERIFY(QDir::setCurrent(dossier.Chemin()));
    const Fenetre fenetre({QStringLiteral("a.xrlg")});
    QVERIFY(QDir::setCurrent(avant));
    QCOMPARE(fenetre.windowTitle(), QStringLiteral("Ramelier 5.1 - a.xrlg"));
    QCOMPARE(fenetre.fichierArbre, QStringLiteral("a.xrlg"));
    QCOMPARE(fenetre.dernierRep, dossier.Chemin());
    QCOMPARE(fenetre.fichierOptions, dossier.Chemin(QStringLiteral("a.opt")));
}

void TestFenetre::lArgumentQuiNEstPasUnFichierEstRefuse_data()
{
    QTest::addColumn<QString>("nom");
    QTest::newRow("absent") << QStringLiteral("absent.xrlg");
    QTest::newRow("dossier") << QString();
}

void TestFenetre::lArgumentQuiNEstPasUnFichierEstRefuse()
{
    QFETCH(const QString, nom);
    const Dossier dossier;
    const QString chemin = dossier.Chemin(nom);
    QString statutPendantLaBoite;
    Scenario scenario;
    scenario.Dialogue<QMessageBox>([&statutPendantLaBoite](QMessageBox &boite) {
        statutPendantLaBoite = boite.parentWidget()->findChild<QStatusBar *>()->currentMessage();
        Scenario::ClicPlusTard(boite.button(QMessageBox::Ok));
    });
    const Fenetre fenetre({chemin});
    QCOMPARE(scenario.Ecarts(), QStringList());
    QCOMPARE(statutPendantLaBoite, QStringLiteral("le fichier n'exite pas"));
    const BoiteVue boite = scenario.Boites().constFirst();
    QCOMPARE(boite.titre, QStringLiteral("Information"));
    QCOMPARE(boite.texte, QStringLiteral("Le fichier ") + chemin + QStringLiteral(" n'existe pas"));
    QCOMPARE(boite.icone, QMessageBox::Information);
    QCOMPARE(boite.boutons, QStringList{QStringLiteral("OK")});
    QCOMPARE(boite.parent, &fenetre);
    QCOMPARE(StatutDe(fenetre), QStringLiteral("Prêt"));
    QCOMPARE(fenetre.windowTitle(), QStringLiteral("Ramelier 5.1"));
    QCOMPARE(fenetre.fichierArbre, chemin);
    QCOMPARE(fenetre.dernierRep, QString());
    QCOMPARE(fenetre.doc->arbre, nullptr);
    QVERIFY(fenetre.isVisible());
}

void TestFenetre::lArgumentVideEchoueSansBoite()
{
    const Scenario scenario;
    const Fenetre fenetre({QString()});
    QCOMPARE(scenario.Ecarts(), QStringList());
    QCOMPARE(StatutDe(fenetre), QStringLiteral("Echec à l'ouverture du fichier (2000 ms)"));
    QCOMPARE(fenetre.windowTitle(), QStringLiteral("Ramelier 5.1"));
}

void TestFenetre::lesArgumentsSuivantsSontIgnores()
{
    const Dossier dossier;
    const QString premier = UneRacine(dossier, QStringLiteral("un.xrlg"));
    const QString second = UneRacine(dossier, QStringLiteral("deux.xrlg"));
    const Scenario scenario;
    const Fenetre fenetre({premier, second, QStringLiteral("/absent.xrlg"), QStringLiteral("--aide")});
    QCOMPARE(scenario.Ecarts(), QStringList());
    QCOMPARE(fenetre.windowTitle(), QStringLiteral("Ramelier 5.1 - ") + premier);
}

void TestFenetre::laTailleParDefautEst400Sur400()
{
    const Fenetre fenetre;
    QCOMPARE(fenetre.size(), QSize(400, 400));
    QCOMPARE(fenetre.pos(), QPoint(200, 200));
}

void TestFenetre::laTailleEnregistreeLEmporte()
{
    QSettings reglages(QStringLiteral("ProgrammesLY"), QStringLiteral("ramelier"));
    reglages.setValue(QStringLiteral("size"), QSize(640, 360));
    reglages.setValue(QStringLiteral("pos"), QPoint(31, 47));
    reglages.setValue(QStringLiteral("lastdir"), QStringLiteral("/srv/arbres"));
    reglages.sync();
    const Fenetre fenetre;
    QCOMPARE(fenetre.size(), QSize(640, 360));
    QCOMPARE(fenetre.pos(), QPoint(31, 47));
    QCOMPARE(fenetre.dernierRep, QStringLiteral("/srv/arbres"));
}

void TestFenetre::unePlaceHorsDesEcransEstRamenee()
{
    QSettings reglages(QStringLiteral("ProgrammesLY"), QStringLiteral("ramelier"));
    reglages.setValue(QStringLiteral("size"), QSize(500, 300));
    reglages.setValue(QStringLiteral("pos"), QPoint(5000, -4000));
    reglages.sync();
    const Fenetre fenetre;
    const QRect ecran = fenetre.screen()->availableGeometry();
    QVERIFY(ecran.contains(QRect(fenetre.pos(), QSize(500, 300))));
    QCOMPARE(fenetre.size(), QSize(500, 300));
    // What is stored stays until the program is left.
    reglages.sync();
    QCOMPARE(reglages.value(QStringLiteral("pos")), QVariant(QPoint(5000, -4000)));
}

void TestFenetre::lesReglagesSEcriventSousLeursCles()
{
    {
        Fenetre fenetre;
        fenetre.resize(520, 310);
        fenetre.move(12, 34);
        fenetre.dernierRep = QStringLiteral("/srv/autres");
        fenetre.writeSettings();
    }
    const QString fichier =
        QString::fromLocal8Bit(qgetenv("XDG_CONFIG_HOME")) + QStringLiteral("/ProgrammesLY/ramelier.conf");
    QVERIFY(QFileInfo::exists(fichier));
    const QSettings reglages(fichier, QSettings::IniFormat);
    QStringList cles = reglages.allKeys();
    cles.sort();
    QCOMPARE(cles, (QStringList{QStringLiteral("lastdir"), QStringLiteral("pos"), QStringLiteral("size")}));
    QCOMPARE(reglages.value(QStringLiteral("size")), QVariant(QSize(520, 310)));
    QCOMPARE(reglages.value(QStringLiteral("pos")), QVariant(QPoint(12, 34)));
    QCOMPARE(reglages.value(QStringLiteral("lastdir")).toString(), QStringLiteral("/srv/autres"));

    const Fenetre suivante;
    QCOMPARE(suivante.size(), QSize(520, 310));
    QCOMPARE(suivante.pos(), QPoint(12, 34));
    QCOMPARE(suivante.dernierRep, QStringLiteral("/srv/autres"));
}

void TestFenetre::lesReglagesSEcriventSeulementEnQuittant()
{
    const Dossier dossier;
    {
        Fenetre fenetre({UneRacine(dossier)});
        fenetre.slotFileSave();
        fenetre.resize(500, 300);
    }
    QCOMPARE(QSettings(QStringLiteral("ProgrammesLY"), QStringLiteral("ramelier")).allKeys(), QStringList());
}

void TestFenetre::leDessinPrendLaTailleDeLaFenetre()
{
    QSettings(QStringLiteral("ProgrammesLY"), QStringLiteral("ramelier"))
        .setValue(QStringLiteral("size"), QSize(640, 360));
    const Fenetre fenetre;
    QCOMPARE(fenetre.view->vue()->size(), QSize(636, 275));
}

void TestFenetre::lesSignauxDuDocumentArriventALaFenetre()
{
    const Dossier dossier;
    Fenetre fenetre({UneRacine(dossier)});
    fenetre.slotModeTravail();
    Clique(fenetre, 1);
    QVERIFY(fenetre.actModifier->isEnabled());
    Q_EMIT fenetre.doc->autoriseAnnulation();
    QVERIFY(fenetre.actAnnuler->isEnabled());
    Clique(fenetre, 1, Qt::RightButton);
    QVERIFY(fenetre.popupPersonne->isVisible());
    fenetre.popupPersonne->close();
    CliqueDansLeVide(fenetre);
    QVERIFY(!fenetre.actModifier->isEnabled());
    CliqueDansLeVide(fenetre, Qt::RightButton);
    QVERIFY(fenetre.popupGeneral->isVisible());
}

void TestFenetre::leSignalDeLaFenetreArriveAuDessin()
{
    const Dossier dossier;
    Fenetre fenetre({UneRacine(dossier)});
    QVERIFY(EstDessine(fenetre));
    Q_EMIT fenetre.docChanged(1);
    QCOMPARE(fenetre.doc->canevasCalcule, false);
    Q_EMIT fenetre.docChanged(0);
    QCOMPARE(fenetre.view->vue()->size(), fenetre.view->size());
}

void TestFenetre::laFenetreSeDetruitEnToutEtat_data()
{
    QTest::addColumn<bool>("arbre");
    QTest::addColumn<bool>("selection");
    QTest::addColumn<int>("menu");
    QTest::newRow("vide") << false << false << -1;
    QTest::newRow("arbre") << true << false << -1;
    QTest::newRow("selection") << true << true << -1;
    QTest::newRow("menu général ouvert") << false << false << 0;
    QTest::newRow("menu de la personne ouvert") << true << true << 1;
}

void TestFenetre::laFenetreSeDetruitEnToutEtat()
{
    QFETCH(const bool, arbre);
    QFETCH(const bool, selection);
    QFETCH(const int, menu);
    const Dossier dossier;
    auto fenetre = std::make_unique<Fenetre>(arbre ? QStringList{UneRacine(dossier)} : QStringList());
    if (selection)
        Clique(*fenetre, 1);
    fenetre->slotMenuSurgissant(menu);
    const QList<QPointer<QObject>> possedes{fenetre->view, fenetre->doc, fenetre->popupGeneral, fenetre->popupPersonne};
    fenetre.reset();
    QCoreApplication::processEvents();
    for (const QPointer<QObject> &objet : possedes)
        QVERIFY(objet.isNull());
    QCOMPARE(QApplication::topLevelWidgets(), QWidgetList());
}

RAMELIER_TEST_BUREAU_MAIN(TestFenetre)
#include "tst_fenetre.moc"
