#include "utilisateur.h"

#include "dlgpdg.h"
#include "fenetre.h"
#include "ramelierdoc.h"

#include <QAbstractButton>
#include <QAction>
#include <QFileDialog>
#include <QFileInfo>
#include <QMessageBox>

// Modes, formats and files.

void Utilisateur::RetientLeFichier()
{
    const quint64 personnes = static_cast<quint64>(modele.contenu.personnes.size());
    fichiers[modele.nomFichier] = {modele.contenu, personnes + modele.compteEnTrop};
    partie.NoteLeFait("fichier écrit");
    if (!aVerifier.contains(modele.nomFichier))
        aVerifier += modele.nomFichier;
}

QString Utilisateur::PrevoitLeNomPropose()
{
    if (!modele.ancien)
        return modele.fichierArbre.isEmpty() ? QString("nouveau") : QFileInfo(modele.fichierArbre).fileName();
    const QString base = QFileInfo(modele.fichierArbre).baseName();
    pilote.AttendBoite("Enregistrement d'un arbre ancien format .rlg",
                       "L'enregistrement d'un arbre ancien format .rlg\nse fait uniquement sous le nouveau format "
                       ".xrlg\nle fichier de l'arbre original est renommé :\n"
                           + base + ".rlg.old\nle nom proposé pour le nouveau fichier :\n" + base
                           + ".xrlg\n(vous pouvez modifier ce nom à votre guise)",
                       "OK");
    partie.NoteLeFait("ancien format");
    return base + ".xrlg";
}

QString Utilisateur::PrevoitLeNom()
{
    const QString propose = PrevoitLeNomPropose();
    if (tirage.Chance(20)) {
        pilote.AttendFichier("Enregistrer sous", propose, {});
        partie.Note("renoncé");
        return {};
    }
    const QString sansSuffixe =
        dossier.Chemin((tirage.Chance(30) ? "ailleurs/arbre-" : "arbre-") + QString::number(tirage.Parmi(4)));
    const QString chemin = sansSuffixe + ".xrlg";
    pilote.AttendFichier("Enregistrer sous", propose, tirage.Chance(50) ? sansSuffixe : chemin);
    partie.Note(QFileInfo(chemin).fileName());
    if (!QFileInfo::exists(chemin))
        return chemin;
    const bool oui = tirage.Chance(80);
    pilote.AttendBoite("Sauver sous...",
                       "Le fichier " + chemin + " existe déjà  !!\nVoulez-vous vraiement le remplacer ??",
                       oui ? "Oui" : "Non");
    if (oui)
        return chemin;
    pilote.AttendBoite("Information", "L'arbre n'a pas été enregistré sous le nouveau nom", "OK");
    return {};
}

bool Utilisateur::PrevoitSauvegarde(bool sous)
{
    if (!sous && !modele.nomFichier.isEmpty() && !modele.ancien) {
        modele.Enregistre();
        RetientLeFichier();
        return true;
    }
    const QString chemin = PrevoitLeNom();
    if (chemin.isEmpty())
        return false;
    const QString origine = modele.fichierArbre;
    const bool converti = modele.ancien;
    modele.EnregistreSous(chemin);
    RetientLeFichier();
    if (converti) {
        partie.NoteLeFait("ancien format converti");
        if (!origine.isEmpty())
            renommes += origine;
    }
    return true;
}

void Utilisateur::Sauve()
{
    if (modele.arbreOuvert)
        PrevoitSauvegarde(false);
    Lance(fenetre->actFileSave);
}

void Utilisateur::SauveSous()
{
    if (modele.arbreOuvert)
        PrevoitSauvegarde(true);
    Lance(fenetre->actFileSaveAs);
}

bool Utilisateur::PasseLaGarde()
{
    if (!modele.TravailNonSauve())
        return true;
    const QString reponse = tirage.Un(QStringList{"Oui", "Non", "Annuler"});
    pilote.AttendBoite("Sauvegarde", "L'arbre affiché a été modifié \n enregistrer les modifications ?", reponse);
    // A save that is given up keeps the tree.
    partie.NoteLeFait("garde " + reponse);
    return reponse == "Oui" ? PrevoitSauvegarde(false) : reponse == "Non";
}

