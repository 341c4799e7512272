#pragma once

#include "gedcomfiches.h"

#include <QHash>

/// Who is whose parent in a GEDCOM file. Individuals are told by their place in FichesGED::individus.
constexpr qsizetype aucunIndividu = -1;

/// The individuals by their identifiers.
class AnnuaireGED
{
public:
    explicit AnnuaireGED(const FichesGED &desFiches);

    /// Who bears this identifier, the first of the file when there are several. An empty one is nobody's.
    [[nodiscard]] qsizetype Porteur(QByteArrayView adresse) const;

private:
    [[nodiscard]] qsizetype Case(QByteArrayView adresse) const;
    [[nodiscard]] bool EstALa(qsizetype individu, QByteArrayView adresse) const;
    void Inscrit(qsizetype individu);

    const FichesGED &fiches;
    QList<qsizetype> parNumero;  ///< by the number in the identifier: neighbours in the file are neighbours here
    QHash<QByteArrayView, qsizetype> autres;  ///< those whose place was taken
};

/// The parents of everybody, from one walk over the families.
class ParentsGED
{
public:
    struct Parents
    {
        qsizetype pere = aucunIndividu;
        qsizetype mere = aucunIndividu;
    };

    explicit ParentsGED(const FichesGED &desFiches);

    [[nodiscard]] Parents De(qsizetype individu) const;

private:
    void Note(const FicheFamille &famille);

    const FichesGED &fiches;
    const AnnuaireGED annuaire;
    QList<Parents> parents;  ///< by individual; of those with one identifier only the first has them
};
