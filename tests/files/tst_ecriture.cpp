#include "ecriture.h"
#include "environnement.h"

#include <QCoreApplication>
#include <QDir>

#include <sys/stat.h>

/// EcritureFichier: the name holds the old content or the complete new one.
class TestEcriture : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void creeUnFichier();
    void remplaceUnFichier();
    void abandonneeNeChangeRien();
    void suitUnLienQuiNeMenePasEncore();
    void refuse_data();
    void refuse();

private:
    [[nodiscard]] QString Chemin(const QString &nom) const { return dossier->filePath(nom); }
    [[nodiscard]] QByteArray Contenu(const QString &nom) const;
    [[nodiscard]] QStringList Fichiers() const
    {
        return QDir(dossier->path()).entryList(QDir::Files | QDir::Hidden | QDir::System, QDir::Name);
    }

    std::unique_ptr<QTemporaryDir> dossier;
};

void TestEcriture::init()
{
    dossier = std::make_unique<QTemporaryDir>();
}

QByteArray TestEcriture::Contenu(const QString &nom) const
{
    QFile fichier(Chemin(nom));
    return fichier.open(QIODevice::ReadOnly) ? fichier.readAll() : QByteArray("illisible");
}

void TestEcriture::creeUnFichier()
{
    EcritureFichier ecriture(Chemin(QStringLiteral("a")));
    QVERIFY(ecriture.Ouvre());
    QCOMPARE(ecriture.Appareil().write("neuf"), 4);
    QVERIFY(!QFile::exists(Chemin(QStringLiteral("a"))));
    QVERIFY(ecriture.Termine());
    QCOMPARE(Contenu(QStringLiteral("a")), QByteArray("neuf"));
    QCOMPARE(Fichiers(), QStringList{QStringLiteral("a")});
}

void TestEcriture::remplaceUnFichier()
{
    for (const QByteArray contenu : {"un contenu assez long", "court"}) {
        EcritureFichier ecriture(Chemin(QStringLiteral("a")));
        QVERIFY(ecriture.Ouvre());
        QCOMPARE(ecriture.Appareil().write(contenu), contenu.size());
        QVERIFY(ecriture.Termine());
        QCOMPARE(Contenu(QStringLiteral("a")), contenu);
    }
}

void TestEcriture::abandonneeNeChangeRien()
{
    {
        EcritureFichier ecriture(Chemin(QStringLiteral("a")));
        QVERIFY(ecriture.Ouvre());
        ecriture.Appareil().write("ancien");
        QVERIFY(ecriture.Termine());
    }
    {
        EcritureFichier ecriture(Chemin(QStringLiteral("a")));
        QVERIFY(ecriture.Ouvre());
        ecriture.Appareil().write("neuf");
    }
    QCOMPARE(Contenu(QStringLiteral("a")), QByteArray("ancien"));
    QCOMPARE(Fichiers(), QStringList{QStringLiteral("a")});
}

void TestEcriture::suitUnLienQuiNeMenePasEncore()
{
    QVERIFY(QFile::link(Chemin(QStringLiteral("vrai")), Chemin(QStringLiteral("lien"))));
    EcritureFichier ecriture(Chemin(QStringLiteral("lien")));
    QVERIFY(ecriture.Ouvre());
    ecriture.Appareil().write("neuf");
    QVERIFY(ecriture.Termine());
    QCOMPARE(Contenu(QStringLiteral("vrai")), QByteArray("neuf"));
    QVERIFY(QFileInfo(Chemin(QStringLiteral("lien"))).isSymLink());
}

void TestEcriture::refuse_data()
{
    QTest::addColumn<QString>("cible");
    QTest::addColumn<QString>("erreur");
    QTest::newRow("dossier absent") << "rien/a"
                                    << "No such file or directory";
    QTest::newRow("un dossier") << "dossier"
                                << "Is a directory";
    QTest::newRow("un tube") << "tube"
                             << "Ce n'est pas un fichier ordinaire";
    QTest::newRow("un appareil") << "/dev/full"
                                 << "Ce n'est pas un fichier ordinaire";
}

void TestEcriture::refuse()
{
    QFETCH(QString, cible);
    QFETCH(QString, erreur);
    QVERIFY(QDir(dossier->path()).mkdir(QStringLiteral("dossier")));
    QCOMPARE(mkfifo(QFile::encodeName(Chemin(QStringLiteral("tube"))).constData(), 0600), 0);
    EcritureFichier ecriture(QDir(dossier->path()).absoluteFilePath(cible));
    QVERIFY(!ecriture.Ouvre());
    QCOMPARE(ecriture.Erreur(), erreur);
}

RAMELIER_TEST_MAIN(QCoreApplication, TestEcriture)
#include "tst_ecriture.moc"
