#pragma once

#include <QObject>
#include <QStringList>

#include <X11/SM/SMlib.h>

/// A session manager of the X desktop, as small as it can be: programs that are started with its address in their
/// environment join it, and it then announces the end of the session to them.
class GestionnaireDeSession : public QObject
{
    Q_OBJECT

public:
    GestionnaireDeSession();
    ~GestionnaireDeSession() override;
    Q_DISABLE_COPY_MOVE(GestionnaireDeSession)

    /// What programs look for in the variable SESSION_MANAGER; empty when it cannot listen.
    [[nodiscard]] QString Adresse() const { return adresse; }
    /// A program has joined, and has been through its first, harmless request.
    [[nodiscard]] bool EstRejoint() const { return client && prets > 0; }

    /// The user logs out. \a questions: programs may ask theirs.
    void FinitLaSession(bool questions = true);
    /// What the program has answered since: "demande", then "refuse" or "accepte", then "pret".
    [[nodiscard]] const QStringList &Reponses() const { return reponses; }
    /// Everybody was ready: the program has to end.
    void Termine();
    /// Somebody was not: the session goes on.
    void Continue();

private:
    static Status NouveauClient(SmsConn connexion, SmPointer moi, unsigned long *masque, SmsCallbacks *appels,
                                char **refus);
    static GestionnaireDeSession &Moi(SmPointer moi) { return *static_cast<GestionnaireDeSession *>(moi); }
    void Accepte(IceListenObj ecoute);
    /// A program has gone.
    void Quitte(IceConn connexion);
    void Ecoute();

    QString adresse;
    int nombreEcoutes = 0;
    IceListenObj *ecoutes = nullptr;
    QList<IceConn> connexions;
    SmsConn client = nullptr;
    int prets = 0;
    QStringList reponses;
};
