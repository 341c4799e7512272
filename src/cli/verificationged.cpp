#include "gedcomfiches.h"
#include "gedcomparents.h"
#include "verification.h"
#include "verificationdates.h"

#include <QSet>

namespace {

class VerificateurDeFiches
{
public:
    VerificateurDeFiches(const FichesGED &desFiches, const SurConstat &unSurConstat)
        : fiches(desFiches)
        , surConstat(unSurConstat)
        , annuaire(desFiches)
        , parents(desFiches)
    {
    }

    void Verifie()
    {
        for (const auto &[individu, premier] : annuaire.Doubles())
            Erreur(Adresse(individu), QStringLiteral("identifiant porté par plusieurs individus"));
        for (const FicheFamille &famille : fiches.familles)
            VerifieLaFamille(famille);
        for (int individu = 0; individu < fiches.individus.size(); ++individu)
            VerifieLIndividu(individu);
        ChercheLesBoucles();
    }

private:
    void Erreur(const QString &fiche, const QString &texte) const { surConstat({.texte = texte, .fiche = fiche}); }

    [[nodiscard]] QString Texte(int individu, ChampGED champ) const
    {
        return fiches.Texte(fiches.Brut(fiches.individus.at(individu), champ));
    }
    [[nodiscard]] QString Adresse(int individu) const { return Texte(individu, ChampGED::Adresse); }

    void VerifieLaFamille(const FicheFamille &famille)
    {
        const QByteArrayView adresse = fiches.Brut(famille.debut, famille.adresse);
        const QString nom = fiches.Texte(adresse);
        if (!adresse.isEmpty() && familles.contains(adresse))
            Erreur(nom, QStringLiteral("identifiant porté par plusieurs familles"));
        familles.insert(adresse);
        const auto verifie = [&](const char *qui, MorceauGED morceau) {
            const QByteArrayView membre = fiches.Brut(famille.debut, morceau);
            if (!membre.isEmpty() && annuaire.Porteur(membre) == aucunIndividu)
                Erreur(nom, QStringLiteral("%1 %2 manque").arg(QString::fromUtf8(qui), fiches.Texte(membre)));
        };
        verifie("le mari", famille.mari);
        verifie("la femme", famille.femme);
        for (const MorceauGED &enfant : fiches.EnfantsDe(famille))
            verifie("l'enfant", enfant);
    }

    void VerifieLIndividu(int individu) const
    {
        const QString adresse = Adresse(individu);
        if (adresse.isEmpty())
            Erreur({}, QStringLiteral("un individu n'a pas d'identifiant : ") + Texte(individu, ChampGED::Nom));
        for (const ChampGED champ : {ChampGED::Fams, ChampGED::Famc}) {
            const QByteArrayView famille = fiches.Brut(fiches.individus.at(individu), champ);
            if (!famille.isEmpty() && !familles.contains(famille))
                Erreur(adresse, QStringLiteral("la famille %1 manque").arg(fiches.Texte(famille)));
        }
        const DatesDeVie dates = Dates(individu);
        for (const QString &faute : dates.Fautes())
            Erreur(adresse, faute);
        const ParentsGED::Parents lesSiens = parents.De(individu);
        for (const int parent : {lesSiens.pere, lesSiens.mere}) {
            if (parent == aucunIndividu || dates.naissance.etat != DateComprise::Etat::Comprise)
                continue;
            const DatesDeVie sesDates = Dates(parent);
            if (dates.NaitAvant(sesDates)) {
                Erreur(adresse,
                       QStringLiteral("naissance (%1) avant celle de son parent %2 (%3)")
                           .arg(dates.naissanceEcrite, Adresse(parent), sesDates.naissanceEcrite));
            }
        }
    }

    [[nodiscard]] DatesDeVie Dates(int individu) const
    {
        return {Texte(individu, ChampGED::DateNaissance), Texte(individu, ChampGED::DateDeces)};
    }

    /// Goes up from everybody, each one once, with a stack of its own: lines may be long.
    void ChercheLesBoucles() const
    {
        enum class Vu : char { Jamais, EnChemin, Fini };
        QList<Vu> vus(fiches.individus.size(), Vu::Jamais);
        struct Pas
        {
            int individu;
            int parentsVus;
        };
        QList<Pas> chemin;
        for (int depart = 0; depart < fiches.individus.size(); ++depart) {
            if (vus.at(depart) == Vu::Jamais)
                chemin.append({depart, 0});
            while (!chemin.isEmpty()) {
                Pas &pas = chemin.last();
                vus[pas.individu] = pas.parentsVus < 2 ? Vu::EnChemin : Vu::Fini;
                if (pas.parentsVus == 2) {
                    chemin.removeLast();
                    continue;
                }
                const ParentsGED::Parents deux = parents.De(pas.individu);
                const int parent = pas.parentsVus++ == 0 ? deux.pere : deux.mere;
                if (parent == aucunIndividu || vus.at(parent) == Vu::Fini)
                    continue;
                if (vus.at(parent) == Vu::EnChemin)
                    Erreur(Adresse(parent), QStringLiteral("est son propre ancêtre"));
                else
                    chemin.append({parent, 0});
            }
        }
    }

    const FichesGED &fiches;
    const SurConstat &surConstat;
    AnnuaireGED annuaire;
    ParentsGED parents;
    QSet<QByteArrayView> familles;
};

}  // namespace

void VerifieDesFiches(const FichesGED &fiches, const SurConstat &surConstat)
{
    VerificateurDeFiches(fiches, surConstat).Verifie();
}
