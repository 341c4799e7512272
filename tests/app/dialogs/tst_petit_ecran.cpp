#include "dialoguesediteur.h"
#include "dlgpolices.h"

#include <QApplication>
#include <QBoxLayout>
#include <QScreen>
#include <QScrollArea>
#include <QScrollBar>

/// On a screen of 1024 x 768 dots, at the scale that QT_SCALE_FACTOR gives, with small and with large letters: every dialog
/// fits, and the keyboard reaches all of it.
class TestPetitEcran : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase() { policeDepart = QApplication::font(); }
    void cleanup() { QApplication::setFont(policeDepart); }
    void leDialogueTientSurLEcran_data();
    void leDialogueTientSurLEcran();
    void chaqueChampSeVoitQuandIlALeFocus_data() { leDialogueTientSurLEcran_data(); }
    void chaqueChampSeVoitQuandIlALeFocus();
    void rienNeDefileAvecDePetitesLettres_data() { UneLigneParDialogue(); }
    void rienNeDefileAvecDePetitesLettres();
    void lesColonnesSEmpilentAvecDeGrandesLettres();
    void laMoletteDefileSansRienChanger();
    void lesPolicesAuLongNomTiennentAussi();

private:
    static QSize Place() { return QGuiApplication::primaryScreen()->availableSize(); }
    static qreal Echelle() { return QGuiApplication::primaryScreen()->devicePixelRatio(); }
    static void Lettres(int points);
    static void VerifieQuIlTient(QDialog &dialogue);

    QFont policeDepart;
};

namespace {

bool Defile(const QDialog &dialogue)
{
    return dialogue.findChild<QScrollArea *>("zone") != nullptr;
}

}  // namespace

void TestPetitEcran::Lettres(int points)
{
    QFont police = QApplication::font();
    police.setPointSize(points);
    QApplication::setFont(police);
}

void TestPetitEcran::VerifieQuIlTient(QDialog &dialogue)
{
    const QSize place = Place();
    QCOMPARE(place, QSize(1024, 768) / Echelle());
    // A window manager adds a title bar.
    const QString taille = QStringLiteral("%1x%2").arg(dialogue.width()).arg(dialogue.height());
    QVERIFY2(dialogue.width() <= place.width() && dialogue.height() + 30 <= place.height(), qPrintable(taille));
    QVERIFY(dialogue.minimumSize().width() <= dialogue.width() && dialogue.minimumSize().height() <= dialogue.height());
}

void TestPetitEcran::leDialogueTientSurLEcran_data()
{
    QTest::addColumn<QString>("classe");
    QTest::addColumn<int>("points");
    const QStringList classes = LesDixDialogues();
    for (const QString &classe : classes) {
        for (const int points : {9, 20})
            QTest::addRow("%s %d points", qPrintable(classe), points) << classe << points;
    }
}

void TestPetitEcran::leDialogueTientSurLEcran()
{
    QFETCH(const QString, classe);
    QFETCH(const int, points);
    Lettres(points);
    const auto dialogue = NouveauDesDix(classe);
    QVERIFY(Affiche(*dialogue));
    VerifieQuIlTient(*dialogue);
}

void TestPetitEcran::chaqueChampSeVoitQuandIlALeFocus()
{
    QFETCH(const QString, classe);
    QFETCH(const int, points);
    Lettres(points);
    const auto dialogue = NouveauDesDix(classe);
    QVERIFY(Affiche(*dialogue));
    const QWidget *premier = QApplication::focusWidget();
    QVERIFY(premier);
    int vus = 0;
    do {
        QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab);
        const QWidget *champ = QApplication::focusWidget();
        QVERIFY(champ);
        // Whole, or its beginning when it is larger than the screen.
        const QSize vu = champ->visibleRegion().boundingRect().size();
        const QSize attendu = champ->size().boundedTo(Echelle() < 1.1 ? champ->size() : QSize(40, 40));
        QVERIFY2(vu.width() >= attendu.width() && vu.height() >= attendu.height(), qPrintable(champ->objectName()));
        ++vus;
    } while (QApplication::focusWidget() != premier && vus < 50);
    QVERIFY(vus >= 2 && vus < 50);
}

