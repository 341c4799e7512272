#include "fenetre.h"
#include "lytextbrowser.h"
#include "lytextedit.h"
#include "monqtextedit.h"
#include "ramelierdoc.h"

#include <QAction>
#include <QPointer>
#include <QTimer>

#include <functional>

/// Leaving the program while sheets are open, by the window manager and by its own command, as its main function does it.
class TestQuitterEditeurs : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup();
    void toutSeFerme_data();
    void toutSeFerme();
    void unTexteModifieDemandeUneFois_data();
    void unTexteModifieDemandeUneFois();
    void annulerGardeLEditeurJusquASaFermeture_data();
    void annulerGardeLEditeurJusquASaFermeture();
    void annulerDeuxFoisGardeDeuxFois_data();
    void annulerDeuxFoisGardeDeuxFois();
    void chaqueEditeurDemandeDepuisLaTete();
    void chaqueEditeurDemandeALaFermeture();
    void lesSuivantsAttendentCeluiQuiReste();
    void unSuivantPeutEtreFermeAvantSonTour();
    void resterDansLeProgrammeNeDemandeRienAuxEditeurs_data();
    void resterDansLeProgrammeNeDemandeRienAuxEditeurs();

private:
    static void Sorties();
    /// The program on a tree of persons 1, 2, 3... with the sheets a.html, b.html..., in editing mode.
    void Demarre(int fiches);
    QPointer<LyTextEdit> Edite(quint64 numero) const;
    QPointer<LyTextEdit> EditeEtModifie(quint64 numero) const;
    /// From here on as in the program's main function; \a sortie happens in its event loop. The exit status; -1 when the
    /// program had to be stopped.
    int Execute(void (*sortie)(RamelierApp &));
    /// The user does \a action as soon as \a possible, in whatever event loop runs then.
    void Des(std::function<bool()> possible, std::function<void()> action);

    std::unique_ptr<Dossier> dossier;
    QPointer<RamelierApp> fenetre;
    QList<QTimer *> attentes;
    bool arrete = false;
};

namespace {

using SortieDuProgramme = void (*)(RamelierApp &);

void Ferme(RamelierApp &fenetre)
{
    fenetre.close();
}

void Quitte(RamelierApp &fenetre)
{
    fenetre.actFileQuit->trigger();
}

template <typename T> QList<T *> Fenetres()
{
    QList<T *> trouvees;
    const auto candidates = QApplication::topLevelWidgets();
    for (QWidget *candidate : candidates) {
        if (auto *trouvee = qobject_cast<T *>(candidate))
            trouvees += trouvee;
    }
    return trouvees;
}

/// The windows that asked, in order. Only to be compared: they may be gone.
QList<QWidget *> Demandeurs(const Scenario &scenario)
{
    QList<QWidget *> parents;
    for (const BoiteVue &boite : scenario.Boites())
        parents += boite.parent;
    return parents;
}

}  // namespace

Q_DECLARE_METATYPE(SortieDuProgramme)

void TestQuitterEditeurs::init()
{
    EffaceReglages();
    dossier = std::make_unique<Dossier>();
    arrete = false;
}

void TestQuitterEditeurs::cleanup()
{
    qDeleteAll(attentes);
    attentes.clear();
    qDeleteAll(Fenetres<LyTextBrowser>());
    qDeleteAll(Fenetres<LyTextEdit>());
    delete fenetre;
    dossier.reset();
}

void TestQuitterEditeurs::Sorties()
{
    QTest::addColumn<SortieDuProgramme>("sortie");
    QTest::newRow("fermeture de la fenêtre") << &Ferme;
    QTest::newRow("commande Quitter") << &Quitte;
}

void TestQuitterEditeurs::Demarre(int fiches)
{
    QList<PersonneEcrite> personnes;
    for (int i = 0; i < fiches; ++i) {
        const QString fiche = QString(QChar(u'a' + i)) + ".html";
        dossier->Ecrit(fiche, "texte");
        personnes += PersonneEcrite{static_cast<quint64>(i) + 1, "MARTIN", "Jean", fiche};
    }
    fenetre = new Fenetre({dossier->Ecrit("a.xrlg", ArbreEcrit("A", personnes))});
    fenetre->actModeTravail->trigger();
}

