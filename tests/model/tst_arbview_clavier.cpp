#include "environnement.h"
#include "infopersonne.h"
#include "personne.h"
#include "vuedessai.h"

#include <QApplication>
#include <QContextMenuEvent>
#include <QScrollBar>
#include <QWindow>

namespace {

struct Frappe
{
    Qt::Key touche;
    Qt::KeyboardModifiers avec = Qt::NoModifier;
};

}  // namespace

Q_DECLARE_METATYPE(Frappe)

/// Father 2 with parents 4 and 5, mother 3 with a mother 7 only: keys given to the window, as a keyboard gives them.
class TestArbViewClavier : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup() { essai.reset(); }

    void uneFlecheSuitLesLiens_data();
    void uneFlecheSuitLesLiens();
    void uneToucheFaitCeQueFaitUnClic();
    void lesFlechesDuPaveMarchentAussi();
    void ctrlFlecheFaitDefiler();
    void sansArbreRienNeSePasse_data();
    void sansArbreRienNeSePasse();
    void unArbreSansPersonneNeFaitRien();
    void laPersonneChoisieSeVoit();
    void lAffichageReduitMarcheAussi();
    void unArbreAbimeSeParcourt_data();
    void unArbreAbimeSeParcourt();
    void entreeVautLeDoubleClic_data();
    void entreeVautLeDoubleClic();
    void leMenuSOuvreSurLaPersonne_data();
    void leMenuSOuvreSurLaPersonne();
    void leMenuSansSelectionEstLeGeneral();
    void leClicDroitNOuvrePasDeuxMenus();
    void lesLettresCherchent();
    void leBlancNeCommencePas();
    void echapOublieLesLettres();
    void uneFlecheOublieLesLettres();
    void unAutreArbreOublieLesLettres();
    void uneCommandeNEstPasUneLettre_data();
    void uneCommandeNEstPasUneLettre();

private:
    void Ouvre(std::unique_ptr<Arbre> arbre);
    void Selectionne(quint64 numero);
    void Nomme(quint64 numero, const QString &nom);
    [[nodiscard]] quint64 Selection() const;
    void Touche(Qt::Key touche, Qt::KeyboardModifiers avec = Qt::NoModifier);
    void Tape(const QString &texte);
    /// As the desktop asks for one, for the menu key or the right button.
    void DemandeUnMenu(QContextMenuEvent::Reason raison, QPoint ici);
    /// The selected person's box in pixels of the view.
    [[nodiscard]] QRect DansLaVue() const;

    std::unique_ptr<VueDEssai> essai;
    QStringList signauxVus;
    QPoint pointDuMenu;
};

void TestArbViewClavier::init()
{
    essai = std::make_unique<VueDEssai>();
    QVERIFY(essai->Montre());
    QVERIFY(QTest::qWaitForWindowActive(&essai->fenetre));
    essai->defilement->setFocus();
    QVERIFY(essai->dessin->hasFocus());
    Ouvre(ArbreDeNumeros({1, 2, 3, 4, 5, 7}));
    connect(&essai->doc, &RamelierDoc::documentChanged, this,
            [this](int code) { signauxVus += QStringLiteral("documentChanged %1").arg(code); });
    connect(&essai->doc, &RamelierDoc::personneSelectionnee, this,
            [this](int etat) { signauxVus += QStringLiteral("personneSelectionnee %1").arg(etat); });
    connect(essai->dessin, &arbView::personneDoubleCliquee, this,
            [this] { signauxVus += QStringLiteral("personneDoubleCliquee"); });
    connect(essai->dessin, &arbView::menuSurgissant, this,
            [this](int lieu) { signauxVus += QStringLiteral("menuSurgissant %1").arg(lieu); });
    connect(essai->dessin, &arbView::menuAuClavier, this, [this](int lieu, QPoint point) {
        signauxVus += QStringLiteral("menuAuClavier %1").arg(lieu);
        pointDuMenu = point;
    });
    signauxVus.clear();
}

