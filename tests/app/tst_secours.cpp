#include "fenetre.h"

#include "arbre.h"
#include "arbres.h"
#include "copiedesecours.h"
#include "dlgpdg.h"
#include "dlgpers.h"
#include "infopersonne.h"
#include "personne.h"
#include "placedesecours.h"
#include "ramelierdoc.h"
#include "saisie.h"

#include <QDir>
#include <QFileInfo>
#include <QStatusBar>

#include <unistd.h>

/// The rescue copy of unsaved work, as the window keeps, removes, finds and opens it.
class TestSecours : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup();
    void unChangementDonneUneCopieEntiere();
    void laCopieEstPourSonSeulProprietaire();
    void annulerUnChangementEnEstUn();
    void unArbreSansNomAAussiSaCopie();
    void laPersonneEnSaisieNYEstPas();
    void ceQuiMetEnSureteLaRetire_data();
    void ceQuiMetEnSureteLaRetire();
    void unEnregistrementRateLaGarde();
    void quitterMalgreUnEchecLaGarde();
    void sansCopieRienNEstDit();
    void uneCopieRetrouveeSeDit();
    void plusieursCopiesSeDisent();
    void celleDUnProgrammeVivantNEstPasDite();
    void laCopieSOuvreAvecPhotosFichesEtFormats();
    void enregistreeAilleursElleAFaitSonTravail_data();
    void enregistreeAilleursElleAFaitSonTravail();

private:
    void ChangeLeTitre(const QString &titre);
    /// Copies in the state folder, by name.
    [[nodiscard]] QStringList Copies() const;
    [[nodiscard]] QString Etats(const QString &nom = {}) const { return etats.filePath(nom); }
    /// The name of this process's copy of \a arbre.
    [[nodiscard]] static QString NomDe(const QString &arbre)
    {
        return QStringLiteral("%1-%2.xrlg").arg(arbre).arg(getpid());
    }
    [[nodiscard]] QByteArray Contenu(const QString &nom) const;
    void Depose(const QString &nom, const QByteArray &contenu) const;

    QDir etats;
    std::unique_ptr<Dossier> dossier;
    std::unique_ptr<Fenetre> fenetre;
    QString chemin;
};

void TestSecours::init()
{
    EffaceReglages();
    etats.setPath(qEnvironmentVariable("XDG_STATE_HOME") + "/ramelier");
    QVERIFY(!etats.exists() || etats.removeRecursively());
    dossier = std::make_unique<Dossier>();
    chemin = dossier->Ecrit("martin.xrlg", ArbreEcrit("A", {{1, "MARTIN", "Jean"}, {2, "MARTIN", "Paul"}}));
    fenetre = std::make_unique<Fenetre>(QStringList{chemin});
}

void TestSecours::cleanup()
{
    fenetre.reset();
    dossier.reset();
}

QStringList TestSecours::Copies() const
{
    return QDir(etats).entryList({"*.xrlg"}, QDir::Files, QDir::Name);
}

QByteArray TestSecours::Contenu(const QString &nom) const
{
    QFile fichier(Etats(nom));
    return fichier.open(QIODevice::ReadOnly) ? fichier.readAll() : QByteArray("illisible");
}

void TestSecours::Depose(const QString &nom, const QByteArray &contenu) const
{
    QVERIFY(QDir().mkpath(Etats()));
    QFile fichier(Etats(nom));
    QVERIFY(fichier.open(QIODevice::WriteOnly));
    QCOMPARE(fichier.write(contenu), contenu.size());
}

void TestSecours::ChangeLeTitre(const QString &titre)
{
    Scenario scenario;
    Saisit<DlgPdG>(scenario, {{"TextTitre", titre}});
    fenetre->slotEditPdG();
    QCOMPARE(scenario.Ecarts(), QStringList());
}

void TestSecours::unChangementDonneUneCopieEntiere()
{
    QVERIFY(!etats.exists());
    ChangeLeTitre("Autre titre");
    QTRY_COMPARE(Copies(), QStringList{NomDe("martin")});
    QTRY_COMPARE(fenetre->secours->Chemin(), Etats(NomDe("martin")));
    const QByteArray copie = Contenu(NomDe("martin"));
    QVERIFY(copie.contains("<titrearbre>Autre titre</titrearbre>"));
    fenetre->slotFileSave();
    QCOMPARE(copie, dossier->Lit("martin.xrlg"));
    QCOMPARE(Copies(), QStringList());
}

