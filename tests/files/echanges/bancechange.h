#pragma once

#include "arbre.h"
#include "arbres.h"
#include "gedcomexport.h"
#include "gedcomimport.h"
#include "infopersonne.h"
#include "interlocuteurnote.h"
#include "personne.h"

#include <QDate>
#include <QFile>
#include <QTemporaryDir>

#include <memory>

/// What the tests of the GEDCOM import and export share: a scratch folder, the user's answers and what he was told.

/// The person's number; 0 for none.
inline quint64 NumeroDe(const Personne *personne)
{
    return personne ? personne->numero : 0;
}

/// The nine texts with "|" between them, and the state of the photo.
inline QString Textes(const InfoPersonne &info)
{
    const QStringList textes{info.nom,       info.prenom, info.datenaissance, info.lieunaissance, info.datedeces,
                             info.lieudeces, info.divers, info.fichtml,       info.ficphoto};
    return textes.join(u'|') + QStringLiteral(" photo %1").arg(info.etatPhoto);
}

/// Counts, selection and list, then one line a person: number, generation, child, father and mother (as numbers and,
/// behind "->", as pointers), texts.
inline QString ToutEnTexte(const Arbre &arbre)
{
    QString texte = QStringLiteral("%1 personnes, %2 générations, sélection %3, liste %4\n")
                        .arg(arbre.nombrePersonnes)
                        .arg(arbre.nombreGenerations)
                        .arg(NumeroDe(arbre.selection))
                        .arg(NumerosEnTexte(arbre));
    for (const Personne *personne = arbre.premiere; personne; personne = personne->suivante) {
        texte += QStringLiteral("%1 g%2 e%3 p%4 m%5 -> p%6 m%7%8 ")
                     .arg(personne->numero)
                     .arg(personne->numerogeneration)
                     .arg(personne->enfant)
                     .arg(personne->pere)
                     .arg(personne->mere)
                     .arg(NumeroDe(personne->ptrPere))
                     .arg(NumeroDe(personne->ptrMere))
                     .arg(personne->affichable && !personne->selectionnee ? "" : " à part");
        texte += Textes(*personne->info) + u'\n';
    }
    return texte;
}

/// A folder, and somebody who answers questions and keeps messages as long as this lives.
struct BancEchange
{
    BancEchange()
        : reponses(new InterlocuteurNote(messages))
    {
        Interlocuteur::Installe(std::unique_ptr<Interlocuteur>(reponses));
    }
    Q_DISABLE_COPY_MOVE(BancEchange)
    ~BancEchange() { VideLesListesGED(); }

    [[nodiscard]] QString Chemin(const QString &nom) const { return dossier.filePath(nom); }

    /// Writes a file of the folder; its path, or an empty one when that failed.
    [[nodiscard]] QString Pose(const QString &nom, const QByteArray &contenu) const
    {
        QFile fichier(Chemin(nom));
        const bool ecrit = fichier.open(QIODevice::WriteOnly) && fichier.write(contenu) == contenu.size();
        return ecrit ? Chemin(nom) : QString();
    }
    [[nodiscard]] QByteArray Contenu(const QString &nom) const
    {
        QFile fichier(Chemin(nom));
        return fichier.open(QIODevice::ReadOnly) ? fichier.readAll() : QByteArray("illisible");
    }

    /// Imports a file; the root is the answer \a racine, the question is given up when it is none.
    [[nodiscard]] std::unique_ptr<Arbre> ImporteFichier(const QString &nom, const std::optional<QString> &racine)
    {
        reponses->racine = racine;
        auto arbre = std::make_unique<Arbre>();
        ImporterDeFichierGEDCOM(nullptr, nom, arbre.get());
        return arbre;
    }
    /// The same for a file a.ged that holds \a contenu.
    [[nodiscard]] std::unique_ptr<Arbre> Importe(const QByteArray &contenu, const std::optional<QString> &racine)
    {
        return ImporteFichier(Pose(QStringLiteral("a.ged"), contenu), racine);
    }

    /// Exports \a arbre to the file a.ged as the tree of famille.xrlg; what the file holds then. Its date is \a jour.
    [[nodiscard]] QByteArray Exporte(Arbre &arbre)
    {
        QString nomArbre = QStringLiteral("/quelque/part/famille.xrlg");
        do {  // again when midnight passed meanwhile
            messages.clear();
            jour = QDate::currentDate();
            ExporterVersFichierGEDCOM(nullptr, Chemin(QStringLiteral("a.ged")), &arbre, nomArbre);
        } while (jour != QDate::currentDate());
        return Contenu(QStringLiteral("a.ged"));
    }

    QTemporaryDir dossier;
    QStringList messages;
    InterlocuteurNote *reponses;  ///< owned by the installed place
    QDate jour;
};
