#include "editeur.h"
#include "pannes.h"

#include <QDir>
#include <QFileDialog>
#include <QFileSystemModel>
#include <QLabel>
#include <QLineEdit>
#include <QToolBar>

#include <sys/stat.h>

/// The files of the editor of sheets: what is read, what is written, and under which name.
class TestLyTextEditFichiers : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup();
    void lireFaitAttendre();
    void unFichierIllisibleEstDit_data();
    void unFichierIllisibleEstDit();
    void unFichierInterditEstDit();
    void laConstructionSurUnFichierIllisible_data();
    void laConstructionSurUnFichierIllisible();
    void lesOctetsSeLisentEnLatin1_data();
    void lesOctetsSeLisentEnLatin1();
    void lesOctetsReviennentTelsQuels_data();
    void lesOctetsReviennentTelsQuels();
    void lesFinsDeLigneDeviennentSimples_data();
    void lesFinsDeLigneDeviennentSimples();
    void uneLigneDeCinqMegaoctets();

    void sauverRendLeTexteNonModifie();
    void sauverSousUnAutreNomSuitLeNom();
    void uneEcritureImpossibleNeChangeRien_data();
    void uneEcritureImpossibleNeChangeRien();
    void unDisquePleinLaisseLAncienFichier();
    void ceQueLatin1NAPasDevientUnPointDInterrogation();
    void unMessageDeCaracteresPerdusNeSurvitPas();
    void unLienSymboliqueEstSuivi();
    void lesDroitsDuFichierRestent();

    void leDialogueEnregistrerSous_data();
    void leDialogueEnregistrerSous();
    void unNouveauTexteVaOuLeDernierEtait();
    void unMotSansFinSeCoupePartout();
    void leDialogueMontreLesTroisSortes();
    void uneFicheAbsenteNeDeplacePasLaFenetre();
    void lExtensionDependDuModeEtDuPoint_data();
    void lExtensionDependDuModeEtDuPoint();
    void renoncerAEnregistrerSous();
    void lExtensionAjouteeDemandeAvantDeRemplacer_data();
    void lExtensionAjouteeDemandeAvantDeRemplacer();
    void leModeSuitLeNouveauNom_data();
    void leModeSuitLeNouveauNom();
    void unEchecDEnregistrerSousNeChangeRien();
    void sauverUnNouveauTexteDemandeUnNom();

private:
    /// Triggers the command; the dialog is answered with the name \a nom.
    void EnregistreSous(const QString &nom);

    std::unique_ptr<Atelier> atelier;
};

namespace {

/// Every byte, in order.
QByteArray TousLesOctets()
{
    QByteArray octets;
    for (int octet = 0; octet < 256; ++octet)
        octets += static_cast<char>(octet);
    return octets;
}

void CompareBoite(const Scenario &scenario, const QString &titre, const QString &texte, const LyTextEdit &editeur)
{
    QCOMPARE(scenario.Ecarts(), QStringList());
    QCOMPARE(scenario.Boites().size(), 1);
    const BoiteVue boite = scenario.Boites().constFirst();
    QCOMPARE(boite.titre, titre);
    QCOMPARE(boite.texte, texte);
    QCOMPARE(boite.icone, QMessageBox::Warning);
    QCOMPARE(boite.boutons, QStringList{"OK"});
    QCOMPARE(boite.parent, &editeur);
}

}  // namespace

void TestLyTextEditFichiers::init()
{
    atelier = std::make_unique<Atelier>();
}

void TestLyTextEditFichiers::cleanup()
{
    atelier.reset();
}

void TestLyTextEditFichiers::EnregistreSous(const QString &nom)
{
    Scenario scenario;
    Choisit(scenario, atelier->dossier.Chemin(nom));
    atelier->editeur->actFileSaveAs->trigger();
    QCOMPARE(scenario.Ecarts(), QStringList());
}

void TestLyTextEditFichiers::lireFaitAttendre()
{
    LyTextEdit &editeur = atelier->Ouvre("a.html", "abc");
    QList<Qt::CursorShape> pendant;
    connect(editeur.texte, &QTextEdit::textChanged, this, [&pendant] {
        const QCursor *curseur = QGuiApplication::overrideCursor();
        pendant += curseur ? curseur->shape() : Qt::ArrowCursor;
    });
    atelier->dossier.Ecrit("b.html", "def");
    QVERIFY(editeur.loadFile(atelier->dossier.Chemin("b.html")));
    QCOMPARE(pendant, QList<Qt::CursorShape>{Qt::WaitCursor});
    QVERIFY(!QApplication::overrideCursor());
}

