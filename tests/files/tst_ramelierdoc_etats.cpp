#include "arbre.h"
#include "arbres.h"
#include "environnement.h"
#include "ficxrlg.h"
#include "infopersonne.h"
#include "interlocuteurnote.h"
#include "pannes.h"
#include "personne.h"
#include "ramelierdoc.h"

#include <QDir>
#include <QFile>
#include <QGuiApplication>

/// RamelierDoc: what its listeners see during a load, its formats, and saves that fail half-way.
class TestRamelierDocEtats : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void init();
    void cleanup();
    void lesTroisJeuxDeFormats();
    void lesOptionsPassentParLeDocument();
    void leNomChoisitLeLecteur_data();
    void leNomChoisitLeLecteur();
    void unAncienFichierEchoueSansDegat();
    void chaqueSignalTrouveLeDocumentEnOrdre();
    void seRelitSousSonPropreNom();
    void unArbreDeParentEcarteLArbreOuvert();
    void unEchecNeToucheNiAuxFormatsNiAuxParents_data();
    void unEchecNeToucheNiAuxFormatsNiAuxParents();
    void lAffichageReduitIgnoreLesOptionsDeLArbre();
    void sansOptionsLesPreferencesServent();
    void sauverNeToucheAuxOptionsQueSiEllesOntChange();
    void desOptionsQuiNePeuventSEcrireSontDites();
    void lesOptionsPortentLEnteteDUnArbre();
    void unDisquePleinGardeLAncienArbre_data();
    void unDisquePleinGardeLAncienArbre();
    void sauveSousSonPropreNom();
    void laSelectionPasseDUnePersonneALAutre();

private:
    [[nodiscard]] QString Chemin(const QString &nom) const { return dossier->filePath(nom); }
    QString EcritArbre(const QString &nom, int generations = 2) const;
    QString Pose(const QString &nom, const QByteArray &contenu) const;
    [[nodiscard]] QByteArray Contenu(const QString &nom) const;
    int Charge(const QString &nom, int mode = 0) { return doc->load(Chemin(nom), repertoire, options, mode); }
    [[nodiscard]] QString EtatEnTexte() const;

    std::unique_ptr<QTemporaryDir> dossier;
    std::unique_ptr<RamelierDoc> doc;
    QString repertoire;
    QString options;
    QStringList messages;
};

namespace {

QString EnTexte(const FormatsDessins &formats)
{
    return QStringLiteral("%1 %2 %3 %4 %5 %6 %7 / %8 %9 / ")
               .arg(formats.largeurCadre)
               .arg(formats.hauteurCadre)
               .arg(formats.distMinHoriz)
               .arg(formats.distMinVert)
               .arg(formats.margeGenerale)
               .arg(formats.margeDansCadre)
               .arg(formats.intervCadrePhoto)
               .arg(double(formats.epaisseurTraits))
               .arg(double(formats.rayonArc))
        + formats.couleurTraits.name();
}

QString EnTexte(const LesPolices &polices)
{
    QStringList textes;
    for (const QFont &police :
         {polices.policeTextes, polices.policeNumeros, polices.policeTitre, polices.policeLegende})
        textes += QStringLiteral("%1 %2 %3").arg(police.family()).arg(police.pointSize()).arg(int(police.weight()));
    return textes.join(QStringLiteral(", ")) + QStringLiteral(" / ") + polices.couleurCaracteres.name();
}

const QString formatsParDefaut = QStringLiteral("30 42 10 15 15 1 1 / 1 2.5 / #000000");
const QString formatsReduits = QStringLiteral("25 15 1 6 5 0 1 / 0.5 1 / #000000");

}  // namespace

void TestRamelierDocEtats::initTestCase()
{
    Interlocuteur::Installe(std::make_unique<InterlocuteurNote>(messages));
}

void TestRamelierDocEtats::init()
{
    dossier = std::make_unique<QTemporaryDir>();
    doc = std::make_unique<RamelierDoc>(QString());
    repertoire = dossier->path();
    options = Chemin(QStringLiteral("a.opt"));
    messages.clear();
}

