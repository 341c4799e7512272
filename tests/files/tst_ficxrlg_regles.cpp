#include "arbre.h"
#include "arbres.h"
#include "environnement.h"
#include "ficxrlg.h"
#include "infopersonne.h"
#include "interlocuteurnote.h"
#include "personne.h"

#include <QDir>
#include <QFile>
#include <QGuiApplication>
#include <QImage>

#include <random>

/// readFicXRLG: counts, numbers, links and photos, and what comes back of a tree that was written.
class TestFicXrlgRegles : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void init();
    void lesComptesSontCeuxDuFichierPlusLesPersonnes_data();
    void lesComptesSontCeuxDuFichierPlusLesPersonnes();
    void lesLiensSontRefaitsDesDeuxPersonnes_data();
    void lesLiensSontRefaitsDesDeuxPersonnes();
    void unNombreSeLitEnDecimal_data();
    void unNombreSeLitEnDecimal();
    void lesTextesDeLaPageDeGardeSeLisentPartout();
    void unSecondInfopersonneCompleteLePremier();
    void laPhotoSeChargeALaFinDesInformations_data();
    void laPhotoSeChargeALaFinDesInformations();
    void leMemeArbreRevient_data();
    void leMemeArbreRevient();

private:
    int Lit(const QByteArray &contenu);
    [[nodiscard]] QString Chemin(const QString &nom) const { return dossier->filePath(nom); }
    [[nodiscard]] static QByteArray Contenu(const QString &chemin);

    std::unique_ptr<QTemporaryDir> dossier;
    std::unique_ptr<Arbre> arbre;
    QString repertoire;
    QStringList messages;
};

void TestFicXrlgRegles::initTestCase()
{
    Interlocuteur::Installe(std::make_unique<InterlocuteurNote>(messages));
}

void TestFicXrlgRegles::init()
{
    dossier = std::make_unique<QTemporaryDir>();
    repertoire = dossier->path();
    messages.clear();
}

int TestFicXrlgRegles::Lit(const QByteArray &contenu)
{
    const QString chemin = Chemin(QStringLiteral("a.xrlg"));
    QFile fichier(chemin);
    if (!fichier.open(QIODevice::WriteOnly) || fichier.write(contenu) != contenu.size())
        return -1;
    fichier.close();
    arbre = std::make_unique<Arbre>();
    return readFicXRLG(chemin, repertoire, arbre.get());
}

QByteArray TestFicXrlgRegles::Contenu(const QString &chemin)
{
    QFile fichier(chemin);
    return fichier.open(QIODevice::ReadOnly) ? fichier.readAll() : QByteArray("illisible");
}

void TestFicXrlgRegles::lesComptesSontCeuxDuFichierPlusLesPersonnes_data()
{
    QTest::addColumn<QByteArray>("contenu");
    QTest::addColumn<quint64>("personnes");
    QTest::addColumn<int>("generations");
    QTest::newRow("une personne") << QByteArray("<nombrepersonnes>1</nombrepersonnes><personne/>"
                                                "<nombregenerations>1</nombregenerations>")
                                  << quint64(2) << 1;
    QTest::newRow("rien d'écrit") << QByteArray("<personne/><personne/>") << quint64(2) << 0;
    QTest::newRow("écrit après") << QByteArray("<personne/><personne/><nombrepersonnes>7</nombrepersonnes>")
                                 << quint64(7) << 0;
    QTest::newRow("écrit entre") << QByteArray("<personne/><nombrepersonnes>7</nombrepersonnes><personne/>")
                                 << quint64(8) << 0;
    QTest::newRow("faux") << QByteArray("<nombrepersonnes>1000000</nombrepersonnes>"
                                        "<nombregenerations>65535</nombregenerations><personne/>")
                          << quint64(1'000'001) << 65535;
    QTest::newRow("écrit deux fois") << QByteArray("<nombregenerations>3</nombregenerations>"
                                                   "<nombregenerations>4</nombregenerations>")
                                     << quint64(0) << 4;
}

