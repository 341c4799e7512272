#include "dlgindrac.h"
#include "dlgsexrac.h"
#include "environnement.h"
#include "interlocuteurbureau.h"
#include "scenario.h"

#include <QApplication>

/// The two questions of the GEDCOM import and export, in the real dialogs.
class TestGedcomDialogues : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void leChoixDeLaRacineSOuvreSansChoix();
    void laReponseEstLeTexteDuChamp_data();
    void laReponseEstLeTexteDuChamp();
    void renoncerNeRepondRien_data();
    void renoncerNeRepondRien();
    void centMilleIndividus();
    void leSexeDeLaRacine_data();
    void leSexeDeLaRacine();
    void leSexeRepartDeMasculin();
    void aucunDialogueNeReste();

private:
    std::unique_ptr<QWidget> fenetre;
};

namespace {

const QStringList lignes{"@I3@   né(e) le  à ", "@I2@ Anne  <b>ROY</b> né(e) le 1900 à Metz",
                         "@I1@ Jean  DUPONT né(e) le  à "};

/// One way to use the dialog for the root.
using Geste = std::function<void(DlgIndRac &)>;

void CliqueLaLigne(DlgIndRac &dialogue, int ligne)
{
    QListWidget *liste = dialogue.ListeDesIndividus;
    QTest::mouseClick(liste->viewport(), Qt::LeftButton, {},
                      {10, liste->visualItemRect(liste->item(ligne)).center().y()});
}

}  // namespace

Q_DECLARE_METATYPE(Geste)

void TestGedcomDialogues::init()
{
    Interlocuteur::Installe(std::make_unique<InterlocuteurBureau>());
    fenetre = std::make_unique<QWidget>();
}

void TestGedcomDialogues::leChoixDeLaRacineSOuvreSansChoix()
{
    QStringList vues;
    Scenario scenario;
    scenario.Dialogue<DlgIndRac>([&](DlgIndRac &dialogue) {
        const QListWidget *liste = dialogue.ListeDesIndividus;
        for (int ligne = 0; ligne < liste->count(); ++ligne)
            vues += liste->item(ligne)->text();
        vues += QStringLiteral("courante %1").arg(liste->currentRow());
        vues += QStringLiteral("champ « %1 »").arg(dialogue.IndividuChoisi->text());
        vues += dialogue.focusWidget() ? dialogue.focusWidget()->objectName() : QStringLiteral("nulle part");
        vues += dialogue.windowTitle();
        vues +=
            dialogue.parentWidget() == fenetre.get() ? QStringLiteral("à la fenêtre") : QStringLiteral("à personne");
        vues += dialogue.isModal() ? QStringLiteral("modal") : QStringLiteral("libre");
        QTest::keyClick(&dialogue, Qt::Key_Return);
    });
    const std::optional<QString> reponse = Interlocuteur::Courant().ChoisitRacine(fenetre.get(), [] { return lignes; });
    QCOMPARE(scenario.Ecarts(), QStringList());
    QCOMPARE(vues,
             lignes
                 + QStringList({"courante -1", "champ «  »", "IndividuChoisi",
                                "Importation de fichier GED - Choix de la racine", "à la fenêtre", "modal"}));
    QVERIFY(reponse.has_value());
    QCOMPARE(*reponse, QString());
}

void TestGedcomDialogues::laReponseEstLeTexteDuChamp_data()
{
    QTest::addColumn<Geste>("geste");
    QTest::addColumn<QString>("reponse");
    const auto cas = [](const char *nom, const Geste &geste, const char *reponse) {
        QTest::newRow(nom) << geste << QString::fromUtf8(reponse);
    };
    cas(
        "rien", [](DlgIndRac &) {}, "");
    cas(
        "un clic", [](DlgIndRac &dialogue) { CliqueLaLigne(dialogue, 1); },
        "@I2@ Anne  <b>ROY</b> né(e) le 1900 à Metz");
    cas(
        "deux clics, le dernier compte",
        [](DlgIndRac &dialogue) {
            CliqueLaLigne(dialogue, 1);
            CliqueLaLigne(dialogue, 2);
        },
        "@I1@ Jean  DUPONT né(e) le  à ");
    cas(
        "la flèche",
        [](DlgIndRac &dialogue) {
            CliqueLaLigne(dialogue, 0);
            QTest::keyClick(dialogue.ListeDesIndividus, Qt::Key_Down);
        },
        "@I2@ Anne  <b>ROY</b> né(e) le 1900 à Metz");
    cas(
        "taper", [](DlgIndRac &dialogue) { QTest::keyClicks(dialogue.IndividuChoisi, "xx @I7@ yy"); }, "xx @I7@ yy");
    cas(
        "choisir, puis taper",
        [](DlgIndRac &dialogue) {
            CliqueLaLigne(dialogue, 0);
            dialogue.IndividuChoisi->selectAll();
            QTest::keyClicks(dialogue.IndividuChoisi, "@I1@");
        },
        "@I1@");
    cas(
        "choisir, puis effacer",
        [](DlgIndRac &dialogue) {
            CliqueLaLigne(dialogue, 0);
            dialogue.IndividuChoisi->clear();
        },
        "");
}

