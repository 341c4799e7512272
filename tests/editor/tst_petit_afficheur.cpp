#include "environnement.h"
#include "lytextbrowser.h"

#include <QApplication>
#include <QFile>

#include <memory>

/// The window that shows a sheet, on a screen one line lower than what it takes to be large.
class TestPetitAfficheur : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void elleSOuvrePlusPetite();
};

void TestPetitAfficheur::elleSOuvrePlusPetite()
{
    const QTemporaryDir dossier;
    QFile fiche(dossier.filePath("a.txt"));
    QVERIFY(fiche.open(QIODevice::WriteOnly));
    fiche.close();
    const auto fenetre = std::make_unique<LyTextBrowser>(QIcon(), "Fiche", fiche.fileName(), false);
    QCOMPARE(fenetre->size(), QSize(600, 440));
}

int main(int argc, char **argv)
{
    const Environnement environnement(QSize(800, 599));
    const QApplication application(argc, argv);
    TestPetitAfficheur test;
    return QTest::qExec(&test, argc, argv);
}
#include "tst_petit_afficheur.moc"
