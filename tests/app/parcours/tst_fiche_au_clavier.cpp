#include "ecran.h"
#include "environnement.h"

#include <QGuiApplication>
#include <QProcess>

#include <poppler-qt6.h>

/// The sheet of a person, typed into the built program under a real X server by keys and menus, seen in the browser,
/// printed there, and left in both ways.
class TestFicheAuClavier : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void cleanup();
    void laFicheEntreParLeClavier();
    void leFichierEstEnLatin1();
    void laFicheSImprimeDansLeNavigateur();
    void ctrlQFermeTout();
    void annulerGardeLEditeurDuProgrammeQuiSeFerme_data();
    void annulerGardeLEditeurDuProgrammeQuiSeFerme();

private:
    void Demarre();
    void SelectionneLaRacine();
    void NommeLaFiche();
    void TapeLaFiche();
    void RemplitLeTableau();
    [[nodiscard]] QByteArray Lit(const QString &nom) const;

    QProcess programme;
    QTemporaryDir dossier{"/tmp/ramelier-essai-XXXXXX"};
    QString fenetre;
    QString editeur;
};

namespace {

constexpr auto arbre = R"(<?xml version="1.0" encoding="UTF-8"?>
<!DOCTYPE xrlg>
<xrlg version="1.0">
  <arbre>
    <infoarbre>
      <titrearbre>Famille</titrearbre>
    </infoarbre>
    <nombrepersonnes>1</nombrepersonnes>
    <personne>
      <numero>1</numero><numerogeneration>0</numerogeneration><pere>0</pere><mere>0</mere><enfant>0</enfant>
      <infopersonne><nom>LEFÈVRE</nom><prenom>Élise</prenom></infopersonne>
    </personne>
    <nombregenerations>1</nombregenerations>
  </arbre>
</xrlg>
)";

constexpr QRgb noir = 0xff000000;
constexpr QRgb bleu = 0xff0000ff;
/// Middle of the root's box, with menu bar and tool bar above the drawing.
constexpr QPoint racine(56 + 56, 50 + 56 + 60);
constexpr auto titreEditeur = "^Ramelier 5.1 - fiche associée à la personne n° 1  - elise.html$";

QStringList Fois(int nombre, const QString &touche)
{
    return QStringList(nombre, touche);
}

}  // namespace

void TestFicheAuClavier::initTestCase()
{
    QVERIFY(dossier.isValid());
    QVERIFY(Ecran::PrendClavierFrancophone());
    QFile fichier(dossier.filePath("famille.xrlg"));
    QVERIFY(fichier.open(QIODevice::WriteOnly));
    fichier.write(arbre);
}

void TestFicheAuClavier::cleanup()
{
    if (!QTest::currentTestFailed())
        return;
    Ecran::Garde("fiche-echec");
    programme.kill();
    programme.waitForFinished();
}

QByteArray TestFicheAuClavier::Lit(const QString &nom) const
{
    QFile fichier(dossier.filePath(nom));
    return fichier.open(QIODevice::ReadOnly) ? fichier.readAll() : QByteArray("illisible");
}

void TestFicheAuClavier::Demarre()
{
    programme.setProgram(RAMELIER_PROGRAMME);
    programme.setArguments({dossier.filePath("famille.xrlg")});
    programme.setProcessChannelMode(QProcess::ForwardedErrorChannel);
    programme.start();
    QVERIFY(programme.waitForStarted());
    fenetre = Ecran::AttendActive("^Ramelier 5.1 - .*famille.xrlg$");
    QVERIFY(!fenetre.isEmpty());
    Ecran::Xdotool({"windowmove", fenetre, "20", "20"});
    Ecran::Xdotool({"windowsize", fenetre, "700", "500"});
    QTRY_COMPARE_WITH_TIMEOUT(Ecran::Place(fenetre).size(), QSize(700, 500), 10000);
}

void TestFicheAuClavier::SelectionneLaRacine()
{
    const QPoint milieu = Ecran::Place(fenetre).topLeft() + racine;
    const QRect cadre = QRect(0, 0, 130, 174).translated(milieu - QPoint(65, 87));
    QTRY_VERIFY_WITH_TIMEOUT(Ecran::Points(Ecran::Image(), cadre, noir) > 300, 10000);
    Ecran::Clique(milieu);
    QTRY_VERIFY_WITH_TIMEOUT(Ecran::Points(Ecran::Image(), cadre, bleu) > 300, 10000);
}

