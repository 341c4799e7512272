#include "arbre.h"
#include "documentouvert.h"
#include "mesure.h"
#include "pages.h"
#include "unites.h"

#include <QFileInfo>
#include <QPainter>
#include <QPdfWriter>
#include <QTemporaryDir>

namespace {

constexpr int pointsParPouce = 96;
constexpr Forme forme = Forme::Complete;

/// A PDF file of A4 pages at the resolution of a screen, as the program prints.
class FichierPdf
{
public:
    FichierPdf()
        : nom(dossier.filePath(QStringLiteral("a.pdf")))
        , pdf(nom)
    {
        pdf.setPageSize(QPageSize(QPageSize::A4));
        pdf.setResolution(pointsParPouce);
        peintre.begin(&pdf);
    }

    [[nodiscard]] QSize Page() const { return {pdf.width(), pdf.height()}; }

    /// Writes the file to its end; its bytes.
    qint64 Termine()
    {
        peintre.end();
        return QFileInfo(nom).size();
    }

    QTemporaryDir dossier;
    QString nom;
    QPdfWriter pdf;
    QPainter peintre;
};

void Affiche(RamelierDoc &doc, QPainter &peintre, float echelle)
{
    doc.arbre->Affiche(&peintre, echelle, echelle, true, doc.formats, doc.polices, true);
    doc.AfficheTitre(&peintre, echelle, echelle);
}

void CompteOctets(benchmark::State &etat, qint64 octets, int personnes)
{
    etat.counters["o/pers."] = double(octets) / personnes;
}

GrilleDePages Mesure(RamelierDoc &doc, FichierPdf &fichier, float echelle)
{
    doc.PositionneLesPersonnes(echelle, echelle);
    doc.CalcTailleCanevas(&fichier.peintre, echelle, echelle);
    return GrilleDePages::Pour(doc.largeurCanevas, doc.hauteurCanevas, fichier.Page());
}

void Imprime(benchmark::State &etat, int personnes)
{
    RamelierDoc &doc = DocumentDe(forme, personnes).doc;
    const float echelle = EchelleDeResolution(pointsParPouce);
    for (auto _ : etat) {
        FichierPdf fichier;
        const GrilleDePages grille = Mesure(doc, fichier, echelle);
        if (!DessineSurPages(fichier.pdf, fichier.peintre, grille, fichier.Page(),
                             [&](QPainter &peintre) { Affiche(doc, peintre, echelle); }))
            etat.SkipWithError("page");
        CompteOctets(etat, fichier.Termine(), personnes);
        etat.SetLabel(std::to_string(grille.colonnes * grille.lignes) + " pages");
    }
}

/// Everybody once on one page, then as many empty pages as the chart needs.
void PeintUneFois(benchmark::State &etat, int personnes)
{
    RamelierDoc &doc = DocumentDe(forme, personnes).doc;
    const float echelle = EchelleDeResolution(pointsParPouce);
    for (auto _ : etat) {
        etat.PauseTiming();
        FichierPdf unePage;
        FichierPdf pagesVides;
        const GrilleDePages grille = Mesure(doc, unePage, echelle);
        etat.ResumeTiming();
        Affiche(doc, unePage.peintre, echelle);
        CompteOctets(etat, unePage.Termine(), personnes);
        for (long page = 1; page < grille.colonnes * grille.lignes; ++page)
            pagesVides.pdf.newPage();
        pagesVides.Termine();
    }
}

}  // namespace

void EnregistreImpression(int plusGrand)
{
    constexpr int assezDePages = 10000;
    for (int personnes = 1000; personnes <= std::min(plusGrand, assezDePages); personnes *= 10)
        EnregistreMesure(
            {"impression sur des pages A4", 2, personnes}, [=](benchmark::State &etat) { Imprime(etat, personnes); },
            [=](benchmark::State &etat) { PeintUneFois(etat, personnes); });
}
