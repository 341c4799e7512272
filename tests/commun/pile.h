#pragma once

#include <QThread>

#include <functional>
#include <memory>

/// Runs \a travail to its end on a thread whose stack has \a octets bytes: work that recurses once a person crashes
/// there, however large the stack of the program is.
inline void SurUnePileDe(uint octets, const std::function<void()> &travail)
{
    const std::unique_ptr<QThread> fil(QThread::create(travail));
    fil->setStackSize(octets);
    fil->start();
    fil->wait();
}
