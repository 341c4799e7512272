#include "arbre.h"
#include "etatpeintre.h"
#include "indexdessin.h"
#include "infopersonne.h"
#include "outilspersonne.h"
#include "personne.h"
#include "zonemontree.h"

namespace {

/// Draws those persons of a tree of whom the exposed part may show something.
class AfficheurDePersonnes
{
public:
    /// \a desPeints is the tree's memory, if it has one.
    AfficheurDePersonnes(QPainter &surQuoi, const Encombrement &unEncombrement, const OutilsPersonne &desOutils,
                         DebordsPeints *desPeints)
        : peintre(surQuoi)
        , zone(ZoneMontree(surQuoi))
        , encombrement(unEncombrement)
        , outils(desOutils)
        , peints(desPeints)
    {
        if (peints)
            peints->CommencePour(encombrement);
    }

    [[nodiscard]] bool PeutMontrer(const Bloc &bloc) const
    {
        return !encombrement.SontHorsDe(zone, bloc.coins, encombrement.DebordsDe(bloc.textes, bloc.plusGrandNumero),
                                        true);
    }

    void Affiche(const Bloc &bloc) const
    {
        const Debords auPlus = encombrement.DebordsDe(bloc.textes, bloc.plusGrandNumero);
        std::size_t rang = bloc.rang;
        for (Personne *personne = bloc.premiere; personne != bloc.fin; personne = personne->suivante, ++rang) {
            // An index knows bounds for the block: whom they rule out, that is most, need not be looked at closer.
            if (!peints || !encombrement.SontHorsDe(zone, CoinDe(*personne), auPlus, true))
                Affiche(*personne, rang);
        }
    }

private:
    [[nodiscard]] static Coins CoinDe(const Personne &personne)
    {
        Coins coin;
        coin.Ajoute(personne.x, personne.y);
        return coin;
    }

    void Affiche(Personne &personne, std::size_t rang) const
    {
        const std::optional<Debords> connus = peints ? peints->Connus(rang) : std::nullopt;
        if (EstHors(personne, connus ? *connus : Borne(personne)))
            return;
        // Only texts may reach the exposed part: to measure them costs less than to draw what nobody will see.
        if (peints && !connus && EstHors(personne, {})) {
            const QRect texte = personne.MesureLesTextes(peintre, outils);
            const Debords mesures = DebordsDe(personne, texte);
            if (!texte.isNull())
                peints->Note(rang, mesures);
            if (EstHors(personne, mesures))
                return;
        }
        const QRect pris = personne.Dessine(peintre, outils);
        if (peints && !connus && !pris.isNull())
            peints->Note(rang, DebordsDe(personne, pris));
    }

    [[nodiscard]] bool EstHors(const Personne &personne, const Debords &debords) const
    {
        return encombrement.SontHorsDe(zone, CoinDe(personne), debords, personne.FacteurPhoto() == 2);
    }

    [[nodiscard]] Debords Borne(const Personne &personne) const
    {
        return encombrement.DebordsDe(personne.info ? personne.info->Mesure() : MesureTextes(), personne.numero);
    }

    /// How far the texts in \a pris stand out. A null rectangle is of a person that is not to be drawn (yet).
    [[nodiscard]] Debords DebordsDe(const Personne &personne, const QRect &pris) const
    {
        return pris.isNull() ? Debords{} : encombrement.DebordsDe(pris, personne.x, personne.y);
    }

    QPainter &peintre;
    QRect zone;
    const Encombrement &encombrement;
    const OutilsPersonne &outils;
    DebordsPeints *peints;
};

}  // namespace

void Arbre::Affiche(QPainter *painter, float sx, float sy, bool impression, const FormatsDessins &formats,
                    const LesPolices &polices, bool arbreOuvert)
{
    {
        const EtatPeintre etat(*painter);
        const Encombrement encombrement(*painter, sx, sy, formats, polices, arbreOuvert);
        const OutilsPersonne outils(*painter, sx, sy, impression, formats, polices, arbreOuvert);
        const AfficheurDePersonnes afficheur(*painter, encombrement, outils, index ? &index->Peints() : nullptr);
        Parcourt([&afficheur](const Bloc &bloc) { return afficheur.PeutMontrer(bloc); },
                 [&afficheur](const Bloc &bloc) { afficheur.Affiche(bloc); });
    }
    TraceLesLiaisons(painter, sx, sy, formats);
}
