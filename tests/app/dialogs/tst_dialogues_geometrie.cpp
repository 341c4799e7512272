#include "formulaire.h"

#include "dlgpolices.h"
#include "dlgpreferences.h"

#include <QAbstractButton>
#include <QApplication>
#include <QLineEdit>
#include <QListWidget>

/// No text of a dialog is cut and nothing covers its neighbour, with small and with large letters.
class TestDialoguesGeometrie : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase() { policeDepart = QApplication::font(); }
    void cleanup() { QApplication::setFont(policeDepart); }
    void rienNEstCoupeNiRecouvert_data();
    void rienNEstCoupeNiRecouvert();
    void unePoliceAuLongNomTientDansSaLigne_data();
    void unePoliceAuLongNomTientDansSaLigne();
    void lesChampsGrandissentAvecLaFenetre_data();
    void lesChampsGrandissentAvecLaFenetre();
    void aTailleNormaleLeDialogueTientSurUnPetitEcran_data() { UneLigneParDialogue(); }
    void aTailleNormaleLeDialogueTientSurUnPetitEcran();

private:
    QFont policeDepart;
};

namespace {

/// What the user sees as one thing: the direct content of the dialog and of its group boxes.
QList<QWidget *> Pieces(const QDialog &dialogue)
{
    QList<QWidget *> pieces;
    const auto tous = dialogue.findChildren<QWidget *>();
    for (QWidget *widget : tous) {
        const QWidget *parent = widget->parentWidget();
        if (widget->isVisible() && (parent == &dialogue || parent->inherits("QGroupBox")))
            pieces += widget;
    }
    return pieces;
}

QString Nom(const QWidget *widget)
{
    return QStringLiteral("%1 (%2x%3)").arg(widget->objectName()).arg(widget->width()).arg(widget->height());
}

/// Texts that do not fit in their widget.
QStringList Coupes(const QDialog &dialogue)
{
    QStringList coupes;
    const auto pieces = Pieces(dialogue);
    for (const QWidget *piece : pieces) {
        const bool montreUnTexte = piece->inherits("QLabel") || piece->inherits("QAbstractButton")
            || piece->inherits("QAbstractSpinBox") || piece->inherits("QGroupBox");
        const QSize voulue = montreUnTexte ? piece->sizeHint() : piece->minimumSizeHint();
        if (piece->width() < voulue.width() || piece->height() < voulue.height())
            coupes += QStringLiteral("%1 veut %2x%3").arg(Nom(piece)).arg(voulue.width()).arg(voulue.height());
        if (!piece->parentWidget()->rect().contains(piece->geometry()))
            coupes += Nom(piece) + " dépasse";
    }
    return coupes;
}

/// Neighbours that cover each other.
QStringList Recouverts(const QDialog &dialogue)
{
    QStringList recouverts;
    const auto pieces = Pieces(dialogue);
    for (qsizetype i = 0; i < pieces.size(); ++i) {
        for (qsizetype j = i + 1; j < pieces.size(); ++j) {
            const QWidget *un = pieces.at(i);
            const QWidget *autre = pieces.at(j);
            if (un->parentWidget() == autre->parentWidget() && un->geometry().intersects(autre->geometry()))
                recouverts += Nom(un) + " et " + Nom(autre);
        }
    }
    return recouverts;
}

void VerifieLaForme(QDialog &dialogue)
{
    QVERIFY(Affiche(dialogue));
    QVERIFY(Pieces(dialogue).size() >= 2);
    QCOMPARE(Coupes(dialogue).join('\n'), QString());
    QCOMPARE(Recouverts(dialogue).join('\n'), QString());
    // As small as the user can make it.
    dialogue.resize(1, 1);
    QCoreApplication::processEvents();
    QCOMPARE(Coupes(dialogue).join('\n'), QString());
    QCOMPARE(Recouverts(dialogue).join('\n'), QString());
}

void GrandesLettres(int points)
{
    QFont police = QApplication::font();
    police.setPointSize(points);
    QApplication::setFont(police);
}

}  // namespace

