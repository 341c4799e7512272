#include "copiedefiche.h"
#include "editeur.h"
#include "findesession.h"
#include "placedesecours.h"

#include <QDir>
#include <QFileInfo>

#include <unistd.h>

/// The rescue copy of a sheet: when it is there, what is in it and when it goes.
class TestCopieDeFiche : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup();
    void unChangementYEstApresUnTemps();
    void elleSuitLeTexte();
    void elleEstPourSonSeulProprietaire();
    void leGenreFaitLExtension_data();
    void leGenreFaitLExtension();
    void sansChangementPasDeCopie();
    void ceQuiMetEnSureteLaRetire_data();
    void ceQuiMetEnSureteLaRetire();
    void uneFermetureMalgreUnEchecLaGarde();
    void toutesLesFichesEnSurete();
    void apresElleUnNouveauChangementCompte();
    void celleQuOnNePeutEcrireNeGenePas();
    void enregistreeAilleursElleAFaitSonTravail_data();
    void enregistreeAilleursElleAFaitSonTravail();
    void lesCopiesRetrouvees();

private:
    [[nodiscard]] QStringList Copies() const
    {
        return QDir(etats).entryList({"*.html", "*.txt"}, QDir::Files, QDir::Name);
    }
    [[nodiscard]] QByteArray Contenu(const QString &nom) const;
    void Depose(const QString &nom, const QByteArray &contenu) const;
    /// The name of this process's copy.
    [[nodiscard]] static QString NomDe(const QString &debut, const QString &extension = ".html")
    {
        return QStringLiteral("%1-%2%3").arg(debut).arg(getpid()).arg(extension);
    }

    QDir etats;
    std::unique_ptr<Atelier> atelier;
};

void TestCopieDeFiche::init()
{
    etats.setPath(qEnvironmentVariable("XDG_STATE_HOME") + "/ramelier");
    QVERIFY(!etats.exists() || etats.removeRecursively());
    atelier = std::make_unique<Atelier>();
}

void TestCopieDeFiche::cleanup()
{
    atelier.reset();
    FinDeSession::NoteLAccord(false);
}

QByteArray TestCopieDeFiche::Contenu(const QString &nom) const
{
    QFile fichier(etats.filePath(nom));
    return fichier.open(QIODevice::ReadOnly) ? fichier.readAll() : QByteArray("illisible");
}

void TestCopieDeFiche::Depose(const QString &nom, const QByteArray &contenu) const
{
    QVERIFY(QDir().mkpath(etats.path()));
    QFile fichier(etats.filePath(nom));
    QVERIFY(fichier.open(QIODevice::WriteOnly));
    QCOMPARE(fichier.write(contenu), contenu.size());
}

void TestCopieDeFiche::unChangementYEstApresUnTemps()
{
    QCOMPARE(CopieDeFiche::intervalleMs, 30000);
    LyTextEdit &editeur = atelier->Ouvre("jean.html", "abc");
    const CopieDeFiche copie(editeur, 20);
    Tape(editeur, "é ");
    QVERIFY(!etats.exists());
    QTRY_COMPARE(Copies(), QStringList{NomDe("jean")});
    QTRY_COMPARE(copie.Chemin(), etats.filePath(NomDe("jean")));
    QCOMPARE(Contenu(NomDe("jean")), QByteArray("\xe9 abc"));
    QCOMPARE(atelier->dossier.Lit("jean.html"), QByteArray("abc"));
}

void TestCopieDeFiche::elleSuitLeTexte()
{
    LyTextEdit &editeur = atelier->Ouvre("jean.html", "abc");
    const CopieDeFiche copie(editeur, 0);
    Tape(editeur, "X");
    QTRY_COMPARE(Contenu(NomDe("jean")), QByteArray("Xabc"));
    Tape(editeur, "Y");
    QTRY_COMPARE(Contenu(NomDe("jean")), QByteArray("XYabc"));
    QCOMPARE(Copies(), QStringList{NomDe("jean")});
}

void TestCopieDeFiche::elleEstPourSonSeulProprietaire()
{
    LyTextEdit &editeur = atelier->Ouvre("jean.html", "abc");
    CopieDeFiche copie(editeur);
    Tape(editeur, "X");
    copie.EcritEtGarde();
    QCOMPARE(QFile::permissions(copie.Chemin()) & (QFile::ReadGroup | QFile::ReadOther), QFile::Permissions());
}

