#include "formulaire.h"

#include "dlgpdg.h"

#include <QApplication>
#include <QLineEdit>

/// The title page of a tree.
class TestDlgPdG : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void lesLabelsDisentLeursTextes();
    void chaqueChampASonLabel();
    void lesBoutonsDisentLeursTextes();
    void unChampSArreteA250_data();
    void unChampSArreteA250();
    void leTitreNAPasDeLimite();
    void unLongTitreResteEntier();
    void okSansToucherNeModifieRien();
    void taperNeModifieQueCeChamp_data();
    void taperNeModifieQueCeChamp();
};

namespace {

const QStringList champs{"TextTitre", "TextCreePar", "TextDateCreation", "TextMaJPar", "TextDateMaJ"};

QLineEdit *Champ(const DlgPdG &dialogue, const QString &nom)
{
    return dialogue.findChild<QLineEdit *>(nom);
}

QStringList ChampsModifies(const DlgPdG &dialogue)
{
    QStringList modifies;
    for (const QString &nom : champs) {
        if (Champ(dialogue, nom)->isModified())
            modifies += nom;
    }
    return modifies;
}

}  // namespace

void TestDlgPdG::lesLabelsDisentLeursTextes()
{
    const DlgPdG dialogue(nullptr);
    QCOMPARE(TexteDuLabel(dialogue, "LabelTitre"), "Titre :");
    QCOMPARE(TexteDuLabel(dialogue, "LabelCreePar"), "Créé par : ");
    QCOMPARE(TexteDuLabel(dialogue, "LabelDateCreation"), "Date : ");
    QCOMPARE(TexteDuLabel(dialogue, "LabelMaJPar"), "Mis à jour par : ");
    QCOMPARE(TexteDuLabel(dialogue, "LabelDateMaJ"), "Date : ");
    QCOMPARE(TextesDesLabels(dialogue).size(), 5);
    QCOMPARE(dialogue.findChildren<QLineEdit *>().size(), champs.size());
}

void TestDlgPdG::chaqueChampASonLabel()
{
    const DlgPdG dialogue(nullptr);
    QCOMPARE(dialogue.LabelTitre->buddy(), dialogue.TextTitre);
    QCOMPARE(dialogue.LabelCreePar->buddy(), dialogue.TextCreePar);
    QCOMPARE(dialogue.LabelDateCreation->buddy(), dialogue.TextDateCreation);
    QCOMPARE(dialogue.LabelMaJPar->buddy(), dialogue.TextMaJPar);
    QCOMPARE(dialogue.LabelDateMaJ->buddy(), dialogue.TextDateMaJ);
}

void TestDlgPdG::lesBoutonsDisentLeursTextes()
{
    const DlgPdG dialogue(nullptr);
    QCOMPARE(dialogue.findChild<QPushButton *>("OKButton")->text(), "OK");
    QCOMPARE(dialogue.findChild<QPushButton *>("CancelButton")->text(), "Annuler");
}

void TestDlgPdG::unChampSArreteA250_data()
{
    QTest::addColumn<QString>("champ");
    for (const QString &nom : champs.mid(1))
        QTest::newRow(qPrintable(nom)) << nom;
}

void TestDlgPdG::unChampSArreteA250()
{
    QFETCH(const QString, champ);
    DlgPdG dialogue(nullptr);
    QVERIFY(Affiche(dialogue));
    QLineEdit *ligne = Champ(dialogue, champ);
    QVERIFY(ligne);
    QTest::keyClicks(ligne, QString(249, 'a') + "bcd" + QString(48, 'e'));
    QCOMPARE(ligne->text(), QString(249, 'a') + "b");
}

void TestDlgPdG::leTitreNAPasDeLimite()
{
    DlgPdG dialogue(nullptr);
    QVERIFY(Affiche(dialogue));
    const QString titre = QString(250, 'a') + QString(50, 'b');
    QTest::keyClicks(dialogue.TextTitre, titre);
    QCOMPARE(dialogue.TextTitre->text(), titre);
}

void TestDlgPdG::unLongTitreResteEntier()
{
    DlgPdG dialogue(nullptr);
    const QString titre(100'000, 't');
    dialogue.TextTitre->setText(titre);
    QVERIFY(Affiche(dialogue));
    QTest::keyClick(dialogue.TextTitre, Qt::Key_End);
    QTest::keyClicks(dialogue.TextTitre, "!");
    QCOMPARE(dialogue.TextTitre->text().size(), 100'001);
    QVERIFY(dialogue.TextTitre->text() == titre + "!");
}

void TestDlgPdG::okSansToucherNeModifieRien()
{
    DlgPdG dialogue(nullptr);
    for (const QString &nom : champs)
        Champ(dialogue, nom)->setText(nom + QString(300, 'x'));
    QVERIFY(Affiche(dialogue));
    (void)OrdreDesTabulations(dialogue);
    Clique(dialogue.OKButton);
    QCOMPARE(dialogue.result(), int(QDialog::Accepted));
    QCOMPARE(ChampsModifies(dialogue), QStringList());
}

void TestDlgPdG::taperNeModifieQueCeChamp_data()
{
    QTest::addColumn<QString>("champ");
    for (const QString &nom : champs)
        QTest::newRow(qPrintable(nom)) << nom;
}

void TestDlgPdG::taperNeModifieQueCeChamp()
{
    QFETCH(const QString, champ);
    DlgPdG dialogue(nullptr);
    for (const QString &nom : champs)
        Champ(dialogue, nom)->setText("ancien ");
    QVERIFY(Affiche(dialogue));
    QTest::keyClicks(Champ(dialogue, champ), "É<b>");
    QTest::keyClick(Champ(dialogue, champ), Qt::Key_Return);
    QCOMPARE(dialogue.result(), int(QDialog::Accepted));
    QCOMPARE(ChampsModifies(dialogue), QStringList{champ});
    for (const QString &nom : champs)
        QCOMPARE(Champ(dialogue, nom)->text(), nom == champ ? "ancien É<b>" : "ancien ");
}

RAMELIER_TEST_DIALOGUES_MAIN(TestDlgPdG)
#include "tst_dlgpdg.moc"
