#include "fenetre.h"

#include "arbre.h"
#include "arbres.h"
#include "curseurattente.h"
#include "dlgindrac.h"
#include "personne.h"
#include "ramelierdoc.h"

#include <QAction>
#include <QCursor>
#include <QGuiApplication>

namespace {

bool Attend()
{
    const QCursor *curseur = QGuiApplication::overrideCursor();
    return curseur && curseur->shape() == Qt::WaitCursor;
}

const QByteArray gedcom = "0 HEAD\n1 CHAR UTF-8\n0 @I1@ INDI\n1 NAME Jean /MARTIN/\n1 SEX M\n0 TRLR\n";

}  // namespace

/// Work that may take long shows the wait cursor, what it asks does not.
class TestAttente : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup();
    void lesPorteesSEmboitent();
    void unTravailMontreLAttente_data();
    void unTravailMontreLAttente();
    void uneBoiteNAttendPas();
    void uneQuestionNAttendPas();

private:
    std::unique_ptr<Dossier> dossier;
    std::unique_ptr<Fenetre> fenetre;
    QString arbre;
};

void TestAttente::init()
{
    EffaceReglages();
    dossier = std::make_unique<Dossier>();
    arbre = dossier->Ecrit("a.xrlg", ArbreEcrit("A", {{1, "MARTIN", "Jean"}, {2, "MARTIN", "Paul"}}));
    fenetre = std::make_unique<Fenetre>();
    fenetre->dernierRep = dossier->Chemin();
}

void TestAttente::cleanup()
{
    QVERIFY(!QGuiApplication::overrideCursor());
    fenetre.reset();
    dossier.reset();
}

void TestAttente::lesPorteesSEmboitent()
{
    QVERIFY(!Attend());
    {
        const CurseurAttente travail;
        QVERIFY(Attend());
        {
            const CurseurAttente partie;
            {
                const CurseurRendu question;
                QVERIFY(!QGuiApplication::overrideCursor());
                const CurseurAttente reponse;
                QVERIFY(Attend());
            }
            QVERIFY(Attend());
        }
        QVERIFY(Attend());
    }
    const CurseurRendu sansTravail;
    QVERIFY(!QGuiApplication::overrideCursor());
}

void TestAttente::unTravailMontreLAttente_data()
{
    QTest::addColumn<QString>("commande");
    QTest::newRow("ouvrir") << "actFileOpen";
    QTest::newRow("importer") << "actImporteGED";
    QTest::newRow("assembler") << "actAssembleArbres";
}

void TestAttente::unTravailMontreLAttente()
{
    QFETCH(const QString, commande);
    // The document tells that the tree is there before its command ends.
    QList<bool> attentes;
    connect(fenetre->doc, &RamelierDoc::documentChanged, this, [&attentes](int code) {
        if (code == 1)
            attentes += Attend();
    });
    Scenario scenario;
    if (commande == u"actImporteGED") {
        Choisit(scenario, dossier->Ecrit("a.ged", gedcom));
        scenario.Dialogue<DlgIndRac>([](DlgIndRac &dialogue) {
            dialogue.IndividuChoisi->setText(QStringLiteral("@I1@"));
            Scenario::ClicPlusTard(dialogue.findChild<QWidget *>(QStringLiteral("OKButton")));
        });
    } else {
        Choisit(scenario, arbre);
    }
    if (commande == u"actAssembleArbres")
        Choisit(scenario, arbre);
    for (const ActionNommee &action : ActionsNommees()) {
        if (action.nom == commande)
            ((*fenetre).*action.membre)->trigger();
    }
    QCOMPARE(scenario.Ecarts(), QStringList());
    QCOMPARE(attentes, QList<bool>{true});
}

void TestAttente::uneBoiteNAttendPas()
{
    const QString mauvais = dossier->Ecrit("b.xrlg", "<?xml version=\"1.0\"?>\n<xrlg version=\"1.0\">\n<arbre>");
    QList<bool> attentes;
    Scenario scenario;
    Choisit(scenario, mauvais);
    for (int i = 0; i < 2; ++i) {
        scenario.Dialogue<QMessageBox>([&attentes](QMessageBox &boite) {
            attentes += QGuiApplication::overrideCursor() != nullptr;
            Scenario::ClicPlusTard(boite.button(QMessageBox::Ok));
        });
    }
    fenetre->actFileOpen->trigger();
    QCOMPARE(scenario.Ecarts(), QStringList());
    QCOMPARE(attentes, (QList<bool>{false, false}));
}

void TestAttente::uneQuestionNAttendPas()
{
    QList<bool> attentes;
    Scenario scenario;
    Choisit(scenario, dossier->Ecrit("a.ged", gedcom));
    scenario.Dialogue<DlgIndRac>([&attentes](DlgIndRac &dialogue) {
        attentes += QGuiApplication::overrideCursor() != nullptr;
        dialogue.IndividuChoisi->setText(QStringLiteral("@I1@"));
        Scenario::ClicPlusTard(dialogue.findChild<QWidget *>(QStringLiteral("OKButton")));
    });
    fenetre->actImporteGED->trigger();
    QCOMPARE(scenario.Ecarts(), QStringList());
    QCOMPARE(attentes, QList<bool>{false});
}

RAMELIER_TEST_BUREAU_MAIN(TestAttente)
#include "tst_attente.moc"
