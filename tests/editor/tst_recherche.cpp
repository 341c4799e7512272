#include "dlgcherche.h"
#include "dlgremplace.h"
#include "editeur.h"
#include "saisie.h"

#include <QCheckBox>

/// Finding and replacing in a sheet.
class TestRecherche : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void cleanup() { atelier.reset(); }
    void lesActions_data();
    void lesActions();
    void lesActionsServentToujours_data();
    void lesActionsServentToujours();
    void auDepartRienNEstCherche();
    void lePremierDialogueEstVide_data();
    void lePremierDialogueEstVide();
    void leDialogueSeSouvient();
    void laRechercheChoisitLOccurrence_data();
    void laRechercheChoisitLOccurrence();
    void chercherEncoreVaDOccurrenceEnOccurrence();
    void lesOccurrencesNeSeChevauchentPas();
    void laRecherchePartDuCurseur();
    void laRechercheNeRevientPasEnHaut();
    void laRecherchePartDeLaFinDeLaSelection();
    void ceQuiManqueEstDit_data();
    void ceQuiManqueEstDit();
    void sansTrouverLeCurseurReste_data();
    void sansTrouverLeCurseurReste();
    void chercherEncoreSansRienChercher();
    void laCasseChoisieEstRetenue();
    void uneRechercheVideNeChercheRien_data();
    void uneRechercheVideNeChercheRien();
    void chercherOublieLeRemplacement();
    void uneRechercheVideOublieAussiLeRemplacement();
    void unRemplacementVideEstRetenu();
    void remplacerPuisEncoreJusquALaFin();
    void unRemplacementQuiContientLeMotNeBouclePas();
    void remplacerParRienTrouveSeulement();
    void remplacerIgnoreLaCasse();
    void leRemplacementEstDuTexte();
    void remplacerSansTrouverNeChangeRien();
    void annulerReprendUnRemplacement();
    void renoncerLaisseTout_data();
    void renoncerLaisseTout();
    void parLesRaccourcis_data();
    void parLesRaccourcis();
    void chaqueEditeurASaRecherche();
    void unAutreTexteGardeLaRecherche();
    void laRechercheNEstPasEnregistree();

private:
    /// An editor on a new HTML text that holds \a texte, the cursor at its start.
    LyTextEdit &Avec(const QString &texte);

    std::unique_ptr<Atelier> atelier;
};

