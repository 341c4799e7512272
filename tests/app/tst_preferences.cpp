#include "dlgoptdessin.h"
#include "dlgpolices.h"
#include "dlgpreferences.h"
#include "fenetre.h"

#include "ramelierdoc.h"

#include <QAction>
#include <QFile>
#include <QLabel>

/// The commands that change how charts look: for the open tree, and for every new one.
class TestPreferences : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup();
    void lesPreferencesSontMontrees();
    void lesPreferencesAccepteesSontEcrites();
    void unDialogueRefuseNeChangeRien();
    void leTitreParDefautNEstPasGras();
    void unArbreSansOptionsPrendLesPreferences();
    void unArbreAvecSesOptionsLesGarde();
    void desOptionsModifieesSontGardees();
    void sansArbreRienNEstRedessine();
    void unEchecDEcritureEstDit();
    void lesOptionsDeDessinDeLArbre();
    void lesPolicesDeLArbre();

private:
    void Ouvre();
    void AccepteLaLargeur(int largeur);

    std::unique_ptr<Dossier> dossier;
    std::unique_ptr<Fenetre> fenetre;
    QList<int> codes;
};

namespace {

QString FichierDesPreferences()
{
    return QDir::homePath() + "/.ramelier.opt";
}

QStringList LignesDesPreferences()
{
    QFile fichier(FichierDesPreferences());
    return fichier.open(QIODevice::ReadOnly) ? QString::fromLatin1(fichier.readAll()).split('\n') : QStringList();
}

}  // namespace

void TestPreferences::init()
{
    EffaceReglages();
    QFile::remove(FichierDesPreferences());
    dossier = std::make_unique<Dossier>();
    Ouvre();
}

void TestPreferences::cleanup()
{
    fenetre.reset();
    dossier.reset();
}

void TestPreferences::Ouvre()
{
    fenetre = std::make_unique<Fenetre>(QStringList{dossier->Ecrit("a.xrlg", ArbreEcrit("A", {{1, "MARTIN"}}))});
    codes.clear();
    connect(fenetre.get(), &RamelierApp::docChanged, this, [this](int code) { codes += code; });
}

void TestPreferences::AccepteLaLargeur(int largeur)
{
    Scenario scenario;
    scenario.Dialogue<DlgPreferences>([largeur](DlgPreferences &dialogue) {
        dialogue.sbLCadre->setValue(largeur);
        dialogue.accept();
    });
    fenetre->actPreferences->trigger();
    QCOMPARE(scenario.Ecarts(), QStringList());
}

void TestPreferences::lesPreferencesSontMontrees()
{
    QFile fichier(FichierDesPreferences());
    QVERIFY(fichier.open(QIODevice::WriteOnly));
    fichier.write(OptionsEcrites(47));
    fichier.close();
    Ouvre();
    int largeur = 0;
    QString taille;
    Scenario scenario;
    scenario.Dialogue<DlgPreferences>([&](DlgPreferences &dialogue) {
        largeur = dialogue.sbLCadre->value();
        taille = dialogue.labelTailleTitre->text();
        dialogue.reject();
    });
    fenetre->actPreferences->trigger();
    QCOMPARE(scenario.Ecarts(), QStringList());
    QCOMPARE(largeur, 47);
    QCOMPARE(taille, "30");
}

void TestPreferences::lesPreferencesAccepteesSontEcrites()
{
    AccepteLaLargeur(55);
    QCOMPARE(fenetre->doc->formatsPref.largeurCadre, 55);
    QVERIFY(LignesDesPreferences().contains("55"));
    // The dialog is gone.
    QVERIFY(!fenetre->findChild<DlgPreferences *>());
    QVERIFY(!fenetre->doc->isModified());
    QVERIFY(!fenetre->doc->areOptionsModified());
}

void TestPreferences::unDialogueRefuseNeChangeRien()
{
    Scenario scenario;
    scenario.Dialogue<DlgPreferences>([](DlgPreferences &dialogue) {
        dialogue.sbLCadre->setValue(55);
        dialogue.reject();
    });
    fenetre->actPreferences->trigger();
    QCOMPARE(scenario.Ecarts(), QStringList());
    QCOMPARE(fenetre->doc->formatsPref.largeurCadre, 30);
    QCOMPARE(fenetre->doc->formats.largeurCadre, 30);
    QVERIFY(!QFile::exists(FichierDesPreferences()));
    QVERIFY(!fenetre->findChild<DlgPreferences *>());
    QCOMPARE(codes, QList<int>());
}

