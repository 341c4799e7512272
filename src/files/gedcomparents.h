#pragma once

#include "gedcomfiches.h"

#include <QHash>

#include <utility>

/// Who is whose parent in a GEDCOM file. Individuals are told by their place in FichesGED::individus.
constexpr int aucunIndividu = -1;

/// The individuals by their identifiers.
class AnnuaireGED
{
public:
    explicit AnnuaireGED(const FichesGED &desFiches);

    /// Who bears this identifier, the first of the file when there are several. An empty one is nobody's.
    [[nodiscard]] int Porteur(QByteArrayView adresse) const;

    /// Those who bear another's identifier, and that other.
    [[nodiscard]] const QList<std::pair<int, int>> &Doubles() const { return doubles; }

private:
    [[nodiscard]] qsizetype Case(QByteArrayView adresse) const;
    [[nodiscard]] bool EstALa(int individu, QByteArrayView adresse) const;
    void Inscrit(int individu);

    const FichesGED &fiches;
    QList<int> parNumero;               ///< by the number in the identifier: neighbours in the file are neighbours here
    QHash<QByteArrayView, int> autres;  ///< those whose place was taken
    QList<std::pair<int, int>> doubles;
};

/// The parents of everybody, from one walk over the families.
class ParentsGED
{
public:
    struct Parents
    {
        int pere = aucunIndividu;
        int mere = aucunIndividu;
    };

    explicit ParentsGED(const FichesGED &fiches);

    [[nodiscard]] Parents De(int individu) const { return parents.at(individu); }

private:
    QList<Parents> parents;
};
