#pragma once

#include <QString>
#include <QStringList>

class Partie;
class QDialog;
class QFileDialog;
class QMessageBox;

/// Answers every dialog that comes up, in any way that a user may, where nobody can tell which ones will come.
class Improvisation
{
public:
    explicit Improvisation(Partie &laPartie);

    /// From now on open dialogs take one of \a chemins, save dialogs one of a few names of their own.
    void Choisit(const QStringList &lesChemins) { chemins = lesChemins; }
    /// From now on open dialogs take \a chemin, and no work is saved on the way.
    void VaVers(const QString &chemin) { but = chemin; }
    /// Where save dialogs go.
    [[nodiscard]] QStringList Ecrits() const;

    /// Answers \a dialogue. What was wrong with it, or nothing.
    QString Repond(QDialog &dialogue);

private:
    QString RepondALaBoite(QMessageBox &boite);
    void RepondAuxFichiers(QFileDialog &dialogue);
    void RepondAuxLignes(QDialog &dialogue);

    Partie &partie;
    QStringList chemins;
    QString but;
};
