#include "arbre.h"
#include "arbres.h"
#include "canevas.h"
#include "disposition.h"
#include "environnement.h"
#include "formatsdessins.h"
#include "infopersonne.h"
#include "lespolices.h"
#include "personne.h"

#include <QGuiApplication>
#include <QPainter>

#include <limits>

namespace {

constexpr int enorme = std::numeric_limits<int>::max();
constexpr int tresNegatif = std::numeric_limits<int>::min();
constexpr float infini = std::numeric_limits<float>::infinity();
constexpr float pasUnNombre = std::numeric_limits<float>::quiet_NaN();

struct Reglage
{
    FormatsDessins formats = FormatsDessins::ParDefaut();
    LesPolices polices = LesPolices::ParDefaut();
};

void MemesLongueurs(FormatsDessins &formats, int millimetres)
{
    formats.largeurCadre = formats.hauteurCadre = millimetres;
    formats.distMinHoriz = formats.distMinVert = millimetres;
    formats.margeGenerale = formats.margeDansCadre = formats.intervCadrePhoto = millimetres;
}

void MemesPolices(LesPolices &polices, const QFont &police)
{
    polices.policeTextes = polices.policeNumeros = polices.policeTitre = polices.policeLegende = police;
}

/// Every person has every text, the third has a photo, the root is selected.
std::unique_ptr<Arbre> ArbreRempli()
{
    auto arbre = ArbreComplet(3);
    for (Personne *personne = arbre->premiere; personne; personne = personne->suivante) {
        delete personne->info;
        personne->info =
            new InfoPersonne(QStringLiteral("DUPONT"), QStringLiteral("Jean"), QStringLiteral("1900"),
                             QStringLiteral("Lyon"), QStringLiteral("1970"), QStringLiteral("Paris"),
                             QStringLiteral("Une remarque"), QString(), QString(), InfoPersonne::PhotoNonEssayee);
    }
    Personne *avecPhoto = Trouve(*arbre, 3);
    avecPhoto->info->photo = QImage(40, 50, QImage::Format_RGB32);
    avecPhoto->info->photo.fill(Qt::red);
    avecPhoto->info->etatPhoto = InfoPersonne::PhotoChargee;
    arbre->selection = arbre->premiere;
    arbre->selection->selectionnee = true;
    arbre->infoArbre->titrearbre = QStringLiteral("Titre");
    return arbre;
}

}  // namespace

/// Lengths, fonts and colours as a damaged options file may give them: something is drawn, at once.
class TestDessinAbsurde : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase_data();
    void toutSeDessineQuandMeme();
    void lImpressionSeDessineQuandMeme();
    void leClicTrouveSansSePlaindre();

private:
    void Dessine(QPainter &peintre, bool impression, float sx, float sy);

    Canevas canevas;
};