void TestRamelierDocEtats::cleanup()
{
    doc.reset();
    QFile::remove(Environnement::Maison() + QStringLiteral("/.ramelier.opt"));
}

QString TestRamelierDocEtats::EcritArbre(const QString &nom, int generations) const
{
    const auto arbre = ArbreComplet(generations);
    return writeFicXRLG(Chemin(nom), arbre.get()) ? Chemin(nom) : QString();
}

QString TestRamelierDocEtats::Pose(const QString &nom, const QByteArray &contenu) const
{
    QFile fichier(Chemin(nom));
    return fichier.open(QIODevice::WriteOnly) && fichier.write(contenu) == contenu.size() ? Chemin(nom) : QString();
}

QByteArray TestRamelierDocEtats::Contenu(const QString &nom) const
{
    QFile fichier(Chemin(nom));
    return fichier.open(QIODevice::ReadOnly) ? fichier.readAll() : QByteArray("illisible");
}

QString TestRamelierDocEtats::EtatEnTexte() const
{
    return QStringLiteral("[%1] %2 charge=%3 modifie=%4 options=%5")
        .arg(doc->arbre ? NumerosEnTexte(*doc->arbre) : QStringLiteral("aucun"), QFileInfo(doc->nomFichier).fileName())
        .arg(int(doc->arbreCharge))
        .arg(int(doc->isModified()))
        .arg(int(doc->areOptionsModified()));
}

void TestRamelierDocEtats::lesTroisJeuxDeFormats()
{
    const QString policesParDefaut =
        QStringLiteral("Helvetica 8 400, Helvetica 14 700, Helvetica 30 700, Helvetica 12 400 / #000000");
    doc->formats = FormatsDessins();
    doc->formatsPref = FormatsDessins();
    doc->polices = LesPolices();
    doc->policesPref = LesPolices();
    doc->initPolicesEtTraitsPref();
    QCOMPARE(EnTexte(doc->formatsPref), formatsParDefaut);
    QCOMPARE(EnTexte(doc->policesPref), policesParDefaut);
    QCOMPARE(doc->formats.largeurCadre, 0);
    doc->initPolicesEtTraits(QString());
    QCOMPARE(EnTexte(doc->formats), formatsParDefaut);
    QCOMPARE(EnTexte(doc->polices), policesParDefaut);
    doc->initPolicesEtTraitsMini();
    QCOMPARE(EnTexte(doc->formats), formatsReduits);
    QCOMPARE(EnTexte(doc->polices),
             QStringLiteral("Helvetica 8 400, Helvetica 8 700, Helvetica 10 700, Helvetica 8 400 / #000000"));
    QCOMPARE(EnTexte(doc->formatsPref), formatsParDefaut);
    QCOMPARE(EnTexte(doc->policesPref), policesParDefaut);
}

void TestRamelierDocEtats::lesOptionsPassentParLeDocument()
{
    FormatsDessins formats = FormatsDessins::Reduits();
    LesPolices polices = LesPolices::Reduites();
    QVERIFY(doc->saveOptions(doc->fichierPreferences, &formats, &polices, 0));
    FormatsDessins formatsLus;
    LesPolices policesLues;
    QVERIFY(doc->loadOptions(doc->fichierPreferences, &formatsLus, &policesLues));
    QCOMPARE(EnTexte(formatsLus), QStringLiteral("25 15 1 6 5 0 1 / 0 1 / #000000"));
    QCOMPARE(policesLues.policeTitre.pointSize(), 10);
    QVERIFY(!doc->saveOptions(Chemin(QStringLiteral("rien/a.opt")), &formats, &polices, 0));
    QVERIFY(!doc->loadOptions(Chemin(QStringLiteral("rien/a.opt")), &formatsLus, &policesLues));
    // A new document starts from the preferences.
    const RamelierDoc autre{QString()};
    QCOMPARE(EnTexte(autre.formatsPref), QStringLiteral("25 15 1 6 5 0 1 / 0 1 / #000000"));
    QCOMPARE(EnTexte(autre.formats), QStringLiteral("25 15 1 6 5 0 1 / 0 1 / #000000"));
    QCOMPARE(EnTexte(doc->formats), formatsParDefaut);
}

