#include "verificationdates.h"

DatesDeVie::DatesDeVie(const QString &uneNaissance, const QString &unDeces)
    : naissanceEcrite(uneNaissance)
    , decesEcrit(unDeces)
    , naissance(ComprendLaDate(uneNaissance))
    , deces(ComprendLaDate(unDeces))
{
}

QStringList DatesDeVie::Fautes() const
{
    QStringList fautes;
    if (naissance.etat == DateComprise::Etat::Impossible)
        fautes += QStringLiteral("date de naissance impossible : ") + naissanceEcrite;
    if (deces.etat == DateComprise::Etat::Impossible)
        fautes += QStringLiteral("date de décès impossible : ") + decesEcrit;
    if (SurementAvant(deces, naissance))
        fautes += QStringLiteral("décès (%1) avant la naissance (%2)").arg(decesEcrit, naissanceEcrite);
    return fautes;
}
