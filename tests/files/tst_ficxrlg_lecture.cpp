#include "arbre.h"
#include "arbres.h"
#include "environnement.h"
#include "ficxrlg.h"
#include "infopersonne.h"
#include "lecturexrlg.h"
#include "personne.h"

#include <QBuffer>
#include <QGuiApplication>
#include <QImage>

#include <random>

/// readFicXRLG: what comes out of good, odd, damaged and hostile tree files.
class TestFicXrlgLecture : public QObject, private LectureXrlg
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase() { Ecoute(); }
    void init() { Recommence(); }
    void litUnArbreComplet();
    void litUnArbreVide();
    void lesTextesRestentCommeTapes();
    void refuse_data();
    void refuse();
    void accepteSansVersion_data();
    void accepteSansVersion();
    void lesBalisesHorsDeLeurPlaceNeFontRien_data();
    void lesBalisesHorsDeLeurPlaceNeFontRien();
    void lesNombresQuiNEnSontPasValentZero();
    void chargeLesPhotos();
    void unFichierAbsentSeDit();
    void gardeLesPersonnesDAvantLErreur();
    void refuseTropDImbrications_data();
    void refuseTropDImbrications();
    void lesBombesDEntitesSontArretees();
    void unFichierTronqueNeFaitRienDeGrave();
    void desOctetsAuHasardNeFontRienDeGrave();
    void ecritPuisLitLaMemeChose();
};

namespace {

const QByteArray famille = R"(<?xml version="1.0" encoding="UTF-8"?>
<!DOCTYPE xrlg>
<xrlg version="1.0">
  <arbre>
    <infoarbre>
      <titrearbre>Famille Lefèvre</titrearbre>
      <creepar>Zoé</creepar>
      <date>1er mai</date>
      <majpar>Éric</majpar>
      <datemaj>2 mai</datemaj>
    </infoarbre>
    <nombrepersonnes>3</nombrepersonnes>
    <personne>
      <numero>1</numero>
      <numerogeneration>0</numerogeneration>
      <pere>2</pere>
      <mere>3</mere>
      <enfant>0</enfant>
      <infopersonne>
        <nom>LEFÈVRE</nom>
        <prenom>Anne</prenom>
        <datenaissance>ca 1760</datenaissance>
        <lieunaissance>Pau</lieunaissance>
        <datedeces>7bre 1800</datedeces>
        <lieudeces>Gap</lieudeces>
        <divers>tisserande</divers>
        <fichtml>anne.html</fichtml>
      </infopersonne>
    </personne>
    <personne>
      <numero>2</numero>
      <numerogeneration>1</numerogeneration>
      <pere>0</pere>
      <mere>0</mere>
      <enfant>1</enfant>
      <infopersonne>
        <nom>LEFÈVRE</nom>
      </infopersonne>
    </personne>
    <personne>
      <numero>3</numero>
      <numerogeneration>1</numerogeneration>
      <pere>0</pere>
      <mere>0</mere>
      <enfant>1</enfant>
      <infopersonne>
      </infopersonne>
    </personne>
    <nombregenerations>2</nombregenerations>
  </arbre>
</xrlg>
)";

}  // namespace

void TestFicXrlgLecture::litUnArbreComplet()
{
    QCOMPARE(Lit(famille), 0);
    QCOMPARE(messages, QStringList());
    QCOMPARE(arbre->infoArbre->titrearbre, QStringLiteral("Famille Lefèvre"));
    QCOMPARE(arbre->infoArbre->creepar, QStringLiteral("Zoé"));
    QCOMPARE(arbre->infoArbre->date, QStringLiteral("1er mai"));
    QCOMPARE(arbre->infoArbre->majpar, QStringLiteral("Éric"));
    QCOMPARE(arbre->infoArbre->datemaj, QStringLiteral("2 mai"));
    // The written count plus the persons read.
    QCOMPARE(arbre->nombrePersonnes, 6U);
    QCOMPARE(arbre->nombreGenerations, 2);
    QCOMPARE(ArbreEnTexte(*arbre), QStringLiteral("1 Anne LEFÈVRE\n  2 LEFÈVRE\n  3\n"));
    const Personne &anne = *arbre->premiere;
    QCOMPARE(anne.ptrPere, Trouve(*arbre, 2));
    QCOMPARE(anne.ptrMere, Trouve(*arbre, 3));
    QCOMPARE(arbre->derniere->enfant, 1U);
    const InfoPersonne &info = *anne.info;
    QCOMPARE(info.datenaissance, QStringLiteral("ca 1760"));
    QCOMPARE(info.lieunaissance, QStringLiteral("Pau"));
    QCOMPARE(info.datedeces, QStringLiteral("7bre 1800"));
    QCOMPARE(info.lieudeces, QStringLiteral("Gap"));
    QCOMPARE(info.divers, QStringLiteral("tisserande"));
    QCOMPARE(info.fichtml, QStringLiteral("anne.html"));
    QCOMPARE(info.ficphoto, QString());
    QCOMPARE(info.etatPhoto, -1);
}

