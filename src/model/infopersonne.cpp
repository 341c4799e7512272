#include "infopersonne.h"

#include "photos.h"

#include <limits>

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
    photo = LitPhoto(dossier + u'/' + ficphoto);
    return !photo.isNull();
}

MesureTextes InfoPersonne::Mesure() const
{
    if (lignesMesurees != 0)
        return {.lignes = lignesMesurees, .plusLongMot = motMesure};
    const MesureTextes mesure = MesureLesTextes(*this);
    constexpr long limite = std::numeric_limits<quint16>::max();
    if (mesure.lignes <= limite && mesure.plusLongMot <= limite) {
        lignesMesurees = static_cast<quint16>(mesure.lignes);
        motMesure = static_cast<quint16>(mesure.plusLongMot);
    }
    return mesure;
}
