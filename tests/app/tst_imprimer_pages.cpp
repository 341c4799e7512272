#include "arbre.h"
#include "arbres.h"
#include "fenetre.h"
#include "pdflu.h"
#include "personne.h"
#include "ramelierdoc.h"

#include <QAction>
#include <QDir>
#include <QLineEdit>
#include <QPageSize>
#include <QPrintDialog>
#include <QPrinter>
#include <QPushButton>
#include <QSignalSpy>

#include <functional>

using PdfLu::Mots;
using PdfLu::Place;

/// What a print puts on which page, and what it leaves as it was. At 96 dots per inch an A4 page shows 767 x 1097 dots,
/// and pages stand 762 x 1092 dots apart; a box of 30 mm is 113 dots wide and the next one starts 151 dots further.
class TestImprimerPages : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void laQuestionNAPasDEchappement();
    void unePageEtDemieDeLargeFaitDeuxPages();
    void leRecouvrementCompteDansLeNombreDePages_data();
    void leRecouvrementCompteDansLeNombreDePages();
    void lesPagesVontParColonnesDeHautEnBas();
    void laPageMontreSaPartDeLArbre_data();
    void laPageMontreSaPartDeLArbre();
    void imprimanteAbandonneeImprimeQuandMeme();
    void laPageEstCelleDuDialogue();
    void unePageMinusculeNeMontreRien();
    void lAffichageReduitSImprimeReduit_data();
    void lAffichageReduitSImprimeReduit();
    void unTraitGardeSonEpaisseur_data();
    void unTraitGardeSonEpaisseur();
    void leNomDuPdfSuitLArbre_data();
    void leNomDuPdfSuitLArbre();
    void unArbreSansPersonneImprimeSonTitre();
    void imprimerNeChangeRienAuDocument();
    void nePasImprimerNeDisposeRien_data();
    void nePasImprimerNeDisposeRien();

private:
    using Pdf = std::unique_ptr<Poppler::Document>;

    /// The next modal window is the print dialog; changes its printer and gives up.
    static void Abandonne(Scenario &scenario, const std::function<void(QPrintDialog &)> &avant);
    /// Prints \a fenetre's tree into a PDF file and reads it.
    [[nodiscard]] static Pdf EnPdf(Fenetre &fenetre, const QString &fichier);
    [[nodiscard]] QString Ecrit(const QString &titre, const QList<quint64> &numeros) const;

    std::unique_ptr<Dossier> dossier;
    /// Five men in line, then three complete generations above: eight rows, the top one eight boxes wide.
    const QList<quint64> branche{1, 2, 4, 8, 16, 32, 33, 64, 65, 66, 67, 128, 129, 130, 131, 132, 133, 134, 135};
};

void TestImprimerPages::init()
{
    EffaceReglages();
    dossier = std::make_unique<Dossier>();
}

void TestImprimerPages::Abandonne(Scenario &scenario, const std::function<void(QPrintDialog &)> &avant)
{
    scenario.Dialogue<QPrintDialog>([avant](QPrintDialog &dialogue) {
        avant(dialogue);
        QMetaObject::invokeMethod(&dialogue, "reject", Qt::QueuedConnection);
    });
}

TestImprimerPages::Pdf TestImprimerPages::EnPdf(Fenetre &fenetre, const QString &fichier)
{
    Scenario scenario;
    scenario.Repond("Fichier pdf");
    scenario.Dialogue<QPrintDialog>([](QPrintDialog &dialogue) {
        const auto boutons = dialogue.findChildren<QPushButton *>();
        for (QPushButton *bouton : boutons) {
            if (bouton->isDefault())
                Scenario::ClicPlusTard(bouton);
        }
    });
    fenetre.actFilePrint->trigger();
    return scenario.Ecarts().isEmpty() ? Poppler::Document::load(fichier) : nullptr;
}

QString TestImprimerPages::Ecrit(const QString &titre, const QList<quint64> &numeros) const
{
    QList<PersonneEcrite> personnes;
    for (const quint64 numero : numeros)
        personnes += {.numero = numero, .nom = u'N' + QString::number(numero)};
    return dossier->Ecrit("a.xrlg", ArbreEcrit(titre, personnes));
}

