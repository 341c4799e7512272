#pragma once

#include <QApplication>
#include <QImage>
#include <QPalette>

/// A desktop with light letters on a dark ground, as long as it lives.
class BureauSombre
{
public:
    BureauSombre()
        : avant(QApplication::palette())
    {
        QPalette palette(QColor(30, 30, 30));
        palette.setColor(QPalette::Base, QColor(10, 10, 10));
        palette.setColor(QPalette::Window, QColor(30, 30, 30));
        palette.setColor(QPalette::Text, Qt::white);
        palette.setColor(QPalette::WindowText, Qt::white);
        palette.setColor(QPalette::Link, Qt::yellow);
        QApplication::setPalette(palette);
    }
    ~BureauSombre() { QApplication::setPalette(avant); }
    Q_DISABLE_COPY_MOVE(BureauSombre)

private:
    QPalette avant;
};

/// How many pixels of \a image have exactly this colour.
inline int PixelsDe(const QImage &image, QColor couleur)
{
    int nombre = 0;
    for (int y = 0; y < image.height(); ++y) {
        for (int x = 0; x < image.width(); ++x)
            nombre += image.pixelColor(x, y) == couleur ? 1 : 0;
    }
    return nombre;
}