void TestDialoguesGeometrie::rienNEstCoupeNiRecouvert_data()
{
    QTest::addColumn<QString>("classe");
    QTest::addColumn<int>("points");
    for (const QString &nom : TousLesDialogues()) {
        for (const int points : {9, 20})
            QTest::addRow("%s %d points", qPrintable(nom), points) << nom << points;
    }
}

void TestDialoguesGeometrie::rienNEstCoupeNiRecouvert()
{
    QFETCH(const QString, classe);
    QFETCH(const int, points);
    GrandesLettres(points);
    const auto dialogue = NouveauDialogue(classe);
    VerifieLaForme(*dialogue);
    // The large letters are really used.
    const auto *bouton = dialogue->findChild<QPushButton *>();
    QCOMPARE(bouton->font().pointSize(), points);
    QVERIFY(bouton->height() > points);
}

void TestDialoguesGeometrie::unePoliceAuLongNomTientDansSaLigne_data()
{
    QTest::addColumn<int>("points");
    QTest::newRow("9 points") << 9;
    QTest::newRow("20 points") << 20;
}

void TestDialoguesGeometrie::unePoliceAuLongNomTientDansSaLigne()
{
    QFETCH(const int, points);
    GrandesLettres(points);
    const QFont longue("Noto Sans Canadian Aboriginal SemiCondensed ExtraBold", 1000, QFont::Bold, true);
    LesPolices polices{longue, longue, longue, longue, Qt::black};
    DlgPolices dialogue(&polices, nullptr);
    dialogue.Montre(polices);
    VerifieLaForme(dialogue);
    // Also when the choice is made while it is shown.
    DlgPreferences preferences(nullptr);
    preferences.Montre(FormatsDessins::ParDefaut(), LesPolices::ParDefaut());
    QVERIFY(Affiche(preferences));
    preferences.Montre(FormatsDessins::ParDefaut(), polices);
    QTRY_COMPARE(Coupes(preferences).join('\n'), QString());
    QCOMPARE(Recouverts(preferences).join('\n'), QString());
}

void TestDialoguesGeometrie::lesChampsGrandissentAvecLaFenetre_data()
{
    QTest::addColumn<QString>("classe");
    QTest::addColumn<QString>("champ");

    QTest::newRow("nom") << "DlgPers"
                         << "TxtNom";
    QTest::newRow("lieu") << "DlgPers"
                          << "TxtLieuNais";
    QTest::newRow("fiche") << "DlgPers"
                           << "TxtFicHtml";
    QTest::newRow("titre") << "DlgPdG"
                           << "TextTitre";
    QTest::newRow("auteur") << "DlgPdG"
                            << "TextCreePar";
    QTest::newRow("individu") << "DlgIndRac"
                              << "IndividuChoisi";
    QTest::newRow("liste") << "DlgIndRac"
                           << "ListeDesIndividus";
}

void TestDialoguesGeometrie::lesChampsGrandissentAvecLaFenetre()
{
    QFETCH(const QString, classe);
    QFETCH(const QString, champ);
    const auto dialogue = NouveauDialogue(classe);
    QVERIFY(Affiche(*dialogue));
    const auto *widget = dialogue->findChild<QWidget *>(champ);
    const QSize avant = widget->size();
    dialogue->resize(dialogue->size() + QSize(400, 200));
    QTRY_VERIFY(widget->width() > avant.width());
    // Only the list has a use for more height.
    if (widget->inherits("QListWidget"))
        QVERIFY(widget->height() > avant.height());
    else
        QCOMPARE(widget->height(), avant.height());
    QCOMPARE(Coupes(*dialogue).join('\n'), QString());
    QCOMPARE(Recouverts(*dialogue).join('\n'), QString());
}

void TestDialoguesGeometrie::aTailleNormaleLeDialogueTientSurUnPetitEcran()
{
    QFETCH(const QString, classe);
    const auto dialogue = NouveauDialogue(classe);
    QVERIFY(Affiche(*dialogue));
    QVERIFY2(dialogue->width() <= 1024 && dialogue->height() <= 700,
             qPrintable(QStringLiteral("%1x%2").arg(dialogue->width()).arg(dialogue->height())));
}

RAMELIER_TEST_DIALOGUES_MAIN(TestDialoguesGeometrie)
#include "tst_dialogues_geometrie.moc"
