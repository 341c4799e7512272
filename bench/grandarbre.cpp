#include "grandarbre.h"

#include "arbre.h"
#include "infopersonne.h"
#include "personne.h"

#include <QStringList>

#include <algorithm>
#include <bit>
#include <numeric>
#include <random>
#include <unordered_map>
#include <vector>

namespace {

using Numeros = std::vector<quint64>;
constexpr quint64 plusGrandEnfant = quint64(1) << 62;

Numeros NumerosComplets(int personnes)
{
    Numeros numeros(static_cast<std::size_t>(personnes));
    std::iota(numeros.begin(), numeros.end(), 1);
    return numeros;
}

Numeros NumerosParGeneration(int personnes)
{
    constexpr double chanceParent = 0.75;
    // Some lines die out at once: the first seed whose line does not is always the same.
    for (quint32 graine = 1;; ++graine) {
        std::mt19937 hasard(graine);
        std::bernoulli_distribution connu(chanceParent);
        Numeros numeros{1};
        for (std::size_t i = 0; i < numeros.size() && numeros.size() < static_cast<std::size_t>(personnes); ++i) {
            for (const quint64 parent : {2 * numeros[i], 2 * numeros[i] + 1}) {
                if (numeros[i] < plusGrandEnfant && connu(hasard))
                    numeros.push_back(parent);
            }
        }
        if (numeros.size() >= static_cast<std::size_t>(personnes))
            return numeros;
    }
}

Numeros NumerosAttaches(int personnes)
{
    std::mt19937 hasard(1);
    Numeros numeros{1};
    Numeros places{2, 3};
    while (numeros.size() < static_cast<std::size_t>(personnes)) {
        const std::size_t rang = std::uniform_int_distribution<std::size_t>(0, places.size() - 1)(hasard);
        const quint64 numero = places[rang];
        places[rang] = places.back();
        places.pop_back();
        numeros.push_back(numero);
        if (numero < plusGrandEnfant)
            places.insert(places.end(), {2 * numero, 2 * numero + 1});
    }
    std::sort(numeros.begin(), numeros.end());
    return numeros;
}

Numeros NumerosDe(Forme forme, int personnes)
{
    switch (forme) {
    case Forme::Complete:
        return NumerosComplets(personnes);
    case Forme::ParGeneration:
        return NumerosParGeneration(personnes);
    case Forme::Attachee:
        break;
    }
    return NumerosAttaches(personnes);
}

InfoPersonne *InfoDe(quint64 numero)
{
    static const QStringList noms{QStringLiteral("MARTIN"), QStringLiteral("LEFÈVRE"), QStringLiteral("DUPONT-DURAND"),
                                  QStringLiteral("ROUX")};
    static const QStringList prenoms{QStringLiteral("Marie Françoise"), QStringLiteral("Jean"),
                                     QStringLiteral("Élise Jeanne Louise")};
    static const QStringList lieux{QStringLiteral("Saint-Étienne-du-Bois"), QStringLiteral("Nantes"),
                                   QStringLiteral("Bourges")};
    const auto choix = [numero](const QStringList &textes) {
        return textes.at(static_cast<qsizetype>(numero % static_cast<quint64>(textes.size())));
    };
    auto *info = new InfoPersonne;
    info->nom = choix(noms);
    info->prenom = choix(prenoms);
    info->datenaissance = QStringLiteral("%1 mars %2").arg(numero % 28 + 1).arg(1500 + numero % 400);
    info->lieunaissance = choix(lieux);
    info->datedeces = QStringLiteral("vers %1").arg(1560 + numero % 400);
    return info;
}

}  // namespace

std::unique_ptr<Arbre> GrandArbre(Forme forme, int personnes)
{
    auto arbre = std::make_unique<Arbre>();
    for (const quint64 numero : NumerosDe(forme, personnes)) {
        auto *personne = new Personne(static_cast<unsigned short>(std::bit_width(numero) - 1));
        personne->numero = numero;
        personne->info = InfoDe(numero);
        personne->enfant = numero / 2;
        arbre->AjouteALaFin(personne);
        arbre->nombreGenerations = static_cast<unsigned short>(personne->numerogeneration + 1);
    }
    std::unordered_map<quint64, Personne *> parNumero;
    for (Personne *personne = arbre->premiere; personne; personne = personne->suivante) {
        parNumero.emplace(personne->numero, personne);
        const auto enfant = parNumero.find(personne->numero / 2);
        if (enfant != parNumero.end())
            (personne->numero % 2 == 0 ? enfant->second->pere : enfant->second->mere) = personne->numero;
    }
    arbre->DetermineLiensDeParente();
    return arbre;
}

QByteArray GrandGedcom(int personnes)
{
    QByteArray texte = "0 HEAD\n1 CHAR UTF-8\n";
    for (int i = 1; i <= personnes; ++i) {
        const QByteArray soi = QByteArray::number(i);
        texte += "0 @I" + soi + "@ INDI\n1 NAME Marie Françoise/LEFÈVRE/\n1 SEX " + (i % 2 == 0 ? "M" : "F")
            + "\n1 BIRT\n2 DATE 3 MAR 1752\n2 PLAC Saint-Étienne-du-Bois\n1 DEAT\n2 DATE ABT 1800\n";
        if (i > 1)
            texte += "1 FAMS @F" + QByteArray::number(i / 2) + "@\n";
        if (2 * i <= personnes)
            texte += "1 FAMC @F" + soi + "@\n";
    }
    for (int i = 1; 2 * i <= personnes; ++i) {
        const QByteArray soi = QByteArray::number(i);
        texte += "0 @F" + soi + "@ FAM\n1 HUSB @I" + QByteArray::number(2 * i) + "@\n";
        if (2 * i + 1 <= personnes)
            texte += "1 WIFE @I" + QByteArray::number(2 * i + 1) + "@\n";
        texte += "1 CHIL @I" + soi + "@\n";
    }
    return texte + "0 TRLR\n";
}
