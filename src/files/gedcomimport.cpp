#include "gedcomimport.h"

#include "arbre.h"
#include "gedcomfiches.h"
#include "gedcomparents.h"
#include "infopersonne.h"
#include "interlocuteur.h"
#include "personne.h"

#include <QFileInfo>
#include <QStringList>

#include <limits>
#include <memory>
#include <vector>

namespace {

/// The texts of a file as strings. Names, places and dates come again and again: one that came lately is shared instead of
/// made anew.
class TextesPartages
{
public:
    explicit TextesPartages(const FichesGED &desFiches)
        : fiches(desFiches)
        , recents(nombreDeRecents)
    {
    }

    [[nodiscard]] QString De(const FicheIndividu &individu, ChampGED champ)
    {
        const QByteArrayView brut = fiches.Brut(individu, champ);
        if (brut.isEmpty())
            return {};
        if (brut.size() > plusLong)
            return fiches.Texte(brut);
        Recent &recent = recents[qHash(brut) % nombreDeRecents];
        if (recent.brut != brut)
            recent = {brut, fiches.Texte(brut)};
        return recent.texte;
    }

private:
    static constexpr qsizetype plusLong = 100;
    static constexpr std::size_t nombreDeRecents = 1024;

    struct Recent
    {
        QByteArrayView brut;
        QString texte;
    };

    const FichesGED &fiches;
    std::vector<Recent> recents;
};

/// The climb from the root to all its ancestors.
class Montee
{
public:
    Montee(Arbre &unArbre, const FichesGED &desFiches)
        : arbre(unArbre)
        , fiches(desFiches)
        , textes(desFiches)
        , dernieresPlaces(fiches.individus.size(), aucune)
    {
    }

    void Monte(int racine)
    {
        MetLaRacine(racine);
        if (fiches.individus.size() < 2)
            return;
        const ParentsGED index(fiches);
        // Numbers grow along the list, and parents go to its end: everybody is met once, after his child.
        Personne *personne = arbre.premiere;
        for (int place = 0; personne; ++place, personne = personne->suivante)
            AjouteLesParents(*personne, place, index);
    }

private:
    static constexpr int aucune = -1;

    /// Who stands at a place of the list, and where his child stands.
    struct Place
    {
        int individu;
        int enfant;
    };

    void MetLaRacine(int individu)
    {
        auto *racine = new Personne(0);
        racine->info = new InfoPersonne;
        racine->numero = 1;
        arbre.AjouteASaPlace(racine);
        Occupe(*racine, individu, aucune);
    }

    void AjouteLesParents(Personne &personne, int place, const ParentsGED &index)
    {
        const int individu = places.at(place).individu;
        // Found again higher up since: only the later place has parents.
        if (dernieresPlaces.at(individu) != place || !ALaPlaceDeParents(personne))
            return;
        const ParentsGED::Parents parents = index.De(individu);
        Ajoute(personne, place, parents.pere, true);
        Ajoute(personne, place, parents.mere, false);
    }

    static bool ALaPlaceDeParents(const Personne &personne)
    {
        return personne.numero <= (std::numeric_limits<quint64>::max() - 1) / 2;
    }

    void Ajoute(Personne &enfant, int placeEnfant, int individu, bool estPere)
    {
        if (individu == aucunIndividu || EstDansLaLignee(individu, placeEnfant))
            return;
        Occupe(*arbre.AjoutePersonne(&enfant, estPere, arbre.derniere), individu, placeEnfant);
    }

    /// Stands somewhere from \a place down to the root: a file may make somebody his own ancestor.
    [[nodiscard]] bool EstDansLaLignee(int individu, int place) const
    {
        if (dernieresPlaces.at(individu) == aucune)
            return false;
        for (; place != aucune; place = places.at(place).enfant) {
            if (places.at(place).individu == individu)
                return true;
        }
        return false;
    }