QPointer<LyTextEdit> TestQuitterEditeurs::Edite(quint64 numero) const
{
    Clique(*fenetre, numero);
    fenetre->actEditFicheHTML->trigger();
    return fenetre->listeEditeurs;
}

QPointer<LyTextEdit> TestQuitterEditeurs::EditeEtModifie(quint64 numero) const
{
    QPointer<LyTextEdit> editeur = Edite(numero);
    QTest::keyClicks(editeur->texte, "plus de ");
    return editeur;
}

void TestQuitterEditeurs::Des(std::function<bool()> possible, std::function<void()> action)
{
    auto *attente = new QTimer;
    attentes += attente;
    connect(attente, &QTimer::timeout, attente, [attente, possible, action] {
        if (QApplication::activeModalWidget() || !possible())
            return;
        attente->stop();
        // From the event loop: a box that opens would hold this timer.
        QMetaObject::invokeMethod(attente, action, Qt::QueuedConnection);
    });
    attente->start(5);
}

int TestQuitterEditeurs::Execute(void (*sortie)(RamelierApp &))
{
    constexpr int patienceMs = 20000;
    QTimer garde;
    connect(&garde, &QTimer::timeout, this, [this] {
        arrete = true;
        QCoreApplication::exit(-1);
    });
    garde.start(patienceMs);
    QTimer::singleShot(0, fenetre, [this, sortie] { sortie(*fenetre); });
    const int resultat = QApplication::exec();
    if (resultat == 0)
        delete fenetre;
    return arrete ? -1 : resultat;
}

void TestQuitterEditeurs::toutSeFerme_data()
{
    Sorties();
}

void TestQuitterEditeurs::toutSeFerme()
{
    QFETCH(const SortieDuProgramme, sortie);
    Demarre(2);
    const QPointer<LyTextEdit> a = Edite(1);
    const QPointer<LyTextEdit> b = Edite(2);
    a->actAppelleLyTextBrowser->trigger();
    b->actAide->trigger();
    fenetre->slotAffFicheHTML();
    fenetre->actAide->trigger();
    QCOMPARE(Fenetres<LyTextBrowser>().size(), 4);
    const Scenario scenario;
    QCOMPARE(Execute(sortie), 0);
    QCOMPARE(scenario.Ecarts(), QStringList());
    QVERIFY(!fenetre);
    QVERIFY(!a);
    QVERIFY(!b);
    QTRY_VERIFY(Fenetres<LyTextBrowser>().isEmpty());
}

void TestQuitterEditeurs::unTexteModifieDemandeUneFois_data()
{
    QTest::addColumn<SortieDuProgramme>("sortie");
    QTest::addColumn<QString>("reponse");
    QTest::addColumn<QByteArray>("contenu");
    for (const auto &[nom, sortie] :
         {std::pair(QString("fermeture"), &Ferme), std::pair(QString("Quitter"), &Quitte)}) {
        QTest::newRow(qPrintable(nom + ", Oui")) << sortie << "Oui" << QByteArray("plus de texte");
        QTest::newRow(qPrintable(nom + ", Non")) << sortie << "Non" << QByteArray("texte");
    }
}

void TestQuitterEditeurs::unTexteModifieDemandeUneFois()
{
    QFETCH(const SortieDuProgramme, sortie);
    QFETCH(const QString, reponse);
    Demarre(2);
    const QPointer<LyTextEdit> inchange = Edite(1);
    const QPointer<LyTextEdit> modifie = EditeEtModifie(2);
    modifie->actAppelleLyTextBrowser->trigger();
    const QList<QWidget *> demandeur{modifie};
    Scenario scenario;
    scenario.Repond(reponse);
    QCOMPARE(Execute(sortie), 0);
    QCOMPARE(scenario.Ecarts(), QStringList());
    QCOMPARE(Demandeurs(scenario), demandeur);
    QCOMPARE(scenario.Boites().constFirst().titre, "Fermer...");
    QTEST(dossier->Lit("b.html"), "contenu");
    QVERIFY(!fenetre);
    QVERIFY(!inchange);
    QVERIFY(!modifie);
    QTRY_VERIFY(Fenetres<LyTextBrowser>().isEmpty());
}

