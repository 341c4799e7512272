#include "editeur.h"

#include "monqtextedit.h"

/// The commands of the edit menu are offered when they have something to do, whatever the toolkit tells of it.
class TestCommandesEdition : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void annulerSansSelectionNeLaisseRienACouper();
    void effacerApresUneAnnulationNeLaisseRienARefaire();
};

void TestCommandesEdition::annulerSansSelectionNeLaisseRienACouper()
{
    Atelier atelier;
    const LyTextEdit &editeur = atelier.Ouvre("fiche.html", "abcdef");
    QTest::keyClick(editeur.texte, Qt::Key_End);
    QTest::keyClick(editeur.texte, Qt::Key_Backspace);
    QTest::keyClick(editeur.texte, Qt::Key_A, Qt::ControlModifier);
    QVERIFY(editeur.actEditCut->isEnabled());
    QVERIFY(editeur.actEditCopy->isEnabled());
    // The cursor goes where the letter comes back, and nothing is selected any more: the toolkit does not say so.
    editeur.actEditAnnuler->trigger();
    QCOMPARE(TexteDe(editeur), "abcdef");
    QVERIFY(!editeur.isTextSelected());
    QCoreApplication::processEvents();
    QVERIFY(!editeur.actEditCut->isEnabled());
    QVERIFY(!editeur.actEditCopy->isEnabled());
    // What is selected then can be cut again.
    QTest::keyClick(editeur.texte, Qt::Key_A, Qt::ControlModifier);
    QCoreApplication::processEvents();
    QVERIFY(editeur.actEditCut->isEnabled());
    QVERIFY(editeur.actEditCopy->isEnabled());
}

void TestCommandesEdition::effacerApresUneAnnulationNeLaisseRienARefaire()
{
    Atelier atelier;
    const LyTextEdit &editeur = atelier.Ouvre("fiche.html", "abcdef");
    QTest::keyClick(editeur.texte, Qt::Key_Home);
    QTest::keyClick(editeur.texte, Qt::Key_Delete);
    QTest::keyClick(editeur.texte, Qt::Key_End);
    Tape(editeur, "x");
    editeur.actEditAnnuler->trigger();
    QCOMPARE(TexteDe(editeur), "bcdef");
    QVERIFY(editeur.actEditRefaire->isEnabled());
    // This deletion joins the first one: the toolkit takes both as one step, and forgets to tell what is no more to redo.
    QTest::keyClick(editeur.texte, Qt::Key_Home);
    QTest::keyClick(editeur.texte, Qt::Key_Delete);
    QCOMPARE(TexteDe(editeur), "cdef");
    QCoreApplication::processEvents();
    QVERIFY(!editeur.actEditRefaire->isEnabled());
    QVERIFY(editeur.actEditAnnuler->isEnabled());
}

RAMELIER_TEST_BUREAU_MAIN(TestCommandesEdition)
#include "tst_commandes_edition.moc"
