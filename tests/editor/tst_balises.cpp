#include "dlgtableau.h"
#include "editeur.h"

#include <QElapsedTimer>
#include <QLabel>
#include <QRegularExpression>

/// The commands that insert tags in a sheet. Where the cursor is, the tests type "|".
class TestBalises : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void cleanup() { atelier.reset(); }
    void lesActions_data();
    void lesActions();
    void sansSelection_data() { LignesDesCommandes(); }
    void sansSelection();
    void sansSelectionAuMilieuDuTexte_data() { LignesDesCommandes(); }
    void sansSelectionAuMilieuDuTexte();
    void autourDUnMot_data() { LignesDesCommandes(); }
    void autourDUnMot();
    void autourDUnMotChoisiARebours_data() { LignesDesCommandes(); }
    void autourDUnMotChoisiARebours();
    void autourDePlusieursLignes_data() { LignesDesCommandes(); }
    void autourDePlusieursLignes();
    void lesBlancsInsecablesRestent_data() { LignesDesCommandes(); }
    void lesBlancsInsecablesRestent();
    void parLeRaccourci_data() { LignesDesCommandes(); }
    void parLeRaccourci();
    void unSeulAnnulerReprendTout_data() { LignesDesCommandes(); }
    void unSeulAnnulerReprendTout();
    void lEcrasementNeMangeRien_data() { LignesDesCommandes(); }
    void lEcrasementNeMangeRien();
    void enModeTexteLeRaccourciNInsereRien_data() { LignesDesCommandes(); }
    void enModeTexteLeRaccourciNInsereRien();
    void lAlignementAuDepart();
    void lesAlignements_data() { LignesDesAlignements(); }
    void lesAlignements();
    void leParagrapheSuitLAlignement_data() { LignesDesAlignements(); }
    void leParagrapheSuitLAlignement();
    void lesTitresSuiventLAlignement_data();
    void lesTitresSuiventLAlignement();
    void seulsParagrapheEtTitresSuiventLAlignement_data() { LignesDesCommandes(); }
    void seulsParagrapheEtTitresSuiventLAlignement();
    void leSquelette_data();
    void leSquelette();
    void leTableauPropose3Sur3SansBordure();
    void leTableau_data();
    void leTableau();
    void leTableauRefuseNInsereRien_data();
    void leTableauRefuseNInsereRien();
    void leTableauParLeRaccourci();
    void enModeTexteLeTableauNeSOuvrePas();
    void unGrandTableauVientVite();
    void insertTag_data();
    void insertTag();
    void decaleCurseur_data();
    void decaleCurseur();
    void decaleCurseurSansRienGardeLaSelection();
    void decaleCurseurQuitteLaSelection();
    void leCurseurResteEnVue_data();
    void leCurseurResteEnVue();
    void lesChiffresDUnClavierFrancais_data();
    void lesChiffresDUnClavierFrancais();
    void finLigne_data();
    void finLigne();
    void isTextSelected();

private:
    static void LignesDesCommandes();
    static void LignesDesAlignements();
    /// An editor on a new HTML text.
    LyTextEdit &Vide();
    /// The same with this text, the characters from \a debut to \a fin selected and the cursor at \a fin.
    LyTextEdit &Avec(const QString &texte, int debut, int fin);
    /// Types "|" and returns the text.
    static QString MarqueLeCurseur(const LyTextEdit &editeur);

    std::unique_ptr<Atelier> atelier;
};

namespace {

void Selectionne(const LyTextEdit &editeur, int debut, int fin)
{
    QTextCursor curseur = editeur.texte->textCursor();
    curseur.setPosition(debut);
    curseur.setPosition(fin, QTextCursor::KeepAnchor);
    editeur.texte->setTextCursor(curseur);
}

/// Presses the keys of \a action. False when the window does not get the keyboard.
bool Presse(LyTextEdit &editeur, const QKeySequence &raccourci)
{
    if (!QTest::qWaitForWindowActive(&editeur))
        return false;
    QTest::keySequence(editeur.texte, raccourci);
    return true;
}

/// The next modal window is the dialog of tables; fills it in and accepts.
void DemandeUnTableau(Scenario &scenario, int lignes, int colonnes, bool bordure)
{
    scenario.Dialogue<DlgTableau>([=](DlgTableau &dialogue) {
        dialogue.spbNumLignes->setValue(lignes);
        dialogue.spbNumCols->setValue(colonnes);
        dialogue.cbBordure->setChecked(bordure);
        Scenario::ClicPlusTard(dialogue.buttonOk);
    });
}

const QString squelette = "<!DOCTYPE HTML PUBLIC \"-//W3C//DTD HTML 4.0 Transitional//EN\">\n"
                          "<html lang=\"fr\" dir=\"ltr\">\n"
                          "<head>\n"
                          "<meta http-equiv=\"Content-Type\" content=\"text/html; charset=ISO-8859-1\">\n"
                          "<title></title>\n"
                          "</head>\n"
                          "<body>\n"
                          "|\n"
                          "</body>\n"
                          "</html>\n";

}  // namespace

LyTextEdit &TestBalises::Vide()
{
    atelier = std::make_unique<Atelier>();
    return atelier->Ouvre({});
}

LyTextEdit &TestBalises::Avec(const QString &texte, int debut, int fin)
{
    LyTextEdit &editeur = Vide();
    editeur.texte->setPlainText(texte);
    Selectionne(editeur, debut, fin);
    return editeur;
}

