#include "arbre.h"
#include "arbres.h"
#include "arbview.h"
#include "fenetre.h"
#include "infopersonne.h"
#include "lytextbrowser.h"
#include "navigateurfiche.h"
#include "personne.h"
#include "ramelierdoc.h"
#include "ramelierview.h"
#include "scenario.h"

#include <QAction>
#include <QDir>
#include <QTcpServer>

#include <sys/stat.h>

/// A tree whose photos and sheets are no photos and no sheets, opened in the real window.
class TestFichiersHostiles : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void init();
    void cleanup();
    void lesPhotosQuiNEnSontPas_data();
    void lesPhotosQuiNEnSontPas();
    void lesFichesQuiNEnSontPas_data();
    void lesFichesQuiNEnSontPas();
    void uneFicheNExecuteNiNeChercheRien();
    void lesArbresQuiNEnSontPas_data();
    void lesArbresQuiNEnSontPas();

private:
    void PoseLesPieges() const;
    void Ouvre(const QByteArray &arbre);
    static QList<LyTextBrowser *> Afficheurs();
    [[nodiscard]] QString MontreLaFiche() const;

    Dossier pourTous;
    std::unique_ptr<Dossier> dossier;
    std::unique_ptr<Fenetre> fenetre;
};

namespace {

QByteArray AvecPhoto(const QString &photo)
{
    QByteArray arbre = ArbreEcrit(QStringLiteral("A"), {{1, "MARTIN", "Jean"}});
    arbre.replace("</infopersonne>", "<ficphoto>" + photo.toUtf8() + "</ficphoto></infopersonne>");
    return arbre;
}

}  // namespace

/// A picture that takes long to make, and 3.6 GB to show.
void TestFichiersHostiles::initTestCase()
{
    QImage enorme(30'000, 30'000, QImage::Format_Mono);
    enorme.fill(1);
    QVERIFY(enorme.save(pourTous.Chemin(QStringLiteral("enorme.png"))));
}

void TestFichiersHostiles::init()
{
    EffaceReglages();
    dossier = std::make_unique<Dossier>();
    PoseLesPieges();
}

void TestFichiersHostiles::cleanup()
{
    qDeleteAll(Afficheurs());
    fenetre.reset();
    dossier.reset();
}

/// A pipe, a device, links that lead nowhere or in a circle, a picture of 30,000 x 30,000 pixels, and a good one.
void TestFichiersHostiles::PoseLesPieges() const
{
    const auto octets = [&](const char *nom) { return QFile::encodeName(dossier->Chemin(QString::fromUtf8(nom))); };
    QCOMPARE(mkfifo(octets("tube").constData(), 0600), 0);
    QVERIFY(QFile::link(QStringLiteral("/dev/zero"), dossier->Chemin(QStringLiteral("appareil"))));
    QVERIFY(QFile::link(QStringLiteral("boucle"), dossier->Chemin(QStringLiteral("boucle"))));
    QVERIFY(QFile::link(QStringLiteral("nulle-part"), dossier->Chemin(QStringLiteral("perdu"))));
    QVERIFY(QDir(dossier->Chemin()).mkpath(QStringLiteral("dossier")));
    QImage petite(40, 30, QImage::Format_RGB32);
    petite.fill(Qt::blue);
    QVERIFY(petite.save(dossier->Chemin(QStringLiteral("dossier/bonne.png"))));
    const QString enorme = QStringLiteral("enorme.png");
    QVERIFY(QFile::link(pourTous.Chemin(enorme), dossier->Chemin(enorme)));
    dossier->Ecrit(QStringLiteral("texte.png"), "ceci n'est pas une image");
}

void TestFichiersHostiles::Ouvre(const QByteArray &arbre)
{
    const QString chemin = dossier->Ecrit(QStringLiteral("a.xrlg"), arbre);
    fenetre = std::make_unique<Fenetre>(QStringList{chemin});
}

QList<LyTextBrowser *> TestFichiersHostiles::Afficheurs()
{
    QList<LyTextBrowser *> trouves;
    const auto fenetres = QApplication::topLevelWidgets();
    for (QWidget *candidate : fenetres) {
        if (auto *afficheur = qobject_cast<LyTextBrowser *>(candidate))
            trouves += afficheur;
    }
    return trouves;
}