void TestFicheAuClavier::NommeLaFiche()
{
    QVERIFY(!Ecran::AttendActive("^Information$").isEmpty());
    Ecran::Garde("fiche-sans-nom");
    Ecran::Touches({"Return"});
    QVERIFY(!Ecran::AttendActive("^Personne .Création / Modification.$").isEmpty());
    // Surname, given names, birth, death, remark, photo; then the sheet.
    Ecran::Touches(Fois(8, "Tab"));
    Ecran::Tape("elise.html");
    Ecran::Garde("fiche-nom");
    Ecran::Touches({"Return"});
    // There is no such file yet.
    QVERIFY(!Ecran::AttendActive("^LyEditHtml$").isEmpty());
    Ecran::Garde("fiche-absente");
    Ecran::Touches({"Return"});
    editeur = Ecran::AttendActive(titreEditeur);
    QVERIFY(!editeur.isEmpty());
    // Wide enough to break no line.
    Ecran::Xdotool({"windowmove", editeur, "300", "100"});
    Ecran::Xdotool({"windowsize", editeur, "900", "700"});
    QTRY_COMPARE_WITH_TIMEOUT(Ecran::Place(editeur).size(), QSize(900, 700), 10000);
}

void TestFicheAuClavier::TapeLaFiche()
{
    // Edition Html: past the submenus Caractères and Justification stands Corps...
    Ecran::Touches({"alt+h", "Down", "Down"});
    Ecran::Garde("fiche-menu-html");
    Ecran::Touches({"Return"});
    // Into the title of the page, between its tags, and back to the empty line of the body.
    Ecran::Touches(QStringList{"ctrl+Home"} + Fois(4, "Down") + QStringList{"End"} + Fois(8, "Left"));
    Ecran::Tape("Élise LEFÈVRE");
    Ecran::Touches(Fois(3, "Down"));
    Ecran::Touches({"ctrl+alt+1"});
    Ecran::Tape("Élise LEFÈVRE");
    Ecran::Touches({"End", "Return", "ctrl+alt+p"});
    Ecran::Tape("Née à Besançon en ");
    Ecran::Touches({"ctrl+alt+g"});
    Ecran::Tape("1925");
    Ecran::Touches({"End", "ctrl+alt+t"});
    QVERIFY(!Ecran::AttendActive("^LyEditHtml - Tableau$").isEmpty());
    Ecran::Touches({"ctrl+a", "2", "Tab", "ctrl+a", "2", "Tab", "space"});
    Ecran::Garde("fiche-tableau");
    Ecran::Touches({"Return"});
    QVERIFY(Ecran::EstActive(editeur));
    RemplitLeTableau();
}

void TestFicheAuClavier::RemplitLeTableau()
{
    // From the line below the table up to its first cell; two rows of two cells.
    Ecran::Touches(Fois(8, "Up"));
    const QList<QStringList> rangees{{"1944", "Mariage à Sète"}, {"1999", "Décès"}};
    for (const QStringList &rangee : rangees) {
        for (const QString &cellule : rangee) {
            Ecran::Touches(QStringList{"Home"} + Fois(4, "Right"));
            Ecran::Tape(cellule);
            Ecran::Touches({"Down"});
        }
        Ecran::Touches(Fois(2, "Down"));
    }
}

void TestFicheAuClavier::laFicheEntreParLeClavier()
{
    Demarre();
    if (!QTest::currentTestFailed()) {
        Ecran::Touches({"F8"});
        SelectionneLaRacine();
    }
    if (QTest::currentTestFailed())
        return;
    // Edition, from its end: the title page, then the sheet.
    Ecran::Touches({"alt+e", "Up", "Up"});
    Ecran::Garde("fiche-menu-edition");
    Ecran::Touches({"Return"});
    NommeLaFiche();
    if (!QTest::currentTestFailed())
        TapeLaFiche();
    if (QTest::currentTestFailed())
        return;
    QVERIFY(!QFile::exists(dossier.filePath("elise.html")));
    Ecran::Touches({"ctrl+s"});
    QTRY_VERIFY_WITH_TIMEOUT(QFile::exists(dossier.filePath("elise.html")), 10000);
    Ecran::Garde("fiche-editeur");
}

void TestFicheAuClavier::leFichierEstEnLatin1()
{
    const QByteArray attendu = "<!DOCTYPE HTML PUBLIC \"-//W3C//DTD HTML 4.0 Transitional//EN\">\n"
                               "<html lang=\"fr\" dir=\"ltr\">\n"
                               "<head>\n"
                               "<meta http-equiv=\"Content-Type\" content=\"text/html; charset=ISO-8859-1\">\n"
                               "<title>\xC9lise LEF\xC8VRE</title>\n"
                               "</head>\n"
                               "<body>\n"
                               "<h1>\xC9lise LEF\xC8VRE</h1>\n"
                               "<p>N\xE9"
                               "e \xE0 Besan\xE7on en <b>1925</b></p>\n"
                               "<table border>\n"
                               "<tr>\n"
                               "<td>1944</td>\n"
                               "<td>Mariage \xE0 S\xE8te</td>\n"
                               "</tr>\n"
                               "<tr>\n"
                               "<td>1999</td>\n"
                               "<td>D\xE9"
                               "c\xE8s</td>\n"
                               "</tr>\n"
                               "</table>\n"
                               "\n"
                               "</body>\n"
                               "</html>\n";
    QCOMPARE(Lit("elise.html"), attendu);
}

