#include "bancechange.h"
#include "environnement.h"
#include "pannes.h"

#include <QCoreApplication>
#include <QDir>

#include <sys/stat.h>

/// The GEDCOM export where the file cannot be written, or stands there already.
class TestGedcomExportPannes : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void unNomImpossibleEstAnnonce_data();
    void unNomImpossibleEstAnnonce();
    void sansDroitsRienNEstEcrit_data();
    void sansDroitsRienNEstEcrit();
    void unDisquePleinLaisseLAncienFichier_data();
    void unDisquePleinLaisseLAncienFichier();
    void unFichierPlusLongEstRemplaceEnEntier();
    void unLienResteUnLien();
    void onRecommenceApresUnEchec();
};

namespace {

const QString echec = QStringLiteral("information|Exportation vers GEDCOM|Echec à l'exportation du fichier");

/// Everything in the folder, hidden files too.
QStringList Noms(const BancEchange &banc)
{
    return QDir(banc.dossier.path()).entryList(QDir::AllEntries | QDir::Hidden | QDir::System | QDir::NoDotAndDotDot);
}

void Exporte(Arbre &arbre, const QString &nom)
{
    QString nomArbre = QStringLiteral("famille.xrlg");
    ExporterVersFichierGEDCOM(nullptr, nom, &arbre, nomArbre);
}

}  // namespace

void TestGedcomExportPannes::unNomImpossibleEstAnnonce_data()
{
    QTest::addColumn<QString>("nom");
    QTest::newRow("un dossier absent") << "rien/a.ged";
    QTest::newRow("un dossier") << "dossier";
    QTest::newRow("sous un fichier") << "fichier/a.ged";
    QTest::newRow("un nom trop long") << QString(300, u'a');
}

void TestGedcomExportPannes::unNomImpossibleEstAnnonce()
{
    QFETCH(QString, nom);
    BancEchange banc;
    QVERIFY(QDir(banc.dossier.path()).mkdir(QStringLiteral("dossier")));
    QVERIFY(!banc.Pose(QStringLiteral("fichier"), "ancien").isEmpty());
    const auto arbre = ArbreComplet(2);
    Exporte(*arbre, banc.Chemin(nom));
    // One box, and no question before it.
    QCOMPARE(banc.messages, QStringList{echec});
    QCOMPARE(Noms(banc), (QStringList{"dossier", "fichier"}));
    QCOMPARE(banc.Contenu(QStringLiteral("fichier")), QByteArray("ancien"));
}

void TestGedcomExportPannes::sansDroitsRienNEstEcrit_data()
{
    QTest::addColumn<QString>("nom");
    QTest::newRow("un fichier protégé") << "protege.ged";
    QTest::newRow("un nouveau fichier d'un dossier protégé") << "a.ged";
}

void TestGedcomExportPannes::sansDroitsRienNEstEcrit()
{
    QFETCH(QString, nom);
    BancEchange banc;
    const QByteArray protege = QFile::encodeName(banc.Pose(QStringLiteral("protege.ged"), "ancien"));
    const QByteArray dossier = QFile::encodeName(banc.dossier.path());
    QCOMPARE(chmod(protege.constData(), 0444), 0);
    QCOMPARE(chmod(dossier.constData(), 0555), 0);
    const auto arbre = ArbreComplet(2);
    {
        const SansPrivileges sansPrivileges;
        if (!sansPrivileges.Effectif())
            QSKIP("cannot become an ordinary user here");
        Exporte(*arbre, banc.Chemin(nom));
    }
    QCOMPARE(chmod(dossier.constData(), 0755), 0);
    QCOMPARE(banc.messages, QStringList{echec});
    QCOMPARE(Noms(banc), QStringList{"protege.ged"});
    QCOMPARE(banc.Contenu(QStringLiteral("protege.ged")), QByteArray("ancien"));
}

void TestGedcomExportPannes::unDisquePleinLaisseLAncienFichier_data()
{
    QTest::addColumn<quint64>("octets");
    QTest::addColumn<bool>("existe");
    QTest::newRow("dès le début, ancien fichier") << quint64{0} << true;
    QTest::newRow("en route, ancien fichier") << quint64{300} << true;
    QTest::newRow("dès le début, nouveau fichier") << quint64{0} << false;
    QTest::newRow("en route, nouveau fichier") << quint64{300} << false;
}

void TestGedcomExportPannes::unDisquePleinLaisseLAncienFichier()
{
    QFETCH(quint64, octets);
    QFETCH(bool, existe);
    BancEchange banc;
    if (existe)
        QVERIFY(!banc.Pose(QStringLiteral("a.ged"), "ancien").isEmpty());
    const auto arbre = ArbreComplet(6);
    {
        const DisquePlein plein(octets);
        Exporte(*arbre, banc.Chemin(QStringLiteral("a.ged")));
    }
    QCOMPARE(banc.messages.filter(QStringLiteral("information")), QStringList{echec});
    QCOMPARE(Noms(banc), existe ? QStringList{"a.ged"} : QStringList());
    if (existe)
        QCOMPARE(banc.Contenu(QStringLiteral("a.ged")), QByteArray("ancien"));
}

void TestGedcomExportPannes::unFichierPlusLongEstRemplaceEnEntier()
{
    BancEchange banc;
    const auto arbre = ArbreComplet(1);
    const QByteArray neuf = banc.Exporte(*arbre);
    QVERIFY(neuf.endsWith("  1 SEX M\r\n0 TRLR\r\n"));
    QVERIFY(!banc.Pose(QStringLiteral("a.ged"), QByteArray(100000, 'x')).isEmpty());
    QCOMPARE(banc.Exporte(*arbre).size(), neuf.size());
    QCOMPARE(Noms(banc), QStringList{"a.ged"});
}

void TestGedcomExportPannes::unLienResteUnLien()
{
    BancEchange banc;
    QVERIFY(!banc.Pose(QStringLiteral("vrai.ged"), "ancien").isEmpty());
    QVERIFY(QFile::link(QStringLiteral("vrai.ged"), banc.Chemin(QStringLiteral("a.ged"))));
    const auto arbre = ArbreComplet(1);
    const QByteArray neuf = banc.Exporte(*arbre);
    QVERIFY(neuf.contains("  1 FILE a.ged\r\n"));
    QVERIFY(QFileInfo(banc.Chemin(QStringLiteral("a.ged"))).isSymLink());
    QCOMPARE(banc.Contenu(QStringLiteral("vrai.ged")), neuf);
}

void TestGedcomExportPannes::onRecommenceApresUnEchec()
{
    BancEchange banc;
    const auto arbre = ArbreComplet(2);
    const QString avant = ToutEnTexte(*arbre);
    Exporte(*arbre, banc.Chemin(QStringLiteral("rien/a.ged")));
    QCOMPARE(ToutEnTexte(*arbre), avant);
    QVERIFY(banc.Exporte(*arbre).endsWith("0 TRLR\r\n"));
    QCOMPARE(banc.messages.constLast(),
             QStringLiteral("information|Exportation vers GEDCOM|"
                            "Exportation du fichier : famille.xrlg\n"
                            "vers fichier : a.ged\nterminée"));
}

RAMELIER_TEST_MAIN(QCoreApplication, TestGedcomExportPannes)
#include "tst_gedcom_export_pannes.moc"
