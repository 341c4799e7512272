#include "arbre.h"
#include "arbres.h"
#include "enregistreur.h"
#include "environnement.h"
#include "ramelierdoc.h"

#include <QGuiApplication>
#include <QPainter>

/// The title block of the document, its place set by hand.
class TestDessinTitre : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup() { doc.reset(); }

    void lesTroisLignesSontALeurPlace();
    void chaqueLigneASaPolice();
    void lesEtiquettesSEcriventMemeSansValeur_data();
    void lesEtiquettesSEcriventMemeSansValeur();
    void rienSansTitreNiOption_data();
    void rienSansTitreNiOption();
    void lePeintreEstRenduCommeIlEtait();
    void bandeParBandeLeTitreEstEntier();
    void loinDuTitreRienNEstDessine_data();
    void loinDuTitreRienNEstDessine();

private:
    [[nodiscard]] std::unique_ptr<Enregistreur> Titre() const;

    std::unique_ptr<RamelierDoc> doc;
};

void TestDessinTitre::init()
{
    doc = std::make_unique<RamelierDoc>(QString());
    doc->arbre = ArbreDeNumeros({1}).release();
    InfoArbre &info = *doc->arbre->infoArbre;
    info.titrearbre = QStringLiteral("Famille Dupont");
    info.creepar = QStringLiteral("Jean");
    info.date = QStringLiteral("1er mai 1999");
    info.majpar = QStringLiteral("Anne");
    info.datemaj = QStringLiteral("2 juin 2001");
    doc->xTitre = 100;
    doc->yTitre = 50;
    doc->yLegende1 = 90;
    doc->yLegende2 = 130;
    doc->polices.couleurCaracteres = Qt::darkMagenta;
}

std::unique_ptr<Enregistreur> TestDessinTitre::Titre() const
{
    auto dessin = std::make_unique<Enregistreur>();
    QPainter peintre(dessin.get());
    doc->AfficheTitre(&peintre, 4.0F, 2.0F);
    return dessin;
}

void TestDessinTitre::lesTroisLignesSontALeurPlace()
{
    const auto dessin = Titre();
    const QStringList attendu{QStringLiteral("Famille Dupont"), QStringLiteral("Auteur : Jean - Date : 1er mai 1999"),
                              QStringLiteral("Mise à jour - Auteur : Anne - Date : 2 juin 2001")};
    QCOMPARE(dessin->Textes(), attendu);
    QCOMPARE(dessin->Traces().size(), 3);
    QCOMPARE(dessin->Traces().at(0).position, QPointF(100, 50));
    QCOMPARE(dessin->Traces().at(1).position, QPointF(100, 90));
    QCOMPARE(dessin->Traces().at(2).position, QPointF(100, 130));
}

void TestDessinTitre::chaqueLigneASaPolice()
{
    const auto dessin = Titre();
    QCOMPARE(dessin->Traces().size(), 3);
    for (const Trace &trace : dessin->Traces()) {
        const bool titre = trace.texte == QStringLiteral("Famille Dupont");
        QCOMPARE(trace.police.family(), QStringLiteral("Helvetica"));
        QCOMPARE(trace.police.pointSize(), titre ? 30 : 12);
        QCOMPARE(trace.police.weight(), int(titre ? QFont::Bold : QFont::Normal));
        QCOMPARE(trace.plume.color(), QColor(Qt::darkMagenta));
    }
}

void TestDessinTitre::lesEtiquettesSEcriventMemeSansValeur_data()
{
    QTest::addColumn<QString>("creepar");
    QTest::addColumn<QString>("date");
    QTest::addColumn<QString>("creation");
    QTest::addColumn<QString>("miseAJour");
    const QString vide;
    QTest::newRow("ni l'un ni l'autre") << vide << vide << QStringLiteral("Auteur :  - Date : ")
                                        << QStringLiteral("Mise à jour - Auteur :  - Date : ");
    QTest::newRow("auteur seul") << QStringLiteral("Luc") << vide << QStringLiteral("Auteur : Luc - Date : ")
                                 << QStringLiteral("Mise à jour - Auteur : Luc - Date : ");
    QTest::newRow("date seule") << vide << QStringLiteral("2000") << QStringLiteral("Auteur :  - Date : 2000")
                                << QStringLiteral("Mise à jour - Auteur :  - Date : 2000");
}

