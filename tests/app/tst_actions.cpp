#include "fenetre.h"

#include <QAction>
#include <QMenu>
#include <QMenuBar>
#include <QStatusBar>
#include <QToolBar>
#include <QWhatsThis>

using MembreMenu = QMenu *RamelierApp::*;
Q_DECLARE_METATYPE(MembreMenu)

/// The actions of the window, the menus and tool bar that hold them, and what they call.
class TestActions : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init() { EffaceReglages(); }
    void uneActionPorteSesTextes_data();
    void uneActionPorteSesTextes();
    void uneActionPorteSonIcone_data();
    void uneActionPorteSonIcone();
    void lesActionsSuiventLeurOrdre();
    void lActionQuEstCeOuvreLAideDuToolkit();
    void uneActionABasculeEstCochee_data();
    void uneActionABasculeEstCochee();
    void unMenuMontreSesEntrees_data();
    void unMenuMontreSesEntrees();
    void laBarreDeMenusSuitLOrdre();
    void unMenuSurgissantMontreSesEntrees_data();
    void unMenuSurgissantMontreSesEntrees();
    void laBarreDOutilsMontreSesEntrees();
    void declencherAppelleLaCommande_data();
    void declencherAppelleLaCommande();
    void leRaccourciDeclenche_data();
    void leRaccourciDeclenche();
};

