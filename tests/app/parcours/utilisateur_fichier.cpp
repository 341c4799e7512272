#include "utilisateur.h"

#include "arbre.h"
#include "dlgoptdessin.h"
#include "dlgpdg.h"
#include "fenetre.h"
#include "ramelierdoc.h"

#include <QAction>
#include <QFileInfo>

// Modes, formats and files.

void Utilisateur::ChangeLeMode()
{
    Lance(fenetre.actModeTravail);
    if (modele.arbreOuvert)
        modele.BasculeMode();
}

void Utilisateur::ChangeLAffichage()
{
    Lance(fenetre.actModeAffichage);
    Note(fenetre.affichageComplet ? "complet" : "réduit");
}

void Utilisateur::ChangeLesFormats()
{
    if (!modele.arbreOuvert)
        return Lance(fenetre.actFormatsDessins);
    const bool accepte = tirage.Chance(60);
    const Qt::Key touche = tirage.Chance(50) ? Qt::Key_Up : Qt::Key_Down;
    const int fois = tirage.Parmi(4);
    pilote.Attend<DlgOptDessin>([accepte, touche, fois](DlgOptDessin &dialogue) {
        for (int i = 0; i < fois && dialogue.sbDMinHoriz->value() > 2; ++i)
            QTest::keyClick(dialogue.sbDMinHoriz, touche);
        (accepte ? dialogue.OKButton : dialogue.CancelButton)->click();
        return QString();
    });
    Lance(fenetre.actFormatsDessins);
    // This command leaves the field of the status bar as it was.
    modele.optionsModifiees = modele.optionsModifiees || accepte;
}

void Utilisateur::RetientLeFichier()
{
    const quint64 personnes = static_cast<quint64>(modele.contenu.personnes.size());
    fichiers[modele.nomFichier] = {modele.contenu, personnes + modele.compteEnTrop};
    NoteLeFait("fichier écrit");
    if (!aVerifier.contains(modele.nomFichier))
        aVerifier += modele.nomFichier;
}

bool Utilisateur::PrevoitSauvegarde(bool sous)
{
    if (!sous && !modele.nomFichier.isEmpty()) {
        modele.Enregistre();
        RetientLeFichier();
        return true;
    }
    const QString propose =
        modele.fichierArbre.isEmpty() ? QString("nouveau") : QFileInfo(modele.fichierArbre).fileName();
    if (tirage.Chance(20)) {
        pilote.AttendFichier("Enregistrer sous", propose, {});
        Note("renoncé");
        return false;
    }
    const QString sansSuffixe = dossier.Chemin("arbre-" + QString::number(tirage.Parmi(4)));
    const QString chemin = sansSuffixe + ".xrlg";
    pilote.AttendFichier("Enregistrer sous", propose, tirage.Chance(50) ? sansSuffixe : chemin);
    Note(QFileInfo(chemin).fileName());
    if (QFileInfo::exists(chemin)) {
        const bool oui = tirage.Chance(80);
        pilote.AttendBoite("Sauver sous...",
                           "Le fichier " + chemin + " existe déjà  !!\nVoulez-vous vraiement le remplacer ??",
                           oui ? "Oui" : "Non");
        if (!oui) {
            pilote.AttendBoite("Information", "L'arbre n'a pas été enregistré sous le nouveau nom", "OK");
            return false;
        }
    }
    modele.EnregistreSous(chemin);
    RetientLeFichier();
    return true;
}

void Utilisateur::Sauve()
{
    if (modele.arbreOuvert)
        PrevoitSauvegarde(false);
    Lance(fenetre.actFileSave);
}

void Utilisateur::SauveSous()
{
    if (modele.arbreOuvert)
        PrevoitSauvegarde(true);
    Lance(fenetre.actFileSaveAs);
}

bool Utilisateur::PasseLaGarde()
{
    if (!modele.TravailNonSauve())
        return true;
    const QString reponse = tirage.Un(QStringList{"Oui", "Non", "Annuler"});
    pilote.AttendBoite("Sauvegarde", "L'arbre affiché a été modifié \n enregistrer les modifications ?", reponse);
    // A save that is given up keeps the tree.
    NoteLeFait("garde " + reponse);
    return reponse == "Oui" ? PrevoitSauvegarde(false) : reponse == "Non";
}

void Utilisateur::OuvreUnFichier()
{
    if (!PasseLaGarde())
        return Lance(fenetre.actFileOpen);
    if (tirage.Chance(25)) {
        pilote.AttendFichier("Ouvrir", {}, {});
        modele.fichierArbre.clear();
        Note("renoncé");
        return Lance(fenetre.actFileOpen);
    }
    const QString chemin = tirage.Un(fichiers.keys());
    const Fichier &fichier = fichiers[chemin];
    pilote.AttendFichier("Ouvrir", {}, chemin);
    modele.Ouvre(chemin, fichier.contenu, fichier.compte);
    NoteLeFait("fichier ouvert");
    Note(QFileInfo(chemin).fileName());
    Lance(fenetre.actFileOpen);
}

void Utilisateur::CommenceUnArbre()
{
    if (!PasseLaGarde())
        return Lance(fenetre.actFileNew);
    Saisie page = TireSaisie(std::tuple_size_v<Page>);
    if (tirage.Chance(60) && (page.frappes.isEmpty() || page.frappes.constFirst().champ != 0))
        page.frappes.prepend({0, Frappe::Remplacer, tirage.Texte()});
    AttendPage({}, page);
    const Page pageSaisie = page.Resultat(Page(), 0);
    const QString abandon = "\n\nCréation du nouvel arbre abandonnée !!!";
    if (!page.EstAcceptee() || pageSaisie[0].isEmpty()) {
        pilote.AttendBoite("Création du nouvel arbre", "Vous n'avez pas donné de titre au nouvel arbre." + abandon,
                           "OK");
        modele.AbandonneLaCreation();
        NoteLeFait("page abandonnée");
        return Lance(fenetre.actFileNew);
    }
    const Saisie racine = TirePersonneNouvelle();
    AttendPersonne("Saisie des informations de la personne racine", {}, racine);
    const Textes textes = racine.Resultat(Textes());
    if (racine.EstAcceptee() && !(textes[Nom].isEmpty() && textes[Prenom].isEmpty())) {
        modele.Commence(pageSaisie, textes);
        NoteLeFait("arbre commencé");
    } else {
        pilote.AttendBoite("Création de la racine du nouvel arbre",
                           "Vous n'avez pas donné de nom ni de prénom à la personne racine du nouvel arbre." + abandon,
                           "OK");
        modele.AbandonneLaCreation();
        NoteLeFait("racine abandonnée");
    }
    Lance(fenetre.actFileNew);
}
