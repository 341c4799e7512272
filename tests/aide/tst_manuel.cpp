#include "fenetre.h"
#include "navigateurfiche.h"

#include <QAction>
#include <QDirIterator>
#include <QFileInfo>
#include <QImage>
#include <QMenu>
#include <QMenuBar>
#include <QRegularExpression>
#include <QScrollBar>
#include <QStringDecoder>
#include <QTextDocument>

namespace {

constexpr int largeurMax = 640;

/// The window that readers see, at its narrowest, noting what a page asks for and does not get.
class NavigateurTemoin : public NavigateurFiche
{
public:
    explicit NavigateurTemoin(const QString &unDossier)
        : NavigateurFiche(nullptr)
        , dossier(unDossier)
    {
        resize(700, 500);
    }

    QVariant loadResource(int type, const QUrl &nom) override
    {
        const QVariant contenu = NavigateurFiche::loadResource(type, nom);
        const QString chemin = source().resolved(nom).toLocalFile();
        if (!contenu.isValid() || !QFileInfo(chemin).isFile())
            manquantes += dossier.relativeFilePath(chemin);
        return contenu;
    }

    QStringList manquantes;  ///< from the manual's folder

private:
    QDir dossier;
};

/// The values of an attribute in the tags of a page; what the text shows of HTML does not count.
QStringList Attributs(const QString &source, const QString &motif)
{
    static const QRegularExpression balise(QStringLiteral("<!--.*?-->|<[a-z][^>]*>"),
                                           QRegularExpression::CaseInsensitiveOption
                                               | QRegularExpression::DotMatchesEverythingOption);
    const QRegularExpression attribut(QStringLiteral("\\s(?:%1)\\s*=\\s*[\"']([^\"']*)[\"']").arg(motif),
                                      QRegularExpression::CaseInsensitiveOption);
    QStringList valeurs;
    for (QRegularExpressionMatchIterator i = balise.globalMatch(source); i.hasNext();) {
        const QString texte = i.next().captured();
        for (QRegularExpressionMatchIterator k = attribut.globalMatch(texte); k.hasNext();)
            valeurs += k.next().captured(1);
    }
    return valeurs;
}

QByteArray Octets(const QString &chemin)
{
    QFile fichier(chemin);
    return fichier.open(QIODevice::ReadOnly) ? fichier.readAll() : QByteArray();
}

/// A manual in a folder, followed from its index.html over every link and picture.
class Manuel
{
public:
    explicit Manuel(const QString &unDossier)
        : dossier(QFileInfo(unDossier).canonicalFilePath())
    {
        aSuivre += QStringLiteral("index.html");
        while (!aSuivre.isEmpty()) {
            const QString page = aSuivre.takeFirst();
            if (!atteints.contains(page))
                LitPage(page);
        }
        for (const auto &[ou, page, ancre] : std::as_const(liensAncres)) {
            if (!Attributs(sources.value(page), QStringLiteral("name|id")).contains(ancre))
                Note(ou, QStringLiteral("pas d'ancre ") + page + u'#' + ancre);
        }
        ChercheLesOublies();
    }

    [[nodiscard]] const QStringList &Defauts() const { return defauts; }
    [[nodiscard]] QStringList Pages() const { return sources.keys(); }
    /// What stands in bold on its pages, as a reader reads it.
    [[nodiscard]] QStringList MotsEnGras() const
    {
        QStringList mots;
        static const QRegularExpression gras(QStringLiteral("<b>(.*?)</b>"),
                                             QRegularExpression::DotMatchesEverythingOption);
        for (const QString &source : sources) {
            for (QRegularExpressionMatchIterator i = gras.globalMatch(source); i.hasNext();) {
                QTextDocument lu;
                lu.setHtml(i.next().captured(1));
                mots += lu.toPlainText().replace(QChar(QChar::Nbsp), u' ');
            }
        }
        return mots;
    }

private:
    struct LienAncre
    {
        QString ou;
        QString page;
        QString ancre;
    };

    void Note(const QString &ou, const QString &defaut) { defauts += ou + QStringLiteral(" : ") + defaut; }

