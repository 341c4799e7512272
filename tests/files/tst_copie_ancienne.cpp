#include "ecriture.h"
#include "environnement.h"
#include "pannes.h"

#include <QCoreApplication>
#include <QDir>

#include <cstddef>
#include <functional>
#include <linux/filter.h>
#include <linux/seccomp.h>
#include <random>
#include <sys/stat.h>
#include <sys/syscall.h>
#include <sys/wait.h>

/// EcritureFichier that keeps the former content beside the file, and what killed writers leave.
class TestCopieAncienne : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void lAncienContenuResteACote();
    void sansLOptionRienNeReste();
    void laCopieALesDroitsDuFichier_data();
    void laCopieALesDroitsDuFichier();
    void laCopieEstACoteDuVraiFichier();
    void sansSecondNomLeContenuEstCopie_data();
    void sansSecondNomLeContenuEstCopie();
    void uneCopieImpossibleNEmpechePasDeSauver_data();
    void uneCopieImpossibleNEmpechePasDeSauver();
    void uneSauvegardeRateeLaisseLesDeux_data();
    void uneSauvegardeRateeLaisseLesDeux();
    void unNomQuiNePeutEtrePrisLaisseLesDeux_data();
    void unNomQuiNePeutEtrePrisLaisseLesDeux();
    void lesRestesDesMortsPartent();
    void ceQuiSEcritEncoreReste();
    void tueeNImporteQuandLesDeuxSontEntiers();

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
    [[nodiscard]] bool Sauve(const QString &nom, const QByteArray &contenu) const;

    std::unique_ptr<QTemporaryDir> dossier;
};

