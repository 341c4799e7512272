#pragma once

#include "dialogue.h"
#include "formatsdessins.h"
#include "lespolices.h"
#include "ui_dlgpreferences.h"

#include <QColor>

/// The values that every new tree starts from: drawing lengths (mm), line colour, fonts and text colour. The caller shows
/// values before exec() and reads them back when the dialog was accepted.
class DlgPreferences : public Dialogue, public Ui_DlgPreferences
{
    Q_OBJECT

public:
    explicit DlgPreferences(QWidget *parent);

    void Montre(const FormatsDessins &formats, const LesPolices &montrees);
    [[nodiscard]] FormatsDessins Saisie() const;

    QColor couleurTraits;  ///< what the swatch of the lines shows
    LesPolices polices;    ///< working copy: what the labels and the swatch of the texts show

public Q_SLOTS:
    void slotModifPolTextes();
    void slotModifPolNum();
    void slotModifPolTitre();
    void slotModifPolLeg();
    void slotModifCoulTraits();
    void slotModifCoulTextes();
    /// Puts back the built-in values, not those of a file. The title is deliberately not bold here.
    void slotValeursParDefaut();
};
