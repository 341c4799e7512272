#include "environnement.h"

#include <QDir>
#include <QFile>

namespace {

/// What the platform without a screen is told, so that it has one of this size.
QString Plateforme(const QString &description, QSize ecran)
{
    QFile fichier(description);
    if (!fichier.open(QIODevice::WriteOnly))
        qFatal("pas d'écran d'essai");
    fichier.write(QStringLiteral(R"({"screens": [{"name": "essai", "x": 0, "y": 0, "width": %1, "height": %2,)"
                                 R"( "logicalDpi": 96, "dpr": 1}]})")
                      .arg(ecran.width())
                      .arg(ecran.height())
                      .toUtf8());
    return QStringLiteral("offscreen:configfile=") + description;
}

}  // namespace

Environnement::Environnement(QSize ecran)
{
    const auto pose = [](const char *nom, const QString &valeur) { qputenv(nom, valeur.toLocal8Bit()); };
    pose("HOME", dossier.path());
    for (const char *nom :
         {"XDG_CONFIG_HOME", "XDG_DATA_HOME", "XDG_CACHE_HOME", "XDG_STATE_HOME", "XDG_RUNTIME_DIR"}) {
        const QString chemin = dossier.filePath(QString::fromLatin1(nom));
        QDir().mkpath(chemin);
        QFile::setPermissions(chemin, QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner);
        pose(nom, chemin);
    }
    if (qEnvironmentVariableIsEmpty("RAMELIER_TEST_ECRAN"))
        pose("QT_QPA_PLATFORM",
             ecran.isEmpty() ? QStringLiteral("offscreen") : Plateforme(dossier.filePath("ecran.json"), ecran));
    pose("QT_STYLE_OVERRIDE", QStringLiteral("fusion"));
    pose("FONTCONFIG_FILE", QStringLiteral(RAMELIER_FONTS_CONF));
    pose("LC_ALL", qEnvironmentVariable("RAMELIER_TEST_LC_ALL", QStringLiteral("C.UTF-8")));
    pose("TZ", QStringLiteral("UTC"));
    // Refused at once: nobody's printer ever prints a test.
    pose("CUPS_SERVER", QStringLiteral("localhost:9"));
}

QString Environnement::Maison()
{
    return QString::fromLocal8Bit(qgetenv("HOME"));
}