void TestImprimerPages::laQuestionNAPasDEchappement()
{
    Fenetre fenetre({Ecrit("T", {1})});
    bool resteOuverte = false;
    Scenario scenario;
    scenario.Dialogue<QMessageBox>([&resteOuverte](QMessageBox &boite) {
        QMetaObject::invokeMethod(
            &boite,
            [&resteOuverte, &boite] {
                QTest::keyClick(&boite, Qt::Key_Escape);
                boite.close();
                resteOuverte = boite.isVisible();
                Scenario::ClicPlusTard(boite.buttons().constLast());
            },
            Qt::QueuedConnection);
    });
    fenetre.slotFilePrint();
    QCOMPARE(scenario.Ecarts(), QStringList());
    QVERIFY(resteOuverte);
}

void TestImprimerPages::unePageEtDemieDeLargeFaitDeuxPages()
{
    // Seven boxes in the top row: 56 + 6 x 151 + 113 + 56 = 1131 dots.
    Fenetre fenetre({Ecrit("T", {1, 2, 3, 4, 5, 6, 7, 8, 9, 10, 11, 12, 13, 14})});
    const Pdf pdf = EnPdf(fenetre, dossier->Chemin("a.pdf"));
    QVERIFY(pdf);
    QCOMPARE(pdf->numPages(), 2);
    QVERIFY(Mots(*pdf, 0).contains("N8"));
    QVERIFY(!Mots(*pdf, 0).contains("N14"));
    QVERIFY(Mots(*pdf, 1).contains("N14"));
    QVERIFY(!Mots(*pdf, 1).contains("N8"));
}

void TestImprimerPages::leRecouvrementCompteDansLeNombreDePages_data()
{
    QTest::addColumn<int>("largeurCadre");
    QTest::addColumn<int>("pages");
    // Three boxes in the top row: 56 + 2 x 226 + 188 + 56 dots, and 56 + 2 x 230 + 192 + 56.
    QTest::newRow("752 points") << 50 << 1;
    QTest::newRow("764 points, moins qu'une page") << 51 << 2;
}

void TestImprimerPages::leRecouvrementCompteDansLeNombreDePages()
{
    QFETCH(const int, largeurCadre);
    dossier->Ecrit("a.opt", OptionsEcrites(largeurCadre));
    Fenetre fenetre({Ecrit(QString(), {1, 2, 3, 4, 5, 6})});
    const Pdf pdf = EnPdf(fenetre, dossier->Chemin("a.pdf"));
    QVERIFY(pdf);
    QTEST(pdf->numPages(), "pages");
}

void TestImprimerPages::lesPagesVontParColonnesDeHautEnBas()
{
    Fenetre fenetre({Ecrit("Branche", branche)});
    const Pdf pdf = EnPdf(fenetre, dossier->Chemin("a.pdf"));
    QVERIFY(pdf);
    QCOMPARE(pdf->numPages(), 4);
    // Person 135 stands at 1113 dots, and the top row at 56: 351 and 56 on the third page, after margins of 9.75 points.
    QVERIFY(qAbs(Place(*pdf, 2, "135").center().x() - ((1113 + 56.5 - 762) * 0.75 + 9.75)) < 1.0);
    // Person 128 is on the first page of the same row, at 56 dots.
    QVERIFY(qAbs(Place(*pdf, 0, "128").center().x() - ((56 + 56.5) * 0.75 + 9.75)) < 1.0);
    QVERIFY(qAbs(Place(*pdf, 0, "128").top() - Place(*pdf, 2, "135").top()) < 0.5);
    // The root's row stands at 1561 dots, 469 on the second page: 413 lower than the top row on the first.
    const double entreLesRangees = Place(*pdf, 1, "1").top() - Place(*pdf, 0, "128").top();
    QVERIFY2(qAbs(entreLesRangees - 413 * 0.75) < 0.5, qPrintable(QString::number(entreLesRangees)));
    // The title block is flush with the right margin of the drawing, on the root's row.
    QVERIFY(Place(*pdf, 3, "Branche").isValid());
}

