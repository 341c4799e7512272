#pragma once

#include "lecturegedcom.h"

#include <utility>

/// The reader as its rules are told, on copies of texts and without any of its code: what the lists must be, for files
/// nobody can read by eye.
class GedcomNaif
{
public:
    explicit GedcomNaif(const QString &texte)
    {
        for (const QString &ligne : texte.split(texte.contains(u'\n') ? u'\n' : u'\r'))
            Ligne(ligne.trimmed());
    }

    QStringList individus;
    QStringList familles;

private:
    using Mots = QList<std::pair<QString, int>>;

    /// The code of the first word of the list found in the line, and the line behind the length of that word.
    static int Code(const Mots &mots, const QString &ligne, QString &valeur)
    {
        for (const auto &[mot, code] : mots) {
            if (ligne.indexOf(mot) >= 0) {
                valeur = ligne.mid(mot.size()).trimmed();
                return code;
            }
        }
        return 0;
    }

    static QString Adresse(const QString &texte)
    {
        const QStringList morceaux = texte.split(u'@');
        return morceaux.size() < 3 ? QString() : u'@' + morceaux.at(1) + u'@';
    }

    void Ligne(QString ligne)
    {
        if (ligne.isEmpty())
            return;
        int niveau = 0;
        if (ligne.contains(u' ')) {
            niveau = ligne.section(u' ', 0, 0).toShort();
            ligne = ligne.section(u' ', 1);
        }
        if (niveau == 0)
            Niveau0(ligne);
        else if (niveau == 1)
            Niveau1(ligne);
        else if (niveau == 2)
            Niveau2(ligne);
    }

    void Niveau0(const QString &ligne)
    {
        if (bloc == 2)
            individus.prepend(IndividuEnTexte(adresse, textes));
        if (bloc == 3)
            familles.prepend(FamilleEnTexte(adresse, mari, femme, enfants));
        QString valeur;
        bloc = Code({{"HEAD", 1}, {"INDI", 2}, {"FAM", 3}, {"TRLR", 18}}, ligne, valeur);
        adresse = Adresse(ligne);
        textes = {};
        mari.clear();
        femme.clear();
        enfants.clear();
    }

    static int CodeDInfo(const QString &ligne, QString &valeur)
    {
        return Code({{"NAME", 4},
                     {"SEX", 5},
                     {"BIRT", 6},
                     {"DEAT", 9},
                     {"DATE", 7},
                     {"PLAC", 8},
                     {"FAMS", 10},
                     {"FAMC", 11},
                     {"OCCU", 12},
                     {"HUSB", 15},
                     {"WIFE", 16},
                     {"CHIL", 17}},
                    ligne, valeur);
    }

    void Niveau1(const QString &ligne)
    {
        QString valeur;
        const int code = CodeDInfo(ligne, valeur);
        if (code == 6 || code == 9)
            evenement = code;
        if (bloc == 2)
            LigneDIndividu(code, valeur);
        if (bloc == 3)
            LigneDeFamille(code, valeur);
    }

    void LigneDIndividu(int code, const QString &valeur)
    {
        const QStringList morceaux = valeur.split(u'/');
        if (code == 4 && morceaux.size() == 3)
            textes[0] = morceaux.at(0);
        if (code == 4 && morceaux.size() <= 3)
            textes[1] = morceaux.at(morceaux.size() == 3 ? 1 : 0);
        if (code == 5)
            textes[2] = valeur;
        if (code == 10)
            textes[7] = Adresse(valeur);
        if (code == 11)
            textes[8] = Adresse(valeur);
        if (code == 12)
            textes[9] = valeur;
    }

    void LigneDeFamille(int code, const QString &valeur)
    {
        if (code == 15)
            mari = Adresse(valeur);
        if (code == 16)
            femme = Adresse(valeur);
        if (code == 17)
            enfants.prepend(Adresse(valeur));
    }

    void Niveau2(const QString &ligne)
    {
        QString valeur;
        const int code = CodeDInfo(ligne, valeur);
        if (bloc == 2 && evenement != 0 && (code == 7 || code == 8))
            textes.at((evenement == 6 ? 3U : 5U) + (code == 7 ? 0U : 1U)) = valeur;
    }

    int bloc = 0;
    int evenement = 0;
    QString adresse;
    TextesIndividu textes;
    QString mari;
    QString femme;
    QStringList enfants;
};
