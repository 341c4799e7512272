#include "arbre.h"
#include "enfant.h"
#include "environnement.h"
#include "ficoldrlg.h"
#include "ficoptions.h"
#include "ficxrlg.h"
#include "formatsdessins.h"
#include "gedcomlecture.h"
#include "interlocuteurnote.h"
#include "lecture.h"
#include "lespolices.h"
#include "textefiche.h"

#include <QCoreApplication>

/// Files of a gigabyte and more with one line: each is refused, or read as far as it means something, with little more
/// memory than its own bytes and in seconds.
class TestFichiersImmenses : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void unSeulTexteDUnGigaoctet_data();
    void unSeulTexteDUnGigaoctet();
    void plusDeDeuxGigaoctetsSontRefuses();
    void sansMarqueLongtemps_data();
    void sansMarqueLongtemps();
    void ceQuiEstGrandMaisEntierSeLit();
};

namespace {

constexpr qint64 gigaoctet = qint64(1) << 30;

/// A file of \a taille bytes that begins with \a debut and goes on with zeros, which take no place on the disk.
QString Immense(const QTemporaryDir &dossier, const QByteArray &debut, qint64 taille)
{
    QFile fichier(dossier.filePath(QStringLiteral("immense")));
    if (!fichier.open(QIODevice::WriteOnly) || fichier.write(debut) != debut.size() || !fichier.resize(taille))
        qFatal("no place for a large file");
    return fichier.fileName();
}

/// A reader of the file of this name; what it returns is its result.
using Lecteur = std::function<int(const QString &)>;

int LitXrlg(const QString &nom)
{
    Arbre arbre;
    QString dossier;
    return readFicXRLG(nom, dossier, &arbre);
}

int LitRlg(const QString &nom)
{
    Arbre arbre;
    QString dossier;
    QString v1 = enteteRlgV1;
    QString v3 = enteteRlgV3;
    int type = 0;
    return readFicOldRLG(nom, dossier, &arbre, v1, v3, type);
}

int LitGedcom(const QString &nom)
{
    return DecodeFichierGED(nom) ? 1 : 0;
}

int LitFichierOptions(const QString &nom)
{
    FormatsDessins formats;
    LesPolices polices;
    return LitOptions(nom, &formats, &polices) ? 1 : 0;
}

int LitFiche(const QString &nom)
{
    return OctetsFiche(nom).isNull() ? 0 : 1;
}

}  // namespace

Q_DECLARE_METATYPE(Lecteur)

void TestFichiersImmenses::unSeulTexteDUnGigaoctet_data()
{
    QTest::addColumn<Lecteur>("lit");
    QTest::addColumn<QByteArray>("debut");
    QTest::addColumn<int>("resultat");
    const Lecteur xrlg = LitXrlg;
    const Lecteur rlg = LitRlg;
    const Lecteur gedcom = LitGedcom;
    const Lecteur options = LitFichierOptions;
    const Lecteur fiche = LitFiche;
    QTest::newRow("xrlg, rien que des zéros") << xrlg << QByteArray() << 2;
    QTest::newRow("xrlg, un titre sans fin") << xrlg << QByteArray("<xrlg><arbre><titrearbre>Une") << 2;
    QTest::newRow("xrlg, une balise sans fin") << xrlg << QByteArray("<xrlg") << 2;
    QTest::newRow("xrlg, un commentaire sans fin") << xrlg << QByteArray("<!--") << 2;
    QTest::newRow("rlg, rien que des zéros") << rlg << QByteArray() << 2;
    QTest::newRow("gedcom, rien que des zéros") << gedcom << QByteArray() << 0;
    QTest::newRow("gedcom, un nom sans fin") << gedcom << QByteArray("0 HEAD\n0 @I1@ INDI\n1 NAME Jean") << 0;
    QTest::newRow("options, une police sans fin") << options << QByteArray("a\nb\n10\n25\n30\n42\nHel") << 1;
    QTest::newRow("fiche") << fiche << QByteArray("<html>") << 0;
}

