#include "zoom.h"

#include <cmath>

namespace {

constexpr double parCran = 1.25;

int Dessous(double valeur)
{
    return static_cast<int>(std::floor(valeur));
}

int Dessus(double valeur)
{
    return static_cast<int>(std::ceil(valeur));
}

}  // namespace

Zoom::Zoom(int unCran)
    : cran(qBound(plusPetit, unCran, plusGrand))
    , facteur(std::pow(parCran, cran))
{
}

long Zoom::Longueur(long surPapier) const
{
    return EstCommeSurLePapier() ? surPapier : static_cast<long>(std::ceil(double(surPapier) * facteur));
}

QRect Zoom::Rectangle(const QRect &surPapier) const
{
    if (EstCommeSurLePapier())
        return surPapier;
    const QPoint debut(Dessous(surPapier.left() * facteur), Dessous(surPapier.top() * facteur));
    const QPoint fin(Dessus((surPapier.left() + surPapier.width()) * facteur),
                     Dessus((surPapier.top() + surPapier.height()) * facteur));
    return {debut, QSize(fin.x() - debut.x(), fin.y() - debut.y())};
}

QPoint Zoom::PointSurPapier(QPoint aLEcran) const
{
    if (EstCommeSurLePapier())
        return aLEcran;
    return {Dessous(aLEcran.x() / facteur), Dessous(aLEcran.y() / facteur)};
}

QRect Zoom::RectangleSurPapier(const QRect &aLEcran) const
{
    if (EstCommeSurLePapier())
        return aLEcran;
    // No line is thinner than a pixel of the screen, which may be many of the paper's.
    const int bord = Dessus(1.0 / facteur) + 1;
    const QPoint debut(Dessous(aLEcran.left() / facteur), Dessous(aLEcran.top() / facteur));
    const QPoint fin(Dessus((aLEcran.left() + aLEcran.width()) / facteur),
                     Dessus((aLEcran.top() + aLEcran.height()) / facteur));
    return QRect(debut, QSize(fin.x() - debut.x(), fin.y() - debut.y())).adjusted(-bord, -bord, bord, bord);
}
