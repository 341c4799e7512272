#include "arbremartin.h"
#include "ecran.h"
#include "environnement.h"
#include "gestionnairedesession.h"

#include <QFile>
#include <QGuiApplication>
#include <QProcess>

/// The user of the built programs logs out while work is unsaved.
class TestSessionEcran : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void init();
    void cleanup();
    void laSessionAttendLaReponse_data();
    void laSessionAttendLaReponse();
    void resterGardeLaSession();
    void sansTravailRienNEstDemande();
    void sansQuestionPossibleLeTravailEstMisEnSurete();
    void lEditeurSeulDemandeAussi();
    void sansQuestionPossibleSaFicheAussiEstMiseEnSurete();

private:
    void Demarre(const QString &binaire, const QString &fichier, const QString &titre);
    void ChangeLeTitre(const QString &titre);
    [[nodiscard]] QByteArray Contenu(const QString &nom) const;
    [[nodiscard]] static QStringList Copies();

    std::unique_ptr<GestionnaireDeSession> session;
    QProcess programme;
    std::unique_ptr<QTemporaryDir> dossier;
    QString fenetre;
};

namespace {

constexpr int attenteMs = 20000;

bool Echec()
{
    return QTest::currentTestFailed();
}

}  // namespace

void TestSessionEcran::initTestCase()
{
    QVERIFY(Ecran::PrendClavierFrancophone());
}

void TestSessionEcran::init()
{
    session = std::make_unique<GestionnaireDeSession>();
    QVERIFY(!session->Adresse().isEmpty());
    dossier = std::make_unique<QTemporaryDir>("/tmp/ramelier-essai-XXXXXX");
    QFile arbre(dossier->filePath("martin.xrlg"));
    QVERIFY(arbre.open(QIODevice::WriteOnly));
    arbre.write(arbreMartin);
    QFile fiche(dossier->filePath("fiche.html"));
    QVERIFY(fiche.open(QIODevice::WriteOnly));
    fiche.write("<p>");
    for (const QString &copie : Copies())
        QVERIFY(QFile::remove(copie));
}

void TestSessionEcran::cleanup()
{
    if (programme.state() != QProcess::NotRunning) {
        Ecran::Garde("session-echec");
        programme.kill();
        programme.waitForFinished();
    }
    session.reset();
}

QStringList TestSessionEcran::Copies()
{
    const QDir etats(qEnvironmentVariable("XDG_STATE_HOME") + "/ramelier");
    QStringList chemins;
    for (const QString &nom : etats.entryList({"*.xrlg", "*.html"}, QDir::Files))
        chemins += etats.filePath(nom);
    return chemins;
}

QByteArray TestSessionEcran::Contenu(const QString &nom) const
{
    QFile fichier(dossier->filePath(nom));
    return fichier.open(QIODevice::ReadOnly) ? fichier.readAll() : QByteArray("illisible");
}

void TestSessionEcran::Demarre(const QString &binaire, const QString &fichier, const QString &titre)
{
    QProcessEnvironment environnement = QProcessEnvironment::systemEnvironment();
    environnement.insert("SESSION_MANAGER", session->Adresse());
    programme.setProcessEnvironment(environnement);
    programme.setProgram(binaire);
    programme.setArguments({dossier->filePath(fichier)});
    programme.start();
    QVERIFY(programme.waitForStarted());
    QTRY_VERIFY_WITH_TIMEOUT(session->EstRejoint(), attenteMs);
    fenetre = Ecran::AttendActive(titre);
    QVERIFY(!fenetre.isEmpty());
}

void TestSessionEcran::ChangeLeTitre(const QString &titre)
{
    // In editing mode without a selection the title page is the only entry of the menu that can be chosen.
    Ecran::Touches({"F8", "alt+e", "Return"});
    QVERIFY(!Ecran::AttendActive("^Arbre généalogique - Page de garde$").isEmpty());
    Ecran::Touches({"ctrl+a"});
    Ecran::Tape(titre);
    Ecran::Touches({"Return"});
    QVERIFY(Ecran::EstActive(fenetre));
}

void TestSessionEcran::laSessionAttendLaReponse_data()
{
    QTest::addColumn<QStringList>("touches");
    QTest::addColumn<bool>("enregistre");
    QTest::newRow("Oui") << QStringList{"Return"} << true;
    QTest::newRow("Non") << QStringList{"Tab", "Return"} << false;
}

void TestSessionEcran::laSessionAttendLaReponse()
{
    QFETCH(const QStringList, touches);
    QFETCH(const bool, enregistre);
    Demarre(RAMELIER_PROGRAMME, "martin.xrlg", "^Ramelier 5.1 - ");
    if (!Echec())
        ChangeLeTitre("Autre titre");
    if (Echec())
        return;
    session->FinitLaSession();
    QVERIFY(!Ecran::AttendActive("^Quitter...$").isEmpty());
    // The session waits for as long as it takes.
    QTRY_COMPARE_WITH_TIMEOUT(session->Reponses(), QStringList{"demande"}, attenteMs);
    Ecran::Touches(touches);
    QTRY_COMPARE_WITH_TIMEOUT(session->Reponses(), (QStringList{"demande", "accepte", "pret"}), attenteMs);
    QCOMPARE(Contenu("martin.xrlg").contains("Autre titre"), enregistre);
    QCOMPARE(programme.state(), QProcess::Running);
    // Then it ends, and nothing is asked again.
    session->Termine();
    QVERIFY(programme.waitForFinished(attenteMs));
    QCOMPARE(programme.exitStatus(), QProcess::NormalExit);
    QCOMPARE(Copies(), QStringList());
}

