#include "arbre.h"
#include "arbres.h"
#include "environnement.h"
#include "ficxrlg.h"
#include "infopersonne.h"
#include "interlocuteurnote.h"
#include "pannes.h"
#include "personne.h"

#include <QBuffer>
#include <QDir>
#include <QGuiApplication>

#include <sys/stat.h>

/// writeFicXRLG: the bytes of a tree file, and what happens when they cannot be written.
class TestFicXrlgEcriture : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void init();
    void ecritLArbreDUneSeulePersonne();
    void ecritUnArbreVide();
    void ecritTousLesTextesDansLOrdre();
    void nEchappeRien();
    void ecritUnePersonneSansInformations();
    void unCaractereIncompletResteDansSonElement();
    void unGrandArbreEstEcritEnEntier();
    void refuseLaCible_data();
    void refuseLaCible();
    void sansNomDeFichierLeDit();
    void unDisqueRempliLaisseLAncienFichier();
    void suitUnLienEtGardeLesDroits();
    void unAppareilQuiRefuseLeDit();

private:
    [[nodiscard]] QString Chemin(const QString &nom) const { return dossier->filePath(nom); }
    [[nodiscard]] static QByteArray Contenu(const QString &chemin);

    std::unique_ptr<QTemporaryDir> dossier;
    QStringList messages;
};

void TestFicXrlgEcriture::initTestCase()
{
    Interlocuteur::Installe(std::make_unique<InterlocuteurNote>(messages));
}

void TestFicXrlgEcriture::init()
{
    dossier = std::make_unique<QTemporaryDir>();
    messages.clear();
}

QByteArray TestFicXrlgEcriture::Contenu(const QString &chemin)
{
    QFile fichier(chemin);
    return fichier.open(QIODevice::ReadOnly) ? fichier.readAll() : QByteArray("illisible");
}

void TestFicXrlgEcriture::ecritLArbreDUneSeulePersonne()
{
    const auto arbre = ArbreDeNumeros({1});
    arbre->infoArbre->titrearbre = QStringLiteral("Famille Martin");
    arbre->infoArbre->creepar = QStringLiteral("Paul Martin");
    arbre->premiere->numerogeneration = 1;
    arbre->premiere->info->nom = QStringLiteral("MARTIN");
    arbre->premiere->info->prenom = QStringLiteral("Paul");
    QVERIFY(writeFicXRLG(Chemin(QStringLiteral("a.xrlg")), arbre.get()));
    QCOMPARE(Contenu(Chemin(QStringLiteral("a.xrlg"))),
             QByteArray("<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n"
                        "<!DOCTYPE xrlg>\n"
                        "<xrlg version=\"1.0\">\n"
                        "  <arbre>\n"
                        "    <infoarbre>\n"
                        "      <titrearbre>Famille Martin</titrearbre>\n"
                        "      <creepar>Paul Martin</creepar>\n"
                        "    </infoarbre>\n"
                        "    <nombrepersonnes>1</nombrepersonnes>\n"
                        "    <personne>\n"
                        "      <numero>1</numero>\n"
                        "      <numerogeneration>1</numerogeneration>\n"
                        "      <pere>0</pere>\n"
                        "      <mere>0</mere>\n"
                        "      <enfant>0</enfant>\n"
                        "      <infopersonne>\n"
                        "        <nom>MARTIN</nom>\n"
                        "        <prenom>Paul</prenom>\n"
                        "      </infopersonne>\n"
                        "    </personne>\n"
                        "    <nombregenerations>1</nombregenerations>\n"
                        "  </arbre>\n"
                        "</xrlg>\n"));
    QCOMPARE(messages, QStringList());
    QCOMPARE(QDir(dossier->path()).entryList(QDir::Files), QStringList{QStringLiteral("a.xrlg")});
}

void TestFicXrlgEcriture::ecritUnArbreVide()
{
    Arbre arbre;
    QBuffer sortie;
    QVERIFY(sortie.open(QIODevice::WriteOnly));
    QVERIFY(EcritArbreXRLG(sortie, arbre));
    QCOMPARE(sortie.data(),
             QByteArray("<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n"
                        "<!DOCTYPE xrlg>\n"
                        "<xrlg version=\"1.0\">\n"
                        "  <arbre>\n"
                        "    <infoarbre>\n"
                        "      <titrearbre></titrearbre>\n"
                        "    </infoarbre>\n"
                        "    <nombrepersonnes>0</nombrepersonnes>\n"
                        "    <nombregenerations>0</nombregenerations>\n"
                        "  </arbre>\n"
                        "</xrlg>\n"));
}

