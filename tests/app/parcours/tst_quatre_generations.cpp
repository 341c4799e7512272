#include "arbre.h"
#include "arbres.h"
#include "contenu.h"
#include "disposition.h"
#include "ecran.h"
#include "environnement.h"
#include "ficxrlg.h"
#include "formatsdessins.h"
#include "personne.h"

#include <QGuiApplication>
#include <QProcess>

/// A family of four generations, typed into the built program under a real X server: keys, clicks and menus as a user
/// has them. What it saved is then read here, and opened again by the program.
class TestQuatreGenerations : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void cleanup();
    void laFamilleEntreParLeClavierEtLaSouris();
    void leFichierDitLesQuinzePersonnes();
    void leFichierSeRouvreEtSeDessine();

private:
    void Demarre(const QStringList &arguments, const QString &titre);
    void CreeLArbre();
    void AjouteUnParent(quint64 numero);
    void TapePersonne(const Textes &textes);
    void Enregistre();
    [[nodiscard]] QRect Cadre(quint64 numero, int presentes) const;
    [[nodiscard]] bool SontPeintes(int presentes) const;
    [[nodiscard]] bool RacineEnVue() const;

    QProcess programme;
    QTemporaryDir dossier{"/tmp/ramelier-essai-XXXXXX"};
    QString fenetre;
};

namespace {

constexpr QRgb noir = 0xff000000;
constexpr QRgb bleu = 0xff0000ff;

// Surname, given names, birth and its place, death and its place, remark; no sheet and no photo.
const QList<Textes> famille{
    {"BONNEFOY", "Éléonore", "12/03/1952", "Orléans", "", "", "la première de l'arbre"},
    {"BONNEFOY", "François Régis", "1921", "Besançon", "4 mai 1999", "À Sète", "menuisier"},
    {"LEFÈVRE", "Geneviève", "vers 1925", "Besançon", "", "", ""},
    {"BONNEFOY", "Émile", "", "", "", "", ""},
    {"ÇELIK", "Zoé", "", "", "", "", ""},
    {"LEFÈVRE", "André", "", "", "", "", ""},
    {"D'ARÇON", "Hélène", "", "", "", "", ""},
    {"BONNEFOY", "Barthélemy", "", "", "", "", ""},
    {"PÉRÈS", "Inès", "", "", "", "", ""},
    {"ÇELIK", "Kemal", "", "", "", "", ""},
    {"LACOMBE", "Jeanne (dite Là-Haut)", "", "", "", "", ""},
    {"LEFÈVRE", "Désiré", "", "", "", "", ""},
    {"ŒILLET", "Cœlia", "", "", "", "", ""},
    {"D'ARÇON", "Où-Élie", "", "", "", "", ""},
    {"de « LA TOUR »", "Thérèse", "", "", "", "", ""},
};

constexpr int largeur = 1200;
constexpr int hauteur = 800;
/// Menu bar and tool bar stand above the drawing.
constexpr int hauteurDesBarres = 50;
constexpr int boutonDroit = 3;
constexpr int moletteVersLeBas = 5;

}  // namespace

void TestQuatreGenerations::initTestCase()
{
    QVERIFY(dossier.isValid());
    QVERIFY(Ecran::PrendClavierFrancophone());
}

void TestQuatreGenerations::cleanup()
{
    if (programme.state() == QProcess::NotRunning)
        return;
    Ecran::Garde("quatre-generations-echec");
    programme.kill();
    programme.waitForFinished();
}

void TestQuatreGenerations::Demarre(const QStringList &arguments, const QString &titre)
{
    programme.setProgram(RAMELIER_PROGRAMME);
    programme.setArguments(arguments);
    programme.setProcessChannelMode(QProcess::ForwardedErrorChannel);
    programme.start();
    QVERIFY(programme.waitForStarted());
    fenetre = Ecran::AttendActive(titre);
    QVERIFY(!fenetre.isEmpty());
    Ecran::Xdotool({"windowmove", fenetre, "20", "20"});
    Ecran::Xdotool({"windowsize", fenetre, QString::number(largeur), QString::number(hauteur)});
    QTRY_COMPARE_WITH_TIMEOUT(Ecran::Place(fenetre).size(), QSize(largeur, hauteur), 10000);
}

