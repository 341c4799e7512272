#include "arbre.h"
#include "arbres.h"
#include "environnement.h"
#include "executecli.h"
#include "ficxrlg.h"
#include "infopersonne.h"
#include "personne.h"

#include <QDir>
#include <QGuiApplication>
#include <QImage>
#include <QPainter>
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
    void laPageDUnPdf_data();
    void laPageDUnPdf();
    void laFinesseDUnPng();
    void lAffichageReduit();
    void unePartieDeLArbre_data();
    void unePartieDeLArbre();
    void unGEDCOMSeDessine();
    void mauvaisUsage_data();
    void mauvaisUsage();
    void echoueEtDitPourquoi_data();
    void echoueEtDitPourquoi();
    void uneImageADesBornes_data();
    void uneImageADesBornes();
    void dessineDansToutDossier_data();
    void dessineDansToutDossier();
    void aideEtVersion();
    void dessineLExemple();

private:
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

void TestDessiner::laPageDUnPdf_data()
{
    QTest::addColumn<QStringList>("options");
    QTest::addColumn<QSize>("page");
    QTest::addColumn<int>("pages");
    // Sixteen boxes of 151 pixels: 2490 wide and 1130 high.
    QTest::newRow("A4") << QStringList{"--page", "A4"} << QSize(595, 842) << 8;
    QTest::newRow("A4 couchée") << QStringList{"--paysage"} << QSize(842, 595) << 6;
    QTest::newRow("A3") << QStringList{"--page=a3"} << QSize(842, 1191) << 3;
    QTest::newRow("A3 couchée") << QStringList{"--page", "A3", "--paysage"} << QSize(1191, 842) << 4;
}

void TestDessiner::laPageDUnPdf()
{
    QFETCH(const QStringList, options);
    QFETCH(const QSize, page);
    const QString pdf = Chemin(QStringLiteral("arbre.pdf"));
    QCOMPARE(Execute(QStringList{QStringLiteral("dessiner"), EcritArbre(5), pdf} + options).code, 0);
    const auto document = Poppler::Document::load(pdf);
    QVERIFY(document);
    QTEST(document->numPages(), "pages");
    QCOMPARE(document->page(0)->pageSize(), page);
}

void TestDessiner::laFinesseDUnPng()
{
    const QString png = Chemin(QStringLiteral("arbre.png"));
    const auto arbre = ArbreComplet(2);
    QVERIFY(writeFicXRLG(Chemin(QStringLiteral("arbre.xrlg")), arbre.get()));
    QCOMPARE(Execute({"dessiner", Chemin("arbre.xrlg"), png, "--dpi", "192"}).code, 0);
    const QImage image(png);
    // Twice 96 dots per inch: lengths of millimetres are cut to dots only then.
    QCOMPARE(image.size(), QSize(113 + 302 + 226 + 113, 113 + 430 + 317 + 113));
    QCOMPARE(qRound(image.dotsPerMeterX() * 0.0254), 192);
}

void TestDessiner::lAffichageReduit()
{
    const QString pdf = Chemin(QStringLiteral("arbre.pdf"));
    const auto arbre = ArbreComplet(2);
    arbre->premiere->info->lieunaissance = QStringLiteral("NANTES");
    arbre->premiere->info->datenaissance = QStringLiteral("1900");
    QVERIFY(writeFicXRLG(Chemin(QStringLiteral("arbre.xrlg")), arbre.get()));
    QCOMPARE(Execute({"dessiner", Chemin("arbre.xrlg"), pdf, "--reduit"}).code, 0);
    const auto document = Poppler::Document::load(pdf);
    QVERIFY(document);
    const QString texte = document->page(0)->text(QRectF());
    QVERIFY(texte.contains(QStringLiteral("1900")));
    QVERIFY(!texte.contains(QStringLiteral("NANTES")));
}

void TestDessiner::unePartieDeLArbre_data()
{
    QTest::addColumn<QStringList>("options");
    QTest::addColumn<QStringList>("dessinees");
    QTest::newRow("tout") << QStringList() << QStringList{"N1", "N2", "N3", "N4", "N5", "N6", "N7"};
    QTest::newRow("deux générations") << QStringList{"--generations", "2"} << QStringList{"N1", "N2", "N3"};
    QTest::newRow("une branche") << QStringList{"--racine", "3"} << QStringList{"N3", "N6", "N7"};
    QTest::newRow("une branche, une génération")
        << QStringList{"--racine", "2", "--generations", "1"} << QStringList{"N2"};
}

void TestDessiner::unePartieDeLArbre()
{
    QFETCH(const QStringList, options);
    const QString pdf = Chemin(QStringLiteral("arbre.pdf"));
    QCOMPARE(Execute(QStringList{QStringLiteral("dessiner"), EcritArbre(3), pdf} + options).code, 0);
    const auto document = Poppler::Document::load(pdf);
    QVERIFY(document);
    QStringList dessinees;
    for (int page = 0; page < document->numPages(); ++page) {
        for (const auto &boite : document->page(page)->textList()) {
            if (boite->text().startsWith(u'N'))
                dessinees += boite->text();
        }
    }
    dessinees.sort();
    QTEST(dessinees, "dessinees");
}

