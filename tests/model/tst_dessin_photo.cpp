#include "environnement.h"
#include "personnedessai.h"

#include <QGuiApplication>

namespace {

QImage Unie(int largeur, int hauteur, Qt::GlobalColor couleur)
{
    QImage image(largeur, hauteur, QImage::Format_RGB32);
    image.fill(couleur);
    return image;
}

}  // namespace

/// The photo beside the box and the cache of its scaled copies.
class TestDessinPhoto : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup() { essai.reset(); }

    void laPhotoTientDansUnCadreSansSeDeformer_data();
    void laPhotoTientDansUnCadreSansSeDeformer();
    void laPhotoSEcarteDeLIntervalleEtDuTrait_data();
    void laPhotoSEcarteDeLIntervalleEtDuTrait();
    void lEcartNEstTronqueQuUneFois();
    void lEtatAlterneEntreEcranEtImpression();
    void uneCopieValideSertEncore_data();
    void uneCopieValideSertEncore();
    void sansPhotoRienNEstDessineNiChange_data();
    void sansPhotoRienNEstDessineNiChange();
    void unePhotoIrreductibleDevientAbsente_data();
    void unePhotoIrreductibleDevientAbsente();
    void uneGrandeCopieNeSeFaitPas_data();
    void uneGrandeCopieNeSeFaitPas();
    void sansDonneesRienNEstDessine();
    void lePeintreEstRenduCommeIlEtait();

private:
    [[nodiscard]] QStringList Images(bool impression);

    std::unique_ptr<PersonneDEssai> essai;
};

void TestDessinPhoto::init()
{
    essai = std::make_unique<PersonneDEssai>();
    essai->personne.info->photo = Unie(60, 60, Qt::red);
    essai->personne.info->etatPhoto = InfoPersonne::PhotoChargee;
}

QStringList TestDessinPhoto::Images(bool impression)
{
    essai->Affiche(impression);
    return essai->dessin->EnTexte(Trace::Genre::Image);
}

void TestDessinPhoto::laPhotoTientDansUnCadreSansSeDeformer_data()
{
    QTest::addColumn<QSize>("photo");
    QTest::addColumn<QString>("attendu");
    QTest::newRow("carrée") << QSize(60, 60) << QStringLiteral("image 228,200 84x84");
    QTest::newRow("large") << QSize(240, 84) << QStringLiteral("image 228,200 120x42");
    QTest::newRow("haute") << QSize(120, 336) << QStringLiteral("image 228,200 30x84");
    QTest::newRow("de la taille du cadre") << QSize(120, 84) << QStringLiteral("image 228,200 120x84");
    QTest::newRow("un pixel") << QSize(1, 1) << QStringLiteral("image 228,200 84x84");
    QTest::newRow("grande") << QSize(2400, 1600) << QStringLiteral("image 228,200 120x80");
}

void TestDessinPhoto::laPhotoTientDansUnCadreSansSeDeformer()
{
    QFETCH(QSize, photo);
    QFETCH(QString, attendu);
    essai->personne.info->photo = Unie(photo.width(), photo.height(), Qt::red);
    QCOMPARE(Images(false), QStringList(attendu));
    QCOMPARE(Images(true), QStringList(attendu));
    const Trace trace = essai->dessin->Traces(Trace::Genre::Image).first();
    QCOMPARE(trace.image.pixelColor(trace.image.rect().center()), QColor(Qt::red));
}

void TestDessinPhoto::laPhotoSEcarteDeLIntervalleEtDuTrait_data()
{
    QTest::addColumn<int>("intervalle");
    QTest::addColumn<float>("epaisseur");
    QTest::addColumn<QString>("attendu");
    QTest::newRow("ensemble avant de tronquer") << 1 << 0.6F << QStringLiteral("image 226,200 84x84");
    QTest::newRow("large") << 5 << 2.0F << QStringLiteral("image 248,200 84x84");
    QTest::newRow("trait seul") << 0 << 0.9F << QStringLiteral("image 223,200 84x84");
    QTest::newRow("contre le cadre") << 0 << 0.0F << QStringLiteral("image 220,200 84x84");
}

