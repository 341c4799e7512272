#include "fenetre.h"
#include "lytextbrowser.h"
#include "pdflu.h"
#include "serveurcups.h"

#include <QComboBox>
#include <QDialogButtonBox>
#include <QDoubleSpinBox>
#include <QLineEdit>
#include <QPrintDialog>
#include <QPrinter>
#include <QPushButton>
#include <QRadioButton>

#include <functional>

using PdfLu::Mots;
using PdfLu::Place;

/// Printing where a printer is installed, and what comes out of it. Its A4 page shows 745 x 1027 dots at 96 dots per inch
/// (margins of 18 and 36 points), so that pages stand 740 x 1022 dots apart; a box of 30 mm is 113 dots wide and the next
/// one starts 151 dots further.
class TestImprimante : public QObject
{
    Q_OBJECT

public:
    explicit TestImprimante(ServeurCups &unServeur)
        : serveur(unServeur)
    {
    }

private Q_SLOTS:
    void initTestCase();
    void init();
    void leDialogueProposeLImprimante();
    void lImprimanteRecoitLesPages();
    void unDialogueAbandonneImprimeQuandMeme();
    void leFichierPdfNeVaPasSurLePapier();
    void leFichierPdfAbandonneNImprimeRien();
    void annulerNImprimeRien();
    void lesPagesSeRecouvrent();
    void lesMillimetresRestentDesMillimetres();
    void laPageEstCelleDesProprietes_data();
    void laPageEstCelleDesProprietes();
    void lesMargesSontCellesDesProprietes();
    void unTitreAccentueNommeLeTravail();
    void uneFicheSImprime();
    void uneFicheAbandonneeNeSImprimePas();

private:
    using Pdf = std::unique_ptr<Poppler::Document>;

    [[nodiscard]] Pdf Papier() const { return Poppler::Document::loadFromData(serveur.Imprime()); }
    [[nodiscard]] QString Ecrit(const QString &titre, int personnes) const;
    /// The next modal windows are the print dialog and its properties; \a regle changes them, then all is accepted.
    static void Proprietes(Scenario &scenario, const std::function<void(QDialog &)> &regle);

    ServeurCups &serveur;
    std::unique_ptr<Dossier> dossier;
};

namespace {

QPushButton *BoutonParDefaut(const QDialog &dialogue)
{
    const auto boutons = dialogue.findChildren<QPushButton *>();
    const auto trouve =
        std::find_if(boutons.begin(), boutons.end(), [](const QPushButton *bouton) { return bouton->isDefault(); });
    return trouve == boutons.end() ? nullptr : *trouve;
}

void Accepte(QPrintDialog &dialogue)
{
    Scenario::ClicPlusTard(BoutonParDefaut(dialogue));
}

void Abandonne(QPrintDialog &dialogue)
{
    QMetaObject::invokeMethod(&dialogue, "reject", Qt::QueuedConnection);
}

}  // namespace

void TestImprimante::initTestCase()
{
    QVERIFY2(serveur.Panne().isEmpty(), qPrintable(serveur.Panne()));
}

void TestImprimante::init()
{
    EffaceReglages();
    dossier = std::make_unique<Dossier>();
}

QString TestImprimante::Ecrit(const QString &titre, int personnes) const
{
    QList<PersonneEcrite> ecrites;
    for (int numero = 1; numero <= personnes; ++numero)
        ecrites += {.numero = quint64(numero), .nom = u'N' + QString::number(numero)};
    return dossier->Ecrit("a.xrlg", ArbreEcrit(titre, ecrites));
}

void TestImprimante::Proprietes(Scenario &scenario, const std::function<void(QDialog &)> &regle)
{
    scenario
        .Dialogue<QPrintDialog>(
            [](QPrintDialog &impression) { Scenario::ClicPlusTard(impression.findChild<QPushButton *>("properties")); })
        .Dialogue<QDialog>([regle](QDialog &proprietes) {
            regle(proprietes);
            Scenario::ClicPlusTard(proprietes.findChild<QDialogButtonBox *>()->button(QDialogButtonBox::Ok));
        })
        .Dialogue<QPrintDialog>(Accepte);
}

