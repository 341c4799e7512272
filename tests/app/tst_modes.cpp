#include "fenetre.h"

#include "arbre.h"
#include "arbres.h"
#include "personne.h"
#include "ramelierdoc.h"

#include <QAction>
#include <QLabel>
#include <QStatusBar>

/// Which commands are enabled, step by step, and the working mode.
class TestModes : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void init() { EffaceReglages(); }
    void lesCommandesSuiventLesEvenements_data();
    void lesCommandesSuiventLesEvenements();
    void leModeChangeSesTextes();
    void sansArbreSeulsLesTextesDuModeChangent();
    void unArbreOuvertRevientEnConsultation();
    void deselectionnerOublieLAnnulation_data();
    void deselectionnerOublieLAnnulation();
    void selectionnerEnEditionOublieLAnnulation();
    void selectionnerEnConsultationNeChangeQueLaFiche_data();
    void selectionnerEnConsultationNeChangeQueLaFiche();
    void unAutreEtatDeSelectionNeChangeRien_data();
    void unAutreEtatDeSelectionNeChangeRien();
    void autoriserLAnnulationLaRendPossible();

private:
    /// A number clicks on that person's box, 0 on none.
    enum Evenement { Ouvre = -1, Mode = -2, Annulable = -3, Remet = -4, ClicAilleurs = 0 };
    static void Joue(Fenetre &fenetre, const QString &fichier, int evenement);

    Dossier dossier;
    QString arbre;
};

void TestModes::initTestCase()
{
    // Person 1 has both parents and no sheet; 2 a father and a sheet; 3 a mother; 4 a sheet; 7 nothing.
    arbre = dossier.Ecrit(QStringLiteral("famille.xrlg"),
                          ArbreEcrit(QStringLiteral("Famille"),
                                     {{.numero = 1, .nom = QStringLiteral("UN")},
                                      {.numero = 2, .nom = QStringLiteral("DEUX"), .fiche = QStringLiteral("d.html")},
                                      {.numero = 3, .nom = QStringLiteral("TROIS")},
                                      {.numero = 4, .nom = QStringLiteral("QUATRE"), .fiche = QStringLiteral("q.txt")},
                                      {.numero = 7, .nom = QStringLiteral("SEPT")}}));
}

void TestModes::Joue(Fenetre &fenetre, const QString &fichier, int evenement)
{
    Scenario scenario;
    switch (evenement) {
    case Ouvre:
        Choisit(scenario, fichier);
        fenetre.slotFileOpen();
        break;
    case Mode:
        fenetre.slotModeTravail();
        break;
    case Annulable:
        Q_EMIT fenetre.doc->autoriseAnnulation();
        break;
    case Remet:
        fenetre.resetMenus();
        break;
    case ClicAilleurs:
        CliqueDansLeVide(fenetre);
        break;
    default:
        Clique(fenetre, quint64(evenement));
        QCOMPARE(fenetre.doc->arbre->selection, Trouve(*fenetre.doc->arbre, quint64(evenement)));
    }
    QCOMPARE(scenario.Ecarts(), QStringList());
}

