#include "ecriture.h"
#include "environnement.h"
#include "pannes.h"

#include <QCoreApplication>
#include <QDir>

#include <sys/stat.h>

/// EcritureFichier: links, rights, long names, and a disk or a folder that fails on the way.
class TestEcriturePannes : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void unNouveauFichierALesDroitsHabituels();
    void unFichierRemplaceGardeSesDroits_data();
    void unFichierRemplaceGardeSesDroits();
    void lesLiensRestentDesLiens_data();
    void lesLiensRestentDesLiens();
    void lesCiblesImpossiblesDisentPourquoi_data();
    void lesCiblesImpossiblesDisentPourquoi();
    void unFichierProtegeEstRefuse_data();
    void unFichierProtegeEstRefuse();
    void leNomLePlusLongSEcritDeuxFois_data();
    void leNomLePlusLongSEcritDeuxFois();
    void unDisquePleinLaisseLAncienFichier_data();
    void unDisquePleinLaisseLAncienFichier();
    void unDossierQuiDisparaitDitPourquoi();
    void unePartieNeRemplaceJamaisLAncienFichier();
    void petitsEtGrandsMorceauxSeSuivent();

private:
    [[nodiscard]] QString Chemin(const QString &nom) const { return dossier->filePath(nom); }
    [[nodiscard]] QByteArray Octets(const QString &nom) const { return QFile::encodeName(Chemin(nom)); }
    void Pose(const QString &nom, const QByteArray &contenu) const;
    [[nodiscard]] QByteArray Contenu(const QString &nom) const;
    [[nodiscard]] uint Droits(const QString &nom) const;
    [[nodiscard]] QStringList Noms() const
    {
        return QDir(dossier->path())
            .entryList(QDir::AllEntries | QDir::Hidden | QDir::System | QDir::NoDotAndDotDot, QDir::Name);
    }
    static bool Ecrit(const QString &chemin, const QByteArray &contenu);

    std::unique_ptr<QTemporaryDir> dossier;
};

void TestEcriturePannes::init()
{
    dossier = std::make_unique<QTemporaryDir>();
    QVERIFY(dossier->isValid());
    QCOMPARE(chmod(QFile::encodeName(dossier->path()).constData(), 0777), 0);
}

void TestEcriturePannes::Pose(const QString &nom, const QByteArray &contenu) const
{
    QFile fichier(Chemin(nom));
    QVERIFY(fichier.open(QIODevice::WriteOnly));
    QCOMPARE(fichier.write(contenu), contenu.size());
}

QByteArray TestEcriturePannes::Contenu(const QString &nom) const
{
    QFile fichier(Chemin(nom));
    return fichier.open(QIODevice::ReadOnly) ? fichier.readAll() : QByteArray("illisible");
}

uint TestEcriturePannes::Droits(const QString &nom) const
{
    struct stat etat
    {
    };
    return stat(Octets(nom).constData(), &etat) == 0 ? etat.st_mode & 07777U : 0U;
}

bool TestEcriturePannes::Ecrit(const QString &chemin, const QByteArray &contenu)
{
    EcritureFichier ecriture(chemin);
    return ecriture.Ouvre() && ecriture.Appareil().write(contenu) == contenu.size() && ecriture.Termine();
}

void TestEcriturePannes::unNouveauFichierALesDroitsHabituels()
{
    const mode_t avant = umask(027);
    const bool ecrit = Ecrit(Chemin(QStringLiteral("a")), "neuf");
    umask(avant);
    QVERIFY(ecrit);
    QCOMPARE(Droits(QStringLiteral("a")), 0640U);
}

void TestEcriturePannes::unFichierRemplaceGardeSesDroits_data()
{
    QTest::addColumn<uint>("droits");
    QTest::newRow("au seul propriétaire") << 0600U;
    QTest::newRow("à tous") << 0666U;
    QTest::newRow("exécutable") << 0751U;
}

void TestEcriturePannes::unFichierRemplaceGardeSesDroits()
{
    QFETCH(uint, droits);
    Pose(QStringLiteral("a"), "ancien");
    QCOMPARE(chmod(Octets(QStringLiteral("a")).constData(), droits), 0);
    QVERIFY(Ecrit(Chemin(QStringLiteral("a")), "neuf"));
    QCOMPARE(Contenu(QStringLiteral("a")), QByteArray("neuf"));
    QCOMPARE(Droits(QStringLiteral("a")), droits);
}