void TestRamelierDocEtats::leNomChoisitLeLecteur_data()
{
    QTest::addColumn<QString>("nom");
    QTest::addColumn<QString>("numeros");
    QTest::newRow("capitales mêlées") << "a.XrLg"
                                      << "1 2 3";
    QTest::newRow("dans le nom d'un dossier") << "d.xrlg/arbre.txt"
                                              << "1 2 3";
    QTest::newRow("après une ancienne extension") << "a.rlg.xrlg"
                                                  << "1 2 3";
    QTest::newRow("avant une ancienne extension") << "a.xrlg.rlg"
                                                  << "1 2 3";
    QTest::newRow("sans le point") << "axrlg"
                                   << "";
    QTest::newRow("xml") << "a.xml"
                         << "";
}

void TestRamelierDocEtats::leNomChoisitLeLecteur()
{
    QFETCH(QString, nom);
    QFETCH(QString, numeros);
    QVERIFY(QDir(repertoire).mkdir(QStringLiteral("d.xrlg")));
    QVERIFY(!EcritArbre(nom).isEmpty());
    QCOMPARE(Charge(nom), 1);
    QVERIFY(doc->arbre);
    QCOMPARE(NumerosEnTexte(*doc->arbre), numeros);
    QCOMPARE(doc->nomFichier, Chemin(nom));
    QCOMPARE(messages, QStringList());
    // Asked directly, the same reader fills the tree that is there.
    QCOMPARE(doc->OuvreFichierArbre(Chemin(QStringLiteral("rien")), repertoire), 0);
    QCOMPARE(NumerosEnTexte(*doc->arbre), numeros);
}

void TestRamelierDocEtats::unAncienFichierEchoueSansDegat()
{
    for (const QByteArray &contenu : {QByteArray(), QByteArray("n'importe quoi"), QByteArray(5000, '\xFF')}) {
        QVERIFY(!Pose(QStringLiteral("a.RLG"), contenu).isEmpty());
        QCOMPARE(Charge(QStringLiteral("a.RLG")), 0);
        QCOMPARE(doc->nomFichier, QString());
        QVERIFY(doc->arbre);
    }
}

void TestRamelierDocEtats::chaqueSignalTrouveLeDocumentEnOrdre()
{
    EcritArbre(QStringLiteral("a.xrlg"), 1);
    EcritArbre(QStringLiteral("b.xrlg"), 2);
    QStringList etats;
    connect(doc.get(), &RamelierDoc::documentChanged, this,
            [&](int code) { etats += QString::number(code) + u' ' + EtatEnTexte(); });
    connect(doc.get(), &RamelierDoc::personneSelectionnee, this, [&] { etats += QStringLiteral("selection"); });
    connect(doc.get(), &RamelierDoc::autoriseAnnulation, this, [&] { etats += QStringLiteral("annulation"); });
    doc->modifie = true;
    doc->optionsModifiees = true;
    QCOMPARE(Charge(QStringLiteral("a.xrlg")), 1);
    // The listeners are told before the flags are cleared.
    QCOMPARE(etats, QStringList{"1 [1] a.xrlg charge=1 modifie=1 options=1"});
    QCOMPARE(EtatEnTexte(), QStringLiteral("[1] a.xrlg charge=1 modifie=0 options=0"));
    etats.clear();
    doc->modifie = true;
    doc->optionsModifiees = true;
    QCOMPARE(Charge(QStringLiteral("b.xrlg")), 1);
    QCOMPARE(etats.size(), 2);
    QVERIFY2(etats.at(0).startsWith(QStringLiteral("0 [aucun]")), qPrintable(etats.at(0)));
    QCOMPARE(etats.at(1), QStringLiteral("1 [1 2 3] b.xrlg charge=1 modifie=0 options=0"));
    QCOMPARE(EtatEnTexte(), QStringLiteral("[1 2 3] b.xrlg charge=1 modifie=0 options=0"));
}