void TestModes::lesCommandesSuiventLesEvenements_data()
{
    QTest::addColumn<QList<int>>("evenements");
    QTest::addColumn<QString>("activees");
    const QString rien;
    const QString arbreOuvert = QStringLiteral("actFileSave actFileSaveAs actFilePrint actModeTravail actExporteGED "
                                               "actPoliceCaract actFormatsDessins ");
    const QString arbreEdite = arbreOuvert + QStringLiteral("actEditPdG ");
    const QString personneEditee = arbreEdite + QStringLiteral("actModifier actSuppPers actEditFicheHTML ");
    const QString fiche = QStringLiteral("actAffFicheHTML");
    const QString pere = QStringLiteral("actAjouterPere");
    const QString mere = QStringLiteral("actAjouterMere");
    const QString annuler = QStringLiteral(" actAnnuler");
    const QString lesDeux = QStringLiteral("actAjouterPere actAjouterMere");
    const auto ligne = [](const char *nom, const QList<int> &evenements, const QString &activees) {
        QTest::newRow(nom) << evenements << activees;
    };
    ligne("au départ", {}, rien);
    ligne("édition sans arbre", {Mode}, rien);
    ligne("édition puis consultation sans arbre", {Mode, Mode}, rien);
    ligne("ouvert", {Ouvre}, arbreOuvert);
    ligne("ouvert en édition", {Mode, Ouvre}, arbreOuvert);
    ligne("remis à zéro", {Ouvre, Remet}, rien);
    ligne("tout remis à zéro", {Ouvre, Mode, 4, Annulable, Remet}, rien);

    ligne("consultation, sans fiche", {Ouvre, 1}, arbreOuvert);
    ligne("consultation, avec fiche", {Ouvre, 2}, arbreOuvert + fiche);
    ligne("consultation, de l'une à l'autre fiche", {Ouvre, 2, 4}, arbreOuvert + fiche);
    ligne("consultation, de la fiche à sans fiche", {Ouvre, 2, 7}, arbreOuvert);
    ligne("consultation, désélectionnée", {Ouvre, 2, ClicAilleurs}, arbreOuvert);

    ligne("édition, rien de sélectionné", {Ouvre, Mode}, arbreEdite);
    ligne("édition, les deux parents connus", {Ouvre, Mode, 1}, personneEditee);
    ligne("édition, père connu", {Ouvre, Mode, 2}, personneEditee + mere);
    ligne("édition, mère connue", {Ouvre, Mode, 3}, personneEditee + pere);
    ligne("édition, aucun parent", {Ouvre, Mode, 4}, personneEditee + lesDeux);
    ligne("édition, d'aucun parent à deux", {Ouvre, Mode, 7, 1}, personneEditee);
    ligne("édition, désélectionnée", {Ouvre, Mode, 7, ClicAilleurs}, arbreEdite);

    ligne("sélection, puis édition, deux parents", {Ouvre, 1, Mode}, personneEditee);
    ligne("sélection, puis édition, père", {Ouvre, 2, Mode}, personneEditee + mere);
    ligne("sélection, puis édition, mère", {Ouvre, 3, Mode}, personneEditee + pere);
    ligne("sélection, puis édition, aucun", {Ouvre, 4, Mode}, personneEditee + lesDeux);

    ligne("retour en consultation, rien", {Ouvre, Mode, Mode}, arbreOuvert);
    ligne("retour en consultation, fiche", {Ouvre, Mode, 2, Mode}, arbreOuvert + fiche);
    ligne("retour en consultation, sans fiche", {Ouvre, Mode, 3, Mode}, arbreOuvert);
    ligne("retour en édition", {Ouvre, Mode, 2, Mode, Mode}, personneEditee + mere);

    ligne("annulation possible", {Ouvre, Mode, 7, Annulable}, personneEditee + lesDeux + annuler);
    ligne("annulation perdue en sélectionnant", {Ouvre, Mode, 7, Annulable, 4}, personneEditee + lesDeux);
    ligne("annulation perdue en désélectionnant", {Ouvre, Mode, 7, Annulable, ClicAilleurs}, arbreEdite);
    ligne("annulation perdue en consultant", {Ouvre, Mode, 7, Annulable, Mode}, arbreOuvert);
    ligne("annulation perdue en retournant éditer", {Ouvre, Mode, 7, Annulable, Mode, Mode}, personneEditee + lesDeux);
    ligne("un autre arbre ouvert en édition", {Ouvre, Mode, 4, Annulable, Ouvre}, arbreOuvert);
    ligne("un autre arbre ouvert en consultation", {Ouvre, 4, Ouvre}, arbreOuvert);
}

void TestModes::lesCommandesSuiventLesEvenements()
{
    QFETCH(const QList<int>, evenements);
    QFETCH(const QString, activees);
    Fenetre fenetre;
    for (const int evenement : evenements)
        Joue(fenetre, arbre, evenement);
    QStringList attendues = activees.split(u' ', Qt::SkipEmptyParts)
        + QStringList{
            QStringLiteral("actFileNew"),       QStringLiteral("actFileOpen"),       QStringLiteral("actFileQuit"),
            QStringLiteral("actPreferences"),   QStringLiteral("actViewToolBar"),    QStringLiteral("actViewStatusBar"),
            QStringLiteral("actModeAffichage"), QStringLiteral("actAssembleArbres"), QStringLiteral("actImporteGED"),
            QStringLiteral("actAide"),          QStringLiteral("actHelpAbout"),      QStringLiteral("actHelpAboutQt"),
            QStringLiteral("actWhatsThis")};
    attendues.sort();
    QCOMPARE(ActionsActives(fenetre), attendues);
}

