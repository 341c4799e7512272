#pragma once

#include <QString>
#include <QtGlobal>

#include <condition_variable>
#include <mutex>
#include <thread>

/// A step of a command that may take long, told on the error stream when that is a terminal: after a second, and then each
/// second, one line that writes over itself, "ramelier-cli : TEXTE, 3 s". The line is gone when the step is over. One at a
/// time.
class Etape
{
public:
    explicit Etape(const QString &unTexte);
    ~Etape();
    Q_DISABLE_COPY_MOVE(Etape)

private:
    void Raconte();

    const QByteArray texte;
    bool finie = false;
    bool racontee = false;
    std::mutex verrou;
    std::condition_variable fin;
    std::thread conteur;
};
