#include "ecriture.h"

#include <QFile>
#include <QFileInfo>

EcritureFichier::EcritureFichier(const QString &nom)
    : fichier(nom)
{
}

bool EcritureFichier::Ouvre()
{
    const QFileInfo cible(fichier.fileName());
    if (cible.exists() && !cible.isFile() && !cible.isDir()) {
        erreur = QStringLiteral("Ce n'est pas un fichier ordinaire");
        return false;
    }
    if (cible.exists()) {
        QFile essai(fichier.fileName());
        if (!essai.open(QIODevice::WriteOnly | QIODevice::Append | QIODevice::ExistingOnly)) {
            erreur = essai.errorString();
            return false;
        }
    }
    if (!fichier.open(QIODevice::WriteOnly)) {
        erreur = fichier.errorString();
        return false;
    }
    return true;
}

bool EcritureFichier::Termine()
{
    // commit() flushes and refuses when any earlier write failed.
    if (fichier.commit())
        return true;
    erreur = fichier.errorString();
    return false;
}
