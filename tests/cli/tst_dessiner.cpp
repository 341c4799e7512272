#include "arbre.h"
#include "arbres.h"
#include "environnement.h"
#include "ficxrlg.h"

#include <QDir>
#include <QGuiApplication>
#include <QImage>
#include <QPainter>
#include <QProcess>
#include <QScopeGuard>
#include <QSvgRenderer>

#include <poppler-qt6.h>

/// ramelier-cli dessiner: the built program, its files and its exit status.
class TestDessiner : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup();
    void dessineUnPdfSurUneGrilleDePages();
    void dessineUnPngALaTailleDuCanevas();
    void dessineUnSvgLisible();
    void prendLesOptionsDeLArbre();
    void mauvaisUsage_data();
    void mauvaisUsage();
    void echoueEtDitPourquoi_data();
    void echoueEtDitPourquoi();
    void dessineDansToutDossier_data();
    void dessineDansToutDossier();
    void aideEtVersion();
    void dessineLExemple();

private:
    struct Resultat
    {
        int code = -1;
        QString sortie;
        QString erreur;
    };
    static Resultat Execute(const QStringList &arguments);
    [[nodiscard]] QString Chemin(const QString &nom) const { return dossier->filePath(nom); }
    [[nodiscard]] QString EcritArbre(int generations) const;

    std::unique_ptr<QTemporaryDir> dossier;
};

void TestDessiner::init()
{
    dossier = std::make_unique<QTemporaryDir>();
    QVERIFY(dossier->isValid());
}

void TestDessiner::cleanup()
{
    dossier.reset();
}

TestDessiner::Resultat TestDessiner::Execute(const QStringList &arguments)
{
    QProcess programme;
    programme.start(QStringLiteral(RAMELIER_CLI), arguments);
    programme.waitForFinished(60000);
    return {programme.exitStatus() == QProcess::NormalExit ? programme.exitCode() : -1,
            QString::fromUtf8(programme.readAllStandardOutput()), QString::fromUtf8(programme.readAllStandardError())};
}

QString TestDessiner::EcritArbre(int generations) const
{
    const auto arbre = ArbreComplet(generations);
    arbre->infoArbre->titrearbre = QStringLiteral("Famille Éléonore");
    const QString chemin = Chemin(QStringLiteral("arbre.xrlg"));
    return writeFicXRLG(chemin, arbre.get()) ? chemin : QString();
}

void TestDessiner::dessineUnPdfSurUneGrilleDePages()
{
    const QString pdf = Chemin(QStringLiteral("arbre.pdf"));
    const Resultat resultat = Execute({QStringLiteral("dessiner"), EcritArbre(4), pdf});
    QCOMPARE(resultat.erreur, QString());
    QCOMPARE(resultat.code, 0);
    const auto document = Poppler::Document::load(pdf);
    QVERIFY(document);
    // Eight boxes of 151 pixels with both margins are wider than one page of 767, and one page high.
    QCOMPARE(document->numPages(), 2);
    QCOMPARE(document->info(QStringLiteral("Title")), QStringLiteral("Famille Éléonore"));
    const QString premiere = document->page(0)->text(QRectF());
    const QString seconde = document->page(1)->text(QRectF());
    QVERIFY(premiere.contains(QStringLiteral("N8")));
    QVERIFY(!seconde.contains(QStringLiteral("N8")));
    QVERIFY(seconde.contains(QStringLiteral("N15")));
    QVERIFY(!premiere.contains(QStringLiteral("N15")));
    QVERIFY(seconde.contains(QStringLiteral("Famille Éléonore")));
}

void TestDessiner::dessineUnPngALaTailleDuCanevas()
{
    const QString png = Chemin(QStringLiteral("arbre.png"));
    const auto arbre = ArbreComplet(2);
    QVERIFY(writeFicXRLG(Chemin(QStringLiteral("arbre.xrlg")), arbre.get()));
    QCOMPARE(Execute({QStringLiteral("dessiner"), Chemin(QStringLiteral("arbre.xrlg")), png}).code, 0);
    const QImage image(png);
    // Margins of 56 pixels around two boxes of 113 that stand 151 apart, and two rows that stand 215 apart, 158 high.
    QCOMPARE(image.size(), QSize(56 + 151 + 113 + 56, 56 + 215 + 158 + 56));
    QCOMPARE(image.pixelColor(0, 0), QColor(Qt::white));
    QCOMPARE(image.pixelColor(56 + 56, 56), QColor(Qt::black));
}

