#include "formulaire.h"

#include "dlgsexrac.h"

#include <QApplication>
#include <QGroupBox>
#include <QRadioButton>

/// The sex of the root.
class TestDlgSexRac : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void lesTextesSontCeuxPrevus();
    void masculinSansToucher_data();
    void masculinSansToucher();
    void feminin_data();
    void feminin();
    void revenirAMasculin();
    void rienNePermetDeRenoncerSaufEchappement();
};

void TestDlgSexRac::lesTextesSontCeuxPrevus()
{
    const DlgSexRac dialogue(nullptr);
    const auto *groupe = dialogue.findChild<QGroupBox *>("groupBox");
    QVERIFY(groupe);
    QCOMPARE(groupe->title(), "La personne racine est de sexe :");
    QCOMPARE(groupe->findChild<QRadioButton *>("radioButtonF")->text(), "Féminin");
    QCOMPARE(groupe->findChild<QRadioButton *>("radioButtonM")->text(), "Masculin");
    QCOMPARE(dialogue.findChild<QPushButton *>("pushButton1")->text(), "OK");
    QCOMPARE(TextesDesLabels(dialogue), QStringList());
    QCOMPARE(dialogue.findChildren<QRadioButton *>().size(), 2);
}

void TestDlgSexRac::masculinSansToucher_data()
{
    QTest::addColumn<bool>("auClavier");
    QTest::newRow("clic") << false;
    QTest::newRow("clavier") << true;
}

void TestDlgSexRac::masculinSansToucher()
{
    QFETCH(const bool, auClavier);
    DlgSexRac dialogue(nullptr);
    QVERIFY(dialogue.radioButtonM->isChecked());
    QVERIFY(!dialogue.radioButtonF->isChecked());
    QVERIFY(Affiche(dialogue));
    if (auClavier)
        QTest::keyClick(QApplication::focusWidget(), Qt::Key_Return);
    else
        Clique(dialogue.pushButton1);
    QCOMPARE(dialogue.result(), int(QDialog::Accepted));
    QVERIFY(dialogue.radioButtonM->isChecked());
    QVERIFY(!dialogue.radioButtonF->isChecked());
}

void TestDlgSexRac::feminin_data()
{
    QTest::addColumn<bool>("auClavier");
    QTest::newRow("clic") << false;
    QTest::newRow("flèche") << true;
}

void TestDlgSexRac::feminin()
{
    QFETCH(const bool, auClavier);
    DlgSexRac dialogue(nullptr);
    QVERIFY(Affiche(dialogue));
    if (auClavier) {
        dialogue.radioButtonM->setFocus();
        QTest::keyClick(dialogue.radioButtonM, Qt::Key_Up);
    } else {
        QTest::mouseClick(dialogue.radioButtonF, Qt::LeftButton, {}, {8, dialogue.radioButtonF->height() / 2});
    }
    QVERIFY(dialogue.radioButtonF->isChecked());
    QVERIFY(!dialogue.radioButtonM->isChecked());
    QVERIFY(dialogue.isVisible());
    Clique(dialogue.pushButton1);
    QCOMPARE(dialogue.result(), int(QDialog::Accepted));
    QVERIFY(dialogue.radioButtonF->isChecked());
}

void TestDlgSexRac::revenirAMasculin()
{
    DlgSexRac dialogue(nullptr);
    QVERIFY(Affiche(dialogue));
    for (QRadioButton *bouton : {dialogue.radioButtonF, dialogue.radioButtonM})
        QTest::mouseClick(bouton, Qt::LeftButton, {}, {8, bouton->height() / 2});
    QVERIFY(dialogue.radioButtonM->isChecked());
    QVERIFY(!dialogue.radioButtonF->isChecked());
}

void TestDlgSexRac::rienNePermetDeRenoncerSaufEchappement()
{
    DlgSexRac dialogue(nullptr);
    QCOMPARE(dialogue.findChildren<QPushButton *>(), QList{dialogue.pushButton1});
    QVERIFY(Affiche(dialogue));
    QTest::keyClick(&dialogue, Qt::Key_Escape);
    QVERIFY(!dialogue.isVisible());
    QCOMPARE(dialogue.result(), int(QDialog::Rejected));
    // What the caller reads is still an answer.
    QVERIFY(dialogue.radioButtonM->isChecked());
}

RAMELIER_TEST_DIALOGUES_MAIN(TestDlgSexRac)
#include "tst_dlgsexrac.moc"
