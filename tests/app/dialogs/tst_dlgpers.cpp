#include "formulaire.h"

#include "dlgpers.h"

#include <QApplication>
#include <QLineEdit>

/// The sheet of one person.
class TestDlgPers : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void lesLabelsDisentLeursTextes_data();
    void lesLabelsDisentLeursTextes();
    void aucunAutreTexte();
    void chaqueChampASonLabel();
    void lesBoutonsDisentLeursTextes();
    void unChampSArreteA250_data() { UneLigneParChamp(); }
    void unChampSArreteA250();
    void collerPlusSArreteA250();
    void okSansToucherNeModifieRien();
    void taperNeModifieQueCeChamp_data() { UneLigneParChamp(); }
    void taperNeModifieQueCeChamp();
    void lEnTeteMontreSonTexteTelQuel();

private:
    static void UneLigneParChamp();
};

namespace {

const QStringList champs{"TxtNom",     "TxtPrenom", "TxtDateNais", "TxtLieuNais", "TxtDateDec",
                         "TxtLieuDec", "TxtDivers", "TxtFicPhoto", "TxtFicHtml"};

QLineEdit *Champ(const DlgPers &dialogue, const QString &nom)
{
    return dialogue.findChild<QLineEdit *>(nom);
}

QStringList ChampsModifies(const DlgPers &dialogue)
{
    QStringList modifies;
    for (const QString &nom : champs) {
        if (Champ(dialogue, nom)->isModified())
            modifies += nom;
    }
    return modifies;
}

}  // namespace

void TestDlgPers::UneLigneParChamp()
{
    QTest::addColumn<QString>("champ");
    for (const QString &nom : champs)
        QTest::newRow(qPrintable(nom)) << nom;
}

void TestDlgPers::lesLabelsDisentLeursTextes_data()
{
    QTest::addColumn<QString>("texte");

    QTest::newRow("LabelNom") << "Nom : ";
    QTest::newRow("LabelPrenom") << "Prénom(s) : ";
    QTest::newRow("LabelNaissance") << "Naissance -";
    QTest::newRow("LabelDateNais") << "Date : ";
    QTest::newRow("LabelLieuNais") << "Lieu :";
    QTest::newRow("LabelDeces") << "Décès    -";
    QTest::newRow("LabelDateDec") << "Date : ";
    QTest::newRow("LabelLieuDec") << "Lieu :";
    QTest::newRow("LabelDiv") << "Divers : ";
    QTest::newRow("LabelFicPhoto") << "Fichier photo :";
    QTest::newRow("LabelFicheHTML") << "Fiche associée     :\n(fichier .html ou .txt)";
}

void TestDlgPers::lesLabelsDisentLeursTextes()
{
    const DlgPers dialogue(nullptr);
    QTEST(TexteDuLabel(dialogue, QTest::currentDataTag()), "texte");
}

void TestDlgPers::aucunAutreTexte()
{
    DlgPers dialogue(nullptr);
    dialogue.LabelTitre->clear();
    QStringList textes{"Nom : ",
                       "Prénom(s) : ",
                       "Naissance -",
                       "Date : ",
                       "Lieu :",
                       "Décès    -",
                       "Date : ",
                       "Lieu :",
                       "Divers : ",
                       "Fichier photo :",
                       "Fiche associée     :\n(fichier .html ou .txt)"};
    textes.sort();
    QCOMPARE(TextesDesLabels(dialogue), textes);
    // Nine fields, and no other.
    QCOMPARE(dialogue.findChildren<QLineEdit *>().size(), champs.size());
}

void TestDlgPers::chaqueChampASonLabel()
{
    const DlgPers dialogue(nullptr);
    QCOMPARE(dialogue.LabelNom->buddy(), dialogue.TxtNom);
    QCOMPARE(dialogue.LabelPrenom->buddy(), dialogue.TxtPrenom);
    QCOMPARE(dialogue.LabelDateNais->buddy(), dialogue.TxtDateNais);
    QCOMPARE(dialogue.LabelLieuNais->buddy(), dialogue.TxtLieuNais);
    QCOMPARE(dialogue.LabelDateDec->buddy(), dialogue.TxtDateDec);
    QCOMPARE(dialogue.LabelLieuDec->buddy(), dialogue.TxtLieuDec);
    QCOMPARE(dialogue.LabelDiv->buddy(), dialogue.TxtDivers);
    QCOMPARE(dialogue.LabelFicPhoto->buddy(), dialogue.TxtFicPhoto);
    QCOMPARE(dialogue.LabelFicheHTML->buddy(), dialogue.TxtFicHtml);
}

void TestDlgPers::lesBoutonsDisentLeursTextes()
{
    const DlgPers dialogue(nullptr);
    QCOMPARE(dialogue.findChild<QPushButton *>("OkButton")->text(), "Ok");
    QCOMPARE(dialogue.findChild<QPushButton *>("CancelButton")->text(), "Annuler");
    QVERIFY(dialogue.findChild<QLabel *>("LabelTitre"));
}

void TestDlgPers::unChampSArreteA250()
{
    QFETCH(const QString, champ);
    DlgPers dialogue(nullptr);
    QVERIFY(Affiche(dialogue));
    QLineEdit *ligne = Champ(dialogue, champ);
    QVERIFY(ligne);
    QVERIFY(ligne->text().isEmpty());
    QTest::keyClicks(ligne, QString(249, 'a') + "bcd" + QString(48, 'e'));
    QCOMPARE(ligne->text(), QString(249, 'a') + "b");
    QTest::keyClick(ligne, Qt::Key_Backspace);
    QTest::keyClicks(ligne, "z");
    QCOMPARE(ligne->text(), QString(249, 'a') + "z");
}

void TestDlgPers::collerPlusSArreteA250()
{
    DlgPers dialogue(nullptr);
    QVERIFY(Affiche(dialogue));
    dialogue.TxtDivers->insert(QString(200, 'a') + QString(100, 'b'));
    QCOMPARE(dialogue.TxtDivers->text(), QString(200, 'a') + QString(50, 'b'));
}

void TestDlgPers::okSansToucherNeModifieRien()
{
    DlgPers dialogue(nullptr);
    for (const QString &nom : champs)
        Champ(dialogue, nom)->setText(nom + QString(300, 'x'));
    QVERIFY(Affiche(dialogue));
    (void)OrdreDesTabulations(dialogue);
    Clique(dialogue.OkButton);
    QCOMPARE(dialogue.result(), int(QDialog::Accepted));
    QCOMPARE(ChampsModifies(dialogue), QStringList());
}

void TestDlgPers::taperNeModifieQueCeChamp()
{
    QFETCH(const QString, champ);
    DlgPers dialogue(nullptr);
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

void TestDlgPers::lEnTeteMontreSonTexteTelQuel()
{
    DlgPers dialogue(nullptr);
    dialogue.LabelTitre->setText("<b>n°1</b>");
    // Taken for rich text, the marks would take no place.
    const int largeur = dialogue.LabelTitre->sizeHint().width();
    dialogue.LabelTitre->setTextFormat(Qt::PlainText);
    QCOMPARE(dialogue.LabelTitre->sizeHint().width(), largeur);
}

RAMELIER_TEST_DIALOGUES_MAIN(TestDlgPers)
#include "tst_dlgpers.moc"
