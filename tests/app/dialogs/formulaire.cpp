#include "formulaire.h"

#include "dlgindrac.h"
#include "dlgoptdessin.h"
#include "dlgpdg.h"
#include "dlgpers.h"
#include "dlgpolices.h"
#include "dlgpreferences.h"
#include "dlgsexrac.h"

#include <QApplication>
#include <QColorDialog>
#include <QDialogButtonBox>
#include <QFontDialog>
#include <QtTest>

namespace {

std::unique_ptr<QDialog> NouvelleSaisie(const QString &classe)
{
    if (classe == "DlgPers") {
        auto dialogue = std::make_unique<DlgPers>(nullptr);
        dialogue->LabelTitre->setText("Modification des informations de la personne n°18446744073709551615");
        return dialogue;
    }
    if (classe == "DlgPdG")
        return std::make_unique<DlgPdG>(nullptr);
    if (classe == "DlgSexRac")
        return std::make_unique<DlgSexRac>(nullptr);
    auto dialogue = std::make_unique<DlgIndRac>(nullptr);
    dialogue->ListeDesIndividus->addItems({"I1 : MARTIN, Jean", "I2 : DURAND, Anne"});
    return dialogue;
}

// The buttons of the toolkit's own dialogs.
void Termine(QDialog &dialogue, bool accepte)
{
    const auto *boutons = dialogue.findChild<QDialogButtonBox *>();
    QVERIFY(boutons);
    Scenario::ClicPlusTard(boutons->button(accepte ? QDialogButtonBox::Ok : QDialogButtonBox::Cancel));
}

}  // namespace

const QStringList &TousLesDialogues()
{
    static const QStringList noms{"DlgPers",      "DlgPdG",     "DlgIndRac",     "DlgSexRac",
                                  "DlgOptDessin", "DlgPolices", "DlgPreferences"};
    return noms;
}

std::unique_ptr<QDialog> NouveauDialogue(const QString &classe)
{
    static FormatsDessins formats = FormatsDessins::ParDefaut();
    static LesPolices polices = LesPolices::ParDefaut();
    if (classe == "DlgOptDessin") {
        auto dialogue = std::make_unique<DlgOptDessin>(&formats, nullptr);
        dialogue->Montre(formats);
        return dialogue;
    }
    if (classe == "DlgPolices") {
        auto dialogue = std::make_unique<DlgPolices>(&polices, nullptr);
        dialogue->Montre(polices);
        return dialogue;
    }
    if (classe == "DlgPreferences") {
        auto dialogue = std::make_unique<DlgPreferences>(nullptr);
        dialogue->Montre(formats, polices);
        return dialogue;
    }
    return NouvelleSaisie(classe);
}

void UneLigneParDialogue()
{
    QTest::addColumn<QString>("classe");
    for (const QString &nom : TousLesDialogues())
        QTest::newRow(qPrintable(nom)) << nom;
}

bool Affiche(QDialog &dialogue)
{
    dialogue.show();
    return QTest::qWaitForWindowActive(&dialogue);
}

QStringList OrdreDesTabulations(const QDialog &dialogue)
{
    constexpr int bienAssez = 50;
    QStringList noms;
    const QWidget *premier = dialogue.focusWidget();
    do {
        QWidget *courant = QApplication::focusWidget();
        if (!courant)
            return noms += "(aucun)";
        const auto *bouton = qobject_cast<QPushButton *>(courant);
        noms += bouton ? bouton->text() : courant->objectName();
        QTest::keyClick(courant, Qt::Key_Tab);
    } while (QApplication::focusWidget() != premier && noms.size() < bienAssez);
    return noms;
}

QWidget *Visite(const QDialog &dialogue, const QString &nom)
{
    const auto boutons = dialogue.findChildren<QPushButton *>();
    for (QPushButton *bouton : boutons) {
        if (bouton->text() == nom)
            return bouton;
    }
    return dialogue.findChild<QWidget *>(nom);
}

QPushButton *Bouton(const QDialog &dialogue, const QString &texte)
{
    QPushButton *trouve = nullptr;
    const auto boutons = dialogue.findChildren<QPushButton *>();
    for (QPushButton *bouton : boutons) {
        if (bouton->text() != texte)
            continue;
        if (trouve)
            qFatal("deux boutons « %s »", qPrintable(texte));
        trouve = bouton;
    }
    if (!trouve)
        qFatal("pas de bouton « %s »", qPrintable(texte));
    return trouve;
}

