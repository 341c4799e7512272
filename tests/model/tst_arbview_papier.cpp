#include "bureausombre.h"
#include "environnement.h"
#include "infopersonne.h"
#include "interlocuteur.h"
#include "personne.h"
#include "vuedessai.h"

#include <QApplication>
#include <QFile>
#include <QScrollBar>

#include <functional>
#include <optional>

namespace {

/// Does something while the user reads the message, as the event loop of a message box lets the window be painted.
class InterlocuteurDEssai : public Interlocuteur
{
public:
    explicit InterlocuteurDEssai(std::function<void(const QString &)> aFaire)
        : action(std::move(aFaire))
    {
    }
    void Information(const QString & /*titre*/, const QString &texte) override { action(texte); }
    void Avertissement(const QString & /*titre*/, const QString &texte) override { action(texte); }
    std::optional<QString> ChoisitRacine(QWidget * /*parent*/, const Lignes & /*individus*/) override { return {}; }
    bool RacineMasculine(QWidget * /*parent*/) override { return true; }

private:
    std::function<void(const QString &)> action;
};

bool EstBlanche(const QImage &image)
{
    QImage blanche = image;
    blanche.fill(Qt::white);
    return image == blanche;
}

}  // namespace

/// The drawing stays a sheet of paper, whatever the desktop's colours and however much of a tree is there.
class TestArbViewPapier : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void cleanup();

    void unBureauSombreGardeLePapierBlanc_data();
    void unBureauSombreGardeLePapierBlanc();
    void unBureauSombreGardeSesAscenseurs();
    void sansArbreLaFeuilleEstBlanche();
    void unArbreSansPersonneEstBlanc();
    void unArbreAMoitieLuSeDessine_data();
    void unArbreAMoitieLuSeDessine();
    void unArbreBricoleSeDessine_data();
    void unArbreBricoleSeDessine();
};

void TestArbViewPapier::cleanup()
{
    Interlocuteur::Installe(std::make_unique<InterlocuteurDEssai>([](const QString &) {}));
}

void TestArbViewPapier::unBureauSombreGardeLePapierBlanc_data()
{
    QTest::addColumn<bool>("avant");
    QTest::newRow("sombre avant d'ouvrir") << true;
    QTest::newRow("sombre plus tard") << false;
}

void TestArbViewPapier::unBureauSombreGardeLePapierBlanc()
{
    QFETCH(bool, avant);
    std::optional<BureauSombre> sombre;
    if (avant)
        sombre.emplace();
    VueDEssai essai;
    if (!avant)
        sombre.emplace();
    essai.Ouvre(ArbreDeNumeros({1}));
    QVERIFY(essai.Montre());
    QTRY_COMPARE(essai.dessin->size(), QSize(225, 270));
    QCOMPARE(essai.fenetre.palette().color(QPalette::Base), QColor(10, 10, 10));

    const QImage dessin = essai.dessin->grab().toImage();
    QCOMPARE(dessin.pixelColor(10, 10), QColor(Qt::white));
    QCOMPARE(dessin.pixelColor(110, 190), QColor(Qt::white));
    QCOMPARE(dessin.pixelColor(220, 265), QColor(Qt::white));
    QCOMPARE(dessin.pixelColor(100, 56), QColor(Qt::black));
    QCOMPARE(dessin.pixelColor(56, 130), QColor(Qt::black));
    // So does the room around a drawing that is smaller than the window.
    const QImage vue = essai.defilement->viewport()->grab().toImage();
    QCOMPARE(vue.pixelColor(400, 100), QColor(Qt::white));
    QCOMPARE(vue.pixelColor(100, 400), QColor(Qt::white));

    delete std::exchange(essai.doc.arbre, nullptr);
    Q_EMIT essai.doc.documentChanged(0);
    QVERIFY(EstBlanche(essai.dessin->grab().toImage()));
}

void TestArbViewPapier::unBureauSombreGardeSesAscenseurs()
{
    const BureauSombre sombre;
    VueDEssai essai(QSize(200, 150));
    essai.Ouvre(ArbreDeNumeros({1}));
    QVERIFY(essai.Montre());
    QTRY_COMPARE(essai.dessin->size(), QSize(225, 270));
    QCOMPARE(essai.defilement->verticalScrollBar()->palette().color(QPalette::Base), QColor(10, 10, 10));
}

void TestArbViewPapier::sansArbreLaFeuilleEstBlanche()
{
    VueDEssai essai;
    QVERIFY(essai.Montre());
    const QImage image = essai.dessin->grab().toImage();
    QCOMPARE(image.size(), QSize(636, 395));
    QVERIFY(EstBlanche(image));
    QVERIFY(!essai.doc.canevasCalcule);
}

void TestArbViewPapier::unArbreSansPersonneEstBlanc()
{
    VueDEssai essai;
    essai.Ouvre(std::make_unique<Arbre>());
    QVERIFY(essai.Montre());
    QTRY_VERIFY(essai.doc.canevasCalcule);
    // A margin on each side: 56 pixels once at the right and once at the bottom.
    QCOMPARE(essai.dessin->size(), QSize(56, 56));
    QVERIFY(EstBlanche(essai.dessin->grab().toImage()));
}

