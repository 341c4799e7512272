#include "personne.h"

#include "etatpeintre.h"
#include "formatsdessins.h"
#include "infopersonne.h"
#include "outilspersonne.h"
#include "unites.h"

#include <QStringList>

namespace {

constexpr int ecartSelection = 3;

/// Texts one below the other in a box; what does not fit runs over its frame.
class ColonneDeTextes
{
public:
    /// \a drapeauxDeTous are for every text: Qt::TextDontPrint measures without drawing.
    ColonneDeTextes(QPainter &surQuoi, const QRect &unCadre, int drapeauxDeTous)
        : peintre(surQuoi)
        , cadre(unCadre)
        , communs(drapeauxDeTous | Qt::AlignHCenter | Qt::TextDontClip)
    {
    }

    void Ecrit(const QString &texte, int drapeaux)
    {
        QRect mesure;
        peintre.drawText(cadre, drapeaux | communs, texte, &mesure);
        cadre.moveTop(cadre.top() + mesure.height());
        pris |= mesure;
    }
    void EcritLigne(const QString &texte) { Ecrit(texte, Qt::TextWordWrap); }

    /// The rectangle that the lines take so far.
    [[nodiscard]] QRect Prise() const { return pris; }

private:
    QPainter &peintre;
    QRect cadre;  ///< what is left of the box, for the next text
    int communs;
    QRect pris;
};

/// The column of texts in the box of \a personne, with the number in it already.
ColonneDeTextes CommenceParLeNumero(QPainter &peintre, const Personne &personne, const OutilsPersonne &outils,
                                    int drapeauxDeTous)
{
    peintre.setPen(outils.textes);
    peintre.setFont(outils.numeros);
    const QRect cadre(Coordonnee(personne.x + outils.marge), Coordonnee(personne.y),
                      Coordonnee(MaxLI(outils.largeur - 2 * outils.marge, 1)), Coordonnee(outils.hauteur));
    ColonneDeTextes colonne(peintre, cadre, drapeauxDeTous);
    colonne.Ecrit(QString::number(personne.numero), 0);
    return colonne;
}

QString NomComplet(const InfoPersonne &info)
{
    return info.prenom.isEmpty() ? info.nom : info.prenom + u' ' + info.nom;
}

/// The lines of a box below its name, as one font draws them.
QStringList DatesEtLieux(const InfoPersonne &info, bool avecLieux)
{
    QStringList lignes;
    if (!info.datenaissance.isEmpty())
        lignes += QStringLiteral("° ") + info.datenaissance;
    if (avecLieux && !info.lieunaissance.isEmpty())
        lignes += QStringLiteral("à ") + info.lieunaissance;
    if (!info.datedeces.isEmpty())
        lignes += QStringLiteral("+ ") + info.datedeces;
    if (avecLieux && !info.lieudeces.isEmpty())
        lignes += QStringLiteral("à ") + info.lieudeces;
    return lignes;
}

void EcritTextes(QPainter &peintre, ColonneDeTextes &colonne, const InfoPersonne &info, const OutilsPersonne &outils)
{
    const QString nom = NomComplet(info);
    if (!nom.isEmpty()) {
        peintre.setFont(outils.noms);
        colonne.EcritLigne(nom);
    }
    peintre.setFont(outils.datesEtLieux);
    for (const QString &ligne : DatesEtLieux(info, outils.arbreOuvert))
        colonne.EcritLigne(ligne);
    if (outils.arbreOuvert && !info.divers.isEmpty()) {
        peintre.setFont(outils.remarques);
        colonne.EcritLigne(info.divers);
    }
}

/// What \a photo must fit in to stand in a box, in its own proportions.
QSize CadreDeLaPhoto(const QImage &photo, long largeur, long hauteur)
{
    if (photo.isNull())
        return {};
    // A box from a damaged options file must not fill the memory.
    constexpr int coteMax = 8192;
    const double facteur = qMin(double(largeur) / photo.width(), double(hauteur) / photo.height());
    return {EntierBorne(photo.width() * facteur, 0, coteMax), EntierBorne(photo.height() * facteur, 0, coteMax)};
}

/// Draws \a photo itself where its copy would be much larger than it: such copies for many persons would fill the memory,
/// and show no more. False, and nothing drawn, when a copy is better.
bool DessineSansCopie(QPainter &peintre, QPoint coin, const QImage &photo, QSize cadre, qreal finesse)
{
    constexpr qint64 pointsPermis = 1'000'000;
    const auto points = [](QSize taille) { return qint64(taille.width()) * taille.height(); };
    const QSize taille = photo.size().scaled(cadre, Qt::KeepAspectRatio);
    if (photo.isNull() || points(taille) <= qMax(pointsPermis, points(photo.size())))
        return false;
    const EtatPeintre etat(peintre);
    peintre.setRenderHint(QPainter::SmoothPixmapTransform);
    peintre.drawImage(QRectF(coin, QSizeF(taille) / finesse), photo);
    return true;
}

/// How many points of a photo's copy on the screen go to one of the painter's. A chart that is shown larger has copies
/// twice as fine, and no finer: those of many persons must not fill the memory.
qreal FinesseALEcran(const QPainter &peintre)
{
    return peintre.device()->devicePixelRatio() * (peintre.transform().m11() > 1.0 ? 2.0 : 1.0);
}

}  // namespace

