#pragma once

#include <QPalette>

/// \a palette, with black on white where texts stand: a page, whatever the colours of the desktop are.
[[nodiscard]] inline QPalette PaletteDePapier(QPalette palette)
{
    palette.setColor(QPalette::Base, Qt::white);
    palette.setColor(QPalette::Text, Qt::black);
    return palette;
}
