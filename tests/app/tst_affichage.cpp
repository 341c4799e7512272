#include "fenetre.h"

#include "arbre.h"
#include "arbres.h"
#include "personne.h"
#include "ramelierdoc.h"

#include <QAction>
#include <QCursor>
#include <QLabel>
#include <QMenu>
#include <QSignalSpy>
#include <QStatusBar>
#include <QToolBar>

/// Display modes, bars, modified field and context menus.
class TestAffichage : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void init() { EffaceReglages(); }
    void lAffichageReduitPrendSesFormats();
    void lAffichageCompletReprendLesOptionsDeLArbre();
    void lAffichageCompletSansFichierReprendLesPreferences();
    void lAffichageDisposeDeNouveauLArbre();
    void sansArbreLAffichageNEmetRien();
    void unArbreOuvertEnReduitPrendLesFormatsReduits();
    void laBarreDOutilsSeMontreEtSeCache();
    void laBarreDeStatutSeMontreEtSeCache();
    void leChampDitSiLeDocumentEstModifie_data();
    void leChampDitSiLeDocumentEstModifie();
    void leMenuSurgitSousLaSouris_data();
    void leMenuSurgitSousLaSouris();

private:
    Dossier dossier;
    QString arbre;
};

void TestAffichage::initTestCase()
{
    arbre = dossier.Ecrit(
        QStringLiteral("famille.xrlg"),
        ArbreEcrit(QStringLiteral("Famille"),
                   {{1, QStringLiteral("UN")}, {2, QStringLiteral("DEUX")}, {3, QStringLiteral("TROIS")}}));
}

void TestAffichage::lAffichageReduitPrendSesFormats()
{
    Fenetre fenetre({arbre});
    const Journal journal(fenetre);
    const QSignalSpy signal(&fenetre, &RamelierApp::docChanged);
    fenetre.actModeAffichage->setChecked(false);
    QCOMPARE(journal.Lignes(), (QStringList{QStringLiteral("Mode Affichage..."), QStringLiteral("Prêt.")}));
    QCOMPARE(fenetre.affichageComplet, false);
    QCOMPARE(fenetre.doc->optionsParArbre, false);
    const FormatsDessins &formats = fenetre.doc->formats;
    QCOMPARE(formats.largeurCadre, 25);
    QCOMPARE(formats.hauteurCadre, 15);
    QCOMPARE(formats.distMinHoriz, 1);
    QCOMPARE(formats.distMinVert, 6);
    QCOMPARE(formats.margeGenerale, 5);
    QCOMPARE(formats.margeDansCadre, 0);
    QCOMPARE(formats.epaisseurTraits, 0.5F);
    QCOMPARE(formats.rayonArc, 1.0F);
    QCOMPARE(fenetre.doc->polices.policeTitre.pointSize(), 10);
    QCOMPARE(fenetre.doc->polices.policeNumeros.pointSize(), 8);
    QCOMPARE(QList<QVariantList>(signal), QList<QVariantList>{{1}});
}

void TestAffichage::lAffichageCompletReprendLesOptionsDeLArbre()
{
    const Dossier avecOptions;
    avecOptions.Ecrit(QStringLiteral("f.opt"), OptionsEcrites(37));
    Fenetre fenetre({avecOptions.Ecrit(QStringLiteral("f.xrlg"), dossier.Lit(QStringLiteral("famille.xrlg")))});
    QCOMPARE(fenetre.doc->formats.largeurCadre, 37);
    fenetre.actModeAffichage->setChecked(false);
    QCOMPARE(fenetre.doc->formats.largeurCadre, 25);
    const Journal journal(fenetre);
    const QSignalSpy signal(&fenetre, &RamelierApp::docChanged);
    fenetre.actModeAffichage->setChecked(true);
    QCOMPARE(journal.Lignes(), (QStringList{QStringLiteral("Mode Affichage..."), QStringLiteral("Prêt.")}));
    QCOMPARE(fenetre.affichageComplet, true);
    QCOMPARE(fenetre.doc->optionsParArbre, true);
    QCOMPARE(fenetre.doc->formats.largeurCadre, 37);
    QCOMPARE(QList<QVariantList>(signal), QList<QVariantList>{{1}});
}

void TestAffichage::lAffichageCompletSansFichierReprendLesPreferences()
{
    Fenetre fenetre({arbre});
    fenetre.doc->formatsPref.largeurCadre = 51;
    fenetre.slotModeAffichage(false);
    fenetre.slotModeAffichage(true);
    QCOMPARE(fenetre.doc->formats.largeurCadre, 51);
    QCOMPARE(fenetre.doc->polices.policeTitre.pointSize(), 30);
}

void TestAffichage::lAffichageDisposeDeNouveauLArbre()
{
    // At 96 dots per inch a millimetre is 3.78 pixels.
    Fenetre fenetre({arbre});
    const Personne *mere = Trouve(*fenetre.doc->arbre, 3);
    QCOMPARE(QPoint(int(mere->x), int(mere->y)), QPoint(56 + 151, 56));
    fenetre.slotModeAffichage(false);
    QCOMPARE(QPoint(int(mere->x), int(mere->y)), QPoint(18 + 98, 18));
    fenetre.slotModeAffichage(true);
    QCOMPARE(QPoint(int(mere->x), int(mere->y)), QPoint(56 + 151, 56));
}