void TestPetitEcran::rienNeDefileAvecDePetitesLettres()
{
    if (Echelle() > 1.0)
        QSKIP("the screen is too small for that");
    QFETCH(const QString, classe);
    Lettres(9);
    const auto dialogue = NouveauDesDix(classe);
    QVERIFY(Affiche(*dialogue));
    QVERIFY(!Defile(*dialogue));
}

void TestPetitEcran::lesColonnesSEmpilentAvecDeGrandesLettres()
{
    Lettres(20);
    const auto dialogue = NouveauDesDix("DlgPreferences");
    QVERIFY(Affiche(*dialogue));
    QCOMPARE(dialogue->findChild<QBoxLayout *>("colonnes")->direction(), QBoxLayout::TopToBottom);
    QVERIFY(Defile(*dialogue));
    auto *zone = dialogue->findChild<QScrollArea *>("zone");
    QVERIFY(zone->verticalScrollBar()->maximum() > 0);
    if (Echelle() < 1.1)
        QCOMPARE(zone->horizontalScrollBar()->maximum(), 0);
    // The keyboard goes through the lengths, then the fonts, as where they stand side by side.
    const QStringList ordre = OrdreDesTabulations(*dialogue);
    QCOMPARE(ordre.mid(0, 2), (QStringList{"sbLCadre", "sbHCadre"}));
    QCOMPARE(ordre.mid(8, 4),
             (QStringList{"dsbRayonArc", "Modifier la couleur des traits ...", "Modifier la police des textes ...",
                          "Modifier la police des numéros ..."}));
    QCOMPARE(ordre.size(), 18);
}

void TestPetitEcran::laMoletteDefileSansRienChanger()
{
    Lettres(20);
    const auto dialogue = NouveauDesDix("DlgPreferences");
    QVERIFY(Affiche(*dialogue));
    auto *hauteur = dialogue->findChild<QSpinBox *>("sbHCadre");
    const QPointF ici = hauteur->rect().center();
    QWheelEvent crans(ici, hauteur->mapToGlobal(ici), {}, QPoint(0, -120), Qt::NoButton, Qt::NoModifier,
                      Qt::NoScrollPhase, false);
    // Only an event of the user's goes on to the parents.
    QSpontaneKeyEvent::setSpontaneous(&crans);
    qApp->notify(hauteur, &crans);
    QCOMPARE(hauteur->value(), 42);
    QCOMPARE(QApplication::focusWidget()->objectName(), "sbLCadre");
    QVERIFY(dialogue->findChild<QScrollArea *>("zone")->verticalScrollBar()->value() > 0);
}

void TestPetitEcran::lesPolicesAuLongNomTiennentAussi()
{
    Lettres(20);
    const QFont longue("Noto Sans Canadian Aboriginal SemiCondensed ExtraBold", 1000, QFont::Bold, true);
    LesPolices polices{longue, longue, longue, longue, Qt::black};
    DlgPolices dialogue(&polices, nullptr);
    // Chosen while the dialog is shown.
    dialogue.Montre(LesPolices::ParDefaut());
    QVERIFY(Affiche(dialogue));
    dialogue.pbModifPolTitre->setFocus();
    dialogue.Montre(polices);
    QTRY_VERIFY(Defile(dialogue));
    QCOMPARE(QApplication::focusWidget(), dialogue.pbModifPolTitre);
    QCoreApplication::processEvents();
    VerifieQuIlTient(dialogue);
    // What it answers is still there.
    Clique(Bouton(dialogue, "OK"));
    QCOMPARE(dialogue.result(), int(QDialog::Accepted));
}

int main(int argc, char **argv)
{
    const Environnement environnement(QSize(1024, 768));
    QCoreApplication::setAttribute(Qt::AA_DontUseNativeDialogs);
    QApplication application(argc, argv);
    TestPetitEcran test;
    return QTest::qExec(&test, argc, argv);
}

#include "tst_petit_ecran.moc"
