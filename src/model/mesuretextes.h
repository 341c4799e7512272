#pragma once

class InfoPersonne;

/// How much room the texts of a person may need, whatever the font: always on the large side.
struct MesureTextes
{
    long lignes = 0;       ///< of one text height each
    long plusLongMot = 0;  ///< in letters as wide as a text is high
};

/// Looks at every letter of the texts.
[[nodiscard]] MesureTextes MesureLesTextes(const InfoPersonne &info);
