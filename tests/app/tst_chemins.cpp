#include "arbre.h"
#include "arbres.h"
#include "copiedesecours.h"
#include "dlgindrac.h"
#include "dlgoptdessin.h"
#include "dlgpers.h"
#include "dlgsexrac.h"
#include "fenetre.h"
#include "infopersonne.h"
#include "lytextbrowser.h"
#include "lytextedit.h"
#include "monqtextedit.h"
#include "navigateurfiche.h"
#include "personne.h"
#include "placedesecours.h"
#include "ramelierdoc.h"
#include "saisie.h"

#include <QAction>
#include <QBuffer>
#include <QDir>
#include <QPrintDialog>
#include <QPushButton>

#include <poppler-qt6.h>

/// Every command on files, in folders and on names that somebody may well have. Names are typed into the file dialogs, in
/// the folder that they open in.
class TestChemins : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup();
    void ouvrirModifierEtSauver_data() { DossiersEtNoms(); }
    void ouvrirModifierEtSauver();
    void sauverSousLeNomTape_data() { DossiersEtNoms(); }
    void sauverSousLeNomTape();
    void leDernierDossierRevient_data() { DossiersEtNoms(); }
    void leDernierDossierRevient();
    void exporterPuisImporter_data() { DossiersEtNoms(); }
    void exporterPuisImporter();
    void imprimerDansUnPdf_data() { DossiersEtNoms(); }
    void imprimerDansUnPdf();
    void assemblerDeuxArbres_data() { DossiersEtNoms(); }
    void assemblerDeuxArbres();
    void laPhotoEstMontree_data() { DossiersEtNoms(); }
    void laPhotoEstMontree();
    void laFicheSAfficheAvecImagesEtLiens_data() { DossiersEtNoms(); }
    void laFicheSAfficheAvecImagesEtLiens();
    void laFicheSEdite_data() { DossiersEtNoms(); }
    void laFicheSEdite();
    void laFicheSImprime_data() { DossiersEtNoms(); }
    void laFicheSImprime();
    void leTravailEstMisEnSurete_data() { DossiersEtNoms(); }
    void leTravailEstMisEnSurete();

private:
    static void DossiersEtNoms();
    [[nodiscard]] QString Chemin(const QString &suffixe) const { return lieu + u'/' + base + suffixe; }
    QString Ecrit(const QString &suffixe, const QByteArray &contenu) const;
    [[nodiscard]] QByteArray Lit(const QString &suffixe) const;
    /// The tree of one person at the place of this row, open in editing mode.
    void Ouvre(const PersonneEcrite &personne = {.numero = 1, .nom = "MARTIN", .prenom = "Jean"});
    [[nodiscard]] const InfoPersonne &Info() const { return *fenetre->doc->arbre->premiere->info; }
    void Affiche();
    /// A tree file has its texts as they are: one with these signs cannot be read back.
    [[nodiscard]] bool SeRetrouveDansUnArbre() const { return !base.contains(u'&') && !base.contains(u'<'); }

    std::unique_ptr<Dossier> dossier;
    std::unique_ptr<Fenetre> fenetre;
    QString lieu;
    QString base;
};

namespace {

constexpr int octetsDUnNom = 255;

template <typename T> T *Trouve()
{
    const auto fenetres = QApplication::topLevelWidgets();
    for (QWidget *candidate : fenetres) {
        if (auto *trouvee = qobject_cast<T *>(candidate))
            return trouvee;
    }
    return nullptr;
}

void ClicSurLeBoutonParDefaut(QDialog &dialogue)
{
    const auto boutons = dialogue.findChildren<QPushButton *>();
    for (QPushButton *bouton : boutons) {
        if (bouton->isDefault())
            Scenario::ClicPlusTard(bouton);
    }
}

QByteArray UneImage()
{
    QImage image(40, 40, QImage::Format_RGB32);
    image.fill(Qt::red);
    QByteArray octets;
    QBuffer sortie(&octets);
    image.save(&sortie, "PNG");
    return octets;
}

/// "été.html" as a page names it in a link.
QByteArray DansUneUrl(const QString &nom)
{
    return QUrl::toPercentEncoding(nom);
}

QString TexteDuPdf(const QString &chemin)
{
    const auto document = Poppler::Document::load(chemin);
    return document && document->numPages() > 0 ? document->page(0)->text(QRectF()) : "illisible";
}

}  // namespace

