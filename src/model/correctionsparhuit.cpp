#include "correctionsparhuit.h"

#include "huitentiers.h"
#include "rangeesparhuit.h"

#ifdef AVEC_HUIT_ENTIERS

#include <algorithm>
#include <bit>
#include <cstddef>
#include <limits>

namespace {

constexpr int huit = 8;

/// Where the numbers of a group begin.
template <typename Nombre> Nombre *DuGroupe(Nombre *colonne, int rang)
{
    return colonne + static_cast<std::ptrdiff_t>(huit) * rang;
}

/// The passes, and why they are exact although they do less than the rules say:
///
/// No position is negative, so that halves are rounded down everywhere, and the mean of two parents who move by the same
/// amount moves by just that. Whoever has parents stands at their mean when a pass begins: the end of the last one
/// moved all three alike. During a pass parents only move right, so that nobody stands right of the wanted place, and
/// the rules come down to the larger of the mean and the free place, which in ecarts is the largest one so far.
///
/// Nobody but their own child looks at the ancestors again before the pass ends, so their moves add up until then.
///
/// Whatever a pass changes starts from those whom the end of the last one moved: in a row it begins at the first of
/// them, or at the child of the first one that moved in the row above. Left of there all stay, and have no move to hand
/// on.
class Corrections
{
public:
    Corrections(RangeesParHuit &rangees, long uneMarge)
        : colonnes{rangees.groupes.data(), rangees.ecarts.data(), rangees.corrections.data(), rangees.pousses.data(),
                   rangees.decalages.data()}
        , enfants(rangees.enfants)
        , marge(static_cast<int>(uneMarge))
    {
        for (const auto &[debut, fin] : rangees.rangees)
            fronts.push_back({.debut = debut, .fin = fin, .premierDecale = debut});
    }

    /// False when the numbers get too large.
    AVEC_HUIT_ENTIERS bool Execute()
    {
        HuitEntiers vus = HuitEntiers::Tous(0);
        bool aBouge = true;
        while (aBouge && !AtteintLaLimite(vus)) {
            Corrige(vus);
            aBouge = ReporteLesDecalages(vus);
        }
        return !AtteintLaLimite(vus);
    }

private:
    /// A copy of it in a loop keeps the compiler from reading the pointers again after each write.
    struct Colonnes
    {
        const RangeesParHuit::Groupe *groupes;
        int *ecarts;
        const int *corrections;
        int *pousses;
        int *decalages;
    };

    struct Front
    {
        int debut;
        int fin;
        int premierDecale;      ///< from here on the last pass moved ancestors
        int premierTouche = 0;  ///< from this one's group on this pass looks at everybody
    };

    /// \a vus: the bits of all numbers seen; the first one to be too large is not negative yet.
    AVEC_HUIT_ENTIERS static bool AtteintLaLimite(HuitEntiers vus)
    {
        return (vus | (HuitEntiers::Tous(RangeesParHuit::limite - 1) - vus)).Negatifs() != 0;
    }

    AVEC_HUIT_ENTIERS void Corrige(HuitEntiers &vus)
    {
        int touche = aucune;  // in the row: the child of the first one that moved in the row above
        for (auto front = fronts.rbegin(); front != fronts.rend(); ++front) {
            front->premierTouche = std::min({front->premierDecale, touche, front->fin});
            touche = PremierEnfantApres(CorrigeRangee(*front, vus), front->fin);
        }
    }

    /// The first one that moved since the last pass.
    AVEC_HUIT_ENTIERS int CorrigeRangee(const Front &front, HuitEntiers &vus)
    {
        if (front.premierTouche == front.fin)
            return front.fin;
        const Colonnes tables = colonnes;
        int groupe = front.premierTouche / huit;
        HuitEntiers libre = huit * groupe == front.debut
            ? HuitEntiers::Tous(marge)
            : HuitEntiers::Lus(DuGroupe(tables.ecarts, groupe - 1)).DernierPartout();
        int premierBouge = std::min(front.premierDecale, front.fin);
        for (; huit * groupe < premierBouge; ++groupe) {
            const unsigned bouges = CorrigeGroupe(tables, groupe, libre);
            if (bouges != 0)
                premierBouge = std::min(premierBouge, huit * groupe + std::countr_zero(bouges));
        }
        for (; huit * groupe < front.fin; ++groupe)
            CorrigeGroupe(tables, groupe, libre);
        vus = vus | libre;
        return premierBouge;
    }