void TestModes::leModeChangeSesTextes()
{
    Fenetre fenetre({arbre});
    QCOMPARE(fenetre.actModeTravail->text(), QStringLiteral("Mode édition/modification"));
    for (int fois = 0; fois < 2; ++fois) {
        fenetre.statusBar()->clearMessage();
        fenetre.slotModeTravail();
        QCOMPARE(fenetre.modeConsultation, false);
        QCOMPARE(fenetre.actModeTravail->text(), QStringLiteral("Consultation"));
        QCOMPARE(fenetre.labelMode->text(), QStringLiteral(" Edition "));
        QCOMPARE(StatutDe(fenetre), QStringLiteral("Prêt"));
        fenetre.statusBar()->clearMessage();
        fenetre.slotModeTravail();
        QCOMPARE(fenetre.modeConsultation, true);
        QCOMPARE(fenetre.actModeTravail->text(), QStringLiteral("Mode édition/modification"));
        QCOMPARE(fenetre.labelMode->text(), QStringLiteral(" Consultation "));
        QCOMPARE(StatutDe(fenetre), QStringLiteral("Prêt"));
    }
}

void TestModes::sansArbreSeulsLesTextesDuModeChangent()
{
    Fenetre fenetre;
    QCOMPARE(fenetre.actModeTravail->text(), QStringLiteral("Mode Edition/modification"));
    const QStringList avant = ActionsActives(fenetre);
    fenetre.slotModeTravail();
    QCOMPARE(fenetre.actModeTravail->text(), QStringLiteral("Consultation"));
    QCOMPARE(fenetre.labelMode->text(), QStringLiteral(" Edition "));
    QCOMPARE(ActionsActives(fenetre), avant);
    fenetre.slotModeTravail();
    QCOMPARE(fenetre.actModeTravail->text(), QStringLiteral("Mode édition/modification"));
    QCOMPARE(fenetre.labelMode->text(), QStringLiteral(" Consultation "));
    QCOMPARE(ActionsActives(fenetre), avant);
}

void TestModes::unArbreOuvertRevientEnConsultation()
{
    Fenetre fenetre;
    fenetre.slotModeTravail();
    Scenario scenario;
    Choisit(scenario, arbre);
    fenetre.slotFileOpen();
    QCOMPARE(scenario.Ecarts(), QStringList());
    QCOMPARE(fenetre.modeConsultation, true);
    QCOMPARE(fenetre.labelMode->text(), QStringLiteral(" Consultation "));
}

void TestModes::deselectionnerOublieLAnnulation_data()
{
    QTest::addColumn<bool>("consultation");
    QTest::newRow("consultation") << true;
    QTest::newRow("édition") << false;
}

void TestModes::deselectionnerOublieLAnnulation()
{
    QFETCH(const bool, consultation);
    Fenetre fenetre({arbre});
    if (!consultation)
        fenetre.slotModeTravail();
    fenetre.actAnnuler->setText(QStringLiteral("&Annuler annuler"));
    fenetre.modifAnnulee = true;
    for (const MembreAction membre :
         {&RamelierApp::actModifier, &RamelierApp::actSuppPers, &RamelierApp::actAjouterPere,
          &RamelierApp::actAjouterMere, &RamelierApp::actAffFicheHTML, &RamelierApp::actEditFicheHTML,
          &RamelierApp::actAnnuler})
        (fenetre.*membre)->setEnabled(true);
    fenetre.slotPersonneSelectionnee(0);
    QCOMPARE(fenetre.actAnnuler->text(), QStringLiteral("&Annuler"));
    QCOMPARE(fenetre.modifAnnulee, false);
    const QString actives = ActionsActives(fenetre).join(u' ');
    for (const char *nom : {"actModifier", "actSuppPers", "actAjouterPere", "actAjouterMere", "actAffFicheHTML",
                            "actEditFicheHTML", "actAnnuler"})
        QVERIFY2(!actives.contains(QLatin1StringView(nom)), nom);
    QCOMPARE(fenetre.actEditPdG->isEnabled(), !consultation);
}

