#include "arbresdifficiles.h"
#include "environnement.h"
#include "executecli.h"
#include "fichierrlg.h"

#include <QFile>
#include <QGuiApplication>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QTemporaryDir>

/// ramelier-cli verifier: the built program, what it says and its exit status.
class TestVerifier : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void neDitRienDUnBonArbre();
    void lesAieuxDUnRoiSontParents();
    void ditUneLigneParDefaut();
    void lesComptes_data();
    void lesComptes();
    void uneRemarqueNeComptePas();
    void ceQuiNeSeLitPas_data();
    void ceQuiNeSeLitPas();
    void unAncienArbre();
    void unGEDCOM();
    void plusieursFichiers();
    void enJson();
    void mauvaisUsage();
    void sonAide();

private:
    [[nodiscard]] QString Chemin(const QString &nom) const { return dossier->filePath(nom); }
    QString Ecrit(const QString &nom, const QByteArray &contenu) const;

    std::unique_ptr<QTemporaryDir> dossier;
};

void TestVerifier::init()
{
    dossier = std::make_unique<QTemporaryDir>();
    QVERIFY(dossier->isValid());
}

QString TestVerifier::Ecrit(const QString &nom, const QByteArray &contenu) const
{
    QFile fichier(Chemin(nom));
    return fichier.open(QIODevice::WriteOnly) && fichier.write(contenu) == contenu.size() ? Chemin(nom) : QString();
}

void TestVerifier::neDitRienDUnBonArbre()
{
    const Resultat resultat = Execute({"verifier", Ecrit("a.xrlg", OctetsDe(*ArbreComplet(5)))});
    QCOMPARE(resultat.sortie, QString());
    QCOMPARE(resultat.erreur, QString());
    QCOMPARE(resultat.code, 0);
}

void TestVerifier::lesAieuxDUnRoiSontParents()
{
    const QString nom = RAMELIER_EXEMPLES "/louis-xiv.xrlg";
    const Resultat resultat = Execute({"verifier", nom});
    QCOMPARE(
        resultat.sortie,
        QString("%1 : n° 28 : remarque : même personne que le n° 22 (implexe) : Ferdinand Ier HABSBOURG, 10 mars 1503\n"
                "%1 : n° 29 : remarque : même personne que le n° 23 (implexe) : Anne JAGELLON, 23 juillet 1503\n")
            .arg(nom));
    QCOMPARE(resultat.erreur, QString());
    QCOMPARE(resultat.code, 0);
}

void TestVerifier::ditUneLigneParDefaut()
{
    const auto arbre = ArbreDeNumeros({1, 2, 3});
    arbre->premiere->mere = 0;
    arbre->premiere->info->ficphoto = "p\nq.jpg";
    const QString nom = Ecrit("a.xrlg", OctetsDe(*arbre));
    const Resultat resultat = Execute({"verifier", nom});
    QCOMPARE(resultat.sortie, nom + " : n° 1 : mère 0 au lieu de 3\n" + nom + " : n° 1 : photo absente : p q.jpg\n");
    QCOMPARE(resultat.erreur, QString());
    QCOMPARE(resultat.code, 1);
}

void TestVerifier::lesComptes_data()
{
    QTest::addColumn<quint64>("personnes");
    QTest::addColumn<unsigned short>("generations");
    QTest::addColumn<QString>("constat");
    QTest::addColumn<int>("code");
    const auto cas = [](const char *nom, quint64 personnes, unsigned short generations, const char *constat, int code) {
        QTest::newRow(nom) << personnes << generations << QString(constat) << code;
    };
    cas("trop peu de personnes", 2, 2, "nombre de personnes : 2 au lieu de 3", 1);
    cas("trop de personnes", 6, 2, "remarque : nombre de personnes : 6 au lieu de 3", 0);
    cas("trop peu de générations", 3, 1, "nombre de générations : 1 au lieu de 2", 1);
    cas("trop de générations", 3, 3, "remarque : nombre de générations : 3 au lieu de 2", 0);
}

