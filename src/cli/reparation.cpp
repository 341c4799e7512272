#include "reparation.h"

#include "arbre.h"
#include "arbrelu.h"
#include "coherence.h"
#include "formexrlg.h"
#include "lecturesilencieuse.h"
#include "personne.h"
#include "textesnommes.h"

#include <QBuffer>

#include <algorithm>
#include <memory>
#include <optional>
#include <utility>
#include <vector>

namespace {

QString De(const char *texte)
{
    return QString::fromUtf8(texte);
}

/// Would end the reading as it stands, or be lost in it.
bool Gene(QByteArrayView texte)
{
    return texte.contains('&') || texte.contains('<') || texte.contains('\r') || texte.contains("]]>");
}

/// Takes the texts of a file to the letter.
class LectureALaLettre
{
public:
    LectureALaLettre(Arbre &unArbre, QStringList &desFaits)
        : arbre(unArbre)
        , faits(desFaits)
    {
    }

    void Lit(const FormeXRLG &forme)
    {
        forme.Parcourt([this](const FormeXRLG::Titres &titres) { LitLesTitres(titres); },
                       [this](const PersonneXRLG &personne) { LitLaPersonne(personne); });
    }

private:
    void LitLesTitres(const FormeXRLG::Titres &titres)
    {
        for (std::size_t i = 0; i < titres.size(); ++i)
            arbre.infoArbre->*textesDesTitres.at(i).texte =
                Texte(titres.at(i), QStringLiteral("page de garde"), textesDesTitres.at(i).nom);
    }

    void LitLaPersonne(const PersonneXRLG &lue)
    {
        auto personne = std::make_unique<Personne>(lue.nombres.generation);
        personne->numero = lue.nombres.numero;
        personne->pere = lue.nombres.pere;
        personne->mere = lue.nombres.mere;
        personne->enfant = lue.nombres.enfant;
        personne->info = new InfoPersonne;
        const QString qui = QStringLiteral("n° %1").arg(lue.nombres.numero);
        for (std::size_t i = 0; i < lue.textes.size(); ++i)
            personne->info->*textesDesPersonnes.at(i).texte =
                Texte(lue.textes.at(i), qui, textesDesPersonnes.at(i).nom);
        if (lue.douteuse)
            faits += qui + QStringLiteral(" : ses textes peuvent se lire de plusieurs façons, à vérifier");
        arbre.AjouteALaFin(personne.release());
    }

    QString Texte(QByteArrayView octets, const QString &qui, const char *nom)
    {
        if (Gene(octets))
            faits += QStringLiteral("%1, %2 : texte protégé").arg(qui, De(nom));
        if (!QUtf8StringView(octets.data(), octets.size()).isValidUtf8())
            faits += QStringLiteral("%1, %2 : des octets qui ne sont pas de l'UTF-8 deviennent « \uFFFD »")
                         .arg(qui, De(nom));
        return QString::fromUtf8(octets);
    }

    Arbre &arbre;
    QStringList &faits;
};

/// What its file says of a tree.
struct Comptes
{
    quint64 personnes = 0;
    std::optional<unsigned short> generations;  ///< a file that was cut off says nothing
};

void TrieParNumero(Arbre &arbre, QStringList &faits)
{
    std::vector<Personne *> personnes;
    for (Personne *personne = arbre.premiere; personne; personne = personne->suivante)
        personnes.push_back(personne);
    const auto avant = [](const Personne *une, const Personne *autre) { return une->numero < autre->numero; };
    if (std::is_sorted(personnes.begin(), personnes.end(), avant))
        return;
    faits += QStringLiteral("personnes remises dans l'ordre de leurs numéros");
    std::stable_sort(personnes.begin(), personnes.end(), avant);
    Personne *precedente = nullptr;
    for (Personne *personne : personnes) {
        personne->precedente = precedente;
        personne->suivante = nullptr;
        (precedente ? precedente->suivante : arbre.premiere) = personne;
        precedente = personne;
    }
    arbre.derniere = precedente;
}

void CorrigeLesNombres(Arbre &arbre, const Comptes &ecrits, QStringList &faits)
{
    TrieParNumero(arbre, faits);
    const Coherence coherence(arbre);
    for (Personne *personne = arbre.premiere; personne; personne = personne->suivante) {
        for (const Coherence::Ecart &ecart : coherence.De(*personne)) {
            faits += QStringLiteral("n° %1 : %2 %3 corrigé en %4")
                         .arg(personne->numero)
                         .arg(De(ecart.nom))
                         .arg(ecart.ecrit)
                         .arg(ecart.voulu);
        }
        coherence.Corrige(*personne);
    }
    arbre.nombrePersonnes = coherence.NombrePersonnes();
    arbre.nombreGenerations = coherence.NombreGenerations();
    const auto note = [&faits](const char *quoi, quint64 ecrit, quint64 voulu) {
        if (ecrit != voulu)
            faits += QStringLiteral("nombre de %1 %2 corrigé en %3").arg(De(quoi)).arg(ecrit).arg(voulu);
    };
    note("personnes", ecrits.personnes, arbre.nombrePersonnes);
    if (ecrits.generations)
        note("générations", *ecrits.generations, arbre.nombreGenerations);
}

bool MemesTextes(const InfoPersonne &une, const InfoPersonne &autre)
{
    return std::all_of(textesDesPersonnes.begin(), textesDesPersonnes.end(),
                       [&](const auto &champ) { return une.*champ.texte == autre.*champ.texte; });
}

bool EstLaMeme(const Personne &une, const Personne &autre)
{
    return une.numero == autre.numero && une.numerogeneration == autre.numerogeneration && une.pere == autre.pere
        && une.mere == autre.mere && une.enfant == autre.enfant && MemesTextes(*une.info, *autre.info);
}

/// \a relu came from a file: its count of persons is twice the right one.
bool EstLeMeme(const Arbre &voulu, const Arbre &relu)
{
    const Personne *autre = relu.premiere;
    for (const Personne *une = voulu.premiere; une; une = une->suivante) {
        if (!autre || !EstLaMeme(*une, *autre))
            return false;
        autre = autre->suivante;
    }
    return !autre && relu.nombrePersonnes == 2 * voulu.nombrePersonnes
        && relu.nombreGenerations == voulu.nombreGenerations
        && std::all_of(textesDesTitres.begin(), textesDesTitres.end(), [&](const auto &champ) {
               return voulu.infoArbre->*champ.texte == relu.infoArbre->*champ.texte;
           });
}

/// The file as the program would read it, if it can be brought to that without a change to its texts: whole again, and each
/// "\r", which the program leaves out, in the form that it reads.
QByteArray SansToucherAuxTextes(const QByteArray &octets, const FormeXRLG &forme)
{
    QByteArray entier = octets;
    if (!forme.EstReconnue())
        return entier;
    if (!forme.EstEntiere()) {
        entier.truncate(forme.FinDesPersonnes());
        entier += "    <nombregenerations>0</nombregenerations>\n  </arbre>\n</xrlg>\n";
    }
    return entier.contains('\r') ? entier.replace("\r", "&#13;") : entier;
}

class Reparateur
{
public:
    explicit Reparateur(QByteArray desOctets)
        : octets(std::move(desOctets))
        , lus(octets)
    {
        // Line ends of another system; what the program reads is the same.
        if (lus.left(lus.indexOf('\n')).endsWith('\r'))
            lus.replace("\r\n", "\n");
    }

