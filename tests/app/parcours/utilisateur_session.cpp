#include "utilisateur.h"

#include "dossier.h"
#include "fenetre.h"
#include "ramelierdoc.h"

#include <QAction>
#include <QApplication>

// The program from its start to its end, and again.

void Utilisateur::LanceAvec(const QStringList &arguments)
{
    fenetre = std::make_unique<Fenetre>(arguments);
    const auto dispose = [this](int code) { dispositionPerimee = dispositionPerimee && code == 2; };
    QObject::connect(fenetre->doc, &RamelierDoc::documentChanged, fenetre.get(), dispose);
    QObject::connect(fenetre.get(), &RamelierApp::docChanged, fenetre.get(), dispose);
    // What was laid out before anybody listened stands as it must.
    dispositionPerimee = false;
}

bool Utilisateur::PrevoitDeQuitter()
{
    if (!modele.TravailNonSauve())
        return true;
    const QString reponse = tirage.Un(QStringList{"Oui", "Non", "Annuler"});
    pilote.AttendBoite("Quitter...",
                       "L'arbre affiché a été modifié \n enregistrer les modifications avant de quitter ?", reponse);
    partie.NoteLeFait("quitter " + reponse);
    // A save that is given up does not keep the program.
    if (reponse == "Oui")
        PrevoitSauvegarde(false);
    return reponse != "Annuler";
}

bool Utilisateur::Ferme(bool parLaCommande)
{
    const bool part = PrevoitDeQuitter();
    if (!parLaCommande) {
        if (part)
            fiches.PrevoitFermetureDeTout();
        return fenetre->close() == part && part;
    }
    // The loop that the command ends; where it does not, the user goes on.
    QObject boucle;
    QMetaObject::invokeMethod(
        &boucle,
        [this, &boucle] {
            fenetre->actFileQuit->trigger();
            QMetaObject::invokeMethod(
                &boucle, [] { QCoreApplication::exit(1); }, Qt::QueuedConnection);
        },
        Qt::QueuedConnection);
    return QCoreApplication::exec() == 0 && part;
}

QString Utilisateur::Quitte()
{
    fiches.PrevoitDestruction();
    fenetre.reset();
    QStringList ecarts = pilote.PrendEcarts();
    if (const QString ecart = fiches.ConstateLaFin(); !ecart.isEmpty())
        ecarts += ecart;
    return ecarts.join(u'\n');
}

void Utilisateur::FermeEtRouvre()
{
    const bool parLaCommande = tirage.Chance(50);
    const QSize taille = fenetre->size();
    if (!Ferme(parLaCommande)) {
        if (fenetre->isHidden())
            ecartDuGeste = QStringLiteral("fermée à tort");
        // The command leaves the field of the status bar as it was, but for a save.
        return partie.NoteLeFait("resté");
    }
    partie.NoteLeFait(parLaCommande ? "quitté" : "fermé");
    ecartDuGeste = Quitte();
    modele.Redemarre();
    QStringList arguments;
    switch (tirage.Parmi(5)) {
    case 0:
        break;
    case 1:
        arguments += dossier.Chemin(tirage.Chance(50) ? "nulle-part.xrlg" : "dossier.htm");
        pilote.AttendBoite("Information", "Le fichier " + arguments.constFirst() + " n'existe pas", "OK");
        modele.fichierArbre = arguments.constFirst();
        partie.NoteLeFait("lancé sur ce qui n'est pas un fichier");
        break;
    case 2:
        LanceSurUnAbime();
        return;
    default:
        arguments = {tirage.Un(fichiers.keys()), "reste.xrlg"};
        const Fichier &fichier = fichiers[arguments.constFirst()];
        modele.Ouvre(arguments.constFirst(), fichier.contenu, fichier.compte);
    }
    LanceAvec(arguments);
    if (fenetre->size() != taille)
        ecartDuGeste += QStringLiteral(" une autre taille qu'avant");
}
