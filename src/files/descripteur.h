#pragma once

#include <QtGlobal>

#include <unistd.h>

/// A file descriptor of the system that closes itself.
class Descripteur
{
public:
    /// Takes \a unNumero, which may be the -1 of an open that failed.
    explicit Descripteur(int unNumero)
        : numero(unNumero)
    {
    }
    ~Descripteur() { Ferme(); }
    Q_DISABLE_COPY_MOVE(Descripteur)

    [[nodiscard]] bool EstOuvert() const { return numero >= 0; }
    [[nodiscard]] int Numero() const { return numero; }
    void Ferme()
    {
        if (EstOuvert())
            ::close(numero);
        numero = -1;
    }

private:
    int numero;
};
