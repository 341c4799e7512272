#include "comparaison.h"

#include "arbre.h"
#include "infopersonne.h"
#include "personne.h"

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

template <typename T> struct Champ
{
    const char *nom;
    QString T::*texte;
};

constexpr std::array champsDesTitres{
    Champ<InfoArbre>{"titre", &InfoArbre::titrearbre},
    Champ<InfoArbre>{"créé par", &InfoArbre::creepar},
    Champ<InfoArbre>{"date de création", &InfoArbre::date},
    Champ<InfoArbre>{"mis à jour par", &InfoArbre::majpar},
    Champ<InfoArbre>{"date de mise à jour", &InfoArbre::datemaj},
};

constexpr std::array champsDesPersonnes{
    Champ<InfoPersonne>{"nom", &InfoPersonne::nom},
    Champ<InfoPersonne>{"prénom", &InfoPersonne::prenom},
    Champ<InfoPersonne>{"date de naissance", &InfoPersonne::datenaissance},
    Champ<InfoPersonne>{"lieu de naissance", &InfoPersonne::lieunaissance},
    Champ<InfoPersonne>{"date de décès", &InfoPersonne::datedeces},
    Champ<InfoPersonne>{"lieu de décès", &InfoPersonne::lieudeces},
    Champ<InfoPersonne>{"remarque", &InfoPersonne::divers},
    Champ<InfoPersonne>{"fiche", &InfoPersonne::fichtml},
    Champ<InfoPersonne>{"photo", &InfoPersonne::ficphoto},
};

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
    void Textes(quint64 numero, const std::array<Champ<T>, N> &champs, const T &a, const T &b) const
    {
        for (const Champ<T> &champ : champs) {
            if (a.*champ.texte != b.*champ.texte)
                pourChacune({numero, QString::fromUtf8(champ.nom), a.*champ.texte, b.*champ.texte});
        }
    }

    void MemeNumero(const Personne &a, const Personne &b) const
    {
        Textes(a.numero, champsDesPersonnes, TextesDe(a), TextesDe(b));
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
        comparaison.Textes(0, champsDesTitres, *a.infoArbre, *b.infoArbre);
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