    /// Writes who \a personne, the last of the list, is.
    void Occupe(Personne &personne, int individu, int placeEnfant)
    {
        const FicheIndividu &fiche = fiches.individus.at(individu);
        InfoPersonne &info = *personne.info;
        info.nom = textes.De(fiche, ChampGED::Nom);
        info.prenom = textes.De(fiche, ChampGED::Prenom);
        info.datenaissance = textes.De(fiche, ChampGED::DateNaissance);
        info.lieunaissance = textes.De(fiche, ChampGED::LieuNaissance);
        info.datedeces = textes.De(fiche, ChampGED::DateDeces);
        info.lieudeces = textes.De(fiche, ChampGED::LieuDeces);
        info.divers = textes.De(fiche, ChampGED::Occu);
        arbre.TextesChanges(personne);
        dernieresPlaces[individu] = static_cast<int>(places.size());
        places.append({individu, placeEnfant});
    }

    Arbre &arbre;
    const FichesGED &fiches;
    TextesPartages textes;
    QList<Place> places;         ///< in the order of the list
    QList<int> dernieresPlaces;  ///< of each individual the one found last
};

/// One line for each individual, the last of the file first.
QStringList LignesDeChoix(const FichesGED &fiches)
{
    const QByteArray blanc = fiches.Code(QStringLiteral(" "));
    const QByteArray ne = fiches.Code(QStringLiteral(" né(e) le "));
    const QByteArray a = fiches.Code(QStringLiteral(" à "));
    QStringList lignes;
    lignes.reserve(fiches.individus.size());
    QByteArray ligne;
    for (qsizetype i = fiches.individus.size() - 1; i >= 0; --i) {
        const auto brut = [&](ChampGED champ) { return fiches.Brut(fiches.individus.at(i), champ); };
        ligne.resize(0);  // keeps its memory
        ligne.append(brut(ChampGED::Adresse)).append(blanc).append(brut(ChampGED::Prenom)).append(blanc);
        ligne.append(brut(ChampGED::Nom)).append(ne).append(brut(ChampGED::DateNaissance));
        ligne.append(a).append(brut(ChampGED::LieuNaissance));
        lignes += fiches.Texte(ligne);
    }
    return lignes;
}

/// The identifier of the root that the user chose; empty when the dialog was given up.
QString DemandeLaRacine(QWidget *parent, const FichesGED &fiches)
{
    const auto lignes = [&fiches] { return LignesDeChoix(fiches); };
    QString choix = Interlocuteur::Courant().ChoisitRacine(parent, lignes).value_or(QString());
    return DecodeAdresse(choix);
}

/// Who bears this identifier or, when it is empty, who is nobody's spouse: the first of the file.
int TrouveLaRacine(const FichesGED &fiches, const QString &adresse)
{
    const ChampGED champ = adresse.isEmpty() ? ChampGED::Fams : ChampGED::Adresse;
    const QByteArray cherche = fiches.Code(adresse);
    const auto nombre = static_cast<int>(fiches.individus.size());
    for (int i = 0; i < nombre; ++i) {
        const QByteArrayView brut = fiches.Brut(fiches.individus.at(i), champ);
        // Half a letter that was typed has no code of its own.
        if (brut == cherche && fiches.Texte(brut) == adresse)
            return i;
    }
    return aucunIndividu;
}

/// Why nothing could be imported; empty when the tree was made.
QString Importe(QWidget *parent, const QString &nomFichier, Arbre &arbre)
{
    const std::unique_ptr<const FichesGED> fiches = LitFichesGED(nomFichier);
    if (!fiches)
        return QStringLiteral("Impossible de traiter le fichier ") + nomFichier;
    if (fiches->individus.isEmpty())
        return QStringLiteral("Impossible de construire un arbre à partir de ") + nomFichier;
    const QString adresse = DemandeLaRacine(parent, *fiches);
    const int racine = TrouveLaRacine(*fiches, adresse);
    if (racine == aucunIndividu)
        return QStringLiteral("Impossible de trouver la personne  ") + adresse
            + QStringLiteral("\nproposée comme racine de l'arbre");
    Montee(arbre, *fiches).Monte(racine);
    return {};
}

}  // namespace

QString TitreDImport(const QString &nomFichier)
{
    return QStringLiteral("Généalogie importée de ") + QFileInfo(nomFichier).fileName();
}

void ImporterDeFichierGEDCOM(QWidget *parent, const QString &nomFichier, Arbre *arbre)
{
    VideLesListesGED();
    RacinePos = LePere = LaMere = nullptr;
    const QString echec = Importe(parent, nomFichier, *arbre);
    if (!echec.isEmpty())
        Interlocuteur::Courant().Information(QStringLiteral("Information"), echec);
}
