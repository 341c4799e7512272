#pragma once

#include <QString>
#include <QtGlobal>

#include <utility>

/// The small part of GEDCOM that an ascending tree needs: names, sex, births, deaths, occupations and the links between
/// individuals and families. Everything else is skipped without a message.

/// One individual. Owns the rest of its list.
class IndividuGED
{
public:
    explicit IndividuGED(QString identifiant)
        : adresse(std::move(identifiant))
    {
    }
    /// Destroys the rest of the list with it, one after the other: long lists fit any stack.
    ~IndividuGED();
    Q_DISABLE_COPY_MOVE(IndividuGED)

    QString adresse;  ///< identifier with its at signs: "@I12@"
    QString prenom;   ///< what stands before the first slash, its blank included
    QString nom;
    QString sexe;
    QString datenaissance;
    QString lieunaissance;
    QString datedeces;
    QString lieudeces;
    QString fams;  ///< the last family named as a spouse's
    QString famc;  ///< the last family named as a child's; not used by the import
    QString occu;
    quint64 numero = 0;  ///< number of the person of the tree made last from this individual, 0 when none
    IndividuGED *suivant = nullptr;
};

/// One child of a family. Owns the rest of its list.
class EnfantGED
{
public:
    explicit EnfantGED(QString identifiant)
        : adresse(std::move(identifiant))
    {
    }
    ~EnfantGED();
    Q_DISABLE_COPY_MOVE(EnfantGED)

    QString adresse;
    EnfantGED *suivant = nullptr;
};

/// One family. Owns its children and the rest of its list.
class FamilleGED
{
public:
    explicit FamilleGED(QString identifiant)
        : adresse(std::move(identifiant))
    {
    }
    ~FamilleGED();
    Q_DISABLE_COPY_MOVE(FamilleGED)

    QString adresse;
    QString mari;
    QString femme;
    EnfantGED *enfants = nullptr;
    FamilleGED *suivante = nullptr;
};

/// What the last file held, in the reverse of its order. Filled by DecodeFichierGED, emptied by VideLesListesGED. The import
/// reads the same records as FichesGED, without a text of their own for each.
extern IndividuGED *LesIndividus;
extern FamilleGED *LesFamilles;
void VideLesListesGED();

/// Takes the level number and the blank behind it from the front of \a ligne. 0 when it is no number; a line without any
/// blank is left whole and is of level 0.
short Niveau(QString &ligne);
/// The first identifier in \a texte with its two at signs; empty when there is none.
QString DecodeAdresse(QString &texte);
/// Splits "prénoms /NOM/". One slash or none gives a surname alone; three or more change nothing.
void DecodeName(QString &nomComplet, QString &prenom, QString &nom);
/// What a line of level 0 opens: 1 HEAD, 2 INDI, 3 FAM (both with their identifier in \a adresse), 18 TRLR, 0 another. The
/// word counts wherever it stands in the line: deliberate.
int DetermineBlocinfo(QString &ligne, QString &adresse);
/// What a line of level 1 or 2 says: 4 NAME, 5 SEX, 6 BIRT, 9 DEAT, 7 DATE, 8 PLAC, 10 FAMS, 11 FAMC, 12 OCCU, 15 HUSB,
/// 16 WIFE, 17 CHIL, 0 another; its value, where it has one, in \a info. The word counts wherever it stands: deliberate.
int DetermineTypeinfo(QString &ligne, QString &info);
/// Cuts \a longueur characters from the front of \a ligne; the rest without the blanks around it.
QString DecodeInfo(QString &ligne, short longueur);

/// Reads a GEDCOM file into LesIndividus and LesFamilles. False when it cannot be opened; true otherwise, whatever it
/// holds. A record that no later line of level 0 closes is lost: deliberate.
bool DecodeFichierGED(const QString &nomFichier);
