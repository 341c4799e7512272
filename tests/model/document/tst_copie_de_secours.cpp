#include "arbre.h"
#include "arbres.h"
#include "copiedesecours.h"
#include "environnement.h"
#include "ficxrlg.h"
#include "infopersonne.h"
#include "pannes.h"
#include "personne.h"
#include "placedesecours.h"
#include "ramelierdoc.h"

#include <QDir>
#include <QGuiApplication>

#include <cerrno>
#include <cstddef>
#include <linux/filter.h>
#include <linux/seccomp.h>
#include <sys/syscall.h>
#include <sys/wait.h>

/// When and how the rescue copy of a document is written, and where.
class TestCopieDeSecours : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void auPlusUneParIntervalle();
    void unChangementPendantLEcritureEnDonneUneAutre();
    void sansChangementPasDeCopie();
    void retireePendantQuElleSEcrit();
    void unArbreRemplaceNeLaisseRien();
    void sansEnfantElleSEcritSurPlace();
    void unDisquePleinLaisseLaPrecedente();
    void nImporteQuelTexteSeRelit();
    void leNomDitLArbre_data();
    void leNomDitLArbre();
    void unNumeroDejaPrisDonneUneAutrePlace();
    void leDossierEstCeluiDesEtats_data();
    void leDossierEstCeluiDesEtats();

private:
    void Change(const QString &titre);
    [[nodiscard]] QStringList Noms() const
    {
        return QDir(etats).entryList(QDir::AllEntries | QDir::Hidden | QDir::System | QDir::NoDotAndDotDot);
    }
    [[nodiscard]] static QByteArray Contenu(const QString &chemin);
    [[nodiscard]] static QByteArray Titre(const QString &titre)
    {
        return "<titrearbre>" + titre.toUtf8() + "</titrearbre>";
    }

    QDir etats;
    std::unique_ptr<RamelierDoc> doc;
    QString photos = "/photos";
};

namespace {

constexpr int jamais = 3'600'000;

/// From now on the system refuses this process a child.
bool RefuseLesEnfants()
{
    sock_filter regles[] = {
        BPF_STMT(BPF_LD | BPF_W | BPF_ABS, offsetof(seccomp_data, nr)),
        BPF_JUMP(BPF_JMP | BPF_JEQ | BPF_K, SYS_clone, 0, 1),
        BPF_STMT(BPF_RET | BPF_K, SECCOMP_RET_ERRNO | EAGAIN),
        BPF_STMT(BPF_RET | BPF_K, SECCOMP_RET_ALLOW),
    };
    const sock_fprog programme = {4, regles};
    return prctl(PR_SET_NO_NEW_PRIVS, 1, 0, 0, 0) == 0 && prctl(PR_SET_SECCOMP, SECCOMP_MODE_FILTER, &programme) == 0;
}

}  // namespace

void TestCopieDeSecours::init()
{
    etats.setPath(qEnvironmentVariable("XDG_STATE_HOME") + "/ramelier");
    QVERIFY(!etats.exists() || etats.removeRecursively());
    doc = std::make_unique<RamelierDoc>(QString());
    doc->arbre = ArbreComplet(3).release();
    doc->nomFichier = "/arbres/martin.xrlg";
}

QByteArray TestCopieDeSecours::Contenu(const QString &chemin)
{
    QFile fichier(chemin);
    return fichier.open(QIODevice::ReadOnly) ? fichier.readAll() : QByteArray("illisible");
}

void TestCopieDeSecours::Change(const QString &titre)
{
    // As the document does: told first, flagged afterwards.
    doc->arbre->infoArbre->titrearbre = titre;
    Q_EMIT doc->documentChanged(1);
    doc->modifie = true;
}

void TestCopieDeSecours::auPlusUneParIntervalle()
{
    CopieDeSecours secours(*doc, photos, jamais);
    Change("un");
    QVERIFY(!etats.exists());
    QTRY_VERIFY(!secours.Chemin().isEmpty());
    QVERIFY(Contenu(secours.Chemin()).contains(Titre("un")));
    Change("deux");
    QTest::qWait(300);
    QVERIFY(Contenu(secours.Chemin()).contains(Titre("un")));
    // Saved, and changed again: still no more than one in that time.
    doc->modifie = false;
    secours.Regarde();
    Change("trois");
    QTest::qWait(300);
    QCOMPARE(Noms(), QStringList());
    secours.EcritEtGarde();
    QVERIFY(Contenu(secours.Chemin()).contains(Titre("trois")));
}

