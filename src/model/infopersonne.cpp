#include "infopersonne.h"

#include <QFileInfo>
#include <QImageReader>

InfoPersonne::InfoPersonne(const QString &unNom, const QString &unPrenom, const QString &dateNaissance,
                           const QString &lieuNaissance, const QString &dateDeces, const QString &lieuDeces,
                           const QString &remarque, const QString &fiche, const QString &fichierPhoto, int etat)
    : nom(unNom)
    , prenom(unPrenom)
    , datenaissance(dateNaissance)
    , lieunaissance(lieuNaissance)
    , datedeces(dateDeces)
    , lieudeces(lieuDeces)
    , divers(remarque)
    , fichtml(fiche)
    , ficphoto(fichierPhoto)
    , etatPhoto(etat)
{
}

InfoPersonne::InfoPersonne()
    : etatPhoto(PhotoNonEssayee)
{
}

bool InfoPersonne::ChargePhoto(const QString &dossier)
{
    photo = QImage();
    const QString chemin = dossier + u'/' + ficphoto;
    if (chemin.contains(QChar(QChar::Null)) || !QFileInfo(chemin).isFile())
        return false;
    QImageReader lecteur(chemin);
    lecteur.setAutoTransform(true);
    photo = lecteur.read();
    return !photo.isNull();
}
