#include "findesession.h"

#include <QEvent>
#include <QGuiApplication>
#include <QSessionManager>

namespace {

/// The user's agreement, which lasts until their next key press or click: the session was not ended after all.
class Accord : public QObject
{
public:
    void Note(bool estDonne)
    {
        donne = estDonne;
        if (donne)
            qGuiApp->installEventFilter(this);
        else
            qGuiApp->removeEventFilter(this);
    }
    [[nodiscard]] bool EstDonne() const { return donne; }

protected:
    bool eventFilter(QObject * /*objet*/, QEvent *evenement) override
    {
        if (evenement->type() == QEvent::KeyPress || evenement->type() == QEvent::MouseButtonPress)
            Note(false);
        return false;
    }

private:
    bool donne = false;
};

Accord &LAccord()
{
    static Accord accord;
    return accord;
}

}  // namespace

void FinDeSession::Surveille(QObject *contexte, const Programme &programme)
{
    // The request waits for its answer: no queue.
    QObject::connect(
        qGuiApp, &QGuiApplication::commitDataRequest, contexte,
        [programme](QSessionManager &session) { Repond(session, programme); }, Qt::DirectConnection);
}

void FinDeSession::NoteLAccord(bool donne)
{
    LAccord().Note(donne);
}

bool FinDeSession::EstAcceptee()
{
    return LAccord().EstDonne();
}