void TestRamelierDocEtats::seRelitSousSonPropreNom()
{
    EcritArbre(QStringLiteral("a.xrlg"));
    QCOMPARE(Charge(QStringLiteral("a.xrlg")), 1);
    doc->arbre->premiere->info->nom = QStringLiteral("perdu");
    // The name passed is the very one that the load empties first.
    QCOMPARE(doc->load(doc->nomFichier, repertoire, options, 0), 1);
    QCOMPARE(EtatEnTexte(), QStringLiteral("[1 2 3] a.xrlg charge=1 modifie=0 options=0"));
    QCOMPARE(doc->arbre->premiere->info->nom, QStringLiteral("N1"));
}

void TestRamelierDocEtats::unArbreDeParentEcarteLArbreOuvert()
{
    EcritArbre(QStringLiteral("a.xrlg"), 1);
    EcritArbre(QStringLiteral("p.xrlg"), 2);
    QCOMPARE(Charge(QStringLiteral("a.xrlg")), 1);
    doc->formats.largeurCadre = 99;
    QList<int> codes;
    connect(doc.get(), &RamelierDoc::documentChanged, this, [&](int code) { codes += code; });
    QCOMPARE(Charge(QStringLiteral("p.xrlg"), 1), 1);
    QCOMPARE(codes, QList<int>{0});
    QVERIFY(!doc->arbre);
    QCOMPARE(NumerosEnTexte(*doc->arbrePere), QStringLiteral("1 2 3"));
    QVERIFY(!doc->arbreMere);
    QCOMPARE(doc->nomFichier, QString());
    QCOMPARE(doc->formats.largeurCadre, 99);
}

void TestRamelierDocEtats::unEchecNeToucheNiAuxFormatsNiAuxParents_data()
{
    QTest::addColumn<int>("mode");
    QTest::newRow("arbre") << 0;
    QTest::newRow("père") << 1;
    QTest::newRow("mère") << 2;
}

void TestRamelierDocEtats::unEchecNeToucheNiAuxFormatsNiAuxParents()
{
    QFETCH(int, mode);
    EcritArbre(QStringLiteral("p.xrlg"), 1);
    EcritArbre(QStringLiteral("m.xrlg"), 1);
    QCOMPARE(Charge(QStringLiteral("p.xrlg"), 1), 1);
    QCOMPARE(Charge(QStringLiteral("m.xrlg"), 2), 1);
    Pose(QStringLiteral("faux.xrlg"), "<xrlg><personne><numero>1</numero></personne><personne><numero>2</numero>");
    Pose(QStringLiteral("a.opt"), "x\nx\n10\n20\n55\n");
    doc->formats.largeurCadre = 99;
    QList<int> codes;
    connect(doc.get(), &RamelierDoc::documentChanged, this, [&](int code) { codes += code; });
    QCOMPARE(Charge(QStringLiteral("faux.xrlg"), mode), 0);
    QCOMPARE(codes, QList<int>());
    QCOMPARE(NumerosEnTexte(*doc->arbre), QStringLiteral("1"));
    QCOMPARE(NumerosEnTexte(*doc->arbrePere), QStringLiteral("1"));
    QCOMPARE(NumerosEnTexte(*doc->arbreMere), QStringLiteral("1"));
    QCOMPARE(doc->nomFichier, QString());
    QCOMPARE(doc->formats.largeurCadre, 99);
    QCOMPARE(messages.size(), 1);
}

void TestRamelierDocEtats::lAffichageReduitIgnoreLesOptionsDeLArbre()
{
    EcritArbre(QStringLiteral("a.xrlg"));
    Pose(QStringLiteral("a.opt"), "x\nx\n10\n20\n55\n");
    doc->optionsParArbre = false;
    QCOMPARE(Charge(QStringLiteral("a.xrlg")), 1);
    QCOMPARE(EnTexte(doc->formats), formatsReduits);
    doc->optionsParArbre = true;
    QCOMPARE(Charge(QStringLiteral("a.xrlg")), 1);
    QCOMPARE(doc->formats.largeurCadre, 55);
}