namespace {

/// The next modal window is the dialog of Ctrl+F; looks for \a texte.
void Cherche(Scenario &scenario, const QString &texte, bool casse = true)
{
    scenario.Dialogue<DlgCherche>([=](DlgCherche &dialogue) {
        Ecrit(dialogue, "lineEditCherche", texte);
        dialogue.cbCasse->setChecked(casse);
        Scenario::ClicPlusTard(dialogue.buttonOk);
    });
}

/// The next modal window is the dialog of Ctrl+R; puts \a remplacement in the place of \a texte.
void Remplace(Scenario &scenario, const QString &texte, const QString &remplacement, bool casse = true)
{
    scenario.Dialogue<DlgRemplace>([=](DlgRemplace &dialogue) {
        Ecrit(dialogue, "lineEditCherche", texte);
        Ecrit(dialogue, "lineEditRemplace", remplacement);
        dialogue.cbCasse->setChecked(casse);
        Scenario::ClicPlusTard(dialogue.buttonOk);
    });
}

/// The next modal windows are this dialog, whose fields this returns when it is done, given up with Escape.
template <typename T> void RegardeEtRenonce(Scenario &scenario, QStringList &champs)
{
    scenario.Dialogue<T>([&champs](T &dialogue) {
        const auto lignes = dialogue.template findChildren<QLineEdit *>();
        for (const QLineEdit *ligne : lignes)
            champs += ligne->objectName() + '=' + ligne->text() + '|' + ligne->selectedText();
        champs += dialogue.cbCasse->isChecked() ? "casse" : "sans casse";
        champs += dialogue.parentWidget() ? "parent" : "sans parent";
        QTest::keyClick(&dialogue, Qt::Key_Escape);
    });
}

/// "3-6": where the selection begins and where the cursor is.
QString Curseur(const LyTextEdit &editeur)
{
    const QTextCursor curseur = editeur.texte->textCursor();
    return QStringLiteral("%1-%2").arg(curseur.anchor()).arg(curseur.position());
}

void Place(const LyTextEdit &editeur, int debut, int fin)
{
    QTextCursor curseur = editeur.texte->textCursor();
    curseur.setPosition(debut);
    curseur.setPosition(fin, QTextCursor::KeepAnchor);
    editeur.texte->setTextCursor(curseur);
}

/// Presses \a touches in the text. False when the window does not get the keyboard.
bool Presse(LyTextEdit &editeur, const char *touches)
{
    // Back from a dialog, as the window manager does.
    editeur.activateWindow();
    if (!QTest::qWaitForWindowActive(&editeur))
        return false;
    QTest::keySequence(editeur.texte, QKeySequence(touches));
    return true;
}

/// Runs a command during which \a scenario must happen, and nothing else.
QStringList Lance(QAction *action, const Scenario &scenario)
{
    action->trigger();
    return scenario.Ecarts();
}

/// Looks for \a texte with the dialog; nothing else opens.
QStringList Trouve(const LyTextEdit &editeur, const QString &texte, bool casse = true)
{
    Scenario scenario;
    Cherche(scenario, texte, casse);
    return Lance(editeur.actEditCherche, scenario);
}

QStringList RemplaceUneFois(const LyTextEdit &editeur, const QString &texte, const QString &remplacement)
{
    Scenario scenario;
    Remplace(scenario, texte, remplacement);
    return Lance(editeur.actEditReplace, scenario);
}

/// F3; nothing opens.
QStringList Encore(const LyTextEdit &editeur)
{
    const Scenario scenario;
    return Lance(editeur.actEditReplaceEncore, scenario);
}

/// F3; says that nothing more was found.
QStringList EncoreSansTrouver(const LyTextEdit &editeur)
{
    Scenario scenario;
    scenario.Repond("OK");
    return Lance(editeur.actEditReplaceEncore, scenario);
}

}  // namespace

LyTextEdit &TestRecherche::Avec(const QString &texte)
{
    atelier = std::make_unique<Atelier>();
    LyTextEdit &editeur = atelier->Ouvre({});
    editeur.texte->setPlainText(texte);
    return editeur;
}

void TestRecherche::lesActions_data()
{
    QTest::addColumn<ActionEditeur>("membre");
    QTest::addColumn<QString>("texte");
    QTest::addColumn<QString>("raccourci");
    QTest::addColumn<QString>("icone");
    QTest::addColumn<QString>("status");
    QTest::addColumn<QString>("quEstCe");
    using Vue = LyTextEdit;
    QTest::newRow("chercher") << &Vue::actEditCherche << "Chercher..."
                              << "Ctrl+F"
                              << ":/images/chercher.png"
                              << "Recherche d'un mot ou d'une expression"
                              << "Chercher\n\nCherche un mot ou une expression";
    QTest::newRow("remplacer") << &Vue::actEditReplace << "&Remplacer..."
                               << "Ctrl+R"
                               << ""
                               << "Remplacement de mot(s) par autre(s) mot(s)"
                               << "Remplacer\n\nRemplace un (ou des) mot(s) par d'autres";
    QTest::newRow("encore") << &Vue::actEditReplaceEncore << "Répéter chercher/remplacer"
                            << "F3"
                            << ""
                            << "Répète l'action de recherche ou de remplacement précédente"
                            << "Répéter chercher/remplacer\n\nRépète l'action de recherche ou de remplacement "
                               "précédente";
}

void TestRecherche::lesActions()
{
    QFETCH(const ActionEditeur, membre);
    QFETCH(const QString, icone);
    QFETCH(const QString, raccourci);
    const QAction &action = *(Avec("mot").*membre);
    QTEST(action.text(), "texte");
    QCOMPARE(action.shortcut(), QKeySequence(raccourci));
    QTEST(action.statusTip(), "status");
    QTEST(action.whatsThis(), "quEstCe");
    QCOMPARE(action.icon().isNull(), icone.isEmpty());
    if (!icone.isEmpty())
        QCOMPARE(action.icon().pixmap(22).toImage(), QIcon(icone).pixmap(22).toImage());
}