void TestArbViewClavier::Ouvre(std::unique_ptr<Arbre> arbre)
{
    essai->Ouvre(std::move(arbre));
    QTRY_VERIFY(essai->doc.canevasCalcule);
}

void TestArbViewClavier::Selectionne(quint64 numero)
{
    essai->doc.arbre->Selectionne(Trouve(*essai->doc.arbre, numero));
}

void TestArbViewClavier::Nomme(quint64 numero, const QString &nom)
{
    Personne *personne = Trouve(*essai->doc.arbre, numero);
    personne->info->nom = nom;
    essai->doc.arbre->TextesChanges(*personne);
}

quint64 TestArbViewClavier::Selection() const
{
    const Personne *selection = essai->doc.arbre->selection;
    return selection ? selection->numero : 0;
}

void TestArbViewClavier::Touche(Qt::Key touche, Qt::KeyboardModifiers avec)
{
    QTest::keyClick(essai->fenetre.windowHandle(), touche, avec);
}

void TestArbViewClavier::Tape(const QString &texte)
{
    // A window takes single keys only, and a key event carries the letter that an accent was typed with.
    for (const QChar lettre : texte)
        QTest::sendKeyEvent(QTest::Click, essai->dessin, Qt::Key_unknown, QString(lettre), Qt::NoModifier);
}

void TestArbViewClavier::DemandeUnMenu(QContextMenuEvent::Reason raison, QPoint ici)
{
    QContextMenuEvent menu(raison, ici, essai->dessin->mapToGlobal(ici));
    QCoreApplication::sendEvent(essai->dessin, &menu);
}

QRect TestArbViewClavier::DansLaVue() const
{
    const QRect place = essai->dessin->PlaceDe(*essai->doc.arbre->selection);
    return place.translated(essai->dessin->pos());
}

void TestArbViewClavier::uneFlecheSuitLesLiens_data()
{
    QTest::addColumn<quint64>("avant");
    QTest::addColumn<Frappe>("frappe");
    QTest::addColumn<quint64>("apres");
    const auto ligne = [](const char *nom, quint64 avant, Frappe frappe, quint64 apres) {
        QTest::newRow(nom) << avant << frappe << apres;
    };
    const Frappe haut{Qt::Key_Up};
    const Frappe majHaut{Qt::Key_Up, Qt::ShiftModifier};
    ligne("haut : le père", 1, haut, 2);
    ligne("maj haut : la mère", 1, majHaut, 3);
    ligne("haut : la mère, faute de père", 3, haut, 7);
    ligne("haut : personne", 7, haut, 7);
    ligne("bas : l'enfant", 7, {Qt::Key_Down}, 3);
    ligne("bas : la racine", 1, {Qt::Key_Down}, 1);
    ligne("maj bas : l'enfant", 4, {Qt::Key_Down, Qt::ShiftModifier}, 2);
    ligne("droite : la voisine", 2, {Qt::Key_Right}, 3);
    ligne("droite : par-dessus un trou", 5, {Qt::Key_Right}, 7);
    ligne("droite : la fin de la rangée", 3, {Qt::Key_Right}, 3);
    ligne("gauche : le voisin", 7, {Qt::Key_Left}, 5);
    ligne("gauche : le début de la rangée", 4, {Qt::Key_Left}, 4);
    ligne("début : la racine", 5, {Qt::Key_Home}, 1);
    ligne("sans sélection, haut", 0, haut, 1);
    ligne("sans sélection, droite", 0, {Qt::Key_Right}, 1);
    ligne("sans sélection, début", 0, {Qt::Key_Home}, 1);
}

