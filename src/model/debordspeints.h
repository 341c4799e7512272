#pragma once

#include "encombrement.h"

#include <optional>
#include <vector>

/// What the texts of each person of a tree took when they were drawn, so that whoever ends before the exposed part is not
/// drawn to find that out again. Persons go by their place in the list.
class DebordsPeints
{
public:
    explicit DebordsPeints(std::size_t personnes);

    /// What follows is drawn with \a encombrement: what was noted with another is forgotten.
    void CommencePour(const Encombrement &encombrement);
    [[nodiscard]] std::optional<Debords> Connus(std::size_t rang) const;
    /// Ignores what is too large to be kept.
    void Note(std::size_t rang, const Debords &debords);
    void Oublie(std::size_t rang);

private:
    struct Entree
    {
        quint16 dessous = 0;  ///< 0: not known
        quint16 cotes = 0;
    };

    std::optional<Encombrement> notesPour;
    std::vector<Entree> entrees;
};
