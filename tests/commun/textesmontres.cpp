#include "textesmontres.h"

#include <QAbstractItemView>
#include <QAbstractSpinBox>
#include <QAccessible>
#include <QAction>
#include <QComboBox>
#include <QHeaderView>
#include <QLabel>
#include <QLineEdit>
#include <QMenu>
#include <QTabWidget>

namespace {

/// A property that only some widgets have.
void AjouteLaPropriete(QStringList &textes, const QObject &objet, const char *nom)
{
    if (objet.metaObject()->indexOfProperty(nom) >= 0)
        textes += objet.property(nom).toString();
}

void AjouteLAccessible(QStringList &textes, QWidget &widget)
{
    const QAccessibleInterface *acces = QAccessible::queryAccessibleInterface(&widget);
    if (!acces)
        return;
    for (const auto genre : {QAccessible::Name, QAccessible::Description, QAccessible::Help})
        textes += acces->text(genre);
}

void AjouteLesElements(QStringList &textes, const QWidget &widget)
{
    if (const auto *choix = qobject_cast<const QComboBox *>(&widget)) {
        for (int i = 0; i < choix->count(); ++i)
            textes += choix->itemText(i);
    }
    if (const auto *onglets = qobject_cast<const QTabWidget *>(&widget)) {
        for (int i = 0; i < onglets->count(); ++i)
            textes += onglets->tabText(i);
    }
    if (const auto *entete = qobject_cast<const QHeaderView *>(&widget); entete && entete->model()) {
        for (int i = 0; i < entete->count(); ++i)
            textes += entete->model()->headerData(i, entete->orientation()).toString();
    }
    for (const QAction *action : widget.actions())
        textes << action->text() << action->toolTip() << action->shortcut().toString(QKeySequence::NativeText);
}

}  // namespace

QStringList TextesMontres(const QWidget &fenetre)
{
    QStringList textes;
    QList<QWidget *> widgets = fenetre.findChildren<QWidget *>();
    widgets.prepend(const_cast<QWidget *>(&fenetre));
    for (QWidget *widget : std::as_const(widgets)) {
        for (const char *nom : {"windowTitle", "toolTip", "statusTip", "whatsThis", "placeholderText", "title",
                                "prefix", "suffix", "specialValueText"})
            AjouteLaPropriete(textes, *widget, nom);
        const bool saisie = qobject_cast<QLineEdit *>(widget) || qobject_cast<QAbstractSpinBox *>(widget);
        if (!saisie)
            AjouteLaPropriete(textes, *widget, "text");
        AjouteLAccessible(textes, *widget);
        AjouteLesElements(textes, *widget);
    }
    textes.removeAll(QString());
    textes.removeDuplicates();
    return textes;
}

QString TextesNonTraduits::translate(const char *contexte, const char *source, const char * /*precision*/,
                                     int /*nombre*/) const
{
    textes += QString::fromUtf8(contexte) + QStringLiteral(": ") + QString::fromUtf8(source);
    return {};
}

QStringList TextesNonTraduits::Pris()
{
    QStringList pris = std::exchange(textes, {});
    pris.removeDuplicates();
    return pris;
}