void TestArbViewClavier::uneFlecheSuitLesLiens()
{
    QFETCH(const quint64, avant);
    QFETCH(const Frappe, frappe);
    QFETCH(const quint64, apres);
    Selectionne(avant);
    Touche(frappe.touche, frappe.avec);
    QCOMPARE(Selection(), apres);
    for (const Personne *personne = essai->doc.arbre->premiere; personne; personne = personne->suivante)
        QCOMPARE(personne->selectionnee, personne->numero == apres);
    const QStringList attendus =
        avant == apres ? QStringList() : QStringList{"documentChanged 2", "personneSelectionnee 1"};
    QCOMPARE(signauxVus, attendus);
}

void TestArbViewClavier::uneToucheFaitCeQueFaitUnClic()
{
    QTest::mouseClick(essai->dessin, Qt::LeftButton, {},
                      essai->dessin->PlaceDe(*Trouve(*essai->doc.arbre, 2)).center());
    QCOMPARE(Selection(), 2U);
    const QStringList duClic = std::exchange(signauxVus, {});
    Touche(Qt::Key_Home);
    QCOMPARE(signauxVus, duClic);
}

void TestArbViewClavier::lesFlechesDuPaveMarchentAussi()
{
    Touche(Qt::Key_Home, Qt::KeypadModifier);
    QCOMPARE(Selection(), 1U);
    Touche(Qt::Key_Up, Qt::KeypadModifier);
    QCOMPARE(Selection(), 2U);
}

void TestArbViewClavier::ctrlFlecheFaitDefiler()
{
    essai->defilement->resize(300, 200);
    Selectionne(4);
    const QScrollBar *vertical = essai->defilement->verticalScrollBar();
    const QScrollBar *horizontal = essai->defilement->horizontalScrollBar();
    QTRY_VERIFY(vertical->maximum() > 100 && horizontal->maximum() > 100);
    Touche(Qt::Key_Down, Qt::ControlModifier);
    Touche(Qt::Key_Right, Qt::ControlModifier);
    QCOMPARE(vertical->value(), 20);
    QCOMPARE(horizontal->value(), 20);
    Touche(Qt::Key_PageDown);
    QVERIFY(vertical->value() > 100);
    QCOMPARE(Selection(), 4U);
    QCOMPARE(signauxVus, QStringList());
}

void TestArbViewClavier::sansArbreRienNeSePasse_data()
{
    QTest::addColumn<Frappe>("frappe");
    QTest::newRow("haut") << Frappe{Qt::Key_Up};
    QTest::newRow("début") << Frappe{Qt::Key_Home};
    QTest::newRow("entrée") << Frappe{Qt::Key_Return};
    QTest::newRow("menu") << Frappe{Qt::Key_Menu};
    QTest::newRow("maj F10") << Frappe{Qt::Key_F10, Qt::ShiftModifier};
    QTest::newRow("lettre") << Frappe{Qt::Key_M};
    QTest::newRow("chiffre") << Frappe{Qt::Key_1};
    QTest::newRow("échap") << Frappe{Qt::Key_Escape};
    QTest::newRow("agrandir") << Frappe{Qt::Key_Plus, Qt::ControlModifier};
    QTest::newRow("tabulation") << Frappe{Qt::Key_Tab};
}

void TestArbViewClavier::sansArbreRienNeSePasse()
{
    QFETCH(const Frappe, frappe);
    delete std::exchange(essai->doc.arbre, nullptr);
    Q_EMIT essai->doc.documentChanged(0);
    signauxVus.clear();
    const QSize taille = essai->dessin->size();
    Touche(frappe.touche, frappe.avec);
    DemandeUnMenu(QContextMenuEvent::Keyboard, QPoint(5, 5));
    QCOMPARE(signauxVus, QStringList());
    QVERIFY(!essai->doc.arbre);
    QCOMPARE(essai->dessin->size(), taille);
}

void TestArbViewClavier::unArbreSansPersonneNeFaitRien()
{
    Ouvre(std::make_unique<Arbre>());
    signauxVus.clear();
    for (const Qt::Key touche : {Qt::Key_Up, Qt::Key_Home, Qt::Key_Right, Qt::Key_M, Qt::Key_1, Qt::Key_Return})
        Touche(touche);
    QCOMPARE(signauxVus, QStringList());
    QVERIFY(!essai->doc.arbre->selection);
}

