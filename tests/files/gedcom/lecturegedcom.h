#pragma once

#include "gedcomlecture.h"

#include <QFile>
#include <QStringList>
#include <QTemporaryDir>

#include <array>

/// The texts of one individual, in the order of its fields.
using TextesIndividu = std::array<QString, 10>;

/// One individual in one line, its empty texts left out: "@I1@ prenom[Jean ] nom[DUPONT] sexe[M]".
inline QString IndividuEnTexte(const QString &adresse, const TextesIndividu &textes)
{
    static constexpr std::array champs{"prenom", "nom",       "sexe", "naissance", "lieunaissance",
                                       "deces",  "lieudeces", "fams", "famc",      "occu"};
    QString ligne = adresse;
    for (std::size_t i = 0; i < champs.size(); ++i) {
        if (!textes.at(i).isEmpty())
            ligne += u' ' + QString::fromLatin1(champs.at(i)) + u'[' + textes.at(i) + u']';
    }
    return ligne;
}

/// One family in one line: "@F1@ mari[@I1@] enfants[@I4@,@I3@]".
inline QString FamilleEnTexte(const QString &adresse, const QString &mari, const QString &femme,
                              const QStringList &enfants)
{
    QString ligne = adresse;
    if (!mari.isEmpty())
        ligne += QStringLiteral(" mari[") + mari + u']';
    if (!femme.isEmpty())
        ligne += QStringLiteral(" femme[") + femme + u']';
    if (!enfants.isEmpty())
        ligne += QStringLiteral(" enfants[") + enfants.join(u',') + u']';
    return ligne;
}

/// What the tests of the GEDCOM reader share: a file of their own, and the two lists as text.
class LectureGedcom
{
protected:
    ~LectureGedcom() { VideLesListesGED(); }

    [[nodiscard]] QString Chemin(const QString &nom) const { return dossier.filePath(nom); }

    /// Writes \a contenu to the file a.ged; false when the folder refuses it.
    [[nodiscard]] bool Ecrit(const QByteArray &contenu) const
    {
        QFile fichier(Chemin(QStringLiteral("a.ged")));
        // Thousands of times over the same file: some file systems wait for the disk when one is only cut to nothing.
        fichier.remove();
        return fichier.open(QIODevice::WriteOnly) && fichier.write(contenu) == contenu.size();
    }

    /// Reads \a contenu as a file, into empty lists.
    [[nodiscard]] bool Lit(const QByteArray &contenu) const
    {
        VideLesListesGED();
        return Ecrit(contenu) && DecodeFichierGED(Chemin(QStringLiteral("a.ged")));
    }

    /// The lines of one individual @I1@, between a header and a trailer.
    [[nodiscard]] bool LitUnIndividu(const QByteArray &lignes) const
    {
        return Lit("0 HEAD\n0 @I1@ INDI\n" + lignes + "\n0 TRLR\n");
    }

    /// The individuals in the order of their list.
    [[nodiscard]] static QStringList Individus()
    {
        QStringList lignes;
        for (const IndividuGED *i = LesIndividus; i; i = i->suivant)
            lignes += IndividuEnTexte(i->adresse,
                                      {i->prenom, i->nom, i->sexe, i->datenaissance, i->lieunaissance, i->datedeces,
                                       i->lieudeces, i->fams, i->famc, i->occu})
                + (i->numero ? QStringLiteral(" NUMERO") : QString());
        return lignes;
    }

    /// The families in the order of their list.
    [[nodiscard]] static QStringList Familles()
    {
        QStringList lignes;
        for (const FamilleGED *f = LesFamilles; f; f = f->suivante) {
            QStringList enfants;
            for (const EnfantGED *e = f->enfants; e; e = e->suivant)
                enfants += e->adresse;
            lignes += FamilleEnTexte(f->adresse, f->mari, f->femme, enfants);
        }
        return lignes;
    }

private:
    QTemporaryDir dossier;
};
