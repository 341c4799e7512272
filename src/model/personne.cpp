#include "personne.h"

#include "infopersonne.h"

#include <utility>

Personne::Personne(unsigned short generation)
    : numerogeneration(generation)
{
}

Personne::~Personne()
{
    delete info;
    Personne *reste = std::exchange(suivante, nullptr);
    while (reste) {
        Personne *courante = reste;
        reste = std::exchange(courante->suivante, nullptr);
        delete courante;
    }
}

bool Personne::estVide() const
{
    return !info || (info->nom.isEmpty() && info->prenom.isEmpty());
}

int Personne::FacteurPhoto() const
{
    return info && info->aUnePhoto() ? 2 : 1;
}