void TestArbViewClavier::laPersonneChoisieSeVoit()
{
    essai->defilement->resize(260, 240);
    Ouvre(ArbreComplet(5));
    const QRect vue = essai->defilement->viewport()->rect();
    Touche(Qt::Key_Home);
    QVERIFY(vue.contains(DansLaVue()));
    const auto va = [this, &vue](Qt::Key touche, Qt::KeyboardModifiers avec, quint64 numero) {
        Touche(touche, avec);
        QCOMPARE(Selection(), numero);
        QVERIFY2(vue.contains(DansLaVue()), qPrintable(QDebug::toString(DansLaVue())));
    };
    for (const quint64 numero : {2, 4, 8, 16})
        va(Qt::Key_Up, {}, numero);
    for (quint64 numero = 17; numero <= 31; ++numero)
        va(Qt::Key_Right, {}, numero);
    for (const quint64 numero : {15, 7, 3, 1})
        va(Qt::Key_Down, {}, numero);
    for (const quint64 numero : {3, 7, 15, 31})
        va(Qt::Key_Up, Qt::ShiftModifier, numero);
    va(Qt::Key_1, {}, 1);
    // Scrolled away by hand, and back by a key that leads nowhere else.
    essai->defilement->verticalScrollBar()->setValue(0);
    essai->defilement->horizontalScrollBar()->setValue(0);
    QVERIFY(!vue.contains(DansLaVue()));
    va(Qt::Key_Home, {}, 1);
}

void TestArbViewClavier::lAffichageReduitMarcheAussi()
{
    essai->defilement->resize(200, 100);
    essai->doc.optionsParArbre = false;
    essai->doc.initPolicesEtTraitsMini();
    Ouvre(ArbreComplet(5));
    const QRect vue = essai->defilement->viewport()->rect();
    for (const quint64 numero : {1, 2, 4, 8, 16}) {
        Touche(Qt::Key_Up);
        QCOMPARE(Selection(), numero);
        QVERIFY(vue.contains(DansLaVue()));
        QCOMPARE(DansLaVue().size(), QSize(94, 56));
    }
    Tape("n31");
    QCOMPARE(Selection(), 31U);
    QVERIFY(vue.contains(DansLaVue()));
}

void TestArbViewClavier::unArbreAbimeSeParcourt_data()
{
    QTest::addColumn<std::function<void(Personne &)>>("bricole");
    using Bricole = std::function<void(Personne &)>;
    QTest::newRow("numéros en double") << Bricole(
        [](Personne &personne) { personne.numero = 1 + personne.numero % 3; });
    QTest::newRow("numéros absents") << Bricole([](Personne &personne) { personne.numero = 0; });
    QTest::newRow("numéros énormes") << Bricole([](Personne &personne) { personne.numero = ~personne.numero; });
    QTest::newRow("générations en désordre") << Bricole([](Personne &personne) {
        personne.numerogeneration = static_cast<unsigned short>(7919 * personne.numero % 5);
    });
    QTest::newRow("enfants inconnus") << Bricole([](Personne &personne) { personne.enfant = 999; });
    QTest::newRow("sans liens") << Bricole([](Personne &personne) { personne.ptrPere = personne.ptrMere = nullptr; });
    QTest::newRow("sans données") << Bricole([](Personne &personne) { delete std::exchange(personne.info, nullptr); });
}