void TestAffichage::sansArbreLAffichageNEmetRien()
{
    Fenetre fenetre;
    QCOMPARE(fenetre.doc->polices.policeTitre.pointSize(), 30);
    const QSignalSpy signal(&fenetre, &RamelierApp::docChanged);
    fenetre.actModeAffichage->trigger();
    QCOMPARE(fenetre.doc->polices.policeTitre.pointSize(), 10);
    QCOMPARE(fenetre.doc->formats.largeurCadre, 25);
    fenetre.actModeAffichage->trigger();
    QCOMPARE(fenetre.doc->polices.policeTitre.pointSize(), 30);
    QCOMPARE(fenetre.doc->formats.largeurCadre, 30);
    QCOMPARE(signal.count(), 0);
}

void TestAffichage::unArbreOuvertEnReduitPrendLesFormatsReduits()
{
    const Dossier avecOptions;
    avecOptions.Ecrit(QStringLiteral("f.opt"), OptionsEcrites(37));
    Fenetre fenetre;
    fenetre.slotModeAffichage(false);
    Scenario scenario;
    Choisit(scenario, avecOptions.Ecrit(QStringLiteral("f.xrlg"), dossier.Lit(QStringLiteral("famille.xrlg"))));
    fenetre.slotFileOpen();
    QCOMPARE(scenario.Ecarts(), QStringList());
    QCOMPARE(fenetre.doc->formats.largeurCadre, 25);
    QCOMPARE(fenetre.affichageComplet, false);
}

void TestAffichage::laBarreDOutilsSeMontreEtSeCache()
{
    Fenetre fenetre;
    const QStringList statuts{QStringLiteral("Toggle toolbar..."), QStringLiteral("Prêt.")};
    for (const bool visible : {false, true}) {
        fenetre.statusBar()->clearMessage();
        const Journal journal(fenetre);
        fenetre.actViewToolBar->setChecked(visible);
        QCOMPARE(fenetre.barreOutils->isVisible(), visible);
        QCOMPARE(journal.Lignes(), statuts);
    }
}

void TestAffichage::laBarreDeStatutSeMontreEtSeCache()
{
    Fenetre fenetre;
    const QStringList statuts{QStringLiteral("Toggle statusbar..."), QStringLiteral("Prêt.")};
    for (const bool visible : {false, true}) {
        fenetre.statusBar()->clearMessage();
        const Journal journal(fenetre);
        fenetre.actViewStatusBar->setChecked(visible);
        QCOMPARE(fenetre.statusBar()->isVisible(), visible);
        QCOMPARE(journal.Lignes(), statuts);
    }
}

void TestAffichage::leChampDitSiLeDocumentEstModifie_data()
{
    QTest::addColumn<bool>("modifie");
    QTest::addColumn<bool>("optionsModifiees");
    QTest::addColumn<QString>("texte");
    QTest::newRow("rien") << false << false << QStringLiteral("                     ");
    QTest::newRow("arbre") << true << false << QStringLiteral(" document modifé ");
    QTest::newRow("options") << false << true << QStringLiteral(" document modifé ");
    QTest::newRow("les deux") << true << true << QStringLiteral(" document modifé ");
}

void TestAffichage::leChampDitSiLeDocumentEstModifie()
{
    QFETCH(const bool, modifie);
    QFETCH(const bool, optionsModifiees);
    Fenetre fenetre({arbre});
    fenetre.doc->modifie = modifie;
    fenetre.doc->optionsModifiees = optionsModifiees;
    fenetre.MaJStatusBarreInfoModif();
    QTEST(fenetre.labelInfoModif->text(), "texte");
    fenetre.doc->modifie = false;
    fenetre.doc->optionsModifiees = false;
    fenetre.MaJStatusBarreInfoModif();
    QCOMPARE(fenetre.labelInfoModif->text(), QStringLiteral("                     "));
}

void TestAffichage::leMenuSurgitSousLaSouris_data()
{
    QTest::addColumn<int>("k");
    QTest::addColumn<bool>("general");
    QTest::addColumn<bool>("personne");
    QTest::newRow("0") << 0 << true << false;
    QTest::newRow("1") << 1 << false << true;
    QTest::newRow("2") << 2 << false << false;
    QTest::newRow("-1") << -1 << false << false;
}

void TestAffichage::leMenuSurgitSousLaSouris()
{
    QFETCH(const int, k);
    QFETCH(const bool, general);
    QFETCH(const bool, personne);
    Fenetre fenetre({arbre});
    QVERIFY(QTest::qWaitForWindowExposed(&fenetre));
    QCursor::setPos(123, 145);
    fenetre.slotMenuSurgissant(k);
    QCOMPARE(fenetre.popupGeneral->isVisible(), general);
    QCOMPARE(fenetre.popupPersonne->isVisible(), personne);
    if (general)
        QCOMPARE(fenetre.popupGeneral->pos(), QPoint(123, 145));
    if (personne)
        QCOMPARE(fenetre.popupPersonne->pos(), QPoint(123, 145));
}

RAMELIER_TEST_BUREAU_MAIN(TestAffichage)
#include "tst_affichage.moc"
