#include "bureausombre.h"
#include "editeur.h"

#include <QActionGroup>
#include <QClipboard>
#include <QFontDialog>
#include <QLabel>
#include <QMenu>
#include <QMenuBar>
#include <QMimeData>
#include <QTextBlock>
#include <QTextLayout>
#include <QToolBar>

#include <optional>

/// The window of the editor of sheets: what it offers, what it shows, and what it remembers.
class TestLyTextEdit : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup();
    void lesActionsDesMenus_data();
    void lesActionsDesMenus();
    void lesActionsHtml_data();
    void lesActionsHtml();
    void quitterOuFermer_data();
    void quitterOuFermer();
    void lesActionsAuDepart();
    void lesMenusDansLOrdre_data();
    void lesMenusDansLOrdre();
    void lesBarresDOutils_data();
    void lesBarresDOutils();
    void lesRaccourcisAgissent();

    void lesDossiersDesDeuxModes_data();
    void lesDossiersDesDeuxModes();
    void laFenetreADesLOuverture();
    void leModeSuitLeNom_data();
    void leModeSuitLeNom();
    void unNouveauTexteEstEnHtml_data();
    void unNouveauTexteEstEnHtml();
    void lesReglagesSEcriventALaFermeture();
    void sansReglagesLaTailleEst400();
    void lesReglagesLEmportent();
    void unePlaceHorsDesEcransEstRamenee();

    void lesTroisLabels();
    void pretPendantDeuxSecondes();
    void leLabelDAlignementSuitLeMode_data();
    void leLabelDAlignementSuitLeMode();
    void leLabelDitLesModifications();
    void insertBasculeEtEcraseVraiment();
    void insertAvecUnModificateurNeBasculePas_data();
    void insertAvecUnModificateurNeBasculePas();

    void disableHtmlActiveOuDesactive_data();
    void disableHtmlActiveOuDesactive();
    void lesBasculesCachentEtMontrent_data();
    void lesBasculesCachentEtMontrent();
    void choisirUnePolice();
    void renoncerAUnePolice();
    void aPropos();

    void couperEtCopierSuiventLaSelection();
    void annulerEtRefaireSuiventLaFrappe();
    void collerUnTexteRicheColleDuTexte();
    void leTexteEstColore();
    void unBureauSombreGardeLePapierBlanc_data();
    void unBureauSombreGardeLePapierBlanc();

private:
    std::unique_ptr<Atelier> atelier;
};

namespace {

using Vue = LyTextEdit;

/// In the order of their menu.
const QList<ActionEditeur> actionsHtml{
    &Vue::actCarGras,   &Vue::actCarItalic,   &Vue::actCarSouligne, &Vue::actCarPreformate, &Vue::actGauche,
    &Vue::actCentre,    &Vue::actDroite,      &Vue::actJustifie,    &Vue::actSqueletteHtml, &Vue::actParagraphe,
    &Vue::actAlaLigne,  &Vue::actLigneHoriz,  &Vue::actBlancInsec,  &Vue::actTitre1,        &Vue::actTitre2,
    &Vue::actTitre3,    &Vue::actTitre4,      &Vue::actTitre5,      &Vue::actTitre6,        &Vue::actListeSimple,
    &Vue::actListeOrdo, &Vue::actElemListe,   &Vue::actListeDef,    &Vue::actTermDef,       &Vue::actDefinition,
    &Vue::actTableaux,  &Vue::actLienHypText, &Vue::actNameAncre,   &Vue::actImage};

/// The picture of \a icone; null when it has none.
QImage Image(const QIcon &icone)
{
    return icone.pixmap(22, 22).toImage();
}

/// The texts of a menu with those of its submenus: "A / | / B [ C / D ]".
QString Contenu(const QMenu &menu)
{
    QStringList textes;
    const auto actions = menu.actions();
    for (const QAction *action : actions) {
        textes += action->isSeparator() ? "|" : action->text();
        if (const QMenu *sousMenu = action->menu())
            textes.last() += " [ " + Contenu(*sousMenu) + " ]";
    }
    return textes.join(" / ");
}

/// The name of each format's colour, in the order of the line.
QStringList Couleurs(const QTextBlock &ligne)
{
    QStringList couleurs;
    const auto formats = ligne.layout()->formats();
    for (const QTextLayout::FormatRange &format : formats)
        couleurs += format.format.foreground().color().name();
    return couleurs;
}

/// Every permanent label, from the left.
QStringList Labels(const LyTextEdit &editeur)
{
    QList<QLabel *> labels = editeur.statusBar()->findChildren<QLabel *>();
    std::sort(labels.begin(), labels.end(), [](const QLabel *un, const QLabel *autre) { return un->x() < autre->x(); });
    QStringList textes;
    for (const QLabel *label : labels)
        textes += label->text();
    return textes;
}

QSettings Reglages()
{
    return QSettings(QStringLiteral("ProgrammesLY"), QStringLiteral("ramelieredithtml"));
}

const QString blancs31 = QStringLiteral("                               ");

}  // namespace

void TestLyTextEdit::init()
{
    atelier = std::make_unique<Atelier>();
}

void TestLyTextEdit::cleanup()
{
    atelier.reset();
}