void TestActions::uneActionPorteSesTextes_data()
{
    using App = RamelierApp;
    QTest::addColumn<MembreAction>("membre");
    QTest::addColumn<QString>("texte");
    QTest::addColumn<QString>("raccourci");
    QTest::addColumn<QString>("status");
    QTest::addColumn<QString>("quEstCe");
    const auto ligne = [](const char *nom, MembreAction membre, const char *texte, const char *raccourci,
                          const char *status, const char *quEstCe) {
        QTest::newRow(nom) << membre << QString::fromUtf8(texte) << QString::fromLatin1(raccourci)
                           << QString::fromUtf8(status) << QString::fromUtf8(quEstCe);
    };
    ligne("actFileNew", &App::actFileNew, "&Nouveau", "Ctrl+N", "Création d'un nouvel arbre généalogique",
          "Nouveau\n\nCréation d'un nouvel arbre généalogique");
    ligne("actFileOpen", &App::actFileOpen, "&Ouvrir", "Ctrl+O",
          "Ouvre le fichier d'un arbre existant (extension .xrlg ou .rlg)",
          "Ouvrir\n\nOuvre le fichier d'un arbre existant (extension .xrlg ou .rlg)");
    ligne("actFileSave", &App::actFileSave, "&Sauver", "Ctrl+S", "Enregistre l'arbre affiché (dans un fichier .xrlg)",
          "Sauver\n\nEnregistre l'arbre affiché (dans un fichier .xrlg)");
    ligne("actFileSaveAs", &App::actFileSaveAs, "Sau&ver sous...", "",
          "Enregistre l'arbre affiché dans un autre fichier .xrlg",
          "Sauver sous\n\nEnregistre l'arbre affiché dans un autre fichier .xrlg");
    ligne("actFilePrint", &App::actFilePrint, "&Imprimer...", "Ctrl+P", "Imprime l'arbre affiché",
          "Imprimer\n\nImprime l'arbre affiché");
    ligne("actFileQuit", &App::actFileQuit, "&Quitter", "Ctrl+Q", "Quitte l'application",
          "Quitter\n\nQuitte l'application");
    ligne("actAnnuler", &App::actAnnuler, "&Annuler", "", "Annule l'opération d'édition précédente",
          "Annuler\n\nAnnule l'opération d'édition précédente");
    ligne("actModifier", &App::actModifier, "&Modifier la personne sélectionnée", "",
          "Modifier la personne sélectionnée", "Modifier...\n\nModifier la personne sélectionnée");
    ligne("actSuppPers", &App::actSuppPers, "S&upprimer la personne sélectionnée", "",
          "Supprimer la personne sélectionnée",
          "Supprimer la personne sélectionnée\n\nSupprimer la personne sélectionnée");
    ligne("actAjouterPere", &App::actAjouterPere, "Ajouter le père", "", "Ajouter le père de la personne sélectionnée",
          "Ajouter le père\n\nAjouter le père de la personne sélectionnée");
    ligne("actAjouterMere", &App::actAjouterMere, "Ajouter la mère", "", "Ajouter la mère de la personne sélectionnée",
          "Ajouter la mère\n\nAjouter la mère de la personne sélectionnée");
    ligne("actEditFicheHTML", &App::actEditFicheHTML, "Editer la fiche associée", "",
          "Editer la fiche (HTML ou TXT) associée à la personne sélectionnée (si elle existe)",
          "Editer la fiche associée\n\nEditer la fiche (HTML ou TXT) associée à la personne sélectionnée\n"
          "pour la modifier (si elle fiche existe) ou la créer");
    ligne("actEditPdG", &App::actEditPdG, "Edition &Page de garde...", "",
          "Edite la page de garde : titre de l'arbre, auteur, date de création ou modification",
          "Edition Page de garde\n\nEdite la page de garde : titre de l'arbre, auteur, date de création ou "
          "modification");
    ligne("actFormatsDessins", &App::actFormatsDessins, "Options de dessin... ", "",
          "Définition des dimensions et de l'épaisseur des traits (pour l'arbre ouvert)",
          "Options de dessin\n\nDéfinir l'épaisseur des traits,\nles dimensions des cadres, \n"
          "les distances entre cadres\n(pour l'arbre ouvert)");
    ligne("actPoliceCaract", &App::actPoliceCaract, "Caractères...", "",
          "Définition des polices de caractères (pour l'arbre ouvert)",
          "Caractères\n\nDéfinir les polices et les tailles des caractères\n(pour l'arbre ouvert)");
    ligne("actPreferences", &App::actPreferences, "Préférences...", "", "Préférences pour polices et dessins",
          "Préférences\n\nDéfinir les polices et les tailles des caractères\net les formats de dessins par défaut");
    ligne("actModeTravail", &App::actModeTravail, "Mode Edition/modification", "F8",
          "Passer du mode Consultation au mode Edition et vice-versa",
          "Mode...\n\nPasser du mode Consultation au mode Edition et vice-versa");
    ligne("actAffFicheHTML", &App::actAffFicheHTML, "Afficher la fiche associée", "",
          "Afficher la fiche (HTML ou TXT) associée à la personne sélectionnée (si elle existe)",
          "Afficher la fiche associée\n\nAfficher la fiche (HTML ou TXT) associée à la personne sélectionnée\n"
          "(si cette fiche existe)");
    ligne("actViewToolBar", &App::actViewToolBar, "Barre d'outils", "", "Active/désactive la barre d'outils",
          "Barre d'outils\n\nActive/désactive la barre d'outils");
    ligne("actViewStatusBar", &App::actViewStatusBar, "Barre de &statut", "", "Active/désactive la barre de statut",
          "Barre de statut\n\nActive/désactive la barre de statut");
    ligne("actModeAffichage", &App::actModeAffichage, "Affichage complet de l'arbre", "",
          "Passer du mode Affichage complet au mode Affichage réduit et vice-versa",
          "Passer du mode Affichage complet au mode Affichage réduit et vice-versa");
    ligne("actAssembleArbres", &App::actAssembleArbres, "Assembler deux arbres...", "",
          "Créer un arbre à partir des arbres du père et de la mère",
          "Assembler deux arbres\n\nPermet de créer automatiquement un arbre à partir des arbres du père et de la "
          "mère");
    ligne("actImporteGED", &App::actImporteGED, "Importer un fichier GEDCOM...", "",
          "Importer un arbre au format GEDCOM",
          "Importer un fichier GEDCOM\n\nPermet de créer un arbre à partir d'un fichier GEDCOM");
    ligne("actExporteGED", &App::actExporteGED, "Exporter vers un fichier GEDCOM...", "",
          "Exporter l'arbre vers un fichier au format GEDCOM",
          "Exporter vers un fichier GEDCOM\n\nPermet d'exporter l'arbre vers un fichier GEDCOM");
    ligne("actAide", &App::actAide, "Manuel d'aide d'Arbre généalogique", "F1", "Aide de l'application",
          "Aide\n\nManuel de l'application Arbre généalogique");
    ligne("actHelpAbout", &App::actHelpAbout, "A propos d'Arbre généalogique", "", "A propos de l'application",
          "A propos\n\nA propos de l'application");
    ligne("actHelpAboutQt", &App::actHelpAboutQt, "A propos de Qt", "",
          "A propos de l'outil de développement de l'application",
          "A propos de Qt\n\nA propos de l'outil de développement l'application");
}

