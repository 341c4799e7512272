#pragma once

#include <QtGlobal>

#include <memory>

class Arbre;
class InfoPersonne;

/// Sets aside what a tree keeps for undo while its user is asked for a change, as a scope: at its end everything is back,
/// unless the change was made and takes its place.
class AnnulationReservee
{
public:
    explicit AnnulationReservee(Arbre &unArbre);
    ~AnnulationReservee();
    Q_DISABLE_COPY_MOVE(AnnulationReservee)

    /// The change was made: what the tree has saved meanwhile is now the one thing to undo.
    void LaisseLaPlace();

private:
    Arbre &arbre;
    std::unique_ptr<InfoPersonne> info;
    quint64 numero;
    bool aRemettre = true;
};
