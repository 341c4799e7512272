#include "lister.h"

#include "arbre.h"
#include "arbrelu.h"
#include "formatsdeliste.h"
#include "interlocuteurconsole.h"
#include "listesosa.h"

namespace {

/// How many generations are wanted: 0 all, less when \a texte is no such number.
int GenerationsVoulues(const QString &texte)
{
    bool estUnNombre = false;
    const int nombre = texte.toInt(&estUnNombre);
    return estUnNombre && nombre > 0 ? nombre : -1;
}

}  // namespace

Sortie ExecuteLister(const QStringList &mots)
{
    const QString generations = QStringLiteral("generations");
    const QString format = QStringLiteral("format");
    const QString json = QStringLiteral("json");
    const QString racine = QStringLiteral("racine");
    Analyseur analyseur(commandeLister);
    analyseur.Option(generations, QStringLiteral("Les premières seulement ; la racine est la génération 1."),
                     QStringLiteral("G"));
    analyseur.Option(format, QStringLiteral("texte sans cette option."), QStringLiteral("texte|csv|html"));
    analyseur.Option(json, QStringLiteral("La liste en JSON."));
    analyseur.Option(racine, QStringLiteral("La racine dans un fichier GEDCOM, comme pour convertir."),
                     QStringLiteral("@I1@"));
    if (const auto fin = analyseur.Lit(mots))
        return *fin;
    const int voulues = analyseur.A(generations) ? GenerationsVoulues(analyseur.Valeur(generations)) : 0;
    if (voulues < 0)
        return analyseur.Refuse(QStringLiteral("le nombre de générations est un entier à partir de 1 : ")
                                + analyseur.Valeur(generations));
    const QString formatVoulu = analyseur.A(format) ? analyseur.Valeur(format) : QStringLiteral("texte");
    if (!QStringList{QStringLiteral("texte"), QStringLiteral("csv"), QStringLiteral("html")}.contains(formatVoulu))
        return analyseur.Refuse(QStringLiteral("le format est texte, csv ou html : ") + formatVoulu);
    InterlocuteurConsole::Installe({.racine = analyseur.Valeur(racine)});
    const auto arbre = LitUnArbre(analyseur.Fichiers().at(0));
    if (!arbre)
        return Sortie::NonFait;
    const ListeSosa liste(*arbre, voulues);
    if (analyseur.A(json))
        EcritEnJson(liste);
    else if (formatVoulu == u"csv")
        EcritEnCsv(liste);
    else if (formatVoulu == u"html")
        EcritEnHtml(liste, *arbre->infoArbre);
    else
        EcritEnTexte(liste, *arbre->infoArbre);
    return Sortie::Fait;
}