QRect TestQuatreGenerations::Cadre(quint64 numero, int presentes) const
{
    QList<quint64> numeros;
    for (quint64 n = 1; n <= static_cast<quint64>(presentes); ++n)
        numeros += n;
    const auto arbre = ArbreDeNumeros(numeros);
    constexpr float pixelsParMm = 96 / 25.4F;
    DisposeArbre(*arbre, FormatsDessins::ParDefaut(), pixelsParMm, pixelsParMm);
    const Personne *personne = Trouve(*arbre, numero);
    // 30 x 42 mm.
    return QRect(static_cast<int>(personne->x), static_cast<int>(personne->y), 113, 158)
        .translated(Ecran::Place(fenetre).topLeft() + QPoint(0, hauteurDesBarres));
}

bool TestQuatreGenerations::SontPeintes(int presentes) const
{
    // Those of the rows that the window shows. A frame is 540 points long; half of one may lie beyond the right border.
    const int bas = Ecran::Place(fenetre).bottom();
    QList<QRect> zones;
    for (int numero = 1; numero <= presentes; ++numero) {
        const QRect zone = Cadre(static_cast<quint64>(numero), presentes).adjusted(-8, -8, 8, 8);
        if (zone.bottom() < bas)
            zones += zone;
    }
    return QTest::qWaitFor(
        [&zones] {
            const QImage image = Ecran::Image();
            return std::all_of(zones.begin(), zones.end(),
                               [&image](const QRect &zone) { return Ecran::Points(image, zone, noir) > 300; });
        },
        10000);
}

bool TestQuatreGenerations::RacineEnVue() const
{
    // Both long sides of its frame, moved up by however much the wheel has scrolled.
    const QImage image = Ecran::Image();
    const QRect cadre = Cadre(1, 15);
    for (int decalage = 50; decalage < cadre.top(); ++decalage) {
        const QRect cote = cadre.translated(0, -decalage).adjusted(-2, 20, 2, -20);
        const QRect gauche(cote.topLeft(), QSize(5, cote.height()));
        const QRect droite(QPoint(cote.right() - 4, cote.top()), gauche.size());
        if (Ecran::Points(image, gauche, noir) > 200 && Ecran::Points(image, droite, noir) > 200
            && cote.bottom() < Ecran::Place(fenetre).bottom())
            return true;
    }
    return false;
}

void TestQuatreGenerations::TapePersonne(const Textes &textes)
{
    std::size_t derniere = textes.size();
    while (derniere > 0 && textes[derniere - 1].isEmpty())
        --derniere;
    for (std::size_t i = 0; i < derniere; ++i) {
        if (i > 0)
            Ecran::Touches({"Tab"});
        if (!textes[i].isEmpty())
            Ecran::Tape(textes[i]);
    }
}

void TestQuatreGenerations::CreeLArbre()
{
    Ecran::Touches({"ctrl+n"});
    QVERIFY(!Ecran::AttendActive("^Arbre généalogique - Page de garde$").isEmpty());
    for (const char *texte : {"Ascendance d'Éléonore BONNEFOY", "Noé \"le Jeune\"", "1er janvier 2024", "", ""}) {
        if (*texte != '\0')
            Ecran::Tape(texte);
        Ecran::Touches({"Tab"});
    }
    Ecran::Garde("quatre-generations-page");
    Ecran::Touches({"Return"});
    QVERIFY(!Ecran::AttendActive("^Personne .Création / Modification.$").isEmpty());
    TapePersonne(famille.constFirst());
    Ecran::Garde("quatre-generations-racine");
    Ecran::Touches({"Return"});
    QVERIFY(Ecran::EstActive(fenetre));
    QVERIFY(SontPeintes(1));
}

void TestQuatreGenerations::AjouteUnParent(quint64 numero)
{
    const int presentes = static_cast<int>(numero) - 1;
    const bool pere = numero % 2 == 0;
    const QRect cadre = Cadre(numero / 2, presentes);
    const QPoint milieu = cadre.center();
    Ecran::Clique(milieu);
    // The mark stands around the frame.
    QTRY_VERIFY_WITH_TIMEOUT(Ecran::Points(Ecran::Image(), cadre.adjusted(-8, -8, 8, 8), bleu) > 300, 10000);
    if (pere) {
        // In the menu under the mouse: Modifier, then the father.
        Ecran::Clique(milieu, boutonDroit);
        Ecran::Touches({"Down", "Down"});
        if (numero == 2)
            Ecran::Garde("quatre-generations-menu");
    } else {
        // In the menu Edition; its first entry that can be chosen is taken already, and there is a father.
        Ecran::Touches({"alt+e", "Down"});
    }
    Ecran::Touches({"Return"});
    QVERIFY(!Ecran::AttendActive("^Personne .Création / Modification.$").isEmpty());
    TapePersonne(famille.at(presentes));
    if (numero == 2)
        Ecran::Garde("quatre-generations-personne");
    Ecran::Touches({"Return"});
    QVERIFY(Ecran::EstActive(fenetre));
    QVERIFY2(SontPeintes(presentes + 1), qPrintable(QString::number(numero)));
}

