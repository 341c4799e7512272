#include "bancdocument.h"
#include "dlgoptdessin.h"
#include "dlgpolices.h"

#include <QColorDialog>
#include <QFontDialog>

#include <optional>

/// RamelierDoc::modifFormatsDessins and modifPoliceCar: the lengths, the fonts and the colours of the open tree.
class TestPresentation : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup();
    void lesLongueursSontMontrees();
    void lesLongueursReviennent();
    void laCouleurDesTraitsRevient();
    void leBoutonRetablitLesFormatsPreferes();
    void lesPhotosSeReduisentANouveau();
    void lesPhotosSontPretesAvantLeSignal();
    void lesLongueursAbandonneesRestent();
    void sansArbreLesLongueursChangentEnSilence();
    void lesPolicesSontMontrees();
    void unePoliceRevient();
    void laCouleurDesTextesRevient();
    void leBoutonRetablitLesPolicesPreferees();
    void lesPolicesNeTouchentPasAuxPhotos();
    void lesPolicesAbandonneesRestent();
    void sansArbreLesPolicesChangentEnSilence();
    void accepterSansToucherCompteAussi();
    void lesMarquesDejaPoseesRestent();

private:
    void ModifieFormats() { banc->doc.modifFormatsDessins(&banc->fenetre); }
    void ModifiePolices() { banc->doc.modifPoliceCar(&banc->fenetre); }
    void FermeLArbre() { delete std::exchange(banc->doc.arbre, nullptr); }

    std::optional<Banc> banc;
};

namespace {

const QString formatsDeLArbre = "31 43 11 16 17 2 3 0.7 4.5 #123456";
const QString formatsPreferes = "61 63 21 26 27 4 5 1.3 6.5 #654321";
const QString policesDeLArbre = "Helvetica 9, Helvetica 15, Helvetica 31, Helvetica 13, #0000ff";
const QString policesPreferees = "Courier 19, Courier 25 gras, Courier 41 italique, Courier 23, #00ff00";

QString EnTexte(const FormatsDessins &formats)
{
    return QStringLiteral("%1 %2 %3 %4 %5 %6 %7 %8 %9 ")
               .arg(formats.largeurCadre)
               .arg(formats.hauteurCadre)
               .arg(formats.distMinHoriz)
               .arg(formats.distMinVert)
               .arg(formats.margeGenerale)
               .arg(formats.margeDansCadre)
               .arg(formats.intervCadrePhoto)
               .arg(double(formats.epaisseurTraits))
               .arg(double(formats.rayonArc))
        + formats.couleurTraits.name();
}

QString EnTexte(const LesPolices &polices)
{
    QString texte;
    for (const QFont &police :
         {polices.policeTextes, polices.policeNumeros, polices.policeTitre, polices.policeLegende})
        texte += QStringLiteral("%1 %2").arg(police.family()).arg(police.pointSize()) + (police.bold() ? " gras" : "")
            + (police.italic() ? " italique" : "") + ", ";
    return texte + polices.couleurCaracteres.name();
}

/// The state of each person's photo, in list order.
QString Photos(const Arbre &arbre)
{
    QStringList etats;
    for (const Personne *personne = arbre.premiere; personne; personne = personne->suivante)
        etats += personne->info ? QString::number(personne->info->etatPhoto) : "sans données";
    return etats.join(' ');
}

/// The photos of persons 1 to 6 in the states -1, 0, 1, 2, 3 and 4; person 7 has no data at all.
void PosePhotos(const Banc &banc)
{
    for (int numero = 1; numero <= 6; ++numero)
        banc.Info(quint64(numero)).etatPhoto = numero - 2;
    delete std::exchange(banc.Qui(7)->info, nullptr);
}

/// The next modal window is a \a T: clicks \a bouton, and accepts.
template <typename T> void Clique(Scenario &scenario, QPushButton *T::*bouton)
{
    scenario.Dialogue<T>([bouton](T &dialogue) {
        (dialogue.*bouton)->click();
        dialogue.accept();
    });
}

}  // namespace

void TestPresentation::init()
{
    banc.emplace();
    banc->Ouvre({1, 2, 3, 4, 5, 6, 7});
    RamelierDoc &doc = banc->doc;
    doc.formats = {31, 43, 11, 16, 17, 2, 3, 0.7F, 4.5F, QColor("#123456")};
    doc.formatsPref = {61, 63, 21, 26, 27, 4, 5, 1.3F, 6.5F, QColor("#654321")};
    doc.polices = {QFont("Helvetica", 9), QFont("Helvetica", 15), QFont("Helvetica", 31), QFont("Helvetica", 13),
                   QColor("#0000ff")};
    doc.policesPref = {QFont("Courier", 19), QFont("Courier", 25, QFont::Bold),
                       QFont("Courier", 41, QFont::Normal, true), QFont("Courier", 23), QColor("#00ff00")};
}