void TestFicXrlgRegles::lesComptesSontCeuxDuFichierPlusLesPersonnes()
{
    QFETCH(QByteArray, contenu);
    QFETCH(quint64, personnes);
    QFETCH(int, generations);
    QCOMPARE(Lit("<xrlg><arbre>" + contenu + "</arbre></xrlg>"), 0);
    QCOMPARE(arbre->nombrePersonnes, personnes);
    QCOMPARE(int(arbre->nombreGenerations), generations);
}

void TestFicXrlgRegles::lesLiensSontRefaitsDesDeuxPersonnes_data()
{
    QTest::addColumn<QByteArray>("fin");
    QTest::addColumn<bool>("lies");
    QTest::newRow("deux personnes") << QByteArray("</arbre></xrlg>") << true;
    QTest::newRow("un compte de 2") << QByteArray("<nombrepersonnes>2</nombrepersonnes></arbre></xrlg>") << true;
    QTest::newRow("un compte de 1") << QByteArray("<nombrepersonnes>1</nombrepersonnes></arbre></xrlg>") << false;
    QTest::newRow("un compte de 0") << QByteArray("<nombrepersonnes>0</nombrepersonnes></arbre></xrlg>") << false;
    QTest::newRow("un fichier coupé avant la fin de l'arbre") << QByteArray() << false;
}

void TestFicXrlgRegles::lesLiensSontRefaitsDesDeuxPersonnes()
{
    QFETCH(QByteArray, fin);
    QFETCH(bool, lies);
    Lit("<xrlg><arbre><personne><numero>1</numero><pere>2</pere><mere>3</mere></personne>"
        "<personne><numero>2</numero><enfant>1</enfant></personne>"
        "<personne><numero>3</numero><enfant>1</enfant></personne>"
        + fin);
    const Personne &racine = *arbre->premiere;
    QCOMPARE(racine.pere, 2U);
    QCOMPARE(racine.mere, 3U);
    QCOMPARE(racine.ptrPere, lies ? racine.suivante : nullptr);
    QCOMPARE(racine.ptrMere, lies ? arbre->derniere : nullptr);
}

void TestFicXrlgRegles::unNombreSeLitEnDecimal_data()
{
    QTest::addColumn<QByteArray>("texte");
    QTest::addColumn<quint64>("numero");
    QTest::addColumn<int>("generation");
    QTest::newRow("petit") << QByteArray("12") << quint64(12) << 12;
    QTest::newRow("des zéros devant") << QByteArray("007") << quint64(7) << 7;
    QTest::newRow("le plus grand à 16 bits") << QByteArray("65535") << quint64(65535) << 65535;
    QTest::newRow("plus de 16 bits") << QByteArray("65536") << quint64(65536) << 0;
    QTest::newRow("plus de 32 bits") << QByteArray("4294967296") << quint64(4294967296) << 0;
    QTest::newRow("le plus grand") << QByteArray("18446744073709551615") << quint64(18446744073709551615U) << 0;
    QTest::newRow("plus de 64 bits") << QByteArray("18446744073709551616") << quint64(0) << 0;
    QTest::newRow("vide") << QByteArray("") << quint64(0) << 0;
    QTest::newRow("un mot") << QByteArray("douze") << quint64(0) << 0;
    QTest::newRow("négatif") << QByteArray("-1") << quint64(0) << 0;
    QTest::newRow("hexadécimal") << QByteArray("0x10") << quint64(0) << 0;
    QTest::newRow("une puissance") << QByteArray("1e3") << quint64(0) << 0;
    QTest::newRow("une virgule") << QByteArray("1,000") << quint64(0) << 0;
    QTest::newRow("un blanc au milieu") << QByteArray("1 000") << quint64(0) << 0;
    QTest::newRow("une fraction") << QByteArray("1.5") << quint64(0) << 0;
}

void TestFicXrlgRegles::unNombreSeLitEnDecimal()
{
    QFETCH(QByteArray, texte);
    QFETCH(quint64, numero);
    QFETCH(int, generation);
    QCOMPARE(Lit("<xrlg><personne><numero>" + texte + "</numero><numerogeneration>" + texte
                 + "</numerogeneration><pere>" + texte + "</pere><mere>" + texte + "</mere><enfant>" + texte
                 + "</enfant></personne></xrlg>"),
             0);
    const Personne &personne = *arbre->premiere;
    QCOMPARE(personne.numero, numero);
    QCOMPARE(int(personne.numerogeneration), generation);
    QCOMPARE(personne.pere, numero);
    QCOMPARE(personne.mere, numero);
    QCOMPARE(personne.enfant, numero);
}

