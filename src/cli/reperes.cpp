#include "reperes.h"

#include "etatpeintre.h"

#include <QFontMetricsF>
#include <QPainter>

#include <algorithm>

namespace {

constexpr double epaisseur = 0.4;

/// Those pages of a row or column of the grid that its map shows: of a large one, the neighbours.
struct Fenetre
{
    long premiere;
    long nombre;
    bool suiteAvant;  ///< there are more before
    bool suiteApres;

    Fenetre(long place, long total, long auPlus)
        : premiere(std::clamp(place - auPlus / 2, 0L, std::max(total - auPlus, 0L)))
        , nombre(std::min(total, auPlus))
        , suiteAvant(premiere > 0)
        , suiteApres(premiere + nombre < total)
    {
    }
};

}  // namespace

Reperes::Reperes(const GrilleDePages &uneGrille, QSize page, int pointsParPouce, const QFont &police)
    : grille(uneGrille)
    , pixelsParPoint(pointsParPouce / 72.0)
    , montre(page.toSizeF() / pixelsParPoint)
    , part((page - QSize(GrilleDePages::recouvrement, GrilleDePages::recouvrement)).toSizeF() / pixelsParPoint)
    , ecriture(police.family())
{
    // The painter's unit is a point here.
    ecriture.setPixelSize(6);
}

void Reperes::Dessine(QPainter &peintre, long colonne, long ligne) const
{
    constexpr double aGauche = 12;
    constexpr double ecart = 6;
    const EtatPeintre etat(peintre);
    peintre.scale(pixelsParPoint, pixelsParPoint);
    peintre.setPen(QPen(Qt::black, epaisseur, Qt::SolidLine, Qt::FlatCap));
    TraitsDeCoupe(peintre, colonne, ligne);
    const QString texte = QStringLiteral("page %1 sur %2, rangée %3, colonne %4")
                              .arg(colonne * grille.lignes + ligne + 1)
                              .arg(grille.colonnes * grille.lignes)
                              .arg(ligne + 1)
                              .arg(colonne + 1);
    peintre.setFont(ecriture);
    peintre.drawText(QPointF(aGauche, montre.height() + 7), texte);
    Plan(peintre, aGauche + QFontMetricsF(ecriture).horizontalAdvance(texte) + ecart, colonne, ligne);
}

void Reperes::TraitsDeCoupe(QPainter &peintre, long colonne, long ligne) const
{
    // From the edge of what is shown outwards.
    constexpr double pres = 2;
    constexpr double loin = 8;
    const auto coupeDebout = [&](double x) {
        peintre.drawLine(QPointF(x, -loin), QPointF(x, -pres));
        peintre.drawLine(QPointF(x, montre.height() + pres), QPointF(x, montre.height() + loin));
    };
    const auto coupeCouchee = [&](double y) {
        peintre.drawLine(QPointF(-loin, y), QPointF(-pres, y));
        peintre.drawLine(QPointF(montre.width() + pres, y), QPointF(montre.width() + loin, y));
    };
    if (colonne > 0)
        coupeDebout(0);
    if (colonne < grille.colonnes - 1)
        coupeDebout(part.width());
    if (ligne > 0)
        coupeCouchee(0);
    if (ligne < grille.lignes - 1)
        coupeCouchee(part.height());
}

void Reperes::Plan(QPainter &peintre, double gauche, long colonne, long ligne) const
{
    constexpr double hauteur = 7;
    const Fenetre colonnes(colonne, grille.colonnes, 24);
    const Fenetre lignes(ligne, grille.lignes, 4);
    const double haut = montre.height() + 1.5;
    const double caseY = hauteur / double(lignes.nombre);
    const double caseX = caseY * montre.width() / montre.height();
    const auto x = [&](double rang) { return gauche + rang * caseX; };
    const auto y = [&](double rang) { return haut + rang * caseY; };
    // Where the grid goes on, its lines stand out.
    const auto nColonnes = double(colonnes.nombre);
    const auto nLignes = double(lignes.nombre);
    constexpr double suite = 0.3;
    for (long i = 0; i <= colonnes.nombre; ++i)
        peintre.drawLine(QPointF(x(double(i)), y(lignes.suiteAvant ? -suite : 0)),
                         QPointF(x(double(i)), y(lignes.suiteApres ? nLignes + suite : nLignes)));
    for (long i = 0; i <= lignes.nombre; ++i)
        peintre.drawLine(QPointF(x(colonnes.suiteAvant ? -suite : 0), y(double(i))),
                         QPointF(x(colonnes.suiteApres ? nColonnes + suite : nColonnes), y(double(i))));
    peintre.fillRect(QRectF(x(double(colonne - colonnes.premiere)), y(double(ligne - lignes.premiere)), caseX, caseY),
                     Qt::black);
}
