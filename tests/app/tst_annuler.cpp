#include "dlgpers.h"
#include "fenetre.h"
#include "saisie.h"

#include "arbre.h"
#include "arbres.h"
#include "infopersonne.h"
#include "personne.h"
#include "ramelierdoc.h"

#include <QAction>
#include <QImage>
#include <QLabel>

/// Taking a modification back, and taking that back again; what may be taken back and when.
class TestAnnuler : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup();
    void annulerPuisAnnulerLAnnulation();
    void annulerMarqueLArbreModifie();
    void leCodeDependDeLaFiche_data();
    void leCodeDependDeLaFiche();
    void laPhotoRevientAussi();
    void uneNouvelleModificationRepartDAnnuler();
    void selectionnerUneAutrePersonneRefuseLAnnulation();
    void lesTextesDUnAutreNeSontJamaisRendus();
    void unDialogueSansEffetGardeLAnnulation_data();
    void unDialogueSansEffetGardeLAnnulation();
    void unAjoutAbandonneGardeLAnnulation();
    void unAjoutFaitEffaceLAnnulation();
    void uneModificationEffaceUneSuppression();
    void unDialogueSansEffetGardeUneSuppression();
    void passerEnConsultationInterditLAnnulation();

private:
    void Modifie(const Textes &textes);
    [[nodiscard]] QString Nom(quint64 numero) const { return Trouve(*fenetre->doc->arbre, numero)->info->nom; }

    std::unique_ptr<Dossier> dossier;
    std::unique_ptr<Fenetre> fenetre;
};

void TestAnnuler::init()
{
    EffaceReglages();
    dossier = std::make_unique<Dossier>();
    const QString chemin = dossier->Ecrit(
        "a.xrlg",
        ArbreEcrit("A", {{1, "MARTIN", "Paul"}, {2, "MARTIN", "Jean"}, {3, "LEFÈVRE", "Élise", "elise.html"}}));
    fenetre = std::make_unique<Fenetre>(QStringList{chemin});
    fenetre->actModeTravail->trigger();
    Clique(*fenetre, 2);
}

void TestAnnuler::cleanup()
{
    fenetre.reset();
    dossier.reset();
}

void TestAnnuler::Modifie(const Textes &textes)
{
    Scenario scenario;
    Saisit<DlgPers>(scenario, textes);
    fenetre->actModifier->trigger();
    QCOMPARE(scenario.Ecarts(), QStringList());
}

void TestAnnuler::annulerPuisAnnulerLAnnulation()
{
    Modifie({{"TxtNom", "DURAND"}, {"TxtDivers", "forgeron"}});
    for (int tour = 0; tour < 3; ++tour) {
        fenetre->actAnnuler->trigger();
        QCOMPARE(Nom(2), "MARTIN");
        QCOMPARE(Trouve(*fenetre->doc->arbre, 2)->info->divers, QString());
        QCOMPARE(fenetre->actAnnuler->text(), "&Annuler annuler");
        QVERIFY(fenetre->actAnnuler->isEnabled());
        QVERIFY(fenetre->modifAnnulee);
        fenetre->actAnnuler->trigger();
        QCOMPARE(Nom(2), "DURAND");
        QCOMPARE(Trouve(*fenetre->doc->arbre, 2)->info->divers, "forgeron");
        QCOMPARE(fenetre->actAnnuler->text(), "&Annuler");
        QVERIFY(fenetre->actAnnuler->isEnabled());
        QVERIFY(!fenetre->modifAnnulee);
    }
    QCOMPARE(fenetre->doc->arbre->selection->numero, 2U);
}

void TestAnnuler::annulerMarqueLArbreModifie()
{
    Modifie({{"TxtNom", "DURAND"}});
    fenetre->actFileSave->trigger();
    QCOMPARE(fenetre->labelInfoModif->text(), QString(21, ' '));
    fenetre->actAnnuler->trigger();
    QVERIFY(fenetre->doc->isModified());
    QCOMPARE(fenetre->labelInfoModif->text(), " document modifé ");
}

