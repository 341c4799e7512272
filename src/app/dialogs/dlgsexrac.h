#pragma once

#include "dialogue.h"
#include "ui_dlgsexrac.h"

/// The sex of the root, which its number does not tell. Male unless the user says otherwise; it cannot be declined.
class DlgSexRac : public Dialogue, public Ui_DlgSexRac
{
    Q_OBJECT

public:
    /// Builds the form, with the focus on the answer that is checked.
    explicit DlgSexRac(QWidget *parent)
        : Dialogue(parent)
    {
        setupUi(this);
        radioButtonM->setFocus();
    }
};
