#include "ecriture.h"

#include "copieancienne.h"
#include "descripteur.h"
#include "francais.h"

#include <QFile>
#include <QFileInfo>

#include <cerrno>
#include <cstdio>
#include <fcntl.h>
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

/// The names of \a dossier reach the disk: a power cut does not bring the old ones back.
void SynchroniseLeDossier(const QString &dossier)
{
    const Descripteur ouvert(::open(QFile::encodeName(dossier).constData(), O_RDONLY | O_DIRECTORY | O_CLOEXEC));
    if (ouvert.EstOuvert())
        ::fsync(ouvert.Numero());
}

}  // namespace

EcritureFichier::EcritureFichier(const QString &nom, Ancien lAncien)
    : ancien(lAncien)
    , cible(nom)
{
}

QString EcritureFichier::Erreur() const
{
    return ErreurEnFrancais(refus.isEmpty() ? temporaire.errorString() : refus);
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
    const QString dossier = QFileInfo(cible).absolutePath();
    RetireLesRestes(dossier);
    return temporaire.CreeDans(dossier);
}

bool EcritureFichier::PrendLeNom()
{
    const QByteArray ici = QFile::encodeName(temporaire.fileName());
    const QByteArray la = QFile::encodeName(cible);
    CopieAncienne copie(la, ici);
    if (ancien == Ancien::Garde)
        copie.Pose();
    if (std::rename(ici.constData(), la.constData()) == 0)
        return true;
    const int erreur = errno;
    copie.Reprend();
    errno = erreur;
    return false;
}

bool EcritureFichier::Termine()
{
    if (!temporaire.Vide())
        return Abandonne(temporaire.errorString());
    // On the disk before it takes the name: a power cut must not leave an empty file there.
    if (::fchmod(temporaire.handle(), DroitsDe(cible)) != 0 || ::fsync(temporaire.handle()) != 0 || !PrendLeNom())
        return Abandonne(qt_error_string(errno));
    temporaire.setAutoRemove(false);
    temporaire.close();
    SynchroniseLeDossier(QFileInfo(cible).absolutePath());
    return true;
}