void TestFichiersImmenses::unSeulTexteDUnGigaoctet()
{
    QFETCH(Lecteur, lit);
    QFETCH(QByteArray, debut);
    QFETCH(int, resultat);
    const QTemporaryDir dossier;
    const QString nom = Immense(dossier, debut, gigaoctet);
    const Enfant enfant = DansUnEnfant(250, [&] {
        QStringList messages;
        Interlocuteur::Installe(std::make_unique<InterlocuteurNote>(messages));
        return lit(nom);
    });
    QVERIFY(enfant.fini);
    QCOMPARE(enfant.resultat, resultat);
    QVERIFY2(enfant.megaoctets < 1500, qPrintable(QString::number(enfant.megaoctets)));
}

void TestFichiersImmenses::plusDeDeuxGigaoctetsSontRefuses()
{
    const QTemporaryDir dossier;
    const QString nom = Immense(dossier, "<xrlg>", 2 * gigaoctet + 1);
    QStringList messages;
    Interlocuteur::Installe(std::make_unique<InterlocuteurNote>(messages));
    QCOMPARE(LitXrlg(nom), 1);
    QCOMPARE(messages,
             QStringList{QStringLiteral("avertissement|Arbre XRLG|Impossible de lire le fichier %1:\n"
                                        "Le fichier est trop grand.")
                             .arg(nom)});
    QCOMPARE(LitGedcom(nom), 0);
    QString cause;
    QVERIFY(OctetsFiche(nom, &cause).isNull());
    QCOMPARE(cause, QStringLiteral("Le fichier est trop grand"));
}

void TestFichiersImmenses::sansMarqueLongtemps_data()
{
    constexpr qsizetype mega = qsizetype(1) << 20;
    QTest::addColumn<QByteArray>("octets");
    QTest::addColumn<bool>("longtemps");
    QTest::newRow("rien") << QByteArray() << false;
    QTest::newRow("moins de 32 Mio") << QByteArray(32 * mega - 1, 'a') << false;
    QTest::newRow("64 Mio sans marque") << '<' + QByteArray(64 * mega, 'a') + '<' << true;
    QTest::newRow("une marque tous les 32 Mio") << (QByteArray(32 * mega - 1, 'a') + '<').repeated(2) << false;
    QTest::newRow("64 Mio sans marque au milieu")
        << QByteArray(32 * mega, '<') + QByteArray(64 * mega, 'a') + QByteArray(8 * mega, '<') << true;
}

void TestFichiersImmenses::sansMarqueLongtemps()
{
    QFETCH(QByteArray, octets);
    QFETCH(bool, longtemps);
    QCOMPARE(SansMarqueLongtemps(octets, '<'), longtemps);
}

void TestFichiersImmenses::ceQuiEstGrandMaisEntierSeLit()
{
    // A text of 7 MiB is absurd, but it is somebody's.
    const QByteArray texte(7 << 20, 'a');
    const QTemporaryDir dossier;
    QStringList messages;
    Interlocuteur::Installe(std::make_unique<InterlocuteurNote>(messages));
    QFile fichier(dossier.filePath(QStringLiteral("grand")));
    QVERIFY(fichier.open(QIODevice::WriteOnly));
    QVERIFY(fichier.write("<xrlg><arbre><titrearbre>" + texte + "</titrearbre></arbre></xrlg>") > texte.size());
    fichier.close();
    Arbre arbre;
    QString repertoire;
    QCOMPARE(readFicXRLG(fichier.fileName(), repertoire, &arbre), 0);
    QCOMPARE(arbre.infoArbre->titrearbre.size(), qsizetype(7 << 20));
    QCOMPARE(OctetsFiche(fichier.fileName()).size(), texte.size() + 53);
    QCOMPARE(messages, QStringList());
}

RAMELIER_TEST_MAIN(QCoreApplication, TestFichiersImmenses)
#include "tst_fichiers_immenses.moc"
