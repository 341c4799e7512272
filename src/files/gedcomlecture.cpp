#include "gedcomlecture.h"

#include "gedcomtexte.h"
#include "lecture.h"

#include <QFile>
#include <QStringView>

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

enum Code : int {
    Autre = 0,
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
};

struct Mot
{
    QLatin1String texte;
    int code;
    bool aUneValeur = true;
};

constexpr Mot motsDeBloc[] = {{QLatin1String("HEAD"), 1, false},
                              {QLatin1String("INDI"), Individu},
                              {QLatin1String("FAM"), Famille},
                              {QLatin1String("TRLR"), 18, false}};

constexpr Mot motsDInfo[] = {{QLatin1String("NAME"), Nom},
                             {QLatin1String("SEX"), Sexe},
                             {QLatin1String("BIRT"), Naissance, false},
                             {QLatin1String("DEAT"), Deces, false},
                             {QLatin1String("DATE"), Date},
                             {QLatin1String("PLAC"), Lieu},
                             {QLatin1String("FAMS"), FamilleConjoint},
                             {QLatin1String("FAMC"), FamilleEnfant},
                             {QLatin1String("OCCU"), Metier},
                             {QLatin1String("HUSB"), Mari},
                             {QLatin1String("WIFE"), Femme},
                             {QLatin1String("CHIL"), Enfant}};

/// The first word of the table that occurs anywhere in the line, or none. One walk over the line: only a word that stands
/// before the best one so far is still looked for.
template <std::size_t nombre> const Mot *Cherche(const Mot (&mots)[nombre], QStringView ligne)
{
    std::size_t premier = nombre;
    for (qsizetype i = 0; i < ligne.size() && premier > 0; ++i) {
        const char16_t lettre = ligne.at(i).unicode();
        if (lettre < u'A' || lettre > u'Z')
            continue;
        for (std::size_t k = 0; k < premier; ++k) {
            if (lettre == mots[k].texte.at(0).unicode() && ligne.sliced(i).startsWith(mots[k].texte))
                premier = k;
        }
    }
    return premier < nombre ? &mots[premier] : nullptr;
}

short PrendNiveau(QStringView &ligne)
{
    const qsizetype blanc = ligne.indexOf(u' ');
    if (blanc < 0)
        return 0;
    const short niveau = ligne.first(blanc).toShort();
    ligne = ligne.sliced(blanc + 1);
    return niveau;
}

QStringView Adresse(QStringView texte)
{
    const qsizetype debut = texte.indexOf(u'@');
    const qsizetype fin = debut < 0 ? -1 : texte.indexOf(u'@', debut + 1);
    return fin < 0 ? QStringView() : texte.sliced(debut, fin - debut + 1);
}

QStringView Valeur(QStringView ligne, qsizetype longueur)
{
    return ligne.sliced(qMin(longueur, ligne.size())).trimmed();
}