void TestRecherche::lesActionsServentToujours_data()
{
    QTest::addColumn<QString>("fiche");
    QTest::addColumn<QString>("contenu");
    QTest::newRow("nouvelle") << ""
                              << "";
    QTest::newRow("html") << "fiche.html"
                          << "<p>mot</p>";
    QTest::newRow("texte") << "notes.txt"
                           << "un mot";
    QTest::newRow("texte vide") << "vide.txt"
                                << "";
}

void TestRecherche::lesActionsServentToujours()
{
    QFETCH(const QString, fiche);
    QFETCH(const QString, contenu);
    atelier = std::make_unique<Atelier>();
    LyTextEdit &editeur = fiche.isEmpty() ? atelier->Ouvre({}) : atelier->Ouvre(fiche, contenu.toUtf8());
    const auto actives = [&editeur] {
        return editeur.actEditCherche->isEnabled() && editeur.actEditReplace->isEnabled()
            && editeur.actEditReplaceEncore->isEnabled();
    };
    QVERIFY(actives());
    editeur.texte->selectAll();
    editeur.disableHtml(false);
    QVERIFY(actives());
    editeur.disableHtml(true);
    Tape(editeur, "mot");
    QVERIFY(actives());
    Place(editeur, 0, 0);
    QCOMPARE(Trouve(editeur, "mot"), QStringList());
    QVERIFY(actives());
    QCOMPARE(editeur.texte->textCursor().selectedText(), "mot");
}

void TestRecherche::auDepartRienNEstCherche()
{
    const LyTextEdit &editeur = Avec("");
    QCOMPARE(editeur.texteCherche, QString());
    QCOMPARE(editeur.texteRemplacement, QString());
    QVERIFY(editeur.casseRespectee);
}

void TestRecherche::lePremierDialogueEstVide_data()
{
    QTest::addColumn<bool>("remplace");
    QTest::addColumn<QStringList>("champs");
    QTest::newRow("chercher") << false << QStringList{"lineEditCherche=|", "casse", "sans parent"};
    QTest::newRow("remplacer") << true
                               << QStringList{"lineEditCherche=|", "lineEditRemplace=|", "casse", "sans parent"};
}

void TestRecherche::lePremierDialogueEstVide()
{
    QFETCH(const bool, remplace);
    // A selected text is not taken for what is looked for.
    const LyTextEdit &editeur = Avec("un mot ici");
    Place(editeur, 3, 6);
    QStringList champs;
    Scenario scenario;
    if (remplace)
        RegardeEtRenonce<DlgRemplace>(scenario, champs);
    else
        RegardeEtRenonce<DlgCherche>(scenario, champs);
    QCOMPARE(Lance(remplace ? editeur.actEditReplace : editeur.actEditCherche, scenario), QStringList());
    QTEST(champs, "champs");
}

void TestRecherche::leDialogueSeSouvient()
{
    const LyTextEdit &editeur = Avec("un mot ici");
    Scenario scenario;
    Remplace(scenario, "mot ici", "lieu", false);
    QCOMPARE(Lance(editeur.actEditReplace, scenario), QStringList());
    QCOMPARE(editeur.texteCherche, "mot ici");
    QCOMPARE(editeur.texteRemplacement, "lieu");
    QVERIFY(!editeur.casseRespectee);

    QStringList champs;
    RegardeEtRenonce<DlgRemplace>(scenario, champs);
    QCOMPARE(Lance(editeur.actEditReplace, scenario), QStringList());
    // What is looked for is selected, so that typing takes its place.
    QCOMPARE(champs,
             (QStringList{"lineEditCherche=mot ici|mot ici", "lineEditRemplace=lieu|", "sans casse", "sans parent"}));

    champs.clear();
    RegardeEtRenonce<DlgCherche>(scenario, champs);
    QCOMPARE(Lance(editeur.actEditCherche, scenario), QStringList());
    QCOMPARE(champs, (QStringList{"lineEditCherche=mot ici|mot ici", "sans casse", "sans parent"}));
}

