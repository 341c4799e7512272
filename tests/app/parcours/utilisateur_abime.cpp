#include "utilisateur.h"

#include "arbre.h"
#include "arbres.h"
#include "arbview.h"
#include "dossier.h"
#include "fenetre.h"
#include "ficarbre.h"
#include "fichierrlg.h"
#include "ramelierdoc.h"
#include "ramelierview.h"

#include <QAbstractButton>
#include <QAction>
#include <QDir>
#include <QFileInfo>
#include <QLabel>
#include <QMenu>

// Files that no program wrote, older files cut off, and what a user may do with what was read of them.

namespace {

struct Abime
{
    QString nom;
    QByteArray octets;
    QString erreur;       ///< the end of what the reader says; empty: it says nothing
    bool charge = false;  ///< opens all the same
};

const QList<PersonneEcrite> martin{
    {1, "MARTIN", "Paul", "fiche.html"}, {2, "MARTIN", "Jean"}, {3, "LEFÈVRE"}, {4, "X"}};

QByteArray AncienEntier()
{
    FichierRlg fichier{.generations = 3, .page = {"Anciens", "Lidou"}};
    fichier.Ajoute({.numero = 1, .pere = 2, .mere = 3, .textes = {"MARTIN", "Paul", "1700"}});
    fichier.Ajoute({.numero = 2, .generation = 1, .pere = 4, .enfant = 1, .textes = {"MARTIN", "Jean"}});
    fichier.Ajoute({.numero = 3, .generation = 1, .enfant = 1, .textes = {"LEF\xC8VRE", "\xC9lise"}});
    fichier.Ajoute({.numero = 4, .generation = 2, .enfant = 2, .textes = {"MARTIN", "Louis"}});
    return fichier.Octets();
}

/// Numbers twice, nobody's child, no number, no name, a generation that is not.
QByteArray Embrouille()
{
    QByteArray octets = ArbreEcrit("Embrouille", {{1, "A"}, {3, "B"}, {3, "C"}, {11, "D"}, {40, ""}, {2, "E"}}, 7);
    octets.replace("<numerogeneration>3</numerogeneration>", "<numerogeneration>60000</numerogeneration>");
    octets.replace("<numero>40</numero>", "<numero>0</numero>");
    octets.replace("<enfant>1</enfant>", "<enfant>9</enfant>");
    return octets;
}

const QList<Abime> &Abimes()
{
    const QString syntaxe = "Erreur de syntaxe ligne ";
    static const QList<Abime> abimes{
        {"coupe.xrlg", ArbreEcrit("Coupé", martin).left(1100), syntaxe},
        {"vide.xrlg", "", syntaxe},
        {"texte.xrlg", "Ceci n'est pas un arbre.\n", syntaxe},
        {"autre.xrlg", "<?xml version=\"1.0\"?>\n<html><body/></html>\n", "Le fichier n'est pas un fichier XRLG."},
        {"version.xrlg", "<xrlg version=\"2.0\"/>", "Le fichier n'est pas un fichier XRLG version 1.0."},
        {"binaire.xrlg", QByteArray("\x00\xff\xfe<\x01>\x80", 7).repeated(50), syntaxe},
        {"fin.xrlg", ArbreEcrit("Fin", martin).replace("</arbre>\n</xrlg>", "</arbre>\n"), syntaxe},
        {"tete.rlg", AncienEntier().left(20), {}},
        {"vide.rlg", "", {}},
        {"marque.rlg", AncienEntier().left(44) + "\x7f\x7f\x7f", {}},
        {"moitie.rlg", AncienEntier().left(150), {}, true},
        {"embrouille.xrlg", Embrouille(), {}, true},
        {"personne.xrlg", ArbreEcrit("Personne", {}), {}, true},
        {"lisez.txt", "Un texte.\n", {}, true},
    };
    return abimes;
}

}  // namespace

QString Utilisateur::EcritUnAncien()
{
    return dossier.Ecrit("ancien.rlg", AncienEntier());
}

Utilisateur::Fichier Utilisateur::Ancien()
{
    Contenu contenu;
    contenu.page = {"Anciens", "Lidou", "", "", ""};
    contenu.personnes[1] = {"MARTIN", "Paul", "1700", "", "", "", "", "", ""};
    contenu.personnes[2] = {"MARTIN", "Jean", "", "", "", "", "", "", ""};
    contenu.personnes[3] = {"LEFÈVRE", "Élise", "", "", "", "", "", "", ""};
    contenu.personnes[4] = {"MARTIN", "Louis", "", "", "", "", "", "", ""};
    return {contenu, 0};
}

void Utilisateur::AttendRefus(const QString &chemin, const QString &erreur)
{
    if (!erreur.isEmpty())
        pilote.Attend<QMessageBox>([erreur](QMessageBox &boite) {
            const bool juste = boite.windowTitle() == "Arbre XRLG" && boite.text().contains(erreur)
                && boite.text().startsWith("Erreur de syntaxe ligne ");
            boite.buttons().constFirst()->click();
            return juste ? QString() : boite.text();
        });
    pilote.AttendBoite("Information", "Impossible de charger le fichier " + chemin, "OK");
}

void Utilisateur::OuvreUnFichierAbime()
{
    if (!PasseLaGarde())
        return Lance(fenetre->actFileOpen);
    const Abime &abime = tirage.Un(Abimes());
    const QString chemin = dossier.Ecrit(abime.nom, abime.octets);
    partie.Note(abime.nom);
    pilote.AttendFichier("Ouvrir", {}, chemin);
    if (!abime.charge)
        AttendRefus(chemin, abime.erreur);
    Lance(fenetre->actFileOpen);
    if (fenetre->fichierArbre != chemin)
        ecartDuGeste = QStringLiteral("fichier abîmé : ") + fenetre->fichierArbre;
    partie.NoteLeFait(abime.charge ? "fichier étrange ouvert" : "fichier abîmé refusé");
    CommenceLeDesordre(1 + tirage.Parmi(25));
}

