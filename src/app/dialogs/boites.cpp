#include "boites.h"

#include "curseurattente.h"

#include <QAbstractButton>
#include <QPushButton>

namespace Boites {

namespace {

void Montre(QWidget *parent, QMessageBox::Icon icone, const QString &titre, const QString &texte)
{
    const CurseurRendu curseur;
    QMessageBox boite(icone, titre, texte, QMessageBox::Ok, parent);
    boite.setTextFormat(Qt::PlainText);
    boite.exec();
}

}  // namespace

void Information(QWidget *parent, const QString &titre, const QString &texte)
{
    Montre(parent, QMessageBox::Information, titre, texte);
}

void Avertissement(QWidget *parent, const QString &titre, const QString &texte)
{
    Montre(parent, QMessageBox::Warning, titre, texte);
}

int Demande(QWidget *parent, QMessageBox::Icon icone, const QString &titre, const QString &texte,
            const QStringList &boutons, int defaut, int echappement)
{
    const CurseurRendu curseur;
    QMessageBox boite(icone, titre, texte, QMessageBox::NoButton, parent);
    boite.setTextFormat(Qt::PlainText);
    QList<QPushButton *> poses;
    // All with the same role: the order is kept, and no button becomes the Escape button by its role alone.
    for (const QString &bouton : boutons)
        poses += boite.addButton(bouton, QMessageBox::AcceptRole);
    boite.setDefaultButton(poses.at(defaut));
    if (echappement != sansEchappement)
        boite.setEscapeButton(poses.at(echappement));
    boite.exec();
    return static_cast<int>(poses.indexOf(boite.clickedButton()));
}

}  // namespace Boites
