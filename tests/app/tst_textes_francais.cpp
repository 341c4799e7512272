#include "demarrage.h"
#include "dialoguefichier.h"
#include "dlgcherche.h"
#include "dlgremplace.h"
#include "dlgtableau.h"
#include "fenetre.h"
#include "formulaire.h"
#include "lytextbrowser.h"
#include "lytextedit.h"
#include "monqtextedit.h"
#include "navigateurfiche.h"
#include "textesmontres.h"

#include <QAction>
#include <QColorDialog>
#include <QFileDialog>
#include <QFontDialog>
#include <QLineEdit>
#include <QMenu>
#include <QPrintDialog>
#include <QPrinter>
#include <QPrinterInfo>
#include <QRegularExpression>
#include <QToolButton>

#include <functional>

/// Whatever the programs show is French: no text of the toolkit goes without a translation, and none has an English word.
class TestTextesFrancais : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init() { espion.Oublie(); }
    void cleanup() { EffaceReglages(); }
    void lEspionVoitCeQuiNEstPasTraduit();
    void unMotAnglaisEstReconnu();
    void lesFenetresSontEnFrancais_data();
    void lesFenetresSontEnFrancais();
    void lesDialoguesSontEnFrancais_data();
    void lesDialoguesSontEnFrancais();
    void lesDialoguesDuToolkitSontEnFrancais_data();
    void lesDialoguesDuToolkitSontEnFrancais();
    void lesMenusDesTextesSontEnFrancais_data();
    void lesMenusDesTextesSontEnFrancais();
    void lesProprietesDeLImprimanteSontEnFrancais();
    void lAProposDeQtEstEnFrancais();
    void lesBoutonsUsuelsSontEnFrancais();

public:
    static TextesNonTraduits espion;

private:
    static void Verifie(const QWidget &fenetre);
};

TextesNonTraduits TestTextesFrancais::espion;

using Fabrique = std::function<QWidget *()>;
Q_DECLARE_METATYPE(Fabrique)

namespace {

/// Those of \a textes that hold an English word.
QStringList Anglais(const QStringList &textes)
{
    static const QRegularExpression mots(
        QStringLiteral(
            "\\b(the|of|and|with|this|not|please|files?|folder|directory|print|printer|open|save|cancel|close|"
            "yes|name|size|font|colou?r|help|about|show|hide|undo|redo|cut|copy|paste|delete|select|find|"
            "search|replace|back|forward|settings|advanced|properties|off|none|custom|left|right|landscape|"
            "all|any|more|less|toggle|unknown|duplex|sides?|width|height|sample|effects|style:)\\b"),
        QRegularExpression::CaseInsensitiveOption);
    QStringList trouves;
    for (QString texte : textes) {
        const QString montre = texte.remove(QStringLiteral("The Qt Company")).remove(u'&');
        if (mots.match(montre).hasMatch())
            trouves += montre;
    }
    return trouves;
}

/// The row of a window that \a fabrique makes.
void Ligne(const char *nom, Fabrique fabrique)
{
    QTest::newRow(nom) << fabrique;
}

}  // namespace

void TestTextesFrancais::Verifie(const QWidget &fenetre)
{
    const QStringList textes = TextesMontres(fenetre);
    QVERIFY(!textes.isEmpty());
    QCOMPARE(Anglais(textes).join('\n'), QString());
    QCOMPARE(espion.Pris().join('\n'), QString());
}

void TestTextesFrancais::lEspionVoitCeQuiNEstPasTraduit()
{
    QCOMPARE(QCoreApplication::translate("QPlatformTheme", "Save"), QStringLiteral("Enregistrer"));
    QCOMPARE(QCoreApplication::translate("QShortcut", "Memo"), QStringLiteral("Mémo"));
    QCOMPARE(espion.Pris(), QStringList());
    QCOMPARE(QCoreApplication::translate("QShortcut", "Whatever"), QStringLiteral("Whatever"));
    QCOMPARE(espion.Pris(), QStringList("QShortcut: Whatever"));
}

void TestTextesFrancais::unMotAnglaisEstReconnu()
{
    QCOMPARE(Anglais({"Imprimer", "&Print", "Page", "The Qt Company", "The end"}), QStringList({"Print", "The end"}));
    QLineEdit champ;
    champ.setToolTip("Open");
    champ.setText("Save");
    QCOMPARE(Anglais(TextesMontres(champ)), QStringList("Open"));
}

void TestTextesFrancais::lesFenetresSontEnFrancais_data()
{
    QTest::addColumn<Fabrique>("fabrique");
    const QString programme = QStringLiteral("/usr/lib/ramelier");
    Ligne("fenêtre principale", [] { return new Fenetre; });
    Ligne("éditeur", [programme] { return new LyTextEdit("Fiche", QString(), false, programme, "n° 1"); });
    Ligne("éditeur seul", [programme] { return new LyTextEdit("LyEditHtml", QString(), true, programme, "1.0"); });
    Ligne("afficheur", [] { return new LyTextBrowser(QIcon(), "Fiche", QString(), false); });
}

void TestTextesFrancais::lesFenetresSontEnFrancais()
{
    QFETCH(const Fabrique, fabrique);
    const QPointer<QWidget> fenetre(fabrique());
    QVERIFY(QTest::qWaitForWindowExposed(fenetre));
    const auto menus = fenetre->findChildren<QMenu *>();
    QVERIFY(menus.size() >= 4);
    for (QMenu *menu : menus) {
        menu->popup(QPoint(10, 10));
        QVERIFY(QTest::qWaitForWindowExposed(menu));
        menu->close();
    }
    Verifie(*fenetre);
    delete fenetre;
}