QRect Personne::Affiche(QPainter *painter, float sx, float sy, bool impression, const FormatsDessins &formats,
                        const LesPolices &polices, bool arbreOuvert)
{
    const EtatPeintre etat(*painter);
    return Dessine(*painter, OutilsPersonne(*painter, sx, sy, impression, formats, polices, arbreOuvert));
}

QRect Personne::Dessine(QPainter &peintre, const OutilsPersonne &outils)
{
    if (!affichable)
        return {};
    peintre.setBrush(Qt::NoBrush);
    peintre.setPen(outils.traits);
    if (outils.arbreOuvert) {
        const QRect cadre(Coordonnee(x), Coordonnee(y), Coordonnee(outils.largeur), Coordonnee(outils.hauteur));
        peintre.drawRoundedRect(cadre, outils.rondeurX, outils.rondeurY, Qt::RelativeSize);
    }
    if (selectionnee && !outils.impression)
        TraceSelection(&peintre, outils.sx, outils.sy, true, outils.formats);

    ColonneDeTextes colonne = CommenceParLeNumero(peintre, *this, outils, 0);
    if (info) {
        if (outils.arbreOuvert)
            AffichePhoto(&peintre, outils.sx, outils.sy, outils.impression, outils.formats);
        EcritTextes(peintre, colonne, *info, outils);
    }
    return colonne.Prise();
}

QRect Personne::MesureLesTextes(QPainter &peintre, const OutilsPersonne &outils) const
{
    if (!affichable)
        return {};
    ColonneDeTextes colonne = CommenceParLeNumero(peintre, *this, outils, Qt::TextDontPrint);
    if (info)
        EcritTextes(peintre, colonne, *info, outils);
    return colonne.Prise();
}

void Personne::AffichePhoto(QPainter *painter, float sx, float sy, bool impression, const FormatsDessins &formats)
{
    if (!info || !info->aUnePhoto())
        return;
    const long largeur = MaxLI(Px(formats.largeurCadre, sx), 1);
    const long hauteur = MaxLI(Px(formats.hauteurCadre, sy), 1);
    const int ecart =
        EntierBorne((double(formats.intervCadrePhoto) + formats.epaisseurTraits) * sx, -1'000'000, 1'000'000);
    const QPoint coin(Coordonnee(x + largeur + ecart), Coordonnee(y));
    // A screen may have several of its own pixels to one of ours: the copy is as fine as the screen.
    const qreal finesse = impression ? 1.0 : FinesseALEcran(*painter);
    const QSize cadre = CadreDeLaPhoto(info->photo, static_cast<long>(double(largeur) * finesse),
                                       static_cast<long>(double(hauteur) * finesse));
    if (DessineSansCopie(*painter, coin, info->photo, cadre, finesse))
        return;
    const int etatVoulu = impression ? InfoPersonne::PhotoPourImpression : InfoPersonne::PhotoPourEcran;
    QImage &copie = impression ? info->photoImpression : info->photoEcran;
    const bool autreFinesse = !info->photo.isNull() && !copie.isNull() && copie.devicePixelRatio() != finesse;
    if (info->etatPhoto != etatVoulu || autreFinesse) {
        info->photoEcran = info->photoImpression = QImage();  // the other one is not valid any more either
        copie =
            info->photo.isNull() ? QImage() : info->photo.scaled(cadre, Qt::KeepAspectRatio, Qt::SmoothTransformation);
        copie.setDevicePixelRatio(finesse);
        info->etatPhoto = copie.isNull() ? InfoPersonne::PhotoAbsente : etatVoulu;
    }
    if (info->etatPhoto == etatVoulu)
        painter->drawImage(coin, copie);
}

void Personne::TraceSelection(QPainter *painter, float sx, float sy, bool trace, const FormatsDessins &formats) const
{
    const EtatPeintre etat(*painter);
    painter->setPen(QPen(trace ? Qt::blue : Qt::white, formats.EpaisseurPx(sx), Qt::DashLine));
    const int gauche = Coordonnee(x - ecartSelection);
    const int haut = Coordonnee(y - ecartSelection);
    const int droite = Coordonnee(x + MaxLI(Px(formats.largeurCadre, sx), 1) + ecartSelection - 1);
    const int bas = Coordonnee(y + MaxLI(Px(formats.hauteurCadre, sy), 1) + ecartSelection - 1);
    const int tiers = (droite - gauche) / 3;
    const int milieu = (gauche + droite) / 2;
    // The middle third of the top edge stays free for the number.
    painter->drawLine(gauche, haut, gauche + tiers, haut);
    painter->drawLine(droite - tiers, haut, droite, haut);
    painter->drawLine(droite, haut, droite, bas);
    painter->drawLine(gauche, haut, gauche, bas);
    painter->drawLine(gauche, bas, milieu, bas);
    painter->drawLine(milieu, bas, droite, bas);
}

bool Personne::EstClique(long px, long py, float sx, float sy, const FormatsDessins &formats) const
{
    return x < px && px < x + Px(formats.largeurCadre, sx) && y < py && py < y + Px(formats.hauteurCadre, sy);
}