void TestLyTextEdit::lesActionsDesMenus_data()
{
    QTest::addColumn<ActionEditeur>("membre");
    QTest::addColumn<QString>("texte");
    QTest::addColumn<QString>("raccourci");
    QTest::addColumn<QString>("icone");
    QTest::addColumn<QString>("status");
    QTest::addColumn<QString>("quEstCe");
    const auto ligne = [](ActionEditeur membre, const char *texte, const char *raccourci, const char *icone,
                          const char *status, const char *quEstCe) {
        QTest::newRow(texte) << membre << QString::fromUtf8(texte) << QString::fromUtf8(raccourci)
                             << QString::fromUtf8(icone) << QString::fromUtf8(status) << QString::fromUtf8(quEstCe);
    };
    ligne(&Vue::actFileNew, "&Nouveau", "Ctrl+N", ":/images/filenew.png", "Création d'un nouveau texte",
          "Nouveau\n\nCréation d'un nouveau texte");
    ligne(&Vue::actFileOpen, "&Ouvrir", "Ctrl+O", ":/images/fileopen.png", "Ouvre un fichier texte existant",
          "Ouvrir\n\nOuvre un fichier texte existant");
    ligne(&Vue::actFileSave, "&Sauver", "Ctrl+S", ":/images/filesave.png", "Enregistre le texte édité",
          "Sauver\n\nEnregistre le texte édité");
    ligne(&Vue::actFileSaveAs, "Sau&ver sous...", "", "", "Enregistre le texte édité dans un autre fichier",
          "Sauver sous\n\nEnregistre le texte édité dans un autre fichier");
    ligne(&Vue::actEditAnnuler, "Annuler", "Ctrl+Z", ":/images/defaire.png", "Annule les dernières actions d'édition",
          "Annuler\n\nAnnule les dernières actions d'édition");
    ligne(&Vue::actEditRefaire, "Refaire", "Ctrl+Y", ":/images/refaire.png", "Annule la dernière action d'annulation",
          "Refaire\n\nAnnule la dernière action d'annulation");
    ligne(&Vue::actEditCut, "Co&uper", "Ctrl+X", ":/images/couper.png",
          "Coupe le texte sélectionné et le place dans le presse-papier",
          "Couper\n\nCoupe le texte sélectionné et le place dans le presse-papier");
    ligne(&Vue::actEditCopy, "&Copier", "Ctrl+C", ":/images/copier.png",
          "Copie le texte sélectionné et le place dans le presse-papier",
          "Copier\n\nCopie le texte sélectionné et le place dans le presse-papier");
    ligne(&Vue::actEditPaste, "Co&ller", "Ctrl+V", ":/images/coller.png",
          "Insère le contenu du presse-papier à la position actuelle du curseur",
          "Coller\n\nInsère le contenu du presse-papier à la position actuelle du curseur");
    ligne(&Vue::actEditCherche, "Chercher...", "Ctrl+F", ":/images/chercher.png",
          "Recherche d'un mot ou d'une expression", "Chercher\n\nCherche un mot ou une expression");
    ligne(&Vue::actEditReplace, "&Remplacer...", "Ctrl+R", "", "Remplacement de mot(s) par autre(s) mot(s)",
          "Remplacer\n\nRemplace un (ou des) mot(s) par d'autres");
    ligne(&Vue::actEditReplaceEncore, "Répéter chercher/remplacer", "F3", "",
          "Répète l'action de recherche ou de remplacement précédente",
          "Répéter chercher/remplacer\n\nRépète l'action de recherche ou de remplacement précédente");
    ligne(&Vue::actViewToolBar, "Barre d'outils", "", "", "Active/désactive la barre d'outils",
          "Barre d'outils\n\nActive/désactive la barre d'outils");
    ligne(&Vue::actViewToolBarB, "Barre d'outils HTML", "", "", "Active/désactive la barre d'outils HTML",
          "Barre d'outils HTML\n\nActive/désactive la barre d'outils HTML");
    ligne(&Vue::actViewStatusBar, "Barre de &statut", "", "", "Active/désactive la barre de statut",
          "Barre de statut\n\nActive/désactive la barre de statut");
    ligne(&Vue::actAppelleLyTextBrowser, "Voir dans le navigateur", "", ":/images/navigateur.png",
          "Montre le texte dans un navigateur", "Voir dans le navigateur\n\nMontre le texte dans un navigateur");
    ligne(&Vue::actPoliceEditeur, "Police Editeur", "", "", "", "Police Editeur");
    ligne(&Vue::actAide, "Manuel d'aide de l'éditeur Html", "F1", "", "Aide de l'application",
          "Manuel d'aide de l'éditeur Html\n\nAide de l'application");
    ligne(&Vue::actHelpAbout, "A propos de l'éditeur de textes", "", "", "", "A propos de l'éditeur de textes");
    ligne(&Vue::actHelpAboutQt, "A propos de Qt", "", "", "A propos de l'outil de développement de l'application",
          "A propos de Qt\n\nA propos de l'outil de développement de l'application");
}

void TestLyTextEdit::lesActionsDesMenus()
{
    QFETCH(const ActionEditeur, membre);
    QFETCH(const QString, raccourci);
    QFETCH(const QString, icone);
    const QAction &action = *(atelier->OuvreSeul().*membre);
    QTEST(action.text(), "texte");
    QCOMPARE(action.shortcut(), QKeySequence(raccourci, QKeySequence::PortableText));
    QTEST(action.statusTip(), "status");
    QTEST(action.whatsThis(), "quEstCe");
    QCOMPARE(Image(action.icon()), Image(QIcon(icone)));
    QCOMPARE(Image(action.icon()).isNull(), icone.isEmpty());
}