void TestModes::selectionnerEnEditionOublieLAnnulation()
{
    Fenetre fenetre({arbre});
    fenetre.slotModeTravail();
    Clique(fenetre, 2);
    fenetre.actAnnuler->setText(QStringLiteral("&Annuler annuler"));
    fenetre.actAnnuler->setEnabled(true);
    fenetre.modifAnnulee = true;
    Clique(fenetre, 3);
    QCOMPARE(fenetre.actAnnuler->text(), QStringLiteral("&Annuler"));
    QCOMPARE(fenetre.actAnnuler->isEnabled(), false);
    QCOMPARE(fenetre.modifAnnulee, false);
}

void TestModes::selectionnerEnConsultationNeChangeQueLaFiche_data()
{
    QTest::addColumn<int>("numero");
    QTest::addColumn<bool>("fiche");
    QTest::newRow("avec fiche") << 2 << true;
    QTest::newRow("sans fiche") << 3 << false;
}

void TestModes::selectionnerEnConsultationNeChangeQueLaFiche()
{
    QFETCH(const int, numero);
    Fenetre fenetre({arbre});
    fenetre.actAnnuler->setText(QStringLiteral("&Annuler annuler"));
    fenetre.actAnnuler->setEnabled(true);
    fenetre.actAffFicheHTML->setEnabled(true);
    fenetre.modifAnnulee = true;
    const QStringList attendues = ActionsActives(fenetre);
    Clique(fenetre, quint64(numero));
    QTEST(fenetre.actAffFicheHTML->isEnabled(), "fiche");
    fenetre.actAffFicheHTML->setEnabled(true);
    QCOMPARE(ActionsActives(fenetre), attendues);
    QCOMPARE(fenetre.actAnnuler->text(), QStringLiteral("&Annuler annuler"));
    QCOMPARE(fenetre.modifAnnulee, true);
}

void TestModes::unAutreEtatDeSelectionNeChangeRien_data()
{
    QTest::addColumn<int>("etat");
    QTest::addColumn<bool>("edition");
    for (const int etat : {-1, 2, 3}) {
        for (const bool edition : {false, true})
            QTest::addRow("%d %s", etat, edition ? "édition" : "consultation") << etat << edition;
    }
}

void TestModes::unAutreEtatDeSelectionNeChangeRien()
{
    QFETCH(const int, etat);
    QFETCH(const bool, edition);
    Fenetre fenetre({arbre});
    if (edition)
        fenetre.slotModeTravail();
    Clique(fenetre, 2);
    fenetre.slotAutoriseAnnulation();
    fenetre.actAnnuler->setText(QStringLiteral("&Annuler annuler"));
    fenetre.modifAnnulee = true;
    const QStringList avant = ActionsActives(fenetre);
    fenetre.slotPersonneSelectionnee(etat);
    QCOMPARE(ActionsActives(fenetre), avant);
    QCOMPARE(fenetre.actAnnuler->text(), QStringLiteral("&Annuler annuler"));
    QCOMPARE(fenetre.modifAnnulee, true);
}

void TestModes::autoriserLAnnulationLaRendPossible()
{
    Fenetre fenetre({arbre});
    fenetre.modifAnnulee = true;
    fenetre.actAnnuler->setText(QStringLiteral("&Annuler annuler"));
    fenetre.slotAutoriseAnnulation();
    QCOMPARE(fenetre.actAnnuler->isEnabled(), true);
    QCOMPARE(fenetre.modifAnnulee, false);
    // What can be undone is a new change, whatever was undone before.
    QCOMPARE(fenetre.actAnnuler->text(), QStringLiteral("&Annuler"));
}

RAMELIER_TEST_BUREAU_MAIN(TestModes)
#include "tst_modes.moc"
