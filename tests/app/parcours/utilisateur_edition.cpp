#include "utilisateur.h"

#include "arbre.h"
#include "dlgpdg.h"
#include "dlgpers.h"
#include "fenetre.h"
#include "infopersonne.h"
#include "personne.h"
#include "ramelierdoc.h"

#include <QAction>

// Commands on persons and on the title page.

namespace {

const QString titreSuppression = "Suppression de la personne sélectionnée";

QString EcartDesLignes(const QList<QLineEdit *> &lignes, const auto &textes)
{
    for (std::size_t i = 0; i < textes.size(); ++i) {
        const QString &vu = lignes.at(static_cast<qsizetype>(i))->text();
        if (vu != textes[i])
            return QStringLiteral("ligne %1 : « %2 »").arg(i).arg(vu);
    }
    return {};
}

}  // namespace

Saisie Utilisateur::TireSaisie(std::size_t champs)
{
    Saisie saisie;
    for (std::size_t champ = 0; champ < champs; ++champ) {
        if (!tirage.Chance(20))
            continue;
        auto maniere = static_cast<Frappe::Maniere>(tirage.Parmi(3));
        QString texte = maniere == Frappe::Effacer ? QString() : tirage.Texte();
        if (champ == FicPhoto && maniere == Frappe::Remplacer)
            texte = tirage.Chance(50) ? "portrait.png" : "absente.jpg";
        if (champ == FicHtml && tirage.Chance(70)) {
            maniere = Frappe::Remplacer;
            texte = tirage.Un(Fiches::Noms());
        }
        saisie.frappes += {champ, maniere, texte};
    }
    saisie.fin = static_cast<Saisie::Fin>(tirage.Chance(75) ? tirage.Parmi(2) : 2 + tirage.Parmi(3));
    return saisie;
}

Saisie Utilisateur::TirePersonneNouvelle()
{
    Saisie saisie = TireSaisie(std::tuple_size_v<Textes>);
    if (saisie.frappes.isEmpty() && tirage.Chance(50))
        saisie.frappes += {Divers, Frappe::Remplacer, tirage.Texte()};
    if (tirage.Chance(80)) {
        saisie.frappes.removeIf([](const Frappe &frappe) { return frappe.champ <= Prenom; });
        saisie.frappes.prepend({tirage.Chance(70) ? Nom : Prenom, Frappe::Remplacer, tirage.Texte()});
    }
    return saisie;
}

void Utilisateur::AttendPersonne(const QString &titre, const Textes &avant, const Saisie &saisie)
{
    pilote.Attend<DlgPers>([titre, avant, saisie](DlgPers &dialogue) {
        const QList<QLineEdit *> lignes{dialogue.TxtNom,      dialogue.TxtPrenom,  dialogue.TxtDateNais,
                                        dialogue.TxtLieuNais, dialogue.TxtDateDec, dialogue.TxtLieuDec,
                                        dialogue.TxtDivers,   dialogue.TxtFicHtml, dialogue.TxtFicPhoto};
        if (dialogue.LabelTitre->text() != titre)
            return QStringLiteral("dialogue « %1 »").arg(dialogue.LabelTitre->text());
        const QString ecart = EcartDesLignes(lignes, avant);
        if (ecart.isEmpty())
            saisie.Joue(dialogue, lignes, *dialogue.OkButton, *dialogue.CancelButton);
        return ecart;
    });
}

void Utilisateur::AttendPage(const Page &avant, const Saisie &saisie)
{
    pilote.Attend<DlgPdG>([avant, saisie](DlgPdG &dialogue) {
        const QList<QLineEdit *> lignes{dialogue.TextTitre, dialogue.TextCreePar, dialogue.TextDateCreation,
                                        dialogue.TextMaJPar, dialogue.TextDateMaJ};
        const QString ecart = EcartDesLignes(lignes, avant);
        if (ecart.isEmpty())
            saisie.Joue(dialogue, lignes, *dialogue.OKButton, *dialogue.CancelButton);
        return ecart;
    });
}

Utilisateur::ModificationPrevue Utilisateur::PrevoitModification()
{
    Saisie saisie = TireSaisie(std::tuple_size_v<Textes>);
    ModificationPrevue prevue{.avant = modele.Selection()};
    if (tirage.Chance(8))
        saisie.frappes = {{Nom, Frappe::Effacer, {}}, {Prenom, Frappe::Effacer, {}}};
    AttendPersonne("Modification des informations de la personne n°" + QString::number(modele.selection), prevue.avant,
                   saisie);
    prevue.apres = saisie.Resultat(prevue.avant);
    prevue.change = saisie.EstAcceptee() && saisie.ATouche(prevue.avant);
    if (prevue.change && prevue.apres[Nom].isEmpty() && prevue.apres[Prenom].isEmpty()) {
        pilote.AttendBoite("Modification",
                           "Après modification, la personne n'avait plus de nom ni de prénom.\nPour éviter des "
                           "problèmes ultérieurs, le nom ??? lui a été affecté arbitrairement !!",
                           "OK");
        prevue.apres[Nom] = "???";
        partie.NoteLeFait("sans nom");
    }
    return prevue;
}