void TestActions::uneActionPorteSesTextes()
{
    QFETCH(const MembreAction, membre);
    const Fenetre fenetre;
    const QAction *action = fenetre.*membre;
    QTEST(action->text(), "texte");
    QTEST(action->shortcut().toString(QKeySequence::PortableText), "raccourci");
    QTEST(action->statusTip(), "status");
    QTEST(action->whatsThis(), "quEstCe");
}

void TestActions::uneActionPorteSonIcone_data()
{
    QTest::addColumn<MembreAction>("membre");
    QTest::addColumn<QString>("icone");
    const QHash<QString, QString> icones{
        {QStringLiteral("actFileNew"), QStringLiteral(":/images/filenew.png")},
        {QStringLiteral("actFileOpen"), QStringLiteral(":/images/fileopen.png")},
        {QStringLiteral("actFileSave"), QStringLiteral(":/images/filesave.png")},
        {QStringLiteral("actFilePrint"), QStringLiteral(":/images/printer.png")},
        {QStringLiteral("actModeTravail"), QStringLiteral(":/images/consedit.png")},
        {QStringLiteral("actWhatsThis"), QStringLiteral(":/images/questceque.png")},
    };
    for (const ActionNommee &action : ActionsNommees())
        QTest::newRow(qPrintable(action.nom)) << action.membre << icones.value(action.nom);
}

void TestActions::uneActionPorteSonIcone()
{
    QFETCH(const MembreAction, membre);
    QFETCH(const QString, icone);
    const Fenetre fenetre;
    const QIcon vue = (fenetre.*membre)->icon();
    QCOMPARE(vue.isNull(), icone.isEmpty());
    if (icone.isEmpty())
        return;
    const QImage image(icone);
    QCOMPARE(image.size(), QSize(16, 16));
    QCOMPARE(vue.pixmap(QSize(16, 16), 1.0).toImage().convertToFormat(QImage::Format_ARGB32_Premultiplied),
             image.convertToFormat(QImage::Format_ARGB32_Premultiplied));
}

void TestActions::lesActionsSuiventLeurOrdre()
{
    const Fenetre fenetre;
    const QString toutes =
        QStringLiteral("actFileNew actFileOpen actFileSave actFileSaveAs actFilePrint actFileQuit actAnnuler "
                       "actModifier actSuppPers actAjouterPere actAjouterMere actEditFicheHTML actEditPdG "
                       "actFormatsDessins actPoliceCaract actPreferences actModeTravail actAffFicheHTML "
                       "actViewToolBar actViewStatusBar actModeAffichage actAssembleArbres actImporteGED "
                       "actExporteGED actAide actHelpAbout actHelpAboutQt actWhatsThis");
    QCOMPARE(NomsDe(fenetre, fenetre.findChildren<QAction *>(QString(), Qt::FindDirectChildrenOnly)), toutes);
}

void TestActions::lActionQuEstCeOuvreLAideDuToolkit()
{
    const Fenetre fenetre;
    QCOMPARE(fenetre.actWhatsThis->shortcut().toString(QKeySequence::PortableText), QStringLiteral("Shift+F1"));
    fenetre.actWhatsThis->trigger();
    QVERIFY(QWhatsThis::inWhatsThisMode());
    QWhatsThis::leaveWhatsThisMode();
}

void TestActions::uneActionABasculeEstCochee_data()
{
    QTest::addColumn<MembreAction>("membre");
    QTest::addColumn<bool>("aBascule");
    const QStringList aBascule{QStringLiteral("actViewToolBar"), QStringLiteral("actViewStatusBar"),
                               QStringLiteral("actModeAffichage")};
    for (const ActionNommee &action : ActionsNommees()) {
        if (action.membre != &RamelierApp::actWhatsThis)
            QTest::newRow(qPrintable(action.nom)) << action.membre << aBascule.contains(action.nom);
    }
}

