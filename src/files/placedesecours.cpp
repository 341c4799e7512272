#include "placedesecours.h"

#include "descripteur.h"
#include "fichiertemporaire.h"
#include "masquedroits.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QRegularExpression>

#include <cerrno>
#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>

namespace {

const QString extensionArbre = QStringLiteral(".xrlg");
const QString extensionOptions = QStringLiteral(".opt");
const QString extensionDossier = QStringLiteral(".dossier");
const QString extensionVerrou = QStringLiteral(".verrou");
const QString extensionHtml = QStringLiteral(".html");
const QString extensionTexte = QStringLiteral(".txt");

/// Not in the toolkit of this version: the folder for what a program remembers but nobody would copy elsewhere.
QString DossierDeSecours()
{
    QString etats = QFile::decodeName(qgetenv("XDG_STATE_HOME"));
    if (!QDir::isAbsolutePath(etats))
        etats = QDir::homePath() + QStringLiteral("/.local/state");
    return QDir::cleanPath(etats) + QStringLiteral("/ramelier");
}

/// A short, harmless file name that still tells the tree. No dot: the options file is found by the name up to the first.
QString NomLisible(const QString &nomFichier)
{
    constexpr int longueurMax = 60;
    static const QRegularExpression douteux(QStringLiteral("[^\\p{L}\\p{M}\\p{N} _-]"));
    static const QRegularExpression processus(QStringLiteral("-\\d+(-\\d+)?$"));
    QString nom = QFileInfo(nomFichier).completeBaseName();
    if (EstUneCopieDeSecours(nomFichier))
        nom.remove(processus);
    nom = nom.replace(douteux, QStringLiteral("_")).left(longueurMax);
    if (!nom.isEmpty() && nom.back().isHighSurrogate())
        nom.chop(1);
    return nom.isEmpty() ? QStringLiteral("sans-nom") : nom;
}

void EffaceLesFichiers(const QString &base)
{
    for (const QString &extension : {extensionArbre, extensionArbre + u'~', extensionOptions, extensionDossier,
                                     extensionHtml, extensionTexte, extensionVerrou})
        QFile::remove(base + extension);
}

/// A copy stands at the place \a base.
bool EstPrise(const QString &base)
{
    return QFileInfo::exists(base + extensionArbre) || QFileInfo::exists(base + extensionHtml)
        || QFileInfo::exists(base + extensionTexte);
}

/// Nobody who is alive keeps the place \a base. Where locks do not work everybody counts as alive.
bool EstAbandonnee(const QString &base)
{
    const Descripteur verrou(::open(QFile::encodeName(base + extensionVerrou).constData(), O_RDWR | O_CLOEXEC));
    return verrou.EstOuvert() ? ::flock(verrou.Numero(), LOCK_EX | LOCK_NB) == 0 : errno == ENOENT;
}

/// What dead programs left beside a copy that is no longer there.
void RetireLesAccompagnements(const QDir &dossier)
{
    const QFileInfoList restes = dossier.entryInfoList(
        {u'*' + extensionOptions, u'*' + extensionDossier, u'*' + extensionVerrou}, QDir::AllEntries | QDir::System);
    for (const QFileInfo &reste : restes) {
        const QString base = dossier.filePath(reste.completeBaseName());
        if (!EstPrise(base) && EstAbandonnee(base))
            QFile::remove(reste.filePath());
    }
}

}  // namespace

PlaceDeSecours::PlaceDeSecours(const QString &uneBase)
    : base(uneBase)
{
}

PlaceDeSecours::~PlaceDeSecours() = default;

bool PlaceDeSecours::Verrouille()
{
    const QByteArray chemin = QFile::encodeName(base + extensionVerrou);
    verrou = std::make_unique<Descripteur>(::open(chemin.constData(), O_RDWR | O_CREAT | O_CLOEXEC, 0600));
    struct stat etat
    {
    };
    // Another program may have taken the new file for one that was left behind, and deleted it.
    return verrou->EstOuvert() && (::flock(verrou->Numero(), LOCK_EX | LOCK_NB) == 0 || errno != EWOULDBLOCK)
        && ::fstat(verrou->Numero(), &etat) == 0 && etat.st_nlink > 0;
}

std::unique_ptr<PlaceDeSecours> PlaceDeSecours::Prend(const QString &nomFichier)
{
    constexpr int placesMax = 100;
    const MasqueDroits pourNousSeuls(077);
    const QString dossier = DossierDeSecours();
    if (!QDir().mkpath(dossier))
        return {};
    const QString base = QStringLiteral("%1/%2-%3").arg(dossier, NomLisible(nomFichier)).arg(::getpid());
    for (int n = 1; n <= placesMax; ++n) {
        std::unique_ptr<PlaceDeSecours> place(new PlaceDeSecours(n == 1 ? base : base + u'-' + QString::number(n)));
        // A number of a process comes again one day: the copy of the former one is not overwritten.
        if (!EstPrise(place->base) && place->Verrouille())
            return place;
    }
    return {};
}

QString PlaceDeSecours::Arbre() const
{
    return base + extensionArbre;
}

QString PlaceDeSecours::Options() const
{
    return base + extensionOptions;
}

QString PlaceDeSecours::Dossier() const
{
    return base + extensionDossier;
}

QString PlaceDeSecours::Fiche(bool html) const
{
    return base + (html ? extensionHtml : extensionTexte);
}

void PlaceDeSecours::Vide()
{
    EffaceLesFichiers(base);
    RetireLesRestes(QFileInfo(base).path());
}

void PlaceDeSecours::LaisseAuParent()
{
    verrou.reset();
}

QStringList CopiesRetrouvees(Copies lesquelles)
{
    const QDir dossier(DossierDeSecours());
    if (!dossier.exists())
        return {};
    RetireLesAccompagnements(dossier);
    QStringList noms{u'*' + extensionHtml, u'*' + extensionTexte};
    if (lesquelles == Copies::Toutes)
        noms += u'*' + extensionArbre;
    QStringList copies;
    const QFileInfoList fichiers = dossier.entryInfoList(noms, QDir::Files, QDir::Time);
    for (const QFileInfo &fichier : fichiers) {
        if (EstAbandonnee(fichier.path() + u'/' + fichier.completeBaseName()))
            copies += fichier.filePath();
    }
    return copies;
}

bool EstUneCopieDeSecours(const QString &fichier)
{
    const QString dossier = QFileInfo(DossierDeSecours()).canonicalFilePath();
    return !fichier.isEmpty() && !dossier.isEmpty()
        && QFileInfo(QFileInfo(fichier).absolutePath()).canonicalFilePath() == dossier;
}

QString DossierDeLArbre(const QString &fichierArbre)
{
    const QFileInfo fichier(fichierArbre);
    if (EstUneCopieDeSecours(fichierArbre)) {
        const QFileInfo lien(fichier.absolutePath() + u'/' + fichier.completeBaseName() + extensionDossier);
        if (lien.isSymLink() && lien.isDir())
            return lien.symLinkTarget();
    }
    return fichier.absolutePath();
}

void OublieLaCopieDeSecours(const QString &fichier)
{
    const QFileInfo copie(fichier);
    if (EstUneCopieDeSecours(fichier))
        EffaceLesFichiers(copie.absolutePath() + u'/' + copie.completeBaseName());
}
