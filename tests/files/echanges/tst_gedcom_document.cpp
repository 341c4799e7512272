#include "bancechange.h"
#include "environnement.h"
#include "ramelierdoc.h"

#include <QDir>
#include <QGuiApplication>

#include <utility>

/// The document's import and export of GEDCOM files: its tree, its flags and its signals.
class TestGedcomDocument : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void preparerFermeLArbre();
    void preparerSansArbrePrevientAussi();
    void lImportDonneUnArbreSansFichier();
    void lImportPrendLesPreferences();
    void leTitreNommeLeFichierSansSonDossier_data();
    void leTitreNommeLeFichierSansSonDossier();
    void unEchecNeLaisseNiArbreNiSignal_data();
    void unEchecNeLaisseNiArbreNiSignal();
    void onRecommenceApresUnEchec();
    void unSecondImportRemplaceLePremier();
    void lExportNeChangePasLeDocument_data();
    void lExportNeChangePasLeDocument();
    void unExportManqueRendVraiAussi();
    void sansArbreLExportNeFaitRien();
};

namespace {

const QByteArray famille = "0 @I1@ INDI\n1 NAME Jean /DUPONT/\n"
                           "0 @I2@ INDI\n1 NAME Luc /DUPONT/\n1 FAMS @F1@\n"
                           "0 @I3@ INDI\n1 NAME Anne /ROY/\n1 FAMS @F1@\n"
                           "0 @F1@ FAM\n1 HUSB @I2@\n1 WIFE @I3@\n1 CHIL @I1@\n0 TRLR\n";

/// The flags that are set, then the name and the kind of file.
QString Etat(const RamelierDoc &doc)
{
    QStringList etat;
    const std::pair<bool, const char *> drapeaux[] = {
        {doc.arbre != nullptr, "arbre"}, {doc.modifie, "modifié"},          {doc.optionsModifiees, "options modifiées"},
        {doc.arbreCharge, "chargé"},     {doc.creationEnCours, "création"}, {doc.importGED, "import"}};
    for (const auto &[leve, nom] : drapeaux) {
        if (leve)
            etat += QString::fromUtf8(nom);
    }
    return etat.join(u',') + QStringLiteral(" « %1 » %2").arg(doc.nomFichier).arg(doc.typeFichier);
}

/// A document, and its signals with its state when each came: "documentChanged 1: arbre,modifié « » 0".
struct BancDocument : BancEchange
{
    BancDocument()
    {
        QObject::connect(&doc, &RamelierDoc::documentChanged, &doc,
                         [this](int code) { Note(QStringLiteral("documentChanged %1").arg(code)); });
        QObject::connect(&doc, &RamelierDoc::personneSelectionnee, &doc,
                         [this](int code) { Note(QStringLiteral("personneSelectionnee %1").arg(code)); });
        QObject::connect(&doc, &RamelierDoc::autoriseAnnulation, &doc,
                         [this] { Note(QStringLiteral("autoriseAnnulation")); });
    }

    void Note(const QString &signal) { signaux += signal + QStringLiteral(": ") + Etat(doc); }

    /// An older binary tree is open and changed.
    void Ouvre()
    {
        delete std::exchange(doc.arbre, ArbreComplet(2).release());
        doc.nomFichier = QStringLiteral("/a/b.rlg");
        doc.typeFichier = 3;
        doc.arbreCharge = true;
        doc.modifie = true;
        doc.optionsModifiees = true;
    }

    /// The document's import of a file of the folder that holds \a contenu, from the root @I1@.
    int ImporteDansLeDocument(const QString &nom, const QByteArray &contenu)
    {
        reponses->racine = QStringLiteral("@I1@");
        return doc.ImporteDeGED(nullptr, Pose(nom, contenu));
    }

    RamelierDoc doc{QString()};
    QStringList signaux;
};

}  // namespace

void TestGedcomDocument::preparerFermeLArbre()
{
    BancDocument banc;
    banc.Ouvre();
    banc.doc.PrepareImportGED();
    // The view is told before the flags are cleared.
    QCOMPARE(banc.signaux, QStringList{"documentChanged 0: modifié,options modifiées,chargé « /a/b.rlg » 3"});
    QVERIFY(!banc.doc.arbre);
    QVERIFY(!banc.doc.isModified() && !banc.doc.areOptionsModified());
    QCOMPARE(banc.doc.nomFichier, QString());
    QCOMPARE(banc.doc.typeFichier, 0);
    QCOMPARE(banc.messages, QStringList());
}

void TestGedcomDocument::preparerSansArbrePrevientAussi()
{
    BancDocument banc;
    banc.doc.modifie = true;
    banc.doc.PrepareImportGED();
    QCOMPARE(banc.signaux, QStringList{"documentChanged 0: modifié «  » 0"});
    QCOMPARE(Etat(banc.doc), QStringLiteral(" «  » 0"));
}

