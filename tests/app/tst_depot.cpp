#include "fenetre.h"

#include "arbre.h"
#include "arbres.h"
#include "arbview.h"
#include "ramelierdoc.h"
#include "ramelierview.h"

#include <QDialog>
#include <QDir>
#include <QDragEnterEvent>
#include <QDropEvent>
#include <QLabel>
#include <QMimeData>
#include <QWindow>

/// A tree file that is dropped on the window, as a file manager hands it over.
class TestDepot : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup();

    void unArbreDeposeSOuvre_data();
    void unArbreDeposeSOuvre();
    void riendAutreNEstAccepte_data();
    void riendAutreNEstAccepte();
    void leDepotNAttendPasLaReponse();
    void laGardePeutRetenirLArbre();
    void laGardePeutLaisserPartirLArbre();
    void unFichierDisparuEstDit();
    void unFichierIncorrectEstDit();
    void pendantUneQuestionRienNEstAccepte();
    void uneQuestionVenueEntreTempsRetientLeDepot();

private:
    /// Drags \a adresses over the chart, and drops them where they are accepted; true then. What follows is queued.
    bool Depose(const QList<QUrl> &adresses);
    bool Depose(const QString &fichier) { return Depose(QList<QUrl>{QUrl::fromLocalFile(fichier)}); }
    void Modifie();
    [[nodiscard]] QString Titre() const;

    std::unique_ptr<Dossier> dossier;
    std::unique_ptr<Fenetre> fenetre;
    QString autre;
};

void TestDepot::init()
{
    EffaceReglages();
    dossier = std::make_unique<Dossier>();
    autre = dossier->Ecrit("b.xrlg", ArbreEcrit("B", {{1, "DURAND"}}));
    fenetre =
        std::make_unique<Fenetre>(QStringList{dossier->Ecrit("a.xrlg", ArbreEcrit("A", {{1, "MARTIN"}, {2, "X"}}))});
    QVERIFY(EstDessine(*fenetre));
}

void TestDepot::cleanup()
{
    fenetre.reset();
    dossier.reset();
}

bool TestDepot::Depose(const QList<QUrl> &adresses)
{
    QMimeData contenu;
    contenu.setUrls(adresses);
    const QPoint ici = fenetre->view->mapTo(fenetre.get(), QPoint(30, 30));
    const Qt::DropActions actions = Qt::CopyAction | Qt::MoveAction;
    QDragEnterEvent entre(ici, actions, &contenu, Qt::LeftButton, Qt::NoModifier);
    entre.setDropAction(Qt::IgnoreAction);
    entre.ignore();
    QCoreApplication::sendEvent(fenetre->windowHandle(), &entre);
    if (!entre.isAccepted())
        return false;
    QDropEvent depose(ici, actions, &contenu, Qt::LeftButton, Qt::NoModifier);
    QCoreApplication::sendEvent(fenetre->windowHandle(), &depose);
    // A file is never moved away.
    return depose.isAccepted() && depose.dropAction() == Qt::CopyAction;
}

void TestDepot::Modifie()
{
    fenetre->doc->modifie = true;
    fenetre->MaJStatusBarreInfoModif();
}

QString TestDepot::Titre() const
{
    return fenetre->doc->arbre ? fenetre->doc->arbre->infoArbre->titrearbre : QString();
}

void TestDepot::unArbreDeposeSOuvre_data()
{
    QTest::addColumn<QString>("nom");
    QTest::newRow("xrlg") << "c.xrlg";
    QTest::newRow("majuscules") << "C.XRLG";
    QTest::newRow("accents et blancs") << "ma généalogie (été).xrlg";
    QTest::newRow("dièse et pourcent") << "a#b%20.xrlg";
}

void TestDepot::unArbreDeposeSOuvre()
{
    QFETCH(const QString, nom);
    const QString chemin = dossier->Ecrit(nom, ArbreEcrit("C", {{1, "DURAND"}}));
    const Journal journal(*fenetre);
    QVERIFY(Depose(chemin));
    QTRY_COMPARE(Titre(), QStringLiteral("C"));
    QCOMPARE(journal.Lignes(),
             QStringList({"Ouverture du fichier...", "= Ramelier 5.1 - " + chemin,
                          "Arbre chargé : " + chemin + " (2000 ms)", "Prêt"}));
    QCOMPARE(fenetre->fichierArbre, chemin);
    QCOMPARE(fenetre->dernierRep, dossier->Chemin());
    QVERIFY(fenetre->modeConsultation);
}