void TestChemins::DossiersEtNoms()
{
    QTest::addColumn<QString>("sousDossier");
    QTest::addColumn<QString>("nom");
    const auto ligne = [](const char *titre, const QString &texte) { QTest::newRow(titre) << texte << texte; };
    ligne("blancs", "les  ancêtres de Paul");
    ligne("blancs autour", " entre blancs ");
    ligne("accents", "Éléonore Noël Œdipe");
    ligne("accents décomposés", "E\u0301le\u0301onore");
    ligne("émoji", "famille 👨‍👩‍👧 unie");
    ligne("apostrophe", "l'arbre d’Élise");
    ligne("dièse", "n°#1#");
    ligne("pour cent", "100 %");
    ligne("pour cent et chiffres", "%20%41%1%%");
    ligne("point d'interrogation", "qui ?x=1");
    ligne("et commercial", "Paul & Marie");
    ligne("chevrons", "<b>Paul");
    ligne("crochets et étoile", "[1-3]*{a,b}");
    ligne("barre inversée", "Paul\\n");
    ligne("deux-points", "file:C:x;y");
    ligne("tiret", "-tiret");
    ligne("dollar", "$HOME `ls`");
    ligne("arabe", "شجرة");
    // Names in which a dialog, or the name of the options file, would see something else.
    QTest::newRow("dossier à point final") << "dossier."
                                           << "arbre";
    QTest::newRow("dossier à points") << "archives.2020.d"
                                      << "arbre";
    QTest::newRow("dossier à guillemets") << "\"Paul\""
                                          << "arbre";
    QTest::newRow("dossier tilde") << "~"
                                   << "arbre";
    QTest::newRow("dossier caché") << ".arbres"
                                   << "arbre";
    // "~" after the name of what a save replaces, ".xrlg" before it.
    QTest::newRow("longs noms") << QString(octetsDUnNom, 'd') << QString(octetsDUnNom - 6, 'n');
    QTest::newRow("longs noms accentués") << QString(octetsDUnNom / 2, u'é') << QString((octetsDUnNom - 6) / 2, u'é');
    QTest::newRow("nom le plus long") << "dossier" << QString(octetsDUnNom - 5, 'n');
}

void TestChemins::init()
{
    QFETCH(const QString, sousDossier);
    QFETCH(const QString, nom);
    EffaceReglages();
    dossier = std::make_unique<Dossier>();
    QVERIFY(QDir(dossier->Chemin()).mkdir(sousDossier));
    lieu = dossier->Chemin(sousDossier);
    base = nom;
}

void TestChemins::cleanup()
{
    for (QWidget *fiche = Trouve<LyTextBrowser>(); fiche; fiche = Trouve<LyTextBrowser>())
        delete fiche;
    fenetre.reset();
    dossier.reset();
}

QString TestChemins::Ecrit(const QString &suffixe, const QByteArray &contenu) const
{
    QFile fichier(Chemin(suffixe));
    if (!fichier.open(QIODevice::WriteOnly) || fichier.write(contenu) != contenu.size())
        qFatal("le dossier d'essai refuse %s", qPrintable(fichier.fileName()));
    return fichier.fileName();
}

QByteArray TestChemins::Lit(const QString &suffixe) const
{
    QFile fichier(Chemin(suffixe));
    return fichier.open(QIODevice::ReadOnly) ? fichier.readAll() : QByteArray("illisible");
}

