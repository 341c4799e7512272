#include "arbre.h"
#include "arbres.h"
#include "environnement.h"
#include "ficxrlg.h"
#include "interlocuteurnote.h"
#include "personne.h"
#include "ramelierdoc.h"

#include <QGuiApplication>
#include <QSignalSpy>

/// RamelierDoc: the open tree, its files and its flags.
class TestRamelierDoc : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void init();
    void cleanup();
    void unDocumentNeuf();
    void lesPreferencesServentDeFormats();
    void leNomChoisitLeLecteur_data();
    void leNomChoisitLeLecteur();
    void ouvreUnArbre();
    void ouvreAvecSesOptions();
    void ouvreEnAffichageReduit();
    void previentAvantDEffacerLesMarques();
    void unEchecLaisseCeQuiAEteLu();
    void unEchecEffaceLesMarquesDeLAncienArbre();
    void chargeLesArbresDesParents();
    void sauve();
    void sauveLesOptionsModifiees();
    void unEchecDeSauvegardeGardeLesMarques();
    void sauveSousUnAutreNom();
    void unEchecDeSauverSousGardeLeNom();
    void sansArbreRienNEstEcrit();
    void unClicSelectionne();

private:
    [[nodiscard]] QString Chemin(const QString &nom) const { return dossier->filePath(nom); }
    QString EcritArbre(const QString &nom, int generations = 2) const;
    int Charge(const QString &nom, int mode = 0);

    std::unique_ptr<QTemporaryDir> dossier;
    std::unique_ptr<RamelierDoc> doc;
    QString repertoire;
    QString options;
    QStringList messages;
};

void TestRamelierDoc::initTestCase()
{
    Interlocuteur::Installe(std::make_unique<InterlocuteurNote>(messages));
}

void TestRamelierDoc::init()
{
    dossier = std::make_unique<QTemporaryDir>();
    doc = std::make_unique<RamelierDoc>(QString());
    repertoire = dossier->path();
    options = Chemin(QStringLiteral("a.opt"));
    messages.clear();
}

void TestRamelierDoc::cleanup()
{
    QFile::remove(Environnement::Maison() + QStringLiteral("/.ramelier.opt"));
}

QString TestRamelierDoc::EcritArbre(const QString &nom, int generations) const
{
    const auto arbre = ArbreComplet(generations);
    return writeFicXRLG(Chemin(nom), arbre.get()) ? Chemin(nom) : QString();
}

int TestRamelierDoc::Charge(const QString &nom, int mode)
{
    return doc->load(Chemin(nom), repertoire, options, mode);
}

void TestRamelierDoc::unDocumentNeuf()
{
    QCOMPARE(doc->fichierPreferences, Environnement::Maison() + QStringLiteral("/.ramelier.opt"));
    QVERIFY(!doc->arbre && !doc->arbrePere && !doc->arbreMere);
    QCOMPARE(doc->nomFichier, QString());
    QCOMPARE(doc->enteteV1, QStringLiteral("Arbre généalogique - R. Lidou - Version 1.0"));
    QCOMPARE(doc->enteteV3, QStringLiteral("Arbre généalogique - R. Lidou - Version 3.0"));
    QCOMPARE(doc->typeFichier, 0);
    QVERIFY(doc->optionsParArbre && doc->titreAffiche);
    QVERIFY(!doc->arbreCharge && !doc->creationEnCours && !doc->importGED);
    QVERIFY(!doc->isModified() && !doc->areOptionsModified());
    QCOMPARE(doc->formats.largeurCadre, 30);
    QCOMPARE(doc->formatsPref.hauteurCadre, 42);
    QCOMPARE(doc->polices.policeTitre.pointSize(), 30);
    QCOMPARE(doc->policesPref.policeTextes.family(), QStringLiteral("Helvetica"));
}

void TestRamelierDoc::lesPreferencesServentDeFormats()
{
    QFile preferences(Environnement::Maison() + QStringLiteral("/.ramelier.opt"));
    QVERIFY(preferences.open(QIODevice::WriteOnly));
    preferences.write("x\nx\n20\n30\n77\n42\n10\n15\n15\n1\n1\n255\n0\n0\nTimes\n9\n");
    preferences.close();
    const RamelierDoc autre{QString()};
    QCOMPARE(autre.formatsPref.largeurCadre, 77);
    QCOMPARE(autre.formats.largeurCadre, 77);
    QCOMPARE(autre.formats.couleurTraits, QColor(255, 0, 0));
    QCOMPARE(autre.polices.policeTextes.family(), QStringLiteral("Times"));
}

