#include "cataloguefrancais.h"
#include "cataloguelu.h"
#include "ecriture.h"
#include "environnement.h"
#include "francais.h"
#include "lecture.h"
#include "pannes.h"

#include <QCoreApplication>
#include <QDir>
#include <QLibraryInfo>
#include <QLocale>
#include <QTranslator>

#include <cstring>
#include <sys/stat.h>

/// CatalogueFrancais fills exactly the holes that the toolkit's French catalogue has, and the system's errors are told in
/// French.
class TestCatalogueFrancais : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void leCatalogueDeQtEstLa();
    void chaqueTexteManqueAuCatalogueDeQt();
    void aucunTexteNEstDonneDeuxFois();
    void lesTraductionsGardentLesPlacesEtLesBalises();
    void lesErreursSontCellesDuSysteme();
    void rienDeCeQuiSAfficheNeManque();
    void leCatalogueDeQtALeDernierMot();
    void lesErreursDesFichiersSontEnFrancais_data();
    void lesErreursDesFichiersSontEnFrancais();
    void leSystemeDeFichiersSansPlaceEstDitEnFrancais();
    void uneErreurInconnueResteTelleQuelle();
    void lesErreursXmlSontEnFrancais();
    void lesNombresMontresOntUneVirgule();

private:
    static QString Catalogue(const QString &langue)
    {
        return QLibraryInfo::path(QLibraryInfo::TranslationsPath) + "/qtbase_" + langue + ".qm";
    }
    static QByteArray Octets(const QString &bibliotheque);
};

namespace {

const QByteArray contexteSysteme("QIODevice");

/// Texts that Qt says itself, not the C library.
bool EstDeQt(const char *source)
{
    return std::strcmp(source, "No file name specified") == 0;
}

/// Parts of the toolkit that show nothing here: what they say is never seen.
const QByteArrayList muets{
    "QLibrary",           "QFactoryLoader",      // plugins that cannot be loaded
    "QGuiApplication",    "QCommandLineParser",  // options of the toolkit for the command line; our help has its own
    "QSystemSemaphore",   "QProcess",           "QXmlStream",  // not used, or silent
    "QRegularExpression", "QImageWriter",  // mistakes in patterns of ours; we tell of images ourselves
    "QStandardPaths",                      // names of folders that no dialog lists
};

QList<int> Occurrences(const QString &texte)
{
    QList<int> nombres;
    for (const char *motif : {"%1", "%2", "%3", "<p>", "</p>", "<a href", "</a>", "&nbsp;"})
        nombres += static_cast<int>(texte.count(QLatin1StringView(motif)));
    return nombres;
}

}  // namespace

void TestCatalogueFrancais::initTestCase()
{
    ParleFrancais(*QCoreApplication::instance());
}

QByteArray TestCatalogueFrancais::Octets(const QString &bibliotheque)
{
    QFile fichier(bibliotheque);
    return fichier.open(QIODevice::ReadOnly) ? fichier.readAll() : QByteArray();
}

void TestCatalogueFrancais::leCatalogueDeQtEstLa()
{
    QVERIFY(TextesTraduits(Catalogue("fr")).size() > 1000);
    QCOMPARE(QCoreApplication::translate("QPlatformTheme", "Save"), QStringLiteral("Enregistrer"));
}

void TestCatalogueFrancais::chaqueTexteManqueAuCatalogueDeQt()
{
    QTranslator deQt;
    QVERIFY(deQt.load(Catalogue("fr")));
    for (const auto &texte : CatalogueFrancais::Textes())
        QVERIFY2(deQt.translate(texte.contexte, texte.source).isEmpty(), texte.source);
}

void TestCatalogueFrancais::aucunTexteNEstDonneDeuxFois()
{
    QSet<TexteDuToolkit> vus;
    for (const auto &texte : CatalogueFrancais::Textes()) {
        const TexteDuToolkit source{texte.contexte, texte.source};
        QVERIFY2(!vus.contains(source), texte.source);
        vus += source;
    }
    QVERIFY(vus.size() > 80);
}

void TestCatalogueFrancais::lesTraductionsGardentLesPlacesEtLesBalises()
{
    for (const auto &texte : CatalogueFrancais::Textes()) {
        const QString francais = QCoreApplication::translate(texte.contexte, texte.source);
        QCOMPARE(francais, QString::fromUtf8(texte.francais));
        QVERIFY2(!francais.isEmpty(), texte.source);
        QVERIFY2(Occurrences(francais) == Occurrences(QString::fromUtf8(texte.source)), texte.source);
        // A caption is followed by a colon in both languages; the French one has a blank before it.
        const bool etiquette = texte.source[std::strlen(texte.source) - 1] == ':';
        QVERIFY2(francais.endsWith(QStringLiteral(" :")) == etiquette, texte.source);
    }
}

