#include "debordspeints.h"

#include "unites.h"

#include <algorithm>
#include <limits>

DebordsPeints::DebordsPeints(std::size_t personnes)
    : entrees(personnes)
{
}

void DebordsPeints::CommencePour(const Encombrement &encombrement)
{
    if (notesPour == encombrement)
        return;
    notesPour = encombrement;
    std::fill(entrees.begin(), entrees.end(), Entree());
}

std::optional<Debords> DebordsPeints::Connus(std::size_t rang) const
{
    const Entree &entree = entrees[rang];
    if (entree.dessous == 0)
        return {};
    return Debords{.dessous = entree.dessous, .cotes = entree.cotes};
}

void DebordsPeints::Note(std::size_t rang, const Debords &debords)
{
    constexpr long limite = std::numeric_limits<quint16>::max();
    const long cotes = MaxLI(debords.cotes, 0);
    if (debords.dessous > 0 && debords.dessous <= limite && cotes <= limite)
        entrees[rang] = {.dessous = static_cast<quint16>(debords.dessous), .cotes = static_cast<quint16>(cotes)};
}

void DebordsPeints::Oublie(std::size_t rang)
{
    entrees[rang] = {};
}