void TestChemins::Ouvre(const PersonneEcrite &personne)
{
    const QString arbre = Ecrit(".xrlg", ArbreEcrit("Titre", {personne}));
    Scenario scenario;
    fenetre = std::make_unique<Fenetre>(QStringList{arbre});
    QCOMPARE(scenario.Ecarts(), QStringList());
    QCOMPARE(fenetre->windowTitle(), "Ramelier 5.1 - " + arbre);
    QCOMPARE(fenetre->dernierRep, lieu);
    QVERIFY(fenetre->doc->arbre && fenetre->doc->arbre->premiere);
    fenetre->actModeTravail->trigger();
}

void TestChemins::Affiche()
{
    Clique(*fenetre, 1);
    fenetre->actModeTravail->trigger();
    fenetre->actAffFicheHTML->trigger();
    QVERIFY(Trouve<LyTextBrowser>());
}

void TestChemins::ouvrirModifierEtSauver()
{
    Ouvre();
    const QByteArray avant = Lit(".xrlg");
    Clique(*fenetre, 1);
    Scenario scenario;
    Saisit<DlgPers>(scenario, {{"TxtNom", "LEFÈVRE"}});
    fenetre->actModifier->trigger();
    scenario.Dialogue<DlgOptDessin>([](DlgOptDessin &dialogue) {
        dialogue.sbLCadre->setValue(33);
        dialogue.accept();
    });
    fenetre->actFormatsDessins->trigger();
    fenetre->actFileSave->trigger();
    QCOMPARE(scenario.Ecarts(), QStringList());
    QVERIFY(!fenetre->doc->isModified());
    QVERIFY(!fenetre->doc->areOptionsModified());
    QVERIFY(Lit(".xrlg").contains("<nom>LEFÈVRE</nom>"));
    // The name of the options file ends at the first dot; where there is room, what was replaced stays.
    QVERIFY(Lit(".opt").contains("\n33\n"));
    if (QFile::encodeName(base).size() + 6 <= octetsDUnNom)
        QCOMPARE(Lit(".xrlg~"), avant);

    fenetre.reset();
    const QString arbre = Chemin(".xrlg");
    fenetre = std::make_unique<Fenetre>();
    fenetre->dernierRep = lieu;
    Choisit(scenario, base + ".xrlg");
    fenetre->actFileOpen->trigger();
    QCOMPARE(scenario.Ecarts(), QStringList());
    QCOMPARE(fenetre->fichierArbre, arbre);
    QCOMPARE(Info().nom, "LEFÈVRE");
    QCOMPARE(fenetre->doc->formats.largeurCadre, 33);
}

void TestChemins::sauverSousLeNomTape()
{
    Ouvre();
    QVERIFY(QFile::remove(Chemin(".xrlg")));
    Scenario scenario;
    Choisit(scenario, base + ".xrlg");
    fenetre->actFileSaveAs->trigger();
    QCOMPARE(scenario.Ecarts(), QStringList());
    QCOMPARE(fenetre->fichierArbre, Chemin(".xrlg"));
    QVERIFY(Lit(".xrlg").contains("<nom>MARTIN</nom>"));
    // The same name once more: it exists.
    Scenario encore;
    Choisit(encore, base + ".xrlg");
    encore.Repond("Oui");
    fenetre->actFileSaveAs->trigger();
    QCOMPARE(encore.Ecarts(), QStringList());
    QCOMPARE(encore.Boites().constFirst().texte,
             "Le fichier " + Chemin(".xrlg") + " existe déjà  !!\nVoulez-vous vraiement le remplacer ??");
}

void TestChemins::leDernierDossierRevient()
{
    Ouvre();
    fenetre->writeSettings();
    fenetre = std::make_unique<Fenetre>();
    QCOMPARE(fenetre->dernierRep, lieu);
    DialogueVu vu;
    Scenario scenario;
    Renonce(scenario, &vu);
    fenetre->actFileOpen->trigger();
    QCOMPARE(scenario.Ecarts(), QStringList());
    QCOMPARE(vu.dossier, lieu);
}

