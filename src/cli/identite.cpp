#include "identite.h"

#include "infopersonne.h"
#include "personne.h"

namespace {

QString Ramene(const QString &texte)
{
    return texte.simplified().toCaseFolded();
}

}  // namespace

QString Identite(const Personne &personne)
{
    if (!personne.info)
        return {};
    const InfoPersonne &info = *personne.info;
    const QString nom = Ramene(info.nom);
    const QString prenom = Ramene(info.prenom);
    const QString naissance = Ramene(info.datenaissance);
    if (nom.isEmpty() || prenom.isEmpty() || naissance.isEmpty())
        return {};
    return nom + u'\n' + prenom + u'\n' + naissance + u'\n' + Ramene(info.lieunaissance);
}
