#include "arbre.h"
#include "arbres.h"
#include "canevas.h"
#include "disposition.h"
#include "enregistreur.h"
#include "environnement.h"
#include "formatsdessins.h"
#include "infopersonne.h"
#include "lespolices.h"
#include "personne.h"

#include <QGuiApplication>
#include <QPainter>

#include <random>

namespace {

/// Draws that are the same on every machine for the same seed.
class Tirage
{
public:
    explicit Tirage(quint32 graine)
        : moteur(graine)
    {
    }

    int Entre(int mini, int maxi) { return mini + static_cast<int>(moteur() % static_cast<quint32>(maxi - mini + 1)); }
    bool Chance(int surCent) { return Entre(0, 99) < surCent; }

    QString Mot()
    {
        static const QStringList mots{QStringLiteral("de"),
                                      QStringLiteral("Jean"),
                                      QStringLiteral("Élisabeth-Charlotte"),
                                      QStringLiteral("ANTICONSTITUTIONNELLEMENT"),
                                      QStringLiteral("WWWWWWWWWWWWWWWWWWWWWWWWWWWWWW"),
                                      QStringLiteral("Saint-Étienne-de-Saint-Geoirs/Isère"),
                                      QStringLiteral("l'an\u00A0II\u00A0de\u00A0la\u00A0République"),
                                      QStringLiteral("Пётр Алексеевич"),
                                      QStringLiteral("神聖羅馬帝國皇帝"),
                                      QStringLiteral("محمد بن عبد الله"),
                                      QStringLiteral("שלמה"),
                                      QStringLiteral("e\u0301\u0302\u0303"),
                                      QStringLiteral("👑👑"),
                                      QStringLiteral("http://exemple.org/une/adresse/tres/longue?q=sans&blanc=aucun"),
                                      QStringLiteral("….…-…/…"),
                                      QStringLiteral("fin\nde\nligne"),
                                      QStringLiteral("\t\ttab"),
                                      QStringLiteral("ﬁﬃﷺ"),
                                      QStringLiteral("œuvre")};
        return mots.at(Entre(0, static_cast<int>(mots.size()) - 1));
    }

    QString Texte(int motsMax)
    {
        QStringList mots;
        for (int reste = Entre(0, motsMax); reste > 0; --reste)
            mots += Mot();
        return mots.join(Chance(80) ? QStringLiteral(" ") : QString());
    }

    QRect Zone(QSize feuille)
    {
        const QPoint coin(Entre(-10, feuille.width() - 1), Entre(-10, feuille.height() - 1));
        return {coin, QSize(Entre(1, Chance(50) ? 40 : feuille.width()), Entre(1, Chance(50) ? 40 : feuille.height()))};
    }

private:
    std::mt19937 moteur;
};

std::unique_ptr<Arbre> ArbreBavard(Tirage &tirage, quint32 graine)
{
    auto arbre = ArbreAuHasard({.graine = graine, .personnes = 22, .chanceParent = 0.8});
    for (Personne *personne = arbre->premiere; personne; personne = personne->suivante) {
        InfoPersonne &info = *personne->info;
        info.prenom = tirage.Texte(3);
        info.nom = tirage.Texte(2);
        info.datenaissance = tirage.Texte(2);
        info.lieunaissance = tirage.Texte(3);
        info.datedeces = tirage.Texte(2);
        info.lieudeces = tirage.Texte(3);
        if (tirage.Chance(30))
            info.divers = tirage.Texte(15);
        if (tirage.Chance(30)) {
            info.photo = QImage(tirage.Entre(1, 90), tirage.Entre(1, 90), QImage::Format_RGB32);
            info.photo.fill(QColor::fromHsv(tirage.Entre(0, 359), 255, 200));
            info.etatPhoto = InfoPersonne::PhotoChargee;
        }
        if (tirage.Chance(10))
            personne->affichable = false;
        if (!arbre->selection && tirage.Chance(20)) {
            arbre->selection = personne;
            personne->selectionnee = true;
        }
        if (tirage.Chance(5))
            delete std::exchange(personne->info, nullptr);
    }
    return arbre;
}

struct Reglage
{
    FormatsDessins formats = FormatsDessins::ParDefaut();
    LesPolices polices = LesPolices::ParDefaut();
    float sx = 2.0F;
    float sy = 2.0F;
    bool arbreOuvert = true;
    QPoint origine;  ///< the painter is moved by this much, as it is for a page
};

QImage Dessine(Arbre &arbre, const Reglage &reglage, QSize taille, const QRegion &zone = QRegion())
{
    QImage feuille(taille, QImage::Format_RGB32);
    feuille.fill(Qt::white);
    QPainter peintre(&feuille);
    peintre.translate(reglage.origine);
    if (!zone.isEmpty())
        peintre.setClipRegion(zone.translated(-reglage.origine));
    arbre.Affiche(&peintre, reglage.sx, reglage.sy, false, reglage.formats, reglage.polices, reglage.arbreOuvert);
    return feuille;
}

/// White but for \a zone, where it is \a image.
QImage Decoupe(const QImage &image, const QRegion &zone)
{
    QImage feuille(image.size(), image.format());
    feuille.fill(Qt::white);
    QPainter peintre(&feuille);
    peintre.setClipRegion(zone);
    peintre.drawImage(0, 0, image);
    return feuille;
}

QSize TailleDe(const Arbre &arbre, const Reglage &reglage)
{
    QImage rien(1, 1, QImage::Format_RGB32);
    QPainter peintre(&rien);
    Canevas canevas;
    CalculeCanevas(canevas, peintre, arbre, reglage.formats, reglage.polices, reglage.sx, reglage.sy);
    return {static_cast<int>(qMin(canevas.largeurCanevas, 1500L)), static_cast<int>(canevas.hauteurCanevas + 200)};
}

}  // namespace

