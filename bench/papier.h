#pragma once

#include <QPageLayout>
#include <QPdfWriter>

/// The paper that the program draws on: A4 with margins of ten points, at the resolution of a screen.
inline void PoseLePapier(QPdfWriter &pdf)
{
    pdf.setPageLayout(
        QPageLayout(QPageSize(QPageSize::A4), QPageLayout::Portrait, QMarginsF(10, 10, 10, 10), QPageLayout::Point));
    pdf.setResolution(96);
}
