#include "environnement.h"
#include "execution.h"

#include <QDir>
#include <QGuiApplication>
#include <QImage>
#include <QPainter>
#include <QRegularExpression>
#include <QSvgRenderer>
#include <QXmlStreamReader>

/// What a desktop and a terminal are told of the programs: entries, description, icons and manual pages, as installed.
class TestBureau : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void uneEntreeEstValide_data();
    void uneEntreeEstValide();
    void uneEntreeNommeCeQuiEstInstalle_data();
    void uneEntreeNommeCeQuiEstInstalle();
    void laDescriptionEstValide();
    void laDescriptionNommeCeQuiEstInstalle();
    void uneIconeALaTailleDeSonDossier_data();
    void uneIconeALaTailleDeSonDossier();
    void unDessinDIconeSeLit_data();
    void unDessinDIconeSeLit();
    void unePageDeManuelSeLit_data();
    void unePageDeManuelSeLit();
    void chaqueCommandeEstDansLesPages_data();
    void chaqueCommandeEstDansLesPages();

private:
    [[nodiscard]] QString Chemin(const QString &nom) const { return dossier.filePath("usr/" + nom); }
    /// The texts of the elements \a nom of the description.
    [[nodiscard]] QStringList Description(const QString &nom) const;

    QTemporaryDir dossier;
};

namespace {

const QStringList icones{"apps/ramelier", "apps/lyedithtml", "mimetypes/application-x-ramelier+xml",
                         "mimetypes/application-x-ramelier-rlg"};

/// The values of the group [Desktop Entry] of a file.
QMap<QString, QString> Entree(const QString &chemin)
{
    QMap<QString, QString> valeurs;
    QFile fichier(chemin);
    if (!fichier.open(QIODevice::ReadOnly))
        return valeurs;
    const QStringList lignes = QString::fromUtf8(fichier.readAll()).split('\n');
    for (const QString &ligne : lignes) {
        const qsizetype egal = ligne.indexOf('=');
        if (egal > 0)
            valeurs.insert(ligne.left(egal), ligne.mid(egal + 1));
    }
    return valeurs;
}

int PointsOpaques(const QImage &image)
{
    int points = 0;
    for (int y = 0; y < image.height(); ++y) {
        for (int x = 0; x < image.width(); ++x)
            points += qAlpha(image.pixel(x, y)) == 255 ? 1 : 0;
    }
    return points;
}

}  // namespace

void TestBureau::initTestCase()
{
    const Execution installe = Execute("cmake", {"--install", RAMELIER_CONSTRUCTION, "--prefix", Chemin("")});
    QVERIFY2(installe.code == 0, qPrintable(installe.sortie));
}

void TestBureau::uneEntreeEstValide_data()
{
    QTest::addColumn<QString>("programme");
    QTest::newRow("l'arbre") << "ramelier";
    QTest::newRow("l'éditeur") << "lyedithtml";
}

void TestBureau::uneEntreeEstValide()
{
    QFETCH(const QString, programme);
    const Execution valide = Execute("desktop-file-validate", {Chemin("share/applications/%1.desktop").arg(programme)});
    QCOMPARE(valide.sortie, "");
    QCOMPARE(valide.code, 0);
}

void TestBureau::uneEntreeNommeCeQuiEstInstalle_data()
{
    uneEntreeEstValide_data();
}

void TestBureau::uneEntreeNommeCeQuiEstInstalle()
{
    QFETCH(const QString, programme);
    const QMap<QString, QString> entree = Entree(Chemin("share/applications/%1.desktop").arg(programme));
    QCOMPARE(entree.value("Exec"), programme + " %f");
    QVERIFY(QFileInfo(Chemin("bin/") + programme).isExecutable());
    QCOMPARE(entree.value("Icon"), programme);
    QVERIFY(QFileInfo(Chemin("share/icons/hicolor/48x48/apps/%1.png").arg(programme)).isFile());
    QVERIFY(!entree.value("Comment[fr]").isEmpty());
    QCOMPARE(entree.value("MimeType"),
             programme == "ramelier" ? "application/x-ramelier+xml;application/x-ramelier-rlg;" : "");
}