void TestLyTextEdit::lesActionsHtml_data()
{
    QTest::addColumn<ActionEditeur>("membre");
    QTest::addColumn<QString>("texte");
    QTest::addColumn<QString>("raccourci");
    QTest::addColumn<QString>("icone");
    QTest::addColumn<QString>("debutQuEstCe");
    const auto ligne = [](ActionEditeur membre, const char *texte, const char *raccourci, const char *icone,
                          const char *debutQuEstCe) {
        QTest::newRow(texte) << membre << QString::fromUtf8(texte) << QString::fromUtf8(raccourci)
                             << QString::fromUtf8(icone) << QString::fromUtf8(debutQuEstCe);
    };
    ligne(&Vue::actCarGras, "Gras", "Ctrl+Alt+G", ":/images/cargras.png", "Gras\n\n");
    ligne(&Vue::actCarItalic, "Italic", "Ctrl+Alt+I", ":/images/italic.png", "Italic\n\n");
    ligne(&Vue::actCarSouligne, "Souligné", "Ctrl+Alt+U", ":/images/souligne.png", "Souligné\n\n");
    ligne(&Vue::actCarPreformate, "Préformaté", "Ctrl+Alt+F", ":/images/carpre.png", "Préformaté\n\n");
    ligne(&Vue::actParagraphe, "Paragraphe", "Ctrl+Alt+P", ":/images/paragraphe.png", "Paragraphe\n\n");
    ligne(&Vue::actAlaLigne, "Aller à la ligne", "Ctrl+Alt+K", ":/images/alaligne.png", "Aller à la ligne\n\n");
    ligne(&Vue::actLigneHoriz, "Ligne horizontale", "", ":/images/lignehoriz.png", "Ligne horizontale\n\n");
    ligne(&Vue::actBlancInsec, "Espace insécable", "Ctrl+Alt+N", ":/images/blancinsec.png", "Espace insécable\n\n");
    ligne(&Vue::actTitre1, "Titre de niveau 1", "Ctrl+Alt+1", ":/images/h1icon.png", "Titre de niveau 1\n\n");
    ligne(&Vue::actTitre2, "Titre de niveau 2", "Ctrl+Alt+2", ":/images/h2icon.png", "Titre de niveau 2\n\n");
    ligne(&Vue::actTitre3, "Titre de niveau 3", "Ctrl+Alt+3", ":/images/h3icon.png", "Titre de niveau 3\n\n");
    ligne(&Vue::actTitre4, "Titre de niveau 4", "Ctrl+Alt+4", "", "Titre de niveau 4\n\n");
    ligne(&Vue::actTitre5, "Titre de niveau 5", "Ctrl+Alt+5", "", "Titre de niveau 5\n\n");
    ligne(&Vue::actTitre6, "Titre de niveau 6", "Ctrl+Alt+6", "", "Titre de niveau 6\n\n");
    ligne(&Vue::actListeSimple, "Liste simple", "Shift+Alt+L", ":/images/listesimple.png", "Liste simple\n\n");
    ligne(&Vue::actListeOrdo, "Liste ordonnée", "Shift+Alt+O", ":/images/listeordo.png", "Liste ordonnée\n\n");
    ligne(&Vue::actElemListe, "Elément de liste", "Shift+Alt+E", ":/images/elemliste.png", "Elément de liste\n\n");
    ligne(&Vue::actListeDef, "Liste de définitions", "", ":/images/listedef.png", "Liste de définitions\n\n");
    ligne(&Vue::actTermDef, "Terme défini", "", ":/images/termdef.png", "Terme défini\n\n");
    ligne(&Vue::actDefinition, "Définition", "", ":/images/definition.png", "Définition\n\n");
    ligne(&Vue::actLienHypText, "Lien hyper-texte", "", ":/images/lienhyptext.png", "Lien hyper-texte\n\n");
    ligne(&Vue::actNameAncre, "Ancre hyper-texte", "", ":/images/ancre.png", "Ancre hyper-texte\n\n");
    ligne(&Vue::actImage, "Image", "", ":/images/image.png", "Image\n\n");
    ligne(&Vue::actTableaux, "Tableaux", "Ctrl+Alt+T", ":/images/tableaux.png", "Tableaux\n\n");
    ligne(&Vue::actSqueletteHtml, "Corps...", "", ":/images/squelettehtml.png", "Corps\n\n");
    ligne(&Vue::actGauche, "Aligné à gauche", "", ":/images/gauche.png", "Aligné à gauche\n\nJustification à gauche");
    ligne(&Vue::actCentre, "Centré", "", ":/images/centre.png", "Centré\n\nJustification centrée");
    ligne(&Vue::actDroite, "Aligné à droite", "", ":/images/droite.png", "Aligné à droite\n\nJustification à droite");
    ligne(&Vue::actJustifie, "Justifié", "", ":/images/justifie.png",
          "Justifié\n\nJustification (aligné à gauche et à droite)");
}

void TestLyTextEdit::lesActionsHtml()
{
    QFETCH(const ActionEditeur, membre);
    QFETCH(const QString, raccourci);
    QFETCH(const QString, icone);
    QFETCH(const QString, debutQuEstCe);
    const QAction &action = *(atelier->OuvreSeul().*membre);
    QTEST(action.text(), "texte");
    QCOMPARE(action.shortcut(), QKeySequence(raccourci, QKeySequence::PortableText));
    QCOMPARE(Image(action.icon()), Image(QIcon(icone)));
    QCOMPARE(Image(action.icon()).isNull(), icone.isEmpty());
    // The title, a blank line and the tip.
    QVERIFY(!action.statusTip().isEmpty());
    QVERIFY2(action.whatsThis().startsWith(debutQuEstCe), qPrintable(action.whatsThis()));
    QCOMPARE(action.whatsThis().section("\n\n", 1), action.statusTip());
}

void TestLyTextEdit::quitterOuFermer_data()
{
    QTest::addColumn<bool>("seul");
    QTest::addColumn<QString>("texte");
    QTest::addColumn<QString>("status");
    QTest::addColumn<QString>("quEstCe");
    QTest::newRow("seul") << true << "&Quitter"
                          << "Quitte l'application"
                          << "Quitter\n\nQuitte l'application";
    QTest::newRow("dans l'arbre") << false << "&Fermer"
                                  << "Ferme cette fenêtre"
                                  << "Fermer\n\nFerme cette fenêtre";
}

void TestLyTextEdit::quitterOuFermer()
{
    QFETCH(const bool, seul);
    const QAction &action = *(seul ? atelier->OuvreSeul() : atelier->Ouvre("")).actFileQuit;
    QTEST(action.text(), "texte");
    QTEST(action.statusTip(), "status");
    QTEST(action.whatsThis(), "quEstCe");
    QCOMPARE(action.shortcut().toString(QKeySequence::PortableText), "Ctrl+Q");
    QVERIFY(action.icon().isNull());
}