void TestFicXrlgEcriture::ecritTousLesTextesDansLOrdre()
{
    Arbre arbre;
    *arbre.infoArbre = {QStringLiteral("T"), QStringLiteral("C"), QStringLiteral("D"), QStringLiteral("M"),
                        QStringLiteral("Dm")};
    auto *personne = new Personne(65535);
    personne->numero = 18446744073709551615U;
    personne->pere = 18446744073709551614U;
    personne->mere = 9223372036854775808U;
    personne->enfant = 12345678901U;
    personne->info =
        new InfoPersonne(QStringLiteral("LEFÈVRE"), QStringLiteral("Łucja 孔子"), QStringLiteral("ca 1760"),
                         QStringLiteral("Alger"), QStringLiteral("12 vendémiaire an III"), QStringLiteral("Cœuilly"),
                         QStringLiteral("deux\nlignes"), QStringLiteral("f.html"), QStringLiteral("p.png"), -1);
    arbre.AjouteALaFin(personne);
    arbre.nombrePersonnes = 42;
    arbre.nombreGenerations = 65535;
    QBuffer sortie;
    QVERIFY(sortie.open(QIODevice::WriteOnly));
    QVERIFY(EcritArbreXRLG(sortie, arbre));
    const QByteArray attendu = "    <infoarbre>\n"
                               "      <titrearbre>T</titrearbre>\n"
                               "      <creepar>C</creepar>\n"
                               "      <date>D</date>\n"
                               "      <majpar>M</majpar>\n"
                               "      <datemaj>Dm</datemaj>\n"
                               "    </infoarbre>\n"
                               "    <nombrepersonnes>42</nombrepersonnes>\n"
                               "    <personne>\n"
                               "      <numero>18446744073709551615</numero>\n"
                               "      <numerogeneration>65535</numerogeneration>\n"
                               "      <pere>18446744073709551614</pere>\n"
                               "      <mere>9223372036854775808</mere>\n"
                               "      <enfant>12345678901</enfant>\n"
                               "      <infopersonne>\n"
                               "        <nom>LEFÈVRE</nom>\n"
                               "        <prenom>Łucja 孔子</prenom>\n"
                               "        <datenaissance>ca 1760</datenaissance>\n"
                               "        <lieunaissance>Alger</lieunaissance>\n"
                               "        <datedeces>12 vendémiaire an III</datedeces>\n"
                               "        <lieudeces>Cœuilly</lieudeces>\n"
                               "        <divers>deux\nlignes</divers>\n"
                               "        <fichtml>f.html</fichtml>\n"
                               "        <ficphoto>p.png</ficphoto>\n"
                               "      </infopersonne>\n"
                               "    </personne>\n"
                               "    <nombregenerations>65535</nombregenerations>\n"
                               "  </arbre>\n"
                               "</xrlg>\n";
    QCOMPARE(sortie.data().mid(sortie.data().indexOf("    <infoarbre>")), attendu);
}

void TestFicXrlgEcriture::nEchappeRien()
{
    const auto arbre = ArbreDeNumeros({1});
    arbre->premiere->info->nom = QStringLiteral("A & B <c> \"d\" &amp;");
    QBuffer sortie;
    QVERIFY(sortie.open(QIODevice::WriteOnly));
    QVERIFY(EcritArbreXRLG(sortie, *arbre));
    QVERIFY(sortie.data().contains("<nom>A & B <c> \"d\" &amp;</nom>\n"));
}

void TestFicXrlgEcriture::ecritUnePersonneSansInformations()
{
    Arbre arbre;
    arbre.AjouteALaFin(new Personne(0));
    QBuffer sortie;
    QVERIFY(sortie.open(QIODevice::WriteOnly));
    QVERIFY(EcritArbreXRLG(sortie, arbre));
    QVERIFY(sortie.data().contains("      <infopersonne>\n      </infopersonne>\n"));
}

void TestFicXrlgEcriture::unCaractereIncompletResteDansSonElement()
{
    const auto arbre = ArbreDeNumeros({1});
    arbre->premiere->info->nom = u'A' + QString(QChar(0xD83D));
    arbre->premiere->info->prenom = QStringLiteral("B");
    QBuffer sortie;
    QVERIFY(sortie.open(QIODevice::WriteOnly));
    QVERIFY(EcritArbreXRLG(sortie, *arbre));
    QVERIFY(sortie.data().contains("        <nom>A\xEF\xBF\xBD</nom>\n"
                                   "        <prenom>B</prenom>\n"));
}

void TestFicXrlgEcriture::unGrandArbreEstEcritEnEntier()
{
    const auto arbre = ArbreComplet(12);
    const QString chemin = Chemin(QStringLiteral("a.xrlg"));
    QVERIFY(writeFicXRLG(chemin, arbre.get()));
    const QByteArray contenu = Contenu(chemin);
    QCOMPARE(contenu.count("    <personne>\n"), 4095);
    QCOMPARE(contenu.count("    </personne>\n"), 4095);
    QVERIFY(contenu.endsWith("        <nom>N4095</nom>\n"
                             "      </infopersonne>\n"
                             "    </personne>\n"
                             "    <nombregenerations>12</nombregenerations>\n"
                             "  </arbre>\n"
                             "</xrlg>\n"));
    Arbre relu;
    QString repertoire = dossier->path();
    QCOMPARE(readFicXRLG(chemin, repertoire, &relu), 0);
    QCOMPARE(ArbreEnTexte(relu), ArbreEnTexte(*arbre));
}

