#pragma once

#include <QGuiApplication>
#include <QScreen>

/// Size of a main window that was never opened: 800 x 600 where the desktop is larger than that, else 600 x 440.
[[nodiscard]] inline QSize TailleInitiale()
{
    const QRect bureau = QGuiApplication::primaryScreen()->virtualGeometry();
    return bureau.width() > 800 && bureau.height() > 600 ? QSize(800, 600) : QSize(600, 440);
}
