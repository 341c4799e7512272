#include "demarrage.h"
#include "ramelierapp.h"

#include <QApplication>
#include <QIcon>

int main(int argc, char **argv)
{
    QApplication application(argc, argv);
    QGuiApplication::setDesktopFileName(QStringLiteral("ramelier"));
    PrepareLApplication(application);
    // For the boxes and dialogs that belong to no window.
    QApplication::setWindowIcon(QIcon(QStringLiteral(":/images/ramelier.png")));
    auto *fenetre = new RamelierApp(argc, argv);
    const int resultat = QApplication::exec();
    if (resultat == 0)
        delete fenetre;
    return resultat;
}