void TestChemins::exporterPuisImporter()
{
    Ouvre();
    Scenario scenario;
    Choisit(scenario, base + ".ged");
    scenario.Dialogue<DlgSexRac>([](DlgSexRac &dialogue) { dialogue.accept(); });
    scenario.Repond("OK");
    fenetre->actExporteGED->trigger();
    QCOMPARE(scenario.Ecarts(), QStringList());
    QVERIFY(Lit(".ged").contains("1 NAME Jean/MARTIN/"));
    QVERIFY(QFile::remove(Chemin(".xrlg")));
    Choisit(scenario, base + ".ged");
    scenario.Dialogue<DlgIndRac>([](DlgIndRac &dialogue) {
        dialogue.IndividuChoisi->setText("@I1@");
        dialogue.accept();
    });
    fenetre->actImporteGED->trigger();
    QCOMPARE(scenario.Ecarts(), QStringList());
    QCOMPARE(Info().nom, "MARTIN");
}

void TestChemins::imprimerDansUnPdf()
{
    Ouvre();
    Scenario scenario;
    scenario.Repond("Fichier pdf");
    scenario.Dialogue<QPrintDialog>(&ClicSurLeBoutonParDefaut);
    fenetre->actFilePrint->trigger();
    QCOMPARE(scenario.Ecarts(), QStringList());
    // The name up to its first dot.
    QVERIFY(TexteDuPdf(Chemin(".pdf")).contains("MARTIN"));
}

void TestChemins::assemblerDeuxArbres()
{
    Ecrit(".xrlg", ArbreEcrit("P", {{.numero = 1, .nom = "MARTIN"}}));
    fenetre = std::make_unique<Fenetre>();
    fenetre->dernierRep = lieu;
    Scenario scenario;
    Choisit(scenario, base + ".xrlg");
    Choisit(scenario, base + ".xrlg");
    fenetre->actAssembleArbres->trigger();
    QCOMPARE(scenario.Ecarts(), QStringList());
    QCOMPARE(NumerosEnTexte(*fenetre->doc->arbre), "1 2 3");
}

void TestChemins::laPhotoEstMontree()
{
    constexpr int lettresDUnChamp = 250;
    if (base.size() + 4 > lettresDUnChamp)
        QSKIP("the dialog does not take such a name");
    Ecrit(".png", UneImage());
    Ouvre();
    QVERIFY(!Info().aUnePhoto());
    Clique(*fenetre, 1);
    Scenario scenario;
    Saisit<DlgPers>(scenario, {{"TxtFicPhoto", base + ".png"}});
    fenetre->actModifier->trigger();
    QCOMPARE(scenario.Ecarts(), QStringList());
    QCOMPARE(Info().photo.size(), QSize(40, 40));
    if (SeRetrouveDansUnArbre()) {
        fenetre->actFileSave->trigger();
        fenetre = std::make_unique<Fenetre>(QStringList{Chemin(".xrlg")});
        QCOMPARE(Info().ficphoto, base + ".png");
        QCOMPARE(Info().photo.size(), QSize(40, 40));
    }
}

