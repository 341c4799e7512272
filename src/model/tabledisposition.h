#pragma once

#include <cstddef>
#include <vector>

/// The persons of a well-formed tree as plain columns, one entry a person in list order, while a layout moves them.
struct TableDisposition
{
    using Rang = std::size_t;

    struct Rangee
    {
        Rang debut;
        Rang fin;
    };

    std::vector<long> x;
    std::vector<int> premiersParents;  ///< the person itself where it has no parent
    std::vector<int> secondsParents;   ///< as the first where there is only one
    std::vector<int> enfants;          ///< the number of persons where there is none
    std::vector<int> largeurs;         ///< taken in the row, the gap to the next box included
    std::vector<Rangee> rangees;       ///< by generation
};
