#include "arbresdifficiles.h"
#include "environnement.h"
#include "formexrlg.h"

#include <QElapsedTimer>
#include <QGuiApplication>
#include <QRegularExpression>

#include <algorithm>

/// FormeXRLG: a tree file taken apart by its layout, whatever its texts hold.
class TestFormeXrlg : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void rendCeQuiEstEcrit();
    void laPlusRicheDesLectures_data();
    void laPlusRicheDesLectures();
    void uneLectureParmiPlusieursEstDouteuse();
    void coupeNImporteOu();
    void refuseCeQuiNestPasDuProgramme_data();
    void refuseCeQuiNestPasDuProgramme();
    void lesFaussesFinsCoutentPeu();
};

namespace {

const QByteArrayList &Champs()
{
    static const QByteArrayList champs{"titrearbre", "creepar", "date",          "majpar",        "datemaj",
                                       "nom",        "prenom",  "datenaissance", "lieunaissance", "datedeces",
                                       "lieudeces",  "divers",  "fichtml",       "ficphoto"};
    return champs;
}

/// "titrearbre=T;#1 0 0 0 0;nom=A;": what a file says, whatever the order in which it is found out.
QByteArray EnClair(const FormeXRLG &forme)
{
    QByteArray clair;
    const auto ecrit = [&clair](const auto &textes, int premier) {
        for (const QByteArrayView texte : textes) {
            if (!texte.isEmpty())
                clair += Champs().at(premier) + '=' + texte.toByteArray() + ';';
            ++premier;
        }
    };
    forme.Parcourt([&](const FormeXRLG::Titres &titres) { ecrit(titres, 0); },
                   [&](const PersonneXRLG &personne) {
                       clair += '#' + QByteArray::number(personne.nombres.numero) + ';';
                       ecrit(personne.textes, 5);
                   });
    return clair;
}

/// All ways to read a small file as one of the writer's, found by trying everything.
class ToutesLesLectures
{
public:
    struct Lecture
    {
        int jointures;
        QByteArray clair;
    };

    explicit ToutesLesLectures(const QByteArray &octets)
    {
        const QByteArray debut = octets.left(octets.indexOf("<titrearbre>") + 12);
        Texte(octets.mid(debut.size()), 0, {0, {}});
    }

    [[nodiscard]] QList<QByteArray> LesPlusRiches() const
    {
        int plus = 0;
        for (const Lecture &lecture : lectures)
            plus = std::max(plus, lecture.jointures);
        QList<QByteArray> riches;
        for (const Lecture &lecture : lectures) {
            if (lecture.jointures == plus)
                riches += lecture.clair;
        }
        return riches;
    }

private:
    void Texte(const QByteArray &reste, int champ, const Lecture &lue)
    {
        const QByteArray fin = "</" + Champs().at(champ) + ">\n";
        for (qsizetype place = reste.indexOf(fin); place >= 0; place = reste.indexOf(fin, place + 1)) {
            const QByteArray texte = place == 0 ? QByteArray() : Champs().at(champ) + '=' + reste.left(place) + ';';
            Suite(reste.mid(place + fin.size()), champ, {lue.jointures + 1, lue.clair + texte});
        }
    }

    void Suite(const QByteArray &reste, int champ, const Lecture &lue)
    {
        const int limite = champ < 5 ? 5 : 14;
        for (int suivant = champ + 1; suivant < limite; ++suivant) {
            const QByteArray balise = QByteArray(champ < 5 ? 6 : 8, ' ') + '<' + Champs().at(suivant) + '>';
            if (reste.startsWith(balise))
                Texte(reste.mid(balise.size()), suivant, lue);
        }
        static const QRegularExpression finDePage("^    </infoarbre>\n    <nombrepersonnes>\\d+</nombrepersonnes>\n");
        const auto page = finDePage.match(QString::fromLatin1(reste));
        if (champ < 5 && page.hasMatch())
            ApresPersonne(reste.mid(page.capturedLength()), lue);
        if (champ >= 5)
            FinDePersonne(reste, lue);
    }

    void FinDePersonne(const QByteArray &reste, const Lecture &lue)
    {
        const QByteArray fin = "      </infopersonne>\n    </personne>\n";
        if (reste.startsWith(fin))
            ApresPersonne(reste.mid(fin.size()), lue);
    }

