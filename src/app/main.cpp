#include "copiedesecours.h"
#include "demarrage.h"
#include "ramelierapp.h"
#include "signauxdefin.h"

#include <QApplication>
#include <QPointer>

int main(int argc, char **argv)
{
    QApplication application(argc, argv);
    PrepareLApplication(application, QStringLiteral("ramelier"));
    auto *fenetre = new RamelierApp(argc, argv);
    const SignauxDeFin signaux([fenetre = QPointer(fenetre)] {
        if (fenetre && fenetre->secours)
            fenetre->secours->EcritEtGarde();
    });
    const int resultat = QApplication::exec();
    if (resultat == 0)
        delete fenetre;
    return resultat;
}
