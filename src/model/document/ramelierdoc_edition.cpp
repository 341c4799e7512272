#include "ramelierdoc.h"

#include "annuaire.h"
#include "annulationreservee.h"
#include "arbre.h"
#include "boites.h"
#include "dlgpdg.h"
#include "dlgpers.h"
#include "infopersonne.h"
#include "personne.h"
#include "photos.h"

#include <limits>
#include <vector>

namespace {

/// A line edit and the text that it stands for.
struct Champ
{
    QLineEdit *ligne;
    QString *texte;
};

/// Shows the texts, runs the dialog, and copies back those that the user touched; true when there was one.
bool Saisit(QDialog &dialogue, const std::vector<Champ> &champs)
{
    for (const Champ &champ : champs) {
        champ.ligne->setText(*champ.texte);
        champ.ligne->setCursorPosition(0);  // a long text shows its beginning
    }
    champs.front().ligne->end(false);  // where typing starts
    if (dialogue.exec() != QDialog::Accepted)
        return false;
    bool touche = false;
    for (const Champ &champ : champs) {
        if (!champ.ligne->isModified())
            continue;
        *champ.texte = champ.ligne->text();
        touche = true;
    }
    return touche;
}

void RechargePhoto(InfoPersonne &info, const QString &repertoire)
{
    info.etatPhoto = InfoPersonne::PhotoNonEssayee;
    if (!info.ficphoto.isEmpty())
        info.etatPhoto = info.ChargePhoto(repertoire) ? InfoPersonne::PhotoChargee : InfoPersonne::PhotoAbsente;
    OublieLesPhotosInutiles();
}

/// The first person of the list who names \a numero as a parent, or none: whom a deletion of that number detaches.
Personne *PremierQuiNomme(const Arbre &arbre, quint64 numero)
{
    Personne *personne = arbre.premiere;
    while (personne && personne->pere != numero && personne->mere != numero)
        personne = personne->suivante;
    return personne;
}

/// One person's links to the parents, as they were.
class LiensGardes
{
public:
    explicit LiensGardes(Personne *unePersonne)
        : personne(unePersonne)
        , pere(unePersonne->pere)
        , mere(unePersonne->mere)
        , ptrPere(unePersonne->ptrPere)
        , ptrMere(unePersonne->ptrMere)
    {
    }

    void Remet() const
    {
        personne->pere = pere;
        personne->mere = mere;
        personne->ptrPere = ptrPere;
        personne->ptrMere = ptrMere;
    }

private:
    Personne *personne;
    quint64 pere;
    quint64 mere;
    Personne *ptrPere;
    Personne *ptrMere;
};

/// Both parents' numbers, 2n and 2n + 1, fit.
bool PeutAvoirDesParents(const Personne &personne)
{
    return personne.numero <= (std::numeric_limits<quint64>::max() - 1) / 2;
}

}  // namespace

void RamelierDoc::EditPdG(QWidget *parent)
{
    if (!arbre)
        return;
    InfoArbre &info = *arbre->infoArbre;
    DlgPdG dialogue(parent);
    const bool touche = Saisit(dialogue,
                               {{dialogue.TextTitre, &info.titrearbre},
                                {dialogue.TextCreePar, &info.creepar},
                                {dialogue.TextDateCreation, &info.date},
                                {dialogue.TextMaJPar, &info.majpar},
                                {dialogue.TextDateMaJ, &info.datemaj}});
    if (!touche || creationEnCours)
        return;
    Q_EMIT documentChanged(1);
    modifie = true;
}