void TestQuatreGenerations::Enregistre()
{
    Ecran::Touches({"ctrl+s"});
    QVERIFY(!Ecran::AttendActive("^Enregistrer sous$").isEmpty());
    Ecran::Touches({"ctrl+a"});
    Ecran::Tape(dossier.filePath("famille"));
    Ecran::Garde("quatre-generations-enregistrer");
    Ecran::Touches({"Return"});
    QVERIFY(Ecran::EstActive(fenetre));
    QTRY_COMPARE_WITH_TIMEOUT(Ecran::Xdotool({"getwindowname", fenetre}),
                              "Ramelier 5.1 - " + dossier.filePath("famille.xrlg"), 10000);
}

void TestQuatreGenerations::laFamilleEntreParLeClavierEtLaSouris()
{
    Demarre({}, "^Ramelier 5.1$");
    if (QTest::currentTestFailed())
        return;
    CreeLArbre();
    for (quint64 numero = 2; numero <= 15 && !QTest::currentTestFailed(); ++numero)
        AjouteUnParent(numero);
    if (QTest::currentTestFailed())
        return;
    Ecran::Garde("quatre-generations-arbre");
    Enregistre();
    if (QTest::currentTestFailed())
        return;
    Ecran::Touches({"ctrl+q"});
    QVERIFY(programme.waitForFinished(10000));
    QCOMPARE(programme.exitCode(), 0);
}

void TestQuatreGenerations::leFichierDitLesQuinzePersonnes()
{
    Arbre arbre;
    QString repertoire = dossier.path();
    QCOMPARE(readFicXRLG(dossier.filePath("famille.xrlg"), repertoire, &arbre), 0);
    QCOMPARE(NumerosEnTexte(arbre), "1 2 3 4 5 6 7 8 9 10 11 12 13 14 15");
    QCOMPARE(arbre.nombreGenerations, 4);
    // The written count and the fifteen that were read.
    QCOMPARE(arbre.nombrePersonnes, 30U);
    QCOMPARE(DefautDe(arbre, 15), QString());
    Contenu attendu;
    attendu.page = {"Ascendance d'Éléonore BONNEFOY", "Noé \"le Jeune\"", "1er janvier 2024", "", ""};
    for (quint64 numero = 1; numero <= 15; ++numero)
        attendu.personnes[numero] = famille.at(static_cast<int>(numero) - 1);
    QCOMPARE(Difference(attendu, ContenuDe(arbre)), QString());
}

void TestQuatreGenerations::leFichierSeRouvreEtSeDessine()
{
    const QString chemin = dossier.filePath("famille.xrlg");
    Demarre({chemin}, "^Ramelier 5.1 - ");
    if (QTest::currentTestFailed())
        return;
    QCOMPARE(Ecran::Xdotool({"getwindowname", fenetre}), "Ramelier 5.1 - " + chemin);
    // Three generations are in sight, the root and the title below.
    QVERIFY(SontPeintes(15));
    const QImage haut = Ecran::Image();
    QCOMPARE(Ecran::Points(haut, Ecran::Place(fenetre), bleu), 0);
    Ecran::Garde("quatre-generations-rouvert");
    for (int cran = 0; cran < 5; ++cran)
        Ecran::Clique(Cadre(5, 15).center(), moletteVersLeBas);
    QTRY_VERIFY_WITH_TIMEOUT(Ecran::Image() != haut, 10000);
    QTRY_VERIFY_WITH_TIMEOUT(RacineEnVue(), 10000);
    Ecran::Garde("quatre-generations-bas");
    Ecran::Touches({"ctrl+q"});
    QVERIFY(programme.waitForFinished(10000));
}

RAMELIER_TEST_MAIN(QGuiApplication, TestQuatreGenerations)
#include "tst_quatre_generations.moc"
