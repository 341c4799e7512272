#include "arbre.h"
#include "arbres.h"
#include "enregistreur.h"
#include "environnement.h"
#include "formatsdessins.h"
#include "lespolices.h"
#include "personne.h"

#include <QGuiApplication>
#include <QPainter>

namespace {

/// The links of \a arbre at 4 pixels per millimetre across and 2 down.
std::unique_ptr<Enregistreur> Liaisons(const Arbre &arbre, const FormatsDessins &formats)
{
    auto dessin = std::make_unique<Enregistreur>();
    QPainter peintre(dessin.get());
    arbre.TraceLesLiaisons(&peintre, 4.0F, 2.0F, formats);
    return dessin;
}

/// The father (if any) of person 1 at (40, 20), its mother (if any) at (280, 20), itself at (160, 134).
std::unique_ptr<Arbre> Famille(const QList<quint64> &numeros)
{
    auto arbre = ArbreDeNumeros(numeros);
    for (Personne *personne = arbre->premiere; personne; personne = personne->suivante) {
        personne->x = personne->numero == 1 ? 160 : personne->numero == 2 ? 40 : 280;
        personne->y = personne->numero == 1 ? 134 : 20;
    }
    return arbre;
}

}  // namespace

class TestDessinLiaisons : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init() { formats = FormatsDessins::ParDefaut(); }

    void deuxParentsSeRejoignentPuisDescendent();
    void lesDemiesLongueursSontDesMillimetresEntiers();
    void unMilieuImpairEstTronque();
    void sansRayonLesTraitsSeTouchent();
    void unParentSeulDescendToutDroit_data();
    void unParentSeulDescendToutDroit();
    void unParentNonAffichableNEstPasRelie_data();
    void unParentNonAffichableNEstPasRelie();
    void sansParentRienNEstTrace();
    void leParcoursSArreteALaDerniereGeneration_data();
    void leParcoursSArreteALaDerniereGeneration();
    void laPlumeEstCelleDesTraits_data();
    void laPlumeEstCelleDesTraits();
    void lArbreDessineLesPersonnesPuisLesLiaisons();
    void unArbreSansPersonneNeDessineRien();
    void lePeintreEstRenduCommeIlEtait();
    void seulsLesMorceauxExposesSontTraces_data();
    void seulsLesMorceauxExposesSontTraces();

private:
    FormatsDessins formats;
};

void TestDessinLiaisons::deuxParentsSeRejoignentPuisDescendent()
{
    const QStringList attendu{
        QStringLiteral("ligne 100,104 100,113"),       QStringLiteral("arc 100,108 20x10 2880 1440"),
        QStringLiteral("ligne 110,118 210,118"),       QStringLiteral("arc 200,118 20x10 1440 -1440"),
        QStringLiteral("ligne 220,123 220,134"),       QStringLiteral("arc 220,118 20x10 2880 -1440"),
        QStringLiteral("ligne 230,118 330,118"),       QStringLiteral("ligne 330,118 330,118"),
        QStringLiteral("arc 320,108 20x10 4320 1440"), QStringLiteral("ligne 340,113 340,104")};
    QCOMPARE(Liaisons(*Famille({1, 2, 3}), formats)->EnTexte(), attendu);
}

void TestDessinLiaisons::lesDemiesLongueursSontDesMillimetresEntiers()
{
    // 15 and 11 mm, although half of 31 and 23 would be one or two pixels more.
    formats.largeurCadre = 31;
    formats.hauteurCadre = 30;
    formats.distMinVert = 23;
    formats.rayonArc = 1.3F;
    const QStringList attendu{
        QStringLiteral("ligne 100,80 100,100"),      QStringLiteral("arc 100,98 10x4 2880 1440"),
        QStringLiteral("ligne 105,102 215,102"),     QStringLiteral("arc 210,102 10x4 1440 -1440"),
        QStringLiteral("ligne 220,104 220,134"),     QStringLiteral("arc 220,102 10x4 2880 -1440"),
        QStringLiteral("ligne 225,102 335,102"),     QStringLiteral("ligne 335,102 335,102"),
        QStringLiteral("arc 330,98 10x4 4320 1440"), QStringLiteral("ligne 340,100 340,80")};
    QCOMPARE(Liaisons(*Famille({1, 2, 3}), formats)->EnTexte(), attendu);
    const auto pereSeul = Famille({1, 2});
    QCOMPARE(Liaisons(*pereSeul, formats)->EnTexte(), QStringList(QStringLiteral("ligne 100,80 100,134")));
}