void TestLyTextEditFichiers::unFichierIllisibleEstDit_data()
{
    QTest::addColumn<QString>("nom");
    QTest::addColumn<QString>("cause");
    QTest::newRow("absent") << "absent.html"
                            << "Aucun fichier ou dossier";
    QTest::newRow("dossier absent") << "absent/a.html"
                                    << "Aucun fichier ou dossier";
    QTest::newRow("dossier") << "dossier"
                             << "le fichier à ouvrir est un répertoire";
    QTest::newRow("tube") << "tube"
                          << "Ce n'est pas un fichier ordinaire";
    QTest::newRow("nom avec %2") << "a%2%1.html"
                                 << "Aucun fichier ou dossier";
    QTest::newRow("nom avec balises") << "<b>a.html"
                                      << "Aucun fichier ou dossier";
}

void TestLyTextEditFichiers::unFichierIllisibleEstDit()
{
    QFETCH(const QString, nom);
    QFETCH(const QString, cause);
    QVERIFY(QDir(atelier->dossier.Chemin()).mkdir("dossier"));
    QCOMPARE(mkfifo(QFile::encodeName(atelier->dossier.Chemin("tube")).constData(), 0600), 0);
    LyTextEdit &editeur = atelier->Ouvre("b.html", "abc");
    Tape(editeur, "X");
    Scenario scenario;
    scenario.Repond("OK");
    QVERIFY(!editeur.loadFile(atelier->dossier.Chemin(nom)));
    CompareBoite(scenario, "LyEditHtml", "Cannot read file " + atelier->dossier.Chemin(nom) + ":\n" + cause + ".",
                 editeur);
    QCOMPARE(TexteDe(editeur), "Xabc");
    QVERIFY(EstModifie(editeur));
    QCOMPARE(editeur.fichierCourant, atelier->dossier.Chemin("b.html"));
    QCOMPARE(editeur.windowTitle(), "Fiche n° 12 - b.html");
    QVERIFY(!QApplication::overrideCursor());
}

void TestLyTextEditFichiers::unFichierInterditEstDit()
{
    LyTextEdit &editeur = atelier->Ouvre("b.html", "abc");
    const QString chemin = atelier->dossier.Ecrit("a.html", "secret");
    QCOMPARE(chmod(QFile::encodeName(chemin).constData(), 0000), 0);
    QCOMPARE(chmod(QFile::encodeName(atelier->dossier.Chemin()).constData(), 0755), 0);
    Scenario scenario;
    scenario.Repond("OK");
    bool lu = true;
    {
        const SansPrivileges sansPrivileges;
        if (!sansPrivileges.Effectif())
            QSKIP("cannot become an ordinary user here");
        lu = editeur.loadFile(chemin);
    }
    QVERIFY(!lu);
    CompareBoite(scenario, "LyEditHtml", "Cannot read file " + chemin + ":\nAutorisation refusée.", editeur);
    QCOMPARE(TexteDe(editeur), "abc");
}

void TestLyTextEditFichiers::laConstructionSurUnFichierIllisible_data()
{
    QTest::addColumn<QString>("nom");
    QTest::addColumn<bool>("html");
    QTest::newRow("html") << "absent.html" << true;
    QTest::newRow("texte") << "absent.txt" << false;
}

void TestLyTextEditFichiers::laConstructionSurUnFichierIllisible()
{
    QFETCH(const QString, nom);
    QFETCH(const bool, html);
    Scenario scenario;
    scenario.Repond("OK");
    const LyTextEdit &editeur = atelier->Ouvre(nom);
    QCOMPARE(scenario.Ecarts(), QStringList());
    QCOMPARE(scenario.Boites().constFirst().titre, "LyEditHtml");
    QCOMPARE(editeur.windowTitle(), "Fiche n° 12");
    QCOMPARE(editeur.fichierCourant, QString());
    QCOMPARE(editeur.dernierRep, atelier->dossier.Chemin());
    QCOMPARE(editeur.modeHtml, html);
    QCOMPARE(editeur.actCarGras->isEnabled(), html);
    QCOMPARE(editeur.barreHtml->isVisible(), html);
    QVERIFY(editeur.isVisible());
    QVERIFY(!EstModifie(editeur));
}

