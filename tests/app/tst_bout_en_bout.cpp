#include "environnement.h"

#include <QDir>
#include <QGuiApplication>
#include <QImage>
#include <QPixmap>
#include <QProcess>
#include <QScreen>
#include <QSettings>

/// The built program, in a real window under a real X server: started by its name, driven by mouse and keyboard events of
/// the X server, judged by its pixels. Screenshots stay in the captures folder of the build.
class TestBoutEnBout : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void init();
    void cleanup();
    void ouvreLArbreDeLaLigneDeCommande();
    void unClicSelectionneUnePersonne();
    void leModeReduitNADePlusDeCadre();
    void leClavierPasseEnEdition();
    void ctrlQQuitteEtRetientLaTaille();

private:
    static constexpr int largeur = 900;
    static constexpr int hauteur = 600;

    void Demarre();
    QString Xdotool(const QStringList &arguments) const;
    void Clique(QPoint point) const;
    QImage Ecran(const char *nom) const;
    QImage Capture(const char *nom) const;

    QProcess programme;
    QTemporaryDir dossier;
    QString fenetre;
};

namespace {

// A root with its parents: boxes of 113 x 158 pixels at (56, 56), (207, 56) and (131, 271) of the drawing.
constexpr auto arbreFamille = R"(<?xml version="1.0" encoding="UTF-8"?>
<!DOCTYPE xrlg>
<xrlg version="1.0">
  <arbre>
    <infoarbre>
      <titrearbre></titrearbre>
    </infoarbre>
    <nombrepersonnes>3</nombrepersonnes>
    <personne>
      <numero>1</numero><numerogeneration>0</numerogeneration><pere>2</pere><mere>3</mere><enfant>0</enfant>
      <infopersonne><nom>MARTIN</nom><prenom>Paul</prenom></infopersonne>
    </personne>
    <personne>
      <numero>2</numero><numerogeneration>1</numerogeneration><pere>0</pere><mere>0</mere><enfant>1</enfant>
      <infopersonne><nom>MARTIN</nom><prenom>Jean</prenom></infopersonne>
    </personne>
    <personne>
      <numero>3</numero><numerogeneration>1</numerogeneration><pere>0</pere><mere>0</mere><enfant>1</enfant>
      <infopersonne><nom>LEFÈVRE</nom><prenom>Élise</prenom></infopersonne>
    </personne>
    <nombregenerations>2</nombregenerations>
  </arbre>
</xrlg>
)";

int Compte(const QImage &image, QRgb couleur)
{
    int points = 0;
    for (int y = 0; y < image.height(); ++y) {
        for (int x = 0; x < image.width(); ++x)
            points += image.pixel(x, y) == couleur ? 1 : 0;
    }
    return points;
}

constexpr QRgb bleu = 0xff0000ff;
constexpr QRgb noir = 0xff000000;

}  // namespace

void TestBoutEnBout::initTestCase()
{
    QFile fichier(dossier.filePath(QStringLiteral("famille.xrlg")));
    QVERIFY(fichier.open(QIODevice::WriteOnly));
    fichier.write(arbreFamille);
}

void TestBoutEnBout::init()
{
    programme.setProgram(QStringLiteral(RAMELIER_PROGRAMME));
    programme.setArguments({dossier.filePath(QStringLiteral("famille.xrlg"))});
    programme.setProcessChannelMode(QProcess::ForwardedErrorChannel);
    programme.start();
    QVERIFY(programme.waitForStarted());
    QTRY_VERIFY_WITH_TIMEOUT(
        !(fenetre = Xdotool({"search", "--onlyvisible", "--name", "^Ramelier 5.1 - "}).section(u'\n', -1)).isEmpty(),
        20000);
    Xdotool({"windowsize", "--sync", fenetre, QString::number(largeur), QString::number(hauteur)});
    Xdotool({"windowmove", fenetre, QStringLiteral("50"), QStringLiteral("50")});
    Xdotool({"windowactivate", "--sync", fenetre});
    // The first frame of the program's window has been painted when the frames of its boxes are there.
    QTRY_VERIFY_WITH_TIMEOUT(Compte(Capture("ouverture"), noir) > 1000, 10000);
}