void TestDessinLiaisons::unMilieuImpairEstTronque()
{
    const auto arbre = Famille({1, 2, 3});
    Trouve(*arbre, 3)->x = 285;
    const auto dessin = Liaisons(*arbre, formats);
    QVERIFY(dessin->EnTexte().contains(QStringLiteral("ligne 222,123 222,134")));
    QVERIFY(dessin->EnTexte().contains(QStringLiteral("ligne 110,118 212,118")));
}

void TestDessinLiaisons::sansRayonLesTraitsSeTouchent()
{
    formats.rayonArc = 0;
    const QStringList attendu{QStringLiteral("ligne 100,104 100,118"), QStringLiteral("ligne 100,118 220,118"),
                              QStringLiteral("ligne 220,118 220,134"), QStringLiteral("ligne 220,118 340,118"),
                              QStringLiteral("ligne 340,118 340,118"), QStringLiteral("ligne 340,118 340,104")};
    QCOMPARE(Liaisons(*Famille({1, 2, 3}), formats)->EnTexte(Trace::Genre::Ligne), attendu);
}

void TestDessinLiaisons::unParentSeulDescendToutDroit_data()
{
    QTest::addColumn<quint64>("parent");
    QTest::addColumn<QString>("attendu");
    QTest::newRow("père") << quint64(2) << QStringLiteral("ligne 100,104 100,134");
    QTest::newRow("mère") << quint64(3) << QStringLiteral("ligne 340,104 340,134");
}

void TestDessinLiaisons::unParentSeulDescendToutDroit()
{
    QFETCH(quint64, parent);
    QFETCH(QString, attendu);
    QCOMPARE(Liaisons(*Famille({1, parent}), formats)->EnTexte(), QStringList(attendu));
}

void TestDessinLiaisons::unParentNonAffichableNEstPasRelie_data()
{
    QTest::addColumn<QList<quint64>>("numeros");
    QTest::addColumn<quint64>("cache");
    QTest::newRow("père seul") << QList<quint64>{1, 2} << quint64(2);
    QTest::newRow("mère seule") << QList<quint64>{1, 3} << quint64(3);
    QTest::newRow("père de deux") << QList<quint64>{1, 2, 3} << quint64(2);
    QTest::newRow("mère de deux") << QList<quint64>{1, 2, 3} << quint64(3);
}

void TestDessinLiaisons::unParentNonAffichableNEstPasRelie()
{
    QFETCH(QList<quint64>, numeros);
    QFETCH(quint64, cache);
    const auto arbre = Famille(numeros);
    Trouve(*arbre, cache)->affichable = false;
    QCOMPARE(Liaisons(*arbre, formats)->EnTexte(), QStringList());
    Trouve(*arbre, cache)->affichable = true;
    QCOMPARE(Liaisons(*arbre, formats)->Traces().size(), numeros.size() == 3 ? 10 : 1);
}

void TestDessinLiaisons::sansParentRienNEstTrace()
{
    const auto arbre = Famille({1});
    arbre->nombreGenerations = 2;
    QCOMPARE(Liaisons(*arbre, formats)->EnTexte(), QStringList());
}

void TestDessinLiaisons::leParcoursSArreteALaDerniereGeneration_data()
{
    QTest::addColumn<int>("generations");
    QTest::addColumn<int>("traces");  // ten for each child
    QTest::newRow("toutes") << 3 << 30;
    QTest::newRow("une de trop") << 4 << 30;
    QTest::newRow("la racine seule") << 2 << 10;
    QTest::newRow("aucune") << 1 << 0;
}

void TestDessinLiaisons::leParcoursSArreteALaDerniereGeneration()
{
    QFETCH(int, generations);
    QFETCH(int, traces);
    const auto arbre = ArbreComplet(3);
    arbre->nombreGenerations = static_cast<unsigned short>(generations);
    QCOMPARE(Liaisons(*arbre, formats)->Traces().size(), traces);
}

void TestDessinLiaisons::laPlumeEstCelleDesTraits_data()
{
    QTest::addColumn<float>("epaisseur");
    QTest::addColumn<int>("largeur");
    QTest::newRow("1 mm") << 1.0F << 4;
    QTest::newRow("tronquée") << 1.9F << 7;
    QTest::newRow("moins d'un pixel") << 0.2F << 0;
}

