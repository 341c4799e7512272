#pragma once

#include "dialoguefichier.h"
#include "dossier.h"
#include "programmebureau.h"
#include "ramelierapp.h"

#include <vector>

/// The main window for the tests: started with a command line, driven by clicks, and watched.

/// One person of a tree file.
struct PersonneEcrite
{
    quint64 numero;
    QString nom;
    QString prenom = {};
    QString fiche = {};
    QString lieuNaissance = {};
};

/// The bytes of a tree file with these persons, in increasing order of their numbers.
QByteArray ArbreEcrit(const QString &titre, const QList<PersonneEcrite> &personnes, int nombrePersonnes = 0);

/// The lines of an options file: boxes of \a largeurCadre x 42 mm, everything else as by default.
QByteArray OptionsEcrites(int largeurCadre);

/// The window as the program starts it, its guards open to the tests.
class Fenetre : public RamelierApp
{
public:
    explicit Fenetre(const QStringList &arguments = {}, const QString &programme = QStringLiteral("/usr/bin/ramelier"));

    using RamelierApp::proposeSauvegarde;
    using RamelierApp::queryExit;

private:
    explicit Fenetre(std::vector<QByteArray> mots);
    Fenetre(int argc, std::vector<char *> argv);
};

using MembreAction = QAction *RamelierApp::*;
Q_DECLARE_METATYPE(MembreAction)

struct ActionNommee
{
    QString nom;
    MembreAction membre;
};
/// Every action with its name, in the order of their declaration.
const QList<ActionNommee> &ActionsNommees();
/// Their names, "|" for a separator, in the order given.
QString NomsDe(const RamelierApp &fenetre, const QList<QAction *> &actions);
/// The names of all actions that are enabled, sorted.
QStringList ActionsActives(const RamelierApp &fenetre);

/// Waits until the tree has been painted, so that the drawing has its size.
bool EstDessine(RamelierApp &fenetre);
/// Left click in the middle of the box of person \a numero.
void Clique(RamelierApp &fenetre, quint64 numero, Qt::MouseButton bouton = Qt::LeftButton);
/// Left click on the corner of the drawing, where no box is.
void CliqueDansLeVide(RamelierApp &fenetre, Qt::MouseButton bouton = Qt::LeftButton);

/// What the user sees happen, in order: "texte" a message of the status bar, "texte (2000 ms)" one that goes away,
/// "[titre]" a dialog that opens, "= titre" a new title of the window.
class Journal : public QObject
{
public:
    explicit Journal(RamelierApp &fenetre);

    [[nodiscard]] const QStringList &Lignes() const { return lignes; }

protected:
    bool eventFilter(QObject *objet, QEvent *evenement) override;

private:
    QStringList lignes;
};

/// The message that the status bar shows, with its duration as in a Journal.
QString StatutDe(const RamelierApp &fenetre);

/// Forgets what earlier windows left in the settings.
void EffaceReglages();