namespace {

/// Runs \a travail in another process; what it returned, or minus the signal that ended it.
int DansUnAutreProcessus(const std::function<int()> &travail)
{
    const pid_t enfant = fork();
    if (enfant == 0)
        _exit(travail());
    int etat = 0;
    waitpid(enfant, &etat, 0);
    return WIFEXITED(etat) ? WEXITSTATUS(etat) : -WTERMSIG(etat);
}

/// From now on the system refuses this process a second name for a file, as file systems without hard links do, and any
/// reading of \a illisibles bytes at once, as a failing disk does.
bool RefuseLesSecondsNoms(uint illisibles)
{
    sock_filter regles[] = {
        BPF_STMT(BPF_LD | BPF_W | BPF_ABS, offsetof(seccomp_data, nr)),
        BPF_JUMP(BPF_JMP | BPF_JEQ | BPF_K, SYS_link, 0, 1),
        BPF_STMT(BPF_RET | BPF_K, SECCOMP_RET_ERRNO | EPERM),
        BPF_JUMP(BPF_JMP | BPF_JEQ | BPF_K, SYS_read, 0, 3),
        BPF_STMT(BPF_LD | BPF_W | BPF_ABS, offsetof(seccomp_data, args[2])),
        BPF_JUMP(BPF_JMP | BPF_JEQ | BPF_K, illisibles, 0, 1),
        BPF_STMT(BPF_RET | BPF_K, SECCOMP_RET_ERRNO | EIO),
        BPF_STMT(BPF_RET | BPF_K, SECCOMP_RET_ALLOW),
    };
    const sock_fprog programme = {8, regles};
    return prctl(PR_SET_NO_NEW_PRIVS, 1, 0, 0, 0) == 0 && prctl(PR_SET_SECCOMP, SECCOMP_MODE_FILTER, &programme) == 0;
}

/// 300,000 bytes that say which generation they are.
QByteArray Generation(int numero)
{
    return QByteArray::number(numero).rightJustified(10, '0').repeated(30'000);
}

/// Which generation \a contenu is; -1 when it is not whole.
int NumeroDe(const QByteArray &contenu)
{
    const int numero = contenu.left(10).toInt();
    return contenu == Generation(numero) ? numero : -1;
}

}  // namespace

void TestCopieAncienne::init()
{
    dossier = std::make_unique<QTemporaryDir>();
    QVERIFY(dossier->isValid());
    QCOMPARE(chmod(QFile::encodeName(dossier->path()).constData(), 0777), 0);
}

void TestCopieAncienne::Pose(const QString &nom, const QByteArray &contenu) const
{
    QFile fichier(Chemin(nom));
    QVERIFY(fichier.open(QIODevice::WriteOnly));
    QCOMPARE(fichier.write(contenu), contenu.size());
}

QByteArray TestCopieAncienne::Contenu(const QString &nom) const
{
    QFile fichier(Chemin(nom));
    return fichier.open(QIODevice::ReadOnly) ? fichier.readAll() : QByteArray("illisible");
}

uint TestCopieAncienne::Droits(const QString &nom) const
{
    struct stat etat
    {
    };
    return lstat(Octets(nom).constData(), &etat) == 0 ? etat.st_mode & 07777U : 0U;
}

bool TestCopieAncienne::Sauve(const QString &nom, const QByteArray &contenu) const
{
    EcritureFichier ecriture(Chemin(nom), EcritureFichier::Ancien::Garde);
    return ecriture.Ouvre() && ecriture.Appareil().write(contenu) == contenu.size() && ecriture.Termine();
}

void TestCopieAncienne::lAncienContenuResteACote()
{
    QVERIFY(Sauve(QStringLiteral("a"), "un"));
    QCOMPARE(Noms(), QStringList{"a"});
    QVERIFY(Sauve(QStringLiteral("a"), "deux"));
    QCOMPARE(Noms(), (QStringList{"a", "a~"}));
    QCOMPARE(Contenu(QStringLiteral("a~")), QByteArray("un"));
    QVERIFY(Sauve(QStringLiteral("a"), "trois"));
    QCOMPARE(Noms(), (QStringList{"a", "a~"}));
    QCOMPARE(Contenu(QStringLiteral("a~")), QByteArray("deux"));
    QCOMPARE(Contenu(QStringLiteral("a")), QByteArray("trois"));
}

void TestCopieAncienne::sansLOptionRienNeReste()
{
    Pose(QStringLiteral("a"), "un");
    EcritureFichier ecriture(Chemin(QStringLiteral("a")));
    QVERIFY(ecriture.Ouvre());
    ecriture.Appareil().write("deux");
    QVERIFY(ecriture.Termine());
    QCOMPARE(Noms(), QStringList{"a"});
}

void TestCopieAncienne::laCopieALesDroitsDuFichier_data()
{
    QTest::addColumn<uint>("droits");
    QTest::newRow("au seul propriétaire") << 0600U;
    QTest::newRow("à tous") << 0666U;
    QTest::newRow("au groupe") << 0640U;
}

void TestCopieAncienne::laCopieALesDroitsDuFichier()
{
    QFETCH(uint, droits);
    Pose(QStringLiteral("a"), "un");
    Pose(QStringLiteral("a~"), "zéro");
    QCOMPARE(chmod(Octets(QStringLiteral("a")).constData(), droits), 0);
    QCOMPARE(chmod(Octets(QStringLiteral("a~")).constData(), 0444), 0);
    QVERIFY(Sauve(QStringLiteral("a"), "deux"));
    QCOMPARE(Droits(QStringLiteral("a~")), droits);
    QCOMPARE(Droits(QStringLiteral("a")), droits);
}

void TestCopieAncienne::laCopieEstACoteDuVraiFichier()
{
    QVERIFY(QDir(dossier->path()).mkdir(QStringLiteral("dossier")));
    Pose(QStringLiteral("dossier/vrai"), "un");
    QCOMPARE(symlink("dossier/vrai", Octets(QStringLiteral("lien")).constData()), 0);
    QVERIFY(Sauve(QStringLiteral("lien"), "deux"));
    QCOMPARE(Contenu(QStringLiteral("dossier/vrai")), QByteArray("deux"));
    QCOMPARE(Contenu(QStringLiteral("dossier/vrai~")), QByteArray("un"));
    QCOMPARE(Noms(), (QStringList{"dossier", "lien"}));
}

void TestCopieAncienne::sansSecondNomLeContenuEstCopie_data()
{
    constexpr uint unBloc = 65536;  // how much of the file is read at once
    QTest::addColumn<int>("place");
    QTest::addColumn<uint>("illisibles");
    QTest::addColumn<QByteArray>("copie");
    QTest::newRow("de la place") << 1'000'000 << 1U << Generation(1);
    QTest::newRow("le disque se remplit pendant la copie") << 100'000 << 1U << QByteArray("zéro");
    QTest::newRow("le disque ne se lit plus") << 1'000'000 << unBloc << QByteArray("zéro");
}

void TestCopieAncienne::sansSecondNomLeContenuEstCopie()
{
    QFETCH(int, place);
    QFETCH(uint, illisibles);
    QFETCH(QByteArray, copie);
    Pose(QStringLiteral("a"), Generation(1));
    Pose(QStringLiteral("a~"), "zéro");
    QCOMPARE(chmod(Octets(QStringLiteral("a")).constData(), 0640), 0);
    const int fin = DansUnAutreProcessus([this, place, illisibles] {
        if (!RefuseLesSecondsNoms(illisibles))
            return 2;
        const DisquePlein disque(static_cast<rlim_t>(place));
        return Sauve(QStringLiteral("a"), "deux") ? 0 : 1;
    });
    if (fin == 2)
        QSKIP("no seccomp here");
    QCOMPARE(fin, 0);
    QCOMPARE(Contenu(QStringLiteral("a")), QByteArray("deux"));
    QCOMPARE(Contenu(QStringLiteral("a~")), copie);
    QCOMPARE(Droits(QStringLiteral("a")), 0640U);
    QCOMPARE(Droits(QStringLiteral("a~")), copie == "zéro" ? 0644U : 0640U);
    QCOMPARE(Noms(), (QStringList{"a", "a~"}));
}

void TestCopieAncienne::uneCopieImpossibleNEmpechePasDeSauver_data()
{
    QTest::addColumn<QString>("nom");
    QTest::newRow("son nom est un dossier") << "a";
    QTest::newRow("son nom est un tube") << "b";
    QTest::newRow("son nom aurait 256 octets") << QString(255, u'n');
}

void TestCopieAncienne::uneCopieImpossibleNEmpechePasDeSauver()
{
    QFETCH(QString, nom);
    QVERIFY(QDir(dossier->path()).mkdir(QStringLiteral("a~")));
    Pose(QStringLiteral("a~/dedans"), "à garder");
    QCOMPARE(mkfifo(Octets(QStringLiteral("b~")).constData(), 0600), 0);
    Pose(nom, "un");
    QVERIFY(Sauve(nom, "deux"));
    QCOMPARE(Contenu(nom), QByteArray("deux"));
    QCOMPARE(Contenu(QStringLiteral("a~/dedans")), QByteArray("à garder"));
    QStringList attendus{nom, "a~", "b~"};
    attendus.sort();
    QCOMPARE(Noms(), attendus);
}

void TestCopieAncienne::uneSauvegardeRateeLaisseLesDeux_data()
{
    QTest::addColumn<bool>("avecCopie");
    QTest::newRow("déjà une copie") << true;
    QTest::newRow("pas encore de copie") << false;
}

void TestCopieAncienne::uneSauvegardeRateeLaisseLesDeux()
{
    QFETCH(bool, avecCopie);
    Pose(QStringLiteral("a"), "un");
    if (avecCopie)
        Pose(QStringLiteral("a~"), "zéro");
    const QStringList avant = Noms();
    {
        const DisquePlein disque(4096);
        QVERIFY(!Sauve(QStringLiteral("a"), QByteArray(5000, 'x')));
    }
    QCOMPARE(Noms(), avant);
    QCOMPARE(Contenu(QStringLiteral("a")), QByteArray("un"));
    QCOMPARE(Contenu(QStringLiteral("a~")), QByteArray(avecCopie ? "zéro" : "illisible"));
}

void TestCopieAncienne::unNomQuiNePeutEtrePrisLaisseLesDeux_data()
{
    uneSauvegardeRateeLaisseLesDeux_data();
}

void TestCopieAncienne::unNomQuiNePeutEtrePrisLaisseLesDeux()
{
    // In a shared folder with the sticky bit nobody takes the name of somebody else's file, which may yet be written.
    QFETCH(bool, avecCopie);
    if (geteuid() != 0)
        QSKIP("needs files of two users");
    Pose(QStringLiteral("a"), "un");
    QCOMPARE(chmod(Octets(QStringLiteral("a")).constData(), 0666), 0);
    if (avecCopie) {
        Pose(QStringLiteral("a~"), "zéro");
        QCOMPARE(chown(Octets(QStringLiteral("a~")).constData(), 65534, 65534), 0);
    }
    QCOMPARE(chmod(QFile::encodeName(dossier->path()).constData(), 01777), 0);
    const QStringList avant = Noms();
    bool sauve = true;
    {
        const SansPrivileges sansPrivileges;
        if (!sansPrivileges.Effectif())
            QSKIP("cannot become an ordinary user here");
        sauve = Sauve(QStringLiteral("a"), "deux");
    }
    QVERIFY(!sauve);
    QCOMPARE(Noms(), avant);
    QCOMPARE(Contenu(QStringLiteral("a")), QByteArray("un"));
    QCOMPARE(Contenu(QStringLiteral("a~")), QByteArray(avecCopie ? "zéro" : "illisible"));
}

void TestCopieAncienne::lesRestesDesMortsPartent()
{
    const QStringList autres{".ramelier-abcdefg", ".ramelier-abc1ef", ".ramelier-abcde", "ramelier-abcdef"};
    const QStringList restes{".ramelier-abcdef", ".ramelier-abcdef~", ".ramelier-ABCxyz~"};
    for (const QString &nom : autres + restes)
        Pose(nom, "reste");
    QVERIFY(QDir(dossier->path()).mkdir(QStringLiteral(".ramelier-dossie")));
    QCOMPARE(symlink("ramelier-abcdef", Octets(QStringLiteral(".ramelier-unlien")).constData()), 0);
    QVERIFY(Sauve(QStringLiteral("a"), "un"));
    const QStringList noms = Noms();
    for (const QString &nom : restes)
        QVERIFY2(!noms.contains(nom), qPrintable(nom));
    for (const QString &nom : autres)
        QCOMPARE(Contenu(nom), QByteArray("reste"));
    QCOMPARE(noms.size(), 7);
}

void TestCopieAncienne::ceQuiSEcritEncoreReste()
{
    EcritureFichier vivante(Chemin(QStringLiteral("a")));
    QVERIFY(vivante.Ouvre());
    QCOMPARE(vivante.Appareil().write("lente"), 5);
    QCOMPARE(Noms().size(), 1);
    Pose(Noms().constFirst() + u'~', "en chemin");
    QVERIFY(Sauve(QStringLiteral("b"), "rapide"));
    QCOMPARE(Noms().size(), 3);
    QVERIFY(vivante.Termine());
    QCOMPARE(Contenu(QStringLiteral("a")), QByteArray("lente"));
    QVERIFY(Sauve(QStringLiteral("b"), "encore"));
    QCOMPARE(Noms(), (QStringList{"a", "b", "b~"}));
}

void TestCopieAncienne::tueeNImporteQuandLesDeuxSontEntiers()
{
    QVERIFY(Sauve(QStringLiteral("a"), Generation(0)));
    QVERIFY(Sauve(QStringLiteral("a"), Generation(1)));
    std::mt19937 hasard(1);
    int restesVus = 0;
    for (int tour = 0; tour < 150; ++tour) {
        const int depart = NumeroDe(Contenu(QStringLiteral("a")));
        const pid_t enfant = fork();
        if (enfant == 0) {
            for (int i = depart + 1;; ++i) {
                if (!Sauve(QStringLiteral("a"), Generation(i)))
                    _exit(1);
            }
        }
        usleep(static_cast<useconds_t>(hasard() % 20'000));
        kill(enfant, SIGKILL);
        int etat = 0;
        QCOMPARE(waitpid(enfant, &etat, 0), enfant);
        QVERIFY2(WIFSIGNALED(etat), "a save failed");
        const int present = NumeroDe(Contenu(QStringLiteral("a")));
        const int ancien = NumeroDe(Contenu(QStringLiteral("a~")));
        QVERIFY2(present >= depart && ancien >= 0 && (ancien == present || ancien == present - 1),
                 qPrintable(QStringLiteral("tour %1 : %2, copie %3").arg(tour).arg(present).arg(ancien)));
        restesVus += Noms().size() > 2 ? 1 : 0;
        QVERIFY(Sauve(QStringLiteral("a"), Generation(present + 1)));
        QCOMPARE(Noms(), (QStringList{"a", "a~"}));
        QCOMPARE(NumeroDe(Contenu(QStringLiteral("a~"))), present);
    }
    QVERIFY2(restesVus > 0, "no writer was killed at its work");
}

RAMELIER_TEST_MAIN(QCoreApplication, TestCopieAncienne)
#include "tst_copie_ancienne.moc"
