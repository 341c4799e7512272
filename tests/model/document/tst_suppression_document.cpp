#include "bancdocument.h"

#include <optional>

/// RamelierDoc::SupPersonne: the selected person goes, and is kept for undo.
class TestSuppressionDocument : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init() { banc.emplace(); }
    void cleanup();
    void lePere();
    void laMere();
    void laSuppressionEstFaiteAvantLesSignaux();
    void lesNeufTextesSontGardes();
    void laPhotoGardee_data();
    void laPhotoGardee();
    void lesGenerations_data();
    void lesGenerations();
    void laPremierePersonneReste_data();
    void laPremierePersonneReste();
    void sansSelectionRienNeSePasse_data();
    void sansSelectionRienNeSePasse();
    void unEnfantQuiNeNommePasLaPersonnePerdSaMere();
    void unEnfantQuiManqueNePerdPersonne();
    void uneSuppressionRemplaceLaPrecedente();
    void lesMarquesDejaPoseesRestent();

private:
    void Supprime(quint64 numero);
    void Supprime() { banc->doc.SupPersonne(banc->repertoire); }

    std::optional<Banc> banc;
};

void TestSuppressionDocument::cleanup()
{
    QVERIFY(banc->EstRange());
    banc.reset();
}

void TestSuppressionDocument::Supprime(quint64 numero)
{
    banc->Choisit(numero);
    Supprime();
}

void TestSuppressionDocument::lePere()
{
    banc->Ouvre({1, 2, 3, 6, 7});
    Scenario scenario;
    Supprime(6);
    QCOMPARE(scenario.Ecarts(), QStringList());
    // The flag comes after the signals.
    QCOMPARE(banc->deroulement.Lignes(), (QStringList{"autoriseAnnulation", "documentChanged 1"}));
    QVERIFY(banc->doc.isModified());
    QVERIFY(!banc->doc.areOptionsModified());
    QCOMPARE(ToutEnTexte(*banc->doc.arbre),
             "4 personnes, 3 générations, sélection 0, 1 2 3 7\n"
             "1 g0 p2 m3 e0 -> p2 m3 0,0 affichable 1 sélectionnée 0 N1|||||||| photo -1\n"
             "2 g1 p0 m0 e1 -> p0 m0 0,0 affichable 1 sélectionnée 0 N2|||||||| photo -1\n"
             "3 g1 p0 m7 e1 -> p0 m7 0,0 affichable 1 sélectionnée 0 N3|||||||| photo -1\n"
             "7 g2 p0 m0 e3 -> p0 m0 0,0 affichable 1 sélectionnée 0 N7|||||||| photo -1\n"
             "N6 de 6, sans père 3, sans mère 0\n"
             "||||");
}

void TestSuppressionDocument::laMere()
{
    banc->Ouvre({1, 2, 3, 6, 7});
    Supprime(7);
    QCOMPARE(banc->deroulement.Lignes(), (QStringList{"autoriseAnnulation", "documentChanged 1"}));
    QVERIFY(banc->doc.isModified());
    QCOMPARE(ToutEnTexte(*banc->doc.arbre),
             "4 personnes, 3 générations, sélection 0, 1 2 3 6\n"
             "1 g0 p2 m3 e0 -> p2 m3 0,0 affichable 1 sélectionnée 0 N1|||||||| photo -1\n"
             "2 g1 p0 m0 e1 -> p0 m0 0,0 affichable 1 sélectionnée 0 N2|||||||| photo -1\n"
             "3 g1 p6 m0 e1 -> p6 m0 0,0 affichable 1 sélectionnée 0 N3|||||||| photo -1\n"
             "6 g2 p0 m0 e3 -> p0 m0 0,0 affichable 1 sélectionnée 0 N6|||||||| photo -1\n"
             "N7 de 7, sans père 0, sans mère 3\n"
             "||||");
}

void TestSuppressionDocument::laSuppressionEstFaiteAvantLesSignaux()
{
    banc->Ouvre({1, 2});
    QStringList vus;
    const auto note = [&] { vus += NumerosEnTexte(*banc->doc.arbre) + " / " + Annulation(*banc->doc.arbre); };
    connect(&banc->doc, &RamelierDoc::autoriseAnnulation, this, note);
    connect(&banc->doc, &RamelierDoc::documentChanged, this, note);
    Supprime(2);
    QCOMPARE(vus, QStringList(2, "1 / N2 de 2, sans père 1, sans mère 0"));
}

void TestSuppressionDocument::lesNeufTextesSontGardes()
{
    banc->Ouvre({1, 3});
    banc->Info(3) = InfoPersonne("MARTIN", "Paul", "dn", "ln", "dd", "ld", "rem\nrem", "p.html", "", 2);
    Supprime(3);
    QCOMPARE(EnTexte(*banc->doc.arbre->infoSauvee), "MARTIN|Paul|dn|ln|dd|ld|rem\nrem|p.html| photo -1");
    QCOMPARE(banc->doc.arbre->numeroSauve, 3U);
}

void TestSuppressionDocument::laPhotoGardee_data()
{
    QTest::addColumn<QString>("fichier");
    QTest::addColumn<int>("etat");
    QTest::addColumn<QSize>("taille");
    QTest::newRow("un fichier") << "jean.png" << 1 << QSize(30, 40);
    QTest::newRow("un fichier qui manque") << "jeanne.png" << 0 << QSize(0, 0);
    QTest::newRow("aucun") << "" << -1 << QSize(0, 0);
}