void TestChemins::laFicheSAfficheAvecImagesEtLiens()
{
    if (!SeRetrouveDansUnArbre())
        QSKIP("a tree file does not hold such a name");
    const QString suite = base.chopped(1) + "2.html";
    Ecrit(".png", UneImage());
    QVERIFY(QFile::rename(Ecrit(".html", "<title>Suite</title>deux"), lieu + u'/' + suite));
    Ecrit(".html",
          "<title>Début</title><p>un <img src=\"" + DansUneUrl(base + ".png") + "\"></p><p><a href=\""
              + DansUneUrl(suite) + "\">suite</a></p>");
    Ouvre({.numero = 1, .nom = "MARTIN", .fiche = base + ".html"});
    Affiche();
    const LyTextBrowser &afficheur = *Trouve<LyTextBrowser>();
    QVERIFY(afficheur.windowTitle().endsWith(" - Début"));
    QVERIFY(afficheur.navigateur->toPlainText().startsWith("un "));
    const QVariant image = afficheur.navigateur->document()->resource(
        QTextDocument::ImageResource, QUrl(QString::fromLatin1(DansUneUrl(base + ".png"))));
    QCOMPARE(image.value<QPixmap>().isNull() ? image.value<QImage>().size() : image.value<QPixmap>().size(),
             QSize(40, 40));
    // The link, as the Tab and Return keys follow it.
    QTest::keyClick(afficheur.navigateur, Qt::Key_Tab);
    QTest::keyClick(afficheur.navigateur, Qt::Key_Return);
    QVERIFY(afficheur.windowTitle().endsWith(" - Suite"));
    QCOMPARE(afficheur.navigateur->toPlainText(), "deux");
    afficheur.actPrecedent->trigger();
    QVERIFY(afficheur.windowTitle().endsWith(" - Début"));
    afficheur.actRecharger->trigger();
    QVERIFY(afficheur.navigateur->toPlainText().startsWith("un "));
}

void TestChemins::laFicheSEdite()
{
    if (!SeRetrouveDansUnArbre())
        QSKIP("a tree file does not hold such a name");
    Ecrit(".html", "<p>un</p>");
    Ouvre({.numero = 1, .nom = "MARTIN", .fiche = base + ".html"});
    Clique(*fenetre, 1);
    Scenario scenario;
    fenetre->actEditFicheHTML->trigger();
    QVERIFY(fenetre->listeEditeurs);
    fenetre->listeEditeurs->texte->insertPlainText("deux ");
    fenetre->listeEditeurs->actFileSave->trigger();
    QCOMPARE(Lit(".html"), "deux <p>un</p>");
    fenetre->listeEditeurs->actAppelleLyTextBrowser->trigger();
    QCOMPARE(scenario.Ecarts(), QStringList());
    QVERIFY(Trouve<LyTextBrowser>());
    QCOMPARE(Trouve<LyTextBrowser>()->navigateur->toPlainText(), "deux \nun");
}

void TestChemins::laFicheSImprime()
{
    if (!SeRetrouveDansUnArbre())
        QSKIP("a tree file does not hold such a name");
    Ecrit(".txt", "vingt lettres ou moins");
    Ouvre({.numero = 1, .nom = "MARTIN", .fiche = base + ".txt"});
    Affiche();
    Scenario scenario;
    scenario.Repond("Fichier pdf");
    Trouve<LyTextBrowser>()->actFilePrint->trigger();
    QCOMPARE(scenario.Ecarts(), QStringList());
    QVERIFY(TexteDuPdf(Chemin(".pdf")).contains("vingt lettres"));
}

void TestChemins::leTravailEstMisEnSurete()
{
    Ouvre();
    Clique(*fenetre, 1);
    Scenario scenario;
    Saisit<DlgPers>(scenario, {{"TxtNom", "LEFÈVRE"}});
    fenetre->actModifier->trigger();
    QCOMPARE(scenario.Ecarts(), QStringList());
    fenetre->secours->EcritEtGarde();
    const QString copie = fenetre->secours->Chemin();
    QFile fichier(copie);
    QVERIFY2(fichier.open(QIODevice::ReadOnly), qPrintable(copie));
    QVERIFY(fichier.readAll().contains("<nom>LEFÈVRE</nom>"));
    fenetre.reset();
    QVERIFY(CopiesRetrouvees().contains(copie));
    // Its photos and sheets are found where those of the tree are.
    fenetre = std::make_unique<Fenetre>(QStringList{copie});
    QCOMPARE(fenetre->dernierRep, lieu);
    fenetre.reset();
    QVERIFY(QFile::remove(copie));
}

RAMELIER_TEST_BUREAU_MAIN(TestChemins)
#include "tst_chemins.moc"
