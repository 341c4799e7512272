#include "fichiertemporaire.h"

#include "descripteur.h"

#include <QDirIterator>
#include <QFile>
#include <QRegularExpression>

#include <cerrno>
#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>
#include <vector>

namespace {

/// Nobody who is alive has the temporary file \a chemin: it is now locked by us, for the life of \a descripteur.
bool EstAbandonne(const Descripteur &descripteur, const QByteArray &chemin)
{
    struct stat ouvert
    {
    };
    struct stat nomme
    {
    };
    return descripteur.EstOuvert() && ::fstat(descripteur.Numero(), &ouvert) == 0 && S_ISREG(ouvert.st_mode)
        && ::flock(descripteur.Numero(), LOCK_EX | LOCK_NB) == 0 && ::lstat(chemin.constData(), &nomme) == 0
        && nomme.st_ino == ouvert.st_ino && nomme.st_dev == ouvert.st_dev;
}

void RetireSiAbandonne(const QByteArray &chemin)
{
    const Descripteur descripteur(::open(chemin.constData(), O_RDWR | O_NOFOLLOW | O_NONBLOCK | O_CLOEXEC));
    if (EstAbandonne(descripteur, chemin))
        ::unlink(chemin.constData());
}

}  // namespace

bool FichierTemporaire::Verrouille()
{
    // A file system without locks is no reason not to save.
    if (::flock(handle(), LOCK_EX | LOCK_NB) != 0)
        return errno != EWOULDBLOCK;
    struct stat etat
    {
    };
    return !fileName().isEmpty() && ::fstat(handle(), &etat) == 0 && etat.st_nlink > 0;
}

bool FichierTemporaire::CreeDans(const QString &dossier)
{
    setFileTemplate(dossier + QStringLiteral("/.ramelier-XXXXXX"));
    // Between its creation and its lock another process may take the file for one that was left behind.
    constexpr int essaisMax = 10;
    for (int essai = 0; essai < essaisMax; ++essai) {
        if (!QTemporaryFile::open(QIODevice::ReadWrite | QIODevice::Unbuffered))
            return false;
        if (Verrouille())
            return !fileName().isEmpty();
        remove();
    }
    return false;
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

void RetireLesRestes(const QString &dossier)
{
    static const QRegularExpression forme(QStringLiteral("^\\.ramelier-[A-Za-z]{6}(~?)$"));
    std::vector<QByteArray> secondsNoms;
    QDirIterator noms(dossier, {QStringLiteral(".ramelier-*")}, QDir::Files | QDir::Hidden | QDir::System);
    while (noms.hasNext()) {
        const QByteArray chemin = QFile::encodeName(noms.next());
        const QRegularExpressionMatch reconnu = forme.match(noms.fileName());
        if (reconnu.hasMatch() && reconnu.capturedLength(1) == 0)
            RetireSiAbandonne(chemin);
        else if (reconnu.hasMatch())
            secondsNoms.push_back(chemin);
    }
    for (const QByteArray &chemin : secondsNoms) {
        if (::access(chemin.chopped(1).constData(), F_OK) != 0)
            ::unlink(chemin.constData());
    }
}
