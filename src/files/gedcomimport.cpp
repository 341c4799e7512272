#include "gedcomimport.h"

#include "arbre.h"
#include "infopersonne.h"
#include "interlocuteur.h"
#include "personne.h"

#include <QHash>
#include <QStringList>

#include <limits>

IndividuGED *RacinePos = nullptr;
IndividuGED *LePere = nullptr;
IndividuGED *LaMere = nullptr;

namespace {

/// The individual with this identifier; of several the last of the list. An empty identifier is nobody's.
IndividuGED *ChercheIndividu(const QString &adresse)
{
    IndividuGED *trouve = nullptr;
    if (adresse.isEmpty())
        return nullptr;
    for (IndividuGED *individu = LesIndividus; individu; individu = individu->suivant) {
        if (individu->adresse == adresse)
            trouve = individu;
    }
    return trouve;
}

struct Parents
{
    IndividuGED *pere = nullptr;
    IndividuGED *mere = nullptr;
};

/// What ChercheLesParents would find for everybody, from one walk over each list.
class ParentsParEnfant
{
public:
    ParentsParEnfant()
    {
        QHash<QString, IndividuGED *> individus;
        for (IndividuGED *individu = LesIndividus; individu; individu = individu->suivant)
            individus.insert(individu->adresse, individu);
        individus.remove(QString());
        for (const FamilleGED *famille = LesFamilles; famille; famille = famille->suivante) {
            const Parents couple{individus.value(famille->mari), individus.value(famille->femme)};
            for (const EnfantGED *enfant = famille->enfants; enfant; enfant = enfant->suivant)
                Note(enfant->adresse, couple);
        }
        parEnfant.remove(QString());
    }

    [[nodiscard]] Parents De(const IndividuGED &individu) const { return parEnfant.value(individu.adresse); }

private:
    /// A later family wins, for the father and for the mother on their own.
    void Note(const QString &enfant, const Parents &couple)
    {
        Parents &parents = parEnfant[enfant];
        if (couple.pere)
            parents.pere = couple.pere;
        if (couple.mere)
            parents.mere = couple.mere;
    }

    QHash<QString, Parents> parEnfant;
};

/// The climb from the root to all its ancestors.
class Montee
{
public:
    explicit Montee(Arbre &unArbre)
        : arbre(unArbre)
    {
    }

    /// Numbers grow along the list, and parents go to its end: everybody is met once, after his child.
    void Monte(IndividuGED *racine)
    {
        places.insert(1, racine);
        for (Personne *personne = arbre.premiere; personne; personne = personne->suivante)
            AjouteLesParents(*personne);
    }

private:
    void AjouteLesParents(Personne &personne)
    {
        const IndividuGED *individu = places.value(personne.numero);
        // Found again higher up since: only the later place has parents.
        if (individu->numero != personne.numero || !ALaPlaceDeParents(personne))
            return;
        const Parents parents = index.De(*individu);
        if (parents.pere && !EstDansLaLignee(*parents.pere, personne))
            Ajoute(personne, *parents.pere, true);
        if (parents.mere && !EstDansLaLignee(*parents.mere, personne))
            Ajoute(personne, *parents.mere, false);
    }

    static bool ALaPlaceDeParents(const Personne &personne)
    {
        return personne.numero <= (std::numeric_limits<quint64>::max() - 1) / 2;
    }

    /// \a parent stands somewhere between \a personne and the root: a file may make somebody his own ancestor.
    [[nodiscard]] bool EstDansLaLignee(const IndividuGED &parent, const Personne &personne) const
    {
        for (quint64 numero = personne.numero; numero != 0; numero /= 2) {
            if (places.value(numero) == &parent)
                return true;
        }
        return false;
    }

    void Ajoute(Personne &enfant, IndividuGED &individu, bool estPere)
    {
        Personne *parent = arbre.AjoutePersonne(&enfant, estPere, arbre.derniere);
        CopieInfo(&individu, parent);
        individu.numero = parent->numero;
        places.insert(parent->numero, &individu);
    }

