#pragma once

#include <QString>
#include <QStringView>

class InfoPersonne;

/// The first letters of a person's names in both orders ("Jean MARTIN", "MARTIN Jean"), to be compared at once: most
/// persons that a search passes need no closer look.
struct ClesDeNom
{
    ClesDeNom() = default;
    /// Without data: names of no letters.
    explicit ClesDeNom(const InfoPersonne *info);

    quint64 prenomNom = 0;
    quint64 nomPrenom = 0;
};

/// What somebody typed of the beginning of a name, with any accents and letters, large or small. The surname, the given
/// names, or both in either order begin with it.
class NomCherche
{
public:
    explicit NomCherche(QStringView tape);

    /// False when no person with these keys is meant.
    [[nodiscard]] bool PeutEtre(const ClesDeNom &cles) const;
    [[nodiscard]] bool Est(const InfoPersonne &info) const;

private:
    QString debut;  ///< without accents
    quint64 cle;
    quint64 masque;
};
