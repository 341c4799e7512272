#include "arbre.h"
#include "arbres.h"
#include "environnement.h"
#include "infopersonne.h"
#include "personne.h"

#include <QBuffer>
#include <QGuiApplication>
#include <QTemporaryDir>

#include <sys/stat.h>

class TestPersonne : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();

    void unePersonneNeuve();
    void lesTextesDansLOrdreDesChamps();
    void desDonneesNeuvesSontVides();
    void estVide_data();
    void estVide();
    void sansDonneesEstVide();
    void laPhotoPrendDeuxLargeurs_data();
    void laPhotoPrendDeuxLargeurs();
    void detruireUnePersonneDetruitLaSuite();

    void chargerLaPhoto_data();
    void chargerLaPhoto();
    void chargerLaPhotoNeTouchePasSonEtat_data();
    void chargerLaPhotoNeTouchePasSonEtat();
    void unePhotoIllisibleEffaceLAncienne_data();
    void unePhotoIllisibleEffaceLAncienne();
    void unTubeNommeNArreteRien();
    void laPhotoEstRedressee();

    void sauverCopieLesNeufTextes();
    void sauverEssaieLaPhoto_data();
    void sauverEssaieLaPhoto();
    void sauverRemplaceLAncienneCopie();
    void sauverSansSelectionDetruitLaCopie();
    void sauverUnePersonneSansDonnees();

private:
    QTemporaryDir dossier;
};

void TestPersonne::initTestCase()
{
    QVERIFY(dossier.isValid());
    QImage image(3, 2, QImage::Format_RGB32);
    image.fill(Qt::red);
    QVERIFY(image.save(dossier.filePath(QStringLiteral("photo.png"))));
    QVERIFY(QFile::copy(dossier.filePath(QStringLiteral("photo.png")), dossier.filePath(QStringLiteral("photo.jpg"))));
    QVERIFY(QFile::copy(dossier.filePath(QStringLiteral("photo.png")), dossier.filePath(QStringLiteral("photo"))));
    QVERIFY(QFile::link(dossier.filePath(QStringLiteral("photo.png")), dossier.filePath(QStringLiteral("lien.png"))));
    QVERIFY(QDir(dossier.path()).mkpath(QStringLiteral("album")));
    QVERIFY(image.save(dossier.filePath(QStringLiteral("album/été.png"))));
    QFile texte(dossier.filePath(QStringLiteral("texte.png")));
    QVERIFY(texte.open(QFile::WriteOnly));
    QCOMPARE(texte.write("ceci n'est pas une image"), 24);
    QFile vide(dossier.filePath(QStringLiteral("vide.png")));
    QVERIFY(vide.open(QFile::WriteOnly));
}

void TestPersonne::unePersonneNeuve()
{
    const Personne personne(7);
    QCOMPARE(personne.numerogeneration, 7);
    QCOMPARE(personne.numero, 0U);
    QCOMPARE(personne.pere, 0U);
    QCOMPARE(personne.mere, 0U);
    QCOMPARE(personne.enfant, 0U);
    QCOMPARE(personne.x, 0L);
    QCOMPARE(personne.y, 0L);
    QVERIFY(!personne.info);
    QVERIFY(personne.affichable);
    QVERIFY(!personne.selectionnee);
    QVERIFY(!personne.suivante);
    QVERIFY(!personne.precedente);
    QVERIFY(!personne.ptrPere);
    QVERIFY(!personne.ptrMere);
}

void TestPersonne::lesTextesDansLOrdreDesChamps()
{
    const auto texte = [](const char *latin1) { return QString::fromLatin1(latin1); };
    const InfoPersonne info(texte("nom"), texte("prenom"), texte("le jour"), texte("là"), texte("un autre"),
                            texte("ailleurs"), texte("remarque"), texte("fiche.htm"), texte("photo.png"), 3);
    QCOMPARE(info.nom, texte("nom"));
    QCOMPARE(info.prenom, texte("prenom"));
    QCOMPARE(info.datenaissance, texte("le jour"));
    QCOMPARE(info.lieunaissance, texte("là"));
    QCOMPARE(info.datedeces, texte("un autre"));
    QCOMPARE(info.lieudeces, texte("ailleurs"));
    QCOMPARE(info.divers, texte("remarque"));
    QCOMPARE(info.fichtml, texte("fiche.htm"));
    QCOMPARE(info.ficphoto, texte("photo.png"));
    QCOMPARE(info.etatPhoto, 3);
    QVERIFY(info.photo.isNull());
    QVERIFY(info.photoEcran.isNull());
    QVERIFY(info.photoImpression.isNull());
}

