#pragma once

#include "unites.h"

#include <QPainter>
#include <QRect>

/// The part of the drawing that \a peintre shows, in its own coordinates; null when it shows everything.
[[nodiscard]] inline QRect ZoneMontree(const QPainter &peintre)
{
    if (!peintre.hasClipping())
        return {};
    const QRectF zone = peintre.clipBoundingRect();
    const QPoint hautGauche(EntierBorne(zone.left(), -1'000'000'000, 1'000'000'000),
                            EntierBorne(zone.top(), -1'000'000'000, 1'000'000'000));
    const QPoint basDroite(EntierBorne(zone.right(), -1'000'000'000, 1'000'000'000),
                           EntierBorne(zone.bottom(), -1'000'000'000, 1'000'000'000));
    return QRect(hautGauche, basDroite).adjusted(-2, -2, 2, 2);
}