void TestRecherche::laRechercheChoisitLOccurrence_data()
{
    QTest::addColumn<QString>("texte");
    QTest::addColumn<QString>("cherche");
    QTest::addColumn<bool>("casse");
    QTest::addColumn<QString>("curseur");
    QTest::newRow("mot") << "un mot ici"
                         << "mot" << true << "3-6";
    QTest::newRow("dans un mot") << "une immobile"
                                 << "mob" << true << "6-9";
    QTest::newRow("autre ligne") << "un\ndeux\ntrois"
                                 << "trois" << true << "8-13";
    QTest::newRow("casse respectée") << "MOT Mot mot"
                                     << "mot" << true << "8-11";
    QTest::newRow("casse respectée, majuscules") << "mot Mot MOT"
                                                 << "MOT" << true << "8-11";
    QTest::newRow("casse ignorée") << "MOT Mot mot"
                                   << "mot" << false << "0-3";
    QTest::newRow("casse ignorée, majuscules") << "un mot"
                                               << "MOT" << false << "3-6";
    QTest::newRow("casse ignorée, accents") << "né à Évreux"
                                            << "éVREUX" << false << "5-11";
    QTest::newRow("un accent n'est pas rien") << "ete été"
                                              << "été" << false << "4-7";
    QTest::newRow("blancs compris") << "unmot un mot "
                                    << " mot " << true << "8-13";
    QTest::newRow("pas une expression") << "abc a.c"
                                        << "a.c" << true << "4-7";
    QTest::newRow("balise") << "<p>mot</p>"
                            << "</p>" << true << "6-10";
}

void TestRecherche::laRechercheChoisitLOccurrence()
{
    QFETCH(const QString, texte);
    QFETCH(const QString, cherche);
    QFETCH(const bool, casse);
    const LyTextEdit &editeur = Avec(texte);
    QCOMPARE(Trouve(editeur, cherche, casse), QStringList());
    QTEST(Curseur(editeur), "curseur");
    QTEST(editeur.texteCherche, "cherche");
    QTEST(editeur.casseRespectee, "casse");
    QTEST(TexteDe(editeur), "texte");
    QVERIFY(!EstModifie(editeur));
}

void TestRecherche::chercherEncoreVaDOccurrenceEnOccurrence()
{
    const LyTextEdit &editeur = Avec("mot, mot\nmot");
    QCOMPARE(Trouve(editeur, "mot"), QStringList());
    QCOMPARE(Curseur(editeur), "0-3");
    QCOMPARE(Encore(editeur), QStringList());
    QCOMPARE(Curseur(editeur), "5-8");
    QCOMPARE(Encore(editeur), QStringList());
    QCOMPARE(Curseur(editeur), "9-12");
    QCOMPARE(EncoreSansTrouver(editeur), QStringList());
    QCOMPARE(Curseur(editeur), "9-12");
}

void TestRecherche::lesOccurrencesNeSeChevauchentPas()
{
    const LyTextEdit &editeur = Avec("aaaaa");
    QCOMPARE(Trouve(editeur, "aa"), QStringList());
    QCOMPARE(Curseur(editeur), "0-2");
    QCOMPARE(Encore(editeur), QStringList());
    QCOMPARE(Curseur(editeur), "2-4");
    QCOMPARE(EncoreSansTrouver(editeur), QStringList());
}

void TestRecherche::laRecherchePartDuCurseur()
{
    const LyTextEdit &editeur = Avec("mot mot mot");
    Place(editeur, 5, 5);
    QCOMPARE(Trouve(editeur, "mot"), QStringList());
    QCOMPARE(Curseur(editeur), "8-11");
}

void TestRecherche::laRechercheNeRevientPasEnHaut()
{
    const LyTextEdit &editeur = Avec("mot\nrien");
    Place(editeur, 1, 1);
    Scenario scenario;
    Cherche(scenario, "mot");
    scenario.Repond("OK");
    QCOMPARE(Lance(editeur.actEditCherche, scenario), QStringList());
    QCOMPARE(Curseur(editeur), "1-1");
    // Neither the second time.
    scenario.Repond("OK");
    QCOMPARE(Lance(editeur.actEditReplaceEncore, scenario), QStringList());
    QCOMPARE(Curseur(editeur), "1-1");
}

