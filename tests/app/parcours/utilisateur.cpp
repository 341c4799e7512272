#include "utilisateur.h"

#include "arbre.h"
#include "arbview.h"
#include "disposition.h"
#include "fenetre.h"
#include "ficxrlg.h"
#include "personne.h"
#include "ramelierdoc.h"
#include "ramelierview.h"
#include "unites.h"

#include <QAction>

namespace {

constexpr qsizetype evenementsRetenus = 30;

const char *NomDe(int geste)
{
    static const char *const noms[] = {
        "sélectionner",  "cliquer à côté", "double clic", "modifier", "père",   "mère",        "supprimer", "annuler",
        "page de garde", "mode",           "affichage",   "formats",  "sauver", "sauver sous", "ouvrir",    "nouveau"};
    return noms[geste];
}

QString LitFichier(const QString &chemin, Arbre &arbre)
{
    QString dossier = QFileInfo(chemin).absolutePath();
    return readFicXRLG(chemin, dossier, &arbre) == 0 ? QString() : QStringLiteral("illisible : ") + chemin;
}

QString Positions(const Arbre &arbre)
{
    QString positions;
    for (const Personne *personne = arbre.premiere; personne; personne = personne->suivante)
        positions += QStringLiteral("%1:%2,%3 ").arg(personne->numero).arg(personne->x).arg(personne->y);
    return positions;
}

}  // namespace

Utilisateur::Utilisateur(Fenetre &laFenetre, const Dossier &leDossier, quint32 graine, const Profil &leProfil,
                         const QString &chemin)
    : fenetre(laFenetre)
    , dossier(leDossier)
    , tirage(graine)
    , profil(leProfil)
{
    Arbre lu;
    if (!LitFichier(chemin, lu).isEmpty())
        qFatal("le premier fichier est illisible");
    fichiers[chemin] = {ContenuDe(lu), 0};
    modele.Ouvre(chemin, ContenuDe(lu), 0);
    const auto dispose = [this](int code) { dispositionPerimee = dispositionPerimee && code == 2; };
    QObject::connect(fenetre.doc, &RamelierDoc::documentChanged, &ecoute, dispose);
    QObject::connect(&fenetre, &RamelierApp::docChanged, &ecoute, dispose);
}

Utilisateur::Geste Utilisateur::Choisit()
{
    if (!suite.isEmpty())
        return suite.dequeue();
    const bool plein = modele.contenu.personnes.size() >= profil.personnes;
    // Without a tree, or in consultation, a user soon changes that.
    const int presse = modele.arbreOuvert ? 1 : 40;
    const QList<std::pair<Geste, int>> chances{
        {Selectionner, profil.selectionner * 10},
        {CliquerACote, profil.selectionner},
        {DoubleCliquer, profil.selectionner},
        {Modifier, profil.modifier * 10},
        {AjouterPere, profil.ajouter * (plein ? 1 : 6)},
        {AjouterMere, profil.ajouter * (plein ? 1 : 6)},
        {Supprimer, profil.supprimer * (plein ? 15 : 3)},
        {Annuler, profil.annuler * 10},
        {EditerPage, 20},
        {ChangerMode, profil.mode * (modele.consultation ? 80 : 8)},
        {ChangerAffichage, 12},
        {ChangerFormats, 6},
        {Sauver, profil.sauver * 10},
        {SauverSous, profil.fichiers * 3},
        {Ouvrir, profil.fichiers * 3 * presse},
        {Commencer, profil.fichiers * 2 * presse},
    };
    int somme = 0;
    for (const auto &[geste, chance] : chances)
        somme += chance;
    int tire = tirage.Parmi(somme);
    for (const auto &[geste, chance] : chances) {
        if ((tire -= chance) < 0)
            return geste;
    }
    return Selectionner;
}

QString Utilisateur::Joue()
{
    const Geste geste = Choisit();
    if (derniers.size() == evenementsRetenus)
        derniers.removeFirst();
    derniers += QString::fromUtf8(NomDe(geste));
    Fait(geste);
    // As the event loop does between two events: paints what changed.
    QCoreApplication::processEvents();
    return Verifie();
}

void Utilisateur::Note(const QString &detail)
{
    derniers.last() += u' ' + detail;
}

void Utilisateur::NoteLeFait(const QString &fait)
{
    ++faits[fait];
    Note(fait);
}

void Utilisateur::Fait(Geste geste)
{
    switch (geste) {
    case Selectionner:
        return SelectionnePersonne();
    case CliquerACote:
        return CliqueACote();
    case DoubleCliquer:
        return DoubleClique();
    case Modifier:
        return ModifieLaSelection([this] { Lance(fenetre.actModifier); });
    case AjouterPere:
    case AjouterMere:
        return AjouteUnParent(geste == AjouterPere);
    case Supprimer:
        return SupprimeLaSelection();
    case Annuler:
        return AnnuleLeDernier();
    case EditerPage:
        return EditeLaPage();
    case ChangerMode:
        return ChangeLeMode();
    case ChangerAffichage:
        return ChangeLAffichage();
    case ChangerFormats:
        return ChangeLesFormats();
    case Sauver:
        return Sauve();
    case SauverSous:
        return SauveSous();
    case Ouvrir:
        return OuvreUnFichier();
    case Commencer:
        return CommenceUnArbre();
    }
}

QString Utilisateur::Verifie()
{
    const QStringList ecarts = pilote.PrendEcarts();
    if (!ecarts.isEmpty())
        return ecarts.join(u'\n');
    if (const QString ecart = modele.EcartAvec(fenetre); !ecart.isEmpty())
        return ecart;
    if (const QString ecart = VerifieLesFichiers(); !ecart.isEmpty())
        return ecart;
    return VerifieLaDisposition();
}

QString Utilisateur::VerifieLaDisposition()
{
    if (!modele.arbreOuvert || dispositionPerimee)
        return {};
    // Clicks go where the persons are: laid out again, nobody may move.
    Arbre &arbre = *fenetre.doc->arbre;
    const QString avant = Positions(arbre);
    const float echelle = EchelleDeResolution(fenetre.view->vue()->logicalDpiX());
    DisposeArbre(arbre, fenetre.doc->formats, echelle, echelle);
    return Positions(arbre) == avant ? QString() : QStringLiteral("mal disposé : ") + avant;
}

QString Utilisateur::VerifieLesFichiers()
{
    while (!aVerifier.isEmpty()) {
        const QString chemin = aVerifier.takeFirst();
        const Fichier &attendu = fichiers[chemin];
        Arbre lu;
        QString ecart = LitFichier(chemin, lu);
        if (ecart.isEmpty())
            ecart = DefautDe(lu, attendu.compte);
        if (ecart.isEmpty())
            ecart = Difference(attendu.contenu, ContenuDe(lu));
        if (!ecart.isEmpty())
            return QStringLiteral("fichier écrit : ") + ecart;
    }
    return {};
}
