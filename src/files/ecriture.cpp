#include "ecriture.h"

#include <QFile>
#include <QFileInfo>

#include <cerrno>
#include <cstdio>
#include <sys/stat.h>
#include <unistd.h>

namespace {

/// Where \a nom leads, also when nothing stands there yet.
QString DerriereLesLiens(const QString &nom)
{
    constexpr int liensMax = 40;
    QString chemin = nom;
    for (int liens = 0; liens < liensMax && QFileInfo(chemin).isSymLink(); ++liens)
        chemin = QFileInfo(chemin).symLinkTarget();
    return chemin;
}

/// The permissions of \a chemin, or those that a new file gets.
mode_t DroitsDe(const QString &chemin)
{
    struct stat etat
    {
    };
    if (::stat(QFile::encodeName(chemin).constData(), &etat) == 0)
        return etat.st_mode & 07777U;
    const mode_t masque = ::umask(0);
    ::umask(masque);
    return 0666U & ~masque;
}

}  // namespace

bool FichierTemporaire::CreeDans(const QString &dossier)
{
    setFileTemplate(dossier + QStringLiteral("/.ramelier-XXXXXX"));
    return QTemporaryFile::open(QIODevice::ReadWrite | QIODevice::Unbuffered) && !fileName().isEmpty();
}

bool FichierTemporaire::EcritTout(const char *octets, qint64 nombre)
{
    qint64 ecrits = 0;
    while (complet && ecrits < nombre) {
        const qint64 morceau = QTemporaryFile::writeData(octets + ecrits, nombre - ecrits);
        complet = morceau > 0;
        ecrits += morceau;
    }
    return complet;
}

bool FichierTemporaire::Vide()
{
    EcritTout(amasses.constData(), amasses.size());
    amasses.resize(0);
    return complet;
}

qint64 FichierTemporaire::writeData(const char *octets, qint64 nombre)
{
    // Qt's own buffer would forget what it could not write. A chart in PDF comes in pieces of a few dozen bytes.
    constexpr qsizetype amassesAuPlus = 65536;
    if (amasses.size() + nombre > amassesAuPlus && !Vide())
        return -1;
    if (nombre > amassesAuPlus)
        return EcritTout(octets, nombre) ? nombre : -1;
    amasses.append(octets, nombre);
    return nombre;
}

EcritureFichier::EcritureFichier(const QString &nom)
    : cible(nom)
{
}

bool EcritureFichier::Refuse(const QString &cause)
{
    refus = cause;
    return false;
}

bool EcritureFichier::Abandonne(const QString &cause)
{
    temporaire.remove();
    return Refuse(cause);
}

bool EcritureFichier::EssaieLaCible()
{
    struct stat etat
    {
    };
    const bool absente = ::stat(QFile::encodeName(cible).constData(), &etat) != 0 && errno == ENOENT;
    if (absente && !cible.isEmpty())
        return true;
    const QFileInfo info(cible);
    if (info.exists() && !info.isFile() && !info.isDir())
        return Refuse(QStringLiteral("Ce n'est pas un fichier ordinaire"));
    QFile essai(cible);
    return essai.open(QIODevice::WriteOnly | QIODevice::Append | QIODevice::ExistingOnly)
        || Refuse(essai.errorString());
}

bool EcritureFichier::Ouvre()
{
    if (!EssaieLaCible())
        return false;
    cible = DerriereLesLiens(cible);
    return temporaire.CreeDans(QFileInfo(cible).absolutePath());
}

bool EcritureFichier::Termine()
{
    if (!temporaire.Vide())
        return Abandonne(temporaire.errorString());
    const QByteArray ici = QFile::encodeName(temporaire.fileName());
    const QByteArray la = QFile::encodeName(cible);
    // On the disk before it takes the name: a power cut must not leave an empty file there.
    if (::fchmod(temporaire.handle(), DroitsDe(cible)) != 0 || ::fsync(temporaire.handle()) != 0
        || std::rename(ici.constData(), la.constData()) != 0)
        return Abandonne(qt_error_string(errno));
    temporaire.setAutoRemove(false);
    temporaire.close();
    return true;
}
