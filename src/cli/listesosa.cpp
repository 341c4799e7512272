#include "listesosa.h"

#include "arbre.h"
#include "identite.h"
#include "personne.h"

#include <QLocale>
#include <QSet>

#include <algorithm>
#include <bit>
#include <cmath>

ListeSosa::ListeSosa(const Arbre &arbre, int generationsVoulues)
{
    for (const Personne *personne = arbre.premiere; personne; personne = personne->suivante) {
        if (generationsVoulues == 0 || GenerationDuNumero(personne->numero) <= generationsVoulues)
            personnes.push_back(personne);
    }
    std::stable_sort(personnes.begin(), personnes.end(),
                     [](const Personne *a, const Personne *b) { return a->numero < b->numero; });
    CompteLesGenerations();
}

void ListeSosa::CompteLesGenerations()
{
    QSet<QString> dejaVus;
    for (const Personne *personne : personnes) {
        const int rang = GenerationDuNumero(personne->numero);
        if (generations.empty() || generations.back().rang != rang)
            generations.push_back({.rang = rang});
        Generation &generation = generations.back();
        ++generation.connus;
        const QString identite = Identite(*personne);
        if (identite.isEmpty() || !dejaVus.contains(identite))
            ++generation.distincts;
        if (!identite.isEmpty())
            dejaVus.insert(identite);
    }
}

int GenerationDuNumero(quint64 numero)
{
    return static_cast<int>(std::bit_width(numero));
}

QString ParentsInconnus(const Personne &personne)
{
    if (personne.pere == 0 && personne.mere == 0)
        return QStringLiteral("père et mère");
    if (personne.pere == 0)
        return QStringLiteral("père");
    return personne.mere == 0 ? QStringLiteral("mère") : QString();
}

QString Pourcentage(double part)
{
    const double arrondi = std::round(part * 1000) / 10;
    const bool entier = arrondi == std::floor(arrondi);
    return QLocale(QLocale::French, QLocale::France).toString(arrondi, 'f', entier ? 0 : 1) + QStringLiteral(" %");
}

double PartConnue(const ListeSosa::Generation &generation)
{
    return double(generation.connus) / std::ldexp(1.0, std::max(generation.rang - 1, 0));
}

double TauxDImplexe(const ListeSosa::Generation &generation)
{
    return generation.connus == 0 ? 0 : double(generation.connus - generation.distincts) / double(generation.connus);
}
