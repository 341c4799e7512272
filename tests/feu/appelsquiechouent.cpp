#include "appelsquiechouent.h"

#include <cerrno>
#include <cstdarg>
#include <cstdio>
#include <dlfcn.h>
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

namespace {

struct Reglage
{
    bool actif = false;
    int rang = 0;
    int erreur = 0;
    bool desormais = false;
    int appels = 0;
    int echecs = 0;
    const char *premier = "";
};
Reglage reglage;

/// The call \a nom is due. True when it is to fail; errno is set then.
bool Echoue(const char *nom)
{
    if (!reglage.actif)
        return false;
    ++reglage.appels;
    const bool echec =
        reglage.rang != 0 && (reglage.appels == reglage.rang || (reglage.desormais && reglage.appels > reglage.rang));
    if (!echec)
        return false;
    if (reglage.echecs++ == 0)
        reglage.premier = nom;
    errno = reglage.erreur;
    return true;
}

/// \a fd is a file or a folder on a disk.
bool EstSurDisque(int fd)
{
    struct stat etat
    {
    };
    return reglage.actif && fstat(fd, &etat) == 0 && (S_ISREG(etat.st_mode) || S_ISDIR(etat.st_mode));
}

/// The next function of this name: the system's, or the sanitizer's in front of it.
template <typename Fonction> Fonction *Suivante(const char *nom)
{
    return reinterpret_cast<Fonction *>(dlsym(RTLD_NEXT, nom));
}

}  // namespace

AppelsQuiEchouent::AppelsQuiEchouent(int rang, int erreur, Duree duree)
{
    reglage = {.actif = true, .rang = rang, .erreur = erreur, .desormais = duree == DesormaisTous};
}

AppelsQuiEchouent::~AppelsQuiEchouent()
{
    reglage.actif = false;
}

int AppelsQuiEchouent::Appels()
{
    return reglage.appels;
}

int AppelsQuiEchouent::Echecs()
{
    return reglage.echecs;
}

const char *AppelsQuiEchouent::Premier()
{
    return reglage.premier;
}

// The names and types are the system's.
// NOLINTBEGIN(readability-identifier-naming,bugprone-reserved-identifier,readability-inconsistent-declaration-parameter-name)
extern "C" {

int open64(const char *chemin, int mode, ...)
{
    static auto *const suivante = Suivante<int(const char *, int, ...)>("open64");
    va_list reste;
    va_start(reste, mode);
    const mode_t droits = (mode & (O_CREAT | O_TMPFILE)) != 0 ? va_arg(reste, mode_t) : 0;
    va_end(reste);
    if ((mode & O_ACCMODE) != O_RDONLY && Echoue("open"))
        return -1;
    return suivante(chemin, mode, droits);
}

ssize_t write(int fd, const void *octets, size_t nombre)
{
    static auto *const suivante = Suivante<ssize_t(int, const void *, size_t)>("write");
    if (EstSurDisque(fd) && Echoue("write")) {
        const int erreur = errno;
        if (nombre > 1 && suivante(fd, octets, nombre / 2) < 0)
            return -1;
        errno = erreur;
        return -1;
    }
    return suivante(fd, octets, nombre);
}

int fsync(int fd)
{
    static auto *const suivante = Suivante<int(int)>("fsync");
    return EstSurDisque(fd) && Echoue("fsync") ? -1 : suivante(fd);
}

int ftruncate64(int fd, off64_t taille) noexcept
{
    static auto *const suivante = Suivante<int(int, off64_t)>("ftruncate64");
    return EstSurDisque(fd) && Echoue("ftruncate") ? -1 : suivante(fd, taille);
}

int fchmod(int fd, mode_t droits) noexcept
{
    static auto *const suivante = Suivante<int(int, mode_t)>("fchmod");
    return EstSurDisque(fd) && Echoue("fchmod") ? -1 : suivante(fd, droits);
}

int link(const char *ici, const char *la) noexcept
{
    static auto *const suivante = Suivante<int(const char *, const char *)>("link");
    return Echoue("link") ? -1 : suivante(ici, la);
}

int linkat(int dossierIci, const char *ici, int dossierLa, const char *la, int mode) noexcept
{
    static auto *const suivante = Suivante<int(int, const char *, int, const char *, int)>("linkat");
    return Echoue("linkat") ? -1 : suivante(dossierIci, ici, dossierLa, la, mode);
}

int rename(const char *ici, const char *la) noexcept
{
    static auto *const suivante = Suivante<int(const char *, const char *)>("rename");
    return Echoue("rename") ? -1 : suivante(ici, la);
}

int unlink(const char *chemin) noexcept
{
    static auto *const suivante = Suivante<int(const char *)>("unlink");
    return Echoue("unlink") ? -1 : suivante(chemin);
}

int close(int fd)
{
    static auto *const suivante = Suivante<int(int)>("close");
    if (!EstSurDisque(fd) || !Echoue("close"))
        return suivante(fd);
    const int erreur = errno;
    suivante(fd);
    errno = erreur;
    return -1;
}

}  // extern "C"
// NOLINTEND(readability-identifier-naming,bugprone-reserved-identifier,readability-inconsistent-declaration-parameter-name)
