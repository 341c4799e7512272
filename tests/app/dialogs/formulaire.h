#pragma once

#include "environnement.h"
#include "formatsdessins.h"
#include "lespolices.h"
#include "scenario.h"

#include <QColor>
#include <QDialog>
#include <QFont>
#include <QLabel>
#include <QPushButton>
#include <QSpinBox>

#include <memory>

/// The forms of the dialogs for the tests: made by name, shown, driven by keys and clicks, and read as texts.

/// The class names of the seven dialogs.
const QStringList &TousLesDialogues();
/// A new dialog of this class, filled as its caller fills it, without a parent.
std::unique_ptr<QDialog> NouveauDialogue(const QString &classe);
/// One data row for each dialog, in the column "classe".
void UneLigneParDialogue();

/// Shows \a dialogue and waits until it has the keyboard.
bool Affiche(QDialog &dialogue);
/// What the Tab key visits, from the widget that has the focus until it comes round: the texts of push buttons, the
/// object names of the fields.
QStringList OrdreDesTabulations(const QDialog &dialogue);

/// What OrdreDesTabulations() calls \a nom; null when there is none.
QWidget *Visite(const QDialog &dialogue, const QString &nom);
/// The push button with this text; fails the test when there is not exactly one.
QPushButton *Bouton(const QDialog &dialogue, const QString &texte);
/// The texts of all push buttons, sorted.
QStringList TextesDesBoutons(const QDialog &dialogue);
/// The texts of all labels that show one, sorted.
QStringList TextesDesLabels(const QDialog &dialogue);
/// The text of the label that belongs to \a champ; a null text when there is none.
QString LabelDe(const QWidget *champ);
/// The text of the label of this name; a null text when there is none.
QString TexteDuLabel(const QDialog &dialogue, const QString &nom);
/// Left click in the middle of \a widget. Returns when whatever modal it opened is closed.
void Clique(QWidget *widget);
/// Types \a texte in the place of what \a champ holds, and leaves the field.
void Remplace(QAbstractSpinBox *champ, const QString &texte);

/// What differs from \a couleur in the way \a pastille shows it: in every group of its palette and on the screen. Empty when
/// all is well.
QString EcartsDePastille(QWidget *pastille, const QColor &couleur);

/// "30 42 10 15 15 1 1 1.0 2.5 #000000": the fields in their order.
QString EnTexte(const FormatsDessins &formats);
/// "Helvetica 8 400 italique": family, points, weight and slant.
QString EnTexte(const QFont &police);
/// The four fonts and the colour, one text each.
QStringList EnTextes(const LesPolices &polices);

/// The toolkit's dialog as it was when it opened.
struct DialogueOuvert
{
    QColor couleur;
    QFont police;
    QWidget *parent = nullptr;
};
/// The next modal window is the colour dialog; chooses \a couleur, then clicks OK, or Cancel when not \a accepte.
void ProchaineCouleur(Scenario &scenario, const QColor &couleur, bool accepte, DialogueOuvert *ouvert = nullptr);
/// The next modal window is the font dialog; chooses \a police, then clicks OK, or Cancel when not \a accepte.
void ProchainePolice(Scenario &scenario, const QFont &police, bool accepte, DialogueOuvert *ouvert = nullptr);

/// The main function of a class of dialog tests: the colour and font dialogs are the toolkit's own.
#define RAMELIER_TEST_DIALOGUES_MAIN(Classe)                                                                           \
    int main(int argc, char **argv)                                                                                    \
    {                                                                                                                  \
        const Environnement environnement(QSize(2560, 1600));                                                          \
        QCoreApplication::setAttribute(Qt::AA_DontUseNativeDialogs);                                                   \
        QApplication application(argc, argv);                                                                          \
        Classe test;                                                                                                   \
        return QTest::qExec(&test, argc, argv);                                                                        \
    }
