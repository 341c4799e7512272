#include "arbre.h"
#include "documentouvert.h"
#include "mesure.h"
#include "personne.h"
#include "unites.h"

#include <QImage>
#include <QPainter>

#include <limits>
#include <vector>

namespace {

constexpr QSize taillePartie(1000, 700);
constexpr int boitesMontrees = 14;

QRect PartieAutour(const Personne &personne)
{
    return {QPoint(Coordonnee(personne.x), Coordonnee(personne.y))
                - QPoint(taillePartie.width() / 2, taillePartie.height() / 2),
            taillePartie};
}

int BoitesDans(const QRect &partie, const DocumentOuvert &ouvert)
{
    const QSize boite(Coordonnee(Px(ouvert.doc.formats.largeurCadre, ouvert.echelle)),
                      Coordonnee(Px(ouvert.doc.formats.hauteurCadre, ouvert.echelle)));
    int boites = 0;
    for (const Personne *personne = ouvert.doc.arbre->premiere; personne; personne = personne->suivante) {
        if (partie.intersects(QRect(QPoint(Coordonnee(personne->x), Coordonnee(personne->y)), boite)))
            ++boites;
    }
    return boites;
}

/// The third generation from the top, from its middle person outwards.
std::vector<const Personne *> TroisiemeRangee(const Arbre &arbre)
{
    std::vector<const Personne *> rangee;
    for (const Personne *personne = arbre.premiere; personne; personne = personne->suivante) {
        if (personne->numerogeneration + 3 == arbre.nombreGenerations)
            rangee.push_back(personne);
    }
    std::vector<const Personne *> duMilieu;
    for (std::size_t i = 0; i < rangee.size(); ++i) {
        const std::size_t ecart = (i + 1) / 2;
        duMilieu.push_back(rangee[i % 2 == 0 ? rangee.size() / 2 + ecart : rangee.size() / 2 - ecart]);
    }
    return duMilieu;
}

/// A part of the drawing around somebody in the middle of the third row, as full in every tree: the first one with
/// boitesMontrees boxes, or the one that comes nearest.
QRect PartieMontree(const DocumentOuvert &ouvert)
{
    constexpr std::size_t essaisAuPlus = 60;
    QRect meilleure;
    int ecartDeLaMeilleure = std::numeric_limits<int>::max();
    auto candidates = TroisiemeRangee(*ouvert.doc.arbre);
    candidates.resize(std::min(candidates.size(), essaisAuPlus));
    for (const Personne *candidate : candidates) {
        const QRect partie = PartieAutour(*candidate);
        const int ecart = std::abs(BoitesDans(partie, ouvert) - boitesMontrees);
        if (ecart < ecartDeLaMeilleure) {
            ecartDeLaMeilleure = ecart;
            meilleure = partie;
        }
        if (ecart == 0)
            break;
    }
    return meilleure;
}

/// As the view does it.
void Peint(QImage &image, const QRect &partie, DocumentOuvert &ouvert)
{
    image.fill(Qt::white);
    QPainter peintre(&image);
    peintre.translate(-partie.topLeft());
    peintre.setClipRect(partie);
    ouvert.doc.arbre->Affiche(&peintre, ouvert.echelle, ouvert.echelle, false, ouvert.doc.formats, ouvert.doc.polices,
                              true);
}

void Repeint(benchmark::State &etat, Forme forme, int personnes)
{
    DocumentOuvert &ouvert = DocumentDe(forme, personnes);
    const QRect partie = PartieMontree(ouvert);
    etat.SetLabel(std::to_string(BoitesDans(partie, ouvert)) + " boxes");
    QImage image(taillePartie, QImage::Format_RGB32);
    Peint(image, partie, ouvert);  // fonts are loaded only once
    for (auto _ : etat)
        Peint(image, partie, ouvert);
}

void Enregistre(const char *nom, Forme forme, int personnes)
{
    EnregistreMesure(
        {nom, 1.5, personnes}, [=](benchmark::State &etat) { Repeint(etat, forme, personnes); },
        [=](benchmark::State &etat) { Repeint(etat, forme, 1000); });
}

}  // namespace

void EnregistreDessin(int plusGrand)
{
    for (int personnes = 1000; personnes <= plusGrand; personnes *= 10) {
        Enregistre("dessin d'un écran, arbre complet", Forme::Complete, personnes);
        Enregistre("dessin d'un écran, trois parents sur quatre", Forme::ParGeneration, personnes);
    }
}
