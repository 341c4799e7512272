#pragma once

#include "arbre.h"
#include "arbres.h"
#include "ficxrlg.h"
#include "infopersonne.h"
#include "personne.h"

#include <QBuffer>

#include <array>
#include <random>

/// Trees for the tests of what is mended: texts made of what a tree file can stumble over.

/// All that a tree file keeps, one line a text or a person.
inline QString ToutEnTexte(const Arbre &arbre)
{
    const InfoArbre &titres = *arbre.infoArbre;
    QStringList lignes{titres.titrearbre, titres.creepar, titres.date, titres.majpar, titres.datemaj};
    for (const Personne *une = arbre.premiere; une; une = une->suivante) {
        const InfoPersonne &info = *une->info;
        lignes += QStringLiteral("%1 %2 %3 %4 %5")
                      .arg(une->numero)
                      .arg(une->numerogeneration)
                      .arg(une->pere)
                      .arg(une->mere)
                      .arg(une->enfant);
        lignes += {info.nom,       info.prenom, info.datenaissance, info.lieunaissance, info.datedeces,
                   info.lieudeces, info.divers, info.fichtml,       info.ficphoto};
    }
    return lignes.join(u'|') + u'|' + QString::number(arbre.nombreGenerations);
}

inline QByteArray OctetsDe(const Arbre &arbre, TextesXRLG textes = TextesXRLG::TelsQuels)
{
    QByteArray octets;
    QBuffer tampon(&octets);
    return tampon.open(QIODevice::WriteOnly) && EcritArbreXRLG(tampon, arbre, textes) ? octets : QByteArray();
}

/// A random tree of up to \a personnes persons whose texts are made of \a morceaux.
inline std::unique_ptr<Arbre> ArbreDifficile(quint32 graine, int personnes, const QStringList &morceaux)
{
    auto arbre = ArbreAuHasard({.graine = graine, .personnes = personnes});
    std::mt19937 tirage(graine);
    const auto texte = [&] {
        QString resultat;
        for (auto reste = tirage() % 5; reste > 0; --reste)
            resultat += morceaux.at(static_cast<qsizetype>(tirage() % static_cast<std::size_t>(morceaux.size())));
        return resultat;
    };
    InfoArbre &titres = *arbre->infoArbre;
    for (QString *titre : {&titres.titrearbre, &titres.creepar, &titres.date, &titres.majpar, &titres.datemaj})
        *titre = texte();
    for (Personne *une = arbre->premiere; une; une = une->suivante) {
        InfoPersonne &info = *une->info;
        for (QString *champ : {&info.nom, &info.prenom, &info.datenaissance, &info.lieunaissance, &info.datedeces,
                               &info.lieudeces, &info.divers, &info.fichtml, &info.ficphoto})
            *champ = texte();
    }
    return arbre;
}
