#include "utilisateur.h"

#include "arbre.h"
#include "arbview.h"
#include "disposition.h"
#include "fenetre.h"
#include "ficarbre.h"
#include "personne.h"
#include "ramelierdoc.h"
#include "ramelierview.h"
#include "unites.h"

#include <QApplication>
#include <QFileInfo>

namespace {

QString LitFichier(const QString &chemin, Arbre &arbre)
{
    QString dossier = QFileInfo(chemin).absolutePath();
    return LitFichierArbre(chemin, dossier, &arbre) == 0 ? QString() : QStringLiteral("illisible : ") + chemin;
}

QString Positions(const Arbre &arbre)
{
    QString positions;
    for (const Personne *personne = arbre.premiere; personne; personne = personne->suivante)
        positions += QStringLiteral("%1:%2,%3 ").arg(personne->numero).arg(personne->x).arg(personne->y);
    return positions;
}

}  // namespace

Utilisateur::Utilisateur(const Dossier &leDossier, quint32 graine, const Profil &leProfil, const QString &chemin)
    : partie(leDossier, graine)
    , profil(leProfil)
    , fiches(partie)
    , improvisation(partie)
{
    Arbre lu;
    if (!LitFichier(chemin, lu).isEmpty())
        qFatal("le premier fichier est illisible");
    fichiers[chemin] = {ContenuDe(lu), 0};
    fiches.EcritLesFiches();
    modele.Ouvre(chemin, ContenuDe(lu), 0);
    LanceAvec({chemin});
}

Utilisateur::~Utilisateur() = default;

QList<Utilisateur::DefGeste> Utilisateur::Gestes() const
{
    using Moi = Utilisateur;
    const bool plein = modele.contenu.personnes.size() >= profil.personnes;
    // Without a tree, or in consultation, a user soon changes that.
    const int presse = modele.arbreOuvert ? 1 : 40;
    return {
        {"sélectionner", &Moi::SelectionnePersonne, profil.selectionner * 10},
        {"cliquer à côté", &Moi::CliqueACote, profil.selectionner},
        {"double clic", &Moi::DoubleClique, profil.selectionner},
        {"flèche", &Moi::SuitUneFleche, profil.selectionner * 2},
        {"numéro", &Moi::TapeUnNumero, profil.selectionner},
        {"modifier", &Moi::Modifie, profil.modifier * 10},
        {"père", &Moi::AjouteUnPere, profil.ajouter * (plein ? 1 : 6)},
        {"mère", &Moi::AjouteUneMere, profil.ajouter * (plein ? 1 : 6)},
        {"supprimer", &Moi::SupprimeLaSelection, profil.supprimer * (plein ? 15 : 3)},
        {"annuler", &Moi::AnnuleLeDernier, profil.annuler * 10},
        {"page de garde", &Moi::EditeLaPage, 20},
        {"mode", &Moi::ChangeLeMode, profil.mode * (modele.consultation ? 80 : 8)},
        {"affichage", &Moi::ChangeLAffichage, 12},
        {"formats", &Moi::ChangeLesFormats, 8},
        {"polices", &Moi::ChangeLesPolices, 8},
        {"préférences", &Moi::ChangeLesPreferences, 8},
        {"barres", &Moi::MontreOuCacheUneBarre, 10},
        {"défilement", &Moi::TireUneBarre, 30},
        {"taille", &Moi::ChangeLaTaille, 12},
        {"à propos", &Moi::DemandeQuiEstCe, 6},
        {"qu'est-ce", &Moi::DemandeQuoi, 4},
        {"sauver", &Moi::Sauve, profil.sauver * 10},
        {"sauver sous", &Moi::SauveSous, profil.fichiers * 4},
        {"ouvrir", &Moi::OuvreUnFichier, profil.fichiers * 4 * presse},
        {"nouveau", &Moi::CommenceUnArbre, profil.fichiers * 2 * presse},
        {"imprimer", &Moi::Imprime, 5},
        {"importer", &Moi::ImporteUnGED, profil.echanges * 4},
        {"réimporter", &Moi::ImporteUneExportation, profil.echanges * 3},
        {"exporter", &Moi::ExporteEnGED, profil.echanges * 4},
        {"assembler", &Moi::AssembleDeuxArbres, profil.echanges * 4},
        {"ouvrir un fichier abîmé", &Moi::OuvreUnFichierAbime, profil.desordre * 8},
        {"assembler un arbre abîmé", &Moi::AssembleAvecUnAbime, profil.desordre * 2},
        {"afficher une fiche", &Moi::AfficheLaFiche, profil.fiches * 6},
        {"éditer une fiche", &Moi::EditeLaFiche, profil.fiches * 8},
        {"aide", &Moi::AfficheLAide, profil.fiches},
        {"éditeur seul", &Moi::OuvreLEditeurSeul, profil.fiches * 2},
        {"dans une fiche", &Moi::UtiliseUneFiche, fiches.Nombre() == 0 ? 0 : profil.fiches * 50},
        {"quitter", &Moi::FermeEtRouvre, 5},
    };
}

