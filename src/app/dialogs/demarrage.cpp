#include "demarrage.h"

#include "francais.h"
#include "interlocuteurbureau.h"

#include <QApplication>
#include <QIcon>
#include <QImageReader>

#include <clocale>

#include <fontconfig/fontconfig.h>

// Resources of a static library are only found when somebody names them, and only from the global namespace.
static void EnregistreLesIcones()
{
    Q_INIT_RESOURCE(ramelier);
}

std::future<void> ChercheLesPolices()
{
    // As the application object does a little later: the search reads numbers, and must not see the locale change.
    std::setlocale(LC_ALL, "");
    // Kept by the library for the whole process: the toolkit's own search then finds it done.
    return std::async([] { FcInit(); });
}

void PrepareLApplication(QApplication &application, const QString &programme)
{
    constexpr int megaoctetsParPhoto = 1024;
    EnregistreLesIcones();
    QGuiApplication::setDesktopFileName(programme);
    // For the boxes and dialogs that belong to no window.
    QApplication::setWindowIcon(QIcon(QStringLiteral(":/images/%1.png").arg(programme)));
    QImageReader::setAllocationLimit(megaoctetsParPhoto);
    Interlocuteur::Installe(std::make_unique<InterlocuteurBureau>());
    ParleFrancais(application);
}
