#include "commandes.h"
#include "francais.h"
#include "interlocuteurconsole.h"

#include <QGuiApplication>
#include <QImageReader>

#include <malloc.h>

namespace {

/// Keeps the memory that one page of a PDF frees for the next one (Qt takes 32 MiB for each), instead of giving it back to the
/// system and asking for it again thousands of times. Not for a program that stays open.
void GardeLaMemoireLiberee()
{
    constexpr int mebioctet = 1024 * 1024;
    mallopt(M_MMAP_THRESHOLD, 32 * mebioctet);
    mallopt(M_TRIM_THRESHOLD, 64 * mebioctet);
}

}  // namespace

int main(int argc, char **argv)
{
    GardeLaMemoireLiberee();
    // No window opens here: no display is needed.
    if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM"))
        qputenv("QT_QPA_PLATFORM", "offscreen");
    // What Qt finds odd about the machine (no XDG_RUNTIME_DIR, say) is no mistake in what was asked.
    if (qEnvironmentVariableIsEmpty("QT_LOGGING_RULES"))
        qputenv("QT_LOGGING_RULES", "default.warning=false");
    QGuiApplication application(argc, argv);
    QGuiApplication::setApplicationName(QStringLiteral("ramelier-cli"));
    QGuiApplication::setApplicationVersion(QStringLiteral("5.1"));
    ParleFrancais(application);
    QImageReader::setAllocationLimit(1024);
    InterlocuteurConsole::Installe({});
    return static_cast<int>(ExecuteLaLigne(QCoreApplication::arguments().mid(1)));
}