QStringList TestBureau::Description(const QString &nom) const
{
    QStringList textes;
    QFile fichier(Chemin("share/metainfo/fr.ramelier.ramelier.metainfo.xml"));
    if (!fichier.open(QIODevice::ReadOnly))
        return textes;
    QXmlStreamReader lecteur(&fichier);
    while (!lecteur.atEnd()) {
        if (lecteur.readNext() != QXmlStreamReader::StartElement || lecteur.name() != nom)
            continue;
        if (lecteur.attributes().hasAttribute("version"))
            textes += lecteur.attributes().value("version").toString();
        else
            textes += lecteur.readElementText();
    }
    return textes;
}

void TestBureau::laDescriptionEstValide()
{
    const Execution valide = Execute("appstreamcli",
                                     {"validate", "--no-net", "--no-color", "--pedantic",
                                      Chemin("share/metainfo/fr.ramelier.ramelier.metainfo.xml")});
    QCOMPARE(valide.sortie.trimmed(), "✔ Validation was successful.");
    QCOMPARE(valide.code, 0);
}

void TestBureau::laDescriptionNommeCeQuiEstInstalle()
{
    QCOMPARE(Description("id"), QStringList("fr.ramelier.ramelier"));
    QCOMPARE(Description("launchable"), QStringList("ramelier.desktop"));
    QCOMPARE(Description("release").constFirst(), "5.1");
    QStringList programmes = Description("binary");
    programmes.sort();
    QCOMPARE(programmes, QDir(Chemin("bin")).entryList(QDir::Files, QDir::Name));
    QCOMPARE(Description("mediatype").join(';') + ';',
             Entree(Chemin("share/applications/ramelier.desktop")).value("MimeType"));
    QCOMPARE(Description("category"), QStringList({"Education", "Humanities"}));
    QCOMPARE(Entree(Chemin("share/applications/ramelier.desktop")).value("Categories"), "Qt;Education;Humanities;");
}

void TestBureau::uneIconeALaTailleDeSonDossier_data()
{
    QTest::addColumn<QString>("icone");
    QTest::addColumn<int>("taille");
    for (const QString &icone : icones) {
        for (const int taille : {16, 22, 24, 32, 48, 64, 128, 256})
            QTest::addRow("%s, %d", qPrintable(icone), taille) << icone << taille;
    }
}

void TestBureau::uneIconeALaTailleDeSonDossier()
{
    QFETCH(const QString, icone);
    QFETCH(const int, taille);
    const QImage image(Chemin("share/icons/hicolor/%1x%1/%2.png").arg(taille).arg(icone));
    QCOMPARE(image.size(), QSize(taille, taille));
    QVERIFY(image.hasAlphaChannel());
    // A drawing on nothing: neither an empty picture nor a painted square.
    const int opaques = PointsOpaques(image);
    QVERIFY2(opaques > taille * taille / 4 && opaques < taille * taille * 9 / 10, qPrintable(QString::number(opaques)));
}

void TestBureau::unDessinDIconeSeLit_data()
{
    QTest::addColumn<QString>("icone");
    for (const QString &icone : icones)
        QTest::newRow(qPrintable(icone)) << icone;
}

void TestBureau::unDessinDIconeSeLit()
{
    QFETCH(const QString, icone);
    QSvgRenderer dessin(Chemin("share/icons/hicolor/scalable/%1.svg").arg(icone));
    QVERIFY(dessin.isValid());
    QCOMPARE(dessin.viewBox(), QRect(0, 0, 32, 32));
    QImage image(256, 256, QImage::Format_ARGB32_Premultiplied);
    image.fill(Qt::transparent);
    QPainter peintre(&image);
    dessin.render(&peintre);
    peintre.end();
    // The same drawing as the largest picture.
    const int difference =
        PointsOpaques(image) - PointsOpaques(QImage(Chemin("share/icons/hicolor/256x256/%1.png").arg(icone)));
    QVERIFY2(qAbs(difference) < 500, qPrintable(QString::number(difference)));
}