void TestTextesFrancais::lesDialoguesSontEnFrancais_data()
{
    QTest::addColumn<Fabrique>("fabrique");
    for (const QString &classe : TousLesDialogues())
        Ligne(qPrintable(classe), [classe] { return NouveauDialogue(classe).release(); });
    Ligne("DlgCherche", [] { return new DlgCherche; });
    Ligne("DlgRemplace", [] { return new DlgRemplace; });
    Ligne("DlgTableau", [] { return new DlgTableau; });
}

void TestTextesFrancais::lesDialoguesSontEnFrancais()
{
    QFETCH(const Fabrique, fabrique);
    const std::unique_ptr<QWidget> dialogue(fabrique());
    dialogue->show();
    QVERIFY(QTest::qWaitForWindowExposed(dialogue.get()));
    Verifie(*dialogue);
}

void TestTextesFrancais::lesDialoguesDuToolkitSontEnFrancais_data()
{
    QTest::addColumn<Fabrique>("fabrique");
    Ligne("ouvrir", [] {
        auto *dialogue = new QFileDialog(nullptr, "Ouvrir", "/usr", "Fichiers au format XML (*.xrlg)");
        dialogue->setViewMode(QFileDialog::Detail);
        return dialogue;
    });
    Ligne("enregistrer", [] {
        auto *dialogue = new QFileDialog(nullptr, "Enregistrer sous", "/usr");
        dialogue->setAcceptMode(QFileDialog::AcceptSave);
        return dialogue;
    });
    Ligne("police", [] { return new QFontDialog; });
    Ligne("couleur", [] { return new QColorDialog; });
    Ligne("imprimer", [] {
        static QPrinter imprimante(QPrinter::ScreenResolution);
        auto *dialogue = new QPrintDialog(&imprimante);
        for (auto *bouton : dialogue->findChildren<QPushButton *>()) {
            if (bouton->text().contains("Options"))
                bouton->click();
        }
        return dialogue;
    });
}

void TestTextesFrancais::lesDialoguesDuToolkitSontEnFrancais()
{
    lesDialoguesSontEnFrancais();
}

void TestTextesFrancais::lesMenusDesTextesSontEnFrancais_data()
{
    QTest::addColumn<Fabrique>("fabrique");
    Ligne("texte d'une fiche", [] { return new monQTextEdit(nullptr); });
    Ligne("fiche affichée", [] { return new NavigateurFiche(nullptr); });
    Ligne("champ", [] { return new QLineEdit; });
    Ligne("nombre", [] { return new QSpinBox; });
}

void TestTextesFrancais::lesMenusDesTextesSontEnFrancais()
{
    QFETCH(const Fabrique, fabrique);
    const std::unique_ptr<QWidget> widget(fabrique());
    widget->show();
    QVERIFY(QTest::qWaitForWindowExposed(widget.get()));
    QContextMenuEvent demande(QContextMenuEvent::Keyboard, QPoint(5, 5), widget->mapToGlobal(QPoint(5, 5)));
    // A spin box shows its menu in a nested loop.
    bool vu = false;
    QTimer::singleShot(50, widget.get(), [&] {
        auto *menu = qobject_cast<QMenu *>(QApplication::activePopupWidget());
        QVERIFY(menu);
        QVERIFY(menu->actions().size() >= 2);
        Verifie(*menu);
        vu = true;
        menu->close();
    });
    QCoreApplication::sendEvent(widget.get(), &demande);
    QTRY_VERIFY(vu);
}

void TestTextesFrancais::lesProprietesDeLImprimanteSontEnFrancais()
{
    QPrinter imprimante(QPrinter::ScreenResolution);
    QPrintDialog dialogue(&imprimante);
    dialogue.show();
    auto *proprietes = dialogue.findChild<QPushButton *>("properties");
    QVERIFY(proprietes);
    Scenario scenario;
    scenario.Dialogue<QDialog>([](QDialog &ouvert) {
        QMetaObject::invokeMethod(&ouvert, "reject", Qt::QueuedConnection);
        QCOMPARE(ouvert.windowTitle(), QStringLiteral("Propriétés de l'imprimante"));
        Verifie(ouvert);
    });
    proprietes->click();
    QCOMPARE(scenario.Ecarts(), QStringList());
}

void TestTextesFrancais::lAProposDeQtEstEnFrancais()
{
    const Fenetre fenetre;
    Scenario scenario;
    scenario.Dialogue<QMessageBox>([](QMessageBox &boite) {
        QMetaObject::invokeMethod(&boite, "reject", Qt::QueuedConnection);
        QVERIFY(boite.informativeText().startsWith("<p>Qt est un ensemble d'outils C++"));
        QVERIFY(boite.informativeText().contains("<a href=\"http://qt.io/\">qt.io</a>"));
        Verifie(boite);
    });
    fenetre.actHelpAboutQt->trigger();
    QCOMPARE(scenario.Ecarts(), QStringList());
}

void TestTextesFrancais::lesBoutonsUsuelsSontEnFrancais()
{
    QMessageBox boite;
    for (int bouton = QMessageBox::FirstButton; bouton <= QMessageBox::LastButton; bouton <<= 1)
        boite.addButton(static_cast<QMessageBox::StandardButton>(bouton));
    boite.setDetailedText("…");
    QVERIFY(boite.buttons().size() > 15);
    Verifie(boite);
}

int main(int argc, char **argv)
{
    const Environnement environnement;
    QCoreApplication::setAttribute(Qt::AA_DontUseNativeDialogs);
    QApplication application(argc, argv);
    QCoreApplication::installTranslator(&TestTextesFrancais::espion);
    PrepareLApplication(application, QStringLiteral("ramelier"));
    TestTextesFrancais test;
    return QTest::qExec(&test, argc, argv);
}

#include "tst_textes_francais.moc"
