#pragma once

#include <QMessageBox>
#include <QString>
#include <QStringList>

/// Message and question boxes. Their texts are shown as plain text: a file name is never taken for HTML.
namespace Boites {

/// An information box with the single button OK.
void Information(QWidget *parent, const QString &titre, const QString &texte);
/// A warning box with the single button OK.
void Avertissement(QWidget *parent, const QString &titre, const QString &texte);

/// No button answers the Escape key, and the box cannot be closed without an answer.
inline constexpr int sansEchappement = -1;

/// A box whose buttons bear their own texts; returns the index of the one chosen. \a defaut answers Return, and
/// \a echappement answers Escape and the closing of the box.
int Demande(QWidget *parent, QMessageBox::Icon icone, const QString &titre, const QString &texte,
            const QStringList &boutons, int defaut, int echappement);

}  // namespace Boites