void TestRecherche::laRecherchePartDeLaFinDeLaSelection()
{
    const LyTextEdit &editeur = Avec("mot mot");
    Place(editeur, 3, 0);
    QCOMPARE(Trouve(editeur, "mot"), QStringList());
    QCOMPARE(Curseur(editeur), "4-7");
}

void TestRecherche::ceQuiManqueEstDit_data()
{
    QTest::addColumn<QString>("cherche");
    QTest::addColumn<QString>("texte");
    QTest::newRow("mot") << "abc"
                         << "\"abc\" non trouvé";
    QTest::newRow("casse") << "MOT"
                           << "\"MOT\" non trouvé";
    QTest::newRow("balise") << "<b>&amp;</b>"
                            << "\"<b>&amp;</b>\" non trouvé";
    QTest::newRow("guillemets et blancs") << " \"a\" "
                                          << "\" \"a\" \" non trouvé";
    QTest::newRow("numéro") << "%1 %2"
                            << "\"%1 %2\" non trouvé";
}

void TestRecherche::ceQuiManqueEstDit()
{
    QFETCH(const QString, cherche);
    LyTextEdit &editeur = Avec("un mot ici");
    Scenario scenario;
    Cherche(scenario, cherche);
    scenario.Repond("OK");
    QCOMPARE(Lance(editeur.actEditCherche, scenario), QStringList());
    const BoiteVue boite = scenario.Boites().constFirst();
    QCOMPARE(boite.titre, "Recherche/Remplacement");
    QTEST(boite.texte, "texte");
    QCOMPARE(boite.icone, QMessageBox::Information);
    QCOMPARE(boite.boutons, QStringList{"OK"});
    QCOMPARE(boite.parent, &editeur);
}

void TestRecherche::sansTrouverLeCurseurReste_data()
{
    QTest::addColumn<int>("debut");
    QTest::addColumn<int>("fin");
    QTest::addColumn<QString>("curseur");
    QTest::newRow("début") << 0 << 0 << "0-0";
    QTest::newRow("milieu") << 4 << 4 << "4-4";
    QTest::newRow("fin") << 10 << 10 << "10-10";
    QTest::newRow("sélection") << 3 << 6 << "3-6";
    QTest::newRow("sélection à rebours") << 6 << 3 << "6-3";
}

void TestRecherche::sansTrouverLeCurseurReste()
{
    QFETCH(const int, debut);
    QFETCH(const int, fin);
    const LyTextEdit &editeur = Avec("un mot ici");
    Place(editeur, debut, fin);
    Scenario scenario;
    Remplace(scenario, "abc", "def");
    scenario.Repond("OK");
    QCOMPARE(Lance(editeur.actEditReplace, scenario), QStringList());
    QTEST(Curseur(editeur), "curseur");
    QCOMPARE(TexteDe(editeur), "un mot ici");
}

void TestRecherche::chercherEncoreSansRienChercher()
{
    const LyTextEdit &editeur = Avec("un mot ici");
    Place(editeur, 3, 6);
    Scenario scenario;
    scenario.Repond("OK");
    QCOMPARE(Lance(editeur.actEditReplaceEncore, scenario), QStringList());
    QCOMPARE(scenario.Boites().constFirst().texte, "\"\" non trouvé");
    QCOMPARE(Curseur(editeur), "3-6");
}

void TestRecherche::laCasseChoisieEstRetenue()
{
    const LyTextEdit &editeur = Avec("MOT mot MOT mot");
    QCOMPARE(Trouve(editeur, "mot", false), QStringList());
    QCOMPARE(Curseur(editeur), "0-3");
    QCOMPARE(Encore(editeur), QStringList());
    QCOMPARE(Curseur(editeur), "4-7");
    QCOMPARE(Trouve(editeur, "mot", true), QStringList());
    QCOMPARE(Curseur(editeur), "12-15");
}

void TestRecherche::uneRechercheVideNeChercheRien_data()
{
    QTest::addColumn<bool>("remplace");
    QTest::addColumn<QString>("remplacement");
    QTest::newRow("chercher") << false << "";
    QTest::newRow("remplacer") << true << "";
    QTest::newRow("remplacer par") << true << "autre";
}

