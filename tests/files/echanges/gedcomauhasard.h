#pragma once

#include <QByteArray>
#include <QList>
#include <QString>

#include <algorithm>
#include <optional>
#include <random>

/// A GEDCOM file made at random, and an answer to the question for the root. Same seed, same file.
class GedcomAuHasard
{
public:
    enum Forme : int {
        Etages,  ///< a few generations of few persons: the same ancestors on many ways
        Melee,   ///< anybody may be anybody's parent or child: circles
        Chaine,  ///< more generations than numbers
    };

    GedcomAuHasard(quint32 graine, Forme uneForme)
        : tirage(graine)
        , forme(uneForme)
    {
        const int etages = forme == Etages ? Entre(2, 6) : forme == Chaine ? Entre(60, 75) : 1;
        for (int etage = 0; etage < etages; ++etage)
            MetUnEtage();
        for (int famille = 0; forme != Chaine && famille < Entre(0, 3); ++famille)
            MetUneFamille(Quelquun(), Quelquun(), Quelquun());
        MetDesDoubles();
        if (Chance(0.7))
            std::shuffle(blocs.begin(), blocs.end(), tirage);
    }

    [[nodiscard]] QByteArray Contenu() const { return "0 HEAD\n" + blocs.join() + "0 TRLR\n"; }

    /// Somebody of the file, rarely somebody else; none, or without identifier, at times.
    [[nodiscard]] std::optional<QString> Reponse()
    {
        if (Chance(0.1))
            return std::nullopt;
        if (Chance(0.1))
            return QStringLiteral("personne");
        if (forme != Melee && Chance(0.7))
            return QString::fromLatin1("@I1@");
        return QString::fromLatin1("la racine : " + Quelquun() + " ?");
    }

private:
    int Entre(int bas, int haut) { return std::uniform_int_distribution<int>(bas, haut)(tirage); }
    bool Chance(double chance) { return std::uniform_real_distribution<double>(0.0, 1.0)(tirage) < chance; }

    /// An identifier of the file; rarely one that nobody bears, or none.
    QByteArray Quelquun()
    {
        if (Chance(0.03))
            return {};
        return "@I" + QByteArray::number(Entre(1, Chance(0.05) ? suivant + 3 : std::max(1, suivant - 1))) + '@';
    }

    QByteArray MetUnIndividu(const QByteArray &adresse)
    {
        const QByteArray rang = QByteArray::number(++fiches);
        QByteArray bloc = "0 " + adresse + " INDI\n1 NAME Prénom" + rang + " /NOM" + rang + "/\n1 BIRT\n2 DATE "
            + QByteArray::number(1700 + Entre(0, 250)) + "\n2 PLAC Lieu" + rang + "\n1 DEAT\n2 PLAC Fin" + rang
            + "\n1 OCCU Métier" + rang + '\n';
        if (Chance(0.4))
            bloc += "1 FAMS @F1@\n";
        blocs += bloc;
        return adresse;
    }

    void MetUneFamille(const QByteArray &mari, const QByteArray &femme, const QByteArray &enfant)
    {
        QByteArray bloc = "0 @F@ FAM\n";
        if (Chance(0.9))
            bloc += "1 HUSB " + mari + '\n';
        if (Chance(0.9))
            bloc += "1 WIFE " + femme + '\n';
        bloc += "1 CHIL " + enfant + '\n';
        for (int autre = Entre(0, 2); forme != Chaine && autre > 0; --autre)
            bloc += "1 CHIL " + (Chance(0.3) ? enfant : Quelquun()) + '\n';
        blocs += bloc;
    }

    /// New individuals, and families that make them the parents of the ones before.
    void MetUnEtage()
    {
        QList<QByteArray> etage;
        for (int place = forme == Melee ? Entre(1, 12)
                 : forme == Chaine      ? Entre(1, 2)
                                        : Entre(1, 4);
             place > 0; --place) {
            const QByteArray adresse = "@I" + QByteArray::number(suivant++) + '@';
            etage += Chance(forme == Chaine ? 0.0 : 0.03) ? adresse : MetUnIndividu(adresse);
        }
        const auto unDe = [this](const QList<QByteArray> &noms) { return noms.at(Entre(0, int(noms.size()) - 1)); };
        const QList<QByteArray> &enfants = forme == Melee ? etage : precedent;
        for (const QByteArray &enfant : enfants) {
            for (int familles = forme != Chaine && Chance(0.2) ? 2 : 1; familles > 0; --familles)
                MetUneFamille(unDe(etage), unDe(etage), enfant);
        }
        precedent = etage;
    }

    /// Second records of an identifier, and records without one.
    void MetDesDoubles()
    {
        if (Chance(0.3))
            MetUnIndividu(Quelquun());
        if (Chance(0.1))
            MetUnIndividu({});
        if (Chance(0.1))
            MetUneFamille({}, Quelquun(), {});
    }

    std::mt19937 tirage;
    Forme forme;
    QByteArrayList blocs;
    QList<QByteArray> precedent;
    int suivant = 1;  ///< number of the next identifier
    int fiches = 0;   ///< records so far
};
