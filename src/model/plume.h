#pragma once

#include <QPaintEngine>
#include <QPainter>

/// The width to give a pen so that \a painter draws lines of \a epaisseurPx pixels. Qt's PDF writer takes a pen of exactly
/// one pixel, or of none, for a hairline: a tenth as thick as on the screen, and all but lost on paper.
[[nodiscard]] inline qreal LargeurDePlume(const QPainter &painter, int epaisseurPx)
{
    constexpr qreal unPixelPourUnPdf = 1.001;
    const bool versUnPdf = painter.paintEngine() && painter.paintEngine()->type() == QPaintEngine::Pdf;
    return versUnPdf && epaisseurPx <= 1 ? unPixelPourUnPdf : epaisseurPx;
}