    Arbre &arbre;
    const ParentsParEnfant index;
    QHash<quint64, IndividuGED *> places;  ///< who stands at each number
};

QString LigneDeChoix(const IndividuGED &individu)
{
    return individu.adresse + u' ' + individu.prenom + u' ' + individu.nom + QStringLiteral(" né(e) le ")
        + individu.datenaissance + QStringLiteral(" à ") + individu.lieunaissance;
}

/// The identifier of the root that the user chose; empty when the dialog was given up.
QString DemandeLaRacine(QWidget *parent)
{
    QStringList lignes;
    lignes.reserve(CompteIndiv());
    for (const IndividuGED *individu = LesIndividus; individu; individu = individu->suivant)
        lignes += LigneDeChoix(*individu);
    QString choix = Interlocuteur::Courant().ChoisitRacine(parent, lignes).value_or(QString());
    return DecodeAdresse(choix);
}

void CreeLaRacine(Arbre &arbre)
{
    auto *racine = new Personne(0);
    racine->info = new InfoPersonne;
    CopieInfo(RacinePos, racine);
    RacinePos->numero = 1;
    racine->numero = 1;
    arbre.AjouteASaPlace(racine);
}

/// Why nothing could be imported; empty when the tree was made.
QString Importe(QWidget *parent, const QString &nomFichier, Arbre &arbre)
{
    if (!DecodeFichierGED(nomFichier))
        return QStringLiteral("Impossible de traiter le fichier ") + nomFichier;
    if (!LesIndividus)
        return QStringLiteral("Impossible de construire un arbre à partir de ") + nomFichier;
    QString racine = DemandeLaRacine(parent);
    ChercheRacine(racine);
    if (!RacinePos)
        return QStringLiteral("Impossible de trouver la personne  ") + racine
            + QStringLiteral("\nproposée comme racine de l'arbre");
    CreeLaRacine(arbre);
    if (CompteIndiv() >= 2)
        Montee(arbre).Monte(RacinePos);
    return {};
}

}  // namespace

void ImporterDeFichierGEDCOM(QWidget *parent, const QString &nomFichier, Arbre *arbre)
{
    VideLesListesGED();
    const QString echec = Importe(parent, nomFichier, *arbre);
    if (!echec.isEmpty())
        Interlocuteur::Courant().Information(QStringLiteral("Information"), echec);
    VideLesListesGED();
}

long CompteIndiv()
{
    long nombre = 0;
    for (const IndividuGED *individu = LesIndividus; individu; individu = individu->suivant)
        ++nombre;
    return nombre;
}

void ChercheRacine(QString &adresse)
{
    RacinePos = nullptr;
    if (!adresse.isEmpty()) {
        RacinePos = ChercheIndividu(adresse);
        return;
    }
    for (IndividuGED *individu = LesIndividus; individu; individu = individu->suivant) {
        if (individu->fams.isEmpty())
            RacinePos = individu;
    }
}

void ChercheLesParents(IndividuGED *ind)
{
    LePere = nullptr;
    LaMere = nullptr;
    if (ind->adresse.isEmpty())
        return;
    for (const FamilleGED *famille = LesFamilles; famille; famille = famille->suivante) {
        for (const EnfantGED *enfant = famille->enfants; enfant; enfant = enfant->suivant) {
            if (enfant->adresse != ind->adresse)
                continue;
            if (IndividuGED *mari = ChercheIndividu(famille->mari))
                LePere = mari;
            if (IndividuGED *femme = ChercheIndividu(famille->femme))
                LaMere = femme;
        }
    }
}

void CopieInfo(IndividuGED *individu, Personne *personne)
{
    InfoPersonne &info = *personne->info;
    info.nom = individu->nom;
    info.prenom = individu->prenom;
    info.datenaissance = individu->datenaissance;
    info.lieunaissance = individu->lieunaissance;
    info.datedeces = individu->datedeces;
    info.lieudeces = individu->lieudeces;
    info.divers = individu->occu;
}