void TestCopieDeFiche::leGenreFaitLExtension_data()
{
    QTest::addColumn<QString>("fiche");
    QTest::addColumn<QString>("copie");
    QTest::newRow("html") << "jean.html" << NomDe("jean");
    QTest::newRow("htm") << "jean.htm" << NomDe("jean");
    QTest::newRow("texte") << "jean.txt" << NomDe("jean", ".txt");
    QTest::newRow("sans fichier") << "" << NomDe("sans-nom");
}

void TestCopieDeFiche::leGenreFaitLExtension()
{
    QFETCH(const QString, fiche);
    QFETCH(const QString, copie);
    if (!fiche.isEmpty())
        atelier->dossier.Ecrit(fiche, "abc");
    LyTextEdit &editeur = atelier->OuvreSeul(fiche);
    Tape(editeur, "X");
    editeur.secours->EcritEtGarde();
    QCOMPARE(Copies(), QStringList{copie});
}

void TestCopieDeFiche::sansChangementPasDeCopie()
{
    LyTextEdit &editeur = atelier->Ouvre("jean.html", "abc");
    CopieDeFiche copie(editeur, 0);
    Tape(editeur, "X");
    editeur.slotEditAnnuler();
    QTest::qWait(20);
    copie.EcritEtGarde();
    QCOMPARE(Copies(), QStringList());
    QVERIFY(copie.Chemin().isEmpty());
}

void TestCopieDeFiche::ceQuiMetEnSureteLaRetire_data()
{
    QTest::addColumn<QString>("par");
    QTest::newRow("enregistrer") << "enregistrer";
    QTest::newRow("tout annuler") << "annuler";
    QTest::newRow("un nouveau texte") << "nouveau";
    QTest::newRow("fermer sans enregistrer") << "fermer";
}

void TestCopieDeFiche::ceQuiMetEnSureteLaRetire()
{
    QFETCH(const QString, par);
    LyTextEdit &editeur = atelier->Ouvre("jean.html", "abc");
    editeur.secours = std::make_unique<CopieDeFiche>(editeur, 0);
    Tape(editeur, "X");
    QTRY_COMPARE(Copies(), QStringList{NomDe("jean")});
    Scenario scenario;
    if (par == "nouveau" || par == "fermer")
        scenario.Repond("Non");
    if (par == "enregistrer")
        editeur.slotFileSave();
    else if (par == "annuler")
        editeur.slotEditAnnuler();
    else if (par == "nouveau")
        editeur.slotFileNew();
    else
        editeur.close();
    QCOMPARE(scenario.Ecarts(), QStringList());
    QCOMPARE(etats.entryList(QDir::AllEntries | QDir::System | QDir::NoDotAndDotDot), QStringList());
}

void TestCopieDeFiche::uneFermetureMalgreUnEchecLaGarde()
{
    LyTextEdit &editeur = atelier->Ouvre("jean.html", "abc");
    Tape(editeur, "X");
    {
        Scenario scenario;
        scenario.Repond("Oui");
        scenario.Repond("OK");
        // The sheet cannot be written: a folder has taken its place.
        QVERIFY(QFile::remove(atelier->dossier.Chemin("jean.html")));
        QVERIFY(QDir(atelier->dossier.Chemin()).mkdir("jean.html"));
        QVERIFY(editeur.close());
        QCOMPARE(scenario.Ecarts(), QStringList());
    }
    atelier->editeur.reset();
    QCOMPARE(Contenu(NomDe("jean")), QByteArray("Xabc"));
}

