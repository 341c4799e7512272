#include "reparer.h"

#include "ecriture.h"
#include "lecture.h"
#include "message.h"
#include "reparation.h"

#include <QFileInfo>

#include <optional>
#include <sys/stat.h>
#include <utility>

namespace {

/// One file behind both names, through links of any kind.
bool EstLeMemeFichier(const QString &un, const QString &autre)
{
    struct stat etatUn
    {
    };
    struct stat etatAutre
    {
    };
    return ::stat(QFile::encodeName(un).constData(), &etatUn) == 0
        && ::stat(QFile::encodeName(autre).constData(), &etatAutre) == 0 && etatUn.st_dev == etatAutre.st_dev
        && etatUn.st_ino == etatAutre.st_ino;
}

/// Where the content that \a sortie has now would go.
QString AncienneCopie(const QString &sortie)
{
    const QString cible = QFileInfo(sortie).canonicalFilePath();
    return cible.isEmpty() ? cible : cible + u'~';
}

std::optional<QByteArray> Lit(const QString &nom)
{
    QFile fichier(nom);
    QString cause;
    if (!OuvreEnLecture(fichier, QIODevice::ReadOnly, cause)) {
        EcritLErreur(QStringLiteral("Impossible de lire le fichier %1: %2.").arg(nom, cause));
        return {};
    }
    return fichier.readAll();
}

bool Ecrit(const QString &nom, const QByteArray &octets)
{
    EcritureFichier ecriture(nom, EcritureFichier::Ancien::Garde);
    if (ecriture.Ouvre() && ecriture.Appareil().write(octets) == octets.size() && ecriture.Termine())
        return true;
    EcritLErreur(QStringLiteral("Impossible d'écrire dans le fichier %1: %2.").arg(nom, ecriture.Erreur()));
    return false;
}

Sortie Repare(const QString &fichier, const QString &sortie)
{
    auto octets = Lit(fichier);
    if (!octets)
        return Sortie::NonFait;
    const Reparation reparation = RepareXRLG(*std::exchange(octets, {}));
    if (!reparation.echec.isEmpty()) {
        EcritLErreur(QStringLiteral("Impossible de réparer le fichier %1: %2").arg(fichier, reparation.echec));
        return Sortie::NonFait;
    }
    if (!Ecrit(sortie, reparation.octets))
        return Sortie::NonFait;
    for (const QString &fait : reparation.faits)
        EcritLErreur(fait);
    if (reparation.faits.isEmpty())
        EcritLErreur(QStringLiteral("rien à réparer, la sortie est une copie"));
    return Sortie::Fait;
}

}  // namespace

Sortie ExecuteReparer(const QStringList &mots)
{
    Analyseur analyseur(commandeReparer);
    if (const auto fin = analyseur.Lit(mots))
        return *fin;
    const QString fichier = analyseur.Fichiers().at(0);
    const QString sortie = analyseur.Fichiers().at(1);
    if (!sortie.endsWith(u".xrlg", Qt::CaseInsensitive))
        return analyseur.Refuse(QStringLiteral("la sortie doit se terminer par .xrlg : ") + sortie);
    if (EstLeMemeFichier(fichier, sortie))
        return analyseur.Refuse(QStringLiteral("la sortie ne peut être le fichier lui-même : ") + sortie);
    if (const QString copie = AncienneCopie(sortie); !copie.isEmpty() && EstLeMemeFichier(fichier, copie))
        return analyseur.Refuse(QStringLiteral("la sortie garderait son ancien contenu à la place du fichier : ")
                                + sortie);
    return Repare(fichier, sortie);
}