void Utilisateur::ConstateModification(const ModificationPrevue &prevue)
{
    if (prevue.change) {
        modele.Modifie(prevue.apres);
        partie.NoteLeFait("modifiée");
        for (int fois = 0; fois < 4 && tirage.Chance(50); ++fois)
            suite += {"annuler", &Utilisateur::AnnuleLeDernier};
    }
    modele.RafraichitLabel();
}

void Utilisateur::ModifieLaSelection(const std::function<void()> &lance)
{
    if (!modele.EnEdition() || modele.selection == 0)
        return lance();
    const ModificationPrevue prevue = PrevoitModification();
    lance();
    ConstateModification(prevue);
}

void Utilisateur::Modifie()
{
    ModifieLaSelection([this] { Lance(fenetre->actModifier); });
}

void Utilisateur::AjouteUnPere()
{
    AjouteUnParent(true);
}

void Utilisateur::AjouteUneMere()
{
    AjouteUnParent(false);
}

void Utilisateur::AjouteUnParent(bool pere)
{
    QAction *action = pere ? fenetre->actAjouterPere : fenetre->actAjouterMere;
    if (modele.EnEdition() && tirage.Chance(profil.selectionApresAjout))
        SelectionnePersonne();
    const quint64 numero = 2 * modele.selection + (pere ? 0 : 1);
    if (!modele.EnEdition() || modele.selection == 0 || modele.Existe(numero))
        return Lance(action);
    // No number is left for parents so high up: nothing happens.
    if (modele.selection >= quint64(1) << 63) {
        partie.NoteLeFait("trop haut");
        return Lance(action);
    }
    const Saisie saisie = TirePersonneNouvelle();
    AttendPersonne("Modification des informations de la personne n°" + QString::number(numero), {}, saisie);
    Lance(action);
    const Textes textes = saisie.Resultat(Textes());
    const bool ajoutee = saisie.EstAcceptee() && !(textes[Nom].isEmpty() && textes[Prenom].isEmpty());
    partie.Note(QString::number(numero));
    if (!ajoutee)
        return partie.NoteLeFait("refusée");
    partie.NoteLeFait("ajoutée");
    modele.Ajoute(numero, textes);
    modele.RafraichitLabel();
}

void Utilisateur::SupprimeLaSelection()
{
    if (modele.EnEdition() && tirage.Chance(70)) {
        QList<quint64> cimes = modele.contenu.personnes.keys();
        cimes.removeIf([this](quint64 numero) { return !modele.EstUneCime(numero); });
        if (!cimes.isEmpty())
            CliqueSur(tirage.Un(cimes));
    }
    if (!modele.EnEdition() || modele.selection == 0)
        return Lance(fenetre->actSuppPers);
    const QString numero = QString::number(modele.selection);
    partie.Note(numero);
    if (!modele.EstUneCime(modele.selection)) {
        const QString raison = modele.selection == 1 ? "" : " car elle possède au moins un ancêtrre";
        pilote.AttendBoite(titreSuppression, "Impossible de supprimer la personne n° " + numero + raison, "OK");
        partie.NoteLeFait("gardée");
        return Lance(fenetre->actSuppPers);
    }
    const bool oui = tirage.Chance(80);
    pilote.AttendBoite(titreSuppression, "Voulez-vous vraiement supprimer la personne n° " + numero + " ?",
                       oui ? "Oui" : "Non");
    Lance(fenetre->actSuppPers);
    if (oui) {
        modele.Supprime();
        partie.NoteLeFait("supprimée");
        if (tirage.Chance(40))
            suite += {"annuler", &Utilisateur::AnnuleLeDernier};
    }
    modele.RafraichitLabel();
}

void Utilisateur::AnnuleLeDernier()
{
    const auto photos = [this] {
        int chargees = 0;
        const Arbre *arbre = fenetre->doc->arbre;
        for (const Personne *personne = arbre ? arbre->premiere : nullptr; personne; personne = personne->suivante)
            chargees += personne->info->etatPhoto >= InfoPersonne::PhotoChargee ? 1 : 0;
        return chargees;
    };
    const int avant = photos();
    Lance(fenetre->actAnnuler);
    if (!modele.annulable)
        return;
    // An undo without a sheet before and after only repaints, even where a photo comes or goes.
    if (!modele.suppressionAAnnuler && modele.avant[FicHtml].isEmpty() && modele.apres[FicHtml].isEmpty()
        && photos() != avant)
        dispositionPerimee = true;
    modele.Annule();
    modele.RafraichitLabel();
    partie.Note(QString::number(modele.numeroAAnnuler));
    partie.NoteLeFait(modele.suppressionAAnnuler ? "remise"
                          : modele.modifAnnulee  ? "modification annulée"
                                                 : "rétablie");
}

void Utilisateur::EditeLaPage()
{
    if (!modele.EnEdition())
        return Lance(fenetre->actEditPdG);
    const Saisie saisie = TireSaisie(std::tuple_size_v<Page>);
    const Page avant = modele.contenu.page;
    AttendPage(avant, saisie);
    Lance(fenetre->actEditPdG);
    if (saisie.EstAcceptee() && saisie.ATouche(avant, 0)) {
        modele.contenu.page = saisie.Resultat(avant, 0);
        modele.modifie = true;
        partie.NoteLeFait("page changée");
    }
    modele.RafraichitLabel();
}