void TestLyTextEditFichiers::lesOctetsSeLisentEnLatin1_data()
{
    QTest::addColumn<QByteArray>("octets");
    QTest::addColumn<QString>("texte");
    QTest::newRow("accents") << QByteArray("\xc9lise LEF\xc8VRE") << "Élise LEFÈVRE";
    QTest::newRow("UTF-8 tel quel") << QByteArray("\xc3\x89lise") << QString("\u00c3\u0089lise");
    QTest::newRow("marque UTF-8") << QByteArray("\xef\xbb\xbf"
                                                "a")
                                  << "ï»¿a";
    QTest::newRow("marque UTF-16") << QByteArray("\xff\xfe"
                                                 "a")
                                   << "ÿþa";
    QTest::newRow("blanc insecable") << QByteArray("a\xa0"
                                                   "b")
                                     << QString("a\u00a0b");
    QTest::newRow("charset declare") << QByteArray("<meta charset=utf-8>\xc3\xa9")
                                     << QString("<meta charset=utf-8>\u00c3\u00a9");
    QTest::newRow("balises") << QByteArray("<b>a</b> &amp; b") << "<b>a</b> &amp; b";
}

void TestLyTextEditFichiers::lesOctetsSeLisentEnLatin1()
{
    QFETCH(const QByteArray, octets);
    const LyTextEdit &editeur = atelier->Ouvre("a.html", octets);
    QTEST(TexteDe(editeur), "texte");
    QVERIFY(!EstModifie(editeur));
    editeur.actFileSave->trigger();
    QCOMPARE(atelier->dossier.Lit("a.html"), octets);
}

void TestLyTextEditFichiers::lesOctetsReviennentTelsQuels_data()
{
    QTest::addColumn<QByteArray>("octets");
    QTest::newRow("tous") << TousLesOctets().replace('\r', "");
    QTest::newRow("vide") << QByteArray("");
    QTest::newRow("sans fin de ligne") << QByteArray("a\nb");
    QTest::newRow("avec fin de ligne") << QByteArray("a\nb\n");
    QTest::newRow("lignes vides") << QByteArray("\n\n\na\n\n");
    QTest::newRow("blancs") << QByteArray("  a \t b  \n\t\n ");
}

void TestLyTextEditFichiers::lesOctetsReviennentTelsQuels()
{
    QFETCH(const QByteArray, octets);
    const LyTextEdit &editeur = atelier->Ouvre("a.html", octets);
    const Scenario scenario;
    editeur.actFileSave->trigger();
    QCOMPARE(scenario.Ecarts(), QStringList());
    QCOMPARE(atelier->dossier.Lit("a.html"), octets);
}

void TestLyTextEditFichiers::lesFinsDeLigneDeviennentSimples_data()
{
    QTest::addColumn<QByteArray>("avant");
    QTest::addColumn<QByteArray>("apres");
    QTest::newRow("CR LF") << QByteArray("a\r\nb\r\n") << QByteArray("a\nb\n");
    QTest::newRow("CR") << QByteArray("a\rb\r") << QByteArray("a\nb\n");
    QTest::newRow("melange") << QByteArray("a\r\n\r\nb\n\rc") << QByteArray("a\n\nb\n\nc");
}

void TestLyTextEditFichiers::lesFinsDeLigneDeviennentSimples()
{
    QFETCH(const QByteArray, avant);
    const LyTextEdit &editeur = atelier->Ouvre("a.txt", avant);
    editeur.actFileSave->trigger();
    QTEST(atelier->dossier.Lit("a.txt"), "apres");
}

