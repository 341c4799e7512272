#pragma once

#include "dialogue.h"
#include "ui_dlgpdg.h"

/// The title page of a tree. The caller fills the five line edits and copies back those that the user touched.
class DlgPdG : public Dialogue, public Ui_DlgPdG
{
    Q_OBJECT

public:
    /// Builds the form, and nothing else.
    explicit DlgPdG(QWidget *parent)
        : Dialogue(parent)
    {
        setupUi(this);
    }
};
