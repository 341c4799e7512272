#include "lecture.h"

#include <QFileInfo>

bool OuvreEnLecture(QFile &fichier, QIODevice::OpenMode mode, QString &cause)
{
    const QFileInfo info(fichier.fileName());
    if (info.exists() && !info.isFile() && !info.isDir()) {
        cause = QStringLiteral("Ce n'est pas un fichier ordinaire");
        return false;
    }
    if (fichier.open(mode))
        return true;
    cause = fichier.errorString();
    return false;
}