void TestEcriturePannes::lesLiensRestentDesLiens_data()
{
    QTest::addColumn<QStringList>("liens");  // name, where it leads, name, ...
    QTest::addColumn<QString>("cible");
    QTest::newRow("relatif") << QStringList{"lien", "vrai"} << "lien";
    QTest::newRow("par un autre lien") << QStringList{"milieu", "vrai", "lien", "milieu"} << "lien";
    QTest::newRow("vers un autre dossier") << QStringList{"lien", "dossier/../vrai"} << "lien";
    QTest::newRow("par un dossier lié") << QStringList{"ici", "."} << "ici/vrai";
}

void TestEcriturePannes::lesLiensRestentDesLiens()
{
    QFETCH(QStringList, liens);
    QFETCH(QString, cible);
    Pose(QStringLiteral("vrai"), "ancien");
    QVERIFY(QDir(dossier->path()).mkdir(QStringLiteral("dossier")));
    for (qsizetype i = 0; i < liens.size(); i += 2)
        QCOMPARE(symlink(QFile::encodeName(liens.at(i + 1)).constData(), Octets(liens.at(i)).constData()), 0);
    const QStringList avant = Noms();
    QVERIFY(Ecrit(Chemin(cible), "neuf"));
    QCOMPARE(Contenu(QStringLiteral("vrai")), QByteArray("neuf"));
    for (qsizetype i = 0; i < liens.size(); i += 2)
        QVERIFY(QFileInfo(Chemin(liens.at(i))).isSymLink());
    QVERIFY(!QFileInfo(Chemin(QStringLiteral("vrai"))).isSymLink());
    QCOMPARE(Noms(), avant);
}

void TestEcriturePannes::lesCiblesImpossiblesDisentPourquoi_data()
{
    QTest::addColumn<QString>("cible");
    QTest::addColumn<QString>("erreur");
    QTest::newRow("un lien vers un dossier") << "liendossier"
                                             << "Is a directory";
    QTest::newRow("un lien vers un dossier absent") << "lienperdu"
                                                    << "No such file or directory";
    QTest::newRow("un lien vers un tube") << "lientube"
                                          << "Ce n'est pas un fichier ordinaire";
    QTest::newRow("un fichier pour dossier") << "fichier/a"
                                             << "Not a directory";
    QTest::newRow("des liens en boucle") << "boucle1"
                                         << "Too many levels of symbolic links";
    QTest::newRow("un nom trop long") << QString(256, u'a') << "File name too long";
}

void TestEcriturePannes::lesCiblesImpossiblesDisentPourquoi()
{
    QFETCH(QString, cible);
    QFETCH(QString, erreur);
    Pose(QStringLiteral("fichier"), "ancien");
    QVERIFY(QDir(dossier->path()).mkdir(QStringLiteral("dossier")));
    QCOMPARE(mkfifo(Octets(QStringLiteral("tube")).constData(), 0600), 0);
    QVERIFY(QFile::link(Chemin(QStringLiteral("dossier")), Chemin(QStringLiteral("liendossier"))));
    QVERIFY(QFile::link(Chemin(QStringLiteral("rien/a")), Chemin(QStringLiteral("lienperdu"))));
    QVERIFY(QFile::link(Chemin(QStringLiteral("tube")), Chemin(QStringLiteral("lientube"))));
    QVERIFY(QFile::link(Chemin(QStringLiteral("boucle1")), Chemin(QStringLiteral("boucle2"))));
    QVERIFY(QFile::link(Chemin(QStringLiteral("boucle2")), Chemin(QStringLiteral("boucle1"))));
    const QStringList avant = Noms();
    EcritureFichier ecriture(Chemin(cible));
    QVERIFY(!(ecriture.Ouvre() && ecriture.Appareil().write("neuf") == 4 && ecriture.Termine()));
    QCOMPARE(ecriture.Erreur(), erreur);
    QCOMPARE(Noms(), avant);
    QVERIFY(QFileInfo(Chemin(QStringLiteral("boucle1"))).isSymLink());
}

void TestEcriturePannes::unFichierProtegeEstRefuse_data()
{
    QTest::addColumn<QString>("cible");
    QTest::newRow("fichier sans droit d'écriture") << "protege";
    QTest::newRow("nouveau dans un dossier fermé") << "ferme/neuf";
}

void TestEcriturePannes::unFichierProtegeEstRefuse()
{
    QFETCH(QString, cible);
    Pose(QStringLiteral("protege"), "ancien");
    QCOMPARE(chmod(Octets(QStringLiteral("protege")).constData(), 0444), 0);
    QCOMPARE(mkdir(Octets(QStringLiteral("ferme")).constData(), 0555), 0);
    EcritureFichier ecriture(Chemin(cible));
    bool ouvert = true;
    {
        const SansPrivileges sansPrivileges;
        if (!sansPrivileges.Effectif())
            QSKIP("cannot become an ordinary user here");
        ouvert = ecriture.Ouvre();
    }
    QVERIFY(!ouvert);
    QCOMPARE(ecriture.Erreur(), QStringLiteral("Permission denied"));
    QCOMPARE(Contenu(QStringLiteral("protege")), QByteArray("ancien"));
    QCOMPARE(Noms(), (QStringList{"ferme", "protege"}));
}

