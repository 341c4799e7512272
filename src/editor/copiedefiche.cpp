#include "copiedefiche.h"

#include "ecriture.h"
#include "lytextedit.h"
#include "masquedroits.h"
#include "monqtextedit.h"
#include "placedesecours.h"

#include <QTextDocument>

#include <cstdio>
#include <utility>

CopieDeFiche::CopieDeFiche(LyTextEdit &unEditeur, int unIntervalle)
    : editeur(unEditeur)
{
    ecriture.setSingleShot(true);
    ecriture.setInterval(unIntervalle);
    connect(&ecriture, &QTimer::timeout, this, &CopieDeFiche::EcritOuSePlaint);
    connect(editeur.texte->document(), &QTextDocument::contentsChanged, this, &CopieDeFiche::TexteChange);
}

CopieDeFiche::~CopieDeFiche() = default;

void CopieDeFiche::TexteChange()
{
    gardee = false;
    if (!ecriture.isActive())
        ecriture.start();
}

void CopieDeFiche::Regarde()
{
    if (!editeur.texte->document()->isModified())
        Retire();
}

bool CopieDeFiche::Ecrit()
{
    const MasqueDroits pourNousSeuls(077);
    if (!place)
        place = PlaceDeSecours::Prend(editeur.fichierCourant);
    if (!place)
        return false;
    const QString voulu = place->Fiche(editeur.modeHtml);
    EcritureFichier copie(voulu);
    if (!copie.Ouvre())
        return false;
    copie.Appareil().write(editeur.OctetsAEnregistrer());
    if (!copie.Termine())
        return false;
    const QString avant = std::exchange(chemin, voulu);
    if (!avant.isEmpty() && avant != voulu)
        QFile::remove(avant);
    return true;
}

void CopieDeFiche::EcritOuSePlaint()
{
    if (!editeur.texte->document()->isModified())
        Retire();
    else if (!Ecrit() && !std::exchange(plainte, true))
        std::fputs("La copie de secours de la fiche n'a pas pu être écrite.\n", stderr);
}

void CopieDeFiche::EcritEtGarde()
{
    if (!editeur.texte->document()->isModified())
        return;
    ecriture.stop();
    EcritOuSePlaint();
    gardee = true;
}

void CopieDeFiche::Ferme()
{
    if (!gardee)
        Retire();
}

void CopieDeFiche::Retire()
{
    ecriture.stop();
    if (place)
        place->Vide();
    place.reset();
    chemin.clear();
    gardee = false;
}