void TestFicXrlgLecture::litUnArbreVide()
{
    QCOMPARE(Lit("<xrlg><arbre><infoarbre><titrearbre></titrearbre></infoarbre><nombrepersonnes>0</nombrepersonnes>"
                 "<nombregenerations>0</nombregenerations></arbre></xrlg>"),
             0);
    QVERIFY(!arbre->premiere);
    QCOMPARE(arbre->nombrePersonnes, 0U);
    QCOMPARE(arbre->infoArbre->titrearbre, QString());
}

void TestFicXrlgLecture::lesTextesRestentCommeTapes()
{
    QCOMPARE(Lit("<xrlg>\r\n<personne><infopersonne><nom>  A  B </nom><divers>un\ndeux &amp; &lt;</divers>"
                 "</infopersonne></personne><creepar> moi </creepar></xrlg>"),
             0);
    QCOMPARE(arbre->premiere->info->nom, QStringLiteral("  A  B "));
    QCOMPARE(arbre->premiere->info->divers, QStringLiteral("un\ndeux & <"));
    QCOMPARE(arbre->infoArbre->creepar, QStringLiteral(" moi "));
}

void TestFicXrlgLecture::refuse_data()
{
    QTest::addColumn<QByteArray>("contenu");
    QTest::addColumn<QString>("message");
    QTest::newRow("autre racine") << QByteArray("<html>\n<body/></html>")
                                  << "1, colonne 6:\nLe fichier n'est pas un fichier XRLG.";
    QTest::newRow("version") << QByteArray("<?xml version=\"1.0\"?>\n<xrlg version=\"2.0\">\n</xrlg>")
                             << "2, colonne 20:\nLe fichier n'est pas un fichier XRLG version 1.0.";
    QTest::newRow("esperluette") << QByteArray("<xrlg>\n<nom>A & B</nom></xrlg>") << "2, colonne 9:\n";
    QTest::newRow("vide") << QByteArray() << "1, colonne ";
    QTest::newRow("coupe") << QByteArray("<xrlg>\n<arbre>") << "2, colonne ";
}

void TestFicXrlgLecture::refuse()
{
    QFETCH(QByteArray, contenu);
    QFETCH(QString, message);
    QCOMPARE(Lit(contenu), 2);
    QCOMPARE(messages.size(), 1);
    const QString attendu = QStringLiteral("information|Arbre XRLG|Erreur de syntaxe ligne ") + message;
    QCOMPARE(message.endsWith(u'.') ? messages.first() : messages.first().left(attendu.size()), attendu);
    QVERIFY(!arbre->premiere);
}

void TestFicXrlgLecture::accepteSansVersion_data()
{
    QTest::addColumn<QByteArray>("contenu");
    QTest::newRow("sans") << QByteArray("<xrlg><creepar>x</creepar></xrlg>");
    QTest::newRow("vide") << QByteArray("<xrlg version=\"\"><creepar>x</creepar></xrlg>");
    QTest::newRow("1.0") << QByteArray("<xrlg version=\"1.0\"><creepar>x</creepar></xrlg>");
}

void TestFicXrlgLecture::accepteSansVersion()
{
    QFETCH(QByteArray, contenu);
    QCOMPARE(Lit(contenu), 0);
    QCOMPARE(arbre->infoArbre->creepar, QStringLiteral("x"));
}