/// What lies outside the exposed part is not drawn, and nobody can tell.
class TestDessinPartiel : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void bandeParBandeLeDessinEstEntier_data() { Reglages(); }
    void bandeParBandeLeDessinEstEntier();
    void unePartieEstIdentiqueAuTout_data() { Reglages(); }
    void unePartieEstIdentiqueAuTout();
    void deuxMorceauxSontIdentiquesAuTout();
    void unEcranVideNeDessineRien();
    void seulesLesPersonnesProchesSontDessinees_data();
    void seulesLesPersonnesProchesSontDessinees();
    void unTexteQuiDebordeEstDessineDeLoin_data();
    void unTexteQuiDebordeEstDessineDeLoin();
    void unTexteQuiAuraitPuDeborderNEstPasDessine_data();
    void unTexteQuiAuraitPuDeborderNEstPasDessine();

private:
    static void Reglages();
};

void TestDessinPartiel::Reglages()
{
    QTest::addColumn<Reglage>("reglage");
    const auto ligne = [](const char *nom, const auto &change) {
        Reglage reglage;
        change(reglage);
        QTest::newRow(nom) << reglage;
    };
    ligne("par défaut", [](Reglage &) {});
    ligne("mode réduit", [](Reglage &reglage) {
        reglage.arbreOuvert = false;
        reglage.formats = FormatsDessins::Reduits();
        reglage.polices = LesPolices::Reduites();
    });
    ligne("page déplacée", [](Reglage &reglage) { reglage.origine = QPoint(-130, -70); });
    ligne("cadres étroits", [](Reglage &reglage) {
        reglage.formats.largeurCadre = 6;
        reglage.formats.margeDansCadre = 2;
    });
    ligne("cadres bas et serrés", [](Reglage &reglage) {
        reglage.formats.hauteurCadre = 5;
        reglage.formats.distMinVert = 2;
        reglage.formats.distMinHoriz = 0;
    });
    ligne("grandes lettres", [](Reglage &reglage) {
        reglage.polices.policeTextes = FaitPolice(QStringLiteral("Liberation Serif"), 30, 75, true);
    });
    ligne("grands numéros", [](Reglage &reglage) {
        reglage.polices.policeNumeros = FaitPolice(QStringLiteral("Helvetica"), 60, 75, true);
        reglage.polices.policeTextes = FaitPolice(QStringLiteral("Helvetica"), 4, 50);
    });
    ligne("traits épais", [](Reglage &reglage) {
        reglage.formats.epaisseurTraits = 12.0F;
        reglage.formats.rayonArc = 20.0F;
    });
    ligne("rayon plus grand que les écarts", [](Reglage &reglage) {
        reglage.formats.rayonArc = 60.0F;
        reglage.formats.epaisseurTraits = 0.2F;
    });
    ligne("photos éloignées", [](Reglage &reglage) { reglage.formats.intervCadrePhoto = 120; });
    ligne("photos sous les cadres", [](Reglage &reglage) { reglage.formats.intervCadrePhoto = -180; });
    ligne("rangées qui se recouvrent", [](Reglage &reglage) { reglage.formats.distMinVert = -30; });
    ligne("cadres sans taille", [](Reglage &reglage) {
        reglage.formats.largeurCadre = 0;
        reglage.formats.hauteurCadre = 0;
        reglage.formats.distMinHoriz = 30;
        reglage.formats.distMinVert = 30;
    });
    ligne("marge plus grande que le cadre", [](Reglage &reglage) { reglage.formats.margeDansCadre = 40; });
    ligne("marge négative", [](Reglage &reglage) { reglage.formats.margeDansCadre = -10; });
    ligne("échelles différentes", [](Reglage &reglage) {
        reglage.sx = 3.7795F;
        reglage.sy = 1.3F;
    });
}