void TestCopieDeSecours::unChangementPendantLEcritureEnDonneUneAutre()
{
    doc->arbre->infoArbre->creepar = QString(20'000'000, u'x');
    CopieDeSecours secours(*doc, photos, 0);
    Change("un");
    QTRY_VERIFY(etats.exists());
    QVERIFY(secours.Chemin().isEmpty());
    Change("deux");
    QTRY_VERIFY(Contenu(secours.Chemin()).contains(Titre("deux")));
}

void TestCopieDeSecours::sansChangementPasDeCopie()
{
    CopieDeSecours secours(*doc, photos, 0);
    Q_EMIT doc->documentChanged(1);
    secours.Regarde();
    QTest::qWait(200);
    QVERIFY(!etats.exists());
    doc->optionsModifiees = true;
    secours.Regarde();
    QTRY_VERIFY(!secours.Chemin().isEmpty());
    QVERIFY(QFile::exists(QString(secours.Chemin()).replace(".xrlg", ".opt")));
}

void TestCopieDeSecours::retireePendantQuElleSEcrit()
{
    doc->arbre->infoArbre->creepar = QString(20'000'000, u'x');
    CopieDeSecours secours(*doc, photos, 0);
    Change("un");
    QTRY_VERIFY(!Noms().isEmpty());
    doc->modifie = false;
    secours.Regarde();
    QCOMPARE(Noms(), QStringList());
    QCOMPARE(waitpid(-1, nullptr, WNOHANG), -1);
    QCOMPARE(errno, ECHILD);
}

void TestCopieDeSecours::unArbreRemplaceNeLaisseRien()
{
    CopieDeSecours secours(*doc, photos, 0);
    Change("un");
    QTRY_VERIFY(!secours.Chemin().isEmpty());
    const QString premiere = secours.Chemin();
    // Replaced by a tree that is modified from the start, as an assembled one is, before the event loop comes.
    delete std::exchange(doc->arbre, nullptr);
    Q_EMIT doc->documentChanged(0);
    doc->arbre = ArbreComplet(2).release();
    doc->nomFichier.clear();
    Change("deux");
    QTRY_VERIFY(secours.Chemin().endsWith(QStringLiteral("/sans-nom-%1.xrlg").arg(getpid())));
    QVERIFY(!QFile::exists(premiere));
    QVERIFY(Contenu(secours.Chemin()).contains(Titre("deux")));
    QCOMPARE(DossierDeLArbre(premiere), etats.path());
}

void TestCopieDeSecours::sansEnfantElleSEcritSurPlace()
{
    const pid_t enfant = fork();
    if (enfant == 0) {
        if (!RefuseLesEnfants())
            _exit(2);
        CopieDeSecours secours(*doc, photos, 0);
        Change("sans enfant");
        const bool ecrite = QTest::qWaitFor([&secours] { return !secours.Chemin().isEmpty(); });
        _exit(ecrite && Contenu(secours.Chemin()).contains(Titre("sans enfant")) ? 0 : 1);
    }
    int etat = 0;
    QCOMPARE(waitpid(enfant, &etat, 0), enfant);
    QVERIFY(WIFEXITED(etat));
    if (WEXITSTATUS(etat) == 2)
        QSKIP("no seccomp here");
    QCOMPARE(WEXITSTATUS(etat), 0);
}

