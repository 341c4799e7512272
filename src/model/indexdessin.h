#pragma once

#include "debordspeints.h"
#include "encombrement.h"

#include <functional>
#include <vector>

class Arbre;
class Personne;

/// Some persons that follow one another in the list, and where they are.
struct Bloc
{
    Personne *premiere = nullptr;
    std::size_t rang = 0;           ///< of the first one in the list
    const Personne *fin = nullptr;  ///< behind the last one; none at the end of the list
    Coins coins{};                  ///< of their boxes
    Coins coinsLies{};              ///< of the boxes of those who have parents, and of these parents
    MesureTextes textes{};          ///< the most that one of them needs
    quint64 plusGrandNumero = 0;
};

/// Where the persons of a tree stand: what is drawn in a part of the chart, or lies under the mouse, is found without
/// walking the list. Neighbours in the list are neighbours in their row; a tree in any other state takes longer, and no
/// more. Good until a person moves, comes or goes; texts may change (TextesChanges).
class IndexDessin
{
public:
    explicit IndexDessin(const Arbre &arbre);

    /// True while \a arbre counts as many generations as at the construction, and the same persons have a photo beside
    /// their boxes: what a layout looks at and that changes without a person moving, coming or going.
    [[nodiscard]] bool RienNaChange(const Arbre &arbre) const;

    using Question = std::function<bool(const Bloc &)>;
    using Visite = std::function<void(const Bloc &)>;
    /// Visits in list order the blocks that answer \a question with true. A question that is true for some persons must be
    /// true for more of them.
    void Parcourt(const Question &question, const Visite &visite) const;
    /// To be called when the texts of \a personne, of the list, changed.
    void TextesChanges(const Personne &personne);
    [[nodiscard]] DebordsPeints &Peints() { return peints; }

private:
    /// Blocks that follow one another, as one.
    struct Groupe
    {
        Bloc tous;
        std::size_t premier;
        std::size_t fin;
    };

    void Range(Personne *personne, bool avecLiens);
    void RassembleLesBlocs();
    void OublieLePeint(const Bloc &bloc, const Personne &changee);

    std::vector<Bloc> blocs;
    std::vector<Groupe> groupes;
    unsigned short nombreGenerations;
    DebordsPeints peints;
    std::vector<bool> avecPhoto;  ///< in list order
};
