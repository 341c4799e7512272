#include "champspresentation.h"

#include <QColorDialog>
#include <QFontDatabase>
#include <QFontDialog>
#include <QFontInfo>

namespace {

/// "#ff8000 (rouge 255, vert 128, bleu 0)"
QString EnMots(const QColor &couleur)
{
    return QStringLiteral("%1 (rouge %2, vert %3, bleu %4)")
        .arg(couleur.name())
        .arg(couleur.red())
        .arg(couleur.green())
        .arg(couleur.blue());
}

}  // namespace

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

void MontrePolice(const QFont &police, QLabel *famille, QLabel *style, QLabel *taille, QWidget *bouton)
{
    AffichageInfoPolice(police, famille, style, taille);
    QStringList mots{famille->text(), taille->text()};
    if (style)
        mots.insert(1, style->text());
    bouton->setAccessibleDescription(mots.join(u' '));
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

void ChoisitCouleur(QWidget *parent, QColor &couleur, ChampCouleur champ)
{
    const QColor choisie = QColorDialog::getColor(couleur, parent);
    if (!choisie.isValid())
        return;
    couleur = choisie;
    MontreCouleur(champ, couleur);
}

void MontreCouleur(ChampCouleur champ, const QColor &couleur)
{
    QPalette palette = champ.pastille->palette();
    palette.setBrush(QPalette::All, champ.pastille->backgroundRole(), couleur);
    champ.pastille->setPalette(palette);
    const QString mots = EnMots(couleur);
    champ.pastille->setToolTip(mots);
    champ.pastille->setAccessibleDescription(mots);
    champ.bouton->setAccessibleDescription(mots);
}