void TestRecherche::uneRechercheVideNeChercheRien()
{
    QFETCH(const bool, remplace);
    QFETCH(const QString, remplacement);
    const LyTextEdit &editeur = Avec("un mot ici");
    Place(editeur, 3, 6);
    Scenario scenario;
    if (remplace)
        Remplace(scenario, "", remplacement, false);
    else
        Cherche(scenario, "", false);
    QCOMPARE(Lance(remplace ? editeur.actEditReplace : editeur.actEditCherche, scenario), QStringList());
    QCOMPARE(Curseur(editeur), "3-6");
    QCOMPARE(TexteDe(editeur), "un mot ici");
    QCOMPARE(editeur.texteCherche, QString());
    QVERIFY(!editeur.casseRespectee);
    QTEST(editeur.texteRemplacement, "remplacement");
}

void TestRecherche::chercherOublieLeRemplacement()
{
    const LyTextEdit &editeur = Avec("a a a a");
    QCOMPARE(RemplaceUneFois(editeur, "a", "b"), QStringList());
    QCOMPARE(TexteDe(editeur), "b a a a");
    QCOMPARE(Trouve(editeur, "a"), QStringList());
    QCOMPARE(editeur.texteRemplacement, QString());
    QCOMPARE(Encore(editeur), QStringList());
    QCOMPARE(TexteDe(editeur), "b a a a");
    QCOMPARE(Curseur(editeur), "4-5");
}

void TestRecherche::uneRechercheVideOublieAussiLeRemplacement()
{
    const LyTextEdit &editeur = Avec("a a a a");
    QCOMPARE(RemplaceUneFois(editeur, "a", "b"), QStringList());
    QCOMPARE(Trouve(editeur, ""), QStringList());
    QCOMPARE(editeur.texteCherche, QString());
    QCOMPARE(editeur.texteRemplacement, QString());
    QCOMPARE(TexteDe(editeur), "b a a a");
    QCOMPARE(Curseur(editeur), "1-1");
}

void TestRecherche::unRemplacementVideEstRetenu()
{
    const LyTextEdit &editeur = Avec("a a a a");
    QCOMPARE(RemplaceUneFois(editeur, "a", "b"), QStringList());
    QCOMPARE(RemplaceUneFois(editeur, "a", ""), QStringList());
    QCOMPARE(editeur.texteRemplacement, QString());
    QCOMPARE(Encore(editeur), QStringList());
    QCOMPARE(TexteDe(editeur), "b a a a");
    QCOMPARE(Curseur(editeur), "4-5");
}

void TestRecherche::remplacerPuisEncoreJusquALaFin()
{
    const LyTextEdit &editeur = Avec("a1 a2\na3");
    Place(editeur, 1, 1);
    QCOMPARE(RemplaceUneFois(editeur, "a", "bb"), QStringList());
    QCOMPARE(TexteDe(editeur), "a1 bb2\na3");
    // After what was put in.
    QCOMPARE(Curseur(editeur), "5-5");
    QCOMPARE(Encore(editeur), QStringList());
    QCOMPARE(TexteDe(editeur), "a1 bb2\nbb3");
    QCOMPARE(Curseur(editeur), "9-9");
    Scenario scenario;
    scenario.Repond("OK");
    QCOMPARE(Lance(editeur.actEditReplaceEncore, scenario), QStringList());
    QCOMPARE(scenario.Boites().constFirst().texte, "\"a\" non trouvé");
    QCOMPARE(TexteDe(editeur), "a1 bb2\nbb3");
    QCOMPARE(Curseur(editeur), "9-9");
}

void TestRecherche::unRemplacementQuiContientLeMotNeBouclePas()
{
    const LyTextEdit &editeur = Avec("a a");
    QCOMPARE(RemplaceUneFois(editeur, "a", "aaa"), QStringList());
    QCOMPARE(TexteDe(editeur), "aaa a");
    QCOMPARE(Encore(editeur), QStringList());
    QCOMPARE(TexteDe(editeur), "aaa aaa");
    QCOMPARE(EncoreSansTrouver(editeur), QStringList());
    QCOMPARE(TexteDe(editeur), "aaa aaa");
}