QString TestBalises::MarqueLeCurseur(const LyTextEdit &editeur)
{
    Tape(editeur, "|");
    return TexteDe(editeur);
}

void TestBalises::LignesDesCommandes()
{
    QTest::addColumn<ActionEditeur>("membre");
    QTest::addColumn<QString>("raccourci");
    QTest::addColumn<QString>("seule");    // what it makes of nothing, "|" the cursor
    QTest::addColumn<QString>("entoure");  // what it makes of the selected text "@"
    using Vue = LyTextEdit;
    const auto ligne = [](const char *nom, ActionEditeur membre, const char *raccourci, const char *seule,
                          const char *entoure) {
        QTest::newRow(nom) << membre << QString(raccourci) << QString(seule) << QString(entoure);
    };
    ligne("Gras", &Vue::actCarGras, "Ctrl+Alt+G", "<b>|</b>", "<b>@</b>|");
    ligne("Italic", &Vue::actCarItalic, "Ctrl+Alt+I", "<i>|</i>", "<i>@</i>|");
    ligne("Souligné", &Vue::actCarSouligne, "Ctrl+Alt+U", "<u>|</u>", "<u>@</u>|");
    ligne("Préformaté", &Vue::actCarPreformate, "Ctrl+Alt+F", "<pre>|</pre>", "<pre>@</pre>|");
    // The only pair that leaves the cursor inside with a selection too.
    ligne("Paragraphe", &Vue::actParagraphe, "Ctrl+Alt+P", "<p>|</p>", "<p>@|</p>");
    ligne("Aller à la ligne", &Vue::actAlaLigne, "Ctrl+Alt+K", "<br>|", "@<br>|");
    ligne("Ligne horizontale", &Vue::actLigneHoriz, "", "<hr>|", "@<hr>|");
    ligne("Espace insécable", &Vue::actBlancInsec, "Ctrl+Alt+N", "&nbsp;|", "@&nbsp;|");
    ligne("Titre de niveau 1", &Vue::actTitre1, "Ctrl+Alt+1", "<h1>|</h1>", "<h1>@</h1>\n|");
    ligne("Titre de niveau 2", &Vue::actTitre2, "Ctrl+Alt+2", "<h2>|</h2>", "<h2>@</h2>\n|");
    ligne("Titre de niveau 3", &Vue::actTitre3, "Ctrl+Alt+3", "<h3>|</h3>", "<h3>@</h3>\n|");
    ligne("Titre de niveau 4", &Vue::actTitre4, "Ctrl+Alt+4", "<h4>|</h4>", "<h4>@</h4>\n|");
    ligne("Titre de niveau 5", &Vue::actTitre5, "Ctrl+Alt+5", "<h5>|</h5>", "<h5>@</h5>\n|");
    ligne("Titre de niveau 6", &Vue::actTitre6, "Ctrl+Alt+6", "<h6>|</h6>", "<h6>@</h6>\n|");
    ligne("Liste simple", &Vue::actListeSimple, "Shift+Alt+L", "<ul>|</ul>", "<ul>@</ul>|");
    ligne("Liste ordonnée", &Vue::actListeOrdo, "Shift+Alt+O", "<ol>|</ol>", "<ol>@</ol>|");
    ligne("Elément de liste", &Vue::actElemListe, "Shift+Alt+E", "<li>|</li>", "<li>@</li>|");
    ligne("Liste de définitions", &Vue::actListeDef, "", "<dl>|</dl>", "<dl>@</dl>|");
    ligne("Terme défini", &Vue::actTermDef, "", "<dt>|</dt>", "<dt>@</dt>|");
    ligne("Définition", &Vue::actDefinition, "", "<dd>|</dd>", "<dd>@</dd>|");
    ligne("Lien hyper-texte", &Vue::actLienHypText, "", "<a href=\"\">|</a>", "<a href=\"\">@</a>|");
    ligne("Ancre hyper-texte", &Vue::actNameAncre, "", "<a name=\"\">|</a>", "<a name=\"\">@</a>|");
    // Takes the place of the selection.
    ligne("Image", &Vue::actImage, "", "<img src=\"\" name=\"\" align=bottom width=180 height=240 border=0>|",
          "<img src=\"\" name=\"\" align=bottom width=180 height=240 border=0>|");
}

void TestBalises::LignesDesAlignements()
{
    QTest::addColumn<ActionEditeur>("membre");
    QTest::addColumn<QString>("texte");
    QTest::addColumn<QString>("status");
    QTest::addColumn<QString>("attribut");
    QTest::addColumn<QString>("label");
    using Vue = LyTextEdit;
    QTest::newRow("gauche") << &Vue::actGauche << "Aligné à gauche"
                            << "Justification à gauche"
                            << ""
                            << "Gauche";
    QTest::newRow("centre") << &Vue::actCentre << "Centré"
                            << "Justification centrée"
                            << " align=center"
                            << "Centré";
    QTest::newRow("droite") << &Vue::actDroite << "Aligné à droite"
                            << "Justification à droite"
                            << " align=right"
                            << "Droite";
    QTest::newRow("justifié") << &Vue::actJustifie << "Justifié"
                              << "Justification (aligné à gauche et à droite)"
                              << " align=justify"
                              << "Justifié";
}