void TestImprimerPages::laPageMontreSaPartDeLArbre_data()
{
    QTest::addColumn<int>("page");
    QTest::addColumn<QStringList>("presents");
    QTest::addColumn<QStringList>("absents");
    QTest::newRow("colonne 1, ligne 1") << 0 << QStringList{"N128", "N132", "N64", "N65", "N32", "N16", "N8"}
                                        << QStringList{"N1", "N2", "N4", "N133", "N135", "N67", "Branche"};
    QTest::newRow("colonne 1, ligne 2") << 1 << QStringList{"N4", "N2", "N1"}
                                        << QStringList{"N128", "N135", "N16", "N8", "Branche"};
    QTest::newRow("colonne 2, ligne 1") << 2 << QStringList{"N133", "N134", "N135", "N67", "N33"}
                                        << QStringList{"N128", "N131", "N64", "N32", "N16", "N1", "Branche"};
    QTest::newRow("colonne 2, ligne 2") << 3 << QStringList{"Branche", "Auteur", "Date", "Mise", "jour"}
                                        << QStringList{"N1", "N2", "N4", "N33", "N135"};
}

void TestImprimerPages::laPageMontreSaPartDeLArbre()
{
    QFETCH(const int, page);
    QFETCH(const QStringList, presents);
    QFETCH(const QStringList, absents);
    Fenetre fenetre({Ecrit("Branche", branche)});
    const Pdf pdf = EnPdf(fenetre, dossier->Chemin("a.pdf"));
    QVERIFY(pdf);
    const QStringList mots = Mots(*pdf, page);
    for (const QString &mot : presents)
        QVERIFY2(mots.contains(mot), qPrintable(mot));
    for (const QString &mot : absents)
        QVERIFY2(!mots.contains(mot), qPrintable(mot));
}

void TestImprimerPages::imprimanteAbandonneeImprimeQuandMeme()
{
    // Where a printer is installed it would print: here the printer is a file.
    Fenetre fenetre({Ecrit("T", {1, 2, 3})});
    const QString papier = dossier->Chemin("papier.pdf");
    Scenario scenario;
    scenario.Repond("Imprimante");
    Abandonne(scenario, [papier](QPrintDialog &dialogue) { dialogue.printer()->setOutputFileName(papier); });
    const Journal journal(fenetre);
    fenetre.slotFilePrint();
    QCOMPARE(scenario.Ecarts(), QStringList());
    QCOMPARE(journal.Lignes(),
             (QStringList{"Impression...", "[Choix du mode d'impression]", "[Imprimer]", "Impression en cours...",
                          "Prêt."}));
    const Pdf pdf = Poppler::Document::load(papier);
    QVERIFY(pdf);
    QCOMPARE(pdf->numPages(), 1);
    QVERIFY(Mots(*pdf, 0).contains("N3"));
}

void TestImprimerPages::laPageEstCelleDuDialogue()
{
    // 1131 dots wide and 915 high: an A2 page shows 1561 x 2218 dots.
    Fenetre fenetre({Ecrit("T", {1, 2, 3, 4, 5, 6, 7, 8, 9, 10, 11, 12, 13, 14})});
    const QString papier = dossier->Chemin("papier.pdf");
    Scenario scenario;
    scenario.Repond("Imprimante");
    Abandonne(scenario, [papier](QPrintDialog &dialogue) {
        dialogue.printer()->setOutputFileName(papier);
        dialogue.printer()->setPageSize(QPageSize(QPageSize::A2));
    });
    fenetre.slotFilePrint();
    QCOMPARE(scenario.Ecarts(), QStringList());
    const Pdf pdf = Poppler::Document::load(papier);
    QVERIFY(pdf);
    QCOMPARE(pdf->numPages(), 1);
    // Never scaled: millimetres stay millimetres.
    QVERIFY(qAbs(Place(*pdf, 0, "14").center().x() - ((962 + 56.5) * 0.75 + 9.75)) < 1.0);
}

void TestImprimerPages::unePageMinusculeNeMontreRien()
{
    Fenetre fenetre({Ecrit("T", {1, 2, 3})});
    QVERIFY(EstDessine(fenetre));
    const long x = fenetre.doc->arbre->premiere->x;
    const QString papier = dossier->Chemin("papier.pdf");
    Scenario scenario;
    scenario.Repond("Imprimante");
    QSize page;
    Abandonne(scenario, [papier, &page](QPrintDialog &dialogue) {
        QPrinter &imprimante = *dialogue.printer();
        imprimante.setOutputFileName(papier);
        imprimante.setFullPage(true);
        imprimante.setPageSize(QPageSize(QSizeF(1.2, 1.2), QPageSize::Millimeter));
        page = QSize(imprimante.width(), imprimante.height());
    });
    fenetre.slotFilePrint();
    QCOMPARE(scenario.Ecarts(), QStringList());
    QVERIFY2(page.width() <= 5 && page.height() <= 5, qPrintable(QString::number(page.width())));
    QCOMPARE(StatutDe(fenetre), "Prêt.");
    const Pdf pdf = Poppler::Document::load(papier);
    QVERIFY(!pdf || (pdf->numPages() <= 1 && Mots(*pdf, 0).isEmpty()));
    QCOMPARE(fenetre.doc->arbre->premiere->x, x);
}