void TestGedcomDocument::lImportDonneUnArbreSansFichier()
{
    BancDocument banc;
    banc.Ouvre();
    banc.doc.creationEnCours = true;
    banc.doc.PrepareImportGED();
    banc.signaux.clear();
    QCOMPARE(banc.ImporteDansLeDocument(QStringLiteral("a.ged"), famille), 1);
    QCOMPARE(banc.signaux, QStringList{"documentChanged 1: arbre,modifié,chargé,import «  » 0"});
    QCOMPARE(Etat(banc.doc), QStringLiteral("arbre,modifié,chargé,import «  » 0"));
    QCOMPARE(ArbreEnTexte(*banc.doc.arbre), QStringLiteral("1 Jean  DUPONT\n  2 Luc  DUPONT\n  3 Anne  ROY\n"));
    QVERIFY(!banc.doc.arbre->selection);
    QCOMPARE(banc.doc.arbre->infoArbre->titrearbre, QStringLiteral("Généalogie importée de a.ged"));
    QCOMPARE(banc.doc.arbre->infoArbre->creepar, QString());
    QCOMPARE(banc.messages.size(), 1);
    QVERIFY(!LesIndividus && !LesFamilles);
}

void TestGedcomDocument::lImportPrendLesPreferences()
{
    BancDocument banc;
    banc.doc.formatsPref.largeurCadre = 77;
    banc.doc.policesPref.policeTitre.setPointSize(41);
    banc.doc.formats.largeurCadre = 12;
    QCOMPARE(banc.ImporteDansLeDocument(QStringLiteral("a.ged"), famille), 1);
    QCOMPARE(banc.doc.formats.largeurCadre, 77);
    QCOMPARE(banc.doc.polices.policeTitre.pointSize(), 41);
}

void TestGedcomDocument::leTitreNommeLeFichierSansSonDossier_data()
{
    QTest::addColumn<QString>("nom");
    QTest::addColumn<QString>("titre");
    QTest::newRow("simple") << "a.ged"
                            << "Généalogie importée de a.ged";
    QTest::newRow("dans un dossier") << "dossier.d/Les DUPONT.v2.GED"
                                     << "Généalogie importée de Les DUPONT.v2.GED";
    QTest::newRow("sans extension") << "famille"
                                    << "Généalogie importée de famille";
    QTest::newRow("pourcents et accents") << "50%1 é%s.ged"
                                          << "Généalogie importée de 50%1 é%s.ged";
}

void TestGedcomDocument::leTitreNommeLeFichierSansSonDossier()
{
    QFETCH(QString, nom);
    QFETCH(QString, titre);
    BancDocument banc;
    QVERIFY(QDir(banc.dossier.path()).mkdir(QStringLiteral("dossier.d")));
    QCOMPARE(banc.ImporteDansLeDocument(nom, famille), 1);
    QCOMPARE(banc.doc.arbre->infoArbre->titrearbre, titre);
}

void TestGedcomDocument::unEchecNeLaisseNiArbreNiSignal_data()
{
    QTest::addColumn<QByteArray>("contenu");
    QTest::addColumn<bool>("existe");
    QTest::addColumn<QString>("debut");
    QTest::newRow("absent") << QByteArray() << false << "information|Information|Impossible de traiter le fichier ";
    QTest::newRow("sans individu") << QByteArray("0 HEAD\n0 TRLR\n") << true
                                   << "information|Information|Impossible de construire un arbre à partir de ";
    QTest::newRow("sans la racine") << QByteArray("0 @I2@ INDI\n0 TRLR\n") << true
                                    << "information|Information|Impossible de trouver la personne  @I1@\n"
                                       "proposée comme racine de l'arbre";
}

void TestGedcomDocument::unEchecNeLaisseNiArbreNiSignal()
{
    QFETCH(QByteArray, contenu);
    QFETCH(bool, existe);
    QFETCH(QString, debut);
    BancDocument banc;
    banc.Ouvre();
    banc.doc.PrepareImportGED();
    banc.signaux.clear();
    banc.doc.modifie = true;
    banc.reponses->racine = QStringLiteral("@I1@");
    const QString nom = existe ? banc.Pose(QStringLiteral("a.ged"), contenu) : banc.Chemin(QStringLiteral("a.ged"));
    QCOMPARE(banc.doc.ImporteDeGED(nullptr, nom), 0);
    QVERIFY(!banc.doc.arbre);
    QVERIFY(!banc.doc.isModified());
    QCOMPARE(banc.doc.nomFichier, QString());
    QCOMPARE(banc.signaux, QStringList());
    QVERIFY2(banc.messages.constLast().startsWith(debut), qPrintable(banc.messages.constLast()));
    QVERIFY(!LesIndividus && !LesFamilles);
}

