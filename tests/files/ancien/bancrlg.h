#pragma once

#include "arbre.h"
#include "fichierrlg.h"
#include "ficoldrlg.h"
#include "infopersonne.h"
#include "interlocuteurnote.h"
#include "personne.h"

#include <QFile>
#include <QTemporaryDir>

#include <memory>

/// The nine texts of a person, "|" between them; "sans textes" without data.
inline QString TextesDe(const Personne &personne)
{
    if (!personne.info)
        return QStringLiteral("sans textes");
    const InfoPersonne &i = *personne.info;
    return QStringList{i.nom,       i.prenom, i.datenaissance, i.lieunaissance, i.datedeces,
                       i.lieudeces, i.divers, i.fichtml,       i.ficphoto}
        .join(u'|');
}

/// One line a person, in list order: "number generation father mother child photo-state texts".
inline QStringList FichesDe(const Arbre &arbre)
{
    QStringList fiches;
    for (const Personne *p = arbre.premiere; p; p = p->suivante) {
        fiches += QStringLiteral("%1 %2 %3 %4 %5 %6 ")
                      .arg(p->numero)
                      .arg(p->numerogeneration)
                      .arg(p->pere)
                      .arg(p->mere)
                      .arg(p->enfant)
                      .arg(p->info ? p->info->etatPhoto : -9)
            + TextesDe(*p);
    }
    return fiches;
}

/// "1:2,3 2:4,0": number and written parents of each person, in list order.
inline QString ParentsDe(const Arbre &arbre)
{
    QStringList parents;
    for (const Personne *p = arbre.premiere; p; p = p->suivante)
        parents += QStringLiteral("%1:%2,%3").arg(p->numero).arg(p->pere).arg(p->mere);
    return parents.join(u' ');
}

/// "1>2,3 2>4,-": who points to whom, those without any parent left out.
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

inline QStringList PageDe(const Arbre &arbre)
{
    const InfoArbre &page = *arbre.infoArbre;
    return {page.titrearbre, page.creepar, page.date, page.majpar, page.datemaj};
}

/// What the tests of the older reader share: a scratch folder, the tree read last, the version that the reader told, and
/// what the user was told.
class BancRlg
{
protected:
    /// Keeps every message in messages, from now on.
    void Ecoute() { Interlocuteur::Installe(std::make_unique<InterlocuteurNote>(messages)); }

    /// A new empty folder, the true header lines, and nothing said.
    void Recommence()
    {
        dossier = std::make_unique<QTemporaryDir>();
        messages.clear();
        arbre.reset();
        enteteV1 = QStringLiteral("Arbre généalogique - R. Lidou - Version 1.0");
        enteteV3 = QStringLiteral("Arbre généalogique - R. Lidou - Version 3.0");
    }

    [[nodiscard]] QString Chemin(const QString &nom) const { return dossier->filePath(nom); }

    /// The path of the new file; empty when the folder refuses it.
    QString Pose(const QString &nom, const QByteArray &contenu) const
    {
        QFile fichier(Chemin(nom));
        const bool pose = fichier.open(QIODevice::WriteOnly) && fichier.write(contenu) == contenu.size();
        return pose ? Chemin(nom) : QString();
    }

    /// Reads into a new tree; type is 7 before, so that whether the reader touches it is seen.
    int LitNomme(const QString &chemin)
    {
        arbre = std::make_unique<Arbre>();
        type = 7;
        QString repertoire = dossier->path();
        return readFicOldRLG(chemin, repertoire, arbre.get(), enteteV1, enteteV3, type);
    }

    /// The same for a file of this content; -1 when the folder refuses it.
    int Lit(const QByteArray &contenu)
    {
        const QString chemin = Pose(QStringLiteral("a.rlg"), contenu);
        return chemin.isEmpty() ? -1 : LitNomme(chemin);
    }
    int Lit(const FichierRlg &fichier) { return Lit(fichier.Octets()); }

    std::unique_ptr<QTemporaryDir> dossier;
    std::unique_ptr<Arbre> arbre;
    QStringList messages;
    QString enteteV1;
    QString enteteV3;
    int type = 7;
};