void TestBalises::lesActions_data()
{
    QTest::addColumn<ActionEditeur>("membre");
    QTest::addColumn<QString>("texte");
    QTest::addColumn<QString>("raccourci");
    QTest::addColumn<QString>("icone");
    using Vue = LyTextEdit;
    const auto ligne = [](ActionEditeur membre, const char *texte, const char *raccourci, const char *icone) {
        QTest::newRow(texte) << membre << QString::fromUtf8(texte) << QString(raccourci) << QString(icone);
    };
    ligne(&Vue::actCarGras, "Gras", "Ctrl+Alt+G", ":/images/cargras.png");
    ligne(&Vue::actCarItalic, "Italic", "Ctrl+Alt+I", ":/images/italic.png");
    ligne(&Vue::actCarSouligne, "Souligné", "Ctrl+Alt+U", ":/images/souligne.png");
    ligne(&Vue::actCarPreformate, "Préformaté", "Ctrl+Alt+F", ":/images/carpre.png");
    ligne(&Vue::actGauche, "Aligné à gauche", "", ":/images/gauche.png");
    ligne(&Vue::actCentre, "Centré", "", ":/images/centre.png");
    ligne(&Vue::actDroite, "Aligné à droite", "", ":/images/droite.png");
    ligne(&Vue::actJustifie, "Justifié", "", ":/images/justifie.png");
    ligne(&Vue::actSqueletteHtml, "Corps...", "", ":/images/squelettehtml.png");
    ligne(&Vue::actParagraphe, "Paragraphe", "Ctrl+Alt+P", ":/images/paragraphe.png");
    ligne(&Vue::actAlaLigne, "Aller à la ligne", "Ctrl+Alt+K", ":/images/alaligne.png");
    ligne(&Vue::actLigneHoriz, "Ligne horizontale", "", ":/images/lignehoriz.png");
    ligne(&Vue::actBlancInsec, "Espace insécable", "Ctrl+Alt+N", ":/images/blancinsec.png");
    ligne(&Vue::actTitre1, "Titre de niveau 1", "Ctrl+Alt+1", ":/images/h1icon.png");
    ligne(&Vue::actTitre2, "Titre de niveau 2", "Ctrl+Alt+2", ":/images/h2icon.png");
    ligne(&Vue::actTitre3, "Titre de niveau 3", "Ctrl+Alt+3", ":/images/h3icon.png");
    ligne(&Vue::actTitre4, "Titre de niveau 4", "Ctrl+Alt+4", "");
    ligne(&Vue::actTitre5, "Titre de niveau 5", "Ctrl+Alt+5", "");
    ligne(&Vue::actTitre6, "Titre de niveau 6", "Ctrl+Alt+6", "");
    ligne(&Vue::actListeSimple, "Liste simple", "Shift+Alt+L", ":/images/listesimple.png");
    ligne(&Vue::actListeOrdo, "Liste ordonnée", "Shift+Alt+O", ":/images/listeordo.png");
    ligne(&Vue::actElemListe, "Elément de liste", "Shift+Alt+E", ":/images/elemliste.png");
    ligne(&Vue::actListeDef, "Liste de définitions", "", ":/images/listedef.png");
    ligne(&Vue::actTermDef, "Terme défini", "", ":/images/termdef.png");
    ligne(&Vue::actDefinition, "Définition", "", ":/images/definition.png");
    ligne(&Vue::actLienHypText, "Lien hyper-texte", "", ":/images/lienhyptext.png");
    ligne(&Vue::actNameAncre, "Ancre hyper-texte", "", ":/images/ancre.png");
    ligne(&Vue::actImage, "Image", "", ":/images/image.png");
    ligne(&Vue::actTableaux, "Tableaux", "Ctrl+Alt+T", ":/images/tableaux.png");
}

void TestBalises::lesActions()
{
    QFETCH(const ActionEditeur, membre);
    QFETCH(const QString, raccourci);
    QFETCH(const QString, icone);
    const QAction &action = *(Vide().*membre);
    QTEST(action.text(), "texte");
    QCOMPARE(action.shortcut(), QKeySequence(raccourci));
    QVERIFY(action.isEnabled());
    QCOMPARE(action.icon().isNull(), icone.isEmpty());
    if (!icone.isEmpty()) {
        const QImage voulue = QIcon(icone).pixmap(22).toImage();
        QVERIFY(!voulue.isNull());
        QCOMPARE(action.icon().pixmap(22).toImage(), voulue);
    }
}

void TestBalises::sansSelection()
{
    QFETCH(const ActionEditeur, membre);
    LyTextEdit &editeur = Vide();
    (editeur.*membre)->trigger();
    QTEST(MarqueLeCurseur(editeur), "seule");
}

void TestBalises::sansSelectionAuMilieuDuTexte()
{
    QFETCH(const ActionEditeur, membre);
    QFETCH(const QString, seule);
    LyTextEdit &editeur = Avec("avant\nune fin\naprès", 9, 9);
    (editeur.*membre)->trigger();
    QCOMPARE(MarqueLeCurseur(editeur), "avant\nune" + seule + " fin\naprès");
}

void TestBalises::autourDUnMot()
{
    QFETCH(const ActionEditeur, membre);
    QFETCH(QString, entoure);
    LyTextEdit &editeur = Avec("un mot ici", 3, 6);
    (editeur.*membre)->trigger();
    QVERIFY(!editeur.isTextSelected());
    QCOMPARE(MarqueLeCurseur(editeur), "un " + entoure.replace('@', "mot") + " ici");
}

