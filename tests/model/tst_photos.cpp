#include "arbre.h"
#include "arbres.h"
#include "environnement.h"
#include "infopersonne.h"
#include "personne.h"
#include "photos.h"

#include <QDir>
#include <QFile>
#include <QGuiApplication>
#include <QTemporaryDir>

/// Persons with the same photo share one image.
class TestPhotos : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup();
    void laMemePhotoEstLueUneFois();
    void unAutreCheminVersLeMemeFichier();
    void unFichierChangeEstRelu();
    void quiNEstPlusUtiliseEstOublie();
    void unArbreFermeRendSesPhotos();
    void ceQuiNEstPasUnePhoto_data();
    void ceQuiNEstPasUnePhoto();

private:
    void EcritPhoto(const QString &nom, QSize taille) const;
    [[nodiscard]] QString Chemin(const QString &nom) const { return dossier->filePath(nom); }

    std::unique_ptr<QTemporaryDir> dossier;
};

void TestPhotos::init()
{
    dossier = std::make_unique<QTemporaryDir>();
    EcritPhoto(QStringLiteral("a.png"), QSize(30, 20));
    EcritPhoto(QStringLiteral("b.png"), QSize(30, 20));
}

void TestPhotos::cleanup()
{
    OublieLesPhotosInutiles();
}

void TestPhotos::EcritPhoto(const QString &nom, QSize taille) const
{
    QImage image(taille, QImage::Format_RGB32);
    image.fill(Qt::darkGreen);
    QVERIFY(image.save(Chemin(nom)));
}

void TestPhotos::laMemePhotoEstLueUneFois()
{
    InfoPersonne un;
    InfoPersonne deux;
    InfoPersonne autre;
    un.ficphoto = deux.ficphoto = QStringLiteral("a.png");
    autre.ficphoto = QStringLiteral("b.png");
    QVERIFY(un.ChargePhoto(dossier->path()));
    QVERIFY(deux.ChargePhoto(dossier->path()));
    QVERIFY(autre.ChargePhoto(dossier->path()));
    QCOMPARE(un.photo.size(), QSize(30, 20));
    QCOMPARE(un.photo.constBits(), deux.photo.constBits());
    QVERIFY(un.photo.constBits() != autre.photo.constBits());
}

void TestPhotos::unAutreCheminVersLeMemeFichier()
{
    QVERIFY(QDir(dossier->path()).mkdir(QStringLiteral("sous")));
    QVERIFY(QFile::link(Chemin(QStringLiteral("a.png")), Chemin(QStringLiteral("lien.png"))));
    const QImage directe = LitPhoto(Chemin(QStringLiteral("a.png")));
    for (const char *nom : {"sous/../a.png", "./a.png", "lien.png"})
        QCOMPARE(LitPhoto(Chemin(QString::fromLatin1(nom))).constBits(), directe.constBits());
}

void TestPhotos::unFichierChangeEstRelu()
{
    const QImage avant = LitPhoto(Chemin(QStringLiteral("a.png")));
    EcritPhoto(QStringLiteral("a.png"), QSize(300, 200));
    QCOMPARE(LitPhoto(Chemin(QStringLiteral("a.png"))).size(), QSize(300, 200));
    QCOMPARE(avant.size(), QSize(30, 20));
}

void TestPhotos::quiNEstPlusUtiliseEstOublie()
{
    QImage utilisee = LitPhoto(Chemin(QStringLiteral("a.png")));
    const qint64 cle = utilisee.cacheKey();
    OublieLesPhotosInutiles();
    QCOMPARE(LitPhoto(Chemin(QStringLiteral("a.png"))).cacheKey(), cle);
    utilisee = QImage();
    OublieLesPhotosInutiles();
    QVERIFY(LitPhoto(Chemin(QStringLiteral("a.png"))).cacheKey() != cle);
}

void TestPhotos::unArbreFermeRendSesPhotos()
{
    auto arbre = ArbreDeNumeros({1});
    arbre->premiere->info->ficphoto = QStringLiteral("a.png");
    QVERIFY(arbre->premiere->info->ChargePhoto(dossier->path()));
    const qint64 cle = arbre->premiere->info->photo.cacheKey();
    arbre.reset();
    QVERIFY(LitPhoto(Chemin(QStringLiteral("a.png"))).cacheKey() != cle);
}

void TestPhotos::ceQuiNEstPasUnePhoto_data()
{
    QTest::addColumn<QString>("nom");
    QTest::newRow("rien") << "absente.png";
    QTest::newRow("un dossier") << ".";
    QTest::newRow("un texte") << "texte.png";
    QTest::newRow("un nom coupé") << QStringLiteral("a.png") + QChar(0) + QStringLiteral(".png");
}

void TestPhotos::ceQuiNEstPasUnePhoto()
{
    QFETCH(const QString, nom);
    QFile texte(Chemin(QStringLiteral("texte.png")));
    QVERIFY(texte.open(QIODevice::WriteOnly));
    texte.write("ceci n'est pas une image");
    texte.close();
    QVERIFY(LitPhoto(Chemin(nom)).isNull());
}

RAMELIER_TEST_MAIN(QGuiApplication, TestPhotos)
#include "tst_photos.moc"
