#include "partie.h"

namespace {

constexpr qsizetype evenementsRetenus = 30;

}  // namespace

Partie::Partie(const Dossier &leDossier, quint32 graine)
    : dossier(leDossier)
    , tirage(graine)
{
}

qsizetype Partie::Choisit(QList<Chance> chances)
{
    constexpr int assezSouvent = 4;
    constexpr int presse = 5;
    int somme = 0;
    for (Chance &chance : chances) {
        chance.chance *= gestes.value(chance.nom) < assezSouvent ? presse : 1;
        somme += chance.chance;
    }
    int tire = tirage.Parmi(somme);
    for (qsizetype i = 0; i < chances.size(); ++i) {
        if ((tire -= chances.at(i).chance) < 0)
            return i;
    }
    return 0;
}

void Partie::Precise(const QString &geste)
{
    ++gestes[geste];
    Note(geste);
}

void Partie::Commence(const QString &geste)
{
    if (derniers.size() == evenementsRetenus)
        derniers.removeFirst();
    derniers += geste;
    ++gestes[geste];
}

void Partie::Note(const QString &detail)
{
    derniers.last() += u' ' + detail;
}

void Partie::NoteLeFait(const QString &fait)
{
    ++faits[fait];
    Note(fait);
}