void TestBalises::autourDUnMotChoisiARebours()
{
    QFETCH(const ActionEditeur, membre);
    QFETCH(QString, entoure);
    LyTextEdit &editeur = Avec("un mot ici", 6, 3);
    (editeur.*membre)->trigger();
    QCOMPARE(MarqueLeCurseur(editeur), "un " + entoure.replace('@', "mot") + " ici");
}

void TestBalises::autourDePlusieursLignes()
{
    QFETCH(const ActionEditeur, membre);
    QFETCH(QString, entoure);
    LyTextEdit &editeur = Avec("un\ndeux\n\ntrois", 1, 11);
    (editeur.*membre)->trigger();
    QCOMPARE(MarqueLeCurseur(editeur), "u" + entoure.replace('@', "n\ndeux\n\ntr") + "ois");
}

void TestBalises::lesBlancsInsecablesRestent()
{
    QFETCH(const ActionEditeur, membre);
    QFETCH(QString, entoure);
    LyTextEdit &editeur = Avec("a\u00a0b c\u00a0d\u00a0e", 0, 7);
    (editeur.*membre)->trigger();
    QCOMPARE(MarqueLeCurseur(editeur), entoure.replace('@', "a\u00a0b c\u00a0d") + "\u00a0e");
}

void TestBalises::parLeRaccourci()
{
    QFETCH(const ActionEditeur, membre);
    QFETCH(const QString, raccourci);
    QFETCH(QString, entoure);
    LyTextEdit &editeur = Vide();
    QCOMPARE((editeur.*membre)->shortcut(), QKeySequence(raccourci));
    if (raccourci.isEmpty())
        return;
    QVERIFY(Presse(editeur, QKeySequence(raccourci)));
    QTEST(MarqueLeCurseur(editeur), "seule");
    LyTextEdit &autre = Avec("un mot ici", 3, 6);
    QVERIFY(Presse(autre, QKeySequence(raccourci)));
    QCOMPARE(MarqueLeCurseur(autre), "un " + entoure.replace('@', "mot") + " ici");
}

void TestBalises::unSeulAnnulerReprendTout()
{
    QFETCH(const ActionEditeur, membre);
    QFETCH(QString, entoure);
    LyTextEdit &editeur = Avec("un\nmot ici", 1, 6);
    (editeur.*membre)->trigger();
    editeur.actEditAnnuler->trigger();
    QCOMPARE(TexteDe(editeur), "un\nmot ici");
    QVERIFY(!editeur.actEditAnnuler->isEnabled());
    editeur.actEditRefaire->trigger();
    QCOMPARE(TexteDe(editeur), "u" + entoure.remove('|').replace('@', "n\nmot") + " ici");
}

void TestBalises::lEcrasementNeMangeRien()
{
    QFETCH(const ActionEditeur, membre);
    QFETCH(QString, seule);
    LyTextEdit &editeur = Avec("un mot ici", 3, 3);
    QTest::keyClick(editeur.texte, Qt::Key_Insert);
    QVERIFY(editeur.texte->overwriteMode());
    (editeur.*membre)->trigger();
    QCOMPARE(TexteDe(editeur), "un " + seule.remove('|') + "mot ici");
}

void TestBalises::enModeTexteLeRaccourciNInsereRien()
{
    QFETCH(const ActionEditeur, membre);
    QFETCH(const QString, raccourci);
    atelier = std::make_unique<Atelier>();
    LyTextEdit &editeur = atelier->Ouvre("notes.txt", "un mot ici");
    (editeur.*membre)->trigger();
    QCOMPARE(TexteDe(editeur), "un mot ici");
    if (raccourci.isEmpty())
        return;
    QVERIFY(Presse(editeur, QKeySequence(raccourci)));
    // The text may take the key for a letter, as it takes those of no command.
    QVERIFY2(!TexteDe(editeur).contains('<') && !TexteDe(editeur).contains('&'), qPrintable(TexteDe(editeur)));
}

void TestBalises::lAlignementAuDepart()
{
    const LyTextEdit &editeur = Vide();
    QCOMPARE(editeur.alignement, QString());
    QCOMPARE(editeur.labelAlignement->text(), "Gauche");
}

void TestBalises::lesAlignements()
{
    QFETCH(const ActionEditeur, membre);
    QFETCH(const QString, attribut);
    LyTextEdit &editeur = Vide();
    // From another one each time, so that a choice without effect is seen.
    (attribut.isEmpty() ? editeur.actDroite : editeur.actGauche)->trigger();
    QAction *action = editeur.*membre;
    action->trigger();
    QTEST(action->text(), "texte");
    QTEST(action->statusTip(), "status");
    QTEST(editeur.alignement, "attribut");
    QTEST(editeur.labelAlignement->text(), "label");
    QCOMPARE(TexteDe(editeur), QString());
    QVERIFY(!EstModifie(editeur));
    // The menu shows this choice and no other.
    for (const QAction *autre : {editeur.actGauche, editeur.actCentre, editeur.actDroite, editeur.actJustifie})
        QCOMPARE(autre->isChecked(), autre == action);
}