void TestRecherche::remplacerParRienTrouveSeulement()
{
    const LyTextEdit &editeur = Avec("un mot ici");
    QCOMPARE(RemplaceUneFois(editeur, "mot", ""), QStringList());
    QCOMPARE(TexteDe(editeur), "un mot ici");
    QCOMPARE(Curseur(editeur), "3-6");
    QVERIFY(!EstModifie(editeur));
}

void TestRecherche::remplacerIgnoreLaCasse()
{
    const LyTextEdit &editeur = Avec("MOT mot");
    Scenario scenario;
    Remplace(scenario, "mot", "Lieu", false);
    QCOMPARE(Lance(editeur.actEditReplace, scenario), QStringList());
    QCOMPARE(Encore(editeur), QStringList());
    QCOMPARE(TexteDe(editeur), "Lieu Lieu");
    QVERIFY(EstModifie(editeur));
}

void TestRecherche::leRemplacementEstDuTexte()
{
    const LyTextEdit &editeur = Avec("un mot ici");
    QCOMPARE(RemplaceUneFois(editeur, "mot", "<b>&amp; \\1 %1</b>"), QStringList());
    QCOMPARE(TexteDe(editeur), "un <b>&amp; \\1 %1</b> ici");
}

void TestRecherche::remplacerSansTrouverNeChangeRien()
{
    const LyTextEdit &editeur = Avec("un mot ici");
    Scenario scenario;
    Remplace(scenario, "Mot", "lieu");
    scenario.Repond("OK");
    QCOMPARE(Lance(editeur.actEditReplace, scenario), QStringList());
    QCOMPARE(scenario.Boites().constFirst().texte, "\"Mot\" non trouvé");
    QCOMPARE(TexteDe(editeur), "un mot ici");
    QVERIFY(!EstModifie(editeur));
    QCOMPARE(editeur.texteCherche, "Mot");
    QCOMPARE(editeur.texteRemplacement, "lieu");
}

void TestRecherche::annulerReprendUnRemplacement()
{
    const LyTextEdit &editeur = Avec("a a");
    QCOMPARE(RemplaceUneFois(editeur, "a", "bb"), QStringList());
    QCOMPARE(Encore(editeur), QStringList());
    QCOMPARE(TexteDe(editeur), "bb bb");
    editeur.actEditAnnuler->trigger();
    QCOMPARE(TexteDe(editeur), "bb a");
    editeur.actEditAnnuler->trigger();
    QCOMPARE(TexteDe(editeur), "a a");
    QVERIFY(!editeur.actEditAnnuler->isEnabled());
    editeur.actEditRefaire->trigger();
    QCOMPARE(TexteDe(editeur), "bb a");
}

void TestRecherche::renoncerLaisseTout_data()
{
    QTest::addColumn<bool>("remplace");
    QTest::addColumn<QString>("touche");
    for (const bool remplace : {false, true}) {
        for (const char *touche : {"Esc", "Alt+A", ""}) {
            const QString nom = (remplace ? "remplacer " : "chercher ") + QString(touche);
            QTest::newRow(qPrintable(nom)) << remplace << QString(touche);
        }
    }
}

void TestRecherche::renoncerLaisseTout()
{
    QFETCH(const bool, remplace);
    QFETCH(const QString, touche);
    const LyTextEdit &editeur = Avec("a a a");
    Scenario scenario;
    Remplace(scenario, "a", "b", false);
    QCOMPARE(Lance(editeur.actEditReplace, scenario), QStringList());
    scenario.Dialogue<QDialog>([remplace, touche](QDialog &dialogue) {
        QVERIFY(QTest::qWaitForWindowActive(&dialogue));
        Ecrit(dialogue, "lineEditCherche", "autre");
        if (remplace)
            Ecrit(dialogue, "lineEditRemplace", "chose");
        dialogue.findChild<QCheckBox *>("cbCasse")->setChecked(true);
        if (touche.isEmpty())
            dialogue.close();
        else
            QTest::keySequence(dialogue.focusWidget(), QKeySequence(touche));
    });
    QCOMPARE(Lance(remplace ? editeur.actEditReplace : editeur.actEditCherche, scenario), QStringList());
    QCOMPARE(editeur.texteCherche, "a");
    QCOMPARE(editeur.texteRemplacement, "b");
    QVERIFY(!editeur.casseRespectee);
    QCOMPARE(TexteDe(editeur), "b a a");
    QCOMPARE(Curseur(editeur), "1-1");
}

