#include "lespolices.h"

#include <array>
#include <cstdlib>
#include <utility>

namespace {

constexpr std::array<std::pair<int, QFont::Weight>, 9> poidsConnus{{{0, QFont::Thin},
                                                                    {12, QFont::ExtraLight},
                                                                    {25, QFont::Light},
                                                                    {50, QFont::Normal},
                                                                    {57, QFont::Medium},
                                                                    {63, QFont::DemiBold},
                                                                    {75, QFont::Bold},
                                                                    {81, QFont::ExtraBold},
                                                                    {87, QFont::Black}}};

constexpr int poidsNormal = 50;
constexpr int poidsGras = 75;

}  // namespace

QFont::Weight PoidsDePolice(int poidsSurCent)
{
    auto meilleur = poidsConnus.front();
    for (const auto &candidat : poidsConnus) {
        if (std::abs(qint64(candidat.first) - poidsSurCent) < std::abs(qint64(meilleur.first) - poidsSurCent))
            meilleur = candidat;
    }
    return meilleur.second;
}

int PoidsSurCent(const QFont &police)
{
    auto meilleur = poidsConnus.front();
    for (const auto &candidat : poidsConnus) {
        if (std::abs(candidat.second - police.weight()) < std::abs(meilleur.second - police.weight()))
            meilleur = candidat;
    }
    return meilleur.first;
}

QFont FaitPolice(const QString &famille, int points, int poidsSurCent, bool italique)
{
    return {famille, points, PoidsDePolice(poidsSurCent), italique};
}

QFont PoliceDessinable(const QFont &police)
{
    constexpr int pointsMax = 1000;
    if (police.pointSize() <= pointsMax)
        return police;
    QFont bornee = police;
    bornee.setPointSize(pointsMax);
    return bornee;
}

LesPolices LesPolices::ParDefaut()
{
    return {.policeTextes = FaitPolice(defNomPol, 8, poidsNormal),
            .policeNumeros = FaitPolice(defNomPol, 14, poidsGras),
            .policeTitre = FaitPolice(defNomPol, 30, poidsGras),
            .policeLegende = FaitPolice(defNomPol, 12, poidsNormal),
            .couleurCaracteres = defCouleurDesCaracteres};
}

LesPolices LesPolices::Reduites()
{
    return {.policeTextes = FaitPolice(defNomPol, 8, poidsNormal),
            .policeNumeros = FaitPolice(defNomPol, 8, poidsGras),
            .policeTitre = FaitPolice(defNomPol, 10, poidsGras),
            .policeLegende = FaitPolice(defNomPol, 8, poidsNormal),
            .couleurCaracteres = defCouleurDesCaracteres};
}
