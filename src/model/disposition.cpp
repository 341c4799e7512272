#include "disposition.h"

#include "arbre.h"
#include "formatsdessins.h"
#include "personne.h"
#include "unites.h"

#include <vector>

/// One layout: the persons copied into a plain table in list order, moved there pass by pass, and written back.
class Disposition
{
public:
    Disposition(Arbre &arbre, const FormatsDessins &formats, float echelleX, float echelleY);
    void Execute();

private:
    using Rang = std::size_t;
    static constexpr Rang aucun = static_cast<Rang>(-1);

    struct Place
    {
        Personne *personne;
        long x;
        long largeur;       ///< taken in its row, the gap to the next box included
        long decalage = 0;  ///< by how much this pass still has to move every ancestor
        Rang pere = aucun;
        Rang mere = aucun;
    };

    void RangeParGeneration();
    void RetrouveLesParents();
    [[nodiscard]] bool EstBienFormee() const;
    [[nodiscard]] long PlaceVoulue(const Place &place, long libre) const;
    bool Passe(bool premiere);
    void ReporteLesDecalages();
    void Ecrit();

    Arbre &arbre;
    long margeX;
    long margeY;
    long pasVertical;
    std::vector<Place> places;               ///< in list order
    std::vector<std::vector<Rang>> rangees;  ///< by generation, each in list order
};

namespace {

/// Lengths from a damaged options file must not overflow the positions of a million persons.
long PxBorne(long millimetres, float echelle)
{
    constexpr long limite = 1'000'000;
    return MaxLI(-limite, MinLI(Px(millimetres, echelle), limite));
}

/// A sum that stops far beyond every true position: the shifts of a malformed tree may double at every pass.
long Somme(long a, long b)
{
    constexpr long limite = 100'000'000'000'000'000L;
    return MaxLI(-limite, MinLI(a + b, limite));
}

}  // namespace

Disposition::Disposition(Arbre &aDisposer, const FormatsDessins &formats, float echelleX, float echelleY)
    : arbre(aDisposer)
    , margeX(PxBorne(formats.margeGenerale, echelleX))
    , margeY(PxBorne(formats.margeGenerale, echelleY))
    , pasVertical(PxBorne(long(formats.hauteurCadre) + formats.distMinVert, echelleY))
{
    const long largeurs[] = {PxBorne(long(formats.largeurCadre) + formats.distMinHoriz, echelleX),
                             PxBorne(2L * formats.largeurCadre + formats.distMinHoriz, echelleX)};
    for (Personne *personne = aDisposer.premiere; personne; personne = personne->suivante) {
        personne->rang = places.size();
        places.push_back({personne, personne->x, largeurs[personne->FacteurPhoto() - 1]});
    }
    RetrouveLesParents();
    RangeParGeneration();
}

void Disposition::RetrouveLesParents()
{
    // Parents stand behind their children in the list; a link that says otherwise is not followed.
    for (Place &place : places) {
        const Personne *pere = place.personne->ptrPere;
        const Personne *mere = place.personne->ptrMere;
        if (pere && pere->rang > place.personne->rang)
            place.pere = pere->rang;
        if (mere && mere->rang > place.personne->rang)
            place.mere = mere->rang;
    }
}

void Disposition::RangeParGeneration()
{
    // A row ends at the first person of a later generation, so a person that comes after one has no row.
    rangees.resize(arbre.nombreGenerations);
    unsigned short plusHaute = 0;
    for (Rang rang = 0; rang < places.size(); ++rang) {
        const unsigned short generation = places[rang].personne->numerogeneration;
        if (generation < plusHaute)
            continue;
        plusHaute = generation;
        if (generation < rangees.size())
            rangees[generation].push_back(rang);
    }
}

bool Disposition::EstBienFormee() const
{
    Rang dernierParent = 0;
    unsigned short generation = 0;
    for (const Place &place : places) {
        const Personne &personne = *place.personne;
        if (place.largeur <= 0 || personne.numerogeneration < generation
            || personne.numerogeneration >= arbre.nombreGenerations)
            return false;
        generation = personne.numerogeneration;
        for (const Personne *parent : {personne.ptrPere, personne.ptrMere}) {
            if (!parent)
                continue;
            if (parent->rang <= dernierParent || parent->numerogeneration != generation + 1)
                return false;
            dernierParent = parent->rang;
        }
    }
    return true;
}

void Disposition::Execute()
{
    if (places.size() == 1) {
        places.front().personne->x = margeX;
        places.front().personne->y = margeY;
        return;
    }
    constexpr int passesDunArbreMalForme = 100;
    bool aBouge = Passe(true);
    const bool bienFormee = EstBienFormee();
    for (int passes = 0; aBouge && (bienFormee || passes < passesDunArbreMalForme); ++passes)
        aBouge = Passe(false);
    Ecrit();
}

long Disposition::PlaceVoulue(const Place &place, long libre) const
{
    if (place.pere != aucun && place.mere != aucun)
        return (places[place.pere].x + places[place.mere].x) / 2;
    if (place.pere != aucun)
        return places[place.pere].x;
    if (place.mere != aucun)
        return places[place.mere].x;
    return libre;
}

bool Disposition::Passe(bool premiere)
{
    bool aBouge = false;
    for (auto rangee = rangees.rbegin(); rangee != rangees.rend(); ++rangee) {
        long libre = margeX;
        for (const Rang rang : *rangee) {
            Place &place = places[rang];
            const long voulue = PlaceVoulue(place, libre);
            if (premiere || place.x < voulue)
                place.x = voulue;
            if (libre > voulue) {
                // Measured from the wanted place even when the person stood further right: deliberate.
                place.x = libre;
                place.decalage = Somme(place.decalage, libre - voulue);
                aBouge = true;
            }
            libre = Somme(place.x, place.largeur);
        }
    }
    if (aBouge)
        ReporteLesDecalages();
    return aBouge;
}

void Disposition::ReporteLesDecalages()
{
    // Nobody but their own child looks at the ancestors again before the pass ends, so their moves add up until here.
    for (Place &place : places) {
        if (place.decalage == 0)
            continue;
        for (const Rang parent : {place.pere, place.mere}) {
            if (parent == aucun)
                continue;
            places[parent].x = Somme(places[parent].x, place.decalage);
            places[parent].decalage = Somme(places[parent].decalage, place.decalage);
        }
        place.decalage = 0;
    }
}

void Disposition::Ecrit()
{
    for (const Place &place : places)
        place.personne->x = place.x;
    long y = margeY;
    for (auto rangee = rangees.rbegin(); rangee != rangees.rend(); ++rangee) {
        for (const Rang rang : *rangee)
            places[rang].personne->y = y;
        y += pasVertical;
    }
}

void DisposeArbre(Arbre &arbre, const FormatsDessins &formats, float echelleX, float echelleY)
{
    Disposition(arbre, formats, echelleX, echelleY).Execute();
}