void TestLyTextEdit::lesActionsAuDepart()
{
    const LyTextEdit &editeur = atelier->OuvreSeul();
    QStringList inactives;
    QStringList aCocher;
    QStringList cochees;
    const auto actions = editeur.findChildren<QAction *>(QString(), Qt::FindDirectChildrenOnly);
    QCOMPARE(actions.size(), 50);
    for (const QAction *action : actions) {
        if (!action->isEnabled())
            inactives += action->text();
        if (action->isCheckable())
            aCocher += action->text();
        if (action->isChecked())
            cochees += action->text();
    }
    QCOMPARE(inactives, (QStringList{"Annuler", "Refaire", "Co&uper", "&Copier"}));
    QCOMPARE(aCocher,
             (QStringList{"Barre d'outils", "Barre d'outils HTML", "Barre de &statut", "Aligné à gauche", "Centré",
                          "Aligné à droite", "Justifié"}));
    QCOMPARE(cochees, (QStringList{"Barre d'outils", "Barre d'outils HTML", "Barre de &statut", "Aligné à gauche"}));
    QVERIFY(editeur.groupeAlignement->isExclusive());
    QCOMPARE(TextesDe(editeur.groupeAlignement->actions()), "Aligné à gauche / Centré / Aligné à droite / Justifié");
}

void TestLyTextEdit::lesMenusDansLOrdre_data()
{
    QTest::addColumn<bool>("seul");
    QTest::addColumn<QString>("fichier");
    QTest::newRow("seul") << true << "&Nouveau / &Ouvrir / &Sauver / Sau&ver sous... / | / &Quitter";
    QTest::newRow("dans l'arbre") << false << "&Sauver / | / &Fermer";
}

void TestLyTextEdit::lesMenusDansLOrdre()
{
    QFETCH(const bool, seul);
    const LyTextEdit &editeur = seul ? atelier->OuvreSeul() : atelier->Ouvre("");
    QCOMPARE(TextesDe(editeur.menuBar()->actions()), "&Fichier / &Edition / Edition &Html / Affichage / &Aide");
    QTEST(Contenu(*editeur.menuFichier), "fichier");
    QCOMPARE(Contenu(*editeur.menuEdition),
             "Annuler / Refaire / | / Co&uper / &Copier / Co&ller / | / "
             "Chercher... / &Remplacer... / Répéter chercher/remplacer");
    QCOMPARE(Contenu(*editeur.menuHtml),
             "Caractères [ Gras / Italic / Souligné / Préformaté ] / | / "
             "Justification [ Aligné à gauche / Centré / Aligné à droite / Justifié ] / | / "
             "Corps... / Paragraphe / Aller à la ligne / Ligne horizontale / Espace insécable / | / "
             "Titres [ Titre de niveau 1 / Titre de niveau 2 / Titre de niveau 3 / "
             "Titre de niveau 4 / Titre de niveau 5 / Titre de niveau 6 ] / | / "
             "Listes [ Liste simple / Liste ordonnée / Elément de liste / "
             "Liste de définitions / Terme défini / Définition ] / | / "
             "Tableaux / Lien hyper-texte / Ancre hyper-texte / Image");
    QCOMPARE(Contenu(*editeur.menuAffichage),
             "Voir dans le navigateur / | / Barre d'outils / Barre d'outils HTML / Barre de &statut / | / "
             "Police Editeur");
    QCOMPARE(Contenu(*editeur.menuAide),
             "Manuel d'aide de l'éditeur Html / | / A propos de l'éditeur de textes / A propos de Qt");
}

void TestLyTextEdit::lesBarresDOutils_data()
{
    QTest::addColumn<bool>("seul");
    QTest::addColumn<QStringList>("boutons");
    QTest::newRow("seul") << true << QStringList{"&Copier", "&Nouveau", "&Ouvrir", "&Sauver",    "Annuler",
                                                 "Co&ller", "Co&uper",  "Refaire", "Chercher..."};
    QTest::newRow("dans l'arbre") << false << QStringList{"&Copier", "&Sauver", "Annuler",    "Co&ller",
                                                          "Co&uper", "Refaire", "Chercher..."};
}

void TestLyTextEdit::lesBarresDOutils()
{
    QFETCH(const bool, seul);
    QFETCH(const QStringList, boutons);
    const LyTextEdit &editeur = seul ? atelier->OuvreSeul() : atelier->Ouvre("");
    QCOMPARE(editeur.findChildren<QToolBar *>().size(), 2);
    QCOMPARE(editeur.barreOutils->windowTitle(), "Barre d'outils");
    QCOMPARE(editeur.barreHtml->windowTitle(), "Barre d'outils balises HTML");
    // Their order is free.
    const auto ensemble = [](const QToolBar *barre) {
        QSet<QString> textes;
        const auto actions = barre->actions();
        for (const QAction *action : actions) {
            if (!action->isSeparator())
                textes += action->text();
        }
        return textes;
    };
    QCOMPARE(ensemble(editeur.barreOutils), QSet<QString>(boutons.begin(), boutons.end()));
    QSet<QString> avecIcone;
    for (const ActionEditeur membre : actionsHtml)
        avecIcone += (editeur.*membre)->text();
    avecIcone -= QSet<QString>{"Titre de niveau 4", "Titre de niveau 5", "Titre de niveau 6"};
    QCOMPARE(avecIcone.size(), 26);
    QCOMPARE(ensemble(editeur.barreHtml), avecIcone);
}

