#pragma once

#include <QString>

class Arbre;
class QPainter;
struct FormatsDessins;
struct InfoArbre;
struct LesPolices;

/// Size of the drawing and places of the lines of the title block, all in pixels of the device measured for.
struct Canevas
{
    long largeurCanevas = 0;
    long hauteurCanevas = 0;
    bool canevasCalcule = false;  ///< false after the tree changed: measure again before drawing
    long xTitre = 0;
    long yTitre = 0;             ///< baseline of the title
    long yLegende1 = 0;          ///< baseline of the creation line
    long yLegende2 = 0;          ///< baseline of the update line
    long hauteurLigneTitre = 0;  ///< of the last title measured
};

/// Measures a tree whose persons have been placed, and its title block, with \a peintre's device and the scales
/// \a sx and \a sy. Without a title the block only moves down by one line. O(n).
void CalculeCanevas(Canevas &canevas, QPainter &peintre, const Arbre &arbre, const FormatsDessins &formats,
                    const LesPolices &polices, float sx, float sy);

/// Draws the title block where \a canevas has it; nothing when the tree has no title.
void DessineTitre(QPainter &peintre, const InfoArbre &infoArbre, const Canevas &canevas, const LesPolices &polices);
