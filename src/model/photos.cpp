#include "photos.h"

#include <QDateTime>
#include <QFileInfo>
#include <QHash>
#include <QImageReader>

namespace {

struct PhotoLue
{
    QImage image;
    QDateTime date;
    qint64 taille;
};

QHash<QString, PhotoLue> &PhotosLues()
{
    static QHash<QString, PhotoLue> photos;
    return photos;
}

QImage Lit(const QString &chemin)
{
    QImageReader lecteur(chemin);
    lecteur.setAutoTransform(true);
    return lecteur.read();
}

}  // namespace

QImage LitPhoto(const QString &chemin)
{
    const QFileInfo fichier(chemin);
    if (chemin.contains(QChar(QChar::Null)) || !fichier.isFile())
        return {};
    const QString nom = fichier.canonicalFilePath();
    const QDateTime date = fichier.lastModified();
    const qint64 taille = fichier.size();
    QHash<QString, PhotoLue> &photos = PhotosLues();
    const auto lue = photos.constFind(nom);
    if (lue != photos.constEnd() && lue->date == date && lue->taille == taille)
        return lue->image;
    QImage image = Lit(chemin);
    if (!image.isNull())
        photos.insert(nom, {.image = image, .date = date, .taille = taille});
    return image;
}

void OublieLesPhotosInutiles()
{
    // Detached: the only one that still holds its pixels is this list.
    PhotosLues().removeIf([](QHash<QString, PhotoLue>::iterator lue) { return lue->image.isDetached(); });
}
