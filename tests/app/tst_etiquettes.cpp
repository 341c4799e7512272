#include "dialoguesediteur.h"
#include "fenetre.h"
#include "lytextbrowser.h"
#include "lytextedit.h"

#include <QAbstractButton>
#include <QAccessible>
#include <QMenuBar>
#include <QToolBar>

/// What a screen reader tells, and the way of the keyboard, in every dialog and every window.
class TestEtiquettes : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init() { EffaceReglages(); }
    void toutCeQuiSeManieAUnNom_data();
    void toutCeQuiSeManieAUnNom();
    void lesTextesEtLesBarresOntLeurNom();
    void laTabulationVisiteToutEtFinitParLesBoutons_data();
    void laTabulationVisiteToutEtFinitParLesBoutons();
    void laTabulationSuitLaLecture_data();
    void laTabulationSuitLaLecture();
    void laCouleurSeDitEnMots_data();
    void laCouleurSeDitEnMots();
    void laPoliceSeDitAuBouton_data();
    void laPoliceSeDitAuBouton();

private:
    std::unique_ptr<QWidget> Nouvelle(const QString &classe) const;
    static void UneLigneParDialogueDesDix();

    Dossier dossier;
};

namespace {

QString Dit(QWidget *widget, QAccessible::Text quoi)
{
    const QAccessibleInterface *acces = QAccessible::queryAccessibleInterface(widget);
    return acces ? acces->text(quoi) : QStringLiteral("(inaccessible)");
}

bool PrendLeFocus(const QWidget *widget)
{
    return widget->isVisible() && widget->focusPolicy() != Qt::NoFocus && !widget->focusProxy();
}

/// What takes the focus, the buttons of the bars, and the swatches, which have no text either.
QList<QWidget *> CeQuiSeManie(const QWidget &fenetre)
{
    QList<QWidget *> trouves;
    const auto tous = fenetre.findChildren<QWidget *>();
    for (QWidget *widget : tous) {
        const bool sansFocus = widget->isVisible()
            && (qobject_cast<QAbstractButton *>(widget) || widget->objectName().startsWith("LineEditCouleur"));
        if (sansFocus || PrendLeFocus(widget))
            trouves += widget;
    }
    return trouves;
}

QWidget *DernierBouton(const QDialog &dialogue)
{
    for (const char *texte : {"Annuler", "&Annuler"}) {
        if (QWidget *bouton = Visite(dialogue, texte))
            return bouton;
    }
    return Bouton(dialogue, "OK");
}

/// What the Tab key visits, up to the last button.
QList<QWidget *> Tour(QDialog &dialogue)
{
    constexpr int bienAssez = 50;
    if (!Affiche(dialogue))
        return {};
    QWidget *dernier = DernierBouton(dialogue);
    dernier->setFocus();
    QList<QWidget *> visites;
    do {
        QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab);
        visites += QApplication::focusWidget();
    } while (visites.constLast() && visites.constLast() != dernier && visites.size() < bienAssez);
    return visites;
}

QStringList NomsTries(const QList<QWidget *> &widgets)
{
    QStringList noms;
    for (const QWidget *widget : widgets)
        noms += widget ? widget->objectName() : QStringLiteral("(aucun)");
    noms.sort();
    return noms;
}

QRect Place(const QWidget *widget)
{
    return {widget->mapTo(widget->window(), QPoint()), widget->size()};
}

/// \a place comes after \a avant to one who reads: below it, or to its right in the same row.
bool SeLitApres(const QRect &place, const QRect &avant)
{
    const bool memeRangee = place.top() <= avant.bottom() && place.bottom() >= avant.top();
    return place.top() > avant.bottom() || (memeRangee && place.left() > avant.right());
}

}  // namespace

std::unique_ptr<QWidget> TestEtiquettes::Nouvelle(const QString &classe) const
{
    if (classe == "RamelierApp") {
        const QByteArray arbre = ArbreEcrit("Famille", {{1, "UN"}});
        return std::make_unique<Fenetre>(QStringList{dossier.Ecrit("famille.xrlg", arbre)});
    }
    if (classe == "LyTextBrowser")
        return std::make_unique<LyTextBrowser>(QIcon(), "Fiche", dossier.Ecrit("fiche.html", "<p>Texte"), true);
    if (classe == "LyTextEdit")
        return std::make_unique<LyTextEdit>("Fiche", dossier.Ecrit("fiche.html", "<p>Texte"), false, dossier.Chemin(),
                                            QString());
    if (classe == "LyTextEdit seul")
        return std::make_unique<LyTextEdit>("Fiche", QString(), true, dossier.Chemin("lyedithtml"), QString());
    return NouveauDesDix(classe);
}