void TestLyTextEdit::lesRaccourcisAgissent()
{
    LyTextEdit &editeur = atelier->Ouvre("a.html", "abc");
    QVERIFY(QTest::qWaitForWindowActive(&editeur));
    Tape(editeur, "X");
    QTest::keyClick(editeur.texte, Qt::Key_S, Qt::ControlModifier);
    QTRY_COMPARE(atelier->dossier.Lit("a.html"), "Xabc");
    QTest::keyClick(editeur.texte, Qt::Key_G, Qt::ControlModifier | Qt::AltModifier);
    QTRY_COMPARE(TexteDe(editeur), "X<b></b>abc");
    QTest::keyClick(editeur.texte, Qt::Key_Z, Qt::ControlModifier);
    QTRY_COMPARE(TexteDe(editeur), "Xabc");
    QTest::keyClick(editeur.texte, Qt::Key_Q, Qt::ControlModifier);
    QTRY_VERIFY(!editeur.isVisible());
}

void TestLyTextEdit::lesDossiersDesDeuxModes_data()
{
    QTest::addColumn<bool>("seul");
    QTest::addColumn<QString>("aide");
    QTest::newRow("seul") << true << "/AideLyEditHtml";
    QTest::newRow("dans l'arbre") << false << "/AideRamelier/editeur";
}

void TestLyTextEdit::lesDossiersDesDeuxModes()
{
    QFETCH(const bool, seul);
    QFETCH(const QString, aide);
    const QString dossier = atelier->dossier.Chemin();
    const LyTextEdit &editeur = seul ? atelier->OuvreSeul() : atelier->Ouvre("");
    QCOMPARE(editeur.autonome, seul);
    QCOMPARE(editeur.repApplication, dossier);
    QCOMPARE(editeur.repAide, dossier + aide);
    QCOMPARE(editeur.dernierRep, dossier);
}

void TestLyTextEdit::laFenetreADesLOuverture()
{
    QVERIFY(QDir(atelier->dossier.Chemin()).mkdir("fiches"));
    const LyTextEdit &editeur = atelier->Ouvre("fiches/a.html", "<p>Élise</p>");
    QVERIFY(editeur.isVisible());
    QVERIFY(editeur.isWindow());
    QCOMPARE(editeur.titreBase, "Fiche n° 12");
    QCOMPARE(editeur.windowTitle(), "Fiche n° 12 - a.html");
    QCOMPARE(editeur.fichierCourant, atelier->dossier.Chemin("fiches/a.html"));
    QCOMPARE(editeur.nomCourt, "a.html");
    QCOMPARE(editeur.dernierRep, atelier->dossier.Chemin("fiches"));
    QCOMPARE(editeur.repApplication, atelier->dossier.Chemin());
    const QImage icone(":/images/lyedithtml.png");
    QVERIFY(!icone.isNull());
    QCOMPARE(editeur.windowIcon().pixmap(icone.size()).toImage().convertToFormat(QImage::Format_ARGB32),
             icone.convertToFormat(QImage::Format_ARGB32));
    QCOMPARE(editeur.centralWidget(), editeur.texte);
    QVERIFY(!editeur.texte->acceptRichText());
    QCOMPARE(editeur.policeEditeur.family(), "Courier");
    QCOMPARE(editeur.policeEditeur.pointSize(), 10);
    QVERIFY(editeur.policeEditeur.fixedPitch());
    QCOMPARE(editeur.texte->font(), editeur.policeEditeur);
    QCOMPARE(editeur.alignement, QString());
    QVERIFY(!editeur.texte->overwriteMode());
    QVERIFY(!EstModifie(editeur));
    QVERIFY(!editeur.navigateurOuvert);
    QVERIFY(QTest::qWaitForWindowActive(atelier->editeur.get()));
    QCOMPARE(QApplication::focusWidget(), editeur.texte);
}

void TestLyTextEdit::leModeSuitLeNom_data()
{
    QTest::addColumn<QString>("nom");
    QTest::addColumn<bool>("html");
    QTest::newRow("html") << "fiche.html" << true;
    QTest::newRow("htm") << "fiche.htm" << true;
    QTest::newRow("htm au milieu") << "fiche.htm.txt" << true;
    QTest::newRow("dans un dossier") << "site.htm/notes.txt" << true;
    QTest::newRow("majuscules") << "notes.HTM" << false;
    QTest::newRow("txt") << "notes.txt" << false;
    QTest::newRow("sans point") << "fichehtml" << false;
}

void TestLyTextEdit::leModeSuitLeNom()
{
    QFETCH(const QString, nom);
    QFETCH(const bool, html);
    QVERIFY(QDir(atelier->dossier.Chemin()).mkdir("site.htm"));
    for (const bool seul : {false, true}) {
        atelier->dossier.Ecrit(nom, "a");
        const LyTextEdit &editeur = seul ? atelier->OuvreSeul(nom) : atelier->Ouvre(nom);
        QCOMPARE(editeur.modeHtml, html);
        QCOMPARE(editeur.actCarGras->isEnabled(), html);
        QCOMPARE(editeur.actViewToolBarB->isEnabled(), html);
        QCOMPARE(editeur.actViewToolBarB->isChecked(), html);
        QCOMPARE(editeur.barreHtml->isVisible(), html);
        QCOMPARE(editeur.labelAlignement->text(), html ? "Gauche" : "");
    }
}

void TestLyTextEdit::unNouveauTexteEstEnHtml_data()
{
    QTest::addColumn<bool>("seul");
    QTest::newRow("seul") << true;
    QTest::newRow("dans l'arbre") << false;
}

void TestLyTextEdit::unNouveauTexteEstEnHtml()
{
    QFETCH(const bool, seul);
    const LyTextEdit &editeur = seul ? atelier->OuvreSeul() : atelier->Ouvre("");
    QCOMPARE(editeur.windowTitle(), "Fiche n° 12 - Nouveau");
    QCOMPARE(editeur.fichierCourant, QString());
    QCOMPARE(editeur.modeHtml, true);
    QCOMPARE(editeur.labelAlignement->text(), "Gauche");
    QVERIFY(editeur.barreHtml->isVisible());
    QVERIFY(editeur.actImage->isEnabled());
    QCOMPARE(TexteDe(editeur), QString());
}

