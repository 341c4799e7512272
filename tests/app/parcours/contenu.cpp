#include "contenu.h"

#include "arbre.h"
#include "arbres.h"
#include "infopersonne.h"
#include "personne.h"

#include <bit>

namespace {

QString DefautDesLiens(const Personne &personne, const QMap<quint64, const Personne *> &presentes)
{
    const auto faux = [&personne](const char *quoi) {
        return QStringLiteral("personne %1 : %2").arg(personne.numero).arg(QString::fromUtf8(quoi));
    };
    const Personne *pere = presentes.value(2 * personne.numero);
    const Personne *mere = presentes.value(2 * personne.numero + 1);
    if (personne.pere != (pere ? pere->numero : 0) || personne.ptrPere != pere)
        return faux("père");
    if (personne.mere != (mere ? mere->numero : 0) || personne.ptrMere != mere)
        return faux("mère");
    if (personne.enfant != personne.numero / 2)
        return faux("enfant");
    if (personne.numero != 1 && !presentes.contains(personne.numero / 2))
        return faux("sans enfant dans l'arbre");
    if (personne.numerogeneration != std::bit_width(personne.numero) - 1)
        return faux("génération");
    if (!personne.affichable)
        return faux("cachée");
    if (personne.estVide())
        return faux("vide");
    return {};
}

QString DefautDeLaSelection(const Arbre &arbre)
{
    QList<const Personne *> choisies;
    for (const Personne *personne = arbre.premiere; personne; personne = personne->suivante) {
        if (personne->selectionnee)
            choisies += personne;
    }
    const bool juste = arbre.selection ? choisies == QList<const Personne *>{arbre.selection} : choisies.isEmpty();
    return juste ? QString() : QStringLiteral("sélection : %1 personnes marquées").arg(choisies.size());
}

}  // namespace

Contenu ContenuDe(const Arbre &arbre)
{
    Contenu contenu;
    const InfoArbre &page = *arbre.infoArbre;
    contenu.page = {page.titrearbre, page.creepar, page.date, page.majpar, page.datemaj};
    for (const Personne *personne = arbre.premiere; personne; personne = personne->suivante) {
        const InfoPersonne &info = *personne->info;
        contenu.personnes[personne->numero] = {info.nom,           info.prenom,    info.datenaissance,
                                               info.lieunaissance, info.datedeces, info.lieudeces,
                                               info.divers,        info.fichtml,   info.ficphoto};
    }
    return contenu;
}

QString Difference(const Contenu &attendu, const Contenu &vu)
{
    if (attendu.personnes.keys() != vu.personnes.keys())
        return QStringLiteral("%1 personnes au lieu de %2").arg(vu.personnes.size()).arg(attendu.personnes.size());
    const auto compare = [](const auto &a, const auto &b, const QString &ou) {
        for (std::size_t i = 0; i < a.size(); ++i) {
            if (a[i] != b[i])
                return QStringLiteral("%1, texte %2 : « %3 » au lieu de « %4 »").arg(ou).arg(i).arg(b[i], a[i]);
        }
        return QString();
    };
    for (auto i = attendu.personnes.begin(); i != attendu.personnes.end(); ++i) {
        const QString ecart =
            compare(i.value(), vu.personnes.value(i.key()), QStringLiteral("personne %1").arg(i.key()));
        if (!ecart.isEmpty())
            return ecart;
    }
    return compare(attendu.page, vu.page, QStringLiteral("page de garde"));
}

QString DefautDe(const Arbre &arbre, quint64 compteEnTrop)
{
    QMap<quint64, const Personne *> presentes;
    quint64 precedent = 0;
    quint64 longueur = 0;
    int generations = 0;
    for (const Personne *personne = arbre.premiere; personne; personne = personne->suivante) {
        if (personne->numero <= precedent)
            return QStringLiteral("%1 après %2").arg(personne->numero).arg(precedent);
        precedent = personne->numero;
        presentes.insert(personne->numero, personne);
        generations = std::max(generations, personne->numerogeneration + 1);
        ++longueur;
    }
    if (NumerosEnTexte(arbre) == u"liste brisée" || !arbre.derniere || arbre.derniere->numero != precedent)
        return QStringLiteral("liste brisée");
    if (arbre.nombrePersonnes != longueur + compteEnTrop)
        return QStringLiteral("compte de %1 pour %2 personnes").arg(arbre.nombrePersonnes).arg(longueur);
    if (arbre.nombreGenerations != generations)
        return QStringLiteral("%1 générations au lieu de %2").arg(arbre.nombreGenerations).arg(generations);
    for (const Personne *personne : std::as_const(presentes)) {
        if (const QString defaut = DefautDesLiens(*personne, presentes); !defaut.isEmpty())
            return defaut;
    }
    return DefautDeLaSelection(arbre);
}