void TestDessinAbsurde::initTestCase_data()
{
    QTest::addColumn<Reglage>("reglage");
    const auto ligne = [](const char *nom, const auto &change) {
        Reglage reglage;
        change(reglage);
        QTest::newRow(nom) << reglage;
    };
    ligne("rien de fixé", [](Reglage &reglage) { reglage = {.formats = FormatsDessins(), .polices = LesPolices()}; });
    ligne("tout à zéro", [](Reglage &reglage) { MemesLongueurs(reglage.formats, 0); });
    ligne("tout à moins un", [](Reglage &reglage) { MemesLongueurs(reglage.formats, -1); });
    ligne("tout à moins cent", [](Reglage &reglage) { MemesLongueurs(reglage.formats, -100); });
    ligne("tout énorme", [](Reglage &reglage) { MemesLongueurs(reglage.formats, enorme); });
    ligne("tout très négatif", [](Reglage &reglage) { MemesLongueurs(reglage.formats, tresNegatif); });
    ligne("cadre énorme", [](Reglage &reglage) {
        reglage.formats.largeurCadre = enorme;
        reglage.formats.hauteurCadre = enorme;
    });
    ligne("cadre grand", [](Reglage &reglage) {
        reglage.formats.largeurCadre = 1'000'000;
        reglage.formats.hauteurCadre = 1'000'000;
    });
    ligne("cadre très négatif", [](Reglage &reglage) {
        reglage.formats.largeurCadre = tresNegatif;
        reglage.formats.hauteurCadre = tresNegatif;
    });
    ligne("écarts énormes",
          [](Reglage &reglage) { reglage.formats.distMinHoriz = reglage.formats.distMinVert = enorme; });
    ligne("écarts très négatifs",
          [](Reglage &reglage) { reglage.formats.distMinHoriz = reglage.formats.distMinVert = tresNegatif; });
    ligne("marge générale énorme", [](Reglage &reglage) { reglage.formats.margeGenerale = enorme; });
    ligne("marge dans le cadre énorme", [](Reglage &reglage) { reglage.formats.margeDansCadre = enorme; });
    ligne("marge dans le cadre très négative", [](Reglage &reglage) { reglage.formats.margeDansCadre = tresNegatif; });
    ligne("photo au loin", [](Reglage &reglage) { reglage.formats.intervCadrePhoto = enorme; });
    const QList<std::pair<const char *, float>> reels{{"traits et rayon à zéro", 0.0F},
                                                      {"traits et rayon négatifs", -5.0F},
                                                      {"traits et rayon énormes", 3e38F},
                                                      {"traits et rayon à l'infini", infini},
                                                      {"traits et rayon à moins l'infini", -infini},
                                                      {"traits et rayon qui ne sont pas des nombres", pasUnNombre}};
    for (const auto &[nom, valeur] : reels) {
        ligne(nom,
              [reel = valeur](Reglage &reglage) { reglage.formats.epaisseurTraits = reglage.formats.rayonArc = reel; });
    }
    ligne("polices d'un million de points", [](Reglage &reglage) {
        MemesPolices(reglage.polices, FaitPolice(QStringLiteral("Helvetica"), 1'000'000, 75));
    });
    ligne("polices sans taille", [](Reglage &reglage) { MemesPolices(reglage.polices, FaitPolice(QString(), 0, 0)); });
    ligne("polices négatives", [](Reglage &reglage) { MemesPolices(reglage.polices, FaitPolice(QString(), -3, -50)); });
    ligne("police inconnue", [](Reglage &reglage) {
        MemesPolices(reglage.polices, FaitPolice(QStringLiteral("Aucune Police De Ce Nom"), 8, 5000));
    });
    ligne("couleurs invalides",
          [](Reglage &reglage) { reglage.formats.couleurTraits = reglage.polices.couleurCaracteres = QColor(); });
}

void TestDessinAbsurde::Dessine(QPainter &peintre, bool impression, float sx, float sy)
{
    QFETCH_GLOBAL(Reglage, reglage);
    const auto arbre = ArbreRempli();
    DisposeArbre(*arbre, reglage.formats, sx, sy);
    CalculeCanevas(canevas, peintre, *arbre, reglage.formats, reglage.polices, sx, sy);
    const QFont police = peintre.font();
    for (const bool arbreOuvert : {true, false})
        arbre->Affiche(&peintre, sx, sy, impression, reglage.formats, reglage.polices, arbreOuvert);
    DessineTitre(peintre, *arbre->infoArbre, canevas, reglage.polices);
    QCOMPARE(peintre.font(), police);
}

void TestDessinAbsurde::toutSeDessineQuandMeme()
{
    QImage feuille(300, 300, QImage::Format_RGB32);
    feuille.fill(Qt::white);
    QPainter peintre(&feuille);
    Dessine(peintre, false, 3.78F, 3.78F);
    peintre.setClipRect(100, 100, 50, 50);
    Dessine(peintre, false, 3.78F, 3.78F);
    QVERIFY(canevas.canevasCalcule);
}

void TestDessinAbsurde::lImpressionSeDessineQuandMeme()
{
    QImage feuille(300, 300, QImage::Format_RGB32);
    feuille.fill(Qt::white);
    QPainter peintre(&feuille);
    Dessine(peintre, true, 47.2F, 47.2F);
    QVERIFY(canevas.canevasCalcule);
}

void TestDessinAbsurde::leClicTrouveSansSePlaindre()
{
    QFETCH_GLOBAL(Reglage, reglage);
    const auto arbre = ArbreRempli();
    DisposeArbre(*arbre, reglage.formats, 3.78F, 3.78F);
    // Nobody's box reaches above the paper.
    QVERIFY(!arbre->premiere->EstClique(50, std::numeric_limits<long>::min(), 3.78F, 3.78F, reglage.formats));
    QVERIFY(arbre->DeselectSelect(50, std::numeric_limits<long>::min(), 3.78F, 3.78F, reglage.formats));
    QVERIFY(!arbre->selection);
}

RAMELIER_TEST_MAIN(QGuiApplication, TestDessinAbsurde)
#include "tst_dessin_absurde.moc"