void TestCatalogueFrancais::lesErreursSontCellesDuSysteme()
{
    constexpr int dernierNumero = 133;
    QByteArrayList duSysteme;
    for (int numero = 1; numero <= dernierNumero; ++numero)
        duSysteme += std::strerror(numero);
    int compares = 0;
    for (const auto &texte : CatalogueFrancais::Textes()) {
        if (texte.contexte != contexteSysteme || EstDeQt(texte.source))
            continue;
        QVERIFY2(duSysteme.contains(texte.source), texte.source);
        ++compares;
    }
    QVERIFY(compares > 30);
}

void TestCatalogueFrancais::rienDeCeQuiSAfficheNeManque()
{
    // The German catalogue is complete; what it has and the French one lacks is in use when a library holds it.
    const QSet<TexteDuToolkit> complets = TextesTraduits(Catalogue("de"));
    QVERIFY(complets.size() > 1500);
    const QSet<TexteDuToolkit> francais = TextesTraduits(Catalogue("fr"));
    QList<QByteArray> bibliotheques;
    const QString dossier = QLibraryInfo::path(QLibraryInfo::LibrariesPath);
    for (const char *nom : {"Core", "Gui", "Widgets", "PrintSupport", "Core5Compat", "Svg", "XcbQpa"})
        bibliotheques += Octets(dossier + "/libQt6" + nom + ".so.6");
    bibliotheques += Octets(QLibraryInfo::path(QLibraryInfo::PluginsPath) + "/printsupport/libcupsprintersupport.so");
    QVERIFY(!bibliotheques.contains(QByteArray()));
    QByteArrayList manquants;
    for (const TexteDuToolkit &texte : complets - francais) {
        const bool utilise = std::any_of(bibliotheques.cbegin(), bibliotheques.cend(), [&](const QByteArray &octets) {
            return octets.contains(texte.contexte + '\0') && octets.contains(texte.source + '\0');
        });
        const bool traduit =
            !CatalogueFrancais().translate(texte.contexte.constData(), texte.source.constData(), nullptr, -1).isNull();
        if (utilise && !traduit && !muets.contains(texte.contexte))
            manquants += texte.contexte + ": " + texte.source;
    }
    QCOMPARE(manquants.join('\n'), QByteArray());
}

void TestCatalogueFrancais::leCatalogueDeQtALeDernierMot()
{
    // A later one that has filled a hole is asked before ours.
    class PlusRecent : public QTranslator
    {
    public:
        [[nodiscard]] bool isEmpty() const override { return false; }
        QString translate(const char *contexte, const char *source, const char * /*precision*/,
                          int /*nombre*/) const override
        {
            const bool connu = qstrcmp(contexte, "QShortcut") == 0 && qstrcmp(source, "Memo") == 0;
            return connu ? QStringLiteral("Pense-bête") : QString();
        }
    } recent;
    QCOMPARE(QCoreApplication::translate("QShortcut", "Memo"), QStringLiteral("Mémo"));
    QVERIFY(QCoreApplication::installTranslator(&recent));
    QCOMPARE(QCoreApplication::translate("QShortcut", "Memo"), QStringLiteral("Pense-bête"));
    QVERIFY(QCoreApplication::removeTranslator(&recent));
}

void TestCatalogueFrancais::lesErreursDesFichiersSontEnFrancais_data()
{
    QTest::addColumn<QString>("nom");
    QTest::addColumn<bool>("enEcriture");
    QTest::addColumn<QString>("erreur");

    QTest::newRow("écrire un dossier") << "dossier" << true << "C'est un dossier";
    QTest::newRow("lire un dossier") << "dossier" << false << "le fichier à ouvrir est un répertoire";
    QTest::newRow("écrire dans rien") << "rien/x" << true << "Aucun fichier ou dossier";
    QTest::newRow("lire rien") << "rien" << false << "Aucun fichier ou dossier";
    QTest::newRow("écrire derrière un fichier") << "fichier/x" << true << "Ce n'est pas un dossier";
    QTest::newRow("lire derrière un fichier") << "fichier/x" << false << "Ce n'est pas un dossier";
    QTest::newRow("écrire un nom trop long") << QString(256, 'n') << true << "Nom de fichier trop long";
    QTest::newRow("lire un nom trop long") << QString(256, 'n') << false << "Nom de fichier trop long";
    QTest::newRow("écrire un lien sans fin") << "boucle" << true << "Trop de niveaux de liens symboliques";
    QTest::newRow("écrire un secret") << "secret" << true << "Autorisation refusée";
    QTest::newRow("lire un secret") << "secret" << false << "Autorisation refusée";
    QTest::newRow("écrire sans nom") << "" << true << "Aucun nom de fichier n'est donné";
    QTest::newRow("lire sans nom") << "" << false << "Aucun nom de fichier n'est donné";
}

