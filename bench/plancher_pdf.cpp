#include "dessinecrit.h"
#include "papier.h"

#include <QFile>
#include <QGuiApplication>
#include <QPainter>
#include <QPainterPath>
#include <QPdfWriter>

#include <cstdlib>

namespace {

void TraceLien(QPainter &peintre, const Lien &lien, int rayon)
{
    const int cote = 2 * rayon;
    QPainterPath trait(QPointF(lien.pere, lien.bas));
    trait.arcTo(lien.pere, lien.milieu - cote, cote, cote, 180, 90);
    trait.arcTo(lien.enfant - cote, lien.milieu, cote, cote, 90, -90);
    trait.lineTo(lien.enfant, lien.haut);
    trait.moveTo(lien.enfant, lien.milieu + rayon);
    trait.arcTo(lien.enfant, lien.milieu, cote, cote, 180, -90);
    trait.arcTo(lien.mere - cote, lien.milieu - cote, cote, cote, 270, 90);
    trait.lineTo(lien.mere, lien.bas);
    peintre.drawPath(trait);
}

void DessinePage(QPainter &peintre, const PageEcrite &page, const DessinEcrit &dessin)
{
    peintre.setPen(QPen(Qt::black, dessin.epaisseur));
    for (const QRect &cadre : page.cadres)
        peintre.drawRoundedRect(cadre, dessin.rondeur, dessin.rondeur, Qt::RelativeSize);
    for (const Lien &lien : page.liens)
        TraceLien(peintre, lien, dessin.rayon);
    // The lines stand together by font.
    int police = -1;
    for (const LigneDeTexte &ligne : page.lignes) {
        if (ligne.police != police) {
            police = ligne.police;
            peintre.setFont(dessin.polices.at(police));
        }
        peintre.drawText(ligne.place, ligne.texte);
    }
}

}  // namespace

/// plancher_pdf DESSIN SORTIE.pdf: the least that a PDF of this chart costs with Qt.
int main(int argc, char **argv)
{
    qputenv("QT_QPA_PLATFORM", "offscreen");
    const QGuiApplication application(argc, argv);
    if (argc != 3)
        return EXIT_FAILURE;
    QFile fichier(QString::fromLocal8Bit(argv[1]));
    if (!fichier.open(QIODevice::ReadOnly))
        return EXIT_FAILURE;
    DessinEcrit dessin;
    QDataStream flux(&fichier);
    flux >> dessin;
    QPdfWriter pdf(QString::fromLocal8Bit(argv[2]));
    PoseLePapier(pdf);
    QPainter peintre(&pdf);
    bool premiere = true;
    for (const PageEcrite &page : dessin.pages) {
        if (!premiere)
            pdf.newPage();
        premiere = false;
        DessinePage(peintre, page, dessin);
    }
    return peintre.end() ? EXIT_SUCCESS : EXIT_FAILURE;
}
