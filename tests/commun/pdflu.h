#pragma once

#include <QRectF>
#include <QStringList>

#include <poppler-qt6.h>

/// What stands on the pages of a PDF file that was read back. Pages count from 0.
namespace PdfLu {

/// The words of a page, in its own order.
inline QStringList Mots(const Poppler::Document &pdf, int page)
{
    QStringList mots;
    for (const auto &boite : pdf.page(page)->textList())
        mots += boite->text();
    return mots;
}

/// The place of a word on its page, in points from the upper left corner; a null rectangle when it is not there.
inline QRectF Place(const Poppler::Document &pdf, int page, const QString &mot)
{
    for (const auto &boite : pdf.page(page)->textList()) {
        if (boite->text() == mot)
            return boite->boundingBox();
    }
    return {};
}

}  // namespace PdfLu