void TestQuitterEditeurs::annulerGardeLEditeurJusquASaFermeture_data()
{
    Sorties();
}

void TestQuitterEditeurs::annulerGardeLEditeurJusquASaFermeture()
{
    QFETCH(const SortieDuProgramme, sortie);
    Demarre(1);
    const QPointer<LyTextEdit> editeur = EditeEtModifie(1);
    QString garde;
    bool fenetreVisible = true;
    Des([this, editeur] { return editeur && editeur->isVisible() && (!fenetre || !fenetre->isVisible()); },
        [&, editeur] {
            garde = editeur->texte->toPlainText();
            fenetreVisible = fenetre && fenetre->isVisible();
            // Still a whole editor.
            QTest::keyClicks(editeur->texte, "encore ");
            editeur->actFileSave->trigger();
            editeur->actFileQuit->trigger();
        });
    Scenario scenario;
    scenario.Repond("Annuler");
    QCOMPARE(Execute(sortie), 0);
    QCOMPARE(scenario.Ecarts(), QStringList());
    QCOMPARE(garde, "plus de texte");
    QVERIFY(!fenetreVisible);
    QCOMPARE(dossier->Lit("a.html"), "plus de encore texte");
    QVERIFY(!fenetre);
    QVERIFY(!editeur);
}

void TestQuitterEditeurs::annulerDeuxFoisGardeDeuxFois_data()
{
    Sorties();
}

void TestQuitterEditeurs::annulerDeuxFoisGardeDeuxFois()
{
    QFETCH(const SortieDuProgramme, sortie);
    Demarre(1);
    const QPointer<LyTextEdit> editeur = EditeEtModifie(1);
    Scenario scenario;
    scenario.Repond("Annuler").Echappe().Repond("Non");
    QStringList vus;
    const auto restee = [this, editeur, &scenario](int questions) {
        return [this, editeur, &scenario, questions] {
            return scenario.Boites().size() == questions && editeur && editeur->isVisible()
                && (!fenetre || !fenetre->isVisible());
        };
    };
    const auto ferme = [editeur, &vus] {
        vus += editeur->texte->toPlainText();
        editeur->close();
    };
    Des(restee(1), ferme);
    Des(restee(2), ferme);
    QCOMPARE(Execute(sortie), 0);
    QCOMPARE(scenario.Ecarts(), QStringList());
    QCOMPARE(vus, (QStringList{"plus de texte", "plus de texte"}));
    QCOMPARE(dossier->Lit("a.html"), "texte");
    QVERIFY(!fenetre);
    QVERIFY(!editeur);
}

void TestQuitterEditeurs::chaqueEditeurDemandeDepuisLaTete()
{
    Demarre(3);
    const QPointer<LyTextEdit> a = EditeEtModifie(1);
    const QPointer<LyTextEdit> b = EditeEtModifie(2);
    const QPointer<LyTextEdit> c = EditeEtModifie(3);
    const QList<QWidget *> depuisLaTete{c, b, a};
    Scenario scenario;
    scenario.Repond("Oui").Repond("Non").Repond("Oui");
    QCOMPARE(Execute(&Quitte), 0);
    QCOMPARE(scenario.Ecarts(), QStringList());
    QCOMPARE(Demandeurs(scenario), depuisLaTete);
    QCOMPARE(dossier->Lit("c.html"), "plus de texte");
    QCOMPARE(dossier->Lit("b.html"), "texte");
    QCOMPARE(dossier->Lit("a.html"), "plus de texte");
    QVERIFY(!fenetre && !a && !b && !c);
}

