#include "demarrage.h"
#include "findesession.h"
#include "ramelierapp.h"
#include "signauxdefin.h"

#include <QApplication>
#include <QPointer>

int main(int argc, char **argv)
{
    const std::future<void> polices = ChercheLesPolices();
    QApplication application(argc, argv);
    PrepareLApplication(application, QStringLiteral("ramelier"));
    polices.wait();
    auto *fenetre = new RamelierApp(argc, argv);
    const auto metEnSurete = [fenetre = QPointer(fenetre)] {
        if (fenetre)
            fenetre->MetEnSurete();
    };
    const SignauxDeFin signaux(metEnSurete);
    FinDeSession::Surveille(
        fenetre, {.peutFinir = [fenetre] { return fenetre->PeutFinirLaSession(); }, .metEnSurete = metEnSurete});
    const int resultat = QApplication::exec();
    if (resultat == 0)
        delete fenetre;
    return resultat;
}
