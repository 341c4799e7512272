#include "ecran.h"

#include <QGuiApplication>
#include <QRect>
#include <QScreen>

namespace {

constexpr int hauteurTitre = 30;

/// The user can take the window by its title bar.
bool SePrend(const QRect &titre, const QRect &ecran)
{
    constexpr int largeurMin = 60;
    constexpr int hauteurMin = 10;
    const QRect visible = titre & ecran;
    return visible.width() >= largeurMin && visible.height() >= hauteurMin;
}

QPoint PlaceDans(const QRect &ecran, QPoint place, QSize taille)
{
    const auto borne = [](int valeur, int debut, int fin) { return qMax(debut, qMin(valeur, fin)); };
    return {borne(place.x(), ecran.left(), ecran.left() + ecran.width() - taille.width()),
            borne(place.y(), ecran.top(), ecran.top() + ecran.height() - taille.height() - hauteurTitre)};
}

}  // namespace

QSize TailleInitiale()
{
    const QRect bureau = QGuiApplication::primaryScreen()->virtualGeometry();
    return bureau.width() > 800 && bureau.height() > 600 ? QSize(800, 600) : QSize(600, 440);
}

QPoint PlaceVisible(QPoint voulue, QSize taille, const QList<QRect> &ecrans)
{
    // Further than any desk, and no sum of such numbers leaves the integers.
    constexpr int loin = 1'000'000;
    const QPoint place(qBound(-loin, voulue.x(), loin), qBound(-loin, voulue.y(), loin));
    const QRect titre(place, QSize(taille.width(), hauteurTitre));
    QPoint meilleure = voulue;
    int distance = -1;
    for (const QRect &ecran : ecrans) {
        if (SePrend(titre, ecran))
            return place;
        const QPoint candidate = PlaceDans(ecran, place, taille);
        const int sienne = (candidate - place).manhattanLength();
        if (distance < 0 || sienne < distance) {
            meilleure = candidate;
            distance = sienne;
        }
    }
    return meilleure;
}

QPoint PlaceVisible(QPoint voulue, QSize taille)
{
    QList<QRect> ecrans;
    const auto tous = QGuiApplication::screens();
    for (const QScreen *ecran : tous)
        ecrans += ecran->availableGeometry();
    return PlaceVisible(voulue, taille, ecrans);
}