void TestSecours::laCopieEstPourSonSeulProprietaire()
{
    ChangeLeTitre("Autre titre");
    QTRY_COMPARE(Copies(), QStringList{NomDe("martin")});
    const QFile::Permissions tous =
        QFile::ReadGroup | QFile::WriteGroup | QFile::ExeGroup | QFile::ReadOther | QFile::WriteOther | QFile::ExeOther;
    QCOMPARE(QFile::permissions(Etats()) & tous, QFile::Permissions());
    const QStringList noms = etats.entryList(QDir::Files | QDir::Hidden);
    for (const QString &nom : noms)
        QCOMPARE(QFile::permissions(Etats(nom)) & tous, QFile::Permissions());
}

void TestSecours::annulerUnChangementEnEstUn()
{
    // The window's own undo does not go through the document.
    QVERIFY(EstDessine(*fenetre));
    fenetre->slotModeTravail();
    Clique(*fenetre, 1);
    Scenario scenario;
    Saisit<DlgPers>(scenario, {{"TxtNom", "LEBRUN"}});
    fenetre->slotModifier();
    fenetre->slotFileSave();
    QCOMPARE(Copies(), QStringList());
    fenetre->secours = std::make_unique<CopieDeSecours>(*fenetre->doc, fenetre->dernierRep, 0);
    fenetre->slotAnnuler();
    QTRY_COMPARE(Copies(), QStringList{NomDe("martin")});
    QVERIFY(Contenu(NomDe("martin")).contains("<nom>MARTIN</nom>\n        <prenom>Jean</prenom>"));
    QCOMPARE(scenario.Ecarts(), QStringList());
}

void TestSecours::unArbreSansNomAAussiSaCopie()
{
    Scenario scenario;
    Saisit<DlgPdG>(scenario, {{"TextTitre", "Neuf"}});
    Saisit<DlgPers>(scenario, {{"TxtNom", "DURAND"}});
    fenetre->slotFileNew();
    QTRY_COMPARE(Copies(), QStringList{NomDe("sans-nom")});
    QVERIFY(Contenu(NomDe("sans-nom")).contains("<nom>DURAND</nom>"));
    // Photos of a tree without a file are looked up where the window was last.
    QCOMPARE(DossierDeLArbre(Etats(NomDe("sans-nom"))), dossier->Chemin());
    QCOMPARE(scenario.Ecarts(), QStringList());
}

void TestSecours::laPersonneEnSaisieNYEstPas()
{
    QVERIFY(EstDessine(*fenetre));
    fenetre->slotModeTravail();
    Clique(*fenetre, 2);
    fenetre->doc->modifie = true;
    QByteArray copie;
    Scenario scenario;
    scenario.Dialogue<DlgPers>([this, &copie](DlgPers &dialogue) {
        fenetre->secours->Regarde();
        if (fenetre->doc->arbre->nombrePersonnes == 3
            && QTest::qWaitFor([this] { return !fenetre->secours->Chemin().isEmpty(); }))
            copie = Contenu(NomDe("martin"));
        dialogue.reject();
    });
    fenetre->slotAjouterPere();
    QCOMPARE(scenario.Ecarts(), QStringList());
    QCOMPARE(copie.count("<personne>"), 2);
    QVERIFY(copie.contains("<numero>2</numero>\n      <numerogeneration>1</numerogeneration>\n      <pere>0</pere>"));
}

void TestSecours::ceQuiMetEnSureteLaRetire_data()
{
    QTest::addColumn<QString>("quoi");
    for (const char *quoi : {"sauver", "sauver sous", "ouvrir un autre arbre", "nouveau abandonné",
                             "importer et renoncer", "quitter", "fermer la fenêtre", "assembler et renoncer"})
        QTest::newRow(quoi) << quoi;
}

void TestSecours::ceQuiMetEnSureteLaRetire()
{
    QFETCH(QString, quoi);
    const QString autre = dossier->Ecrit("b.xrlg", ArbreEcrit("B", {{1, "DURAND"}}));
    ChangeLeTitre("Autre titre");
    QTRY_COMPARE(Copies(), QStringList{NomDe("martin")});
    Scenario scenario;
    if (quoi == "sauver") {
        fenetre->slotFileSave();
    } else if (quoi == "sauver sous") {
        Choisit(scenario, dossier->Chemin("c.xrlg"));
        fenetre->slotFileSaveAs();
    } else if (quoi == "ouvrir un autre arbre") {
        scenario.Repond("Non");
        Choisit(scenario, autre);
        fenetre->slotFileOpen();
    } else if (quoi == "nouveau abandonné") {
        scenario.Repond("Non");
        Abandonne<DlgPdG>(scenario);
        scenario.Repond("OK");
        fenetre->slotFileNew();
    } else if (quoi == "importer et renoncer") {
        scenario.Repond("Non");
        Renonce(scenario);
        fenetre->slotImporteFichierGED();
    } else {
        scenario.Repond("Non");
        QTimer::singleShot(0, fenetre.get(), [this, &quoi] {
            quoi == "quitter" ? fenetre->slotFileQuit() : static_cast<void>(fenetre->close());
        });
        QApplication::exec();
        fenetre.reset();
    }
    QCOMPARE(scenario.Ecarts(), QStringList());
    QTRY_COMPARE(etats.entryList(QDir::AllEntries | QDir::Hidden | QDir::System | QDir::NoDotAndDotDot), QStringList());
}