void TestAnnuler::leCodeDependDeLaFiche_data()
{
    QTest::addColumn<quint64>("numero");
    QTest::addColumn<Textes>("textes");
    QTest::addColumn<int>("code");
    QTest::newRow("jamais de fiche") << quint64(2) << Textes{{"TxtNom", "X"}} << 2;
    QTest::newRow("une fiche de plus") << quint64(2) << Textes{{"TxtFicHtml", "jean.html"}} << 1;
    QTest::newRow("une fiche de moins") << quint64(3) << Textes{{"TxtFicHtml", ""}} << 1;
    QTest::newRow("toujours une fiche") << quint64(3) << Textes{{"TxtNom", "X"}} << 1;
}

void TestAnnuler::leCodeDependDeLaFiche()
{
    QFETCH(const quint64, numero);
    QFETCH(const Textes, textes);
    QFETCH(const int, code);
    Clique(*fenetre, numero);
    Modifie(textes);
    QList<int> codes;
    connect(fenetre.get(), &RamelierApp::docChanged, this, [&codes](int recu) { codes += recu; });
    fenetre->actAnnuler->trigger();
    fenetre->actAnnuler->trigger();
    QCOMPARE(codes, (QList<int>{code, code}));
}

void TestAnnuler::laPhotoRevientAussi()
{
    QImage photo(30, 40, QImage::Format_RGB32);
    photo.fill(Qt::red);
    QVERIFY(photo.save(dossier->Chemin("jean.png")));
    Modifie({{"TxtFicPhoto", "jean.png"}});
    const auto info = [this] { return Trouve(*fenetre->doc->arbre, 2)->info; };
    QVERIFY(info()->aUnePhoto());
    fenetre->actAnnuler->trigger();
    QCOMPARE(info()->ficphoto, QString());
    QVERIFY(!info()->aUnePhoto());
    fenetre->actAnnuler->trigger();
    QCOMPARE(info()->ficphoto, "jean.png");
    QVERIFY(info()->aUnePhoto());
    QCOMPARE(info()->photo.size(), QSize(30, 40));
}

void TestAnnuler::uneNouvelleModificationRepartDAnnuler()
{
    Modifie({{"TxtNom", "DURAND"}});
    fenetre->actAnnuler->trigger();
    QCOMPARE(fenetre->actAnnuler->text(), "&Annuler annuler");
    Modifie({{"TxtNom", "MOREAU"}});
    QCOMPARE(fenetre->actAnnuler->text(), "&Annuler");
    fenetre->actAnnuler->trigger();
    QCOMPARE(Nom(2), "MARTIN");
}

void TestAnnuler::selectionnerUneAutrePersonneRefuseLAnnulation()
{
    Modifie({{"TxtNom", "DURAND"}});
    fenetre->actAnnuler->trigger();
    Clique(*fenetre, 3);
    QVERIFY(!fenetre->actAnnuler->isEnabled());
    QCOMPARE(fenetre->actAnnuler->text(), "&Annuler");
    QVERIFY(!fenetre->modifAnnulee);
}

void TestAnnuler::lesTextesDUnAutreNeSontJamaisRendus()
{
    Modifie({{"TxtNom", "DURAND"}});
    Clique(*fenetre, 3);
    fenetre->slotAnnuler();
    QCOMPARE(Nom(3), "LEFÈVRE");
    QCOMPARE(Nom(2), "DURAND");
    QCOMPARE(fenetre->actAnnuler->text(), "&Annuler");
}

void TestAnnuler::unDialogueSansEffetGardeLAnnulation_data()
{
    QTest::addColumn<bool>("accepte");
    QTest::newRow("accepté sans rien toucher") << true;
    QTest::newRow("annulé après avoir écrit") << false;
}

