#include "arbre.h"
#include "arbres.h"
#include "environnement.h"
#include "executecli.h"
#include "ficxrlg.h"
#include "infopersonne.h"
#include "personne.h"

#include <QFile>
#include <QGuiApplication>

/// Every command on a tree of sixteen whole generations, 65,535 persons.
class TestImmense : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void lister();
    void verifier();
    void unAllerRetourParGEDCOM();
    void reparer();
    void assembler();
    void dessiner();

private:
    [[nodiscard]] QString Chemin(const QString &nom) const { return dossier.filePath(nom); }
    [[nodiscard]] QByteArray Contenu(const QString &nom) const;

    QTemporaryDir dossier;
    QString immense;
};

namespace {

constexpr int generations = 16;

}  // namespace

void TestImmense::initTestCase()
{
    const auto arbre = ArbreComplet(generations);
    for (Personne *une = arbre->premiere; une; une = une->suivante) {
        une->info->prenom = "Marie Élise";
        une->info->datenaissance = QString::number(1990 - 30 * une->numerogeneration);
        une->info->lieunaissance = "Saint-Étienne";
    }
    immense = Chemin("immense.xrlg");
    // As the program counts when it opens a file, so that nothing is odd in this one.
    arbre->nombrePersonnes = 65535;
    QVERIFY(writeFicXRLG(immense, arbre.get()));
}

QByteArray TestImmense::Contenu(const QString &nom) const
{
    QFile fichier(Chemin(nom));
    return fichier.open(QIODevice::ReadOnly) ? fichier.readAll() : QByteArray();
}

void TestImmense::lister()
{
    const Resultat csv = Execute({"lister", immense, "--format", "csv"});
    QCOMPARE(csv.code, 0);
    QCOMPARE(csv.sortie.count(u'\n'), 65536);  // with the line of titles
    const Resultat texte = Execute({"lister", immense});
    QVERIFY(texte.sortie.contains("Génération 16 : 32768 connus sur 32768 (100 %), implexe 0 %\n"));
}

void TestImmense::verifier()
{
    const Resultat resultat = Execute({"verifier", immense});
    QCOMPARE(resultat.sortie, QString());
    QCOMPARE(resultat.erreur, QString());
    QCOMPARE(resultat.code, 0);
}

void TestImmense::unAllerRetourParGEDCOM()
{
    QCOMPARE(Execute({"convertir", immense, Chemin("immense.ged")}).code, 0);
    QCOMPARE(Execute({"convertir", Chemin("immense.ged"), Chemin("retour.xrlg")}).code, 0);
    const Resultat comparaison = Execute({"comparer", Chemin("immense.ged"), Chemin("retour.xrlg")});
    QCOMPARE(comparaison.sortie, QString());
    QCOMPARE(comparaison.code, 0);
}

void TestImmense::reparer()
{
    QByteArray octets = Contenu("immense.xrlg");
    octets.replace("Marie Élise", "Marie & <Élise>");
    QFile casse(Chemin("casse.xrlg"));
    QVERIFY(casse.open(QIODevice::WriteOnly));
    casse.write(octets);
    casse.close();
    QCOMPARE(Execute({"verifier", casse.fileName()}).code, 1);
    const Resultat resultat = Execute({"reparer", casse.fileName(), Chemin("repare.xrlg")});
    QCOMPARE(resultat.code, 0);
    QCOMPARE(resultat.erreur.count("prénom : texte protégé\n"), 65535);
    QCOMPARE(Contenu("repare.xrlg").count("<prenom>Marie &amp; &lt;Élise"), 65535);
}

void TestImmense::assembler()
{
    const Resultat resultat = Execute({"assembler", immense, immense, Chemin("enfant.xrlg")});
    QCOMPARE(resultat.erreur, QString());
    QCOMPARE(resultat.code, 0);
    const QByteArray enfant = Contenu("enfant.xrlg");
    QCOMPARE(enfant.count("<personne>"), 131071);
    QVERIFY(enfant.contains("<numero>131071</numero>"));
}

void TestImmense::dessiner()
{
    const Resultat resultat = Execute({"dessiner", immense, Chemin("immense.pdf"), "--generations", "12"});
    QCOMPARE(resultat.erreur, QString());
    QCOMPARE(resultat.code, 0);
    QVERIFY(Contenu("immense.pdf").startsWith("%PDF-"));
}

RAMELIER_TEST_MAIN(QGuiApplication, TestImmense)
#include "tst_immense.moc"
