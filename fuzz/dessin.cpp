#include "arbre.h"
#include "canevas.h"
#include "commun.h"
#include "disposition.h"
#include "dispositionprudente.h"
#include "dispositionrapide.h"
#include "entree.h"
#include "fichierrlg.h"
#include "ficoldrlg.h"
#include "ficxrlg.h"
#include "formatsdessins.h"
#include "infopersonne.h"
#include "lespolices.h"
#include "mesuresdisposition.h"
#include "pages.h"
#include "personne.h"

#include <QBuffer>
#include <QGuiApplication>
#include <QPainter>
#include <QPdfWriter>

#include <array>
#include <limits>

/// Some bytes are a presentation, the others a tree in one of the file formats, or numbers that one is made of: it is
/// placed, measured, painted in whole and in part, clicked at, put on pages, then changed.

namespace {

constexpr QSize feuille(160, 120);

struct Presentation
{
    explicit Presentation(Entree &entree)
        : sx(Echelle(entree))
        , sy(Echelle(entree))
    {
        for (int *longueur : {&formats.largeurCadre, &formats.hauteurCadre, &formats.distMinHoriz, &formats.distMinVert,
                              &formats.margeGenerale, &formats.margeDansCadre, &formats.intervCadrePhoto})
            *longueur = entree.Longueur();
        formats.epaisseurTraits = static_cast<float>(entree.Longueur() / 10.0);
        formats.rayonArc = static_cast<float>(entree.Longueur() / 10.0);
        formats.couleurTraits = Qt::black;
        for (QFont *police :
             {&polices.policeTextes, &polices.policeNumeros, &polices.policeTitre, &polices.policeLegende})
            *police = Police(entree);
        polices.couleurCaracteres = Qt::darkGreen;
        arbreOuvert = entree.Oui();
        origine = QPoint(-10 * entree.Octet(), -10 * entree.Octet());
        const QPoint coin(entree.Octet(), entree.Octet());
        partie = QRect(coin, QSize(1 + entree.Octet(), 1 + entree.Octet()));
        clic = QPoint(10 * entree.Octet(), 10 * entree.Octet());
    }

    /// Pixels per millimetre: those of screens and printers, and some more.
    static float Echelle(Entree &entree) { return static_cast<float>(0.25 + 0.2 * entree.Octet()); }

    /// Few sizes that are not absurd: to make the letters of a new one takes longer than to draw.
    static QFont Police(Entree &entree)
    {
        const int points = entree.Longueur();
        const int usuel = 4 + 3 * (points & 7);
        const bool gras = entree.Oui();
        return FaitPolice(QStringLiteral("Helvetica"), points < -20 || points > 200 ? points : usuel, gras ? 75 : 50,
                          gras);
    }

