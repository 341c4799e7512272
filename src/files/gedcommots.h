#pragma once

#include <array>
#include <bit>
#include <cstddef>
#include <cstdint>
#include <string_view>
#include <type_traits>

/// The words that the reader knows, and the codes that stand for them.

enum class CodeGED : int {
    Autre = 0,
    EnTete = 1,
    Individu = 2,
    Famille = 3,
    Nom = 4,
    Sexe = 5,
    Naissance = 6,
    Date = 7,
    Lieu = 8,
    Deces = 9,
    FamilleConjoint = 10,
    FamilleEnfant = 11,
    Metier = 12,
    Mari = 15,
    Femme = 16,
    Enfant = 17,
    Fin = 18,
};

struct MotGED
{
    std::string_view texte;
    CodeGED code = CodeGED::Autre;
    bool aUneValeur = true;
};

/// Words of three capitals or more, the one that counts most in front.
template <std::size_t nombre> class TableDeMots
{
public:
    constexpr explicit TableDeMots(const std::array<MotGED, nombre> &desMots)
        : mots(desMots)
    {
        sauts.fill(debut);
        for (std::size_t k = 0; k < nombre; ++k) {
            for (std::size_t i = 0; i < debut; ++i) {
                const auto lettre = static_cast<unsigned char>(mots[k].texte[i]);
                const auto saut = static_cast<std::uint8_t>(debut - 1 - i);
                if (saut < sauts[lettre])
                    sauts[lettre] = saut;
                if (saut == 0)
                    candidats[lettre] = static_cast<std::uint16_t>(candidats[lettre] | 1U << k);
            }
        }
    }

    /// The first word of the table that occurs anywhere in \a ligne, or none. Looks at a line's letters from the third on
    /// and leaps over those that no word has within its first three: about a third of a usual line is read.
    template <typename Lettre> [[nodiscard]] const MotGED *Cherche(std::basic_string_view<Lettre> ligne) const
    {
        std::size_t premier = nombre;
        for (std::size_t i = debut - 1; i < ligne.size() && premier > 0;) {
            const auto lettre = static_cast<std::make_unsigned_t<Lettre>>(ligne[i]);
            const bool connue = lettre < sauts.size();
            const std::size_t saut = connue ? sauts[lettre] : debut;
            if (saut == 0)
                premier = PremierIci(ligne, i - (debut - 1), candidats[lettre], premier);
            i += saut == 0 ? 1 : saut;
        }
        return premier < nombre ? &mots[premier] : nullptr;
    }

private:
    static constexpr std::size_t debut = 3;  ///< letters by which a word is found

    /// The first of the words \a parmi that stands at \a ici and before \a premier in the table; else \a premier.
    template <typename Lettre> [[nodiscard]] std::size_t
    PremierIci(std::basic_string_view<Lettre> ligne, std::size_t ici, unsigned parmi, std::size_t premier) const
    {
        for (parmi &= (1U << premier) - 1; parmi != 0; parmi &= parmi - 1) {
            const auto k = static_cast<std::size_t>(std::countr_zero(parmi));
            if (EstIci(ligne, ici, mots[k].texte))
                return k;
        }
        return premier;
    }

    template <typename Lettre>
    [[nodiscard]] static bool EstIci(std::basic_string_view<Lettre> ligne, std::size_t ici, std::string_view mot)
    {
        if (ligne.size() - ici < mot.size())
            return false;
        for (std::size_t i = 0; i < mot.size(); ++i) {
            if (ligne[ici + i] != static_cast<Lettre>(mot[i]))
                return false;
        }
        return true;
    }

    std::array<MotGED, nombre> mots;
    std::array<std::uint8_t, 256> sauts{};       ///< how far a window of three letters moves by its last one
    std::array<std::uint16_t, 256> candidats{};  ///< the words with this third letter, one bit each
};

inline constexpr TableDeMots<4> motsDeBloc({{{"HEAD", CodeGED::EnTete, false},
                                             {"INDI", CodeGED::Individu},
                                             {"FAM", CodeGED::Famille},
                                             {"TRLR", CodeGED::Fin, false}}});

inline constexpr TableDeMots<12> motsDInfo({{{"NAME", CodeGED::Nom},
                                             {"SEX", CodeGED::Sexe},
                                             {"BIRT", CodeGED::Naissance, false},
                                             {"DEAT", CodeGED::Deces, false},
                                             {"DATE", CodeGED::Date},
                                             {"PLAC", CodeGED::Lieu},
                                             {"FAMS", CodeGED::FamilleConjoint},
                                             {"FAMC", CodeGED::FamilleEnfant},
                                             {"OCCU", CodeGED::Metier},
                                             {"HUSB", CodeGED::Mari},
                                             {"WIFE", CodeGED::Femme},
                                             {"CHIL", CodeGED::Enfant}}});