void TestLyTextEditFichiers::uneLigneDeCinqMegaoctets()
{
    constexpr int megaoctets = 5 * 1024 * 1024;
    const QByteArray octets = QByteArray("un mot ").repeated(megaoctets / 7 + 1).left(megaoctets);
    const LyTextEdit &editeur = atelier->Ouvre("a.txt", octets);
    QCOMPARE(TexteDe(editeur).size(), megaoctets);
    QVERIFY(QFile::remove(atelier->dossier.Chemin("a.txt")));
    editeur.actFileSave->trigger();
    QVERIFY(atelier->dossier.Lit("a.txt") == octets);
}

void TestLyTextEditFichiers::sauverRendLeTexteNonModifie()
{
    LyTextEdit &editeur = atelier->Ouvre("a.html", "abc");
    Tape(editeur, "Élise ");
    QVERIFY(EstModifie(editeur));
    QVERIFY(editeur.slotFileSave());
    QCOMPARE(atelier->dossier.Lit("a.html"), "\xc9lise abc");
    QVERIFY(!EstModifie(editeur));
    QCOMPARE(editeur.labelInfoModif->text().trimmed(), QString());
    QCOMPARE(editeur.windowTitle(), "Fiche n° 12 - a.html");
    QCOMPARE(atelier->dossier.Noms(), QStringList{"a.html"});
    QVERIFY(!QApplication::overrideCursor());
}

void TestLyTextEditFichiers::sauverSousUnAutreNomSuitLeNom()
{
    LyTextEdit &editeur = atelier->Ouvre("a.html", "abc");
    QVERIFY(editeur.saveFile(atelier->dossier.Chemin("b.html")));
    QCOMPARE(editeur.fichierCourant, atelier->dossier.Chemin("b.html"));
    QCOMPARE(editeur.nomCourt, "b.html");
    QCOMPARE(editeur.windowTitle(), "Fiche n° 12 - b.html");
    QCOMPARE(atelier->dossier.Noms(), (QStringList{"a.html", "b.html"}));
}

void TestLyTextEditFichiers::uneEcritureImpossibleNeChangeRien_data()
{
    QTest::addColumn<QString>("nom");
    QTest::addColumn<QString>("cause");
    QTest::newRow("dossier absent") << "absent/a.txt"
                                    << "Aucun fichier ou dossier";
    QTest::newRow("dossier") << "dossier"
                             << "C'est un dossier";
    QTest::newRow("tube") << "tube"
                          << "Ce n'est pas un fichier ordinaire";
}

void TestLyTextEditFichiers::uneEcritureImpossibleNeChangeRien()
{
    QFETCH(const QString, nom);
    QFETCH(const QString, cause);
    QVERIFY(QDir(atelier->dossier.Chemin()).mkdir("dossier"));
    QCOMPARE(mkfifo(QFile::encodeName(atelier->dossier.Chemin("tube")).constData(), 0600), 0);
    LyTextEdit &editeur = atelier->Ouvre("b.html", "abc");
    Tape(editeur, "X");
    Scenario scenario;
    scenario.Repond("OK");
    QVERIFY(!editeur.saveFile(atelier->dossier.Chemin(nom)));
    CompareBoite(scenario, "LyTextEdit", "Cannot write file " + atelier->dossier.Chemin(nom) + ":\n" + cause + ".",
                 editeur);
    QVERIFY(EstModifie(editeur));
    QCOMPARE(editeur.labelInfoModif->text(), " document modifé ");
    QCOMPARE(TexteDe(editeur), "Xabc");
    QCOMPARE(editeur.fichierCourant, atelier->dossier.Chemin("b.html"));
    QCOMPARE(editeur.nomCourt, "b.html");
    QCOMPARE(editeur.windowTitle(), "Fiche n° 12 - b.html");
    QVERIFY(editeur.modeHtml);
    QCOMPARE(atelier->dossier.Lit("b.html"), "abc");
    QCOMPARE(atelier->dossier.Noms(), QStringList{"b.html"});
    QVERIFY(!QApplication::overrideCursor());
}