void TestPersonne::desDonneesNeuvesSontVides()
{
    const InfoPersonne info;
    for (const QString &texte : {info.nom, info.prenom, info.datenaissance, info.lieunaissance, info.datedeces,
                                 info.lieudeces, info.divers, info.fichtml, info.ficphoto})
        QCOMPARE(texte, QString());
    QCOMPARE(info.etatPhoto, -1);
    QVERIFY(info.photo.isNull());
    QVERIFY(info.photoEcran.isNull());
    QVERIFY(info.photoImpression.isNull());
}

void TestPersonne::estVide_data()
{
    QTest::addColumn<QString>("nom");
    QTest::addColumn<QString>("prenom");
    QTest::addColumn<QString>("autres");
    QTest::addColumn<bool>("vide");

    const QString rien;
    QTest::newRow("rien") << rien << rien << rien << true;
    QTest::newRow("tout le reste") << rien << rien << QStringLiteral("rempli") << true;
    QTest::newRow("le nom") << QStringLiteral("MARTIN") << rien << rien << false;
    QTest::newRow("le prénom") << rien << QStringLiteral("Anne") << rien << false;
    QTest::newRow("les deux") << QStringLiteral("MARTIN") << QStringLiteral("Anne") << rien << false;
    QTest::newRow("un blanc") << rien << QStringLiteral(" ") << rien << false;
}

void TestPersonne::estVide()
{
    QFETCH(const QString, nom);
    QFETCH(const QString, prenom);
    QFETCH(const QString, autres);
    Personne personne(0);
    personne.info = new InfoPersonne(nom, prenom, autres, autres, autres, autres, autres, autres, autres, 1);
    QTEST(personne.estVide(), "vide");
}

void TestPersonne::sansDonneesEstVide()
{
    const Personne personne(0);
    QVERIFY(personne.estVide());
    QCOMPARE(personne.FacteurPhoto(), 1);
}

void TestPersonne::laPhotoPrendDeuxLargeurs_data()
{
    QTest::addColumn<int>("etat");
    QTest::addColumn<int>("largeurs");

    QTest::newRow("pas encore essayée") << -1 << 1;
    QTest::newRow("absente") << 0 << 1;
    QTest::newRow("chargée") << 1 << 2;
    QTest::newRow("à l'écran") << 2 << 2;
    QTest::newRow("à l'impression") << 3 << 2;
}

void TestPersonne::laPhotoPrendDeuxLargeurs()
{
    QFETCH(const int, etat);
    Personne personne(0);
    personne.info = new InfoPersonne;
    personne.info->etatPhoto = etat;
    QTEST(personne.FacteurPhoto(), "largeurs");
}

void TestPersonne::detruireUnePersonneDetruitLaSuite()
{
    // A text that is shared by all of them tells when the last of its owners is gone.
    const QString texte = QString::number(1789);
    auto tete = std::make_unique<Personne>(static_cast<unsigned short>(0));
    Personne *queue = tete.get();
    for (int i = 0; i < 3; ++i) {
        queue->info = new InfoPersonne;
        queue->info->divers = texte;
        queue->suivante = new Personne(1);
        queue->suivante->precedente = queue;
        queue = queue->suivante;
    }
    QVERIFY(!texte.isDetached());
    tete.reset();
    QVERIFY(texte.isDetached());
}

void TestPersonne::chargerLaPhoto_data()
{
    QTest::addColumn<QString>("ficphoto");
    QTest::addColumn<QSize>("taille");

    QTest::newRow("une image") << QStringLiteral("photo.png") << QSize(3, 2);
    QTest::newRow("dans un dossier, nom accentué") << QStringLiteral("album/été.png") << QSize(3, 2);
    QTest::newRow("un lien vers elle") << QStringLiteral("lien.png") << QSize(3, 2);
    QTest::newRow("suffixe d'un autre format") << QStringLiteral("photo.jpg") << QSize(3, 2);
    QTest::newRow("sans suffixe") << QStringLiteral("photo") << QSize(3, 2);
    QTest::newRow("nom vide : le dossier lui-même") << QString() << QSize();
    QTest::newRow("un dossier") << QStringLiteral("album") << QSize();
    QTest::newRow("absente") << QStringLiteral("absente.png") << QSize();
    QTest::newRow("pas une image") << QStringLiteral("texte.png") << QSize();
    QTest::newRow("fichier vide") << QStringLiteral("vide.png") << QSize();
}

