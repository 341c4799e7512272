#include "dialoguesediteur.h"

#include <QApplication>
#include <QCheckBox>
#include <QLineEdit>
#include <QSignalSpy>
#include <QtTest>

/// The forms of the dialogs of the editor of sheets.
class TestDialoguesEditeur : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase() { policeDepart = QApplication::font(); }
    void cleanup() { QApplication::setFont(policeDepart); }
    void laFenetreDitSonTitre_data();
    void laFenetreDitSonTitre();
    void lesWidgetsOntLeurNomEtLeurTexte_data();
    void lesWidgetsOntLeurNomEtLeurTexte();
    void chaqueLabelMeneASonChamp_data();
    void chaqueLabelMeneASonChamp();
    void leDialogueEstSansParent_data() { Lignes(); }
    void leDialogueEstSansParent();
    void lesChampsAuDepart();
    void lesCasesVontDe0A99();
    void laTabulationSuitLaLecture_data();
    void laTabulationSuitLaLecture();
    void seulOkRepondAEntree_data() { Lignes(); }
    void seulOkRepondAEntree();
    void lesBoutonsSeCliquent_data() { Lignes(); }
    void lesBoutonsSeCliquent();
    void entreeAccepteDepuisChaqueChamp_data() { Lignes(); }
    void entreeAccepteDepuisChaqueChamp();
    void lesTouchesDesBoutons_data();
    void lesTouchesDesBoutons();
    void fermerLaFenetreRefuse_data() { Lignes(); }
    void fermerLaFenetreRefuse();
    void rienNEstCoupe_data();
    void rienNEstCoupe();

private:
    static void Lignes();
    static QStringList Coupes(const QDialog &dialogue);

    QFont policeDepart;
};

void TestDialoguesEditeur::Lignes()
{
    QTest::addColumn<QString>("classe");
    for (const QString &nom : DialoguesEditeur())
        QTest::newRow(qPrintable(nom)) << nom;
}

void TestDialoguesEditeur::laFenetreDitSonTitre_data()
{
    QTest::addColumn<QString>("classe");
    QTest::addColumn<QString>("titre");
    QTest::newRow("DlgCherche") << "DlgCherche"
                                << "LyEditeur - Recherche";
    QTest::newRow("DlgRemplace") << "DlgRemplace"
                                 << "LyEditeur - Remplacer du texte";
    QTest::newRow("DlgTableau") << "DlgTableau"
                                << "LyEditHtml - Tableau";
}

void TestDialoguesEditeur::laFenetreDitSonTitre()
{
    QFETCH(const QString, classe);
    QTEST(NouveauDesDix(classe)->windowTitle(), "titre");
}

void TestDialoguesEditeur::lesWidgetsOntLeurNomEtLeurTexte_data()
{
    QTest::addColumn<QString>("classe");
    QTest::addColumn<QStringList>("widgets");
    const QStringList boutons{"QPushButton buttonCancel «&Annuler»", "QPushButton buttonOk «&OK»"};
    QTest::newRow("DlgCherche") << "DlgCherche"
                                << QStringList{"QCheckBox cbCasse «Respecter Majuscules/minuscules»",
                                               "QLabel labelCherche «Texte à chercher :»",
                                               "QLineEdit lineEditCherche «»"}
            + boutons;
    QTest::newRow("DlgRemplace") << "DlgRemplace"
                                 << QStringList{"QCheckBox cbCasse «Respecter Majuscules/minuscules»",
                                                "QLabel labelCherche «Texte à chercher :»",
                                                "QLabel labelRemplace «Texte de remplacement :»",
                                                "QLineEdit lineEditCherche «»", "QLineEdit lineEditRemplace «»"}
            + boutons;
    QTest::newRow("DlgTableau") << "DlgTableau"
                                << QStringList{"QCheckBox cbBordure «Bordure»",
                                               "QLabel labelNumCols «Nombre de colonnes :»",
                                               "QLabel labelNumLignes «Nombre de lignes :»"}
            + boutons + QStringList{"QSpinBox spbNumCols «»", "QSpinBox spbNumLignes «»"};
}

void TestDialoguesEditeur::lesWidgetsOntLeurNomEtLeurTexte()
{
    QFETCH(const QString, classe);
    const auto dialogue = NouveauDesDix(classe);
    QStringList vus;
    const auto widgets = dialogue->findChildren<QWidget *>(Qt::FindDirectChildrenOnly);
    for (const QWidget *widget : widgets)
        vus += QStringLiteral("%1 %2 «%3»")
                   .arg(QString::fromLatin1(widget->metaObject()->className()), widget->objectName(),
                        widget->property("text").toString());
    vus.sort();
    QTEST(vus, "widgets");
}

