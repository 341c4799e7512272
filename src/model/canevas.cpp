#include "canevas.h"

#include "arbre.h"
#include "etatpeintre.h"
#include "formatsdessins.h"
#include "lespolices.h"
#include "personne.h"
#include "unites.h"
#include "zonemontree.h"

#include <QFontMetrics>

namespace {

QString LigneDeCreation(const InfoArbre &info)
{
    return QStringLiteral("Auteur : ") + info.creepar + QStringLiteral(" - Date : ") + info.date;
}

QString LigneDeMiseAJour(const InfoArbre &info)
{
    return QStringLiteral("Mise à jour - Auteur : ") + info.majpar + QStringLiteral(" - Date : ") + info.datemaj;
}

QSize MesureTexte(QPainter &peintre, const QFont &police, const QString &texte)
{
    peintre.setFont(PoliceDessinable(police));
    return peintre.boundingRect(QRect(0, 0, 1, 1), Qt::AlignHCenter | Qt::AlignVCenter, texte).size();
}

void MesurePersonnes(Canevas &canevas, const Arbre &arbre, const FormatsDessins &formats, float sx, float sy)
{
    const long largeurCadre = Px(formats.largeurCadre, sx);
    const long hauteurCadre = Px(formats.hauteurCadre, sy);
    long gauche = 0;
    long haut = 0;
    long droite = 0;
    long bas = 0;
    for (const Personne *personne = arbre.premiere; personne; personne = personne->suivante) {
        droite = MaxLI(droite, personne->x + personne->FacteurPhoto() * largeurCadre);
        bas = MaxLI(bas, personne->y + hauteurCadre);
        gauche = MinLI(gauche, personne->x);
        haut = MinLI(haut, personne->y);
    }
    canevas.largeurCanevas = Px(formats.margeGenerale, sx) + droite - gauche;
    canevas.hauteurCanevas = Px(formats.margeGenerale, sy) + bas - haut;
}

/// Puts the title block on the root's row, right of the root and flush with the right margin when there is room.
void PlaceTitre(Canevas &canevas, long largeurBloc, const Arbre &arbre, const FormatsDessins &formats, float sx,
                float sy)
{
    const long marge = Px(formats.margeGenerale, sx);
    long finDeLaRacine = 0;
    long premierX = marge;
    long y0 = Px(formats.margeGenerale, sy);
    if (const Personne *racine = arbre.premiere) {
        finDeLaRacine = racine->x + racine->FacteurPhoto() * Px(formats.largeurCadre, sx);
        premierX = finDeLaRacine + Px(formats.distMinHoriz, sx);
        y0 = racine->y;
    }
    canevas.xTitre = canevas.largeurCanevas - largeurBloc - marge;
    if (finDeLaRacine + largeurBloc > canevas.largeurCanevas || canevas.xTitre < premierX) {
        canevas.xTitre = premierX;
        canevas.largeurCanevas = premierX + largeurBloc + marge;
    }
    canevas.yTitre = y0 + canevas.hauteurLigneTitre;
    canevas.yLegende1 = y0 + 2 * canevas.hauteurLigneTitre;
    canevas.yLegende2 = y0 + 3 * canevas.hauteurLigneTitre;
}

}  // namespace

void CalculeCanevas(Canevas &canevas, QPainter &peintre, const Arbre &arbre, const FormatsDessins &formats,
                    const LesPolices &polices, float sx, float sy)
{
    MesurePersonnes(canevas, arbre, formats, sx, sy);
    canevas.canevasCalcule = true;
    const InfoArbre &info = *arbre.infoArbre;
    if (info.titrearbre.isEmpty()) {
        const long y0 = canevas.yTitre;
        canevas.yTitre = y0 + canevas.hauteurLigneTitre;
        canevas.yLegende1 = y0 + 2 * canevas.hauteurLigneTitre;
        canevas.yLegende2 = y0 + 3 * canevas.hauteurLigneTitre;
        return;
    }
    const EtatPeintre etat(peintre);
    const QSize titre = MesureTexte(peintre, polices.policeTitre, info.titrearbre);
    const QSize creation = MesureTexte(peintre, polices.policeLegende, LigneDeCreation(info));
    const QSize miseAJour = MesureTexte(peintre, polices.policeLegende, LigneDeMiseAJour(info));
    canevas.hauteurLigneTitre = titre.height();
    const long largeurBloc = MaxLI(titre.width(), MaxLI(creation.width(), miseAJour.width()));
    PlaceTitre(canevas, largeurBloc, arbre, formats, sx, sy);
}

namespace {

/// True when nothing of the title block is to be seen, as far as can be said without measuring it.
bool EstHors(const QPainter &peintre, const InfoArbre &info, const Canevas &canevas, const LesPolices &polices)
{
    const QRect zone = ZoneMontree(peintre);
    if (zone.isNull())
        return false;
    const auto hauteur = [&peintre](const QFont &police) {
        return QFontMetrics(PoliceDessinable(police), peintre.device()).height();
    };
    const long lettre = 2L * MaxLI(hauteur(polices.policeTitre), hauteur(polices.policeLegende));
    const long lettres =
        MaxLI(info.titrearbre.size(), MaxLI(LigneDeCreation(info).size(), LigneDeMiseAJour(info).size()));
    return zone.right() < canevas.xTitre - lettre || zone.left() > canevas.xTitre + (lettres + 1) * lettre
        || zone.bottom() < canevas.yTitre - lettre || zone.top() > canevas.yLegende2 + lettre;
}

}  // namespace

void DessineTitre(QPainter &peintre, const InfoArbre &infoArbre, const Canevas &canevas, const LesPolices &polices)
{
    if (infoArbre.titrearbre.isEmpty() || EstHors(peintre, infoArbre, canevas, polices))
        return;
    const EtatPeintre etat(peintre);
    const int x = Coordonnee(canevas.xTitre);
    peintre.setPen(polices.couleurCaracteres);
    peintre.setFont(PoliceDessinable(polices.policeTitre));
    peintre.drawText(x, Coordonnee(canevas.yTitre), infoArbre.titrearbre);
    peintre.setFont(PoliceDessinable(polices.policeLegende));
    peintre.drawText(x, Coordonnee(canevas.yLegende1), LigneDeCreation(infoArbre));
    peintre.drawText(x, Coordonnee(canevas.yLegende2), LigneDeMiseAJour(infoArbre));
}