void TestEtiquettes::UneLigneParDialogueDesDix()
{
    QTest::addColumn<QString>("classe");
    const QStringList classes = LesDixDialogues();
    for (const QString &classe : classes)
        QTest::newRow(qPrintable(classe)) << classe;
}

void TestEtiquettes::toutCeQuiSeManieAUnNom_data()
{
    UneLigneParDialogueDesDix();
    for (const char *classe : {"RamelierApp", "LyTextBrowser", "LyTextEdit", "LyTextEdit seul"})
        QTest::newRow(classe) << classe;
}

void TestEtiquettes::toutCeQuiSeManieAUnNom()
{
    QFETCH(const QString, classe);
    const auto fenetre = Nouvelle(classe);
    fenetre->show();
    QVERIFY(QTest::qWaitForWindowActive(fenetre.get()));
    QVERIFY(!Dit(fenetre.get(), QAccessible::Name).isEmpty());
    QStringList noms;
    const auto widgets = CeQuiSeManie(*fenetre);
    QVERIFY(!widgets.isEmpty());
    for (QWidget *widget : widgets) {
        const QString nom = Dit(widget, QAccessible::Name).simplified();
        const QString qui = QString::fromLatin1(widget->metaObject()->className()) + u' ' + widget->objectName();
        QVERIFY2(nom.contains(QRegularExpression("[[:alpha:]]{2}")), qPrintable(qui + " : " + nom));
        QVERIFY2(!noms.contains(nom), qPrintable(nom));
        noms += nom;
    }
}

void TestEtiquettes::lesTextesEtLesBarresOntLeurNom()
{
    const auto nomme = [this](const QString &classe) {
        const auto fenetre = Nouvelle(classe);
        auto *principale = qobject_cast<QMainWindow *>(fenetre.get());
        QStringList noms{Dit(principale->menuBar(), QAccessible::Name)};
        const auto barres = fenetre->findChildren<QToolBar *>();
        for (QToolBar *barre : barres)
            noms += Dit(barre, QAccessible::Name);
        noms += Dit(principale->centralWidget(), QAccessible::Name);
        // Some bars have no room for all.
        const auto boutons = fenetre->findChildren<QAbstractButton *>(QRegularExpression("_ext_button$"));
        for (QAbstractButton *bouton : boutons)
            noms += Dit(bouton, QAccessible::Name);
        return noms;
    };
    QCOMPARE(nomme("LyTextEdit"),
             (QStringList{"Barre de menus", "Barre d'outils", "Barre d'outils balises HTML", "Texte édité",
                          "Barre de menus (suite)", "Barre d'outils (suite)", "Barre d'outils balises HTML (suite)"}));
    QCOMPARE(nomme("LyTextBrowser"),
             (QStringList{"Barre de menus", "Barre d'outils", "Texte affiché", "Barre de menus (suite)",
                          "Barre d'outils (suite)"}));
    QCOMPARE(nomme("RamelierApp").mid(0, 2), (QStringList{"Barre de menus", "Barre d'outils"}));
}

void TestEtiquettes::laTabulationVisiteToutEtFinitParLesBoutons_data()
{
    UneLigneParDialogueDesDix();
}

void TestEtiquettes::laTabulationVisiteToutEtFinitParLesBoutons()
{
    QFETCH(const QString, classe);
    const auto dialogue = NouveauDesDix(classe);
    const QList<QWidget *> visites = Tour(*dialogue);
    QList<QWidget *> attendus;
    const auto tous = dialogue->findChildren<QWidget *>();
    for (QWidget *widget : tous) {
        if (PrendLeFocus(widget) && widget->isEnabled() && (widget->focusPolicy() & Qt::TabFocus))
            attendus += widget;
    }
    QVERIFY(attendus.size() >= 2);
    QCOMPARE(NomsTries(visites), NomsTries(attendus));
    QString fin;
    for (QWidget *bouton : visites.mid(visites.size() - 2))
        fin += '[' + Dit(bouton, QAccessible::Name) + ']';
    QCOMPARE(fin.toLower(), classe == "DlgSexRac" ? "[masculin][ok]" : "[ok][annuler]");
}

void TestEtiquettes::laTabulationSuitLaLecture_data()
{
    UneLigneParDialogueDesDix();
}