void TestSecours::unEnregistrementRateLaGarde()
{
    ChangeLeTitre("Autre titre");
    QTRY_COMPARE(Copies(), QStringList{NomDe("martin")});
    QVERIFY(QFile::remove(chemin));
    QVERIFY(QDir(dossier->Chemin()).mkdir("martin.xrlg"));
    Scenario scenario;
    scenario.Repond("OK");
    fenetre->slotFileSave();
    QCOMPARE(scenario.Ecarts(), QStringList());
    QCOMPARE(Copies(), QStringList{NomDe("martin")});
}

void TestSecours::quitterMalgreUnEchecLaGarde()
{
    ChangeLeTitre("Autre titre");
    QTRY_COMPARE(Copies(), QStringList{NomDe("martin")});
    // Within half a minute: not in the copy yet.
    ChangeLeTitre("Encore un");
    QVERIFY(QFile::remove(chemin));
    QVERIFY(QDir(dossier->Chemin()).mkdir("martin.xrlg"));
    Scenario scenario;
    scenario.Repond("Oui").Repond("OK");
    QTimer::singleShot(0, fenetre.get(), &RamelierApp::slotFileQuit);
    QApplication::exec();
    QCOMPARE(scenario.Ecarts(), QStringList());
    fenetre.reset();
    QCOMPARE(Copies(), QStringList{NomDe("martin")});
    QVERIFY(Contenu(NomDe("martin")).contains("<titrearbre>Encore un</titrearbre>"));
    QCOMPARE(CopiesRetrouvees(), QStringList{Etats(NomDe("martin"))});
}

void TestSecours::sansCopieRienNEstDit()
{
    Depose("autre.pdf", "rien");
    Depose("martin-77.opt", "rien");
    Depose("martin-77.verrou", "");
    QCOMPARE(StatutDe(Fenetre()), "Prêt. (2000 ms)");
    QCOMPARE(StatutDe(Fenetre({chemin})), "Prêt");
    // What belonged to a copy that its user removed goes too.
    QCOMPARE(etats.entryList(QDir::Files), QStringList{"autre.pdf"});
}

void TestSecours::uneCopieRetrouveeSeDit()
{
    Depose("martin-77.xrlg", ArbreEcrit("A", {{1, "MARTIN"}}));
    Depose("martin-77.verrou", "");
    const QString annonce = "Une copie de secours a été retrouvée : " + Etats("martin-77.xrlg");
    QCOMPARE(StatutDe(Fenetre()), annonce);
    QCOMPARE(StatutDe(Fenetre({chemin})), annonce);
    QCOMPARE(StatutDe(Fenetre({Etats("martin-77.xrlg")})), "Prêt");
    // Whole in a small window too, until another message comes.
    const Fenetre petite;
    QCOMPARE(petite.statusBar()->toolTip(), annonce);
    petite.statusBar()->showMessage("autre");
    QCOMPARE(petite.statusBar()->toolTip(), QString());
    QVERIFY(Copies().contains("martin-77.xrlg"));
}

void TestSecours::plusieursCopiesSeDisent()
{
    const QStringList noms{"vieille-3.xrlg", "recente-1.xrlg", "moyenne-2.xrlg"};
    const QList<int> ages{300, 10, 60};
    for (qsizetype i = 0; i < noms.size(); ++i) {
        Depose(noms.at(i), "arbre");
        QFile fichier(Etats(noms.at(i)));
        QVERIFY(fichier.open(QIODevice::Append));
        QVERIFY(
            fichier.setFileTime(QDateTime::currentDateTime().addSecs(-ages.at(i)), QFileDevice::FileModificationTime));
    }
    QCOMPARE(CopiesRetrouvees(),
             (QStringList{Etats("recente-1.xrlg"), Etats("moyenne-2.xrlg"), Etats("vieille-3.xrlg")}));
    Depose("jean-4.html", "<p>");
    QCOMPARE(StatutDe(Fenetre()), "4 copies de secours ont été retrouvées, la plus récente : " + Etats("jean-4.html"));
    QVERIFY(QFile::remove(Etats("jean-4.html")));
    QCOMPARE(StatutDe(Fenetre()),
             "3 copies de secours ont été retrouvées, la plus récente : " + Etats("recente-1.xrlg"));
}

