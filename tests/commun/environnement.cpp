#include "environnement.h"

#include <QDir>

Environnement::Environnement()
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
        pose("QT_QPA_PLATFORM", QStringLiteral("offscreen"));
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
