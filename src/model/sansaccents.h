#pragma once

#include <QString>
#include <QStringView>

/// The letters of a text as a search compares them, one after the other: small, without accents, "oe" for "œ", a blank for a
/// hyphen. Works letter by letter, so that a text that begins with another goes on beginning with it. Allocates nothing.
class LettresSansAccents
{
public:
    explicit LettresSansAccents(QStringView unTexte)
        : texte(unTexte)
    {
    }

    /// The next letter; 0 at the end.
    [[nodiscard]] char16_t Suivante();

private:
    QStringView texte;
    qsizetype place = 0;
    char16_t enAttente = 0;  ///< second letter of a ligature
};

/// All of them.
[[nodiscard]] QString SansAccents(QStringView texte);