void TestAnnuler::unDialogueSansEffetGardeLAnnulation()
{
    QFETCH(const bool, accepte);
    Modifie({{"TxtNom", "DURAND"}});
    Scenario scenario;
    if (accepte)
        Saisit<DlgPers>(scenario, {});
    else
        Abandonne<DlgPers>(scenario, {{"TxtNom", "MOREAU"}});
    fenetre->actModifier->trigger();
    QCOMPARE(scenario.Ecarts(), QStringList());
    QVERIFY(fenetre->actAnnuler->isEnabled());
    fenetre->actAnnuler->trigger();
    QCOMPARE(Nom(2), "MARTIN");
}

void TestAnnuler::unAjoutAbandonneGardeLAnnulation()
{
    Modifie({{"TxtNom", "DURAND"}});
    Scenario scenario;
    Saisit<DlgPers>(scenario, {{"TxtDivers", "forgeron"}});
    fenetre->actAjouterPere->trigger();
    QCOMPARE(scenario.Ecarts(), QStringList());
    QVERIFY(fenetre->actAnnuler->isEnabled());
    fenetre->actAnnuler->trigger();
    QCOMPARE(ArbreEnTexte(*fenetre->doc->arbre), "1 Paul MARTIN\n  2 Jean MARTIN\n  3 Élise LEFÈVRE\n");
}

void TestAnnuler::unAjoutFaitEffaceLAnnulation()
{
    Modifie({{"TxtNom", "DURAND"}});
    Scenario scenario;
    Saisit<DlgPers>(scenario, {{"TxtNom", "MOREAU"}});
    fenetre->actAjouterPere->trigger();
    QCOMPARE(scenario.Ecarts(), QStringList());
    QVERIFY(!fenetre->actAnnuler->isEnabled());
    fenetre->slotAnnuler();
    QCOMPARE(ArbreEnTexte(*fenetre->doc->arbre), "1 Paul MARTIN\n  2 Jean DURAND\n  3 Élise LEFÈVRE\n    4 MOREAU\n");
}

void TestAnnuler::uneModificationEffaceUneSuppression()
{
    Scenario scenario;
    scenario.Repond("Oui");
    fenetre->actSuppPers->trigger();
    Clique(*fenetre, 3);
    Saisit<DlgPers>(scenario, {{"TxtNom", "DURAND"}});
    fenetre->actModifier->trigger();
    QCOMPARE(scenario.Ecarts(), QStringList());
    fenetre->actAnnuler->trigger();
    QCOMPARE(ArbreEnTexte(*fenetre->doc->arbre), "1 Paul MARTIN\n  3 Élise LEFÈVRE\n");
}

void TestAnnuler::unDialogueSansEffetGardeUneSuppression()
{
    Scenario scenario;
    scenario.Repond("Oui");
    fenetre->actSuppPers->trigger();
    Clique(*fenetre, 3);
    Abandonne<DlgPers>(scenario, {{"TxtNom", "DURAND"}});
    fenetre->actModifier->trigger();
    QCOMPARE(scenario.Ecarts(), QStringList());
    // The selection has ended the offer, not the memory.
    QVERIFY(!fenetre->actAnnuler->isEnabled());
    fenetre->slotAnnuler();
    QCOMPARE(ArbreEnTexte(*fenetre->doc->arbre), "1 Paul MARTIN\n  2 Jean MARTIN\n  3 Élise LEFÈVRE\n");
}

void TestAnnuler::passerEnConsultationInterditLAnnulation()
{
    Modifie({{"TxtNom", "DURAND"}});
    fenetre->actModeTravail->trigger();
    QVERIFY(!fenetre->actAnnuler->isEnabled());
    fenetre->actModeTravail->trigger();
    QVERIFY(!fenetre->actAnnuler->isEnabled());
}

RAMELIER_TEST_BUREAU_MAIN(TestAnnuler)
#include "tst_annuler.moc"
