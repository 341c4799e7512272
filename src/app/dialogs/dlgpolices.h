#pragma once

#include "dialogue.h"
#include "lespolices.h"
#include "ui_dlgpolices.h"

/// The four fonts and the text colour of one tree. The caller shows values before exec() and reads the working copy back
/// when the dialog was accepted.
class DlgPolices : public Dialogue, public Ui_DlgPolices
{
    Q_OBJECT

public:
    /// The restore button puts back the values of \a reference, which is not owned.
    DlgPolices(LesPolices *reference, QWidget *parent);

    void Montre(const LesPolices &montrees);

    LesPolices *policesReference;
    LesPolices polices;  ///< working copy: what the labels and the swatch show

public Q_SLOTS:
    void slotModifPolTextes();
    void slotModifPolNum();
    void slotModifPolTitre();
    void slotModifPolLegende();
    void slotModifCouleur();
    void slotPolicesParDefaut();
};
