#include "comparaison.h"

#include "arbre.h"
#include "personne.h"
#include "textesnommes.h"

#include <algorithm>
#include <array>
#include <vector>

namespace {

using Personnes = std::vector<const Personne *>;

/// In the order of their numbers; those of one number as in the list.
Personnes ParNumero(const Arbre &arbre)
{
    Personnes personnes;
    for (const Personne *personne = arbre.premiere; personne; personne = personne->suivante)
        personnes.push_back(personne);
    std::stable_sort(personnes.begin(), personnes.end(),
                     [](const Personne *a, const Personne *b) { return a->numero < b->numero; });
    return personnes;
}

/// Somebody's texts, also where a damaged file gave none.
const InfoPersonne &TextesDe(const Personne &personne)
{
    static const InfoPersonne aucun;
    return personne.info ? *personne.info : aucun;
}

QString NomDe(const Personne &personne)
{
    const InfoPersonne &info = TextesDe(personne);
    const QString nom = (info.prenom + u' ' + info.nom).trimmed();
    return nom.isEmpty() ? QStringLiteral("sans nom") : nom;
}

struct Lien
{
    const char *nom;
    quint64 Personne::*numero;
};

constexpr std::array liens{
    Lien{"père", &Personne::pere},
    Lien{"mère", &Personne::mere},
    Lien{"enfant", &Personne::enfant},
};

class Comparaison
{
public:
    explicit Comparaison(const std::function<void(const Difference &)> &quiEcoute)
        : pourChacune(quiEcoute)
    {
    }

    template <typename T, std::size_t N>
    void Textes(quint64 numero, const std::array<TexteNomme<T>, N> &champs, const T &a, const T &b) const
    {
        for (const TexteNomme<T> &champ : champs) {
            if (a.*champ.texte != b.*champ.texte)
                pourChacune({numero, QString::fromUtf8(champ.nom), a.*champ.texte, b.*champ.texte});
        }
    }

    void MemeNumero(const Personne &a, const Personne &b) const
    {
        Textes(a.numero, textesDesPersonnes, TextesDe(a), TextesDe(b));
        for (const Lien &lien : liens) {
            if (a.*lien.numero != b.*lien.numero)
                pourChacune({a.numero, QString::fromUtf8(lien.nom), QString::number(a.*lien.numero),
                             QString::number(b.*lien.numero)});
        }
    }

    void SeulementDansA(const Personne &a) const { pourChacune({a.numero, {}, NomDe(a), {}}); }
    void SeulementDansB(const Personne &b) const { pourChacune({b.numero, {}, {}, NomDe(b)}); }

private:
    const std::function<void(const Difference &)> &pourChacune;
};

}  // namespace

void Compare(const Arbre &a, const Arbre &b, bool avecTitres,
             const std::function<void(const Difference &)> &pourChacune)
{
    const Comparaison comparaison(pourChacune);
    if (avecTitres)
        comparaison.Textes(0, textesDesTitres, *a.infoArbre, *b.infoArbre);
    const Personnes deA = ParNumero(a);
    const Personnes deB = ParNumero(b);
    auto placeA = deA.begin();
    auto placeB = deB.begin();
    while (placeA != deA.end() || placeB != deB.end()) {
        if (placeB == deB.end() || (placeA != deA.end() && (*placeA)->numero < (*placeB)->numero))
            comparaison.SeulementDansA(**placeA++);
        else if (placeA == deA.end() || (*placeB)->numero < (*placeA)->numero)
            comparaison.SeulementDansB(**placeB++);
        else
            comparaison.MemeNumero(**placeA++, **placeB++);
    }
}
