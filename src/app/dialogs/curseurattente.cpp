#include "curseurattente.h"

#include <QCoreApplication>
#include <QCursor>
#include <QGuiApplication>

#include <utility>

namespace {

int attentes = 0;

}  // namespace

CurseurAttente::CurseurAttente()
{
    if (attentes++ == 0)
        QGuiApplication::setOverrideCursor(Qt::WaitCursor);
}

CurseurAttente::~CurseurAttente()
{
    if (--attentes == 0)
        QGuiApplication::restoreOverrideCursor();
}

CurseurRendu::CurseurRendu()
    : interrompues(std::exchange(attentes, 0))
{
    if (interrompues > 0)
        QGuiApplication::restoreOverrideCursor();
}

CurseurRendu::~CurseurRendu()
{
    attentes = interrompues;
    if (attentes > 0)
        QGuiApplication::setOverrideCursor(Qt::WaitCursor);
}

void RepeintAvantDeTravailler()
{
    QCoreApplication::processEvents(QEventLoop::ExcludeUserInputEvents);
}