void TestFicXrlgLecture::lesBalisesHorsDeLeurPlaceNeFontRien_data()
{
    QTest::addColumn<QByteArray>("contenu");
    QTest::addColumn<QString>("personnes");
    QTest::newRow("nom hors d'une personne") << QByteArray("<nom>A</nom><numero>7</numero>") << "";
    QTest::newRow("nom avant infopersonne") << QByteArray("<personne><nom>A</nom></personne>") << "0\n";
    QTest::newRow("sans infopersonne") << QByteArray("<personne><numero>1</numero></personne>") << "1\n";
    QTest::newRow("deux infopersonne") << QByteArray(
        "<personne><infopersonne><nom>A</nom></infopersonne><infopersonne><prenom>B</prenom>"
        "</infopersonne></personne>") << "0 B A\n";
    QTest::newRow("personne dans une personne")
        << QByteArray("<personne><numero>1</numero><personne><numero>2</numero></personne></personne>") << "2\n";
    QTest::newRow("balises inconnues") << QByteArray("<chien/><personne><chat>3</chat></personne>") << "0\n";
    QTest::newRow("majuscules") << QByteArray("<Personne></Personne>") << "";
    QTest::newRow("racine dans la racine") << QByteArray("<xrlg><personne/></xrlg>") << "0\n";
}

void TestFicXrlgLecture::lesBalisesHorsDeLeurPlaceNeFontRien()
{
    QFETCH(QByteArray, contenu);
    QFETCH(QString, personnes);
    QCOMPARE(Lit("<xrlg>" + contenu + "</xrlg>"), 0);
    QCOMPARE(ArbreEnTexte(*arbre), personnes);
    QVERIFY(!arbre->premiere || arbre->premiere->info);
}

void TestFicXrlgLecture::lesNombresQuiNEnSontPasValentZero()
{
    QCOMPARE(Lit("<xrlg><nombrepersonnes>beaucoup</nombrepersonnes><personne><numero>un</numero>"
                 "<numerogeneration>70000</numerogeneration><pere>-2</pere><mere>18446744073709551616</mere>"
                 "<enfant></enfant></personne><nombregenerations>65536</nombregenerations></xrlg>"),
             0);
    const Personne &personne = *arbre->premiere;
    QCOMPARE(personne.numero, 0U);
    QCOMPARE(personne.numerogeneration, 0);
    QCOMPARE(personne.pere, 0U);
    QCOMPARE(personne.mere, 0U);
    QCOMPARE(personne.enfant, 0U);
    QCOMPARE(arbre->nombrePersonnes, 1U);
    QCOMPARE(arbre->nombreGenerations, 0);
}

void TestFicXrlgLecture::chargeLesPhotos()
{
    QImage image(4, 3, QImage::Format_RGB32);
    image.fill(Qt::red);
    QVERIFY(image.save(Chemin(QStringLiteral("p.png"))));
    QCOMPARE(Lit("<xrlg><personne><infopersonne><ficphoto>p.png</ficphoto></infopersonne></personne>"
                 "<personne><infopersonne><ficphoto>absente.png</ficphoto></infopersonne></personne>"
                 "<personne><infopersonne></infopersonne></personne></xrlg>"),
             0);
    const Personne *personne = arbre->premiere;
    QCOMPARE(personne->info->etatPhoto, 1);
    QCOMPARE(personne->info->photo.size(), QSize(4, 3));
    QCOMPARE(personne->suivante->info->etatPhoto, 0);
    QCOMPARE(personne->suivante->suivante->info->etatPhoto, -1);
    QCOMPARE(messages, QStringList());
}

void TestFicXrlgLecture::unFichierAbsentSeDit()
{
    const QString chemin = Chemin(QStringLiteral("rien.xrlg"));
    Arbre vide;
    QString repertoire = dossier->path();
    QCOMPARE(readFicXRLG(chemin, repertoire, &vide), 1);
    QCOMPARE(messages,
             QStringList{QStringLiteral("avertissement|Arbre XRLG|Impossible de lire le fichier ") + chemin
                         + QStringLiteral(":\nNo such file or directory.")});
}

void TestFicXrlgLecture::gardeLesPersonnesDAvantLErreur()
{
    QCOMPARE(Lit("<xrlg><personne><numero>1</numero></personne><personne><numero>2</numero></nom>"), 2);
    QCOMPARE(NumerosEnTexte(*arbre), QStringLiteral("1"));
}

