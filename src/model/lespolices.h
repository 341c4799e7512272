#pragma once

#include <QColor>
#include <QFont>
#include <QString>

/// Family of every font until the user chooses another.
inline const QString defNomPol = QStringLiteral("Helvetica");
/// Colour of the texts until the user chooses another.
inline constexpr Qt::GlobalColor defCouleurDesCaracteres = Qt::black;

/// The four fonts of a chart and the colour of all its texts. A newly constructed one holds default fonts and an
/// invalid colour; it is filled from a file or from one of the two sets below before use.
struct LesPolices
{
    QFont policeTextes;   ///< texts inside the boxes
    QFont policeNumeros;  ///< the persons' numbers
    QFont policeTitre;    ///< the title of the tree
    QFont policeLegende;  ///< the legend under the title
    QColor couleurCaracteres;

    /// Helvetica 8, 14 bold, 30 bold and 12, in black.
    [[nodiscard]] static LesPolices ParDefaut();
    /// The fonts of the reduced display: Helvetica 8, 8 bold, 10 bold and 8, in black.
    [[nodiscard]] static LesPolices Reduites();
};

/// Weights stand in the files and dialogs on a scale of 0 to 99 (50 normal, 75 bold), while QFont counts to 1000
/// (400 normal, 700 bold). These two are the only place where one becomes the other.
[[nodiscard]] QFont::Weight PoidsDePolice(int poidsSurCent);
/// The weight of \a police on the scale of 0 to 99.
[[nodiscard]] int PoidsSurCent(const QFont &police);

/// A font by its family, its size in points (12 when it is not positive) and its weight on the scale of 0 to 99.
[[nodiscard]] QFont FaitPolice(const QString &famille, int points, int poidsSurCent, bool italique = false);

/// \a police as it can be drawn: an absurd size from a damaged file is brought back to one that a font engine bears.
[[nodiscard]] QFont PoliceDessinable(const QFont &police);
