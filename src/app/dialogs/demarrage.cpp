#include "demarrage.h"

#include "interlocuteurbureau.h"

#include <QApplication>
#include <QIcon>
#include <QImageReader>
#include <QLibraryInfo>
#include <QLocale>
#include <QTranslator>

// Resources of a static library are only found when somebody names them, and only from the global namespace.
static void EnregistreLesIcones()
{
    Q_INIT_RESOURCE(ramelier);
}

namespace {

void ParleFrancais(QApplication &application)
{
    const QLocale francais(QLocale::French, QLocale::France);
    QLocale::setDefault(francais);
    auto *traducteur = new QTranslator(&application);
    if (traducteur->load(francais, QStringLiteral("qtbase"), QStringLiteral("_"),
                         QLibraryInfo::path(QLibraryInfo::TranslationsPath)))
        QCoreApplication::installTranslator(traducteur);
}

}  // namespace

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
