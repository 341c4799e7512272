#include "ecriture.h"

#include <QFile>
#include <QFileInfo>

qint64 FichierComplet::writeData(const char *octets, qint64 nombre)
{
    qint64 ecrits = 0;
    while (ecrits < nombre) {
        const qint64 morceau = QSaveFile::writeData(octets + ecrits, nombre - ecrits);
        if (morceau <= 0) {
            complet = false;
            return -1;
        }
        ecrits += morceau;
    }
    return ecrits;
}

EcritureFichier::EcritureFichier(const QString &nom)
    : fichier(nom)
{
}

bool EcritureFichier::Ouvre()
{
    const QFileInfo cible(fichier.fileName());
    if (cible.exists() && !cible.isFile() && !cible.isDir()) {
        refus = QStringLiteral("Ce n'est pas un fichier ordinaire");
        return false;
    }
    if (cible.exists()) {
        QFile essai(fichier.fileName());
        if (!essai.open(QIODevice::WriteOnly | QIODevice::Append | QIODevice::ExistingOnly)) {
            refus = essai.errorString();
            return false;
        }
    }
    return fichier.open(QIODevice::WriteOnly | QIODevice::Unbuffered);
}

bool EcritureFichier::Termine()
{
    return fichier.EstComplet() && fichier.commit();
}
