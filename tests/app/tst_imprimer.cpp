#include "arbre.h"
#include "fenetre.h"
#include "personne.h"
#include "ramelierdoc.h"

#include <QDir>
#include <QLineEdit>
#include <QPrintDialog>
#include <QPushButton>
#include <QSignalSpy>

#include <poppler-qt6.h>

/// The print command: its question, both ways of printing, and the pages that come out. No printer is installed here.
class TestImprimer : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init() { EffaceReglages(); }
    void demandeLeMode();
    void annulerNImprimeRien();
    void ecritUnPdfDUnePage();
    void ecritLesPagesColonneParColonne();
    void lesPagesSeRecouvrentDeCinqPoints();
    void laSelectionNeSImprimePas();
    void leDialogueAbandonneNEcritPasDePdf();
    void imprimanteAbandonneeNeFaitRienSansImprimante();
    void imprimanteVersUnFichier();
    void leNomDuPdfSansArbre_data();
    void leNomDuPdfSansArbre();
    void rendALEcranSaDisposition();

private:
    /// Where the print dialog says that it will write.
    static void Accepte(Scenario &scenario, QString *fichier = nullptr);
    static void Abandonne(Scenario &scenario);
    [[nodiscard]] static QImage Encre(const Poppler::Page &page);

    Dossier dossier;
};

namespace {

const QList<PersonneEcrite> famille{{1, "MARTIN", "Paul"}, {2, "MARTIN", "Jean"}, {3, "LEFÈVRE", "Élise"}};

/// A line of \a generations complete generations: numbers 1 to 2^generations - 1.
QList<PersonneEcrite> Complet(int generations)
{
    QList<PersonneEcrite> personnes;
    for (quint64 numero = 1; numero < quint64(1) << generations; ++numero)
        personnes += PersonneEcrite{numero, u'N' + QString::number(numero)};
    return personnes;
}

}  // namespace

void TestImprimer::Accepte(Scenario &scenario, QString *fichier)
{
    scenario.Dialogue<QPrintDialog>([fichier](QPrintDialog &dialogue) {
        if (fichier)
            *fichier = dialogue.findChild<QLineEdit *>(QStringLiteral("filename"))->text();
        const auto boutons = dialogue.findChildren<QPushButton *>();
        for (QPushButton *bouton : boutons) {
            if (bouton->isDefault())
                Scenario::ClicPlusTard(bouton);
        }
    });
}

void TestImprimer::Abandonne(Scenario &scenario)
{
    scenario.Dialogue<QPrintDialog>(
        [](QPrintDialog &dialogue) { QMetaObject::invokeMethod(&dialogue, "reject", Qt::QueuedConnection); });
}

QImage TestImprimer::Encre(const Poppler::Page &page)
{
    return page.renderToImage(96, 96).convertToFormat(QImage::Format_RGB32);
}

void TestImprimer::demandeLeMode()
{
    Fenetre fenetre({dossier.Ecrit(QStringLiteral("a.xrlg"), ArbreEcrit(QStringLiteral("T"), famille))});
    Scenario scenario;
    scenario.Repond(QStringLiteral("Annuler"));
    fenetre.slotFilePrint();
    QCOMPARE(scenario.Ecarts(), QStringList());
    const BoiteVue &boite = scenario.Boites().first();
    QCOMPARE(boite.titre, QStringLiteral("Choix du mode d'impression"));
    QCOMPARE(boite.texte, QStringLiteral("Imprimer sur imprimante OU dans un fichier pdf ?"));
    QCOMPARE(boite.icone, QMessageBox::Question);
    QCOMPARE(boite.boutons, (QStringList{"Imprimante", "Fichier pdf", "Annuler"}));
    QCOMPARE(boite.defaut, QStringLiteral("Imprimante"));
    QCOMPARE(boite.echappement, QString());
    QCOMPARE(boite.parent, &fenetre);
}

void TestImprimer::annulerNImprimeRien()
{
    Fenetre fenetre({dossier.Ecrit(QStringLiteral("a.xrlg"), ArbreEcrit(QStringLiteral("T"), famille))});
    const QStringList avant = dossier.Noms();
    Scenario scenario;
    scenario.Repond(QStringLiteral("Annuler"));
    const Journal journal(fenetre);
    fenetre.slotFilePrint();
    QCOMPARE(scenario.Ecarts(), QStringList());
    QCOMPARE(journal.Lignes(), (QStringList{"Impression...", "[Choix du mode d'impression]", "Prêt."}));
    QCOMPARE(dossier.Noms(), avant);
}