void TestRecherche::parLesRaccourcis_data()
{
    QTest::addColumn<QString>("fiche");
    QTest::newRow("html") << "fiche.html";
    QTest::newRow("texte") << "notes.txt";
}

void TestRecherche::parLesRaccourcis()
{
    QFETCH(const QString, fiche);
    atelier = std::make_unique<Atelier>();
    LyTextEdit &editeur = atelier->Ouvre(fiche, "a a a");
    Scenario scenario;
    // The keyboard goes to the first field, and Return accepts.
    scenario.Dialogue<DlgCherche>([](DlgCherche &dialogue) {
        QVERIFY(QTest::qWaitForWindowActive(&dialogue));
        QTest::keyClicks(dialogue.focusWidget(), "a");
        QTest::keyClick(dialogue.focusWidget(), Qt::Key_Return);
    });
    QVERIFY(Presse(editeur, "Ctrl+F"));
    QCOMPARE(scenario.Ecarts(), QStringList());
    QCOMPARE(Curseur(editeur), "0-1");
    QVERIFY(Presse(editeur, "F3"));
    QCOMPARE(Curseur(editeur), "2-3");
    scenario.Dialogue<DlgRemplace>([](DlgRemplace &dialogue) {
        QVERIFY(QTest::qWaitForWindowActive(&dialogue));
        QTest::keyClicks(dialogue.focusWidget(), "a");
        QTest::keyClick(dialogue.focusWidget(), Qt::Key_Tab);
        QTest::keyClicks(dialogue.focusWidget(), "b");
        QTest::keyClick(dialogue.focusWidget(), Qt::Key_Return);
    });
    QVERIFY(Presse(editeur, "Ctrl+R"));
    QCOMPARE(scenario.Ecarts(), QStringList());
    QCOMPARE(TexteDe(editeur), "a a b");
    scenario.Repond("OK");
    QVERIFY(Presse(editeur, "F3"));
    QCOMPARE(scenario.Ecarts(), QStringList());
    QCOMPARE(scenario.Boites().constLast().texte, "\"a\" non trouvé");
}

void TestRecherche::chaqueEditeurASaRecherche()
{
    const LyTextEdit &editeur = Avec("a a");
    const LyTextEdit autre("Fiche", QString(), false, atelier->dossier.Chemin(), "n° 13");
    QCOMPARE(RemplaceUneFois(editeur, "a", "b"), QStringList());
    QCOMPARE(autre.texteCherche, QString());
    QCOMPARE(autre.texteRemplacement, QString());
}

void TestRecherche::unAutreTexteGardeLaRecherche()
{
    LyTextEdit &editeur = Avec("Jean et Jean");
    Scenario scenario;
    Remplace(scenario, "Jean", "Jeanne", false);
    QCOMPARE(Lance(editeur.actEditReplace, scenario), QStringList());
    editeur.texte->document()->setModified(false);
    editeur.actFileNew->trigger();
    QCOMPARE(editeur.texte->toPlainText(), QString());
    QStringList champs;
    RegardeEtRenonce<DlgRemplace>(scenario, champs);
    QCOMPARE(Lance(editeur.actEditReplace, scenario), QStringList());
    QCOMPARE(champs,
             (QStringList{"lineEditCherche=Jean|Jean", "lineEditRemplace=Jeanne|", "sans casse", "sans parent"}));
}

void TestRecherche::laRechercheNEstPasEnregistree()
{
    LyTextEdit &editeur = Avec("a");
    QCOMPARE(Trouve(editeur, "a", false), QStringList());
    editeur.texte->document()->setModified(false);
    QVERIFY(editeur.close());
    QStringList cles = QSettings("ProgrammesLY", "ramelieredithtml").allKeys();
    cles.sort();
    QCOMPARE(cles, (QStringList{"font", "pos", "size"}));
    const LyTextEdit &suivant = atelier->Ouvre({});
    QCOMPARE(suivant.texteCherche, QString());
    QVERIFY(suivant.casseRespectee);
}

RAMELIER_TEST_BUREAU_MAIN(TestRecherche)
#include "tst_recherche.moc"