void TestSecours::celleDUnProgrammeVivantNEstPasDite()
{
    ChangeLeTitre("Autre titre");
    QTRY_COMPARE(Copies(), QStringList{NomDe("martin")});
    QCOMPARE(StatutDe(Fenetre()), "Prêt. (2000 ms)");
    // Another tree of the same name, and the same number of process: a place of its own.
    const Fenetre autre({chemin});
    autre.doc->modifie = true;
    autre.secours->Regarde();
    QTRY_COMPARE(Copies().size(), 2);
    QCOMPARE(Copies(), (QStringList{QStringLiteral("martin-%1-2.xrlg").arg(getpid()), NomDe("martin")}));
}

void TestSecours::laCopieSOuvreAvecPhotosFichesEtFormats()
{
    QByteArray arbre = ArbreEcrit("A", {{1, "MARTIN", "Jean", "fiches/jean.html"}});
    arbre.replace("</fichtml>", "</fichtml><ficphoto>photos/jean.png</ficphoto>");
    dossier->Ecrit("martin.xrlg", arbre);
    QVERIFY(QDir(dossier->Chemin()).mkdir("photos"));
    QImage photo(8, 9, QImage::Format_RGB32);
    photo.fill(Qt::red);
    QVERIFY(photo.save(dossier->Chemin("photos/jean.png")));
    dossier->Ecrit("martin.opt", OptionsEcrites(55));
    fenetre = std::make_unique<Fenetre>(QStringList{chemin});
    QCOMPARE(fenetre->doc->formats.largeurCadre, 55);
    fenetre->doc->formats.largeurCadre = 61;
    fenetre->doc->optionsModifiees = true;
    ChangeLeTitre("Autre titre");
    QTRY_VERIFY(!fenetre->secours->Chemin().isEmpty());
    fenetre->secours->EcritEtGarde();
    fenetre.reset();
    EffaceReglages();

    const Fenetre rouverte({Etats(NomDe("martin"))});
    QCOMPARE(rouverte.windowTitle(), "Ramelier 5.1 - " + Etats(NomDe("martin")));
    QCOMPARE(rouverte.doc->arbre->infoArbre->titrearbre, "Autre titre");
    const InfoPersonne &info = *rouverte.doc->arbre->premiere->info;
    QCOMPARE(info.ficphoto, "photos/jean.png");
    QCOMPARE(info.photo.size(), QSize(8, 9));
    QCOMPARE(rouverte.dernierRep, dossier->Chemin());
    QCOMPARE(rouverte.doc->formats.largeurCadre, 61);
}

void TestSecours::enregistreeAilleursElleAFaitSonTravail_data()
{
    QTest::addColumn<QString>("vers");
    QTest::addColumn<bool>("reste");
    QTest::newRow("ailleurs") << "rendu.xrlg" << false;
    QTest::newRow("sur son arbre") << "martin.xrlg" << false;
    QTest::newRow("sur elle-même") << "" << true;
    QTest::newRow("dans un dossier absent") << "rien/rendu.xrlg" << true;
}

void TestSecours::enregistreeAilleursElleAFaitSonTravail()
{
    QFETCH(QString, vers);
    QFETCH(bool, reste);
    Depose("martin-77.xrlg", ArbreEcrit("Retrouvé", {{1, "MARTIN"}}));
    Depose("martin-77.opt", OptionsEcrites(50));
    QVERIFY(QFile::link(dossier->Chemin(), Etats("martin-77.dossier")));
    const QString cible = vers.isEmpty() ? Etats("martin-77.xrlg") : dossier->Chemin(vers);
    fenetre = std::make_unique<Fenetre>(QStringList{Etats("martin-77.xrlg")});
    fenetre->slotFileSave();
    QCOMPARE(Copies(), QStringList{"martin-77.xrlg"});
    Scenario scenario;
    const bool remplace = QFile::exists(cible);
    Choisit(scenario, cible);
    if (remplace)
        scenario.Repond("Oui");
    if (vers.startsWith("rien"))
        scenario.Repond("OK");
    fenetre->slotFileSaveAs();
    QCOMPARE(scenario.Ecarts(), QStringList());
    if (reste)
        QCOMPARE(Copies(), QStringList{"martin-77.xrlg"});
    else
        QCOMPARE(etats.entryList(QDir::AllEntries | QDir::System | QDir::NoDotAndDotDot), QStringList());
    // Its formats went along.
    QCOMPARE(QFile::exists(dossier->Chemin(QFileInfo(cible).baseName() + ".opt")), !reste);
}

RAMELIER_TEST_BUREAU_MAIN(TestSecours)
#include "tst_secours.moc"
