#pragma once

#include "formulaire.h"

/// What the dialogs of a tree's presentation and of the preferences have in common: the same fields, in the same words.

/// Four fonts that differ in everything, and a colour.
inline const LesPolices policesDessai{QFont("Liberation Serif", 9), QFont("Liberation Mono", 13, QFont::Bold, true),
                                      QFont("Liberation Sans", 31, QFont::Bold),
                                      QFont("Liberation Serif", 11, QFont::Normal, true), QColor(10, 20, 30)};
inline const QStringList policesDessaiEnTextes{"Liberation Serif 9 400", "Liberation Mono 13 700 italique",
                                               "Liberation Sans 31 700", "Liberation Serif 11 400 italique", "#0a141e"};
inline const QStringList labelsDessai{"Liberation Serif 9", "Liberation Mono Bold Italic 13", "Liberation Sans Bold 31",
                                      "Liberation Serif Italic 11"};

/// What \a dialogue says of its four fonts; the texts' one has no style.
template <typename Dialogue> QStringList LabelsDesPolices(const Dialogue &dialogue)
{
    return {dialogue.labelFamilleTextes->text() + ' ' + dialogue.labelTailleTextes->text(),
            dialogue.labelFamilleNumeros->text() + ' ' + dialogue.labelStyleNumeros->text() + ' '
                + dialogue.labelTailleNumeros->text(),
            dialogue.labelFamilleTitre->text() + ' ' + dialogue.labelStyleTitre->text() + ' '
                + dialogue.labelTailleTitre->text(),
            dialogue.labelFamilleLegende->text() + ' ' + dialogue.labelStyleLegende->text() + ' '
                + dialogue.labelTailleLegende->text()};
}

/// One data row for each length, named after its field, with the label that belongs to it in the column "texte".
inline void LabelsDesLongueurs()
{
    QTest::addColumn<QString>("texte");

    QTest::newRow("sbLCadre") << "Cadres : Largeur :";
    QTest::newRow("sbHCadre") << "Hauteur :";
    QTest::newRow("sbDMinHoriz") << "Distance minimum Horizontale entre deux cadres : ";
    QTest::newRow("sbDMinVert") << "Distance minimum Verticale entre deux cadres : ";
    QTest::newRow("sbMargeMin") << "Marge générale haute et gauche : ";
    QTest::newRow("sbMargeDansCadre") << "Marge des textes dans les cadres : ";
    QTest::newRow("sbIntervCadrePhoto") << "Distance entre cadre et photo associée : ";
    QTest::newRow("dsbEpTrait") << "Epaisseur des traits :";
    QTest::newRow("dsbRayonArc") << "Rayon des arcs de cercle : ";
}

/// The same rows, with what 11 to 17, 0.7 and 3.3 mm and \a couleur become in the column "saisi" when the field is 88.
inline void SaisiesDesLongueurs(const QString &couleur)
{
    QTest::addColumn<QString>("saisi");

    QTest::newRow("sbLCadre") << "88 12 13 14 15 16 17 0.7 3.3 " + couleur;
    QTest::newRow("sbHCadre") << "11 88 13 14 15 16 17 0.7 3.3 " + couleur;
    QTest::newRow("sbDMinHoriz") << "11 12 88 14 15 16 17 0.7 3.3 " + couleur;
    QTest::newRow("sbDMinVert") << "11 12 13 88 15 16 17 0.7 3.3 " + couleur;
    QTest::newRow("sbMargeMin") << "11 12 13 14 88 16 17 0.7 3.3 " + couleur;
    QTest::newRow("sbMargeDansCadre") << "11 12 13 14 15 88 17 0.7 3.3 " + couleur;
    QTest::newRow("sbIntervCadrePhoto") << "11 12 13 14 15 16 88 0.7 3.3 " + couleur;
    QTest::newRow("dsbEpTrait") << "11 12 13 14 15 16 17 88.0 3.3 " + couleur;
    QTest::newRow("dsbRayonArc") << "11 12 13 14 15 16 17 0.7 88.0 " + couleur;
}

/// Types 88 into the field named \a nom; Return takes it, then accepts \a dialogue.
inline void Tape88(const QDialog &dialogue, const char *nom)
{
    auto *champ = dialogue.findChild<QAbstractSpinBox *>(nom);
    QVERIFY(champ);
    champ->setFocus();
    champ->selectAll();
    QTest::keyClicks(champ, "88");
    QTest::keyClick(champ, Qt::Key_Return);
    QCOMPARE(dialogue.result(), int(QDialog::Accepted));
}
