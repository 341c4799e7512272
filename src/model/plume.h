#pragma once

#include <QPaintEngine>
#include <QPainter>

/// The width to give a pen so that \a painter draws lines of \a epaisseurPx pixels. On a PDF page a painter believes that its
/// default black pen of one pixel is set already and never hands it down, so that Qt's PDF writer would draw with the
/// hairline that it starts with: a tenth as thick, and all but lost on paper. Its pen of no width is that hairline too.
[[nodiscard]] inline qreal LargeurDePlume(const QPainter &painter, int epaisseurPx)
{
    constexpr qreal unPixelPourUnPdf = 1.001;
    const bool versUnPdf = painter.paintEngine() && painter.paintEngine()->type() == QPaintEngine::Pdf;
    return versUnPdf && epaisseurPx <= 1 ? unPixelPourUnPdf : epaisseurPx;
}
