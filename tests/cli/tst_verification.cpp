#include "arbresdifficiles.h"
#include "environnement.h"
#include "gedcomfiches.h"
#include "verification.h"

#include <QGuiApplication>
#include <QTemporaryDir>

/// What is wrong or odd in trees and in GEDCOM files.
class TestVerification : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void rienADire();
    void lesNombres();
    void lOrdreEtLesDoubles();
    void lesDates();
    void lesDatesDesParents();
    void lesImplexes();
    void lesPhotosEtLesFiches();
    void lesGrandsNumeros();
    void unGEDCOMSansDefaut();
    void lesLiensDUnGEDCOM();
    void lesDatesDUnGEDCOM();
    void lesBouclesDUnGEDCOM();
    void uneLongueLigneeTient();
};

namespace {

/// "!2 texte" for an error, "?2 texte" for a remark.
SurConstat Dans(QStringList &liste)
{
    return [&liste](const Constat &constat) {
        QString ligne = constat.gravite == Constat::Gravite::Erreur ? QStringLiteral("!") : QStringLiteral("?");
        ligne += constat.numero > 0 ? QString::number(constat.numero) : constat.fiche;
        liste += ligne + u' ' + constat.texte;
    };
}

QStringList DeLArbre(const Arbre &arbre, const QString &dossier = "/nulle-part")
{
    QStringList liste;
    VerifieUnArbre(arbre, dossier, Dans(liste));
    return liste;
}

QStringList DuGEDCOM(const QByteArray &octets)
{
    QStringList liste;
    const FichesGED fiches(octets);
    VerifieDesFiches(fiches, Dans(liste));
    return liste;
}

}  // namespace

void TestVerification::rienADire()
{
    const auto arbre = ArbreComplet(4);
    arbre->premiere->info->datenaissance = "12/03/1850";
    arbre->premiere->info->datedeces = "vers 1850";
    QCOMPARE(DeLArbre(*arbre), QStringList());
    QCOMPARE(DeLArbre(Arbre()), QStringList{"? aucune personne"});
}

void TestVerification::lesNombres()
{
    const auto arbre = ArbreDeNumeros({1, 2, 3, 5, 12});
    Trouve(*arbre, 2)->pere = 4;
    Trouve(*arbre, 2)->mere = 0;
    Trouve(*arbre, 3)->enfant = 2;
    Trouve(*arbre, 5)->numerogeneration = 5;
    QCOMPARE(DeLArbre(*arbre),
             (QStringList{"!2 père 4 au lieu de 0", "!2 mère 0 au lieu de 5", "!3 enfant 2 au lieu de 1",
                          "!5 génération 5 au lieu de 2", "!12 son enfant, le n° 6, manque"}));
}

void TestVerification::lOrdreEtLesDoubles()
{
    const auto arbre = ArbreDeNumeros({1, 2, 3, 4});
    Trouve(*arbre, 3)->info->prenom = "Anne";
    Trouve(*arbre, 3)->numero = 0;
    arbre->premiere->mere = 0;
    Trouve(*arbre, 4)->enfant = 1;
    Trouve(*arbre, 4)->numerogeneration = 1;
    Trouve(*arbre, 4)->numero = 2;
    Trouve(*arbre, 2)->pere = 0;
    QCOMPARE(DeLArbre(*arbre),
             (QStringList{"!2 numéro porté par 2 personnes", "! une personne n'a pas de numéro : Anne N3"}));
    const auto autre = ArbreDeNumeros({1, 2, 3});
    std::swap(autre->premiere->suivante->numero, autre->derniere->numero);
    QCOMPARE(DeLArbre(*autre), QStringList{"!2 après le n° 3 : les numéros ne se suivent pas"});
}

void TestVerification::lesDates()
{
    const auto arbre = ArbreDeNumeros({1, 2, 3});
    arbre->premiere->info->datenaissance = "31/02/1850";
    arbre->premiere->info->datedeces = "31 avril 1900";
    Trouve(*arbre, 2)->info->datenaissance = "12 mars 1820";
    Trouve(*arbre, 2)->info->datedeces = "avant 1820";
    QCOMPARE(
        DeLArbre(*arbre),
        (QStringList{"!1 date de naissance impossible : 31/02/1850", "!1 date de décès impossible : 31 avril 1900"}));
    Trouve(*arbre, 2)->info->datedeces = "avant 1819";
    QCOMPARE(DeLArbre(*arbre).last(), QString("!2 décès (avant 1819) avant la naissance (12 mars 1820)"));
}

void TestVerification::lesDatesDesParents()
{
    const auto arbre = ArbreDeNumeros({1, 2, 3});
    arbre->premiere->info->datenaissance = "1850";
    Trouve(*arbre, 2)->info->datenaissance = "1851";
    Trouve(*arbre, 3)->info->datenaissance = "1850";
    QCOMPARE(DeLArbre(*arbre), QStringList{"!2 naissance (1851) après celle de son enfant, le n° 1 (1850)"});
}

void TestVerification::lesImplexes()
{
    const auto arbre = ArbreComplet(3);
    const auto nomme = [&](quint64 numero, const char *nom, const char *naissance, const char *lieu) {
        InfoPersonne &info = *Trouve(*arbre, numero)->info;
        info.nom = nom;
        info.prenom = "Jean";
        info.datenaissance = naissance;
        info.lieunaissance = lieu;
    };
    nomme(4, "DUPONT", "12 mars 1800", "Paris");
    nomme(5, "DUPONT", "13 mars 1800", "Paris");
    nomme(6, "Dupont ", "12  mars 1800", "Paris");
    nomme(7, "DUPONT", "12 mars 1800", "Lyon");
    QCOMPARE(DeLArbre(*arbre), QStringList{"?6 même personne que le n° 4 (implexe) : Jean Dupont, 12  mars 1800"});
    nomme(4, "DUPONT", "", "Paris");
    nomme(6, "DUPONT", "", "Paris");
    QCOMPARE(DeLArbre(*arbre), QStringList());
}

