#include "bancdocument.h"
#include "dlgpers.h"

#include <QFile>

#include <optional>

/// RamelierDoc::CreaModifPers: the photo field of the selected person.
class TestModificationPhoto : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup();
    void leNomDeLaPhoto_data();
    void leNomDeLaPhoto();
    void laPhotoEstLaAvantLesSignaux();
    void reecrireLeMemeNomRechargeLaPhoto();
    void unAutreChampLaisseLaPhoto_data();
    void unAutreChampLaisseLaPhoto();
    void lAbandonLaisseLaPhoto();
    void laPhotoSeChercheDansLeDossierDonne();
    void enCreationLaPhotoDonneAussiLeCode1();

private:
    /// The user writes \a textes, and accepts.
    void Modifie(const Textes &textes, bool creation = false);

    std::optional<Banc> banc;
};

void TestModificationPhoto::init()
{
    banc.emplace();
    banc->Ouvre({1, 2});
    banc->Choisit(2);
    banc->EcritPhoto("jean.png");
    QFile texte(banc->dossier.filePath("texte.png"));
    QVERIFY(texte.open(QIODevice::WriteOnly));
    texte.write("pas une image");
}

void TestModificationPhoto::cleanup()
{
    QVERIFY(banc->EstRange());
    banc.reset();
}

void TestModificationPhoto::Modifie(const Textes &textes, bool creation)
{
    Scenario scenario;
    Saisit<DlgPers>(scenario, textes);
    banc->doc.CreaModifPers(&banc->fenetre, banc->repertoire, creation);
    QCOMPARE(scenario.Ecarts(), QStringList());
}

void TestModificationPhoto::leNomDeLaPhoto_data()
{
    QTest::addColumn<QString>("avant");
    QTest::addColumn<QString>("ecrit");
    QTest::addColumn<int>("etat");
    QTest::addColumn<QSize>("taille");
    const QSize rien(0, 0);
    QTest::newRow("un fichier") << ""
                                << "jean.png" << 1 << QSize(30, 40);
    QTest::newRow("un fichier à la place d'un autre") << "vieux.png"
                                                      << "jean.png" << 1 << QSize(30, 40);
    QTest::newRow("un fichier qui manque") << ""
                                           << "jeanne.png" << 0 << rien;
    QTest::newRow("un fichier qui n'est pas une image") << ""
                                                        << "texte.png" << 0 << rien;
    QTest::newRow("un dossier") << ""
                                << "." << 0 << rien;
    QTest::newRow("un blanc") << ""
                              << " " << 0 << rien;
    QTest::newRow("vidé") << "vieux.png"
                          << "" << -1 << rien;
}

void TestModificationPhoto::leNomDeLaPhoto()
{
    QFETCH(const QString, avant);
    QFETCH(const QString, ecrit);
    QFETCH(const int, etat);
    QFETCH(const QSize, taille);
    InfoPersonne &info = banc->Info(2);
    info.ficphoto = avant;
    info.etatPhoto = avant.isEmpty() ? -1 : 3;
    Modifie({{"TxtFicPhoto", ecrit}});
    QCOMPARE(info.ficphoto, ecrit);
    QCOMPARE(info.etatPhoto, etat);
    QCOMPARE(info.photo.size(), taille);
    QCOMPARE(info.aUnePhoto(), etat == 1);
    QCOMPARE(banc->deroulement.Lignes(), (QStringList{"dialogue DlgPers", "autoriseAnnulation", "documentChanged 1"}));
    QVERIFY(banc->doc.isModified());
}

void TestModificationPhoto::laPhotoEstLaAvantLesSignaux()
{
    QList<int> etats;
    connect(&banc->doc, &RamelierDoc::autoriseAnnulation, this, [&] { etats += banc->Info(2).etatPhoto; });
    connect(&banc->doc, &RamelierDoc::documentChanged, this, [&] { etats += banc->Info(2).etatPhoto; });
    Modifie({{"TxtFicPhoto", "jean.png"}, {"TxtDivers", "forgeron"}});
    QCOMPARE(etats, (QList<int>{1, 1}));
}

void TestModificationPhoto::reecrireLeMemeNomRechargeLaPhoto()
{
    Modifie({{"TxtFicPhoto", "jean.png"}});
    banc->EcritPhoto("jean.png", 50);
    Modifie({{"TxtFicPhoto", "jean.png"}});
    QCOMPARE(banc->Info(2).photo.size(), QSize(50, 40));
    QCOMPARE(banc->Info(2).etatPhoto, 1);
    QCOMPARE(banc->deroulement.Lignes().constLast(), "documentChanged 1 modifié");
}

void TestModificationPhoto::unAutreChampLaisseLaPhoto_data()
{
    QTest::addColumn<int>("etat");
    for (const int etat : {-1, 0, 1, 2, 3})
        QTest::addRow("%d", etat) << etat;
}

void TestModificationPhoto::unAutreChampLaisseLaPhoto()
{
    QFETCH(const int, etat);
    banc->Info(2).ficphoto = "jean.png";
    banc->Info(2).etatPhoto = etat;
    Modifie({{"TxtNom", "DURAND"}});
    QCOMPARE(banc->Info(2).etatPhoto, etat);
    QCOMPARE(banc->deroulement.Lignes(), (QStringList{"dialogue DlgPers", "autoriseAnnulation", "documentChanged 2"}));
}

void TestModificationPhoto::lAbandonLaisseLaPhoto()
{
    Modifie({{"TxtFicPhoto", "jean.png"}});
    Scenario scenario;
    Abandonne<DlgPers>(scenario, {{"TxtFicPhoto", ""}});
    banc->doc.CreaModifPers(&banc->fenetre, banc->repertoire, false);
    QCOMPARE(scenario.Ecarts(), QStringList());
    QCOMPARE(EnTexte(banc->Info(2)), "N2||||||||jean.png photo 1");
    QCOMPARE(banc->Info(2).photo.size(), QSize(30, 40));
}

void TestModificationPhoto::laPhotoSeChercheDansLeDossierDonne()
{
    QTemporaryDir autre;
    QString repertoire = autre.path();
    Scenario scenario;
    Saisit<DlgPers>(scenario, {{"TxtFicPhoto", "jean.png"}});
    banc->doc.CreaModifPers(&banc->fenetre, repertoire, false);
    QCOMPARE(scenario.Ecarts(), QStringList());
    QCOMPARE(banc->Info(2).etatPhoto, 0);
}

void TestModificationPhoto::enCreationLaPhotoDonneAussiLeCode1()
{
    Modifie({{"TxtFicPhoto", "jean.png"}}, true);
    QCOMPARE(EnTexte(banc->Info(2)), "N2||||||||jean.png photo 1");
    QCOMPARE(banc->deroulement.Lignes(), (QStringList{"dialogue DlgPers", "documentChanged 1"}));
}

RAMELIER_TEST_MAIN(QApplication, TestModificationPhoto)
#include "tst_modification_photo.moc"