void TestRamelierDoc::leNomChoisitLeLecteur_data()
{
    QTest::addColumn<QString>("nom");
    QTest::addColumn<int>("resultat");
    QTest::addColumn<bool>("lu");
    QTest::newRow("xrlg") << "a.xrlg" << 1 << true;
    QTest::newRow("capitales") << "A.XRLG" << 1 << true;
    QTest::newRow("au milieu") << "a.xrlg.bak" << 1 << true;
    QTest::newRow("autre nom") << "a.txt" << 1 << false;
    QTest::newRow("sans extension") << "arbre" << 1 << false;
}

void TestRamelierDoc::leNomChoisitLeLecteur()
{
    QFETCH(QString, nom);
    QFETCH(int, resultat);
    QFETCH(bool, lu);
    EcritArbre(nom);
    QCOMPARE(Charge(nom), resultat);
    QCOMPARE(doc->arbre->premiere != nullptr, lu);
    QCOMPARE(messages, QStringList());
}

void TestRamelierDoc::ouvreUnArbre()
{
    EcritArbre(QStringLiteral("a.xrlg"));
    const QSignalSpy change(doc.get(), &RamelierDoc::documentChanged);
    doc->typeFichier = 3;
    QCOMPARE(Charge(QStringLiteral("a.xrlg")), 1);
    QCOMPARE(change, QList<QList<QVariant>>{{1}});
    QCOMPARE(doc->nomFichier, Chemin(QStringLiteral("a.xrlg")));
    QVERIFY(doc->arbreCharge);
    QCOMPARE(doc->typeFichier, 0);
    QCOMPARE(NumerosEnTexte(*doc->arbre), QStringLiteral("1 2 3"));
    // A second tree: the first one is removed before.
    EcritArbre(QStringLiteral("b.xrlg"), 3);
    QCOMPARE(Charge(QStringLiteral("b.xrlg")), 1);
    QCOMPARE(change, (QList<QList<QVariant>>{{1}, {0}, {1}}));
    QCOMPARE(NumerosEnTexte(*doc->arbre), QStringLiteral("1 2 3 4 5 6 7"));
}

void TestRamelierDoc::ouvreAvecSesOptions()
{
    EcritArbre(QStringLiteral("a.xrlg"));
    doc->formats.largeurCadre = 99;
    QCOMPARE(Charge(QStringLiteral("a.xrlg")), 1);
    QCOMPARE(doc->formats.largeurCadre, 30);
    QFile fichier(options);
    QVERIFY(fichier.open(QIODevice::WriteOnly));
    fichier.write("x\nx\n20\n30\n55\n");
    fichier.close();
    QCOMPARE(Charge(QStringLiteral("a.xrlg")), 1);
    QCOMPARE(doc->formats.largeurCadre, 55);
    QCOMPARE(doc->formats.epaisseurTraits, 2.0F);
    QCOMPARE(doc->formatsPref.largeurCadre, 30);
}

void TestRamelierDoc::ouvreEnAffichageReduit()
{
    EcritArbre(QStringLiteral("a.xrlg"));
    doc->optionsParArbre = false;
    QCOMPARE(Charge(QStringLiteral("a.xrlg")), 1);
    QCOMPARE(doc->formats.largeurCadre, 25);
    QCOMPARE(doc->formats.hauteurCadre, 15);
    QCOMPARE(doc->formats.epaisseurTraits, 0.5F);
    QCOMPARE(doc->polices.policeTitre.pointSize(), 10);
    QCOMPARE(doc->polices.policeTitre.weight(), QFont::Bold);
    QCOMPARE(doc->polices.policeNumeros.pointSize(), 8);
}

void TestRamelierDoc::previentAvantDEffacerLesMarques()
{
    EcritArbre(QStringLiteral("a.xrlg"));
    doc->modifie = true;
    bool marqueVue = false;
    connect(doc.get(), &RamelierDoc::documentChanged, this, [&] { marqueVue = doc->isModified(); });
    QCOMPARE(Charge(QStringLiteral("a.xrlg")), 1);
    QVERIFY(marqueVue);
    QVERIFY(!doc->isModified());
}