void TestEtiquettes::laTabulationSuitLaLecture()
{
    QFETCH(const QString, classe);
    const auto dialogue = NouveauDesDix(classe);
    const QList<QWidget *> visites = Tour(*dialogue);
    QVERIFY(visites.size() >= 2);
    int bordDesColonnes = 0;
    QRect avant;
    for (const QWidget *widget : visites) {
        const QRect place = Place(widget);
        // Below, beside, or at the head of the next column.
        QVERIFY2(avant.isNull() || SeLitApres(place, avant) || place.left() > bordDesColonnes,
                 qPrintable(widget->objectName()));
        bordDesColonnes = qMax(bordDesColonnes, place.right());
        avant = place;
    }
}

void TestEtiquettes::laCouleurSeDitEnMots_data()
{
    QTest::addColumn<QString>("classe");
    QTest::addColumn<QString>("pastille");
    QTest::addColumn<QString>("bouton");
    QTest::addColumn<QString>("defaut");
    QTest::newRow("traits") << "DlgOptDessin"
                            << "LineEditCouleurTraits"
                            << "Modifier la couleur des traits ..."
                            << "Rétablir les valeurs de l'option préférences";
    QTest::newRow("textes") << "DlgPolices"
                            << "LineEditCouleur"
                            << "Modifier la couleur des textes ..."
                            << "Rétablir les valeurs de l'option préférences";
    QTest::newRow("préférences, traits") << "DlgPreferences"
                                         << "LineEditCouleurTraits"
                                         << "Modifier la couleur des traits ..."
                                         << "Rétablir toutes les valeurs par défaut";
    QTest::newRow("préférences, textes") << "DlgPreferences"
                                         << "LineEditCouleurTextes"
                                         << "Modifier la couleur des textes ..."
                                         << "Rétablir toutes les valeurs par défaut";
}

void TestEtiquettes::laCouleurSeDitEnMots()
{
    QFETCH(const QString, classe);
    QFETCH(const QString, pastille);
    QFETCH(const QString, bouton);
    QFETCH(const QString, defaut);
    const auto dialogue = NouveauDialogue(classe);
    QVERIFY(Affiche(*dialogue));
    auto *montree = dialogue->findChild<QWidget *>(pastille);
    QPushButton *modifier = Bouton(*dialogue, bouton);
    const auto dits = [&] {
        return QStringList{Dit(montree, QAccessible::Description), montree->toolTip(),
                           Dit(modifier, QAccessible::Description)};
    };
    const QStringList noir(3, "#000000 (rouge 0, vert 0, bleu 0)");
    const QStringList orange(3, "#ff8001 (rouge 255, vert 128, bleu 1)");
    QCOMPARE(dits(), noir);
    Scenario scenario;
    ProchaineCouleur(scenario, QColor(255, 128, 1), true);
    Clique(modifier);
    QCOMPARE(scenario.Ecarts(), QStringList());
    QCOMPARE(dits(), orange);
    Clique(Bouton(*dialogue, defaut));
    QCOMPARE(dits(), noir);
}

void TestEtiquettes::laPoliceSeDitAuBouton_data()
{
    QTest::addColumn<QString>("classe");
    QTest::newRow("DlgPolices") << "DlgPolices";
    QTest::newRow("DlgPreferences") << "DlgPreferences";
}

void TestEtiquettes::laPoliceSeDitAuBouton()
{
    QFETCH(const QString, classe);
    const auto dialogue = NouveauDialogue(classe);
    QVERIFY(Affiche(*dialogue));
    const auto dit = [&](const QString &bouton) { return Dit(Bouton(*dialogue, bouton), QAccessible::Description); };
    QCOMPARE(dit("Modifier la police des textes ..."), "Helvetica 8");
    QCOMPARE(dit("Modifier la police des numéros ..."), "Helvetica Bold 14");
    QCOMPARE(dit("Modifier la police du titre ..."), "Helvetica Bold 30");
    QCOMPARE(dit("Modifier la police de la légende ..."), "Helvetica Normal 12");
    Scenario scenario;
    ProchainePolice(scenario, QFont("Liberation Serif", 17, QFont::Normal, true), true);
    Clique(Bouton(*dialogue, "Modifier la police des numéros ..."));
    QCOMPARE(scenario.Ecarts(), QStringList());
    QCOMPARE(dit("Modifier la police des numéros ..."), "Liberation Serif Italic 17");
}

RAMELIER_TEST_BUREAU_MAIN(TestEtiquettes)
#include "tst_etiquettes.moc"