void TestDessinPartiel::bandeParBandeLeDessinEstEntier()
{
    // Bands of one pixel, as thin as the exposed part can be: nothing is missed beside any border.
    QFETCH(Reglage, reglage);
    reglage.origine += QPoint(250, 150);
    const auto arbre = ArbreDeNumeros({1, 2, 3});
    Personne *mere = Trouve(*arbre, 3);
    mere->numero = 9223372036854775809U;
    DisposeArbre(*arbre, reglage.formats, reglage.sx, reglage.sy);
    mere->info->prenom = QString(25, u'W');
    mere->info->divers = QString(30, u'W').replace(u'W', QStringLiteral("W "));
    arbre->TextesChanges(*mere);
    arbre->premiere->info->photo = QImage(60, 40, QImage::Format_RGB32);
    arbre->premiere->info->photo.fill(Qt::red);
    arbre->premiere->info->etatPhoto = InfoPersonne::PhotoChargee;
    mere->selectionnee = true;
    delete std::exchange(Trouve(*arbre, 2)->info, nullptr);
    const QSize taille(800, 700);
    const QImage tout = Dessine(*arbre, reglage, taille);
    for (const bool colonnes : {true, false}) {
        QImage feuille(taille, QImage::Format_RGB32);
        feuille.fill(Qt::white);
        QPainter peintre(&feuille);
        peintre.translate(reglage.origine);
        for (int rang = 0; rang < (colonnes ? taille.width() : taille.height()); ++rang) {
            const QRect bande = colonnes ? QRect(rang, 0, 1, taille.height()) : QRect(0, rang, taille.width(), 1);
            peintre.setClipRect(bande.translated(-reglage.origine));
            arbre->Affiche(&peintre, reglage.sx, reglage.sy, false, reglage.formats, reglage.polices,
                           reglage.arbreOuvert);
        }
        peintre.end();
        QVERIFY2(feuille == tout, colonnes ? "colonnes" : "rangées");
    }
}

void TestDessinPartiel::unePartieEstIdentiqueAuTout()
{
    QFETCH(Reglage, reglage);
    for (quint32 graine = 1; graine <= 3; ++graine) {
        Tirage tirage(graine);
        const auto arbre = ArbreBavard(tirage, graine);
        DisposeArbre(*arbre, reglage.formats, reglage.sx, reglage.sy);
        const QSize taille = TailleDe(*arbre, reglage);
        const QImage tout = Dessine(*arbre, reglage, taille);
        for (int essai = 0; essai < 40; ++essai) {
            const QRect zone = tirage.Zone(taille);
            if (Dessine(*arbre, reglage, taille, zone) != Decoupe(tout, zone)) {
                QFAIL(qPrintable(QStringLiteral("graine %1, zone %2,%3 %4x%5")
                                     .arg(graine)
                                     .arg(zone.x())
                                     .arg(zone.y())
                                     .arg(zone.width())
                                     .arg(zone.height())));
            }
        }
    }
}

void TestDessinPartiel::deuxMorceauxSontIdentiquesAuTout()
{
    Tirage tirage(7);
    const Reglage reglage;
    const auto arbre = ArbreBavard(tirage, 7);
    DisposeArbre(*arbre, reglage.formats, reglage.sx, reglage.sy);
    const QSize taille = TailleDe(*arbre, reglage);
    const QImage tout = Dessine(*arbre, reglage, taille);
    for (int essai = 0; essai < 20; ++essai) {
        const QRegion zone = QRegion(tirage.Zone(taille)) + QRegion(tirage.Zone(taille), QRegion::Ellipse);
        QCOMPARE(Dessine(*arbre, reglage, taille, zone), Decoupe(tout, zone));
    }
}

void TestDessinPartiel::unEcranVideNeDessineRien()
{
    const auto arbre = ArbreComplet(4);
    const Reglage reglage;
    DisposeArbre(*arbre, reglage.formats, reglage.sx, reglage.sy);
    Enregistreur dessin;
    QPainter peintre(&dessin);
    peintre.setClipRect(QRect(3000, 3000, 50, 50));
    arbre->Affiche(&peintre, reglage.sx, reglage.sy, false, reglage.formats, reglage.polices, true);
    QCOMPARE(dessin.EnTexte(), QStringList());
}

void TestDessinPartiel::seulesLesPersonnesProchesSontDessinees_data()
{
    // 255 persons; the numbers of those drawn when no more than one box is exposed.
    QTest::addColumn<quint64>("exposee");
    QTest::newRow("la racine") << quint64(1);
    QTest::newRow("le plus vieil ancêtre") << quint64(128);
    QTest::newRow("la dernière") << quint64(255);
    QTest::newRow("au milieu") << quint64(21);
}