void TestLyTextEdit::lesReglagesSEcriventALaFermeture()
{
    LyTextEdit &editeur = atelier->OuvreSeul();
    QFont police("Liberation Mono", 13);
    police.setBold(true);
    editeur.policeEditeur = police;
    editeur.resize(510, 470);
    editeur.move(31, 47);
    QTRY_COMPARE(editeur.pos(), QPoint(31, 47));
    QCOMPARE(Reglages().allKeys(), QStringList());
    QVERIFY(editeur.close());
    QStringList cles = Reglages().allKeys();
    cles.sort();
    QCOMPARE(cles, (QStringList{"font", "pos", "size"}));
    QCOMPARE(Reglages().value("pos").toPoint(), QPoint(31, 47));
    QCOMPARE(Reglages().value("size").toSize(), QSize(510, 470));
    QCOMPARE(Reglages().value("font").toString(), police.toString());
    QVERIFY(QFile::exists(Environnement::Maison() + "/XDG_CONFIG_HOME/ProgrammesLY/ramelieredithtml.conf"));
}

void TestLyTextEdit::sansReglagesLaTailleEst400()
{
    const LyTextEdit &editeur = atelier->OuvreSeul();
    QCOMPARE(editeur.size(), QSize(400, 400));
    QCOMPARE(editeur.pos(), QPoint(200, 200));
}

void TestLyTextEdit::lesReglagesLEmportent()
{
    QFont police("Liberation Serif", 14);
    police.setItalic(true);
    {
        QSettings reglages("ProgrammesLY", "ramelieredithtml");
        reglages.setValue("pos", QPoint(60, 70));
        reglages.setValue("size", QSize(530, 450));
        reglages.setValue("font", police.toString());
    }
    const LyTextEdit &editeur = atelier->Ouvre("");
    QCOMPARE(editeur.size(), QSize(530, 450));
    QCOMPARE(editeur.pos(), QPoint(60, 70));
    for (const QFont &lue : {editeur.policeEditeur, editeur.texte->font()}) {
        QCOMPARE(lue.family(), "Liberation Serif");
        QCOMPARE(lue.pointSize(), 14);
        QVERIFY(lue.italic());
    }
}

void TestLyTextEdit::unePlaceHorsDesEcransEstRamenee()
{
    {
        QSettings reglages("ProgrammesLY", "ramelieredithtml");
        reglages.setValue("pos", QPoint(-6000, 70));
        reglages.setValue("size", QSize(530, 450));
    }
    const LyTextEdit &editeur = atelier->Ouvre("");
    QCOMPARE(editeur.size(), QSize(530, 450));
    QCOMPARE(editeur.pos(), QPoint(0, 70));
    QCOMPARE(QSettings("ProgrammesLY", "ramelieredithtml").value("pos").toPoint(), QPoint(-6000, 70));
}

void TestLyTextEdit::lesTroisLabels()
{
    const LyTextEdit &editeur = atelier->OuvreSeul();
    QCOMPARE(blancs31.size(), 31);
    QCOMPARE(Labels(editeur), (QStringList{"Gauche", "INS", blancs31}));
    QCOMPARE(editeur.labelAlignement->text(), "Gauche");
    QCOMPARE(editeur.labelInsertion->text(), "INS");
    QCOMPARE(editeur.labelInfoModif->text(), blancs31);
}

void TestLyTextEdit::pretPendantDeuxSecondes()
{
    const LyTextEdit &editeur = atelier->OuvreSeul();
    QCOMPARE(editeur.statusBar()->currentMessage(), "Prêt.");
    const auto *minuterie = editeur.statusBar()->findChild<QTimer *>(QString(), Qt::FindDirectChildrenOnly);
    QVERIFY(minuterie && minuterie->isActive());
    QCOMPARE(minuterie->interval(), 2000);
    QTRY_COMPARE(editeur.statusBar()->currentMessage(), QString());
}

void TestLyTextEdit::leLabelDAlignementSuitLeMode_data()
{
    QTest::addColumn<QString>("alignement");
    QTest::addColumn<QString>("label");
    QTest::newRow("vide") << ""
                          << "Gauche";
    QTest::newRow("gauche") << " align=left"
                            << "Gauche";
    QTest::newRow("centre") << " align=center"
                            << "Centré";
    QTest::newRow("droite") << " align=right"
                            << "Droite";
    QTest::newRow("justifie") << " align=justify"
                              << "Justifié";
    QTest::newRow("le centre d'abord") << "=justify =right =center"
                                       << "Centré";
    QTest::newRow("la droite ensuite") << "=justify =right"
                                       << "Droite";
}

void TestLyTextEdit::leLabelDAlignementSuitLeMode()
{
    QFETCH(const QString, alignement);
    LyTextEdit &editeur = atelier->OuvreSeul();
    editeur.alignement = alignement;
    editeur.setHtmlOuTxt("/a/notes.txt");
    QCOMPARE(editeur.modeHtml, false);
    QCOMPARE(editeur.labelAlignement->text(), QString());
    editeur.setHtmlOuTxt("/a/fiche.html");
    QCOMPARE(editeur.modeHtml, true);
    QTEST(editeur.labelAlignement->text(), "label");
    QCOMPARE(editeur.alignement, alignement);
}

void TestLyTextEdit::leLabelDitLesModifications()
{
    const LyTextEdit &editeur = atelier->OuvreSeul();
    Tape(editeur, "a");
    QCOMPARE(editeur.labelInfoModif->text(), " document modifé ");
    editeur.actEditAnnuler->trigger();
    QCOMPARE(editeur.labelInfoModif->text(), blancs31);
}