void TestSuppressionDocument::laPhotoGardee()
{
    QFETCH(const QString, fichier);
    banc->EcritPhoto("jean.png");
    banc->Ouvre({1, 2});
    banc->Info(2).ficphoto = fichier;
    Supprime(2);
    const InfoPersonne &gardee = *banc->doc.arbre->infoSauvee;
    QCOMPARE(gardee.ficphoto, fichier);
    QTEST(gardee.etatPhoto, "etat");
    QTEST(gardee.photo.size(), "taille");
}

void TestSuppressionDocument::lesGenerations_data()
{
    QTest::addColumn<QList<quint64>>("numeros");
    QTest::addColumn<quint64>("supprimee");
    QTest::addColumn<int>("generations");
    QTest::newRow("la dernière, seule de sa génération") << QList<quint64>{1, 2, 3, 4} << quint64(4) << 2;
    QTest::newRow("la dernière de plusieurs") << QList<quint64>{1, 2, 4, 5} << quint64(5) << 3;
    QTest::newRow("au milieu de la liste") << QList<quint64>{1, 2, 3, 6} << quint64(2) << 3;
    QTest::newRow("la seule avec la racine") << QList<quint64>{1, 3} << quint64(3) << 1;
}

void TestSuppressionDocument::lesGenerations()
{
    QFETCH(const QList<quint64>, numeros);
    QFETCH(const quint64, supprimee);
    QFETCH(const int, generations);
    banc->Ouvre(numeros);
    Supprime(supprimee);
    QCOMPARE(int(banc->doc.arbre->nombreGenerations), generations);
    QCOMPARE(banc->doc.arbre->nombrePersonnes, quint64(numeros.size() - 1));
    QVERIFY(!banc->Qui(supprimee));
}

void TestSuppressionDocument::laPremierePersonneReste_data()
{
    QTest::addColumn<QList<quint64>>("numeros");
    QTest::newRow("la racine") << QList<quint64>{1, 2, 3};
    QTest::newRow("une racine seule") << QList<quint64>{1};
    QTest::newRow("la première d'un arbre sans racine") << QList<quint64>{6, 7};
}

void TestSuppressionDocument::laPremierePersonneReste()
{
    QFETCH(const QList<quint64>, numeros);
    banc->Ouvre(numeros);
    banc->Choisit(numeros.constFirst());
    const QString avant = ToutEnTexte(*banc->doc.arbre);
    Supprime();
    QCOMPARE(ToutEnTexte(*banc->doc.arbre), avant);
    QCOMPARE(banc->deroulement.Lignes(), QStringList());
    QVERIFY(!banc->doc.isModified());
}

void TestSuppressionDocument::sansSelectionRienNeSePasse_data()
{
    QTest::addColumn<bool>("avecArbre");
    QTest::newRow("un arbre, personne de sélectionné") << true;
    QTest::newRow("pas d'arbre") << false;
}

void TestSuppressionDocument::sansSelectionRienNeSePasse()
{
    QFETCH(const bool, avecArbre);
    if (avecArbre) {
        // What an earlier deletion left stays as well.
        banc->Ouvre({1, 2, 3});
        Supprime(3);
        banc->doc.modifie = false;
    }
    const QStringList avant = banc->deroulement.Lignes();
    Supprime();
    QCOMPARE(banc->deroulement.Lignes(), avant);
    QVERIFY(!banc->doc.isModified());
    if (avecArbre)
        QCOMPARE(Annulation(*banc->doc.arbre), "N3 de 3, sans père 0, sans mère 1");
}

void TestSuppressionDocument::unEnfantQuiNeNommePasLaPersonnePerdSaMere()
{
    // A damaged file: 4 says that its child is 3, whose father is 6.
    banc->Ouvre({1, 2, 3, 4, 6});
    banc->Qui(4)->enfant = 3;
    Supprime(4);
    QCOMPARE(Annulation(*banc->doc.arbre), "N4 de 4, sans père 0, sans mère 3");
}

void TestSuppressionDocument::unEnfantQuiManqueNePerdPersonne()
{
    banc->Ouvre({1, 10});
    Supprime(10);
    QCOMPARE(NumerosEnTexte(*banc->doc.arbre), "1");
    QCOMPARE(Annulation(*banc->doc.arbre), "N10 de 10, sans père 0, sans mère 0");
    QCOMPARE(banc->deroulement.Lignes(), (QStringList{"autoriseAnnulation", "documentChanged 1"}));
    QVERIFY(banc->doc.isModified());
}

void TestSuppressionDocument::uneSuppressionRemplaceLaPrecedente()
{
    banc->Ouvre({1, 2, 3, 6});
    Supprime(6);
    QCOMPARE(Annulation(*banc->doc.arbre), "N6 de 6, sans père 3, sans mère 0");
    Supprime(3);
    QCOMPARE(Annulation(*banc->doc.arbre), "N3 de 3, sans père 0, sans mère 1");
    Supprime(2);
    QCOMPARE(Annulation(*banc->doc.arbre), "N2 de 2, sans père 1, sans mère 0");
    QCOMPARE(NumerosEnTexte(*banc->doc.arbre), "1");
}

void TestSuppressionDocument::lesMarquesDejaPoseesRestent()
{
    banc->Ouvre({1, 2});
    banc->doc.modifie = true;
    banc->doc.optionsModifiees = true;
    Supprime(2);
    QCOMPARE(banc->deroulement.Lignes(),
             (QStringList{"autoriseAnnulation modifié options", "documentChanged 1 modifié options"}));
    QVERIFY(banc->doc.isModified());
    QVERIFY(banc->doc.areOptionsModified());
}

RAMELIER_TEST_MAIN(QApplication, TestSuppressionDocument)
#include "tst_suppression_document.moc"
