#include "mesuretextes.h"

#include "infopersonne.h"
#include "unites.h"

#include <array>

namespace {

/// "° ", "+ ", "à " before a text, or the blank between given names and surname.
constexpr long longueurPrefixe = 2;

/// Last letter of the Latin blocks: up to it no letter is wider than a line is high, and lines break beside letters only.
constexpr char16_t derniereLatine = u'\u024F';

std::array<const QString *, 7> TextesDessines(const InfoPersonne &info)
{
    return {&info.prenom,    &info.nom,       &info.datenaissance, &info.lieunaissance,
            &info.datedeces, &info.lieudeces, &info.divers};
}

/// From the lengths alone: a font for another script may have letters and lines twice as large, and break anywhere.
MesureTextes MesureAutreEcriture(const InfoPersonne &info)
{
    MesureTextes mesure;
    for (const QString *texte : TextesDessines(info)) {
        const long longueur = texte->size() + longueurPrefixe;
        mesure.lignes += 2 * longueur;
        mesure.plusLongMot = MaxLI(mesure.plusLongMot, 4 * longueur);
    }
    return mesure;
}

}  // namespace

MesureTextes MesureLesTextes(const InfoPersonne &info)
{
    MesureTextes mesure;
    for (const QString *texte : TextesDessines(info)) {
        if (texte->isEmpty())
            continue;
        long mot = 0;
        mesure.lignes += longueurPrefixe;
        for (const QChar caractere : *texte) {
            if (caractere.unicode() > derniereLatine)
                return MesureAutreEcriture(info);
            mesure.plusLongMot = MaxLI(mesure.plusLongMot, ++mot);
            if (caractere.isLetterOrNumber())
                continue;
            // Not every sign lets a line break, so it may also make its word longer: it counts for both.
            ++mesure.lignes;
            if (caractere.isSpace() && caractere != QChar::Nbsp)
                mot = 0;
        }
    }
    mesure.plusLongMot += longueurPrefixe;
    return mesure;
}