void TestLyTextEdit::insertBasculeEtEcraseVraiment()
{
    const LyTextEdit &editeur = atelier->Ouvre("a.txt", "abcdef");
    QTest::keyClick(editeur.texte, Qt::Key_Insert);
    QCOMPARE(editeur.labelInsertion->text(), " RFP ");
    Tape(editeur, "XY");
    QCOMPARE(TexteDe(editeur), "XYcdef");
    QTest::keyClick(editeur.texte, Qt::Key_Insert);
    QCOMPARE(editeur.labelInsertion->text(), " INS ");
    Tape(editeur, "Z");
    QCOMPARE(TexteDe(editeur), "XYZcdef");
    QTest::keyClick(editeur.texte, Qt::Key_Insert, Qt::KeypadModifier);
    QCOMPARE(editeur.labelInsertion->text(), " RFP ");
}

void TestLyTextEdit::insertAvecUnModificateurNeBasculePas_data()
{
    QTest::addColumn<Qt::KeyboardModifiers>("modificateurs");
    QTest::addColumn<QString>("texte");
    QTest::newRow("Maj colle") << Qt::KeyboardModifiers(Qt::ShiftModifier) << "collécollé";
    QTest::newRow("Ctrl copie") << Qt::KeyboardModifiers(Qt::ControlModifier) << "collé";
}

void TestLyTextEdit::insertAvecUnModificateurNeBasculePas()
{
    QFETCH(const Qt::KeyboardModifiers, modificateurs);
    const LyTextEdit &editeur = atelier->Ouvre("a.txt", "coll\xe9");
    editeur.texte->selectAll();
    editeur.actEditCopy->trigger();
    editeur.texte->moveCursor(QTextCursor::End);
    QTest::keyClick(editeur.texte, Qt::Key_Insert, modificateurs);
    QTEST(TexteDe(editeur), "texte");
    QCOMPARE(editeur.labelInsertion->text(), "INS");
    QVERIFY(!editeur.texte->overwriteMode());
}

void TestLyTextEdit::disableHtmlActiveOuDesactive_data()
{
    QTest::addColumn<bool>("actif");
    QTest::newRow("vrai active") << true;
    QTest::newRow("faux desactive") << false;
}

void TestLyTextEdit::disableHtmlActiveOuDesactive()
{
    QFETCH(const bool, actif);
    LyTextEdit &editeur = atelier->OuvreSeul();
    editeur.disableHtml(!actif);
    editeur.disableHtml(actif);
    QCOMPARE(actionsHtml.size(), 29);
    for (const ActionEditeur membre : actionsHtml)
        QVERIFY2((editeur.*membre)->isEnabled() == actif, qPrintable((editeur.*membre)->text()));
    QCOMPARE(editeur.actViewToolBarB->isEnabled(), actif);
    QCOMPARE(editeur.actViewToolBarB->isChecked(), actif);
    QCOMPARE(editeur.barreHtml->isVisible(), actif);
    QVERIFY(editeur.barreOutils->isVisible());
    for (const ActionEditeur membre :
         {&Vue::actFileNew, &Vue::actFileOpen, &Vue::actFileSave, &Vue::actFileSaveAs, &Vue::actFileQuit,
          &Vue::actEditPaste, &Vue::actEditCherche, &Vue::actEditReplace, &Vue::actEditReplaceEncore,
          &Vue::actViewToolBar, &Vue::actViewStatusBar, &Vue::actAppelleLyTextBrowser, &Vue::actPoliceEditeur})
        QVERIFY2((editeur.*membre)->isEnabled(), qPrintable((editeur.*membre)->text()));
}

void TestLyTextEdit::lesBasculesCachentEtMontrent_data()
{
    QTest::addColumn<int>("bascule");
    QTest::newRow("barre d'outils") << 0;
    QTest::newRow("barre d'outils HTML") << 1;
    QTest::newRow("barre de statut") << 2;
}

void TestLyTextEdit::lesBasculesCachentEtMontrent()
{
    QFETCH(const int, bascule);
    const LyTextEdit &editeur = atelier->OuvreSeul();
    const QList<QAction *> actions{editeur.actViewToolBar, editeur.actViewToolBarB, editeur.actViewStatusBar};
    const QList<QWidget *> barres{editeur.barreOutils, editeur.barreHtml, editeur.statusBar()};
    for (const bool visible : {false, true}) {
        actions.at(bascule)->trigger();
        for (int i = 0; i < 3; ++i) {
            QCOMPARE(barres.at(i)->isVisible(), visible || i != bascule);
            QCOMPARE(actions.at(i)->isChecked(), visible || i != bascule);
        }
    }
}

void TestLyTextEdit::choisirUnePolice()
{
    const LyTextEdit &editeur = atelier->OuvreSeul();
    Scenario scenario;
    QFont depart;
    scenario.Dialogue<QFontDialog>([&depart](QFontDialog &dialogue) {
        depart = dialogue.currentFont();
        dialogue.setCurrentFont(QFont("Liberation Serif", 15));
        dialogue.accept();
    });
    editeur.actPoliceEditeur->trigger();
    QCOMPARE(scenario.Ecarts(), QStringList());
    QCOMPARE(depart.pointSize(), 10);
    for (const QFont &police : {editeur.policeEditeur, editeur.texte->font()}) {
        QCOMPARE(police.family(), "Liberation Serif");
        QCOMPARE(police.pointSize(), 15);
    }
    QVERIFY(!EstModifie(editeur));
}

void TestLyTextEdit::renoncerAUnePolice()
{
    const LyTextEdit &editeur = atelier->OuvreSeul();
    Scenario scenario;
    scenario.Dialogue<QFontDialog>([](QFontDialog &dialogue) {
        dialogue.setCurrentFont(QFont("Liberation Serif", 15));
        dialogue.reject();
    });
    editeur.actPoliceEditeur->trigger();
    QCOMPARE(scenario.Ecarts(), QStringList());
    for (const QFont &police : {editeur.policeEditeur, editeur.texte->font()}) {
        QCOMPARE(police.family(), "Courier");
        QCOMPARE(police.pointSize(), 10);
    }
}

