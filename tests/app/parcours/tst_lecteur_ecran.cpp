#include "ecran.h"
#include "environnement.h"

#include <QGuiApplication>
#include <QProcess>

namespace {

// A root with its parents, in boxes of 113 x 158 pixels.
constexpr auto arbreFamille = R"(<?xml version="1.0" encoding="UTF-8"?>
<!DOCTYPE xrlg>
<xrlg version="1.0">
  <arbre>
    <infoarbre><titrearbre>Les MARTIN</titrearbre></infoarbre>
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
      <infopersonne>
        <nom>LEFÈVRE</nom><prenom>Élise</prenom>
        <datenaissance>12 mai 1900</datenaissance><lieunaissance>Lyon</lieunaissance>
      </infopersonne>
    </personne>
    <nombregenerations>2</nombregenerations>
  </arbre>
</xrlg>
)";

constexpr QRgb noir = 0xff000000;
constexpr QRgb bleu = 0xff0000ff;
constexpr int attenteMs = 20000;

}  // namespace

/// The built program as a screen reader knows it: a client on the bus of assistive tools asks and listens, real keys are
/// pressed.
class TestLecteurEcran : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void init();
    void cleanup();

    void lesPersonnesOntUnNomEtUnePlace();
    void lesTouchesSEntendent();
    void laRechercheSEntend();
    void unClicSEntend();
    void onChoisitSansClavier();

private:
    QString Demande(const QString &commande);
    /// Waits until the client has said this line.
    [[nodiscard]] bool Entend(const QString &ligne);
    [[nodiscard]] QRect Place(int rang);
    void Lit();

    QProcess programme;
    QProcess temoin;
    QTemporaryDir dossier;
    QStringList entendus;  ///< what the client said by itself
    QStringList reponses;
};

void TestLecteurEcran::initTestCase()
{
    QFile fichier(dossier.filePath("famille.xrlg"));
    QVERIFY(fichier.open(QIODevice::WriteOnly));
    fichier.write(arbreFamille);
    connect(&temoin, &QProcess::readyReadStandardOutput, this, &TestLecteurEcran::Lit);
    for (QProcess *processus : {&programme, &temoin})
        processus->setProcessChannelMode(QProcess::ForwardedErrorChannel);
}

void TestLecteurEcran::init()
{
    entendus.clear();
    reponses.clear();
    temoin.start("/usr/bin/python3", {RAMELIER_TEMOIN});
    QVERIFY(Entend("prêt"));
    QProcessEnvironment environnement = QProcessEnvironment::systemEnvironment();
    environnement.insert("QT_LINUX_ACCESSIBILITY_ALWAYS_ON", "1");
    programme.setProcessEnvironment(environnement);
    programme.start(RAMELIER_PROGRAMME, {dossier.filePath("famille.xrlg")});
    const QString fenetre = Ecran::AttendActive("^Ramelier 5.1 - ");
    QVERIFY(!fenetre.isEmpty());
    QTRY_COMPARE_WITH_TIMEOUT(Demande("dessin"), QStringLiteral("Arbre généalogique : Les MARTIN"), attenteMs);
    Ecran::Xdotool({"windowsize", "--sync", fenetre, "700", "600"});
    Ecran::Xdotool({"windowmove", "--sync", fenetre, "60", "70"});
}

void TestLecteurEcran::cleanup()
{
    programme.terminate();
    QVERIFY(programme.waitForFinished());
    temoin.closeWriteChannel();
    QVERIFY(temoin.waitForFinished());
}

void TestLecteurEcran::Lit()
{
    while (temoin.canReadLine()) {
        const QString ligne = QString::fromUtf8(temoin.readLine()).trimmed();
        if (ligne.startsWith('='))
            reponses += ligne.mid(2);
        else
            entendus += ligne;
    }
}

