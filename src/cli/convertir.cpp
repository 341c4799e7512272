#include "convertir.h"

#include "arbre.h"
#include "arbrelu.h"
#include "interlocuteurconsole.h"

namespace {

std::optional<Sexe> SexeDe(const QString &valeur)
{
    if (valeur.compare(u"m", Qt::CaseInsensitive) == 0)
        return Sexe::Masculin;
    if (valeur.compare(u"f", Qt::CaseInsensitive) == 0)
        return Sexe::Feminin;
    return {};
}

}  // namespace

Sortie ExecuteConvertir(const QStringList &mots)
{
    const QString racine = QStringLiteral("racine");
    const QString sexe = QStringLiteral("sexe-racine");
    Analyseur analyseur(commandeConvertir);
    analyseur.Option(
        racine,
        QStringLiteral("L'individu du fichier GEDCOM qui devient la racine ; sans elle, le premier qui n'est "
                       "le conjoint de personne."),
        QStringLiteral("@I1@"));
    analyseur.Option(sexe, QStringLiteral("Le sexe de la racine dans un fichier GEDCOM écrit ; M sans elle."),
                     QStringLiteral("M|F"));
    if (const auto fin = analyseur.Lit(mots))
        return *fin;
    const QStringList fichiers = analyseur.Fichiers();
    if (!PeutEtreEcrit(fichiers.at(1)))
        return analyseur.Refuse(QStringLiteral("la sortie doit se terminer par .xrlg ou .ged : ") + fichiers.at(1));
    const auto sexeVoulu = analyseur.A(sexe) ? SexeDe(analyseur.Valeur(sexe)) : Sexe::Masculin;
    if (!sexeVoulu)
        return analyseur.Refuse(QStringLiteral("le sexe de la racine est M ou F : ") + analyseur.Valeur(sexe));
    InterlocuteurConsole::Installe({.racine = analyseur.Valeur(racine), .sexe = *sexeVoulu});
    const auto arbre = LitUnArbre(fichiers.at(0));
    return arbre && EcritUnArbre(*arbre, fichiers.at(0), fichiers.at(1)) ? Sortie::Fait : Sortie::NonFait;
}