void TestPreferences::leTitreParDefautNEstPasGras()
{
    QCOMPARE(fenetre->doc->policesPref.policeTitre.bold(), true);
    Scenario scenario;
    scenario.Dialogue<DlgPreferences>([](DlgPreferences &dialogue) {
        dialogue.pbValParDef->click();
        dialogue.accept();
    });
    fenetre->actPreferences->trigger();
    QCOMPARE(scenario.Ecarts(), QStringList());
    QCOMPARE(fenetre->doc->policesPref.policeTitre.pointSize(), 30);
    QCOMPARE(fenetre->doc->policesPref.policeTitre.bold(), false);
}

void TestPreferences::unArbreSansOptionsPrendLesPreferences()
{
    AccepteLaLargeur(55);
    QCOMPARE(fenetre->doc->formats.largeurCadre, 55);
    QCOMPARE(codes, QList<int>{2});
}

void TestPreferences::unArbreAvecSesOptionsLesGarde()
{
    dossier->Ecrit("a.opt", OptionsEcrites(77));
    Ouvre();
    AccepteLaLargeur(55);
    QCOMPARE(fenetre->doc->formats.largeurCadre, 77);
    QCOMPARE(fenetre->doc->formatsPref.largeurCadre, 55);
    QCOMPARE(codes, QList<int>());
}

void TestPreferences::desOptionsModifieesSontGardees()
{
    fenetre->doc->formats.largeurCadre = 66;
    fenetre->doc->optionsModifiees = true;
    AccepteLaLargeur(55);
    QCOMPARE(fenetre->doc->formats.largeurCadre, 66);
    QCOMPARE(codes, QList<int>());
}

void TestPreferences::sansArbreRienNEstRedessine()
{
    fenetre = std::make_unique<Fenetre>();
    codes.clear();
    connect(fenetre.get(), &RamelierApp::docChanged, this, [this](int code) { codes += code; });
    AccepteLaLargeur(55);
    QCOMPARE(fenetre->doc->formatsPref.largeurCadre, 55);
    QCOMPARE(fenetre->doc->formats.largeurCadre, 30);
    QCOMPARE(codes, QList<int>());
}

void TestPreferences::unEchecDEcritureEstDit()
{
    fenetre->doc->fichierPreferences = dossier->Chemin("absent/preferences.opt");
    Scenario scenario;
    scenario.Dialogue<DlgPreferences>([](DlgPreferences &dialogue) {
        dialogue.sbLCadre->setValue(55);
        dialogue.accept();
    });
    scenario.Repond("OK");
    fenetre->actPreferences->trigger();
    QCOMPARE(scenario.Ecarts(), QStringList());
    const BoiteVue boite = scenario.Boites().constFirst();
    QCOMPARE(boite.titre, "Information");
    QCOMPARE(boite.texte,
             "échec ouverture de " + dossier->Chemin("absent/preferences.opt") + "\nPréférences non enregistrées");
    QCOMPARE(boite.icone, QMessageBox::Information);
    QCOMPARE(boite.boutons, QStringList{"OK"});
    // What could not be kept is not what the next tree would start from.
    QCOMPARE(fenetre->doc->formatsPref.largeurCadre, 30);
}

void TestPreferences::lesOptionsDeDessinDeLArbre()
{
    Scenario scenario;
    scenario.Dialogue<DlgOptDessin>([](DlgOptDessin &dialogue) {
        dialogue.sbHCadre->setValue(50);
        dialogue.accept();
    });
    fenetre->actFormatsDessins->trigger();
    QCOMPARE(scenario.Ecarts(), QStringList());
    QCOMPARE(fenetre->doc->formats.hauteurCadre, 50);
    QVERIFY(fenetre->doc->areOptionsModified());
    fenetre->actFileSave->trigger();
    QVERIFY(QString::fromLatin1(dossier->Lit("a.opt")).split('\n').contains("50"));
}

void TestPreferences::lesPolicesDeLArbre()
{
    Scenario scenario;
    scenario.Dialogue<DlgPolices>([](DlgPolices &dialogue) {
        dialogue.polices.policeTextes.setPointSize(11);
        dialogue.accept();
    });
    fenetre->actPoliceCaract->trigger();
    QCOMPARE(scenario.Ecarts(), QStringList());
    QCOMPARE(fenetre->doc->polices.policeTextes.pointSize(), 11);
    QVERIFY(fenetre->doc->areOptionsModified());
}

RAMELIER_TEST_BUREAU_MAIN(TestPreferences)
#include "tst_preferences.moc"