void TestArbViewClavier::unArbreAbimeSeParcourt()
{
    QFETCH(const std::function<void(Personne &)>, bricole);
    auto arbre = ArbreComplet(4);
    for (Personne *personne = arbre->premiere; personne; personne = personne->suivante)
        bricole(*personne);
    Ouvre(std::move(arbre));
    const QList<Qt::Key> touches{Qt::Key_Home, Qt::Key_Up,   Qt::Key_Up,    Qt::Key_Right, Qt::Key_Right, Qt::Key_Down,
                                 Qt::Key_Left, Qt::Key_Down, Qt::Key_Right, Qt::Key_1,     Qt::Key_5,     Qt::Key_Up,
                                 Qt::Key_N,    Qt::Key_9,    Qt::Key_Down,  Qt::Key_Menu};
    for (const Qt::Key touche : touches) {
        Touche(touche);
        int choisies = 0;
        for (const Personne *personne = essai->doc.arbre->premiere; personne; personne = personne->suivante)
            choisies += personne->selectionnee ? 1 : 0;
        QCOMPARE(choisies, 1);
        QVERIFY(essai->doc.arbre->selection->selectionnee);
        QVERIFY(essai->defilement->viewport()->rect().contains(DansLaVue()));
    }
}

void TestArbViewClavier::entreeVautLeDoubleClic_data()
{
    QTest::addColumn<quint64>("selection");
    QTest::addColumn<Frappe>("frappe");
    QTest::addColumn<QStringList>("attendus");
    const QStringList doubleClic{"personneDoubleCliquee"};
    QTest::newRow("entrée") << quint64(2) << Frappe{Qt::Key_Return} << doubleClic;
    QTest::newRow("entrée du pavé") << quint64(2) << Frappe{Qt::Key_Enter, Qt::KeypadModifier} << doubleClic;
    QTest::newRow("sans sélection") << quint64(0) << Frappe{Qt::Key_Return} << QStringList();
    QTest::newRow("avec ctrl") << quint64(2) << Frappe{Qt::Key_Return, Qt::ControlModifier} << QStringList();
    QTest::newRow("avec alt") << quint64(2) << Frappe{Qt::Key_Return, Qt::AltModifier} << QStringList();
}

void TestArbViewClavier::entreeVautLeDoubleClic()
{
    QFETCH(const quint64, selection);
    QFETCH(const Frappe, frappe);
    QFETCH(const QStringList, attendus);
    Selectionne(selection);
    Touche(frappe.touche, frappe.avec);
    QCOMPARE(signauxVus, attendus);
    QCOMPARE(Selection(), selection);
}

void TestArbViewClavier::leMenuSOuvreSurLaPersonne_data()
{
    QTest::addColumn<bool>("parEvenement");
    QTest::addColumn<Frappe>("frappe");
    QTest::newRow("touche menu") << false << Frappe{Qt::Key_Menu};
    QTest::newRow("maj F10") << false << Frappe{Qt::Key_F10, Qt::ShiftModifier};
    QTest::newRow("demande du bureau") << true << Frappe{Qt::Key_Menu};
}

void TestArbViewClavier::leMenuSOuvreSurLaPersonne()
{
    QFETCH(const bool, parEvenement);
    QFETCH(const Frappe, frappe);
    essai->defilement->resize(260, 240);
    Ouvre(ArbreComplet(5));
    Selectionne(31);
    signauxVus.clear();
    QVERIFY(!essai->defilement->viewport()->rect().contains(DansLaVue()));
    if (parEvenement) {
        DemandeUnMenu(QContextMenuEvent::Keyboard, QPoint(5, 5));
    } else {
        Touche(frappe.touche, frappe.avec);
    }
    QCOMPARE(signauxVus, QStringList{"menuAuClavier 1"});
    QVERIFY(essai->defilement->viewport()->rect().contains(DansLaVue()));
    const QPoint dansLaVue = essai->defilement->viewport()->mapFromGlobal(pointDuMenu);
    QCOMPARE(dansLaVue, DansLaVue().center());
}

void TestArbViewClavier::leMenuSansSelectionEstLeGeneral()
{
    Touche(Qt::Key_Menu);
    QCOMPARE(signauxVus, QStringList{"menuAuClavier 0"});
    QVERIFY(QRect(essai->dessin->mapToGlobal(QPoint()), essai->dessin->size()).contains(pointDuMenu));
}