void TestDessinPhoto::laPhotoSEcarteDeLIntervalleEtDuTrait()
{
    QFETCH(int, intervalle);
    QFETCH(float, epaisseur);
    QFETCH(QString, attendu);
    essai->formats.intervCadrePhoto = intervalle;
    essai->formats.epaisseurTraits = epaisseur;
    QCOMPARE(Images(false), QStringList(attendu));
}

void TestDessinPhoto::lEcartNEstTronqueQuUneFois()
{
    // 1 mm and 1 mm at 96 dots per inch: 7.56 pixels, not twice 3.
    const auto echelle = static_cast<float>(96 / 25.4);
    QPainter peintre(essai->dessin.get());
    essai->personne.AffichePhoto(&peintre, echelle, echelle, false, essai->formats);
    peintre.end();
    QCOMPARE(essai->dessin->EnTexte(), QStringList({QStringLiteral("image 220,200 113x113")}));
}

void TestDessinPhoto::lEtatAlterneEntreEcranEtImpression()
{
    InfoPersonne &info = *essai->personne.info;
    const QStringList attendu{QStringLiteral("image 228,200 84x84")};
    QCOMPARE(Images(false), attendu);
    QCOMPARE(info.etatPhoto, 2);
    QCOMPARE(info.photoEcran.size(), QSize(84, 84));
    QVERIFY(info.photoImpression.isNull());
    QCOMPARE(Images(true), attendu);
    QCOMPARE(info.etatPhoto, 3);
    QCOMPARE(info.photoImpression.size(), QSize(84, 84));
    QVERIFY(info.photoEcran.isNull());
    QCOMPARE(Images(false), attendu);
    QCOMPARE(info.etatPhoto, 2);
    QVERIFY(info.photoImpression.isNull());
    QCOMPARE(info.photo.size(), QSize(60, 60));
}

void TestDessinPhoto::uneCopieValideSertEncore_data()
{
    QTest::addColumn<bool>("impression");
    QTest::addColumn<int>("etat");
    QTest::addColumn<QString>("attendu");
    // The copies are 10 x 10 here: only a copy made anew is as large as the box.
    QTest::newRow("écran valide") << false << 2 << QStringLiteral("image 228,200 10x10");
    QTest::newRow("impression valide") << true << 3 << QStringLiteral("image 228,200 10x10");
    QTest::newRow("écran à refaire") << false << 3 << QStringLiteral("image 228,200 84x84");
    QTest::newRow("impression à refaire") << true << 2 << QStringLiteral("image 228,200 84x84");
    QTest::newRow("écran remis à zéro") << false << 1 << QStringLiteral("image 228,200 84x84");
    QTest::newRow("impression remise à zéro") << true << 1 << QStringLiteral("image 228,200 84x84");
}

void TestDessinPhoto::uneCopieValideSertEncore()
{
    QFETCH(bool, impression);
    QFETCH(int, etat);
    QFETCH(QString, attendu);
    InfoPersonne &info = *essai->personne.info;
    info.photoEcran = Unie(10, 10, Qt::blue);
    info.photoImpression = Unie(10, 10, Qt::blue);
    info.etatPhoto = etat;
    QCOMPARE(Images(impression), QStringList(attendu));
    QCOMPARE(info.etatPhoto, impression ? 3 : 2);
}

void TestDessinPhoto::sansPhotoRienNEstDessineNiChange_data()
{
    QTest::addColumn<int>("etat");
    QTest::addColumn<bool>("impression");
    QTest::newRow("absente, écran") << 0 << false;
    QTest::newRow("absente, impression") << 0 << true;
    QTest::newRow("non essayée, écran") << -1 << false;
    QTest::newRow("non essayée, impression") << -1 << true;
}

void TestDessinPhoto::sansPhotoRienNEstDessineNiChange()
{
    QFETCH(int, etat);
    QFETCH(bool, impression);
    essai->personne.info->etatPhoto = etat;
    essai->personne.info->photoEcran = Unie(10, 10, Qt::blue);
    essai->personne.info->photoImpression = Unie(10, 10, Qt::blue);
    QCOMPARE(Images(impression), QStringList());
    QCOMPARE(essai->personne.info->etatPhoto, etat);
}