/// One file being read, line by line.
class LecteurGED
{
public:
    void Ligne(QStringView ligne)
    {
        ligne = ligne.trimmed();
        if (ligne.isEmpty())
            return;
        switch (PrendNiveau(ligne)) {
        case 0:
            OuvreUnBloc(ligne);
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

private:
    void OuvreUnBloc(QStringView ligne)
    {
        if (individu)
            MetEnTete(LesIndividus, &IndividuGED::suivant, std::move(individu));
        if (famille)
            MetEnTete(LesFamilles, &FamilleGED::suivante, std::move(famille));
        const Mot *mot = Cherche(motsDeBloc, ligne);
        if (mot && mot->code == Individu)
            individu = std::make_unique<IndividuGED>(Adresse(ligne).toString());
        else if (mot && mot->code == Famille)
            famille = std::make_unique<FamilleGED>(Adresse(ligne).toString());
    }

    void LitNiveau1(QStringView ligne)
    {
        const Mot *mot = Cherche(motsDInfo, ligne);
        if (!mot)
            return;
        const QStringView valeur = mot->aUneValeur ? Valeur(ligne, mot->texte.size()) : QStringView();
        if (mot->code == Naissance || mot->code == Deces) {
            // Never cleared by another event or a new record: deliberate.
            enNaissance = mot->code == Naissance;
            enDeces = mot->code == Deces;
        } else if (individu) {
            LitIndividu(mot->code, valeur);
        } else if (famille) {
            LitFamille(mot->code, valeur);
        }
    }

    void LitIndividu(int code, QStringView valeur)
    {
        switch (code) {
        case Nom: {
            QString nomComplet = valeur.toString();
            DecodeName(nomComplet, individu->prenom, individu->nom);
            break;
        }
        case Sexe:
            individu->sexe = valeur.toString();
            break;
        case FamilleConjoint:
            individu->fams = Adresse(valeur).toString();
            break;
        case FamilleEnfant:
            individu->famc = Adresse(valeur).toString();
            break;
        case Metier:
            individu->occu = valeur.toString();
            break;
        default:
            break;
        }
    }

    void LitFamille(int code, QStringView valeur)
    {
        switch (code) {
        case Mari:
            famille->mari = Adresse(valeur).toString();
            break;
        case Femme:
            famille->femme = Adresse(valeur).toString();
            break;
        case Enfant:
            MetEnTete(famille->enfants, &EnfantGED::suivant, std::make_unique<EnfantGED>(Adresse(valeur).toString()));
            break;
        default:
            break;
        }
    }

    void LitNiveau2(QStringView ligne)
    {
        if (!individu || (!enNaissance && !enDeces))
            return;
        const Mot *mot = Cherche(motsDInfo, ligne);
        if (!mot || (mot->code != Date && mot->code != Lieu))
            return;
        const bool date = mot->code == Date;
        QString &cible = enNaissance ? (date ? individu->datenaissance : individu->lieunaissance)
                                     : (date ? individu->datedeces : individu->lieudeces);
        cible = Valeur(ligne, mot->texte.size()).toString();
    }

    std::unique_ptr<IndividuGED> individu;
    std::unique_ptr<FamilleGED> famille;
    bool enNaissance = false;
    bool enDeces = false;
};

void LitLesLignes(const QString &texte)
{
    LecteurGED lecteur;
    // Old Macintosh files end their lines with "\r" alone.
    const QChar finDeLigne = texte.contains(u'\n') ? u'\n' : u'\r';
    QStringView reste(texte);
    while (!reste.isEmpty()) {
        const qsizetype fin = reste.indexOf(finDeLigne);
        lecteur.Ligne(fin < 0 ? reste : reste.first(fin));
        reste = fin < 0 ? QStringView() : reste.sliced(fin + 1);
    }
}

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
    QStringView reste(ligne);
    const short niveau = PrendNiveau(reste);
    ligne = reste.toString();
    return niveau;
}

QString DecodeAdresse(QString &texte)
{
    texte = Adresse(texte).toString();
    return texte;
}

void DecodeName(QString &nomComplet, QString &prenom, QString &nom)
{
    switch (nomComplet.count(u'/')) {
    case 0:
    case 1:
        nom = nomComplet.section(u'/', 0, 0);
        break;
    case 2:
        prenom = nomComplet.section(u'/', 0, 0);
        nom = nomComplet.section(u'/', 1, 1);
        break;
    default:
        return;
    }
    nomComplet = nom;
}

int DetermineBlocinfo(QString &ligne, QString &adresse)
{
    const Mot *mot = Cherche(motsDeBloc, ligne);
    if (!mot)
        return Autre;
    if (mot->aUneValeur)
        adresse = DecodeAdresse(ligne);
    return mot->code;
}

int DetermineTypeinfo(QString &ligne, QString &info)
{
    const Mot *mot = Cherche(motsDInfo, ligne);
    if (!mot)
        return Autre;
    if (mot->aUneValeur)
        info = DecodeInfo(ligne, static_cast<short>(mot->texte.size()));
    return mot->code;
}

QString DecodeInfo(QString &ligne, short longueur)
{
    ligne.remove(0, longueur);
    return ligne.trimmed();
}

bool DecodeFichierGED(const QString &nomFichier)
{
    QFile fichier(nomFichier);
    QString cause;
    if (!OuvreEnLecture(fichier, QIODevice::ReadOnly, cause))
        return false;
    LitLesLignes(TexteGED(fichier.readAll()));
    return true;
}