void TestImprimerPages::lAffichageReduitSImprimeReduit_data()
{
    QTest::addColumn<bool>("complet");
    QTest::newRow("complet") << true;
    QTest::newRow("réduit") << false;
}

void TestImprimerPages::lAffichageReduitSImprimeReduit()
{
    QFETCH(const bool, complet);
    Fenetre fenetre({dossier->Ecrit(
        "a.xrlg",
        ArbreEcrit(
            "T", {{.numero = 1, .nom = "MARTIN", .lieuNaissance = "NANTES"}, {2, "MARTIN", "Jean"}, {3, "DURAND"}}))});
    fenetre.slotModeAffichage(complet);
    const Pdf pdf = EnPdf(fenetre, dossier->Chemin("a.pdf"));
    QVERIFY(pdf);
    QVERIFY(Mots(*pdf, 0).contains("MARTIN"));
    QCOMPARE(Mots(*pdf, 0).contains("NANTES"), complet);
    // Father and mother stand a box and a gap apart: 30 + 10 or 25 + 1 mm.
    const double ecart = Place(*pdf, 0, "3").center().x() - Place(*pdf, 0, "2").center().x();
    QVERIFY2(qAbs(ecart - (complet ? 151 : 98) * 0.75) < 0.5, qPrintable(QString::number(ecart)));
}

void TestImprimerPages::unTraitGardeSonEpaisseur_data()
{
    // The link that goes down from the father: where it stands, how thick it is.
    QTest::addColumn<bool>("complet");
    QTest::addColumn<int>("x");
    QTest::addColumn<int>("y");
    QTest::addColumn<int>("epaisseur");
    QTest::newRow("complet") << true << 56 + 56 << 56 + 158 + 5 << 3;
    QTest::newRow("réduit") << false << 18 + 45 << 18 + 56 + 4 << 1;
}

void TestImprimerPages::unTraitGardeSonEpaisseur()
{
    QFETCH(const bool, complet);
    QFETCH(const int, x);
    QFETCH(const int, y);
    QFETCH(const int, epaisseur);
    Fenetre fenetre({Ecrit("T", {1, 2, 3})});
    fenetre.slotModeAffichage(complet);
    const Pdf pdf = EnPdf(fenetre, dossier->Chemin("a.pdf"));
    QVERIFY(pdf);
    // Ten pixels to each dot of the printer, whose margins are of 13 dots.
    const QImage coupe = pdf->page(0)->renderToImage(960, 960, (13 + x - 6) * 10, (13 + y) * 10, 120, 1);
    int encre = 0;
    for (int colonne = 0; colonne < coupe.width(); ++colonne)
        encre += qGray(coupe.pixel(colonne, 0)) < 128 ? 1 : 0;
    QVERIFY2(qAbs(encre - 10 * epaisseur) <= 2, qPrintable(QString::number(encre)));
}

void TestImprimerPages::leNomDuPdfSuitLArbre_data()
{
    QTest::addColumn<QString>("arbre");
    QTest::addColumn<QString>("pdf");
    const auto ligne = [](const char *nom, const char *arbre, const char *pdf) {
        QTest::newRow(nom) << QString::fromUtf8(arbre) << QString::fromUtf8(pdf);
    };
    ligne("aucun arbre", "", "fichier.pdf");
    ligne("un point", "/srv/arbres/martin.xrlg", "martin.pdf");
    ligne("deux points", "/srv/arbres/martin.final.xrlg", "martin.pdf");
    ligne("sans point", "/srv/arbres.2020/martin", "martin.pdf");
    ligne("relatif", "mes aïeux.xrlg", "mes aïeux.pdf");
}