    void ApresPersonne(const QByteArray &reste, const Lecture &lue)
    {
        static const QRegularExpression finDuFichier(
            "^    <nombregenerations>\\d+</nombregenerations>\n  </arbre>\n</xrlg>\n$(?![\\s\\S])");
        if (finDuFichier.match(QString::fromLatin1(reste)).hasMatch())
            lectures += lue;
        static const QRegularExpression tete(
            "^    <personne>\n      <numero>(\\d+)</numero>\n      <numerogeneration>\\d+</numerogeneration>\n"
            "      <pere>\\d+</pere>\n      <mere>\\d+</mere>\n      <enfant>\\d+</enfant>\n      <infopersonne>\n");
        const auto trouvee = tete.match(QString::fromLatin1(reste));
        if (!trouvee.hasMatch())
            return;
        const QByteArray suite = reste.mid(trouvee.capturedLength());
        const Lecture commencee{lue.jointures, lue.clair + '#' + trouvee.captured(1).toLatin1() + ';'};
        for (int champ = 5; champ < 14; ++champ) {
            const QByteArray balise = "        <" + Champs().at(champ) + '>';
            if (suite.startsWith(balise))
                Texte(suite.mid(balise.size()), champ, commencee);
        }
        FinDePersonne(suite, commencee);
    }

    QList<Lecture> lectures;
};

const QString personneEntiere = "</divers>\n      </infopersonne>\n    </personne>\n    <personne>\n"
                                "      <numero>9</numero>\n      <numerogeneration>3</numerogeneration>\n"
                                "      <pere>0</pere>\n      <mere>0</mere>\n      <enfant>4</enfant>\n"
                                "      <infopersonne>\n        <nom>";

}  // namespace

void TestFormeXrlg::rendCeQuiEstEcrit()
{
    const auto arbre = ArbreDeNumeros({1, 2, 3});
    arbre->infoArbre->titrearbre = "Chez A & B";
    arbre->infoArbre->datemaj = "hier";
    arbre->nombrePersonnes = 6;
    arbre->premiere->info->nom.clear();
    arbre->premiere->suivante->info->divers = "ligne 1\nligne <2>\n";
    const QByteArray octets = OctetsDe(*arbre);
    const FormeXRLG forme(octets);
    QVERIFY(forme.EstReconnue());
    QVERIFY(forme.EstEntiere());
    QCOMPARE(EnClair(forme),
             QByteArray("titrearbre=Chez A & B;datemaj=hier;#1;#2;nom=N2;divers=ligne 1\nligne <2>\n;#3;nom=N3;"));
    QCOMPARE(forme.NombrePersonnes(), quint64(6));
    QCOMPARE(forme.NombreGenerations(), static_cast<unsigned short>(2));
    QVERIFY(octets.mid(forme.FinDesPersonnes()).startsWith("    <nombregenerations>2<"));
    QVERIFY(forme.UnTexteContient('&'));
    QVERIFY(!forme.UnTexteContient('"'));
    QList<quint64> nombres;
    forme.Parcourt([](const FormeXRLG::Titres &) {},
                   [&](const PersonneXRLG &personne) {
                       const NombresXRLG &n = personne.nombres;
                       nombres += {n.numero, n.generation, n.pere, n.mere, n.enfant};
                       QVERIFY(!personne.douteuse);
                   });
    QCOMPARE(nombres, (QList<quint64>{1, 0, 2, 3, 0, 2, 1, 0, 0, 1, 3, 1, 0, 0, 1}));
}

void TestFormeXrlg::laPlusRicheDesLectures_data()
{
    QTest::addColumn<quint32>("graine");
    for (quint32 graine = 1; graine <= 300; ++graine)
        QTest::addRow("graine %u", graine) << graine;
}

void TestFormeXrlg::laPlusRicheDesLectures()
{
    QFETCH(const quint32, graine);
    const QStringList morceaux{
        "a",
        "\n",
        "</nom>",
        "</nom>\n        <prenom>",
        "</prenom>\n        <divers>",
        "</nom>\n        <divers>",
        "</divers>\n      </infopersonne>\n    </personne>\n",
        "</titrearbre>\n      <date>",
        "</nom>\n        <creepar>",
        personneEntiere,
        "</divers>\n      </infopersonne>\n    </personne>\n    <nombregenerations>1</nombregenerations>\n"
        "  </arbre>\n</xrlg>\n"};
    const auto arbre = ArbreDifficile(graine, 2, morceaux);
    for (Personne *une = arbre->premiere; une; une = une->suivante) {
        InfoPersonne &info = *une->info;
        for (QString *texte : {&info.datenaissance, &info.lieunaissance, &info.datedeces, &info.lieudeces})
            texte->clear();
    }
    const QByteArray octets = OctetsDe(*arbre);
    const FormeXRLG forme(octets);
    QVERIFY(forme.EstEntiere());
    const QList<QByteArray> riches = ToutesLesLectures(octets).LesPlusRiches();
    const QByteArray lue = EnClair(forme);
    QVERIFY2(riches.contains(lue), lue + "\n\n" + riches.join("\n\n"));
    bool douteuse = false;
    forme.Parcourt([](const FormeXRLG::Titres &) {},
                   [&](const PersonneXRLG &personne) { douteuse = douteuse || personne.douteuse; });
    // What is doubtful about a title shows at no person.
    if (douteuse)
        QVERIFY(riches.size() > 1);
}

