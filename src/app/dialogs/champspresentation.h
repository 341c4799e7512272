#pragma once

#include "formatsdessins.h"
#include "lespolices.h"

#include <QColor>
#include <QLabel>

class QFont;
class QWidget;

/// What the dialogs of drawing lengths, fonts and preferences have in common: the same fields under the same names, and
/// the toolkit's colour and font dialogs.

/// Shows the family of \a police, its size in points, and its style when there is a label for it: "Normal", "Italic",
/// "Bold" or "Bold Italic", where every weight above normal is bold.
void AffichageInfoPolice(const QFont &police, QLabel *famille, QLabel *style, QLabel *taille);

/// Asks for another font, starting from \a police. False, \a police untouched, when the user gives up. A family that is
/// not installed stays unless another one is chosen.
bool ChoisitPolice(QWidget *parent, QFont &police);

/// A colour that the user sees, and may change.
struct ChampCouleur
{
    QWidget *pastille;  ///< shows it as its background
    QWidget *bouton;    ///< asks for another one
};

/// Asks for another colour, starting from \a couleur, and shows it in \a champ. Changes nothing when the user gives up.
void ChoisitCouleur(QWidget *parent, QColor &couleur, ChampCouleur champ);

/// Shows \a couleur as a background, whether the window is active or not, and in words: under the mouse, and to screen
/// readers at the button too, as they do not stop at the swatch.
void MontreCouleur(ChampCouleur champ, const QColor &couleur);

/// Puts the nine lengths of \a formats into the spin boxes of \a formulaire, which hold 0 to 99.
template <typename Formulaire> void MontreLongueurs(Formulaire &formulaire, const FormatsDessins &formats)
{
    formulaire.sbLCadre->setValue(formats.largeurCadre);
    formulaire.sbHCadre->setValue(formats.hauteurCadre);
    formulaire.sbDMinHoriz->setValue(formats.distMinHoriz);
    formulaire.sbDMinVert->setValue(formats.distMinVert);
    formulaire.sbMargeMin->setValue(formats.margeGenerale);
    formulaire.sbMargeDansCadre->setValue(formats.margeDansCadre);
    formulaire.sbIntervCadrePhoto->setValue(formats.intervCadrePhoto);
    formulaire.dsbEpTrait->setValue(formats.epaisseurTraits);
    formulaire.dsbRayonArc->setValue(formats.rayonArc);
}

/// The lengths in the spin boxes of \a formulaire, with \a couleurTraits.
template <typename Formulaire> FormatsDessins FormatsSaisis(const Formulaire &formulaire, const QColor &couleurTraits)
{
    return {.largeurCadre = formulaire.sbLCadre->value(),
            .hauteurCadre = formulaire.sbHCadre->value(),
            .distMinHoriz = formulaire.sbDMinHoriz->value(),
            .distMinVert = formulaire.sbDMinVert->value(),
            .margeGenerale = formulaire.sbMargeMin->value(),
            .margeDansCadre = formulaire.sbMargeDansCadre->value(),
            .intervCadrePhoto = formulaire.sbIntervCadrePhoto->value(),
            .epaisseurTraits = static_cast<float>(formulaire.dsbEpTrait->value()),
            .rayonArc = static_cast<float>(formulaire.dsbRayonArc->value()),
            .couleurTraits = couleurTraits};
}

/// AffichageInfoPolice(), and the same for screen readers at \a bouton, which asks for another font.
void MontrePolice(const QFont &police, QLabel *famille, QLabel *style, QLabel *taille, QWidget *bouton);

/// Shows the four fonts in the labels of \a formulaire; the texts' font has no label for its style.
template <typename Formulaire> void MontrePolices(Formulaire &formulaire, const LesPolices &polices)
{
    MontrePolice(polices.policeTextes, formulaire.labelFamilleTextes, nullptr, formulaire.labelTailleTextes,
                 formulaire.pbModifPolTextes);
    MontrePolice(polices.policeNumeros, formulaire.labelFamilleNumeros, formulaire.labelStyleNumeros,
                 formulaire.labelTailleNumeros, formulaire.pbModifPolNum);
    MontrePolice(polices.policeTitre, formulaire.labelFamilleTitre, formulaire.labelStyleTitre,
                 formulaire.labelTailleTitre, formulaire.pbModifPolTitre);
    MontrePolice(polices.policeLegende, formulaire.labelFamilleLegende, formulaire.labelStyleLegende,
                 formulaire.labelTailleLegende, formulaire.pbModifPolLegende);
}