QStringList TextesDesBoutons(const QDialog &dialogue)
{
    QStringList textes;
    const auto boutons = dialogue.findChildren<QPushButton *>();
    for (const QPushButton *bouton : boutons)
        textes += bouton->text();
    textes.sort();
    return textes;
}

QStringList TextesDesLabels(const QDialog &dialogue)
{
    QStringList textes;
    const auto labels = dialogue.findChildren<QLabel *>();
    for (const QLabel *label : labels) {
        if (!label->text().isEmpty())
            textes += label->text();
    }
    textes.sort();
    return textes;
}

QString LabelDe(const QWidget *champ)
{
    const auto labels = champ->window()->findChildren<QLabel *>();
    for (const QLabel *label : labels) {
        if (label->buddy() == champ)
            return label->text();
    }
    return {};
}

QString TexteDuLabel(const QDialog &dialogue, const QString &nom)
{
    const auto *label = dialogue.findChild<QLabel *>(nom);
    return label ? label->text() : QString();
}

void Clique(QWidget *widget)
{
    QTest::mouseClick(widget, Qt::LeftButton);
}

void Remplace(QAbstractSpinBox *champ, const QString &texte)
{
    champ->setFocus();
    champ->selectAll();
    QTest::keyClicks(champ, texte);
    QTest::keyClick(champ, Qt::Key_Tab);
}

QString EcartsDePastille(QWidget *pastille, const QColor &couleur)
{
    QStringList ecarts;
    for (const auto groupe : {QPalette::Active, QPalette::Inactive, QPalette::Disabled}) {
        const QBrush pinceau = pastille->palette().brush(groupe, pastille->backgroundRole());
        if (pinceau != QBrush(couleur))
            ecarts += QStringLiteral("groupe %1 : %2").arg(groupe).arg(pinceau.color().name(QColor::HexArgb));
    }
    if (!pastille->styleSheet().isEmpty())
        ecarts += "feuille de style " + pastille->styleSheet();
    const QImage image = pastille->grab().toImage();
    const QColor peinte = image.pixelColor(image.rect().center());
    if (peinte.rgb() != couleur.rgb())
        ecarts += "peinte en " + peinte.name();
    return ecarts.join('\n');
}

QString EnTexte(const FormatsDessins &formats)
{
    QStringList mots;
    for (const int longueur : {formats.largeurCadre, formats.hauteurCadre, formats.distMinHoriz, formats.distMinVert,
                               formats.margeGenerale, formats.margeDansCadre, formats.intervCadrePhoto})
        mots += QString::number(longueur);
    // Nine digits tell every float from its neighbours; whole tenths show one decimal.
    for (const float longueur : {formats.epaisseurTraits, formats.rayonArc}) {
        const QString court = QString::number(double(longueur), 'f', 1);
        mots += court.toFloat() == longueur ? court : QString::number(double(longueur), 'g', 9);
    }
    mots += formats.couleurTraits.isValid() ? formats.couleurTraits.name() : QStringLiteral("(aucune)");
    return mots.join(' ');
}

QString EnTexte(const QFont &police)
{
    return QStringLiteral("%1 %2 %3%4")
        .arg(police.family())
        .arg(police.pointSize())
        .arg(police.weight())
        .arg(police.italic() ? QStringLiteral(" italique") : QString());
}

QStringList EnTextes(const LesPolices &polices)
{
    return {EnTexte(polices.policeTextes), EnTexte(polices.policeNumeros), EnTexte(polices.policeTitre),
            EnTexte(polices.policeLegende),
            polices.couleurCaracteres.isValid() ? polices.couleurCaracteres.name() : QStringLiteral("(aucune)")};
}

void ProchaineCouleur(Scenario &scenario, const QColor &couleur, bool accepte, DialogueOuvert *ouvert)
{
    scenario.Dialogue<QColorDialog>([couleur, accepte, ouvert](QColorDialog &dialogue) {
        if (ouvert)
            *ouvert = {.couleur = dialogue.currentColor(), .police = {}, .parent = dialogue.parentWidget()};
        dialogue.setCurrentColor(couleur);
        Termine(dialogue, accepte);
    });
}

void ProchainePolice(Scenario &scenario, const QFont &police, bool accepte, DialogueOuvert *ouvert)
{
    scenario.Dialogue<QFontDialog>([police, accepte, ouvert](QFontDialog &dialogue) {
        if (ouvert)
            *ouvert = {.couleur = {}, .police = dialogue.currentFont(), .parent = dialogue.parentWidget()};
        dialogue.setCurrentFont(police);
        Termine(dialogue, accepte);
    });
}