void TestRamelierDoc::unEchecLaisseCeQuiAEteLu()
{
    QFile fichier(Chemin(QStringLiteral("a.xrlg")));
    QVERIFY(fichier.open(QIODevice::WriteOnly));
    fichier.write("<xrlg><personne><numero>1</numero></personne><personne>");
    fichier.close();
    const QSignalSpy change(doc.get(), &RamelierDoc::documentChanged);
    QCOMPARE(Charge(QStringLiteral("a.xrlg")), 0);
    QCOMPARE(doc->nomFichier, QString());
    QCOMPARE(NumerosEnTexte(*doc->arbre), QStringLiteral("1"));
    QVERIFY(!doc->arbreCharge);
    QVERIFY(change.isEmpty());
    QCOMPARE(messages.size(), 1);
    QCOMPARE(Charge(QStringLiteral("absent.xrlg")), 0);
    QCOMPARE(change, QList<QList<QVariant>>{{0}});
}

void TestRamelierDoc::unEchecEffaceLesMarquesDeLAncienArbre()
{
    EcritArbre(QStringLiteral("a.xrlg"));
    QCOMPARE(Charge(QStringLiteral("a.xrlg")), 1);
    doc->modifie = true;
    doc->optionsModifiees = true;
    QCOMPARE(Charge(QStringLiteral("absent.xrlg")), 0);
    QVERIFY(!doc->isModified() && !doc->areOptionsModified());
}

void TestRamelierDoc::chargeLesArbresDesParents()
{
    EcritArbre(QStringLiteral("p.xrlg"), 1);
    EcritArbre(QStringLiteral("m.xrlg"), 2);
    const QSignalSpy change(doc.get(), &RamelierDoc::documentChanged);
    QCOMPARE(Charge(QStringLiteral("p.xrlg"), 1), 1);
    QVERIFY(!doc->arbre);
    QCOMPARE(NumerosEnTexte(*doc->arbrePere), QStringLiteral("1"));
    QCOMPARE(Charge(QStringLiteral("m.xrlg"), 2), 1);
    QVERIFY(!doc->arbre);
    QCOMPARE(NumerosEnTexte(*doc->arbreMere), QStringLiteral("1 2 3"));
    // A second father's tree replaces the first.
    QCOMPARE(Charge(QStringLiteral("m.xrlg"), 1), 1);
    QCOMPARE(NumerosEnTexte(*doc->arbrePere), QStringLiteral("1 2 3"));
    QCOMPARE(Charge(QStringLiteral("p.xrlg"), 7), 1);
    QCOMPARE(NumerosEnTexte(*doc->arbre), QStringLiteral("1"));
    QCOMPARE(doc->nomFichier, QString());
    QVERIFY(change.isEmpty());
}

void TestRamelierDoc::sauve()
{
    EcritArbre(QStringLiteral("a.xrlg"));
    QCOMPARE(Charge(QStringLiteral("a.xrlg")), 1);
    doc->arbre->infoArbre->titrearbre = QStringLiteral("Nouveau titre");
    doc->modifie = true;
    QVERIFY(doc->save(options));
    QVERIFY(!doc->isModified());
    QVERIFY(!QFile::exists(options));
    QCOMPARE(Charge(QStringLiteral("a.xrlg")), 1);
    QCOMPARE(doc->arbre->infoArbre->titrearbre, QStringLiteral("Nouveau titre"));
}

void TestRamelierDoc::sauveLesOptionsModifiees()
{
    EcritArbre(QStringLiteral("a.xrlg"));
    QCOMPARE(Charge(QStringLiteral("a.xrlg")), 1);
    doc->formats.largeurCadre = 61;
    doc->optionsModifiees = true;
    QVERIFY(doc->save(options));
    QVERIFY(!doc->areOptionsModified());
    QFile fichier(options);
    QVERIFY(fichier.open(QIODevice::ReadOnly));
    QCOMPARE(fichier.readAll().split('\n').at(4), QByteArray("61"));
    // Nobody looks whether the options could be written.
    doc->optionsModifiees = true;
    QString impossible = Chemin(QStringLiteral("rien/a.opt"));
    QVERIFY(doc->save(impossible));
    QVERIFY(!doc->areOptionsModified());
}

