#pragma once

#include <QDialog>

class QScrollArea;

/// A dialog that its screen always holds. Where letters are large or the screen is small, what stands in the layout
/// "colonnes" side by side comes to stand one below the other; where that is not enough, the form scrolls above its row of
/// buttons "rangeeBoutons". Elsewhere a QDialog.
class Dialogue : public QDialog
{
    Q_OBJECT

public:
    using QDialog::QDialog;

    void setVisible(bool visible) override;

protected:
    bool event(QEvent *evenement) override;
    bool eventFilter(QObject *objet, QEvent *evenement) override;

private:
    void TientSurLEcran();
    void EmpileLesColonnes();
    void Defile(QSize place);
    /// Takes the row of buttons out of the form, if there is room for it; null when it stays.
    [[nodiscard]] QLayout *SortLesBoutons(QSize place);
    /// The wheel scrolls the form and changes none of the numbers that pass under the pointer.
    void LaMoletteDefile();

    QScrollArea *zone = nullptr;  ///< holds the form, when it scrolls
};