void TestDessinLiaisons::laPlumeEstCelleDesTraits()
{
    QFETCH(float, epaisseur);
    QFETCH(int, largeur);
    formats.epaisseurTraits = epaisseur;
    formats.couleurTraits = Qt::darkCyan;
    const auto dessin = Liaisons(*Famille({1, 2, 3}), formats);
    QCOMPARE(dessin->Traces().size(), 10);
    for (const Trace &trace : dessin->Traces()) {
        QCOMPARE(trace.plume.width(), largeur);
        QCOMPARE(trace.plume.color(), QColor(Qt::darkCyan));
        QCOMPARE(trace.plume.style(), Qt::SolidLine);
        QCOMPARE(trace.plume.capStyle(), Qt::SquareCap);
        QCOMPARE(trace.plume.joinStyle(), Qt::BevelJoin);
        QCOMPARE(trace.brosse.style(), Qt::NoBrush);
    }
}

void TestDessinLiaisons::lArbreDessineLesPersonnesPuisLesLiaisons()
{
    const auto arbre = Famille({1, 2});
    Enregistreur dessin;
    QPainter peintre(&dessin);
    arbre->Affiche(&peintre, 4.0F, 2.0F, false, formats, LesPolices::ParDefaut(), true);
    peintre.end();
    const QStringList attendu{QStringLiteral("cadre 160,134 120x84 rondeurs 20,10"),
                              QStringLiteral("texte 1"),
                              QStringLiteral("texte N1"),
                              QStringLiteral("cadre 40,20 120x84 rondeurs 20,10"),
                              QStringLiteral("texte 2"),
                              QStringLiteral("texte N2"),
                              QStringLiteral("ligne 100,104 100,134")};
    QCOMPARE(dessin.EnTexte(), attendu);
}

void TestDessinLiaisons::unArbreSansPersonneNeDessineRien()
{
    Arbre arbre;
    Enregistreur dessin;
    QPainter peintre(&dessin);
    arbre.Affiche(&peintre, 4.0F, 2.0F, false, formats, LesPolices::ParDefaut(), true);
    peintre.end();
    QCOMPARE(dessin.EnTexte(), QStringList());
}

void TestDessinLiaisons::lePeintreEstRenduCommeIlEtait()
{
    const auto arbre = Famille({1, 2, 3});
    Enregistreur dessin;
    QPainter peintre(&dessin);
    const QPen plume(Qt::magenta, 5, Qt::DotLine);
    const QBrush brosse(Qt::yellow);
    const QFont police(QStringLiteral("Liberation Serif"), 33);
    peintre.setPen(plume);
    peintre.setBrush(brosse);
    peintre.setFont(police);
    arbre->Affiche(&peintre, 4.0F, 2.0F, false, formats, LesPolices::ParDefaut(), true);
    QCOMPARE(peintre.pen(), plume);
    QCOMPARE(peintre.brush(), brosse);
    QCOMPARE(peintre.font().toString(), police.toString());
}

void TestDessinLiaisons::seulsLesMorceauxExposesSontTraces_data()
{
    QTest::addColumn<QRect>("expose");
    QTest::addColumn<QStringList>("traces");
    QTest::newRow("le trait vers la mère")
        << QRect(265, 116, 20, 4) << QStringList{QStringLiteral("ligne 230,118 330,118")};
    QTest::newRow("le coude du père") << QRect(102, 115, 2, 2)
                                      << QStringList{QStringLiteral("ligne 100,104 100,113"),
                                                     QStringLiteral("arc 100,108 20x10 2880 1440"),
                                                     QStringLiteral("ligne 110,118 210,118")};
    QTest::newRow("au-dessus de l'enfant")
        << QRect(218, 132, 4, 4)
        << QStringList{QStringLiteral("arc 200,118 20x10 1440 -1440"), QStringLiteral("ligne 220,123 220,134"),
                       QStringLiteral("arc 220,118 20x10 2880 -1440")};
    QTest::newRow("sous le trait du père") << QRect(150, 130, 20, 20) << QStringList();
}

void TestDessinLiaisons::seulsLesMorceauxExposesSontTraces()
{
    QFETCH(QRect, expose);
    QFETCH(QStringList, traces);
    Enregistreur dessin;
    QPainter peintre(&dessin);
    peintre.setClipRect(expose);
    Famille({1, 2, 3})->TraceLesLiaisons(&peintre, 4.0F, 2.0F, formats);
    QCOMPARE(dessin.EnTexte(), traces);
}

RAMELIER_TEST_MAIN(QGuiApplication, TestDessinLiaisons)
#include "tst_dessin_liaisons.moc"