void TestRamelierDocEtats::sansOptionsLesPreferencesServent()
{
    EcritArbre(QStringLiteral("a.xrlg"));
    doc->formatsPref.largeurCadre = 77;
    doc->policesPref.policeTitre.setPointSize(44);
    doc->policesPref.couleurCaracteres = Qt::red;
    doc->formats.largeurCadre = 99;
    QCOMPARE(Charge(QStringLiteral("a.xrlg")), 1);
    QCOMPARE(EnTexte(doc->formats), QStringLiteral("77 42 10 15 15 1 1 / 1 2.5 / #000000"));
    QCOMPARE(doc->polices.policeTitre.pointSize(), 44);
    QCOMPARE(doc->polices.couleurCaracteres, QColor(255, 0, 0));
}

void TestRamelierDocEtats::sauverNeToucheAuxOptionsQueSiEllesOntChange()
{
    EcritArbre(QStringLiteral("a.xrlg"));
    QCOMPARE(Charge(QStringLiteral("a.xrlg")), 1);
    Pose(QStringLiteral("a.opt"), "ancien");
    doc->modifie = true;
    QVERIFY(doc->save(options));
    QCOMPARE(Contenu(QStringLiteral("a.opt")), QByteArray("ancien"));
    doc->modifie = true;
    QVERIFY(doc->saveAs(Chemin(QStringLiteral("b.xrlg")), options, false));
    QCOMPARE(Contenu(QStringLiteral("a.opt")), QByteArray("ancien"));
    QCOMPARE(EtatEnTexte(), QStringLiteral("[1 2 3] b.xrlg charge=1 modifie=0 options=0"));
}

void TestRamelierDocEtats::desOptionsQuiNePeuventSEcrireSontDites()
{
    EcritArbre(QStringLiteral("a.xrlg"));
    QCOMPARE(Charge(QStringLiteral("a.xrlg")), 1);
    QString ailleurs = Chemin(QStringLiteral("rien/a.opt"));
    const QString dit = QStringLiteral("avertissement|Options de l'arbre|"
                                       "L'arbre est enregistré, mais pas ses options de dessin ni ses caractères :\n"
                                       "le fichier %1 ne peut pas être écrit.\n"
                                       "Pour recommencer : « Options de dessin... », « OK », puis « Sauver ».")
                            .arg(ailleurs);
    messages.clear();
    doc->optionsModifiees = true;
    QVERIFY(doc->save(ailleurs));
    QCOMPARE(messages, QStringList{dit});
    QCOMPARE(EtatEnTexte(), QStringLiteral("[1 2 3] a.xrlg charge=1 modifie=0 options=0"));
    QVERIFY(doc->saveAs(Chemin(QStringLiteral("b.xrlg")), ailleurs, true));
    QCOMPARE(messages, (QStringList{dit, dit}));
    QVERIFY(doc->saveAs(Chemin(QStringLiteral("b.xrlg")), ailleurs, false));
    QCOMPARE(messages, (QStringList{dit, dit}));
}

void TestRamelierDocEtats::lesOptionsPortentLEnteteDUnArbre()
{
    const QByteArray debut = "Fichier créé par Ramelier pour enregistrer les formats du fichier .rlg associé\n"
                             "NE PAS MODIFIER MANUELLEMENT\n10\n20\n61\n42\n";
    EcritArbre(QStringLiteral("a.xrlg"));
    QCOMPARE(Charge(QStringLiteral("a.xrlg")), 1);
    doc->formats.largeurCadre = 61;
    doc->optionsModifiees = true;
    QVERIFY(doc->save(options));
    QCOMPARE(Contenu(QStringLiteral("a.opt")).left(debut.size()), debut);
    QString autres = Chemin(QStringLiteral("b.opt"));
    QVERIFY(doc->saveAs(Chemin(QStringLiteral("b.xrlg")), autres, true));
    QCOMPARE(Contenu(QStringLiteral("b.opt")), Contenu(QStringLiteral("a.opt")));
    QCOMPARE(messages, QStringList());
}

