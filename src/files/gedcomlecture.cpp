#include "gedcomlecture.h"

#include "gedcomfiches.h"
#include "gedcomligne.h"
#include "gedcommots.h"

#include <memory>

IndividuGED *LesIndividus = nullptr;
FamilleGED *LesFamilles = nullptr;

namespace {

/// Destroys a list behind its head without recursion.
template <typename Element> void Detruit(Element *reste, Element *Element::*lien)
{
    while (reste) {
        Element *courant = reste;
        reste = std::exchange(courant->*lien, nullptr);
        delete courant;
    }
}

template <typename Element> void MetEnTete(Element *&tete, Element *Element::*lien, std::unique_ptr<Element> element)
{
    element.get()->*lien = tete;
    tete = element.release();
}

/// Strings of the pieces of a file's records.
class TextesDesFiches
{
public:
    explicit TextesDesFiches(const FichesGED &desFiches)
        : fiches(desFiches)
    {
    }

    [[nodiscard]] QString De(qsizetype debut, MorceauGED morceau) const
    {
        return fiches.Texte(fiches.Brut(debut, morceau));
    }

    [[nodiscard]] std::unique_ptr<IndividuGED> Individu(const FicheIndividu &fiche) const
    {
        const auto texte = [&](ChampGED champ) { return De(fiche.debut, fiche[champ]); };
        auto individu = std::make_unique<IndividuGED>(texte(ChampGED::Adresse));
        individu->prenom = texte(ChampGED::Prenom);
        individu->nom = texte(ChampGED::Nom);
        individu->sexe = texte(ChampGED::Sexe);
        individu->datenaissance = texte(ChampGED::DateNaissance);
        individu->lieunaissance = texte(ChampGED::LieuNaissance);
        individu->datedeces = texte(ChampGED::DateDeces);
        individu->lieudeces = texte(ChampGED::LieuDeces);
        individu->fams = texte(ChampGED::Fams);
        individu->famc = texte(ChampGED::Famc);
        individu->occu = texte(ChampGED::Occu);
        return individu;
    }

    [[nodiscard]] std::unique_ptr<FamilleGED> Famille(const FicheFamille &fiche) const
    {
        auto famille = std::make_unique<FamilleGED>(De(fiche.debut, fiche.adresse));
        famille->mari = De(fiche.debut, fiche.mari);
        famille->femme = De(fiche.debut, fiche.femme);
        for (const MorceauGED &enfant : fiches.EnfantsDe(fiche))
            MetEnTete(famille->enfants, &EnfantGED::suivant, std::make_unique<EnfantGED>(De(fiche.debut, enfant)));
        return famille;
    }

private:
    const FichesGED &fiches;
};

}  // namespace

IndividuGED::~IndividuGED()
{
    Detruit(std::exchange(suivant, nullptr), &IndividuGED::suivant);
}

EnfantGED::~EnfantGED()
{
    Detruit(std::exchange(suivant, nullptr), &EnfantGED::suivant);
}

FamilleGED::~FamilleGED()
{
    delete enfants;
    Detruit(std::exchange(suivante, nullptr), &FamilleGED::suivante);
}

void VideLesListesGED()
{
    delete std::exchange(LesIndividus, nullptr);
    delete std::exchange(LesFamilles, nullptr);
}

short Niveau(QString &ligne)
{
    VueUtf16 reste = VueDe(ligne);
    const short niveau = PrendNiveau(reste);
    ligne = TexteDe(reste);
    return niveau;
}

QString DecodeAdresse(QString &texte)
{
    texte = TexteDe(Adresse(VueDe(texte)));
    return texte;
}

void DecodeName(QString &nomComplet, QString &prenom, QString &nom)
{
    const QString complet = nomComplet;
    const NomCoupe<char16_t> coupe = CoupeNom(VueDe(complet));
    if (coupe.prenom)
        prenom = TexteDe(*coupe.prenom);
    if (coupe.nom)
        nomComplet = nom = TexteDe(*coupe.nom);
}

int DetermineBlocinfo(QString &ligne, QString &adresse)
{
    const MotGED *mot = motsDeBloc.Cherche(VueDe(ligne));
    if (!mot)
        return static_cast<int>(CodeGED::Autre);
    if (mot->aUneValeur)
        adresse = DecodeAdresse(ligne);
    return static_cast<int>(mot->code);
}

int DetermineTypeinfo(QString &ligne, QString &info)
{
    const MotGED *mot = motsDInfo.Cherche(VueDe(ligne));
    if (!mot)
        return static_cast<int>(CodeGED::Autre);
    if (mot->aUneValeur)
        info = DecodeInfo(ligne, static_cast<short>(mot->texte.size()));
    return static_cast<int>(mot->code);
}

QString DecodeInfo(QString &ligne, short longueur)
{
    ligne.remove(0, longueur);
    return ligne.trimmed();
}

bool DecodeFichierGED(const QString &nomFichier)
{
    const std::unique_ptr<const FichesGED> fiches = LitFichesGED(nomFichier);
    if (!fiches)
        return false;
    const TextesDesFiches textes(*fiches);
    for (const FicheIndividu &fiche : fiches->individus)
        MetEnTete(LesIndividus, &IndividuGED::suivant, textes.Individu(fiche));
    for (const FicheFamille &fiche : fiches->familles)
        MetEnTete(LesFamilles, &FamilleGED::suivante, textes.Famille(fiche));
    return true;
}