void TestLyTextEditFichiers::unDisquePleinLaisseLAncienFichier()
{
    LyTextEdit &editeur = atelier->Ouvre("a.html", "ancien");
    editeur.texte->setPlainText(QString(100, u'n'));
    editeur.texte->document()->setModified(true);
    Scenario scenario;
    scenario.Repond("OK");
    bool ecrit = true;
    {
        const DisquePlein disque(50);
        ecrit = editeur.slotFileSave();
    }
    QVERIFY(!ecrit);
    CompareBoite(scenario, "LyTextEdit",
                 "Cannot write file " + atelier->dossier.Chemin("a.html") + ":\nFichier trop grand.", editeur);
    QCOMPARE(atelier->dossier.Lit("a.html"), "ancien");
    QCOMPARE(atelier->dossier.Noms(), QStringList{"a.html"});
    QVERIFY(EstModifie(editeur));
    QCOMPARE(TexteDe(editeur), QString(100, u'n'));
    QVERIFY(editeur.slotFileSave());
    QCOMPARE(atelier->dossier.Lit("a.html"), QByteArray(100, 'n'));
}

void TestLyTextEditFichiers::ceQueLatin1NAPasDevientUnPointDInterrogation()
{
    LyTextEdit &editeur = atelier->Ouvre("a.html", "");
    editeur.texte->insertPlainText("5 € à Łódź");
    const Scenario scenario;
    QVERIFY(editeur.slotFileSave());
    QCOMPARE(scenario.Ecarts(), QStringList());
    QCOMPARE(atelier->dossier.Lit("a.html"),
             "5 ? \xe0 ?\xf3"
             "d?");
    QCOMPARE(TexteDe(editeur), "5 € à Łódź");
    QVERIFY(!EstModifie(editeur));
    QCOMPARE(editeur.statusBar()->currentMessage(),
             "Des caractères qui n'existent pas en ISO 8859-1 ont été enregistrés comme « ? »");
}

void TestLyTextEditFichiers::unMessageDeCaracteresPerdusNeSurvitPas()
{
    LyTextEdit &editeur = atelier->Ouvre("a.html", "");
    QVERIFY(editeur.slotFileSave());
    QVERIFY(!editeur.statusBar()->currentMessage().contains("ISO 8859-1"));
    Tape(editeur, "€");
    QVERIFY(editeur.slotFileSave());
    QVERIFY(editeur.statusBar()->currentMessage().contains("ISO 8859-1"));
    QTest::keyClick(editeur.texte, Qt::Key_Backspace);
    QVERIFY(editeur.slotFileSave());
    QCOMPARE(editeur.statusBar()->currentMessage(), QString());
}

void TestLyTextEditFichiers::unLienSymboliqueEstSuivi()
{
    atelier->dossier.Ecrit("vraie.html", "abc");
    const QString lien = atelier->dossier.Chemin("lien.html");
    QVERIFY(QFile::link(atelier->dossier.Chemin("vraie.html"), lien));
    LyTextEdit &editeur = atelier->Ouvre("lien.html");
    Tape(editeur, "X");
    QVERIFY(editeur.slotFileSave());
    QVERIFY(QFileInfo(lien).isSymLink());
    QCOMPARE(atelier->dossier.Lit("vraie.html"), "Xabc");
    QCOMPARE(atelier->dossier.Noms(), (QStringList{"lien.html", "vraie.html"}));
    QCOMPARE(editeur.windowTitle(), "Fiche n° 12 - lien.html");
}

void TestLyTextEditFichiers::lesDroitsDuFichierRestent()
{
    LyTextEdit &editeur = atelier->Ouvre("a.html", "abc");
    const QByteArray chemin = QFile::encodeName(atelier->dossier.Chemin("a.html"));
    QCOMPARE(chmod(chemin.constData(), 0640), 0);
    QVERIFY(editeur.slotFileSave());
    struct stat etat
    {
    };
    QCOMPARE(::stat(chemin.constData(), &etat), 0);
    QCOMPARE(etat.st_mode & 07777U, 0640U);
}

void TestLyTextEditFichiers::leDialogueEnregistrerSous_data()
{
    QTest::addColumn<QString>("nom");
    QTest::addColumn<QString>("dossier");
    QTest::addColumn<QString>("propose");
    QTest::newRow("fiche") << "fiches/a.html"
                           << "fiches"
                           << "a.html";
}