void TestDessinPhoto::unePhotoIrreductibleDevientAbsente_data()
{
    QTest::addColumn<QSize>("photo");
    QTest::addColumn<bool>("impression");
    QTest::newRow("vide, écran") << QSize(0, 0) << false;
    QTest::newRow("vide, impression") << QSize(0, 0) << true;
    QTest::newRow("moins d'un pixel de large, écran") << QSize(1, 1000) << false;
    QTest::newRow("moins d'un pixel de haut, impression") << QSize(1000, 1) << true;
}

void TestDessinPhoto::unePhotoIrreductibleDevientAbsente()
{
    QFETCH(QSize, photo);
    QFETCH(bool, impression);
    essai->personne.info->photo = Unie(photo.width(), photo.height(), Qt::red);
    QCOMPARE(Images(impression), QStringList());
    QCOMPARE(essai->personne.info->etatPhoto, 0);
    QCOMPARE(Images(!impression), QStringList());
    QCOMPARE(essai->personne.info->etatPhoto, 0);
}

void TestDessinPhoto::uneGrandeCopieNeSeFaitPas_data()
{
    // Boxes as large as a damaged options file makes them: such copies for some persons would fill the memory.
    QTest::addColumn<bool>("impression");
    QTest::addColumn<int>("photo");
    QTest::addColumn<QSize>("cadreMm");
    QTest::addColumn<int>("copie");
    QTest::addColumn<QString>("image");
    for (const bool impression : {false, true}) {
        const char *sur = impression ? "impression" : "écran";
        QTest::addRow("un million de points, %s", sur)
            << impression << 60 << QSize(250, 500) << 1000 << "image 1108,200 1000x1000";
        QTest::addRow("un peu plus, %s", sur) << impression << 60 << QSize(251, 501) << 0 << "image 1112,200 1002x1002";
        QTest::addRow("cent mètres, %s", sur)
            << impression << 60 << QSize(100'000, 100'000) << 0 << "image 400108,200 8192x8192";
        QTest::addRow("une grande photo réduite, %s", sur)
            << impression << 1100 << QSize(260, 520) << 1040 << "image 1148,200 1040x1040";
        QTest::addRow("une grande photo agrandie, %s", sur)
            << impression << 1100 << QSize(276, 552) << 0 << "image 1212,200 1104x1104";
    }
}

void TestDessinPhoto::uneGrandeCopieNeSeFaitPas()
{
    QFETCH(const bool, impression);
    QFETCH(const int, photo);
    QFETCH(const QSize, cadreMm);
    QFETCH(const int, copie);
    QFETCH(const QString, image);
    InfoPersonne &info = *essai->personne.info;
    info.photo = Unie(photo, photo, Qt::red);
    essai->formats.largeurCadre = cadreMm.width();
    essai->formats.hauteurCadre = cadreMm.height();
    QCOMPARE(Images(impression), QStringList({image}));
    QCOMPARE((impression ? info.photoImpression : info.photoEcran).size(), QSize(copie, copie));
    QVERIFY(info.aUnePhoto());
}

void TestDessinPhoto::sansDonneesRienNEstDessine()
{
    delete std::exchange(essai->personne.info, nullptr);
    QPainter peintre(essai->dessin.get());
    essai->personne.AffichePhoto(&peintre, PersonneDEssai::sx, PersonneDEssai::sy, false, essai->formats);
    peintre.end();
    QCOMPARE(essai->dessin->EnTexte(), QStringList());
}

void TestDessinPhoto::lePeintreEstRenduCommeIlEtait()
{
    QPainter peintre(essai->dessin.get());
    peintre.setPen(Qt::magenta);
    peintre.setOpacity(0.5);
    essai->personne.AffichePhoto(&peintre, PersonneDEssai::sx, PersonneDEssai::sy, false, essai->formats);
    QCOMPARE(peintre.pen().color(), QColor(Qt::magenta));
    QCOMPARE(peintre.opacity(), 0.5);
    QCOMPARE(peintre.renderHints(), QPainter::RenderHints(QPainter::TextAntialiasing));
    peintre.end();
    QCOMPARE(essai->dessin->EnTexte(), QStringList({QStringLiteral("image 228,200 84x84")}));
}

RAMELIER_TEST_MAIN(QGuiApplication, TestDessinPhoto)
#include "tst_dessin_photo.moc"