void TestRamelierDoc::unEchecDeSauvegardeGardeLesMarques()
{
    EcritArbre(QStringLiteral("a.xrlg"));
    QCOMPARE(Charge(QStringLiteral("a.xrlg")), 1);
    doc->nomFichier = Chemin(QStringLiteral("rien/a.xrlg"));
    doc->modifie = true;
    doc->optionsModifiees = true;
    QVERIFY(!doc->save(options));
    QVERIFY(doc->isModified() && doc->areOptionsModified());
    QVERIFY(!QFile::exists(options));
    QCOMPARE(messages.size(), 1);
}

void TestRamelierDoc::sauveSousUnAutreNom()
{
    EcritArbre(QStringLiteral("a.xrlg"));
    QCOMPARE(Charge(QStringLiteral("a.xrlg")), 1);
    doc->modifie = true;
    QString nouvelles = Chemin(QStringLiteral("b.opt"));
    QVERIFY(doc->saveAs(Chemin(QStringLiteral("b.xrlg")), nouvelles, false));
    QCOMPARE(doc->nomFichier, Chemin(QStringLiteral("b.xrlg")));
    QCOMPARE(doc->typeFichier, 4);
    QVERIFY(!doc->isModified());
    QVERIFY(QFile::exists(Chemin(QStringLiteral("b.xrlg"))));
    QVERIFY(!QFile::exists(nouvelles));
    QVERIFY(doc->saveAs(Chemin(QStringLiteral("b.xrlg")), nouvelles, true));
    QVERIFY(QFile::remove(nouvelles));
    doc->optionsModifiees = true;
    QVERIFY(doc->saveAs(Chemin(QStringLiteral("b.xrlg")), nouvelles, false));
    QVERIFY(QFile::exists(nouvelles));
    QVERIFY(!doc->areOptionsModified());
}

void TestRamelierDoc::unEchecDeSauverSousGardeLeNom()
{
    EcritArbre(QStringLiteral("a.xrlg"));
    QCOMPARE(Charge(QStringLiteral("a.xrlg")), 1);
    doc->modifie = true;
    QVERIFY(!doc->saveAs(Chemin(QStringLiteral("rien/b.xrlg")), options, true));
    QCOMPARE(doc->typeFichier, 4);
    QCOMPARE(doc->nomFichier, Chemin(QStringLiteral("a.xrlg")));
    QVERIFY(doc->isModified());
    QVERIFY(!QFile::exists(options));
}

void TestRamelierDoc::sansArbreRienNEstEcrit()
{
    doc->nomFichier = Chemin(QStringLiteral("a.xrlg"));
    doc->optionsModifiees = true;
    QVERIFY(!doc->save(options));
    QVERIFY(!doc->saveAs(Chemin(QStringLiteral("b.xrlg")), options, true));
    QCOMPARE(doc->typeFichier, 0);
    QCOMPARE(QDir(dossier->path()).entryList(QDir::Files), QStringList());
    QCOMPARE(messages, QStringList());
}

void TestRamelierDoc::unClicSelectionne()
{
    EcritArbre(QStringLiteral("a.xrlg"), 1);
    QCOMPARE(Charge(QStringLiteral("a.xrlg")), 1);
    doc->PositionneLesPersonnes(1.0F, 1.0F);
    QStringList signaux;
    connect(doc.get(), &RamelierDoc::documentChanged, this, [&](int code) { signaux += u'd' + QString::number(code); });
    connect(doc.get(), &RamelierDoc::personneSelectionnee, this,
            [&](int etat) { signaux += u's' + QString::number(etat); });
    // The only box: 30 x 42 at (15, 15).
    doc->DeselectSelect(5, 5, 1.0F, 1.0F);
    QCOMPARE(signaux, QStringList());
    doc->DeselectSelect(20, 20, 1.0F, 1.0F);
    QCOMPARE(signaux, (QStringList{"d2", "s1"}));
    doc->DeselectSelect(21, 21, 1.0F, 1.0F);
    QCOMPARE(signaux, (QStringList{"d2", "s1"}));
    doc->DeselectSelect(5, 5, 1.0F, 1.0F);
    QCOMPARE(signaux, (QStringList{"d2", "s1", "d2", "s0"}));
}

RAMELIER_TEST_MAIN(QGuiApplication, TestRamelierDoc)
#include "tst_ramelierdoc.moc"