void TestVerifier::lesComptes()
{
    QFETCH(const quint64, personnes);
    QFETCH(const unsigned short, generations);
    QFETCH(const QString, constat);
    QFETCH(const int, code);
    const auto arbre = ArbreDeNumeros({1, 2, 3});
    arbre->nombrePersonnes = personnes;
    arbre->nombreGenerations = generations;
    const QString nom = Ecrit("a.xrlg", OctetsDe(*arbre));
    const Resultat resultat = Execute({"verifier", nom});
    QCOMPARE(resultat.sortie, nom + " : " + constat + u'\n');
    QCOMPARE(resultat.code, code);
}

void TestVerifier::uneRemarqueNeComptePas()
{
    const auto arbre = ArbreDeNumeros({1, 2, 3});
    for (Personne *parent : {Trouve(*arbre, 2), Trouve(*arbre, 3)}) {
        parent->info->nom = "DUPONT";
        parent->info->prenom = "Dominique";
        parent->info->datenaissance = "1850";
    }
    const QString nom = Ecrit("a.xrlg", OctetsDe(*arbre));
    const Resultat resultat = Execute({"verifier", nom});
    QCOMPARE(resultat.sortie,
             nom + " : n° 3 : remarque : même personne que le n° 2 (implexe) : Dominique DUPONT, 1850\n");
    QCOMPARE(resultat.code, 0);
}

void TestVerifier::ceQuiNeSeLitPas_data()
{
    QTest::addColumn<QString>("nom");
    QTest::addColumn<QByteArray>("contenu");
    QTest::addColumn<QString>("constat");
    const auto arbre = ArbreDeNumeros({1});
    arbre->premiere->info->nom = "A & B";
    QTest::newRow("texte") << "a.xrlg" << OctetsDe(*arbre) << "ligne 16, colonne 17 : une lettre est attendue";
    QTest::newRow("autre chose") << "a.xrlg" << QByteArray("<html/>")
                                 << "ligne 1, colonne 6 : Le fichier n'est pas un fichier XRLG.";
    QTest::newRow("vide") << "a.xrlg" << QByteArray() << "ligne 1, colonne 1 : fin de fichier inattendue";
    QTest::newRow("ancien") << "a.rlg" << QByteArray("bonjour") << "ce n'est pas un ancien arbre";
    QTest::newRow("GEDCOM") << "a.ged" << QByteArray("0 HEAD\n0 TRLR\n") << "aucun individu";
    QTest::newRow("autre nom") << "a.txt" << QByteArray("bonjour")
                               << "ce n'est pas un arbre : le nom doit se terminer par .xrlg, .rlg ou .ged";
}

void TestVerifier::ceQuiNeSeLitPas()
{
    QFETCH(const QString, nom);
    QFETCH(const QByteArray, contenu);
    QFETCH(const QString, constat);
    const QString chemin = Ecrit(nom, contenu);
    const Resultat resultat = Execute({"verifier", chemin});
    QCOMPARE(resultat.sortie, chemin + " : " + constat + u'\n');
    QCOMPARE(resultat.code, 1);
}

void TestVerifier::unAncienArbre()
{
    FichierRlg ancien{.page = {"Les Martin"}};
    ancien.Ajoute({.numero = 1, .mere = 3, .textes = {"MARTIN", "Paul", "1850", "", "1849"}});
    const QString nom = Ecrit("a.rlg", ancien.Octets());
    const Resultat resultat = Execute({"verifier", nom});
    QCOMPARE(resultat.sortie,
             nom + " : n° 1 : mère 3 au lieu de 0\n" + nom + " : n° 1 : décès (1849) avant la naissance (1850)\n");
    QCOMPARE(resultat.code, 1);
}

void TestVerifier::unGEDCOM()
{
    const QString nom = Ecrit("a.GED", "0 HEAD\n0 @I1@ INDI\n1 FAMC @F9@\n0 TRLR\n");
    const Resultat resultat = Execute({"verifier", nom});
    QCOMPARE(resultat.sortie, nom + " : @I1@ : la famille @F9@ manque\n");
    QCOMPARE(resultat.code, 1);
}