void TestPersonne::chargerLaPhoto()
{
    QFETCH(const QString, ficphoto);
    QFETCH(const QSize, taille);
    InfoPersonne info;
    info.ficphoto = ficphoto;
    QCOMPARE(info.ChargePhoto(dossier.path()), taille.isValid());
    QCOMPARE(info.photo.isNull(), !taille.isValid());
    if (taille.isValid()) {
        QCOMPARE(info.photo.size(), taille);
        QCOMPARE(info.photo.pixelColor(1, 1), QColor(255, 0, 0));
    }
    QVERIFY(info.photoEcran.isNull());
    QVERIFY(info.photoImpression.isNull());
}

void TestPersonne::chargerLaPhotoNeTouchePasSonEtat_data()
{
    QTest::addColumn<QString>("ficphoto");
    QTest::addColumn<int>("etat");

    QTest::newRow("image, pas encore essayée") << QStringLiteral("photo.png") << -1;
    QTest::newRow("image, absente") << QStringLiteral("photo.png") << 0;
    QTest::newRow("image, à l'écran") << QStringLiteral("photo.png") << 2;
    QTest::newRow("pas d'image, pas encore essayée") << QStringLiteral("absente.png") << -1;
    QTest::newRow("pas d'image, chargée") << QStringLiteral("absente.png") << 1;
}

void TestPersonne::chargerLaPhotoNeTouchePasSonEtat()
{
    QFETCH(const QString, ficphoto);
    QFETCH(const int, etat);
    InfoPersonne info;
    info.ficphoto = ficphoto;
    info.etatPhoto = etat;
    (void)info.ChargePhoto(dossier.path());
    QCOMPARE(info.etatPhoto, etat);
}

void TestPersonne::unePhotoIllisibleEffaceLAncienne_data()
{
    QTest::addColumn<QString>("ficphoto");

    QTest::newRow("pas une image") << QStringLiteral("texte.png");
    QTest::newRow("absente") << QStringLiteral("absente.png");
    QTest::newRow("nom vide") << QString();
}

void TestPersonne::unePhotoIllisibleEffaceLAncienne()
{
    QFETCH(const QString, ficphoto);
    InfoPersonne info;
    info.ficphoto = QStringLiteral("photo.png");
    QVERIFY(info.ChargePhoto(dossier.path()));
    info.ficphoto = ficphoto;
    QVERIFY(!info.ChargePhoto(dossier.path()));
    QVERIFY(info.photo.isNull());
}

void TestPersonne::unTubeNommeNArreteRien()
{
    // Opening a named pipe for reading would wait for a writer for ever.
    const QByteArray chemin = QFile::encodeName(dossier.filePath(QStringLiteral("tube.png")));
    QCOMPARE(::mkfifo(chemin.constData(), 0600), 0);
    InfoPersonne info;
    info.ficphoto = QStringLiteral("tube.png");
    QVERIFY(!info.ChargePhoto(dossier.path()));
}

void TestPersonne::laPhotoEstRedressee()
{
    // A camera held upright: stored lying, 16 x 8, with the note to turn it. The stored left half is black.
    QImage couchee(16, 8, QImage::Format_RGB32);
    couchee.fill(Qt::white);
    for (int y = 0; y < 8; ++y) {
        for (int x = 0; x < 8; ++x)
            couchee.setPixelColor(x, y, Qt::black);
    }
    QByteArray jpeg;
    QBuffer tampon(&jpeg);
    QVERIFY(couchee.save(&tampon, "jpeg", 100));
    // An EXIF block of one entry, the orientation (0112): 6, to be turned to the right.
    jpeg.insert(2,
                QByteArray::fromHex("ffe10022457869660000"
                                    "4d4d002a00000008"
                                    "0001011200030000000100060000"
                                    "00000000"));
    QFile fichier(dossier.filePath(QStringLiteral("appareil.jpg")));
    QVERIFY(fichier.open(QFile::WriteOnly));
    QCOMPARE(fichier.write(jpeg), jpeg.size());
    fichier.close();

    InfoPersonne info;
    info.ficphoto = QStringLiteral("appareil.jpg");
    QVERIFY(info.ChargePhoto(dossier.path()));
    QCOMPARE(info.photo.size(), QSize(8, 16));
    QVERIFY(info.photo.pixelColor(4, 2).lightness() < 40);
    QVERIFY(info.photo.pixelColor(4, 13).lightness() > 215);
}

