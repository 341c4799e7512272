#include "fenetre.h"

#include "arbre.h"
#include "arbres.h"
#include "arbview.h"
#include "personne.h"
#include "ramelierdoc.h"
#include "ramelierview.h"

#include <QAction>
#include <QSettings>
#include <QStatusBar>
#include <QtTest>

#include <bit>

namespace {

QByteArray Element(const char *balise, const QString &texte)
{
    return texte.isEmpty() ? QByteArray()
                           : QByteArray("        <") + balise + '>' + texte.toUtf8() + "</" + balise + ">\n";
}

QString AvecDuree(const QString &texte, const QStatusBar &barre)
{
    const auto *minuterie = barre.findChild<QTimer *>(QString(), Qt::FindDirectChildrenOnly);
    return minuterie && minuterie->isActive() ? QStringLiteral("%1 (%2 ms)").arg(texte).arg(minuterie->interval())
                                              : texte;
}

std::vector<QByteArray> Mots(const QString &programme, const QStringList &arguments)
{
    std::vector<QByteArray> mots{QFile::encodeName(programme)};
    for (const QString &argument : arguments)
        mots.push_back(QFile::encodeName(argument));
    return mots;
}

std::vector<char *> Pointeurs(std::vector<QByteArray> &mots)
{
    std::vector<char *> argv;
    for (QByteArray &mot : mots)
        argv.push_back(mot.data());
    argv.push_back(nullptr);
    return argv;
}

}  // namespace

QByteArray ArbreEcrit(const QString &titre, const QList<PersonneEcrite> &personnes, int nombrePersonnes)
{
    const auto siPresent = [&personnes](quint64 numero) {
        const bool present = std::any_of(personnes.begin(), personnes.end(),
                                         [numero](const PersonneEcrite &autre) { return autre.numero == numero; });
        return QByteArray::number(present ? numero : 0);
    };
    int generations = 0;
    QByteArray texte;
    for (const PersonneEcrite &personne : personnes) {
        const int generation = static_cast<int>(std::bit_width(personne.numero)) - 1;
        generations = std::max(generations, generation + 1);
        texte += "    <personne>\n      <numero>" + QByteArray::number(personne.numero)
            + "</numero>\n      <numerogeneration>" + QByteArray::number(generation)
            + "</numerogeneration>\n      <pere>" + siPresent(2 * personne.numero) + "</pere>\n      <mere>"
            + siPresent(2 * personne.numero + 1) + "</mere>\n      <enfant>" + QByteArray::number(personne.numero / 2)
            + "</enfant>\n      <infopersonne>\n" + Element("nom", personne.nom) + Element("prenom", personne.prenom)
            + Element("lieunaissance", personne.lieuNaissance) + Element("fichtml", personne.fiche)
            + "      </infopersonne>\n    </personne>\n";
    }
    return "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n<!DOCTYPE xrlg>\n<xrlg version=\"1.0\">\n  <arbre>\n"
           "    <infoarbre>\n      <titrearbre>"
        + titre.toUtf8() + "</titrearbre>\n    </infoarbre>\n    <nombrepersonnes>"
        + QByteArray::number(nombrePersonnes) + "</nombrepersonnes>\n" + texte + "    <nombregenerations>"
        + QByteArray::number(generations) + "</nombregenerations>\n  </arbre>\n</xrlg>\n";
}

QByteArray OptionsEcrites(int largeurCadre)
{
    return "Fichier créé par Ramelier pour enregistrer les formats du fichier .rlg associé\n"
           "NE PAS MODIFIER MANUELLEMENT\n10\n20\n"
        + QByteArray::number(largeurCadre)
        + "\n42\n10\n15\n15\n1\n1\n0\n0\n0\nHelvetica\n8\nHelvetica\n14\n75\n0\nHelvetica\n12\n50\n0\n"
          "Helvetica\n30\n75\n0\n0\n0\n0\n";
}

Fenetre::Fenetre(const QStringList &arguments, const QString &programme)
    : Fenetre(Mots(programme, arguments))
{
}

Fenetre::Fenetre(std::vector<QByteArray> mots)
    : Fenetre(static_cast<int>(mots.size()), Pointeurs(mots))
{
}

Fenetre::Fenetre(int argc, std::vector<char *> argv)
    : RamelierApp(argc, argv.data())
{
}

