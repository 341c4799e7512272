#include "dessiner.h"

#include "arbre.h"
#include "arbrelu.h"
#include "branches.h"
#include "canevas.h"
#include "disposition.h"
#include "ecriture.h"
#include "etape.h"
#include "ficoptions.h"
#include "formatsdessins.h"
#include "interlocuteur.h"
#include "lespolices.h"
#include "pages.h"
#include "personne.h"
#include "reperes.h"
#include "sousarbre.h"
#include "unites.h"

#include <QFileInfo>
#include <QImage>
#include <QPainter>
#include <QPdfWriter>
#include <QSvgGenerator>

#include <cmath>

namespace {

void Refuse(const QString &texte)
{
    Interlocuteur::Courant().Avertissement(QStringLiteral("Dessin"), texte);
}

QString Suffixe(const QString &sortie)
{
    return QFileInfo(sortie).suffix().toLower();
}

/// The part of \a arbre that is to be drawn; none when its root is not there.
std::unique_ptr<Arbre> PartieDe(std::unique_ptr<Arbre> arbre, const DemandeDeDessin &demande)
{
    if (demande.racine == 1 && demande.generations == 0)
        return arbre;
    auto partie = SousArbre(*arbre, demande.racine, demande.generations);
    if (!partie)
        Refuse(QStringLiteral("La personne n° %1 n'est pas dans l'arbre").arg(demande.racine));
    return partie;
}

/// A tree with all that its drawing needs.
struct Dessin
{
    std::unique_ptr<Arbre> arbre;
    FormatsDessins formats;
    LesPolices polices;
    Canevas canevas;
    bool complet;
    bool couleursDesBranches;
    int pointsParPouce;
    float echelle;

    explicit Dessin(const DemandeDeDessin &demande)
        : arbre(LitUnArbre(demande.arbre))
        , complet(!demande.reduit)
        , couleursDesBranches(demande.couleursDesBranches)
        , pointsParPouce(demande.pointsParPouce)
        , echelle(EchelleDeResolution(pointsParPouce))
    {
        if (arbre)
            arbre = PartieDe(std::move(arbre), demande);
        if (!arbre)
            return;
        PrendLesFormats(demande.arbre);
        const Etape etape(QStringLiteral("disposition de ") + demande.arbre);
        DisposeArbre(*arbre, formats, echelle, echelle);
    }

    void PrendLesFormats(const QString &fichierArbre)
    {
        if (!complet) {
            formats = FormatsDessins::Reduits();
            polices = LesPolices::Reduites();
        } else if (!LitOptions(CheminDesOptions(fichierArbre), &formats, &polices)) {
            LitPreferences(CheminDesPreferences(), &formats, &polices);
        }
    }

    void Mesure(QPainter &peintre) { CalculeCanevas(canevas, peintre, *arbre, formats, polices, echelle, echelle); }

    /// The size of the drawing, measured for a picture; for a PDF it is the same.
    [[nodiscard]] QSize TailleDuDessin()
    {
        QImage essai(1, 1, QImage::Format_ARGB32_Premultiplied);
        PrendLaResolution(essai);
        QPainter peintre(&essai);
        Mesure(peintre);
        return {Coordonnee(MaxLI(canevas.largeurCanevas, 1)), Coordonnee(MaxLI(canevas.hauteurCanevas, 1))};
    }

    /// Fonts have points, of which a picture must know how many of its own make an inch.
    void PrendLaResolution(QImage &image) const
    {
        const int parMetre = qRound(pointsParPouce / 0.0254);
        image.setDotsPerMeterX(parMetre);
        image.setDotsPerMeterY(parMetre);
    }

    void PeintLesBranches(QPainter &peintre)
    {
        const quint64 racine = arbre->premiere->numero;
        arbre->PeintLesFonds(&peintre, echelle, echelle, formats,
                             [racine](const Personne &personne) { return CouleurDeBranche(personne.numero, racine); });
    }