void TestFichiersHostiles::lesPhotosQuiNEnSontPas_data()
{
    QTest::addColumn<QString>("photo");
    QTest::addColumn<QSize>("taille");
    QTest::newRow("un tube") << "tube" << QSize();
    QTest::newRow("un appareil sans fin") << "appareil" << QSize();
    QTest::newRow("un lien vers lui-même") << "boucle" << QSize();
    QTest::newRow("un lien vers rien") << "perdu" << QSize();
    QTest::newRow("un dossier") << "dossier" << QSize();
    QTest::newRow("un texte") << "texte.png" << QSize();
    QTest::newRow("30 000 x 30 000 pixels") << "enorme.png" << QSize();
    QTest::newRow("un chemin absolu") << "/dev/zero" << QSize();
    QTest::newRow("en remontant") << QString("../").repeated(40) + "dev/zero" << QSize();
    QTest::newRow("en remontant vers une photo") << "dossier/../dossier/bonne.png" << QSize(40, 30);
    QTest::newRow("un nom sans fin") << QString(100'000, u'a') << QSize();
}

void TestFichiersHostiles::lesPhotosQuiNEnSontPas()
{
    QFETCH(QString, photo);
    QFETCH(QSize, taille);
    Ouvre(AvecPhoto(photo));
    QVERIFY(EstDessine(*fenetre));
    const Personne *racine = fenetre->doc->arbre->premiere;
    QVERIFY(racine);
    QCOMPARE(racine->info->nom, QStringLiteral("MARTIN"));
    QCOMPARE(racine->info->ficphoto, photo);
    QCOMPARE(racine->info->photo.isNull() ? QSize() : racine->info->photo.size(), taille);
    QCOMPARE(racine->info->aUnePhoto(), taille.isValid());
}

/// What the one browser shows of the root's sheet.
QString TestFichiersHostiles::MontreLaFiche() const
{
    Clique(*fenetre, 1);
    fenetre->actAffFicheHTML->trigger();
    const QList<LyTextBrowser *> afficheurs = Afficheurs();
    if (afficheurs.size() != 1)
        return QStringLiteral("%1 browsers").arg(afficheurs.size());
    return afficheurs.first()->findChild<NavigateurFiche *>()->toPlainText();
}

void TestFichiersHostiles::lesFichesQuiNEnSontPas_data()
{
    QTest::addColumn<QString>("fiche");
    QTest::newRow("un tube") << "tube";
    QTest::newRow("un appareil sans fin") << "appareil";
    QTest::newRow("un lien vers lui-même") << "boucle";
    QTest::newRow("un dossier") << "dossier";
    QTest::newRow("en remontant") << QString("../").repeated(40) + "dev/zero";
}

void TestFichiersHostiles::lesFichesQuiNEnSontPas()
{
    QFETCH(QString, fiche);
    Ouvre(ArbreEcrit(QStringLiteral("A"), {{1, "MARTIN", "Jean", fiche}}));
    QVERIFY(EstDessine(*fenetre));
    const Scenario scenario;
    const QString montre = MontreLaFiche();
    QVERIFY2(montre.size() < 1000, qPrintable(QString::number(montre.size())));
    QVERIFY2(!montre.contains(QChar(QChar::Null)), "a device was read");
}

void TestFichiersHostiles::uneFicheNExecuteNiNeChercheRien()
{
    QTcpServer serveur;
    QVERIFY(serveur.listen(QHostAddress::LocalHost));
    const QByteArray la = "http://127.0.0.1:" + QByteArray::number(serveur.serverPort()) + "/";
    dossier->Ecrit(QStringLiteral("f.htm"),
                   "<html><head><title>F</title><link rel='stylesheet' href='" + la
                       + "s.css'>"
                         "<script>document.write('EXECUTE')</script><script src='"
                       + la
                       + "s.js'></script></head>"
                         "<body onload=\"document.body.innerHTML='EXECUTE'\" background='"
                       + la
                       + "fond.png'>"
                         "<p>Lu</p><img src='"
                       + la + "i.png'><iframe src='" + la
                       + "cadre.html'></iframe>"
                         "<object data='"
                       + la + "o.swf'></object></body></html>");
    Ouvre(ArbreEcrit(QStringLiteral("A"), {{1, "MARTIN", "Jean", "f.htm"}}));
    QVERIFY(EstDessine(*fenetre));
    const QString montre = MontreLaFiche();
    QVERIFY2(montre.contains(QStringLiteral("Lu")), qPrintable(montre));
    QVERIFY2(!montre.contains(QStringLiteral("EXECUTE")), qPrintable(montre));
    QVERIFY(!serveur.waitForNewConnection(200));
}

void TestFichiersHostiles::lesArbresQuiNEnSontPas_data()
{
    QTest::addColumn<QString>("arbre");
    QTest::newRow("un tube") << "tube";
    QTest::newRow("un appareil sans fin") << "appareil";
    QTest::newRow("un lien vers lui-même") << "boucle";
    QTest::newRow("une image énorme") << "enorme.png";
}

void TestFichiersHostiles::lesArbresQuiNEnSontPas()
{
    QFETCH(QString, arbre);
    Scenario scenario;
    // The name tells which reader it goes to: each is tried.
    for (const char *extension : {".xrlg", ".rlg"}) {
        const QString nom = dossier->Chemin(arbre + QString::fromLatin1(extension));
        QVERIFY(QFile::link(dossier->Chemin(arbre), nom));
        fenetre = std::make_unique<Fenetre>(QStringList{nom});
        QVERIFY(!fenetre->doc->arbreCharge);
        QVERIFY(!fenetre->actFileSave->isEnabled());
    }
    QVERIFY(!scenario.Boites().isEmpty());
}

RAMELIER_TEST_BUREAU_MAIN(TestFichiersHostiles)
#include "tst_fichiers_hostiles.moc"
