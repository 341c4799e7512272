#include "environnement.h"
#include "ficxrlg.h"
#include "interlocuteurnote.h"
#include "ramelierdoc.h"
#include "sourcesdassemblage.h"

#include <QDir>
#include <QGuiApplication>
#include <QImage>

/// RamelierDoc: a child's tree out of the trees of its parents.
class TestAssemblageDocument : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase() { Interlocuteur::Installe(std::make_unique<InterlocuteurNote>(messages)); }
    void init();
    void cleanup();
    void assembleDeuxFichiers();
    void lesMarquesSontCellesDUnNouvelArbre();
    void lesSignauxViennentDansLOrdre();
    void lesPreferencesServentDeFormats();
    void lesPhotosSontChercheesDansLeDossierDonne();
    void chaqueCoteEstJugeParSaRacine();
    void lAssemblageSeSauve();
    void deuxAssemblagesDeSuite();
    void copieUnePersonneSansLaRanger();
    void laCopieNeTrouvePasToujoursSonEnfant();
    void laCopieTrouveLePremierDeSonNumero();
    void laCopieEstJugeeParLArbreDeSonCote();
    void laCopieQuiNeTientPasNEstPasFaite();
    void laCopieChargeSaPhoto();
    void abandonneCeQuiEtaitCharge_data();
    void abandonneCeQuiEtaitCharge();
    void abandonneApresUnEchec();

private:
    [[nodiscard]] QString Chemin(const QString &nom) const { return dossier->filePath(nom); }
    int Charge(const QString &nom, int mode) { return doc->load(Chemin(nom), repertoire, options, mode); }
    bool Assemble() { return doc->AssembleDeuxArbres(nullptr, repertoire); }
    [[nodiscard]] QString EtatEnTexte() const;

    std::unique_ptr<QTemporaryDir> dossier;
    std::unique_ptr<RamelierDoc> doc;
    QString repertoire;
    QString options;
    QStringList messages;
    QStringList signaux;
};

void TestAssemblageDocument::init()
{
    messages.clear();
    dossier = std::make_unique<QTemporaryDir>();
    doc = std::make_unique<RamelierDoc>(QString());
    repertoire = dossier->path();
    options = Chemin(QStringLiteral("a.opt"));
    signaux.clear();
    connect(doc.get(), &RamelierDoc::documentChanged, this,
            [this](int code) { signaux += QString::number(code) + u' ' + EtatEnTexte(); });
    connect(doc.get(), &RamelierDoc::personneSelectionnee, this, [this] { signaux += QStringLiteral("sélection"); });
    connect(doc.get(), &RamelierDoc::autoriseAnnulation, this, [this] { signaux += QStringLiteral("annulation"); });
}

void TestAssemblageDocument::cleanup()
{
    doc.reset();
    QCOMPARE(messages, QStringList());
}

QString TestAssemblageDocument::EtatEnTexte() const
{
    const auto arbre = [](const Arbre *a) { return a ? NumerosEnTexte(*a) : QStringLiteral("aucun"); };
    return QStringLiteral("[%1|%2|%3] modifie=%4 options=%5")
        .arg(arbre(doc->arbre), arbre(doc->arbrePere), arbre(doc->arbreMere))
        .arg(int(doc->isModified()))
        .arg(int(doc->areOptionsModified()));
}

void TestAssemblageDocument::assembleDeuxFichiers()
{
    QVERIFY(writeFicXRLG(Chemin(QStringLiteral("p.xrlg")), ArbreDeNumeros({1, 2, 3, 5}).get()));
    QVERIFY(writeFicXRLG(Chemin(QStringLiteral("m.xrlg")), ArbreDeNumeros({1, 3, 6}).get()));
    QCOMPARE(Charge(QStringLiteral("p.xrlg"), 1), 1);
    QCOMPARE(Charge(QStringLiteral("m.xrlg"), 2), 1);
    QVERIFY(Assemble());
    QCOMPARE(LignesDe(*doc->arbre),
             (QStringList{"1/0 2,3 0 Enfant >1,2", "2/1 4,5 1 N1 >3,4", "3/1 0,7 1 N1 >-,5", "4/2 0,9 2 N2 >-,6",
                          "5/2 0,0 2 N3 >-,-", "7/2 14,0 3 N3 >7,-", "9/3 0,0 4 N5 >-,-", "14/3 0,0 7 N6 >-,-"}));
    QCOMPARE(doc->arbre->nombrePersonnes, 8ULL);
    QCOMPARE(doc->arbre->nombreGenerations, 4);
    QVERIFY(!doc->arbrePere && !doc->arbreMere);
    const InfoArbre &page = *doc->arbre->infoArbre;
    QCOMPARE(page.titrearbre, QStringLiteral("Généalogie de l'enfant"));
    QCOMPARE((QStringList{page.creepar, page.date, page.majpar, page.datemaj}), (QStringList{"", "", "", ""}));
    QVERIFY(!doc->arbre->selection);
    QVERIFY(doc->arbre->premiere->affichable && !doc->arbre->premiere->selectionnee);
    QCOMPARE(TextesDe(*doc->arbre->premiere->info), QStringLiteral("Enfant||||||||"));
}