void Utilisateur::LanceSurUnAbime()
{
    const Abime &abime = tirage.Un(Abimes());
    const QString chemin = dossier.Ecrit(abime.nom, abime.octets);
    if (!abime.charge)
        AttendRefus(chemin, abime.erreur);
    LanceAvec({chemin});
    partie.NoteLeFait("lancé sur un fichier abîmé");
    CommenceLeDesordre(1 + tirage.Parmi(10));
}

void Utilisateur::AssembleAvecUnAbime()
{
    if (!PasseLaGarde())
        return Lance(fenetre->actAssembleArbres);
    const QList<Abime> &abimes = Abimes();
    const Abime &abime = abimes.at(tirage.Parmi(10));
    const QString chemin = dossier.Ecrit(abime.nom, abime.octets);
    const bool pere = tirage.Chance(50);
    const QString autre = tirage.Un(fichiers.keys());
    pilote.AttendFichier("Fichier arbre du père", {}, pere ? chemin : autre);
    pilote.AttendFichier("Fichier arbre de la mère", {}, pere ? autre : chemin);
    AttendRefus(chemin, abime.erreur);
    modele.PerdLArbre();
    modele.dernierRep = QDir::homePath();
    partie.NoteLeFait(pere ? "père abîmé" : "mère abîmée");
    Lance(fenetre->actAssembleArbres);
}

void Utilisateur::CommenceLeDesordre(int evenements)
{
    desordre = evenements;
    suite.clear();
    QStringList chemins{dossier.Ecrit("famille-bis.ged", "0 @I1@ INDI\n1 NAME Seul /A/\n")};
    for (const Abime &abime : Abimes()) {
        if (abime.charge || tirage.Chance(30))
            chemins += dossier.Ecrit(abime.nom, abime.octets);
    }
    for (const QString &ecrit : improvisation.Ecrits()) {
        if (QFileInfo::exists(ecrit))
            chemins += ecrit;
    }
    improvisation.Choisit(chemins);
    pilote.Improvise([this](QDialog &dialogue) { return improvisation.Repond(dialogue); });
}

void Utilisateur::Improvise()
{
    if (--desordre == 0)
        return RevientAuModele();
    arbView *vue = fenetre->view->vue();
    const QPoint point(tirage.Parmi(qMax(1, qMin(vue->width(), 900))), tirage.Parmi(qMax(1, qMin(vue->height(), 900))));
    switch (tirage.Parmi(8)) {
    case 0:
    case 1:
        QTest::mouseClick(vue, Qt::LeftButton, {}, point);
        break;
    case 2:
        QTest::mouseClick(vue, Qt::LeftButton, {}, point);
        QTest::mouseDClick(vue, Qt::LeftButton, {}, point);
        break;
    case 3:
        QTest::mouseClick(vue, Qt::RightButton, {}, point);
        for (QMenu *menu : {fenetre->popupGeneral, fenetre->popupPersonne}) {
            if (menu->isVisible())
                QTest::keyClick(menu, Qt::Key_Escape);
        }
        break;
    default:
        // Somebody is selected more often than chance would have it.
        if (Arbre *arbre = fenetre->doc->arbre; arbre && arbre->premiere && tirage.Chance(40))
            QTest::mouseClick(
                vue, Qt::LeftButton, {},
                QPoint(static_cast<int>(arbre->premiere->x) + 5, static_cast<int>(arbre->premiere->y) + 5));
        const ActionNommee &action = tirage.Un(ActionsNommees());
        if (action.nom == "actFileQuit" || action.nom == "actWhatsThis")
            return;
        partie.Note(action.nom);
        (fenetre.get()->*action.membre)->trigger();
    }
    fiches.FermeLesInconnues();
    partie.NoteLeFait("improvisé");
}

void Utilisateur::RevientAuModele()
{
    const QString chemin = tirage.Un(fichiers.keys());
    improvisation.VaVers(chemin);
    fenetre->actFileOpen->trigger();
    improvisation.VaVers({});
    pilote.Improvise({});
    modele.Ouvre(chemin, fichiers[chemin].contenu, fichiers[chemin].compte);
    modele.modifAnnulee = fenetre->modifAnnulee;
    partie.NoteLeFait("revenu au modèle");
}

QString Utilisateur::VerifieSansModele()
{
    const Arbre *arbre = fenetre->doc->arbre;
    if (arbre && NumerosEnTexte(*arbre) == u"liste brisée")
        return QStringLiteral("liste brisée");
    if (!fenetre->windowTitle().startsWith("Ramelier 5.1"))
        return QStringLiteral("titre « %1 »").arg(fenetre->windowTitle());
    if (fenetre->labelMode->text() != (fenetre->modeConsultation ? " Consultation " : " Edition "))
        return QStringLiteral("mode « %1 »").arg(fenetre->labelMode->text());
    for (const QString &chemin : improvisation.Ecrits()) {
        Arbre lu;
        QString repertoire = QFileInfo(chemin).absolutePath();
        if (QFileInfo::exists(chemin) && LitFichierArbre(chemin, repertoire, &lu) != 0)
            return QStringLiteral("fichier improvisé illisible : ") + chemin;
    }
    return fiches.Ecart(*fenetre);
}
