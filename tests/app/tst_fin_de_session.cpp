#include "arbre.h"
#include "copiedesecours.h"
#include "fenetre.h"
#include "findesession.h"
#include "lytextedit.h"
#include "monqtextedit.h"
#include "ramelierdoc.h"

#include <QAction>
#include <QPointer>
#include <QTimer>

/// The desktop's session ends while work is unsaved.
class TestFinDeSession : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup();
    void sansTravailRienNEstDemande();
    void laReponseDecide_data();
    void laReponseDecide();
    void uneFicheModifieeDemandeAussi_data();
    void uneFicheModifieeDemandeAussi();
    void resterPourLArbreNeDemandeRienAuxFiches();
    void lEditeurSeulDemandeAussi_data();
    void lEditeurSeulDemandeAussi();
    void sansQuestionPossibleLeTravailEstMisEnSurete();
    void laFermetureNeDemandePasDeuxFois_data();
    void laFermetureNeDemandePasDeuxFois();
    void unGesteDeLUtilisateurRendLaQuestion_data();
    void unGesteDeLUtilisateurRendLaQuestion();

private:
    /// What a QSessionManager is asked, in order.
    struct Session
    {
        bool questions = true;
        QStringList appels = {};
        bool allowsInteraction()
        {
            appels += "demande";
            return questions;
        }
        void cancel() { appels += "annule"; }
        void release() { appels += "rend"; }
    };
    /// The end of the session as the main function answers it.
    QStringList Finit(bool questions = true);
    LyTextEdit &EditeEtModifie();
    [[nodiscard]] QByteArray Fiche() const { return dossier->Lit("a.html"); }

    std::unique_ptr<Dossier> dossier;
    QPointer<Fenetre> fenetre;
    QList<QPointer<LyTextEdit>> seuls;
};

namespace {

const QStringList accepte{"demande", "rend"};
const QStringList refuse{"demande", "annule"};

void TouteReponse()
{
    QTest::addColumn<QString>("reponse");
    QTest::addColumn<QStringList>("appels");
    QTest::addColumn<bool>("enregistre");
    QTest::newRow("Oui") << "Oui" << accepte << true;
    QTest::newRow("Non") << "Non" << accepte << false;
    QTest::newRow("Annuler") << "Annuler" << refuse << false;
}

}  // namespace

void TestFinDeSession::init()
{
    EffaceReglages();
    FinDeSession::NoteLAccord(false);
    dossier = std::make_unique<Dossier>();
    dossier->Ecrit("a.html", "<p>un</p>");
    const QString arbre =
        dossier->Ecrit("arbre.xrlg", ArbreEcrit("Titre", {{.numero = 1, .nom = "MARTIN", .fiche = "a.html"}}));
    fenetre = new Fenetre({arbre});
    fenetre->actModeTravail->trigger();
}

void TestFinDeSession::cleanup()
{
    FinDeSession::NoteLAccord(true);
    delete fenetre;
    for (const QPointer<LyTextEdit> &seul : std::as_const(seuls))
        delete seul;
    seuls.clear();
    FinDeSession::NoteLAccord(false);
}

QStringList TestFinDeSession::Finit(bool questions)
{
    Session session{.questions = questions};
    FinDeSession::Repond(session,
                         {.peutFinir = [this] { return fenetre->PeutFinirLaSession(); },
                          .metEnSurete = [this] { fenetre->secours->EcritEtGarde(); }});
    return session.appels;
}

LyTextEdit &TestFinDeSession::EditeEtModifie()
{
    Clique(*fenetre, 1);
    fenetre->actEditFicheHTML->trigger();
    fenetre->listeEditeurs->texte->insertPlainText("deux ");
    return *fenetre->listeEditeurs;
}

void TestFinDeSession::sansTravailRienNEstDemande()
{
    const Scenario scenario;
    QCOMPARE(Finit(), accepte);
    QCOMPARE(scenario.Boites().size(), 0);
    QVERIFY(FinDeSession::EstAcceptee());
}

void TestFinDeSession::laReponseDecide_data()
{
    TouteReponse();
}

void TestFinDeSession::laReponseDecide()
{
    QFETCH(const QString, reponse);
    QFETCH(const bool, enregistre);
    const QByteArray avant = dossier->Lit("arbre.xrlg");
    fenetre->doc->modifie = true;
    fenetre->doc->arbre->infoArbre->titrearbre = "Autre";
    Scenario scenario;
    scenario.Repond(reponse);
    const QStringList appels = Finit();
    QTEST(appels, "appels");
    QCOMPARE(scenario.Ecarts(), QStringList());
    const BoiteVue &boite = scenario.Boites().constFirst();
    QCOMPARE(boite.titre, QStringLiteral("Quitter..."));
    QCOMPARE(boite.texte,
             QStringLiteral("L'arbre affiché a été modifié \n enregistrer les modifications avant de quitter ?"));
    QCOMPARE(boite.boutons, (QStringList{"Oui", "Non", "Annuler"}));
    QCOMPARE(boite.parent, fenetre);
    QCOMPARE(dossier->Lit("arbre.xrlg") != avant, enregistre);
    QCOMPARE(fenetre->doc->isModified(), !enregistre);
    QCOMPARE(FinDeSession::EstAcceptee(), reponse != "Annuler");
    QVERIFY(fenetre->isVisible());
}

void TestFinDeSession::uneFicheModifieeDemandeAussi_data()
{
    TouteReponse();
}