    /// One bit a place: who moved.
    AVEC_HUIT_ENTIERS static unsigned CorrigeGroupe(const Colonnes &tables, int rang, HuitEntiers &libre)
    {
        const RangeesParHuit::Groupe &groupe = tables.groupes[rang];
        int *const place = DuGroupe(tables.ecarts, rang);
        const int *const parents = tables.ecarts + groupe.premierParent;
        const HuitEntiers devant = HuitEntiers::Lus(parents);
        const HuitEntiers derriere = HuitEntiers::Lus(parents + huit);
        const HuitEntiers premiers = HuitEntiers::Lus(groupe.premiersParents);
        const HuitEntiers seconds = HuitEntiers::Lus(groupe.secondsParents);
        const HuitEntiers somme = devant.PrisAvec(derriere, premiers) + devant.PrisAvec(derriere, seconds);
        const HuitEntiers milieux = (somme + HuitEntiers::Lus(DuGroupe(tables.corrections, rang))).Moitie();
        const HuitEntiers avant = HuitEntiers::Lus(place);
        const HuitEntiers voulus = milieux.OuSiNegatif(premiers, avant);
        const HuitEntiers plusGrands = voulus.MaxJusquIci();
        const HuitEntiers apres = plusGrands.Max(libre);
        libre = libre.Max(plusGrands.DernierPartout());
        apres.Ecrit(place);
        (apres - voulus).Ecrit(DuGroupe(tables.pousses, rang));
        return apres.Differents(avant);
    }

    AVEC_HUIT_ENTIERS bool ReporteLesDecalages(HuitEntiers &vus)
    {
        bool aBouge = false;
        int decale = aucune;  // in the row: the first parent of the first pushed one in the row below
        for (Front &front : fronts) {
            front.premierDecale = std::min(decale, front.fin);
            decale = ReporteDansLaRangee(front, vus);
            aBouge = aBouge || decale != aucune;
        }
        return aBouge;
    }

    /// The first parent that has to move in the row above, or aucune.
    AVEC_HUIT_ENTIERS int ReporteDansLaRangee(const Front &front, HuitEntiers &vus)
    {
        const int depuis = std::min(front.premierDecale, front.premierTouche);
        if (depuis == front.fin)
            return aucune;
        const Colonnes tables = colonnes;
        int groupe = depuis / huit;
        int decale = aucune;
        for (; huit * groupe < front.fin && decale == aucune; ++groupe)
            decale = PremierParent(tables.groupes[groupe], ReporteDansLeGroupe(tables, groupe, vus));
        for (; huit * groupe < front.fin; ++groupe)
            ReporteDansLeGroupe(tables, groupe, vus);
        return decale;
    }

    /// By how much each one's ancestors have to move.
    AVEC_HUIT_ENTIERS static HuitEntiers ReporteDansLeGroupe(const Colonnes &tables, int rang, HuitEntiers &vus)
    {
        const RangeesParHuit::Groupe &groupe = tables.groupes[rang];
        const HuitEntiers enfants = HuitEntiers::Lus(groupe.leursEnfants);
        const HuitEntiers recus = HuitEntiers::Lus(tables.decalages + groupe.premierEnfant)
                                      .Pris(enfants)
                                      .OuSiNegatif(enfants, HuitEntiers::Tous(0));
        int *const place = DuGroupe(tables.ecarts, rang);
        (HuitEntiers::Lus(place) + recus).Ecrit(place);
        const HuitEntiers remis = HuitEntiers::Lus(DuGroupe(tables.pousses, rang)) + recus;
        // What this writes behind those who have parents the next group writes over, or it is spare.
        remis.Pris(HuitEntiers::Lus(groupe.avecParents)).Ecrit(tables.decalages + groupe.premierDecalage);
        vus = vus | remis;
        return remis;
    }

    /// The first parent of the first one in the group who has ancestors to move, or aucune.
    AVEC_HUIT_ENTIERS static int PremierParent(const RangeesParHuit::Groupe &groupe, HuitEntiers remis)
    {
        const unsigned sansParents = HuitEntiers::Lus(groupe.premiersParents).Negatifs();
        const unsigned pousseurs = remis.Differents(HuitEntiers::Tous(0)) & ~sansParents;
        if (pousseurs == 0)
            return aucune;
        return groupe.premierParent + groupe.premiersParents[static_cast<std::size_t>(std::countr_zero(pousseurs))];
    }

    [[nodiscard]] int PremierEnfantApres(int place, int fin) const
    {
        while (place < fin && enfants[static_cast<std::size_t>(place)] == RangeesParHuit::aucun)
            ++place;
        return place < fin ? enfants[static_cast<std::size_t>(place)] : aucune;
    }

    static constexpr int aucune = std::numeric_limits<int>::max();  ///< a place behind all others

    const Colonnes colonnes;
    const std::vector<int> &enfants;
    int marge;
    std::vector<Front> fronts;  ///< by generation
};

}  // namespace

bool CorrigeParHuit(TableDisposition &table, long marge)
{
    RangeesParHuit rangees;
    if (!HuitEntiers::Existent() || marge < 0 || !rangees.Remplit(table) || !Corrections(rangees, marge).Execute())
        return false;
    rangees.EcritLesPositions(table);
    return true;
}

#else

bool CorrigeParHuit(TableDisposition &, long)
{
    return false;
}

#endif