    void LitPage(const QString &page)
    {
        atteints += page;
        const QString chemin = dossier + u'/' + page;
        if (!QFileInfo(chemin).isFile()) {
            Note(page, QStringLiteral("absente"));
            return;
        }
        const QByteArray octets = Octets(chemin);
        QStringDecoder utf8(QStringConverter::Utf8, QStringConverter::Flag::Stateless);
        const QString source = utf8.decode(octets);
        if (utf8.hasError())
            Note(page, QStringLiteral("n'est pas en UTF-8"));
        if (!source.contains(QStringLiteral("charset=utf-8"), Qt::CaseInsensitive))
            Note(page, QStringLiteral("sans jeu de caractères"));
        sources.insert(page, source);
        for (const QString &lien : Attributs(source, QStringLiteral("href")))
            SuitLien(page, lien);
        for (const QString &image : Attributs(source, QStringLiteral("src")))
            RegardeImage(page, image);
        Affiche(page, chemin);
    }

    void Affiche(const QString &page, const QString &chemin)
    {
        NavigateurTemoin navigateur(dossier);
        navigateur.setSource(QUrl::fromLocalFile(chemin));
        navigateur.show();
        navigateur.document()->size();  // pictures are asked for when the page is laid out
        QCoreApplication::processEvents();
        if (navigateur.documentTitle().trimmed().isEmpty())
            Note(page, QStringLiteral("sans titre"));
        if (navigateur.horizontalScrollBar()->maximum() > 0)
            Note(page, QStringLiteral("plus large que la fenêtre"));
        if (!navigateur.manquantes.isEmpty())
            Note(page, QStringLiteral("l'afficheur ne trouve pas ") + navigateur.manquantes.join(u' '));
    }

    /// The file that \a lien of \a page leads to, from the folder; empty when it may not lead there.
    QString Cible(const QString &page, const QUrl &lien)
    {
        if (!lien.scheme().isEmpty() || !lien.host().isEmpty()) {
            Note(page, QStringLiteral("lien vers l'extérieur ") + lien.toString());
            return {};
        }
        if (lien.path().isEmpty())
            return page;
        const QString cible = QDir::cleanPath(QFileInfo(page).path() + u'/' + lien.path());
        if (cible.startsWith(QStringLiteral("..")) || lien.path().startsWith(u'/')) {
            Note(page, QStringLiteral("lien hors du manuel ") + lien.toString());
            return {};
        }
        return cible;
    }

    void SuitLien(const QString &page, const QString &texte)
    {
        const QUrl lien(texte);
        const QString cible = Cible(page, lien);
        if (cible.isEmpty())
            return;
        if (!QFileInfo(dossier + u'/' + cible).isFile()) {
            Note(page, QStringLiteral("lien brisé ") + texte);
            return;
        }
        if (lien.hasFragment())
            liensAncres += LienAncre{page, cible, lien.fragment()};
        if (cible.endsWith(QStringLiteral(".html")))
            aSuivre += cible;
        else
            atteints += cible;
    }

    void RegardeImage(const QString &page, const QString &texte)
    {
        const QString cible = Cible(page, QUrl(texte));
        if (cible.isEmpty())
            return;
        atteints += cible;
        const QImage image(dossier + u'/' + cible);
        if (image.isNull())
            Note(page, QStringLiteral("image illisible ") + texte);
        else if (image.width() > largeurMax)
            Note(page, QStringLiteral("image large de %1 points %2").arg(image.width()).arg(texte));
    }

    void ChercheLesOublies()
    {
        for (QDirIterator i(dossier, QDir::Files | QDir::Hidden, QDirIterator::Subdirectories); i.hasNext();) {
            const QString fichier = QDir(dossier).relativeFilePath(i.next());
            if (!atteints.contains(fichier))
                Note(fichier, QStringLiteral("aucune page n'y mène"));
        }
    }