    FormatsDessins formats;
    LesPolices polices;
    float sx;
    float sy;
    bool arbreOuvert;
    QPoint origine;
    QRect partie;
    QPoint clic;
};

/// The bytes of a tree file whose persons are made of a few bytes each.
QByteArray FichierCompose(Entree &entree)
{
    FichierRlg fichier;
    fichier.generations = entree.Octet();
    fichier.page = {QByteArray("Titre").repeated(entree.Octet() % 4), "auteur"};
    constexpr int personnesMax = 64;  // enough for every shape: more would only take longer
    for (int i = 0; i < personnesMax && !entree.Reste().isEmpty(); ++i) {
        const quint64 numero = entree.Octet();
        const int forme = entree.Octet();
        FicheRlg fiche;
        fiche.numero = numero;
        fiche.generation = forme & 1 ? entree.Octet() : quint16(63 - qCountLeadingZeroBits(numero | 1));
        fiche.pere = forme & 2 ? 2 * numero : forme & 4 ? entree.Octet() : 0;
        fiche.mere = forme & 8 ? 2 * numero + 1 : forme & 16 ? entree.Octet() : 0;
        fiche.enfant = numero / 2;
        fiche.textes = {"NOM", QByteArray("Prenom ").repeated(forme >> 6)};
        if (forme & 32)
            fiche.textes.append({"1900", "Lyon", "", "", QByteArray("W").repeated(entree.Octet()), "", "p.png"});
        fichier.Ajoute(fiche);
    }
    return fichier.Octets();
}

void LitRlg(Arbre &arbre, QByteArrayView octets)
{
    QString repertoire = Dossier();
    QString v1 = enteteRlgV1;
    QString v3 = enteteRlgV3;
    int type = 0;
    Exige(readFicOldRLG(Pose(QStringLiteral("lu.rlg"), octets), repertoire, &arbre, v1, v3, type) != 1,
          "le fichier s'ouvre");
}

void Lit(Arbre &arbre, Entree &entree)
{
    QString repertoire = Dossier();
    switch (entree.Octet() % 3) {
    case 0:
        Exige(readFicXRLG(Pose(QStringLiteral("lu.xrlg"), entree.Reste()), repertoire, &arbre) != 1,
              "le fichier s'ouvre");
        break;
    case 1:
        LitRlg(arbre, entree.Reste());
        break;
    default:
        LitRlg(arbre, FichierCompose(entree));
    }
}

/// On one of three sheets that serve every time: new ones would take longer than to draw.
const QImage &Peint(int rang, Arbre &arbre, const Presentation &p, const Canevas &canevas, QRect zone = QRect())
{
    static std::array<QImage, 3> feuilles{QImage(feuille, QImage::Format_RGB32), QImage(feuille, QImage::Format_RGB32),
                                          QImage(feuille, QImage::Format_RGB32)};
    QImage &image = feuilles.at(std::size_t(rang));
    image.fill(Qt::white);
    QPainter peintre(&image);
    if (!zone.isNull())
        peintre.setClipRect(zone);
    peintre.translate(p.origine);
    arbre.Affiche(&peintre, p.sx, p.sy, false, p.formats, p.polices, p.arbreOuvert);
    DessineTitre(peintre, *arbre.infoArbre, canevas, p.polices);
    return image;
}

/// True when \a partie is \a tout within \a zone, and white outside. The toolkit rounds edges and ends of lines otherwise
/// where it clips: so many pixels of a line, the selection mark's included, may differ.
bool EstDecoupe(const QImage &partie, const QImage &tout, QRect zone, int pixelsDeTraits)
{
    constexpr QRgb blanc = 0xffffffff;
    const auto estUnTrait = [](QRgb couleur) { return couleur == 0xff000000 || couleur == 0xff0000ff; };
    for (int y = 0; y < feuille.height(); ++y) {
        const auto *dePartie = reinterpret_cast<const QRgb *>(partie.constScanLine(y));
        const auto *deTout = reinterpret_cast<const QRgb *>(tout.constScanLine(y));
        for (int x = 0; x < feuille.width(); ++x) {
            const QRgb attendu = zone.contains(x, y) ? deTout[x] : blanc;
            if (dePartie[x] != attendu && ((!estUnTrait(dePartie[x]) && !estUnTrait(attendu)) || --pixelsDeTraits < 0))
                return false;
        }
    }
    return true;
}

QList<std::pair<long, long>> Places(const Arbre &arbre)
{
    QList<std::pair<long, long>> places;
    for (const Personne *p = arbre.premiere; p; p = p->suivante)
        places.append({p->x, p->y});
    return places;
}

/// Places everybody. A small well-formed tree is placed alike by the slow way, the fast one and the one by eight.
void Dispose(Arbre &arbre, const Presentation &p)
{
    constexpr quint64 assezPetit = 30;  // beyond, the slow way may give up before it is done
    const MesuresDisposition mesures(p.formats, p.sx, p.sy);
    DispositionRapide rapide(arbre, mesures);
    const quint64 nombre = VerifieListe(arbre);
    const bool seCompare = nombre > 1 && nombre <= assezPetit && rapide.EstBienFormee();
    if (seCompare)
        DispositionPrudente(arbre, mesures).Execute();
    const auto prudente = Places(arbre);
    if (seCompare)
        rapide.Execute(0);
    const auto parHuit = Places(arbre);
    DisposeArbre(arbre, p.formats, p.sx, p.sy);
    Exige(EstDispose(arbre, p.formats, p.sx, p.sy), "l'arbre est disposé");
    Exige(!seCompare || (Places(arbre) == prudente && parHuit == prudente), "chacun a la même place de toute façon");
}

Canevas Mesure(const Arbre &arbre, const Presentation &p)
{
    QImage image(1, 1, QImage::Format_RGB32);
    QPainter peintre(&image);
    Canevas canevas;
    CalculeCanevas(canevas, peintre, arbre, p.formats, p.polices, p.sx, p.sy);
    Exige(canevas.canevasCalcule, "le canevas est calculé");
    return canevas;
}

void PeintPartout(Arbre &arbre, const Presentation &p, const Canevas &canevas, bool absurde)
{
    const QImage &partieDAbord = Peint(0, arbre, p, canevas, p.partie);
    const QImage &tout = Peint(1, arbre, p, canevas);
    const QImage &partieEnsuite = Peint(2, arbre, p, canevas, p.partie);
    Exige(partieEnsuite == partieDAbord, "une partie se peint toujours de même");
    if (absurde)
        return;
    const int epaisseur = p.formats.EpaisseurPx(p.sx);
    Exige(EstDecoupe(partieDAbord, tout, p.partie, 64 + 8 * epaisseur * epaisseur),
          "une partie se peint comme dans le tout");
}

const Personne *ToucheeNaivement(const Arbre &arbre, const Presentation &p)
{
    const Personne *touchee = arbre.premiere;
    while (touchee && !touchee->EstClique(p.clic.x(), p.clic.y(), p.sx, p.sy, p.formats))
        touchee = touchee->suivante;
    return touchee;
}

void Clique(Arbre &arbre, const Presentation &p)
{
    const Personne *attendue = ToucheeNaivement(arbre, p);
    const bool change = arbre.DeselectSelect(p.clic.x(), p.clic.y(), p.sx, p.sy, p.formats);
    Exige(arbre.selection == attendue, "un clic choisit la première personne touchée");
    Exige(change == (attendue != nullptr), "un clic dit s'il change le choix");
    Exige(!attendue || attendue->selectionnee, "qui est choisi le sait");
}

/// The first pages, as a printer gets them.
void MetSurPages(Arbre &arbre, const Presentation &p, const Canevas &canevas)
{
    QBuffer sortie;
    sortie.open(QIODevice::WriteOnly);
    QPdfWriter pdf(&sortie);
    pdf.setResolution(72);
    const QSize page(pdf.width(), pdf.height());
    auto grille = GrilleDePages::Pour(canevas.largeurCanevas, canevas.hauteurCanevas, page);
    grille.colonnes = qMin(grille.colonnes, 1L);
    grille.lignes = qMin(grille.lignes, 2L);
    QPainter peintre(&pdf);
    Exige(DessineSurPages(pdf, peintre, grille, page,
                          [&](QPainter &surPage) {
                              arbre.Affiche(&surPage, p.sx, p.sy, true, p.formats, p.polices, p.arbreOuvert);
                              DessineTitre(surPage, *arbre.infoArbre, canevas, p.polices);
                          }),
          "chaque page commence");
}

enum class Modification { Aucune, Pere, Mere, Suppression };

/// What the user may do to the person that was clicked at.
void Modifie(Arbre &arbre, Modification modification)
{
    Personne *choisie = arbre.selection;
    const quint64 nombre = VerifieListe(arbre);
    const bool seSupprime = choisie != arbre.premiere;
    const bool estPere = modification == Modification::Pere;
    if (modification == Modification::Suppression) {
        arbre.SupprimePersonne();
        Exige(VerifieListe(arbre) == nombre - (seSupprime ? 1 : 0), "une personne de moins");
    } else if (!(estPere ? choisie->ptrPere : choisie->ptrMere)
               && choisie->numero <= (std::numeric_limits<quint64>::max() - 1) / 2) {
        const Personne *ajoutee = arbre.AjoutePersonne(choisie, estPere);
        Exige(ajoutee->numero == 2 * choisie->numero + (estPere ? 0 : 1), "un parent a son numéro");
        Exige(VerifieListe(arbre) == nombre + 1, "une personne de plus");
    }
}

}  // namespace