void TestDessiner::dessineUnSvgLisible()
{
    const QString svg = Chemin(QStringLiteral("arbre.svg"));
    QCOMPARE(Execute({QStringLiteral("dessiner"), EcritArbre(2), svg}).code, 0);
    QSvgRenderer lecteur(svg);
    QVERIFY(lecteur.isValid());
    QImage image(lecteur.viewBox().size(), QImage::Format_RGB32);
    image.fill(Qt::gray);
    QPainter peintre(&image);
    lecteur.render(&peintre);
    peintre.end();
    QCOMPARE(image.pixelColor(0, 0), QColor(Qt::white));
    QVERIFY(image.pixelColor(56 + 56, 56).lightness() < 64);
}

void TestDessiner::prendLesOptionsDeLArbre()
{
    const auto arbre = ArbreComplet(1);
    QVERIFY(writeFicXRLG(Chemin(QStringLiteral("arbre.xrlg")), arbre.get()));
    QFile options(Chemin(QStringLiteral("arbre.opt")));
    QVERIFY(options.open(QIODevice::WriteOnly));
    options.write("entete\nentete\n10\n20\n60\n20\n1\n2\n5\n1\n1\n255\n0\n0\nHelvetica\n8\n"
                  "Helvetica\n8\n75\n0\nHelvetica\n8\n50\n0\nHelvetica\n8\n50\n0\n0\n0\n0\n");
    options.close();
    const QString png = Chemin(QStringLiteral("arbre.png"));
    QCOMPARE(Execute({QStringLiteral("dessiner"), Chemin(QStringLiteral("arbre.xrlg")), png}).code, 0);
    const QImage image(png);
    // 60 x 20 mm with margins of 5 mm: 226 x 75 pixels, margins of 18.
    QCOMPARE(image.size(), QSize(18 + 226 + 18, 18 + 75 + 18));
    QCOMPARE(image.pixelColor(18 + 113, 18), QColor(Qt::red));
}

void TestDessiner::mauvaisUsage_data()
{
    QTest::addColumn<QStringList>("arguments");
    QTest::addColumn<QString>("erreur");
    const QString essayez = QStringLiteral("Essayez « ramelier-cli --help ».\n");
    QTest::newRow("rien") << QStringList() << "ramelier-cli : aucune commande\n" + essayez;
    QTest::newRow("commande") << QStringList{"peindre"} << "ramelier-cli : commande inconnue : peindre\n" + essayez;
    QTest::newRow("sans sortie") << QStringList{"dessiner", "a.xrlg"}
                                 << "ramelier-cli : dessiner demande deux fichiers : ARBRE SORTIE\n" + essayez;
    QTest::newRow("format") << QStringList{"dessiner", "a.xrlg", "a.bmp"}
                            << "ramelier-cli : le fichier à dessiner doit se terminer par .pdf, .png ou .svg : a.bmp\n"
            + essayez;
}

void TestDessiner::mauvaisUsage()
{
    QFETCH(QStringList, arguments);
    QFETCH(QString, erreur);
    const Resultat resultat = Execute(arguments);
    QCOMPARE(resultat.code, 2);
    QCOMPARE(resultat.erreur, erreur);
}

void TestDessiner::echoueEtDitPourquoi_data()
{
    QTest::addColumn<QByteArray>("contenu");
    QTest::addColumn<QString>("sortie");
    QTest::addColumn<QString>("erreur");
    QTest::newRow("absent") << QByteArray() << "a.png"
                            << "ramelier-cli : Le fichier %1/a.xrlg n'existe pas\n";
    QTest::newRow("autre XML") << QByteArray("<html/>") << "a.png"
                               << "ramelier-cli : Erreur de syntaxe ligne 1, colonne 6: Le fichier n'est pas un "
                                  "fichier XRLG.\n"
                                  "ramelier-cli : Impossible de charger le fichier %1/a.xrlg\n";
    QTest::newRow("mal fermé") << QByteArray("<xrlg><arbre></xrlg>") << "a.png"
                               << "ramelier-cli : Erreur de syntaxe ligne 1, colonne 20: le tag ne correspond pas\n"
                                  "ramelier-cli : Impossible de charger le fichier %1/a.xrlg\n";
    QTest::newRow("un dossier") << QByteArray("<xrlg/>") << "dossier.png"
                                << "ramelier-cli : Impossible d'écrire dans le fichier %1/dossier.png: "
                                   "C'est un dossier.\n";
    QTest::newRow("dossier absent") << QByteArray("<xrlg/>") << "rien/a.png"
                                    << "ramelier-cli : Impossible d'écrire dans le fichier %1/rien/a.png: "
                                       "Aucun fichier ou dossier.\n";
}

