#include "environnement.h"
#include "execution.h"

#include <QCoreApplication>
#include <QDir>
#include <QRegularExpression>

/// What bash proposes behind "ramelier-cli", against what the program itself says of its commands and options.
class TestCompletion : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void proposeLesCommandes();
    void proposeLesOptionsDeChaqueCommande();
    void proposeLesValeursDeChaqueOption();
    void unMotCommence_data();
    void unMotCommence();
    void dansUnTerminal_data();
    void dansUnTerminal();

private:
    QStringList commandes;
};

namespace {

QString Dit(const QStringList &mots)
{
    const Execution execution = Execute(RAMELIER_CONSTRUCTION "/bin/ramelier-cli", mots);
    return execution.code == 0 ? execution.sortie : QString();
}

/// What \a motif catches, from the beginning to the end of \a texte.
QStringList Trouves(const QString &motif, const QString &texte)
{
    QStringList trouves;
    const QRegularExpression expression(motif, QRegularExpression::MultilineOption);
    for (auto suite = expression.globalMatch(texte); suite.hasNext();)
        trouves += suite.next().captured(1);
    return trouves;
}

/// What bash proposes for the last of \a mots, sorted.
QStringList Proposes(const QStringList &mots)
{
    const QString script =
        QStringLiteral("source '" RAMELIER_COMPLETION "'; COMP_WORDS=(ramelier-cli \"$@\"); COMP_CWORD=$#; "
                       "_ramelier_cli; printf '%s\\n' \"${COMPREPLY[@]}\"");
    const Execution execution = Execute("bash", QStringList{"--norc", "-c", script, "bash"} + mots);
    QStringList proposes =
        execution.code == 0 ? execution.sortie.split(u'\n', Qt::SkipEmptyParts) : QStringList{execution.sortie};
    proposes.sort();
    return proposes;
}

QStringList Tries(QStringList mots)
{
    mots.sort();
    return mots;
}

}  // namespace

void TestCompletion::initTestCase()
{
    commandes = Trouves(QStringLiteral("^  ([a-z]+) [A-Z]"), Dit({"--help"}));
    QVERIFY(commandes.contains(QStringLiteral("dessiner")));
    QVERIFY(commandes.size() >= 7);
}

void TestCompletion::proposeLesCommandes()
{
    QCOMPARE(Proposes({""}), Tries(commandes));
    QCOMPARE(Proposes({"-"}), Tries(Trouves(QStringLiteral("^  -[a-z], (--[a-z]+)"), Dit({"--help"}))));
}

void TestCompletion::proposeLesOptionsDeChaqueCommande()
{
    for (const QString &commande : std::as_const(commandes)) {
        const QStringList options = Trouves(QStringLiteral("^  (?:-h, )?(--[a-z-]+)"), Dit({commande, "--help"}));
        QVERIFY2(options.contains(QStringLiteral("--help")), qPrintable(commande));
        QCOMPARE(Proposes({commande, "-"}), Tries(options));
    }
}

void TestCompletion::proposeLesValeursDeChaqueOption()
{
    int avecValeurs = 0;
    for (const QString &commande : std::as_const(commandes)) {
        const QString aide = Dit({commande, "--help"});
        for (const QString &option : Trouves(QStringLiteral("^  (--[a-z-]+ <[^>]+>)"), aide)) {
            const QString nom = option.section(u' ', 0, 0);
            const QString valeurs = option.section(u'<', 1).chopped(1);
            const QStringList attendues = valeurs.contains(u'|') ? Tries(valeurs.split(u'|')) : QStringList();
            QCOMPARE(Proposes({commande, nom, ""}), attendues);
            QCOMPARE(Proposes({commande, nom, "="}), attendues);
            avecValeurs += attendues.isEmpty() ? 0 : 1;
        }
    }
    QCOMPARE(avecValeurs, 3);
}

void TestCompletion::unMotCommence_data()
{
    QTest::addColumn<QStringList>("mots");
    QTest::addColumn<QStringList>("proposes");
    QTest::newRow("commande") << QStringList{"re"} << QStringList{"reparer"};
    QTest::newRow("inconnue") << QStringList{"peindre"} << QStringList();
    QTest::newRow("option") << QStringList{"dessiner", "--pa"} << QStringList{"--page", "--paysage"};
    QTest::newRow("option derrière des fichiers")
        << QStringList{"dessiner", "a.xrlg", "a.pdf", "--rep"} << QStringList{"--reperes"};
    QTest::newRow("option d'une autre") << QStringList{"lister", "--pa"} << QStringList();
    QTest::newRow("valeur") << QStringList{"dessiner", "--page", "A"} << QStringList{"A3", "A4"};
    QTest::newRow("valeur collée") << QStringList{"dessiner", "--page", "=", "un"} << QStringList{"unique"};
    QTest::newRow("fichier") << QStringList{"dessiner", "a"} << QStringList();
}

void TestCompletion::unMotCommence()
{
    QFETCH(const QStringList, mots);
    QTEST(Proposes(mots), "proposes");
}

void TestCompletion::dansUnTerminal_data()
{
    QTest::addColumn<QString>("tape");
    QTest::addColumn<QString>("execute");
    QTest::newRow("fichier") << "dess\tm\t"
                             << "<dessiner><martin.xrlg>";
    QTest::newRow("blancs") << "lister arb\t"
                            << "<lister><arbre de Paul.xrlg>";
    QTest::newRow("guillemets") << "lister \"arb\t"
                                << "<lister><arbre de Paul.xrlg>";
    QTest::newRow("collée") << "dessiner --page=un\tm\t"
                            << "<dessiner><--page=unique><martin.xrlg>";
    QTest::newRow("pas un fichier") << "dessiner --dpi m\t"
                                    << "<dessiner><--dpi><m>";
    QTest::newRow("derrière une option seule") << "dessiner --reduit m\t"
                                               << "<dessiner><--reduit><martin.xrlg>";
}

void TestCompletion::dansUnTerminal()
{
    QFETCH(const QString, tape);
    QFETCH(const QString, execute);
    QTemporaryDir dossier;
    for (const QString &nom : {QStringLiteral("martin.xrlg"), QStringLiteral("arbre de Paul.xrlg")})
        QVERIFY(QFile(dossier.filePath(nom)).open(QIODevice::WriteOnly));
    // In the place of the program, one that tells what it was called with.
    const QString saisie = QStringLiteral("cd '%1'\nsource '" RAMELIER_COMPLETION "'\n"
                                          "ramelier-cli() { printf '<%s>' \"$@\"; echo; }\nramelier-cli %2\nexit\n")
                               .arg(dossier.path(), tape);
    QProcess terminal;
    terminal.start("script", {"-qec", "bash --norc --noprofile -i", "/dev/null"});
    terminal.write(saisie.toUtf8());
    QVERIFY(terminal.waitForFinished(30'000));
    const QString sortie = QString::fromUtf8(terminal.readAll());
    QVERIFY2(sortie.contains(execute + QStringLiteral("\r\n")), qPrintable(sortie));
}

RAMELIER_TEST_MAIN(QCoreApplication, TestCompletion)
#include "tst_completion.moc"
