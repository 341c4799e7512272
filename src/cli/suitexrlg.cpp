#include "suitexrlg.h"

#include <QByteArray>

namespace {

using Fin = SuiteXRLG::Fin;

constexpr std::string_view finDePersonne = "      </infopersonne>\n    </personne>\n";

/// Goes through the bytes word by word.
class Curseur
{
public:
    Curseur(QByteArrayView desOctets, qsizetype depart)
        : octets(desOctets.data(), static_cast<std::size_t>(desOctets.size()))
        , place(static_cast<std::size_t>(depart))
    {
    }

    [[nodiscard]] qsizetype Place() const { return static_cast<qsizetype>(place); }

    bool Mange(std::string_view mot)
    {
        if (!octets.substr(place).starts_with(mot))
            return false;
        place += mot.size();
        return true;
    }

    /// A line with the element \a balise: what stands between its tags, a number or something short in its place.
    bool MangeNombre(std::string_view retrait, std::string_view balise, QByteArrayView &valeur)
    {
        constexpr std::size_t plusLong = 40;
        if (!Mange(retrait) || !Mange("<") || !Mange(balise) || !Mange(">"))
            return false;
        const std::string_view reste = octets.substr(place, plusLong);
        const std::size_t longueur = reste.find_first_of("<\n");
        if (longueur == std::string_view::npos)
            return false;
        valeur = QByteArrayView(reste.data(), static_cast<qsizetype>(longueur));
        place += longueur;
        return Mange("</") && Mange(balise) && Mange(">\n");
    }

    /// One of the start tags from \a premier up to \a fin; -1 for none of them.
    int MangeChamp(std::string_view retrait, int premier, int fin)
    {
        const std::size_t avant = place;
        if (!Mange(retrait) || !Mange("<")) {
            place = avant;
            return -1;
        }
        for (int champ = premier; champ < fin; ++champ) {
            const std::size_t debut = place;
            if (Mange(champsXRLG.at(static_cast<std::size_t>(champ))) && Mange(">"))
                return champ;
            place = debut;
        }
        place = avant;
        return -1;
    }

    [[nodiscard]] bool ResteDuBlanc() const
    {
        return octets.find_first_not_of(" \t\n", place) == std::string_view::npos;
    }

private:
    std::string_view octets;
    std::size_t place;
};

quint64 Nombre(QByteArrayView texte)
{
    return texte.toByteArray().toULongLong();
}

unsigned short Generation(QByteArrayView texte)
{
    return texte.toByteArray().toUShort();
}

bool MangeNombres(Curseur &curseur, NombresXRLG &nombres)
{
    constexpr std::string_view retrait = "      ";
    std::array<QByteArrayView, 5> textes;
    if (!curseur.Mange("    <personne>\n") || !curseur.MangeNombre(retrait, "numero", textes[0])
        || !curseur.MangeNombre(retrait, "numerogeneration", textes[1])
        || !curseur.MangeNombre(retrait, "pere", textes[2]) || !curseur.MangeNombre(retrait, "mere", textes[3])
        || !curseur.MangeNombre(retrait, "enfant", textes[4]) || !curseur.Mange("      <infopersonne>\n"))
        return false;
    nombres = {.numero = Nombre(textes[0]),
               .generation = Generation(textes[1]),
               .pere = Nombre(textes[2]),
               .mere = Nombre(textes[3]),
               .enfant = Nombre(textes[4])};
    return true;
}

bool MangeLaFin(Curseur &curseur, unsigned short &generations)
{
    QByteArrayView texte;
    if (!curseur.MangeNombre("    ", "nombregenerations", texte) || !curseur.Mange("  </arbre>\n")
        || !curseur.Mange("</xrlg>") || !curseur.ResteDuBlanc())
        return false;
    generations = Generation(texte);
    return true;
}

/// From behind a person, or the count of persons, on: persons without texts may come before the next text.
void LitApresPersonne(Curseur &curseur, SuiteXRLG &suite, const SurDebutXRLG &surDebut)
{
    constexpr int tous = static_cast<int>(champsXRLG.size());
    for (;;) {
        suite.finDesPersonnes = curseur.Place();
        suite.fin = suite.personnesFinies > 0 ? Fin::Coupee : Fin::Rien;
        Curseur essai = curseur;
        if (MangeLaFin(essai, suite.nombreGenerations)) {
            suite.fin = Fin::Fichier;
            return;
        }
        NombresXRLG nombres;
        if (!MangeNombres(curseur, nombres))
            return;
        if (surDebut)
            surDebut(nombres);
        suite.champ = curseur.MangeChamp("        ", champsDeTitre, tous);
        if (suite.champ >= 0) {
            suite.fin = Fin::Texte;
            suite.texte = curseur.Place();
            return;
        }
        if (!curseur.Mange(finDePersonne))
            return;
        ++suite.personnesFinies;
    }
}

bool FinitLaPage(Curseur &curseur, SuiteXRLG &suite)
{
    QByteArrayView texte;
    if (!curseur.Mange("    </infoarbre>\n") || !curseur.MangeNombre("    ", "nombrepersonnes", texte))
        return false;
    suite.nombrePersonnes = Nombre(texte);
    return true;
}

bool FinitLaPersonne(Curseur &curseur, SuiteXRLG &suite)
{
    if (!curseur.Mange(finDePersonne))
        return false;
    ++suite.personnesFinies;
    return true;
}

}  // namespace

SuiteXRLG LitLaSuite(QByteArrayView octets, qsizetype place, int champ, const SurDebutXRLG &surDebut)
{
    SuiteXRLG suite;
    Curseur curseur(octets, place);
    const bool titre = champ < champsDeTitre;
    suite.champ = curseur.MangeChamp(titre ? "      " : "        ", champ + 1,
                                     titre ? champsDeTitre : static_cast<int>(champsXRLG.size()));
    if (suite.champ >= 0) {
        suite.fin = Fin::Texte;
        suite.texte = curseur.Place();
    } else if (titre ? FinitLaPage(curseur, suite) : FinitLaPersonne(curseur, suite)) {
        LitApresPersonne(curseur, suite, surDebut);
    }
    return suite;
}