void TestLyTextEditFichiers::unNouveauTexteVaOuLeDernierEtait()
{
    QVERIFY(QDir(atelier->dossier.Chemin()).mkdir("fiches"));
    LyTextEdit &editeur = atelier->OuvreSeul();
    Scenario scenario;
    DialogueVu avant;
    Renonce(scenario, &avant);
    editeur.actFileSaveAs->trigger();
    // Not in the program's own folder.
    QCOMPARE(avant.dossier, QDir::currentPath());
    QCOMPARE(avant.nom, "");
    editeur.dernierRep = atelier->dossier.Chemin("fiches");
    DialogueVu apres;
    Renonce(scenario, &apres);
    editeur.actFileSaveAs->trigger();
    QCOMPARE(scenario.Ecarts(), QStringList());
    QCOMPARE(apres.dossier, atelier->dossier.Chemin("fiches"));
}

void TestLyTextEditFichiers::unMotSansFinSeCoupePartout()
{
    // The toolkit would look for minutes for a place to break it.
    constexpr int megaoctets = 5 * 1024 * 1024;
    LyTextEdit &editeur = atelier->Ouvre("a.html", "un mot");
    QCOMPARE(editeur.texte->wordWrapMode(), QTextOption::WrapAtWordBoundaryOrAnywhere);
    editeur.texte->insertPlainText(QString(4001, u'x'));
    QCOMPARE(editeur.texte->wordWrapMode(), QTextOption::WrapAnywhere);
    LyTextEdit &autre = atelier->Ouvre("b.html", "un mot\n" + QByteArray(megaoctets, 'x'));
    QCOMPARE(autre.texte->wordWrapMode(), QTextOption::WrapAnywhere);
    QCOMPARE(TexteDe(autre).size(), megaoctets + 7);
}

void TestLyTextEditFichiers::leDialogueMontreLesTroisSortes()
{
    for (const char *nom : {"a.htm", "b.html", "c.txt", "d.png"})
        atelier->dossier.Ecrit(nom, "");
    LyTextEdit &editeur = atelier->OuvreSeul("c.txt");
    QStringList motifs;
    Scenario scenario;
    scenario.Dialogue<QFileDialog>([&motifs](QFileDialog &dialogue) {
        motifs = dialogue.findChild<QFileSystemModel *>()->nameFilters();
        dialogue.reject();
    });
    editeur.actFileSaveAs->trigger();
    QCOMPARE(scenario.Ecarts(), QStringList());
    QCOMPARE(motifs, QStringList({"*.htm", "*.html", "*.txt"}));
}

void TestLyTextEditFichiers::uneFicheAbsenteNeDeplacePasLaFenetre()
{
    Scenario scenario;
    scenario.Repond("OK");
    const LyTextEdit &editeur = atelier->Ouvre("absente.html");
    QCOMPARE(scenario.Ecarts(), QStringList());
    // A box that belongs to a window gives it a frame too early.
    QCOMPARE(scenario.Boites().constFirst().parent, nullptr);
    QCOMPARE(editeur.pos(), QPoint(200, 200));
}

void TestLyTextEditFichiers::leDialogueEnregistrerSous()
{
    QFETCH(const QString, nom);
    QFETCH(const QString, dossier);
    QVERIFY(QDir(atelier->dossier.Chemin()).mkdir("fiches"));
    atelier->dossier.Ecrit("fiches/a.html", "abc");
    const LyTextEdit &editeur = atelier->OuvreSeul(nom);
    Scenario scenario;
    DialogueVu vu;
    Renonce(scenario, &vu);
    editeur.actFileSaveAs->trigger();
    QCOMPARE(scenario.Ecarts(), QStringList());
    QCOMPARE(vu.titre, "Enregistrer sous");
    QCOMPARE(vu.filtres, QStringList{"Textes (*.htm; *.html; *.txt)"});
    QCOMPARE(vu.dossier, atelier->dossier.Chemin(dossier));
    QTEST(vu.nom, "propose");
    QVERIFY(vu.enregistre);
    QVERIFY(vu.confirme);
    QCOMPARE(vu.parent, &editeur);
}