void TestBalises::leParagrapheSuitLAlignement()
{
    QFETCH(const ActionEditeur, membre);
    QFETCH(const QString, attribut);
    LyTextEdit &editeur = Vide();
    (editeur.*membre)->trigger();
    editeur.actParagraphe->trigger();
    QCOMPARE(MarqueLeCurseur(editeur), "<p" + attribut + ">|</p>");
    LyTextEdit &autre = Avec("un mot ici", 3, 6);
    (autre.*membre)->trigger();
    autre.actParagraphe->trigger();
    QCOMPARE(MarqueLeCurseur(autre), "un <p" + attribut + ">mot|</p> ici");
}

void TestBalises::lesTitresSuiventLAlignement_data()
{
    QTest::addColumn<ActionEditeur>("titre");
    QTest::addColumn<ActionEditeur>("alignement");
    QTest::addColumn<QString>("ouvrante");
    QTest::addColumn<QString>("fermante");
    using Vue = LyTextEdit;
    const QList<ActionEditeur> titres{&Vue::actTitre1, &Vue::actTitre2, &Vue::actTitre3,
                                      &Vue::actTitre4, &Vue::actTitre5, &Vue::actTitre6};
    const QList<std::pair<ActionEditeur, QString>> alignements{{&Vue::actGauche, ""},
                                                               {&Vue::actCentre, " align=center"},
                                                               {&Vue::actDroite, " align=right"},
                                                               {&Vue::actJustifie, " align=justify"}};
    for (qsizetype i = 0; i < titres.size(); ++i) {
        for (const auto &[alignement, attribut] : alignements) {
            const QString niveau = QString::number(i + 1);
            QTest::newRow(qPrintable("h" + niveau + attribut))
                << titres.at(i) << alignement << "<h" + niveau + attribut + ">"
                << "</h" + niveau + ">";
        }
    }
}

void TestBalises::lesTitresSuiventLAlignement()
{
    QFETCH(const ActionEditeur, titre);
    QFETCH(const ActionEditeur, alignement);
    QFETCH(const QString, ouvrante);
    QFETCH(const QString, fermante);
    LyTextEdit &editeur = Vide();
    (editeur.*alignement)->trigger();
    (editeur.*titre)->trigger();
    QCOMPARE(MarqueLeCurseur(editeur), ouvrante + "|" + fermante);
    LyTextEdit &autre = Avec("mot", 0, 3);
    (autre.*alignement)->trigger();
    (autre.*titre)->trigger();
    QCOMPARE(MarqueLeCurseur(autre), ouvrante + "mot" + fermante + "\n|");
}

void TestBalises::seulsParagrapheEtTitresSuiventLAlignement()
{
    QFETCH(const ActionEditeur, membre);
    QFETCH(QString, seule);
    static const QRegularExpression suiveuse("^<(p|h[1-6])>");
    seule.replace(suiveuse, "<\\1 align=center>");
    LyTextEdit &editeur = Vide();
    editeur.actCentre->trigger();
    (editeur.*membre)->trigger();
    QCOMPARE(MarqueLeCurseur(editeur), seule);
}

void TestBalises::leSquelette_data()
{
    QTest::addColumn<QString>("avant");
    QTest::addColumn<int>("debut");
    QTest::addColumn<int>("fin");
    QTest::addColumn<QString>("apres");

    QTest::newRow("texte vide") << "" << 0 << 0 << squelette;
    QTest::newRow("au début") << "un\ndeux" << 0 << 0 << squelette + "un\ndeux";
    QTest::newRow("au milieu d'une ligne") << "un\ndeux\ntrois" << 5 << 5 << "un\nde" + squelette + "ux\ntrois";
    QTest::newRow("à la fin") << "un\ndeux" << 7 << 7 << "un\ndeux" + squelette;
    QTest::newRow("mot choisi") << "un mot ici" << 3 << 6 << "un mot" + squelette + " ici";
    QTest::newRow("mot choisi à rebours") << "un mot ici" << 6 << 3 << "un " + squelette + "mot ici";
    QTest::newRow("lignes choisies") << "un\ndeux\ntrois" << 0 << 13 << "un\ndeux\ntrois" + squelette;
}

void TestBalises::leSquelette()
{
    QFETCH(const QString, avant);
    QFETCH(const int, debut);
    QFETCH(const int, fin);
    QFETCH(QString, apres);
    LyTextEdit &editeur = Avec(avant, debut, fin);
    editeur.actSqueletteHtml->trigger();
    QVERIFY(!editeur.isTextSelected());
    QCOMPARE(MarqueLeCurseur(editeur), apres);
    editeur.actEditAnnuler->trigger();
    QCOMPARE(TexteDe(editeur), QString(apres).remove('|'));
    editeur.actEditAnnuler->trigger();
    QCOMPARE(TexteDe(editeur), avant);
    QVERIFY(!editeur.actEditAnnuler->isEnabled());
    editeur.actEditRefaire->trigger();
    QCOMPARE(TexteDe(editeur), apres.remove('|'));
}

void TestBalises::leTableauPropose3Sur3SansBordure()
{
    const LyTextEdit &editeur = Vide();
    // The second time too, whatever was chosen before.
    for (const int lignes : {5, 3}) {
        QList<int> vus;
        bool bordure = true;
        QWidget *parent = editeur.texte;
        Scenario scenario;
        scenario.Dialogue<DlgTableau>([&](DlgTableau &dialogue) {
            vus = {dialogue.spbNumLignes->value(), dialogue.spbNumCols->value()};
            bordure = dialogue.cbBordure->isChecked();
            parent = dialogue.parentWidget();
            dialogue.spbNumLignes->setValue(lignes);
            dialogue.cbBordure->setChecked(true);
            dialogue.accept();
        });
        editeur.actTableaux->trigger();
        QCOMPARE(scenario.Ecarts(), QStringList());
        QCOMPARE(vus, (QList{3, 3}));
        QVERIFY(!bordure);
        QCOMPARE(parent, nullptr);
    }
}