void TestImprimante::leDialogueProposeLImprimante()
{
    Fenetre fenetre({Ecrit("T", 1)});
    QStringList choix;
    bool versUnFichier = true;
    Scenario scenario;
    scenario.Repond("Imprimante").Dialogue<QPrintDialog>([&choix, &versUnFichier](QPrintDialog &dialogue) {
        const auto *imprimantes = dialogue.findChild<QComboBox *>("printers");
        choix = {imprimantes->currentText(), dialogue.printer()->printerName()};
        versUnFichier = dialogue.findChild<QLineEdit *>("filename")->isEnabled();
        Accepte(dialogue);
    });
    fenetre.slotFilePrint();
    QCOMPARE(scenario.Ecarts(), QStringList());
    QCOMPARE(choix, (QStringList{"Papier", "Papier"}));
    QVERIFY(!versUnFichier);
    QVERIFY(!serveur.Imprime().isEmpty());
}

void TestImprimante::lImprimanteRecoitLesPages()
{
    // Sixteen boxes in the top row: 56 + 15 x 151 + 113 + 56 = 2490 dots, four columns; five rows: two pages high.
    Fenetre fenetre({Ecrit("Les aïeux", 31)});
    Scenario scenario;
    scenario.Repond("Imprimante").Dialogue<QPrintDialog>(Accepte);
    const Journal journal(fenetre);
    fenetre.slotFilePrint();
    QCOMPARE(scenario.Ecarts(), QStringList());
    QCOMPARE(journal.Lignes(),
             (QStringList{"Impression...", "[Choix du mode d'impression]", "[Imprimer]", "Impression en cours...",
                          "Prêt."}));
    const Pdf papier = Papier();
    QVERIFY(papier);
    QCOMPARE(papier->numPages(), 8);
    QCOMPARE(papier->page(0)->pageSize(), QSize(595, 842));
    // Columns first: the top row of boxes stands on every other page.
    QVERIFY(Mots(*papier, 0).contains("N16"));
    QVERIFY(Mots(*papier, 2).contains("N23"));
    QVERIFY(Mots(*papier, 4).contains("N28"));
    QVERIFY(Mots(*papier, 6).contains("N31"));
    QVERIFY(!Mots(*papier, 1).contains("N16"));
    QVERIFY(Mots(*papier, 6).contains("aïeux"));
    QCOMPARE(dossier->Noms(), QStringList{"a.xrlg"});
}

void TestImprimante::unDialogueAbandonneImprimeQuandMeme()
{
    Fenetre fenetre({Ecrit("T", 3)});
    Scenario scenario;
    scenario.Repond("Imprimante").Dialogue<QPrintDialog>(Abandonne);
    fenetre.slotFilePrint();
    QCOMPARE(scenario.Ecarts(), QStringList());
    const Pdf papier = Papier();
    QVERIFY(papier);
    QCOMPARE(papier->numPages(), 1);
    QVERIFY(Mots(*papier, 0).contains("N3"));
}

void TestImprimante::leFichierPdfNeVaPasSurLePapier()
{
    Fenetre fenetre({Ecrit("T", 3)});
    QString choix;
    QString fichier;
    Scenario scenario;
    scenario.Repond("Fichier pdf").Dialogue<QPrintDialog>([&choix, &fichier](QPrintDialog &dialogue) {
        choix = dialogue.findChild<QComboBox *>("printers")->currentText();
        fichier = dialogue.findChild<QLineEdit *>("filename")->text();
        Accepte(dialogue);
    });
    fenetre.slotFilePrint();
    QCOMPARE(scenario.Ecarts(), QStringList());
    QCOMPARE(choix, "Imprimer dans un fichier (PDF)");
    QCOMPARE(fichier, dossier->Chemin("a.pdf"));
    QCOMPARE(serveur.Imprime(), QByteArray());
    const Pdf pdf = Poppler::Document::load(fichier);
    QVERIFY(pdf);
    QCOMPARE(pdf->numPages(), 1);
}

void TestImprimante::leFichierPdfAbandonneNImprimeRien()
{
    Fenetre fenetre({Ecrit("T", 3)});
    Scenario scenario;
    scenario.Repond("Fichier pdf").Dialogue<QPrintDialog>(Abandonne);
    fenetre.slotFilePrint();
    QCOMPARE(scenario.Ecarts(), QStringList());
    QCOMPARE(serveur.Imprime(), QByteArray());
    QCOMPARE(dossier->Noms(), QStringList{"a.xrlg"});
}