void TestFicheAuClavier::laFicheSImprimeDansLeNavigateur()
{
    QCOMPARE(programme.state(), QProcess::Running);
    QVERIFY(Ecran::EstActive(editeur));
    // Aide, and to its left Affichage with the browser as first entry.
    Ecran::Touches({"alt+a", "Left"});
    Ecran::Garde("fiche-menu-affichage");
    Ecran::Touches({"Return"});
    const QString navigateur = Ecran::AttendActive("^LyTextBrowser - Élise LEFÈVRE$");
    QVERIFY(!navigateur.isEmpty());
    Ecran::Garde("fiche-navigateur");
    Ecran::Touches({"ctrl+p"});
    QVERIFY(!Ecran::AttendActive("^Choix du mode d'impression$").isEmpty());
    Ecran::Touches({"Tab"});
    Ecran::Garde("fiche-imprimer");
    Ecran::Touches({"space"});
    QVERIFY(Ecran::EstActive(navigateur));
    std::unique_ptr<Poppler::Document> document;
    QTRY_VERIFY_WITH_TIMEOUT((document = Poppler::Document::load(dossier.filePath("elise.pdf"))), 10000);
    QCOMPARE(document->numPages(), 1);
    const QString page = document->page(0)->text(QRectF()).simplified();
    for (const char *texte : {"Élise LEFÈVRE", "Née à Besançon en 1925", "1944", "Mariage à Sète", "1999", "Décès"})
        QVERIFY2(page.contains(texte), qPrintable(page));
    QVERIFY(!page.contains(u'<'));
}

void TestFicheAuClavier::ctrlQFermeTout()
{
    QCOMPARE(programme.state(), QProcess::Running);
    // The browser and the editor are still open, and so are their files; the tree has the new name of the sheet.
    Ecran::Xdotool({"windowactivate", "--sync", fenetre});
    QVERIFY(Ecran::EstActive(fenetre));
    Ecran::Touches({"ctrl+q"});
    QVERIFY(!Ecran::AttendActive("^Quitter...$").isEmpty());
    Ecran::Garde("fiche-quitter");
    Ecran::Touches({"Return"});
    QVERIFY(programme.waitForFinished(10000));
    QCOMPARE(programme.exitStatus(), QProcess::NormalExit);
    QCOMPARE(programme.exitCode(), 0);
    QVERIFY(Lit("famille.xrlg").contains("<fichtml>elise.html</fichtml>"));
}

void TestFicheAuClavier::annulerGardeLEditeurDuProgrammeQuiSeFerme_data()
{
    QTest::addColumn<QString>("touche");
    QTest::newRow("par le gestionnaire de fenêtres") << "alt+F4";
    QTest::newRow("par sa commande") << "ctrl+q";
}

void TestFicheAuClavier::annulerGardeLEditeurDuProgrammeQuiSeFerme()
{
    QFETCH(const QString, touche);
    const QByteArray avant = Lit("elise.html");
    Demarre();
    if (!QTest::currentTestFailed()) {
        Ecran::Touches({"F8"});
        SelectionneLaRacine();
    }
    if (QTest::currentTestFailed())
        return;
    Ecran::Touches({"alt+e", "Up", "Up", "Return"});
    editeur = Ecran::AttendActive(titreEditeur);
    QVERIFY(!editeur.isEmpty());
    Ecran::Tape("Brouillon ");
    Ecran::Xdotool({"windowactivate", "--sync", fenetre});
    QVERIFY(Ecran::EstActive(fenetre));
    Ecran::Touches({touche});
    QVERIFY(!Ecran::AttendActive("^Fermer...$").isEmpty());
    Ecran::Garde("fiche-fermer-" + touche);
    Ecran::Touches({"Escape"});
    // The main window goes; the editor stays, with its text, and can be used.
    QVERIFY(Ecran::EstActive(editeur));
    QTRY_VERIFY_WITH_TIMEOUT(
        Ecran::Xdotool({"search", "--onlyvisible", "--name", "^Ramelier 5.1 - .*famille.xrlg$"}).isEmpty(), 10000);
    QCOMPARE(programme.state(), QProcess::Running);
    Ecran::Tape("repris ");
    Ecran::Garde("fiche-gardee-" + touche);
    Ecran::Touches({"ctrl+s"});
    QTRY_COMPARE_WITH_TIMEOUT(Lit("elise.html"), "Brouillon repris " + avant, 10000);
    Ecran::Touches({"ctrl+q"});
    QVERIFY(programme.waitForFinished(10000));
    QCOMPARE(programme.exitStatus(), QProcess::NormalExit);
    QCOMPARE(programme.exitCode(), 0);
}

RAMELIER_TEST_MAIN(QGuiApplication, TestFicheAuClavier)
#include "tst_fiche_au_clavier.moc"
