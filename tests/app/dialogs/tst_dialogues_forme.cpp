#include "formulaire.h"

#include <QApplication>
#include <QSignalSpy>

/// What the seven dialogs have in common: how the keyboard and the buttons answer them.
class TestDialoguesForme : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void laFenetreDitSonTitre_data();
    void laFenetreDitSonTitre();
    void lesBoutonsSontCeuxPrevus_data();
    void lesBoutonsSontCeuxPrevus();
    void lePremierChampALeFocus_data();
    void lePremierChampALeFocus();
    void laTabulationSuitLaLecture_data();
    void laTabulationSuitLaLecture();
    void unSeulBoutonRepondAEntree_data() { UneLigneParDialogue(); }
    void unSeulBoutonRepondAEntree();
    void cliquerSurOkAccepte_data() { UneLigneParDialogue(); }
    void cliquerSurOkAccepte();
    void cliquerSurAnnulerRefuse_data();
    void cliquerSurAnnulerRefuse();
    void entreeAccepteDepuisChaqueChamp_data() { UneLigneParDialogue(); }
    void entreeAccepteDepuisChaqueChamp();
    void echappementRefuseDepuisPartout_data() { UneLigneParDialogue(); }
    void echappementRefuseDepuisPartout();
    void fermerLaFenetreRefuse_data() { UneLigneParDialogue(); }
    void fermerLaFenetreRefuse();
    void execAttendLaReponse_data() { UneLigneParDialogue(); }
    void execAttendLaReponse();
    void chaqueLabelDeChampMeneASonChamp_data() { UneLigneParDialogue(); }
    void chaqueLabelDeChampMeneASonChamp();

private:
    static QPushButton *BoutonOk(const QDialog &dialogue);
    static bool Reaffiche(QDialog &dialogue, const QString &nom);
};

QPushButton *TestDialoguesForme::BoutonOk(const QDialog &dialogue)
{
    return Bouton(dialogue, dialogue.objectName() == "DlgPers" ? "Ok" : "OK");
}

bool TestDialoguesForme::Reaffiche(QDialog &dialogue, const QString &nom)
{
    QWidget *widget = Visite(dialogue, nom);
    if (!widget || !Affiche(dialogue))
        return false;
    widget->setFocus();
    return QTest::qWaitFor([widget] { return QApplication::focusWidget() == widget; });
}

void TestDialoguesForme::laFenetreDitSonTitre_data()
{
    QTest::addColumn<QString>("classe");
    QTest::addColumn<QString>("titre");

    QTest::newRow("DlgPers") << "DlgPers"
                             << "Personne (Création / Modification)";
    QTest::newRow("DlgPdG") << "DlgPdG"
                            << "Arbre généalogique - Page de garde";
    QTest::newRow("DlgIndRac") << "DlgIndRac"
                               << "Importation de fichier GED - Choix de la racine";
    QTest::newRow("DlgSexRac") << "DlgSexRac"
                               << "Arbre généalogique - Sexe de la racine";
    QTest::newRow("DlgOptDessin") << "DlgOptDessin"
                                  << "Arbre généalogique - Options de dessin";
    QTest::newRow("DlgPolices") << "DlgPolices"
                                << "Arbre généalogique - Polices de caractères";
    QTest::newRow("DlgPreferences") << "DlgPreferences"
                                    << "Arbre Généalogique - Préférences";
}

void TestDialoguesForme::laFenetreDitSonTitre()
{
    QFETCH(const QString, classe);
    const auto dialogue = NouveauDialogue(classe);
    QCOMPARE(dialogue->metaObject()->className(), qPrintable(classe));
    QTEST(dialogue->windowTitle(), "titre");
}

void TestDialoguesForme::lesBoutonsSontCeuxPrevus_data()
{
    QTest::addColumn<QString>("classe");
    QTest::addColumn<QStringList>("boutons");

    QTest::newRow("DlgPers") << "DlgPers" << QStringList{"Annuler", "Ok"};
    QTest::newRow("DlgPdG") << "DlgPdG" << QStringList{"Annuler", "OK"};
    QTest::newRow("DlgIndRac") << "DlgIndRac" << QStringList{"Annuler", "OK"};
    QTest::newRow("DlgSexRac") << "DlgSexRac" << QStringList{"OK"};
    QTest::newRow("DlgOptDessin") << "DlgOptDessin"
                                  << QStringList{"Annuler", "Modifier la couleur des traits ...", "OK",
                                                 "Rétablir les valeurs de l'option préférences"};
    QTest::newRow("DlgPolices") << "DlgPolices"
                                << QStringList{"Annuler",
                                               "Modifier la couleur des textes ...",
                                               "Modifier la police de la légende ...",
                                               "Modifier la police des numéros ...",
                                               "Modifier la police des textes ...",
                                               "Modifier la police du titre ...",
                                               "OK",
                                               "Rétablir les valeurs de l'option préférences"};
    QTest::newRow("DlgPreferences") << "DlgPreferences"
                                    << QStringList{"Annuler",
                                                   "Modifier la couleur des textes ...",
                                                   "Modifier la couleur des traits ...",
                                                   "Modifier la police de la légende ...",
                                                   "Modifier la police des numéros ...",
                                                   "Modifier la police des textes ...",
                                                   "Modifier la police du titre ...",
                                                   "OK",
                                                   "Rétablir toutes les valeurs par défaut"};
}

