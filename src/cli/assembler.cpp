#include "assembler.h"

#include "arbre.h"
#include "arbrelu.h"
#include "assemblage.h"

#include <QFileInfo>

Sortie ExecuteAssembler(const QStringList &mots)
{
    Analyseur analyseur(commandeAssembler);
    if (const auto fin = analyseur.Lit(mots))
        return *fin;
    const QStringList fichiers = analyseur.Fichiers();
    if (!PeutEtreEcrit(fichiers.at(2)))
        return analyseur.Refuse(QStringLiteral("la sortie doit se terminer par .xrlg ou .ged : ") + fichiers.at(2));
    const auto pere = LitUnArbre(fichiers.at(0));
    const auto mere = pere ? LitUnArbre(fichiers.at(1)) : nullptr;
    if (!mere)
        return Sortie::NonFait;
    Arbre enfant;
    enfant.infoArbre->titrearbre = titreDAssemblage.toString();
    AssembleArbres(enfant, *pere, *mere, QFileInfo(fichiers.at(2)).absolutePath());
    return EcritUnArbre(enfant, fichiers.at(2), fichiers.at(2)) ? Sortie::Fait : Sortie::NonFait;
}
