#pragma once

#include "infoarbre.h"
#include "infopersonne.h"

#include <array>

/// A text of a \a T, and what a message calls it.
template <typename T> struct TexteNomme
{
    const char *nom;
    QString T::*texte;
};

/// In the order of the file.
inline constexpr std::array textesDesTitres{
    TexteNomme<InfoArbre>{"titre", &InfoArbre::titrearbre},
    TexteNomme<InfoArbre>{"créé par", &InfoArbre::creepar},
    TexteNomme<InfoArbre>{"date de création", &InfoArbre::date},
    TexteNomme<InfoArbre>{"mis à jour par", &InfoArbre::majpar},
    TexteNomme<InfoArbre>{"date de mise à jour", &InfoArbre::datemaj},
};

/// In the order of the file.
inline constexpr std::array textesDesPersonnes{
    TexteNomme<InfoPersonne>{"nom", &InfoPersonne::nom},
    TexteNomme<InfoPersonne>{"prénom", &InfoPersonne::prenom},
    TexteNomme<InfoPersonne>{"date de naissance", &InfoPersonne::datenaissance},
    TexteNomme<InfoPersonne>{"lieu de naissance", &InfoPersonne::lieunaissance},
    TexteNomme<InfoPersonne>{"date de décès", &InfoPersonne::datedeces},
    TexteNomme<InfoPersonne>{"lieu de décès", &InfoPersonne::lieudeces},
    TexteNomme<InfoPersonne>{"remarque", &InfoPersonne::divers},
    TexteNomme<InfoPersonne>{"fiche", &InfoPersonne::fichtml},
    TexteNomme<InfoPersonne>{"photo", &InfoPersonne::ficphoto},
};