void TestCopieDeFiche::toutesLesFichesEnSurete()
{
    LyTextEdit &jean = atelier->Ouvre("jean.html", "abc");
    atelier->dossier.Ecrit("paul.txt", "def");
    LyTextEdit paul("Fiche", atelier->dossier.Chemin("paul.txt"), false, atelier->dossier.Chemin(), "n° 2");
    LyTextEdit marie("Fiche", QString(), false, atelier->dossier.Chemin(), "n° 3");
    Tape(jean, "X");
    Tape(paul, "Y");
    LyTextEdit::MetLesFichesEnSurete();
    QCOMPARE(Copies(), (QStringList{NomDe("jean"), NomDe("paul", ".txt")}));
    QCOMPARE(Contenu(NomDe("jean")), QByteArray("Xabc"));
    QCOMPARE(Contenu(NomDe("paul", ".txt")), QByteArray("Ydef"));
    // The session ends without a question: what closes now leaves its copy.
    FinDeSession::NoteLAccord(true);
    QVERIFY(jean.close());
    QVERIFY(paul.close());
    QVERIFY(marie.close());
    QCOMPARE(Copies(), (QStringList{NomDe("jean"), NomDe("paul", ".txt")}));
}

void TestCopieDeFiche::apresElleUnNouveauChangementCompte()
{
    LyTextEdit &editeur = atelier->Ouvre("jean.html", "abc");
    Tape(editeur, "X");
    editeur.secours->EcritEtGarde();
    // The session goes on after all, and the user gives the text up.
    Tape(editeur, "Y");
    Scenario scenario;
    scenario.Repond("Non");
    QVERIFY(editeur.close());
    QCOMPARE(scenario.Ecarts(), QStringList());
    QCOMPARE(Copies(), QStringList());
}

void TestCopieDeFiche::celleQuOnNePeutEcrireNeGenePas()
{
    QFile obstacle(etats.path());
    QVERIFY(QDir().mkpath(QFileInfo(etats.path()).path()));
    QVERIFY(obstacle.open(QIODevice::WriteOnly));
    LyTextEdit &editeur = atelier->Ouvre("jean.html", "abc");
    Tape(editeur, "X");
    editeur.secours->EcritEtGarde();
    QCOMPARE(editeur.secours->Chemin(), QString());
    QCOMPARE(TexteDe(editeur), "Xabc");
    QVERIFY(EstModifie(editeur));
    QVERIFY(obstacle.remove());
}

void TestCopieDeFiche::enregistreeAilleursElleAFaitSonTravail_data()
{
    QTest::addColumn<bool>("ailleurs");
    QTest::newRow("ailleurs") << true;
    QTest::newRow("sur elle-même") << false;
}

void TestCopieDeFiche::enregistreeAilleursElleAFaitSonTravail()
{
    QFETCH(const bool, ailleurs);
    Depose("jean-77.html", "Retrouvé");
    LyTextEdit editeur("LyEditHtml", etats.filePath("jean-77.html"), true, atelier->dossier.Chemin("lyedithtml"),
                       "1.0");
    Scenario scenario;
    if (ailleurs)
        Choisit(scenario, atelier->dossier.Chemin("jean.html"));
    QVERIFY(ailleurs ? editeur.slotFileSaveAs() : editeur.slotFileSave());
    QCOMPARE(scenario.Ecarts(), QStringList());
    QCOMPARE(Copies(), ailleurs ? QStringList() : QStringList{"jean-77.html"});
    QCOMPARE(QFile::exists(atelier->dossier.Chemin("jean.html")), ailleurs);
}

void TestCopieDeFiche::lesCopiesRetrouvees()
{
    Depose("jean-77.html", "a");
    Depose("paul-78.txt", "b");
    Depose("martin-79.xrlg", "c");
    LyTextEdit &editeur = atelier->Ouvre("vivante.html", "abc");
    Tape(editeur, "X");
    editeur.secours->EcritEtGarde();
    QStringList fiches = CopiesRetrouvees(Copies::DeFiches);
    fiches.sort();
    QCOMPARE(fiches, (QStringList{etats.filePath("jean-77.html"), etats.filePath("paul-78.txt")}));
    QStringList toutes = CopiesRetrouvees();
    toutes.sort();
    QCOMPARE(
        toutes,
        (QStringList{etats.filePath("jean-77.html"), etats.filePath("martin-79.xrlg"), etats.filePath("paul-78.txt")}));
    OublieLaCopieDeSecours(etats.filePath("jean-77.html"));
    QVERIFY(!QFile::exists(etats.filePath("jean-77.html")));
    QVERIFY(QFile::exists(etats.filePath("paul-78.txt")));
}

RAMELIER_TEST_BUREAU_MAIN(TestCopieDeFiche)
#include "tst_copie_de_fiche.moc"
