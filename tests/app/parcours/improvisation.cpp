#include "improvisation.h"

#include "dossier.h"
#include "partie.h"

#include <QFileDialog>
#include <QLineEdit>
#include <QMessageBox>
#include <QPushButton>
#include <QtTest>

namespace {

/// The boxes that a user of the program may meet at all.
const QStringList titresConnus{
    "Information",
    "Sauvegarde",
    "Sauver sous...",
    "Suppression de la personne sélectionnée",
    "Modification",
    "Création du nouvel arbre",
    "Création de la racine du nouvel arbre",
    "Choix du mode d'impression",
    "Enregistrement d'un arbre ancien format .rlg",
    "Exportation vers GEDCOM",
    "Exporter vers fichier au format GED...",
    "Arbre XRLG",
    "A propos...",
    "ramelier - Arbre généalogique",
    "Fermer...",
    "LyEditHtml",
};

}  // namespace

Improvisation::Improvisation(Partie &laPartie)
    : partie(laPartie)
{
}

QStringList Improvisation::Ecrits() const
{
    return {partie.dossier.Chemin("improvise-0.xrlg"), partie.dossier.Chemin("improvise-1.xrlg")};
}

QString Improvisation::Repond(QDialog &dialogue)
{
    if (auto *boite = qobject_cast<QMessageBox *>(&dialogue))
        return RepondALaBoite(*boite);
    if (auto *fichiers = qobject_cast<QFileDialog *>(&dialogue))
        RepondAuxFichiers(*fichiers);
    else
        RepondAuxLignes(dialogue);
    return {};
}

QString Improvisation::RepondALaBoite(QMessageBox &boite)
{
    if (!titresConnus.contains(boite.windowTitle()))
        return QStringLiteral("boîte inconnue « %1 » : %2").arg(boite.windowTitle(), boite.text());
    QAbstractButton *bouton = partie.tirage.Un(boite.buttons());
    if (!but.isEmpty() && boite.windowTitle() == "Sauvegarde")
        bouton = boite.buttons().at(1);
    // Printing has its own journey, and on paper nothing tells where it goes.
    if (boite.windowTitle() == "Choix du mode d'impression")
        bouton = boite.buttons().at(2);
    partie.Note("[" + boite.windowTitle() + " : " + bouton->text() + "]");
    bouton->click();
    return {};
}

void Improvisation::RepondAuxFichiers(QFileDialog &dialogue)
{
    const bool enregistre = dialogue.acceptMode() == QFileDialog::AcceptSave;
    if (but.isEmpty() && partie.tirage.Chance(20)) {
        QTest::keyClick(&dialogue, Qt::Key_Escape);
        return;
    }
    QString chemin = but.isEmpty() ? partie.tirage.Un(enregistre ? Ecrits() : chemins) : but;
    if (enregistre && dialogue.windowTitle() == "Exporter au format GED")
        chemin = partie.dossier.Chemin("improvise.ged");
    partie.Note("[" + chemin.section(u'/', -1) + "]");
    ::Choisit(dialogue, chemin);
}

void Improvisation::RepondAuxLignes(QDialog &dialogue)
{
    const bool accepte = partie.tirage.Chance(60);
    const QList<QLineEdit *> lignes = dialogue.findChildren<QLineEdit *>();
    for (QLineEdit *ligne : lignes) {
        // Spin boxes have lines too, which a program of their own reads.
        if (accepte && !ligne->isReadOnly() && !ligne->objectName().startsWith("qt_") && partie.tirage.Chance(30))
            Remplace(*ligne, partie.tirage.Texte());
    }
    partie.Note("[" + dialogue.windowTitle() + (accepte ? " : accepté]" : " : refusé]"));
    dialogue.done(accepte ? QDialog::Accepted : QDialog::Rejected);
}
