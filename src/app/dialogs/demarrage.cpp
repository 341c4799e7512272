#include "demarrage.h"

#include "francais.h"
#include "interlocuteurbureau.h"

#include <QApplication>
#include <QIcon>
#include <QImageReader>

// Resources of a static library are only found when somebody names them, and only from the global namespace.
static void EnregistreLesIcones()
{
    Q_INIT_RESOURCE(ramelier);
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
