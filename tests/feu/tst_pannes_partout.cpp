#include "appelsquiechouent.h"
#include "dossier.h"
#include "interlocuteurnote.h"
#include "pannes.h"
#include "programmebureau.h"
#include "sauvegardes.h"

#include <cerrno>

Q_DECLARE_METATYPE(AppelsQuiEchouent::Duree)

/// Every system call of every saving fails in turn: the file is the old one or the new one, whole; a failure is told, and
/// what failed to be saved still counts as unsaved.
class TestPannesPartout : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void chaqueAppelEchoue_data();
    void chaqueAppelEchoue();
    void leDisqueEstPleinApresChaqueOctet_data();
    void leDisqueEstPleinApresChaqueOctet();

private:
    void ReferencesDe(int rang);
    [[nodiscard]] QByteArray Contenu() const { return SansLaDate(dossier.Lit(sauvegarde->Fichier())); }
    [[nodiscard]] QString Essaie(bool &ecrit);
    [[nodiscard]] QString Recommence();

    Dossier dossier;
    QStringList dits;
    std::vector<std::unique_ptr<Sauvegarde>> toutes;
    Sauvegarde *sauvegarde = nullptr;
    QByteArray ancien;
    QByteArray nouveau;
};

void TestPannesPartout::initTestCase()
{
    Interlocuteur::Installe(std::make_unique<InterlocuteurNote>(dits));
    toutes = Sauvegardes(dossier, dits);
    QCOMPARE(toutes.size(), std::size_t(4));
}

/// Saves both contents undisturbed, the old one last.
void TestPannesPartout::ReferencesDe(int rang)
{
    sauvegarde = toutes.at(std::size_t(rang)).get();
    QVERIFY(sauvegarde->Ecrit(1));
    nouveau = Contenu();
    QVERIFY(sauvegarde->Ecrit(0));
    ancien = Contenu();
    QVERIFY(ancien != nouveau);
    QVERIFY(ancien.size() > 100);
}

/// One saving of the new content over the old one, under way of failing. What is not as promised, or nothing.
QString TestPannesPartout::Essaie(bool &ecrit)
{
    dits.clear();
    ecrit = sauvegarde->Ecrit(1);
    if (ecrit && Contenu() != nouveau)
        return QStringLiteral("taken for saved, and not in the file");
    if (!ecrit && Contenu() != ancien && Contenu() != nouveau)
        return QStringLiteral("the file is neither the old nor the new one");
    if (sauvegarde->ResteModifie() == ecrit)
        return QStringLiteral("the mark of unsaved changes is wrong");
    const QString echec = sauvegarde->Echec();
    const bool dit = dits.size() == 1 && dits.first().startsWith(echec);
    if (!ecrit && !echec.isEmpty() && !dit)
        return QStringLiteral("the failure was not told once: ") + dits.join(u'/');
    if (ecrit && !echec.isEmpty() && dit)
        return QStringLiteral("a failure was told where there was none");
    return {};
}

/// The next saving succeeds, and leaves nothing in the folder that was not there after the first ones.
QString TestPannesPartout::Recommence()
{
    static const QStringList permis{"a.xrlg", "a.xrlg~", "f.htm", "g.ged", "o.opt"};
    if (!sauvegarde->Ecrit(0) || Contenu() != ancien)
        return QStringLiteral("the next saving failed");
    const QStringList noms = dossier.Noms();
    for (const QString &nom : noms) {
        if (!permis.contains(nom))
            return QStringLiteral("left behind: ") + nom;
    }
    return {};
}