void TestCopieDeSecours::unDisquePleinLaisseLaPrecedente()
{
    CopieDeSecours secours(*doc, photos, 0);
    Change("un");
    QTRY_VERIFY(!secours.Chemin().isEmpty());
    const QString chemin = secours.Chemin();
    doc->arbre->infoArbre->creepar = QString(100'000, u'x');
    {
        const DisquePlein disque(50'000);
        Change("deux");
        QTest::qWait(500);
        secours.EcritEtGarde();
    }
    QVERIFY(Contenu(chemin).contains(Titre("un")));
    const QString base = QFileInfo(chemin).completeBaseName();
    QCOMPARE(Noms(), (QStringList{base + ".dossier", base + ".verrou", base + ".xrlg"}));
}

void TestCopieDeSecours::nImporteQuelTexteSeRelit()
{
    // The tree's own file could not be read back with these.
    const QString texte = QStringLiteral("Martin & Fils <1700> \"l'aîné\" &amp; ]]> \u00a0fin");
    CopieDeSecours copie(*doc, photos, jamais);
    doc->arbre->premiere->info->divers = texte;
    Change(texte);
    QTRY_VERIFY(!copie.Chemin().isEmpty());
    Arbre relu;
    QString repertoire;
    QCOMPARE(readFicXRLG(copie.Chemin(), repertoire, &relu), 0);
    QCOMPARE(relu.infoArbre->titrearbre, texte);
    QCOMPARE(relu.premiere->info->divers, texte);
    QCOMPARE(NumerosEnTexte(relu), QStringLiteral("1 2 3 4 5 6 7"));
}

void TestCopieDeSecours::leNomDitLArbre_data()
{
    QTest::addColumn<QString>("fichier");
    QTest::addColumn<QString>("nom");
    QTest::newRow("sans fichier") << ""
                                  << "sans-nom";
    QTest::newRow("ordinaire") << "/a/Famille Lefèvre.xrlg"
                               << "Famille Lefèvre";
    QTest::newRow("ancien format") << "/a/martin.rlg"
                                   << "martin";
    QTest::newRow("des points") << "/a/arbre.final.v2.xrlg"
                                << "arbre_final_v2";
    QTest::newRow("des signes") << "/a/a\nb\t\"$(c)\".xrlg"
                                << "a_b____c__";
    QTest::newRow("caché") << "/a/.xrlg"
                           << "sans-nom";
    QTest::newRow("long") << "/a/" + QString(200, u'é') + ".xrlg" << QString(60, u'é');
    QTest::newRow("une copie") << "ETATS/martin-1234.xrlg"
                               << "martin";
    QTest::newRow("une autre copie") << "ETATS/martin-12-1234-2.xrlg"
                                     << "martin-12";
    QTest::newRow("un numéro") << "/a/martin-1234.xrlg"
                               << "martin-1234";
}

void TestCopieDeSecours::leNomDitLArbre()
{
    QFETCH(QString, fichier);
    QFETCH(QString, nom);
    QVERIFY(QDir().mkpath(etats.path()));
    const auto place = PlaceDeSecours::Prend(fichier.replace("ETATS", etats.path()));
    QVERIFY(place);
    QCOMPARE(place->Arbre(), QStringLiteral("%1/%2-%3.xrlg").arg(etats.path(), nom).arg(getpid()));
    QCOMPARE(Noms(), QStringList{QStringLiteral("%1-%2.verrou").arg(nom).arg(getpid())});
}

void TestCopieDeSecours::unNumeroDejaPrisDonneUneAutrePlace()
{
    const QString base = QStringLiteral("%1/martin-%2").arg(etats.path()).arg(getpid());
    QVERIFY(QDir().mkpath(etats.path()));
    QFile ancienne(base + ".xrlg");
    QVERIFY(ancienne.open(QIODevice::WriteOnly));
    ancienne.write("d'un autre jour");
    ancienne.close();
    const auto place = PlaceDeSecours::Prend(doc->nomFichier);
    const auto suivante = PlaceDeSecours::Prend(doc->nomFichier);
    QCOMPARE(place->Arbre(), base + "-2.xrlg");
    QCOMPARE(suivante->Arbre(), base + "-3.xrlg");
    QCOMPARE(CopiesRetrouvees(), QStringList{ancienne.fileName()});
    OublieLaCopieDeSecours("/arbres/martin.xrlg");
    OublieLaCopieDeSecours(ancienne.fileName());
    QCOMPARE(CopiesRetrouvees(), QStringList());
}

void TestCopieDeSecours::leDossierEstCeluiDesEtats_data()
{
    QTest::addColumn<QByteArray>("etat");
    QTest::addColumn<QString>("dossier");
    QTest::newRow("donné") << QByteArray("MAISON/ailleurs") << "/ailleurs/ramelier";
    QTest::newRow("vide") << QByteArray() << "/.local/state/ramelier";
    QTest::newRow("relatif, donc non valable") << QByteArray("ici") << "/.local/state/ramelier";
}

void TestCopieDeSecours::leDossierEstCeluiDesEtats()
{
    QFETCH(QByteArray, etat);
    QFETCH(QString, dossier);
    const QByteArray avant = qgetenv("XDG_STATE_HOME");
    qputenv("XDG_STATE_HOME", etat.replace("MAISON", Environnement::Maison().toLocal8Bit()));
    const auto place = PlaceDeSecours::Prend({});
    qputenv("XDG_STATE_HOME", avant);
    QVERIFY(place);
    QCOMPARE(QFileInfo(place->Arbre()).path(), Environnement::Maison() + dossier);
    QCOMPARE(QFile::permissions(QFileInfo(place->Arbre()).path()) & (QFile::ReadGroup | QFile::ReadOther),
             QFile::Permissions());
}

RAMELIER_TEST_MAIN(QGuiApplication, TestCopieDeSecours)
#include "tst_copie_de_secours.moc"