void TestDialoguesForme::lesBoutonsSontCeuxPrevus()
{
    QFETCH(const QString, classe);
    QTEST(TextesDesBoutons(*NouveauDialogue(classe)), "boutons");
}

void TestDialoguesForme::lePremierChampALeFocus_data()
{
    QTest::addColumn<QString>("classe");
    QTest::addColumn<QString>("champ");

    QTest::newRow("DlgPers") << "DlgPers"
                             << "TxtNom";
    QTest::newRow("DlgPdG") << "DlgPdG"
                            << "TextTitre";
    // Not the list, which would choose its first line by itself.
    QTest::newRow("DlgIndRac") << "DlgIndRac"
                               << "IndividuChoisi";
    QTest::newRow("DlgSexRac") << "DlgSexRac"
                               << "radioButtonM";
    QTest::newRow("DlgOptDessin") << "DlgOptDessin"
                                  << "sbLCadre";
    // Nothing but buttons: the default one.
    QTest::newRow("DlgPolices") << "DlgPolices"
                                << "OKButton";
    QTest::newRow("DlgPreferences") << "DlgPreferences"
                                    << "sbLCadre";
}

void TestDialoguesForme::lePremierChampALeFocus()
{
    QFETCH(const QString, classe);
    const auto dialogue = NouveauDialogue(classe);
    QVERIFY(Affiche(*dialogue));
    QVERIFY(QApplication::focusWidget());
    QTEST(QApplication::focusWidget()->objectName(), "champ");
}

void TestDialoguesForme::laTabulationSuitLaLecture_data()
{
    QTest::addColumn<QString>("classe");
    QTest::addColumn<QStringList>("ordre");

    const QStringList longueurs{"sbLCadre",         "sbHCadre",           "sbDMinHoriz", "sbDMinVert", "sbMargeMin",
                                "sbMargeDansCadre", "sbIntervCadrePhoto", "dsbEpTrait",  "dsbRayonArc"};
    QTest::newRow("DlgPers") << "DlgPers" << QStringList{"TxtNom",     "TxtPrenom",  "TxtDateNais", "TxtLieuNais",
                                                         "TxtDateDec", "TxtLieuDec", "TxtDivers",   "TxtFicPhoto",
                                                         "TxtFicHtml", "Ok",         "Annuler"};
    QTest::newRow("DlgPdG") << "DlgPdG" << QStringList{"TextTitre",   "TextCreePar", "TextDateCreation", "TextMaJPar",
                                                       "TextDateMaJ", "OK",          "Annuler"};
    // The list stands first, so it closes the round.
    QTest::newRow("DlgIndRac") << "DlgIndRac" << QStringList{"IndividuChoisi", "OK", "Annuler", "ListeDesIndividus"};
    // The arrow keys, not the Tab key, go from one choice to the other.
    QTest::newRow("DlgSexRac") << "DlgSexRac" << QStringList{"radioButtonM", "OK"};
    QTest::newRow("DlgOptDessin") << "DlgOptDessin"
                                  << longueurs
            + QStringList{"Modifier la couleur des traits ...", "Rétablir les valeurs de l'option préférences", "OK",
                          "Annuler"};
    // The round starts at the default button.
    QTest::newRow("DlgPolices") << "DlgPolices"
                                << QStringList{"OK",
                                               "Annuler",
                                               "Modifier la police des textes ...",
                                               "Modifier la police des numéros ...",
                                               "Modifier la police du titre ...",
                                               "Modifier la police de la légende ...",
                                               "Modifier la couleur des textes ...",
                                               "Rétablir les valeurs de l'option préférences"};
    QTest::newRow("DlgPreferences") << "DlgPreferences"
                                    << longueurs
            + QStringList{"Modifier la couleur des traits ...",
                          "Modifier la police des textes ...",
                          "Modifier la police des numéros ...",
                          "Modifier la police du titre ...",
                          "Modifier la police de la légende ...",
                          "Modifier la couleur des textes ...",
                          "Rétablir toutes les valeurs par défaut",
                          "OK",
                          "Annuler"};
}

void TestDialoguesForme::laTabulationSuitLaLecture()
{
    QFETCH(const QString, classe);
    const auto dialogue = NouveauDialogue(classe);
    QVERIFY(Affiche(*dialogue));
    QTEST(OrdreDesTabulations(*dialogue), "ordre");
}

void TestDialoguesForme::unSeulBoutonRepondAEntree()
{
    QFETCH(const QString, classe);
    const auto dialogue = NouveauDialogue(classe);
    QList<QPushButton *> parDefaut;
    const auto boutons = dialogue->findChildren<QPushButton *>();
    for (QPushButton *bouton : boutons) {
        if (bouton->isDefault())
            parDefaut += bouton;
    }
    QCOMPARE(parDefaut, QList{BoutonOk(*dialogue)});
}

