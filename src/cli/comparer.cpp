#include "comparer.h"

#include "arbre.h"
#include "arbrelu.h"
#include "comparaison.h"
#include "interlocuteurconsole.h"
#include "listejson.h"

#include <QJsonObject>

#include <cstdio>

namespace {

/// "n° 12 : nom : « MARTIN » et « DURAND »".
QString EnTexte(const Difference &difference)
{
    const QString qui = difference.numero == 0 ? QStringLiteral("page de garde")
                                               : QStringLiteral("n° ") + QString::number(difference.numero);
    if (difference.champ.isEmpty()) {
        const bool dansA = !difference.dansA.isEmpty();
        return QStringLiteral("%1 : seulement dans %2 : %3")
            .arg(qui, dansA ? QStringLiteral("A") : QStringLiteral("B"), dansA ? difference.dansA : difference.dansB);
    }
    return QStringLiteral("%1 : %2 : « %3 » et « %4 »").arg(qui, difference.champ, difference.dansA, difference.dansB);
}

/// Numbers as texts: many readers of JSON have no whole numbers of 64 bits.
QJsonObject EnJson(const Difference &difference)
{
    QJsonObject objet{{QStringLiteral("numero"), QString::number(difference.numero)}};
    if (difference.champ.isEmpty()) {
        objet[QStringLiteral("seulement")] = difference.dansA.isEmpty() ? QStringLiteral("B") : QStringLiteral("A");
        objet[QStringLiteral("personne")] = difference.dansA + difference.dansB;
        return objet;
    }
    objet[QStringLiteral("champ")] = difference.champ;
    objet[QStringLiteral("a")] = difference.dansA;
    objet[QStringLiteral("b")] = difference.dansB;
    return objet;
}

/// True when there is none.
bool EcritLesDifferences(const Arbre &a, const Arbre &b, bool avecTitres)
{
    bool pareils = true;
    Compare(a, b, avecTitres, [&pareils](const Difference &difference) {
        pareils = false;
        QString ligne = EnTexte(difference);
        std::puts(qUtf8Printable(ligne.replace(u'\n', u' ')));
    });
    return pareils;
}

bool EcritLesDifferencesEnJson(const Arbre &a, const Arbre &b, bool avecTitres)
{
    bool pareils = true;
    ListeJson liste;
    Compare(a, b, avecTitres, [&pareils, &liste](const Difference &difference) {
        pareils = false;
        liste.Ajoute(EnJson(difference));
    });
    return pareils;
}

}  // namespace

Sortie ExecuteComparer(const QStringList &mots)
{
    const QString racine = QStringLiteral("racine");
    const QString json = QStringLiteral("json");
    Analyseur analyseur(commandeComparer);
    analyseur.Option(racine, QStringLiteral("La racine dans un fichier GEDCOM, comme pour convertir."),
                     QStringLiteral("@I1@"));
    analyseur.Option(json, QStringLiteral("Les différences en JSON."));
    if (const auto fin = analyseur.Lit(mots))
        return *fin;
    InterlocuteurConsole::Installe({.racine = analyseur.Valeur(racine)});
    const QString nomA = analyseur.Fichiers().at(0);
    const QString nomB = analyseur.Fichiers().at(1);
    const auto a = LitUnArbre(nomA);
    const auto b = a ? LitUnArbre(nomB) : nullptr;
    if (!b)
        return Sortie::NonFait;
    // A GEDCOM file has no title page of its own.
    const bool avecTitres = !EstGEDCOM(nomA) && !EstGEDCOM(nomB);
    const bool pareils =
        analyseur.A(json) ? EcritLesDifferencesEnJson(*a, *b, avecTitres) : EcritLesDifferences(*a, *b, avecTitres);
    return pareils ? Sortie::Fait : Sortie::NonFait;
}
