#include "formulaire.h"

#include "dlgindrac.h"

#include <QApplication>
#include <QLineEdit>
#include <QListWidget>

/// The choice of the root of an import.
class TestDlgIndRac : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup() { dialogue.reset(); }
    void lesTextesSontCeuxPrevus();
    void rienNEstChoisiAuDepart();
    void okSansChoisirRendUnTexteVide_data();
    void okSansChoisirRendUnTexteVide();
    void cliquerCopieLaLigneEntiere_data();
    void cliquerCopieLaLigneEntiere();
    void lesFlechesCopientLaLigne();
    void laListePrendSaPremiereLigneQuandOnYVient();
    void doubleCliquerCopieEtRienDePlus();
    void onPeutTaperUneReference();
    void unAutreChoixRemplaceCeQuiEstTape();
    void recliquerLaLigneCouranteGardeCeQuiEstTape();
    void vingtMilleIndividus();

private:
    /// The middle of the line, in the list's viewport.
    [[nodiscard]] QPoint MilieuDe(int ligne) const;
    [[nodiscard]] QString Choisi() const { return dialogue->IndividuChoisi->text(); }

    std::unique_ptr<DlgIndRac> dialogue;
};

namespace {

const QStringList individus{"@I1@ MARTIN Jean", "  @I2@  DURAND  Anne ", "@I3@ <b>ÉLÉONORE</b> & Cie",
                            QString(1000, 'x') + "@I4@"};

}  // namespace

void TestDlgIndRac::init()
{
    dialogue = std::make_unique<DlgIndRac>(nullptr);
    dialogue->IndividuChoisi->clear();
    dialogue->ListeDesIndividus->addItems(individus);
    QVERIFY(Affiche(*dialogue));
}

QPoint TestDlgIndRac::MilieuDe(int ligne) const
{
    QListWidget *liste = dialogue->ListeDesIndividus;
    const QRect rect = liste->visualItemRect(liste->item(ligne));
    return {10, rect.center().y()};
}

void TestDlgIndRac::lesTextesSontCeuxPrevus()
{
    QCOMPARE(TexteDuLabel(*dialogue, "textLabel1"),
             "Vous pouvez choisir la personne racine de l'arbre en cliquant deux\n"
             "fois sur la personne de votre choix dans la liste ci-dessous :");
    QCOMPARE(TexteDuLabel(*dialogue, "LabelAdresse"), "Personne racine :");
    QCOMPARE(TextesDesLabels(*dialogue).size(), 2);
    QCOMPARE(dialogue->findChild<QPushButton *>("OKButton")->text(), "OK");
    QCOMPARE(dialogue->findChild<QPushButton *>("CancelButton")->text(), "Annuler");
    QVERIFY(dialogue->findChild<QListWidget *>("ListeDesIndividus"));
    QVERIFY(dialogue->findChild<QLineEdit *>("IndividuChoisi"));
    QCOMPARE(LabelDe(dialogue->IndividuChoisi), "Personne racine :");
    QCOMPARE(dialogue->textLabel1->buddy(), dialogue->ListeDesIndividus);
}

void TestDlgIndRac::rienNEstChoisiAuDepart()
{
    QCOMPARE(QApplication::focusWidget(), dialogue->IndividuChoisi);
    QCOMPARE(dialogue->ListeDesIndividus->currentRow(), -1);
    QCOMPARE(Choisi(), "");
}

void TestDlgIndRac::okSansChoisirRendUnTexteVide_data()
{
    QTest::addColumn<bool>("auClavier");
    QTest::newRow("clic") << false;
    QTest::newRow("entrée") << true;
}

void TestDlgIndRac::okSansChoisirRendUnTexteVide()
{
    QFETCH(const bool, auClavier);
    if (auClavier)
        QTest::keyClick(QApplication::focusWidget(), Qt::Key_Return);
    else
        Clique(dialogue->OKButton);
    QVERIFY(!dialogue->isVisible());
    QCOMPARE(dialogue->result(), int(QDialog::Accepted));
    QCOMPARE(Choisi(), "");
}

void TestDlgIndRac::cliquerCopieLaLigneEntiere_data()
{
    QTest::addColumn<int>("ligne");
    for (int ligne = 0; ligne < individus.size(); ++ligne)
        QTest::addRow("ligne %d", ligne) << ligne;
}

void TestDlgIndRac::cliquerCopieLaLigneEntiere()
{
    QFETCH(const int, ligne);
    QTest::mouseClick(dialogue->ListeDesIndividus->viewport(), Qt::LeftButton, {}, MilieuDe(ligne));
    QCOMPARE(Choisi(), individus.at(ligne));
    QVERIFY(dialogue->isVisible());
    Clique(dialogue->OKButton);
    QCOMPARE(dialogue->result(), int(QDialog::Accepted));
    QCOMPARE(Choisi(), individus.at(ligne));
}