int LLVMFuzzerInitialize(int * /*argc*/, char *** /*argv*/)
{
    Demarre<QGuiApplication>();
    QImage photo(30, 20, QImage::Format_RGB32);
    photo.fill(Qt::red);
    Exige(photo.save(Dossier() + QStringLiteral("/p.png")), "une photo s'écrit");
    return 0;
}

int LLVMFuzzerTestOneInput(const std::uint8_t *octets, std::size_t taille)
{
    Entree entree(Vue(octets, taille));
    const int choix = entree.Octet();
    const bool surPages = choix % 8 == 7;
    const auto modification = static_cast<Modification>(choix / 8 % 4);
    const Presentation presentation(entree);
    const bool absurde = entree.EutDeLAbsurde();
    Arbre arbre;
    Lit(arbre, entree);
    VerifieArbre(arbre);
    Dispose(arbre, presentation);
    const Canevas canevas = Mesure(arbre, presentation);
    PeintPartout(arbre, presentation, canevas, absurde);
    Clique(arbre, presentation);
    if (surPages)
        MetSurPages(arbre, presentation, canevas);
    if (arbre.selection && modification != Modification::Aucune) {
        Modifie(arbre, modification);
        Dispose(arbre, presentation);
    }
    PeintPartout(arbre, presentation, canevas, absurde);
    return 0;
}
