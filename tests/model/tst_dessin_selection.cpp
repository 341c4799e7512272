#include "environnement.h"
#include "personnedessai.h"

#include <QGuiApplication>

/// The mark around the selected person, and the painter that comes back as it was lent.
class TestDessinSelection : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init() { essai = std::make_unique<PersonneDEssai>(); }
    void cleanup() { essai.reset(); }

    void laSelectionEstUnCadreBleuEnSixTraits();
    void laSelectionNeSImprimePas();
    void laSelectionSEffaceEnBlanc();
    void laSelectionSuitLesDimensionsDuCadre();
    void lePeintreEstRenduCommeIlEtait_data();
    void lePeintreEstRenduCommeIlEtait();

private:
    std::unique_ptr<PersonneDEssai> essai;
};

void TestDessinSelection::laSelectionEstUnCadreBleuEnSixTraits()
{
    QPainter peintre(essai->dessin.get());
    essai->personne.TraceSelection(&peintre, PersonneDEssai::sx, PersonneDEssai::sy, true, essai->formats);
    peintre.end();
    const QStringList attendu{QStringLiteral("ligne 97,197 138,197"),  QStringLiteral("ligne 181,197 222,197"),
                              QStringLiteral("ligne 222,197 222,286"), QStringLiteral("ligne 97,197 97,286"),
                              QStringLiteral("ligne 97,286 159,286"),  QStringLiteral("ligne 159,286 222,286")};
    QCOMPARE(essai->dessin->EnTexte(), attendu);
    for (const Trace &trace : essai->dessin->Traces()) {
        QCOMPARE(trace.plume.color(), QColor(Qt::blue));
        QCOMPARE(trace.plume.style(), Qt::DashLine);
        QCOMPARE(trace.plume.width(), 4);
    }
}

void TestDessinSelection::laSelectionNeSImprimePas()
{
    essai->personne.selectionnee = true;
    essai->Affiche(true);
    QCOMPARE(essai->dessin->EnTexte(Trace::Genre::Ligne), QStringList());
}

void TestDessinSelection::laSelectionSEffaceEnBlanc()
{
    QPainter peintre(essai->dessin.get());
    essai->personne.TraceSelection(&peintre, PersonneDEssai::sx, PersonneDEssai::sy, false, essai->formats);
    peintre.end();
    QCOMPARE(essai->dessin->Traces().size(), 6);
    QCOMPARE(essai->dessin->EnTexte().first(), QStringLiteral("ligne 97,197 138,197"));
    for (const Trace &trace : essai->dessin->Traces()) {
        QCOMPARE(trace.plume.color(), QColor(Qt::white));
        QCOMPARE(trace.plume.style(), Qt::DashLine);
        QCOMPARE(trace.plume.width(), 4);
    }
}

void TestDessinSelection::laSelectionSuitLesDimensionsDuCadre()
{
    essai->formats.largeurCadre = 25;
    essai->formats.hauteurCadre = 15;
    essai->formats.epaisseurTraits = 0.5F;
    essai->personne.selectionnee = true;
    essai->Affiche(false, false);
    const QStringList attendu{QStringLiteral("ligne 97,197 132,197"),  QStringLiteral("ligne 167,197 202,197"),
                              QStringLiteral("ligne 202,197 202,232"), QStringLiteral("ligne 97,197 97,232"),
                              QStringLiteral("ligne 97,232 149,232"),  QStringLiteral("ligne 149,232 202,232")};
    QCOMPARE(essai->dessin->EnTexte(Trace::Genre::Ligne), attendu);
    QCOMPARE(essai->dessin->Traces(Trace::Genre::Ligne).first().plume.width(), 2);
}

void TestDessinSelection::lePeintreEstRenduCommeIlEtait_data()
{
    QTest::addColumn<bool>("affichable");
    QTest::addColumn<bool>("avecDonnees");
    QTest::addColumn<bool>("arbreOuvert");
    QTest::newRow("plein") << true << true << true;
    QTest::newRow("réduit") << true << true << false;
    QTest::newRow("sans données") << true << false << true;
    QTest::newRow("non affichable") << false << true << true;
}

void TestDessinSelection::lePeintreEstRenduCommeIlEtait()
{
    QFETCH(bool, affichable);
    QFETCH(bool, avecDonnees);
    QFETCH(bool, arbreOuvert);
    essai->personne.affichable = affichable;
    essai->personne.selectionnee = true;
    if (!avecDonnees)
        delete std::exchange(essai->personne.info, nullptr);
    QPainter peintre(essai->dessin.get());
    const QPen plume(Qt::magenta, 5, Qt::DotLine);
    const QBrush brosse(Qt::yellow);
    const QFont police(QStringLiteral("Liberation Serif"), 33, QFont::Bold, true);
    peintre.setPen(plume);
    peintre.setBrush(brosse);
    peintre.setFont(police);
    essai->personne.Affiche(&peintre, PersonneDEssai::sx, PersonneDEssai::sy, false, essai->formats, essai->polices,
                            arbreOuvert);
    essai->personne.TraceSelection(&peintre, PersonneDEssai::sx, PersonneDEssai::sy, true, essai->formats);
    QCOMPARE(peintre.pen(), plume);
    QCOMPARE(peintre.brush(), brosse);
    QCOMPARE(peintre.font().toString(), police.toString());
    QVERIFY(peintre.transform().isIdentity());
    QVERIFY(!peintre.hasClipping());
}

RAMELIER_TEST_MAIN(QGuiApplication, TestDessinSelection)
#include "tst_dessin_selection.moc"