const QList<ActionNommee> &ActionsNommees()
{
    using App = RamelierApp;
    static const QList<ActionNommee> actions{
        {QStringLiteral("actFileNew"), &App::actFileNew},
        {QStringLiteral("actFileOpen"), &App::actFileOpen},
        {QStringLiteral("actFileSave"), &App::actFileSave},
        {QStringLiteral("actFileSaveAs"), &App::actFileSaveAs},
        {QStringLiteral("actFilePrint"), &App::actFilePrint},
        {QStringLiteral("actFileQuit"), &App::actFileQuit},
        {QStringLiteral("actAnnuler"), &App::actAnnuler},
        {QStringLiteral("actModifier"), &App::actModifier},
        {QStringLiteral("actSuppPers"), &App::actSuppPers},
        {QStringLiteral("actAjouterPere"), &App::actAjouterPere},
        {QStringLiteral("actAjouterMere"), &App::actAjouterMere},
        {QStringLiteral("actEditFicheHTML"), &App::actEditFicheHTML},
        {QStringLiteral("actEditPdG"), &App::actEditPdG},
        {QStringLiteral("actFormatsDessins"), &App::actFormatsDessins},
        {QStringLiteral("actPoliceCaract"), &App::actPoliceCaract},
        {QStringLiteral("actPreferences"), &App::actPreferences},
        {QStringLiteral("actModeTravail"), &App::actModeTravail},
        {QStringLiteral("actAffFicheHTML"), &App::actAffFicheHTML},
        {QStringLiteral("actViewToolBar"), &App::actViewToolBar},
        {QStringLiteral("actViewStatusBar"), &App::actViewStatusBar},
        {QStringLiteral("actModeAffichage"), &App::actModeAffichage},
        {QStringLiteral("actAssembleArbres"), &App::actAssembleArbres},
        {QStringLiteral("actImporteGED"), &App::actImporteGED},
        {QStringLiteral("actExporteGED"), &App::actExporteGED},
        {QStringLiteral("actAide"), &App::actAide},
        {QStringLiteral("actHelpAbout"), &App::actHelpAbout},
        {QStringLiteral("actHelpAboutQt"), &App::actHelpAboutQt},
        {QStringLiteral("actWhatsThis"), &App::actWhatsThis},
    };
    return actions;
}

QString NomsDe(const RamelierApp &fenetre, const QList<QAction *> &actions)
{
    QStringList noms;
    for (const QAction *action : actions) {
        QString nom = action->isSeparator() ? QStringLiteral("|") : QStringLiteral("?") + action->text();
        for (const ActionNommee &candidate : ActionsNommees()) {
            if (fenetre.*candidate.membre == action)
                nom = candidate.nom;
        }
        noms += nom;
    }
    return noms.join(u' ');
}

QStringList ActionsActives(const RamelierApp &fenetre)
{
    QStringList noms;
    for (const ActionNommee &action : ActionsNommees()) {
        if ((fenetre.*action.membre)->isEnabled())
            noms += action.nom;
    }
    noms.sort();
    return noms;
}

bool EstDessine(RamelierApp &fenetre)
{
    return QTest::qWaitForWindowExposed(&fenetre)
        && QTest::qWaitFor([&fenetre] { return fenetre.doc->canevasCalcule; });
}

void Clique(RamelierApp &fenetre, quint64 numero, Qt::MouseButton bouton)
{
    QVERIFY(EstDessine(fenetre));
    const Personne *personne = Trouve(*fenetre.doc->arbre, numero);
    QVERIFY(personne);
    QTest::mouseClick(fenetre.view->vue(), bouton, {}, QPoint(int(personne->x) + 20, int(personne->y) + 20));
}

void CliqueDansLeVide(RamelierApp &fenetre, Qt::MouseButton bouton)
{
    QVERIFY(EstDessine(fenetre));
    QTest::mouseClick(fenetre.view->vue(), bouton, {}, QPoint(1, 1));
}

Journal::Journal(RamelierApp &fenetre)
{
    const QStatusBar *barre = fenetre.statusBar();
    connect(barre, &QStatusBar::messageChanged, this,
            [this, barre](const QString &texte) { lignes += AvecDuree(texte, *barre); });
    connect(&fenetre, &QWidget::windowTitleChanged, this,
            [this](const QString &titre) { lignes += QStringLiteral("= ") + titre; });
    qApp->installEventFilter(this);
}

bool Journal::eventFilter(QObject *objet, QEvent *evenement)
{
    if (const auto *dialogue = qobject_cast<QDialog *>(objet); dialogue && evenement->type() == QEvent::Show)
        lignes += u'[' + dialogue->windowTitle() + u']';
    return false;
}

QString StatutDe(const RamelierApp &fenetre)
{
    const QStatusBar *barre = fenetre.findChild<QStatusBar *>();
    return AvecDuree(barre->currentMessage(), *barre);
}

void EffaceReglages()
{
    QSettings(QStringLiteral("ProgrammesLY"), QStringLiteral("ramelier")).clear();
}