void Utilisateur::OuvreUnFichier()
{
    if (!PasseLaGarde())
        return Lance(fenetre->actFileOpen);
    if (tirage.Chance(25)) {
        pilote.AttendFichier("Ouvrir", {}, {});
        modele.fichierArbre.clear();
        partie.Note("renoncé");
        return Lance(fenetre->actFileOpen);
    }
    if (tirage.Chance(10)) {
        AttendFichierAbsent("Ouvrir", "nulle-part.xrlg");
        modele.fichierArbre.clear();
        return Lance(fenetre->actFileOpen);
    }
    const bool ancien = tirage.Chance(15);
    const QString chemin = ancien ? EcritUnAncien() : tirage.Un(fichiers.keys());
    const Fichier fichier = ancien ? Ancien() : fichiers[chemin];
    pilote.AttendFichier("Ouvrir", {}, chemin);
    modele.Ouvre(chemin, fichier.contenu, fichier.compte);
    partie.NoteLeFait(ancien ? "ancien fichier ouvert" : "fichier ouvert");
    partie.Note(QFileInfo(chemin).fileName());
    Lance(fenetre->actFileOpen);
}

void Utilisateur::CommenceUnArbre()
{
    if (!PasseLaGarde())
        return Lance(fenetre->actFileNew);
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
        partie.NoteLeFait("page abandonnée");
        return Lance(fenetre->actFileNew);
    }
    const Saisie racine = TirePersonneNouvelle();
    AttendPersonne("Saisie des informations de la personne racine", {}, racine);
    const Textes textes = racine.Resultat(Textes());
    if (racine.EstAcceptee() && !(textes[Nom].isEmpty() && textes[Prenom].isEmpty())) {
        modele.Commence(pageSaisie, textes);
        partie.NoteLeFait("arbre commencé");
    } else {
        pilote.AttendBoite("Création de la racine du nouvel arbre",
                           "Vous n'avez pas donné de nom ni de prénom à la personne racine du nouvel arbre." + abandon,
                           "OK");
        modele.AbandonneLaCreation();
        partie.NoteLeFait("racine abandonnée");
    }
    Lance(fenetre->actFileNew);
}

void Utilisateur::AttendFichierAbsent(const QString &titre, const QString &nom)
{
    const QString chemin = dossier.Chemin(nom);
    pilote.Attend<QFileDialog>([titre, chemin](QFileDialog &dialogue) {
        ::Choisit(dialogue, chemin);
        QTest::keyClick(&dialogue, Qt::Key_Escape);
        return dialogue.windowTitle() == titre ? QString() : dialogue.windowTitle();
    });
    // The toolkit's own box, over its dialog.
    pilote.Attend<QMessageBox>([chemin](QMessageBox &boite) {
        boite.buttons().constFirst()->click();
        return boite.text().contains(QFileInfo(chemin).fileName()) ? QString() : boite.text();
    });
    partie.NoteLeFait("fichier absent");
}

void Utilisateur::Imprime()
{
    if (!modele.arbreOuvert)
        return Lance(fenetre->actFilePrint);
    const QString reponse = tirage.Un(QStringList{"Imprimante", "Fichier pdf", "Fichier pdf", "Annuler"});
    const bool accepte = reponse == "Fichier pdf" && tirage.Chance(70);
    const QString nom = modele.fichierArbre.isEmpty() ? "fichier" : QFileInfo(modele.fichierArbre).baseName();
    const QString pdf = modele.dernierRep + '/' + nom + ".pdf";
    QFile::remove(pdf);
    pilote.AttendBoite("Choix du mode d'impression", "Imprimer sur imprimante OU dans un fichier pdf ?", reponse);
    if (reponse != "Annuler")
        pilote.AttendImpression(accepte);
    Lance(fenetre->actFilePrint);
    QFile fichier(pdf);
    const bool ecrit = fichier.open(QIODevice::ReadOnly) && fichier.read(5) == "%PDF-" && fichier.size() > 500;
    if (ecrit != accepte)
        ecartDuGeste = QStringLiteral("impression dans ") + pdf;
    partie.NoteLeFait(accepte ? "imprimé en pdf" : "impression abandonnée");
    QFile::remove(pdf);
}