void TestArbViewPapier::unArbreAMoitieLuSeDessine_data()
{
    QTest::addColumn<QByteArray>("contenu");
    QTest::addColumn<int>("lues");
    const QByteArray debut = "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n<!DOCTYPE xrlg>\n<xrlg version=\"1.0\">\n"
                             "<arbre>\n<titrearbre>Famille</titrearbre>\n<nombrepersonnes>3</nombrepersonnes>\n";
    const auto personne = [](const QByteArray &numero, const QByteArray &generation, const QByteArray &reste) {
        return QByteArray("<personne>\n<numero>" + numero + "</numero>\n<numerogeneration>" + generation
                          + "</numerogeneration>\n" + reste);
    };
    const QByteArray donnees = "<infopersonne>\n<nom>DUPONT</nom>\n</infopersonne>\n";
    QTest::newRow("rien") << QByteArray("<?xml version=\"1.0\"?>\n<xrlg><arbre") << 0;
    QTest::newRow("titre seul") << debut + "<" << 0;
    QTest::newRow("racine sans données") << debut + personne("1", "0", "</personne>\n<") << 1;
    QTest::newRow("racine avec parents à venir")
        << debut + personne("1", "0", "<pere>2</pere>\n<mere>3</mere>\n" + donnees + "</personne>\n<") << 1;
    QTest::newRow("père au milieu de ses données")
        << debut + personne("1", "0", "<pere>2</pere>\n" + donnees + "</personne>\n")
            + personne("2", "1", "<infopersonne>\n<nom>DUP")
        << 1;
    QTest::newRow("générations encore inconnues")
        << debut + personne("1", "0", "<pere>2</pere>\n" + donnees + "</personne>\n")
            + personne("2", "1", donnees + "</personne>\n<nombregenerations>")
        << 2;
}

void TestArbViewPapier::unArbreAMoitieLuSeDessine()
{
    QFETCH(QByteArray, contenu);
    QFETCH(int, lues);
    QString dossier = Environnement::Maison();
    const QString nom = dossier + QStringLiteral("/moitie.xrlg");
    QFile fichier(nom);
    QVERIFY(fichier.open(QIODevice::WriteOnly));
    fichier.write(contenu);
    fichier.close();

    VueDEssai essai;
    essai.Ouvre(ArbreComplet(3));
    QVERIFY(essai.Montre());
    QTRY_VERIFY(essai.doc.canevasCalcule);
    int messages = 0;
    int presentes = -1;
    Interlocuteur::Installe(std::make_unique<InterlocuteurDEssai>([&](const QString &) {
        ++messages;
        presentes = 0;
        for (const Personne *personne = essai.doc.arbre->premiere; personne; personne = personne->suivante)
            ++presentes;
        for (const int code : {2, 1}) {
            Q_EMIT essai.doc.documentChanged(code);
            essai.dessin->grab();
        }
        QTest::mouseClick(essai.dessin, Qt::LeftButton, {}, QPoint(70, 70));
        QTest::mouseClick(essai.dessin, Qt::RightButton, {}, QPoint(70, 70));
    }));
    QString options;
    QCOMPARE(essai.doc.load(nom, dossier, options, RamelierDoc::CibleArbre), 0);
    QCOMPARE(messages, 1);
    QCOMPARE(presentes, lues);
    QVERIFY(essai.doc.canevasCalcule);
    QVERIFY(!essai.dessin->grab().isNull());
}

void TestArbViewPapier::unArbreBricoleSeDessine_data()
{
    QTest::addColumn<std::function<void(Arbre &)>>("bricole");
    using Bricole = std::function<void(Arbre &)>;
    QTest::newRow("sans aucune donnée") << Bricole([](Arbre &arbre) {
        for (Personne *personne = arbre.premiere; personne; personne = personne->suivante)
            delete std::exchange(personne->info, nullptr);
    });
    QTest::newRow("aucune génération") << Bricole([](Arbre &arbre) { arbre.nombreGenerations = 0; });
    QTest::newRow("trop de générations") << Bricole([](Arbre &arbre) { arbre.nombreGenerations = 65535; });
    QTest::newRow("liens vers les mauvaises personnes") << Bricole([](Arbre &arbre) {
        for (Personne *personne = arbre.premiere; personne; personne = personne->suivante) {
            personne->ptrPere = arbre.derniere;
            personne->ptrMere = arbre.premiere;
        }
    });
    QTest::newRow("générations en désordre") << Bricole([](Arbre &arbre) {
        for (Personne *personne = arbre.premiere; personne; personne = personne->suivante)
            personne->numerogeneration = static_cast<unsigned short>(7919 * personne->numero % 5);
    });
    QTest::newRow("photo annoncée mais absente") << Bricole([](Arbre &arbre) {
        for (Personne *personne = arbre.premiere; personne; personne = personne->suivante)
            personne->info->etatPhoto = 2;
    });
    QTest::newRow("sélection sans données") << Bricole([](Arbre &arbre) {
        arbre.selection = arbre.premiere;
        arbre.selection->selectionnee = true;
        delete std::exchange(arbre.selection->info, nullptr);
    });
}

void TestArbViewPapier::unArbreBricoleSeDessine()
{
    QFETCH(std::function<void(Arbre &)>, bricole);
    VueDEssai essai;
    QVERIFY(essai.Montre());
    auto arbre = ArbreComplet(4);
    bricole(*arbre);
    essai.Ouvre(std::move(arbre));
    QTRY_VERIFY(essai.doc.canevasCalcule);
    const Personne *racine = essai.doc.arbre->premiere;
    const QRect cadre(static_cast<int>(racine->x) - 2, static_cast<int>(racine->y) - 2, 117, 162);
    QVERIFY(!EstBlanche(essai.dessin->grab(cadre).toImage()));
}

RAMELIER_TEST_MAIN(QApplication, TestArbViewPapier)
#include "tst_arbview_papier.moc"
