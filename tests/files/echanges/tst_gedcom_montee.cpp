#include "bancechange.h"
#include "environnement.h"
#include "gedcomauhasard.h"
#include "monteelitterale.h"

#include <QCoreApplication>

/// The climb of the import against the climb to the letter, on random files.
class TestGedcomMontee : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void leMemeArbreQueLaMonteeLitterale_data();
    void leMemeArbreQueLaMonteeLitterale();
    void chercheLesParentsCommeLaMonteeLitterale();
    void lesFichiersOntToutVu();

private:
    void Compare(BancEchange &banc, quint32 graine, GedcomAuHasard::Forme forme);

    MonteeLitterale vu;  ///< what all files together made the literal climb meet
    int fichiers = 0;
    int sansRacine = 0;
    qsizetype personnes = 0;
};

void TestGedcomMontee::leMemeArbreQueLaMonteeLitterale_data()
{
    QTest::addColumn<int>("forme");
    QTest::addColumn<quint32>("premiereGraine");
    QTest::addColumn<quint32>("nombre");
    for (quint32 graine = 0; graine < 3000; graine += 500)
        QTest::addRow("étages %u", graine) << int(GedcomAuHasard::Etages) << graine << 500U;
    for (quint32 graine = 10000; graine < 13000; graine += 500)
        QTest::addRow("mêlée %u", graine) << int(GedcomAuHasard::Melee) << graine << 500U;
    QTest::newRow("chaînes") << int(GedcomAuHasard::Chaine) << 20000U << 50U;
}

void TestGedcomMontee::leMemeArbreQueLaMonteeLitterale()
{
    QFETCH(int, forme);
    QFETCH(quint32, premiereGraine);
    QFETCH(quint32, nombre);
    BancEchange banc;
    for (quint32 graine = premiereGraine; graine < premiereGraine + nombre; ++graine) {
        Compare(banc, graine, GedcomAuHasard::Forme(forme));
        if (QTest::currentTestFailed()) {
            qWarning("graine %u", graine);
            return;
        }
    }
}

void TestGedcomMontee::Compare(BancEchange &banc, quint32 graine, GedcomAuHasard::Forme forme)
{
    GedcomAuHasard hasard(graine, forme);
    const std::optional<QString> reponse = hasard.Reponse();
    // A new name each time: to write over a file is slow.
    const QString fichier = banc.Pose(QStringLiteral("%1.ged").arg(graine), hasard.Contenu());
    QVERIFY(DecodeFichierGED(fichier));
    Arbre attendu;
    MonteeLitterale montee;
    QString cle = reponse.value_or(QString());
    montee.Execute(attendu, DecodeAdresse(cle));
    VideLesListesGED();
    const auto arbre = banc.ImporteFichier(fichier, reponse);
    QCOMPARE(ToutEnTexte(*arbre), ToutEnTexte(attendu));
    ++fichiers;
    sansRacine += attendu.premiere ? 0 : 1;
    personnes += qsizetype(attendu.nombrePersonnes);
    vu.refuses += montee.refuses;
    vu.sansNumero += montee.sansNumero;
    vu.retrouves += montee.retrouves;
    vu.abandonnees += montee.abandonnees;
    vu.departages += montee.departages;
}

void TestGedcomMontee::chercheLesParentsCommeLaMonteeLitterale()
{
    const BancEchange banc;
    for (quint32 graine = 30000; graine < 30300; ++graine) {
        VideLesListesGED();
        const GedcomAuHasard hasard(graine, graine % 2 == 0 ? GedcomAuHasard::Etages : GedcomAuHasard::Melee);
        QVERIFY(DecodeFichierGED(banc.Pose(QStringLiteral("%1.ged").arg(graine), hasard.Contenu())));
        for (IndividuGED *individu = LesIndividus; individu; individu = individu->suivant) {
            const MonteeLitterale::Parents parents = MonteeLitterale::CherchesPour(*individu);
            ChercheLesParents(individu);
            QVERIFY2(LePere == parents.pere && LaMere == parents.mere,
                     qPrintable(QStringLiteral("graine %1, %2").arg(graine).arg(individu->nom)));
        }
    }
}

/// Otherwise the comparison would prove nothing. Counts what the first function saw.
void TestGedcomMontee::lesFichiersOntToutVu()
{
    if (fichiers < 6050)
        QSKIP("the comparison did not run to its end");
    QVERIFY(personnes > 40000);
    QVERIFY(vu.retrouves > 1000);
    QVERIFY(vu.abandonnees > 1000);
    QVERIFY(vu.refuses > 1000);
    QVERIFY(vu.departages > 1000);
    QVERIFY(vu.sansNumero > 5);
    QVERIFY(sansRacine > 20);
}

RAMELIER_TEST_MAIN(QCoreApplication, TestGedcomMontee)
#include "tst_gedcom_montee.moc"