void TestActions::uneActionABasculeEstCochee()
{
    QFETCH(const MembreAction, membre);
    const Fenetre fenetre;
    QTEST((fenetre.*membre)->isCheckable(), "aBascule");
    QTEST((fenetre.*membre)->isChecked(), "aBascule");
}

void TestActions::unMenuMontreSesEntrees_data()
{
    using App = RamelierApp;
    QTest::addColumn<MembreMenu>("membre");
    QTest::addColumn<QString>("titre");
    QTest::addColumn<QString>("entrees");
    const auto ligne = [](const char *nom, MembreMenu membre, const char *titre, const char *entrees) {
        QTest::newRow(nom) << membre << QString::fromUtf8(titre) << QString::fromLatin1(entrees);
    };
    ligne("menuFichier", &App::menuFichier, "&Fichier",
          "actFileNew actFileOpen actFileSave actFileSaveAs | actFilePrint | actFileQuit");
    ligne("menuEdition", &App::menuEdition, "&Edition",
          "actAnnuler | actModifier actAjouterPere actAjouterMere | actSuppPers | actEditFicheHTML | actEditPdG");
    ligne("menuFormat", &App::menuFormat, "Forma&t", "actFormatsDessins actPoliceCaract | actPreferences");
    ligne("menuAffichage", &App::menuAffichage, "Affichage",
          "actModeTravail | actAffFicheHTML | actViewToolBar actViewStatusBar | actModeAffichage");
    ligne("menuOutils", &App::menuOutils, "Outils", "actAssembleArbres | actExporteGED actImporteGED");
    ligne("menuAide", &App::menuAide, "&Aide", "actAide | | actHelpAbout actHelpAboutQt");
}

void TestActions::unMenuMontreSesEntrees()
{
    QFETCH(const MembreMenu, membre);
    const Fenetre fenetre;
    QTEST((fenetre.*membre)->title(), "titre");
    QTEST(NomsDe(fenetre, (fenetre.*membre)->actions()), "entrees");
}

void TestActions::laBarreDeMenusSuitLOrdre()
{
    const Fenetre fenetre;
    const QList<QAction *> attendues{fenetre.menuFichier->menuAction(), fenetre.menuEdition->menuAction(),
                                     fenetre.menuFormat->menuAction(),  fenetre.menuAffichage->menuAction(),
                                     fenetre.menuOutils->menuAction(),  fenetre.menuAide->menuAction()};
    QCOMPARE(fenetre.menuBar()->actions(), attendues);
}

void TestActions::unMenuSurgissantMontreSesEntrees_data()
{
    QTest::addColumn<MembreMenu>("membre");
    QTest::addColumn<QString>("entrees");
    QTest::newRow("popupGeneral") << &RamelierApp::popupGeneral
                                  << QStringLiteral("actModeTravail | actEditPdG | actFormatsDessins actPoliceCaract "
                                                    "| actAide");
    QTest::newRow("popupPersonne")
        << &RamelierApp::popupPersonne
        << QStringLiteral("actAnnuler | actModifier actAjouterPere actAjouterMere | actSuppPers | actAffFicheHTML "
                          "actEditFicheHTML | actAide");
}

void TestActions::unMenuSurgissantMontreSesEntrees()
{
    QFETCH(const MembreMenu, membre);
    const Fenetre fenetre;
    QCOMPARE((fenetre.*membre)->title(), QString());
    QTEST(NomsDe(fenetre, (fenetre.*membre)->actions()), "entrees");
}

void TestActions::laBarreDOutilsMontreSesEntrees()
{
    const Fenetre fenetre;
    QCOMPARE(fenetre.findChildren<QToolBar *>(), QList<QToolBar *>{fenetre.barreOutils});
    QCOMPARE(fenetre.barreOutils->windowTitle(), QStringLiteral("Barre d'outils"));
    QCOMPARE(fenetre.barreOutils->iconSize(), QSize(16, 16));
    QVERIFY(fenetre.barreOutils->isVisible());
    QCOMPARE(NomsDe(fenetre, fenetre.barreOutils->actions()),
             QStringLiteral("actFileNew actFileOpen actFileSave actFilePrint actModeTravail | actWhatsThis |"));
}