void TestLyTextEditFichiers::lExtensionDependDuModeEtDuPoint_data()
{
    QTest::addColumn<bool>("html");
    QTest::addColumn<QString>("choisi");
    QTest::addColumn<QString>("ecrit");
    const auto ligne = [](bool html, const char *choisi, const char *ecrit) {
        QTest::newRow(qPrintable(QString("%1 %2").arg(html ? "html" : "texte", choisi)))
            << html << QString::fromUtf8(choisi) << QString::fromUtf8(ecrit);
    };
    ligne(true, "fiche", "fiche.html");
    ligne(false, "fiche", "fiche.txt");
    ligne(true, "ma fiche d'été", "ma fiche d'été.html");
    ligne(true, "fiche.v2", "fiche.v2");
    ligne(false, "fiche.v2", "fiche.v2");
    ligne(true, "fiche.htm", "fiche.htm");
    ligne(true, "fiche.", "fiche.");
    ligne(true, "dossier.d/fiche", "dossier.d/fiche");
    ligne(false, "dossier/fiche", "dossier/fiche.txt");
}

void TestLyTextEditFichiers::lExtensionDependDuModeEtDuPoint()
{
    QFETCH(const bool, html);
    QFETCH(const QString, choisi);
    QFETCH(const QString, ecrit);
    QVERIFY(QDir(atelier->dossier.Chemin()).mkdir("dossier"));
    QVERIFY(QDir(atelier->dossier.Chemin()).mkdir("dossier.d"));
    const QString depart = html ? "depart.html" : "depart.txt";
    atelier->dossier.Ecrit(depart, "abc");
    LyTextEdit &editeur = atelier->OuvreSeul(depart);
    Tape(editeur, "X");
    EnregistreSous(choisi);
    QCOMPARE(atelier->dossier.Lit(ecrit), "Xabc");
    QCOMPARE(atelier->dossier.Lit(depart), "abc");
    QCOMPARE(editeur.fichierCourant, atelier->dossier.Chemin(ecrit));
    QCOMPARE(editeur.windowTitle(), "Fiche n° 12 - " + QFileInfo(ecrit).fileName());
    QCOMPARE(editeur.dernierRep, QFileInfo(atelier->dossier.Chemin(ecrit)).absolutePath());
    QVERIFY(!EstModifie(editeur));
}

void TestLyTextEditFichiers::renoncerAEnregistrerSous()
{
    atelier->dossier.Ecrit("a.html", "abc");
    LyTextEdit &editeur = atelier->OuvreSeul("a.html");
    Tape(editeur, "X");
    Scenario scenario;
    Renonce(scenario);
    QCOMPARE(editeur.slotFileSaveAs(), false);
    QCOMPARE(scenario.Ecarts(), QStringList());
    QCOMPARE(scenario.Boites().size(), 0);
    QCOMPARE(atelier->dossier.Noms(), QStringList{"a.html"});
    QCOMPARE(atelier->dossier.Lit("a.html"), "abc");
    QVERIFY(EstModifie(editeur));
    QCOMPARE(editeur.windowTitle(), "Fiche n° 12 - a.html");
}

void TestLyTextEditFichiers::lExtensionAjouteeDemandeAvantDeRemplacer_data()
{
    QTest::addColumn<QString>("reponse");
    QTest::addColumn<bool>("ecrit");
    QTest::newRow("Oui") << "Oui" << true;
    QTest::newRow("Non") << "Non" << false;
    QTest::newRow("Echap") << "" << false;
}

void TestLyTextEditFichiers::lExtensionAjouteeDemandeAvantDeRemplacer()
{
    QFETCH(const QString, reponse);
    QFETCH(const bool, ecrit);
    atelier->dossier.Ecrit("fiche.html", "ancien");
    LyTextEdit &editeur = atelier->OuvreSeul();
    Tape(editeur, "nouveau");
    Scenario scenario;
    Choisit(scenario, atelier->dossier.Chemin("fiche"));
    if (reponse.isEmpty())
        scenario.Echappe();
    else
        scenario.Repond(reponse);
    QCOMPARE(editeur.slotFileSaveAs(), ecrit);
    QCOMPARE(scenario.Ecarts(), QStringList());
    QCOMPARE(scenario.Boites().size(), 1);
    const BoiteVue boite = scenario.Boites().constFirst();
    QCOMPARE(boite.titre, "Enregistrer sous");
    QCOMPARE(boite.texte,
             "Le fichier " + atelier->dossier.Chemin("fiche.html") + " existe déjà.\nVoulez-vous le remplacer ?");
    QCOMPARE(boite.boutons, (QStringList{"Oui", "Non"}));
    QCOMPARE(boite.defaut, "Non");
    QCOMPARE(boite.echappement, "Non");
    QCOMPARE(atelier->dossier.Lit("fiche.html"), ecrit ? "nouveau" : "ancien");
    QCOMPARE(EstModifie(editeur), !ecrit);
    QCOMPARE(editeur.windowTitle(), ecrit ? "Fiche n° 12 - fiche.html" : "Fiche n° 12 - Nouveau");
}