    QString dossier;
    QStringList aSuivre;
    QStringList atteints;
    QMap<QString, QString> sources;  ///< by page
    QList<LienAncre> liensAncres;
    QStringList defauts;
};

/// A sound manual of two pages in a scratch folder.
class PetitManuel
{
public:
    PetitManuel()
    {
        QDir(Chemin()).mkdir(QStringLiteral("images"));
        Ecrit("style.css", "h1 { color: red; }\n");
        Ecrit("index.html", Page("<p><a href=\"suite.html#loin\">Suite</a> <img src=\"images/a.png\"></p>"));
        Ecrit("suite.html", Page("<h2><a name=\"loin\">Loin</a></h2><p><a href=\"index.html\">Sommaire</a></p>"));
        Dessine("images/a.png", largeurMax);
    }

    [[nodiscard]] QString Chemin(const QString &nom = {}) const { return dossier.filePath(nom); }
    void Ecrit(const char *nom, const QByteArray &contenu) const
    {
        QFile fichier(Chemin(nom));
        QVERIFY(fichier.open(QIODevice::WriteOnly) && fichier.write(contenu) == contenu.size());
    }
    void Dessine(const char *nom, int largeur) const
    {
        QImage image(largeur, 2, QImage::Format_RGB32);
        image.fill(Qt::white);
        QVERIFY(image.save(Chemin(nom)));
    }
    static QByteArray Page(const QByteArray &corps, const QByteArray &titre = "Titre",
                           const QByteArray &jeu = "; charset=utf-8")
    {
        return "<html><head><meta http-equiv=\"Content-Type\" content=\"text/html" + jeu + "\"><title>" + titre
            + "</title><link rel=\"stylesheet\" type=\"text/css\" href=\"style.css\"></head><body><h1>Été</h1>" + corps
            + "</body></html>";
    }

private:
    QTemporaryDir dossier;
};

using Alteration = std::function<void(const PetitManuel &)>;

}  // namespace

Q_DECLARE_METATYPE(Alteration)

/// The manual holds together, and speaks of every command.
class TestManuel : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void leManuelNAAucunDefaut_data();
    void leManuelNAAucunDefaut();
    void unManuelSainNAAucunDefaut();
    void unDefautEstTrouve_data();
    void unDefautEstTrouve();
    void chaqueCommandeYFigure();
};

void TestManuel::leManuelNAAucunDefaut_data()
{
    QTest::addColumn<QString>("dossier");
    QTest::addColumn<int>("pagesAuMoins");
    QTest::newRow("tout le manuel") << QStringLiteral(RAMELIER_MANUEL) << 19;
    // It is also installed alone, for the editor on its own.
    QTest::newRow("celui de l'éditeur seul") << QStringLiteral(RAMELIER_MANUEL "/editeur") << 1;
}

void TestManuel::leManuelNAAucunDefaut()
{
    QFETCH(QString, dossier);
    QFETCH(int, pagesAuMoins);
    const Manuel manuel(dossier);
    QCOMPARE(manuel.Defauts().join(u'\n'), QString());
    QVERIFY2(manuel.Pages().size() >= pagesAuMoins, qPrintable(manuel.Pages().join(u' ')));
}

void TestManuel::unManuelSainNAAucunDefaut()
{
    const PetitManuel petit;
    const Manuel manuel(petit.Chemin());
    QCOMPARE(manuel.Defauts(), QStringList());
    QCOMPARE(manuel.Pages(), QStringList({"index.html", "suite.html"}));
}