void TestActions::declencherAppelleLaCommande_data()
{
    using App = RamelierApp;
    QTest::addColumn<MembreAction>("membre");
    QTest::addColumn<QStringList>("journal");
    const auto ligne = [](const char *nom, MembreAction membre, const QStringList &journal) {
        QTest::newRow(nom) << membre << journal;
    };
    ligne("actFileOpen", &App::actFileOpen,
          {QStringLiteral("Ouverture du fichier..."), QStringLiteral("[Ouvrir]"),
           QStringLiteral("Echec à l'ouverture du fichier (2000 ms)")});
    ligne("actFileSave", &App::actFileSave, {QStringLiteral("Enregistrement du fichier..."), QStringLiteral("Prêt.")});
    ligne("actFileSaveAs", &App::actFileSaveAs,
          {QStringLiteral("Enregistrement du fichier sous un nouveau nom..."), QStringLiteral("[Enregistrer sous]"),
           QStringLiteral("Echec à l'enregistrement du fichier (2000 ms)"), QStringLiteral("Prêt.")});
    ligne("actFilePrint", &App::actFilePrint,
          {QStringLiteral("Impression..."), QStringLiteral("[Choix du mode d'impression]"), QStringLiteral("Prêt.")});
    ligne("actFileQuit", &App::actFileQuit, {QStringLiteral("Sortie de l'application...")});
    ligne("actViewToolBar", &App::actViewToolBar, {QStringLiteral("Toggle toolbar..."), QStringLiteral("Prêt.")});
    ligne("actViewStatusBar", &App::actViewStatusBar, {QStringLiteral("Toggle statusbar..."), QStringLiteral("Prêt.")});
    ligne("actModeAffichage", &App::actModeAffichage, {QStringLiteral("Mode Affichage..."), QStringLiteral("Prêt.")});
    ligne("actModeTravail", &App::actModeTravail, {QString(), QStringLiteral("Prêt")});
}

void TestActions::declencherAppelleLaCommande()
{
    QFETCH(const MembreAction, membre);
    QFETCH(const QStringList, journal);
    const Dossier dossier;
    Fenetre fenetre(
        {dossier.Ecrit(QStringLiteral("a.xrlg"), ArbreEcrit(QStringLiteral("T"), {{1, QStringLiteral("A")}}))});
    Scenario scenario;
    if (journal.contains(QStringLiteral("[Choix du mode d'impression]")))
        scenario.Repond(QStringLiteral("Annuler"));
    else if (journal.size() > 2)
        Renonce(scenario);
    const Journal vu(fenetre);
    if (journal.first().isEmpty())
        fenetre.statusBar()->clearMessage();
    // In the event loop, because leaving the application ends it.
    QTimer::singleShot(0, &fenetre, [&fenetre, membre] {
        (fenetre.*membre)->trigger();
        QCoreApplication::exit(0);
    });
    QCoreApplication::exec();
    QCOMPARE(scenario.Ecarts(), QStringList());
    QCOMPARE(vu.Lignes(), journal);
}

void TestActions::leRaccourciDeclenche_data()
{
    QTest::addColumn<int>("touche");
    QTest::addColumn<int>("modificateur");
    QTest::addColumn<QString>("status");
    QTest::newRow("Ctrl+S") << int(Qt::Key_S) << int(Qt::ControlModifier)
                            << QStringLiteral("Enregistrement du fichier...");
    QTest::newRow("F8") << int(Qt::Key_F8) << int(Qt::NoModifier) << QStringLiteral("Prêt");
}

void TestActions::leRaccourciDeclenche()
{
    QFETCH(const int, touche);
    QFETCH(const int, modificateur);
    QFETCH(const QString, status);
    const Dossier dossier;
    Fenetre fenetre(
        {dossier.Ecrit(QStringLiteral("a.xrlg"), ArbreEcrit(QStringLiteral("T"), {{1, QStringLiteral("A")}}))});
    QVERIFY(QTest::qWaitForWindowActive(&fenetre));
    fenetre.statusBar()->clearMessage();
    const Journal vu(fenetre);
    QTest::keyClick(&fenetre, Qt::Key(touche), Qt::KeyboardModifiers(modificateur));
    QVERIFY(!vu.Lignes().isEmpty());
    QCOMPARE(vu.Lignes().first(), status);
}

RAMELIER_TEST_BUREAU_MAIN(TestActions)
#include "tst_actions.moc"