void TestRamelierDocEtats::unDisquePleinGardeLAncienArbre_data()
{
    QTest::addColumn<bool>("sousUnAutreNom");
    QTest::newRow("sauver") << false;
    QTest::newRow("sauver sous") << true;
}

void TestRamelierDocEtats::unDisquePleinGardeLAncienArbre()
{
    QFETCH(bool, sousUnAutreNom);
    EcritArbre(QStringLiteral("a.xrlg"), 8);
    EcritArbre(QStringLiteral("b.xrlg"), 1);
    QCOMPARE(Charge(QStringLiteral("a.xrlg")), 1);
    const QByteArray ancien = Contenu(QStringLiteral("a.xrlg"));
    const QByteArray autre = Contenu(QStringLiteral("b.xrlg"));
    doc->arbre->infoArbre->titrearbre = QStringLiteral("Titre nouveau");
    doc->modifie = true;
    doc->optionsModifiees = true;
    bool sauve = true;
    {
        const DisquePlein disque(4096);
        sauve = sousUnAutreNom ? doc->saveAs(Chemin(QStringLiteral("b.xrlg")), options, true) : doc->save(options);
    }
    QVERIFY(!sauve);
    QCOMPARE(Contenu(QStringLiteral("a.xrlg")), ancien);
    QCOMPARE(Contenu(QStringLiteral("b.xrlg")), autre);
    QVERIFY(doc->isModified() && doc->areOptionsModified());
    QCOMPARE(doc->nomFichier, Chemin(QStringLiteral("a.xrlg")));
    QCOMPARE(doc->typeFichier, sousUnAutreNom ? 4 : 0);
    QCOMPARE(QDir(repertoire).entryList(QDir::Files | QDir::Hidden, QDir::Name), (QStringList{"a.xrlg", "b.xrlg"}));
    QCOMPARE(messages,
             QStringList{QStringLiteral("avertissement|Fichier XRLG|Impossible d'écrire dans le fichier ")
                         + Chemin(sousUnAutreNom ? QStringLiteral("b.xrlg") : QStringLiteral("a.xrlg"))
                         + QStringLiteral(":\nFile too large.")});
}

void TestRamelierDocEtats::sauveSousSonPropreNom()
{
    EcritArbre(QStringLiteral("a.xrlg"));
    QCOMPARE(Charge(QStringLiteral("a.xrlg")), 1);
    doc->modifie = true;
    QVERIFY(doc->saveAs(doc->nomFichier, options, false));
    QCOMPARE(EtatEnTexte(), QStringLiteral("[1 2 3] a.xrlg charge=1 modifie=0 options=0"));
    QCOMPARE(doc->typeFichier, 4);
    // The count is written as it stands: 3 in the file, 3 persons read.
    QVERIFY(Contenu(QStringLiteral("a.xrlg")).contains("    <nombrepersonnes>6</nombrepersonnes>\n"));
}

void TestRamelierDocEtats::laSelectionPasseDUnePersonneALAutre()
{
    QStringList signaux;
    connect(doc.get(), &RamelierDoc::documentChanged, this, [&](int code) { signaux += u'd' + QString::number(code); });
    connect(doc.get(), &RamelierDoc::personneSelectionnee, this,
            [&](int etat) { signaux += u's' + QString::number(etat); });
    doc->DeselectSelect(20, 20, 1.0F, 1.0F);
    QCOMPARE(signaux, QStringList());
    doc->arbre = ArbreDeNumeros({1, 2}).release();
    doc->arbre->premiere->x = 0;
    doc->arbre->derniere->x = 100;
    doc->DeselectSelect(10, 10, 1.0F, 1.0F);
    QCOMPARE(doc->arbre->selection, doc->arbre->premiere);
    doc->DeselectSelect(110, 10, 1.0F, 1.0F);
    QCOMPARE(doc->arbre->selection, doc->arbre->derniere);
    QVERIFY(!doc->arbre->premiere->selectionnee);
    QCOMPARE(signaux, (QStringList{"d2", "s1", "d2", "s1"}));
}

RAMELIER_TEST_MAIN(QGuiApplication, TestRamelierDocEtats)
#include "tst_ramelierdoc_etats.moc"