void TestDialoguesEditeur::chaqueLabelMeneASonChamp_data()
{
    QTest::addColumn<QString>("classe");
    QTest::addColumn<QString>("champ");
    QTest::addColumn<QString>("label");
    QTest::newRow("chercher") << "DlgCherche"
                              << "lineEditCherche"
                              << "Texte à chercher :";
    QTest::newRow("remplacer, cherché") << "DlgRemplace"
                                        << "lineEditCherche"
                                        << "Texte à chercher :";
    QTest::newRow("remplacer, remplacement") << "DlgRemplace"
                                             << "lineEditRemplace"
                                             << "Texte de remplacement :";
    QTest::newRow("tableau, lignes") << "DlgTableau"
                                     << "spbNumLignes"
                                     << "Nombre de lignes :";
    QTest::newRow("tableau, colonnes") << "DlgTableau"
                                       << "spbNumCols"
                                       << "Nombre de colonnes :";
}

void TestDialoguesEditeur::chaqueLabelMeneASonChamp()
{
    QFETCH(const QString, classe);
    QFETCH(const QString, champ);
    const auto dialogue = NouveauDesDix(classe);
    QTEST(LabelDe(dialogue->findChild<QWidget *>(champ)), "label");
}

void TestDialoguesEditeur::leDialogueEstSansParent()
{
    QFETCH(const QString, classe);
    const auto dialogue = NouveauDesDix(classe);
    QCOMPARE(dialogue->parentWidget(), nullptr);
    QVERIFY(dialogue->isWindow());
}

void TestDialoguesEditeur::lesChampsAuDepart()
{
    QVERIFY(!DlgTableau().cbBordure->isChecked());
    QCOMPARE(DlgCherche().lineEditCherche->maxLength(), 32767);
    QCOMPARE(DlgRemplace().lineEditRemplace->maxLength(), 32767);
}

void TestDialoguesEditeur::lesCasesVontDe0A99()
{
    DlgTableau dialogue;
    QVERIFY(Affiche(dialogue));
    for (QSpinBox *champ : {dialogue.spbNumLignes, dialogue.spbNumCols}) {
        QCOMPARE(champ->minimum(), 0);
        QCOMPARE(champ->maximum(), 99);
        Remplace(champ, "99");
        QCOMPARE(champ->value(), 99);
        // The third digit does not go in.
        Remplace(champ, "123");
        QCOMPARE(champ->value(), 12);
        Remplace(champ, "-4");
        QCOMPARE(champ->value(), 4);
        Remplace(champ, "0");
        QCOMPARE(champ->value(), 0);
        champ->stepDown();
        QCOMPARE(champ->value(), 0);
    }
}

void TestDialoguesEditeur::laTabulationSuitLaLecture_data()
{
    QTest::addColumn<QString>("classe");
    QTest::addColumn<QStringList>("ordre");
    QTest::newRow("DlgCherche") << "DlgCherche" << QStringList{"lineEditCherche", "cbCasse", "&OK", "&Annuler"};
    QTest::newRow("DlgRemplace") << "DlgRemplace"
                                 << QStringList{"lineEditCherche", "lineEditRemplace", "cbCasse", "&OK", "&Annuler"};
    QTest::newRow("DlgTableau") << "DlgTableau"
                                << QStringList{"spbNumLignes", "spbNumCols", "cbBordure", "&OK", "&Annuler"};
}

void TestDialoguesEditeur::laTabulationSuitLaLecture()
{
    QFETCH(const QString, classe);
    const auto dialogue = NouveauDesDix(classe);
    QVERIFY(Affiche(*dialogue));
    QTEST(OrdreDesTabulations(*dialogue), "ordre");
}

void TestDialoguesEditeur::seulOkRepondAEntree()
{
    QFETCH(const QString, classe);
    const auto dialogue = NouveauDesDix(classe);
    QVERIFY(dialogue->findChild<QPushButton *>("buttonOk")->isDefault());
    QVERIFY(!dialogue->findChild<QPushButton *>("buttonCancel")->isDefault());
}

void TestDialoguesEditeur::lesBoutonsSeCliquent()
{
    QFETCH(const QString, classe);
    const auto dialogue = NouveauDesDix(classe);
    for (const bool accepte : {true, false}) {
        QVERIFY(Affiche(*dialogue));
        dialogue->setResult(accepte ? QDialog::Rejected : QDialog::Accepted);
        const QSignalSpy reponses(dialogue.get(), accepte ? &QDialog::accepted : &QDialog::rejected);
        Clique(Bouton(*dialogue, accepte ? "&OK" : "&Annuler"));
        QVERIFY(!dialogue->isVisible());
        QCOMPARE(reponses.size(), 1);
        QCOMPARE(dialogue->result(), int(accepte ? QDialog::Accepted : QDialog::Rejected));
    }
}

