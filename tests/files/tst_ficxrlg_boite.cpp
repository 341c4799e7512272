#include "arbre.h"
#include "arbres.h"
#include "environnement.h"
#include "ficxrlg.h"
#include "interlocuteurbureau.h"
#include "pannes.h"
#include "scenario.h"

#include <QAbstractButton>
#include <QApplication>
#include <QMessageBox>

#include <sys/stat.h>

/// The boxes of the tree files' reader and writer, as their user sees them.
class TestFicXrlgBoite : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void init();
    void uneEcritureImpossibleMontreUnAvertissement();
    void uneLectureImpossibleMontreUnAvertissement_data();
    void uneLectureImpossibleMontreUnAvertissement();
    void uneErreurDeSyntaxeMontreUneInformation();
    void unNomDeFichierNEstPasDuHtml();
    void unArbreSansFauteNeMontreRien();

private:
    [[nodiscard]] QString Chemin(const QString &nom) const { return dossier->filePath(nom); }
    void Pose(const QString &nom, const QByteArray &contenu) const;
    static void VerifieLaBoite(const Scenario &scenario, QMessageBox::Icon icone, const QString &titre,
                               const QString &texte);

    std::unique_ptr<QTemporaryDir> dossier;
    QString repertoire;
};

void TestFicXrlgBoite::initTestCase()
{
    Interlocuteur::Installe(std::make_unique<InterlocuteurBureau>());
}

void TestFicXrlgBoite::init()
{
    dossier = std::make_unique<QTemporaryDir>();
    repertoire = dossier->path();
    QCOMPARE(chmod(QFile::encodeName(repertoire).constData(), 0755), 0);
}

void TestFicXrlgBoite::Pose(const QString &nom, const QByteArray &contenu) const
{
    QFile fichier(Chemin(nom));
    QVERIFY(fichier.open(QIODevice::WriteOnly));
    QCOMPARE(fichier.write(contenu), contenu.size());
}

void TestFicXrlgBoite::VerifieLaBoite(const Scenario &scenario, QMessageBox::Icon icone, const QString &titre,
                                      const QString &texte)
{
    QCOMPARE(scenario.Ecarts(), QStringList());
    QCOMPARE(scenario.Boites().size(), 1);
    const BoiteVue &boite = scenario.Boites().constFirst();
    QCOMPARE(boite.icone, icone);
    QCOMPARE(boite.titre, titre);
    QCOMPARE(boite.texte, texte);
    QCOMPARE(boite.boutons, QStringList{"OK"});
    QVERIFY(!boite.parent);
}

void TestFicXrlgBoite::uneEcritureImpossibleMontreUnAvertissement()
{
    const auto arbre = ArbreDeNumeros({1});
    Scenario scenario;
    scenario.Repond(QStringLiteral("OK"));
    QVERIFY(!writeFicXRLG(repertoire, arbre.get()));
    VerifieLaBoite(scenario, QMessageBox::Warning, QStringLiteral("Fichier XRLG"),
                   QStringLiteral("Impossible d'écrire dans le fichier ") + repertoire
                       + QStringLiteral(":\nIs a directory."));
}

void TestFicXrlgBoite::uneLectureImpossibleMontreUnAvertissement_data()
{
    QTest::addColumn<QString>("nom");
    QTest::addColumn<QString>("cause");
    QTest::newRow("absent") << "rien.xrlg"
                            << "No such file or directory";
    QTest::newRow("dans un dossier absent") << "rien/a.xrlg"
                                            << "No such file or directory";
    QTest::newRow("un dossier") << "."
                                << "file to open is a directory";
    QTest::newRow("interdit") << "interdit.xrlg"
                              << "Permission denied";
    QTest::newRow("un nom avec des pourcents") << "50%2 %1.xrlg"
                                               << "No such file or directory";
}

void TestFicXrlgBoite::uneLectureImpossibleMontreUnAvertissement()
{
    QFETCH(QString, nom);
    QFETCH(QString, cause);
    Pose(QStringLiteral("interdit.xrlg"), "<xrlg><personne/></xrlg>");
    QCOMPARE(chmod(QFile::encodeName(Chemin(QStringLiteral("interdit.xrlg"))).constData(), 0000), 0);
    Arbre arbre;
    Scenario scenario;
    scenario.Echappe();
    int resultat = -1;
    {
        const SansPrivileges sansPrivileges;
        if (!sansPrivileges.Effectif())
            QSKIP("cannot become an ordinary user here");
        resultat = readFicXRLG(Chemin(nom), repertoire, &arbre);
    }
    QCOMPARE(resultat, 1);
    QVERIFY(!arbre.premiere);
    VerifieLaBoite(scenario, QMessageBox::Warning, QStringLiteral("Arbre XRLG"),
                   QStringLiteral("Impossible de lire le fichier ") + Chemin(nom) + QStringLiteral(":\n") + cause
                       + u'.');
}

void TestFicXrlgBoite::uneErreurDeSyntaxeMontreUneInformation()
{
    Pose(QStringLiteral("a.xrlg"), "<?xml version=\"1.0\"?>\n<html></html>\n");
    Arbre arbre;
    Scenario scenario;
    scenario.Repond(QStringLiteral("OK"));
    QCOMPARE(readFicXRLG(Chemin(QStringLiteral("a.xrlg")), repertoire, &arbre), 2);
    VerifieLaBoite(scenario, QMessageBox::Information, QStringLiteral("Arbre XRLG"),
                   QStringLiteral("Erreur de syntaxe ligne 2, colonne 6:\nLe fichier n'est pas un fichier XRLG."));
}

void TestFicXrlgBoite::unNomDeFichierNEstPasDuHtml()
{
    const QString nom = Chemin(QStringLiteral("<b>gras<b>.xrlg"));
    Qt::TextFormat format = Qt::AutoText;
    Arbre arbre;
    Scenario scenario;
    scenario.Dialogue<QMessageBox>([&format](QMessageBox &boite) {
        format = boite.textFormat();
        Scenario::ClicPlusTard(boite.button(QMessageBox::Ok));
    });
    QCOMPARE(readFicXRLG(nom, repertoire, &arbre), 1);
    QCOMPARE(format, Qt::PlainText);
    VerifieLaBoite(scenario, QMessageBox::Warning, QStringLiteral("Arbre XRLG"),
                   QStringLiteral("Impossible de lire le fichier ") + nom
                       + QStringLiteral(":\nNo such file or directory."));
}

void TestFicXrlgBoite::unArbreSansFauteNeMontreRien()
{
    const auto arbre = ArbreComplet(2);
    const Scenario scenario;
    QVERIFY(writeFicXRLG(Chemin(QStringLiteral("a.xrlg")), arbre.get()));
    Arbre relu;
    QCOMPARE(readFicXRLG(Chemin(QStringLiteral("a.xrlg")), repertoire, &relu), 0);
    QCOMPARE(scenario.Boites().size(), 0);
    QCOMPARE(NumerosEnTexte(relu), QStringLiteral("1 2 3"));
}

RAMELIER_TEST_MAIN(QApplication, TestFicXrlgBoite)
#include "tst_ficxrlg_boite.moc"
