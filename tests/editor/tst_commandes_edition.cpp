#include "editeur.h"

#include "monqtextedit.h"

/// The commands of the edit menu are offered when they have something to do, whatever the toolkit tells of it.
class TestCommandesEdition : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void annulerCeQuiEstSelectionneNeLaisseRienACouper();
    void uneLettreApresUneAnnulationNeLaisseRienARefaire();
};

void TestCommandesEdition::annulerCeQuiEstSelectionneNeLaisseRienACouper()
{
    Atelier atelier;
    const LyTextEdit &editeur = atelier.Ouvre("fiche.html", "");
    Tape(editeur, "abc");
    QTest::keyClick(editeur.texte, Qt::Key_A, Qt::ControlModifier);
    QVERIFY(editeur.actEditCut->isEnabled());
    QVERIFY(editeur.actEditCopy->isEnabled());
    editeur.actEditAnnuler->trigger();
    QCOMPARE(TexteDe(editeur), QString());
    QCoreApplication::processEvents();
    QVERIFY(!editeur.actEditCut->isEnabled());
    QVERIFY(!editeur.actEditCopy->isEnabled());
    editeur.actEditRefaire->trigger();
    QCOMPARE(TexteDe(editeur), "abc");
    // And what is selected then can be cut again.
    QTest::keyClick(editeur.texte, Qt::Key_A, Qt::ControlModifier);
    QCoreApplication::processEvents();
    QVERIFY(editeur.actEditCut->isEnabled());
    QVERIFY(editeur.actEditCopy->isEnabled());
}

void TestCommandesEdition::uneLettreApresUneAnnulationNeLaisseRienARefaire()
{
    Atelier atelier;
    const LyTextEdit &editeur = atelier.Ouvre("fiche.html", "");
    Tape(editeur, "b");
    QTest::keyClick(editeur.texte, Qt::Key_Home);
    Tape(editeur, "a");
    QCOMPARE(TexteDe(editeur), "ab");
    editeur.actEditAnnuler->trigger();
    QCOMPARE(TexteDe(editeur), "b");
    QVERIFY(editeur.actEditRefaire->isEnabled());
    // This letter joins the first one: the toolkit takes both as one step, and does not say that there is nothing to redo.
    QTest::keyClick(editeur.texte, Qt::Key_End);
    Tape(editeur, "c");
    QCOMPARE(TexteDe(editeur), "bc");
    QCoreApplication::processEvents();
    QVERIFY(!editeur.actEditRefaire->isEnabled());
    QVERIFY(editeur.actEditAnnuler->isEnabled());
}

RAMELIER_TEST_BUREAU_MAIN(TestCommandesEdition)
#include "tst_commandes_edition.moc"
