#include "serveurcups.h"

#include <QDir>
#include <QElapsedTimer>
#include <QFile>
#include <QTcpServer>

#include <csignal>
#include <sys/prctl.h>
#include <sys/stat.h>
#include <unistd.h>

namespace {

constexpr int secondesAuPlus = 30;
constexpr auto modele = "/usr/share/ppd/cupsfilters/Generic-PDF_Printer-PDF.ppd";

constexpr auto reglages = R"(Listen %1
Browsing Off
WebInterface No
DefaultAuthType None
DefaultEncryption Never
PreserveJobHistory No
PageLogFormat %{job-name}
<Location />
  Order allow,deny
  Allow all
</Location>
<Policy default>
  <Limit All>
    Order allow,deny
    Allow all
  </Limit>
</Policy>
)";

// The filters run as this user; the superuser is refused.
constexpr auto dossiers = R"(ServerRoot %1/racine
RequestRoot %1/travaux
TempDir %1/travaux/tmp
CacheDir %1/cache
StateDir %1/etat
ErrorLog %1/journal/erreurs
AccessLog %1/journal/acces
PageLog %1/journal/pages
FileDevice Yes
User nobody
Group nogroup
SystemGroup root
)";

/// A port that nobody listens at.
quint16 PortLibre()
{
    QTcpServer essai;
    return essai.listen(QHostAddress::LocalHost) ? essai.serverPort() : quint16(0);
}

/// What the command said; nothing when it could not be run.
QString Dit(const QString &programme, const QStringList &arguments)
{
    QProcess commande;
    commande.setProcessChannelMode(QProcess::MergedChannels);
    commande.start(programme, arguments);
    return commande.waitForFinished() ? QString::fromUtf8(commande.readAll()) : QString();
}

/// Asks again and again, because the server tells nobody when it is ready. False when that never came.
bool AttendQue(const auto &condition)
{
    QElapsedTimer depuis;
    depuis.start();
    while (!condition()) {
        if (depuis.elapsed() > secondesAuPlus * 1000)
            return false;
        usleep(20'000);
    }
    return true;
}

}  // namespace

ServeurCups::ServeurCups()
    : adresse(QStringLiteral("127.0.0.1:%1").arg(PortLibre()))
{
    qputenv("CUPS_SERVER", adresse.toLatin1());
    Prepare();
    if (panne.isEmpty())
        Demarre();
    if (panne.isEmpty())
        AjouteLImprimante();
}

ServeurCups::~ServeurCups()
{
    serveur.terminate();
    if (!serveur.waitForFinished())
        serveur.kill();
}

void ServeurCups::Ecrit(const QString &nom, const QByteArray &texte)
{
    QFile fichier(Chemin(nom));
    if (!fichier.open(QIODevice::WriteOnly) || fichier.write(texte) != texte.size())
        panne = fichier.errorString();
}

void ServeurCups::Prepare()
{
    for (const char *nom : {"racine", "travaux/tmp", "cache", "etat", "journal"})
        QDir().mkpath(Chemin(QString::fromLatin1(nom)));
    // The filters come through here.
    ::chmod(QFile::encodeName(dossier.path()).constData(), 0711);
    Ecrit(QStringLiteral("cupsd.conf"), QString::fromLatin1(reglages).arg(adresse).toLatin1());
    Ecrit(QStringLiteral("cups-files.conf"), QString::fromLatin1(dossiers).arg(dossier.path()).toLatin1());
}

void ServeurCups::Demarre()
{
    serveur.setStandardOutputFile(QProcess::nullDevice());
    serveur.setStandardErrorFile(QProcess::nullDevice());
    // Not even a test that crashes leaves it behind.
    serveur.setChildProcessModifier([] { ::prctl(PR_SET_PDEATHSIG, SIGTERM); });
    serveur.start(QStringLiteral("/usr/sbin/cupsd"),
                  {QStringLiteral("-f"), QStringLiteral("-c"), Chemin(QStringLiteral("cupsd.conf")),
                   QStringLiteral("-s"), Chemin(QStringLiteral("cups-files.conf"))});
    const auto ecoute = [] { return Dit(QStringLiteral("lpstat"), {QStringLiteral("-r")}).contains(u"is running"); };
    if (!serveur.waitForStarted() || !AttendQue(ecoute))
        panne = QStringLiteral("cupsd ne répond pas");
}

void ServeurCups::AjouteLImprimante()
{
    const QString dit = Dit(QStringLiteral("/usr/sbin/lpadmin"),
                            {QStringLiteral("-p"), Imprimante(), QStringLiteral("-E"), QStringLiteral("-v"),
                             QStringLiteral("file://") + Chemin(QStringLiteral("papier.pdf")), QStringLiteral("-P"),
                             QString::fromLatin1(modele), QStringLiteral("-o"), QStringLiteral("PageSize=A4")});
    Dit(QStringLiteral("/usr/sbin/lpadmin"), {QStringLiteral("-d"), Imprimante()});
    if (!Dit(QStringLiteral("lpstat"), {QStringLiteral("-d")}).contains(Imprimante()))
        panne = QStringLiteral("pas d'imprimante : ") + dit;
}

QByteArray ServeurCups::Imprime() const
{
    if (!AttendQue([] { return Dit(QStringLiteral("lpstat"), {QStringLiteral("-o")}).isEmpty(); }))
        return "L'impression ne finit pas.";
    QFile fichier(Chemin(QStringLiteral("papier.pdf")));
    if (!fichier.open(QIODevice::ReadOnly))
        return {};
    const QByteArray octets = fichier.readAll();
    fichier.remove();
    return octets;
}

QStringList ServeurCups::Travaux() const
{
    QFile fichier(Chemin(QStringLiteral("journal/pages")));
    return fichier.open(QIODevice::ReadOnly) ? QString::fromUtf8(fichier.readAll()).split(u'\n', Qt::SkipEmptyParts)
                                             : QStringList();
}