void TestFicXrlgRegles::lesTextesDeLaPageDeGardeSeLisentPartout()
{
    QCOMPARE(Lit("<xrlg><date>hors de l'arbre</date><personne><titrearbre>Titre</titrearbre><infopersonne>"
                 "<creepar>Moi</creepar><majpar>Toi</majpar><datemaj>demain</datemaj><date>hier</date>"
                 "</infopersonne></personne></xrlg>"),
             0);
    QCOMPARE(arbre->infoArbre->titrearbre, QStringLiteral("Titre"));
    QCOMPARE(arbre->infoArbre->creepar, QStringLiteral("Moi"));
    QCOMPARE(arbre->infoArbre->date, QStringLiteral("hier"));
    QCOMPARE(arbre->infoArbre->majpar, QStringLiteral("Toi"));
    QCOMPARE(arbre->infoArbre->datemaj, QStringLiteral("demain"));
    QVERIFY(arbre->premiere->estVide());
}

void TestFicXrlgRegles::unSecondInfopersonneCompleteLePremier()
{
    QCOMPARE(Lit("<xrlg><personne><infopersonne><nom>A</nom><divers>d</divers></infopersonne>"
                 "<infopersonne><nom>B</nom></infopersonne><prenom>C</prenom></personne></xrlg>"),
             0);
    const InfoPersonne &info = *arbre->premiere->info;
    QCOMPARE(info.nom, QStringLiteral("B"));
    QCOMPARE(info.divers, QStringLiteral("d"));
    QCOMPARE(info.prenom, QStringLiteral("C"));
}

void TestFicXrlgRegles::laPhotoSeChargeALaFinDesInformations_data()
{
    QTest::addColumn<QByteArray>("contenu");
    QTest::addColumn<int>("etat");
    QTest::newRow("présente") << QByteArray("<infopersonne><ficphoto>p.png</ficphoto></infopersonne>") << 1;
    QTest::newRow("dans un sous-dossier")
        << QByteArray("<infopersonne><ficphoto>d/p.png</ficphoto></infopersonne>") << 1;
    QTest::newRow("absente") << QByteArray("<infopersonne><ficphoto>q.png</ficphoto></infopersonne>") << 0;
    QTest::newRow("pas une image") << QByteArray("<infopersonne><ficphoto>a.xrlg</ficphoto></infopersonne>") << 0;
    QTest::newRow("un dossier") << QByteArray("<infopersonne><ficphoto>d</ficphoto></infopersonne>") << 0;
    QTest::newRow("d'un blanc") << QByteArray("<infopersonne><ficphoto> </ficphoto></infopersonne>") << 0;
    QTest::newRow("aucune") << QByteArray("<infopersonne><ficphoto></ficphoto></infopersonne>") << -1;
    QTest::newRow("sans informations") << QByteArray("<ficphoto>p.png</ficphoto>") << -1;
    QTest::newRow("nommée trop tard") << QByteArray("<infopersonne/><ficphoto>p.png</ficphoto>") << -1;
    QTest::newRow("nommée la seconde fois")
        << QByteArray("<infopersonne/><infopersonne><ficphoto>p.png</ficphoto></infopersonne>") << 1;
}

void TestFicXrlgRegles::laPhotoSeChargeALaFinDesInformations()
{
    QFETCH(QByteArray, contenu);
    QFETCH(int, etat);
    QImage image(4, 3, QImage::Format_RGB32);
    image.fill(Qt::red);
    QVERIFY(QDir(repertoire).mkdir(QStringLiteral("d")));
    QVERIFY(image.save(Chemin(QStringLiteral("p.png"))));
    QVERIFY(image.save(Chemin(QStringLiteral("d/p.png"))));
    QCOMPARE(Lit("<xrlg><personne>" + contenu + "</personne></xrlg>"), 0);
    QCOMPARE(messages, QStringList());
    const InfoPersonne &info = *arbre->premiere->info;
    QCOMPARE(info.etatPhoto, etat);
    QCOMPARE(info.photo.size(), etat == 1 ? QSize(4, 3) : QSize(0, 0));
}

