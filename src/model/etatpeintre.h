#pragma once

#include <QPainter>

/// save() and restore() of a painter as a scope: an early return cannot leak the painter's state.
class EtatPeintre
{
public:
    explicit EtatPeintre(QPainter &aRendre)
        : peintre(aRendre)
    {
        peintre.save();
    }
    ~EtatPeintre() { peintre.restore(); }
    Q_DISABLE_COPY_MOVE(EtatPeintre)

private:
    QPainter &peintre;
};
