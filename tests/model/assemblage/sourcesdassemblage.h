#pragma once

#include "arbre.h"
#include "arbres.h"
#include "infopersonne.h"
#include "personne.h"

#include <QList>
#include <QStringList>

#include <memory>

/// Trees of parents, sound or not, and what is seen of the tree made out of them.

/// One person of a parent's tree as it is written there.
struct Source
{
    quint64 numero = 1;
    int generation = 0;
    quint64 pere = 0;
    quint64 mere = 0;
    QString nom = QStringLiteral("A");
};

/// A tree of these persons in this order, whatever their numbers are; nobody is linked.
inline std::unique_ptr<Arbre> ArbreDeSources(const QList<Source> &sources)
{
    auto arbre = std::make_unique<Arbre>();
    for (const Source &source : sources) {
        auto *personne = new Personne(static_cast<unsigned short>(source.generation));
        personne->numero = source.numero;
        personne->pere = source.pere;
        personne->mere = source.mere;
        personne->enfant = source.numero / 2;
        personne->info = new InfoPersonne;
        personne->info->nom = source.nom;
        arbre->AjouteALaFin(personne);
    }
    return arbre;
}

/// "number/generation father,mother child nom >father's place,mother's place": places in the list, "-" without.
inline QStringList LignesDe(const Arbre &arbre)
{
    const auto place = [&arbre](const Personne *cherchee) {
        int rang = 0;
        for (const Personne *p = arbre.premiere; p && p != cherchee; p = p->suivante)
            ++rang;
        return cherchee ? QString::number(rang) : QStringLiteral("-");
    };
    QStringList lignes;
    for (const Personne *p = arbre.premiere; p; p = p->suivante) {
        lignes += QStringLiteral("%1/%2 %3,%4 %5 %6 >%7,%8")
                      .arg(p->numero)
                      .arg(p->numerogeneration)
                      .arg(p->pere)
                      .arg(p->mere)
                      .arg(p->enfant)
                      .arg(p->info->nom, place(p->ptrPere), place(p->ptrMere));
    }
    return lignes;
}

/// "1>2,3 2>4,-": who points to whom, by number, those without any parent left out.
inline QString LiensDe(const Arbre &arbre)
{
    const auto nom = [](const Personne *p) { return p ? QString::number(p->numero) : QStringLiteral("-"); };
    QStringList liens;
    for (const Personne *p = arbre.premiere; p; p = p->suivante) {
        if (p->ptrPere || p->ptrMere)
            liens += nom(p) + u'>' + nom(p->ptrPere) + u',' + nom(p->ptrMere);
    }
    return liens.join(u' ');
}

/// The nine texts, "|" between them.
inline QString TextesDe(const InfoPersonne &i)
{
    return QStringList{i.nom,       i.prenom, i.datenaissance, i.lieunaissance, i.datedeces,
                       i.lieudeces, i.divers, i.fichtml,       i.ficphoto}
        .join(u'|');
}