void TestBalises::leTableau_data()
{
    QTest::addColumn<QString>("avant");
    QTest::addColumn<int>("debut");
    QTest::addColumn<int>("fin");
    QTest::addColumn<int>("lignes");
    QTest::addColumn<int>("colonnes");
    QTest::addColumn<bool>("bordure");
    QTest::addColumn<QString>("apres");

    const QString deuxSurUn = "\n<table border>\n<tr>\n<td></td>\n</tr>\n<tr>\n<td></td>\n</tr>\n</table>\n|";
    QTest::newRow("2 x 1, bordure") << "" << 0 << 0 << 2 << 1 << true << deuxSurUn;
    QTest::newRow("1 x 2") << "" << 0 << 0 << 1 << 2 << false
                           << "\n<table>\n<tr>\n<td></td>\n<td></td>\n</tr>\n</table>\n|";
    QTest::newRow("3 x 3") << "" << 0 << 0 << 3 << 3 << false
                           << "\n<table>\n"
                              "<tr>\n<td></td>\n<td></td>\n<td></td>\n</tr>\n"
                              "<tr>\n<td></td>\n<td></td>\n<td></td>\n</tr>\n"
                              "<tr>\n<td></td>\n<td></td>\n<td></td>\n</tr>\n"
                              "</table>\n|";
    QTest::newRow("aucune ligne") << "" << 0 << 0 << 0 << 3 << false << "\n<table>\n</table>\n|";
    QTest::newRow("aucune colonne") << "" << 0 << 0 << 2 << 0 << true
                                    << "\n<table border>\n<tr>\n</tr>\n<tr>\n</tr>\n</table>\n|";
    QTest::newRow("rien") << "" << 0 << 0 << 0 << 0 << false << "\n<table>\n</table>\n|";
    QTest::newRow("au milieu d'une ligne") << "un mot ici" << 3 << 3 << 2 << 1 << true << "un " + deuxSurUn + "mot ici";
    QTest::newRow("mot choisi") << "un mot ici" << 3 << 6 << 2 << 1 << true << "un mot" + deuxSurUn + " ici";
    QTest::newRow("mot choisi à rebours") << "un mot ici" << 6 << 3 << 2 << 1 << true << "un mot" + deuxSurUn + " ici";
}

void TestBalises::leTableau()
{
    QFETCH(const QString, avant);
    QFETCH(const int, debut);
    QFETCH(const int, fin);
    QFETCH(const int, lignes);
    QFETCH(const int, colonnes);
    QFETCH(const bool, bordure);
    QFETCH(QString, apres);
    LyTextEdit &editeur = Avec(avant, debut, fin);
    Scenario scenario;
    DemandeUnTableau(scenario, lignes, colonnes, bordure);
    editeur.actTableaux->trigger();
    QCOMPARE(scenario.Ecarts(), QStringList());
    QCOMPARE(MarqueLeCurseur(editeur), apres);
    editeur.actEditAnnuler->trigger();
    QCOMPARE(TexteDe(editeur), apres.remove('|'));
    editeur.actEditAnnuler->trigger();
    QCOMPARE(TexteDe(editeur), avant);
    QVERIFY(!editeur.actEditAnnuler->isEnabled());
    editeur.actEditRefaire->trigger();
    QCOMPARE(TexteDe(editeur), apres);
}

void TestBalises::leTableauRefuseNInsereRien_data()
{
    QTest::addColumn<QString>("touche");
    QTest::newRow("Annuler") << "Alt+A";
    QTest::newRow("Echap") << "Esc";
}

void TestBalises::leTableauRefuseNInsereRien()
{
    QFETCH(const QString, touche);
    LyTextEdit &editeur = Avec("un mot ici", 3, 6);
    Scenario scenario;
    scenario.Dialogue<DlgTableau>([touche](DlgTableau &dialogue) {
        QVERIFY(QTest::qWaitForWindowActive(&dialogue));
        dialogue.spbNumLignes->setValue(7);
        QTest::keySequence(dialogue.spbNumCols, QKeySequence(touche));
    });
    editeur.actTableaux->trigger();
    QCOMPARE(scenario.Ecarts(), QStringList());
    QCOMPARE(TexteDe(editeur), "un mot ici");
    QVERIFY(!EstModifie(editeur));
    QCOMPARE(editeur.texte->textCursor().selectedText(), "mot");
}

void TestBalises::leTableauParLeRaccourci()
{
    LyTextEdit &editeur = Vide();
    Scenario scenario;
    DemandeUnTableau(scenario, 1, 1, false);
    QVERIFY(Presse(editeur, QKeySequence("Ctrl+Alt+T")));
    QCOMPARE(scenario.Ecarts(), QStringList());
    QCOMPARE(MarqueLeCurseur(editeur), "\n<table>\n<tr>\n<td></td>\n</tr>\n</table>\n|");
}