void TestVerification::lesPhotosEtLesFiches()
{
    const QTemporaryDir dossier;
    QFile photo(dossier.filePath("p.jpg"));
    QVERIFY(photo.open(QIODevice::WriteOnly));
    const auto arbre = ArbreDeNumeros({1, 2, 3});
    arbre->premiere->info->ficphoto = "p.jpg";
    arbre->premiere->info->fichtml = "f.html";
    Trouve(*arbre, 2)->info->ficphoto = "q.jpg";
    Trouve(*arbre, 3)->info->ficphoto = ".";
    QCOMPARE(DeLArbre(*arbre, dossier.path()),
             (QStringList{"!1 fiche absente : f.html", "!2 photo absente : q.jpg", "!3 photo absente : ."}));
}

void TestVerification::lesGrandsNumeros()
{
    QList<quint64> numeros;
    for (quint64 numero = 1; numero != 0; numero *= 2)
        numeros += numero;
    const auto arbre = ArbreDeNumeros(numeros);
    QCOMPARE(DeLArbre(*arbre), QStringList());
    arbre->derniere->pere = 7;
    QCOMPARE(DeLArbre(*arbre), QStringList{"!9223372036854775808 père 7 au lieu de 0"});
}

void TestVerification::unGEDCOMSansDefaut()
{
    QCOMPARE(DuGEDCOM("0 HEAD\n1 CHAR UTF-8\n0 @I1@ INDI\n1 NAME Paul/MARTIN/\n1 FAMC @F1@\n1 BIRT\n2 DATE 1850\n"
                      "0 @I2@ INDI\n1 FAMS @F1@\n1 BIRT\n2 DATE 1820\n1 DEAT\n2 DATE 1890\n"
                      "0 @F1@ FAM\n1 HUSB @I2@\n1 CHIL @I1@\n0 TRLR\n"),
             QStringList());
}

void TestVerification::lesLiensDUnGEDCOM()
{
    QCOMPARE(DuGEDCOM("0 HEAD\n0 @I1@ INDI\n1 FAMC @F9@\n1 FAMS @F1@\n0 @I1@ INDI\n0 INDI\n1 NAME Paul/MARTIN/\n"
                      "0 @F1@ FAM\n1 HUSB @I7@\n1 WIFE @I8@\n1 CHIL @I1@\n1 CHIL @I9@\n0 @F1@ FAM\n0 TRLR\n"),
             (QStringList{"!@I1@ identifiant porté par plusieurs individus", "!@F1@ le mari @I7@ manque",
                          "!@F1@ la femme @I8@ manque", "!@F1@ l'enfant @I9@ manque",
                          "!@F1@ identifiant porté par plusieurs familles", "!@I1@ la famille @F9@ manque",
                          "! un individu n'a pas d'identifiant : MARTIN"}));
}

void TestVerification::lesDatesDUnGEDCOM()
{
    QCOMPARE(DuGEDCOM("0 HEAD\n0 @I1@ INDI\n1 BIRT\n2 DATE 31 FEB 1850\n1 DEAT\n2 DATE 1900\n"
                      "0 @I2@ INDI\n1 BIRT\n2 DATE 12 JAN 1850\n1 DEAT\n2 DATE BEF 1850\n"
                      "0 @I3@ INDI\n1 BIRT\n2 DATE 1900\n1 DEAT\n2 DATE BET 1860 AND 1870\n"
                      "0 @F1@ FAM\n1 WIFE @I3@\n1 CHIL @I2@\n0 TRLR\n"),
             (QStringList{"!@I1@ date de naissance impossible : 31 FEB 1850",
                          "!@I2@ naissance (12 JAN 1850) avant celle de son parent @I3@ (1900)",
                          "!@I3@ décès (BET 1860 AND 1870) avant la naissance (1900)"}));
}

void TestVerification::lesBouclesDUnGEDCOM()
{
    QCOMPARE(DuGEDCOM("0 HEAD\n0 @I1@ INDI\n0 @I2@ INDI\n0 @I3@ INDI\n0 @F1@ FAM\n1 HUSB @I2@\n1 CHIL @I1@\n"
                      "0 @F2@ FAM\n1 WIFE @I3@\n1 CHIL @I2@\n0 @F3@ FAM\n1 HUSB @I2@\n1 CHIL @I3@\n0 TRLR\n"),
             QStringList{"!@I2@ est son propre ancêtre"});
}

void TestVerification::uneLongueLigneeTient()
{
    QByteArray octets = "0 HEAD\n";
    constexpr int longueur = 200000;
    for (int i = 1; i <= longueur; ++i) {
        const QByteArray numero = QByteArray::number(i);
        octets += "0 @I" + numero + "@ INDI\n0 @F" + numero + "@ FAM\n1 CHIL @I" + numero + "@\n1 HUSB @I"
            + QByteArray::number(i % longueur + 1) + "@\n";
    }
    QCOMPARE(DuGEDCOM(octets + "0 TRLR\n"), QStringList{"!@I1@ est son propre ancêtre"});
}

RAMELIER_TEST_MAIN(QGuiApplication, TestVerification)
#include "tst_verification.moc"