void TestPresentation::cleanup()
{
    QVERIFY(banc->EstRange());
    // Never the user's preferences.
    QCOMPARE(EnTexte(banc->doc.formatsPref), formatsPreferes);
    QCOMPARE(EnTexte(banc->doc.policesPref), policesPreferees);
    QVERIFY(!banc->doc.isModified());
    banc.reset();
}

void TestPresentation::lesLongueursSontMontrees()
{
    QString montrees;
    QColor pastille;
    const FormatsDessins *reference = nullptr;
    Scenario scenario;
    scenario.Dialogue<DlgOptDessin>([&](DlgOptDessin &dialogue) {
        for (const QSpinBox *champ : {dialogue.sbLCadre, dialogue.sbHCadre, dialogue.sbDMinHoriz, dialogue.sbDMinVert,
                                      dialogue.sbMargeMin, dialogue.sbMargeDansCadre, dialogue.sbIntervCadrePhoto})
            montrees += QString::number(champ->value()) + ' ';
        for (const QDoubleSpinBox *champ : {dialogue.dsbEpTrait, dialogue.dsbRayonArc})
            montrees += QString::number(champ->value()) + ' ';
        const QWidget *carre = dialogue.LineEditCouleurTraits;
        pastille = carre->palette().color(carre->backgroundRole());
        reference = dialogue.formatsReference;
        dialogue.reject();
    });
    ModifieFormats();
    QCOMPARE(scenario.Ecarts(), QStringList());
    QCOMPARE(montrees, "31 43 11 16 17 2 3 0.7 4.5 ");
    QCOMPARE(pastille, QColor("#123456"));
    QCOMPARE(reference, &banc->doc.formatsPref);
}

void TestPresentation::lesLongueursReviennent()
{
    Scenario scenario;
    scenario.Dialogue<DlgOptDessin>([](DlgOptDessin &dialogue) {
        int valeur = 81;
        for (QSpinBox *champ : {dialogue.sbLCadre, dialogue.sbHCadre, dialogue.sbDMinHoriz, dialogue.sbDMinVert,
                                dialogue.sbMargeMin, dialogue.sbMargeDansCadre, dialogue.sbIntervCadrePhoto})
            champ->setValue(valeur++);
        dialogue.dsbEpTrait->setValue(2.4);
        dialogue.dsbRayonArc->setValue(0.2);
        dialogue.accept();
    });
    ModifieFormats();
    QCOMPARE(scenario.Ecarts(), QStringList());
    QCOMPARE(EnTexte(banc->doc.formats), "81 82 83 84 85 86 87 2.4 0.2 #123456");
    // The flag comes after the signal.
    QCOMPARE(banc->deroulement.Lignes(), (QStringList{"dialogue DlgOptDessin", "documentChanged 1"}));
    QVERIFY(banc->doc.areOptionsModified());
    QCOMPARE(EnTexte(banc->doc.polices), policesDeLArbre);
}

void TestPresentation::laCouleurDesTraitsRevient()
{
    Scenario scenario;
    scenario.Dialogue<DlgOptDessin>([](DlgOptDessin &dialogue) { Scenario::ClicPlusTard(dialogue.pbModifCouleur); });
    scenario.Dialogue<QColorDialog>([](QColorDialog &dialogue) {
        dialogue.setCurrentColor(QColor("#ff0000"));
        dialogue.accept();
    });
    scenario.Dialogue<DlgOptDessin>([](DlgOptDessin &dialogue) { dialogue.accept(); });
    ModifieFormats();
    QCOMPARE(scenario.Ecarts(), QStringList());
    QCOMPARE(EnTexte(banc->doc.formats), "31 43 11 16 17 2 3 0.7 4.5 #ff0000");
    QVERIFY(banc->doc.areOptionsModified());
}

void TestPresentation::leBoutonRetablitLesFormatsPreferes()
{
    Scenario scenario;
    Clique<DlgOptDessin>(scenario, &DlgOptDessin::pbValeursParDefaut);
    ModifieFormats();
    QCOMPARE(scenario.Ecarts(), QStringList());
    QCOMPARE(EnTexte(banc->doc.formats), formatsPreferes);
}

void TestPresentation::lesPhotosSeReduisentANouveau()
{
    PosePhotos(*banc);
    Scenario scenario;
    Saisit<DlgOptDessin>(scenario, {});
    ModifieFormats();
    QCOMPARE(scenario.Ecarts(), QStringList());
    QCOMPARE(Photos(*banc->doc.arbre), "-1 0 1 1 1 1 sans données");
}

