#pragma once

#include <QByteArray>
#include <QByteArrayView>
#include <QList>
#include <QString>

#include <array>
#include <memory>
#include <span>

/// A GEDCOM file as its records, without a copy of any text: what the import works on, whatever the number of individuals.

/// The texts of an individual; what they mean stands at the fields of IndividuGED.
enum class ChampGED {
    Adresse,
    Prenom,
    Nom,
    Sexe,
    DateNaissance,
    LieuNaissance,
    DateDeces,
    LieuDeces,
    Fams,
    Famc,
    Occu,
};

/// A piece of the file's text: its first letter, counted from the start of its record, and its length, in letters.
struct MorceauGED
{
    quint32 debut = 0;
    quint32 longueur = 0;
};

struct FicheIndividu
{
    [[nodiscard]] MorceauGED &operator[](ChampGED champ) { return textes[static_cast<std::size_t>(champ)]; }
    [[nodiscard]] const MorceauGED &operator[](ChampGED champ) const { return textes[static_cast<std::size_t>(champ)]; }

    qsizetype debut = 0;  ///< of its record in the text
    std::array<MorceauGED, 11> textes;
};

struct FicheFamille
{
    qsizetype debut = 0;
    MorceauGED adresse;
    MorceauGED mari;
    MorceauGED femme;
    qsizetype premierEnfant = 0;  ///< place in FichesGED::enfants
    qsizetype nombreEnfants = 0;
};

Q_DECLARE_TYPEINFO(MorceauGED, Q_RELOCATABLE_TYPE);
Q_DECLARE_TYPEINFO(FicheIndividu, Q_RELOCATABLE_TYPE);
Q_DECLARE_TYPEINFO(FicheFamille, Q_RELOCATABLE_TYPE);

class FichesGED
{
public:
    /// Reads the bytes of a file, by the rules that gedcomlecture.h tells. Linear. A text that begins or ends more than
    /// 4 billion letters behind the start of its record is left out.
    explicit FichesGED(QByteArray contenu);
    Q_DISABLE_COPY_MOVE(FichesGED)

    /// The bytes of a piece of the record that starts at \a debut: two are the same when their texts are.
    [[nodiscard]] QByteArrayView Brut(qsizetype debut, MorceauGED morceau) const
    {
        return {debutDuTexte + octetsParLettre * (debut + morceau.debut),
                octetsParLettre * qsizetype(morceau.longueur)};
    }
    [[nodiscard]] QByteArrayView Brut(const FicheIndividu &individu, ChampGED champ) const
    {
        return Brut(individu.debut, individu[champ]);
    }
    [[nodiscard]] QString Texte(QByteArrayView brut) const;
    /// The bytes that \a texte has in this file.
    [[nodiscard]] QByteArray Code(const QString &texte) const;
    [[nodiscard]] std::span<const MorceauGED> EnfantsDe(const FicheFamille &famille) const;

    QList<FicheIndividu> individus;  ///< in the order of the file, as the others
    QList<FicheFamille> familles;
    QList<MorceauGED> enfants;  ///< those of all families

private:
    QByteArray octets;  ///< when they are UTF-8
    QString utf16;      ///< else
    const char *debutDuTexte = nullptr;
    int octetsParLettre = 1;
};

/// The records of a file; none when it cannot be opened, is larger than 2 GiB or has a line of 64 MiB.
[[nodiscard]] std::unique_ptr<const FichesGED> LitFichesGED(const QString &nomFichier);