    Reparation Repare()
    {
        if (!Lit())
            return {erreur, {}, {}};
        CorrigeLesNombres(*arbre, ecrits, faits);
        if (faits.isEmpty())
            return {{}, {}, octets};
        octets.clear();
        lus.clear();
        QByteArray ecrit;
        QBuffer tampon(&ecrit);
        Arbre relu;
        if (!tampon.open(QIODevice::WriteOnly) || !EcritArbreXRLG(tampon, *arbre, TextesPour(*arbre))
            || LitEnSilence(ecrit, relu) || !EstLeMeme(*arbre, relu))
            return {QStringLiteral("l'arbre réparé ne se relit pas à l'identique"), {}, {}};
        return {{}, faits, ecrit};
    }

private:
    bool Lit()
    {
        const FormeXRLG forme(lus);
        if (forme.EstReconnue() && !forme.EstEntiere()) {
            faits += QStringLiteral(
                         "la fin manque ou est abîmée : gardé jusqu'à la dernière personne entière, %1 octets laissés")
                         .arg(lus.size() - forme.FinDesPersonnes());
        }
        ecrits.personnes = forme.NombrePersonnes();
        if (forme.EstEntiere())
            ecrits.generations = forme.NombreGenerations();
        if (LitCommeLeProgramme(forme))
            return true;
        if (!forme.EstReconnue())
            return false;
        arbre = std::make_unique<Arbre>();
        LectureALaLettre(*arbre, faits).Lit(forme);
        return true;
    }

    bool LitCommeLeProgramme(const FormeXRLG &forme)
    {
        arbre = std::make_unique<Arbre>();
        if (const auto arret = LitEnSilence(SansToucherAuxTextes(lus, forme), *arbre)) {
            erreur = QStringLiteral("Erreur de syntaxe ligne %1, colonne %2:\n%3")
                         .arg(arret->ligne)
                         .arg(arret->colonne)
                         .arg(arret->cause);
            return false;
        }
        const quint64 personnes = Coherence(*arbre).NombrePersonnes();
        if (!forme.EstReconnue()) {
            ecrits = {arbre->nombrePersonnes - personnes, arbre->nombreGenerations};
            return true;
        }
        if (PerdDesTextes(forme, personnes))
            return false;
        if (lus.contains('\r'))
            faits += QStringLiteral("retours chariot protégés");
        return true;
    }

    /// Markup in a text went unseen. Where the program finds other persons than the layout does, somebody changed the
    /// layout: then the program is right.
    static bool PerdDesTextes(const FormeXRLG &forme, quint64 personnesLues)
    {
        quint64 personnes = 0;
        forme.Parcourt([](const FormeXRLG::Titres &) {}, [&personnes](const PersonneXRLG &) { ++personnes; });
        return personnes == personnesLues && forme.UnTexteContient('<');
    }

    QByteArray octets;
    QByteArray lus;
    std::unique_ptr<Arbre> arbre;
    Comptes ecrits;
    QStringList faits;
    QString erreur;
};

}  // namespace

Reparation RepareXRLG(QByteArray octets)
{
    return Reparateur(std::move(octets)).Repare();
}