void TestDessinPartiel::seulesLesPersonnesProchesSontDessinees()
{
    QFETCH(quint64, exposee);
    const auto arbre = ArbreComplet(8);
    Reglage reglage;
    DisposeArbre(*arbre, reglage.formats, reglage.sx, reglage.sy);
    const Personne *personne = Trouve(*arbre, exposee);
    Enregistreur dessin;
    QPainter peintre(&dessin);
    peintre.setClipRect(QRect(static_cast<int>(personne->x) + 5, static_cast<int>(personne->y) + 5, 50, 60));
    arbre->Affiche(&peintre, reglage.sx, reglage.sy, false, reglage.formats, reglage.polices, true);
    QVERIFY(dessin.Textes().contains(QString::number(exposee)));
    QVERIFY(dessin.Textes().contains(u'N' + QString::number(exposee)));
    // Itself, perhaps the neighbours whose texts could have run over to it, and their links.
    QVERIFY2(dessin.Traces(Trace::Genre::Chemin).size() <= 40, qPrintable(dessin.EnTexte().join(u'\n')));
    QVERIFY2(dessin.Textes().size() <= 2 * 8, qPrintable(dessin.Textes().join(u' ')));
    QVERIFY2(dessin.Traces(Trace::Genre::Ligne).size() <= 6 * 4, qPrintable(dessin.EnTexte().join(u'\n')));
}

void TestDessinPartiel::unTexteQuiDebordeEstDessineDeLoin_data()
{
    QTest::addColumn<QString>("texte");
    QTest::addColumn<QPoint>("ou");  // from the corner of the box of 60 x 84 pixels
    QTest::newRow("mot très long, à gauche") << QString(60, u'M') << QPoint(-150, 25);
    QTest::newRow("mot très long, à droite") << QString(60, u'M') << QPoint(200, 25);
    QTest::newRow("mot d'une autre écriture") << QString(60, u'神') << QPoint(20, 60);
    QTest::newRow("beaucoup de lignes") << QString(60, u'M').replace(u'M', QStringLiteral("M\n")) << QPoint(25, 700);
    QTest::newRow("beaucoup de mots") << QString(60, u'M').replace(u'M', QStringLiteral("Marie ")) << QPoint(25, 300);
}

void TestDessinPartiel::unTexteQuiDebordeEstDessineDeLoin()
{
    QFETCH(QString, texte);
    QFETCH(QPoint, ou);
    const auto arbre = ArbreDeNumeros({1});
    arbre->premiere->x = 400;
    arbre->premiere->y = 100;
    arbre->premiere->info->nom = texte;
    const QSize taille(1000, 1000);
    const QRect zone(QPoint(400, 100) + ou - QPoint(10, 10), QSize(20, 20));
    const QImage partie = Dessine(*arbre, Reglage(), taille, zone);
    QImage blanche(taille, QImage::Format_RGB32);
    blanche.fill(Qt::white);
    QVERIFY(partie != blanche);
    QCOMPARE(partie, Decoupe(Dessine(*arbre, Reglage(), taille), zone));
}

void TestDessinPartiel::unTexteQuiAuraitPuDeborderNEstPasDessine_data()
{
    // From the right edge of a box of 60 pixels, whose name takes some 150.
    QTest::addColumn<int>("ecart");
    QTest::addColumn<bool>("dessine");
    QTest::newRow("où il passe") << 25 << true;
    QTest::newRow("où il aurait pu passer") << 100 << false;
}

void TestDessinPartiel::unTexteQuiAuraitPuDeborderNEstPasDessine()
{
    QFETCH(int, ecart);
    QFETCH(bool, dessine);
    const auto arbre = ArbreDeNumeros({1});
    arbre->premiere->info->nom = QStringLiteral("ANTICONSTITUTIONNEL");
    const Reglage reglage;
    DisposeArbre(*arbre, reglage.formats, reglage.sx, reglage.sy);
    Enregistreur dessin;
    QPainter peintre(&dessin);
    peintre.setClipRect(QRect(static_cast<int>(arbre->premiere->x) + 60 + ecart, 40, 5, 60));
    for (int fois = 0; fois < 2; ++fois)
        arbre->Affiche(&peintre, reglage.sx, reglage.sy, true, reglage.formats, reglage.polices, true);
    QCOMPARE(dessin.Textes().count(QStringLiteral("ANTICONSTITUTIONNEL")), dessine ? 2 : 0);
    QCOMPARE(dessin.Traces().isEmpty(), !dessine);
}

RAMELIER_TEST_MAIN(QGuiApplication, TestDessinPartiel)
#include "tst_dessin_partiel.moc"
