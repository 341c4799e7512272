#include "arbre.h"
#include "fenetre.h"
#include "infopersonne.h"
#include "personne.h"
#include "ramelierdoc.h"

#include <QAction>
#include <QCloseEvent>
#include <QSettings>
#include <QSignalSpy>
#include <QTimer>

#include <functional>

/// Leaving by the quit command and by closing the window: what happens in which order, and the end of the event loop.
class TestFermer : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup();
    void sansTravailOnPartAussitot_data();
    void sansTravailOnPartAussitot();
    void laReponseDecide_data();
    void laReponseDecide();
    void ouiSansNomPartMemeQuandOnRenonce_data();
    void ouiSansNomPartMemeQuandOnRenonce();
    void ouiQuiNePeutSauverPartQuandMeme_data();
    void ouiQuiNePeutSauverPartQuandMeme();
    void fermerAnnonceLaFermetureApresLesReglages();
    void lEvenementEstAccepteOuIgnore_data();
    void lEvenementEstAccepteOuIgnore();
    void queryExitRepond_data();
    void queryExitRepond();
    void partirApresAvoirRenonceUneFois();

private:
    enum Sortie { ParQuitter, ParFermeture };
    static void LesDeuxSorties();
    void Modifie();
    /// Leaves in the event loop. True when the loop ended by itself with status 0.
    bool Part(int sortie);
    [[nodiscard]] static QStringList Reglages()
    {
        return QSettings(QStringLiteral("ProgrammesLY"), QStringLiteral("ramelier")).allKeys();
    }

    std::unique_ptr<Dossier> dossier;
    std::unique_ptr<Fenetre> fenetre;
};

void TestFermer::init()
{
    EffaceReglages();
    dossier = std::make_unique<Dossier>();
    fenetre = std::make_unique<Fenetre>(QStringList{dossier->Ecrit("a.xrlg", ArbreEcrit("T", {{1, "MARTIN"}}))});
}

void TestFermer::cleanup()
{
    fenetre.reset();
    dossier.reset();
}

void TestFermer::LesDeuxSorties()
{
    QTest::addColumn<int>("sortie");
    QTest::newRow("quitter") << int(ParQuitter);
    QTest::newRow("fermer") << int(ParFermeture);
}

void TestFermer::Modifie()
{
    fenetre->doc->arbre->premiere->info->nom = QStringLiteral("LEBRUN");
    fenetre->doc->modifie = true;
}

bool TestFermer::Part(int sortie)
{
    constexpr int resteOuvert = 77;
    QTimer::singleShot(0, fenetre.get(), [this, sortie] {
        if (sortie == ParQuitter)
            fenetre->actFileQuit->trigger();
        else
            fenetre->close();
        // A loop that was asked to end does not come to this any more.
        QTimer::singleShot(50, fenetre.get(), [] { QCoreApplication::exit(resteOuvert); });
    });
    return QCoreApplication::exec() == 0;
}

void TestFermer::sansTravailOnPartAussitot_data()
{
    LesDeuxSorties();
}

void TestFermer::sansTravailOnPartAussitot()
{
    QFETCH(const int, sortie);
    fenetre->resize(510, 320);
    fenetre->move(15, 25);
    const QSignalSpy fermeture(fenetre.get(), &RamelierApp::fermetureRamelier);
    const Scenario scenario;
    const Journal journal(*fenetre);
    QVERIFY(Part(sortie));
    QCOMPARE(scenario.Ecarts(), QStringList());
    QCOMPARE(journal.Lignes(), QStringList{"Sortie de l'application..."});
    QCOMPARE(fermeture.count(), sortie == ParFermeture ? 1 : 0);
    QCOMPARE(fenetre->isVisible(), sortie == ParQuitter);
    const QSettings reglages(QStringLiteral("ProgrammesLY"), QStringLiteral("ramelier"));
    QCOMPARE(reglages.value("size"), QVariant(QSize(510, 320)));
    QCOMPARE(reglages.value("pos"), QVariant(QPoint(15, 25)));
    QCOMPARE(reglages.value("lastdir").toString(), dossier->Chemin());
}

void TestFermer::laReponseDecide_data()
{
    QTest::addColumn<int>("sortie");
    QTest::addColumn<QString>("reponse");
    QTest::addColumn<QStringList>("suite");
    QTest::addColumn<bool>("part");
    QTest::addColumn<QString>("nomEcrit");
    const QStringList sauve{"Enregistrement du fichier...", "Prêt."};
    const QStringList reste{"Prêt."};
    for (const Sortie sortie : {ParQuitter, ParFermeture}) {
        const char *nom = sortie == ParQuitter ? "quitter" : "fermer";
        QTest::addRow("%s, Oui", nom) << int(sortie) << "Oui" << sauve << true << "LEBRUN";
        QTest::addRow("%s, Non", nom) << int(sortie) << "Non" << QStringList() << true << "MARTIN";
        QTest::addRow("%s, Annuler", nom) << int(sortie) << "Annuler" << reste << false << "MARTIN";
        QTest::addRow("%s, touche Echap", nom) << int(sortie) << "" << reste << false << "MARTIN";
    }
}