void TestVerifier::plusieursFichiers()
{
    const QString bon = Ecrit("bon.xrlg", OctetsDe(*ArbreComplet(3)));
    const Resultat resultat = Execute({"verifier", Chemin("absent.xrlg"), bon, Chemin("rien.ged")});
    QCOMPARE(resultat.sortie,
             Chemin("absent.xrlg") + " : le fichier n'existe pas\n" + Chemin("rien.ged")
                 + " : le fichier n'existe pas\n");
    QCOMPARE(resultat.code, 1);
}

void TestVerifier::enJson()
{
    QList<quint64> numeros;
    for (quint64 numero = 1; numero != 0; numero *= 2)
        numeros += numero;
    const auto arbre = ArbreDeNumeros(numeros);
    arbre->derniere->info->fichtml = "\"a\\b\".html";
    arbre->nombrePersonnes = 100;
    const QString nom = Ecrit("a.xrlg", OctetsDe(*arbre));
    const Resultat resultat = Execute({"verifier", "--json", nom, Chemin("b.xrlg")});
    QCOMPARE(
        resultat.sortie,
        QString("[\n{\"fichier\":\"%1\",\"gravite\":\"erreur\",\"numero\":9223372036854775808,"
                "\"texte\":\"fiche absente : \\\"a\\\\b\\\".html\"},\n"
                "{\"fichier\":\"%1\",\"gravite\":\"remarque\",\"texte\":\"nombre de personnes : 100 au lieu de 64\"},\n"
                "{\"fichier\":\"%2\",\"gravite\":\"erreur\",\"texte\":\"le fichier n'existe pas\"}\n]\n")
            .arg(nom, Chemin("b.xrlg")));
    QCOMPARE(resultat.code, 1);
    const QJsonArray lus = QJsonDocument::fromJson(resultat.sortie.toUtf8()).array();
    QCOMPARE(lus.size(), 3);
    QCOMPARE(lus.at(0).toObject().value("texte").toString(), QString("fiche absente : \"a\\b\".html"));
    const QString ged = Ecrit("a.ged", "0 HEAD\n0 @I1@ INDI\n1 FAMC @F9@\n0 TRLR\n");
    const QString html = Ecrit("h.xrlg", "<html/>");
    QCOMPARE(
        Execute({"verifier", ged, html, "--json"}).sortie,
        QString(
            "[\n{\"fichier\":\"%1\",\"gravite\":\"erreur\",\"fiche\":\"@I1@\",\"texte\":\"la famille @F9@ manque\"},\n"
            "{\"fichier\":\"%2\",\"gravite\":\"erreur\",\"ligne\":1,\"colonne\":6,"
            "\"texte\":\"Le fichier n'est pas un fichier XRLG.\"}\n]\n")
            .arg(ged, html));
    QCOMPARE(Execute({"verifier", "--json", Ecrit("bon.xrlg", OctetsDe(*ArbreComplet(2)))}).sortie, QString("[]\n"));
}

void TestVerifier::mauvaisUsage()
{
    const Resultat resultat = Execute({"verifier"});
    QCOMPARE(resultat.erreur,
             QString("ramelier-cli : verifier demande : FICHIER...\nEssayez « ramelier-cli verifier --help ».\n"));
    QCOMPARE(resultat.code, 2);
}

void TestVerifier::sonAide()
{
    const Resultat resultat = Execute({"verifier", "--help"});
    QCOMPARE(resultat.code, 0);
    QVERIFY(resultat.sortie.startsWith("Usage : ramelier-cli verifier [options] FICHIER...\n"
                                       "dit ce qui est faux ou étrange dans des arbres : .xrlg, .rlg ou .ged\n"));
    QVERIFY(resultat.sortie.contains("--json"));
    QVERIFY(Execute({"--help"}).sortie.contains("  verifier FICHIER...\n"));
}

RAMELIER_TEST_MAIN(QGuiApplication, TestVerifier)
#include "tst_verifier.moc"
