#include "demarrage.h"
#include "ramelierapp.h"

#include <QApplication>

int main(int argc, char **argv)
{
    QApplication application(argc, argv);
    PrepareLApplication(application, QStringLiteral("ramelier"));
    auto *fenetre = new RamelierApp(argc, argv);
    const int resultat = QApplication::exec();
    if (resultat == 0)
        delete fenetre;
    return resultat;
}