void TestFermer::laReponseDecide()
{
    QFETCH(const int, sortie);
    QFETCH(const QString, reponse);
    QFETCH(const QStringList, suite);
    QFETCH(const bool, part);
    QFETCH(const QString, nomEcrit);
    Modifie();
    const QSignalSpy fermeture(fenetre.get(), &RamelierApp::fermetureRamelier);
    const Journal journal(*fenetre);
    Scenario scenario;
    if (reponse.isEmpty())
        scenario.Echappe();
    else
        scenario.Repond(reponse);
    QCOMPARE(Part(sortie), part);
    // One question, although closing the last window asks the program to quit.
    QCOMPARE(scenario.Ecarts(), QStringList());
    QCOMPARE(journal.Lignes(), (QStringList{"Sortie de l'application...", "[Quitter...]"} + suite));
    QVERIFY(dossier->Lit("a.xrlg").contains("<nom>" + nomEcrit.toUtf8() + "</nom>"));
    QCOMPARE(Reglages().size(), part ? 3 : 0);
    QCOMPARE(fermeture.count(), part && sortie == ParFermeture ? 1 : 0);
    QCOMPARE(fenetre->isVisible(), !part || sortie == ParQuitter);
    if (!part)
        QCOMPARE(StatutDe(*fenetre), "Prêt.");
}

void TestFermer::ouiSansNomPartMemeQuandOnRenonce_data()
{
    LesDeuxSorties();
}

void TestFermer::ouiSansNomPartMemeQuandOnRenonce()
{
    QFETCH(const int, sortie);
    Modifie();
    fenetre->doc->nomFichier.clear();
    Scenario scenario;
    scenario.Repond("Oui");
    Renonce(scenario);
    QVERIFY(Part(sortie));
    QCOMPARE(scenario.Ecarts(), QStringList());
    QCOMPARE(Reglages().size(), 3);
}

void TestFermer::ouiQuiNePeutSauverPartQuandMeme_data()
{
    LesDeuxSorties();
}

void TestFermer::ouiQuiNePeutSauverPartQuandMeme()
{
    QFETCH(const int, sortie);
    Modifie();
    fenetre->doc->nomFichier = dossier->Chemin("rien/a.xrlg");
    const Journal journal(*fenetre);
    Scenario scenario;
    scenario.Repond("Oui").Repond("OK");
    QVERIFY(Part(sortie));
    QCOMPARE(scenario.Ecarts(), QStringList());
    QCOMPARE(journal.Lignes(),
             (QStringList{"Sortie de l'application...", "[Quitter...]", "Enregistrement du fichier...",
                          "[Fichier XRLG]", "Prêt."}));
}

void TestFermer::fermerAnnonceLaFermetureApresLesReglages()
{
    qsizetype cles = -1;
    connect(fenetre.get(), &RamelierApp::fermetureRamelier, this, [&cles] { cles = Reglages().size(); });
    QVERIFY(fenetre->close());
    QCOMPARE(cles, 3);
}

void TestFermer::lEvenementEstAccepteOuIgnore_data()
{
    QTest::addColumn<QString>("reponse");
    QTest::addColumn<bool>("accepte");
    QTest::newRow("Non") << "Non" << true;
    QTest::newRow("Annuler") << "Annuler" << false;
}

void TestFermer::lEvenementEstAccepteOuIgnore()
{
    QFETCH(const QString, reponse);
    Modifie();
    Scenario scenario;
    scenario.Repond(reponse);
    QCloseEvent evenement;
    // Whatever it says at first.
    QTest::currentDataTag() == QByteArray("Non") ? evenement.ignore() : evenement.accept();
    QCoreApplication::sendEvent(fenetre.get(), &evenement);
    QCOMPARE(scenario.Ecarts(), QStringList());
    QTEST(evenement.isAccepted(), "accepte");
}

void TestFermer::queryExitRepond_data()
{
    QTest::addColumn<QString>("reponse");
    QTest::addColumn<bool>("part");
    QTest::newRow("Oui") << "Oui" << true;
    QTest::newRow("Non") << "Non" << true;
    QTest::newRow("Annuler") << "Annuler" << false;
}

void TestFermer::queryExitRepond()
{
    QFETCH(const QString, reponse);
    Modifie();
    Scenario scenario;
    scenario.Repond(reponse);
    QTEST(fenetre->queryExit(), "part");
    QCOMPARE(scenario.Ecarts(), QStringList());
    // Asking alone leaves nothing behind.
    QCOMPARE(Reglages(), QStringList());
}

void TestFermer::partirApresAvoirRenonceUneFois()
{
    Modifie();
    Scenario scenario;
    scenario.Repond("Annuler").Repond("Non");
    QVERIFY(!Part(ParFermeture));
    QVERIFY(Part(ParFermeture));
    QCOMPARE(scenario.Ecarts(), QStringList());
}

RAMELIER_TEST_BUREAU_MAIN(TestFermer)
#include "tst_fermer.moc"