void TestManuel::unDefautEstTrouve_data()
{
    QTest::addColumn<Alteration>("altere");
    QTest::addColumn<QStringList>("defauts");
    const auto ligne = [](const char *nom, const Alteration &altere, const QStringList &defauts) {
        QTest::newRow(nom) << altere << defauts;
    };
    const auto suite = [](const QByteArray &page) {
        return [page](const PetitManuel &petit) { petit.Ecrit("suite.html", page); };
    };
    const QByteArray loin = "<h2 id=\"loin\">Loin</h2>";
    ligne("lien brisé", suite(PetitManuel::Page(loin + "<a href=\"rien.html\">x</a>")),
          {"suite.html : lien brisé rien.html"});
    ligne("ancre absente", suite(PetitManuel::Page("<h2>Loin</h2>")), {"index.html : pas d'ancre suite.html#loin"});
    ligne("ancre absente de la page même", suite(PetitManuel::Page(loin + "<a href=\"#pres\">x</a>")),
          {"suite.html : pas d'ancre suite.html#pres"});
    ligne("lien vers un site", suite(PetitManuel::Page(loin + "<a href=\"http://exemple.invalid/\">x</a>")),
          {"suite.html : lien vers l'extérieur http://exemple.invalid/"});
    ligne("lien vers un fichier", suite(PetitManuel::Page(loin + "<a href=\"file:///etc/hosts\">x</a>")),
          {"suite.html : lien vers l'extérieur file:///etc/hosts"});
    ligne("lien hors du manuel", suite(PetitManuel::Page(loin + "<a href=\"../autre.html\">x</a>")),
          {"suite.html : lien hors du manuel ../autre.html"});
    ligne("titre vide", suite(PetitManuel::Page(loin, " ")), {"suite.html : sans titre"});
    ligne("jeu de caractères absent", suite(PetitManuel::Page(loin, "Titre", "")),
          {"suite.html : sans jeu de caractères"});
    ligne("octets qui ne sont pas de l'UTF-8", suite(PetitManuel::Page(loin + "\xE9t\xE9")),
          {"suite.html : n'est pas en UTF-8"});
    ligne("page oubliée", [](const PetitManuel &petit) { petit.Ecrit("oubli.html", PetitManuel::Page("x")); },
          {"oubli.html : aucune page n'y mène"});
    ligne("image oubliée", [](const PetitManuel &petit) { petit.Dessine("images/b.png", 2); },
          {"images/b.png : aucune page n'y mène"});
    ligne("image absente", [](const PetitManuel &petit) { QFile::remove(petit.Chemin("images/a.png")); },
          {"index.html : image illisible images/a.png", "index.html : l'afficheur ne trouve pas images/a.png"});
    ligne("image illisible", [](const PetitManuel &petit) { petit.Ecrit("images/a.png", "pas une image"); },
          {"index.html : image illisible images/a.png"});
    ligne("image trop large", [](const PetitManuel &petit) { petit.Dessine("images/a.png", 641); },
          {"index.html : image large de 641 points images/a.png"});
    ligne("page trop large", suite(PetitManuel::Page(loin + "<table width=\"900\"><tr><td>x</td></tr></table>")),
          {"suite.html : plus large que la fenêtre"});
    ligne("feuille de style absente", [](const PetitManuel &petit) { QFile::remove(petit.Chemin("style.css")); },
          {"index.html : lien brisé style.css", "index.html : l'afficheur ne trouve pas style.css",
           "suite.html : lien brisé style.css", "suite.html : l'afficheur ne trouve pas style.css"});
    ligne("sommaire absent", [](const PetitManuel &petit) { QFile::remove(petit.Chemin("index.html")); },
          {"index.html : absente", "images/a.png : aucune page n'y mène", "style.css : aucune page n'y mène",
           "suite.html : aucune page n'y mène"});
}

void TestManuel::unDefautEstTrouve()
{
    QFETCH(Alteration, altere);
    QFETCH(QStringList, defauts);
    const PetitManuel petit;
    altere(petit);
    QStringList trouves = Manuel(petit.Chemin()).Defauts();
    trouves.sort();
    defauts.sort();
    QCOMPARE(trouves, defauts);
}

void TestManuel::chaqueCommandeYFigure()
{
    const QStringList mots = Manuel(QStringLiteral(RAMELIER_MANUEL)).MotsEnGras();
    Fenetre fenetre;
    QStringList textes;
    const auto note = [&textes](const QAction *action) { textes += action->text().remove(u'&').trimmed(); };
    for (const QAction *menu : fenetre.menuBar()->actions()) {
        note(menu);
        for (const QAction *action : menu->menu()->actions()) {
            if (!action->isSeparator())
                note(action);
        }
    }
    QCOMPARE(textes.size(), 6 + 27);
    // The names that two commands take in turn.
    fenetre.slotModeTravail();
    note(fenetre.actModeTravail);
    fenetre.slotModeTravail();
    note(fenetre.actModeTravail);
    textes += QStringLiteral("Annuler annuler");
    for (const QString &texte : std::as_const(textes))
        QVERIFY2(mots.contains(texte), qPrintable(texte));
}

RAMELIER_TEST_BUREAU_MAIN(TestManuel)
#include "tst_manuel.moc"