void TestImprimante::annulerNImprimeRien()
{
    Fenetre fenetre({Ecrit("T", 3)});
    Scenario scenario;
    scenario.Repond("Annuler");
    fenetre.slotFilePrint();
    QCOMPARE(scenario.Ecarts(), QStringList());
    QCOMPARE(serveur.Imprime(), QByteArray());
    QCOMPARE(dossier->Noms(), QStringList{"a.xrlg"});
}

void TestImprimante::lesPagesSeRecouvrent()
{
    // Eight boxes in the top row: 1282 dots, two pages side by side. What stands at 740 to 744 dots on the left page stands
    // at 0 to 4 on the right one, after margins of 24 dots; a link crosses the border.
    Fenetre fenetre({Ecrit(QString(), 15)});
    Scenario scenario;
    scenario.Repond("Imprimante").Dialogue<QPrintDialog>(Accepte);
    fenetre.slotFilePrint();
    QCOMPARE(scenario.Ecarts(), QStringList());
    const Pdf papier = Papier();
    QVERIFY(papier);
    QCOMPARE(papier->numPages(), 2);
    const auto colonne = [&papier](int page, int x) {
        return papier->page(page)->renderToImage(96, 96, x, 0, 1, 1123).convertToFormat(QImage::Format_RGB32);
    };
    const QImage gauche = colonne(0, 24 + 742);
    const QImage droite = colonne(1, 24 + 2);
    int encre = 0;
    for (int y = 0; y < gauche.height(); ++y) {
        QCOMPARE(qGray(gauche.pixel(0, y)) < 128, qGray(droite.pixel(0, y)) < 128);
        encre += qGray(gauche.pixel(0, y)) < 128 ? 1 : 0;
    }
    QVERIFY(encre >= 3);
}

void TestImprimante::lesMillimetresRestentDesMillimetres()
{
    // The printer has a resolution of its own, 300 dots per inch or more: boxes stand 40 mm apart on paper all the same.
    Fenetre fenetre({Ecrit("T", 3)});
    Scenario scenario;
    scenario.Repond("Imprimante").Dialogue<QPrintDialog>(Accepte);
    fenetre.slotFilePrint();
    const Pdf papier = Papier();
    QVERIFY(papier);
    const double points = Place(*papier, 0, "3").center().x() - Place(*papier, 0, "2").center().x();
    QVERIFY2(qAbs(points - 151 * 0.75) < 0.5, qPrintable(QString::number(points)));
    // The father's number stands 56 dots and half a box from the left margin of 18 points.
    QVERIFY(qAbs(Place(*papier, 0, "2").center().x() - (18 + (56 + 56.5) * 0.75)) < 1.0);
}

void TestImprimante::laPageEstCelleDesProprietes_data()
{
    QTest::addColumn<bool>("paysage");
    QTest::addColumn<QString>("papier");
    QTest::addColumn<int>("personnes");
    QTest::addColumn<int>("pages");
    QTest::addColumn<QSize>("feuille");
    // Seven boxes in the top row: 1131 x 915 dots. A4 upright shows 745 x 1027 of them, A5 511 x 697, Legal 768 x 1248.
    QTest::newRow("A4 debout") << false << "A4" << 14 << 2 << QSize(595, 842);
    QTest::newRow("A4 couchée") << true << "A4" << 14 << 4 << QSize(595, 842);
    QTest::newRow("A5 debout") << false << "A5" << 14 << 6 << QSize(420, 595);
    QTest::newRow("A5 couchée") << true << "A5" << 14 << 4 << QSize(420, 595);
    QTest::newRow("Legal debout") << false << "Legal" << 14 << 2 << QSize(612, 1008);
    QTest::newRow("Legal couchée") << true << "Legal" << 14 << 2 << QSize(612, 1008);
}

