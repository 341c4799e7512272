#include "gestionnairedesession.h"

#include <QSocketNotifier>

#include <array>
#include <cstdlib>
#include <cstring>
#include <utility>

// Not declared in any header: nobody listens to the network here.
extern "C" void _IceTransNoListen(const char *protocole);

namespace {

// Every program of this machine may join.
Bool Laisse(char * /*hote*/)
{
    return True;
}

}  // namespace

Status GestionnaireDeSession::NouveauClient(SmsConn connexion, SmPointer moi, unsigned long *masque,
                                            SmsCallbacks *appels, char ** /*refus*/)
{
    Moi(moi).client = connexion;
    *masque = SmsRegisterClientProcMask | SmsInteractRequestProcMask | SmsInteractDoneProcMask
        | SmsSaveYourselfRequestProcMask | SmsSaveYourselfP2RequestProcMask | SmsSaveYourselfDoneProcMask
        | SmsCloseConnectionProcMask | SmsSetPropertiesProcMask | SmsDeletePropertiesProcMask
        | SmsGetPropertiesProcMask;
    std::memset(appels, 0, sizeof *appels);
    appels->register_client = {[](SmsConn c, SmPointer, char *ancien) -> Status {
                                   if (ancien) {
                                       std::free(ancien);
                                       return 0;
                                   }
                                   std::array<char, 8> nom{"essai"};
                                   SmsRegisterClientReply(c, nom.data());
                                   // What the protocol asks of a manager for a program that is new to it.
                                   SmsSaveYourself(c, SmSaveLocal, False, SmInteractStyleNone, False);
                                   return 1;
                               },
                               moi};
    appels->interact_request = {[](SmsConn c, SmPointer m, int) {
                                    Moi(m).reponses += "demande";
                                    SmsInteract(c);
                                },
                                moi};
    appels->interact_done = {
        [](SmsConn, SmPointer m, Bool annule) { Moi(m).reponses += annule ? "refuse" : "accepte"; }, moi};
    appels->save_yourself_request = {[](SmsConn, SmPointer, int, Bool, int, Bool, Bool) {}, moi};
    appels->save_yourself_phase2_request = {[](SmsConn c, SmPointer) { SmsSaveYourselfPhase2(c); }, moi};
    appels->save_yourself_done = {[](SmsConn c, SmPointer m, Bool) {
                                      Moi(m).reponses += "pret";
                                      if (Moi(m).prets++ == 0)
                                          SmsSaveComplete(c);
                                  },
                                  moi};
    appels->close_connection = {[](SmsConn c, SmPointer m, int nombre, char **raisons) {
                                    SmFreeReasons(nombre, raisons);
                                    Moi(m).Quitte(SmsGetIceConnection(c));
                                },
                                moi};
    appels->set_properties = {[](SmsConn, SmPointer, int nombre, SmProp **proprietes) {
                                  for (int i = 0; i < nombre; ++i)
                                      SmFreeProperty(proprietes[i]);
                                  std::free(static_cast<void *>(proprietes));
                              },
                              moi};
    appels->delete_properties = {[](SmsConn, SmPointer, int nombre, char **noms) {
                                     for (int i = 0; i < nombre; ++i)
                                         std::free(noms[i]);
                                     std::free(static_cast<void *>(noms));
                                 },
                                 moi};
    appels->get_properties = {[](SmsConn c, SmPointer) { SmsReturnProperties(c, 0, nullptr); }, moi};
    return 1;
}

GestionnaireDeSession::GestionnaireDeSession()
{
    std::array<char, 256> refus{};
    // A program that goes away is no reason to end.
    IceSetIOErrorHandler([](IceConn) {});
    _IceTransNoListen("tcp");
    if (!SmsInitialize("Essai", "1", &NouveauClient, this, &Laisse, int(refus.size()), refus.data())
        || !IceListenForConnections(&nombreEcoutes, &ecoutes, int(refus.size()), refus.data())) {
        qWarning("%s", refus.data());
        return;
    }
    Ecoute();
}

GestionnaireDeSession::~GestionnaireDeSession()
{
    const QList<IceConn> ouvertes = connexions;
    for (const IceConn connexion : ouvertes)
        Quitte(connexion);
    qDeleteAll(findChildren<QSocketNotifier *>());
    IceFreeListenObjs(nombreEcoutes, ecoutes);
}

void GestionnaireDeSession::Ecoute()
{
    char *adresses = IceComposeNetworkIdList(nombreEcoutes, ecoutes);
    adresse = QString::fromLocal8Bit(adresses);
    std::free(adresses);
    for (int i = 0; i < nombreEcoutes; ++i) {
        const IceListenObj ecoute = ecoutes[i];
        IceSetHostBasedAuthProc(ecoute, &Laisse);
        const auto *avis = new QSocketNotifier(IceGetListenConnectionNumber(ecoute), QSocketNotifier::Read, this);
        connect(avis, &QSocketNotifier::activated, this, [this, ecoute] { Accepte(ecoute); });
    }
}

void GestionnaireDeSession::Accepte(IceListenObj ecoute)
{
    IceAcceptStatus etat = IceAcceptSuccess;
    const IceConn connexion = IceAcceptConnection(ecoute, &etat);
    if (!connexion)
        return;
    connexions += connexion;
    auto *avis = new QSocketNotifier(IceConnectionNumber(connexion), QSocketNotifier::Read, this);
    avis->setObjectName(QString::number(IceConnectionNumber(connexion)));
    connect(avis, &QSocketNotifier::activated, this, [this, connexion] {
        if (IceProcessMessages(connexion, nullptr, nullptr) == IceProcessMessagesIOError)
            Quitte(connexion);
    });
}

void GestionnaireDeSession::Quitte(IceConn connexion)
{
    if (client && SmsGetIceConnection(client) == connexion)
        SmsCleanUp(std::exchange(client, nullptr));
    connexions.removeAll(connexion);
    auto *avis = findChild<QSocketNotifier *>(QString::number(IceConnectionNumber(connexion)));
    avis->setEnabled(false);
    avis->setObjectName(QString());
    avis->deleteLater();
    IceSetShutdownNegotiation(connexion, False);
    IceCloseConnection(connexion);
}

void GestionnaireDeSession::FinitLaSession(bool questions)
{
    reponses.clear();
    SmsSaveYourself(client, SmSaveBoth, True, questions ? SmInteractStyleAny : SmInteractStyleNone, False);
}

void GestionnaireDeSession::Termine()
{
    SmsDie(client);
}

void GestionnaireDeSession::Continue()
{
    SmsShutdownCancelled(client);
}