void TestLyTextEditFichiers::leModeSuitLeNouveauNom_data()
{
    QTest::addColumn<QString>("avant");
    QTest::addColumn<QString>("apres");
    QTest::addColumn<bool>("html");
    QTest::newRow("html vers texte") << "a.html"
                                     << "a.txt" << false;
    QTest::newRow("texte vers html") << "a.txt"
                                     << "a.html" << true;
    QTest::newRow("html vers majuscules") << "a.html"
                                          << "b.HTM" << false;
    QTest::newRow("html reste html") << "a.html"
                                     << "b.htm" << true;
    QTest::newRow("texte reste texte") << "a.txt"
                                       << "b" << false;
}

void TestLyTextEditFichiers::leModeSuitLeNouveauNom()
{
    QFETCH(const QString, avant);
    QFETCH(const QString, apres);
    QFETCH(const bool, html);
    atelier->dossier.Ecrit(avant, "abc");
    LyTextEdit &editeur = atelier->OuvreSeul(avant);
    editeur.alignement = " align=right";
    EnregistreSous(apres);
    QCOMPARE(editeur.modeHtml, html);
    QCOMPARE(editeur.actCarGras->isEnabled(), html);
    QCOMPARE(editeur.actTableaux->isEnabled(), html);
    QCOMPARE(editeur.actViewToolBarB->isEnabled(), html);
    QCOMPARE(editeur.actViewToolBarB->isChecked(), html);
    QCOMPARE(editeur.barreHtml->isVisible(), html);
    QCOMPARE(editeur.labelAlignement->text(), html ? "Droite" : "");
}

void TestLyTextEditFichiers::unEchecDEnregistrerSousNeChangeRien()
{
    atelier->dossier.Ecrit("a.html", "abc");
    LyTextEdit &editeur = atelier->OuvreSeul("a.html");
    Tape(editeur, "X");
    const QString dernierRep = editeur.dernierRep;
    Scenario scenario;
    // The dialog itself refuses a folder that does not exist; the disk is full here.
    Choisit(scenario, atelier->dossier.Chemin("b.txt"));
    scenario.Repond("OK");
    bool ecrit = true;
    {
        const DisquePlein disque(2);
        ecrit = editeur.slotFileSaveAs();
    }
    QVERIFY(!ecrit);
    QCOMPARE(scenario.Ecarts(), QStringList());
    QCOMPARE(scenario.Boites().constFirst().titre, "LyTextEdit");
    QVERIFY(EstModifie(editeur));
    QVERIFY(editeur.modeHtml);
    QVERIFY(editeur.actCarGras->isEnabled());
    QCOMPARE(editeur.fichierCourant, atelier->dossier.Chemin("a.html"));
    QCOMPARE(editeur.windowTitle(), "Fiche n° 12 - a.html");
    QCOMPARE(editeur.dernierRep, dernierRep);
    QCOMPARE(atelier->dossier.Noms(), QStringList{"a.html"});
}

void TestLyTextEditFichiers::sauverUnNouveauTexteDemandeUnNom()
{
    LyTextEdit &editeur = atelier->OuvreSeul();
    Tape(editeur, "abc");
    Scenario scenario;
    Renonce(scenario);
    QCOMPARE(editeur.slotFileSave(), false);
    Choisit(scenario, atelier->dossier.Chemin("neuf"));
    QCOMPARE(editeur.slotFileSave(), true);
    Tape(editeur, "d");
    // It has its name now.
    QCOMPARE(editeur.slotFileSave(), true);
    QCOMPARE(scenario.Ecarts(), QStringList());
    QCOMPARE(atelier->dossier.Lit("neuf.html"), "abcd");
}

RAMELIER_TEST_BUREAU_MAIN(TestLyTextEditFichiers)
#include "tst_lytextedit_fichiers.moc"