void TestQuitterEditeurs::chaqueEditeurDemandeALaFermeture()
{
    Demarre(3);
    const QPointer<LyTextEdit> a = EditeEtModifie(1);
    const QPointer<LyTextEdit> b = EditeEtModifie(2);
    const QPointer<LyTextEdit> c = EditeEtModifie(3);
    QList<QWidget *> tous{a, b, c};
    Scenario scenario;
    scenario.Repond("Oui").Repond("Oui").Repond("Oui");
    QCOMPARE(Execute(&Ferme), 0);
    QCOMPARE(scenario.Ecarts(), QStringList());
    QList<QWidget *> demandeurs = Demandeurs(scenario);
    std::sort(tous.begin(), tous.end());
    std::sort(demandeurs.begin(), demandeurs.end());
    QCOMPARE(demandeurs, tous);
    for (const char *fiche : {"a.html", "b.html", "c.html"})
        QCOMPARE(dossier->Lit(fiche), "plus de texte");
    QVERIFY(!fenetre && !a && !b && !c);
}

void TestQuitterEditeurs::lesSuivantsAttendentCeluiQuiReste()
{
    Demarre(3);
    const QPointer<LyTextEdit> a = EditeEtModifie(1);
    const QPointer<LyTextEdit> b = EditeEtModifie(2);
    const QPointer<LyTextEdit> c = EditeEtModifie(3);
    const QList<QWidget *> attendus{c, b, b, a};
    Scenario scenario;
    scenario.Repond("Non").Repond("Annuler").Repond("Non").Repond("Oui");
    bool aAttend = false;
    bool cFerme = false;
    Des([&scenario] { return scenario.Boites().size() == 2; },
        [&, a, b, c] {
            aAttend = a && a->isVisible() && a->texte->toPlainText() == "plus de texte";
            cFerme = !c;
            b->close();
        });
    QCOMPARE(Execute(&Quitte), 0);
    QCOMPARE(scenario.Ecarts(), QStringList());
    QVERIFY(aAttend);
    QVERIFY(cFerme);
    QCOMPARE(Demandeurs(scenario), attendus);
    QCOMPARE(dossier->Lit("a.html"), "plus de texte");
    QCOMPARE(dossier->Lit("b.html"), "texte");
    QVERIFY(!fenetre && !a && !b && !c);
}

void TestQuitterEditeurs::unSuivantPeutEtreFermeAvantSonTour()
{
    Demarre(2);
    const QPointer<LyTextEdit> a = Edite(1);
    const QPointer<LyTextEdit> b = EditeEtModifie(2);
    Scenario scenario;
    scenario.Repond("Annuler").Repond("Non");
    bool aDetruit = false;
    Des([&scenario] { return scenario.Boites().size() == 1; }, [a] { a->close(); });
    Des([a] { return !a; },
        [&aDetruit, b] {
            aDetruit = b && b->isVisible();
            b->close();
        });
    QCOMPARE(Execute(&Quitte), 0);
    QCOMPARE(scenario.Ecarts(), QStringList());
    QVERIFY(aDetruit);
    QVERIFY(!fenetre && !b);
}

void TestQuitterEditeurs::resterDansLeProgrammeNeDemandeRienAuxEditeurs_data()
{
    Sorties();
}

void TestQuitterEditeurs::resterDansLeProgrammeNeDemandeRienAuxEditeurs()
{
    QFETCH(const SortieDuProgramme, sortie);
    Demarre(1);
    const QPointer<LyTextEdit> editeur = EditeEtModifie(1);
    editeur->actAppelleLyTextBrowser->trigger();
    fenetre->doc->modifie = true;
    Scenario scenario;
    scenario.Repond("Annuler");
    sortie(*fenetre);
    QCOMPARE(scenario.Ecarts(), QStringList());
    QCOMPARE(Demandeurs(scenario), QList<QWidget *>{fenetre});
    QVERIFY(fenetre->isVisible());
    QVERIFY(editeur->isVisible());
    QCOMPARE(Fenetres<LyTextBrowser>().size(), 1);
    QVERIFY(Fenetres<LyTextBrowser>().constFirst()->isVisible());
    QCOMPARE(editeur->texte->toPlainText(), "plus de texte");
    QCOMPARE(fenetre->listeEditeurs, editeur);
}

RAMELIER_TEST_BUREAU_MAIN(TestQuitterEditeurs)
#include "tst_quitter_editeurs.moc"
