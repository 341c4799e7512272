#include "boites.h"
#include "fenetre.h"
#include "lytextbrowser.h"
#include "lytextedit.h"
#include "ramelierdoc.h"
#include "scenario.h"

#include <QAbstractButton>
#include <QDialog>
#include <QLabel>
#include <QMenuBar>
#include <QScreen>
#include <QStatusBar>
#include <QToolBar>

/// On a screen of 1024 x 768 dots, with usual and with large letters: every window fits, and all of it can be used.
class TestPetitesFenetres : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase() { policeDepart = QApplication::font(); }
    void init() { EffaceReglages(); }
    void cleanup() { QApplication::setFont(policeDepart); }
    void laFenetrePrincipaleTient_data() { Lettres(); }
    void laFenetrePrincipaleTient();
    void lAfficheurTient_data() { Lettres(); }
    void lAfficheurTient();
    void lEditeurTient_data() { Lettres(); }
    void lEditeurTient();
    void uneBoiteTient_data() { Lettres(); }
    void uneBoiteTient();

private:
    static void Lettres();
    static void PrendLesLettres();
    static void VerifieLaFenetre(QMainWindow &fenetre);

    QFont policeDepart;
};

namespace {

QSize Place()
{
    // A window manager adds a frame and a title bar.
    return QGuiApplication::primaryScreen()->availableSize() - QSize(8, 30);
}

bool Tient(QSize taille)
{
    return taille.width() <= Place().width() && taille.height() <= Place().height();
}

QByteArray EnTexte(QSize taille)
{
    return QByteArray::number(taille.width()) + 'x' + QByteArray::number(taille.height());
}

/// What \a barre shows neither by itself nor behind the button that unfolds the rest.
QStringList HorsDAtteinte(QWidget &barre, const char *suite)
{
    const auto *bouton = barre.findChild<QWidget *>(QString::fromLatin1(suite));
    if (bouton && bouton->isVisible())
        return {};
    QStringList perdues;
    const auto actions = barre.actions();
    for (QAction *action : actions) {
        const auto *menus = qobject_cast<QMenuBar *>(&barre);
        const auto *outils = qobject_cast<QToolBar *>(&barre);
        const QRect place = menus ? menus->actionGeometry(action) : outils->actionGeometry(action);
        if (action->isVisible() && (place.isEmpty() || !barre.rect().contains(place)))
            perdues += action->text();
    }
    return perdues;
}

/// Labels of the status bar that are cut.
QStringList Coupes(const QStatusBar &barre)
{
    QStringList coupes;
    const auto labels = barre.findChildren<QLabel *>();
    for (const QLabel *label : labels) {
        if (label->width() < label->sizeHint().width() || !barre.rect().contains(label->geometry()))
            coupes += label->text();
    }
    return coupes;
}

}  // namespace

void TestPetitesFenetres::Lettres()
{
    QTest::addColumn<int>("points");
    QTest::newRow("10 points") << 10;
    QTest::newRow("20 points") << 20;
}

void TestPetitesFenetres::PrendLesLettres()
{
    QFETCH(const int, points);
    QFont police = QApplication::font();
    police.setPointSize(points);
    QApplication::setFont(police);
}

void TestPetitesFenetres::VerifieLaFenetre(QMainWindow &fenetre)
{
    QVERIFY(QTest::qWaitForWindowExposed(&fenetre));
    QVERIFY2(Tient(fenetre.size()), EnTexte(fenetre.size()));
    QVERIFY2(Tient(fenetre.minimumSizeHint()), EnTexte(fenetre.minimumSizeHint()));
    // As large as the screen allows, and as small as the user can make it.
    for (const QSize taille : {fenetre.size(), Place(), QSize(1, 1)}) {
        fenetre.resize(taille.expandedTo(fenetre.minimumSizeHint()));
        QCoreApplication::processEvents();
        QCOMPARE(HorsDAtteinte(*fenetre.menuBar(), "qt_menubar_ext_button"), QStringList());
        const auto barres = fenetre.findChildren<QToolBar *>();
        QVERIFY(!barres.isEmpty());
        for (QToolBar *barre : barres)
            QCOMPARE(HorsDAtteinte(*barre, "qt_toolbar_ext_button"), QStringList());
    }
    fenetre.resize(Place());
    QCoreApplication::processEvents();
    QCOMPARE(Coupes(*fenetre.statusBar()), QStringList());
}

void TestPetitesFenetres::laFenetrePrincipaleTient()
{
    PrendLesLettres();
    const Dossier dossier;
    Fenetre fenetre({dossier.Ecrit(QStringLiteral("famille.xrlg"),
                                   ArbreEcrit(QStringLiteral("Famille"), {{1, QStringLiteral("UN")}}))});
    QCOMPARE(Place(), QSize(1016, 738));
    fenetre.slotModeTravail();
    fenetre.doc->modifie = true;
    fenetre.MaJStatusBarreInfoModif();
    VerifieLaFenetre(fenetre);
}

void TestPetitesFenetres::lAfficheurTient()
{
    PrendLesLettres();
    const Dossier dossier;
    const QString fiche = dossier.Ecrit(QStringLiteral("fiche.html"), "<title>Fiche</title><p>Texte");
    auto *afficheur = new LyTextBrowser(QIcon(), QStringLiteral("Fiche"), fiche, true);
    VerifieLaFenetre(*afficheur);
    delete afficheur;
}

void TestPetitesFenetres::lEditeurTient()
{
    PrendLesLettres();
    const Dossier dossier;
    LyTextEdit editeur(QStringLiteral("Fiche"), QString(), true, dossier.Chemin(QStringLiteral("lyedithtml")),
                       QString());
    editeur.slotMaJStatusBarreInfoModif(true);
    VerifieLaFenetre(editeur);
}

void TestPetitesFenetres::uneBoiteTient()
{
    PrendLesLettres();
    // A name as long as the system allows, in a folder of the same kind.
    const QString chemin = QStringLiteral("/home/") + QString(255, u'm') + u'/' + QString(250, u'w');
    Scenario scenario;
    QSize taille;
    scenario.Dialogue<QMessageBox>([&taille](QMessageBox &boite) {
        taille = boite.size();
        const auto boutons = boite.buttons();
        for (const QAbstractButton *bouton : boutons) {
            if (!boite.rect().contains(bouton->geometry().translated(bouton->parentWidget()->pos()))
                || bouton->width() < bouton->minimumSizeHint().width())
                taille = QSize(9999, 9999);
        }
        Scenario::ClicPlusTard(boutons.constFirst());
    });
    Boites::Demande(nullptr, QMessageBox::Warning, QStringLiteral("Sauvegarde"),
                    QStringLiteral("Impossible d'écrire dans le fichier %1:\nPermission non accordée.").arg(chemin),
                    {QStringLiteral("Imprimante"), QStringLiteral("Fichier pdf"), QStringLiteral("Annuler")}, 0,
                    Boites::sansEchappement);
    QCOMPARE(scenario.Ecarts(), QStringList());
    // The toolkit gives a box the whole width of a small screen.
    QVERIFY2(!taille.isEmpty() && Tient(taille - QSize(8, 0)), EnTexte(taille));
}

int main(int argc, char **argv)
{
    const Environnement environnement(QSize(1024, 768));
    QCoreApplication::setAttribute(Qt::AA_DontUseNativeDialogs);
    QApplication application(argc, argv);
    PrepareLApplication(application, QStringLiteral("ramelier"));
    TestPetitesFenetres test;
    return QTest::qExec(&test, argc, argv);
}

#include "tst_petites_fenetres.moc"
