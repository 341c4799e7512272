#include "lecture.h"

#include "francais.h"

#include <QFileInfo>

namespace {

constexpr qint64 octetsMax = qint64(2) << 30;

}  // namespace

bool OuvreEnLecture(QFile &fichier, QIODevice::OpenMode mode, QString &cause)
{
    const QFileInfo info(fichier.fileName());
    if (info.exists() && !info.isFile() && !info.isDir()) {
        cause = QStringLiteral("Ce n'est pas un fichier ordinaire");
        return false;
    }
    if (info.isFile() && info.size() > octetsMax) {
        cause = QStringLiteral("Le fichier est trop grand");
        return false;
    }
    if (fichier.open(mode))
        return true;
    cause = ErreurEnFrancais(fichier.errorString());
    return false;
}

bool SansMarqueLongtemps(QByteArrayView octets, char marque)
{
    constexpr qsizetype bloc = qsizetype(32) << 20;
    for (qsizetype debut = 0; debut + bloc <= octets.size(); debut += bloc) {
        if (!octets.sliced(debut, bloc).contains(marque))
            return true;
    }
    return false;
}