void TestDessinTitre::lesEtiquettesSEcriventMemeSansValeur()
{
    QFETCH(QString, creepar);
    QFETCH(QString, date);
    QFETCH(QString, creation);
    QFETCH(QString, miseAJour);
    InfoArbre &info = *doc->arbre->infoArbre;
    info.creepar = info.majpar = creepar;
    info.date = info.datemaj = date;
    const QStringList attendu{QStringLiteral("Famille Dupont"), creation, miseAJour};
    QCOMPARE(Titre()->Textes(), attendu);
}

void TestDessinTitre::rienSansTitreNiOption_data()
{
    QTest::addColumn<QString>("titre");
    QTest::addColumn<bool>("titreAffiche");
    QTest::addColumn<bool>("avecArbre");
    QTest::newRow("titre vide") << QString() << true << true;
    QTest::newRow("option fausse") << QStringLiteral("Famille") << false << true;
    QTest::newRow("sans arbre") << QString() << true << false;
}

void TestDessinTitre::rienSansTitreNiOption()
{
    QFETCH(QString, titre);
    QFETCH(bool, titreAffiche);
    QFETCH(bool, avecArbre);
    doc->arbre->infoArbre->titrearbre = titre;
    doc->titreAffiche = titreAffiche;
    if (!avecArbre)
        delete std::exchange(doc->arbre, nullptr);
    QCOMPARE(Titre()->EnTexte(), QStringList());
}

void TestDessinTitre::lePeintreEstRenduCommeIlEtait()
{
    Enregistreur dessin;
    QPainter peintre(&dessin);
    const QFont police(QStringLiteral("Liberation Serif"), 33);
    peintre.setPen(Qt::cyan);
    peintre.setFont(police);
    doc->AfficheTitre(&peintre, 4.0F, 2.0F);
    QCOMPARE(peintre.pen().color(), QColor(Qt::cyan));
    QCOMPARE(peintre.font().toString(), police.toString());
}

void TestDessinTitre::bandeParBandeLeTitreEstEntier()
{
    doc->arbre->infoArbre->titrearbre = QStringLiteral("Ÿ WWWWWWWW fgjq 神聖羅馬 محمد");
    QImage tout(1400, 300, QImage::Format_RGB32);
    tout.fill(Qt::white);
    QImage bandes = tout;
    QPainter peintre(&tout);
    doc->AfficheTitre(&peintre, 4.0F, 2.0F);
    peintre.end();
    peintre.begin(&bandes);
    for (int x = 0; x < bandes.width(); ++x) {
        peintre.setClipRect(QRect(x, 0, 1, bandes.height()));
        doc->AfficheTitre(&peintre, 4.0F, 2.0F);
    }
    peintre.end();
    QCOMPARE(bandes, tout);
    bandes.fill(Qt::white);
    peintre.begin(&bandes);
    for (int y = 0; y < bandes.height(); ++y) {
        peintre.setClipRect(QRect(0, y, bandes.width(), 1));
        doc->AfficheTitre(&peintre, 4.0F, 2.0F);
    }
    peintre.end();
    QCOMPARE(bandes, tout);
}

void TestDessinTitre::loinDuTitreRienNEstDessine_data()
{
    QTest::addColumn<QRect>("zone");
    QTest::addColumn<int>("textes");
    QTest::newRow("sur lui") << QRect(100, 20, 100, 100) << 3;
    QTest::newRow("au-dessus") << QRect(100, -300, 100, 100) << 0;
    QTest::newRow("au-dessous") << QRect(100, 400, 100, 100) << 0;
    QTest::newRow("à gauche") << QRect(-300, 50, 100, 100) << 0;
    QTest::newRow("à droite") << QRect(8000, 50, 100, 100) << 0;
}

void TestDessinTitre::loinDuTitreRienNEstDessine()
{
    QFETCH(const QRect, zone);
    QFETCH(const int, textes);
    Enregistreur dessin;
    QPainter peintre(&dessin);
    peintre.setClipRect(zone);
    doc->AfficheTitre(&peintre, 4.0F, 2.0F);
    QCOMPARE(dessin.Textes().size(), textes);
}

RAMELIER_TEST_MAIN(QGuiApplication, TestDessinTitre)
#include "tst_dessin_titre.moc"