void TestBoutEnBout::cleanup()
{
    if (programme.state() == QProcess::NotRunning)
        return;
    programme.terminate();
    QVERIFY(programme.waitForFinished());
}

QString TestBoutEnBout::Xdotool(const QStringList &arguments) const
{
    QProcess outil;
    outil.start(QStringLiteral("xdotool"), arguments);
    outil.waitForFinished();
    return QString::fromUtf8(outil.readAllStandardOutput()).trimmed();
}

void TestBoutEnBout::Clique(QPoint point) const
{
    Xdotool({"mousemove", "--sync", "--window", fenetre, QString::number(point.x()), QString::number(point.y()),
             "click", "1"});
}

QImage TestBoutEnBout::Ecran(const char *nom) const
{
    const QImage image = QGuiApplication::primaryScreen()->grabWindow(0).toImage();
    QDir().mkpath(QStringLiteral(RAMELIER_CAPTURES));
    image.save(QStringLiteral(RAMELIER_CAPTURES "/%1.png").arg(QString::fromLatin1(nom)));
    return image;
}

QImage TestBoutEnBout::Capture(const char *nom) const
{
    // The drawing alone, without the desktop behind the window and without its bars.
    return Ecran(nom).copy(60, 130, largeur - 30, hauteur - 130).convertToFormat(QImage::Format_RGB32);
}

void TestBoutEnBout::ouvreLArbreDeLaLigneDeCommande()
{
    QCOMPARE(Xdotool({"getwindowname", fenetre}),
             QStringLiteral("Ramelier 5.1 - ") + dossier.filePath(QStringLiteral("famille.xrlg")));
    QCOMPARE(Compte(Capture("complet"), bleu), 0);
}

void TestBoutEnBout::unClicSelectionneUnePersonne()
{
    // Below menu bar and tool bar, the middle of the father's box.
    Clique({56 + 56, 56 + 90 + 60});
    QTRY_VERIFY_WITH_TIMEOUT(Compte(Capture("selection"), bleu) > 300, 5000);
    Clique({600, 400});
}

void TestBoutEnBout::leModeReduitNADePlusDeCadre()
{
    const int complet = Compte(Capture("complet"), noir);
    // The menu Format, then its right neighbour Affichage, whose last entry is the full display.
    for (const char *touche : {"alt+t", "Right", "Up", "Return"})
        Xdotool({"key", QString::fromLatin1(touche)});
    QTRY_VERIFY_WITH_TIMEOUT(Compte(Capture("reduit"), noir) < complet / 2, 5000);
}

void TestBoutEnBout::leClavierPasseEnEdition()
{
    const QImage avant = Ecran("consultation");
    Xdotool({"key", "F8"});
    QTRY_VERIFY_WITH_TIMEOUT(Ecran("edition") != avant, 5000);
}

void TestBoutEnBout::ctrlQQuitteEtRetientLaTaille()
{
    Xdotool({"key", "ctrl+q"});
    QVERIFY(programme.waitForFinished(10000));
    QCOMPARE(programme.exitStatus(), QProcess::NormalExit);
    QCOMPARE(programme.exitCode(), 0);
    const QSettings reglages(QStringLiteral("ProgrammesLY"), QStringLiteral("ramelier"));
    QCOMPARE(reglages.value(QStringLiteral("size")).toSize(), QSize(largeur, hauteur));
    QCOMPARE(reglages.value(QStringLiteral("lastdir")).toString(), dossier.path());
}

RAMELIER_TEST_MAIN(QGuiApplication, TestBoutEnBout)
#include "tst_bout_en_bout.moc"