void TestPersonne::sauverCopieLesNeufTextes()
{
    const auto arbre = ArbreDeNumeros({1, 2});
    arbre->selection = arbre->derniere;
    InfoPersonne &info = *arbre->derniere->info;
    info = InfoPersonne(QStringLiteral("a"), QStringLiteral("b"), QStringLiteral("c"), QStringLiteral("d"),
                        QStringLiteral("e"), QStringLiteral("f"), QStringLiteral("g"), QStringLiteral("h"), QString(),
                        InfoPersonne::PhotoPourEcran);
    info.photoEcran = QImage(1, 1, QImage::Format_RGB32);
    arbre->SauveInfoPersonne(dossier.path());
    const InfoPersonne *copie = arbre->infoSauvee;
    QVERIFY(copie && copie != &info);
    QCOMPARE(copie->nom, QStringLiteral("a"));
    QCOMPARE(copie->prenom, QStringLiteral("b"));
    QCOMPARE(copie->datenaissance, QStringLiteral("c"));
    QCOMPARE(copie->lieunaissance, QStringLiteral("d"));
    QCOMPARE(copie->datedeces, QStringLiteral("e"));
    QCOMPARE(copie->lieudeces, QStringLiteral("f"));
    QCOMPARE(copie->divers, QStringLiteral("g"));
    QCOMPARE(copie->fichtml, QStringLiteral("h"));
    QCOMPARE(copie->ficphoto, QString());
    QCOMPARE(copie->etatPhoto, -1);
    QVERIFY(copie->photoEcran.isNull());
    QCOMPARE(info.etatPhoto, 2);
}

void TestPersonne::sauverEssaieLaPhoto_data()
{
    QTest::addColumn<QString>("ficphoto");
    QTest::addColumn<int>("etatDeLaPersonne");
    QTest::addColumn<int>("etatDeLaCopie");

    QTest::newRow("pas de photo") << QString() << -1 << -1;
    QTest::newRow("pas de nom mais un état") << QString() << 1 << -1;
    QTest::newRow("photo chargée") << QStringLiteral("photo.png") << 2 << 1;
    QTest::newRow("photo retrouvée") << QStringLiteral("photo.png") << 0 << 1;
    QTest::newRow("photo perdue") << QStringLiteral("absente.png") << 1 << 0;
}

void TestPersonne::sauverEssaieLaPhoto()
{
    QFETCH(const QString, ficphoto);
    QFETCH(const int, etatDeLaPersonne);
    QFETCH(const int, etatDeLaCopie);
    const auto arbre = ArbreDeNumeros({1});
    arbre->selection = arbre->premiere;
    arbre->premiere->info->ficphoto = ficphoto;
    arbre->premiere->info->etatPhoto = etatDeLaPersonne;
    arbre->SauveInfoPersonne(dossier.path());
    QCOMPARE(arbre->infoSauvee->ficphoto, ficphoto);
    QCOMPARE(arbre->infoSauvee->etatPhoto, etatDeLaCopie);
    QCOMPARE(arbre->infoSauvee->photo.size(), etatDeLaCopie == 1 ? QSize(3, 2) : QSize(0, 0));
    QCOMPARE(arbre->premiere->info->etatPhoto, etatDeLaPersonne);
}

void TestPersonne::sauverRemplaceLAncienneCopie()
{
    const auto arbre = ArbreDeNumeros({1, 2});
    const QString texte = QString::number(1848);
    arbre->infoSauvee = new InfoPersonne;
    arbre->infoSauvee->divers = texte;
    arbre->selection = arbre->derniere;
    arbre->SauveInfoPersonne(dossier.path());
    QCOMPARE(arbre->infoSauvee->nom, QStringLiteral("N2"));
    QVERIFY(texte.isDetached());
}

void TestPersonne::sauverSansSelectionDetruitLaCopie()
{
    const auto arbre = ArbreDeNumeros({1, 2});
    const QString texte = QString::number(1830);
    arbre->infoSauvee = new InfoPersonne;
    arbre->infoSauvee->divers = texte;
    QVERIFY(!texte.isDetached());
    arbre->SauveInfoPersonne(dossier.path());
    QVERIFY(!arbre->infoSauvee);
    QVERIFY(texte.isDetached());
}

void TestPersonne::sauverUnePersonneSansDonnees()
{
    Arbre arbre;
    arbre.AjouteALaFin(new Personne(0));
    arbre.selection = arbre.premiere;
    arbre.SauveInfoPersonne(dossier.path());
    QVERIFY(arbre.infoSauvee);
    QCOMPARE(arbre.infoSauvee->nom, QString());
    QCOMPARE(arbre.infoSauvee->etatPhoto, -1);
}

RAMELIER_TEST_MAIN(QGuiApplication, TestPersonne)
#include "tst_personne.moc"
