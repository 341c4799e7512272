#include "executecli.h"
#include "fenetre.h"
#include "pdflu.h"
#include "ramelierdoc.h"

#include <QAction>
#include <QDir>
#include <QImage>
#include <QPrintDialog>
#include <QPushButton>

/// The companion draws what the window prints, page by page and point by point.
class TestImprimerEtDessiner : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void lesPagesSontLesMemes_data();
    void lesPagesSontLesMemes();

private:
    using Pdf = std::unique_ptr<Poppler::Document>;

    /// The sample tree with its photos, in the scratch folder.
    [[nodiscard]] QString CopieLExemple() const;
    [[nodiscard]] Pdf Imprime(const QString &arbre, bool complet) const;
    [[nodiscard]] Pdf Dessine(const QString &arbre, bool complet) const;

    std::unique_ptr<Dossier> dossier;
};

void TestImprimerEtDessiner::init()
{
    EffaceReglages();
    dossier = std::make_unique<Dossier>();
}

QString TestImprimerEtDessiner::CopieLExemple() const
{
    const QDir exemples(QStringLiteral(RAMELIER_EXEMPLES));
    const QString photos = QStringLiteral("armes");
    bool copie = QDir(dossier->Chemin()).mkdir(photos);
    for (const QString &nom : QDir(exemples.filePath(photos)).entryList({"*.png"}, QDir::Files)) {
        const QString photo = photos + u'/' + nom;
        copie = QFile::copy(exemples.filePath(photo), dossier->Chemin(photo)) && copie;
    }
    const QString arbre = dossier->Chemin("arbre.xrlg");
    return QFile::copy(exemples.filePath("louis-xiv.xrlg"), arbre) && copie ? arbre : QString();
}

TestImprimerEtDessiner::Pdf TestImprimerEtDessiner::Imprime(const QString &arbre, bool complet) const
{
    Fenetre fenetre({arbre});
    fenetre.slotModeAffichage(complet);
    Scenario scenario;
    scenario.Repond("Fichier pdf");
    scenario.Dialogue<QPrintDialog>([](QPrintDialog &dialogue) {
        for (QPushButton *bouton : dialogue.findChildren<QPushButton *>()) {
            if (bouton->isDefault())
                Scenario::ClicPlusTard(bouton);
        }
    });
    fenetre.actFilePrint->trigger();
    return scenario.Ecarts().isEmpty() ? Poppler::Document::load(dossier->Chemin("arbre.pdf")) : nullptr;
}

TestImprimerEtDessiner::Pdf TestImprimerEtDessiner::Dessine(const QString &arbre, bool complet) const
{
    const QString pdf = dossier->Chemin("dessin.pdf");
    QStringList mots{"dessiner", arbre, pdf};
    if (!complet)
        mots += "--reduit";
    return Execute(mots).code == 0 ? Poppler::Document::load(pdf) : nullptr;
}

void TestImprimerEtDessiner::lesPagesSontLesMemes_data()
{
    QTest::addColumn<bool>("complet");
    QTest::addColumn<int>("largeurCadre");
    QTest::addColumn<int>("pages");
    QTest::newRow("complet") << true << 0 << 8;
    QTest::newRow("réduit") << false << 0 << 3;
    QTest::newRow("avec des options") << true << 60 << 12;
}

void TestImprimerEtDessiner::lesPagesSontLesMemes()
{
    QFETCH(const bool, complet);
    QFETCH(const int, largeurCadre);
    const QString arbre = CopieLExemple();
    QVERIFY(!arbre.isEmpty());
    if (largeurCadre > 0)
        dossier->Ecrit("arbre.opt", OptionsEcrites(largeurCadre));
    const Pdf imprime = Imprime(arbre, complet);
    const Pdf dessine = Dessine(arbre, complet);
    QVERIFY(imprime && dessine);
    QTEST(imprime->numPages(), "pages");
    QCOMPARE(dessine->numPages(), imprime->numPages());
    QCOMPARE(dessine->info("Title"), imprime->info("Title"));
    for (int page = 0; page < imprime->numPages(); ++page) {
        QCOMPARE(PdfLu::Mots(*dessine, page), PdfLu::Mots(*imprime, page));
        const QImage attendue = imprime->page(page)->renderToImage(144, 144);
        QVERIFY(!attendue.isNull());
        QCOMPARE(dessine->page(page)->renderToImage(144, 144), attendue);
    }
}

RAMELIER_TEST_BUREAU_MAIN(TestImprimerEtDessiner)
#include "tst_imprimer_et_dessiner.moc"
