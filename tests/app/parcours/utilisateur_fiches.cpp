#include "utilisateur.h"

#include "dossier.h"
#include "fenetre.h"

#include <QAction>
#include <QFileInfo>

// The commands of the main window that open sheets.

void Utilisateur::PrevoitAffichage()
{
    const QString chemin = modele.dernierRep + '/' + modele.Selection()[FicHtml];
    if (!QFileInfo(chemin).isFile()) {
        pilote.AttendBoite("Information", "Le fichier " + chemin + " n'existe pas !", "OK");
        partie.NoteLeFait("fiche absente");
    }
}

void Utilisateur::AfficheLaFiche()
{
    if (!modele.arbreOuvert || fiches.Complet())
        return partie.Note("rien");
    if (!modele.consultation && tirage.Chance(60))
        ChangeLeMode();
    // Somebody who has a sheet, if there is one.
    QList<quint64> fichus = modele.contenu.personnes.keys();
    fichus.removeIf([this](quint64 numero) { return modele.contenu.personnes[numero][FicHtml].isEmpty(); });
    if (!fichus.isEmpty())
        CliqueSur(tirage.Un(fichus));
    if (!modele.consultation || modele.selection == 0 || modele.Selection()[FicHtml].isEmpty())
        return Lance(fenetre->actAffFicheHTML);
    const QString chemin = modele.dernierRep + '/' + modele.Selection()[FicHtml];
    PrevoitAffichage();
    Lance(fenetre->actAffFicheHTML);
    if (!QFileInfo(chemin).isFile())
        return;
    ecartDuGeste = fiches.ConstateLAfficheur("Ramelier 5.1 - fiche associée à la personne n° "
                                             + QString::number(modele.selection) + " - ");
    partie.NoteLeFait(chemin.contains(".htm", Qt::CaseInsensitive) ? "fiche HTML affichée" : "fiche TXT affichée");
}

void Utilisateur::EditeLaFiche()
{
    if (!modele.EnEdition() || modele.selection == 0 || fiches.Complet())
        return partie.Note("rien");
    ModificationPrevue prevue{.avant = modele.Selection(), .apres = modele.Selection()};
    const bool sansNom = modele.Selection()[FicHtml].isEmpty();
    if (sansNom) {
        pilote.AttendBoite("Information", "Pour éditer la fiche associée, entrez d'abord le nom du fichier", "OK");
        prevue = PrevoitModification();
    }
    const QString nom = prevue.change ? prevue.apres[FicHtml] : prevue.avant[FicHtml];
    const QString chemin = modele.dernierRep + '/' + nom;
    const bool dejaOuverte = fiches.EstEdite(chemin);
    if (nom.isEmpty())
        pilote.AttendBoite("Information", "Le nom du fichier n'a pas été entré\nAbandon", "OK");
    else if (!dejaOuverte)
        fiches.PrevoitOuverture(chemin);
    Lance(fenetre->actEditFicheHTML);
    if (sansNom)
        ConstateModification(prevue);
    if (nom.isEmpty())
        return partie.NoteLeFait("fiche sans nom");
    if (dejaOuverte)
        return partie.NoteLeFait("fiche déjà éditée");
    const QString base = "Ramelier 5.1 - fiche associée à la personne n° " + QString::number(modele.selection) + ' ';
    ecartDuGeste = fiches.ConstateLEditeur(base, chemin, nom);
}

void Utilisateur::AfficheLAide()
{
    if (fiches.Complet())
        return partie.Note("assez de fenêtres");
    Lance(fenetre->actAide);
    ecartDuGeste = fiches.ConstateLAfficheur("Ramelier - ");
    partie.NoteLeFait("aide affichée");
}

void Utilisateur::UtiliseUneFiche()
{
    ecartDuGeste = fiches.Utilise();
}

void Utilisateur::OuvreLEditeurSeul()
{
    if (fiches.Complet())
        return partie.Note("assez de fenêtres");
    fiches.OuvreSeul();
}