void TestBalises::enModeTexteLeTableauNeSOuvrePas()
{
    atelier = std::make_unique<Atelier>();
    LyTextEdit &editeur = atelier->Ouvre("notes.txt", "un mot ici");
    const Scenario scenario;
    editeur.actTableaux->trigger();
    editeur.actSqueletteHtml->trigger();
    QCOMPARE(TexteDe(editeur), "un mot ici");
    QVERIFY(Presse(editeur, QKeySequence("Ctrl+Alt+T")));
    QCOMPARE(scenario.Ecarts(), QStringList());
    QVERIFY2(!TexteDe(editeur).contains('<'), qPrintable(TexteDe(editeur)));
}

void TestBalises::unGrandTableauVientVite()
{
    LyTextEdit &editeur = Vide();
    Scenario scenario;
    DemandeUnTableau(scenario, 99, 99, true);
    QElapsedTimer duree;
    duree.start();
    editeur.actTableaux->trigger();
    QCOMPARE(scenario.Ecarts(), QStringList());
    const QString texte = TexteDe(editeur);
    QCOMPARE(texte.count("<tr>\n"), 99);
    QCOMPARE(texte.count("<td></td>\n"), 9801);
    QCOMPARE(texte.count("</tr>\n"), 99);
    editeur.actEditAnnuler->trigger();
    QCOMPARE(TexteDe(editeur), QString());
    // A quarter of a second is usual.
    QVERIFY2(duree.elapsed() < 30'000, qPrintable(QString::number(duree.elapsed())));
}

void TestBalises::insertTag_data()
{
    QTest::addColumn<int>("debut");
    QTest::addColumn<int>("fin");
    QTest::addColumn<QString>("ouvrante");
    QTest::addColumn<QString>("fermante");
    QTest::addColumn<int>("decalCar");
    QTest::addColumn<int>("decalBloc");
    QTest::addColumn<QString>("apres");
    // In "un\ndeux\ntrois".
    QTest::newRow("au curseur") << 5 << 5 << "("
                                << ")" << 0 << 0 << "un\nde()|ux\ntrois";
    QTest::newRow("recule") << 5 << 5 << "("
                            << ")" << -1 << 0 << "un\nde(|)ux\ntrois";
    QTest::newRow("avance") << 5 << 5 << "("
                            << ")" << 1 << 0 << "un\nde()u|x\ntrois";
    QTest::newRow("début de ligne") << 5 << 5 << "("
                                    << ")" << 0 << 1 << "un\n|de()ux\ntrois";
    QTest::newRow("ligne d'avant") << 5 << 5 << "("
                                   << ")" << 0 << -1 << "|un\nde()ux\ntrois";
    QTest::newRow("sélection") << 3 << 7 << "("
                               << ")" << 0 << 0 << "un\n(deux)|\ntrois";
    QTest::newRow("sélection, recule") << 3 << 7 << "("
                                       << ")" << -2 << 0 << "un\n(deu|x)\ntrois";
    QTest::newRow("lignes ajoutées") << 3 << 7 << "(\n"
                                     << "\n)" << 0 << -1 << "un\n(\n|deux\n)\ntrois";
    QTest::newRow("caractères, puis lignes") << 3 << 7 << "(\n"
                                             << "\n)" << -3 << -1 << "un\n|(\ndeux\n)\ntrois";
    QTest::newRow("du texte, pas du HTML") << 0 << 2 << "<b>&amp;"
                                           << "</b>" << 0 << 0 << "<b>&amp;un</b>|\ndeux\ntrois";
}

void TestBalises::insertTag()
{
    QFETCH(const int, debut);
    QFETCH(const int, fin);
    QFETCH(const QString, ouvrante);
    QFETCH(const QString, fermante);
    QFETCH(const int, decalCar);
    QFETCH(const int, decalBloc);
    LyTextEdit &editeur = Avec("un\ndeux\ntrois", debut, fin);
    editeur.insertTag(ouvrante, fermante, decalCar, decalBloc);
    QVERIFY(!editeur.isTextSelected());
    QTEST(MarqueLeCurseur(editeur), "apres");
}

void TestBalises::decaleCurseur_data()
{
    QTest::addColumn<int>("debut");
    QTest::addColumn<int>("fin");
    QTest::addColumn<int>("decalCar");
    QTest::addColumn<int>("decalBloc");
    QTest::addColumn<QString>("apres");
    // In "un\ndeux\ntrois".
    QTest::newRow("en arrière") << 6 << 6 << -2 << 0 << "un\nd|eux\ntrois";
    QTest::newRow("en avant") << 4 << 4 << 2 << 0 << "un\ndeu|x\ntrois";
    QTest::newRow("par-dessus une fin de ligne") << 4 << 4 << -2 << 0 << "un|\ndeux\ntrois";
    QTest::newRow("pas avant le début") << 4 << 4 << -100 << 0 << "|un\ndeux\ntrois";
    QTest::newRow("pas après la fin") << 4 << 4 << 100 << 0 << "un\ndeux\ntrois|";
    QTest::newRow("une ligne plus haut") << 10 << 10 << 0 << -1 << "un\n|deux\ntrois";
    QTest::newRow("deux lignes plus haut") << 10 << 10 << 0 << -2 << "|un\ndeux\ntrois";
    QTest::newRow("pas avant la première ligne") << 10 << 10 << 0 << -3 << "|un\ndeux\ntrois";
    QTest::newRow("bien trop haut") << 2 << 2 << 0 << -100 << "|un\ndeux\ntrois";
    QTest::newRow("positif : la ligne même") << 5 << 5 << 0 << 1 << "un\n|deux\ntrois";
    QTest::newRow("grand positif") << 5 << 5 << 0 << 100 << "un\n|deux\ntrois";
    QTest::newRow("positif, début de ligne") << 3 << 3 << 0 << 1 << "un\n|deux\ntrois";
    QTest::newRow("caractères avant lignes") << 8 << 8 << -1 << -1 << "|un\ndeux\ntrois";
    QTest::newRow("caractères, puis la ligne même") << 8 << 8 << -1 << 1 << "un\n|deux\ntrois";
    QTest::newRow("la sélection tombe") << 3 << 7 << 0 << -1 << "|un\ndeux\ntrois";
}

void TestBalises::decaleCurseur()
{
    QFETCH(const int, debut);
    QFETCH(const int, fin);
    QFETCH(const int, decalCar);
    QFETCH(const int, decalBloc);
    LyTextEdit &editeur = Avec("un\ndeux\ntrois", debut, fin);
    editeur.decaleCurseur(decalCar, decalBloc);
    QVERIFY(!editeur.isTextSelected());
    QTEST(MarqueLeCurseur(editeur), "apres");
}

void TestBalises::decaleCurseurQuitteLaSelection()
{
    LyTextEdit &editeur = Avec("un\ndeux\ntrois", 3, 7);
    editeur.decaleCurseur(-1, 0);
    QCOMPARE(MarqueLeCurseur(editeur), "un\ndeu|x\ntrois");
}

void TestBalises::lesChiffresDUnClavierFrancais_data()
{
    QTest::addColumn<Qt::Key>("touche");
    QTest::addColumn<QString>("apres");
    QTest::newRow("1") << Qt::Key_Ampersand << "<h1></h1>";
    QTest::newRow("2") << Qt::Key_Eacute << "<h2></h2>";
    QTest::newRow("3") << Qt::Key_QuoteDbl << "<h3></h3>";
    QTest::newRow("4") << Qt::Key_Apostrophe << "<h4></h4>";
    QTest::newRow("5") << Qt::Key_ParenLeft << "<h5></h5>";
    QTest::newRow("6") << Qt::Key_Minus << "<h6></h6>";
}

void TestBalises::lesChiffresDUnClavierFrancais()
{
    QFETCH(const Qt::Key, touche);
    LyTextEdit &editeur = Vide();
    QVERIFY(QTest::qWaitForWindowActive(&editeur));
    QTest::keyClick(editeur.texte, touche, Qt::ControlModifier | Qt::AltModifier);
    QTEST(TexteDe(editeur), "apres");
}

void TestBalises::leCurseurResteEnVue_data()
{
    QTest::addColumn<ActionEditeur>("membre");
    QTest::newRow("tableau") << &LyTextEdit::actTableaux;
    QTest::newRow("corps") << &LyTextEdit::actSqueletteHtml;
    QTest::newRow("titre") << &LyTextEdit::actTitre1;
    QTest::newRow("gras") << &LyTextEdit::actCarGras;
    QTest::newRow("image") << &LyTextEdit::actImage;
}

void TestBalises::leCurseurResteEnVue()
{
    QFETCH(const ActionEditeur, membre);
    LyTextEdit &editeur = Avec(QString("ligne\n").repeated(200), 0, 0);
    QVERIFY(QTest::qWaitForWindowActive(&editeur));
    const int bas = editeur.texte->viewport()->height() - 1;
    editeur.texte->setTextCursor(editeur.texte->cursorForPosition(QPoint(0, bas - 20)));
    Scenario scenario;
    if (membre == &LyTextEdit::actTableaux)
        DemandeUnTableau(scenario, 99, 9, true);
    (editeur.*membre)->trigger();
    QTRY_VERIFY(editeur.texte->viewport()->rect().contains(editeur.texte->cursorRect()));
}

void TestBalises::decaleCurseurSansRienGardeLaSelection()
{
    LyTextEdit &editeur = Avec("un\ndeux\ntrois", 3, 7);
    editeur.decaleCurseur(0, 0);
    QCOMPARE(editeur.texte->textCursor().anchor(), 3);
    QCOMPARE(editeur.texte->textCursor().position(), 7);
}

void TestBalises::finLigne_data()
{
    QTest::addColumn<int>("debut");
    QTest::addColumn<int>("fin");
    QTest::addColumn<QString>("apres");
    QTest::newRow("au curseur") << 3 << 3 << "un \n|mot ici";
    QTest::newRow("après la sélection") << 3 << 6 << "un mot\n| ici";
    QTest::newRow("sélection à rebours") << 6 << 3 << "un mot\n| ici";
}

void TestBalises::finLigne()
{
    QFETCH(const int, debut);
    QFETCH(const int, fin);
    LyTextEdit &editeur = Avec("un mot ici", debut, fin);
    editeur.finLigne();
    QTEST(MarqueLeCurseur(editeur), "apres");
}

void TestBalises::isTextSelected()
{
    QVERIFY(!Avec("un mot ici", 3, 3).isTextSelected());
    QVERIFY(Avec("un mot ici", 3, 6).isTextSelected());
    QVERIFY(Avec("un mot ici", 6, 3).isTextSelected());
}

RAMELIER_TEST_BUREAU_MAIN(TestBalises)
#include "tst_balises.moc"
