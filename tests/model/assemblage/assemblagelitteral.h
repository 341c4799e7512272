#pragma once

#include "sourcesdassemblage.h"

#include <optional>

/// The assembly as it is told: for each person of both trees, a walk of the whole list for its child, then another one for
/// its place. What the fast one must give, whatever the numbers are.
class AssemblageLitteral
{
public:
    AssemblageLitteral(const QList<Source> &duPere, const QList<Source> &deLaMere)
    {
        Copie racine{.numero = 1, .generation = 0, .pere = 2, .mere = 3};
        racine.nom = QStringLiteral("Enfant");
        Range(racine);
        Ajoute(duPere, true);
        Ajoute(deLaMere, false);
    }

    int generations = 0;
    [[nodiscard]] int Personnes() const { return int(ordre.size()); }

    /// As LignesDe tells a tree.
    [[nodiscard]] QStringList Lignes() const
    {
        const auto place = [this](int copie) {
            return copie < 0 ? QStringLiteral("-") : QString::number(ordre.indexOf(copie));
        };
        QStringList lignes;
        for (const int i : ordre) {
            const Copie &c = copies.at(i);
            lignes += QStringLiteral("%1/%2 %3,%4 %5 %6 >%7,%8")
                          .arg(c.numero)
                          .arg(c.generation)
                          .arg(c.pere)
                          .arg(c.mere)
                          .arg(c.enfant)
                          .arg(c.nom, place(c.lienPere), place(c.lienMere));
        }
        return lignes;
    }

private:
    struct Copie
    {
        quint64 numero = 0;
        int generation = 0;
        quint64 pere = 0;
        quint64 mere = 0;
        quint64 enfant = 0;
        QString nom{};
        int lienPere = -1;  ///< index in copies
        int lienMere = -1;
    };

    /// numero + 2^exposant, added in halves so that what does not fit is seen; none then.
    static std::optional<quint64> Plus(quint64 numero, int exposant)
    {
        if (exposant >= 64)
            return {};
        quint64 pas = 1;
        for (int i = 0; i < exposant; ++i)
            pas *= 2;
        const quint64 moitie = numero / 2 + pas / 2 + (numero % 2 + pas % 2) / 2;
        return moitie >= quint64(1) << 63 ? std::optional<quint64>() : numero + pas;
    }

    void Ajoute(const QList<Source> &sources, bool estPere)
    {
        const bool decalees = !sources.isEmpty() && sources.first().generation != 0;
        for (const Source &source : sources) {
            int generation = source.generation;
            if (decalees) {
                generation = 0;
                for (quint64 n = source.numero; n > 1; n /= 2)
                    ++generation;
            }
            const int exposant = estPere ? generation : generation + 1;
            const std::optional<quint64> numero = Plus(source.numero, exposant);
            if (!numero)
                continue;
            Copie copie{.numero = *numero, .generation = generation + 1};
            copie.pere = source.pere == 0 ? 0 : Plus(source.pere, exposant + 1).value_or(0);
            copie.mere = source.mere == 0 ? 0 : Plus(source.mere, exposant + 1).value_or(0);
            copie.enfant = *numero / 2;
            copie.nom = source.nom;
            Relie(copie);
            Range(copie);
        }
    }

    /// The copy will be the last of copies.
    void Relie(const Copie &copie)
    {
        for (const int i : ordre) {
            if (copies.at(i).numero == copie.enfant) {
                (copie.numero % 2 == 1 ? copies[i].lienMere : copies[i].lienPere) = int(copies.size());
                return;
            }
        }
    }

    void Range(const Copie &copie)
    {
        qsizetype rang = ordre.size();
        for (qsizetype i = 0; i + 1 < ordre.size(); ++i) {
            if (copie.numero > copies.at(ordre.at(i)).numero && copie.numero < copies.at(ordre.at(i + 1)).numero) {
                rang = i + 1;
                break;
            }
        }
        ordre.insert(rang, int(copies.size()));
        copies += copie;
        if (copie.generation >= generations)
            ++generations;
    }

    QList<Copie> copies;  ///< as they came
    QList<int> ordre;     ///< the list: indexes in copies
};