void TestDlgIndRac::lesFlechesCopientLaLigne()
{
    QListWidget *liste = dialogue->ListeDesIndividus;
    QTest::mouseClick(liste->viewport(), Qt::LeftButton, {}, MilieuDe(0));
    QCOMPARE(QApplication::focusWidget(), liste);
    QTest::keyClick(liste, Qt::Key_Down);
    QCOMPARE(Choisi(), "  @I2@  DURAND  Anne ");
    QTest::keyClick(liste, Qt::Key_Down);
    QCOMPARE(Choisi(), "@I3@ <b>ÉLÉONORE</b> & Cie");
    QTest::keyClick(liste, Qt::Key_Up);
    QCOMPARE(Choisi(), "  @I2@  DURAND  Anne ");
    QTest::keyClick(liste, Qt::Key_Home);
    QCOMPARE(Choisi(), "@I1@ MARTIN Jean");
    QTest::keyClick(liste, Qt::Key_Return);
    QCOMPARE(dialogue->result(), int(QDialog::Accepted));
    QCOMPARE(Choisi(), "@I1@ MARTIN Jean");
}

void TestDlgIndRac::laListePrendSaPremiereLigneQuandOnYVient()
{
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_Backtab, Qt::ShiftModifier);
    QCOMPARE(QApplication::focusWidget(), dialogue->ListeDesIndividus);
    QCOMPARE(Choisi(), "@I1@ MARTIN Jean");
}

void TestDlgIndRac::doubleCliquerCopieEtRienDePlus()
{
    QListWidget *liste = dialogue->ListeDesIndividus;
    QWidget *surface = liste->viewport();
    QTest::mouseClick(surface, Qt::LeftButton, {}, MilieuDe(2));
    QTest::mouseDClick(surface, Qt::LeftButton, {}, MilieuDe(2));
    QCOMPARE(Choisi(), "@I3@ <b>ÉLÉONORE</b> & Cie");
    QVERIFY(dialogue->isVisible());
    // The line is not opened for editing.
    QVERIFY(!liste->findChild<QLineEdit *>());
    QCOMPARE(liste->item(2)->text(), "@I3@ <b>ÉLÉONORE</b> & Cie");
    QCOMPARE(liste->count(), 4);

    // Nothing more: what the user then types is not put back by a second double click.
    dialogue->IndividuChoisi->setText("à la main");
    QTest::mouseDClick(surface, Qt::LeftButton, {}, MilieuDe(2));
    QCOMPARE(Choisi(), "à la main");
    QVERIFY(dialogue->isVisible());
}

void TestDlgIndRac::onPeutTaperUneReference()
{
    QTest::keyClicks(QApplication::focusWidget(), "@I99@ inconnu");
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_Return);
    QCOMPARE(dialogue->result(), int(QDialog::Accepted));
    QCOMPARE(Choisi(), "@I99@ inconnu");
}

void TestDlgIndRac::unAutreChoixRemplaceCeQuiEstTape()
{
    QTest::keyClicks(dialogue->IndividuChoisi, "@I99@");
    QTest::mouseClick(dialogue->ListeDesIndividus->viewport(), Qt::LeftButton, {}, MilieuDe(1));
    QCOMPARE(Choisi(), "  @I2@  DURAND  Anne ");
    dialogue->IndividuChoisi->selectAll();
    QTest::keyClicks(dialogue->IndividuChoisi, "@I1@");
    QCOMPARE(Choisi(), "@I1@");
    QCOMPARE(dialogue->ListeDesIndividus->currentRow(), 1);
}

void TestDlgIndRac::recliquerLaLigneCouranteGardeCeQuiEstTape()
{
    QWidget *surface = dialogue->ListeDesIndividus->viewport();
    QTest::mouseClick(surface, Qt::LeftButton, {}, MilieuDe(1));
    dialogue->IndividuChoisi->clear();
    QTest::keyClicks(dialogue->IndividuChoisi, "@I99@");
    QTest::mouseClick(surface, Qt::LeftButton, {}, MilieuDe(1));
    QCOMPARE(Choisi(), "@I99@");
}

void TestDlgIndRac::vingtMilleIndividus()
{
    QListWidget *liste = dialogue->ListeDesIndividus;
    liste->clear();
    QStringList tous;
    for (int i = 1; i <= 20'000; ++i)
        tous += QStringLiteral("@I%1@ PERSONNE n° %1").arg(i);
    liste->addItems(tous);
    liste->setFocus();
    QTest::keyClick(liste, Qt::Key_End);
    QCOMPARE(Choisi(), "@I20000@ PERSONNE n° 20000");
}

RAMELIER_TEST_DIALOGUES_MAIN(TestDlgIndRac)
#include "tst_dlgindrac.moc"
