#include "assemblage.h"
#include "environnement.h"
#include "sourcesdassemblage.h"

#include <QGuiApplication>
#include <QImage>

/// The renumbered copy of one person of a parent's tree.
class TestAssemblageCopie : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void laRegleDesNumeros_data();
    void laRegleDesNumeros();
    void ceQuiNeTientPasEstLaisse_data();
    void ceQuiNeTientPasEstLaisse();
    void leNumeroDonneLaGenerationQuandLaRacineEnAUne();
    void laCopieALesNeufTextes();
    void sansDonneesLaCopieEnADeVides();
    void laCopieChargeSaPhoto_data();
    void laCopieChargeSaPhoto();
    void laPariteDitLePereOuLaMere();
};

void TestAssemblageCopie::laRegleDesNumeros_data()
{
    QTest::addColumn<bool>("estPere");
    QTest::addColumn<quint64>("numero");
    QTest::addColumn<int>("generation");
    QTest::addColumn<QString>("copie");
    const auto ligne = [](bool estPere, quint64 numero, int generation, const char *copie) {
        QTest::addRow("%s %llu", estPere ? "père" : "mère", numero) << estPere << numero << generation << copie;
    };
    // number / generation father,mother child
    ligne(true, 1, 0, "2/1 4,5 1");
    ligne(true, 2, 1, "4/2 8,9 2");
    ligne(true, 3, 1, "5/2 10,11 2");
    ligne(true, 4, 2, "8/3 16,17 4");
    ligne(true, 7, 2, "11/3 22,23 5");
    ligne(true, 13, 3, "21/4 42,43 10");
    ligne(true, 1099511627776, 40, "2199023255552/41 4398046511104,4398046511105 1099511627776");
    ligne(false, 1, 0, "3/1 6,7 1");
    ligne(false, 2, 1, "6/2 12,13 3");
    ligne(false, 3, 1, "7/2 14,15 3");
    ligne(false, 4, 2, "12/3 24,25 6");
    ligne(false, 7, 2, "15/3 30,31 7");
    ligne(false, 13, 3, "29/4 58,59 14");
    ligne(false, 1099511627776, 40, "3298534883328/41 6597069766656,6597069766657 1649267441664");
    // The generation that the person says counts, not the one of its number.
    ligne(true, 5, 0, "6/1 12,13 3");
    ligne(true, 1, 3, "9/4 18,19 4");
    ligne(false, 1, 3, "17/4 34,35 8");
    ligne(true, 0, 0, "1/1 0,3 0");
}

void TestAssemblageCopie::laRegleDesNumeros()
{
    QFETCH(bool, estPere);
    QFETCH(quint64, numero);
    QFETCH(int, generation);
    QFETCH(QString, copie);
    Personne source(static_cast<unsigned short>(generation));
    source.numero = numero;
    source.pere = 2 * numero;
    source.mere = 2 * numero + 1;
    source.enfant = 77;
    const auto enTexte = [](const Personne &p) {
        return QStringLiteral("%1/%2 %3,%4 %5")
            .arg(p.numero)
            .arg(p.numerogeneration)
            .arg(p.pere)
            .arg(p.mere)
            .arg(p.enfant);
    };
    const std::unique_ptr<Personne> obtenue(CopieRenumerotee(source, estPere, false, QString()));
    QVERIFY(obtenue);
    QCOMPARE(enTexte(*obtenue), copie);
    QVERIFY(!obtenue->ptrPere && !obtenue->ptrMere && !obtenue->suivante && !obtenue->precedente);
    QVERIFY(obtenue->affichable && !obtenue->selectionnee);
    // Unknown parents stay unknown.
    source.pere = 0;
    source.mere = 0;
    const std::unique_ptr<Personne> seule(CopieRenumerotee(source, estPere, false, QString()));
    QCOMPARE(seule->pere, 0ULL);
    QCOMPARE(seule->mere, 0ULL);
    QCOMPARE(seule->numero, obtenue->numero);
}