void TestFicXrlgEcriture::refuseLaCible_data()
{
    QTest::addColumn<QString>("cible");
    QTest::addColumn<QString>("cause");
    QTest::newRow("dossier absent") << "rien/a.xrlg"
                                    << "No such file or directory";
    QTest::newRow("un dossier") << "dossier"
                                << "Is a directory";
    QTest::newRow("un tube") << "tube"
                             << "Ce n'est pas un fichier ordinaire";
    QTest::newRow("un appareil") << "/dev/full"
                                 << "Ce n'est pas un fichier ordinaire";
    QTest::newRow("un nom avec des pourcents") << "rien/50%2 %1.xrlg"
                                               << "No such file or directory";
}

void TestFicXrlgEcriture::refuseLaCible()
{
    QFETCH(QString, cible);
    QFETCH(QString, cause);
    QVERIFY(QDir(dossier->path()).mkdir(QStringLiteral("dossier")));
    QCOMPARE(mkfifo(QFile::encodeName(Chemin(QStringLiteral("tube"))).constData(), 0600), 0);
    const auto arbre = ArbreDeNumeros({1});
    const QString chemin = QDir(dossier->path()).absoluteFilePath(cible);
    QVERIFY(!writeFicXRLG(chemin, arbre.get()));
    QCOMPARE(messages,
             QStringList{QStringLiteral("avertissement|Fichier XRLG|Impossible d'écrire dans le fichier ") + chemin
                         + QStringLiteral(":\n") + cause + u'.'});
    QCOMPARE(QDir(dossier->path()).entryList(QDir::Files | QDir::Hidden), QStringList());
}

void TestFicXrlgEcriture::sansNomDeFichierLeDit()
{
    const auto arbre = ArbreDeNumeros({1});
    QVERIFY(!writeFicXRLG(QString(), arbre.get()));
    QCOMPARE(messages,
             QStringList{QStringLiteral(
                 "avertissement|Fichier XRLG|Impossible d'écrire dans le fichier :\nNo file name specified.")});
}

void TestFicXrlgEcriture::unDisqueRempliLaisseLAncienFichier()
{
    const QString chemin = Chemin(QStringLiteral("a.xrlg"));
    const auto petit = ArbreDeNumeros({1});
    QVERIFY(writeFicXRLG(chemin, petit.get()));
    const QByteArray ancien = Contenu(chemin);
    const auto grand = ArbreComplet(8);
    bool ecrit = true;
    {
        const DisquePlein disque(4096);
        ecrit = writeFicXRLG(chemin, grand.get());
    }
    QVERIFY(!ecrit);
    QCOMPARE(Contenu(chemin), ancien);
    QCOMPARE(messages,
             QStringList{QStringLiteral("avertissement|Fichier XRLG|Impossible d'écrire dans le fichier ") + chemin
                         + QStringLiteral(":\nFile too large.")});
    QCOMPARE(QDir(dossier->path()).entryList(QDir::Files | QDir::Hidden), QStringList{QStringLiteral("a.xrlg")});
}

void TestFicXrlgEcriture::suitUnLienEtGardeLesDroits()
{
    const QString vrai = Chemin(QStringLiteral("vrai.xrlg"));
    const QString lien = Chemin(QStringLiteral("lien.xrlg"));
    const auto arbre = ArbreDeNumeros({1});
    QVERIFY(writeFicXRLG(vrai, arbre.get()));
    QVERIFY(QFile::setPermissions(vrai, QFile::ReadOwner | QFile::WriteOwner | QFile::ReadGroup));
    QVERIFY(QFile::link(vrai, lien));
    const auto autre = ArbreDeNumeros({1, 2});
    QVERIFY(writeFicXRLG(lien, autre.get()));
    QCOMPARE(QFileInfo(lien).symLinkTarget(), vrai);
    QVERIFY(Contenu(vrai).contains("<numero>2</numero>"));
    struct stat etat
    {
    };
    QCOMPARE(stat(QFile::encodeName(vrai).constData(), &etat), 0);
    QCOMPARE(etat.st_mode & 0777U, 0640U);
}

void TestFicXrlgEcriture::unAppareilQuiRefuseLeDit()
{
    QFile plein(QStringLiteral("/dev/full"));
    QVERIFY(plein.open(QIODevice::WriteOnly | QIODevice::Unbuffered));
    const auto arbre = ArbreDeNumeros({1});
    QVERIFY(!EcritArbreXRLG(plein, *arbre));
}

RAMELIER_TEST_MAIN(QGuiApplication, TestFicXrlgEcriture)
#include "tst_ficxrlg_ecriture.moc"
