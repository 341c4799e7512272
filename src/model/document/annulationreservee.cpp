#include "annulationreservee.h"

#include "arbre.h"
#include "infopersonne.h"

#include <utility>

AnnulationReservee::AnnulationReservee(Arbre &unArbre)
    : arbre(unArbre)
    , info(std::exchange(unArbre.infoSauvee, nullptr))
    , numero(unArbre.numeroSauve)
{
}

AnnulationReservee::~AnnulationReservee()
{
    if (!aRemettre)
        return;
    delete std::exchange(arbre.infoSauvee, info.release());
    arbre.numeroSauve = numero;
}

void AnnulationReservee::LaisseLaPlace()
{
    aRemettre = false;
    arbre.enfantSansPere = nullptr;
    arbre.enfantSansMere = nullptr;
}
