#pragma once

#include "mesuretextes.h"

#include <QImage>
#include <QString>

/// The civil data of one person. Dates and places are kept as typed; nothing parses them.
class InfoPersonne
{
public:
    /// Values of etatPhoto.
    enum EtatPhoto : int {
        PhotoNonEssayee = -1,     ///< not yet tried
        PhotoAbsente = 0,         ///< none that can be used
        PhotoChargee = 1,         ///< photo holds it as loaded
        PhotoPourEcran = 2,       ///< photoEcran holds a valid copy scaled for the screen
        PhotoPourImpression = 3,  ///< photoImpression holds a valid copy scaled for printing
    };

    /// The nine texts in the order of the fields, and the first etatPhoto.
    InfoPersonne(const QString &unNom, const QString &unPrenom, const QString &dateNaissance,
                 const QString &lieuNaissance, const QString &dateDeces, const QString &lieuDeces,
                 const QString &remarque, const QString &fiche, const QString &fichierPhoto, int etat);
    /// Nine empty texts and a photo not yet tried.
    InfoPersonne();

    /// Loads photo from the file \a dossier + "/" + ficphoto, turned upright as its camera noted. True when an image
    /// came out. Only regular files are read. Leaves etatPhoto to the caller.
    bool ChargePhoto(const QString &dossier);
    /// True when the photo is drawn beside the box, which then takes two box widths.
    [[nodiscard]] bool aUnePhoto() const { return etatPhoto > PhotoAbsente; }

    /// See MesureLesTextes; kept until OublieMesure().
    [[nodiscard]] MesureTextes Mesure() const;
    /// To be called when texts that have been drawn change.
    void OublieMesure() { lignesMesurees = 0; }

    QString nom;
    QString prenom;
    QString datenaissance;
    QString lieunaissance;
    QString datedeces;
    QString lieudeces;
    QString divers;    ///< remark
    QString fichtml;   ///< file name of the sheet
    QString ficphoto;  ///< file name of the photo, relative to the folder of the tree file
    QImage photo;
    QImage photoEcran;
    QImage photoImpression;
    int etatPhoto;  ///< see EtatPhoto

private:
    // Both fit where the class would have a hole.
    mutable quint16 lignesMesurees = 0;  ///< 0: not measured, or too large to be kept
    mutable quint16 motMesure = 0;
};
