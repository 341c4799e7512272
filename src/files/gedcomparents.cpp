#include "gedcomparents.h"

#include <bit>

AnnuaireGED::AnnuaireGED(const FichesGED &desFiches)
    : fiches(desFiches)
    , parNumero(static_cast<qsizetype>(std::bit_ceil(2 * static_cast<std::size_t>(fiches.individus.size()) | 1U)),
                aucunIndividu)
{
    const auto nombre = static_cast<int>(fiches.individus.size());
    for (int individu = 0; individu < nombre; ++individu)
        Inscrit(individu);
}

int AnnuaireGED::Porteur(QByteArrayView adresse) const
{
    const int individu = parNumero.at(Case(adresse));
    if (individu == aucunIndividu || EstALa(individu, adresse))
        return individu;
    return autres.value(adresse, aucunIndividu);
}

/// The digits of the identifier, as a place in the table.
qsizetype AnnuaireGED::Case(QByteArrayView adresse) const
{
    std::size_t numero = 0;
    for (const char octet : adresse) {
        if (octet >= '0' && octet <= '9')
            numero = 10 * numero + static_cast<std::size_t>(octet - '0');
    }
    return static_cast<qsizetype>(numero & (static_cast<std::size_t>(parNumero.size()) - 1));
}

bool AnnuaireGED::EstALa(int individu, QByteArrayView adresse) const
{
    return fiches.Brut(fiches.individus.at(individu), ChampGED::Adresse) == adresse;
}

void AnnuaireGED::Inscrit(int individu)
{
    const QByteArrayView adresse = fiches.Brut(fiches.individus.at(individu), ChampGED::Adresse);
    if (adresse.isEmpty())
        return;
    int &place = parNumero[Case(adresse)];
    if (place == aucunIndividu) {
        place = individu;
        return;
    }
    const int porteur = EstALa(place, adresse) ? place : autres.value(adresse, aucunIndividu);
    if (porteur == aucunIndividu)
        autres.insert(adresse, individu);
    else
        doubles.append({individu, porteur});
}

ParentsGED::ParentsGED(const FichesGED &fiches)
    : parents(fiches.individus.size())
{
    const AnnuaireGED annuaire(fiches);
    for (const FicheFamille &famille : fiches.familles) {
        const int pere = annuaire.Porteur(fiches.Brut(famille.debut, famille.mari));
        const int mere = annuaire.Porteur(fiches.Brut(famille.debut, famille.femme));
        for (const MorceauGED &adresse : fiches.EnfantsDe(famille)) {
            const int enfant = annuaire.Porteur(fiches.Brut(famille.debut, adresse));
            if (enfant == aucunIndividu)
                continue;
            // An earlier family wins, for the father and for the mother on their own.
            Parents &connus = parents[enfant];
            connus.pere = connus.pere == aucunIndividu ? pere : connus.pere;
            connus.mere = connus.mere == aucunIndividu ? mere : connus.mere;
        }
    }
    for (const auto &[individu, porteur] : annuaire.Doubles())
        parents[individu] = parents.at(porteur);
}