void TestFicXrlgLecture::refuseTropDImbrications_data()
{
    QTest::addColumn<int>("niveaux");
    QTest::addColumn<int>("resultat");
    QTest::newRow("200") << 199 << 0;
    QTest::newRow("201") << 200 << 2;
    QTest::newRow("100000") << 100'000 << 2;
}

void TestFicXrlgLecture::refuseTropDImbrications()
{
    QFETCH(int, niveaux);
    QFETCH(int, resultat);
    QByteArray contenu = "<xrlg>";
    for (int i = 0; i < niveaux; ++i)
        contenu += "<a>";
    for (int i = 0; i < niveaux; ++i)
        contenu += "</a>";
    QCOMPARE(Lit(contenu + "</xrlg>"), resultat);
    if (resultat == 2)
        QVERIFY(messages.first().endsWith(QStringLiteral("\nLe fichier n'est pas un fichier XRLG.")));
}

void TestFicXrlgLecture::lesBombesDEntitesSontArretees()
{
    QByteArray contenu = "<!DOCTYPE xrlg [<!ENTITY a \"aaaaaaaaaaaaaaaaaaaa\">";
    for (char c = 'b'; c <= 'n'; ++c) {
        const QByteArray precedente = QByteArray("&") + char(c - 1) + ";";
        contenu += QByteArray("<!ENTITY ") + c + " \"" + precedente.repeated(10) + "\">";
    }
    contenu += "]><xrlg><creepar>&n;</creepar></xrlg>";
    QCOMPARE(Lit(contenu), 2);
    QCOMPARE(messages.size(), 1);
}

void TestFicXrlgLecture::unFichierTronqueNeFaitRienDeGrave()
{
    for (qsizetype taille = 0; taille < famille.size() - 1; ++taille) {
        const int resultat = Lit(famille.left(taille));
        QVERIFY2(resultat == 2, qPrintable(QString::number(taille)));
        QVERIFY(NumerosEnTexte(*arbre) != QStringLiteral("liste brisée"));
    }
    QCOMPARE(Lit(famille.left(famille.size() - 1)), 0);
}

void TestFicXrlgLecture::desOctetsAuHasardNeFontRienDeGrave()
{
    std::mt19937 tirage(20261120);
    for (int essai = 0; essai < 300; ++essai) {
        QByteArray contenu = famille;
        for (unsigned i = 0; i < 1 + tirage() % 8; ++i)
            contenu[qsizetype(tirage() % unsigned(contenu.size()))] = char(tirage() % 256);
        const int resultat = Lit(contenu);
        QVERIFY2(resultat == 0 || resultat == 2, qPrintable(QString::number(essai)));
        QCOMPARE(messages.isEmpty(), resultat == 0);
        messages.clear();
    }
}

void TestFicXrlgLecture::ecritPuisLitLaMemeChose()
{
    for (quint32 graine = 1; graine <= 50; ++graine) {
        const auto original = ArbreAuHasard({.graine = graine, .personnes = 60});
        for (Personne *personne = original->premiere; personne; personne = personne->suivante) {
            personne->info->prenom = QStringLiteral("Élodie Œuvrard-Þór");
            personne->info->divers = QStringLiteral("né le\n« 3 »");
        }
        const quint64 nombre = original->nombrePersonnes;
        QBuffer tampon;
        QVERIFY(tampon.open(QIODevice::WriteOnly));
        QVERIFY(EcritArbreXRLG(tampon, *original));
        QCOMPARE(Lit(tampon.data()), 0);
        QCOMPARE(ArbreEnTexte(*arbre), ArbreEnTexte(*original));
        QCOMPARE(arbre->nombrePersonnes, 2 * nombre);
        arbre->nombrePersonnes = nombre;
        QBuffer encore;
        QVERIFY(encore.open(QIODevice::WriteOnly));
        QVERIFY(EcritArbreXRLG(encore, *arbre));
        QCOMPARE(encore.data(), tampon.data());
    }
}

RAMELIER_TEST_MAIN(QGuiApplication, TestFicXrlgLecture)
#include "tst_ficxrlg_lecture.moc"