void TestGedcomDocument::onRecommenceApresUnEchec()
{
    BancDocument banc;
    QCOMPARE(banc.ImporteDansLeDocument(QStringLiteral("a.ged"), "0 TRLR\n"), 0);
    banc.doc.PrepareImportGED();
    QCOMPARE(banc.ImporteDansLeDocument(QStringLiteral("b.ged"), famille), 1);
    QCOMPARE(
        banc.signaux,
        (QStringList{"documentChanged 0: import «  » 0", "documentChanged 1: arbre,modifié,chargé,import «  » 0"}));
    QCOMPARE(NumerosEnTexte(*banc.doc.arbre), QStringLiteral("1 2 3"));
}

void TestGedcomDocument::unSecondImportRemplaceLePremier()
{
    BancDocument banc;
    QCOMPARE(banc.ImporteDansLeDocument(QStringLiteral("a.ged"), famille), 1);
    banc.doc.PrepareImportGED();
    QCOMPARE(banc.ImporteDansLeDocument(QStringLiteral("b.ged"), "0 @I1@ INDI\n1 NAME Seul\n0 TRLR\n"), 1);
    QCOMPARE(banc.signaux,
             (QStringList{"documentChanged 1: arbre,modifié,chargé,import «  » 0",
                          "documentChanged 0: modifié,chargé,import «  » 0",
                          "documentChanged 1: arbre,modifié,chargé,import «  » 0"}));
    QCOMPARE(ArbreEnTexte(*banc.doc.arbre), QStringLiteral("1 Seul\n"));
    QCOMPARE(banc.doc.arbre->infoArbre->titrearbre, QStringLiteral("Généalogie importée de b.ged"));
}

void TestGedcomDocument::lExportNeChangePasLeDocument_data()
{
    QTest::addColumn<bool>("modifie");
    QTest::addColumn<QString>("nomFichier");
    QTest::addColumn<QString>("message");
    QTest::newRow("sauvé") << false << "/a/b.xrlg"
                           << "Exportation du fichier : b.xrlg\nvers fichier : a.ged\nterminée";
    QTest::newRow("modifié") << true << "/a/b.xrlg"
                             << "Exportation du fichier : b.xrlg\nvers fichier : a.ged\nterminée";
    QTest::newRow("jamais sauvé") << true << ""
                                  << "Exportation du fichier : \nvers fichier : a.ged\nterminée";
}

void TestGedcomDocument::lExportNeChangePasLeDocument()
{
    QFETCH(bool, modifie);
    QFETCH(QString, nomFichier);
    QFETCH(QString, message);
    BancDocument banc;
    banc.Ouvre();
    banc.doc.modifie = modifie;
    banc.doc.optionsModifiees = modifie;
    banc.doc.nomFichier = nomFichier;
    banc.doc.arbre->selection = Trouve(*banc.doc.arbre, 2);
    const QString etat = Etat(banc.doc);
    const QString arbre = ToutEnTexte(*banc.doc.arbre);
    QVERIFY(banc.doc.exporteVersGED(nullptr, banc.Chemin(QStringLiteral("a.ged"))));
    QCOMPARE(Etat(banc.doc), etat);
    QCOMPARE(ToutEnTexte(*banc.doc.arbre), arbre);
    QCOMPARE(banc.signaux, QStringList());
    QCOMPARE(banc.messages, (QStringList{"sexe", "information|Exportation vers GEDCOM|" + message}));
    QVERIFY(
        banc.Contenu(QStringLiteral("a.ged"))
            .endsWith("0 @F23@ FAM\r\n  1 HUSB @I2@\r\n  1 WIFE @I3@\r\n  1 CHIL @I1@\r\n  1 NCHI 1\r\n0 TRLR\r\n"));
}

void TestGedcomDocument::unExportManqueRendVraiAussi()
{
    BancDocument banc;
    banc.Ouvre();
    const QString etat = Etat(banc.doc);
    QVERIFY(banc.doc.exporteVersGED(nullptr, banc.Chemin(QStringLiteral("rien/a.ged"))));
    QCOMPARE(Etat(banc.doc), etat);
    QCOMPARE(banc.signaux, QStringList());
    QCOMPARE(banc.messages, QStringList{"information|Exportation vers GEDCOM|Echec à l'exportation du fichier"});
}

void TestGedcomDocument::sansArbreLExportNeFaitRien()
{
    BancDocument banc;
    QVERIFY(!banc.Pose(QStringLiteral("a.ged"), "ancien").isEmpty());
    QVERIFY(banc.doc.exporteVersGED(nullptr, banc.Chemin(QStringLiteral("a.ged"))));
    QVERIFY(banc.doc.exporteVersGED(nullptr, banc.Chemin(QStringLiteral("b.ged"))));
    QCOMPARE(banc.Contenu(QStringLiteral("a.ged")), QByteArray("ancien"));
    QCOMPARE(QDir(banc.dossier.path()).entryList(QDir::Files), QStringList{"a.ged"});
    QCOMPARE(banc.messages, QStringList());
    QCOMPARE(banc.signaux, QStringList());
}

RAMELIER_TEST_MAIN(QGuiApplication, TestGedcomDocument)
#include "tst_gedcom_document.moc"