void TestAssemblageDocument::lesMarquesSontCellesDUnNouvelArbre()
{
    doc->arbrePere = ArbreComplet(1).release();
    doc->arbreMere = ArbreComplet(1).release();
    doc->nomFichier = QStringLiteral("ancien.rlg");
    doc->typeFichier = 3;
    doc->importGED = true;
    doc->creationEnCours = true;
    doc->optionsModifiees = true;
    QVERIFY(Assemble());
    QVERIFY(doc->isModified());
    QVERIFY(!doc->areOptionsModified());
    QCOMPARE(doc->nomFichier, QString());
    QCOMPARE(doc->typeFichier, 0);
    QVERIFY(doc->arbreCharge && !doc->importGED && !doc->creationEnCours);
}

void TestAssemblageDocument::lesSignauxViennentDansLOrdre()
{
    // Whoever listens finds no tree at 0, and everything done at 1.
    doc->arbre = ArbreComplet(2).release();
    doc->arbrePere = ArbreComplet(2).release();
    doc->arbreMere = ArbreComplet(1).release();
    doc->optionsModifiees = true;
    QVERIFY(Assemble());
    QCOMPARE(signaux,
             (QStringList{"0 [aucun|1 2 3|1] modifie=0 options=1", "1 [1 2 3 4 5|aucun|aucun] modifie=1 options=0"}));
    // Without any tree before, it is told all the same.
    signaux.clear();
    doc = std::make_unique<RamelierDoc>(QString());
    QList<int> codes;
    connect(doc.get(), &RamelierDoc::documentChanged, this, [&codes](int code) { codes += code; });
    doc->arbrePere = ArbreComplet(1).release();
    doc->arbreMere = ArbreComplet(1).release();
    QVERIFY(Assemble());
    QCOMPARE(codes, (QList<int>{0, 1}));
}

void TestAssemblageDocument::lesPreferencesServentDeFormats()
{
    doc->formatsPref.largeurCadre = 77;
    doc->policesPref.policeTitre.setPointSize(44);
    doc->formats.largeurCadre = 99;
    doc->polices.policeTitre.setPointSize(11);
    doc->arbrePere = ArbreComplet(1).release();
    doc->arbreMere = ArbreComplet(1).release();
    QVERIFY(Assemble());
    QCOMPARE(doc->formats.largeurCadre, 77);
    QCOMPARE(doc->polices.policeTitre.pointSize(), 44);
}

void TestAssemblageDocument::lesPhotosSontChercheesDansLeDossierDonne()
{
    QVERIFY(QDir(dossier->path()).mkdir(QStringLiteral("photos")));
    QImage image(7, 5, QImage::Format_RGB32);
    image.fill(Qt::red);
    QVERIFY(image.save(Chemin(QStringLiteral("photos/p.png"))));
    for (const bool trouvee : {false, true}) {
        doc->arbrePere = ArbreComplet(2).release();
        doc->arbreMere = ArbreComplet(1).release();
        doc->arbrePere->derniere->info->ficphoto = QStringLiteral("p.png");
        doc->arbrePere->derniere->info->etatPhoto = InfoPersonne::PhotoPourEcran;
        doc->arbreMere->premiere->info->ficphoto = QStringLiteral("rien.png");
        repertoire = trouvee ? Chemin(QStringLiteral("photos")) : dossier->path();
        QVERIFY(Assemble());
        QCOMPARE(Trouve(*doc->arbre, 5)->info->etatPhoto, trouvee ? 1 : 0);
        QCOMPARE(Trouve(*doc->arbre, 5)->info->photo.size(), trouvee ? QSize(7, 5) : QSize(0, 0));
        QCOMPARE(Trouve(*doc->arbre, 3)->info->etatPhoto, 0);
        QCOMPARE(Trouve(*doc->arbre, 2)->info->etatPhoto, -1);
    }
}

void TestAssemblageDocument::chaqueCoteEstJugeParSaRacine()
{
    doc->arbrePere = ArbreDeSources({{1, 2, 2, 0}, {2, 3}}).release();
    doc->arbreMere = ArbreComplet(2).release();
    QVERIFY(Assemble());
    QCOMPARE(NumerosEnTexte(*doc->arbre), QStringLiteral("1 2 3 4 6 7"));
    QCOMPARE(LiensDe(*doc->arbre), QStringLiteral("1>2,3 2>4,- 3>6,7"));
    QCOMPARE(doc->arbre->nombreGenerations, 3);
}