void TestDialoguesForme::cliquerSurOkAccepte()
{
    QFETCH(const QString, classe);
    const auto dialogue = NouveauDialogue(classe);
    const QSignalSpy acceptations(dialogue.get(), &QDialog::accepted);
    QVERIFY(Affiche(*dialogue));
    Clique(BoutonOk(*dialogue));
    QVERIFY(!dialogue->isVisible());
    QCOMPARE(dialogue->result(), int(QDialog::Accepted));
    QCOMPARE(acceptations.size(), 1);
}

void TestDialoguesForme::cliquerSurAnnulerRefuse_data()
{
    QTest::addColumn<QString>("classe");
    for (const QString &nom : TousLesDialogues()) {
        if (nom != "DlgSexRac")
            QTest::newRow(qPrintable(nom)) << nom;
    }
}

void TestDialoguesForme::cliquerSurAnnulerRefuse()
{
    QFETCH(const QString, classe);
    const auto dialogue = NouveauDialogue(classe);
    const QSignalSpy refus(dialogue.get(), &QDialog::rejected);
    QVERIFY(Affiche(*dialogue));
    dialogue->setResult(QDialog::Accepted);
    Clique(Bouton(*dialogue, "Annuler"));
    QVERIFY(!dialogue->isVisible());
    QCOMPARE(dialogue->result(), int(QDialog::Rejected));
    QCOMPARE(refus.size(), 1);
}

void TestDialoguesForme::entreeAccepteDepuisChaqueChamp()
{
    QFETCH(const QString, classe);
    const auto dialogue = NouveauDialogue(classe);
    QVERIFY(Affiche(*dialogue));
    const QStringList ordre = OrdreDesTabulations(*dialogue);
    int champs = 0;
    for (const QString &nom : ordre) {
        // A button that has the focus answers for itself.
        const auto *bouton = qobject_cast<QPushButton *>(Visite(*dialogue, nom));
        if (bouton && bouton != BoutonOk(*dialogue))
            continue;
        QVERIFY2(Reaffiche(*dialogue, nom), qPrintable(nom));
        QTest::keyClick(QApplication::focusWidget(), Qt::Key_Return);
        QVERIFY2(!dialogue->isVisible(), qPrintable(nom));
        QCOMPARE(dialogue->result(), int(QDialog::Accepted));
        ++champs;
    }
    QVERIFY(champs > 0);
}

void TestDialoguesForme::echappementRefuseDepuisPartout()
{
    QFETCH(const QString, classe);
    const auto dialogue = NouveauDialogue(classe);
    QVERIFY(Affiche(*dialogue));
    const QStringList ordre = OrdreDesTabulations(*dialogue);
    for (const QString &nom : ordre) {
        QVERIFY2(Reaffiche(*dialogue, nom), qPrintable(nom));
        dialogue->setResult(QDialog::Accepted);
        QTest::keyClick(QApplication::focusWidget(), Qt::Key_Escape);
        QVERIFY2(!dialogue->isVisible(), qPrintable(nom));
        QCOMPARE(dialogue->result(), int(QDialog::Rejected));
    }
}

void TestDialoguesForme::fermerLaFenetreRefuse()
{
    QFETCH(const QString, classe);
    const auto dialogue = NouveauDialogue(classe);
    QVERIFY(Affiche(*dialogue));
    dialogue->setResult(QDialog::Accepted);
    QVERIFY(dialogue->close());
    QCOMPARE(dialogue->result(), int(QDialog::Rejected));
}

void TestDialoguesForme::execAttendLaReponse()
{
    QFETCH(const QString, classe);
    const auto dialogue = NouveauDialogue(classe);
    for (const bool accepte : {true, false}) {
        bool vu = false;
        Scenario scenario;
        scenario.Dialogue<QDialog>([&](QDialog &ouvert) {
            vu = &ouvert == dialogue.get() && ouvert.isModal();
            if (accepte)
                Scenario::ClicPlusTard(BoutonOk(ouvert));
            else
                QTest::keyClick(&ouvert, Qt::Key_Escape);
        });
        QCOMPARE(dialogue->exec(), int(accepte ? QDialog::Accepted : QDialog::Rejected));
        QVERIFY(vu);
        QCOMPARE(scenario.Ecarts(), QStringList());
    }
}

void TestDialoguesForme::chaqueLabelDeChampMeneASonChamp()
{
    QFETCH(const QString, classe);
    const auto dialogue = NouveauDialogue(classe);
    QStringList sansChamp;
    const auto labels = dialogue->findChildren<QLabel *>();
    for (const QLabel *label : labels) {
        if (label->text().trimmed().endsWith(':') && !label->buddy())
            sansChamp += label->text();
    }
    QCOMPARE(sansChamp.join('\n'), QString());
}

RAMELIER_TEST_DIALOGUES_MAIN(TestDialoguesForme)
#include "tst_dialogues_forme.moc"
