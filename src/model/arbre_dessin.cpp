#include "arbre.h"
#include "etatpeintre.h"
#include "indexdessin.h"
#include "infopersonne.h"
#include "outilspersonne.h"
#include "personne.h"
#include "zonemontree.h"

void Arbre::Affiche(QPainter *painter, float sx, float sy, bool impression, const FormatsDessins &formats,
                    const LesPolices &polices, bool arbreOuvert)
{
    const QRect zone = ZoneMontree(*painter);
    const Encombrement encombrement(*painter, sx, sy, formats, polices, arbreOuvert);
    DebordsPeints *peints = index ? &index->Peints() : nullptr;
    if (peints)
        peints->CommencePour(encombrement);
    const OutilsPersonne outils(*painter, sx, sy, impression, formats, polices, arbreOuvert);
    const auto question = [&](const Bloc &bloc) {
        return !encombrement.SontHorsDe(zone, bloc.coins, encombrement.DebordsDe(bloc.textes, bloc.plusGrandNumero),
                                        true);
    };
    const auto affiche = [&](Personne &personne, std::size_t rang) {
        const std::optional<Debords> connus = peints ? peints->Connus(rang) : std::nullopt;
        const MesureTextes textes = personne.info && !connus ? personne.info->Mesure() : MesureTextes();
        Coins coin;
        coin.Ajoute(personne.x, personne.y);
        if (encombrement.SontHorsDe(zone, coin, connus ? *connus : encombrement.DebordsDe(textes, personne.numero),
                                    personne.FacteurPhoto() == 2))
            return;
        const QRect pris = personne.Dessine(*painter, outils);
        if (peints && !connus && !pris.isNull())
            peints->Note(rang, encombrement.DebordsDe(pris, personne.x, personne.y));
    };
    {
        const EtatPeintre etat(*painter);
        Parcourt(question, [&affiche](const Bloc &bloc) {
            std::size_t rang = bloc.rang;
            for (Personne *personne = bloc.premiere; personne != bloc.fin; personne = personne->suivante)
                affiche(*personne, rang++);
        });
    }
    TraceLesLiaisons(painter, sx, sy, formats);
}
