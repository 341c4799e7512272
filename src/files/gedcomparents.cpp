#include "gedcomparents.h"

#include <bit>

AnnuaireGED::AnnuaireGED(const FichesGED &desFiches)
    : fiches(desFiches)
    , parNumero(static_cast<qsizetype>(std::bit_ceil(2 * static_cast<std::size_t>(fiches.individus.size()))),
                aucunIndividu)
{
    for (qsizetype individu = 0; individu < fiches.individus.size(); ++individu)
        Inscrit(individu);
}

qsizetype AnnuaireGED::Porteur(QByteArrayView adresse) const
{
    const qsizetype individu = parNumero.at(Case(adresse));
    if (individu == aucunIndividu || EstALa(individu, adresse))
        return individu;
    return autres.value(adresse, aucunIndividu);
}

/// The last digits in the identifier, as a place in the table.
qsizetype AnnuaireGED::Case(QByteArrayView adresse) const
{
    std::size_t numero = 0;
    for (const char octet : adresse) {
        if (octet >= '0' && octet <= '9')
            numero = 10 * numero + static_cast<std::size_t>(octet - '0');
    }
    return static_cast<qsizetype>(numero & (static_cast<std::size_t>(parNumero.size()) - 1));
}

bool AnnuaireGED::EstALa(qsizetype individu, QByteArrayView adresse) const
{
    return fiches.Brut(fiches.individus.at(individu), ChampGED::Adresse) == adresse;
}

void AnnuaireGED::Inscrit(qsizetype individu)
{
    const QByteArrayView adresse = fiches.Brut(fiches.individus.at(individu), ChampGED::Adresse);
    if (adresse.isEmpty())
        return;
    qsizetype &place = parNumero[Case(adresse)];
    if (place == aucunIndividu)
        place = individu;
    else if (!EstALa(place, adresse) && !autres.contains(adresse))
        autres.insert(adresse, individu);
}

ParentsGED::ParentsGED(const FichesGED &desFiches)
    : fiches(desFiches)
    , annuaire(fiches)
    , parents(fiches.individus.size())
{
    for (const FicheFamille &famille : fiches.familles)
        Note(famille);
}

ParentsGED::Parents ParentsGED::De(qsizetype individu) const
{
    const qsizetype porteur = annuaire.Porteur(fiches.Brut(fiches.individus.at(individu), ChampGED::Adresse));
    return porteur == aucunIndividu ? Parents() : parents.at(porteur);
}

/// An earlier family wins, for the father and for the mother on their own.
void ParentsGED::Note(const FicheFamille &famille)
{
    const qsizetype pere = annuaire.Porteur(fiches.Brut(famille.debut, famille.mari));
    const qsizetype mere = annuaire.Porteur(fiches.Brut(famille.debut, famille.femme));
    for (const MorceauGED &adresse : fiches.EnfantsDe(famille)) {
        const qsizetype enfant = annuaire.Porteur(fiches.Brut(famille.debut, adresse));
        if (enfant == aucunIndividu)
            continue;
        if (parents[enfant].pere == aucunIndividu)
            parents[enfant].pere = pere;
        if (parents[enfant].mere == aucunIndividu)
            parents[enfant].mere = mere;
    }
}
