#pragma once

#include <QGuiApplication>

/// The wait cursor as a scope: round long work, never round a message box.
class CurseurAttente
{
public:
    CurseurAttente() { QGuiApplication::setOverrideCursor(Qt::WaitCursor); }
    ~CurseurAttente() { QGuiApplication::restoreOverrideCursor(); }
    Q_DISABLE_COPY_MOVE(CurseurAttente)
};