void TestAssemblageDocument::lAssemblageSeSauve()
{
    doc->arbrePere = ArbreComplet(2).release();
    doc->arbreMere = ArbreDeNumeros({1, 3}).release();
    QVERIFY(Assemble());
    const QStringList lignes = LignesDe(*doc->arbre);
    QVERIFY(doc->saveAs(Chemin(QStringLiteral("e.xrlg")), options, false));
    QVERIFY(!doc->isModified());
    QCOMPARE(doc->typeFichier, 4);
    QCOMPARE(Charge(QStringLiteral("e.xrlg"), 0), 1);
    QCOMPARE(LignesDe(*doc->arbre), lignes);
    QCOMPARE(doc->arbre->infoArbre->titrearbre, QStringLiteral("Généalogie de l'enfant"));
}

void TestAssemblageDocument::deuxAssemblagesDeSuite()
{
    doc->arbrePere = ArbreComplet(2).release();
    doc->arbreMere = ArbreComplet(2).release();
    QVERIFY(Assemble());
    doc->arbre->premiere->info->nom = QStringLiteral("perdu");
    doc->arbrePere = ArbreComplet(1).release();
    doc->arbreMere = ArbreComplet(1).release();
    QVERIFY(Assemble());
    QCOMPARE(LignesDe(*doc->arbre), (QStringList{"1/0 2,3 0 Enfant >1,2", "2/1 0,0 1 N1 >-,-", "3/1 0,0 1 N1 >-,-"}));
    QCOMPARE(signaux.size(), 4);
}

void TestAssemblageDocument::copieUnePersonneSansLaRanger()
{
    doc->arbre = ArbreDeNumeros({1, 2, 3}).release();
    doc->arbrePere = ArbreComplet(2).release();
    doc->arbreMere = ArbreComplet(2).release();
    Personne *racine = doc->arbre->premiere;
    // The father's mother, then the mother's father.
    const std::unique_ptr<Personne> mere(doc->CopiePourAssemblage(doc->arbrePere->derniere, true, repertoire));
    QCOMPARE(mere->numero, 5ULL);
    QCOMPARE(mere->numerogeneration, 2);
    QCOMPARE(mere->enfant, 2ULL);
    QCOMPARE(mere->info->nom, QStringLiteral("N3"));
    QCOMPARE(racine->ptrPere->ptrMere, mere.get());
    QVERIFY(!racine->ptrPere->ptrPere);
    const std::unique_ptr<Personne> pere(
        doc->CopiePourAssemblage(doc->arbreMere->premiere->suivante, false, repertoire));
    QCOMPARE(pere->numero, 6ULL);
    QCOMPARE(racine->ptrMere->ptrPere, pere.get());
    QVERIFY(!racine->ptrMere->ptrMere);
    // Neither list nor signals know of them.
    QCOMPARE(NumerosEnTexte(*doc->arbre), QStringLiteral("1 2 3"));
    QCOMPARE(doc->arbre->nombrePersonnes, 3ULL);
    QVERIFY(!mere->suivante && !mere->precedente && !pere->suivante && !pere->precedente);
    QCOMPARE(signaux, QStringList());
}

void TestAssemblageDocument::laCopieNeTrouvePasToujoursSonEnfant()
{
    doc->arbre = ArbreDeNumeros({1, 2, 3}).release();
    Personne source(2);
    source.numero = 4;
    source.pere = 8;
    const std::unique_ptr<Personne> copie(doc->CopiePourAssemblage(&source, true, repertoire));
    QCOMPARE(copie->numero, 8ULL);
    QCOMPARE(copie->pere, 16ULL);
    QCOMPARE(copie->mere, 0ULL);
    QCOMPARE(LiensDe(*doc->arbre), QStringLiteral("1>2,3"));
    delete std::exchange(doc->arbre, new Arbre);
    const std::unique_ptr<Personne> seule(doc->CopiePourAssemblage(&source, true, repertoire));
    QCOMPARE(seule->numero, 8ULL);
}

void TestAssemblageDocument::laCopieTrouveLePremierDeSonNumero()
{
    doc->arbre = ArbreDeSources({{1}, {3, 1}, {2, 1}, {2, 1}}).release();
    Personne source(1);
    source.numero = 2;
    const std::unique_ptr<Personne> copie(doc->CopiePourAssemblage(&source, true, repertoire));
    QCOMPARE(doc->arbre->derniere->precedente->ptrPere, copie.get());
    QVERIFY(!doc->arbre->derniere->ptrPere);
}