Utilisateur::DefGeste Utilisateur::Choisit()
{
    const QList<DefGeste> gestes = Gestes();
    QList<Partie::Chance> chances;
    for (const DefGeste &geste : gestes)
        chances += {QString::fromUtf8(geste.nom), geste.chance};
    return gestes.at(partie.Choisit(chances));
}

QString Utilisateur::Joue()
{
    ecartDuGeste.clear();
    if (desordre > 0) {
        partie.Commence("improviser");
        Improvise();
    } else if (!suite.isEmpty()) {
        const auto [nom, geste] = suite.dequeue();
        partie.Commence(nom);
        (this->*geste)();
    } else {
        const DefGeste choisi = Choisit();
        partie.Commence(QString::fromUtf8(choisi.nom));
        (this->*choisi.geste)();
    }
    // As the event loop does between two events: paints what changed, frees what was closed.
    QCoreApplication::processEvents();
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    return Verifie();
}

QString Utilisateur::Verifie()
{
    const QStringList ecarts = pilote.PrendEcarts();
    if (!ecarts.isEmpty())
        return ecarts.join(u'\n');
    if (!ecartDuGeste.isEmpty())
        return ecartDuGeste;
    if (const QString ecart = VerifieLesFenetres(); !ecart.isEmpty())
        return ecart;
    if (desordre > 0)
        return VerifieSansModele();
    if (const QString ecart = modele.EcartAvec(*fenetre); !ecart.isEmpty())
        return ecart;
    if (const QString ecart = fiches.Ecart(*fenetre); !ecart.isEmpty())
        return ecart;
    if (const QString ecart = VerifieLesFichiers(); !ecart.isEmpty())
        return ecart;
    return VerifieLaDisposition();
}

QString Utilisateur::VerifieLesFenetres()
{
    // Windows that nobody sees any more would grow in number without an end.
    QStringList vues;
    int cachees = 0;
    const QWidgetList fenetres = QApplication::topLevelWidgets();
    for (const QWidget *candidate : fenetres) {
        const QString nom = QString::fromLatin1(candidate->metaObject()->className());
        if (candidate->inherits("QDialog"))
            return QStringLiteral("un dialogue est resté : ") + nom;
        if (candidate->isVisible())
            vues += nom + u' ' + candidate->windowTitle();
        else if (!candidate->inherits("QMenu"))
            ++cachees;
    }
    constexpr int cacheesPermises = 30;
    const int attendues = 1 + (desordre > 0 ? fiches.NombreALEcran() : fiches.Nombre());
    if (vues.size() != attendues)
        return QStringLiteral("%1 fenêtres au lieu de %2 : ").arg(vues.size()).arg(attendues) + vues.join(u'|');
    return cachees <= cacheesPermises ? QString() : QStringLiteral("%1 fenêtres cachées").arg(cachees);
}

QString Utilisateur::VerifieLaDisposition()
{
    if (!modele.arbreOuvert || dispositionPerimee)
        return {};
    // Clicks go where the persons are: laid out again, nobody may move.
    Arbre &arbre = *fenetre->doc->arbre;
    const QString avant = Positions(arbre);
    const float echelle = EchelleDeResolution(fenetre->view->vue()->logicalDpiX());
    DisposeArbre(arbre, fenetre->doc->formats, echelle, echelle);
    return Positions(arbre) == avant ? QString() : QStringLiteral("mal disposé : ") + avant;
}

QString Utilisateur::VerifieLesFichiers()
{
    while (!renommes.isEmpty()) {
        const QString ancien = renommes.takeFirst();
        if (!QFileInfo::exists(ancien + ".old"))
            return QStringLiteral("pas renommé : ") + ancien;
    }
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
