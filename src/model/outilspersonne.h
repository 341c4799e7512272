#pragma once

#include <QFont>
#include <QPen>

class QPainter;
struct FormatsDessins;
struct LesPolices;

/// Pens, fonts and lengths (pixels) that every person of a tree is drawn with: made once for all of them.
struct OutilsPersonne
{
    /// For the device of \a peintre; see Personne::Affiche for the other arguments. \a desFormats is not copied.
    OutilsPersonne(const QPainter &peintre, float echelleX, float echelleY, bool enImpression,
                   const FormatsDessins &desFormats, const LesPolices &polices, bool toutMontrer);

    const FormatsDessins &formats;
    float sx;
    float sy;
    bool impression;
    bool arbreOuvert;
    long largeur;  ///< of a box
    long hauteur;
    long marge;  ///< from a box to its texts
    int rondeurX;
    int rondeurY;
    QPen traits;
    QPen textes;
    QFont numeros;
    QFont noms;
    QFont datesEtLieux;
    QFont remarques;
};