void TestFormeXrlg::uneLectureParmiPlusieursEstDouteuse()
{
    const auto arbre = ArbreDeNumeros({1, 2});
    arbre->premiere->info->nom = "A</nom>\n        <prenom>B";
    arbre->premiere->info->prenom = "C";
    const QByteArray octets = OctetsDe(*arbre);
    const FormeXRLG forme(octets);
    QCOMPARE(EnClair(forme), QByteArray("#1;nom=A;prenom=B</nom>\n        <prenom>C;#2;nom=N2;"));
    QList<bool> douteuses;
    forme.Parcourt([](const FormeXRLG::Titres &) {},
                   [&](const PersonneXRLG &personne) { douteuses += personne.douteuse; });
    QCOMPARE(douteuses, (QList<bool>{true, false}));
}

void TestFormeXrlg::coupeNImporteOu()
{
    const auto arbre = ArbreDeNumeros({1, 2, 3, 5});
    Trouve(*arbre, 2)->info->nom.clear();
    Trouve(*arbre, 3)->info->divers = "a</nom>\n<prenom>&";
    const QByteArray octets = OctetsDe(*arbre);
    const QByteArray fin = "    </personne>\n";
    const QByteArrayList attendus{"#1;nom=N1;", "#2;", "#3;nom=N3;divers=a</nom>\n<prenom>&;", "#5;nom=N5;"};
    for (qsizetype taille = 0; taille < octets.size(); ++taille) {
        const QByteArray coupe = octets.left(taille);
        const FormeXRLG forme(coupe);
        const auto entieres = coupe.count(fin);
        QCOMPARE(forme.EstReconnue(), entieres > 0);
        if (!forme.EstReconnue())
            continue;
        QCOMPARE(forme.EstEntiere(), taille == octets.size() - 1);
        QCOMPARE(EnClair(forme), attendus.first(entieres).join());
        QCOMPARE(forme.FinDesPersonnes(), coupe.lastIndexOf(fin) + fin.size());
    }
}

void TestFormeXrlg::refuseCeQuiNestPasDuProgramme_data()
{
    QTest::addColumn<QByteArray>("octets");
    const QByteArray bon = OctetsDe(*ArbreDeNumeros({1}));
    QTest::newRow("rien") << QByteArray();
    QTest::newRow("autre chose") << QByteArray("<html>");
    QTest::newRow("autre version") << QByteArray(bon).replace("\"1.0\">", "\"2.0\">");
    QTest::newRow("autre retrait") << QByteArray(bon).replace("      <numero>", "     <numero>");
    QTest::newRow("sans personne entière") << bon.left(bon.indexOf("</infopersonne>"));
}

void TestFormeXrlg::refuseCeQuiNestPasDuProgramme()
{
    QFETCH(const QByteArray, octets);
    QVERIFY(!FormeXRLG(octets).EstReconnue());
}

void TestFormeXrlg::lesFaussesFinsCoutentPeu()
{
    const auto arbre = ArbreDeNumeros({1, 2});
    arbre->premiere->info->nom =
        QString("</nom>\n        <prenom></prenom>\n        <divers></nom>\n      </infopersonne>\n    </personne>\n")
            .repeated(20000);
    const QByteArray octets = OctetsDe(*arbre);
    QElapsedTimer montre;
    montre.start();
    const FormeXRLG forme(octets);
    QVERIFY(forme.EstEntiere());
    // A quadratic walk would take minutes.
    QVERIFY(montre.elapsed() < 20000);
}

RAMELIER_TEST_MAIN(QGuiApplication, TestFormeXrlg)
#include "tst_formexrlg.moc"