void TestArbViewClavier::leClicDroitNOuvrePasDeuxMenus()
{
    Selectionne(1);
    const QPoint ici = essai->dessin->PlaceDe(*essai->doc.arbre->selection).center();
    QTest::mouseClick(essai->dessin, Qt::RightButton, {}, ici);
    DemandeUnMenu(QContextMenuEvent::Mouse, ici);
    QCOMPARE(signauxVus, QStringList{"menuSurgissant 1"});
}

void TestArbViewClavier::lesLettresCherchent()
{
    Nomme(3, "LEFÈVRE");
    Nomme(5, "LE GALL");
    Nomme(7, "Élise");
    Tape("lefe");
    QCOMPARE(Selection(), 3U);
    QCOMPARE(signauxVus, QStringList({"documentChanged 2", "personneSelectionnee 1"}));
    Touche(Qt::Key_Escape);
    Tape("le g");
    QCOMPARE(Selection(), 5U);
    Touche(Qt::Key_Escape);
    Tape("É");
    QCOMPARE(Selection(), 7U);
    Touche(Qt::Key_Escape);
    Tape("è");
    QCOMPARE(Selection(), 7U);
    Touche(Qt::Key_Escape);
    Touche(Qt::Key_4, Qt::KeypadModifier);
    QCOMPARE(Selection(), 4U);
}

void TestArbViewClavier::leBlancNeCommencePas()
{
    Nomme(2, " ADAM");
    Touche(Qt::Key_Space);
    QCOMPARE(Selection(), 0U);
    Tape("a");
    QCOMPARE(Selection(), 0U);
}

void TestArbViewClavier::echapOublieLesLettres()
{
    Tape("n7");
    QCOMPARE(Selection(), 7U);
    Tape("4");
    QCOMPARE(Selection(), 7U);
    Touche(Qt::Key_Escape);
    Tape("4");
    QCOMPARE(Selection(), 4U);
}

void TestArbViewClavier::uneFlecheOublieLesLettres()
{
    Tape("n3");
    QCOMPARE(Selection(), 3U);
    Touche(Qt::Key_Down);
    Tape("4");
    QCOMPARE(Selection(), 4U);
}

void TestArbViewClavier::unAutreArbreOublieLesLettres()
{
    Tape("n");
    delete std::exchange(essai->doc.arbre, nullptr);
    Q_EMIT essai->doc.documentChanged(0);
    Ouvre(ArbreComplet(2));
    Tape("3");
    QCOMPARE(Selection(), 3U);
}

void TestArbViewClavier::uneCommandeNEstPasUneLettre_data()
{
    QTest::addColumn<Frappe>("frappe");
    QTest::newRow("ctrl") << Frappe{Qt::Key_N, Qt::ControlModifier};
    QTest::newRow("alt") << Frappe{Qt::Key_N, Qt::AltModifier};
    QTest::newRow("bureau") << Frappe{Qt::Key_N, Qt::MetaModifier};
    QTest::newRow("ctrl chiffre") << Frappe{Qt::Key_3, Qt::ControlModifier};
    QTest::newRow("retour arrière") << Frappe{Qt::Key_Backspace};
    QTest::newRow("suppression") << Frappe{Qt::Key_Delete};
    QTest::newRow("F5") << Frappe{Qt::Key_F5};
    QTest::newRow("échap") << Frappe{Qt::Key_Escape};
    QTest::newRow("ctrl entrée") << Frappe{Qt::Key_Return, Qt::ControlModifier};
}

void TestArbViewClavier::uneCommandeNEstPasUneLettre()
{
    QFETCH(const Frappe, frappe);
    Touche(frappe.touche, frappe.avec);
    QCOMPARE(Selection(), 0U);
    QCOMPARE(signauxVus, QStringList());
}

RAMELIER_TEST_MAIN(QApplication, TestArbViewClavier)
#include "tst_arbview_clavier.moc"
