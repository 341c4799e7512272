#pragma once

#include "nomcherche.h"

#include <QtGlobal>

#include <cstddef>
#include <optional>
#include <vector>

class Arbre;
class Personne;

/// The persons of a tree by their place in the list, by their number and by the beginnings of their names. To be told who
/// comes (Vient), goes (Part) and whose texts change (TextesChanges). What is said of O(log n) holds for lists sorted by
/// strictly increasing numbers, as they should be; any other list takes O(n), and gives the first person in its order.
class Annuaire
{
public:
    /// O(n).
    explicit Annuaire(const Arbre &arbre);

    [[nodiscard]] std::size_t Nombre() const { return personnes.size(); }
    /// The person at place \a rang, from 0; none beyond the last.
    [[nodiscard]] Personne *DeRang(std::size_t rang) const;
    /// The place of \a personne, which may be none; nothing when it is not in the list. O(log n).
    [[nodiscard]] std::optional<std::size_t> RangDe(const Personne *personne) const;
    /// The person of number \a numero, or none. O(log n).
    [[nodiscard]] Personne *DeNumero(quint64 numero) const;
    /// The person whose father or mother \a parent is drawn as, or none. O(log n) when its number is as it should be.
    [[nodiscard]] Personne *EnfantDe(const Personne &parent) const;

    /// The first person behind \a depuis, or from \a depuis on when \a avecElle, who may be \a nom; the list goes round, and
    /// begins at its head when \a depuis is none. None when there is nobody. O(n), but a million persons take no time.
    [[nodiscard]] Personne *Prochaine(const Personne *depuis, bool avecElle, const NomCherche &nom) const;
    /// The person of number \a debut, in decimal digits; when there is none, the first person behind \a depuis whose number
    /// begins with these digits, as above. None for anything but digits. O(log n).
    [[nodiscard]] Personne *Prochaine(const Personne *depuis, bool avecElle, QStringView debut) const;

    /// True when the numbers strictly increase along the list; once they did not, it may stay false.
    [[nodiscard]] bool EstTrie() const { return trie; }
    /// The last person whose number is smaller than \a numero; none when there is none. O(log n). Precondition: EstTrie().
    [[nodiscard]] Personne *DAvant(quint64 numero) const;

    /// To be called when the texts of \a personne, of the list, changed. O(log n).
    void TextesChanges(const Personne &personne);
    /// To be called when \a personne has come into the list. O(log n), and the moving of what stands behind it.
    void Vient(Personne *personne);
    /// To be called before \a personne leaves the list. As Vient.
    void Part(const Personne &personne);

private:
    template <typename Test>
    [[nodiscard]] Personne *PremiereQui(const Personne *depuis, bool avecElle, const Test &test) const;
    [[nodiscard]] std::size_t RangDuNumero(quint64 numero) const;
    [[nodiscard]] Personne *PremiereDuDebut(quint64 debut, std::size_t depuisRang) const;

    std::vector<Personne *> personnes;
    std::vector<ClesDeNom> cles;
    bool trie = true;
};