void TestEcriturePannes::leNomLePlusLongSEcritDeuxFois_data()
{
    QTest::addColumn<QString>("nom");
    QTest::newRow("248 octets") << QString(243, u'a') + ".xrlg";
    QTest::newRow("255 octets") << QString(250, u'a') + ".xrlg";
    QTest::newRow("255 octets accentués") << QString(125, u'é') + ".xrlg";
}

void TestEcriturePannes::leNomLePlusLongSEcritDeuxFois()
{
    QFETCH(QString, nom);
    QVERIFY(Ecrit(Chemin(nom), "ancien"));
    QVERIFY(Ecrit(Chemin(nom), "neuf"));
    QCOMPARE(Contenu(nom), QByteArray("neuf"));
    QCOMPARE(Noms(), QStringList{nom});
}

void TestEcriturePannes::unDisquePleinLaisseLAncienFichier_data()
{
    QTest::addColumn<int>("taille");
    QTest::addColumn<int>("fois");
    QTest::newRow("un octet de trop") << 4097 << 1;
    QTest::newRow("une page de trop") << 8192 << 1;
    QTest::newRow("beaucoup trop") << 3'000'000 << 1;
    QTest::newRow("octet par octet") << 1 << 4097;
    QTest::newRow("en morceaux") << 30'000 << 7;
}

void TestEcriturePannes::unDisquePleinLaisseLAncienFichier()
{
    QFETCH(int, taille);
    QFETCH(int, fois);
    Pose(QStringLiteral("a"), "ancien");
    EcritureFichier ecriture(Chemin(QStringLiteral("a")));
    QVERIFY(ecriture.Ouvre());
    bool termine = true;
    {
        const DisquePlein disque(4096);
        for (int i = 0; i < fois; ++i)
            ecriture.Appareil().write(QByteArray(taille, 'x'));
        termine = ecriture.Termine();
    }
    QVERIFY(!termine);
    QCOMPARE(ecriture.Erreur(), QStringLiteral("File too large"));
    QCOMPARE(Contenu(QStringLiteral("a")), QByteArray("ancien"));
    QCOMPARE(Noms(), QStringList{"a"});
}

void TestEcriturePannes::unDossierQuiDisparaitDitPourquoi()
{
    QVERIFY(QDir(dossier->path()).mkdir(QStringLiteral("dossier")));
    EcritureFichier ecriture(Chemin(QStringLiteral("dossier/a")));
    QVERIFY(ecriture.Ouvre());
    QCOMPARE(ecriture.Appareil().write("neuf"), 4);
    QVERIFY(QDir(Chemin(QStringLiteral("dossier"))).removeRecursively());
    QVERIFY(!ecriture.Termine());
    QCOMPARE(ecriture.Erreur(), QStringLiteral("No such file or directory"));
}

void TestEcriturePannes::unePartieNeRemplaceJamaisLAncienFichier()
{
    // A failed write followed by one that succeeds: still refused.
    Pose(QStringLiteral("a"), "ancien");
    EcritureFichier ecriture(Chemin(QStringLiteral("a")));
    QVERIFY(ecriture.Ouvre());
    {
        const DisquePlein disque(10);
        QVERIFY(ecriture.Appareil().write(QByteArray(100'000, 'x')) < 100'000);
    }
    ecriture.Appareil().write("fin");
    QVERIFY(!ecriture.Termine());
    QCOMPARE(Contenu(QStringLiteral("a")), QByteArray("ancien"));
}

void TestEcriturePannes::petitsEtGrandsMorceauxSeSuivent()
{
    QByteArray attendu;
    EcritureFichier ecriture(Chemin(QStringLiteral("a")));
    QVERIFY(ecriture.Ouvre());
    for (const int taille : {1, 65'535, 1, 3, 65'537, 2, 65'536, 200'000, 0, 40'000, 30'000, 7}) {
        const QByteArray morceau(taille, static_cast<char>('a' + taille % 23));
        QCOMPARE(ecriture.Appareil().write(morceau), taille);
        attendu += morceau;
    }
    QVERIFY(ecriture.Termine());
    QCOMPARE(Contenu(QStringLiteral("a")), attendu);
}

RAMELIER_TEST_MAIN(QCoreApplication, TestEcriturePannes)
#include "tst_ecriture_pannes.moc"