void TestFinDeSession::uneFicheModifieeDemandeAussi()
{
    QFETCH(const QString, reponse);
    QFETCH(const bool, enregistre);
    const LyTextEdit &editeur = EditeEtModifie();
    Scenario scenario;
    scenario.Repond(reponse);
    const QStringList appels = Finit();
    QTEST(appels, "appels");
    QCOMPARE(scenario.Ecarts(), QStringList());
    const BoiteVue &boite = scenario.Boites().constFirst();
    QCOMPARE(boite.titre, QStringLiteral("Fermer..."));
    QCOMPARE(boite.texte,
             QStringLiteral("La fiche éditée a été modifiée \n enregistrer les modifications avant de fermer ?"));
    QCOMPARE(boite.parent, &editeur);
    QCOMPARE(Fiche(), enregistre ? QByteArray("deux <p>un</p>") : QByteArray("<p>un</p>"));
    QVERIFY(editeur.isVisible());
}

void TestFinDeSession::resterPourLArbreNeDemandeRienAuxFiches()
{
    EditeEtModifie();
    fenetre->doc->modifie = true;
    Scenario scenario;
    scenario.Repond("Annuler");
    QCOMPARE(Finit(), refuse);
    QCOMPARE(scenario.Ecarts(), QStringList());
    QCOMPARE(scenario.Boites().size(), 1);

    // Both are asked, the tree first.
    scenario.Repond("Non").Repond("Annuler");
    QCOMPARE(Finit(), refuse);
    QCOMPARE(scenario.Ecarts(), QStringList());
    QVERIFY(!FinDeSession::EstAcceptee());
}

void TestFinDeSession::lEditeurSeulDemandeAussi_data()
{
    TouteReponse();
}

void TestFinDeSession::lEditeurSeulDemandeAussi()
{
    QFETCH(const QString, reponse);
    QFETCH(const bool, enregistre);
    for (const char *nom : {"a.html", "b.html"}) {
        const QString chemin = dossier->Ecrit(nom, "<p>un</p>");
        seuls += new LyTextEdit("LyEditHtml", chemin, true, "/usr/bin/lyedithtml", "1.0");
    }
    // The second one has nothing to save.
    seuls.constFirst()->texte->insertPlainText("deux ");
    Session session;
    Scenario scenario;
    scenario.Repond(reponse);
    FinDeSession::Repond(session, {.peutFinir = &LyTextEdit::TousPeuventFermer});
    QTEST(session.appels, "appels");
    QCOMPARE(scenario.Ecarts(), QStringList());
    QCOMPARE(scenario.Boites().constFirst().parent, seuls.constFirst());
    QCOMPARE(Fiche(), enregistre ? QByteArray("deux <p>un</p>") : QByteArray("<p>un</p>"));
}

void TestFinDeSession::sansQuestionPossibleLeTravailEstMisEnSurete()
{
    fenetre->doc->modifie = true;
    const Scenario scenario;
    QCOMPARE(Finit(false), QStringList{"demande"});
    QCOMPARE(scenario.Boites().size(), 0);
    const QString copie = fenetre->secours->Chemin();
    QVERIFY(QFileInfo(copie).isFile());
    // The window closes without a question, and the copy stays.
    QVERIFY(fenetre->close());
    delete fenetre;
    QCOMPARE(scenario.Boites().size(), 0);
    QVERIFY(QFile::remove(copie));
}

void TestFinDeSession::laFermetureNeDemandePasDeuxFois_data()
{
    QTest::addColumn<bool>("parQuitter");
    QTest::newRow("fermeture") << false;
    QTest::newRow("Quitter") << true;
}

void TestFinDeSession::laFermetureNeDemandePasDeuxFois()
{
    QFETCH(const bool, parQuitter);
    const QPointer<LyTextEdit> editeur = &EditeEtModifie();
    fenetre->doc->modifie = true;
    Scenario scenario;
    scenario.Repond("Non").Repond("Non");
    QCOMPARE(Finit(), accepte);
    if (parQuitter) {
        // The command leaves the event loop.
        QTimer::singleShot(0, fenetre, &RamelierApp::slotFileQuit);
        QCOMPARE(QCoreApplication::exec(), 0);
        delete fenetre;
    } else {
        QVERIFY(fenetre->close());
        QVERIFY(!editeur || !editeur->isVisible());
    }
    QCOMPARE(scenario.Ecarts(), QStringList());
    QCOMPARE(scenario.Boites().size(), 2);
}

void TestFinDeSession::unGesteDeLUtilisateurRendLaQuestion_data()
{
    QTest::addColumn<bool>("clavier");
    QTest::newRow("touche") << true;
    QTest::newRow("clic") << false;
}

void TestFinDeSession::unGesteDeLUtilisateurRendLaQuestion()
{
    // Another program kept the session going; the user works on.
    QFETCH(const bool, clavier);
    fenetre->doc->modifie = true;
    Scenario scenario;
    scenario.Repond("Non");
    QCOMPARE(Finit(), accepte);
    QVERIFY(FinDeSession::EstAcceptee());
    if (clavier)
        QTest::keyClick(fenetre, Qt::Key_F12);
    else
        CliqueDansLeVide(*fenetre);
    QVERIFY(!FinDeSession::EstAcceptee());
    scenario.Repond("Annuler");
    QVERIFY(!fenetre->close());
    QCOMPARE(scenario.Ecarts(), QStringList());
    QCOMPARE(scenario.Boites().size(), 2);
}

RAMELIER_TEST_BUREAU_MAIN(TestFinDeSession)
#include "tst_fin_de_session.moc"
