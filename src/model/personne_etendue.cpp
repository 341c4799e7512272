#include "personne.h"

#include "encombrement.h"
#include "infopersonne.h"
#include "unites.h"

QRect Personne::Etendue(const Encombrement &encombrement) const
{
    const Encombrement::Debords debords = info
        ? encombrement.DebordsFins(*info)
        : Encombrement::Debords{.bas = encombrement.basDuNumero, .cotes = encombrement.coteDuNumero};
    const long bas = y + MaxLI(encombrement.hauteurCadre, debords.bas);
    long droite = x + encombrement.largeurCadre + debords.cotes;
    if (FacteurPhoto() == 2)
        droite = MaxLI(droite, x + 2 * encombrement.largeurCadre + MaxLI(encombrement.ecartPhoto, 0));
    const long tour = encombrement.tour;
    return QRect(QPoint(Coordonnee(x - debords.cotes - tour + MinLI(encombrement.ecartPhoto, 0)), Coordonnee(y - tour)),
                 QPoint(Coordonnee(droite + tour), Coordonnee(bas + tour)));
}

bool Personne::EstHorsDe(const QRect &zone, const Encombrement &encombrement) const
{
    if (zone.isNull())
        return false;
    if (info) {
        const Encombrement::Debords debords = encombrement.DebordsGrossiers(*info);
        const long cotes = debords.cotes + encombrement.tour + 2 * std::abs(encombrement.ecartPhoto);
        if (x - cotes > zone.right() || x + 2 * encombrement.largeurCadre + cotes < zone.left()
            || y - encombrement.tour > zone.bottom()
            || y + MaxLI(encombrement.hauteurCadre, debords.bas) + encombrement.tour < zone.top())
            return true;
    }
    return !zone.intersects(Etendue(encombrement));
}