void TestPresentation::lesPhotosSontPretesAvantLeSignal()
{
    PosePhotos(*banc);
    QString vues;
    QString formats;
    connect(&banc->doc, &RamelierDoc::documentChanged, this, [&] {
        vues = Photos(*banc->doc.arbre);
        formats = EnTexte(banc->doc.formats);
    });
    Scenario scenario;
    Clique<DlgOptDessin>(scenario, &DlgOptDessin::pbValeursParDefaut);
    ModifieFormats();
    QCOMPARE(scenario.Ecarts(), QStringList());
    QCOMPARE(vues, "-1 0 1 1 1 1 sans données");
    QCOMPARE(formats, formatsPreferes);
}

void TestPresentation::lesLongueursAbandonneesRestent()
{
    PosePhotos(*banc);
    Scenario scenario;
    scenario.Dialogue<DlgOptDessin>([](DlgOptDessin &dialogue) {
        dialogue.pbValeursParDefaut->click();
        dialogue.sbLCadre->setValue(99);
        dialogue.CancelButton->click();
    });
    ModifieFormats();
    QCOMPARE(scenario.Ecarts(), QStringList());
    QCOMPARE(EnTexte(banc->doc.formats), formatsDeLArbre);
    QCOMPARE(Photos(*banc->doc.arbre), "-1 0 1 2 3 4 sans données");
    QCOMPARE(banc->deroulement.Lignes(), QStringList{"dialogue DlgOptDessin"});
    QVERIFY(!banc->doc.areOptionsModified());
}

void TestPresentation::sansArbreLesLongueursChangentEnSilence()
{
    FermeLArbre();
    Scenario scenario;
    Clique<DlgOptDessin>(scenario, &DlgOptDessin::pbValeursParDefaut);
    ModifieFormats();
    QCOMPARE(scenario.Ecarts(), QStringList());
    QCOMPARE(EnTexte(banc->doc.formats), formatsPreferes);
    QCOMPARE(banc->deroulement.Lignes(), QStringList{"dialogue DlgOptDessin"});
    QVERIFY(!banc->doc.areOptionsModified());
}

void TestPresentation::lesPolicesSontMontrees()
{
    QString montrees;
    QColor pastille;
    const LesPolices *reference = nullptr;
    Scenario scenario;
    scenario.Dialogue<DlgPolices>([&](DlgPolices &dialogue) {
        for (const QLabel *label :
             {dialogue.labelFamilleTextes, dialogue.labelTailleTextes, dialogue.labelFamilleNumeros,
              dialogue.labelTailleNumeros, dialogue.labelFamilleTitre, dialogue.labelTailleTitre,
              dialogue.labelFamilleLegende, dialogue.labelTailleLegende})
            montrees += label->text() + ' ';
        pastille = dialogue.LineEditCouleur->palette().color(dialogue.LineEditCouleur->backgroundRole());
        reference = dialogue.policesReference;
        dialogue.reject();
    });
    ModifiePolices();
    QCOMPARE(scenario.Ecarts(), QStringList());
    QCOMPARE(montrees, "Helvetica 9 Helvetica 15 Helvetica 31 Helvetica 13 ");
    QCOMPARE(pastille, QColor("#0000ff"));
    QCOMPARE(reference, &banc->doc.policesPref);
}

void TestPresentation::unePoliceRevient()
{
    Scenario scenario;
    scenario.Dialogue<DlgPolices>([](DlgPolices &dialogue) { Scenario::ClicPlusTard(dialogue.pbModifPolTitre); });
    scenario.Dialogue<QFontDialog>([](QFontDialog &dialogue) {
        QFont police = dialogue.currentFont();
        police.setPointSize(44);
        dialogue.setCurrentFont(police);
        dialogue.accept();
    });
    scenario.Dialogue<DlgPolices>([](DlgPolices &dialogue) { dialogue.accept(); });
    ModifiePolices();
    QCOMPARE(scenario.Ecarts(), QStringList());
    QCOMPARE(banc->doc.polices.policeTitre.pointSize(), 44);
    QCOMPARE(banc->doc.polices.policeTextes.pointSize(), 9);
    QCOMPARE(banc->doc.polices.policeNumeros.pointSize(), 15);
    QCOMPARE(banc->doc.polices.policeLegende.pointSize(), 13);
    QCOMPARE(banc->doc.polices.couleurCaracteres, QColor("#0000ff"));
    QVERIFY(banc->doc.areOptionsModified());
}