void TestImprimer::ecritUnPdfDUnePage()
{
    Fenetre fenetre(
        {dossier.Ecrit(QStringLiteral("petit.beau.xrlg"), ArbreEcrit(QStringLiteral("Les Martin"), famille))});
    Scenario scenario;
    QString fichier;
    scenario.Repond(QStringLiteral("Fichier pdf"));
    Accepte(scenario, &fichier);
    const Journal journal(fenetre);
    fenetre.slotFilePrint();
    QCOMPARE(scenario.Ecarts(), QStringList());
    QCOMPARE(journal.Lignes(),
             (QStringList{"Impression...", "[Choix du mode d'impression]", "[Imprimer]", "Impression en cours...",
                          "Prêt."}));
    QCOMPARE(fichier, dossier.Chemin(QStringLiteral("petit.pdf")));
    const auto pdf = Poppler::Document::load(fichier);
    QVERIFY(pdf);
    QCOMPARE(pdf->numPages(), 1);
    QCOMPARE(pdf->page(0)->pageSize(), QSize(595, 842));
    // Poppler makes one blank of several.
    const QString texte = pdf->page(0)->text(QRectF()).simplified();
    for (const char *attendu : {"Paul MARTIN", "Jean MARTIN", "Élise LEFÈVRE", "Les Martin",
                                "Auteur : - Date :", "Mise à jour - Auteur : - Date :"})
        QVERIFY2(texte.contains(QString::fromUtf8(attendu)), attendu);
}

void TestImprimer::ecritLesPagesColonneParColonne()
{
    // Sixteen boxes of 151 pixels: 2490 wide and 1130 high in steps of 762 x 1092 pixels.
    Fenetre fenetre({dossier.Ecrit(QStringLiteral("grand.xrlg"), ArbreEcrit(QString(), Complet(5)))});
    Scenario scenario;
    scenario.Repond(QStringLiteral("Fichier pdf"));
    Accepte(scenario);
    fenetre.slotFilePrint();
    QCOMPARE(scenario.Ecarts(), QStringList());
    const auto pdf = Poppler::Document::load(dossier.Chemin(QStringLiteral("grand.pdf")));
    QVERIFY(pdf);
    QCOMPARE(pdf->numPages(), 8);
    // Columns first: the top row of boxes stands on every other page.
    const QStringList premiers{"N17", "N22", "N27", "N31"};
    for (int colonne = 0; colonne < 4; ++colonne) {
        QVERIFY2(pdf->page(2 * colonne)->text(QRectF()).contains(premiers.at(colonne)),
                 qPrintable(premiers.at(colonne)));
        QVERIFY(!pdf->page(2 * colonne + 1)->text(QRectF()).contains(premiers.at(colonne)));
    }
}

void TestImprimer::lesPagesSeRecouvrentDeCinqPoints()
{
    // Eight boxes: two pages side by side. Their common columns hold the same ink.
    Fenetre fenetre({dossier.Ecrit(QStringLiteral("large.xrlg"), ArbreEcrit(QString(), Complet(4)))});
    Scenario scenario;
    scenario.Repond(QStringLiteral("Fichier pdf"));
    Accepte(scenario);
    fenetre.slotFilePrint();
    QCOMPARE(scenario.Ecarts(), QStringList());
    const auto pdf = Poppler::Document::load(dossier.Chemin(QStringLiteral("large.pdf")));
    QVERIFY(pdf);
    QCOMPARE(pdf->numPages(), 2);
    const QImage gauche = Encre(*pdf->page(0));
    const QImage droite = Encre(*pdf->page(1));
    // Margins of 13 pixels; what stands at 762 to 766 on the left page stands at 0 to 4 on the right one.
    constexpr int marge = 13;
    int encre = 0;
    for (int y = 0; y < gauche.height(); ++y) {
        const bool aGauche = qGray(gauche.pixel(marge + 764, y)) < 128;
        const bool aDroite = qGray(droite.pixel(marge + 2, y)) < 128;
        QCOMPARE(aGauche, aDroite);
        encre += aGauche ? 1 : 0;
    }
    // A link crosses the border: a line of three pixels at least.
    QVERIFY(encre >= 3);
    // Nothing is printed in the margins.
    for (int y = 0; y < gauche.height(); ++y)
        QVERIFY(qGray(gauche.pixel(gauche.width() - 3, y)) > 240);
}

void TestImprimer::laSelectionNeSImprimePas()
{
    Fenetre fenetre({dossier.Ecrit(QStringLiteral("choisi.xrlg"), ArbreEcrit(QString(), famille))});
    Clique(fenetre, 2);
    QVERIFY(fenetre.doc->arbre->selection);
    Scenario scenario;
    scenario.Repond(QStringLiteral("Fichier pdf"));
    Accepte(scenario);
    fenetre.slotFilePrint();
    const auto pdf = Poppler::Document::load(dossier.Chemin(QStringLiteral("choisi.pdf")));
    QVERIFY(pdf);
    const QImage image = Encre(*pdf->page(0));
    for (int y = 0; y < image.height(); ++y) {
        for (int x = 0; x < image.width(); ++x)
            QVERIFY(qBlue(image.pixel(x, y)) <= qRed(image.pixel(x, y)) + 8);
    }
}

