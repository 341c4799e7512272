#include "champspresentation.h"

#include <QColorDialog>
#include <QFontDatabase>
#include <QFontDialog>
#include <QFontInfo>

void AffichageInfoPolice(const QFont &police, QLabel *famille, QLabel *style, QLabel *taille)
{
    famille->setText(police.family());
    taille->setText(QString::number(police.pointSize()));
    if (!style)
        return;
    constexpr int plusGrandPoidsNormal = 50;
    const bool gras = PoidsSurCent(police) > plusGrandPoidsNormal;
    if (gras)
        style->setText(police.italic() ? QStringLiteral("Bold Italic") : QStringLiteral("Bold"));
    else
        style->setText(police.italic() ? QStringLiteral("Italic") : QStringLiteral("Normal"));
}

bool ChoisitPolice(QWidget *parent, QFont &police)
{
    // The dialog would forget weight and slant of a family that is not installed: it starts from what stands for it.
    QFont depart = police;
    if (!QFontDatabase::hasFamily(police.family()))
        depart.setFamilies({QFontInfo(police).family()});
    bool acceptee = false;
    QFont choisie = QFontDialog::getFont(&acceptee, depart, parent);
    if (!acceptee)
        return false;
    if (choisie.family() == depart.family())
        choisie.setFamilies({police.family()});
    police = choisie;
    return true;
}

void ChoisitCouleur(QWidget *parent, QColor &couleur, QWidget *pastille)
{
    const QColor choisie = QColorDialog::getColor(couleur, parent);
    if (!choisie.isValid())
        return;
    couleur = choisie;
    MontreCouleur(pastille, couleur);
}

void MontreCouleur(QWidget *pastille, const QColor &couleur)
{
    QPalette palette = pastille->palette();
    palette.setBrush(QPalette::All, pastille->backgroundRole(), couleur);
    pastille->setPalette(palette);
}
