#include "copieancienne.h"

#include "descripteur.h"

#include <array>
#include <cerrno>
#include <cstdio>
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

namespace {

bool EcritTout(int sortie, const char *octets, size_t nombre)
{
    while (nombre > 0) {
        const ssize_t ecrits = ::write(sortie, octets, nombre);
        if (ecrits <= 0)
            return false;
        octets += ecrits;
        nombre -= static_cast<size_t>(ecrits);
    }
    return true;
}

bool CopieTout(int entree, int sortie)
{
    std::array<char, 1 << 16> bloc{};
    while (true) {
        const ssize_t lus = ::read(entree, bloc.data(), bloc.size());
        if (lus <= 0)
            return lus == 0;
        if (!EcritTout(sortie, bloc.data(), static_cast<size_t>(lus)))
            return false;
    }
}

}  // namespace

CopieAncienne::CopieAncienne(const QByteArray &uneCible, const QByteArray &unTemporaire)
    : cible(uneCible)
    , copie(uneCible + '~')
    , intermediaire(unTemporaire + '~')
{
}

CopieAncienne::~CopieAncienne()
{
    if (etat == Echangee)
        ::unlink(intermediaire.constData());
}

bool CopieAncienne::CopieLeContenu() const
{
    const Descripteur entree(::open(cible.constData(), O_RDONLY | O_CLOEXEC));
    const Descripteur sortie(::open(intermediaire.constData(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC, 0600));
    struct stat etatCible
    {
    };
    return entree.EstOuvert() && sortie.EstOuvert() && CopieTout(entree.Numero(), sortie.Numero())
        && ::fstat(entree.Numero(), &etatCible) == 0 && ::fchmod(sortie.Numero(), etatCible.st_mode & 07777U) == 0
        && ::fsync(sortie.Numero()) == 0;
}

bool CopieAncienne::Prepare() const
{
    struct stat etatCible
    {
    };
    if (::stat(cible.constData(), &etatCible) != 0)
        return false;
    // A second name costs nothing. Where the file system has none the content is copied, and also when the file is
    // somebody else's: in a shared folder its second name could not be taken away again.
    return (etatCible.st_uid == ::geteuid() && ::link(cible.constData(), intermediaire.constData()) == 0)
        || CopieLeContenu();
}

void CopieAncienne::Pose()
{
    struct stat avant
    {
    };
    const bool absente = ::lstat(copie.constData(), &avant) != 0;
    const bool remplacable = absente ? errno == ENOENT : S_ISREG(avant.st_mode) || S_ISLNK(avant.st_mode);
    if (remplacable && Prepare()) {
        if (!absente
            && ::renameat2(AT_FDCWD, intermediaire.constData(), AT_FDCWD, copie.constData(), RENAME_EXCHANGE) == 0)
            etat = Echangee;
        else if (std::rename(intermediaire.constData(), copie.constData()) == 0)
            etat = absente ? Creee : Remplacee;
    }
    if (etat != Echangee)
        ::unlink(intermediaire.constData());
}

void CopieAncienne::Reprend()
{
    if (etat == Creee)
        ::unlink(copie.constData());
    else if (etat == Echangee)
        std::rename(intermediaire.constData(), copie.constData());
    etat = Rien;
}