void RamelierDoc::CreaModifPers(QWidget *parent, QString &repertoire, bool creation)
{
    if (!arbre || !arbre->selection)
        return;
    Personne &personne = *arbre->selection;
    if (!personne.info)
        personne.info = new InfoPersonne;
    InfoPersonne &info = *personne.info;
    AnnulationReservee annulation(*arbre);
    arbre->SauveInfoPersonne(repertoire);

    DlgPers dialogue(parent);
    dialogue.LabelTitre->setText(creationEnCours ? QStringLiteral("Saisie des informations de la personne racine")
                                                 : QStringLiteral("Modification des informations de la personne n°")
                                         + QString::number(personne.numero));
    const bool touche = Saisit(dialogue,
                               {{dialogue.TxtNom, &info.nom},
                                {dialogue.TxtPrenom, &info.prenom},
                                {dialogue.TxtDateNais, &info.datenaissance},
                                {dialogue.TxtLieuNais, &info.lieunaissance},
                                {dialogue.TxtDateDec, &info.datedeces},
                                {dialogue.TxtLieuDec, &info.lieudeces},
                                {dialogue.TxtDivers, &info.divers},
                                {dialogue.TxtFicHtml, &info.fichtml},
                                {dialogue.TxtFicPhoto, &info.ficphoto}});
    if (!touche)
        return;
    arbre->TextesChanges(personne);
    const bool autrePhoto = dialogue.TxtFicPhoto->isModified();
    if (autrePhoto)
        RechargePhoto(info, repertoire);
    if (!creation) {
        annulation.LaisseLaPlace();
        if (personne.estVide()) {
            info.nom = QStringLiteral("???");
            arbre->TextesChanges(personne);
            Boites::Information(parent, QStringLiteral("Modification"),
                                QStringLiteral("Après modification, la personne n'avait plus de nom ni de prénom.\n"
                                               "Pour éviter des problèmes ultérieurs, le nom ??? lui a été affecté "
                                               "arbitrairement !!"));
        }
        Q_EMIT autoriseAnnulation();
    } else if (personne.estVide() && !creationEnCours) {
        return;  // a parent without a name is taken away again: nothing has happened
    }
    Q_EMIT documentChanged(autrePhoto ? 1 : 2);
    modifie = true;
}

bool RamelierDoc::AjoutePersonne(QWidget *parent, QString &repertoire, bool pere)
{
    Personne *enfant = arbre ? arbre->selection : nullptr;
    if (!enfant || (pere ? enfant->ptrPere : enfant->ptrMere) || !PeutAvoirDesParents(*enfant))
        return false;
    // Odd files have counts and links that adding and deleting would not bring back.
    const unsigned short generationsAvant = arbre->nombreGenerations;
    std::vector<LiensGardes> liens{LiensGardes(enfant)};
    if (Personne *autre = PremierQuiNomme(*arbre, 2 * enfant->numero + (pere ? 0 : 1)))
        liens.emplace_back(autre);
    Personne *ajoutee = arbre->AjoutePersonne(enfant, pere);
    ajoutee->affichable = false;
    ajoutee->selectionnee = true;
    enfant->selectionnee = false;
    arbre->selection = ajoutee;

    CreaModifPers(parent, repertoire, true);
    if (ajoutee->estVide()) {
        arbre->SupprimePersonne();
        arbre->nombreGenerations = generationsAvant;
        for (const LiensGardes &lien : liens)
            lien.Remet();
        enfant->selectionnee = true;
        arbre->selection = enfant;
        arbre->NoteLesPlaces();
        return false;
    }
    ajoutee->affichable = true;
    // An addition is not taken back, and it ends the time of what was changed before.
    arbre->OublieAnnulation();
    modifie = true;
    Q_EMIT documentChanged(1);
    Q_EMIT personneSelectionnee(1);
    return true;
}

void RamelierDoc::SupPersonne(QString &repertoire)
{
    if (!arbre || !arbre->selection || arbre->selection == arbre->premiere)
        return;
    const Personne &supprimee = *arbre->selection;
    arbre->OublieAnnulation();
    arbre->SauveInfoPersonne(repertoire);
    if (Personne *enfant = arbre->SonAnnuaire().DeNumero(supprimee.enfant))
        (enfant->pere == supprimee.numero ? arbre->enfantSansPere : arbre->enfantSansMere) = enfant;
    arbre->SupprimePersonne();
    Q_EMIT autoriseAnnulation();
    Q_EMIT documentChanged(1);
    modifie = true;
}