void TestAssemblageCopie::ceQuiNeTientPasEstLaisse_data()
{
    QTest::addColumn<bool>("estPere");
    QTest::addColumn<quint64>("numero");
    QTest::addColumn<int>("generation");
    QTest::addColumn<QString>("copie");
    const quint64 p62 = 4611686018427387904ULL;
    // Parents of generation 62 fit nowhere on the mother's side, those of generation 61 do on both.
    QTest::newRow("père, 61") << true << p62 / 2 << 61
                              << "4611686018427387904/62 9223372036854775808,9223372036854775809";
    QTest::newRow("père, 62") << true << p62 << 62 << "9223372036854775808/63 0,0";
    QTest::newRow("père, 62, dernier") << true << 2 * p62 - 1 << 62 << "13835058055282163711/63 0,0";
    QTest::newRow("père, 63") << true << 2 * p62 << 63 << "";
    QTest::newRow("père, 63, petit numéro") << true << quint64(5) << 63 << "9223372036854775813/64 0,0";
    QTest::newRow("père, 64") << true << quint64(5) << 64 << "";
    QTest::newRow("père, 65535") << true << quint64(1) << 65535 << "";
    QTest::newRow("père, le plus grand") << true << ~quint64(0) << 0 << "";
    QTest::newRow("père, l'avant-dernier") << true << ~quint64(0) - 1 << 0 << "18446744073709551615/1 0,0";
    QTest::newRow("mère, 61") << false << p62 / 2 << 61
                              << "6917529027641081856/62 13835058055282163712,13835058055282163713";
    QTest::newRow("mère, 62") << false << p62 << 62 << "13835058055282163712/63 0,0";
    QTest::newRow("mère, 62, dernière") << false << 2 * p62 - 1 << 62 << "18446744073709551615/63 0,0";
    QTest::newRow("mère, 63") << false << quint64(5) << 63 << "";
    QTest::newRow("mère, 65535") << false << quint64(1) << 65535 << "";
}

void TestAssemblageCopie::ceQuiNeTientPasEstLaisse()
{
    QFETCH(bool, estPere);
    QFETCH(quint64, numero);
    QFETCH(int, generation);
    QFETCH(QString, copie);
    Personne source(static_cast<unsigned short>(generation));
    source.numero = numero;
    if (numero < quint64(1) << 62) {
        source.pere = 2 * numero;
        source.mere = 2 * numero + 1;
    } else {
        source.pere = ~quint64(0) - 1;
        source.mere = ~quint64(0);
    }
    const std::unique_ptr<Personne> obtenue(CopieRenumerotee(source, estPere, false, QString()));
    QCOMPARE(obtenue ? QStringLiteral("%1/%2 %3,%4")
                           .arg(obtenue->numero)
                           .arg(obtenue->numerogeneration)
                           .arg(obtenue->pere)
                           .arg(obtenue->mere)
                     : QString(),
             copie);
}

void TestAssemblageCopie::leNumeroDonneLaGenerationQuandLaRacineEnAUne()
{
    Personne source(9);
    source.numero = 6;
    source.pere = 12;
    const std::unique_ptr<Personne> dit(CopieRenumerotee(source, true, false, QString()));
    QCOMPARE(dit->numero, 518ULL);
    QCOMPARE(dit->numerogeneration, 10);
    const std::unique_ptr<Personne> compte(CopieRenumerotee(source, true, true, QString()));
    QCOMPARE(compte->numero, 10ULL);
    QCOMPARE(compte->numerogeneration, 3);
    QCOMPARE(compte->pere, 20ULL);
    QCOMPARE(compte->enfant, 5ULL);
    const std::unique_ptr<Personne> mere(CopieRenumerotee(source, false, true, QString()));
    QCOMPARE(mere->numero, 14ULL);
    source.numero = 0;
    const std::unique_ptr<Personne> zero(CopieRenumerotee(source, true, true, QString()));
    QCOMPARE(zero->numero, 1ULL);
    QCOMPARE(zero->numerogeneration, 1);
    QVERIFY(!GenerationsDecalees(*ArbreDeSources({})));
    QVERIFY(!GenerationsDecalees(*ArbreDeSources({{1, 0}, {2, 7}})));
    QVERIFY(GenerationsDecalees(*ArbreDeSources({{1, 1}, {2, 0}})));
    QVERIFY(GenerationsDecalees(*ArbreDeSources({{1, 65535}})));
}