void TestPresentation::laCouleurDesTextesRevient()
{
    Scenario scenario;
    scenario.Dialogue<DlgPolices>([](DlgPolices &dialogue) { Scenario::ClicPlusTard(dialogue.pbModifCouleur); });
    scenario.Dialogue<QColorDialog>([](QColorDialog &dialogue) {
        dialogue.setCurrentColor(QColor("#ff0000"));
        dialogue.accept();
    });
    scenario.Dialogue<DlgPolices>([](DlgPolices &dialogue) { dialogue.accept(); });
    ModifiePolices();
    QCOMPARE(scenario.Ecarts(), QStringList());
    QCOMPARE(EnTexte(banc->doc.polices), "Helvetica 9, Helvetica 15, Helvetica 31, Helvetica 13, #ff0000");
    QCOMPARE(EnTexte(banc->doc.formats), formatsDeLArbre);
}

void TestPresentation::leBoutonRetablitLesPolicesPreferees()
{
    QString pendantLeSignal;
    connect(&banc->doc, &RamelierDoc::documentChanged, this, [&] { pendantLeSignal = EnTexte(banc->doc.polices); });
    Scenario scenario;
    Clique<DlgPolices>(scenario, &DlgPolices::pbPolicesParDefaut);
    ModifiePolices();
    QCOMPARE(scenario.Ecarts(), QStringList());
    QCOMPARE(pendantLeSignal, policesPreferees);
    QCOMPARE(EnTexte(banc->doc.polices), policesPreferees);
    QCOMPARE(banc->deroulement.Lignes(), (QStringList{"dialogue DlgPolices", "documentChanged 1"}));
    QVERIFY(banc->doc.areOptionsModified());
}

void TestPresentation::lesPolicesNeTouchentPasAuxPhotos()
{
    PosePhotos(*banc);
    Scenario scenario;
    Saisit<DlgPolices>(scenario, {});
    ModifiePolices();
    QCOMPARE(scenario.Ecarts(), QStringList());
    QCOMPARE(Photos(*banc->doc.arbre), "-1 0 1 2 3 4 sans données");
}

void TestPresentation::lesPolicesAbandonneesRestent()
{
    Scenario scenario;
    scenario.Dialogue<DlgPolices>([](DlgPolices &dialogue) {
        dialogue.pbPolicesParDefaut->click();
        dialogue.CancelButton->click();
    });
    ModifiePolices();
    QCOMPARE(scenario.Ecarts(), QStringList());
    QCOMPARE(EnTexte(banc->doc.polices), policesDeLArbre);
    QCOMPARE(banc->deroulement.Lignes(), QStringList{"dialogue DlgPolices"});
    QVERIFY(!banc->doc.areOptionsModified());
}

void TestPresentation::sansArbreLesPolicesChangentEnSilence()
{
    FermeLArbre();
    Scenario scenario;
    scenario.Dialogue<DlgPolices>([](DlgPolices &dialogue) {
        dialogue.pbPolicesParDefaut->click();
        dialogue.OKButton->click();
    });
    ModifiePolices();
    QCOMPARE(scenario.Ecarts(), QStringList());
    QCOMPARE(EnTexte(banc->doc.polices), policesPreferees);
    QCOMPARE(banc->deroulement.Lignes(), QStringList{"dialogue DlgPolices"});
    QVERIFY(!banc->doc.areOptionsModified());
}

void TestPresentation::accepterSansToucherCompteAussi()
{
    Scenario scenario;
    Saisit<DlgOptDessin>(scenario, {});
    Saisit<DlgPolices>(scenario, {});
    ModifieFormats();
    ModifiePolices();
    QCOMPARE(scenario.Ecarts(), QStringList());
    QCOMPARE(EnTexte(banc->doc.formats), formatsDeLArbre);
    QCOMPARE(EnTexte(banc->doc.polices), policesDeLArbre);
    QCOMPARE(banc->deroulement.Lignes(),
             (QStringList{"dialogue DlgOptDessin", "documentChanged 1", "dialogue DlgPolices options",
                          "documentChanged 1 options"}));
}

void TestPresentation::lesMarquesDejaPoseesRestent()
{
    banc->doc.optionsModifiees = true;
    Scenario scenario;
    Abandonne<DlgOptDessin>(scenario);
    Abandonne<DlgPolices>(scenario);
    ModifieFormats();
    ModifiePolices();
    QCOMPARE(scenario.Ecarts(), QStringList());
    QVERIFY(banc->doc.areOptionsModified());
}

RAMELIER_TEST_MAIN(QApplication, TestPresentation)
#include "tst_presentation.moc"