void TestCatalogueFrancais::lesErreursDesFichiersSontEnFrancais()
{
    QFETCH(const QString, nom);
    QFETCH(const bool, enEcriture);
    const QTemporaryDir dossier;
    QCOMPARE(chmod(QFile::encodeName(dossier.path()).constData(), 0777), 0);
    QVERIFY(QDir(dossier.path()).mkdir("dossier"));
    for (const char *fichier : {"fichier", "secret"}) {
        QFile pose(dossier.filePath(fichier));
        QVERIFY(pose.open(QIODevice::WriteOnly));
    }
    QVERIFY(QFile::setPermissions(dossier.filePath("secret"), QFile::Permissions()));
    QVERIFY(QFile::link("boucle", dossier.filePath("boucle")));
    const QString chemin = nom.isEmpty() ? QString() : dossier.filePath(nom);

    const SansPrivileges simpleUtilisateur;
    if (!simpleUtilisateur.Effectif())
        QSKIP("needs to become another user");
    QString cause;
    if (enEcriture) {
        EcritureFichier ecriture(chemin);
        QVERIFY(!ecriture.Ouvre());
        cause = ecriture.Erreur();
    } else {
        QFile fichier(chemin);
        QVERIFY(!OuvreEnLecture(fichier, QIODevice::ReadOnly, cause));
    }
    QTEST(cause, "erreur");
}

void TestCatalogueFrancais::leSystemeDeFichiersSansPlaceEstDitEnFrancais()
{
    const QTemporaryDir dossier;
    const DisquePlein plein(10);
    EcritureFichier ecriture(dossier.filePath("arbre.xrlg"));
    QVERIFY(ecriture.Ouvre());
    ecriture.Appareil().write(QByteArray(100, 'x'));
    QVERIFY(!ecriture.Termine());
    QCOMPARE(ecriture.Erreur(), QStringLiteral("Fichier trop grand"));
}

void TestCatalogueFrancais::uneErreurInconnueResteTelleQuelle()
{
    QCOMPARE(ErreurEnFrancais("Est un dossier"), QStringLiteral("Est un dossier"));
    QCOMPARE(ErreurEnFrancais(QString()), QString());
    QCOMPARE(ErreurXmlEnFrancais("Le fichier n'est pas un fichier XRLG."),
             QStringLiteral("Le fichier n'est pas un fichier XRLG."));
}

void TestCatalogueFrancais::lesErreursXmlSontEnFrancais()
{
    QCOMPARE(ErreurXmlEnFrancais("letter is expected"), QStringLiteral("une lettre est attendue"));
    // Every one that the parser knows.
    const QByteArray parseur = Octets(QLibraryInfo::path(QLibraryInfo::LibrariesPath) + "/libQt6Core5Compat.so.6");
    int connus = 0;
    for (const TexteDuToolkit &texte : TextesTraduits(Catalogue("fr"))) {
        if (texte.contexte != "QXml" || !parseur.contains(texte.source + '\0'))
            continue;
        const QString anglais = QString::fromUtf8(texte.source);
        QVERIFY2(ErreurXmlEnFrancais(anglais) != anglais, texte.source.constData());
        ++connus;
    }
    QVERIFY(connus >= 15);
}

void TestCatalogueFrancais::lesNombresMontresOntUneVirgule()
{
    QCOMPARE(QLocale().toString(2.5, 'f', 1), QStringLiteral("2,5"));
    // Not what is written into files.
    QCOMPARE(QString::number(2.5), QStringLiteral("2.5"));
    QCOMPARE(QStringLiteral("%1").arg(1234567), QStringLiteral("1234567"));
}

RAMELIER_TEST_MAIN(QCoreApplication, TestCatalogueFrancais)
#include "tst_catalogue_francais.moc"