void TestAssemblageCopie::laCopieALesNeufTextes()
{
    Personne source(0);
    source.numero = 1;
    source.affichable = false;
    source.selectionnee = true;
    source.x = 12;
    source.info = new InfoPersonne(QStringLiteral("DUPONT"), QStringLiteral("Zoë"), QStringLiteral("1er mai"),
                                   QStringLiteral("Lyon"), QStringLiteral("vers 1970"), QStringLiteral("Paris"),
                                   QStringLiteral("notaire\nà Œ"), QStringLiteral("z.html"), QString(),
                                   InfoPersonne::PhotoPourImpression);
    source.info->photo = QImage(3, 3, QImage::Format_RGB32);
    source.info->photoEcran = source.info->photo;
    const std::unique_ptr<Personne> copie(CopieRenumerotee(source, true, false, QString()));
    QCOMPARE(TextesDe(*copie->info), QStringLiteral("DUPONT|Zoë|1er mai|Lyon|vers 1970|Paris|notaire\nà Œ|z.html|"));
    QVERIFY(copie->info != source.info);
    QCOMPARE(copie->info->etatPhoto, -1);
    QVERIFY(copie->info->photo.isNull() && copie->info->photoEcran.isNull());
    // The copy is drawn, not selected, and not laid out yet.
    QVERIFY(copie->affichable && !copie->selectionnee);
    QCOMPARE(copie->x, 0L);
}

void TestAssemblageCopie::sansDonneesLaCopieEnADeVides()
{
    Personne source(0);
    source.numero = 1;
    const std::unique_ptr<Personne> copie(CopieRenumerotee(source, false, false, QString()));
    QVERIFY(copie->info);
    QCOMPARE(TextesDe(*copie->info), QStringLiteral("||||||||"));
    QCOMPARE(copie->info->etatPhoto, -1);
}

void TestAssemblageCopie::laCopieChargeSaPhoto_data()
{
    QTest::addColumn<QString>("nom");
    QTest::addColumn<int>("etat");
    QTest::newRow("photo") << "p.png" << 1;
    QTest::newRow("absente") << "rien.png" << 0;
    QTest::newRow("pas une image") << "faux.png" << 0;
    QTest::newRow("aucune") << "" << -1;
}

void TestAssemblageCopie::laCopieChargeSaPhoto()
{
    QFETCH(QString, nom);
    QFETCH(int, etat);
    const QTemporaryDir dossier;
    QImage image(7, 5, QImage::Format_RGB32);
    image.fill(Qt::red);
    QVERIFY(image.save(dossier.filePath(QStringLiteral("p.png"))));
    QFile faux(dossier.filePath(QStringLiteral("faux.png")));
    QVERIFY(faux.open(QIODevice::WriteOnly) && faux.write("rien") == 4);
    faux.close();
    Personne source(0);
    source.numero = 1;
    source.info = new InfoPersonne;
    source.info->ficphoto = nom;
    const std::unique_ptr<Personne> copie(CopieRenumerotee(source, true, false, dossier.path()));
    QCOMPARE(copie->info->etatPhoto, etat);
    QCOMPARE(copie->info->photo.size(), etat == 1 ? QSize(7, 5) : QSize(0, 0));
    QCOMPARE(copie->info->ficphoto, nom);
    const std::unique_ptr<Personne> ailleurs(CopieRenumerotee(source, true, false, dossier.filePath("x")));
    QCOMPARE(ailleurs->info->etatPhoto, etat == 1 ? 0 : etat);
}

void TestAssemblageCopie::laPariteDitLePereOuLaMere()
{
    Personne enfant(0);
    Personne pere(1);
    Personne mere(1);
    pere.numero = 18;
    mere.numero = 5;
    RelieASonEnfant(&enfant, &mere);
    QCOMPARE(enfant.ptrMere, &mere);
    QVERIFY(!enfant.ptrPere);
    RelieASonEnfant(&enfant, &pere);
    QCOMPARE(enfant.ptrPere, &pere);
    QCOMPARE(enfant.ptrMere, &mere);
    // The numbers are not its business.
    QCOMPARE(enfant.pere, 0ULL);
    QCOMPARE(enfant.mere, 0ULL);
    RelieASonEnfant(nullptr, &pere);
}

RAMELIER_TEST_MAIN(QGuiApplication, TestAssemblageCopie)
#include "tst_assemblage_copie.moc"
