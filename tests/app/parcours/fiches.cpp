#include "fiches.h"

#include "dossier.h"
#include "editeur.h"
#include "fenetre.h"
#include "partie.h"

#include <QApplication>
#include <QLabel>

#include <algorithm>

// Which windows are open, and whether they show what they must.

Fiches::Fiches(Partie &laPartie)
    : partie(laPartie)
{
}

Fiches::~Fiches()
{
    for (const Edite &edite : std::as_const(edites))
        delete edite.vue;
    for (const Affiche &affiche : std::as_const(affiches))
        delete affiche.vue;
}

const QStringList &Fiches::Noms()
{
    static const QStringList noms{"fiche.html",  "notes.txt",  "FICHE.HTM",        "longue.html",
                                  "absente.txt", "neuve.html", "absent/fiche.txt", "dossier.htm"};
    return noms;
}

void Fiches::EcritLesFiches() const
{
    const Dossier &dossier = partie.dossier;
    dossier.Ecrit("ailleurs/notes.txt", "D'autres notes\n");
    dossier.Ecrit("ailleurs/fiche.html", "<p>Une autre fiche</p>\n");
    dossier.Ecrit("fiche.html",
                  "<html><head><title>Paul Martin</title></head>\n<body><p>N\xE9 \xE0 Paris. <a href=\"longue.html\">"
                  "Suite</a>, <a href=\"absente.html\">fin</a>.</p></body></html>\n");
    dossier.Ecrit("longue.html",
                  "<title>Suite</title>"
                      + QByteArray("<p>Une ligne, <a href=\"notes.txt\">notes</a></p>\n").repeated(40));
    dossier.Ecrit("notes.txt", "Notes\n\nvers 1650, \xE0 v\xE9rifier\n");
    dossier.Ecrit("FICHE.HTM", "<b>En capitales</b>\n");
    QDir(dossier.Chemin()).mkdir("dossier.htm");
}

template <typename Vue> QList<Vue *> Fiches::Inconnues() const
{
    QList<Vue *> inconnues;
    const QWidgetList fenetres = QApplication::topLevelWidgets();
    for (QWidget *candidate : fenetres) {
        auto *vue = qobject_cast<Vue *>(candidate);
        const auto estElle = [candidate](const auto &connue) {
            return static_cast<QWidget *>(connue.vue) == candidate;
        };
        if (vue && vue->isVisible() && std::none_of(edites.begin(), edites.end(), estElle)
            && std::none_of(affiches.begin(), affiches.end(), estElle))
            inconnues += vue;
    }
    return inconnues;
}

int Fiches::NombreALEcran() const
{
    return Nombre() + static_cast<int>(Inconnues<LyTextEdit>().size() + Inconnues<LyTextBrowser>().size());
}

void Fiches::FermeLesInconnues()
{
    const auto ferme = [](const auto &vues) {
        for (auto *vue : vues)
            vue->close();
    };
    ferme(Inconnues<LyTextBrowser>());
    ferme(Inconnues<LyTextEdit>());
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
}

QString Fiches::EcartDe(const Edite &edite) const
{
    const LyTextEdit &vue = *edite.vue;
    if (vue.windowTitle() != edite.titre)
        return QStringLiteral("titre de l'éditeur « %1 » au lieu de « %2 »").arg(vue.windowTitle(), edite.titre);
    if (vue.fichierCourant != edite.chemin)
        return QStringLiteral("fiche éditée « %1 » au lieu de « %2 »").arg(vue.fichierCourant, edite.chemin);
    if (TexteDe(vue) != edite.texte)
        return QStringLiteral("texte de la fiche « %1 » au lieu de « %2 »").arg(TexteDe(vue), edite.texte);
    if (EstModifie(vue) != edite.modifie)
        return QStringLiteral("fiche modifiée ou non");
    const QString label = edite.modifie ? " document modifé " : "                               ";
    if (vue.labelInfoModif->text() != label)
        return QStringLiteral("état de la fiche « %1 »").arg(vue.labelInfoModif->text());
    if (vue.modeHtml != edite.html || vue.actCarGras->isEnabled() != edite.html
        || vue.actTableaux->isEnabled() != edite.html || vue.actImage->isEnabled() != edite.html)
        return QStringLiteral("commandes HTML de la fiche");
    if (vue.alignement != edite.alignement || vue.texte->overwriteMode() != edite.ecrase)
        return QStringLiteral("alignement ou insertion de la fiche");
    if (vue.actEditAnnuler->isEnabled() != vue.texte->document()->isUndoAvailable()
        || vue.actEditRefaire->isEnabled() != vue.texte->document()->isRedoAvailable())
        return QStringLiteral("annuler et refaire de la fiche");
    const bool selection = vue.texte->textCursor().hasSelection();
    if (vue.actEditCut->isEnabled() != selection || vue.actEditCopy->isEnabled() != selection)
        return QStringLiteral("couper et copier de la fiche, de %1 à %2")
            .arg(vue.texte->textCursor().anchor())
            .arg(vue.texte->textCursor().position());
    return {};
}

QString Fiches::EcartDeLaChaine(const Fenetre &fenetre) const
{
    QList<const LyTextEdit *> attendus;
    for (const Edite &edite : edites) {
        if (!edite.seul)
            attendus.prepend(edite.vue);
    }
    QList<const LyTextEdit *> chaine;
    for (const LyTextEdit *editeur = fenetre.listeEditeurs; editeur; editeur = editeur->suivant)
        chaine += editeur;
    return chaine == attendus
        ? QString()
        : QStringLiteral("%1 éditeurs dans la chaîne au lieu de %2").arg(chaine.size()).arg(attendus.size());
}

QString Fiches::Ecart(const Fenetre &fenetre) const
{
    for (const Edite &edite : edites) {
        if (!edite.vue || !edite.vue->isVisible())
            return QStringLiteral("un éditeur a disparu : ") + edite.titre;
        if (const QString defaut = EcartDe(edite); !defaut.isEmpty())
            return defaut;
    }
    for (const Affiche &affiche : affiches) {
        if (!affiche.vue || !affiche.vue->isVisible())
            return QStringLiteral("un afficheur a disparu : ") + affiche.debutTitre;
        if (!affiche.vue->windowTitle().startsWith(affiche.debutTitre))
            return QStringLiteral("titre de l'afficheur « %1 »").arg(affiche.vue->windowTitle());
    }
    return EcartDeLaChaine(fenetre);
}

bool Fiches::EstEdite(const QString &chemin) const
{
    return std::any_of(edites.begin(), edites.end(),
                       [&chemin](const Edite &edite) { return !edite.seul && edite.chemin == chemin; });
}

void Fiches::Oublie(LyTextEdit *vue)
{
    affiches.removeIf([vue](const Affiche &affiche) { return affiche.proprietaire == vue; });
    edites.removeIf([vue](const Edite &edite) { return edite.vue == vue; });
}

QString Fiches::Utilise()
{
    ecart.clear();
    const int choisie = partie.tirage.Parmi(Nombre());
    const int editeurs = static_cast<int>(edites.size());
    if (choisie < editeurs)
        UtiliseLEditeur(edites[choisie]);
    else
        UtiliseLAfficheur(affiches[choisie - editeurs]);
    return ecart;
}
