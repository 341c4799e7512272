#pragma once

#include "demarrage.h"
#include "environnement.h"
#include "ramelierapp.h"
#include "scenario.h"

#include <QApplication>
#include <QTemporaryDir>

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

/// A scratch folder. No dot in its path: a dot would keep the extension away from a new name.
class Dossier
{
public:
    [[nodiscard]] QString Chemin(const QString &nom = {}) const;
    /// Writes the file \a nom and returns its path.
    QString Ecrit(const QString &nom, const QByteArray &contenu) const;
    [[nodiscard]] QByteArray Lit(const QString &nom) const;
    /// The names of all files, sorted.
    [[nodiscard]] QStringList Noms() const;

private:
    QTemporaryDir dossier{QStringLiteral("/tmp/ramelier-essai-XXXXXX")};
};

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

/// A file dialog as its user saw it.
struct DialogueVu
{
    QString titre;
    QString dossier;
    QString nom;  ///< in its name field
    QStringList filtres;
    bool enregistre = false;
    bool confirme = true;  ///< asks before it replaces a file
    QWidget *parent = nullptr;
};
/// The next modal window is a file dialog; types \a chemin and accepts.
void Choisit(Scenario &scenario, const QString &chemin, DialogueVu *vu = nullptr);
/// The next modal window is a file dialog; gives up.
void Renonce(Scenario &scenario, DialogueVu *vu = nullptr);

/// Forgets what earlier windows left in the settings.
void EffaceReglages();

/// The main function of a class of window tests.
#define RAMELIER_TEST_FENETRE_MAIN(Classe)                                                                             \
    int main(int argc, char **argv)                                                                                    \
    {                                                                                                                  \
        const Environnement environnement;                                                                             \
        QCoreApplication::setAttribute(Qt::AA_DontUseNativeDialogs);                                                   \
        QApplication application(argc, argv);                                                                          \
        PrepareLApplication(application);                                                                              \
        Classe test;                                                                                                   \
        return QTest::qExec(&test, argc, argv);                                                                        \
    }
