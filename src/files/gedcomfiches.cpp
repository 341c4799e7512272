#include "gedcomfiches.h"

#include "gedcomligne.h"
#include "gedcommots.h"
#include "gedcomtexte.h"
#include "lecture.h"

#include <limits>
#include <optional>
#include <utility>

namespace {

/// One file being read, line by line.
template <typename Lettre> class LecteurGED
{
public:
    using Vue = std::basic_string_view<Lettre>;

    LecteurGED(FichesGED &desFiches, Vue unTexte)
        : fiches(desFiches)
        , texte(unTexte)
    {
    }

    /// False when these letters cannot say what has to be read.
    [[nodiscard]] bool Lit()
    {
        // Old Macintosh files end their lines with "\r" alone.
        const Lettre finDeLigne = Cherche(texte, Lettre('\n')) == texte.npos ? Lettre('\r') : Lettre('\n');
        for (Vue reste = texte; !reste.empty() && lisible;) {
            const std::size_t fin = Cherche(reste, finDeLigne);
            Ligne(Rognee(reste.substr(0, fin)));
            reste.remove_prefix(fin == reste.npos ? reste.size() : fin + 1);
        }
        return lisible;
    }

private:
    static std::size_t Cherche(VueUtf8 vue, char octet) { return vue.find(octet); }
    static std::size_t Cherche(VueUtf16 vue, char16_t lettre)
    {
        return static_cast<std::size_t>(QStringView(vue).indexOf(QChar(lettre)));
    }

    void Ligne(Vue ligne)
    {
        if (ligne.empty())
            return;
        const Lettre *debut = ligne.data();
        switch (PrendNiveau(ligne)) {
        case 0:
            FermeLeBloc();
            OuvreUnBloc(ligne, debut);
            break;
        case 1:
            LitNiveau1(ligne);
            break;
        case 2:
            LitNiveau2(ligne);
            break;
        default:
            break;
        }
    }

    void FermeLeBloc()
    {
        if (bloc == CodeGED::Individu)
            fiches.individus.append(individu);
        else if (bloc == CodeGED::Famille)
            fiches.familles.append(famille);
    }

    void OuvreUnBloc(Vue ligne, const Lettre *debut)
    {
        const MotGED *mot = motsDeBloc.Cherche(ligne);
        bloc = mot ? mot->code : CodeGED::Autre;
        debutDuBloc = debut;
        if (bloc == CodeGED::Individu) {
            individu = {};
            individu.debut = debut - texte.data();
            individu[ChampGED::Adresse] = Morceau(Adresse(ligne));
        } else if (bloc == CodeGED::Famille) {
            famille = {};
            famille.debut = debut - texte.data();
            famille.adresse = Morceau(Adresse(ligne));
            famille.premierEnfant = fiches.enfants.size();
        }
    }

    void LitNiveau1(Vue ligne)
    {
        const MotGED *mot = motsDInfo.Cherche(ligne);
        if (!mot)
            return;
        if (mot->code == CodeGED::Naissance || mot->code == CodeGED::Deces)
            evenement = mot->code;  // never cleared by another event or a new record: deliberate
        else if (bloc == CodeGED::Individu)
            LitIndividu(mot->code, Valeur(ligne, *mot));
        else if (bloc == CodeGED::Famille)
            LitFamille(mot->code, Valeur(ligne, *mot));
    }

    void LitIndividu(CodeGED code, Vue valeur)
    {
        switch (code) {
        case CodeGED::Nom: {
            const NomCoupe<Lettre> coupe = CoupeNom(valeur);
            if (coupe.prenom)
                individu[ChampGED::Prenom] = Morceau(*coupe.prenom);
            if (coupe.nom)
                individu[ChampGED::Nom] = Morceau(*coupe.nom);
            break;
        }
        case CodeGED::Sexe:
            individu[ChampGED::Sexe] = Morceau(valeur);
            break;
        case CodeGED::FamilleConjoint:
            individu[ChampGED::Fams] = Morceau(Adresse(valeur));
            break;
        case CodeGED::FamilleEnfant:
            individu[ChampGED::Famc] = Morceau(Adresse(valeur));
            break;
        case CodeGED::Metier:
            individu[ChampGED::Occu] = Morceau(valeur);
            break;
        default:
            break;
        }
    }

    void LitFamille(CodeGED code, Vue valeur)
    {
        switch (code) {
        case CodeGED::Mari:
            famille.mari = Morceau(Adresse(valeur));
            break;
        case CodeGED::Femme:
            famille.femme = Morceau(Adresse(valeur));
            break;
        case CodeGED::Enfant:
            fiches.enfants.append(Morceau(Adresse(valeur)));
            ++famille.nombreEnfants;
            break;
        default:
            break;
        }
    }

    void LitNiveau2(Vue ligne)
    {
        if (bloc != CodeGED::Individu || evenement == CodeGED::Autre)
            return;
        const MotGED *mot = motsDInfo.Cherche(ligne);
        if (!mot || (mot->code != CodeGED::Date && mot->code != CodeGED::Lieu))
            return;
        const bool date = mot->code == CodeGED::Date;
        const ChampGED champ = evenement == CodeGED::Naissance
            ? (date ? ChampGED::DateNaissance : ChampGED::LieuNaissance)
            : (date ? ChampGED::DateDeces : ChampGED::LieuDeces);
        individu[champ] = Morceau(Valeur(ligne, *mot));
    }

    /// What stands behind the length of the word, wherever the word itself stands.
    Vue Valeur(Vue ligne, const MotGED &mot)
    {
        const std::optional<Vue> reste = SansDebut(ligne, mot.texte.size());
        lisible = lisible && reste;
        return reste ? Rognee(*reste) : Vue();
    }

    [[nodiscard]] MorceauGED Morceau(Vue vue) const
    {
        const auto debut = static_cast<std::size_t>(vue.data() - debutDuBloc);
        if (vue.empty() || debut + vue.size() > std::numeric_limits<quint32>::max())
            return {};
        return {static_cast<quint32>(debut), static_cast<quint32>(vue.size())};
    }

    FichesGED &fiches;
    Vue texte;
    const Lettre *debutDuBloc = nullptr;
    FicheIndividu individu;
    FicheFamille famille;
    CodeGED bloc = CodeGED::Autre;
    CodeGED evenement = CodeGED::Autre;  ///< the last birth or death
    bool lisible = true;
};

}  // namespace