void TestGedcomDialogues::laReponseEstLeTexteDuChamp()
{
    QFETCH(Geste, geste);
    QFETCH(QString, reponse);
    Scenario scenario;
    scenario.Dialogue<DlgIndRac>([geste](DlgIndRac &dialogue) {
        geste(dialogue);
        QTest::mouseClick(dialogue.OKButton, Qt::LeftButton);
    });
    const auto rendue = Interlocuteur::Courant().ChoisitRacine(fenetre.get(), [] { return lignes; });
    QCOMPARE(scenario.Ecarts(), QStringList());
    QVERIFY(rendue.has_value());
    QCOMPARE(*rendue, reponse);
}

void TestGedcomDialogues::renoncerNeRepondRien_data()
{
    QTest::addColumn<Geste>("geste");
    QTest::newRow("Annuler") << Geste(
        [](DlgIndRac &dialogue) { QTest::mouseClick(dialogue.CancelButton, Qt::LeftButton); });
    QTest::newRow("Échap") << Geste([](DlgIndRac &dialogue) { QTest::keyClick(&dialogue, Qt::Key_Escape); });
    QTest::newRow("fermer") << Geste([](DlgIndRac &dialogue) { dialogue.close(); });
}

void TestGedcomDialogues::renoncerNeRepondRien()
{
    QFETCH(Geste, geste);
    Scenario scenario;
    scenario.Dialogue<DlgIndRac>([geste](DlgIndRac &dialogue) {
        CliqueLaLigne(dialogue, 1);
        geste(dialogue);
    });
    QVERIFY(!Interlocuteur::Courant().ChoisitRacine(fenetre.get(), [] { return lignes; }).has_value());
    QCOMPARE(scenario.Ecarts(), QStringList());
}

void TestGedcomDialogues::centMilleIndividus()
{
    QStringList individus;
    for (int i = 100'000; i > 0; --i)
        individus += QStringLiteral("@I%1@ Prénom NOM%1 né(e) le  à ").arg(i);
    Scenario scenario;
    scenario.Dialogue<DlgIndRac>([](DlgIndRac &dialogue) {
        QListWidget *liste = dialogue.ListeDesIndividus;
        QCOMPARE(liste->count(), 100'000);
        QVERIFY(liste->uniformItemSizes());
        QCOMPARE(dialogue.IndividuChoisi->text(), QString());
        CliqueLaLigne(dialogue, 0);
        QTest::keyClick(liste, Qt::Key_End);
        QTest::mouseClick(dialogue.OKButton, Qt::LeftButton);
    });
    const auto reponse = Interlocuteur::Courant().ChoisitRacine(fenetre.get(), [&] { return individus; });
    QCOMPARE(scenario.Ecarts(), QStringList());
    QCOMPARE(reponse.value_or(QStringLiteral("renoncé")), QStringLiteral("@I1@ Prénom NOM1 né(e) le  à "));
}

void TestGedcomDialogues::leSexeDeLaRacine_data()
{
    QTest::addColumn<bool>("feminin");
    QTest::addColumn<QString>("fin");
    for (const bool feminin : {false, true}) {
        for (const char *fin : {"OK", "entrée", "Échap", "fermer"})
            QTest::addRow("%s, %s", feminin ? "féminin" : "masculin", fin) << feminin << QString::fromUtf8(fin);
    }
}

void TestGedcomDialogues::leSexeDeLaRacine()
{
    QFETCH(bool, feminin);
    QFETCH(QString, fin);
    const QWidget *parent = nullptr;
    Scenario scenario;
    scenario.Dialogue<DlgSexRac>([&](DlgSexRac &dialogue) {
        parent = dialogue.parentWidget();
        if (feminin)
            QTest::mouseClick(dialogue.radioButtonF, Qt::LeftButton, {}, {8, dialogue.radioButtonF->height() / 2});
        if (fin == QStringLiteral("OK"))
            QTest::mouseClick(dialogue.pushButton1, Qt::LeftButton);
        else if (fin == QStringLiteral("fermer"))
            dialogue.close();
        else
            QTest::keyClick(&dialogue, fin == QStringLiteral("entrée") ? Qt::Key_Return : Qt::Key_Escape);
    });
    QCOMPARE(Interlocuteur::Courant().RacineMasculine(fenetre.get()), !feminin);
    QCOMPARE(scenario.Ecarts(), QStringList());
    QCOMPARE(parent, fenetre.get());
}

void TestGedcomDialogues::leSexeRepartDeMasculin()
{
    Scenario scenario;
    for (const bool feminin : {true, false}) {
        scenario.Dialogue<DlgSexRac>([feminin](DlgSexRac &dialogue) {
            if (feminin)
                dialogue.radioButtonF->click();
            dialogue.accept();
        });
        QCOMPARE(Interlocuteur::Courant().RacineMasculine(fenetre.get()), !feminin);
    }
    QCOMPARE(scenario.Ecarts(), QStringList());
}

void TestGedcomDialogues::aucunDialogueNeReste()
{
    Scenario scenario;
    scenario.Dialogue<DlgIndRac>([](DlgIndRac &dialogue) { dialogue.accept(); });
    scenario.Dialogue<DlgSexRac>([](DlgSexRac &dialogue) { dialogue.accept(); });
    QVERIFY(Interlocuteur::Courant().ChoisitRacine(fenetre.get(), [] { return lignes; }).has_value());
    QVERIFY(Interlocuteur::Courant().RacineMasculine(fenetre.get()));
    QCOMPARE(scenario.Ecarts(), QStringList());
    QVERIFY(fenetre->findChildren<QDialog *>().isEmpty());
}

RAMELIER_TEST_MAIN(QApplication, TestGedcomDialogues)
#include "tst_gedcom_dialogues.moc"