QString TestLecteurEcran::Demande(const QString &commande)
{
    reponses.clear();
    temoin.write(commande.toUtf8() + '\n');
    return QTest::qWaitFor([this] { return !reponses.isEmpty(); }, attenteMs) ? reponses.constFirst() : QString();
}

bool TestLecteurEcran::Entend(const QString &ligne)
{
    return QTest::qWaitFor([this, &ligne] { return entendus.contains(ligne); }, attenteMs);
}

QRect TestLecteurEcran::Place(int rang)
{
    const QStringList nombres = Demande(QStringLiteral("place %1").arg(rang)).split(' ');
    return nombres.size() == 4
        ? QRect(nombres.at(0).toInt(), nombres.at(1).toInt(), nombres.at(2).toInt(), nombres.at(3).toInt())
        : QRect();
}

void TestLecteurEcran::lesPersonnesOntUnNomEtUnePlace()
{
    QCOMPARE(Demande("noms"), QStringLiteral("Paul MARTIN, n° 1|Jean MARTIN, n° 2|Élise LEFÈVRE, n° 3"));
    QCOMPARE(Demande("description 2"), QStringLiteral("naissance : 12 mai 1900, Lyon"));
    QCOMPARE(Demande("etat 0"), QStringLiteral("choisissable"));
    // The place that is told is where the box is seen.
    QTRY_VERIFY_WITH_TIMEOUT(Place(2).size() == QSize(113, 158)
                                 && Ecran::Points(Ecran::Image(), Place(2).adjusted(-2, -2, 2, 2), noir) > 1200,
                             attenteMs);
    const QRect place = Place(2);
    QCOMPARE(Ecran::Points(Ecran::Image(), place.adjusted(-14, -14, 14, 0), noir),
             Ecran::Points(Ecran::Image(), place.adjusted(-2, -2, 2, 0), noir));
    QCOMPARE(Demande(QStringLiteral("sous %1 %2").arg(place.center().x()).arg(place.center().y())),
             QStringLiteral("Élise LEFÈVRE, n° 3"));
}

void TestLecteurEcran::lesTouchesSEntendent()
{
    Ecran::Touches({"Home"});
    QVERIFY(Entend("foyer Paul MARTIN, n° 1"));
    QVERIFY(Entend("choisie Paul MARTIN, n° 1"));
    Ecran::Touches({"shift+Up"});
    QVERIFY(Entend("foyer Élise LEFÈVRE, n° 3"));
    QVERIFY(Entend("laissée Paul MARTIN, n° 1"));
    QCOMPARE(Demande("etat 2"), QStringLiteral("choisie foyer choisissable"));
    QCOMPARE(Demande("etat 0"), QStringLiteral("choisissable"));
}

void TestLecteurEcran::laRechercheSEntend()
{
    Ecran::Tape("lef");
    QVERIFY(Entend("foyer Élise LEFÈVRE, n° 3"));
    Ecran::Touches({"Escape", "2"});
    QVERIFY(Entend("foyer Jean MARTIN, n° 2"));
}

void TestLecteurEcran::unClicSEntend()
{
    QTRY_COMPARE_WITH_TIMEOUT(Place(1).size(), QSize(113, 158), attenteMs);
    Ecran::Clique(Place(1).center());
    QVERIFY(Entend("choisie Jean MARTIN, n° 2"));
    QVERIFY(Entend("foyer Jean MARTIN, n° 2"));
}

void TestLecteurEcran::onChoisitSansClavier()
{
    QCOMPARE(Demande("choisit 0"), QStringLiteral("True"));
    QVERIFY(Entend("choisie Paul MARTIN, n° 1"));
    QTRY_VERIFY_WITH_TIMEOUT(Ecran::Points(Ecran::Image(), Place(0).adjusted(-8, -8, 8, 8), bleu) > 300, attenteMs);
}

RAMELIER_TEST_MAIN(QGuiApplication, TestLecteurEcran)
#include "tst_lecteur_ecran.moc"
