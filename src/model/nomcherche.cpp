#include "nomcherche.h"

#include "infopersonne.h"
#include "sansaccents.h"

#include <utility>

namespace {

/// Two texts with a blank between them, one after the other; an empty one counts for nothing.
class LettresDeDeux
{
public:
    LettresDeDeux(QStringView un, QStringView autre)
        : premieres(un)
        , suivantes(autre)
        , blanc(un.isEmpty() || autre.isEmpty() ? 0 : u' ')
    {
    }

    [[nodiscard]] char16_t Suivante()
    {
        if (const char16_t lettre = premieres.Suivante())
            return lettre;
        if (blanc != 0)
            return std::exchange(blanc, u'\0');
        return suivantes.Suivante();
    }

private:
    LettresSansAccents premieres;
    LettresSansAccents suivantes;
    char16_t blanc;
};

constexpr int lettresParCle = 12;
constexpr int bitsParLettre = 5;

/// 0 stands for no letter, so that the key of a beginning is the beginning of the key.
quint64 Code(char16_t lettre)
{
    constexpr quint64 blanc = 27;
    constexpr quint64 apostrophe = 28;
    constexpr quint64 chiffre = 29;
    constexpr quint64 autre = 30;
    if (lettre >= u'a' && lettre <= u'z')
        return quint64(lettre - u'a') + 1;
    if (lettre == u' ')
        return blanc;
    if (lettre == u'\'')
        return apostrophe;
    return lettre >= u'0' && lettre <= u'9' ? chiffre : autre;
}

template <typename Lettres> quint64 Cle(Lettres lettres)
{
    quint64 cle = 0;
    for (int place = lettresParCle - 1; place >= 0; --place) {
        const char16_t lettre = lettres.Suivante();
        if (lettre == 0)
            break;
        cle |= Code(lettre) << (place * bitsParLettre);
    }
    return cle;
}

quint64 Masque(qsizetype lettres)
{
    constexpr quint64 tout = (quint64(1) << (lettresParCle * bitsParLettre)) - 1;
    return lettres >= lettresParCle ? tout : tout & ~(tout >> (static_cast<int>(lettres) * bitsParLettre));
}

bool Commence(LettresDeDeux lettres, QStringView debut)
{
    for (const QChar attendue : debut) {
        if (lettres.Suivante() != attendue.unicode())
            return false;
    }
    return true;
}

}  // namespace

ClesDeNom::ClesDeNom(const InfoPersonne *info)
    : prenomNom(info ? Cle(LettresDeDeux(info->prenom, info->nom)) : 0)
    , nomPrenom(info ? Cle(LettresDeDeux(info->nom, info->prenom)) : 0)
{
}

NomCherche::NomCherche(QStringView tape)
    : debut(SansAccents(tape))
    , cle(Cle(LettresSansAccents(debut)))
    , masque(Masque(debut.size()))
{
}

bool NomCherche::PeutEtre(const ClesDeNom &cles) const
{
    return (cles.nomPrenom & masque) == cle || (cles.prenomNom & masque) == cle;
}

bool NomCherche::Est(const InfoPersonne &info) const
{
    return Commence(LettresDeDeux(info.nom, info.prenom), debut)
        || Commence(LettresDeDeux(info.prenom, info.nom), debut);
}