void TestImprimerPages::leNomDuPdfSuitLArbre()
{
    QFETCH(const QString, arbre);
    QFETCH(const QString, pdf);
    Fenetre fenetre({Ecrit("T", {1})});
    fenetre.fichierArbre = arbre;
    const Dossier autre;
    fenetre.dernierRep = autre.Chemin();
    QStringList champs;
    QStringList sorties;
    const auto regarde = [&champs, &sorties](QPrintDialog &dialogue) {
        champs += dialogue.findChild<QLineEdit *>("filename")->text();
        sorties += dialogue.printer()->outputFileName();
    };
    Scenario scenario;
    scenario.Repond("Fichier pdf");
    Abandonne(scenario, regarde);
    fenetre.slotFilePrint();
    scenario.Repond("Imprimante");
    Abandonne(scenario, regarde);
    QTest::ignoreMessage(QtWarningMsg, "QPainter::begin(): Returned false");
    fenetre.slotFilePrint();
    QCOMPARE(scenario.Ecarts(), QStringList());
    // The same name is offered in both dialogs, but a printer that prints on paper is left without it.
    QCOMPARE(champs, (QStringList{autre.Chemin(pdf), autre.Chemin(pdf)}));
    QCOMPARE(sorties, (QStringList{autre.Chemin(pdf), QString()}));
    QCOMPARE(autre.Noms(), QStringList());
}

void TestImprimerPages::unArbreSansPersonneImprimeSonTitre()
{
    Fenetre fenetre({Ecrit("Désert", {})});
    const Pdf pdf = EnPdf(fenetre, dossier->Chemin("a.pdf"));
    QVERIFY(pdf);
    QCOMPARE(pdf->numPages(), 1);
    QVERIFY(Mots(*pdf, 0).contains("Désert"));
}

void TestImprimerPages::imprimerNeChangeRienAuDocument()
{
    Fenetre fenetre({Ecrit("Branche", branche)});
    Clique(fenetre, 128);
    const auto etat = [&fenetre] {
        QList<QPoint> places;
        for (const Personne *personne = fenetre.doc->arbre->premiere; personne; personne = personne->suivante)
            places += QPoint(int(personne->x), int(personne->y));
        return places;
    };
    const QList<QPoint> avant = etat();
    const QString titre = fenetre.windowTitle();
    const QSignalSpy change(&fenetre, &RamelierApp::docChanged);
    QVERIFY(EnPdf(fenetre, dossier->Chemin("a.pdf")));
    QCOMPARE(QList<QVariantList>(change), QList<QVariantList>{{1}});
    QCOMPARE(etat(), avant);
    QCOMPARE(fenetre.doc->arbre->selection, Trouve(*fenetre.doc->arbre, 128));
    QCOMPARE(fenetre.doc->isModified(), false);
    QCOMPARE(fenetre.doc->areOptionsModified(), false);
    QCOMPARE(fenetre.windowTitle(), titre);
    QCOMPARE(fenetre.dernierRep, dossier->Chemin());
    QVERIFY(EstDessine(fenetre));
    // The canvas is measured for the screen again.
    QCOMPARE(fenetre.doc->hauteurCanevas, 1775);
}

void TestImprimerPages::nePasImprimerNeDisposeRien_data()
{
    QTest::addColumn<QString>("reponse");
    QTest::newRow("Annuler") << "Annuler";
    QTest::newRow("Fichier pdf abandonné") << "Fichier pdf";
}

void TestImprimerPages::nePasImprimerNeDisposeRien()
{
    QFETCH(const QString, reponse);
    Fenetre fenetre({Ecrit("T", {1, 2, 3})});
    const QSignalSpy change(&fenetre, &RamelierApp::docChanged);
    Scenario scenario;
    scenario.Repond(reponse);
    if (reponse == "Fichier pdf")
        Abandonne(scenario, [](QPrintDialog &) {});
    fenetre.slotFilePrint();
    QCOMPARE(scenario.Ecarts(), QStringList());
    QCOMPARE(change.count(), 0);
    QCOMPARE(dossier->Noms(), QStringList{"a.xrlg"});
    QCOMPARE(StatutDe(fenetre), "Prêt.");
}

RAMELIER_TEST_BUREAU_MAIN(TestImprimerPages)
#include "tst_imprimer_pages.moc"
