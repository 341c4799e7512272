#include "annuaire.h"

#include "arbre.h"
#include "personne.h"

#include <algorithm>
#include <limits>

namespace {

/// The decimal number that \a texte is; nothing when it is not only digits, begins with a useless 0 or is too large.
std::optional<quint64> EnNombre(QStringView texte)
{
    if (texte.isEmpty() || (texte.front() == u'0' && texte.size() > 1))
        return {};
    constexpr quint64 plusGrand = std::numeric_limits<quint64>::max();
    quint64 nombre = 0;
    for (const QChar chiffre : texte) {
        if (chiffre < u'0' || chiffre > u'9')
            return {};
        const quint64 valeur = chiffre.unicode() - u'0';
        if (nombre > (plusGrand - valeur) / 10)
            return {};
        nombre = nombre * 10 + valeur;
    }
    return nombre;
}

/// True when the digits of \a numero begin with those of \a debut.
bool Commence(quint64 numero, quint64 debut)
{
    while (numero > debut)
        numero /= 10;
    return numero == debut;
}

/// Numbers strictly increase around \a personne.
bool EstEntreSesVoisines(const Personne &personne)
{
    return (!personne.precedente || personne.precedente->numero < personne.numero)
        && (!personne.suivante || personne.numero < personne.suivante->numero);
}

}  // namespace

Annuaire::Annuaire(const Arbre &arbre)
{
    for (Personne *personne = arbre.premiere; personne; personne = personne->suivante) {
        trie = trie && (personnes.empty() || personnes.back()->numero < personne->numero);
        personnes.push_back(personne);
        cles.emplace_back(personne->info);
    }
}

Personne *Annuaire::DeRang(std::size_t rang) const
{
    return rang < personnes.size() ? personnes[rang] : nullptr;
}

std::size_t Annuaire::RangDuNumero(quint64 numero) const
{
    const auto place = trie ? std::lower_bound(personnes.begin(), personnes.end(), numero,
                                               [](const Personne *une, quint64 n) { return une->numero < n; })
                            : std::find_if(personnes.begin(), personnes.end(),
                                           [numero](const Personne *une) { return une->numero == numero; });
    return static_cast<std::size_t>(place - personnes.begin());
}

std::optional<std::size_t> Annuaire::RangDe(const Personne *personne) const
{
    if (!personne)
        return {};
    const auto place = trie ? personnes.begin() + static_cast<std::ptrdiff_t>(RangDuNumero(personne->numero))
                            : std::find(personnes.begin(), personnes.end(), personne);
    if (place == personnes.end() || *place != personne)
        return {};
    return static_cast<std::size_t>(place - personnes.begin());
}

Personne *Annuaire::DeNumero(quint64 numero) const
{
    Personne *personne = DeRang(RangDuNumero(numero));
    return personne && personne->numero == numero ? personne : nullptr;
}

Personne *Annuaire::DAvant(quint64 numero) const
{
    const std::size_t rang = RangDuNumero(numero);
    return rang > 0 ? personnes[rang - 1] : nullptr;
}

Personne *Annuaire::EnfantDe(const Personne &parent) const
{
    const auto estLEnfant = [&parent](const Personne *une) {
        return une && (une->ptrPere == &parent || une->ptrMere == &parent);
    };
    for (const quint64 numero : {parent.enfant, parent.numero / 2}) {
        if (Personne *enfant = DeNumero(numero); estLEnfant(enfant))
            return enfant;
    }
    const auto place = std::find_if(personnes.begin(), personnes.end(), estLEnfant);
    return place == personnes.end() ? nullptr : *place;
}

template <typename Test> Personne *Annuaire::PremiereQui(const Personne *depuis, bool avecElle, const Test &test) const
{
    const std::size_t nombre = personnes.size();
    const std::optional<std::size_t> rang = RangDe(depuis);
    const std::size_t depart = rang ? *rang + (avecElle ? 0 : 1) : 0;
    for (std::size_t i = depart; i < depart + nombre; ++i) {
        const std::size_t ici = i < nombre ? i : i - nombre;
        if (test(ici))
            return personnes[ici];
    }
    return nullptr;
}

Personne *Annuaire::Prochaine(const Personne *depuis, bool avecElle, const NomCherche &nom) const
{
    return PremiereQui(depuis, avecElle, [&](std::size_t rang) {
        // Only who may be meant is looked at: that is what takes time.
        return nom.PeutEtre(cles[rang]) && personnes[rang]->info && nom.Est(*personnes[rang]->info);
    });
}

Personne *Annuaire::Prochaine(const Personne *depuis, bool avecElle, QStringView debut) const
{
    const std::optional<quint64> nombre = EnNombre(debut);
    if (!nombre)
        return nullptr;
    if (Personne *exacte = DeNumero(*nombre); exacte || *nombre == 0)
        return exacte;
    if (!trie) {
        return PremiereQui(depuis, avecElle,
                           [&](std::size_t rang) { return Commence(personnes[rang]->numero, *nombre); });
    }
    const std::optional<std::size_t> rang = RangDe(depuis);
    Personne *suivante = PremiereDuDebut(*nombre, rang ? *rang + (avecElle ? 0 : 1) : 0);
    return suivante ? suivante : PremiereDuDebut(*nombre, 0);
}

Personne *Annuaire::PremiereDuDebut(quint64 debut, std::size_t depuisRang) const
{
    constexpr quint64 plusGrand = std::numeric_limits<quint64>::max();
    // 12, then 120 to 129, then 1200 to 1299...
    quint64 premier = debut;
    quint64 dernier = debut;
    while (true) {
        Personne *personne = DeRang(std::max(RangDuNumero(premier), depuisRang));
        if (personne && personne->numero <= dernier)
            return personne;
        if (premier > plusGrand / 10)
            return nullptr;
        premier *= 10;
        dernier = dernier > (plusGrand - 9) / 10 ? plusGrand : dernier * 10 + 9;
    }
}

void Annuaire::TextesChanges(const Personne &personne)
{
    if (const std::optional<std::size_t> rang = RangDe(&personne))
        cles[*rang] = ClesDeNom(personne.info);
}

void Annuaire::Vient(Personne *personne)
{
    const std::size_t rang = RangDe(personne->suivante).value_or(personnes.size());
    const auto place = static_cast<std::ptrdiff_t>(rang);
    personnes.insert(personnes.begin() + place, personne);
    cles.insert(cles.begin() + place, ClesDeNom(personne->info));
    trie = trie && EstEntreSesVoisines(*personne);
}

void Annuaire::Part(const Personne &personne)
{
    const std::optional<std::size_t> rang = RangDe(&personne);
    if (!rang)
        return;
    const auto place = static_cast<std::ptrdiff_t>(*rang);
    personnes.erase(personnes.begin() + place);
    cles.erase(cles.begin() + place);
}
