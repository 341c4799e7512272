#include "arbre.h"
#include "arbres.h"
#include "environnement.h"
#include "ficoptions.h"
#include "ficxrlg.h"
#include "formatsdessins.h"
#include "gedcomexport.h"
#include "interlocuteurnote.h"
#include "lespolices.h"
#include "personne.h"

#include <QBuffer>
#include <QGuiApplication>
#include <QLocale>

/// What is written, and what is read back, is the same in every language.
class TestFichiersEtLangue : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase() { Interlocuteur::Installe(std::make_unique<InterlocuteurNote>(messages)); }
    void cleanup() { QLocale::setDefault(QLocale::c()); }
    void lesFichiersSontLesMemes_data();
    void lesFichiersSontLesMemes();
    void lesOptionsSeRelisent_data() { lesFichiersSontLesMemes_data(); }
    void lesOptionsSeRelisent();

private:
    [[nodiscard]] QMap<QString, QByteArray> Ecrits() const;
    QTemporaryDir dossier;
    QStringList messages;
};

namespace {

/// Numbers of four digits and more, where languages put points, commas and digits of their own.
constexpr quint64 numeros[] = {1, 2, 3, 7, 1234567, 18446744073709551615ULL};

FormatsDessins Formats()
{
    FormatsDessins formats = FormatsDessins::ParDefaut();
    formats.largeurCadre = 1234;
    formats.epaisseurTraits = 2.0F;
    formats.rayonArc = 12.0F;
    return formats;
}

QByteArray Octets(const QString &chemin)
{
    QFile fichier(chemin);
    return fichier.open(QIODevice::ReadOnly) ? fichier.readAll() : QByteArray();
}

}  // namespace

QMap<QString, QByteArray> TestFichiersEtLangue::Ecrits() const
{
    const auto arbre = ArbreDeNumeros({std::begin(numeros), std::end(numeros)});
    QMap<QString, QByteArray> octets;
    QBuffer xrlg(&octets["xrlg"]);
    if (!xrlg.open(QIODevice::WriteOnly) || !EcritArbreXRLG(xrlg, *arbre))
        return {};
    for (const int type : {OptionsPreferences, OptionsParArbre}) {
        const QString chemin = dossier.filePath(QString::number(type) + ".opt");
        if (!EcritOptions(chemin, Formats(), LesPolices::ParDefaut(), type))
            return {};
        octets[QString::number(type)] = Octets(chemin);
    }
    const QString ged = dossier.filePath("arbre.ged");
    QString nomArbre = dossier.filePath("arbre.xrlg");
    ExporterVersFichierGEDCOM(nullptr, ged, arbre.get(), nomArbre);
    octets["ged"] = Octets(ged);
    return octets;
}

void TestFichiersEtLangue::lesFichiersSontLesMemes_data()
{
    QTest::addColumn<QLocale>("langue");
    for (const char *nom : {"fr_FR", "fr_CH", "de_DE", "en_US", "hi_IN", "ar_EG", "fa_IR", "my_MM"})
        QTest::newRow(nom) << QLocale(QString::fromLatin1(nom));
}

void TestFichiersEtLangue::lesFichiersSontLesMemes()
{
    QFETCH(const QLocale, langue);
    QLocale::setDefault(QLocale::c());
    const auto enAnglais = Ecrits();
    QLocale::setDefault(langue);
    // The language really has other numbers.
    QVERIFY(QLocale().toString(1234567.5) != QStringLiteral("1234567.5"));
    const auto dansLaLangue = Ecrits();
    QCOMPARE(enAnglais.keys(), (QStringList{"0", "1", "ged", "xrlg"}));
    for (auto fichier = enAnglais.cbegin(); fichier != enAnglais.cend(); ++fichier) {
        QVERIFY2(fichier.value().size() > 100, qPrintable(fichier.key()));
        QCOMPARE(dansLaLangue.value(fichier.key()), fichier.value());
    }
    QVERIFY(dansLaLangue.value("xrlg").contains("<numero>18446744073709551615</numero>"));
    QVERIFY(dansLaLangue.value("1").contains("\n1234\n"));
}

void TestFichiersEtLangue::lesOptionsSeRelisent()
{
    QFETCH(const QLocale, langue);
    QLocale::setDefault(langue);
    const QString chemin = dossier.filePath("relu.opt");
    QVERIFY(EcritOptions(chemin, Formats(), LesPolices::ParDefaut(), OptionsParArbre));
    FormatsDessins formats;
    LesPolices polices;
    QVERIFY(LitOptions(chemin, &formats, &polices));
    QCOMPARE(formats.largeurCadre, 1234);
    QCOMPARE(formats.epaisseurTraits, 2.0F);
    QCOMPARE(formats.rayonArc, 12.0F);
    QCOMPARE(polices.policeTitre.pointSize(), 30);
}

RAMELIER_TEST_MAIN(QGuiApplication, TestFichiersEtLangue)
#include "tst_fichiers_et_langue.moc"
