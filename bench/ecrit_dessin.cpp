#include "arbre.h"
#include "canevas.h"
#include "dessinecrit.h"
#include "disposition.h"
#include "ficxrlg.h"
#include "formatsdessins.h"
#include "infopersonne.h"
#include "lespolices.h"
#include "pages.h"
#include "papier.h"
#include "personne.h"
#include "unites.h"

#include <QFile>
#include <QFileInfo>
#include <QGuiApplication>
#include <QPainter>
#include <QPdfWriter>
#include <QTextLayout>

#include <algorithm>
#include <cstdlib>

namespace {

/// Takes a chart to pieces, each on all the pages where it shows.
class Decoupe
{
public:
    Decoupe(Arbre &unArbre, const QString &essai)
        : arbre(unArbre)
        , pdf(essai)
    {
        PoseLePapier(pdf);
        peintre.begin(&pdf);
        dessin.polices = {polices.policeNumeros, FaitPolice(defNomPol, 8, 75), FaitPolice(defNomPol, 8, 50)};
        dessin.rayon = formats.RayonPx(echelle);
        dessin.epaisseur = formats.EpaisseurPx(echelle);
        dessin.rondeur = int(2 * formats.rayonArc * echelle);
        DisposeArbre(arbre, formats, echelle, echelle);
        Canevas canevas;
        CalculeCanevas(canevas, peintre, arbre, formats, polices, echelle, echelle);
        grille = GrilleDePages::Pour(canevas.largeurCanevas, canevas.hauteurCanevas, {pdf.width(), pdf.height()});
        dessin.pages.resize(grille.colonnes * grille.lignes);
    }

    const DessinEcrit &Tout()
    {
        for (const Personne *personne = arbre.premiere; personne; personne = personne->suivante) {
            EcritPersonne(*personne);
            if (personne->ptrPere && personne->ptrMere)
                EcritLien(*personne);
        }
        for (PageEcrite &page : dessin.pages)
            std::stable_sort(page.lignes.begin(), page.lignes.end(),
                             [](const LigneDeTexte &a, const LigneDeTexte &b) { return a.police < b.police; });
        return dessin;
    }

private:
    /// Calls \a ajoute with each page where \a zone shows, and with its corner.
    void SurSesPages(const QRect &zone, const auto &ajoute)
    {
        const int pasX = pdf.width() - GrilleDePages::recouvrement;
        const int pasY = pdf.height() - GrilleDePages::recouvrement;
        const long premiereColonne = std::max(0, (zone.left() - GrilleDePages::recouvrement) / pasX);
        const long premiereLigne = std::max(0, (zone.top() - GrilleDePages::recouvrement) / pasY);
        for (long c = premiereColonne; c < grille.colonnes && c * pasX <= zone.right(); ++c) {
            for (long l = premiereLigne; l < grille.lignes && l * pasY <= zone.bottom(); ++l)
                ajoute(dessin.pages[c * grille.lignes + l], QPoint(int(c) * pasX, int(l) * pasY));
        }
    }

    void EcritPersonne(const Personne &personne)
    {
        const QRect cadre(int(personne.x), int(personne.y), largeur, hauteur);
        QList<LigneDeTexte> lignes;
        int haut = cadre.top();
        const auto ecrit = [&](PoliceDuDessin police, const QString &texte) {
            if (!texte.isEmpty())
                haut = AjouteLignes(lignes, police, texte, cadre, haut);
        };
        const InfoPersonne &info = *personne.info;
        ecrit(PoliceNumero, QString::number(personne.numero));
        ecrit(PoliceNom, info.prenom + u' ' + info.nom);
        ecrit(PoliceTextes, QStringLiteral("° ") + info.datenaissance);
        ecrit(PoliceTextes, QStringLiteral("à ") + info.lieunaissance);
        ecrit(PoliceTextes, QStringLiteral("+ ") + info.datedeces);
        SurSesPages(cadre, [&](PageEcrite &page, QPoint coin) {
            page.cadres += cadre.translated(-coin);
            for (LigneDeTexte ligne : lignes) {
                ligne.place -= coin;
                page.lignes += ligne;
            }
        });
    }

    /// Breaks \a texte into lines that fit the box, each centred in it; the height below them.
    int AjouteLignes(QList<LigneDeTexte> &lignes, PoliceDuDessin police, const QString &texte, const QRect &cadre,
                     int haut)
    {
        const int marge = int(Px(formats.margeDansCadre, echelle));
        QTextLayout mise(texte, dessin.polices.at(police), &pdf);
        mise.beginLayout();
        for (QTextLine ligne = mise.createLine(); ligne.isValid(); ligne = mise.createLine()) {
            ligne.setLineWidth(largeur - 2 * marge);
            const double gauche = cadre.left() + (largeur - ligne.naturalTextWidth()) / 2;
            lignes +=
                {police, {gauche, haut + ligne.ascent()}, texte.mid(ligne.textStart(), ligne.textLength()).trimmed()};
            haut += int(ligne.height());
        }
        mise.endLayout();
        return haut;
    }

    void EcritLien(const Personne &enfant)
    {
        const int demi = largeur / 2;
        Lien lien{.pere = int(enfant.ptrPere->x) + demi,
                  .mere = int(enfant.ptrMere->x) + demi,
                  .enfant = int(enfant.x) + demi,
                  .bas = int(enfant.ptrPere->y) + hauteur,
                  .milieu = 0,
                  .haut = int(enfant.y)};
        lien.milieu = (lien.bas + lien.haut) / 2;
        SurSesPages(QRect(QPoint(lien.pere, lien.bas), QPoint(lien.mere, lien.haut)),
                    [lien](PageEcrite &page, QPoint coin) {
                        page.liens += {.pere = lien.pere - coin.x(),
                                       .mere = lien.mere - coin.x(),
                                       .enfant = lien.enfant - coin.x(),
                                       .bas = lien.bas - coin.y(),
                                       .milieu = lien.milieu - coin.y(),
                                       .haut = lien.haut - coin.y()};
                    });
    }

    Arbre &arbre;
    FormatsDessins formats = FormatsDessins::ParDefaut();
    LesPolices polices = LesPolices::ParDefaut();
    float echelle = EchelleDeResolution(96);
    int largeur = int(Px(formats.largeurCadre, echelle));
    int hauteur = int(Px(formats.hauteurCadre, echelle));
    QPdfWriter pdf;
    QPainter peintre;
    GrilleDePages grille;
    DessinEcrit dessin;
};

}  // namespace

/// ecrit_dessin FICHIER.xrlg DESSIN: the chart of the tree for plancher_pdf.
int main(int argc, char **argv)
{
    qputenv("QT_QPA_PLATFORM", "offscreen");
    const QGuiApplication application(argc, argv);
    if (argc != 3)
        return EXIT_FAILURE;
    const QString nom = QString::fromLocal8Bit(argv[1]);
    QString dossier = QFileInfo(nom).absolutePath();
    Arbre arbre;
    if (readFicXRLG(nom, dossier, &arbre) != 0)
        return EXIT_FAILURE;
    QFile fichier(QString::fromLocal8Bit(argv[2]));
    if (!fichier.open(QIODevice::WriteOnly))
        return EXIT_FAILURE;
    QDataStream flux(&fichier);
    Decoupe decoupe(arbre, fichier.fileName() + QStringLiteral(".pdf"));
    flux << decoupe.Tout();
    return flux.status() == QDataStream::Ok ? EXIT_SUCCESS : EXIT_FAILURE;
}