void TestDialoguesEditeur::entreeAccepteDepuisChaqueChamp()
{
    QFETCH(const QString, classe);
    const auto dialogue = NouveauDesDix(classe);
    QVERIFY(Affiche(*dialogue));
    const QStringList ordre = OrdreDesTabulations(*dialogue);
    QVERIFY(ordre.size() >= 4);
    for (const QString &nom : ordre) {
        // The only one that answers for itself.
        const bool accepte = nom != "&Annuler";
        QVERIFY(Affiche(*dialogue));
        dialogue->setResult(accepte ? QDialog::Rejected : QDialog::Accepted);
        QWidget *widget = Visite(*dialogue, nom);
        widget->setFocus();
        QTest::keyClick(widget, Qt::Key_Return);
        QVERIFY2(!dialogue->isVisible(), qPrintable(nom));
        QVERIFY2(dialogue->result() == int(accepte ? QDialog::Accepted : QDialog::Rejected), qPrintable(nom));
    }
}

void TestDialoguesEditeur::lesTouchesDesBoutons_data()
{
    QTest::addColumn<QString>("classe");
    QTest::addColumn<QString>("touche");
    QTest::addColumn<int>("resultat");
    for (const char *nom : {"DlgCherche", "DlgRemplace", "DlgTableau"}) {
        const QList<std::pair<const char *, int>> touches{
            {"Alt+A", QDialog::Rejected}, {"Esc", QDialog::Rejected}, {"Alt+O", QDialog::Accepted}};
        for (const auto &[touche, resultat] : touches)
            QTest::newRow(qPrintable(QString(nom) + ' ' + touche)) << nom << touche << resultat;
    }
}

void TestDialoguesEditeur::lesTouchesDesBoutons()
{
    QFETCH(const QString, classe);
    QFETCH(const QString, touche);
    QFETCH(const int, resultat);
    const auto dialogue = NouveauDesDix(classe);
    QCOMPARE(dialogue->findChild<QPushButton *>("buttonCancel")->shortcut(), QKeySequence("Alt+A"));
    QVERIFY(Affiche(*dialogue));
    const QStringList ordre = OrdreDesTabulations(*dialogue);
    for (const QString &nom : ordre) {
        QVERIFY(Affiche(*dialogue));
        dialogue->setResult(resultat == QDialog::Accepted ? QDialog::Rejected : QDialog::Accepted);
        QWidget *widget = Visite(*dialogue, nom);
        widget->setFocus();
        QTest::keySequence(widget, QKeySequence(touche));
        // A button of the keyboard stays pressed for a moment.
        QTRY_VERIFY2(!dialogue->isVisible(), qPrintable(nom));
        QVERIFY2(dialogue->result() == resultat, qPrintable(nom));
    }
}

void TestDialoguesEditeur::fermerLaFenetreRefuse()
{
    QFETCH(const QString, classe);
    const auto dialogue = NouveauDesDix(classe);
    QVERIFY(Affiche(*dialogue));
    dialogue->setResult(QDialog::Accepted);
    QVERIFY(dialogue->close());
    QCOMPARE(dialogue->result(), int(QDialog::Rejected));
}

QStringList TestDialoguesEditeur::Coupes(const QDialog &dialogue)
{
    QStringList coupes;
    const auto widgets = dialogue.findChildren<QWidget *>(Qt::FindDirectChildrenOnly);
    for (const QWidget *widget : widgets) {
        // A line edit has no text of its own to show: high enough is enough.
        const QSize voulue = widget->inherits("QLineEdit") ? widget->minimumSizeHint() : widget->sizeHint();
        if (widget->width() < voulue.width() || widget->height() < voulue.height())
            coupes += widget->objectName() + " coupé";
        if (!dialogue.rect().contains(widget->geometry()))
            coupes += widget->objectName() + " dépasse";
        for (const QWidget *autre : widgets) {
            if (autre != widget && autre->geometry().intersects(widget->geometry()))
                coupes += widget->objectName() + " recouvre " + autre->objectName();
        }
    }
    return coupes;
}

void TestDialoguesEditeur::rienNEstCoupe_data()
{
    QTest::addColumn<QString>("classe");
    QTest::addColumn<int>("points");
    for (const char *nom : {"DlgCherche", "DlgRemplace", "DlgTableau"}) {
        for (const int points : {9, 18, 27})
            QTest::newRow(qPrintable(QStringLiteral("%1, %2 points").arg(nom).arg(points))) << nom << points;
    }
}

void TestDialoguesEditeur::rienNEstCoupe()
{
    QFETCH(const QString, classe);
    QFETCH(const int, points);
    QFont police = QApplication::font();
    police.setPointSize(points);
    QApplication::setFont(police);
    const auto dialogue = NouveauDesDix(classe);
    QVERIFY(Affiche(*dialogue));
    QCOMPARE(Coupes(*dialogue), QStringList());
    QCOMPARE(dialogue->findChild<QPushButton *>("buttonOk")->font().pointSize(), points);
    // As small as the user can make it, then large.
    dialogue->resize(1, 1);
    QCoreApplication::processEvents();
    QCOMPARE(Coupes(*dialogue), QStringList());
    dialogue->resize(dialogue->size() + QSize(300, 200));
    QCoreApplication::processEvents();
    QCOMPARE(Coupes(*dialogue), QStringList());
}

RAMELIER_TEST_DIALOGUES_MAIN(TestDialoguesEditeur)
#include "tst_dialogues_editeur.moc"
