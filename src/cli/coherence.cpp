#include "coherence.h"

#include "arbre.h"
#include "personne.h"

#include <algorithm>
#include <bit>
#include <limits>

namespace {

unsigned short GenerationDe(quint64 numero)
{
    return static_cast<unsigned short>(std::bit_width(numero) - 1);
}

}  // namespace

Coherence::Coherence(const Arbre &arbre)
{
    for (const Personne *personne = arbre.premiere; personne; personne = personne->suivante) {
        ++personnes;
        if (personne->numero == 0)
            continue;
        ++porteurs[personne->numero];
        generations = std::max<unsigned short>(generations, GenerationDe(personne->numero) + 1);
    }
}

Coherence::Voulus Coherence::PourLeNumero(quint64 numero) const
{
    const auto siPresent = [this, numero](quint64 place) -> quint64 {
        if (numero > std::numeric_limits<quint64>::max() / 2)
            return 0;
        return porteurs.contains(2 * numero + place) ? 2 * numero + place : 0;
    };
    return {GenerationDe(numero), siPresent(0), siPresent(1), numero / 2};
}

std::vector<Coherence::Ecart> Coherence::De(const Personne &personne) const
{
    std::vector<Ecart> ecarts;
    if (personne.numero == 0)
        return ecarts;
    const Voulus voulus = PourLeNumero(personne.numero);
    const auto compare = [&ecarts](const char *nom, quint64 ecrit, quint64 voulu) {
        if (ecrit != voulu)
            ecarts.push_back({nom, ecrit, voulu});
    };
    compare("génération", personne.numerogeneration, voulus.generation);
    compare("père", personne.pere, voulus.pere);
    compare("mère", personne.mere, voulus.mere);
    compare("enfant", personne.enfant, voulus.enfant);
    return ecarts;
}

void Coherence::Corrige(Personne &personne) const
{
    if (personne.numero == 0)
        return;
    const Voulus voulus = PourLeNumero(personne.numero);
    personne.numerogeneration = voulus.generation;
    personne.pere = voulus.pere;
    personne.mere = voulus.mere;
    personne.enfant = voulus.enfant;
}