void TestDessiner::unGEDCOMSeDessine()
{
    QFile ged(Chemin(QStringLiteral("a.ged")));
    QVERIFY(ged.open(QIODevice::WriteOnly));
    ged.write("0 HEAD\n0 @I1@ INDI\n1 NAME Paul/MARTIN/\n0 @I2@ INDI\n1 NAME Jean/DURAND/\n0 TRLR\n");
    ged.close();
    const QString pdf = Chemin(QStringLiteral("a.pdf"));
    QCOMPARE(Execute({"dessiner", ged.fileName(), pdf, "--individu", "@I2@"}).code, 0);
    const auto document = Poppler::Document::load(pdf);
    QVERIFY(document);
    QVERIFY(document->page(0)->text(QRectF()).contains(QStringLiteral("Jean DURAND")));
}

void TestDessiner::mauvaisUsage_data()
{
    QTest::addColumn<QStringList>("arguments");
    QTest::addColumn<QString>("erreur");
    const QString essayez = QStringLiteral("Essayez « ramelier-cli --help ».\n");
    const QString essayezDessiner = QStringLiteral("Essayez « ramelier-cli dessiner --help ».\n");
    QTest::newRow("rien") << QStringList() << "ramelier-cli : aucune commande\n" + essayez;
    QTest::newRow("commande") << QStringList{"peindre"} << "ramelier-cli : commande inconnue : peindre\n" + essayez;
    QTest::newRow("sans sortie") << QStringList{"dessiner", "a.xrlg"}
                                 << "ramelier-cli : dessiner demande : ARBRE SORTIE\n" + essayezDessiner;
    QTest::newRow("format") << QStringList{"dessiner", "a.xrlg", "a.bmp"}
                            << "ramelier-cli : le fichier à dessiner doit se terminer par .pdf, .png ou .svg : a.bmp\n"
            + essayezDessiner;
    QTest::newRow("option") << QStringList{"dessiner", "--vite", "a", "b"}
                            << "ramelier-cli : Option inconnue \"vite\".\n" + essayezDessiner;
    const auto dessiner = [essayezDessiner](const char *nom, const QString &sortie, const QStringList &options,
                                            const QString &erreur) {
        QTest::newRow(nom) << QStringList{"dessiner", "a.xrlg", sortie} + options
                           << "ramelier-cli : " + erreur + "\n" + essayezDessiner;
    };
    dessiner("page inconnue", "a.pdf", {"--page", "A2"}, "la page est A4, A3 ou unique : A2");
    dessiner("page unique couchée", "a.pdf", {"--page", "unique", "--paysage"},
             "--paysage ne vaut pas pour une page unique");
    dessiner("page d'une image", "a.png", {"--page", "A4"}, "--page et --paysage ne valent que pour un .pdf");
    dessiner("image couchée", "a.svg", {"--paysage"}, "--page et --paysage ne valent que pour un .pdf");
    dessiner("repères d'une image", "a.png", {"--reperes"}, "--reperes ne vaut que pour un .pdf");
    dessiner("repères d'un SVG", "a.svg", {"--reperes"}, "--reperes ne vaut que pour un .pdf");
    dessiner("repères d'une page unique", "a.pdf", {"--reperes", "--page", "unique"},
             "--reperes ne vaut pas pour une page unique");
    dessiner("finesse d'un PDF", "a.pdf", {"--dpi", "300"}, "--dpi ne vaut que pour un .png");
    dessiner("finesse trop petite", "a.png", {"--dpi", "23"}, "--dpi veut un nombre de 24 à 1200 : 23");
    dessiner("finesse en lettres", "a.png", {"--dpi", "fin"}, "--dpi veut un nombre de 24 à 1200 : fin");
    dessiner("racine zéro", "a.pdf", {"--racine", "0"}, "--racine veut un nombre de 1 à 18446744073709551615 : 0");
    dessiner("générations négatives", "a.pdf", {"--generations=-1"},
             "--generations veut un nombre de 1 à 2147483647 : -1");
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
    QTest::newRow("racine absente") << QByteArray("<xrlg/>") << "a.pdf --racine 12"
                                    << "ramelier-cli : La personne n° 12 n'est pas dans l'arbre\n";
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
    QStringList mots = sortie.split(u' ');
    mots.first() = Chemin(mots.first());
    const Resultat resultat = Execute(QStringList{QStringLiteral("dessiner"), Chemin(QStringLiteral("a.xrlg"))} + mots);
    QCOMPARE(resultat.erreur, erreur.contains(u'%') ? erreur.arg(dossier->path()) : erreur);
    QCOMPARE(resultat.code, 1);
    QVERIFY(!QFileInfo(mots.first()).isFile());
}

void TestDessiner::uneImageADesBornes_data()
{
    QTest::addColumn<QString>("sortie");
    QTest::newRow("png") << "a.png";
    QTest::newRow("svg") << "a.svg";
}

void TestDessiner::uneImageADesBornes()
{
    QFETCH(const QString, sortie);
    const Resultat resultat = Execute({"dessiner", EcritArbre(10), Chemin(sortie)});
    if (sortie.endsWith(".png")) {
        QCOMPARE(resultat.erreur,
                 "ramelier-cli : L'arbre est trop grand pour une image (77386 x 2205 points) : choisissez un fichier "
                 ".pdf\n");
        QCOMPARE(resultat.code, 1);
        QVERIFY(!QFile::exists(Chemin(sortie)));
    } else {
        // Lines and letters: no painter has to hold its points.
        QCOMPARE(resultat.erreur, QString());
        QCOMPARE(resultat.code, 0);
    }
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