void TestImprimer::leDialogueAbandonneNEcritPasDePdf()
{
    Fenetre fenetre({dossier.Ecrit(QStringLiteral("rien.xrlg"), ArbreEcrit(QString(), famille))});
    Scenario scenario;
    scenario.Repond(QStringLiteral("Fichier pdf"));
    Abandonne(scenario);
    const Journal journal(fenetre);
    fenetre.slotFilePrint();
    QCOMPARE(scenario.Ecarts(), QStringList());
    QCOMPARE(journal.Lignes(), (QStringList{"Impression...", "[Choix du mode d'impression]", "[Imprimer]", "Prêt."}));
    QVERIFY(!QFile::exists(dossier.Chemin(QStringLiteral("rien.pdf"))));
}

void TestImprimer::imprimanteAbandonneeNeFaitRienSansImprimante()
{
    Fenetre fenetre({dossier.Ecrit(QStringLiteral("papier.xrlg"), ArbreEcrit(QString(), famille))});
    const QStringList avant = dossier.Noms();
    Scenario scenario;
    scenario.Repond(QStringLiteral("Imprimante"));
    Abandonne(scenario);
    const Journal journal(fenetre);
    QTest::ignoreMessage(QtWarningMsg, "QPainter::begin(): Returned false");
    fenetre.slotFilePrint();
    QCOMPARE(scenario.Ecarts(), QStringList());
    // It goes ahead all the same, and finds no printer.
    QCOMPARE(journal.Lignes(),
             (QStringList{"Impression...", "[Choix du mode d'impression]", "[Imprimer]", "Impression en cours...",
                          "Prêt."}));
    QCOMPARE(dossier.Noms(), avant);
}

void TestImprimer::imprimanteVersUnFichier()
{
    Fenetre fenetre({dossier.Ecrit(QStringLiteral("versfichier.xrlg"), ArbreEcrit(QString(), famille))});
    Scenario scenario;
    QString fichier;
    scenario.Repond(QStringLiteral("Imprimante"));
    Accepte(scenario, &fichier);
    fenetre.slotFilePrint();
    QCOMPARE(scenario.Ecarts(), QStringList());
    QCOMPARE(fichier, dossier.Chemin(QStringLiteral("versfichier.pdf")));
    const auto pdf = Poppler::Document::load(fichier);
    QVERIFY(pdf);
    QCOMPARE(pdf->numPages(), 1);
}

void TestImprimer::leNomDuPdfSansArbre_data()
{
    QTest::addColumn<QString>("dernierRep");
    QTest::addColumn<QString>("attendu");
    QTest::newRow("dernier dossier") << dossier.Chemin() << dossier.Chemin(QStringLiteral("fichier.pdf"));
    QTest::newRow("aucun dossier") << "" << QDir::currentPath() + "/fichier.pdf";
}

void TestImprimer::leNomDuPdfSansArbre()
{
    QFETCH(QString, dernierRep);
    QFETCH(QString, attendu);
    Fenetre fenetre;
    fenetre.dernierRep = dernierRep;
    Scenario scenario;
    QString fichier;
    scenario.Repond(QStringLiteral("Fichier pdf"));
    Accepte(scenario, &fichier);
    fenetre.slotFilePrint();
    QCOMPARE(scenario.Ecarts(), QStringList());
    QCOMPARE(fichier, attendu);
    QVERIFY(!QFile::exists(fichier));
    QCOMPARE(StatutDe(fenetre), QStringLiteral("Prêt."));
}

void TestImprimer::rendALEcranSaDisposition()
{
    Fenetre fenetre({dossier.Ecrit(QStringLiteral("retour.xrlg"), ArbreEcrit(QStringLiteral("T"), famille))});
    QVERIFY(EstDessine(fenetre));
    const QSignalSpy change(&fenetre, &RamelierApp::docChanged);
    Scenario scenario;
    scenario.Repond(QStringLiteral("Fichier pdf"));
    Accepte(scenario);
    fenetre.slotFilePrint();
    QCOMPARE(change, QList<QList<QVariant>>{{1}});
    QCOMPARE(fenetre.doc->arbre->premiere->x, 131);
    QCOMPARE(fenetre.doc->arbre->premiere->y, 271);
    QCOMPARE(fenetre.doc->arbre->derniere->x, 207);
}

RAMELIER_TEST_BUREAU_MAIN(TestImprimer)
#include "tst_imprimer.moc"
