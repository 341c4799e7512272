#pragma once

#include <QPoint>
#include <QRect>

/// How much larger than on paper the chart is shown: on the screen alone, nothing else knows of it. Goes by notches, so that
/// as many back as forth give the same size again. A chart is laid out for paper, and painted and clicked at through this.
class Zoom
{
public:
    /// About a tenth, and nearly four times.
    static constexpr int plusPetit = -10;
    static constexpr int plusGrand = 6;

    /// As on paper.
    Zoom() = default;
    /// \a unCran notches larger than on paper, smaller when negative, within the bounds.
    explicit Zoom(int unCran);

    [[nodiscard]] int Cran() const { return cran; }
    [[nodiscard]] double Facteur() const { return facteur; }
    [[nodiscard]] bool EstCommeSurLePapier() const { return cran == 0; }
    bool operator==(const Zoom &autre) const { return cran == autre.cran; }

    /// Pixels of the screen, from pixels of the chart as on paper: a length is never cut, a rectangle holds all of it.
    [[nodiscard]] long Longueur(long surPapier) const;
    [[nodiscard]] QRect Rectangle(const QRect &surPapier) const;
    /// And back: the point that is shown there, the least rectangle that holds what is shown there, thin lines included.
    [[nodiscard]] QPoint PointSurPapier(QPoint aLEcran) const;
    [[nodiscard]] QRect RectangleSurPapier(const QRect &aLEcran) const;

private:
    int cran = 0;
    double facteur = 1.0;
};