void TestSessionEcran::resterGardeLaSession()
{
    Demarre(RAMELIER_PROGRAMME, "martin.xrlg", "^Ramelier 5.1 - ");
    if (!Echec())
        ChangeLeTitre("Autre titre");
    if (Echec())
        return;
    session->FinitLaSession();
    QVERIFY(!Ecran::AttendActive("^Quitter...$").isEmpty());
    Ecran::Touches({"Escape"});
    QTRY_COMPARE_WITH_TIMEOUT(session->Reponses(), (QStringList{"demande", "refuse", "pret"}), attenteMs);
    session->Continue();
    // The work goes on as before.
    QVERIFY(Ecran::EstActive(fenetre));
    QVERIFY(!Contenu("martin.xrlg").contains("Autre titre"));
    Ecran::Touches({"ctrl+s"});
    QTRY_VERIFY_WITH_TIMEOUT(Contenu("martin.xrlg").contains("Autre titre"), attenteMs);
    Ecran::Touches({"ctrl+q"});
    QVERIFY(programme.waitForFinished(attenteMs));
}

void TestSessionEcran::sansTravailRienNEstDemande()
{
    Demarre(RAMELIER_PROGRAMME, "martin.xrlg", "^Ramelier 5.1 - ");
    if (Echec())
        return;
    session->FinitLaSession();
    QTRY_COMPARE_WITH_TIMEOUT(session->Reponses(), (QStringList{"demande", "accepte", "pret"}), attenteMs);
    session->Termine();
    QVERIFY(programme.waitForFinished(attenteMs));
    QCOMPARE(programme.exitStatus(), QProcess::NormalExit);
}

void TestSessionEcran::sansQuestionPossibleLeTravailEstMisEnSurete()
{
    Demarre(RAMELIER_PROGRAMME, "martin.xrlg", "^Ramelier 5.1 - ");
    if (!Echec())
        ChangeLeTitre("Autre titre");
    if (Echec())
        return;
    session->FinitLaSession(false);
    QTRY_COMPARE_WITH_TIMEOUT(session->Reponses(), QStringList{"pret"}, attenteMs);
    session->Termine();
    QVERIFY(programme.waitForFinished(attenteMs));
    QCOMPARE(programme.exitStatus(), QProcess::NormalExit);
    QVERIFY(!Contenu("martin.xrlg").contains("Autre titre"));
    QCOMPARE(Copies().size(), 1);
    QFile copie(Copies().constFirst());
    QVERIFY(copie.open(QIODevice::ReadOnly));
    QVERIFY(copie.readAll().contains("Autre titre"));
}

void TestSessionEcran::lEditeurSeulDemandeAussi()
{
    Demarre(RAMELIER_EDITEUR, "fiche.html", "^LyEditHtml 1.0 - fiche.html$");
    if (Echec())
        return;
    Ecran::Tape("texte");
    session->FinitLaSession();
    QVERIFY(!Ecran::AttendActive("^Fermer...$").isEmpty());
    Ecran::Touches({"Return"});
    QTRY_COMPARE_WITH_TIMEOUT(session->Reponses(), (QStringList{"demande", "accepte", "pret"}), attenteMs);
    QCOMPARE(Contenu("fiche.html"), QByteArray("texte<p>"));
    session->Termine();
    QVERIFY(programme.waitForFinished(attenteMs));
    QCOMPARE(programme.exitStatus(), QProcess::NormalExit);
}

void TestSessionEcran::sansQuestionPossibleSaFicheAussiEstMiseEnSurete()
{
    Demarre(RAMELIER_EDITEUR, "fiche.html", "^LyEditHtml 1.0 - fiche.html$");
    if (Echec())
        return;
    Ecran::Tape("texte");
    session->FinitLaSession(false);
    QTRY_COMPARE_WITH_TIMEOUT(session->Reponses(), QStringList{"pret"}, attenteMs);
    session->Termine();
    QVERIFY(programme.waitForFinished(attenteMs));
    QCOMPARE(programme.exitStatus(), QProcess::NormalExit);
    QCOMPARE(Contenu("fiche.html"), QByteArray("<p>"));
    QCOMPARE(Copies().size(), 1);
    QFile copie(Copies().constFirst());
    QVERIFY(copie.open(QIODevice::ReadOnly));
    QCOMPARE(copie.readAll(), QByteArray("texte<p>"));
}

RAMELIER_TEST_MAIN(QGuiApplication, TestSessionEcran)
#include "tst_session_ecran.moc"
