#include "ligne.h"

#include <algorithm>
#include <cstddef>
#include <cstdio>
#include <iterator>

namespace {

/// \a texte, in UTF-8, and blanks up to \a largeur letters.
std::string Remplit(const std::string &texte, int largeur)
{
    const auto suites = std::count_if(texte.begin(), texte.end(), [](char octet) { return (octet & 0xC0) == 0x80; });
    const auto blancs = largeur - (std::ssize(texte) - suites);
    return texte + std::string(static_cast<std::size_t>(std::max<std::ptrdiff_t>(blancs, 0)), ' ');
}

std::string Texte(const char *format, double nombre)
{
    char texte[64];
    std::snprintf(texte, sizeof texte, format, nombre);
    return texte;
}

}  // namespace

void Ecrit(const Ligne &ligne)
{
    const double compare = ligne.plancher ? ligne.valeur / *ligne.plancher : ligne.valeur;
    const std::string personnes = ligne.personnes > 0 ? std::to_string(ligne.personnes) + " pers." : "";
    const std::string rapport = ligne.plancher ? Texte("%.2f fois", compare) : "";
    std::string limite;
    if (ligne.limite)
        limite = "au plus " + Texte("%g", *ligne.limite) + (ligne.plancher ? "" : ' ' + ligne.unite);
    std::printf("%s%15s %12.3f %s%12s  %s%s\n", Remplit(ligne.nom, 46).c_str(), personnes.c_str(), ligne.valeur,
                Remplit(ligne.unite, 8).c_str(), rapport.c_str(), Remplit(limite, 20).c_str(),
                ligne.limite && compare > *ligne.limite ? "!" : "");
    std::fflush(stdout);
}
