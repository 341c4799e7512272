#pragma once

#include <QImage>
#include <QString>

/// The image of a regular file, turned upright as its camera noted; null when there is none. Persons with the same photo
/// share one image: a file that an image in use came from is not read again until it changes. Not thread-safe.
[[nodiscard]] QImage LitPhoto(const QString &chemin);

/// Frees the images that LitPhoto keeps and nobody else uses. O(images in use).
void OublieLesPhotosInutiles();