void TestBureau::unePageDeManuelSeLit_data()
{
    QTest::addColumn<QString>("programme");
    QTest::addColumn<QString>("dossierDeLangue");
    QTest::addColumn<QString>("section");
    for (const char *programme : {"ramelier", "ramelier-cli", "lyedithtml"}) {
        QTest::addRow("%s en anglais", programme) << programme << ""
                                                  << "NAME";
        QTest::addRow("%s en français", programme) << programme << "fr/"
                                                   << "NOM";
    }
}

void TestBureau::unePageDeManuelSeLit()
{
    QFETCH(const QString, programme);
    QFETCH(const QString, dossierDeLangue);
    QFETCH(const QString, section);
    QProcessEnvironment environnement = Avec("MANWIDTH", "120");
    environnement.insert("GROFF_NO_SGR", "1");
    const Execution lu = Execute(
        "man", {"--warnings", "-E", "UTF-8", "-l", Chemin("share/man/%1man1/%2.1").arg(dossierDeLangue, programme)},
        environnement);
    QCOMPARE(lu.code, 0);
    const QString page = QString(lu.sortie).remove(QRegularExpression(".\b"));
    const QStringList lignes = page.split('\n');
    // A warning would come first.
    QVERIFY2(lignes.constFirst().startsWith(programme.toUpper() + "(1) "), qPrintable(page));
    QVERIFY2(!page.contains("warning"), qPrintable(page));
    QCOMPARE(lignes.value(2), section);
    QVERIFY2(lignes.value(3).simplified().startsWith(programme + " - "), qPrintable(lignes.value(3)));
    QVERIFY2(page.trimmed().section('\n', -1).startsWith("Ramelier 5.1 "), qPrintable(page));
}

void TestBureau::chaqueCommandeEstDansLesPages_data()
{
    QTest::addColumn<QString>("page");
    QTest::addColumn<QString>("commande");
    const QString aide = Execute(Chemin("bin/ramelier-cli"), {"--help"}).sortie;
    static const QRegularExpression ligneDeCommande("^  ([a-z]+) ", QRegularExpression::MultilineOption);
    for (const QString page : {"man/man1/ramelier-cli.1", "man/fr/man1/ramelier-cli.1"}) {
        for (auto i = ligneDeCommande.globalMatch(aide); i.hasNext();) {
            const QString commande = i.next().captured(1);
            QTest::newRow(qPrintable(page + ", " + commande)) << page << commande;
        }
    }
}

void TestBureau::chaqueCommandeEstDansLesPages()
{
    QFETCH(const QString, page);
    QFETCH(const QString, commande);
    QFile fichier(Chemin("share/" + page));
    QVERIFY(fichier.open(QIODevice::ReadOnly));
    const QString source = QString::fromUtf8(fichier.readAll()).replace("\\-", "-");
    const QString entree = source.section("\n.TP\n.BR " + commande + ' ', 1).section("\n.TP\n.BR ", 0, 0);
    QVERIFY(!entree.isEmpty());
    const QString aide = Execute(Chemin("bin/ramelier-cli"), {commande, "--help"}).sortie;
    static const QRegularExpression ligneDOption("^  (--[a-z-]+)", QRegularExpression::MultilineOption);
    QStringList oubliees;
    for (auto i = ligneDOption.globalMatch(aide); i.hasNext();) {
        const QString option = i.next().captured(1);
        if (!entree.contains(QRegularExpression("\n\\.BI? " + option + "( |\n)")))
            oubliees += option;
    }
    QCOMPARE(oubliees.join(' '), "");
}

RAMELIER_TEST_MAIN(QGuiApplication, TestBureau)
#include "tst_bureau.moc"