FichesGED::FichesGED(QByteArray contenu)
    : octets(std::move(contenu))
{
    if (const std::optional<QByteArrayView> utf8 = Utf8GED(octets)) {
        debutDuTexte = utf8->data();
        if (LecteurGED<char>(*this, {utf8->data(), static_cast<std::size_t>(utf8->size())}).Lit())
            return;
        individus.clear();
        familles.clear();
        enfants.clear();
    }
    utf16 = TexteGED(std::exchange(octets, QByteArray()));
    debutDuTexte = reinterpret_cast<const char *>(utf16.constData());
    octetsParLettre = sizeof(char16_t);
    [[maybe_unused]] const bool lu = LecteurGED<char16_t>(*this, VueDe(utf16)).Lit();
}

QString FichesGED::Texte(QByteArrayView brut) const
{
    if (octetsParLettre == 1)
        return TexteDe(VueUtf8(brut.data(), static_cast<std::size_t>(brut.size())));
    return QString(reinterpret_cast<const QChar *>(brut.data()), brut.size() / octetsParLettre);
}

QByteArray FichesGED::Code(const QString &texte) const
{
    if (octetsParLettre == 1)
        return texte.toUtf8();
    return {reinterpret_cast<const char *>(texte.constData()), octetsParLettre * texte.size()};
}

std::span<const MorceauGED> FichesGED::EnfantsDe(const FicheFamille &famille) const
{
    return {enfants.constData() + famille.premierEnfant, static_cast<std::size_t>(famille.nombreEnfants)};
}

std::unique_ptr<const FichesGED> LitFichesGED(const QString &nomFichier)
{
    QFile fichier(nomFichier);
    QString cause;
    if (!OuvreEnLecture(fichier, QIODevice::ReadOnly, cause))
        return nullptr;
    QByteArray octets = fichier.readAll();
    // One line would be the text of one box.
    if (SansMarqueLongtemps(octets, '\n') && SansMarqueLongtemps(octets, '\r'))
        return nullptr;
    return std::make_unique<const FichesGED>(std::move(octets));
}
