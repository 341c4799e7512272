#include "assemblage.h"

#include "arbre.h"
#include "infopersonne.h"
#include "personne.h"

#include <QHash>

#include <bit>
#include <limits>
#include <optional>

namespace {

/// \a numero + 2^\a exposant, none where it does not fit.
std::optional<quint64> Decale(quint64 numero, int exposant)
{
    if (exposant > 63)
        return {};
    const quint64 pas = quint64(1) << exposant;
    if (numero > std::numeric_limits<quint64>::max() - pas)
        return {};
    return numero + pas;
}

quint64 ParentDecale(quint64 numero, int exposant)
{
    return numero == 0 ? 0 : Decale(numero, exposant).value_or(0);
}

int Generation(const Personne &personne, bool parNumero)
{
    if (!parNumero)
        return personne.numerogeneration;
    return personne.numero == 0 ? 0 : static_cast<int>(std::bit_width(personne.numero)) - 1;
}

InfoPersonne *CopieDe(const InfoPersonne &info, const QString &repertoire)
{
    auto *copie =
        new InfoPersonne(info.nom, info.prenom, info.datenaissance, info.lieunaissance, info.datedeces, info.lieudeces,
                         info.divers, info.fichtml, info.ficphoto, InfoPersonne::PhotoNonEssayee);
    if (!copie->ficphoto.isEmpty())
        copie->etatPhoto = copie->ChargePhoto(repertoire) ? InfoPersonne::PhotoChargee : InfoPersonne::PhotoAbsente;
    return copie;
}

/// The tree that grows, with the place where the last person went. While its list is in the strict order of the numbers,
/// children are found by going along it; then an index of the numbers serves.
class Assemblage
{
public:
    explicit Assemblage(Arbre &unArbre)
        : arbre(unArbre)
    {
    }

    void Ajoute(Personne *personne)
    {
        RelieASonEnfant(EnfantDe(*personne), personne);
        // Both sides come in the order of their numbers: each place lies behind the one before.
        Personne *depuis = triee && dernierAjout && personne->numero > dernierAjout->numero ? dernierAjout : nullptr;
        arbre.AjouteASaPlace(personne, depuis);
        dernierAjout = personne;
        if (!triee)
            Inscrit(personne);
        else if (!EstASaPlace(*personne))
            PasseALIndex();
    }

    void AjouteLeCote(const Arbre &source, bool estPere, const QString &repertoire)
    {
        const bool decalees = GenerationsDecalees(source);
        for (const Personne *personne = source.premiere; personne; personne = personne->suivante) {
            if (Personne *copie = CopieRenumerotee(*personne, estPere, decalees, repertoire))
                Ajoute(copie);
        }
    }

private:
    Personne *EnfantDe(const Personne &personne)
    {
        if (!triee)
            return parNumero.value(personne.enfant);
        // Children come in the order of their numbers too.
        if (!enfant || enfant->numero > personne.enfant)
            enfant = arbre.premiere;
        while (enfant && enfant->numero < personne.enfant)
            enfant = enfant->suivante;
        return enfant && enfant->numero == personne.enfant ? enfant : nullptr;
    }

    void PasseALIndex()
    {
        triee = false;
        for (Personne *personne = arbre.premiere; personne; personne = personne->suivante)
            Inscrit(personne);
    }

    /// Of several who bear a number the first of the list counts.
    void Inscrit(Personne *personne)
    {
        if (Personne *&premier = parNumero[personne->numero]; !premier)
            premier = personne;
    }

    static bool EstASaPlace(const Personne &personne)
    {
        return (!personne.precedente || personne.precedente->numero < personne.numero)
            && (!personne.suivante || personne.numero < personne.suivante->numero);
    }

    Arbre &arbre;
    QHash<quint64, Personne *> parNumero;  ///< empty while the list is in order
    Personne *dernierAjout = nullptr;
    Personne *enfant = nullptr;  ///< the last one looked for, or the next in order
    bool triee = true;           ///< a source out of order makes a list where only the whole walk finds the place
};

Personne *RacineEnfant()
{
    auto *racine = new Personne(0);
    racine->info = new InfoPersonne;
    racine->info->nom = QStringLiteral("Enfant");
    racine->numero = 1;
    racine->pere = 2;
    racine->mere = 3;
    return racine;
}

}  // namespace

Personne *CopieRenumerotee(const Personne &source, bool estPere, bool parNumero, const QString &repertoire)
{
    const int generation = Generation(source, parNumero);
    const int exposant = generation + (estPere ? 0 : 1);
    const std::optional<quint64> numero = Decale(source.numero, exposant);
    if (!numero)
        return nullptr;
    auto *copie = new Personne(static_cast<unsigned short>(generation + 1));
    copie->info = source.info ? CopieDe(*source.info, repertoire) : new InfoPersonne;
    copie->numero = *numero;
    copie->pere = ParentDecale(source.pere, exposant + 1);
    copie->mere = ParentDecale(source.mere, exposant + 1);
    copie->enfant = copie->numero / 2;
    return copie;
}

bool GenerationsDecalees(const Arbre &arbre)
{
    return arbre.premiere && arbre.premiere->numerogeneration != 0;
}

void RelieASonEnfant(Personne *enfant, Personne *copie)
{
    if (enfant)
        (copie->numero % 2 != 0 ? enfant->ptrMere : enfant->ptrPere) = copie;
}

void AssembleArbres(Arbre &arbre, const Arbre &arbrePere, const Arbre &arbreMere, const QString &repertoire)
{
    Assemblage assemblage(arbre);
    assemblage.Ajoute(RacineEnfant());
    assemblage.AjouteLeCote(arbrePere, true, repertoire);
    assemblage.AjouteLeCote(arbreMere, false, repertoire);
}