    void Peint(QPainter &peintre)
    {
        if (couleursDesBranches && arbre->premiere)
            PeintLesBranches(peintre);
        arbre->Affiche(&peintre, echelle, echelle, true, formats, polices, complet);
        DessineTitre(peintre, *arbre->infoArbre, canevas, polices);
    }
};

void Prepare(QPdfWriter &pdf, const Dessin &dessin)
{
    pdf.setResolution(dessin.pointsParPouce);
    pdf.setTitle(dessin.arbre->infoArbre->titrearbre);
    pdf.setCreator(QStringLiteral("Ramelier"));
}

bool DessineSurGrille(Dessin &dessin, const DemandeDeDessin &demande, QIODevice &sortie)
{
    QPdfWriter pdf(&sortie);
    // The margins of a printer that nobody has set up: ten points.
    pdf.setPageLayout(QPageLayout(QPageSize(demande.page),
                                  demande.paysage ? QPageLayout::Landscape : QPageLayout::Portrait,
                                  QMarginsF(10, 10, 10, 10), QPageLayout::Point));
    Prepare(pdf, dessin);
    QPainter peintre;
    if (!peintre.begin(&pdf))
        return false;
    dessin.Mesure(peintre);
    const QSize page(pdf.width(), pdf.height());
    const auto grille = GrilleDePages::Pour(dessin.canevas.largeurCanevas, dessin.canevas.hauteurCanevas, page);
    const Reperes reperes(grille, page, dessin.pointsParPouce, dessin.polices.policeLegende);
    const auto enMarge = [&](QPainter &surPage, long colonne, long ligne) {
        if (demande.reperes)
            reperes.Dessine(surPage, colonne, ligne);
    };
    const bool complet = DessineSurPages(
        pdf, peintre, grille, page, [&dessin](QPainter &surPage) { dessin.Peint(surPage); }, enMarge);
    return peintre.end() && complet;
}

bool DessineSurUnePage(Dessin &dessin, QIODevice &sortie)
{
    // Readers refuse a page that is larger than this, unless it says that its unit is larger than a point: Qt does so from
    // version 1.6 of PDF on.
    constexpr int pointsMax = 14400;
    const QSizeF enPoints = dessin.TailleDuDessin().toSizeF() * 72.0 / dessin.pointsParPouce;
    const QSizeF page(std::ceil(enPoints.width()), std::ceil(enPoints.height()));
    QPdfWriter pdf(&sortie);
    if (page.width() > pointsMax || page.height() > pointsMax)
        pdf.setPdfVersion(QPagedPaintDevice::PdfVersion_1_6);
    pdf.setPageLayout(QPageLayout(QPageSize(page, QPageSize::Point, QString(), QPageSize::ExactMatch),
                                  QPageLayout::Portrait, QMarginsF()));
    Prepare(pdf, dessin);
    QPainter peintre;
    if (!peintre.begin(&pdf))
        return false;
    dessin.Peint(peintre);
    return peintre.end();
}

bool DessinePdf(Dessin &dessin, const DemandeDeDessin &demande, QIODevice &sortie)
{
    return demande.pageUnique ? DessineSurUnePage(dessin, sortie) : DessineSurGrille(dessin, demande, sortie);
}

bool TientDansUneImage(Dessin &dessin)
{
    // Beyond this side Qt's painter draws no more.
    constexpr int coteMax = 32767;
    const QSize taille = dessin.TailleDuDessin();
    if (taille.width() <= coteMax && taille.height() <= coteMax)
        return true;
    Refuse(QStringLiteral("L'arbre est trop grand pour une image (%1 x %2 points) : choisissez un fichier .pdf")
               .arg(taille.width())
               .arg(taille.height()));
    return false;
}

bool DessinePng(Dessin &dessin, QIODevice &sortie)
{
    QImage image(dessin.TailleDuDessin(), QImage::Format_RGB32);
    if (image.isNull())
        return false;
    image.fill(Qt::white);
    dessin.PrendLaResolution(image);
    QPainter peintre(&image);
    peintre.setRenderHint(QPainter::Antialiasing);
    dessin.Peint(peintre);
    peintre.end();
    return image.save(&sortie, "PNG");
}

bool DessineSvg(Dessin &dessin, QIODevice &sortie)
{
    const QSize taille = dessin.TailleDuDessin();
    QSvgGenerator svg;
    svg.setOutputDevice(&sortie);
    svg.setResolution(dessin.pointsParPouce);
    svg.setSize(taille);
    svg.setViewBox(QRect(QPoint(0, 0), taille));
    svg.setTitle(dessin.arbre->infoArbre->titrearbre);
    QPainter peintre;
    if (!peintre.begin(&svg))
        return false;
    // A chart is drawn on paper, also in a viewer whose background is dark.
    peintre.fillRect(QRect(QPoint(0, 0), taille), Qt::white);
    dessin.Peint(peintre);
    return peintre.end();
}

}  // namespace

bool FormatDeDessinConnu(const QString &sortie)
{
    return QStringList{QStringLiteral("pdf"), QStringLiteral("png"), QStringLiteral("svg")}.contains(Suffixe(sortie));
}

bool Dessiner(const DemandeDeDessin &demande)
{
    Dessin dessin(demande);
    if (!dessin.arbre)
        return false;
    EcritureFichier ecriture(demande.sortie);
    const auto echoue = [&] {
        Refuse(QStringLiteral("Impossible d'écrire dans le fichier %1: %2.").arg(demande.sortie, ecriture.Erreur()));
        return false;
    };
    const QString suffixe = Suffixe(demande.sortie);
    if (suffixe == u"png" && !TientDansUneImage(dessin))
        return false;
    if (!ecriture.Ouvre())
        return echoue();
    const Etape etape(QStringLiteral("dessin de ") + demande.sortie);
    const bool dessine = suffixe == u"pdf" ? DessinePdf(dessin, demande, ecriture.Appareil())
        : suffixe == u"png"                ? DessinePng(dessin, ecriture.Appareil())
                                           : DessineSvg(dessin, ecriture.Appareil());
    return (dessine && ecriture.Termine()) || echoue();
}
