#include "formexrlg.h"

#include "suitexrlg.h"

#include <algorithm>

namespace {

using Fin = SuiteXRLG::Fin;

qsizetype TailleDeFin(int champ)
{
    constexpr qsizetype signes = 4;  // "</", ">" and the line end
    return static_cast<qsizetype>(champsXRLG.at(static_cast<std::size_t>(champ)).size()) + signes;
}

/// The text whose end tag stands before \a place; -1 for none.
int ChampFini(std::string_view avant)
{
    if (!avant.ends_with('>'))
        return -1;
    const std::size_t debut = avant.substr(avant.size() - std::min<std::size_t>(avant.size(), 16)).rfind("</");
    if (debut == std::string_view::npos)
        return -1;
    const std::size_t depart = avant.size() - std::min<std::size_t>(avant.size(), 16) + debut + 2;
    const std::string_view nom = avant.substr(depart, avant.size() - 1 - depart);
    const auto *champ = std::find(champsXRLG.begin(), champsXRLG.end(), nom);
    return champ == champsXRLG.end() ? -1 : static_cast<int>(champ - champsXRLG.begin());
}

}  // namespace

FormeXRLG::FormeXRLG(QByteArrayView desOctets)
    : octets(desOctets)
{
    if (!octets.startsWith(QByteArrayView(debutXRLG.data(), debutXRLG.size())))
        return;
    etats[0].possible = true;
    Cherche(static_cast<qsizetype>(debutXRLG.size()));
    if (!entiere)
        Conclut();
    if (EstReconnue())
        GardeLeChemin();
}

void FormeXRLG::Cherche(qsizetype debut)
{
    const std::string_view texte(octets.data(), static_cast<std::size_t>(octets.size()));
    for (std::size_t fin = texte.find('\n', static_cast<std::size_t>(debut)); fin != std::string_view::npos && !entiere;
         fin = texte.find('\n', fin + 1)) {
        const int champ = ChampFini(texte.substr(0, fin));
        if (champ >= 0 && etats.at(static_cast<std::size_t>(champ)).possible)
            Essaie(static_cast<qsizetype>(fin) + 1 - TailleDeFin(champ), champ);
    }
}

void FormeXRLG::Essaie(qsizetype place, int champ)
{
    const Etat depart = etats.at(static_cast<std::size_t>(champ));
    const Jointure jointure{place, depart.derniere, static_cast<qint8>(champ), depart.egal};
    const SuiteXRLG suite = Suite(jointure);
    const quint32 nombre = depart.jointures + 1;
    if (suite.fin == Fin::Texte) {
        EntreDans(etats.at(static_cast<std::size_t>(suite.champ)), jointure, nombre);
        return;
    }
    entiere = suite.fin == Fin::Fichier;
    if (entiere || (suite.fin == Fin::Coupee && nombre > jusquAuDernier)) {
        dernier = static_cast<qint32>(jointures.size());
        jusquAuDernier = nombre;
        jointures.push_back(jointure);
    }
}

void FormeXRLG::EntreDans(Etat &arrivee, const Jointure &jointure, quint32 nombre)
{
    if (arrivee.possible && arrivee.jointures >= nombre) {
        arrivee.egal = arrivee.egal || arrivee.jointures == nombre;
        return;
    }
    arrivee = {.possible = true, .egal = false, .jointures = nombre, .derniere = static_cast<qint32>(jointures.size())};
    jointures.push_back(jointure);
}

/// The file has no end: the way with the most joints counts, up to its last whole person.
void FormeXRLG::Conclut()
{
    const auto *meilleur = std::max_element(etats.begin(), etats.end(),
                                            [](const Etat &a, const Etat &b) { return a.jointures < b.jointures; });
    if (dernier >= 0 && jusquAuDernier >= meilleur->jointures)
        return;
    dernier = meilleur->derniere;
    while (dernier >= 0) {
        const Jointure &jointure = jointures.at(static_cast<std::size_t>(dernier));
        if (Suite(jointure).personnesFinies > 0)
            return;
        dernier = jointure.precedente;
    }
}

/// Leaves the joints of the way taken alone, in the order of the file.
void FormeXRLG::GardeLeChemin()
{
    std::vector<Jointure> prises;
    for (qint32 i = dernier; i >= 0; i = prises.back().precedente)
        prises.push_back(jointures.at(static_cast<std::size_t>(i)));
    std::reverse(prises.begin(), prises.end());
    jointures = std::move(prises);
    const SuiteXRLG fin = Suite(jointures.back());
    nombreGenerations = fin.nombreGenerations;
    finDesPersonnes = fin.finDesPersonnes;
    const auto finDeLaPage = std::find_if(jointures.begin(), jointures.end(), [this](const Jointure &jointure) {
        return Suite(jointure).finDesPersonnes > 0;
    });
    nombrePersonnes = Suite(*finDeLaPage).nombrePersonnes;
}

SuiteXRLG FormeXRLG::Suite(const Jointure &jointure, const std::function<void(const NombresXRLG &)> &surDebut) const
{
    return LitLaSuite(octets, jointure.place + TailleDeFin(jointure.de), jointure.de, surDebut);
}

void FormeXRLG::Parcourt(const std::function<void(const Titres &)> &surTitres,
                         const std::function<void(const PersonneXRLG &)> &surPersonne) const
{
    Titres titres;
    PersonneXRLG personne;
    qsizetype commencees = 0;
    qsizetype finies = 0;
    const auto rend = [&] {
        if (commencees > 0)
            surPersonne(personne);
        else
            surTitres(titres);
    };
    const auto commence = [&](const NombresXRLG &nombres) {
        rend();
        personne = {.nombres = nombres, .textes = {}, .douteuse = false};
        ++commencees;
    };
    auto debut = static_cast<qsizetype>(debutXRLG.size());
    for (const Jointure &jointure : jointures) {
        const QByteArrayView texte = octets.sliced(debut, jointure.place - debut);
        if (jointure.de < champsDeTitre)
            titres.at(static_cast<std::size_t>(jointure.de)) = texte;
        else
            personne.textes.at(static_cast<std::size_t>(jointure.de - champsDeTitre)) = texte;
        personne.douteuse = personne.douteuse || jointure.douteuse;
        const SuiteXRLG suite = Suite(jointure, commence);
        finies += suite.personnesFinies;
        debut = suite.texte;
    }
    // Else the last one that was started is not whole.
    if (finies == commencees)
        rend();
}

bool FormeXRLG::UnTexteContient(char caractere) const
{
    bool trouve = false;
    const auto regarde = [&](const auto &textes) {
        trouve = trouve || std::any_of(textes.begin(), textes.end(), [caractere](QByteArrayView texte) {
                     return texte.contains(caractere);
                 });
    };
    Parcourt(regarde, [&](const PersonneXRLG &personne) { regarde(personne.textes); });
    return trouve;
}
