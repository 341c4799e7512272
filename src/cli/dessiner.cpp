#include "dessiner.h"

#include "arbre.h"
#include "canevas.h"
#include "disposition.h"
#include "ecriture.h"
#include "ficarbre.h"
#include "ficoptions.h"
#include "formatsdessins.h"
#include "interlocuteur.h"
#include "lespolices.h"
#include "pages.h"
#include "unites.h"

#include <QFileInfo>
#include <QImage>
#include <QPainter>
#include <QPdfWriter>
#include <QSvgGenerator>

namespace {

constexpr int pointsParPouce = 96;

void Refuse(const QString &texte)
{
    Interlocuteur::Courant().Avertissement(QStringLiteral("Dessin"), texte);
}

QString Suffixe(const QString &sortie)
{
    return QFileInfo(sortie).suffix().toLower();
}

/// A tree with all that its drawing needs.
struct Dessin
{
    Arbre arbre;
    FormatsDessins formats;
    LesPolices polices;
    Canevas canevas;
    float echelle = EchelleDeResolution(pointsParPouce);

    [[nodiscard]] bool Lit(const QString &fichierArbre)
    {
        if (!QFileInfo(fichierArbre).isFile()) {
            Refuse(QStringLiteral("Le fichier ") + fichierArbre + QStringLiteral(" n'existe pas"));
            return false;
        }
        QString repertoire = QFileInfo(fichierArbre).absolutePath();
        if (LitFichierArbre(fichierArbre, repertoire, &arbre) != 0) {
            Refuse(QStringLiteral("Impossible de charger le fichier ") + fichierArbre);
            return false;
        }
        if (!LitOptions(CheminDesOptions(fichierArbre), &formats, &polices))
            LitPreferences(CheminDesPreferences(), &formats, &polices);
        DisposeArbre(arbre, formats, echelle, echelle);
        return true;
    }

    void Mesure(QPainter &peintre) { CalculeCanevas(canevas, peintre, arbre, formats, polices, echelle, echelle); }

    /// The size of the drawing, measured for a picture.
    [[nodiscard]] QSize TailleDImage()
    {
        QImage essai(1, 1, QImage::Format_ARGB32_Premultiplied);
        QPainter peintre(&essai);
        Mesure(peintre);
        return {Coordonnee(MaxLI(canevas.largeurCanevas, 1)), Coordonnee(MaxLI(canevas.hauteurCanevas, 1))};
    }

    void Peint(QPainter &peintre)
    {
        arbre.Affiche(&peintre, echelle, echelle, true, formats, polices, true);
        DessineTitre(peintre, *arbre.infoArbre, canevas, polices);
    }
};

bool DessinePdf(Dessin &dessin, QIODevice &sortie)
{
    QPdfWriter pdf(&sortie);
    // The page of a printer that nobody has set up: A4 with margins of ten points.
    pdf.setPageLayout(
        QPageLayout(QPageSize(QPageSize::A4), QPageLayout::Portrait, QMarginsF(10, 10, 10, 10), QPageLayout::Point));
    pdf.setResolution(pointsParPouce);
    pdf.setTitle(dessin.arbre.infoArbre->titrearbre);
    pdf.setCreator(QStringLiteral("Ramelier"));
    QPainter peintre;
    if (!peintre.begin(&pdf))
        return false;
    dessin.Mesure(peintre);
    const QSize page(pdf.width(), pdf.height());
    const auto grille = GrilleDePages::Pour(dessin.canevas.largeurCanevas, dessin.canevas.hauteurCanevas, page);
    const bool complet =
        DessineSurPages(pdf, peintre, grille, page, [&dessin](QPainter &surPage) { dessin.Peint(surPage); });
    return peintre.end() && complet;
}

bool TientDansUneImage(Dessin &dessin)
{
    // Beyond this side Qt's painter draws no more.
    constexpr int coteMax = 32767;
    const QSize taille = dessin.TailleDImage();
    if (taille.width() <= coteMax && taille.height() <= coteMax)
        return true;
    Refuse(QStringLiteral("L'arbre est trop grand pour une image (%1 x %2 points) : choisissez un fichier .pdf")
               .arg(taille.width())
               .arg(taille.height()));
    return false;
}

bool DessinePng(Dessin &dessin, QIODevice &sortie)
{
    QImage image(dessin.TailleDImage(), QImage::Format_RGB32);
    if (image.isNull())
        return false;
    image.fill(Qt::white);
    QPainter peintre(&image);
    peintre.setRenderHint(QPainter::Antialiasing);
    dessin.Peint(peintre);
    peintre.end();
    return image.save(&sortie, "PNG");
}

bool DessineSvg(Dessin &dessin, QIODevice &sortie)
{
    const QSize taille = dessin.TailleDImage();
    QSvgGenerator svg;
    svg.setOutputDevice(&sortie);
    svg.setResolution(pointsParPouce);
    svg.setSize(taille);
    svg.setViewBox(QRect(QPoint(0, 0), taille));
    svg.setTitle(dessin.arbre.infoArbre->titrearbre);
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

bool Dessiner(const QString &fichierArbre, const QString &sortie)
{
    Dessin dessin;
    if (!dessin.Lit(fichierArbre))
        return false;
    EcritureFichier ecriture(sortie);
    const auto echoue = [&] {
        Refuse(QStringLiteral("Impossible d'écrire dans le fichier %1: %2.").arg(sortie, ecriture.Erreur()));
        return false;
    };
    const QString suffixe = Suffixe(sortie);
    if (suffixe == u"png" && !TientDansUneImage(dessin))
        return false;
    if (!ecriture.Ouvre())
        return echoue();
    const bool dessine = suffixe == u"pdf" ? DessinePdf(dessin, ecriture.Appareil())
        : suffixe == u"png"                ? DessinePng(dessin, ecriture.Appareil())
                                           : DessineSvg(dessin, ecriture.Appareil());
    return (dessine && ecriture.Termine()) || echoue();
}

Sortie ExecuteDessiner(const QStringList &mots)
{
    Analyseur analyseur(commandeDessiner);
    if (const auto fin = analyseur.Lit(mots))
        return *fin;
    const QStringList fichiers = analyseur.Fichiers();
    if (!FormatDeDessinConnu(fichiers.at(1)))
        return analyseur.Refuse(QStringLiteral("le fichier à dessiner doit se terminer par .pdf, .png ou .svg : ")
                                + fichiers.at(1));
    return Dessiner(fichiers.at(0), fichiers.at(1)) ? Sortie::Fait : Sortie::NonFait;
}