void TestDessiner::echoueEtDitPourquoi()
{
    QFETCH(QByteArray, contenu);
    QFETCH(QString, sortie);
    QFETCH(QString, erreur);
    if (!contenu.isEmpty()) {
        QFile fichier(Chemin(QStringLiteral("a.xrlg")));
        QVERIFY(fichier.open(QIODevice::WriteOnly));
        fichier.write(contenu);
    }
    QVERIFY(QDir(dossier->path()).mkdir(QStringLiteral("dossier.png")));
    const Resultat resultat = Execute({QStringLiteral("dessiner"), Chemin(QStringLiteral("a.xrlg")), Chemin(sortie)});
    QCOMPARE(resultat.erreur, erreur.contains(u'%') ? erreur.arg(dossier->path()) : erreur);
    QCOMPARE(resultat.code, 1);
    QVERIFY(!QFileInfo(Chemin(sortie)).isFile());
}

void TestDessiner::dessineDansToutDossier_data()
{
    QTest::addColumn<QString>("nom");
    QTest::addColumn<QByteArray>("langue");
    for (const QByteArray &langue : {QByteArray("C"), QByteArray("C.UTF-8")}) {
        for (const QString &nom :
             {QStringLiteral("les  ancêtres d'Élise"), QStringLiteral("E\u0301lise"), QStringLiteral("famille 👪"),
              QStringLiteral("n°#1 100 % ?"), QStringLiteral("\"Paul\""), QStringLiteral("point."), QString(250, u'n')})
            QTest::addRow("%s %s", langue.constData(), qPrintable(nom.left(20))) << nom << langue;
    }
}

void TestDessiner::dessineDansToutDossier()
{
    QFETCH(const QString, nom);
    QFETCH(const QByteArray, langue);
    const QByteArray avant = qgetenv("LC_ALL");
    qputenv("LC_ALL", langue);
    const auto rendLaLangue = qScopeGuard([&avant] { qputenv("LC_ALL", avant); });
    QVERIFY(QDir(dossier->path()).mkdir(nom));
    const QString base = Chemin(nom) + u'/' + nom;
    const QString arbre = base + QStringLiteral(".xrlg");
    QVERIFY(QFile::rename(EcritArbre(2), arbre));
    for (const QString &suffixe : {QStringLiteral(".pdf"), QStringLiteral(".png"), QStringLiteral(".svg")}) {
        const Resultat resultat = Execute({QStringLiteral("dessiner"), arbre, base + suffixe});
        QCOMPARE(resultat.erreur, QString());
        QCOMPARE(resultat.code, 0);
        QVERIFY(QFileInfo(base + suffixe).size() > 100);
    }
}

void TestDessiner::aideEtVersion()
{
    const Resultat aide = Execute({QStringLiteral("--help")});
    QCOMPARE(aide.code, 0);
    QVERIFY(aide.sortie.contains(QStringLiteral("dessiner ARBRE SORTIE")));
    QVERIFY(aide.sortie.contains(QStringLiteral("\n  -h, --help     Afficher cette aide.\n")));
    QVERIFY(!aide.sortie.contains(QStringLiteral("Displays")));
    QCOMPARE(Execute({QStringLiteral("-h")}).sortie, aide.sortie);
    const Resultat version = Execute({QStringLiteral("--version")});
    QCOMPARE(version.code, 0);
    QCOMPARE(version.sortie, QStringLiteral("ramelier-cli 5.1\n"));
}

void TestDessiner::dessineLExemple()
{
    const QString pdf = Chemin(QStringLiteral("exemple.pdf"));
    const QString exemple = QStringLiteral(RAMELIER_EXEMPLES "/louis-xiv.xrlg");
    QCOMPARE(Execute({QStringLiteral("dessiner"), exemple, pdf}).code, 0);
    const auto document = Poppler::Document::load(pdf);
    QVERIFY(document);
    QVERIFY(document->numPages() >= 1);
}

RAMELIER_TEST_MAIN(QGuiApplication, TestDessiner)
#include "tst_dessiner.moc"