void TestAssemblageDocument::laCopieEstJugeeParLArbreDeSonCote()
{
    doc->arbre = ArbreComplet(1).release();
    doc->arbrePere = ArbreDeSources({{1, 4}, {2, 5}}).release();
    doc->arbreMere = ArbreDeSources({{1, 0}, {2, 3}}).release();
    const std::unique_ptr<Personne> pere(doc->CopiePourAssemblage(doc->arbrePere->premiere, true, repertoire));
    QCOMPARE(pere->numero, 2ULL);
    QCOMPARE(pere->numerogeneration, 1);
    QCOMPARE(doc->arbre->premiere->ptrPere, pere.get());
    const std::unique_ptr<Personne> mere(doc->CopiePourAssemblage(doc->arbreMere->derniere, false, repertoire));
    QCOMPARE(mere->numero, 18ULL);
    QCOMPARE(mere->numerogeneration, 4);
}

void TestAssemblageDocument::laCopieQuiNeTientPasNEstPasFaite()
{
    doc->arbre = ArbreComplet(1).release();
    Personne source(64);
    source.numero = 1;
    QVERIFY(!doc->CopiePourAssemblage(&source, true, repertoire));
    QVERIFY(!doc->CopiePourAssemblage(&source, false, repertoire));
    QCOMPARE(LiensDe(*doc->arbre), QString());
}

void TestAssemblageDocument::laCopieChargeSaPhoto()
{
    QImage image(7, 5, QImage::Format_RGB32);
    image.fill(Qt::red);
    QVERIFY(image.save(Chemin(QStringLiteral("p.png"))));
    doc->arbre = ArbreComplet(1).release();
    Personne source(0);
    source.numero = 1;
    source.info = new InfoPersonne;
    source.info->ficphoto = QStringLiteral("p.png");
    const std::unique_ptr<Personne> copie(doc->CopiePourAssemblage(&source, false, repertoire));
    QCOMPARE(copie->info->etatPhoto, 1);
    QCOMPARE(copie->info->photo.size(), QSize(7, 5));
    QCOMPARE(doc->arbre->premiere->ptrMere, copie.get());
}

void TestAssemblageDocument::abandonneCeQuiEtaitCharge_data()
{
    QTest::addColumn<bool>("pere");
    QTest::addColumn<bool>("mere");
    QTest::addColumn<bool>("arbre");
    QTest::newRow("le père seul") << true << false << false;
    QTest::newRow("les deux") << true << true << false;
    QTest::newRow("et un arbre ouvert") << true << true << true;
    QTest::newRow("un arbre seul") << false << false << true;
    QTest::newRow("rien") << false << false << false;
}

void TestAssemblageDocument::abandonneCeQuiEtaitCharge()
{
    QFETCH(bool, pere);
    QFETCH(bool, mere);
    QFETCH(bool, arbre);
    doc->arbrePere = pere ? ArbreComplet(2).release() : nullptr;
    doc->arbreMere = mere ? ArbreComplet(3).release() : nullptr;
    doc->arbre = arbre ? ArbreComplet(2).release() : nullptr;
    doc->AbandonneLAssemblage();
    QVERIFY(!doc->arbre && !doc->arbrePere && !doc->arbreMere);
    QCOMPARE(signaux, QStringList{"0 [aucun|aucun|aucun] modifie=0 options=0"});
}

void TestAssemblageDocument::abandonneApresUnEchec()
{
    // The mother's file cannot be read: what was loaded of it goes too.
    QVERIFY(writeFicXRLG(Chemin(QStringLiteral("p.xrlg")), ArbreComplet(2).get()));
    QFile faux(Chemin(QStringLiteral("m.rlg")));
    QVERIFY(faux.open(QIODevice::WriteOnly) && faux.write("rien") == 4);
    faux.close();
    QCOMPARE(Charge(QStringLiteral("p.xrlg"), 1), 1);
    QCOMPARE(Charge(QStringLiteral("m.rlg"), 2), 0);
    QVERIFY(doc->arbre && doc->arbrePere && !doc->arbreMere);
    doc->AbandonneLAssemblage();
    QVERIFY(!doc->arbre && !doc->arbrePere && !doc->arbreMere);
    QCOMPARE(doc->nomFichier, QString());
    QCOMPARE(doc->typeFichier, 0);
    QVERIFY(!doc->isModified());
    // And the next assembly starts afresh.
    QCOMPARE(Charge(QStringLiteral("p.xrlg"), 1), 1);
    QCOMPARE(Charge(QStringLiteral("p.xrlg"), 2), 1);
    QVERIFY(Assemble());
    QCOMPARE(NumerosEnTexte(*doc->arbre), QStringLiteral("1 2 3 4 5 6 7"));
}

RAMELIER_TEST_MAIN(QGuiApplication, TestAssemblageDocument)
#include "tst_assemblage_document.moc"
