#include "branches.h"

#include <array>
#include <bit>

QColor CouleurDeBranche(quint64 numero, quint64 racine)
{
    // From light to dark, so far apart in grey that a printer without colours keeps them apart.
    static const std::array couleurs{QColor(0xFF, 0xF1, 0xC2), QColor(0xC5, 0xE5, 0xFB), QColor(0xBA, 0xD9, 0xAB),
                                     QColor(0xE8, 0xA9, 0xA8)};
    const int generations = static_cast<int>(std::bit_width(numero)) - static_cast<int>(std::bit_width(racine));
    if (racine == 0 || generations < 2 || (numero >> generations) != racine)
        return {};
    return couleurs.at((numero >> (generations - 2)) % 4);
}