void TestImprimante::laPageEstCelleDesProprietes()
{
    QFETCH(const bool, paysage);
    QFETCH(const QString, papier);
    QFETCH(const int, personnes);
    QFETCH(const QSize, feuille);
    Fenetre fenetre({Ecrit("T", personnes)});
    Scenario scenario;
    scenario.Repond("Imprimante");
    Proprietes(scenario, [paysage, papier](QDialog &proprietes) {
        auto *tailles = proprietes.findChild<QComboBox *>("pageSizeCombo");
        const int place = tailles->findText(papier, Qt::MatchStartsWith);
        QVERIFY2(place >= 0, qPrintable(papier));
        tailles->setCurrentIndex(place);
        Q_EMIT tailles->activated(place);
        proprietes.findChild<QRadioButton *>(paysage ? "landscape" : "portrait")->click();
    });
    fenetre.slotFilePrint();
    QCOMPARE(scenario.Ecarts(), QStringList());
    const Pdf imprime = Papier();
    QVERIFY(imprime);
    QTEST(imprime->numPages(), "pages");
    // A printer gets its sheets upright: what lies is turned.
    QCOMPARE(imprime->page(0)->pageSize(), feuille);
    const QRectF nombre = Place(*imprime, 0, "N8");
    QCOMPARE(nombre.height() > nombre.width(), paysage);
    QStringList mots;
    for (int page = 0; page < imprime->numPages(); ++page)
        mots += Mots(*imprime, page);
    for (int numero = 1; numero <= personnes; ++numero)
        QVERIFY2(mots.contains(u'N' + QString::number(numero)), qPrintable(QString::number(numero)));
}

void TestImprimante::lesMargesSontCellesDesProprietes()
{
    // Margins of 40 mm leave 130 mm of an A4 page: 491 dots. Four boxes in the top row are 678 dots wide.
    Fenetre fenetre({Ecrit("T", 7)});
    Scenario scenario;
    scenario.Repond("Imprimante");
    Proprietes(scenario, [](QDialog &proprietes) {
        auto *unites = proprietes.findChild<QComboBox *>("unitCombo");
        const int millimetres = unites->findText("mm", Qt::MatchContains);
        QVERIFY(millimetres >= 0);
        unites->setCurrentIndex(millimetres);
        Q_EMIT unites->activated(millimetres);
        for (const char *nom : {"leftMargin", "rightMargin", "topMargin", "bottomMargin"})
            proprietes.findChild<QDoubleSpinBox *>(nom)->setValue(40);
    });
    fenetre.slotFilePrint();
    QCOMPARE(scenario.Ecarts(), QStringList());
    const Pdf papier = Papier();
    QVERIFY(papier);
    QCOMPARE(papier->numPages(), 2);
    const double marge = 40 / 25.4 * 72;
    const double x = Place(*papier, 0, "4").center().x();
    QVERIFY2(qAbs(x - (marge + (56 + 56.5) * 0.75)) < 1.5, qPrintable(QString::number(x)));
    QVERIFY(Place(*papier, 0, "4").top() > marge + 30);
}

void TestImprimante::unTitreAccentueNommeLeTravail()
{
    Fenetre fenetre({Ecrit("Élise et Noël 🌳", 7)});
    Scenario scenario;
    scenario.Repond("Imprimante").Dialogue<QPrintDialog>(Accepte);
    fenetre.slotFilePrint();
    QVERIFY(Papier());
    QTRY_VERIFY(serveur.Travaux().contains("Élise et Noël 🌳"));
}

void TestImprimante::uneFicheSImprime()
{
    const QString fiche = dossier->Ecrit("fiche.html", "<html><body><p>Né à Besançon</p></body></html>");
    LyTextBrowser afficheur({}, {}, fiche, true);
    Scenario scenario;
    scenario.Repond("Imprimante").Dialogue<QPrintDialog>(Accepte);
    afficheur.slotFilePrint();
    QCOMPARE(scenario.Ecarts(), QStringList());
    const Pdf papier = Papier();
    QVERIFY(papier);
    QCOMPARE(papier->numPages(), 1);
    QVERIFY(Mots(*papier, 0).contains("Besançon"));
}

void TestImprimante::uneFicheAbandonneeNeSImprimePas()
{
    const QString fiche = dossier->Ecrit("fiche.html", "<html><body><p>Né à Besançon</p></body></html>");
    LyTextBrowser afficheur({}, {}, fiche, true);
    Scenario scenario;
    scenario.Repond("Imprimante").Dialogue<QPrintDialog>(Abandonne);
    afficheur.slotFilePrint();
    QCOMPARE(scenario.Ecarts(), QStringList());
    QCOMPARE(serveur.Imprime(), QByteArray());
}

int main(int argc, char **argv)
{
    const Environnement environnement;
    ServeurCups serveur;
    QCoreApplication::setAttribute(Qt::AA_DontUseNativeDialogs);
    QApplication application(argc, argv);
    PrepareLApplication(application, QStringLiteral("ramelier"));
    TestImprimante test(serveur);
    return QTest::qExec(&test, argc, argv);
}

#include "tst_imprimante.moc"