void TestFicXrlgRegles::leMemeArbreRevient_data()
{
    QTest::addColumn<quint32>("graine");
    for (quint32 graine = 1; graine <= 30; ++graine)
        QTest::addRow("graine %u", graine) << graine;
}

void TestFicXrlgRegles::leMemeArbreRevient()
{
    QFETCH(quint32, graine);
    static const QStringList mots{QString(),      "Élodie",    "LEFÈVRE",    " Œuvrard ",    "né le 1er mai",
                                  "deux\nlignes", "« 7bre »",  "孔子",       "quote \" ' ",  "Ÿ à ç ù ï",
                                  "1 > 0",        "an III, 😀", "\tSaint-Lô", "n° 5 ; 50 %1", "\u00A0~"};
    std::mt19937 tirage(graine);
    const auto mot = [&] { return mots.at(qsizetype(tirage() % unsigned(mots.size()))); };
    const auto original = ArbreAuHasard({.graine = graine, .personnes = 40, .generationsEnTrop = int(graine % 3)});
    *original->infoArbre = {mot(), mot(), mot(), mot(), mot()};
    for (Personne *personne = original->premiere; personne; personne = personne->suivante) {
        delete personne->info;
        personne->info = new InfoPersonne(mot(), mot(), mot(), mot(), mot(), mot(), mot(), mot(), QString(), -1);
    }
    const QString premier = Chemin(QStringLiteral("1.xrlg"));
    const QString second = Chemin(QStringLiteral("2.xrlg"));
    QVERIFY(writeFicXRLG(premier, original.get()));
    Arbre relu;
    QCOMPARE(readFicXRLG(premier, repertoire, &relu), 0);

    QCOMPARE(relu.infoArbre->titrearbre, original->infoArbre->titrearbre);
    QCOMPARE(relu.infoArbre->datemaj, original->infoArbre->datemaj);
    QCOMPARE(relu.nombreGenerations, original->nombreGenerations);
    const Personne *lue = relu.premiere;
    for (const Personne *ecrite = original->premiere; ecrite; ecrite = ecrite->suivante, lue = lue->suivante) {
        QVERIFY(lue);
        QCOMPARE(lue->numero, ecrite->numero);
        QCOMPARE(lue->numerogeneration, ecrite->numerogeneration);
        for (const auto texte : {&InfoPersonne::nom, &InfoPersonne::prenom, &InfoPersonne::datenaissance,
                                 &InfoPersonne::lieunaissance, &InfoPersonne::datedeces, &InfoPersonne::lieudeces,
                                 &InfoPersonne::divers, &InfoPersonne::fichtml, &InfoPersonne::ficphoto})
            QCOMPARE(lue->info->*texte, ecrite->info->*texte);
        QCOMPARE(lue->ptrPere ? lue->ptrPere->numero : 0, ecrite->pere);
        QCOMPARE(lue->ptrMere ? lue->ptrMere->numero : 0, ecrite->mere);
    }
    QVERIFY(!lue);

    // Written again, only the doubled count differs.
    QVERIFY(writeFicXRLG(second, &relu));
    const QList<QByteArray> lignes = Contenu(premier).split('\n');
    const QList<QByteArray> lignesEncore = Contenu(second).split('\n');
    QCOMPARE(lignesEncore.size(), lignes.size());
    for (qsizetype i = 0; i < lignes.size(); ++i) {
        if (lignes.at(i).startsWith("    <nombrepersonnes>"))
            QCOMPARE(lignesEncore.at(i),
                     "    <nombrepersonnes>" + QByteArray::number(2 * original->nombrePersonnes)
                         + "</nombrepersonnes>");
        else
            QCOMPARE(lignesEncore.at(i), lignes.at(i));
    }
}

RAMELIER_TEST_MAIN(QGuiApplication, TestFicXrlgRegles)
#include "tst_ficxrlg_regles.moc"