void TestLyTextEdit::aPropos()
{
    const LyTextEdit &editeur = atelier->OuvreSeul();
    Scenario scenario;
    scenario.Repond("OK");
    scenario.Repond("OK");
    editeur.actHelpAbout->trigger();
    editeur.actHelpAboutQt->trigger();
    QCOMPARE(scenario.Ecarts(), QStringList());
    const BoiteVue boite = scenario.Boites().constFirst();
    QCOMPARE(boite.titre, "A propos...");
    QCOMPARE(boite.texte, "LyEditHtml - Editeur de texte avec balises HTML\nVersion 1.0");
    QCOMPARE(boite.parent, &editeur);
    QVERIFY(scenario.Boites().at(1).texte.contains("Qt"));
}

void TestLyTextEdit::couperEtCopierSuiventLaSelection()
{
    const LyTextEdit &editeur = atelier->Ouvre("a.txt", "abcdef");
    QGuiApplication::clipboard()->setText("avant");
    const auto actives = [&editeur](bool attendu) {
        return editeur.actEditCut->isEnabled() == attendu && editeur.actEditCopy->isEnabled() == attendu;
    };
    QVERIFY(actives(false));
    QTest::keyClick(editeur.texte, Qt::Key_Right, Qt::ShiftModifier);
    QTest::keyClick(editeur.texte, Qt::Key_Right, Qt::ShiftModifier);
    QVERIFY(actives(true));
    editeur.actEditCopy->trigger();
    QCOMPARE(QGuiApplication::clipboard()->text(), "ab");
    QCOMPARE(TexteDe(editeur), "abcdef");
    editeur.actEditCut->trigger();
    QCOMPARE(TexteDe(editeur), "cdef");
    QVERIFY(actives(false));
    QVERIFY(editeur.actEditPaste->isEnabled());
    editeur.texte->moveCursor(QTextCursor::End);
    editeur.actEditPaste->trigger();
    QCOMPARE(TexteDe(editeur), "cdefab");
    QTest::keyClick(editeur.texte, Qt::Key_Home, Qt::ShiftModifier);
    QVERIFY(actives(true));
    QTest::keyClick(editeur.texte, Qt::Key_Home);
    QVERIFY(actives(false));
}

void TestLyTextEdit::annulerEtRefaireSuiventLaFrappe()
{
    const LyTextEdit &editeur = atelier->Ouvre("a.txt", "abc");
    const auto actives = [&editeur](bool annuler, bool refaire) {
        return editeur.actEditAnnuler->isEnabled() == annuler && editeur.actEditRefaire->isEnabled() == refaire;
    };
    // The loading itself cannot be undone.
    QVERIFY(actives(false, false));
    Tape(editeur, "X");
    QVERIFY(actives(true, false));
    editeur.actEditAnnuler->trigger();
    QCOMPARE(TexteDe(editeur), "abc");
    QVERIFY(actives(false, true));
    editeur.actEditRefaire->trigger();
    QCOMPARE(TexteDe(editeur), "Xabc");
    QVERIFY(actives(true, false));
}

void TestLyTextEdit::collerUnTexteRicheColleDuTexte()
{
    const LyTextEdit &editeur = atelier->Ouvre("a.html", "");
    auto *riche = new QMimeData;
    riche->setHtml("<b><font color=red>gras</font></b>");
    riche->setText("gras");
    QGuiApplication::clipboard()->setMimeData(riche);
    editeur.actEditPaste->trigger();
    QCOMPARE(TexteDe(editeur), "gras");
    QTextCursor dedans(editeur.texte->document());
    dedans.setPosition(2);
    QCOMPARE(dedans.charFormat().fontWeight(), int(QFont::Normal));
    QVERIFY(!dedans.charFormat().hasProperty(QTextFormat::ForegroundBrush));
}

void TestLyTextEdit::leTexteEstColore()
{
    const LyTextEdit &editeur = atelier->Ouvre("a.html", "a\n<!-- \xe9 -->");
    const QTextDocument &document = *editeur.texte->document();
    QTRY_COMPARE(Couleurs(document.findBlockByNumber(1)), QStringList{"#ff0000"});
    QCOMPARE(Couleurs(document.firstBlock()), QStringList());
    Tape(editeur, "<\"x\"");
    QCOMPARE(Couleurs(document.firstBlock()), (QStringList{"#0000ff", "#008000"}));
    QVERIFY(EstModifie(editeur));
}

void TestLyTextEdit::unBureauSombreGardeLePapierBlanc_data()
{
    QTest::addColumn<bool>("avant");
    QTest::newRow("sombre avant d'ouvrir") << true;
    QTest::newRow("sombre plus tard") << false;
}

void TestLyTextEdit::unBureauSombreGardeLePapierBlanc()
{
    QFETCH(const bool, avant);
    std::optional<BureauSombre> sombre;
    if (avant)
        sombre.emplace();
    LyTextEdit &editeur = atelier->Ouvre("a.html", "<!DOCTYPE html>\n<a href=\"b.html\">lien</a>");
    if (!avant)
        sombre.emplace();
    // Letters thick enough to show their colour without its edges.
    editeur.texte->setFont(QFont(editeur.texte->font().family(), 30));
    QVERIFY(QTest::qWaitForWindowExposed(&editeur));
    QCOMPARE(editeur.palette().color(QPalette::Base), QColor(10, 10, 10));
    const QImage page = editeur.texte->viewport()->grab().toImage();
    QVERIFY(PixelsDe(page, Qt::white) > page.width() * page.height() * 7 / 10);
    for (const QColor couleur : {Qt::black, Qt::red, Qt::blue, Qt::darkGreen})
        QVERIFY2(PixelsDe(page, couleur) > 50, qPrintable(couleur.name()));
}

RAMELIER_TEST_BUREAU_MAIN(TestLyTextEdit)
#include "tst_lytextedit.moc"