void TestPannesPartout::chaqueAppelEchoue_data()
{
    QTest::addColumn<int>("rang");
    QTest::addColumn<int>("erreur");
    QTest::addColumn<AppelsQuiEchouent::Duree>("duree");
    QTest::addColumn<int>("appelsAuMoins");
    QTest::addColumn<int>("refusAuMoins");
    struct Sorte
    {
        const char *nom;
        int appels;
        int refusUneFois;  // one call fails: those that matter
        int refusEnsuite;  // all that follow fail too
    };
    const QList<Sorte> sortes{{"arbre", 17, 9, 12}, {"options", 12, 6, 8}, {"fiche", 12, 6, 8}, {"gedcom", 12, 6, 8}};
    for (int rang = 0; rang < sortes.size(); ++rang) {
        const auto [nom, appels, une, ensuite] = sortes.at(rang);
        QTest::addRow("%s, disque plein", nom)
            << rang << ENOSPC << AppelsQuiEchouent::DesormaisTous << appels << ensuite;
        QTest::addRow("%s, une erreur passagère", nom) << rang << EIO << AppelsQuiEchouent::UneFois << appels << une;
        QTest::addRow("%s, un disque mort", nom)
            << rang << EIO << AppelsQuiEchouent::DesormaisTous << appels << ensuite;
        QTest::addRow("%s, plus de droits", nom) << rang << EACCES << AppelsQuiEchouent::UneFois << appels << une;
        QTest::addRow("%s, un quota", nom) << rang << EDQUOT << AppelsQuiEchouent::UneFois << appels << une;
    }
}

void TestPannesPartout::chaqueAppelEchoue()
{
    QFETCH(int, rang);
    QFETCH(int, erreur);
    QFETCH(AppelsQuiEchouent::Duree, duree);
    QFETCH(int, appelsAuMoins);
    QFETCH(int, refusAuMoins);
    ReferencesDe(rang);
    int refuses = 0;
    int echecs = 1;
    int appel = 0;
    while (echecs > 0) {
        ++appel;
        bool ecrit = false;
        QString ecart;
        QByteArray quoi;
        {
            const AppelsQuiEchouent pannes(appel, erreur, duree);
            ecart = Essaie(ecrit);
            echecs = AppelsQuiEchouent::Echecs();
            quoi = AppelsQuiEchouent::Premier();
        }
        refuses += ecrit ? 0 : 1;
        if (ecart.isEmpty())
            ecart = Recommence();
        QVERIFY2(ecart.isEmpty(), qPrintable(QStringLiteral("call %1 (%2): %3").arg(appel).arg(quoi, ecart)));
    }
    // None was passed over, and those that matter stopped the saving.
    QVERIFY2(appel - 1 >= appelsAuMoins, qPrintable(QString::number(appel - 1)));
    QVERIFY2(refuses >= refusAuMoins, qPrintable(QString::number(refuses)));
    qInfo("%d errors injected, %d savings refused", appel - 1, refuses);
}

void TestPannesPartout::leDisqueEstPleinApresChaqueOctet_data()
{
    QTest::addColumn<int>("rang");
    QTest::addColumn<int>("pas");
    QTest::newRow("arbre") << 0 << 997;
    QTest::newRow("options") << 1 << 1;
    QTest::newRow("fiche") << 2 << 61;
    QTest::newRow("gedcom") << 3 << 499;
}

void TestPannesPartout::leDisqueEstPleinApresChaqueOctet()
{
    QFETCH(int, rang);
    QFETCH(int, pas);
    ReferencesDe(rang);
    for (qsizetype place = 0; place < nouveau.size(); place += pas) {
        bool ecrit = true;
        QString ecart;
        {
            const DisquePlein plein{rlim_t(place)};
            ecart = Essaie(ecrit);
        }
        QVERIFY2(!ecrit, qPrintable(QString::number(place)));
        if (ecart.isEmpty() && Contenu() != ancien)
            ecart = QStringLiteral("the old file is gone");
        QVERIFY2(ecart.isEmpty(), qPrintable(QStringLiteral("%1 bytes: %2").arg(place).arg(ecart)));
    }
    QCOMPARE(Recommence(), QString());
}

RAMELIER_TEST_BUREAU_MAIN(TestPannesPartout)
#include "tst_pannes_partout.moc"