void TestDepot::riendAutreNEstAccepte_data()
{
    QTest::addColumn<QList<QUrl>>("adresses");
    const QUrl arbre = QUrl::fromLocalFile("/tmp/a.xrlg");
    QTest::newRow("rien") << QList<QUrl>();
    QTest::newRow("deux arbres") << QList<QUrl>{arbre, arbre};
    QTest::newRow("un texte") << QList<QUrl>{QUrl::fromLocalFile("/tmp/a.txt")};
    QTest::newRow("un GEDCOM") << QList<QUrl>{QUrl::fromLocalFile("/tmp/a.ged")};
    QTest::newRow("une copie de l'ancien") << QList<QUrl>{QUrl::fromLocalFile("/tmp/a.xrlg~")};
    QTest::newRow("une page") << QList<QUrl>{QUrl("http://exemple.invalid/a.xrlg")};
}

void TestDepot::riendAutreNEstAccepte()
{
    QFETCH(const QList<QUrl>, adresses);
    QVERIFY(!Depose(adresses));
    QCoreApplication::processEvents();
    QCOMPARE(Titre(), QStringLiteral("A"));
}

void TestDepot::leDepotNAttendPasLaReponse()
{
    Modifie();
    Scenario scenario;
    QVERIFY(Depose(autre));
    QCOMPARE(scenario.Boites().size(), 0);
    scenario.Repond("Annuler");
    QTRY_COMPARE(scenario.Boites().size(), 1);
    QCOMPARE(scenario.Ecarts(), QStringList());
}

void TestDepot::laGardePeutRetenirLArbre()
{
    const QString fichier = fenetre->fichierArbre;
    Modifie();
    Scenario scenario;
    scenario.Repond("Annuler");
    QVERIFY(Depose(autre));
    QTRY_COMPARE(scenario.Boites().size(), 1);
    QCOMPARE(scenario.Boites().first().titre, QStringLiteral("Sauvegarde"));
    QCoreApplication::processEvents();
    QCOMPARE(Titre(), QStringLiteral("A"));
    QCOMPARE(fenetre->fichierArbre, fichier);
    QVERIFY(fenetre->doc->isModified());
    QCOMPARE(scenario.Ecarts(), QStringList());
}

void TestDepot::laGardePeutLaisserPartirLArbre()
{
    Modifie();
    Scenario scenario;
    scenario.Repond("Non");
    QVERIFY(Depose(autre));
    QTRY_COMPARE(Titre(), QStringLiteral("B"));
    QVERIFY(!fenetre->doc->isModified());
    QCOMPARE(fenetre->labelInfoModif->text(), QString(21, u' '));
    QCOMPARE(scenario.Ecarts(), QStringList());
}

void TestDepot::unFichierDisparuEstDit()
{
    const QString absent = dossier->Chemin("absent.xrlg");
    Scenario scenario;
    scenario.Repond("OK");
    QVERIFY(Depose(absent));
    QTRY_COMPARE(scenario.Boites().size(), 1);
    QCOMPARE(scenario.Boites().first().texte, "Le fichier " + absent + " n'existe pas");
    QCOMPARE(Titre(), QStringLiteral("A"));
    QDir(dossier->Chemin()).mkdir("dossier.rlg");
    scenario.Repond("OK");
    QVERIFY(Depose(dossier->Chemin("dossier.rlg")));
    QTRY_COMPARE(scenario.Boites().size(), 2);
    QCOMPARE(scenario.Ecarts(), QStringList());
}

void TestDepot::unFichierIncorrectEstDit()
{
    const QString faux = dossier->Ecrit("faux.xrlg", "rien d'un arbre");
    Scenario scenario;
    scenario.Repond("OK").Repond("OK");
    QVERIFY(Depose(faux));
    QTRY_COMPARE(scenario.Boites().size(), 2);
    QCOMPARE(scenario.Boites().last().texte, "Impossible de charger le fichier " + faux);
    QCOMPARE(scenario.Ecarts(), QStringList());
}

void TestDepot::pendantUneQuestionRienNEstAccepte()
{
    QDialog question(fenetre.get());
    question.setModal(true);
    question.show();
    QVERIFY(!Depose(autre));
    question.hide();
    QVERIFY(Depose(autre));
    QTRY_COMPARE(Titre(), QStringLiteral("B"));
}

void TestDepot::uneQuestionVenueEntreTempsRetientLeDepot()
{
    QVERIFY(Depose(autre));
    QDialog question(fenetre.get());
    question.setModal(true);
    question.show();
    QCoreApplication::processEvents();
    QCOMPARE(Titre(), QStringLiteral("A"));
}

RAMELIER_TEST_BUREAU_MAIN(TestDepot)
#include "tst_depot.moc"
